// What the component remembers between the calls of its host. It exists once per process, all
// instances of `WYNConfig` share it, and nothing ever resets it.
#pragma once

#include <memory>
#include <string>

#include "platform/records/collection.h"
#include "wynconfig/dataset.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig::ConfigGlobalModule {

/// Root & "MORAM\", with its trailing backslash. Empty until `WYNConfig::init` ran.
extern std::string g_SessionFolder;
/// Root & "PARTFORMAT\", with its trailing backslash. Empty until `WYNConfig::init` ran.
extern std::string g_PartFormatFolder;
/// The host's resource manager; null until it sets one, and used without any test.
extern std::shared_ptr<ResourceManager> g_ResMgr;
/// The session record of the in-memory exchange; never null.
extern std::shared_ptr<Dataset> g_Session;
/// The part format records of the in-memory exchange, by name.
extern Collection<Dataset> g_PartFormats;
/// The part format chosen last in the file-writer dialog.
extern std::string g_TallyvanePartFormat;
/// Whether the dialogs work in memory. Keeps its value between calls.
extern bool g_DatasetMode;

/// Everything as it was when the component was loaded. For tests.
void reset();

}  // namespace wynconfig::ConfigGlobalModule

// What the component remembers between the calls of its host. Each thread has its own, which all
// instances of `WYNConfig` on it share, and nothing ever resets it.
#pragma once

#include <memory>
#include <string>

#include "platform/records/collection.h"
#include "wynconfig/dataset.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig::ConfigGlobalModule {

/// Root & "MORAM\", with its trailing backslash. Empty until `WYNConfig::init` ran.
extern thread_local std::string g_SessionFolder;
/// Root & "PARTFORMAT\", with its trailing backslash. Empty until `WYNConfig::init` ran.
extern thread_local std::string g_PartFormatFolder;
/// The host's resource manager; null until it sets one, and used without any test.
extern thread_local std::shared_ptr<ResourceManager> g_ResMgr;
/// The session record of the in-memory exchange; never null.
extern thread_local std::shared_ptr<Dataset> g_Session;
/// The part format records of the in-memory exchange, by name.
extern thread_local Collection<Dataset> g_PartFormats;
/// The part format chosen last in the file-writer dialog.
extern thread_local std::string g_TallyvanePartFormat;
/// Whether the dialogs work in memory. Keeps its value between calls.
extern thread_local bool g_DatasetMode;

/// Everything as it was when the component was loaded. For tests.
void reset();

}  // namespace wynconfig::ConfigGlobalModule

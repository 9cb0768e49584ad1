// What the host needs before its window can come up, and what to do where it is not there.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "sample/sample_store.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/wynconfig.h"

namespace host {

/// The texts of a language, as `useLanguage` gives them. Where they are missing or can't be read,
/// the user is asked for their folder until they are found.
/// @param resources  folder of the texts; the one where they were found
/// @param language   empty: the user's; "en" where the user took English instead
/// @return null: the user gave up
std::shared_ptr<wynconfig::ResourceManager> findTexts(std::string& resources,
                                                      std::string& language);

/// The store of a folder; a sample store is made there when it has none. Where none can be made,
/// the user is asked for another folder.
/// @param component  has its resource manager
/// @return none: the user gave up
std::optional<StoreFolders> findStore(wynconfig::WYNConfig& component, std::filesystem::path root);

/// Says in a window why the host does not come up.
void tellBadStart(const std::string& why);

}  // namespace host

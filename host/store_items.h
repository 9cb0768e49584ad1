// What lies in the folders of a store: the names of its items, and the records that sending needs.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "sample_store.h"
#include "sending/part_format.h"
#include "sending/session.h"

namespace host {

/// Names of the items of a folder, in their order; none when the folder is not there.
std::vector<std::string> itemNames(const std::filesystem::path& folder);

/// Reads a session. Raises `std::runtime_error` with a sentence for the user when it can't be read.
Session loadSession(const StoreFolders& store, const std::string& name);

/// Reads a part format. Raises `std::runtime_error` as well.
PartFormat loadPartFormat(const StoreFolders& store, const std::string& name);

}  // namespace host

// Short names that many tests have for the same types.
#pragma once

#include <string>
#include <vector>

#include "platform/files/faulty_file_system.h"

namespace wynconfig {

/// Names of sessions, part formats, files or controls, in their order.
using Names = std::vector<std::string>;

/// What has happened, in its order.
using Log = std::vector<std::string>;

/// What a `FaultyFileSystem` counts, and fails on demand.
using Operation = FaultyFileSystem::Operation;

}  // namespace wynconfig

// The records of a store that sending needs.
#pragma once

#include <string>

#include "sample/sample_store.h"
#include "sending/part_format.h"
#include "sending/session.h"

namespace host {

/// Reads a session. Raises `std::runtime_error` with a sentence for the user when it can't be read.
Session loadSession(const StoreFolders& store, const std::string& name);

/// Reads a part format. Raises `std::runtime_error` as well.
PartFormat loadPartFormat(const StoreFolders& store, const std::string& name);

}  // namespace host

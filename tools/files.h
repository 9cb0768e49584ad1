// Files outside a store.
#pragma once

#include <string>

namespace tool {

/// The content of a file. Raises `wynconfig::Error`.
std::string readFile(const std::string& path);

/// Writes a file; a plain one is at all times wholly the old or wholly the new one. A pipe or a
/// device takes what comes. Raises `wynconfig::Error`.
void writeFile(const std::string& path, const std::string& content);

}  // namespace tool

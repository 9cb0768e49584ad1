// Reading part formats out of another store.
#pragma once

#include <string>

namespace wynconfig {

/// Fills `g_PartFormats` with part formats of another store, in place of what it held.
/// @param path        folder of the part formats there, with its trailing separator
/// @param formatList  their names, joined by commas; one that stands there twice is read twice, and
///                    the later reading counts
/// @return whether all of them were found and read. At the first one that is missing (no box) or
///         can't be read (a box) the reading ends, and the ones before it stay.
bool MigratePartFormats(const std::string& path, const std::string& formatList);

}  // namespace wynconfig

// Paths and names as the system takes them. Each system has its own answers.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wynconfig {

/// A path with `/` or `\` between its parts in the one spelling that `FileSystem` works with: `/`
/// between the parts, one at a time, and none at the end unless it is a root.
std::string systemPath(std::string_view path);

/// How much of a path that `systemPath` made is its root, such as `/`, and on Windows `C:/` and
/// `//server/share/`. 0 for a path in the working folder.
std::size_t rootLength(std::string_view path);

/// A path that the system has given, in the spelling that `FileSystem` works with. Where `\` is a
/// letter like others it stays.
std::string exactPath(std::string_view path);

/// Whether the system itself takes it for a separator.
bool isSystemSeparator(char c);

/// Whether a name without separators can be that of one file on the disk, and of nothing else.
bool isNameOfSystem(std::string_view name);

}  // namespace wynconfig

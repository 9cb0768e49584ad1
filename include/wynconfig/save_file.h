/// @file
/// Files of a host outside the store, looked at and saved as the component does with its own.
#pragma once

#include <string>
#include <string_view>

#include "wynconfig/export.h"

namespace wynconfig {

/// Writes a whole file so that, whatever happens meanwhile, it is wholly the old or wholly the new
/// one, and that the new one is on the disk when the call returns. The new content is written
/// beside the old one under a name that nobody has, so that the user needs the right to make files
/// in the folder. An existing file keeps its mode bits, and one that its user may not write is left
/// alone. A link is followed; one that leads nowhere is replaced by the file.
///
/// Of two programs that save a file at the same moment, the last one wins.
/// @param path     as the system spells it, UTF-8; in a folder that is there
/// @param content  bytes, taken as they are, of any size
/// Raises `Error` with errc::FileAccess and a sentence for the user that names the file, also for
/// what is no plain file, such as a folder, a pipe or a device. The old file then stands, unless
/// the sentence says that the new one is written but not confirmed on the disk.
WYNCONFIG_API void saveFile(const std::string& path, std::string_view content);

/// Whether something lies at a path that is no plain file, such as a folder, a pipe, a device or a
/// socket: opening one may wait for another program, or do harm. It is looked at without being
/// opened; a link is what it leads to. False where nothing is.
/// @param path  as the system spells it, UTF-8
/// Raises `Error` with errc::FileAccess when it can't be told.
WYNCONFIG_API bool isNoPlainFile(const std::string& path);

}  // namespace wynconfig

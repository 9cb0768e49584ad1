/// @file
/// Where one file of the store lies.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "wynconfig/export.h"

namespace wynconfig {

/// The most bytes that the text of an item may have, in a file as well as in a document: an item is
/// a small record.
inline constexpr std::size_t kMaxItemSize = std::size_t{64} << 20;

/// A folder, as the host gave it, and one name in it, both UTF-8, kept apart so that a name can
/// never lead out of its folder: a name that holds a separator is not found and can't be saved.
struct WYNCONFIG_API ItemPath {
    std::string folder;  ///< with its trailing separator, `\` or `/`; empty: the working folder
    std::string name;    ///< the file's name with its extension, such as "MY SESSION.vla"

    /// The item file of a session or part format: `folder` & `item` & ".vla".
    static ItemPath item(std::string_view folder, std::string_view item);
    /// A path as a person writes it, cut behind its last separator.
    static ItemPath of(std::string_view path);

    /// Folder and name as one text, for messages.
    std::string text() const { return folder + name; }
};

}  // namespace wynconfig

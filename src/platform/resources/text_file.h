// A file of texts: XLIFF 1.2, which the tools of translators open. Who writes one is told in
// docs/resource_manager.md.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wynconfig {

/// A text of a file.
struct FileText {
    std::string key;
    std::string source;                 ///< in the language from which it is translated
    std::optional<std::string> target;  ///< its translation, unless it still needs one
};

/// The most bytes of a file that is read: some thousand times what the texts need.
inline constexpr std::size_t kMaxTextFileSize = std::size_t{16} << 20;

/// The texts of a file, in its order. Read is XLIFF 1.1 and 1.2, also without a namespace, in
/// UTF-8, UTF-16 or what else the XML library knows. What this version has no use for is read over:
/// notes, proposals, segments and elements of others. Inline elements leave the characters in them.
/// Where no xml:space="preserve" holds, line ends and blanks in a row are one blank, and none at
/// the ends.
///
/// Raises `Error` (errc::BadRecord) with the cause when the text is no XLIFF, has a document type
/// declaration, or is beyond the bounds: kMaxTextFileSize, 256 for the elements and namespaces that
/// are open at once, some ten thousand different names.
std::vector<FileText> readTextFile(std::string_view xml);

}  // namespace wynconfig

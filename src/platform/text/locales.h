// What the system knows of locales: the parts of their names, the marks by which they write
// numbers, and their languages. Each system has a side of its own; no other file asks it.
#pragma once

#include <string>
#include <vector>

namespace wynconfig {

/// A locale by the parts of its name.
struct Locale {
    std::string tag;       ///< the whole by BCP 47, such as "zh-CN"; empty for none
    std::string language;  ///< "zh"
    std::string script;    ///< "Hans": the usual one where the name tells none; may be empty
    std::string region;    ///< "CN", or empty
};

/// The locale that a text names, by BCP 47 ("de-DE") or as POSIX has it ("de_DE.UTF-8"). Its tag
/// holds letters, digits and "-" alone, and is empty for a text that names none.
/// @param name  empty: the one in whose language the user reads
Locale localeOf(const std::string& name);

/// The tags of the locales whose texts can serve one, the most general first: "en", "de",
/// "de-Latn", "de-AT", "de-Latn-AT". Those of its language in another script can't; English can in
/// any case.
std::vector<std::string> localesServing(const std::string& name);

/// The name of a locale's language in that language, written as at the start of a line: "Deutsch".
/// The tag where the system knows none.
std::string ownNameOf(const std::string& tag);

/// Whether a locale's language is written from right to left.
bool isRightToLeft(const std::string& tag);

/// The marks by which a locale writes numbers; each is UTF-8 text, an empty one is not in use.
struct NumberMarks {
    std::string decimal;     ///< decimal mark, such as "."
    std::string thousands;   ///< thousands separator, such as ","
    std::string currency;    ///< currency mark, such as "$"
    bool fullWidth = false;  ///< whether forms of full width stand for ASCII characters
};

/// The marks of a locale, as they stand beside ASCII digits. For the user's own they are those that
/// the user has set, where the system lets one set them.
/// @param name  as for `localeOf`, but empty: the one by which the user writes numbers. A name that
///              is unknown has the user's separators and no currency.
NumberMarks numberMarksOf(const std::string& name);

}  // namespace wynconfig

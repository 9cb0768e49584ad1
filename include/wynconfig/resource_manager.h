/// @file
/// Where the component's texts and font come from: the host supplies them through this interface.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "wynconfig/export.h"

namespace wynconfig {

/// A font by its properties; a view makes its toolkit's font from it.
struct Font {
    std::string family;      ///< family name; empty: the view's own
    double pointSize = 0.0;  ///< size in points; 0: the view's own
    bool bold = false;       ///< bold instead of regular
    bool italic = false;     ///< italic instead of upright

    /// Whether two are the same in all that they have.
    bool operator==(const Font&) const = default;
};

/// Texts by key and the font of the dialogs. A host may bring its own. The operations report a
/// failure by raising; any exception will do, the component turns it into `Error`.
class WYNCONFIG_API ResourceManager {
  public:
    virtual ~ResourceManager() = default;

    /// The text of a key in the user's language. An empty text is a text like any other. Raises for
    /// a key that it does not know: a dialog then shows all its texts of design, in English, and a
    /// message lacks that part.
    /// @param key  such as "BUTTON_OK"; `resources/en.xlf` lists all of them
    /// @return UTF-8, in a caption with the mark of a key as mnemonic.h tells
    virtual std::string GetString(const std::string& key) = 0;

    /// The font for a dialog. When it raises, the dialog has the view's own.
    /// @param handle  device context handle of the form, as its view gives it; 0 without a view.
    virtual Font GetFont(long handle) = 0;

    /// A text without which the dialogs do: what a person reads who asks for help, what stands in
    /// place of the rows of an empty list, what is told of work that takes its time. Asked for only
    /// when it comes to that, so that a dialog comes up by the two operations above alone. Whatever
    /// it raises counts as an empty text, and no box comes up.
    /// @param key  one that begins with "HELP_", "VIEW_" or "PROGRESS_", such as
    ///             "HELP_LAUNCH_DELAY"; `resources/en.xlf` lists all of them
    /// @return UTF-8, without marks of keys, with %1 and %2 where the English text has them; empty,
    ///         as here, for no help, and for the English text of the other two
    virtual std::string FindString([[maybe_unused]] const std::string& key) { return {}; }
};

/// The folder of the texts that come with the component, as it is found where the program runs: the
/// nearest `share/wynconfig` in a folder above the shared library, or above the program that an
/// archive became a part of; else where the component was to be installed, whether it is there or
/// not. UTF-8. A host that puts the
/// texts elsewhere gives that folder instead, and one that needs no search the macro
/// `WYNCONFIG_RESOURCES`, which comes with the CMake target.
WYNCONFIG_API std::string bundleFolder();

/// The resource manager that comes with the component: texts from files of XLIFF 1.2, one
/// file a language, each named by its tag, such as `zh-Hans.xlf`. All texts are read once, here.
/// @param folder  folder of the files; UTF-8, as all paths here
/// @param locale  language to take, such as "en" or "de-DE"; empty: the user's. A text comes from
///                the locale's own file, or else from that of its language in the same script,
///                or else from English: "de-AT" takes "de", and "zh-CN" takes "zh-Hans", while
///                "zh-TW", which is written in the other script, takes English.
/// @param font    what `GetFont` gives
/// Raises `Error` when the folder has no file that serves, or one that can't be read. `GetString`
/// of an unknown key raises `Error`; `FindString` gives an empty text.
WYNCONFIG_API std::shared_ptr<ResourceManager> makeBundleResourceManager(
    const std::string& folder, const std::string& locale = {}, const Font& font = {});

/// A language that there are texts in.
struct Language {
    std::string tag;           ///< such as "de" or "zh-Hans"; names it as a locale
    std::string name;          ///< its own name, as for a list to choose from, such as "Deutsch"
    bool rightToLeft = false;  ///< the host lays its windows out from right to left for it

    /// Whether two are the same in all that they have.
    bool operator==(const Language&) const = default;
};

/// The languages of the files in a folder, in the order of their tags; none when there is none.
WYNCONFIG_API std::vector<Language> bundleLanguages(const std::string& folder);

/// The language that `makeBundleResourceManager` gives for the same folder and locale.
/// Raises `Error` when the folder has no file that serves.
WYNCONFIG_API Language bundleLanguage(const std::string& folder, const std::string& locale = {});

}  // namespace wynconfig

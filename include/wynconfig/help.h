/// @file
/// What a person reads who asks for help: of one field, or of a whole dialog.
#pragma once

#include <string>
#include <vector>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"
#include "wynconfig/layout.h"

namespace wynconfig {

class Form;

/// What stands in the help of a dialog about one control, or about several that share a text.
struct WYNCONFIG_API HelpEntry {
    std::vector<std::string> names;  ///< by which a person knows them, each once; never empty
    std::string text;                ///< `Form::help` of them

    /// The names in one line, with a stroke between them, which is read in every language.
    std::string title() const;

    /// Whether two are the same in all that they have.
    bool operator==(const HelpEntry&) const = default;
};

/// The help of a dialog. All texts are UTF-8, as they are read: no mark of a key is in them.
struct WYNCONFIG_API HelpPage {
    std::string title;               ///< that of the dialog
    std::string text;                ///< what the dialog is for
    std::vector<HelpEntry> entries;  ///< in the order of the dialog; none of what is hidden there

    /// All of it as plain text: the title, what the dialog is for, and two lines an entry, the
    /// names and the text.
    std::vector<std::string> lines() const;
};

/// The help of a dialog. Fetches its texts, and so raises nothing and shows no box.
/// @param form         a loaded one
/// @param rightToLeft  whether the view has it run so, which turns the arrows in the names of
///                     buttons that move rows
WYNCONFIG_API HelpPage helpPage(Form& form, bool rightToLeft = false);

/// The name by which a person knows a control: its own caption, else that of its label, the word
/// that the layout has for it, or the caption of the frame around it; of a button that moves rows
/// between two lists, the lists' labels with an arrow between them. Words without the mark of a
/// key; empty when there is none of these.
WYNCONFIG_API std::string spokenName(const Layout& body, const Control& control,
                                     bool rightToLeft = false);

}  // namespace wynconfig

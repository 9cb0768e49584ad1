// The table of a dialog's fields: which control shows the value of which key of the record, in
// which form, and what it shows at first. First values, reading and writing follow from it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "services/on_error.h"
#include "store/row_variable.h"
#include "wynconfig/controls.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

/// A box; its text is the value as it stands.
struct AsText {
    Edit& box;
};
/// A box; its text is stored without blanks at its ends.
struct AsTrimmedText {
    Edit& box;
};
/// A list to choose an item from; its text is stored without blanks at its ends. A value that is
/// none of the items shows as the first one.
struct AsItem {
    ComboBox& list;
};
/// A check box, ticked for exactly "true".
struct AsSwitch {
    CheckBox& check;
};
/// A check box, unticked for exactly "false".
struct AsFlag {
    CheckBox& check;
};
/// Options, each with its word, which is tested in this order. Stored is the word of the first
/// option that is on; without one it is the last word.
struct AsOptions {
    struct Option {
        OptionButton& button;
        std::string_view word;  ///< outlives the table
    };
    std::vector<Option> options;
    OptionButton& otherwise;  ///< what any other value turns on
};
/// No control: the first value is stored whatever the record held.
struct AsConstant {};

/// One row of the table.
struct Field {
    /// The control, and by its type the form of the value.
    std::variant<AsText, AsTrimmedText, AsItem, AsSwitch, AsFlag, AsOptions, AsConstant> control;
    std::string key;
    /// What the control shows before a record is read; without one it stays as it is.
    std::optional<std::string> firstValue = {};
};
using Fields = std::vector<Field>;

/// Shows the first values. A failure passes to the caller.
void showFirstValues(const Fields& fields);
/// The same, a statement each.
void showFirstValues(OnError& on, const Fields& fields);

// The three ways of reading a record. They differ in what becomes of a key that it lacks.

/// An absent key takes the data of the nearest key before it. While no key was there, a box or a
/// list stays as it is, and a failed test of the data enters its true branch: a switch is ticked, a
/// flag is unticked, the first of the options is on. Each read and each showing is a statement of
/// its own; no failure is told.
/// @return the row that was read last, for what is read behind the table
RowVariable readCarryingOver(const Fields& fields, const Dataset& record);

/// The first absent key ends the reading: what lies behind it stays as it is. Any other failure
/// does the same; none is told.
void readUpToAbsentKey(const Fields& fields, const Dataset& record);

/// An absent key reads as the empty text, and the reading goes on; no failure is told.
void readPastAbsentKeys(const Fields& fields, const Dataset& record);

/// Puts the values in the place of their keys' rows, where there are any, at the end of the record.
/// Taking the value, deleting the old row and adding the new one are statements; without a value
/// the row stays.
void replaceRows(OnError& on, const Fields& fields, Dataset& record);

/// Adds the rows to a record that has none of these keys, a statement each.
void addRows(OnError& on, const Fields& fields, Dataset& record);

}  // namespace wynconfig

// The lists of sessions and part formats that the dialogs show.
#pragma once

#include <string>

#include "services/on_error.h"
#include "wynconfig/controls.h"

namespace wynconfig {

/// Readies a list at its form's load: hidden until it is filled, with one column whose heading is
/// the label's caption at this moment, before the texts are fetched.
/// @param width  of the column, in twips
void prepareItemList(ListView& list, const Label& label, int width);

/// Selects the row with which a dialog opens: that of a name, else the first one.
/// @param name  compared with the rows' texts, with regard to case; empty: the first row
void selectAtLoad(OnError& on, ListView& list, const std::string& name);

}  // namespace wynconfig

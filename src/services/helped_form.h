// A dialog whose help comes from the host's resource manager, as its captions do, but not before a
// person asks for it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/form.h"

namespace wynconfig {

/// A row of a dialog's table of help: the key of a text, and the controls that it is about.
struct HelpRow {
    std::string_view key;
    std::vector<const Control*> controls;
};

/// A dialog's table of help.
struct HelpTable {
    std::string_view dialog;  ///< key of the text about the dialog as a whole
    std::vector<HelpRow> rows;
};

class HelpedForm : public Form {
  public:
    using Form::Form;

  protected:
    virtual HelpTable helpTable() const = 0;

  private:
    std::string fetchHelp(const Control* control) const final;
};

}  // namespace wynconfig

// What tests of the views have on a form of their own: one that notes what happens to it, and a
// desk that shows it.
#pragma once

#include "support/desk.h"
#include "wynconfig/form.h"

namespace wynconfig {

/// A form with the parts that have no face, as every dialog has them.
class TestForm : public Form {
  public:
    using Form::Form;

    Log log;
    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    BrowseFolder UniBrowse{*this, "UniBrowse"};
};

/// Shows a form of this class, which closes by its button "btnOK".
template <class AForm>
class TestFormDesk : public Desk {
  protected:
    /// The script starts with an empty log, and may leave the form open.
    void show(const User::Script& script) {
        user().onForm(std::string(form.name()), [&](User& u) {
            form.log.clear();
            script(u);
            if (form.loaded()) u.click("btnOK");
        });
        form.Show();
        user().finish();
    }

    AForm form;
};

}  // namespace wynconfig

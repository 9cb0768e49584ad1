// A desk for tests of the two dialogs that the session dialog opens on its record: shows one of
// them alone, runs it unseen, and has the session dialog beside it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "support/rows.h"
#include "support/session_dialog_desk.h"

namespace wynconfig {

template <class Dialog>
class SubDialogDesk : public SessionDialogDesk {
  protected:
    /// Shows the dialog, which the script must close, and gives its result.
    long show(const std::shared_ptr<Dataset>& record, User::Script script,
              const std::string& name = "S") {
        Dialog form;
        user().onForm(std::string(form.name()), std::move(script));
        form.init(record, name);
        form.Show();
        EXPECT_FALSE(form.loaded());
        return form.Result();
    }
    /// Runs it as applying a session does, and gives its status.
    long saveUnseen(const std::shared_ptr<Dataset>& record, const std::string& name = "S") {
        Dialog form;
        form.init(record, name);
        const long status = form.SaveAdvancedChanges();
        form.Unload();
        EXPECT_TRUE(user().forms().empty());
        return status;
    }
    Stored fileRows(const std::string& name) { return rowsOf(*sessionRecord(name)); }
};

}  // namespace wynconfig

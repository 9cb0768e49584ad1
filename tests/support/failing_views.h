// Views that can't do what they are asked, for tests of what comes after such a failure.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "wynconfig/error.h"
#include "wynconfig/form.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// A view that can't show some forms, and closes the others by their frame.
class BrokenView : public View {
  public:
    std::string failsToShow;   ///< name of a form, or "*"
    std::string failsToRaise;  ///< the same
    std::vector<std::string> shown;
    std::vector<MessageRequest> boxes;

    void showModal(Form& form) override {
        if (failsToShow == "*" || form.name() == failsToShow)
            throw Error(errc::InvalidCall, "no screen");
        shown.emplace_back(form.name());
        userInput().closeByFrame(form);
    }
    int showMessage(const MessageRequest& box) override {
        boxes.push_back(box);
        return answer::Ok;
    }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form& form, bool) override {
        if (form.name() == failsToRaise) throw Error(errc::InvalidCall, "no window");
    }
    long deviceContext(Form&) override { return 0; }
};

/// A view in front of a person, whose chooser of files and folders fails.
class NoChooser : public ScriptedView {
  public:
    std::string browse(const BrowseRequest&) override { throw std::runtime_error("no chooser"); }
};

/// A view in front of a person, whose lists fail on demand, or another kind of control: each change
/// of one is carried out, and then fails to be painted.
class FailingPaint : public ScriptedView, public FormObserver {
  public:
    std::string failing;  ///< name of the form whose controls fail; empty: none
    ControlKind kind = ControlKind::ListView;

    void showModal(Form& form) override {
        form.observe(this);
        ScriptedView::showModal(form);
    }
    void changed(Control* control) override {
        if (control && control->form().name() == failing && control->kind() == kind)
            throw Error(errc::InvalidCall, "no paint");
    }
    void focusMoved(Control&) override {}
    void unloaded() override {}
};

}  // namespace wynconfig

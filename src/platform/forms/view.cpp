// The installed view, and what answers when there is none.
#include "wynconfig/view.h"

#include "wynconfig/form.h"

namespace wynconfig {

namespace {

/// Gives each question the answer that changes nothing. A dialog is cancelled by its own cancel
/// button: closing it by the frame would count as a confirmation in some of them.
class NoView : public View {
  public:
    void showModal(Form& form) override {
        if (Button* cancel = form.layout().cancelButton) userInput().click(*cancel);
        if (form.loaded()) userInput().closeByFrame(form);
    }
    int showMessage(const MessageRequest& box) override {
        return (box.style & 0xF) == boxstyle::YesNo ? answer::No : answer::Ok;
    }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form&, bool) override {}
    long deviceContext(Form&) override { return 0; }
};

std::shared_ptr<View>& installed() {
    thread_local std::shared_ptr<View> view;
    return view;
}

}  // namespace

void installView(std::shared_ptr<View> view) {
    if (view) view->joinThread();
    // The one before goes last: what it does as it goes may install yet another.
    installed().swap(view);
}

std::shared_ptr<View> installedView() {
    thread_local const auto none = std::make_shared<NoView>();
    return installed() ? installed() : none;
}

View& currentView() {
    return *installedView();
}

}  // namespace wynconfig

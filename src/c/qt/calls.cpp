// The desktop view for hosts in C.
#include "c/calls.h"
#include "wynconfig/c_qt.h"
#include "wynconfig/qt_view.h"

namespace wynconfig::c {

namespace {

std::shared_ptr<QtView>& installed() {
    thread_local std::shared_ptr<QtView> view;
    return view;
}

/// Raises `Error` when no desktop view was installed by a call.
const std::shared_ptr<QtView>& desktop() {
    if (!installed()) throw Error(WYN_ERROR_CALL, "No desktop view was installed.");
    return installed();
}

}  // namespace

}  // namespace wynconfig::c

using namespace wynconfig;
using namespace wynconfig::c;

int32_t wyn_install_qt_view(void) {
    return run("wyn_install_qt_view", [&] {
        const std::shared_ptr<QtView> view = makeQtView();
        installView(view);
        installed() = view;
    });
}

int32_t wyn_qt_set_owner(uintptr_t window) {
    return run("wyn_qt_set_owner", [&] { desktop()->setOwner(window); });
}

int32_t wyn_qt_user(wyn_user** user) {
    return run("wyn_qt_user", [&] {
        requirePlace(user);
        const std::shared_ptr<QtView>& view = desktop();
        *user = openUser({view, &view->user()});
    });
}

int32_t wyn_qt_save_picture(const char* path) {
    return run("wyn_qt_save_picture", [&] { desktop()->savePicture(textIn(path)); });
}

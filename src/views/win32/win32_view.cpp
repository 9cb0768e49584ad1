// The native view: keeps the windows on the screen in order, and hands them to the played person.
#include "wynconfig/win32_view.h"

#include <map>
#include <optional>
#include <utility>

#include "views/win32/boxes.h"
#include "views/win32/browsing.h"
#include "views/win32/direction.h"
#include "views/win32/form_window.h"
#include "views/win32/module.h"
#include "views/win32/person/person.h"
#include "views/win32/screen.h"
#include "views/win32/waiting.h"
#include "wynconfig/error.h"
#include "wynconfig/form.h"

namespace wynconfig {

namespace {

using native::FormWindow;

/// Calls something at the end of a block, however that is left.
template <class Act>
class AtEnd {
  public:
    explicit AtEnd(Act act) : m_act(std::move(act)) {}
    ~AtEnd() { m_act(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

  private:
    Act m_act;
};

class NativeView : public Win32View {
  public:
    NativeView() : m_person(m_screen) { requireScreen(); }
    ~NativeView() override { releaseContext(); }

    void joinThread() override { requireScreen(); }
    void showModal(Form& form) override;
    int showMessage(const MessageRequest& box) override;
    std::string browse(const BrowseRequest& request) override;
    void raise(Form& form, bool topMost) override;
    long deviceContext(Form& form) override;
    void showProgress(const Progress& progress) override;

    User& user() override {
        m_driven = true;
        return m_person;
    }
    void dismissUser() override { m_driven = false; }
    void onShown(std::function<void(const std::string& name)> watcher) override {
        m_watcher = std::move(watcher);
    }
    void setOwner(std::uintptr_t window) override { m_owner = reinterpret_cast<HWND>(window); }

  private:
    static void requireScreen();
    /// The window of a form, or null.
    FormWindow* windowOf(const Form* form) const;
    HWND ownerFor(const Form* form) const;
    static bool isMirrored(const Form* form);
    template <class Act>
    void cameUp(const std::string& name, const Act& act);
    void releaseContext();
    /// The window with a bar, made when it is asked for first.
    native::ProgressWindow& progressWindow();

    native::Screen m_screen;
    native::Person m_person;
    bool m_driven = false;
    HWND m_owner = nullptr;
    std::function<void(const std::string&)> m_watcher;
    std::map<const Form*, bool> m_raised;  ///< forms raised before they had a window
    HWND m_contextOf = nullptr;
    HDC m_context = nullptr;
    std::optional<native::WaitCursor> m_waitCursor;
    std::optional<native::ProgressWindow> m_progress;
};

void NativeView::requireScreen() {
    static const bool ready = [] {
        INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
        ::InitCommonControlsEx(&wanted);
        return true;
    }();
    if (!ready || !::GetDesktopWindow())
        throw Error(errc::InvalidCall, "The native view needs a desktop, and there is none.");
}

FormWindow* NativeView::windowOf(const Form* form) const {
    for (FormWindow* each : m_screen.forms) {
        if (form && each->form() == form) return each;
    }
    return nullptr;
}

HWND NativeView::ownerFor(const Form* form) const {
    if (const FormWindow* window = windowOf(form)) return window->window();
    if (const FormWindow* window = m_screen.top()) return window->window();
    if (m_owner && ::IsWindow(m_owner)) return ::GetAncestor(m_owner, GA_ROOT);
    return ::GetActiveWindow();
}

bool NativeView::isMirrored(const Form* form) {
    return native::isProcessMirrored() || (form && form->loaded() && native::readsFromRight(*form));
}

/// Runs in the message loop of what came up.
template <class Act>
void NativeView::cameUp(const std::string& name, const Act& act) {
    if (m_watcher) m_watcher(name);
    if (m_driven) act();
}

void NativeView::showModal(Form& form) {
    // It may have been told to go before it came up.
    if (!form.loaded()) return;
    releaseContext();
    const native::OwnControls controls;
    FormWindow window(form, userInput(), ownerFor(nullptr), isMirrored(&form));
    m_screen.forms.push_back(&window);
    const AtEnd leave([this] { m_screen.forms.pop_back(); });
    if (const auto found = m_raised.find(&form); found != m_raised.end()) {
        if (found->second) window.raise(true);
        m_raised.erase(found);
    }
    window.run([&] { cameUp(window.name(), [&] { m_person.meet(window); }); });
    releaseContext();
}

int NativeView::showMessage(const MessageRequest& wanted) {
    const native::OwnControls controls;
    native::MessageWindow box(wanted);
    const int pressed = box.run(ownerFor(wanted.owner), isMirrored(wanted.owner),
                                [&] { cameUp("box", [&] { m_person.answer(box, wanted); }); });
    FormWindow* const window = m_screen.top();
    if (window && (wanted.style & boxstyle::Critical)) window->markRefused();
    return pressed;
}

std::string NativeView::browse(const BrowseRequest& request) {
    const native::OwnControls controls;
    std::function<void(native::Browsing&)> watched;
    if (m_driven || m_watcher)
        watched = [&](native::Browsing& dialog) {
            cameUp("browse", [&] { m_person.pickPath(dialog, request); });
        };
    return native::browseForPath(request, ownerFor(request.owner), watched);
}

void NativeView::raise(Form& form, bool topMost) {
    if (const FormWindow* window = windowOf(&form))
        window->raise(topMost);
    else
        m_raised[&form] = topMost;
}

/// Stays as long as the form's window, or until another one is asked for: what asks gives it to a
/// resource manager, and nobody gives it back.
long NativeView::deviceContext(Form& form) {
    releaseContext();
    const FormWindow* window = windowOf(&form);
    m_contextOf = window ? window->window() : nullptr;
    m_context = ::GetDC(m_contextOf);
    return HandleToLong(m_context);
}

void NativeView::releaseContext() {
    if (m_context) ::ReleaseDC(m_contextOf, m_context);
    m_context = nullptr;
}

native::ProgressWindow& NativeView::progressWindow() {
    if (!m_progress) {
        const native::OwnControls controls;
        const FormWindow* const top = m_screen.top();
        const Form* const form = top ? top->form() : nullptr;
        const auto font = form ? form->font() : nullptr;
        m_progress.emplace(ownerFor(nullptr), font ? *font : Font{}, isMirrored(form));
    }
    return *m_progress;
}

void NativeView::showProgress(const Progress& progress) {
    switch (progress.stage) {
        case Progress::Stage::Begins:
            m_waitCursor.emplace();
            native::paintWindows();
            break;
        case Progress::Stage::Lasts:
            progressWindow().tell(progress);
            break;
        case Progress::Stage::Ends:
            m_progress.reset();
            m_waitCursor.reset();
            break;
    }
    if (m_driven) m_person.watch(progress.stage, m_progress ? &*m_progress : nullptr);
}

}  // namespace

std::shared_ptr<Win32View> makeWin32View() {
    return std::make_shared<NativeView>();
}

}  // namespace wynconfig

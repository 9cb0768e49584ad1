// Browse dialogs for files and folders: those of Windows, with the titles that are asked for.
#include "views/win32/browsing.h"

// They build on the one before.
#include <shlobj.h>
#include <shobjidl.h>

#include <exception>
#include <utility>

#include "views/win32/convert.h"
#include "views/win32/modality.h"
#include "wynconfig/error.h"

namespace wynconfig::native {

namespace {

/// A reference to an object of COM, released with it.
template <class Object>
class Held {
  public:
    Held() = default;
    ~Held() {
        if (m_object) m_object->Release();
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    Object* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    void** into() { return reinterpret_cast<void**>(&m_object); }
    Object** slot() { return &m_object; }

  private:
    Object* m_object = nullptr;
};

/// COM on this thread, as long as it lives. Where the host has it in another way, that serves too.
class Com {
  public:
    Com() : m_entered(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~Com() {
        if (m_entered) ::CoUninitialize();
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

  private:
    bool m_entered;
};

class FileDialog : public Browsing {
  public:
    FileDialog(const BrowseRequest& request, HWND owner,
               const std::function<void(Browsing&)>& cameUp);
    ~FileDialog() override;

    /// Shows the dialog until it is answered.
    std::string run();

    HWND window() const override;
    void enter(const std::wstring& path) override;
    void cancel() override;

  private:
    static void CALLBACK ticked(HWND, UINT, UINT_PTR timer, DWORD);
    void tick();
    void setUp();
    std::string picked() const;

    const BrowseRequest& m_request;
    HWND m_owner;
    std::function<void(Browsing&)> m_cameUp;
    std::exception_ptr m_failure;
    Held<IFileOpenDialog> m_dialog;
    UINT_PTR m_timer = 0;
};

/// The dialog that waits for its window to come up; a timer knows no other way to it. Dialogs nest,
/// but none comes up while another one still waits.
thread_local FileDialog* waiting = nullptr;

FileDialog::FileDialog(const BrowseRequest& request, HWND owner,
                       const std::function<void(Browsing&)>& cameUp)
    : m_request(request), m_owner(owner), m_cameUp(cameUp) {
    const HRESULT made = ::CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                            IID_IFileOpenDialog, m_dialog.into());
    if (FAILED(made)) throw Error(errc::InvalidCall, "The system has no dialog to browse in.");
    setUp();
}

FileDialog::~FileDialog() {
    if (m_timer) ::KillTimer(nullptr, m_timer);
    if (waiting == this) waiting = nullptr;
}

void FileDialog::setUp() {
    DWORD options = 0;
    m_dialog->GetOptions(&options);
    options |= FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR;
    options |= m_request.files ? FOS_FILEMUSTEXIST : FOS_PICKFOLDERS;
    m_dialog->SetOptions(options);
    m_dialog->SetTitle(toWidePlain(m_request.title).c_str());
    if (!m_request.okCaption.empty())
        m_dialog->SetOkButtonLabel(toWideCaption(m_request.okCaption).c_str());
    Held<IFileDialog2> newer;
    if (!m_request.cancelCaption.empty() &&
        SUCCEEDED(m_dialog->QueryInterface(IID_IFileDialog2, newer.into())))
        newer->SetCancelButtonLabel(toWideCaption(m_request.cancelCaption).c_str());
}

std::string FileDialog::run() {
    constexpr UINT kSoon = 10;  // milliseconds
    if (m_cameUp) {
        waiting = this;
        m_timer = ::SetTimer(nullptr, 0, kSoon, ticked);
    }
    HRESULT shown = E_FAIL;
    {
        const Modality modality(nullptr, m_owner);
        shown = m_dialog->Show(m_owner);
    }
    if (m_failure) std::rethrow_exception(m_failure);
    return SUCCEEDED(shown) ? picked() : std::string();
}

void CALLBACK FileDialog::ticked(HWND, UINT, UINT_PTR, DWORD) {
    if (waiting) waiting->tick();
}

void FileDialog::tick() {
    if (!::IsWindowVisible(window())) return;
    ::KillTimer(nullptr, std::exchange(m_timer, 0));
    waiting = nullptr;
    try {
        m_cameUp(*this);
    } catch (...) {
        m_failure = std::current_exception();
        cancel();
    }
}

HWND FileDialog::window() const {
    Held<IOleWindow> shown;
    HWND found = nullptr;
    if (SUCCEEDED(m_dialog->QueryInterface(IID_IOleWindow, shown.into()))) shown->GetWindow(&found);
    return found;
}

void FileDialog::enter(const std::wstring& path) {
    m_dialog->SetFileName(path.c_str());
    ::SendMessageW(window(), WM_COMMAND, IDOK, 0);
}

void FileDialog::cancel() {
    ::SendMessageW(window(), WM_COMMAND, IDCANCEL, 0);
}

std::string FileDialog::picked() const {
    Held<IShellItem> item;
    PWSTR path = nullptr;
    if (FAILED(m_dialog->GetResult(item.slot())) ||
        FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path)))
        return {};
    std::string found = fromWide(path);
    ::CoTaskMemFree(path);
    return found;
}

}  // namespace

std::string browseForPath(const BrowseRequest& request, HWND owner,
                          const std::function<void(Browsing&)>& cameUp) {
    const Com com;
    return FileDialog(request, owner, cameUp).run();
}

}  // namespace wynconfig::native

// The kit's objects.
#include "com/com_kit.h"

#include <olectl.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace wynconfig::com {

Library& Library::get() {
    static Library library;
    return library;
}

Library::Library() : m_module(::LoadLibraryW(toWide(WYNCONFIG_LIBRARY).c_str())) {
    if (!m_module) throw std::runtime_error("the library does not load");
}

template <typename Function>
Function Library::function(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(m_module, name)));
}

HRESULT Library::getClass(REFCLSID id, REFIID interface_id, void** object) const {
    return function<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        id, interface_id, object);
}

HRESULT Library::canUnload() const {
    return function<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")();
}

HRESULT Library::registerFor(const wchar_t* words, bool install) const {
    return function<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>("DllInstall")(install, words);
}

HRESULT Library::registerServer() const {
    return function<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}

HRESULT Library::unregisterServer() const {
    return function<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

// ---- The host's resource manager ----

namespace {

constexpr DISPID kGetString = 1;
constexpr DISPID kGetFont = 2;
constexpr DISPID kFindString = 3;

}  // namespace

STDMETHODIMP HostManager::QueryInterface(REFIID id, void** object) {
    const bool known = id == IID_IUnknown || id == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP HostManager::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP HostManager::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    const std::wstring name = *names;
    *ids = name == L"GetString"            ? kGetString
           : name == L"GetFont"            ? kGetFont
           : name == L"FindString" && find ? kFindString
                                           : DISPID_UNKNOWN;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP HostManager::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                                 EXCEPINFO* fault, UINT*) {
    const VARIANT& argument = given->rgvarg[0];
    if (id == kGetString) {
        ++texts;
        EXPECT_EQ(argument.vt, VT_BYREF | VT_BSTR);
        const std::string key = textOf(*argument.pbstrVal);
        if (text) return text(key, result, fault);
        result->vt = VT_BSTR;
        result->bstrVal = Text("{" + key + "}").release();
        return S_OK;
    }
    if (id == kFindString) {
        EXPECT_EQ(argument.vt, VT_BYREF | VT_BSTR);
        result->vt = VT_BSTR;
        result->bstrVal = Text(find(textOf(*argument.pbstrVal))).release();
        return S_OK;
    }
    ++fonts;
    EXPECT_EQ(argument.vt, VT_BYREF | VT_I4);
    if (font) return font(result);
    FONTDESC wanted{};
    wanted.cbSizeofstruct = sizeof wanted;
    wanted.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
    wanted.cySize.int64 = 90'000;
    wanted.sWeight = FW_NORMAL;
    result->vt = VT_DISPATCH;
    return ::OleCreateFontIndirect(&wanted, IID_IDispatch,
                                   reinterpret_cast<void**>(&result->pdispVal));
}

// ---- The person ----

namespace {

std::string windowText(HWND window) {
    std::wstring text(5000, L'\0');
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return toUtf8(text);
}

BOOL CALLBACK addText(HWND child, LPARAM to) {
    auto& text = *reinterpret_cast<std::string*>(to);
    wchar_t kind[40] = L"";
    ::GetClassNameW(child, kind, 40);
    if (std::wstring(kind) == L"Static") text += "|" + windowText(child);
    return TRUE;
}

DWORD watched = 0;

BOOL CALLBACK closeWindow(HWND window, LPARAM) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != watched) return TRUE;
    if (!::IsWindowVisible(window) || !::IsWindowEnabled(window)) return TRUE;
    wchar_t kind[40] = L"";
    ::GetClassNameW(window, kind, 40);
    std::string text = windowText(window);
    if (std::wstring(kind) == L"#32770")
        ::EnumChildWindows(window, addText, reinterpret_cast<LPARAM>(&text));
    Closer::seen().push_back(text);
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    return FALSE;
}

void CALLBACK closeOne(HWND, UINT, UINT_PTR, DWORD) {
    ::EnumWindows(closeWindow, 0);
}

}  // namespace

Closer::Closer(DWORD process) : m_timer(::SetTimer(nullptr, 0, 50, closeOne)) {
    watched = process ? process : ::GetCurrentProcessId();
    seen().clear();
}

Closer::~Closer() {
    ::KillTimer(nullptr, m_timer);
}

std::vector<std::string>& Closer::seen() {
    static std::vector<std::string> all;
    return all;
}

// ---- Programs ----

namespace {

class Handle {
  public:
    Handle() = default;
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { close(); }
    HANDLE get() const { return m_handle; }
    HANDLE* address() { return &m_handle; }
    void close() {
        if (m_handle) ::CloseHandle(std::exchange(m_handle, nullptr));
    }

  private:
    HANDLE m_handle = nullptr;
};

/// Serves the timer by which windows are closed, until the program ends.
void waitFor(HANDLE process) {
    while (::MsgWaitForMultipleObjects(1, &process, FALSE, INFINITE, QS_ALLINPUT) !=
           WAIT_OBJECT_0) {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    }
}

}  // namespace

std::string outputOf(const std::string& command) {
    const std::wstring path = toWide((std::filesystem::temp_directory_path() /
                                      ("output-" + std::to_string(::GetCurrentProcessId())))
                                         .string());
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    Handle output(::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY, nullptr));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = output.get();
    PROCESS_INFORMATION made{};
    std::wstring words = toWide(command);
    if (!::CreateProcessW(nullptr, words.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                          &start, &made))
        throw std::runtime_error("can't run " + command);
    const Handle process(made.hProcess);
    const Handle thread(made.hThread);
    {
        const Closer closer(made.dwProcessId);
        waitFor(process.get());
    }
    output.close();
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    file.close();
    ::DeleteFileW(path.c_str());
    std::erase(text, '\r');
    return text;
}

// ---- The store and the script ----

StoreFolder::StoreFolder() {
    static int number = 0;
    const auto path =
        std::filesystem::temp_directory_path() /
        ("com-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++number));
    std::filesystem::create_directory(path);
    m_root = toUtf8(path.wstring()) + "\\";
}

StoreFolder::~StoreFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(toWide(m_root), ignored);
}

HRESULT Late::call(const wchar_t* name, std::vector<VARIANT> arguments, VARIANT* result, WORD flags,
                   std::string* fault) const {
    auto* wanted = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = m_object->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found)) return found;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    DISPID put = DISPID_PROPERTYPUT;
    if (flags & DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    EXCEPINFO told{};
    const HRESULT done = m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                          result, &told, nullptr);
    if (fault) *fault = textOf(told.bstrDescription);
    ::SysFreeString(told.bstrDescription);
    ::SysFreeString(told.bstrSource);
    ::SysFreeString(told.bstrHelpFile);
    return done;
}

}  // namespace wynconfig::com

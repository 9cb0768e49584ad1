// Counts, the thread's memory, and the entry of the library.
#include "com/module.h"

#include <atomic>

#include "com/values.h"
#include "store/config_global_module.h"
#include "wynconfig/view.h"
#include "wynconfig/win32_view.h"

namespace wynconfig::com {

namespace {

HINSTANCE module_handle = nullptr;
std::atomic<long> objects{0};
std::atomic<long> locks{0};
/// Threads that remember something.
std::atomic<long> threads{0};

void forgetThread();

/// Is told when the thread closes its COM: the last moment at which the host's objects may be let
/// go.
class ClosingSpy : public IInitializeSpy {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IInitializeSpy;
        *object = known ? static_cast<IInitializeSpy*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // It is no object of its own, and lives as long as the library.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP PreInitialize(DWORD, DWORD) override { return S_OK; }
    STDMETHODIMP PostInitialize(HRESULT result, DWORD, DWORD) override { return result; }
    STDMETHODIMP PreUninitialize(DWORD open) override {
        if (open == 1) forgetThread();
        return S_OK;
    }
    STDMETHODIMP PostUninitialize(DWORD) override { return S_OK; }
};

ClosingSpy closing_spy;
thread_local bool has_joined = false;
thread_local ULARGE_INTEGER spy_number{};

/// What the thread remembers goes, and with it the references to objects of the host.
void forgetThread() {
    if (!has_joined) return;
    has_joined = false;
    ::CoRevokeInitializeSpy(spy_number);
    installView(nullptr);
    ConfigGlobalModule::reset();
    --threads;
}

}  // namespace

HINSTANCE moduleHandle() {
    return module_handle;
}

std::wstring modulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(module_handle, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

KeepsLoaded::KeepsLoaded() {
    ++objects;
}

KeepsLoaded::~KeepsLoaded() {
    --objects;
}

void lockModule(bool lock) {
    locks += lock ? 1 : -1;
}

void joinThread() {
    if (has_joined) return;
    installView(makeWin32View());
    // Without it the thread's memory goes when the host asks whether the library may.
    ::CoRegisterInitializeSpy(&closing_spy, &spy_number);
    has_joined = true;
    ++threads;
}

bool mayUnload() {
    if (objects != 0 || locks != 0) return false;
    forgetThread();
    return threads == 0 && objects == 0;
}

ITypeInfo* typeInfoOf(REFGUID id) {
    ITypeLib* library = nullptr;
    check(::LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, &library));
    ITypeInfo* info = nullptr;
    const HRESULT found = library->GetTypeInfoOfGuid(id, &info);
    library->Release();
    check(found);
    return info;
}

}  // namespace wynconfig::com

// Threads are told of: what each of them has is taken away when it ends.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) wynconfig::com::module_handle = module;
    return TRUE;
}

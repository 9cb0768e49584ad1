// The library's entrances: what COM, regsvr32 and installers call.
#include <new>
#include <string_view>

#include "com/classes.h"
#include "com/registration.h"
#include "com/wynconfig_com.h"

namespace wynconfig::com {

namespace {

/// Makes the objects of one class. It is no object of its own: there is one for each class.
class Factory : public IClassFactory {
  public:
    explicit Factory(const Class& type) : m_class(type) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        const bool known = id == IID_IUnknown || id == IID_IClassFactory;
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    // Who holds a factory keeps the library.
    STDMETHODIMP_(ULONG) AddRef() override {
        lockModule(true);
        return 2;
    }
    STDMETHODIMP_(ULONG) Release() override {
        lockModule(false);
        return 1;
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        HRESULT asked = E_FAIL;
        const HRESULT made = guarded(IID_NULL, [&] {
            IUnknown* const fresh = m_class.make();
            asked = fresh->QueryInterface(id, object);
            fresh->Release();
        });
        return FAILED(made) ? made : asked;
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lockModule(lock != FALSE);
        return S_OK;
    }

  private:
    const Class& m_class;
};

Factory* factoryOf(REFCLSID id) {
    static std::array<Factory, kClassCount> factories{Factory(classes()[0]), Factory(classes()[1]),
                                                      Factory(classes()[2]), Factory(classes()[3])};
    for (std::size_t at = 0; at < factories.size(); ++at)
        if (classes()[at].id == id) return &factories[at];
    return nullptr;
}

}  // namespace

const std::array<Class, kClassCount>& classes() {
    static const std::array<Class, kClassCount> all{
        Class{CLSID_WYNConfig, L"WYNConfig.WYNConfig", L"WYNConfig: configuration of parts lists",
              makeConfig},
        Class{CLSID_ResourceManager, L"WYNConfig.ResourceManager", L"WYNConfig: texts",
              makeResourceManager},
        Class{CLSID_Dataset, L"WYNConfig.Dataset", L"WYNConfig: a stored record", makeDataset},
        Class{CLSID_Store, L"WYNConfig.Store", L"WYNConfig: sessions and part formats", makeStore}};
    return all;
}

}  // namespace wynconfig::com

namespace com = wynconfig::com;

STDAPI DllGetClassObject(REFCLSID id, REFIID interface_id, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    com::Factory* const factory = com::factoryOf(id);
    return factory ? factory->QueryInterface(interface_id, object) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return com::mayUnload() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return com::registerLibrary(com::For::Machine);
}

STDAPI DllUnregisterServer() {
    return com::unregisterLibrary(com::For::Machine);
}

/// What `regsvr32 /i:user` calls: for one user, who needs no rights for that.
STDAPI DllInstall(BOOL install, LPCWSTR words) {
    const bool isUser = words && std::wstring_view(words) == L"user";
    const com::For whom = isUser ? com::For::User : com::For::Machine;
    return install ? com::registerLibrary(whom) : com::unregisterLibrary(whom);
}

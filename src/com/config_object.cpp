// The component's class with its twelve operations.
#include <string>
#include <vector>

#include "com/host_resources.h"
#include "com/object.h"
#include "com/values.h"
#include "com/wynconfig_com.h"
#include "core/exchange.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::com {

namespace {

class ConfigObject : public Object<_WYNConfig> {
  public:
    ConfigObject() { joinThread(); }

    STDMETHODIMP GetDatasetSessionData(BSTR* data) override {
        return given(data, [&] { *data = Text(m_config.GetDatasetSessionData()).release(); });
    }
    STDMETHODIMP GetDatasetFormatsData(SAFEARRAY** data) override {
        return given(data, [&] { *data = arrayOf(m_config.GetDatasetFormatsData()); });
    }
    STDMETHODIMP MigrateSession(BSTR path, BSTR name, VARIANT_BOOL* wasRead) override {
        return given(wasRead, [&] {
            *wasRead =
                m_config.MigrateSession(textOf(path), textOf(name)) ? VARIANT_TRUE : VARIANT_FALSE;
        });
    }
    STDMETHODIMP showMORAMConfigDlg(BSTR* name, LONG* result) override {
        return named(name, result,
                     [&](std::string& each) { return m_config.showMORAMConfigDlg(each); });
    }
    STDMETHODIMP showMORAMConfigDlgEX(BSTR* name, BSTR* session, SAFEARRAY** formats,
                                      LONG* result) override {
        if (!session || !formats) return E_POINTER;
        return named(name, result, [&](std::string& each) {
            ExchangedFormats texts;
            // An array that was never made is told as a failure by the operation itself.
            if (*formats) {
                Texts found = textsOf(*formats);
                texts = ExchangedFormats{std::move(found.texts), found.first};
            } else {
                texts.isThere = false;
            }
            return showExchange(each, textOf(*session), texts);
        });
    }
    STDMETHODIMP showMORAMMaintenanceDlg(BSTR* name, LONG* result) override {
        return named(name, result,
                     [&](std::string& each) { return m_config.showMORAMMaintenanceDlg(each); });
    }
    STDMETHODIMP showAddMORAMConfigDlg(BSTR* name, LONG* result) override {
        return named(name, result,
                     [&](std::string& each) { return m_config.showAddMORAMConfigDlg(each); });
    }
    STDMETHODIMP showAddMORAMConfigDlgEX(BSTR* name, LONG* result) override {
        return named(name, result,
                     [&](std::string& each) { return m_config.showAddMORAMConfigDlgEX(each); });
    }
    STDMETHODIMP init(BSTR root) override {
        return call([&] { m_config.init(textOf(root)); });
    }
    STDMETHODIMP InitResourceManager(IDispatch** manager) override {
        return call(
            [&] { m_config.InitResourceManager(resourcesOf(manager ? *manager : nullptr)); });
    }
    STDMETHODIMP showSessionManagerDlg(BSTR sessions, BSTR* picked) override {
        return given(picked, [&] {
            *picked = Text(m_config.showSessionManagerDlg(textOf(sessions))).release();
        });
    }
    STDMETHODIMP showConfigurableSessionManagerDlg(BSTR sessions, BSTR* edited) override {
        return given(edited, [&] {
            *edited = Text(m_config.showConfigurableSessionManagerDlg(textOf(sessions))).release();
        });
    }

  private:
    /// Runs an operation. The object stays for as long as it lasts, whatever a host's event does.
    template <typename Operation>
    HRESULT call(Operation operation) {
        AddRef();
        const HRESULT done = guarded(__uuidof(_WYNConfig), operation);
        Release();
        return done;
    }
    /// The same, with a place for the result.
    template <typename Result, typename Operation>
    HRESULT given(Result* result, Operation operation) {
        if (!result) return E_POINTER;
        *result = Result();
        return call(operation);
    }
    /// The same, with a name that goes in and out. One that stays as it is is not touched.
    template <typename Operation>
    HRESULT named(BSTR* name, LONG* result, Operation operation) {
        if (!name) return E_POINTER;
        return given(result, [&] {
            const std::string before = textOf(*name);
            std::string after = before;
            *result = operation(after);
            if (after == before) return;
            Text text(after);
            ::SysFreeString(*name);
            *name = text.release();
        });
    }

    WYNConfig m_config;
};

}  // namespace

IUnknown* makeConfig() {
    return static_cast<_WYNConfig*>(new ConfigObject);
}

}  // namespace wynconfig::com

// What the native view tells assistive programs of its windows: the service of Windows by which it
// does so, as a test hears it.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "views/win32/winapi.h"
// They build on the one before.
#include <oleacc.h>

namespace wynconfig {

/// Stands in for the service in this thread as long as it lives, and keeps what it was told. Its
/// identities are the includer's: <initguid.h> comes first in one source.
class Annotations : public IAccPropServices, public IClassFactory {
  public:
    Annotations() {
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ::CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this),
                                CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_registered);
    }
    virtual ~Annotations() {
        ::CoRevokeClassObject(m_registered);
        ::CoUninitialize();
    }
    Annotations(const Annotations&) = delete;
    Annotations& operator=(const Annotations&) = delete;

    std::wstring nameOf(HWND window) const { return told(m_names, window); }
    std::wstring descriptionOf(HWND window) const { return told(m_descriptions, window); }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (id == IID_IAccPropServices)
            *object = static_cast<IAccPropServices*>(this);
        else if (id == IID_IClassFactory || id == IID_IUnknown)
            *object = static_cast<IClassFactory*>(this);
        else
            *object = nullptr;
        return *object ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override {
        return QueryInterface(id, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    STDMETHODIMP SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
        if (object != static_cast<DWORD>(OBJID_CLIENT) || child != CHILDID_SELF) return E_FAIL;
        if (property == PROPID_ACC_NAME) m_names[window] = text;
        if (property == PROPID_ACC_DESCRIPTION) m_descriptions[window] = text;
        return S_OK;
    }
    // Nobody asks for the rest.
    STDMETHODIMP SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    STDMETHODIMP SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }

  private:
    using Told = std::map<HWND, std::wstring>;

    static std::wstring told(const Told& all, HWND window) {
        const auto found = all.find(window);
        return found == all.end() ? std::wstring() : found->second;
    }

    DWORD m_registered = 0;
    Told m_names;
    Told m_descriptions;
};

}  // namespace wynconfig

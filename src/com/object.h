// What all objects of the library have in common: counting, and calls by name through the type
// library.
#pragma once

#include <atomic>
#include <functional>

#include "com/arguments.h"
#include "com/module.h"

namespace wynconfig::com {

/// Runs a call of a host. Nothing that is thrown leaves it: it becomes the result, and what the
/// host can read of the failure.
/// @param id  of the interface that was called
HRESULT guarded(REFIID id, const std::function<void()>& call) noexcept;

/// An object with one dual interface.
template <typename Interface>
class Object : public Interface, public ISupportErrorInfo {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(Interface)) {
            *object = static_cast<Interface*>(this);
        } else if (id == IID_ISupportErrorInfo) {
            *object = static_cast<ISupportErrorInfo*>(this);
        } else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        this->AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
        return id == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT number, LCID /*locale*/, ITypeInfo** info) override {
        if (!info) return E_POINTER;
        *info = nullptr;
        if (number != 0) return DISP_E_BADINDEX;
        m_type->AddRef();
        *info = m_type;
        return S_OK;
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/,
                               DISPID* ids) override {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        return m_type->GetIDsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID /*locale*/, WORD flags, DISPPARAMS* given,
                        VARIANT* result, EXCEPINFO* fault, UINT* wrong) override {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        if (!given) return E_INVALIDARG;
        HRESULT done = E_FAIL;
        const HRESULT kept = guarded(IID_NULL, [&] {
            FittedArguments arguments(m_type, id, flags, *given);
            done = m_type->Invoke(static_cast<Interface*>(this), id, flags, arguments.get(), result,
                                  fault, wrong);
            if (SUCCEEDED(done)) arguments.writeBack();
        });
        return FAILED(kept) ? kept : done;
    }

  protected:
    Object() : m_type(typeInfoOf(__uuidof(Interface))) {}
    virtual ~Object() { m_type->Release(); }

  private:
    KeepsLoaded m_keepsLoaded;
    ITypeInfo* m_type;
    std::atomic<ULONG> m_references{1};
};

// Each makes an object with one reference. They raise `Failed`, or std::bad_alloc.

IUnknown* makeConfig();
IUnknown* makeResourceManager();
IUnknown* makeDataset();
IUnknown* makeStore();

}  // namespace wynconfig::com

// Late-bound calls by whichever interface the object has.
#include "com/late_call.h"

#include "wynconfig/error.h"

namespace wynconfig::com {

namespace {

/// What an object says of its own failure.
class Fault {
  public:
    Fault() = default;
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
    ~Fault() {
        ::SysFreeString(m_told.bstrDescription);
        ::SysFreeString(m_told.bstrSource);
        ::SysFreeString(m_told.bstrHelpFile);
    }
    EXCEPINFO* address() { return &m_told; }
    Error asError(HRESULT result) {
        if (result == DISP_E_EXCEPTION && m_told.pfnDeferredFillIn)
            m_told.pfnDeferredFillIn(&m_told);
        const long number = result == DISP_E_EXCEPTION && m_told.scode ? m_told.scode : result;
        return Error(number, textOf(m_told.bstrDescription));
    }

  private:
    EXCEPINFO m_told{};
};

/// Objects of scripts may be asked by their extended interface alone.
HRESULT invokeExtended(IDispatchEx* object, const wchar_t* name, WORD flags, DISPPARAMS& arguments,
                       Value& result, Fault& fault) {
    const Text wanted(toUtf8(name));
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = object->GetDispID(wanted.get(), fdexNameCaseInsensitive, &id);
    if (FAILED(found)) return found;
    return object->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &arguments, result.address(),
                            fault.address(), nullptr);
}

HRESULT invokePlain(IDispatch* object, const wchar_t* name, WORD flags, DISPPARAMS& arguments,
                    Value& result, Fault& fault) {
    auto* wanted = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = object->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found)) return found;
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments, result.address(),
                          fault.address(), nullptr);
}

void invoke(IDispatch* object, const wchar_t* name, WORD flags, DISPPARAMS arguments,
            Value& result) {
    Fault fault;
    IDispatchEx* extended = nullptr;
    HRESULT done = object->QueryInterface(IID_IDispatchEx, reinterpret_cast<void**>(&extended));
    if (SUCCEEDED(done) && extended) {
        done = invokeExtended(extended, name, flags, arguments, result, fault);
        extended->Release();
    } else {
        done = invokePlain(object, name, flags, arguments, result, fault);
    }
    if (FAILED(done)) throw fault.asError(done);
}

}  // namespace

void call(IDispatch* object, const wchar_t* method, VARIANT& argument, Value& result) {
    // Some objects offer a method with a result as a property with an argument.
    invoke(object, method, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {&argument, nullptr, 1, 0},
           result);
}

void getProperty(IDispatch* object, const wchar_t* name, Value& value) {
    invoke(object, name, DISPATCH_PROPERTYGET, {nullptr, nullptr, 0, 0}, value);
}

}  // namespace wynconfig::com

// Failures on their way to a host.
#include "com/object.h"

#include <new>
#include <string>

#include "com/values.h"
#include "wynconfig/error.h"

namespace wynconfig::com {

namespace {

/// Leaves the words of a failure where the host finds them.
void tell(REFIID id, const std::string& description) noexcept {
    ICreateErrorInfo* made = nullptr;
    if (FAILED(::CreateErrorInfo(&made))) return;
    try {
        std::wstring words = toWide(description);
        made->SetGUID(id);
        made->SetSource(const_cast<wchar_t*>(L"WYNConfig"));
        made->SetDescription(words.data());
        IErrorInfo* info = nullptr;
        if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
            ::SetErrorInfo(0, info);
            info->Release();
        }
    } catch (...) {
        // The number alone, then.
    }
    made->Release();
}

/// The component's numbers as failures of an interface; what is a failure already stays.
HRESULT resultOf(long number) {
    return number < 0 ? number : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number & 0xFFFF);
}

}  // namespace

HRESULT guarded(REFIID id, const std::function<void()>& call) noexcept {
    try {
        call();
        return S_OK;
    } catch (const Failed& failed) {
        return failed.result;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        try {
            const Error error = Error::fromCurrentException();
            tell(id, error.description());
            return resultOf(error.number());
        } catch (...) {
            return E_FAIL;
        }
    }
}

}  // namespace wynconfig::com

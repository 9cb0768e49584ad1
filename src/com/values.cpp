// Texts and arrays, there and back.
#include "com/values.h"

#include <new>
#include <utility>

namespace wynconfig::com {

namespace {

/// Locks the elements of an array for as long as they are looked at.
class Elements {
  public:
    explicit Elements(SAFEARRAY* array) : m_array(array) {
        check(::SafeArrayAccessData(array, &m_data));
    }
    Elements(const Elements&) = delete;
    Elements& operator=(const Elements&) = delete;
    ~Elements() { ::SafeArrayUnaccessData(m_array); }
    BSTR text(ULONG at) const { return static_cast<BSTR*>(m_data)[at]; }
    const VARIANT& value(ULONG at) const { return static_cast<VARIANT*>(m_data)[at]; }

  private:
    SAFEARRAY* m_array;
    void* m_data = nullptr;
};

std::string textOf(const VARIANT& value) {
    Value text;
    check(::VariantChangeType(text.address(), const_cast<VARIANT*>(&value), 0, VT_BSTR));
    return com::textOf(text.get().bstrVal);
}

}  // namespace

void check(HRESULT result) {
    if (FAILED(result)) throw Failed{result};
}

std::wstring toWide(std::string_view text) {
    if (text.empty()) return {};
    const int bytes = static_cast<int>(text.size());
    const int units = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), units);
    return wide;
}

std::string toUtf8(std::wstring_view text) {
    if (text.empty()) return {};
    const int units = static_cast<int>(text.size());
    const int bytes =
        ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

std::string textOf(BSTR text) {
    return text ? toUtf8({text, ::SysStringLen(text)}) : std::string();
}

Text::Text(std::string_view text) {
    const std::wstring wide = toWide(text);
    m_text = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (!m_text) throw std::bad_alloc();
}

BSTR Text::release() {
    return std::exchange(m_text, nullptr);
}

Texts textsOf(SAFEARRAY* array) {
    if (!array || ::SafeArrayGetDim(array) != 1) throw Failed{DISP_E_BADINDEX};
    VARTYPE type = VT_EMPTY;
    check(::SafeArrayGetVartype(array, &type));
    if (type != VT_BSTR && type != VT_VARIANT) throw Failed{DISP_E_TYPEMISMATCH};
    Texts found;
    check(::SafeArrayGetLBound(array, 1, &found.first));
    const Elements elements(array);
    for (ULONG at = 0; at < array->rgsabound[0].cElements; ++at)
        found.texts.push_back(type == VT_BSTR ? textOf(elements.text(at))
                                              : textOf(elements.value(at)));
    return found;
}

SAFEARRAY* arrayOf(const std::vector<std::string>& texts) {
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    if (!array) throw std::bad_alloc();
    try {
        for (LONG at = 0; at < static_cast<LONG>(texts.size()); ++at) {
            const Text text(texts[static_cast<std::size_t>(at)]);
            LONG index = at;
            check(::SafeArrayPutElement(array, &index, text.get()));  // which copies it
        }
    } catch (...) {
        ::SafeArrayDestroy(array);
        throw;
    }
    return array;
}

void giveValues(const std::vector<std::string>& texts, VARIANT* to) {
    SAFEARRAY* const array =
        ::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(texts.size()));
    if (!array) throw std::bad_alloc();
    try {
        for (LONG at = 0; at < static_cast<LONG>(texts.size()); ++at) {
            Value value;
            value.get().bstrVal = Text(texts[static_cast<std::size_t>(at)]).release();
            value.get().vt = VT_BSTR;
            LONG index = at;
            check(::SafeArrayPutElement(array, &index, value.address()));
        }
    } catch (...) {
        ::SafeArrayDestroy(array);
        throw;
    }
    to->vt = VT_ARRAY | VT_VARIANT;
    to->parray = array;
}

}  // namespace wynconfig::com

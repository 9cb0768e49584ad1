// Texts and fonts out of the host's object.
#include "com/host_resources.h"

#include <optional>
#include <string>

#include "com/late_call.h"
#include "com/values.h"
#include "wynconfig/error.h"

namespace wynconfig::com {

namespace {

constexpr double kCurrencyUnits = 10000;  // of which a size has as many to a point

/// A font as its properties tell it, whatever kind of object it is. What it does not tell is the
/// view's own.
Font fontByName(IDispatch* object) {
    const auto property = [object](const wchar_t* name, VARTYPE type) {
        auto value = std::make_unique<Value>();
        try {
            getProperty(object, name, *value);
            check(::VariantChangeType(value->address(), value->address(), 0, type));
        } catch (...) {
            value.reset();
        }
        return value;
    };
    Font font;
    if (const auto name = property(L"Name", VT_BSTR)) font.family = textOf(name->get().bstrVal);
    if (const auto size = property(L"Size", VT_R8)) font.pointSize = size->get().dblVal;
    if (const auto bold = property(L"Bold", VT_BOOL)) font.bold = bold->get().boolVal != 0;
    if (const auto italic = property(L"Italic", VT_BOOL)) font.italic = italic->get().boolVal != 0;
    return font;
}

Font fontOf(IFont* object) {
    Text family;
    CY size{};
    BOOL bold = FALSE;
    BOOL italic = FALSE;
    check(object->get_Name(family.address()));
    check(object->get_Size(&size));
    check(object->get_Bold(&bold));
    check(object->get_Italic(&italic));
    return {textOf(family.get()), static_cast<double>(size.int64) / kCurrencyUnits, bold != FALSE,
            italic != FALSE};
}

/// An interface of an object, released in the end; null when it has none.
template <typename Interface>
class Asked {
  public:
    Asked(IUnknown* object, REFIID id) {
        if (object && FAILED(object->QueryInterface(id, reinterpret_cast<void**>(&m_object))))
            m_object = nullptr;
    }
    Asked(const Asked&) = delete;
    Asked& operator=(const Asked&) = delete;
    ~Asked() {
        if (m_object) m_object->Release();
    }
    Interface* get() const { return m_object; }

  private:
    Interface* m_object = nullptr;
};

class HostResources : public ResourceManager {
  public:
    explicit HostResources(IDispatch* object) : m_object(object) { m_object->AddRef(); }
    HostResources(const HostResources&) = delete;
    HostResources& operator=(const HostResources&) = delete;
    ~HostResources() override { m_object->Release(); }

    std::string GetString(const std::string& key) override { return text(L"GetString", key); }

    /// An object without this method raises as well, which counts as no text.
    std::string FindString(const std::string& key) override { return text(L"FindString", key); }

    Font GetFont(long handle) override {
        LONG number = handle;
        VARIANT argument;
        argument.vt = VT_BYREF | VT_I4;
        argument.plVal = &number;
        Value result;
        call(m_object, L"GetFont", argument, result);
        const bool isObject = result.get().vt == VT_DISPATCH || result.get().vt == VT_UNKNOWN;
        if (!isObject || !result.get().punkVal)
            throw Error(errc::ObjectNotSet, "The resource manager gave no font.");
        const Asked<IFont> font(result.get().punkVal, IID_IFont);
        if (font.get()) return fontOf(font.get());
        const Asked<IDispatch> other(result.get().punkVal, IID_IDispatch);
        if (!other.get()) throw Error(errc::TypeMismatch, "The resource manager gave no font.");
        return fontByName(other.get());
    }

  private:
    std::string text(const wchar_t* method, const std::string& key) const {
        Text name(key);
        VARIANT argument;
        argument.vt = VT_BYREF | VT_BSTR;
        argument.pbstrVal = name.address();
        Value result;
        call(m_object, method, argument, result);
        if (FAILED(::VariantChangeType(result.address(), result.address(), 0, VT_BSTR)))
            throw Error(errc::TypeMismatch, "The resource manager gave no text for " + key + ".");
        return textOf(result.get().bstrVal);
    }

    IDispatch* m_object;
};

}  // namespace

std::shared_ptr<ResourceManager> resourcesOf(IDispatch* object) {
    return object ? std::make_shared<HostResources>(object) : nullptr;
}

}  // namespace wynconfig::com

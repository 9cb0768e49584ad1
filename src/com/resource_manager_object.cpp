// The ready-made resource manager: the texts that come with the component.
#include <memory>
#include <string>
#include <vector>

#include "com/object.h"
#include "com/values.h"
#include "com/wynconfig_com.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig::com {

namespace {

class ResourceManagerObject : public Object<_ResourceManager2> {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        return Object::QueryInterface(isOlder(id) ? __uuidof(_ResourceManager2) : id, object);
    }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
        return isOlder(id) ? S_OK : Object::InterfaceSupportsErrorInfo(id);
    }

    STDMETHODIMP GetString(BSTR* key, BSTR* text) override {
        if (!key || !text) return E_POINTER;
        *text = nullptr;
        return call([&] { *text = Text(texts().GetString(textOf(*key))).release(); });
    }
    STDMETHODIMP FindString(BSTR* key, BSTR* text) override {
        if (!key || !text) return E_POINTER;
        *text = nullptr;
        return call([&] { *text = Text(texts().FindString(textOf(*key))).release(); });
    }
    STDMETHODIMP GetFont(long* /*handle*/, IDispatch** font) override {
        if (!font) return E_POINTER;
        *font = nullptr;
        return call([&] {
            // The font that the user has set for messages.
            NONCLIENTMETRICSW metrics{};
            metrics.cbSize = sizeof metrics;
            ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
            FONTDESC wanted{};
            wanted.cbSizeofstruct = sizeof wanted;
            wanted.lpstrName = metrics.lfMessageFont.lfFaceName;
            wanted.cySize.int64 = pointsOf(metrics.lfMessageFont.lfHeight) * kCurrencyUnits;
            wanted.sWeight = static_cast<SHORT>(metrics.lfMessageFont.lfWeight);
            wanted.sCharset = metrics.lfMessageFont.lfCharSet;
            check(::OleCreateFontIndirect(&wanted, IID_IDispatch, reinterpret_cast<void**>(font)));
        });
    }
    STDMETHODIMP get_Language(BSTR* tag) override {
        return given(tag, [&] { return m_language; });
    }
    STDMETHODIMP put_Language(BSTR tag) override {
        return call([&] { set(m_language, textOf(tag)); });
    }
    STDMETHODIMP get_Folder(BSTR* path) override {
        return given(path, [&] { return m_folder; });
    }
    STDMETHODIMP put_Folder(BSTR path) override {
        return call([&] { set(m_folder, textOf(path)); });
    }
    STDMETHODIMP get_Languages(VARIANT* tags) override {
        if (!tags) return E_POINTER;
        ::VariantInit(tags);
        return call([&] {
            std::vector<std::string> names;
            for (const Language& each : bundleLanguages(m_folder)) names.push_back(each.tag);
            giveValues(names, tags);
        });
    }

  private:
    static constexpr LONGLONG kCurrencyUnits = 10000;

    /// Whether an identity is that of what the interface was before it grew.
    static bool isOlder(REFIID id) { return id == __uuidof(_ResourceManager); }

    static LONGLONG pointsOf(LONG height) {
        const HDC screen = ::GetDC(nullptr);
        const int inch = ::GetDeviceCaps(screen, LOGPIXELSY);
        ::ReleaseDC(nullptr, screen);
        return ::MulDiv(height < 0 ? -height : height, 72, inch);
    }
    template <typename Operation>
    static HRESULT call(Operation operation) {
        return guarded(__uuidof(_ResourceManager2), operation);
    }
    template <typename Operation>
    static HRESULT given(BSTR* text, Operation operation) {
        if (!text) return E_POINTER;
        *text = nullptr;
        return call([&] { *text = Text(operation()).release(); });
    }
    /// The texts are read at the first question.
    ResourceManager& texts() {
        if (!m_texts) m_texts = makeBundleResourceManager(m_folder, m_language);
        return *m_texts;
    }
    /// Takes a value unless there are no texts by it; the old texts then stay.
    void set(std::string& member, const std::string& value) {
        const std::string before = member;
        member = value;
        try {
            m_texts = makeBundleResourceManager(m_folder, m_language);
        } catch (...) {
            member = before;
            throw;
        }
    }

    std::string m_folder = bundleFolder();
    std::string m_language;
    std::shared_ptr<ResourceManager> m_texts;
};

}  // namespace

IUnknown* makeResourceManager() {
    return static_cast<_ResourceManager2*>(new ResourceManagerObject);
}

}  // namespace wynconfig::com

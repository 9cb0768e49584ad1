// What is stored, for a host to read: a record, and a store.
#include <memory>
#include <string>
#include <vector>

#include "com/object.h"
#include "com/values.h"
#include "com/wynconfig_com.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"
#include "wynconfig/store.h"

namespace wynconfig::com {

namespace {

class DatasetObject : public Object<_Dataset> {
  public:
    explicit DatasetObject(std::shared_ptr<const Dataset> record) : m_record(std::move(record)) {}

    STDMETHODIMP get_Item(BSTR key, BSTR* data) override {
        return given(data, [&] { return m_record->GetRow(textOf(key))[1]; });
    }
    STDMETHODIMP get_Type(BSTR* type) override {
        return given(type, [&] { return m_record->Type(); });
    }
    STDMETHODIMP get_Name(BSTR* name) override {
        return given(name, [&] { return m_record->Name(); });
    }
    STDMETHODIMP get_Count(long* count) override {
        if (!count) return E_POINTER;
        *count = static_cast<long>(m_record->Rows().size());
        return S_OK;
    }
    STDMETHODIMP get_Keys(VARIANT* keys) override {
        if (!keys) return E_POINTER;
        ::VariantInit(keys);
        return call([&] {
            std::vector<std::string> names;
            for (const DataRow& row : m_record->Rows()) names.push_back(row[0]);
            giveValues(names, keys);
        });
    }
    STDMETHODIMP Exists(BSTR key, VARIANT_BOOL* isThere) override {
        if (!isThere) return E_POINTER;
        return call([&] { *isThere = isKey(textOf(key)) ? VARIANT_TRUE : VARIANT_FALSE; });
    }
    STDMETHODIMP Load(BSTR path) override {
        return call([&] { read([&](Dataset& record) { record.Load(textOf(path)); }); });
    }
    STDMETHODIMP LoadXML(BSTR text) override {
        return call([&] {
            Document document;
            if (!document.loadXML(textOf(text)))
                throw Error(errc::BadRecord, "The text is not well-formed XML.");
            read([&](Dataset& record) { record.Load(document); });
        });
    }
    STDMETHODIMP get_XML(BSTR* text) override {
        return given(text, [&] {
            Document document;
            m_record->Save(document);
            return document.xml();
        });
    }

  private:
    template <typename Operation>
    static HRESULT call(Operation operation) {
        return guarded(__uuidof(_Dataset), operation);
    }
    template <typename Operation>
    static HRESULT given(BSTR* text, Operation operation) {
        if (!text) return E_POINTER;
        *text = nullptr;
        return call([&] { *text = Text(operation()).release(); });
    }
    bool isKey(const std::string& key) const {
        for (const DataRow& row : m_record->Rows())
            if (row[0] == key) return true;
        return false;
    }
    /// Reads a record, and keeps the old one when that fails.
    template <typename Reading>
    void read(Reading reading) {
        const auto record = std::make_shared<Dataset>();
        reading(*record);
        m_record = record;
    }

    std::shared_ptr<const Dataset> m_record;
};

class StoreObject : public Object<_Store> {
  public:
    STDMETHODIMP get_Root(BSTR* path) override {
        if (!path) return E_POINTER;
        *path = nullptr;
        return call([&] { *path = Text(m_store.root()).release(); });
    }
    STDMETHODIMP put_Root(BSTR path) override {
        return call([&] { m_store = Store(textOf(path)); });
    }
    STDMETHODIMP get_Sessions(VARIANT* names) override {
        return given(names, [&] { return m_store.names(ItemKind::Session); });
    }
    STDMETHODIMP get_PartFormats(VARIANT* names) override {
        return given(names, [&] { return m_store.names(ItemKind::PartFormat); });
    }
    STDMETHODIMP Session(BSTR name, _Dataset** record) override {
        return item(ItemKind::Session, name, record);
    }
    STDMETHODIMP PartFormat(BSTR name, _Dataset** record) override {
        return item(ItemKind::PartFormat, name, record);
    }
    STDMETHODIMP Elements(VARIANT texts, VARIANT* elements) override {
        return given(elements, [&] {
            // A script's variable comes as a reference to a value.
            const VARIANT& value = texts.vt == (VT_BYREF | VT_VARIANT) ? *texts.pvarVal : texts;
            if (!(value.vt & VT_ARRAY)) throw Failed{DISP_E_TYPEMISMATCH};
            return textsOf(value.vt & VT_BYREF ? *value.pparray : value.parray).texts;
        });
    }

  private:
    template <typename Operation>
    static HRESULT call(Operation operation) {
        return guarded(__uuidof(_Store), operation);
    }
    template <typename Operation>
    static HRESULT given(VARIANT* names, Operation operation) {
        if (!names) return E_POINTER;
        ::VariantInit(names);
        return call([&] { giveValues(operation(), names); });
    }
    HRESULT item(ItemKind kind, BSTR name, _Dataset** record) {
        if (!record) return E_POINTER;
        *record = nullptr;
        return call([&] { *record = new DatasetObject(m_store.read(kind, textOf(name))); });
    }

    Store m_store{""};
};

}  // namespace

IUnknown* makeDataset() {
    return static_cast<_Dataset*>(new DatasetObject(std::make_shared<Dataset>()));
}

IUnknown* makeStore() {
    return static_cast<_Store*>(new StoreObject);
}

}  // namespace wynconfig::com

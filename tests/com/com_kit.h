// What the tests of the COM server share: the library, as a host loads it, and a host's own
// objects.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "com/values.h"
#include "com/wynconfig_com.h"

namespace wynconfig::com {

/// An object of COM that is released in the end.
template <typename Interface>
class Held {
  public:
    Held() = default;
    explicit Held(Interface* object) : m_object(object) {}
    Held(Held&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Held& operator=(Held&&) = delete;
    ~Held() { release(); }
    Interface* operator->() const { return m_object; }
    Interface* get() const { return m_object; }
    Interface** address() { return &m_object; }
    /// @return how many references others hold
    ULONG release() {
        Interface* const object = std::exchange(m_object, nullptr);
        return object ? object->Release() : 0;
    }

  private:
    Interface* m_object = nullptr;
};

/// The library, loaded by its path, without any entry in the registry.
class Library {
  public:
    static Library& get();
    HRESULT getClass(REFCLSID id, REFIID interface_id, void** object) const;
    HRESULT canUnload() const;
    HRESULT registerFor(const wchar_t* words, bool install) const;
    HRESULT registerServer() const;
    HRESULT unregisterServer() const;

    /// Makes an object of a class.
    template <typename Interface>
    Held<Interface> make(REFCLSID id) const {
        Held<IClassFactory> factory;
        EXPECT_EQ(getClass(id, IID_IClassFactory, reinterpret_cast<void**>(factory.address())),
                  S_OK);
        Held<Interface> object;
        if (factory.get()) {
            EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface),
                                              reinterpret_cast<void**>(object.address())),
                      S_OK);
        }
        return object;
    }

  private:
    Library();
    template <typename Function>
    Function function(const char* name) const;
    HMODULE m_module;
};

/// A host's resource manager: an object with two methods or three, known by name alone.
class HostManager : public IDispatch {
  public:
    /// What `GetString` does; unless a test says otherwise it gives the key in braces.
    std::function<HRESULT(const std::string& key, VARIANT* result, EXCEPINFO* fault)> text;
    /// What `GetFont` does; unless a test says otherwise it gives a font of the system.
    std::function<HRESULT(VARIANT* result)> font;
    /// What `FindString` gives; unless a test says otherwise there is no such method.
    std::function<std::string(const std::string& key)> find;
    long texts = 0;
    long fonts = 0;
    ULONG references = 1;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                        EXCEPINFO* fault, UINT* wrong) override;
};

/// A person at the desk who closes whatever comes up, by its frame, and remembers what it was.
class Closer {
  public:
    /// @param process  whose windows these are; 0: this one
    explicit Closer(DWORD process = 0);
    Closer(const Closer&) = delete;
    Closer& operator=(const Closer&) = delete;
    ~Closer();
    /// The titles and texts of what came up: of a box both, of a dialog its title.
    static std::vector<std::string>& seen();

  private:
    UINT_PTR m_timer;
};

/// What a program writes, with a line feed behind each line. Whatever it shows is closed.
std::string outputOf(const std::string& command);

/// A folder of its own for a store, with a separator at its end.
class StoreFolder {
  public:
    StoreFolder();
    StoreFolder(const StoreFolder&) = delete;
    StoreFolder& operator=(const StoreFolder&) = delete;
    ~StoreFolder();
    const std::string& root() const { return m_root; }

  private:
    std::string m_root;
};

/// An object as a script calls it.
class Late {
  public:
    explicit Late(IDispatch* object) : m_object(object) {}
    /// Calls a member. The arguments are in the order in which they are written.
    HRESULT call(const wchar_t* name, std::vector<VARIANT> arguments, VARIANT* result,
                 WORD flags = DISPATCH_METHOD, std::string* fault = nullptr) const;

  private:
    IDispatch* m_object;
};

/// A variable of a script by reference.
inline VARIANT byReference(VARIANT& variable) {
    VARIANT value{};
    value.vt = VT_BYREF | VT_VARIANT;
    value.pvarVal = &variable;
    return value;
}

}  // namespace wynconfig::com

// Entries below the classes of the machine or of the user, each written out here, so that all of
// them are taken away again.
#include "com/registration.h"

#include <string>

#include "com/classes.h"
#include "com/module.h"
#include "com/values.h"
#include "com/wynconfig_com.h"

namespace wynconfig::com {

namespace {

constexpr wchar_t kVersion[] = L"1.0";
constexpr wchar_t kFirstVersion[] = L".1";

HKEY rootOf(For whom) {
    return whom == For::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring below(const std::wstring& key) {
    return L"Software\\Classes\\" + key;
}

std::wstring textOf(REFGUID id) {
    wchar_t text[40];
    ::StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return text;
}

/// Writes one text. Raises `Failed`.
void put(For whom, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    const LSTATUS done =
        ::RegSetKeyValueW(rootOf(whom), below(key).c_str(), name, REG_SZ, text.c_str(),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    check(HRESULT_FROM_WIN32(static_cast<DWORD>(done)));
}

void removeKey(For whom, const std::wstring& key, HRESULT& failure) {
    const LSTATUS done = ::RegDeleteTreeW(rootOf(whom), below(key).c_str());
    const bool isGone = done == ERROR_SUCCESS || done == ERROR_FILE_NOT_FOUND;
    if (!isGone) failure = HRESULT_FROM_WIN32(static_cast<DWORD>(done));
}

void putClass(For whom, const Class& type) {
    const std::wstring id = L"CLSID\\" + textOf(type.id);
    const std::wstring versioned = std::wstring(type.name) + kFirstVersion;
    put(whom, id, nullptr, type.description);
    put(whom, id + L"\\InprocServer32", nullptr, modulePath());
    put(whom, id + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    put(whom, id + L"\\ProgID", nullptr, versioned);
    put(whom, id + L"\\VersionIndependentProgID", nullptr, type.name);
    put(whom, id + L"\\TypeLib", nullptr, textOf(LIBID_WYNConfigLib));
    put(whom, id + L"\\Version", nullptr, kVersion);
    put(whom, id + L"\\Programmable", nullptr, L"");
    for (const std::wstring& name : {versioned, std::wstring(type.name)}) {
        put(whom, name, nullptr, type.description);
        put(whom, name + L"\\CLSID", nullptr, textOf(type.id));
    }
    put(whom, std::wstring(type.name) + L"\\CurVer", nullptr, versioned);
}

/// An interface of the type library.
struct Interface {
    IID id;
    const wchar_t* name;
};
const std::array kInterfaces{
    Interface{IID__WYNConfig, L"_WYNConfig"}, Interface{IID__ResourceManager, L"_ResourceManager"},
    Interface{IID__Dataset, L"_Dataset"}, Interface{IID__Store, L"_Store"}};

/// The system's own, which carries calls between apartments by what the type library says.
constexpr wchar_t kMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";

std::wstring typeLibraryKey() {
    return L"TypeLib\\" + textOf(LIBID_WYNConfigLib);
}

/// Each word size has an entry of its own in the one key.
std::wstring entryOfThisSize() {
    return typeLibraryKey() + L"\\" + kVersion + L"\\0\\" +
           (sizeof(void*) == 8 ? L"win64" : L"win32");
}

void putTypeLibrary(For whom) {
    const std::wstring path = modulePath();
    const std::wstring version = typeLibraryKey() + L"\\" + kVersion;
    put(whom, version, nullptr, L"WYNConfig: configuration of parts lists");
    put(whom, version + L"\\FLAGS", nullptr, L"0");
    put(whom, version + L"\\HELPDIR", nullptr, path.substr(0, path.rfind(L'\\')));
    put(whom, entryOfThisSize(), nullptr, path);
    for (const Interface& each : kInterfaces) {
        const std::wstring key = L"Interface\\" + textOf(each.id);
        put(whom, key, nullptr, each.name);
        put(whom, key + L"\\ProxyStubClsid32", nullptr, kMarshaler);
        put(whom, key + L"\\TypeLib", nullptr, textOf(LIBID_WYNConfigLib));
        put(whom, key + L"\\TypeLib", L"Version", kVersion);
    }
}

/// Whether there is a key with others below it.
bool hasKeysBelow(For whom, const std::wstring& key) {
    HKEY open = nullptr;
    if (::RegOpenKeyExW(rootOf(whom), below(key).c_str(), 0, KEY_READ, &open) != ERROR_SUCCESS)
        return false;
    DWORD count = 0;
    ::RegQueryInfoKeyW(open, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                       nullptr, nullptr, nullptr);
    ::RegCloseKey(open);
    return count > 0;
}

void removeTypeLibrary(For whom, HRESULT& failure) {
    for (const Interface& each : kInterfaces)
        removeKey(whom, L"Interface\\" + textOf(each.id), failure);
    removeKey(whom, entryOfThisSize(), failure);
    const std::wstring version = typeLibraryKey() + L"\\" + kVersion;
    if (!hasKeysBelow(whom, version + L"\\0")) removeKey(whom, version, failure);
    if (!hasKeysBelow(whom, typeLibraryKey())) removeKey(whom, typeLibraryKey(), failure);
}

}  // namespace

HRESULT registerLibrary(For whom) {
    const HRESULT done = guarded(IID_NULL, [whom] {
        for (const Class& each : classes()) putClass(whom, each);
        putTypeLibrary(whom);
    });
    if (SUCCEEDED(done)) return S_OK;
    unregisterLibrary(whom);
    return SELFREG_E_CLASS;
}

HRESULT unregisterLibrary(For whom) {
    HRESULT failure = S_OK;
    const HRESULT done = guarded(IID_NULL, [&] {
        for (const Class& each : classes()) {
            removeKey(whom, L"CLSID\\" + textOf(each.id), failure);
            removeKey(whom, std::wstring(each.name) + kFirstVersion, failure);
            removeKey(whom, each.name, failure);
        }
        removeTypeLibrary(whom, failure);
    });
    return FAILED(done) ? done : failure;
}

}  // namespace wynconfig::com

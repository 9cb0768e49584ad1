// What the library writes to the registry, and that nothing of it stays; hosts that find it there.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "com/com_kit.h"

namespace wynconfig::com {
namespace {

/// All values below a key: its path and name, and what it holds.
using Picture = std::map<std::wstring, std::wstring>;

void addValues(HKEY key, const std::wstring& path, Picture& picture) {
    for (DWORD at = 0;; ++at) {
        std::wstring name(16'384, L'\0');
        std::wstring data(16'384, L'\0');
        auto length = static_cast<DWORD>(name.size());
        auto bytes = static_cast<DWORD>(data.size() * sizeof(wchar_t));
        if (::RegEnumValueW(key, at, name.data(), &length, nullptr, nullptr,
                            reinterpret_cast<BYTE*>(data.data()), &bytes) != ERROR_SUCCESS)
            return;
        name.resize(length);
        data.resize(bytes / sizeof(wchar_t));
        picture[path + L"|" + name] = data;
    }
}

void addKeys(HKEY parent, const std::wstring& path, Picture& picture) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    picture[path];
    addValues(key, path, picture);
    for (DWORD at = 0;; ++at) {
        wchar_t name[256];
        DWORD length = 256;
        if (::RegEnumKeyExW(key, at, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        // However a key is spelt, it is the same.
        ::CharLowerW(name);
        addKeys(parent, path + L"\\" + name, picture);
    }
    ::RegCloseKey(key);
}

/// What stands in the registry of classes.
Picture picture(HKEY root) {
    Picture all;
    addKeys(root, L"Software\\Classes", all);
    return all;
}

/// Without what the system itself repeats for programs of 32 bits.
Picture once(Picture all) {
    std::erase_if(all, [](const auto& each) {
        return each.first.find(L"\\wow6432node\\") != std::wstring::npos;
    });
    return all;
}

/// What one picture has more than another one.
Picture added(const Picture& before, const Picture& after) {
    Picture more;
    for (const auto& [name, data] : after) {
        const auto old = before.find(name);
        if (old == before.end() || old->second != data) more.emplace(name, data);
    }
    return more;
}

class Registration : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    void TearDown() override {
        Library::get().unregisterServer();
        Library::get().registerFor(L"user", false);
        ::CoUninitialize();
    }

    static void expectServed(const wchar_t* name) {
        CLSID id{};
        ASSERT_EQ(::CLSIDFromProgID(name, &id), S_OK);
        Held<IDispatch> object;
        EXPECT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                     reinterpret_cast<void**>(object.address())),
                  S_OK);
    }
    static void expectAllServed() {
        for (const wchar_t* name :
             {L"WYNConfig.WYNConfig", L"WYNConfig.WYNConfig.1", L"WYNConfig.ResourceManager",
              L"WYNConfig.Dataset", L"WYNConfig.Store"})
            expectServed(name);
        Held<ITypeLib> library;
        EXPECT_EQ(::LoadRegTypeLib(LIBID_WYNConfigLib, 1, 0, LOCALE_NEUTRAL, library.address()),
                  S_OK);
    }
};

TEST_F(Registration, ForTheMachineLeavesNoTrace) {
    const Picture machine = picture(HKEY_LOCAL_MACHINE);
    const Picture user = picture(HKEY_CURRENT_USER);
    ASSERT_GT(machine.size(), 100U);
    ASSERT_EQ(Library::get().registerServer(), S_OK);
    EXPECT_NE(picture(HKEY_LOCAL_MACHINE), machine);
    EXPECT_EQ(picture(HKEY_CURRENT_USER), user);
    expectAllServed();
    EXPECT_EQ(Library::get().registerServer(), S_OK) << "once more";
    EXPECT_EQ(Library::get().unregisterServer(), S_OK);
    EXPECT_EQ(picture(HKEY_LOCAL_MACHINE), machine);
    EXPECT_EQ(Library::get().unregisterServer(), S_OK) << "once more";
}

// Not every Windows that this runs on looks for a user's own classes: Wine did not at first. So
// what stands there is compared with what serves for the machine.
TEST_F(Registration, ForTheUserLeavesNoTrace) {
    // A user of Windows has these from the first program on; they stay when they become empty.
    for (const wchar_t* name : {L"CLSID", L"Interface", L"TypeLib"}) {
        const std::wstring path = std::wstring(L"Software\\Classes\\") + name;
        HKEY key = nullptr;
        ASSERT_EQ(::RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), &key), ERROR_SUCCESS);
        ::RegCloseKey(key);
    }
    const Picture machine = picture(HKEY_LOCAL_MACHINE);
    const Picture user = picture(HKEY_CURRENT_USER);
    ASSERT_EQ(Library::get().registerServer(), S_OK);
    const Picture forMachine = once(added(machine, picture(HKEY_LOCAL_MACHINE)));
    ASSERT_EQ(Library::get().unregisterServer(), S_OK);
    ASSERT_EQ(Library::get().registerFor(L"user", true), S_OK);
    EXPECT_EQ(picture(HKEY_LOCAL_MACHINE), machine);
    const Picture forUser = added(user, picture(HKEY_CURRENT_USER));
    EXPECT_EQ(added(forUser, forMachine), Picture());
    // The keys above, where there was none yet.
    for (const auto& [name, data] : added(forMachine, forUser))
        EXPECT_EQ(data, L"") << toUtf8(name);
    EXPECT_GT(forMachine.size(), 50U);
    EXPECT_EQ(Library::get().registerFor(L"user", false), S_OK);
    EXPECT_EQ(added(user, picture(HKEY_CURRENT_USER)), Picture());
    EXPECT_EQ(added(picture(HKEY_CURRENT_USER), user), Picture());
}

TEST_F(Registration, TheTypeLibraryOfTheOtherWordSizeStays) {
    const std::wstring key =
        L"Software\\Classes\\TypeLib\\{48891F12-13E2-4850-9943-F92A4AEA2859}\\1.0\\0\\other";
    ASSERT_EQ(Library::get().registerServer(), S_OK);
    ASSERT_EQ(::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, L"x", 4),
              ERROR_SUCCESS);
    EXPECT_EQ(Library::get().unregisterServer(), S_OK);
    HKEY open = nullptr;
    EXPECT_EQ(::RegOpenKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_READ, &open), ERROR_SUCCESS);
    ::RegCloseKey(open);
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE,
                     L"Software\\Classes\\TypeLib\\{48891F12-13E2-4850-9943-F92A4AEA2859}");
}

}  // namespace
}  // namespace wynconfig::com

// The twelve operations as hosts call them: by the interface, and by name.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "com/com_kit.h"

namespace wynconfig::com {
namespace {

namespace fs = std::filesystem;

const std::string kEmptySession =
    "<dataset version=\"1\" type=\"MORAM\" name=\"X\" key=\"Element\"><column>Element</column>"
    "<column>Data</column></dataset>";

class Operations : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        config.emplace(Library::get().make<_WYNConfig>(CLSID_WYNConfig));
        IDispatch* given = &manager;
        EXPECT_EQ((*config)->InitResourceManager(&given), S_OK);
        EXPECT_EQ((*config)->init(Text(store.root()).get()), S_OK);
    }
    void TearDown() override {
        if (config) {
            EXPECT_EQ(config->release(), 0U);
        }
        EXPECT_EQ(Library::get().canUnload(), S_OK);
        EXPECT_EQ(manager.references, 1U);
        ::CoUninitialize();
    }
    _WYNConfig* operator*() const { return config->get(); }
    Late late() const { return Late(config->get()); }

    HostManager manager;
    StoreFolder store;
    std::optional<Held<_WYNConfig>> config;
};

TEST_F(Operations, InitMakesTheStore) {
    for (const char* kind : {"MORAM", "PARTFORMAT"})
        EXPECT_TRUE(fs::is_regular_file(store.root() + kind + "\\" + kind + ".vls"));
}

TEST_F(Operations, TheManagerIsKeptAndAReplacedOneLetGo) {
    EXPECT_EQ(manager.references, 2U);
    HostManager other;
    IDispatch* given = &other;
    EXPECT_EQ((**this)->InitResourceManager(&given), S_OK);
    EXPECT_EQ(manager.references, 1U);
    EXPECT_EQ(other.references, 2U);
    given = nullptr;
    EXPECT_EQ((**this)->InitResourceManager(&given), S_OK);
    EXPECT_EQ(other.references, 1U);
    EXPECT_EQ((**this)->InitResourceManager(nullptr), S_OK);
}

TEST_F(Operations, AnExchangeGivesBackWhatItGot) {
    const Closer closer;
    Text name("exchanged");
    Text session(kEmptySession);
    SAFEARRAY* formats = arrayOf({});
    LONG result = -1;
    EXPECT_EQ((**this)->showMORAMConfigDlgEX(name.address(), session.address(), &formats, &result),
              S_OK);
    ::SafeArrayDestroy(formats);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(textOf(name.get()), "EXCHANGED");
    EXPECT_EQ(Closer::seen(), std::vector<std::string>{"{MORAM_CONFIG_TITLE}"});
    EXPECT_GT(manager.texts, 10);
    EXPECT_GT(manager.fonts, 0);
    Text data;
    EXPECT_EQ((**this)->GetDatasetSessionData(data.address()), S_OK);
    EXPECT_NE(textOf(data.get()).find("name=\"X\""), std::string::npos);
    SAFEARRAY* back = nullptr;
    EXPECT_EQ((**this)->GetDatasetFormatsData(&back), S_OK);
    const Texts texts = textsOf(back);
    ::SafeArrayDestroy(back);
    EXPECT_EQ(texts.first, 0);
    EXPECT_EQ(texts.texts, std::vector<std::string>{""});
}

TEST_F(Operations, ARefusedTextIsABoxAndNoFailure) {
    const Closer closer;
    BSTR name = ::SysAllocString(L"stays");
    BSTR const before = name;
    Text session("no XML");
    SAFEARRAY* formats = arrayOf({});
    LONG result = -1;
    EXPECT_EQ((**this)->showMORAMConfigDlgEX(&name, session.address(), &formats, &result), S_OK);
    ::SafeArrayDestroy(formats);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(name, before) << "it is not even made anew";
    ::SysFreeString(name);
    ASSERT_EQ(Closer::seen().size(), 1U);
    EXPECT_NE(Closer::seen()[0].find("strSessionDataXML is not a valid XML document"),
              std::string::npos)
        << Closer::seen()[0];
}

TEST_F(Operations, AnArrayIsCountedFromItsOwnFirstNumber) {
    const Closer closer;
    Text name("x");
    Text session(kEmptySession);
    SAFEARRAYBOUND bounds{1, 7};
    SAFEARRAY* formats = ::SafeArrayCreate(VT_BSTR, 1, &bounds);
    LONG result = -1;
    EXPECT_EQ((**this)->showMORAMConfigDlgEX(name.address(), session.address(), &formats, &result),
              S_OK);
    ::SafeArrayDestroy(formats);
    EXPECT_EQ(result, 1);
    ASSERT_EQ(Closer::seen().size(), 1U);
    EXPECT_NE(Closer::seen()[0].find("arrayPartFormats(7)"), std::string::npos)
        << Closer::seen()[0];
}

TEST_F(Operations, EachDialogComesUpAndCloses) {
    const Closer closer;
    LONG result = -1;
    Text name("a");
    EXPECT_EQ((**this)->showMORAMConfigDlg(name.address(), &result), S_OK);
    EXPECT_EQ((**this)->showMORAMMaintenanceDlg(name.address(), &result), S_OK);
    EXPECT_EQ((**this)->showAddMORAMConfigDlg(name.address(), &result), S_OK);
    EXPECT_EQ((**this)->showAddMORAMConfigDlgEX(name.address(), &result), S_OK);
    Text picked;
    EXPECT_EQ((**this)->showSessionManagerDlg(Text("A,B").get(), picked.address()), S_OK);
    EXPECT_EQ((**this)->showConfigurableSessionManagerDlg(Text("A,B").get(), Text().address()),
              S_OK);
    EXPECT_GE(Closer::seen().size(), 6U);
}

TEST_F(Operations, AManagerMayGiveTextsThatCanBeDoneWithout) {
    std::vector<std::string> asked;
    manager.find = [&](const std::string& key) {
        asked.push_back(key);
        return "found " + key;
    };
    const Closer closer;
    LONG result = -1;
    Text name;
    EXPECT_EQ((**this)->showMORAMMaintenanceDlg(name.address(), &result), S_OK);
    // Of the store without sessions.
    ASSERT_FALSE(asked.empty());
    EXPECT_EQ(asked.front(), "VIEW_EMPTY_PRESS");
}

TEST_F(Operations, NothingToWriteToIsAFailureOfTheCall) {
    LONG result = 0;
    EXPECT_EQ((**this)->showMORAMConfigDlg(nullptr, &result), E_POINTER);
    EXPECT_EQ((**this)->GetDatasetSessionData(nullptr), E_POINTER);
    EXPECT_EQ((**this)->GetDatasetFormatsData(nullptr), E_POINTER);
}

TEST_F(Operations, AMigrationFromNowhereIsFalse) {
    VARIANT_BOOL wasRead = VARIANT_TRUE;
    EXPECT_EQ((**this)->MigrateSession(Text("C:\\nowhere\\").get(), Text("X").get(), &wasRead),
              S_OK);
    EXPECT_EQ(wasRead, VARIANT_FALSE);
}

// ---- By name ----

TEST_F(Operations, EachOperationHasItsNameAndItsNumber) {
    const std::vector<const wchar_t*> names{
        L"GetDatasetSessionData", L"GetDatasetFormatsData",   L"MigrateSession",
        L"showMORAMConfigDlg",    L"showMORAMConfigDlgEX",    L"showMORAMMaintenanceDlg",
        L"showAddMORAMConfigDlg", L"showAddMORAMConfigDlgEX", L"init",
        L"InitResourceManager",   L"showSessionManagerDlg",   L"showConfigurableSessionManagerDlg"};
    for (std::size_t at = 0; at < names.size(); ++at) {
        auto* name = const_cast<wchar_t*>(names[at]);
        DISPID id = 0;
        EXPECT_EQ((**this)->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        EXPECT_EQ(id, static_cast<DISPID>(at + 1));
    }
}

TEST_F(Operations, AScriptsVariableTakesTheNameBack) {
    const Closer closer;
    Value variable;
    variable.get().vt = VT_BSTR;
    variable.get().bstrVal = Text("by name").release();
    Value result;
    EXPECT_EQ(late().call(L"showMORAMConfigDlg", {byReference(variable.get())}, result.address()),
              S_OK);
    EXPECT_EQ(result.get().vt, VT_I4);
    EXPECT_EQ(result.get().lVal, 1);
    ASSERT_EQ(variable.get().vt, VT_BSTR);
    EXPECT_EQ(textOf(variable.get().bstrVal), "BY NAME");
}

TEST_F(Operations, AScriptsVariableOfAnotherTypeBecomesAText) {
    const Closer closer;
    Value variable;
    Value result;
    EXPECT_EQ(
        late().call(L"showMORAMMaintenanceDlg", {byReference(variable.get())}, result.address()),
        S_OK);
    EXPECT_EQ(variable.get().vt, VT_BSTR);
    Value number;
    number.get().vt = VT_I4;
    number.get().lVal = 12;
    EXPECT_EQ(
        late().call(L"showMORAMMaintenanceDlg", {byReference(number.get())}, result.address()),
        S_OK);
    EXPECT_EQ(textOf(number.get().bstrVal), "12");
}

TEST_F(Operations, AScriptsArrayOfValuesIsAnArrayOfTexts) {
    const Closer closer;
    Value name;
    name.get().vt = VT_BSTR;
    name.get().bstrVal = Text("n").release();
    Value session;
    session.get().vt = VT_BSTR;
    session.get().bstrVal = Text(kEmptySession).release();
    Value formats;
    giveValues({"no XML"}, formats.address());
    Value result;
    EXPECT_EQ(late().call(
                  L"showMORAMConfigDlgEX",
                  {byReference(name.get()), byReference(session.get()), byReference(formats.get())},
                  result.address()),
              S_OK);
    ASSERT_EQ(Closer::seen().size(), 1U);
    EXPECT_NE(Closer::seen()[0].find("arrayPartFormats(0)"), std::string::npos);
}

TEST_F(Operations, AValueThatFitsNowhereIsAMismatch) {
    Value name;
    name.get().vt = VT_BSTR;
    name.get().bstrVal = Text("n").release();
    VARIANT number{};
    number.vt = VT_I4;
    Value result;
    EXPECT_EQ(late().call(L"showMORAMConfigDlgEX", {byReference(name.get()), name.get(), number},
                          result.address()),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(textOf(name.get().bstrVal), "n");
}

TEST_F(Operations, TheFormatsAreAnArrayOfTextsByNameAsWell) {
    Value result;
    EXPECT_EQ(late().call(L"GetDatasetFormatsData", {}, result.address()), S_OK);
    EXPECT_EQ(result.get().vt, VT_ARRAY | VT_BSTR);
}

TEST_F(Operations, WrongCallsByNameAreRefused) {
    Value result;
    EXPECT_EQ(late().call(L"noSuchOperation", {}, result.address()), DISP_E_UNKNOWNNAME);
    EXPECT_TRUE(FAILED(late().call(L"MigrateSession", {}, result.address())));
}

// ---- The manager that fails ----

HRESULT WINAPI fillInLater(EXCEPINFO* later) {
    later->bstrDescription = ::SysAllocString(L"later");
    return S_OK;
}

TEST_F(Operations, AManagerMayFailInAnyWay) {
    const Closer closer;
    const std::vector<std::function<HRESULT(const std::string&, VARIANT*, EXCEPINFO*)>> ways{
        [](const std::string&, VARIANT*, EXCEPINFO*) { return E_FAIL; },
        [](const std::string&, VARIANT*, EXCEPINFO*) { return S_OK; },  // and gives nothing
        [](const std::string&, VARIANT* result, EXCEPINFO*) {
            result->vt = VT_UNKNOWN;
            result->punkVal = nullptr;
            return S_OK;
        },
        [](const std::string&, VARIANT*, EXCEPINFO* fault) {
            fault->bstrDescription = ::SysAllocString(L"in words");
            fault->scode = E_ACCESSDENIED;
            return DISP_E_EXCEPTION;
        },
        [](const std::string&, VARIANT*, EXCEPINFO* fault) {
            fault->pfnDeferredFillIn = fillInLater;
            return DISP_E_EXCEPTION;
        }};
    LONG result = -1;
    for (const auto& way : ways) {
        manager.text = way;
        Text name("x");
        EXPECT_EQ((**this)->showMORAMMaintenanceDlg(name.address(), &result), S_OK);
        manager.text = nullptr;
    }
    manager.font = [](VARIANT*) { return S_OK; };
    Text name("x");
    EXPECT_EQ((**this)->showMORAMMaintenanceDlg(name.address(), &result), S_OK);
    manager.font = [](VARIANT* font) {
        font->vt = VT_I4;
        return S_OK;
    };
    EXPECT_EQ((**this)->showMORAMMaintenanceDlg(name.address(), &result), S_OK);
    manager.font = nullptr;
    EXPECT_GE(Closer::seen().size(), 7U);
}

TEST_F(Operations, AnObjectWithoutTheOperationsServesAsOneThatFails) {
    const Closer closer;
    IDispatch* itself = config->get();
    EXPECT_EQ((**this)->InitResourceManager(&itself), S_OK);
    Text name("x");
    LONG result = -1;
    EXPECT_EQ((**this)->showMORAMMaintenanceDlg(name.address(), &result), S_OK);
    EXPECT_FALSE(Closer::seen().empty());
    IDispatch* given = &manager;
    EXPECT_EQ((**this)->InitResourceManager(&given), S_OK);
}

// ---- Apartments ----

TEST_F(Operations, EachThreadHasAStateOfItsOwn) {
    std::thread([] {
        ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        HostManager own;
        {
            const Held<_WYNConfig> other = Library::get().make<_WYNConfig>(CLSID_WYNConfig);
            IDispatch* given = &own;
            EXPECT_EQ(other->InitResourceManager(&given), S_OK);
            EXPECT_EQ(own.references, 2U);
        }
        // The thread remembers it until it closes its COM.
        EXPECT_EQ(own.references, 2U);
        ::CoUninitialize();
        EXPECT_EQ(own.references, 1U);
    }).join();
    EXPECT_EQ(manager.references, 2U);
    EXPECT_EQ(Library::get().canUnload(), S_FALSE);
}

TEST_F(Operations, WhatIsRememberedStaysFromObjectToObject) {
    const Closer closer;
    Text name("x");
    Text session(kEmptySession);
    SAFEARRAY* formats = arrayOf({});
    LONG result = -1;
    EXPECT_EQ((**this)->showMORAMConfigDlgEX(name.address(), session.address(), &formats, &result),
              S_OK);
    ::SafeArrayDestroy(formats);
    EXPECT_EQ(config->release(), 0U);
    config.emplace(Library::get().make<_WYNConfig>(CLSID_WYNConfig));
    Text data;
    EXPECT_EQ((**this)->GetDatasetSessionData(data.address()), S_OK);
    EXPECT_NE(textOf(data.get()).find("name=\"X\""), std::string::npos);
}

}  // namespace
}  // namespace wynconfig::com

// The classes by which a host brings texts and reads what is stored.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "com/com_kit.h"

namespace wynconfig::com {
namespace {

const std::string kSession =
    "<dataset version=\"1\" type=\"MORAM\" name=\"ONE\" key=\"Element\"><column>Element</column>"
    "<column>Data</column><row key=\"ProgramPath\">a.exe</row></dataset>";

class Objects : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    void TearDown() override {
        EXPECT_EQ(Library::get().canUnload(), S_OK);
        ::CoUninitialize();
    }
};

std::vector<std::string> namesIn(VARIANT& names) {
    EXPECT_EQ(names.vt, VT_ARRAY | VT_VARIANT);
    return names.vt & VT_ARRAY ? textsOf(names.parray).texts : std::vector<std::string>();
}

TEST_F(Objects, ARecordIsReadFromItsText) {
    const Held<_Dataset> record = Library::get().make<_Dataset>(CLSID_Dataset);
    ASSERT_EQ(record->LoadXML(Text(kSession).get()), S_OK);
    Text name;
    Text type;
    Text data;
    long count = 0;
    EXPECT_EQ(record->get_Name(name.address()), S_OK);
    EXPECT_EQ(record->get_Type(type.address()), S_OK);
    EXPECT_EQ(record->get_Count(&count), S_OK);
    EXPECT_EQ(record->get_Item(Text("ProgramPath").get(), data.address()), S_OK);
    EXPECT_EQ(textOf(name.get()), "ONE");
    EXPECT_EQ(textOf(type.get()), "MORAM");
    EXPECT_EQ(textOf(data.get()), "a.exe");
    EXPECT_EQ(count, 1);
    Value keys;
    EXPECT_EQ(record->get_Keys(keys.address()), S_OK);
    EXPECT_EQ(namesIn(keys.get()), std::vector<std::string>{"ProgramPath"});
    VARIANT_BOOL isThere = VARIANT_TRUE;
    EXPECT_EQ(record->Exists(Text("Other").get(), &isThere), S_OK);
    EXPECT_EQ(isThere, VARIANT_FALSE);
    Text text;
    EXPECT_EQ(record->get_XML(text.address()), S_OK);
    EXPECT_NE(textOf(text.get()).find("a.exe"), std::string::npos);
}

TEST_F(Objects, AFailureHasItsWords) {
    const Held<_Dataset> record = Library::get().make<_Dataset>(CLSID_Dataset);
    Value result;
    std::string fault;
    Value key;
    key.get().vt = VT_BSTR;
    key.get().bstrVal = Text("NotThere").release();
    EXPECT_EQ(Late(record.get())
                  .call(L"Item", {key.get()}, result.address(), DISPATCH_PROPERTYGET, &fault),
              DISP_E_EXCEPTION);
    EXPECT_NE(fault.find("NotThere"), std::string::npos) << fault;
    EXPECT_TRUE(FAILED(record->LoadXML(Text("no XML").get())));
    EXPECT_TRUE(FAILED(record->Load(Text("C:\\nowhere\\x.vla").get())));
}

TEST_F(Objects, AStoreTellsItsItems) {
    const StoreFolder folder;
    const Held<_Store> store = Library::get().make<_Store>(CLSID_Store);
    {
        const Held<_WYNConfig> config = Library::get().make<_WYNConfig>(CLSID_WYNConfig);
        EXPECT_EQ(config->init(Text(folder.root()).get()), S_OK);
    }
    std::ofstream(folder.root() + "MORAM\\ONE.vla") << kSession;
    EXPECT_EQ(store->put_Root(Text(folder.root()).get()), S_OK);
    Value names;
    EXPECT_EQ(store->get_Sessions(names.address()), S_OK);
    EXPECT_EQ(namesIn(names.get()), std::vector<std::string>{"ONE"});
    Value formats;
    EXPECT_EQ(store->get_PartFormats(formats.address()), S_OK);
    EXPECT_TRUE(namesIn(formats.get()).empty());
    Held<_Dataset> record;
    EXPECT_EQ(store->Session(Text("one").get(), record.address()), S_OK);
    ASSERT_TRUE(record.get());
    Text name;
    EXPECT_EQ(record->get_Name(name.address()), S_OK);
    EXPECT_EQ(textOf(name.get()), "ONE");
    Held<_Dataset> none;
    EXPECT_TRUE(FAILED(store->PartFormat(Text("none").get(), none.address())));
    EXPECT_EQ(none.get(), nullptr);
}

TEST_F(Objects, TextsThatMayBeMissingComeByTheNewerInterface) {
    const Held<_ResourceManager> manager =
        Library::get().make<_ResourceManager>(CLSID_ResourceManager);
    ASSERT_EQ(manager->put_Folder(Text(WYNCONFIG_TEXTS).get()), S_OK);
    ASSERT_EQ(manager->put_Language(Text("en").get()), S_OK);
    Held<_ResourceManager2> newer;
    ASSERT_EQ(manager->QueryInterface(__uuidof(_ResourceManager2),
                                      reinterpret_cast<void**>(newer.address())),
              S_OK);
    const auto found = [&](const char* wanted) {
        Text key(wanted);
        Text text;
        EXPECT_EQ(newer->FindString(key.address(), text.address()), S_OK);
        return textOf(text.get());
    };
    EXPECT_EQ(found("VIEW_FILTER"), "Filter");
    EXPECT_FALSE(found("HELP_SESSION_NAME").empty());
    EXPECT_EQ(found("HELP_OF_NOTHING"), "");
    EXPECT_EQ(newer->FindString(nullptr, nullptr), E_POINTER);
    Value key;
    key.get().vt = VT_BSTR;
    key.get().bstrVal = Text("VIEW_FILTER").release();
    Value text;
    EXPECT_EQ(Late(manager.get()).call(L"FindString", {byReference(key.get())}, text.address()),
              S_OK);
    ASSERT_EQ(text.get().vt, VT_BSTR);
    EXPECT_EQ(textOf(text.get().bstrVal), "Filter");
    // What there was before is reached by name as well.
    Value cancel;
    ::SysFreeString(key.get().bstrVal);
    key.get().bstrVal = Text("BUTTON_CANCEL").release();
    EXPECT_EQ(Late(manager.get()).call(L"GetString", {byReference(key.get())}, cancel.address()),
              S_OK);
    EXPECT_EQ(textOf(cancel.get().bstrVal), "Cancel");
}

TEST_F(Objects, TextsComeInTheLanguageThatIsWanted) {
    const Held<_ResourceManager> manager =
        Library::get().make<_ResourceManager>(CLSID_ResourceManager);
    ASSERT_EQ(manager->put_Folder(Text(WYNCONFIG_TEXTS).get()), S_OK);
    for (const auto& [language, expected] :
         {std::pair{"de", "Abbrechen"}, std::pair{"de-AT", "Abbrechen"},
          std::pair{"en", "Cancel"}}) {
        ASSERT_EQ(manager->put_Language(Text(language).get()), S_OK);
        Text key("BUTTON_CANCEL");
        Text text;
        EXPECT_EQ(manager->GetString(key.address(), text.address()), S_OK);
        EXPECT_EQ(textOf(text.get()), expected);
    }
    Value languages;
    EXPECT_EQ(manager->get_Languages(languages.address()), S_OK);
    EXPECT_EQ(namesIn(languages.get()).size(), 9U);
    Text key("NO SUCH KEY");
    Text text;
    EXPECT_TRUE(FAILED(manager->GetString(key.address(), text.address())));
    long screen = 0;
    Held<IDispatch> font;
    EXPECT_EQ(manager->GetFont(&screen, font.address()), S_OK);
    EXPECT_NE(font.get(), nullptr);
}

TEST_F(Objects, AFolderWithoutTextsIsRefusedAndTheOldOneStays) {
    const Held<_ResourceManager> manager =
        Library::get().make<_ResourceManager>(CLSID_ResourceManager);
    ASSERT_EQ(manager->put_Folder(Text(WYNCONFIG_TEXTS).get()), S_OK);
    EXPECT_TRUE(FAILED(manager->put_Folder(Text("C:\\nowhere").get())));
    Text folder;
    EXPECT_EQ(manager->get_Folder(folder.address()), S_OK);
    EXPECT_EQ(textOf(folder.get()), WYNCONFIG_TEXTS);
}

TEST_F(Objects, FactoriesMakeWhatIsAskedForOrNothing) {
    void* object = nullptr;
    EXPECT_EQ(Library::get().getClass(IID_IUnknown, IID_IClassFactory, &object),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(Library::get().getClass(CLSID_Store, IID_IDispatch, &object), E_NOINTERFACE);
    Held<IClassFactory> factory;
    ASSERT_EQ(Library::get().getClass(CLSID_Store, IID_IClassFactory,
                                      reinterpret_cast<void**>(factory.address())),
              S_OK);
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IFont, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(Library::get().canUnload(), S_FALSE)
        << "a host that holds a factory holds the library";
    factory.release();
    EXPECT_EQ(Library::get().canUnload(), S_OK);
    ASSERT_EQ(Library::get().getClass(CLSID_Store, IID_IClassFactory,
                                      reinterpret_cast<void**>(factory.address())),
              S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.release();
    EXPECT_EQ(Library::get().canUnload(), S_FALSE);
    ASSERT_EQ(Library::get().getClass(CLSID_Store, IID_IClassFactory,
                                      reinterpret_cast<void**>(factory.address())),
              S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.release();
}

}  // namespace
}  // namespace wynconfig::com

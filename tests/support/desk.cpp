// The fixture's set-up, and its short ways to the store.
#include "support/desk.h"

#include <stdexcept>

#include "platform/text/numbers.h"
#include "services/global_error.h"
#include "store/session_record.h"
#include "wynconfig/error.h"
#ifdef WYNCONFIG_TEST_WIN32
#include "wynconfig/win32_view.h"
#endif
#ifdef WYNCONFIG_TEST_QT
#include "wynconfig/qt_view.h"
#endif

namespace wynconfig {

namespace {

template <typename Kind>
std::shared_ptr<View> withUser(std::shared_ptr<Kind> view, User*& user) {
    user = &view->user();
    return view;
}

}  // namespace

std::shared_ptr<View> makeView(const std::string& name, User*& user) {
    if (name == "Scripted") return withUser(std::make_shared<ScriptedView>(), user);
#ifdef WYNCONFIG_TEST_WIN32
    if (name == "Win32") return withUser(makeWin32View(), user);
#endif
#ifdef WYNCONFIG_TEST_QT
    if (name == "Qt") return withUser(makeQtView(), user);
#endif
    throw std::invalid_argument("there is no view " + name);
}

std::string TestTexts::GetString(const std::string& key) {
    asked.push_back(key);
    if (failing || missing.contains(key)) throw Error(errc::NoSuchKey, "no text for " + key);
    const auto own = texts.find(key);
    return own == texts.end() ? "{" + key + "}" : own->second;
}

std::string TestTexts::FindString(const std::string& key) {
    if (failing || missing.contains(key)) throw Error(errc::NoSuchKey, "no text for " + key);
    const auto own = texts.find(key);
    return own == texts.end() ? std::string() : own->second;
}

Font TestTexts::GetFont(long) {
    if (failing || fontFailing) throw Error(errc::InvalidCall, "no font");
    return font;
}

void Desk::SetUp() {
    ConfigGlobalModule::reset();
    resetGlobalError();
    setNumberLocale("en-US");
    setFileSystem(&disk);
    memory->makeFolder("/store");
    m_view = makeView(GetParam(), m_user);
    installView(m_view);
    component.InitResourceManager(texts);
    component.init("/store/");
    texts->asked.clear();
}

void Desk::TearDown() {
    try {
        user().finish();
    } catch (const UserError& error) {
        ADD_FAILURE() << error.what();
    }
    installView(nullptr);
    setFileSystem(nullptr);
    ConfigGlobalModule::reset();
    resetGlobalError();
}

namespace {

void put(const std::string& type, const std::string& folder, const std::string& name,
         const std::vector<std::pair<std::string, std::string>>& rows) {
    Dataset record;
    record.Create(type, name, folder, session::kColumns);
    for (const auto& [key, value] : rows) record.AddRow({key, value});
    record.Save(ItemPath::item(folder, name));
}

std::shared_ptr<Dataset> recordOf(const std::string& folder, const std::string& name) {
    auto record = std::make_shared<Dataset>();
    record->Load(ItemPath::item(folder, name));
    return record;
}

}  // namespace

void Desk::putSession(const std::string& name,
                      const std::vector<std::pair<std::string, std::string>>& rows) {
    put("MORAM", sessionFolder, name, rows);
}

void Desk::putFormat(const std::string& name,
                     const std::vector<std::pair<std::string, std::string>>& rows) {
    put("PARTFORMAT", formatFolder, name, rows);
}

std::vector<std::pair<std::string, std::string>> Desk::fullSession(
    const std::vector<std::string>& formats) {
    std::vector<std::pair<std::string, std::string>> rows{
        {"ProgramPath", "/programs/parts.exe"},
        {"CommandLineArgs", "/list /quiet"},
        {"ReverseList", "false"},
        {"AutoResize", "false"},
        {"Orientation", "bottom"},
        {"FormatCount", std::to_string(formats.size())}};
    for (std::size_t i = 0; i < formats.size(); ++i)
        rows.emplace_back("FORMAT" + std::to_string(i + 1), formats[i]);
    for (const auto& row : std::vector<std::pair<std::string, std::string>>{
             {"WindowTitleSearchType", "matches"},
             {"WindowClassSearchType", "starts with"},
             {"WindowTitle", "Parts Desk"},
             {"WindowClass", "PartsMain"},
             {"DisableProgramLaunch", "false"},
             {"WindowTitleClassDelay", "3"},
             {"ProgramLaunchDelay", "7"},
             {"WindowTitleCaseSensitive", "true"},
             {"WindowClassCaseSensitive", "false"},
             {"PartFormat", formats.empty() ? "" : formats.front()},
             {"FileName", "list.txt"},
             {"FileFolder", "C:\\out"},
             {"FileAction", "Append"},
             {"WriteFileOnly", "true"}})
        rows.push_back(row);
    return rows;
}

void Desk::putFullSession(const std::string& name, const std::vector<std::string>& formats) {
    putSession(name, fullSession(formats));
}

void Desk::changeSession(const std::string& name,
                         const std::vector<std::pair<std::string, std::string>>& rows) {
    const auto record = sessionRecord(name);
    for (const auto& [key, data] : rows) record->UpdateRow({key, ""}, {key, data});
    record->Save(ItemPath::item(sessionFolder, name));
}

std::shared_ptr<Dataset> Desk::sessionRecord(const std::string& name) {
    return recordOf(sessionFolder, name);
}

Rows Desk::sessionRows(const std::string& name) {
    const auto record = sessionRecord(name);
    Rows rows;
    for (const DataRow& row : record->Rows()) rows.emplace(row[0], row[1]);
    return rows;
}

std::string Desk::sessionText(const std::string& name) {
    return memory->read(ItemPath::item(sessionFolder, name));
}

bool Desk::sessionExists(const std::string& name) {
    return !memory->find(ItemPath::item(sessionFolder, name)).empty();
}

std::vector<std::string> Desk::sessionFiles() {
    return memory->listItems(sessionFolder);
}

std::shared_ptr<Dataset> Desk::formatRecord(const std::string& name) {
    return recordOf(formatFolder, name);
}

std::string Desk::formatText(const std::string& name) {
    return memory->read(ItemPath::item(formatFolder, name));
}

std::vector<std::string> Desk::formatFiles() {
    return memory->listItems(formatFolder);
}

Names Desk::hostKeys() {
    Names keys;
    for (const auto& [key, format] : ConfigGlobalModule::g_PartFormats) keys.push_back(key);
    return keys;
}

void Desk::putProgram(const std::string& path) {
    const ItemPath file = ItemPath::of(path);
    if (!memory->folderExists(file.folder)) memory->makeFolder(file.folder);
    memory->save(file, "program");
}

std::string Desk::failureText(const std::string& tag, const std::string& description) {
    return "{GLOBAL_MOD_ERROR}: " + description + "\r\n\r\n{GLOBAL_MOD_TEXT} VLWYNConfig\r\n" +
           "{GLOBAL_MOD_PROCEDURE} " + tag + "\r\n\r\n{GLOBAL_MOD_MSG}";
}

bool Desk::isFailureOf(const std::string& text, const std::string& tag) {
    return text.starts_with("{GLOBAL_MOD_ERROR}: ") &&
           text.ends_with("\r\n{GLOBAL_MOD_PROCEDURE} " + tag + "\r\n\r\n{GLOBAL_MOD_MSG}");
}

}  // namespace wynconfig

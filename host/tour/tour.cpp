// The machinery of the tour: pictures, expectations, and the check of the store.
#include "tour/tour.h"

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "window/catalogue.h"
#include "window/host_dialog.h"
#include "window/send_panel.h"
#include "window/session_panel.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace host {

using wynconfig::ItemKind;

namespace fs = std::filesystem;

namespace {

/// Empties the place of a store, provided that nothing else lies there.
void clearStore(const StoreFolders& store) {
    if (!fs::exists(store.root) || fs::is_empty(store.root)) return;
    if (!store.exist() && !store.unfinished())
        throw std::runtime_error(store.root.string() + " is in the way: it is no store");
    fs::remove_all(store.root);
}

/// Removes what an earlier tour has seen and heard.
void clearPictures(const fs::path& folder) {
    std::vector<fs::path> old;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const std::size_t number = name.find_first_not_of("0123456789");
        const fs::path kind = entry.path().extension();
        if (number != 0 && number != std::string::npos && name[number] == '-' &&
            (kind == ".png" || kind == ".txt"))
            old.push_back(entry.path());
    }
    for (const fs::path& path : old) fs::remove(path);
}

const Operation& operationOf(const std::string& id) {
    const auto& all = operations();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Operation& each) { return each.id == id; });
    if (found == all.end()) throw std::runtime_error("there is no operation " + id);
    return *found;
}

Rows rowsOf(const wynconfig::Dataset& record) {
    Rows rows;
    for (const wynconfig::DataRow& row : record.Rows()) rows[row[0]] = row[1];
    return rows;
}

Rows rowsIn(const fs::path& file) {
    wynconfig::Dataset record;
    record.Load(file.string());
    return rowsOf(record);
}

Rows rowsOfText(const std::string& xml) {
    wynconfig::Document document;
    document.loadXML(xml);
    wynconfig::Dataset record;
    record.Load(document);
    return rowsOf(record);
}

std::string outcomeText(const Outcome& outcome) {
    const std::string result = outcome.result ? std::to_string(*outcome.result) : "none";
    return "result " + result + ", name \"" + outcome.name + "\"";
}

std::string placeOf(ItemKind kind, const std::string& name) {
    return (kind == ItemKind::Session ? "session " : "part format ") + name + " of the database";
}

void print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

}  // namespace

Tour::Tour(wynconfig::WYNConfig& component, wynconfig::ResourceManager& texts,
           const std::string& resources, const fs::path& folder)
    : m_folder(folder),
      m_sampleStore(folder / "sample"),
      m_store(folder / "store"),
      m_texts(texts) {
    fs::create_directories(folder);
    clearPictures(folder);
    clearStore(m_sampleStore);
    clearStore(m_store);
    makeSampleStore(component, m_sampleStore);
    fs::copy(m_sampleStore.root, m_store.root, fs::copy_options::recursive);
    m_sample = takeSnapshot(m_sampleStore.root);
    component.init(m_store.rootText());

    m_view = wynconfig::makeQtView();
    m_view->onShown([this](const std::string& name) { shown(name); });
    m_view->user();
    m_installed.emplace(m_view);
    const fs::path database = folder / m_store.database().filename();
    fs::remove(database);
    m_workplace = std::make_unique<Workplace>(
        component, m_store, wynconfig::DatabaseAddress::file(database.string()), resources);
    m_window = std::make_unique<MainWindow>(*m_workplace);
    m_window->show();
}

Tour::~Tour() = default;

bool Tour::run() {
    std::size_t number = 0;
    for (const TourStep& step : tourSteps()) walk(step, ++number);
    print("Checking the store and the database");
    checkStore();
    checkDatabase();
    for (const std::string& difference : m_differences) print("DIFFERENCE: " + difference);
    print("Pictures: " + fs::absolute(m_folder).string());
    print("Store:    " + fs::absolute(m_store.root).string());
    print(m_differences.empty() ? "All as expected." : "The tour failed.");
    return m_differences.empty();
}

void Tour::walk(const TourStep& step, std::size_t number) {
    print("Step " + std::to_string(number) + ": " + step.name);
    try {
        step.walk(*this);
    } catch (...) {
        const wynconfig::Error error = wynconfig::Error::fromCurrentException();
        differ(std::string(step.name) + ": " + error.description());
    }
}

void Tour::say(const std::string& text) {
    print("    " + text);
}

void Tour::expect(bool fact, const std::string& what) {
    if (!fact) differ(what);
}

void Tour::differ(const std::string& what) {
    // The store is compared several times; a difference that stays is told once.
    const auto& told = m_differences;
    if (std::find(told.begin(), told.end(), what) == told.end()) m_differences.push_back(what);
}

void Tour::expectText(const std::string& actual, const std::string& expected,
                      const std::string& what) {
    expect(actual == expected, what + " is \"" + actual + "\" instead of \"" + expected + "\"");
}

void Tour::expectBox(const std::string& pictureName, const std::string& textKey,
                     const std::string& besides) {
    announceBox(pictureName, textKey, besides, wynconfig::answer::Ok);
}

void Tour::expectQuestion(const std::string& pictureName, const std::string& textKey, int button) {
    announceBox(pictureName, textKey, {}, button);
}

void Tour::announceBox(const std::string& pictureName, const std::string& textKey,
                       const std::string& besides, int button) {
    m_boxPictures.push_back(pictureName);
    user().onBox([this, textKey, besides, button](const wynconfig::SeenBox& box) {
        const auto tells = [&](const std::string& text) {
            return box.text.find(text) != std::string::npos;
        };
        expect(tells(m_texts.GetString(textKey)) && tells(besides),
               "the box \"" + box.text + "\" does not tell " + textKey + " " + besides);
        say("the box says: " + box.text.substr(0, box.text.find_first_of("\r\n")));
        return button;
    });
}

void Tour::expectBrowse(const std::string& pictureName, const std::string& path) {
    m_browsePictures.push_back(pictureName);
    user().onBrowse(path);
}

void Tour::pickPart(const std::string& partNumber, int pieces) {
    expect(m_window->catalogue().pick(QString::fromStdString(partNumber), pieces),
           "the catalogue has no part " + partNumber);
}

void Tour::send(const std::string& session, const std::string& file, const std::string& content) {
    m_window->showSending();
    m_window->sending().selectSession(QString::fromStdString(session));
    m_window->sending().send();
    const fs::path path = m_sampleStore.lists() / file;
    expectText(fs::exists(path) ? readFile(path) : "nothing", content, file);
}

void Tour::perform(const std::string& operationId, const std::string& session,
                   const Outcome& expected) {
    m_window->showSessions();
    m_window->sessions().selectSession(session);
    performNow(operationId, expected);
}

void Tour::performInDatabase(const std::string& operationId, ItemKind kind, const std::string& name,
                             const Outcome& expected) {
    m_window->sessions().selectInDatabase(kind, name);
    performNow(operationId, expected);
}

void Tour::performNow(const std::string& operationId, const Outcome& expected) {
    const Outcome outcome = m_window->sessions().perform(operationOf(operationId));
    say("the operation gave " + outcomeText(outcome));
    if (!outcome.text.empty()) say(outcome.text);
    expect(outcome.result == expected.result && outcome.name == expected.name,
           operationId + " gave " + outcomeText(outcome) + " instead of " + outcomeText(expected));
    m_boxPictures.clear();
    m_browsePictures.clear();
    user().finish();
}

void Tour::onHostDialog(const std::string& pictureName, const char* button,
                        const std::function<void(QDialog&)>& act) {
    constexpr int kMostTries = 400;
    awaitHostDialog(pictureName, button, act, kMostTries);
}

void Tour::awaitHostDialog(const std::string& pictureName, const char* button,
                           const std::function<void(QDialog&)>& act, int tries) {
    constexpr int kBetweenTries = 25;  // milliseconds
    QTimer::singleShot(kBetweenTries, m_window.get(), [=, this] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog->objectName() != kHostDialog) {
            if (tries == 0) return differ("the host's dialog " + pictureName + " did not come up");
            return awaitHostDialog(pictureName, button, act, tries - 1);
        }
        if (act) act(*dialog);
        QCoreApplication::processEvents();
        takeOwn(*dialog, pictureName);
        dialog->findChild<QPushButton*>(button)->click();
    });
}

fs::path Tour::nextPicture(const std::string& name) {
    const std::string number = std::to_string(++m_pictures);
    constexpr std::size_t kDigits = 3;
    const std::string zeros(number.size() < kDigits ? kDigits - number.size() : 0, '0');
    const std::string file = zeros + number + "-" + name + ".png";
    say("picture " + file);
    return m_folder / file;
}

void Tour::shown(const std::string& name) {
    std::deque<std::string>* names = name == "box"      ? &m_boxPictures
                                     : name == "browse" ? &m_browsePictures
                                                        : nullptr;
    std::string pictureName = name;
    if (names && !names->empty()) {
        pictureName = std::move(names->front());
        names->pop_front();
    }
    picture(pictureName);
}

void Tour::picture(const std::string& name) {
    const fs::path path = nextPicture(name);
    m_view->savePicture(path.string());
    writeSpoken(path, m_view->spokenTree());
}

void Tour::hostPicture(const std::string& name) {
    QCoreApplication::processEvents();
    takeOwn(*m_window, name);
}

void Tour::takeOwn(QWidget& window, const std::string& name) {
    const fs::path path = nextPicture(name);
    expect(window.grab().save(QString::fromStdString(path.string()), "PNG"),
           path.string() + " can't be written");
    writeSpoken(path, wynconfig::spokenTree(window));
}

void Tour::writeSpoken(fs::path picture, const std::string& tree) {
    const fs::path path = picture.replace_extension(".txt");
    std::ofstream file(path, std::ios::binary);
    file << tree;
    file.close();
    expect(static_cast<bool>(file), path.string() + " can't be written");
}

void Tour::expectRecord(const std::string& path, Rows rows) {
    m_gone.erase(path);
    m_expected[path] = std::move(rows);
}

void Tour::expectNoRecord(const std::string& path) {
    m_expected.erase(path);
    m_gone.insert(path);
}

void Tour::expectFile(const std::string& path, const std::string& text) {
    m_expectedFiles[path] = text;
}

void Tour::expectStored(ItemKind kind, const std::string& name, Rows rows) {
    m_expectedInDatabase[{kind, name}] = std::move(rows);
}

void Tour::expectNotStored(ItemKind kind, const std::string& name) {
    m_expectedInDatabase.erase({kind, name});
}

Rows Tour::expectedStoredRows(ItemKind kind, const std::string& name) const {
    return m_expectedInDatabase.at({kind, name});
}

Rows Tour::rowsInOtherStore(const std::string& path) const {
    return rowsIn(m_sampleStore.root / path);
}

Rows Tour::expectedRows(const std::string& path) const {
    const auto announced = m_expected.find(path);
    return announced == m_expected.end() ? rowsIn(m_sampleStore.root / path) : announced->second;
}

Rows Tour::rowsOnDisk(const std::string& path) const {
    return rowsIn(m_store.root / path);
}

void Tour::checkStore() {
    for (const FileChange& change : changesBetween(m_sample, takeSnapshot(m_store.root))) {
        const bool deleted = change.kind == FileChange::Kind::Deleted;
        const bool expected =
            deleted ? m_gone.contains(change.path)
                    : m_expected.contains(change.path) || m_expectedFiles.contains(change.path);
        expect(expected, change.path + " was " + wordFor(change.kind));
    }
    for (const std::string& path : m_gone)
        expect(!fs::exists(m_store.root / path), path + " is still there");
    for (const auto& [path, rows] : m_expected) checkRecord(path, rows);
    for (const auto& [path, text] : m_expectedFiles) {
        if (fs::exists(m_store.root / path))
            expectText(readFile(m_store.root / path), text, path);
        else
            differ(path + " is not there");
    }
    say("store checked: " + std::to_string(m_sample.size()) + " files of the sample store, " +
        std::to_string(m_expected.size()) + " record(s) of the tour");
}

void Tour::checkRecord(const std::string& path, const Rows& expected) {
    wynconfig::Dataset record;
    try {
        record.Load((m_store.root / path).string());
    } catch (const wynconfig::Error& error) {
        differ(path + ": " + error.description());
        return;
    }
    expectText(record.Name(), fs::path(path).stem().string(), path + ": its name");
    checkRows(path, rowsOf(record), expected);
}

void Tour::checkRows(const std::string& place, const Rows& actual, const Rows& expected) {
    for (const auto& [key, data] : expected) {
        const auto found = actual.find(key);
        if (found == actual.end())
            differ(place + " lacks " + key);
        else
            expectText(found->second, data, place + ": " + key);
    }
    for (const auto& [key, data] : actual)
        expect(expected.contains(key), place + " has " + key + " \"" + data + "\" besides");
}

void Tour::checkDatabase() {
    std::set<std::pair<ItemKind, std::string>> found;
    for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat}) {
        for (const wynconfig::StoredItem& item : m_workplace->database().items(kind)) {
            const std::string place = placeOf(kind, item.name);
            const auto expected = m_expectedInDatabase.find({kind, item.name});
            found.insert({kind, item.name});
            if (expected == m_expectedInDatabase.end())
                differ("there is a " + place);
            else
                checkRows(place, rowsOfText(item.xml), expected->second);
        }
    }
    for (const auto& [key, rows] : m_expectedInDatabase)
        expect(found.contains(key), "there is no " + placeOf(key.first, key.second));
    say("database checked: " + std::to_string(m_expectedInDatabase.size()) + " record(s)");
}

}  // namespace host

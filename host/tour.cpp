// The machinery of the tour: pictures, expectations, and the check of the store.
#include "tour.h"

#include <QCoreApplication>
#include <QPixmap>
#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "catalogue.h"
#include "send_panel.h"
#include "session_panel.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// Empties the place of a store, provided that nothing else lies there.
void clearStore(const StoreFolders& store) {
    if (!fs::exists(store.root) || fs::is_empty(store.root)) return;
    if (!store.exist() && !store.unfinished())
        throw std::runtime_error(store.root.string() + " is in the way: it is no store");
    fs::remove_all(store.root);
}

/// Removes the pictures of an earlier tour.
void clearPictures(const fs::path& folder) {
    std::vector<fs::path> old;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.size() > 3 && name[2] == '-' && entry.path().extension() == ".png")
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

std::string outcomeText(const Outcome& outcome) {
    return "result " + std::to_string(outcome.result) + ", name \"" + outcome.name + "\"";
}

void print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

}  // namespace

Tour::Tour(wynconfig::WYNConfig& component, wynconfig::ResourceManager& texts,
           const fs::path& folder)
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
    wynconfig::installView(m_view);
    m_window = std::make_unique<MainWindow>(component, m_store);
    m_window->show();
}

Tour::~Tour() {
    wynconfig::installView(nullptr);
}

bool Tour::run() {
    std::size_t number = 0;
    for (const TourStep& step : tourSteps()) walk(step, ++number);
    print("Checking the store");
    checkStore();
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
    const Outcome outcome = m_window->sessions().perform(operationOf(operationId));
    say("the operation gave " + outcomeText(outcome));
    expect(outcome.result == expected.result && outcome.name == expected.name,
           operationId + " gave " + outcomeText(outcome) + " instead of " + outcomeText(expected));
    m_boxPictures.clear();
    m_browsePictures.clear();
    user().finish();
}

fs::path Tour::nextPicture(const std::string& name) {
    const std::string number = std::to_string(++m_pictures);
    const std::string file = (number.size() < 2 ? "0" : "") + number + "-" + name + ".png";
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
    m_view->savePicture(nextPicture(name).string());
}

void Tour::hostPicture(const std::string& name) {
    QCoreApplication::processEvents();
    const fs::path path = nextPicture(name);
    expect(m_window->grab().save(QString::fromStdString(path.string()), "PNG"),
           path.string() + " can't be written");
}

void Tour::expectRecord(const std::string& path, Rows rows) {
    m_gone.erase(path);
    m_expected[path] = std::move(rows);
}

void Tour::expectNoRecord(const std::string& path) {
    m_expected.erase(path);
    m_gone.insert(path);
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
            deleted ? m_gone.contains(change.path) : m_expected.contains(change.path);
        expect(expected, change.path + " was " + wordFor(change.kind));
    }
    for (const std::string& path : m_gone)
        expect(!fs::exists(m_store.root / path), path + " is still there");
    for (const auto& [path, rows] : m_expected) checkRecord(path, rows);
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
    const Rows actual = rowsOf(record);
    for (const auto& [key, data] : expected) {
        const auto found = actual.find(key);
        if (found == actual.end())
            differ(path + " lacks " + key);
        else
            expectText(found->second, data, path + ": " + key);
    }
    for (const auto& [key, data] : actual)
        expect(expected.contains(key), path + " has " + key + " \"" + data + "\" besides");
}

}  // namespace host

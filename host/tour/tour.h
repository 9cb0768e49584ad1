// A guided tour: a played user walks through the real dialogs of the host, takes a picture of each,
// and checks at the end what the store holds.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "installed_view.h"
#include "sample/sample_store.h"
#include "sample/store_snapshot.h"
#include "window/main_window.h"
#include "window/operations.h"
#include "window/workplace.h"
#include "wynconfig/qt_view.h"
#include "wynconfig/resource_manager.h"

class QDialog;
class QWidget;

namespace host {

struct TourStep;

/// The rows of a record by their keys.
using Rows = std::map<std::string, std::string>;

/// The file of a session, from the store's root.
inline std::string sessionFile(const std::string& name) {
    return "MORAM/" + name + ".vla";
}

/// What the steps of the tour share: the window, the user, the pictures, and what is expected of
/// the store in the end.
class Tour {
  public:
    /// Makes the sample store anew in DIR/sample and works on a copy of it in DIR/store, and on a
    /// database in DIR/catalogue.sqlite.
    /// Raises what goes wrong, also when DIR holds folders of these names that are no stores.
    /// @param resources  folder of the texts
    Tour(wynconfig::WYNConfig& component, wynconfig::ResourceManager& texts,
         const std::string& resources, const std::filesystem::path& folder);
    ~Tour();
    Tour(const Tour&) = delete;
    Tour& operator=(const Tour&) = delete;

    /// Walks all steps and checks the store; prints every step and every difference.
    /// @return whether all went as expected
    bool run();

    // For the steps.

    wynconfig::User& user() { return m_view->user(); }
    const StoreFolders& store() const { return m_store; }
    /// The untouched sample store, which serves as another store.
    const StoreFolders& otherStore() const { return m_sampleStore; }
    Workplace& workplace() { return *m_workplace; }

    /// Puts a part into the host's parts list.
    void pickPart(const std::string& partNumber, int pieces);
    /// Sends the parts list by a session of the sample store, and expects this to be the file that
    /// it writes. (The copy's sessions still name the folders of the sample store itself.)
    void send(const std::string& session, const std::string& file, const std::string& content);
    /// Calls an operation of the panel on a session, and expects this of it.
    void perform(const std::string& operationId, const std::string& session,
                 const Outcome& expected);
    /// The same for an operation on a session or part format of the database.
    void performInDatabase(const std::string& operationId, wynconfig::ItemKind kind,
                           const std::string& name, const Outcome& expected);
    /// When the next dialog of the host's own comes up: does this to it, takes a picture, and
    /// presses a button.
    /// @param button  object name
    void onHostDialog(const std::string& pictureName, const char* button,
                      const std::function<void(QDialog&)>& act = {});
    /// Says in a line what happens.
    void say(const std::string& text);
    /// Expects a fact; a false one is a difference that fails the tour.
    void expect(bool fact, const std::string& what);
    void expectText(const std::string& actual, const std::string& expected,
                    const std::string& what);
    /// Announces a box: its picture's name, and the key of a text that it has to hold, with this
    /// other text besides.
    void expectBox(const std::string& pictureName, const std::string& textKey,
                   const std::string& besides = {});
    /// Announces a question in the same way, and the button that answers it.
    void expectQuestion(const std::string& pictureName, const std::string& textKey, int button);
    /// Announces a browse dialog: its picture's name, and the path to pick.
    void expectBrowse(const std::string& pictureName, const std::string& path);
    /// Takes a picture of the dialog on top, and keeps what a screen reader finds in it.
    void picture(const std::string& name);
    /// Takes a picture of the host's window.
    void hostPicture(const std::string& name);

    /// Expects a record in the store with exactly these rows. Files of the sample store that nobody
    /// expects to be otherwise must stay as they are, byte for byte.
    /// @param path  below the store's folder
    void expectRecord(const std::string& path, Rows rows);
    /// Expects a file in the store with exactly this text.
    void expectFile(const std::string& path, const std::string& text);
    /// Expects a record in the database with exactly these rows; there is no other one but those
    /// expected.
    void expectStored(wynconfig::ItemKind kind, const std::string& name, Rows rows);
    void expectNotStored(wynconfig::ItemKind kind, const std::string& name);
    /// The rows that a record of the database has to have by now.
    Rows expectedStoredRows(wynconfig::ItemKind kind, const std::string& name) const;
    /// Expects a record, of the tour or of the sample store, to be gone.
    void expectNoRecord(const std::string& path);
    /// The rows that a record has to have by now: those announced, or else the sample store's.
    Rows expectedRows(const std::string& path) const;
    /// The rows of a record as they are on disk now.
    Rows rowsOnDisk(const std::string& path) const;
    /// The rows of a record of the other store.
    Rows rowsInOtherStore(const std::string& path) const;
    /// Compares the whole store with what is expected of it by now. The end of the tour does so in
    /// any case.
    void checkStore();
    /// The same for the database.
    void checkDatabase();

  private:
    void shown(const std::string& name);
    std::filesystem::path nextPicture(const std::string& name);
    /// Takes a picture of a window of the host's own.
    void takeOwn(QWidget& window, const std::string& name);
    /// Puts what a screen reader finds beside the picture of the same window.
    void writeSpoken(std::filesystem::path picture, const std::string& tree);
    void walk(const TourStep& step, std::size_t number);
    void announceBox(const std::string& pictureName, const std::string& textKey,
                     const std::string& besides, int button);
    void differ(const std::string& what);
    void awaitHostDialog(const std::string& pictureName, const char* button,
                         const std::function<void(QDialog&)>& act, int tries);
    void performNow(const std::string& operationId, const Outcome& expected);
    void checkRows(const std::string& place, const Rows& actual, const Rows& expected);
    void checkRecord(const std::string& path, const Rows& expected);

    std::filesystem::path m_folder;
    StoreFolders m_sampleStore;
    StoreFolders m_store;
    Snapshot m_sample;
    wynconfig::ResourceManager& m_texts;
    std::shared_ptr<wynconfig::QtView> m_view;
    std::optional<InstalledView> m_installed;
    std::unique_ptr<Workplace> m_workplace;
    std::unique_ptr<MainWindow> m_window;
    std::map<std::string, Rows> m_expected;
    std::map<std::string, std::string> m_expectedFiles;
    std::map<std::pair<wynconfig::ItemKind, std::string>, Rows> m_expectedInDatabase;
    std::set<std::string> m_gone;
    std::deque<std::string> m_boxPictures;
    std::deque<std::string> m_browsePictures;
    int m_pictures = 0;
    std::vector<std::string> m_differences;
};

/// A step of the tour.
struct TourStep {
    const char* name;
    std::function<void(Tour&)> walk;
};

/// All steps in their order.
const std::vector<TourStep>& tourSteps();

}  // namespace host

// The panel of the sessions: those of the store, those of the database, and the operations.
#pragma once

#include <QList>
#include <QWidget>

#include "sample/store_snapshot.h"
#include "window/operations.h"

class QAction;
class QListWidget;
class QTabWidget;

namespace host {

class DatabasePanel;
class DeveloperPanel;

class SessionPanel : public QWidget {
    Q_OBJECT

  public:
    explicit SessionPanel(Workplace& workplace, QWidget* parent = nullptr);

    /// One action per operation, for a menu.
    QList<QAction*> operationActions(Area area) const;
    /// The page that shows what the last operation gave back and left on disk.
    QWidget* developerPage() const;
    /// Does an operation on what is selected, as its button does, and shows what came of it.
    /// Raises `std::exception` with what the operation raises, or when the store can't be read.
    Outcome perform(const Operation& operation);
    /// Selects a session of the store, and brings its list to the front.
    void selectSession(const std::string& name);
    /// The same for a session or part format of the database.
    void selectInDatabase(wynconfig::ItemKind kind, const std::string& name);
    /// Opens another store, and tells what came of it.
    void openStore(const std::filesystem::path& root);
    /// Lists the sessions anew, when something else than an operation changed the store.
    void refresh();
    /// The same for both lists.
    void refreshAll();
    /// Whether an operation has not come to its end.
    bool isAtWork() const { return m_isAtWork; }

  signals:
    /// What was asked for stands on the developers' page.
    void developersAsked();
    void sessionSelected(const QString& name);
    /// After an operation, whatever came of it; the store may be another one by now.
    void performed();
    /// What came of an action: a sentence for the user.
    void told(const QString& sentence, bool isFailure);

  private:
    void makeActions();
    void trigger(const Operation& operation);
    QWidget* makeLists();
    QWidget* makeSessions();
    QList<QAction*> buttonActions(Area area) const;
    std::string selectedSession() const;
    Selection selection();
    /// Lists the sessions anew.
    void listSessions(const std::string& select);
    /// The same for the database, if its list is in front.
    void listDatabase(const std::string& select);
    Snapshot snapshot() const;
    void enableActions();
    /// @param more  what the operation has to say besides
    void tell(const Operation& operation, const Outcome& outcome, const QString& more);

    Workplace& m_workplace;
    QList<QAction*> m_actions;  ///< one per operation, in their order
    QTabWidget* m_lists = nullptr;
    DatabasePanel* m_database = nullptr;
    QListWidget* m_sessions = nullptr;
    std::string m_wanted;  ///< the session that was selected last
    bool m_isAtWork = false;
    DeveloperPanel* m_developers = nullptr;
};

}  // namespace host

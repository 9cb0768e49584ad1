// The panel of the sessions: those of the store, those of the database, the operations, and what
// the last one gave back and left on disk.
#pragma once

#include <QList>
#include <QWidget>

#include "sample/store_snapshot.h"
#include "window/operations.h"

class QAction;
class QListWidget;
class QPlainTextEdit;
class QTabWidget;

namespace host {

class DatabasePanel;
class SentenceLabel;

class SessionPanel : public QWidget {
    Q_OBJECT

  public:
    explicit SessionPanel(Workplace& workplace, QWidget* parent = nullptr);

    /// One action per operation, for a menu.
    QList<QAction*> operationActions(Area area) const;
    /// Does an operation on what is selected, as its button does, and shows what came of it.
    /// Raises `std::exception` with what the operation raises, or when the store can't be read.
    Outcome perform(const Operation& operation);
    /// Selects a session of the store, and brings its list to the front.
    void selectSession(const std::string& name);
    /// The same for a session or part format of the database.
    void selectInDatabase(wynconfig::ItemKind kind, const std::string& name);
    /// Lists the sessions anew, when something else than an operation changed the store.
    void refresh();

  signals:
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
    QWidget* makeResult();
    QList<QAction*> buttonActions(Area area) const;
    std::string selectedSession() const;
    Selection selection();
    /// Lists the sessions anew.
    void listSessions(const std::string& select);
    /// The same for the database, if its list is in front.
    void listDatabase(const std::string& select);
    Snapshot snapshot() const;
    void enableActions();
    /// @param identifiers  that may stand in what it tells
    void showOutcome(const Operation& operation, const Outcome& outcome,
                     const QStringList& identifiers);
    void showChanges(const Snapshot& before, const Snapshot& after);

    Workplace& m_workplace;
    QList<QAction*> m_actions;  ///< one per operation, in their order
    QTabWidget* m_lists = nullptr;
    DatabasePanel* m_database = nullptr;
    QListWidget* m_sessions = nullptr;
    SentenceLabel* m_result = nullptr;
    SentenceLabel* m_changes = nullptr;
    QString m_lastChange;
    QPlainTextEdit* m_text = nullptr;
};

}  // namespace host

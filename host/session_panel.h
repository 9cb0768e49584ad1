// The panel "Sessions": the sessions of the store, the component's operations, and what the last
// one gave back and left on disk.
#pragma once

#include <QList>
#include <QWidget>

#include "operations.h"
#include "sample_store.h"
#include "store_snapshot.h"

class QAction;
class QLabel;
class QListWidget;
class QPlainTextEdit;

namespace host {

class SessionPanel : public QWidget {
    Q_OBJECT

  public:
    /// @param component  is set to the store already
    SessionPanel(wynconfig::WYNConfig& component, StoreFolders store, QWidget* parent = nullptr);

    /// One action per operation, for a menu.
    const QList<QAction*>& operationActions() const { return m_actions; }
    /// Calls an operation on the selected session, as its button does, and shows what came of it.
    /// Raises `std::exception` when the store can't be read.
    Outcome perform(const Operation& operation);
    void selectSession(const std::string& name);
    /// Lists the sessions anew, when something else than an operation changed the store.
    void refresh();

  signals:
    void sessionSelected(const QString& name);
    /// An operation was called.
    void storeChanged();

  private:
    void makeActions();
    void trigger(const Operation& operation);
    QWidget* makeSessions();
    QWidget* makeResult();
    std::string selectedSession() const;
    /// Lists the sessions anew.
    void listSessions(const std::string& select);
    void enableActions();
    void showOutcome(const Outcome& outcome);
    void showChanges(const Snapshot& before, const Snapshot& after);

    wynconfig::WYNConfig& m_component;
    StoreFolders m_store;
    QList<QAction*> m_actions;
    QAction* m_configure = nullptr;  ///< what a double click on a session does
    QListWidget* m_sessions = nullptr;
    QLabel* m_result = nullptr;
    QLabel* m_changes = nullptr;
    QString m_lastChange;
    QPlainTextEdit* m_text = nullptr;
};

}  // namespace host

// The page "Send": how a session would send the parts list, shown live, and the button that does
// it.
#pragma once

#include <QWidget>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "sample/sample_store.h"
#include "sending/sending.h"
#include "window/process_starter.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

namespace host {

class SendPanel : public QWidget {
    Q_OBJECT

  public:
    /// @param store  the folders to read; has to outlive the panel, which follows its changes
    explicit SendPanel(const StoreFolders& store, QWidget* parent = nullptr);

    /// Does what the button does.
    QAction* sendAction() const { return m_sendAction; }
    void setParts(std::vector<PickedPart> parts);
    /// Whether the list was sent as it is now.
    bool isSent() const { return m_sent == m_list.parts; }
    /// Takes the list as sent, as it was at an earlier start.
    void takeAsSent() { m_sent = m_list.parts; }
    /// Chooses a session; one that is not there yet, once the store is read anew.
    void selectSession(const QString& name);
    /// The session that is chosen; empty where the store has none.
    QString session() const;
    /// The folders outside the store on which its plan hangs.
    std::vector<std::filesystem::path> places() const;
    /// Reads the store anew, and keeps what was chosen as far as it is still there.
    void readStore();
    /// Sends the list, and says what came of it.
    void send();

  signals:
    /// The user chose a session.
    void sessionSelected(const QString& name);
    /// The plan was made anew.
    void planned();
    /// The list was sent, or one that counted as sent was not received.
    void sentChanged();
    /// What came of an action: a sentence for the user.
    void told(const QString& sentence, bool isFailure);

  private:
    QWidget* makeChoices();
    QWidget* makePreview();
    QWidget* makePlan();
    void readSession();
    void setSent(std::optional<std::vector<PickedPart>> parts);
    void refresh();
    Plan plan() const;
    /// What may be named in the sentences of a plan, or of its outcome.
    QStringList identifiersOf(const Plan& plan) const;
    void showPlan(const Plan& plan);
    /// Puts what came of something behind what came before.
    void note(const QString& sentences);
    /// Turns to the list that there is, when there is only one.
    void showList();

    const StoreFolders& m_store;
    ProcessStarter m_starter;
    PartsList m_list;
    std::optional<std::vector<PickedPart>> m_sent;  ///< the parts that were sent last
    QString m_wanted;                               ///< the session to choose
    std::optional<Session> m_session;
    std::optional<std::filesystem::path> m_file;     ///< of the plan
    std::optional<std::filesystem::path> m_program;  ///< of the plan
    std::string m_unreadable;                        ///< why there is no session
    QAction* m_sendAction;
    QComboBox* m_sessions = nullptr;
    QComboBox* m_formats = nullptr;
    QLineEdit* m_vin = nullptr;
    QLabel* m_vinHint = nullptr;
    QTabWidget* m_preview = nullptr;
    QPlainTextEdit* m_programList = nullptr;
    QPlainTextEdit* m_fileList = nullptr;
    QPlainTextEdit* m_facts = nullptr;
    QPlainTextEdit* m_plan = nullptr;
    QPushButton* m_send = nullptr;
    QPlainTextEdit* m_outcome = nullptr;
};

}  // namespace host

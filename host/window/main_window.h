// The host's main window: the catalogue, and beside it the pages of sending, of the sessions and of
// what was deleted.
#pragma once

#include <QMainWindow>
#include <filesystem>

#include "window/workplace.h"

class QMenu;
class QTabWidget;

namespace host {

class CatalogueWidget;
class DeletedPanel;
class ElidedLabel;
class FirstSteps;
class Remembered;
class ResultLine;
class SendPanel;
class SentenceLabel;
class SessionPanel;
class StoreWatch;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// @param remembered  what it is restored from, and keeps for the next start; null: nothing
    explicit MainWindow(Workplace& workplace, Remembered* remembered = nullptr);

    CatalogueWidget& catalogue() { return *m_catalogue; }
    SessionPanel& sessions() { return *m_sessions; }
    SendPanel& sending() { return *m_send; }
    /// Each brings its page to the front.
    void showSessions();
    void showSending();

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* makePages();
    void makeMenus();
    void makeStoreMenu();
    void listRecentStores();
    /// Shows which store it is, and what of it can't be read.
    void showStore();
    void showPlace();
    /// Reads everything anew, as others may have changed it; what the user has chosen stays.
    /// @return whether there was something to tell
    bool readAnew();
    void watchFolders();
    void makeWatch();
    void makeStatusBar();
    void restore();
    void keepParts();

    Workplace& m_workplace;
    Remembered* m_remembered;
    CatalogueWidget* m_catalogue;
    SendPanel* m_send;
    SessionPanel* m_sessions;
    DeletedPanel* m_deleted;
    QTabWidget* m_pages = nullptr;
    FirstSteps* m_firstSteps = nullptr;
    std::filesystem::path m_shown;  ///< the store that is shown
    QMenu* m_recent = nullptr;
    StoreWatch* m_watch = nullptr;
    bool m_isLost = false;  ///< something of the store was not there when it was read last
    ElidedLabel* m_place;
    ResultLine* m_result;
    SentenceLabel* m_faults;
};

}  // namespace host

// The host's main window: the catalogue, and beside it the pages of sending, of the sessions and of
// what was deleted.
#pragma once

#include <QMainWindow>

#include "sample_store.h"
#include "wynconfig/wynconfig.h"

class QTabWidget;

namespace host {

class CatalogueWidget;
class DeletedPanel;
class SendPanel;
class SessionPanel;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// @param component  is set to the store already
    MainWindow(wynconfig::WYNConfig& component, const StoreFolders& store);

    CatalogueWidget& catalogue() { return *m_catalogue; }
    SessionPanel& sessions() { return *m_sessions; }
    SendPanel& sending() { return *m_send; }
    /// Each brings its page to the front.
    void showSessions();
    void showSending();

  private:
    QWidget* makePages();
    void makeMenus();

    CatalogueWidget* m_catalogue;
    SendPanel* m_send;
    SessionPanel* m_sessions;
    DeletedPanel* m_deleted;
    QTabWidget* m_pages = nullptr;
};

}  // namespace host

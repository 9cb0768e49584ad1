// The host's main window: the catalogue, and the sessions beside it.
#pragma once

#include <QMainWindow>

#include "sample_store.h"
#include "wynconfig/wynconfig.h"

namespace host {

class CatalogueWidget;
class SessionPanel;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// @param component  is set to the store already
    MainWindow(wynconfig::WYNConfig& component, const StoreFolders& store);

    CatalogueWidget& catalogue() { return *m_catalogue; }
    SessionPanel& sessions() { return *m_sessions; }

  private:
    void makeMenus();

    CatalogueWidget* m_catalogue;
    SessionPanel* m_sessions;
};

}  // namespace host

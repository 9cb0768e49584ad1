// The main window and its menus.
#include "main_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>

#include "catalogue.h"
#include "session_panel.h"

namespace host {

MainWindow::MainWindow(wynconfig::WYNConfig& component, const StoreFolders& store)
    : m_catalogue(new CatalogueWidget), m_sessions(new SessionPanel(component, store)) {
    setWindowTitle(tr("Parts Catalogue"));
    auto* splitter = new QSplitter;
    splitter->addWidget(m_catalogue);
    splitter->addWidget(m_sessions);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(12);
    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    layout->addWidget(splitter);
    setCentralWidget(central);
    makeMenus();
    auto* place = new QLabel(tr("Store: %1").arg(QString::fromStdString(store.root.string())));
    place->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(place);
    resize(1180, 740);
}

void MainWindow::makeMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    QMenu* parts = menuBar()->addMenu(tr("&Parts"));
    parts->addAction(tr("&Search"), QKeySequence::Find, m_catalogue, &CatalogueWidget::goToSearch);
    parts->addAction(tr("&Clear list"), m_catalogue, &CatalogueWidget::clearPartsList);
    QMenu* sessions = menuBar()->addMenu(tr("&Sessions"));
    sessions->addActions(m_sessions->operationActions());
}

}  // namespace host

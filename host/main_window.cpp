// The main window and its menus.
#include "main_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>

#include "catalogue.h"
#include "deleted_panel.h"
#include "send_panel.h"
#include "session_panel.h"

namespace host {

MainWindow::MainWindow(wynconfig::WYNConfig& component, const StoreFolders& store)
    : m_catalogue(new CatalogueWidget),
      m_send(new SendPanel(store)),
      m_sessions(new SessionPanel(component, store)),
      m_deleted(new DeletedPanel(store)) {
    setWindowTitle(tr("Parts Catalogue"));
    auto* splitter = new QSplitter;
    splitter->addWidget(m_catalogue);
    splitter->addWidget(makePages());
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

QWidget* MainWindow::makePages() {
    m_pages = new QTabWidget;
    m_pages->addTab(m_send, tr("Se&nd"));
    m_pages->addTab(m_sessions, tr("Sessi&ons"));
    m_pages->addTab(m_deleted, tr("&Deleted items"));
    m_sessions->layout()->setContentsMargins(m_send->layout()->contentsMargins());
    connect(m_catalogue, &CatalogueWidget::partsListChanged, this,
            [this] { m_send->setParts(m_catalogue->partsList()); });
    connect(m_sessions, &SessionPanel::sessionSelected, m_send, &SendPanel::selectSession);
    connect(m_send, &SendPanel::sessionSelected, this,
            [this](const QString& name) { m_sessions->selectSession(name.toStdString()); });
    connect(m_sessions, &SessionPanel::storeChanged, m_send, &SendPanel::readStore);
    connect(m_sessions, &SessionPanel::storeChanged, m_deleted, &DeletedPanel::readStore);
    connect(m_deleted, &DeletedPanel::restored, m_sessions, &SessionPanel::refresh);
    connect(m_deleted, &DeletedPanel::restored, m_send, &SendPanel::readStore);
    return m_pages;
}

void MainWindow::showSessions() {
    m_pages->setCurrentWidget(m_sessions);
}

void MainWindow::showSending() {
    m_pages->setCurrentWidget(m_send);
}

void MainWindow::makeMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    QMenu* parts = menuBar()->addMenu(tr("&Parts"));
    parts->addAction(tr("&Search"), QKeySequence::Find, m_catalogue, &CatalogueWidget::goToSearch);
    parts->addAction(tr("&Clear list"), m_catalogue, &CatalogueWidget::clearPartsList);
    parts->addAction(m_send->sendAction());
    QMenu* sessions = menuBar()->addMenu(tr("&Sessions"));
    sessions->addActions(m_sessions->operationActions());
}

}  // namespace host

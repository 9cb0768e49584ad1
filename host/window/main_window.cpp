// The main window and its menus.
#include "window/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTabWidget>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

#include "window/catalogue.h"
#include "window/deleted_panel.h"
#include "window/direction.h"
#include "window/elided_label.h"
#include "window/first_steps.h"
#include "window/help_menu.h"
#include "window/language_menu.h"
#include "window/remembered.h"
#include "window/result_line.h"
#include "window/send_panel.h"
#include "window/sentence_label.h"
#include "window/session_panel.h"
#include "window/store_dialogs.h"
#include "window/store_watch.h"
#include "window/wording.h"
#include "wynconfig/qt_view.h"

namespace host {

MainWindow::MainWindow(Workplace& workplace, Remembered* remembered)
    : m_workplace(workplace),
      m_remembered(remembered),
      m_catalogue(new CatalogueWidget),
      m_send(new SendPanel(workplace.store())),
      m_sessions(new SessionPanel(workplace)),
      m_deleted(new DeletedPanel(workplace.store())),
      m_place(new ElidedLabel(Qt::ElideMiddle)),
      m_result(new ResultLine),
      m_faults(new SentenceLabel) {
    worded(this, [this] {
        setLocale(QLocale());
        setWindowTitle(wording("WINDOW_TITLE"));
    });
    auto* splitter = new QSplitter;
    splitter->setObjectName(QStringLiteral("windowSplitter"));
    splitter->addWidget(m_catalogue);
    splitter->addWidget(makePages());
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(12);
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    m_faults->setObjectName(QStringLiteral("faults"));
    m_faults->letCopy();
    layout->addWidget(m_faults);
    m_firstSteps = new FirstSteps(m_sessions->operationActions(Area::FirstSteps).front(),
                                  m_sessions->operationActions(Area::Store).front());
    layout->addWidget(m_firstSteps);
    layout->addWidget(splitter, 1);
    setCentralWidget(central);
    makeMenus();
    makeStatusBar();
    connect(m_sessions, &SessionPanel::performed, this, &MainWindow::showStore);
    connect(m_deleted, &DeletedPanel::restored, this, &MainWindow::showStore);
    showStore();
    makeWatch();
    resize(1180, 740);
    for (QLineEdit* each : findChildren<QLineEdit*>()) each->installEventFilter(this);
    wynconfig::clarify(*this);
    if (m_remembered) restore();
    // The folders are told of by their faults as well.
    connect(&LanguageNews::instance(), &LanguageNews::changed, this, &MainWindow::showStore);
}

QWidget* MainWindow::makePages() {
    m_pages = new QTabWidget;
    for (QWidget* each : std::initializer_list<QWidget*>{m_send, m_sessions, m_deleted,
                                                         m_sessions->developerPage()})
        m_pages->addTab(each, QString());
    worded(m_pages, [this] {
        m_pages->setTabText(0, wording("PAGE_SEND"));
        m_pages->setTabText(1, wording("PAGE_SESSIONS"));
        m_pages->setTabText(2, wording("PAGE_DELETED"));
        m_pages->setTabText(3, wording("PAGE_DEVELOPERS"));
    });
    addActions(m_sessions->operationActions(Area::Developers));
    connect(m_sessions, &SessionPanel::developersAsked, this,
            [this] { m_pages->setCurrentWidget(m_sessions->developerPage()); });
    m_sessions->layout()->setContentsMargins(m_send->layout()->contentsMargins());
    connect(m_catalogue, &CatalogueWidget::partsListChanged, this,
            [this] { m_send->setParts(m_catalogue->partsList()); });
    // Its plan and its outcome stand there.
    connect(m_send->sendAction(), &QAction::triggered, this, &MainWindow::showSending);
    connect(m_sessions, &SessionPanel::sessionSelected, m_send, &SendPanel::selectSession);
    connect(m_send, &SendPanel::sessionSelected, this,
            [this](const QString& name) { m_sessions->selectSession(name.toStdString()); });
    connect(m_sessions, &SessionPanel::performed, m_send, &SendPanel::readStore);
    connect(m_sessions, &SessionPanel::performed, m_deleted, &DeletedPanel::readStore);
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

void MainWindow::makeStatusBar() {
    constexpr int kResultShare = 3;
    constexpr int kPlaceShare = 2;
    m_place->setObjectName(QStringLiteral("store"));
    m_place->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    statusBar()->addPermanentWidget(m_result, kResultShare);
    statusBar()->addPermanentWidget(m_place, kPlaceShare);
    m_result->hide();  // until there is one
    connect(m_catalogue, &CatalogueWidget::told, m_result, &ResultLine::tell);
    connect(m_send, &SendPanel::told, m_result, &ResultLine::tell);
    connect(m_sessions, &SessionPanel::told, m_result, &ResultLine::tell);
    connect(m_deleted, &DeletedPanel::told, m_result, &ResultLine::tell);
}

bool MainWindow::event(QEvent* event) {
    if (event->type() != QEvent::StatusTip) return QMainWindow::event(event);
    // The tip of what lies below the mouse stands in the place of the store: the last result is to
    // stay in sight.
    const QString tip = static_cast<QStatusTipEvent*>(event)->tip();
    if (tip.isEmpty())
        showPlace();
    else
        m_place->tell(tip);
    return true;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // On some systems boxes take the key that sends for one of theirs.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (m_send->sendAction()->shortcut() == QKeySequence(key->keyCombination())) {
            event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::restore() {
    m_remembered->restore(*this);
    m_send->selectSession(m_remembered->session());
    m_catalogue->restorePartsList(m_remembered->parts());
    if (m_remembered->partsWereSent()) m_send->takeAsSent();
    connect(m_catalogue, &CatalogueWidget::partsListChanged, this, &MainWindow::keepParts);
    connect(m_send, &SendPanel::sentChanged, this, &MainWindow::keepParts);
    connect(m_send, &SendPanel::sessionSelected, this,
            [this](const QString& name) { m_remembered->keepSession(name); });
}

void MainWindow::keepParts() {
    m_remembered->keepParts(m_catalogue->partsList(), m_send->isSent());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (m_remembered) m_remembered->keep(*this);
    const bool isKept = m_remembered && m_remembered->isKept();
    const bool isDone = m_catalogue->partsList().empty() || m_send->isSent();
    if (!isKept && !isDone && !askToQuit(this)) return event->ignore();
    QMainWindow::closeEvent(event);
}

void MainWindow::showPlace() {
    m_place->tell(wording("STORE_PLACE", {isolated(m_workplace.store().root.string())}));
}

void MainWindow::showStore() {
    const StoreFolders& store = m_workplace.store();
    showPlace();
    QStringList places;
    for (const auto& each : {store.root, store.sessions(), store.sessions() / "deleted",
                             store.formats(), store.formats() / "deleted", store.sessionList()})
        places << QString::fromStdString(each.string());
    QStringList faults;
    const std::vector<std::string> losses = store.losses();
    m_isLost = !losses.empty();
    for (const auto& all : {losses, store.faults()})
        for (const std::string& each : all)
            faults << isolatedIn(QString::fromStdString(each), places);
    m_faults->tell(faults.join(u'\n'));
    m_faults->setVisible(!faults.isEmpty());
    m_firstSteps->look(store);
    // Whoever opens an empty store begins there; who works in one that others empty types on.
    if (std::exchange(m_shown, store.root) != store.root && !m_firstSteps->isHidden())
        m_firstSteps->setFocus();
    if (m_remembered && store.exist())
        m_remembered->keepStore(QString::fromStdString(store.root.string()));
}

void MainWindow::makeWatch() {
    // What is up in front is not to change, nor what comes up behind it be about something else.
    m_watch = new StoreWatch(
        [this] {
            return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
                   m_sessions->isAtWork();
        },
        this);
    connect(m_watch, &StoreWatch::changed, this, &MainWindow::readAnew);
    connect(m_send, &SendPanel::planned, this, &MainWindow::watchFolders);
    connect(m_sessions, &SessionPanel::performed, this, &MainWindow::watchFolders);
    watchFolders();
}

void MainWindow::watchFolders() {
    const StoreFolders& store = m_workplace.store();
    std::vector<std::filesystem::path> folders = {store.root, store.sessions(),
                                                  store.sessions() / "deleted", store.formats(),
                                                  store.formats() / "deleted"};
    for (const auto& each : m_send->places()) folders.push_back(each);
    m_watch->watch(folders);
}

bool MainWindow::readAnew() {
    const QString chosen = m_send->session();
    const bool wasLost = m_isLost;
    m_sessions->refresh();
    m_send->readStore();
    m_deleted->readStore();
    showStore();
    const QString now = m_send->session();
    if (m_isLost && !wasLost)
        m_result->tell(m_faults->text(), true);
    else if (wasLost && !m_isLost)
        m_result->tell(wording("STORE_BACK"), false);
    else if (!m_isLost && now != chosen && !chosen.isEmpty())
        m_result->tell(now.isEmpty()
                           ? wording("SESSION_GONE", {isolated(chosen)})
                           : wording("SESSION_GONE_OTHER", {isolated(chosen), isolated(now)}),
                       true);
    else
        return false;
    return true;
}

void MainWindow::makeStoreMenu() {
    QList<QAction*> actions = m_sessions->operationActions(Area::Store);
    QMenu* store = withTitle(menuBar()->addMenu(QString()), "MENU_STORE");
    store->addAction(actions.takeFirst());  // opens another one
    m_recent = withTitle(store->addMenu(QString()), "MENU_RECENT");
    m_recent->setObjectName(QStringLiteral("recentStores"));
    connect(m_recent, &QMenu::aboutToShow, this, &MainWindow::listRecentStores);
    listRecentStores();
    store->addActions(actions);
    const auto read = [this] {
        const bool hasTold = readAnew();
        m_sessions->refreshAll();
        if (!hasTold && !m_isLost) m_result->tell(wording("STORE_READ"), false);
    };
    QAction* anew = withText(store->addAction(QString(), Qt::Key_F5, this, read), "MENU_READ_ANEW");
    anew->setObjectName(QStringLiteral("readAnew"));
    withTip(anew, "MENU_READ_ANEW_TIP");
}

void MainWindow::listRecentStores() {
    m_recent->clear();
    const QString now = QString::fromStdString(m_workplace.store().root.string());
    for (const QString& each : m_remembered ? m_remembered->stores() : QStringList()) {
        if (each == now) continue;
        // What looks like a mark of a letter is part of the path.
        m_recent->addAction(isolated(QString(each).replace(u'&', "&&")), this,
                            [this, each] { m_sessions->openStore(each.toStdString()); });
    }
    m_recent->setEnabled(!m_recent->isEmpty());
}

void MainWindow::makeMenus() {
    const auto add = [this](const char* key) {
        return withTitle(menuBar()->addMenu(QString()), key);
    };
    QMenu* file = add("MENU_FILE");
    withText(file->addAction(QString(), QKeySequence::Quit, this, &QWidget::close), "MENU_QUIT");
    QMenu* parts = add("MENU_PARTS");
    withText(
        parts->addAction(QString(), QKeySequence::Find, m_catalogue, &CatalogueWidget::goToSearch),
        "MENU_SEARCH");
    parts->addActions({m_catalogue->undoAction(), m_catalogue->redoAction()});
    withText(parts->addAction(QString(), m_catalogue, &CatalogueWidget::clearPartsList),
             "LIST_CLEAR_MENU");
    parts->addAction(m_send->sendAction());
    makeStoreMenu();
    add("MENU_DATABASE")->addActions(m_sessions->operationActions(Area::Database));
    QMenu* tools = add("MENU_TOOLS");
    tools->addActions(m_sessions->operationActions(Area::Tools));
    tools->addMenu(
        makeLanguageMenu(m_workplace, this, [this](const QString& sentence, bool isFailure) {
            m_result->tell(sentence, isFailure);
            if (m_remembered && !isFailure) m_remembered->keepLanguage(m_workplace.language());
        }));
    menuBar()->addMenu(makeHelpMenu(this));
}

}  // namespace host

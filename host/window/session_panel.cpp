// Sessions, operations and results on the screen.
#include "window/session_panel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStringList>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>

#include "window/action_buttons.h"
#include "window/database_panel.h"
#include "window/developer_panel.h"
#include "window/direction.h"
#include "window/store_dialogs.h"
#include "window/wording.h"

namespace host {

namespace {

/// What an operation is called in a sentence.
QString nameOf(const Operation& operation) {
    return plainWording(operation.caption);
}

}  // namespace

SessionPanel::SessionPanel(Workplace& workplace, QWidget* parent)
    : QWidget(parent), m_workplace(workplace) {
    makeActions();
    m_developers = new DeveloperPanel(buttonActions(Area::Developers), this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(makeLists());
    listSessions({});
    enableActions();
}

void SessionPanel::makeActions() {
    for (const Operation& operation : operations()) {
        auto* action = withTip(withText(new QAction(this), operation.caption), operation.tip);
        action->setObjectName(operation.id);
        action->setShortcut(QKeySequence(QString::fromUtf8(operation.shortcut)));
        connect(action, &QAction::triggered, this, [this, &operation] { trigger(operation); });
        m_actions << action;
    }
}

QList<QAction*> SessionPanel::operationActions(Area area) const {
    QList<QAction*> found;
    for (std::size_t i = 0; i < operations().size(); ++i) {
        if (operations()[i].area == area) found << m_actions[static_cast<qsizetype>(i)];
    }
    return found;
}

QList<QAction*> SessionPanel::buttonActions(Area area) const {
    QList<QAction*> found;
    for (std::size_t i = 0; i < operations().size(); ++i) {
        const Operation& operation = operations()[i];
        if (operation.area == area && operation.button)
            found << m_actions[static_cast<qsizetype>(i)];
    }
    return found;
}

QWidget* SessionPanel::makeLists() {
    m_lists = new QTabWidget;
    m_lists->addTab(makeSessions(), QString());
    m_database = new DatabasePanel(m_workplace, buttonActions(Area::Database),
                                   findChild<QAction*>("configure-of-database"));
    connect(m_database, &DatabasePanel::selectionChanged, this, &SessionPanel::enableActions);
    m_lists->addTab(m_database, QString());
    worded(m_lists, [this] {
        m_lists->setTabText(0, wording("SESSIONS_TITLE"));
        m_lists->setTabText(1, wording("DATABASE_TITLE"));
    });
    // A database that can't be reached takes seconds: it is asked when somebody wants to see it.
    connect(m_lists, &QTabWidget::currentChanged, this, [this] { listDatabase({}); });
    return m_lists;
}

QWidget* SessionPanel::makeSessions() {
    m_sessions = new QListWidget;
    m_sessions->setItemDelegate(new DirectionDelegate(m_sessions));
    withName(m_sessions, "SESSIONS_TITLE");
    connect(m_sessions, &QListWidget::currentRowChanged, this, &SessionPanel::enableActions);
    connect(m_sessions, &QListWidget::currentTextChanged, this, &SessionPanel::sessionSelected);
    connect(m_sessions, &QListWidget::itemActivated, findChild<QAction*>("configure"),
            &QAction::trigger);
    auto* widget = new QWidget;
    auto* line = new QHBoxLayout(widget);
    line->addWidget(m_sessions, 1);
    QLayout* buttons = makeActionButtons(buttonActions(Area::Store));
    line->addLayout(buttons);
    offerButtons(*m_sessions, *buttons);
    return widget;
}

QWidget* SessionPanel::developerPage() const {
    return m_developers;
}

std::string SessionPanel::selectedSession() const {
    const QListWidgetItem* item = m_sessions->currentItem();
    return item ? item->text().toStdString() : std::string();
}

Selection SessionPanel::selection() {
    return {selectedSession(), m_database->selected(), window()};
}

void SessionPanel::selectSession(const std::string& name) {
    m_lists->setCurrentIndex(0);
    const auto found = m_sessions->findItems(QString::fromStdString(name), Qt::MatchExactly);
    if (!found.isEmpty()) m_sessions->setCurrentItem(found.front());
}

void SessionPanel::refresh() {
    // Of a store that went away the selection is to be there again when that comes back.
    const std::string selected = selectedSession();
    if (!selected.empty()) m_wanted = selected;
    listSessions(m_wanted);
}

void SessionPanel::refreshAll() {
    refresh();
    listDatabase({});
}

void SessionPanel::selectInDatabase(wynconfig::ItemKind kind, const std::string& name) {
    m_lists->setCurrentWidget(m_database);
    m_database->refresh({});
    m_database->select(kind, name);
}

void SessionPanel::listSessions(const std::string& select) {
    QStringList names;
    for (const std::string& name : m_workplace.store().readableNames(wynconfig::ItemKind::Session))
        names << QString::fromStdString(name);
    QStringList before;
    for (int row = 0; row < m_sessions->count(); ++row) before << m_sessions->item(row)->text();
    // A list that is the same stays, with the place that the user has scrolled to.
    const QString selected = QString::fromStdString(selectedSession());
    {
        const QSignalBlocker silent(m_sessions);
        const int row = m_sessions->currentRow();
        if (names != before) {
            m_sessions->clear();
            m_sessions->addItems(names);
        }
        const auto wanted = static_cast<int>(names.indexOf(QString::fromStdString(select)));
        const int last = static_cast<int>(names.size()) - 1;
        m_sessions->setCurrentRow(wanted >= 0 ? wanted : std::clamp(row, std::min(0, last), last));
    }
    enableActions();
    const QString now = QString::fromStdString(selectedSession());
    if (now != selected) emit sessionSelected(now);
}

void SessionPanel::listDatabase(const std::string& select) {
    if (m_lists->currentWidget() == m_database) m_database->refresh(select);
    enableActions();
}

void SessionPanel::enableActions() {
    const Selection now = selection();
    for (std::size_t i = 0; i < operations().size(); ++i) {
        using Needs = Operation::Needs;
        const Needs needs = operations()[i].needs;
        const bool met = needs == Needs::Nothing ||
                         (needs == Needs::Session && !now.session.empty()) ||
                         (needs == Needs::DatabaseItem && now.database) ||
                         (needs == Needs::DatabaseSession && now.database &&
                          now.database->kind == wynconfig::ItemKind::Session) ||
                         (needs == Needs::RefusedEdit && m_workplace.refused);
        m_actions[static_cast<qsizetype>(i)]->setEnabled(met);
    }
}

void SessionPanel::openStore(const std::filesystem::path& root) {
    trigger(openingOf(root));
}

void SessionPanel::trigger(const Operation& operation) {
    try {
        perform(operation);
    } catch (const std::exception& failure) {
        // What is listed may be what made it fail.
        listDatabase({});
        const QString why = QString::fromUtf8(failure.what());
        emit told(wording("JOIN_COLON", {nameOf(operation), why}), true);
        tellFailure(window(), why);
    }
}

Snapshot SessionPanel::snapshot() const {
    Snapshot files = takeSnapshot(m_workplace.store().root);
    const std::string database = m_workplace.store().database().filename().string();
    std::erase_if(files, [&](const auto& file) { return file.first.starts_with(database); });
    return files;
}

Outcome SessionPanel::perform(const Operation& operation) {
    const QScopedValueRollback atWork(m_isAtWork, true);
    const Selection selected = selection();
    const auto root = m_workplace.store().root;
    const Snapshot before = snapshot();
    if (operation.area == Area::Database) m_lists->setCurrentWidget(m_database);
    if (operation.area == Area::Store || operation.area == Area::FirstSteps)
        m_lists->setCurrentIndex(0);
    Outcome outcome = operation.call(m_workplace, selected);
    const QString more = isolatedIn(
        QString::fromStdString(outcome.text),
        {QString::fromStdString(selected.database ? selected.database->item.name : std::string()),
         QString::fromStdString(m_workplace.store().root.string())});
    tell(operation, outcome, more);
    // Of another store nothing is known from before.
    const Snapshot after = snapshot();
    m_developers->show(outcome, more, root == m_workplace.store().root ? before : after, after,
                       m_workplace.store().root);
    if (operation.area == Area::Developers) emit developersAsked();
    const bool inDatabase = operation.area == Area::Database;
    listSessions(outcome.name.empty() || inDatabase ? selected.session : outcome.name);
    listDatabase(inDatabase ? outcome.name : std::string());
    emit performed();
    return outcome;
}

void SessionPanel::tell(const Operation& operation, const Outcome& outcome, const QString& more) {
    const QString name = isolated(outcome.name);
    const QString done = !more.isEmpty()       ? more
                         : outcome.result == 0 ? wording("DONE_CONFIRMED")
                                               : wording("DONE_NOT_CONFIRMED");
    const QString lead =
        name.isEmpty() ? nameOf(operation) : wording("JOIN_COMMA", {nameOf(operation), name});
    emit told(wording("JOIN_COLON", {lead, done}), outcome.failed);
}

}  // namespace host

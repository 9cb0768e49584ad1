// Sessions, operations and results on the screen.
#include "session_panel.h"

#include <QAction>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>
#include <cstring>
#include <exception>

#include "heading.h"
#include "store_items.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// Of several files the one that was written last; deleted ones count before all others.
const FileChange& lastOf(const std::vector<FileChange>& changes, const fs::path& root) {
    const auto written = [&](const FileChange& change) {
        if (change.kind == FileChange::Kind::Deleted) return fs::file_time_type::min();
        return fs::last_write_time(root / change.path);
    };
    return *std::max_element(
        changes.begin(), changes.end(),
        [&](const FileChange& a, const FileChange& b) { return written(a) < written(b); });
}

}  // namespace

SessionPanel::SessionPanel(wynconfig::WYNConfig& component, StoreFolders store, QWidget* parent)
    : QWidget(parent), m_component(component), m_store(std::move(store)) {
    makeActions();
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(makeSessions());
    splitter->addWidget(makeResult());
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 3);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(12);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    listSessions({});
    enableActions();
}

void SessionPanel::makeActions() {
    for (const Operation& operation : operations()) {
        auto* action = new QAction(QString::fromUtf8(operation.caption), this);
        action->setStatusTip(QString::fromUtf8(operation.tip));
        action->setShortcut(QKeySequence(QString::fromUtf8(operation.shortcut)));
        action->setProperty("needsSession", operation.needsSession);
        connect(action, &QAction::triggered, this, [this, &operation] { trigger(operation); });
        if (std::strcmp(operation.id, "configure") == 0) m_configure = action;
        m_actions << action;
    }
}

QWidget* SessionPanel::makeSessions() {
    m_sessions = new QListWidget;
    QLabel* title = makeHeading(tr("S&essions"), *m_sessions);
    connect(m_sessions, &QListWidget::currentRowChanged, this, &SessionPanel::enableActions);
    connect(m_sessions, &QListWidget::currentTextChanged, this, &SessionPanel::sessionSelected);
    connect(m_sessions, &QListWidget::itemActivated, m_configure, &QAction::trigger);

    auto* buttons = new QVBoxLayout;
    for (QAction* action : std::as_const(m_actions)) {
        auto* button = new QPushButton(action->text());
        button->setStatusTip(action->statusTip());
        button->setToolTip(action->shortcut().toString(QKeySequence::NativeText));
        connect(button, &QPushButton::clicked, action, &QAction::trigger);
        connect(action, &QAction::enabledChanged, button, &QWidget::setEnabled);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* line = new QHBoxLayout;
    line->addWidget(m_sessions, 1);
    line->addLayout(buttons);
    auto* widget = new QWidget;
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(title);
    column->addLayout(line, 1);
    return widget;
}

QWidget* SessionPanel::makeResult() {
    m_result = new QLabel(tr("No operation was called yet."));
    m_result->setTextFormat(Qt::PlainText);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_changes = new QLabel;
    m_changes->setTextFormat(Qt::PlainText);
    m_changes->setWordWrap(true);
    m_changes->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text = new QPlainTextEdit;
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QLabel* title =
        makeHeading(tr("Las&t operation, and the item file that changed last"), *m_text);

    auto* widget = new QWidget;
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(title);
    column->addWidget(m_result);
    column->addWidget(m_changes);
    column->addWidget(m_text, 1);
    m_changes->hide();
    return widget;
}

std::string SessionPanel::selectedSession() const {
    const QListWidgetItem* item = m_sessions->currentItem();
    return item ? item->text().toStdString() : std::string();
}

void SessionPanel::selectSession(const std::string& name) {
    const auto found = m_sessions->findItems(QString::fromStdString(name), Qt::MatchExactly);
    if (!found.isEmpty()) m_sessions->setCurrentItem(found.front());
}

void SessionPanel::refresh() {
    listSessions(selectedSession());
}

void SessionPanel::listSessions(const std::string& select) {
    m_sessions->clear();
    for (const std::string& name : itemNames(m_store.sessions()))
        m_sessions->addItem(QString::fromStdString(name));
    m_sessions->setCurrentRow(0);
    selectSession(select);
}

void SessionPanel::enableActions() {
    const bool selected = m_sessions->currentItem() != nullptr;
    for (QAction* action : std::as_const(m_actions))
        action->setEnabled(selected || !action->property("needsSession").toBool());
}

void SessionPanel::trigger(const Operation& operation) {
    try {
        perform(operation);
    } catch (const std::exception& failure) {
        QMessageBox::critical(this, window()->windowTitle(), QString::fromUtf8(failure.what()));
    }
}

Outcome SessionPanel::perform(const Operation& operation) {
    const std::string selected = selectedSession();
    const Snapshot before = takeSnapshot(m_store.root);
    Outcome outcome = operation.call(m_component, selected);
    showOutcome(outcome);
    showChanges(before, takeSnapshot(m_store.root));
    listSessions(outcome.name.empty() ? selected : outcome.name);
    emit storeChanged();
    return outcome;
}

void SessionPanel::showOutcome(const Outcome& outcome) {
    const QString name = QString::fromStdString(outcome.name);
    const QString result = tr("Result %1").arg(outcome.result);
    m_result->setText(name.isEmpty() ? tr("%1, no name").arg(result)
                                     : tr("%1, name %2").arg(result, name));
}

void SessionPanel::showChanges(const Snapshot& before, const Snapshot& after) {
    const std::vector<FileChange> changes = changesBetween(before, after);
    m_changes->show();
    if (changes.empty()) {
        // The text stays: that file is still the one that changed last.
        const QString lead = m_lastChange.isEmpty() ? QString() : "\n" + tr("Before: ");
        m_changes->setText(tr("No file changed.") + lead + m_lastChange);
        return;
    }
    const FileChange& last = lastOf(changes, m_store.root);
    QStringList told;
    const auto tell = [&](const FileChange& change) {
        told << tr("%1 (%2)").arg(QString::fromStdString(change.path), tr(wordFor(change.kind)));
    };
    tell(last);
    for (const FileChange& change : changes) {
        if (!(change == last)) tell(change);
    }
    m_lastChange = told.front();
    m_changes->setText(told.join(QStringLiteral("\n")));
    // Of a deleted file its last content is shown.
    const Snapshot& source = last.kind == FileChange::Kind::Deleted ? before : after;
    m_text->setPlainText(QString::fromStdString(source.at(last.path)));
}

}  // namespace host

// Numbers, files and stored texts, which nobody else needs to see.
#include "window/developer_panel.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>

#include "window/action_buttons.h"
#include "window/direction.h"
#include "window/heading.h"
#include "window/sentence_label.h"
#include "window/text_box.h"
#include "window/wording.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// Of several files the one that was written last; deleted ones count before all others.
const FileChange& lastOf(const std::vector<FileChange>& changes, const fs::path& root) {
    const auto written = [&](const FileChange& change) {
        std::error_code gone;  // others may be at work as well
        if (change.kind == FileChange::Kind::Deleted) return fs::file_time_type::min();
        return fs::last_write_time(root / change.path, gone);
    };
    return *std::max_element(
        changes.begin(), changes.end(),
        [&](const FileChange& a, const FileChange& b) { return written(a) < written(b); });
}

const char* keyFor(FileChange::Kind kind) {
    switch (kind) {
        case FileChange::Kind::Added:
            return "DEVELOPER_ADDED";
        case FileChange::Kind::Deleted:
            return "DEVELOPER_DELETED";
        default:
            return "DEVELOPER_CHANGED";
    }
}

}  // namespace

DeveloperPanel::DeveloperPanel(const QList<QAction*>& actions, QWidget* parent)
    : QWidget(parent),
      m_result(new SentenceLabel),
      m_changes(new SentenceLabel),
      m_text(new QPlainTextEdit) {
    m_result->setObjectName(QStringLiteral("result"));
    worded(this, [this] {
        if (!m_wasCalled) m_result->tell(wording("DEVELOPER_NONE"));
    });
    m_result->letCopy();
    m_changes->setObjectName(QStringLiteral("changes"));
    m_changes->letCopy();
    m_changes->hide();
    m_text->setObjectName(QStringLiteral("storedText"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    readLeftToRight(*m_text);

    auto* told = new QWidget;
    auto* sentences = new QVBoxLayout(told);
    sentences->setContentsMargins(0, 0, 0, 0);
    sentences->addLayout(makeActionButtons(actions));
    sentences->addWidget(m_result);
    sentences->addWidget(m_changes);
    auto* stored = new QWidget;
    auto* texts = new QVBoxLayout(stored);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->addWidget(makeHeading("DEVELOPER_TITLE", *m_text));
    texts->addWidget(m_text, 1);
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName(QStringLiteral("developerSplitter"));
    splitter->addWidget(told);
    splitter->addWidget(stored);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(12);
    auto* column = new QVBoxLayout(this);
    column->addWidget(splitter);
}

void DeveloperPanel::show(const Outcome& outcome, const QString& more, const Snapshot& before,
                          const Snapshot& after, const fs::path& root) {
    showResult(outcome, more);
    // The file that changed last gives way to what is shown below.
    if (!outcome.shown.empty()) m_lastChange.clear();
    showChanges(before, after, root);
    if (!outcome.shown.empty()) m_text->setPlainText(QString::fromStdString(outcome.shown));
}

void DeveloperPanel::showResult(const Outcome& outcome, const QString& more) {
    m_wasCalled = true;
    QStringList facts;
    const QString name = isolated(outcome.name);
    if (outcome.result) facts << wording("DEVELOPER_RESULT", {QString::number(*outcome.result)});
    if (!name.isEmpty())
        facts << wording(outcome.result ? "DEVELOPER_AND_NAME" : "DEVELOPER_NAME", {name});
    if (outcome.result && name.isEmpty()) facts << wording("DEVELOPER_NO_NAME");
    QString text = facts.join(QStringLiteral(", "));
    if (!more.isEmpty()) text += (text.isEmpty() ? "" : ". ") + more;
    m_result->tell(text);
}

void DeveloperPanel::showChanges(const Snapshot& before, const Snapshot& after,
                                 const fs::path& root) {
    const std::vector<FileChange> changes = changesBetween(before, after);
    m_changes->show();
    if (changes.empty()) {
        // The text stays: that file is still the one that changed last.
        const QString earlier =
            m_lastChange.isEmpty() ? QString() : "\n" + wording("DEVELOPER_BEFORE", {m_lastChange});
        m_changes->tell(wording("DEVELOPER_UNCHANGED") + earlier);
        return;
    }
    const FileChange& last = lastOf(changes, root);
    QStringList told;
    const auto tell = [&](const FileChange& change) {
        told << wording(keyFor(change.kind), {isolated(change.path)});
    };
    tell(last);
    for (const FileChange& change : changes) {
        if (!(change == last)) tell(change);
    }
    m_lastChange = told.front();
    m_changes->tell(told.join(QStringLiteral("\n")));
    // Of a deleted file its last content is shown.
    const Snapshot& source = last.kind == FileChange::Kind::Deleted ? before : after;
    m_text->setPlainText(QString::fromStdString(source.at(last.path)));
}

}  // namespace host

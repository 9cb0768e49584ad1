// The choices, the preview, and the sending itself.
#include "window/send_panel.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTime>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>
#include <stdexcept>

#include "sample/store_items.h"
#include "sending/vin.h"
#include "sending/visible_text.h"
#include "texts/phrase.h"
#include "window/direction.h"
#include "window/heading.h"
#include "window/text_box.h"
#include "window/wording.h"

namespace host {

namespace {

constexpr int kPlanLines = 8;
constexpr int kOutcomeLines = 5;
constexpr int kMostOutcomes = 500;
const QString kBelow = QStringLiteral("  ");  ///< before a line that belongs to the one above

/// @param key  of its text
QLabel* makeLabel(const char* key, QWidget& buddy) {
    auto* label = withText(new QLabel, key);
    label->setBuddy(&buddy);
    return label;
}

QString fromText(const std::string& text) {
    return QString::fromStdString(text);
}

QString previewOf(const Expansion& list) {
    return fromText(visibleText(list.text));
}

/// What becomes of a file, below the line that names it.
QString fateOf(const FileStep& step, bool happens) {
    const QString bytes = fromText(bytesText(step.list));
    const QString format = isolated(step.formatName);
    if (!happens || !step.place) return wording("PLAN_FILE_WOULD", {bytes, format});
    if (!step.place->isThere) return wording("PLAN_FILE_MADE", {bytes, format});
    const auto size = static_cast<long long>(step.place->size);
    return wording(step.file.append ? "PLAN_FILE_APPENDED" : "PLAN_FILE_REPLACED",
                   {bytes, fromText(countedPhrase("BYTES", size)), format});
}

/// @param happens  whether it comes to that
QStringList linesOf(const FileStep& step, bool happens) {
    return {wording("PLAN_FILE", {isolated(step.file.path.string())}),
            kBelow + fateOf(step, happens)};
}

QStringList linesOf(const ProgramStep& step, bool happens) {
    const QString when = step.delay.count() > 0
                             ? wording("PLAN_AFTER", {fromText(secondsText(step.delay))})
                             : wording("PLAN_AT_ONCE");
    return {wording("PLAN_PROGRAM", {isolated(textOf(step.command))}),
            kBelow + wording(happens ? "PLAN_STARTED" : "PLAN_STARTED_WOULD",
                             {fromText(bytesText(step.list)), when, isolated(step.formatName)})};
}

QString factsOf(const Session& session) {
    QStringList lines;
    for (const auto& [label, value] : furtherFacts(session))
        lines << wording("JOIN_COLON", {fromText(label), apart(fromText(value))});
    lines << QString() << wording("SEND_FACTS_END");
    return lines.join(u'\n');
}

}  // namespace

SendPanel::SendPanel(const StoreFolders& store, QWidget* parent)
    : QWidget(parent),
      m_store(store),
      m_sendAction(withTip(withText(new QAction(this), "SEND_ACTION"), "SEND_TIP")) {
    m_sendAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    connect(m_sendAction, &QAction::triggered, this, &SendPanel::send);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeChoices());
    layout->addWidget(makePreview(), 1);
    layout->addWidget(makePlan());
    connect(&m_starter, &ProcessStarter::told, this,
            [this](const QString& sentence, bool isFailure) {
                note(sentence);
                if (isFailure) setSent(std::nullopt);
                emit told(sentence, isFailure);
            });
    readStore();
    connect(&LanguageNews::instance(), &LanguageNews::changed, this, [this] {
        readSession();
        refresh();
    });
}

QWidget* SendPanel::makeChoices() {
    m_sessions = new IdentifierBox;
    m_sessions->setObjectName(QStringLiteral("session"));
    m_formats = new IdentifierBox;
    m_formats->setObjectName(QStringLiteral("partFormat"));
    worded(m_formats, [this] { m_formats->setToolTip(wording("SEND_FORMAT_TIP")); });
    m_vin = new IdentifierEdit;
    m_vin->setObjectName(QStringLiteral("vin"));
    withHint(m_vin, "SEND_VIN_HINT");
    m_vin->setClearButtonEnabled(true);
    m_vinHint = new QLabel;
    m_vinHint->setObjectName(QStringLiteral("vinHint"));
    m_vinHint->setTextFormat(Qt::PlainText);
    // The hint has its line in any case, so that nothing jumps when it comes.
    QSizePolicy size = m_vinHint->sizePolicy();
    size.setRetainSizeWhenHidden(true);
    m_vinHint->setSizePolicy(size);
    m_vinHint->setMinimumHeight(m_vinHint->fontMetrics().height());

    auto* widget = new QWidget;
    auto* grid = new QGridLayout(widget);
    grid->setContentsMargins(0, 0, 0, 0);
    int row = 0;
    const auto add = [&](const char* label, QWidget& field) {
        grid->addWidget(makeLabel(label, field), row, 0);
        grid->addWidget(&field, row++, 1);
    };
    add("SEND_SESSION", *m_sessions);
    add("SEND_FORMAT", *m_formats);
    add("SEND_VIN", *m_vin);
    grid->addWidget(m_vinHint, row, 1);
    grid->setColumnStretch(1, 1);

    connect(m_sessions, &QComboBox::currentTextChanged, this, [this](const QString& name) {
        m_wanted = name;
        readSession();
        refresh();
        showList();
        emit sessionSelected(name);
    });
    connect(m_formats, &QComboBox::currentTextChanged, this, &SendPanel::refresh);
    connect(m_vin, &QLineEdit::textChanged, this, &SendPanel::refresh);
    return widget;
}

QWidget* SendPanel::makePreview() {
    const auto add = [this](const char* title, QPlainTextEdit* box) {
        const int page = m_preview->addTab(box, QString());
        worded(box, [this, page, title] { m_preview->setTabText(page, wording(title)); });
        return box;
    };
    m_preview = new QTabWidget;
    m_preview->setDocumentMode(true);
    m_programList = add("SEND_FOR_PROGRAM", makeTextBox("SEND_FOR_PROGRAM_NAME"));
    m_programList->setObjectName(QStringLiteral("programList"));
    withHint(m_programList, "SEND_FOR_PROGRAM_NONE");
    m_fileList = add("SEND_FOR_FILE", makeTextBox("SEND_FOR_FILE_NAME"));
    m_fileList->setObjectName(QStringLiteral("fileList"));
    withHint(m_fileList, "SEND_FOR_FILE_NONE");
    m_facts = add("SEND_FACTS", makeSentenceBox("SEND_FACTS_NAME"));
    m_facts->setObjectName(QStringLiteral("facts"));
    letLinesBreak(*m_facts);
    return m_preview;
}

QWidget* SendPanel::makePlan() {
    m_plan = makeSentenceBox("SEND_PLAN");
    m_plan->setObjectName(QStringLiteral("plan"));
    setLines(*m_plan, kPlanLines);
    m_outcome = makeSentenceBox("SEND_OUTCOME");
    m_outcome->setObjectName(QStringLiteral("outcome"));
    withHint(m_outcome, "SEND_OUTCOME_NONE");
    m_outcome->setMaximumBlockCount(kMostOutcomes);
    setLines(*m_outcome, kOutcomeLines);
    m_send = withTip(withText(new QPushButton, "SEND_BUTTON"), "SEND_TIP");
    m_send->setObjectName(QStringLiteral("send"));
    worded(m_send, [this] {
        m_send->setToolTip(m_sendAction->shortcut().toString(QKeySequence::NativeText));
    });
    connect(m_send, &QPushButton::clicked, m_sendAction, &QAction::trigger);

    auto* widget = new QWidget;
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(makeLabel("SEND_PLAN", *m_plan));
    column->addWidget(m_plan);
    auto* line = new QHBoxLayout;
    line->addWidget(makeLabel("SEND_OUTCOME", *m_outcome), 1, Qt::AlignBottom);
    line->addWidget(m_send);
    column->addLayout(line);
    column->addWidget(m_outcome);
    setTabOrder(m_plan, m_send);
    return widget;
}

void SendPanel::setParts(std::vector<PickedPart> parts) {
    m_list.parts = std::move(parts);
    refresh();
}

void SendPanel::selectSession(const QString& name) {
    if (name.isEmpty()) return;
    m_wanted = name;
    m_sessions->setCurrentText(name);
}

void SendPanel::readStore() {
    {
        const QSignalBlocker silent(m_sessions);
        const QString wanted = m_wanted;
        m_sessions->clear();
        for (const std::string& name : m_store.readableNames(wynconfig::ItemKind::Session))
            m_sessions->addItem(fromText(name));
        m_sessions->setCurrentIndex(std::max(m_sessions->findText(wanted), 0));
        // Of a store that went away the choice is to be there again when that comes back.
        if (m_sessions->count() > 0) m_wanted = m_sessions->currentText();
    }
    readSession();
    refresh();
}

QString SendPanel::session() const {
    return m_sessions->currentText();
}

std::vector<std::filesystem::path> SendPanel::places() const {
    std::vector<std::filesystem::path> places;
    if (m_file) places.push_back(m_file->parent_path());
    if (m_program && m_program->has_parent_path()) places.push_back(m_program->parent_path());
    return places;
}

void SendPanel::readSession() {
    m_session.reset();
    try {
        if (m_sessions->currentIndex() < 0)
            throw std::runtime_error(phrase(m_store.faults().empty() && m_store.losses().empty()
                                                ? "SEND_NO_SESSION"
                                                : "SEND_NO_READABLE_SESSION"));
        m_session = loadSession(m_store, m_sessions->currentText().toStdString());
    } catch (const std::exception& failure) {
        m_unreadable = failure.what();
    }
    const QSignalBlocker silent(m_formats);
    const QString chosen = m_formats->currentText();
    m_formats->clear();
    if (m_session) {
        for (const std::string& name : m_session->formats) m_formats->addItem(fromText(name));
    }
    m_formats->setCurrentIndex(std::max(m_formats->findText(chosen), 0));
}

void SendPanel::showList() {
    const bool forProgram = !m_programList->toPlainText().isEmpty();
    const bool forFile = !m_fileList->toPlainText().isEmpty();
    if (m_preview->currentWidget() != m_facts && forProgram != forFile)
        m_preview->setCurrentWidget(forProgram ? m_programList : m_fileList);
}

Plan SendPanel::plan() const {
    if (!m_session) {
        Plan none;
        none.problems.push_back(m_unreadable);
        return none;
    }
    Plan plan =
        planSending(*m_session, m_formats->currentText().toStdString(), m_list,
                    [this](const std::string& name) { return loadPartFormat(m_store, name); });
    foresee(plan, m_starter);
    return plan;
}

void SendPanel::refresh() {
    m_list.vin = m_vin->text().trimmed().toStdString();
    m_vinHint->setText(fromText(vinHint(m_list.vin)));
    m_vinHint->setVisible(!m_vinHint->text().isEmpty());
    m_vin->setAccessibleDescription(m_vinHint->text());
    showPlan(plan());
}

QStringList SendPanel::identifiersOf(const Plan& plan) const {
    QStringList known = {m_sessions->currentText(), fromText(m_store.root.string())};
    if (m_session) {
        known << fromText(m_session->fileFormat) << fromText(m_session->programPath);
        for (const std::string& format : m_session->formats) known << fromText(format);
    }
    if (plan.file) known << fromText(plan.file->file.path.string());
    if (plan.program) known << fromText(plan.program->command.program);
    return known;
}

void SendPanel::showPlan(const Plan& plan) {
    m_file.reset();
    m_program.reset();
    if (plan.file) m_file = plan.file->file.path;
    if (plan.program) m_program = plan.program->command.program;
    emit planned();
    m_formats->setEnabled(plan.program.has_value());
    showText(*m_programList, plan.program ? previewOf(plan.program->list) : QString());
    showText(*m_fileList, plan.file ? previewOf(plan.file->list) : QString());
    showText(*m_facts, m_session ? factsOf(*m_session) : QString());
    QStringList lines;
    const QStringList known = identifiersOf(plan);
    const bool happens = plan.problems.empty();
    if (!happens) lines << wording("PLAN_NOTHING");
    for (const std::string& problem : plan.problems) lines << isolatedIn(fromText(problem), known);
    lines << (plan.file ? linesOf(*plan.file, happens) : QStringList(wording("PLAN_NO_FILE")));
    lines << (plan.program ? linesOf(*plan.program, happens)
                           : QStringList(wording("PLAN_NO_PROGRAM")));
    for (const std::string& remark : plan.remarks) lines << isolatedIn(fromText(remark), known);
    showText(*m_plan, lines.join(u'\n'));
}

void SendPanel::setSent(std::optional<std::vector<PickedPart>> parts) {
    m_sent = std::move(parts);
    emit sentChanged();
}

void SendPanel::note(const QString& sentences) {
    const QString now = QLocale().toString(QTime::currentTime(), QLocale::ShortFormat);
    m_outcome->appendPlainText(wording("SEND_NOTED", {isolated(now), sentences}));
    // The newest stays in sight, also for somebody who had looked back.
    m_outcome->verticalScrollBar()->setValue(m_outcome->verticalScrollBar()->maximum());
}

void SendPanel::send() {
    readSession();
    const Plan now = plan();
    showPlan(now);
    const SendingReport report = carryOut(now, m_starter);
    QStringList lines;
    const QStringList known = identifiersOf(now);
    for (const std::string& sentence : report.done) lines << isolatedIn(fromText(sentence), known);
    if (!report.failure.empty())
        lines << wording(report.done.empty() ? "SENT_NOTHING" : "SENT_BUT",
                         {isolatedIn(fromText(report.failure), known)});
    note(wording("JOIN_COLON", {isolated(m_sessions->currentText()), lines.join(u' ')}));
    refresh();  // the file is there by now, or holds more
    if (report.failure.empty()) setSent(m_list.parts);
    emit told(lines.join(u' '), !report.failure.empty());
}

}  // namespace host

// The wait cursor and the panel with a bar.
#include "views/qt/waiting.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <limits>

#include "views/qt/colours.h"
#include "views/qt/convert.h"

namespace wynconfig::desktop {

namespace {

/// What a bar can count.
int inBar(std::size_t count) {
    return static_cast<int>(
        std::min(count, static_cast<std::size_t>(std::numeric_limits<int>::max())));
}

}  // namespace

ProgressPanel::ProgressPanel(QWidget* around)
    : QFrame(around),
      m_title(new QLabel(this)),
      m_text(new QLabel(this)),
      m_bar(new QProgressBar(this)) {
    setObjectName(QStringLiteral("progress"));
    if (!around) {
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_QuitOnClose, false);
        m_title->hide();
    }
    setPalette(readable(palette()));
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    QFont bold = font();
    bold.setBold(true);
    m_title->setFont(bold);
    for (QLabel* each : {m_title, m_text}) each->setTextFormat(Qt::PlainText);
    // The numbers stand in the text.
    m_bar->setTextVisible(false);
    auto* lines = new QVBoxLayout(this);
    for (QWidget* each : std::initializer_list<QWidget*>{m_title, m_text, m_bar})
        lines->addWidget(each);
    constexpr int kWidth = 45;
    ensurePolished();
    m_text->setMinimumWidth(charsWide(fontMetrics(), kWidth));
}

void ProgressPanel::tell(const Progress& progress) {
    m_title->setText(toQtPlain(progress.title));
    setWindowTitle(m_title->text());
    setAccessibleName(m_title->text());
    m_text->setText(toQt(progress.text));
    setAccessibleDescription(m_text->text());
    m_bar->setAccessibleName(m_text->text());
    m_bar->setMaximum(inBar(progress.all));
    m_bar->setValue(inBar(progress.done));
    arrange();
    if (!isVisible()) {
        show();
        raise();
        QAccessibleEvent shown(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&shown);
    }
    repaint();
}

/// As wide as the text asks for, and never less than before.
void ProgressPanel::arrange() {
    m_text->setMinimumWidth(std::max(m_text->minimumWidth(), m_text->sizeHint().width()));
    layout()->invalidate();
    layout()->activate();
    const QSize size = layout()->totalMinimumSize();
    if (isWindow()) return setFixedSize(size);
    setFixedSize(size.boundedTo(parentWidget()->size()));
    move(parentWidget()->rect().center() - rect().center());
}

QString ProgressPanel::title() const {
    return isWindow() ? windowTitle() : m_title->text();
}

QString ProgressPanel::text() const {
    return m_text->text();
}

void Waiting::begin() {
    if (m_cursor) return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_cursor = true;
}

ProgressPanel& Waiting::panel(QWidget* around) {
    if (!m_panel) m_panel = new ProgressPanel(around && around->isVisible() ? around : nullptr);
    return *m_panel;
}

void Waiting::end() {
    delete m_panel;
    if (m_cursor && QGuiApplication::instance()) QGuiApplication::restoreOverrideCursor();
    m_cursor = false;
}

void paintWindows() {
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (each->isVisible() && !each->isMinimized()) each->repaint();
    }
}

}  // namespace wynconfig::desktop

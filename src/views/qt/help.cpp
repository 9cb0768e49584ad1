// Help: tool tips and the like on the widgets, and the window that has all help of a dialog.
#include "views/qt/help.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "views/qt/convert.h"
#include "wynconfig/qt_view.h"

namespace wynconfig::desktop {

namespace {

/// What `provideHelp` last told a screen reader of a widget, so that it replaces no other word.
constexpr char kTold[] = "wynconfigHelp";

/// The word of the toolkit, in the language that the host has for it.
QString wordForHelp() {
    return QCoreApplication::translate("QPlatformTheme", "Help");
}

QString markedUp(const HelpPage& page) {
    const auto tagged = [](const char* tag, const QString& text) {
        return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(tag), text.toHtmlEscaped());
    };
    QString all = tagged("h3", toQt(page.title)) + tagged("p", toQt(page.text));
    for (const HelpEntry& each : page.entries)
        all += tagged("h4", toQt(each.title())) + tagged("p", toQt(each.text));
    return all;
}

}  // namespace

bool asksForHelp(const QEvent& event) {
    switch (event.type()) {
        case QEvent::ToolTip:
        case QEvent::QueryWhatsThis:
        case QEvent::WhatsThis:
            return true;
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            return key.key() == Qt::Key_F1 && key.modifiers().testFlag(Qt::ShiftModifier);
        }
        case QEvent::FocusIn:
            return QAccessible::isActive();
        default:
            return false;
    }
}

void provideHelp(QWidget& widget, const std::string& help) {
    const QString text = toQt(help);
    const QString shown = help.empty() ? QString() : toToolTip(text);
    const QString told = widget.property(kTold).toString();
    // The button of an arrow is named by its tool tip.
    if (widget.toolTip().isEmpty() || widget.toolTip() == widget.whatsThis())
        widget.setToolTip(shown);
    widget.setWhatsThis(shown);
    if (widget.accessibleDescription() != told) return;
    widget.setProperty(kTold, text);
    widget.setAccessibleDescription(text);
}

void tellRefusal(QWidget& widget, const QString& why) {
    const QString told = why.isEmpty() ? widget.property(kTold).toString() : why;
    if (widget.accessibleDescription() != told) widget.setAccessibleDescription(told);
}

HelpWindow::HelpWindow(QWidget& dialog) : QDialog(&dialog), m_text(new QTextEdit) {
    setObjectName(QStringLiteral("help"));
    setAttribute(Qt::WA_QuitOnClose, false);
    clarify(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    for (QAbstractButton* each : buttons->buttons()) each->setIcon({});
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // With a caret, for a screen reader to go by.
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setTabChangesFocus(true);
    // Each paragraph runs as its own letters do.
    QTextOption option = m_text->document()->defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    m_text->document()->setDefaultTextOption(option);
    constexpr int kChars = 64;
    constexpr int kLines = 26;
    const QFontMetrics metrics = m_text->fontMetrics();
    const QSize wanted(charsWide(metrics, kChars), kLines * metrics.lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

void HelpWindow::show(const HelpPage& page) {
    setWindowTitle(toQt(page.title) + QStringLiteral(" – ") + wordForHelp());
    m_text->setAccessibleName(windowTitle());
    m_text->setHtml(markedUp(page));
    m_text->setFocus();
    QDialog::show();
    raise();
    activateWindow();
}

QStringList HelpWindow::lines() const {
    return m_text->document()->toRawText().split(QChar::ParagraphSeparator);
}

}  // namespace wynconfig::desktop

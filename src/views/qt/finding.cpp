// What stands above the rows of a long list, and in place of those of an empty one.
#include "views/qt/finding.h"

#include <QKeySequence>
#include <QPainter>
#include <QStyle>

#include "platform/forms/shown_rows.h"
#include "views/qt/convert.h"
#include "wynconfig/view.h"

namespace wynconfig::desktop {

FilterLine::FilterLine(RowList& list, QWidget* parent) : TextBox(parent), m_list(list) {
    setObjectName(list.objectName() + QStringLiteral("Filter"));
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setClearButtonEnabled(true);
    hide();
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        followDirection();
        m_list.setFilter(text);
    });
    m_list.leftUpwards = [this] {
        if (isVisible()) begin();
        return isVisible();
    };
}

void FilterLine::follow() {
    const bool needed = m_list.rows().total() > kShortList && !m_list.isHidden();
    if (!needed) {
        if (hasFocus()) m_list.setFocus(Qt::OtherFocusReason);
        clear();
    } else if (isHidden()) {
        nameItself();
    }
    setEnabled(m_list.isEnabled());
    setVisible(needed);
    const int gap = style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing) / 2;
    m_list.leaveRoom(needed ? sizeHint().height() + gap : 0);
}

void FilterLine::nameItself() {
    const QString word = toQt(viewWord("VIEW_FILTER"));
    const QString key = QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText);
    setPlaceholderText(key.isEmpty() ? word : QStringLiteral("%1 (%2)").arg(word, key));
    const QString rows = m_list.accessibleName();
    setAccessibleName(rows.isEmpty() ? word : QStringLiteral("%1: %2").arg(word, rows));
}

void FilterLine::begin() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

EmptyNote::EmptyNote(RowList& list, QWidget* parent) : QWidget(parent), m_list(list) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    hide();
}

void EmptyNote::follow() {
    QString text;
    if (m_list.rows().total() == 0)
        text = whenEmpty ? whenEmpty() : QString();
    else if (m_list.rows().rowCount() == 0)
        text = toQt(viewWord("VIEW_NO_MATCH"));
    if (text == m_text) return;
    m_text = text;
    m_list.setAccessibleDescription(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    raise();
    update();
}

void EmptyNote::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int edge = fontMetrics().height();
    style()->drawItemText(&painter, rect().adjusted(edge, edge, -edge, -edge),
                          static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, palette(), true,
                          m_text, QPalette::WindowText);
}

}  // namespace wynconfig::desktop

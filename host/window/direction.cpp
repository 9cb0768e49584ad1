// The marks around identifiers, and the widgets that paint them.
#include "window/direction.h"

#include <QEvent>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <algorithm>

namespace host {

namespace {

constexpr QChar kLeftToRightIsolate(0x2066);
constexpr QChar kFirstStrongIsolate(0x2068);
constexpr QChar kPopIsolate(0x2069);

QString between(QChar mark, const QString& text) {
    return text.isEmpty() ? text : mark + text + kPopIsolate;
}

}  // namespace

QString isolated(const QString& identifier) {
    return between(kLeftToRightIsolate, identifier);
}

QString isolated(const std::string& identifier) {
    return isolated(QString::fromStdString(identifier));
}

QString isolatedIn(const QString& sentence, QStringList identifiers) {
    identifiers.removeAll(QString());
    if (identifiers.isEmpty()) return sentence;
    // The longest first: a file's path begins with that of its folder.
    std::ranges::sort(identifiers, std::greater<>(), &QString::size);
    for (QString& each : identifiers) each = QRegularExpression::escape(each);
    QString marked = sentence;
    return marked.replace(QRegularExpression('(' + identifiers.join('|') + ')'),
                          isolated(QStringLiteral("\\1")));
}

QString apart(const QString& value) {
    return between(kFirstStrongIsolate, value);
}

QString withoutMarks(QString text) {
    text.remove(kLeftToRightIsolate).remove(kFirstStrongIsolate).remove(kPopIsolate);
    return text;
}

QString DirectionDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    return between(m_reads == Reads::LeftToRight ? kLeftToRightIsolate : kFirstStrongIsolate,
                   QStyledItemDelegate::displayText(value, locale));
}

IdentifierBox::IdentifierBox(QWidget* parent) : QComboBox(parent) {
    setItemDelegate(new DirectionDelegate(this));
}

void IdentifierBox::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    option->currentText = isolated(option->currentText);
}

IdentifierEdit::IdentifierEdit(const QString& text, QWidget* parent) : QLineEdit(text, parent) {
    // The key with which a person sets the direction of a box; there is no call for it.
    QKeyEvent leftToRight(QEvent::KeyPress, Qt::Key_Direction_L, Qt::NoModifier);
    keyPressEvent(&leftToRight);
    align();
}

void IdentifierEdit::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) align();
    QLineEdit::changeEvent(event);
}

void IdentifierEdit::align() {
    setAlignment(Qt::AlignVCenter | Qt::AlignAbsolute |
                 (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
}

}  // namespace host

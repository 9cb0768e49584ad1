// The accessibility tree of a window as text.
#include <QAccessible>
#include <QMetaEnum>
#include <QWidget>
#include <iterator>

#include "views/qt/convert.h"
#include "wynconfig/qt_view.h"

namespace wynconfig {

namespace {

/// A text in quotes, on one line.
QString quoted(QString text) {
    text.replace(u'\n', QStringLiteral("\\n"));
    return QStringLiteral("\"%1\"").arg(text);
}

QString roleOf(const QAccessibleInterface& element) {
    const auto roles = QMetaEnum::fromType<QAccessible::Role>();
    const char* key = roles.valueToKey(element.role());
    return key ? QString::fromLatin1(key) : QString::number(element.role());
}

/// The states that tell what can be done with an element, and how it stands now.
QStringList statesOf(const QAccessible::State& state) {
    const std::pair<bool, const char*> all[] = {
        {state.focusable, "focusable"},   {state.focused, "focused"},
        {state.disabled, "disabled"},     {state.checkable, "checkable"},
        {state.checked, "checked"},       {state.selectable, "selectable"},
        {state.selected, "selected"},     {state.readOnly, "read-only"},
        {state.expandable, "expandable"}, {state.expanded, "expanded"},
        {state.hasPopup, "opens a menu"}, {state.defaultButton, "default"},
        {state.modal, "modal"},           {state.active, "active"}};
    QStringList states;
    for (const auto& [holds, word] : all) {
        if (holds) states << QString::fromLatin1(word);
    }
    return states;
}

QStringList labelsOf(const QAccessibleInterface& element) {
    QStringList labels;
    for (const auto& [label, relation] : element.relations(QAccessible::Label))
        labels << quoted(label->text(QAccessible::Name));
    return labels;
}

/// What is in a box or under a bar; none of what has no content.
QString contentOf(QAccessibleInterface& element) {
    if (const QAccessibleValueInterface* value = element.valueInterface())
        return value->currentValue().toString();
    if (QAccessibleTextInterface* text = element.textInterface())
        return quoted(text->text(0, text->characterCount()));
    return {};
}

QString lineOf(QAccessibleInterface& element) {
    QString line = roleOf(element) + u' ' + quoted(element.text(QAccessible::Name));
    if (const QString content = contentOf(element); !content.isEmpty())
        line += QStringLiteral(" = ") + content;
    const QStringList labels = labelsOf(element);
    if (!labels.isEmpty()) line += QStringLiteral(" labelled by ") + labels.join(u", ");
    const QString description = element.text(QAccessible::Description);
    if (!description.isEmpty()) line += QStringLiteral(" (%1)").arg(quoted(description));
    const QStringList states = statesOf(element.state());
    if (!states.isEmpty()) line += QStringLiteral(" [%1]").arg(states.join(u", "));
    return line;
}

void list(QAccessibleInterface& element, qsizetype depth, QString& all) {
    all += QString(2 * depth, u' ') + lineOf(element) + u'\n';
    for (int i = 0; i < element.childCount(); ++i) {
        QAccessibleInterface* child = element.child(i);
        if (child && !child->state().invisible) list(*child, depth + 1, all);
    }
}

}  // namespace

std::string spokenTree(QWidget& window) {
    QString all;
    if (QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&window))
        list(*element, 0, all);
    return desktop::fromQt(all);
}

}  // namespace wynconfig

// What a person sees of a control: read from its widget, not from the control.
#include "views/qt/person/sight.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>

#include "views/qt/colours.h"
#include "views/qt/convert.h"
#include "views/qt/widgets.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig::desktop {

namespace {

void lookAt(const TextBox& box, Sight& sight) {
    sight.text = fromQt(box.text());
    sight.caret = charsBefore(box.text(), box.caret());
}

void lookAt(const RowList& list, Sight& sight) {
    const QAbstractItemModel& rows = *list.model();
    for (int i = 0; i < rows.rowCount(); ++i) {
        const QModelIndex row = rows.index(i, 0);
        sight.rows.push_back({row.data(RowModel::kKeyRole).toByteArray().toStdString(),
                              fromQt(row.data().toString())});
    }
    sight.selected = static_cast<std::size_t>(list.rows().placeOf(list.selected()) + 1);
}

void lookAt(const QComboBox& box, Sight& sight) {
    for (int i = 0; i < box.count(); ++i) sight.rows.push_back({{}, fromQt(box.itemText(i))});
    sight.selected = static_cast<std::size_t>(box.currentIndex() + 1);
    sight.text = fromQt(box.currentText());
}

void lookAt(const QTabBar& bar, Sight& sight) {
    for (int i = 0; i < bar.count(); ++i) {
        const std::string caption = fromQt(unisolated(bar.tabText(i)));
        sight.rows.push_back({mnemonicOf(caption), plainCaption(caption)});
    }
    sight.selected = static_cast<std::size_t>(bar.currentIndex() + 1);
}

void lookAtCaption(const QString& caption, Sight& sight) {
    const std::string words = fromQt(unisolated(caption));
    sight.caption = plainCaption(words);
    sight.key = mnemonicOf(words);
}

/// A label without a buddy reads no marks.
void lookAtCaption(const QLabel& label, Sight& sight) {
    if (label.buddy())
        lookAtCaption(label.text(), sight);
    else
        sight.caption = fromQt(label.text());
}

void lookAtContent(const QWidget& widget, Sight& sight) {
    if (const auto* box = dynamic_cast<const TextBox*>(&widget)) {
        lookAt(*box, sight);
    } else if (const auto* list = dynamic_cast<const RowList*>(&widget)) {
        lookAt(*list, sight);
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        lookAt(*combo, sight);
    } else if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
        lookAt(*tabs->tabBar(), sight);
    } else if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        lookAtCaption(*label, sight);
    } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        lookAtCaption(group->title(), sight);
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        lookAtCaption(button->text(), sight);
        sight.value = button->isChecked();
    }
}

}  // namespace

Sight look(const FormWindow& window, const Control& control) {
    Sight sight;
    const Binding* binding = window.binding(control);
    if (!binding) {
        // It has no place in the window; of the caption bar the title can be read.
        sight.enabled = true;
        if (control.kind() == ControlKind::FormCaption)
            sight.caption = fromQt(window.windowTitle());
        return sight;
    }
    const QWidget& widget = *binding->widget();
    lookAtContent(widget, sight);
    sight.focus = window.focusWidget() == binding->focusWidget();
    sight.enabled = widget.isEnabled();
    sight.visible = widget.isVisible();
    sight.tabStop = (binding->focusWidget()->focusPolicy() & Qt::TabFocus) != 0;
    if (widget.palette().color(QPalette::Active, QPalette::Base) == inactiveColour())
        sight.background = Background::InactiveBorder;
    return sight;
}

}  // namespace wynconfig::desktop

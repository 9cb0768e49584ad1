// What a person would see of a control: told by the control itself.
#include "views/scripted/person/sight.h"

#include <algorithm>

#include "wynconfig/keyboard.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig::scripted {

namespace {

void lookAtCaption(Form& form, const CaptionedControl& control, Sight& sight) {
    const Layout& body = form.layout().body;
    const std::string& caption = control.caption();
    sight.caption = isValue(body, control) ? caption : plainCaption(caption);
    if (marksKey(body, control)) sight.key = mnemonicOf(caption);
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) sight.value = box->value();
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        sight.value = option->value();
}

void lookAtContent(Form& form, const Control& control, Sight& sight) {
    if (const auto* edit = dynamic_cast<const Edit*>(&control)) {
        sight.text = edit->text();
        sight.caret = edit->caret();
    } else if (const auto* list = dynamic_cast<const ListView*>(&control)) {
        for (const ListRow& row : list->rows()) sight.rows.push_back({row.key, row.text});
        sight.selected = list->selectedNumber();
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
        for (const std::string& item : combo->items()) sight.rows.push_back({{}, item});
        sight.selected = static_cast<std::size_t>(combo->selectedIndex() + 1);
        sight.text = combo->text();
    } else if (const auto* tabs = dynamic_cast<const Tabs*>(&control)) {
        for (int i = 0; i < tabs->count(); ++i)
            sight.rows.push_back({mnemonicOf(tabs->caption(i)), plainCaption(tabs->caption(i))});
        sight.selected = static_cast<std::size_t>(tabs->tab() + 1);
    } else if (const auto* captioned = dynamic_cast<const CaptionedControl*>(&control)) {
        lookAtCaption(form, *captioned, sight);
    }
}

/// Whether the Tab key stops at a control: never at a label or a frame, whatever its switch says.
bool isStop(Form& form, const Control& control) {
    const std::vector<Control*> order = tabOrder(form.layout().body);
    return control.tabStop() && std::find(order.begin(), order.end(), &control) != order.end();
}

}  // namespace

bool isThere(Form& form, const Control& control) {
    return control.hasFace() && isSeen(form.layout().body, control);
}

Sight look(Form& form, const Control& control) {
    Sight sight;
    sight.focus = control.hasFocus();
    sight.enabled = control.enabled();
    sight.visible = isThere(form, control);
    sight.tabStop = isStop(form, control);
    sight.background = control.background();
    lookAtContent(form, control, sight);
    return sight;
}

}  // namespace wynconfig::scripted

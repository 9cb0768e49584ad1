// What the keyboard does in a form, decided in one place for all views.
#include "wynconfig/keyboard.h"

#include <algorithm>
#include <string>

#include "wynconfig/form.h"
#include "wynconfig/view.h"

namespace wynconfig {

namespace {

using Kind = KeyAct::Kind;

const Layout& bodyOf(Form& form) {
    return form.layout().body;
}

KeyAct pressing(Form& form, Button* button) {
    if (!button || !isUsable(bodyOf(form), *button)) return {};
    return {Kind::Press, button};
}

ListView* focusedList(const Form& form) {
    Control* focused = form.focused();
    const bool list = focused && focused->kind() == ControlKind::ListView;
    return list ? static_cast<ListView*>(focused) : nullptr;
}

KeyAct actInList(Form& form, Button* ListActs::*act) {
    const ListView* list = focusedList(form);
    return pressing(form, list ? buttonFor(bodyOf(form), *list, act) : nullptr);
}

KeyAct actOfEnter(Form& form, std::size_t markedRow) {
    Control* focused = form.focused();
    if (focused && focused->kind() == ControlKind::Button)
        return pressing(form, static_cast<Button*>(focused));
    ListView* list = focusedList(form);
    if (list && list->count() > 0 && actsOf(bodyOf(form), *list).deliberate) {
        const std::size_t row = markedRow > 0 ? markedRow : list->selectedNumber();
        return {Kind::Pick, list, std::max<std::size_t>(row, 1)};
    }
    if (const KeyAct inList = actInList(form, &ListActs::activate)) return inList;
    return pressing(form, form.layout().defaultButton);
}

KeyAct actOfTab(Form& form, bool forward) {
    const Layout& body = bodyOf(form);
    const auto stops = [&](const Control& control) {
        return takesFocus(control) && control.tabStop() && isUsable(body, control);
    };
    Control* next = nextStop(tabOrder(body), form.focused(), forward, stops);
    return next ? KeyAct{Kind::Focus, next} : KeyAct{};
}

KeyAct turning(Form& form, int step) {
    const Layout& body = bodyOf(form);
    for (Control* each : controlsOf(body)) {
        if (each->kind() != ControlKind::Tabs) continue;
        const auto& tabs = static_cast<const Tabs&>(*each);
        const int count = tabs.count();
        if (count < 2 || !isUsable(body, tabs)) return {};
        const int index = (tabs.tab() + step + count) % count;
        return {Kind::TurnTab, each, static_cast<std::size_t>(index) + 1};
    }
    return {};
}

void press(Control& control, const UserInput& input) {
    if (auto* button = dynamic_cast<Button*>(&control))
        input.click(*button);
    else if (auto* box = dynamic_cast<CheckBox*>(&control))
        input.tick(*box, !box->value());
    else if (auto* option = dynamic_cast<OptionButton*>(&control))
        input.choose(*option);
}

void goTo(Control& control, std::size_t number, const UserInput& input) {
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
        input.choose(*combo, static_cast<int>(number) - 1);
    } else if (auto* list = dynamic_cast<ListView*>(&control)) {
        if (list->selectedNumber() != number) input.pick(*list, number);
    }
}

}  // namespace

KeyAct actOfKey(Form& form, FormKey key, std::size_t markedRow) {
    switch (key) {
        case FormKey::Enter:
            return actOfEnter(form, markedRow);
        case FormKey::Escape:
            return pressing(form, form.layout().cancelButton);
        case FormKey::Delete:
            return actInList(form, &ListActs::del);
        case FormKey::F1:
            return form.help().empty() ? KeyAct{} : KeyAct{Kind::Help};
        case FormKey::F2:
            return actInList(form, &ListActs::rename);
        case FormKey::Tab:
            return actOfTab(form, true);
        case FormKey::BackTab:
            return actOfTab(form, false);
        case FormKey::NextPane:
            return turning(form, 1);
        case FormKey::PreviousPane:
            return turning(form, -1);
    }
    return {};
}

KeyAct actOfMark(Form& form, const KeyHolder& holder) {
    Control* control = holder.control;
    switch (control->kind()) {
        case ControlKind::Tabs:
            return {Kind::TurnTab, control, static_cast<std::size_t>(holder.tab + 1)};
        case ControlKind::Label:
        case ControlKind::Frame: {
            Control* target = keyTarget(bodyOf(form), *control);
            return target ? KeyAct{Kind::Focus, target} : KeyAct{};
        }
        default:
            return {.kind = Kind::Press, .control = control, .takesFocus = true};
    }
}

KeyAct actOfLetter(Form& form, Control& listOrCombo, TypeAhead& ahead, std::string_view letter) {
    std::size_t number = 0;
    if (auto* list = dynamic_cast<ListView*>(&listOrCombo)) {
        // Where a pick does something at once, a letter picks nothing.
        if (actsOf(bodyOf(form), *list).deliberate) return {};
        const auto& rows = list->rows();
        const auto textOf = [&](std::size_t row) -> std::string_view { return rows[row - 1].text; };
        number = ahead.next(letter, rows.size(), textOf, list->selectedNumber());
    } else if (auto* combo = dynamic_cast<ComboBox*>(&listOrCombo)) {
        const auto& items = combo->items();
        const auto textOf = [&](std::size_t item) -> std::string_view { return items[item - 1]; };
        const auto current = static_cast<std::size_t>(combo->selectedIndex() + 1);
        number = ahead.next(letter, items.size(), textOf, current);
    }
    return number > 0 ? KeyAct{Kind::GoTo, &listOrCombo, number} : KeyAct{};
}

KeyAct actOfDoubleClick(Form& form, ListView& list) {
    return pressing(form, buttonFor(bodyOf(form), list, &ListActs::activate));
}

void carryOut(const KeyAct& act, const UserInput& input) {
    if (!act.control) return;
    Control& control = *act.control;
    if (act.takesFocus || act.kind == Kind::Focus) input.focus(control);
    // Leaving the control before may have changed what can be used, and even closed the form.
    if (!control.form().loaded() || !isUsable(bodyOf(control.form()), control)) return;
    switch (act.kind) {
        case Kind::Nothing:
        case Kind::Help:
        case Kind::Focus:
            break;
        case Kind::Press:
            press(control, input);
            break;
        case Kind::Pick:
            input.pick(static_cast<ListView&>(control), act.number);
            break;
        case Kind::GoTo:
            goTo(control, act.number, input);
            break;
        case Kind::TurnTab:
            input.changeTab(static_cast<Tabs&>(control), static_cast<int>(act.number) - 1);
            break;
    }
}

std::vector<Control*> tabOrder(const Layout& body) {
    std::vector<Control*> order = controlsOf(body);
    std::erase_if(order, [](const Control* each) {
        return !takesFocus(*each) && each->kind() != ControlKind::Tabs;
    });
    return order;
}

Control* nextStop(const std::vector<Control*>& order, const Control* from, bool forward,
                  const std::function<bool(const Control&)>& stops) {
    const std::size_t count = order.size();
    const auto found = std::find(order.begin(), order.end(), from);
    const auto at = static_cast<std::size_t>(found - order.begin());
    // In front of the first place there is the last one.
    const std::size_t before = at < count ? at : forward ? count - 1 : 0;
    for (std::size_t step = 1; step <= count; ++step) {
        Control* next = order[(before + (forward ? step : count - step)) % count];
        if (stops(*next)) return next;
    }
    return nullptr;
}

}  // namespace wynconfig

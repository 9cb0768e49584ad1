// The person who acts on the models.
#include "views/scripted/person/person.h"

#include <algorithm>

#include "platform/forms/named_control.h"
#include "platform/text/text.h"
#include "views/scripted/person/sight.h"
#include "wynconfig/help.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {

namespace {

std::size_t rowOf(const ListView& list, const std::string& text) {
    const auto& rows = list.rows();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const ListRow& each) { return each.text == text; });
    if (row == rows.end())
        throw UserError(std::string(list.name()) + " has no row \"" + text + "\"");
    return static_cast<std::size_t>(row - rows.begin()) + 1;
}

}  // namespace

void ScriptedView::Person::meet(Form& form) {
    if (!form.loaded()) return;
    m_forms.push_back(&form);
    if (!form.focused()) press(FormKey::Tab);
    formCameUp(std::string(form.name()));
    if (form.loaded()) leaveOpen(form);
    m_forms.pop_back();
}

void ScriptedView::Person::leaveOpen(Form& form) {
    blame("the form " + std::string(form.name()) + " was left open");
    if (Button* cancel = form.layout().cancelButton) m_input.click(*cancel);
    if (form.loaded()) m_input.closeByFrame(form);
}

Form* ScriptedView::Person::onScreen() const {
    const auto top = std::find_if(m_forms.rbegin(), m_forms.rend(),
                                  [](const Form* each) { return each->loaded(); });
    return top == m_forms.rend() ? nullptr : *top;
}

Form& ScriptedView::Person::top() const {
    Form* const form = onScreen();
    if (!form) throw UserError("there is no form on the screen");
    return *form;
}

Control& ScriptedView::Person::usable(std::string_view name) const {
    Form& form = top();
    Control& control = namedControl(form, name);
    if (!scripted::isThere(form, control)) throw UserError(std::string(name) + " is hidden");
    if (!control.enabled()) throw UserError(std::string(name) + " is disabled");
    return control;
}

template <class T>
T& ScriptedView::Person::usableAs(std::string_view name, ControlKind kind) const {
    Control& control = usable(name);
    if (control.kind() != kind) throw UserError("this can't be done with " + std::string(name));
    return static_cast<T&>(control);
}

Control& ScriptedView::Person::pressable(std::string_view name) const {
    Control& control = usable(name);
    switch (control.kind()) {
        case ControlKind::Button:
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
            return control;
        default:
            throw UserError(std::string(name) + " can't be pressed");
    }
}

bool ScriptedView::Person::press(FormKey key) {
    const KeyAct act = actOfKey(top(), key);
    carryOut(act, m_input);
    return static_cast<bool>(act);
}

std::string ScriptedView::Person::formName() const {
    const Form* const form = onScreen();
    return form ? std::string(form->name()) : std::string();
}

std::string ScriptedView::Person::formTitle() const {
    return plainCaption(top().title());
}

void ScriptedView::Person::click(std::string_view name) {
    carryOut({.kind = KeyAct::Kind::Press, .control = &pressable(name), .takesFocus = true},
             m_input);
}

void ScriptedView::Person::bareClick(std::string_view name) {
    carryOut({.kind = KeyAct::Kind::Press, .control = &pressable(name)}, m_input);
}

void ScriptedView::Person::pressMnemonic(std::string_view key) {
    Form& form = top();
    const auto see = [&](const Control& control) { return scripted::look(form, control); };
    carryOut(actOfMark(form, holderOf(form.layout().body, key, see)), m_input);
}

void ScriptedView::Person::focus(std::string_view name) {
    Control& control = usable(name);
    if (!takesFocus(control)) throw UserError(std::string(name) + " takes no focus");
    m_input.focus(control);
}

void ScriptedView::Person::type(std::string_view name, const std::string& text) {
    Edit& edit = usableAs<Edit>(name, ControlKind::Edit);
    m_input.focus(edit);
    m_input.type(edit, text, charCount(text));
}

void ScriptedView::Person::setCaret(std::string_view name, std::size_t caret) {
    Edit& edit = usableAs<Edit>(name, ControlKind::Edit);
    m_input.focus(edit);
    m_input.moveCaret(edit, caret);
}

void ScriptedView::Person::pick(std::string_view name, const std::string& text) {
    ListView& list = usableAs<ListView>(name, ControlKind::ListView);
    const std::size_t number = rowOf(list, text);
    m_input.focus(list);
    m_input.pick(list, number);
}

void ScriptedView::Person::choose(std::string_view name, const std::string& text) {
    ComboBox& combo = usableAs<ComboBox>(name, ControlKind::ComboBox);
    const int index = combo.find(text);
    if (index < 0) throw UserError(std::string(name) + " has no item \"" + text + "\"");
    m_input.focus(combo);
    m_input.choose(combo, index);
}

void ScriptedView::Person::changeTab(std::string_view name, int index) {
    Tabs& tabs = usableAs<Tabs>(name, ControlKind::Tabs);
    if (index < 0 || index >= tabs.count())
        throw UserError(std::string(name) + " has no tab " + std::to_string(index));
    m_input.changeTab(tabs, index);
}

Sight ScriptedView::Person::see(std::string_view name) {
    return scripted::look(top(), namedControl(top(), name));
}

std::string ScriptedView::Person::help(std::string_view name) {
    Form& form = top();
    const Control& control = namedControl(form, name);
    if (!scripted::isThere(form, control)) throw UserError(std::string(name) + " is hidden");
    return form.help(&control);
}

std::vector<std::string> ScriptedView::Person::readHelp() {
    Form& form = top();
    if (actOfKey(form, FormKey::F1).kind != KeyAct::Kind::Help) return {};
    return helpPage(form).lines();
}

void ScriptedView::Person::pressDelete() {
    if (press(FormKey::Delete)) return;
    Control* focused = top().focused();
    if (!focused || focused->kind() != ControlKind::Edit) return;
    Edit& edit = static_cast<Edit&>(*focused);
    const std::size_t begin = byteOffset(edit.text(), edit.caret());
    const std::size_t end = byteOffset(edit.text(), edit.caret() + 1);
    if (begin == end) return;
    std::string text = edit.text();
    text.erase(begin, end - begin);
    m_input.type(edit, std::move(text), edit.caret());
}

void ScriptedView::Person::doubleClick(std::string_view name, const std::string& text) {
    pick(name, text);
    ListView& list = usableAs<ListView>(name, ControlKind::ListView);
    if (const KeyAct act = actOfDoubleClick(top(), list))
        carryOut(act, m_input);
    else
        pick(name, text);
}

void ScriptedView::Person::typeAhead(std::string_view name, const std::string& letters) {
    Control& control = usable(name);
    if (control.kind() != ControlKind::ListView && control.kind() != ControlKind::ComboBox)
        throw UserError("nothing is found by letters in " + std::string(name));
    m_input.focus(control);
    TypeAhead ahead;
    for (std::size_t at = 0; at < letters.size(); at += characterAt(letters, at).length) {
        const std::string letter = letters.substr(at, characterAt(letters, at).length);
        carryOut(actOfLetter(top(), control, ahead, letter), m_input);
    }
}

}  // namespace wynconfig

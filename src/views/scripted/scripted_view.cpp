// The view without a screen, and the person who acts on the models.
#include "wynconfig/scripted_view.h"

#include <algorithm>
#include <vector>

#include "platform/text/text.h"
#include "wynconfig/form.h"
#include "wynconfig/keyboard.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {

/// Acts on the form on top by the door that every view has, and keeps to what a person could do.
class ScriptedView::Person : public User {
  public:
    explicit Person(UserInput input) : m_input(input) {}

    void meet(Form& form) {
        m_forms.push_back(&form);
        if (!form.focused()) press(FormKey::Tab);
        formCameUp(std::string(form.name()));
        if (form.loaded()) leaveOpen(form);
        m_forms.pop_back();
    }
    int answerBox(const MessageBox& box) { return boxCameUp(box); }
    std::string answerBrowse(const BrowseRequest& request) { return browseCameUp(request); }

    std::string formName() const override {
        return m_forms.empty() ? std::string() : std::string(m_forms.back()->name());
    }
    std::string formTitle() const override { return plainCaption(top().title()); }

    void click(std::string_view name) override {
        Control& control = usable(name);
        requirePressable(control);
        m_input.focus(control);
        press(control);
    }
    void bareClick(std::string_view name) override {
        Control& control = usable(name);
        requirePressable(control);
        press(control);
    }
    void pressEnter() override { press(FormKey::Enter); }
    void pressEscape() override { press(FormKey::Escape); }
    void pressDelete() override;
    void pressF2() override { press(FormKey::F2); }
    void pressTab() override { press(FormKey::Tab); }

    void pressMnemonic(std::string_view key) override {
        const KeyHolder holder = holderOf(top().layout().body, key,
                                          [this](const Control& control) { return look(control); });
        carryOut(actOfMark(top(), holder), m_input);
    }
    void focus(std::string_view name) override {
        Control& control = usable(name);
        if (!takesFocus(control)) throw UserError(std::string(name) + " takes no focus");
        m_input.focus(control);
    }
    void type(std::string_view name, const std::string& text) override {
        Edit& edit = usableAs<Edit>(name, ControlKind::Edit);
        m_input.focus(edit);
        m_input.type(edit, text, charCount(text));
    }
    void setCaret(std::string_view name, std::size_t caret) override {
        Edit& edit = usableAs<Edit>(name, ControlKind::Edit);
        m_input.focus(edit);
        m_input.moveCaret(edit, caret);
    }
    void pick(std::string_view name, const std::string& text) override {
        ListView& list = usableAs<ListView>(name, ControlKind::ListView);
        const std::size_t number = rowOf(list, text);
        m_input.focus(list);
        m_input.pick(list, number);
    }
    void doubleClick(std::string_view name, const std::string& text) override;
    void typeAhead(std::string_view name, const std::string& letters) override;
    void choose(std::string_view name, const std::string& text) override {
        ComboBox& combo = usableAs<ComboBox>(name, ControlKind::ComboBox);
        const int index = combo.find(text);
        if (index < 0) throw UserError(std::string(name) + " has no item \"" + text + "\"");
        m_input.focus(combo);
        m_input.choose(combo, index);
    }
    void changeTab(std::string_view name, int index) override {
        Tabs& tabs = usableAs<Tabs>(name, ControlKind::Tabs);
        if (index < 0 || index >= tabs.count())
            throw UserError(std::string(name) + " has no tab " + std::to_string(index));
        m_input.changeTab(tabs, index);
    }
    void resize(int width, int height) override { m_input.resize(top(), width, height); }
    void closeByFrame() override { m_input.closeByFrame(top()); }
    Sight see(std::string_view name) override { return look(there(name)); }

  private:
    Sight look(const Control& control) const;
    void lookAtContent(const Control& control, Sight& sight) const;
    void lookAtCaption(const CaptionedControl& control, Sight& sight) const;
    Form& top() const {
        if (m_forms.empty() || !m_forms.back()->loaded())
            throw UserError("there is no form on the screen");
        return *m_forms.back();
    }
    Control& there(std::string_view name) const {
        Form& form = top();
        if (Control* control = form.control(name); control) return *control;
        std::string names;
        for (const Control* each : form.controls()) names += " " + std::string(each->name());
        throw UserError("there is no " + std::string(name) + " on " + std::string(form.name()) +
                        "; there are:" + names);
    }
    bool seen(const Control& control) const {
        return control.hasFace() && isSeen(top().layout().body, control);
    }
    Control& usable(std::string_view name) const {
        Control& control = there(name);
        if (!seen(control)) throw UserError(std::string(name) + " is hidden");
        if (!control.enabled()) throw UserError(std::string(name) + " is disabled");
        return control;
    }
    template <class T>
    T& usableAs(std::string_view name, ControlKind kind) const {
        Control& control = usable(name);
        if (control.kind() != kind) throw UserError("this can't be done with " + std::string(name));
        return static_cast<T&>(control);
    }
    static void requirePressable(const Control& control) {
        switch (control.kind()) {
            case ControlKind::Button:
            case ControlKind::CheckBox:
            case ControlKind::OptionButton:
                return;
            default:
                throw UserError(std::string(control.name()) + " can't be pressed");
        }
    }
    void press(Control& control) {
        if (control.kind() == ControlKind::Button)
            m_input.click(static_cast<Button&>(control));
        else if (auto* box = dynamic_cast<CheckBox*>(&control))
            m_input.tick(*box, !box->value());
        else
            m_input.choose(static_cast<OptionButton&>(control));
    }
    /// Presses a key; false when the form has no use for it.
    bool press(FormKey key) {
        const KeyAct act = actOfKey(top(), key);
        carryOut(act, m_input);
        return static_cast<bool>(act);
    }
    static std::size_t rowOf(const ListView& list, const std::string& text);
    void leaveOpen(Form& form) {
        blame("the form " + std::string(form.name()) + " was left open");
        if (Button* cancel = form.layout().cancelButton) m_input.click(*cancel);
        if (form.loaded()) m_input.closeByFrame(form);
    }

    UserInput m_input;
    std::vector<Form*> m_forms;
};

std::size_t ScriptedView::Person::rowOf(const ListView& list, const std::string& text) {
    const auto& rows = list.rows();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const ListRow& each) { return each.text == text; });
    if (row == rows.end())
        throw UserError(std::string(list.name()) + " has no row \"" + text + "\"");
    return static_cast<std::size_t>(row - rows.begin()) + 1;
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

Sight ScriptedView::Person::look(const Control& control) const {
    Sight sight;
    sight.focus = control.hasFocus();
    sight.enabled = control.enabled();
    sight.visible = seen(control);
    sight.tabStop = control.tabStop();
    sight.background = control.background();
    lookAtContent(control, sight);
    return sight;
}

void ScriptedView::Person::lookAtContent(const Control& control, Sight& sight) const {
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
        lookAtCaption(*captioned, sight);
    }
}

void ScriptedView::Person::lookAtCaption(const CaptionedControl& control, Sight& sight) const {
    const Layout& body = top().layout().body;
    const std::string& caption = control.caption();
    sight.caption = isValue(body, control) ? caption : plainCaption(caption);
    if (marksKey(body, control)) sight.key = mnemonicOf(caption);
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) sight.value = box->value();
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        sight.value = option->value();
}

ScriptedView::ScriptedView() : m_person(std::make_unique<Person>(userInput())) {}

ScriptedView::~ScriptedView() = default;

User& ScriptedView::user() {
    return *m_person;
}

void ScriptedView::showModal(Form& form) {
    m_person->meet(form);
}

int ScriptedView::showMessage(const MessageBox& box) {
    return m_person->answerBox(box);
}

std::string ScriptedView::browse(const BrowseRequest& request) {
    return m_person->answerBrowse(request);
}

void ScriptedView::raise(Form&, bool) {}

long ScriptedView::deviceContext(Form&) {
    return 0;
}

}  // namespace wynconfig

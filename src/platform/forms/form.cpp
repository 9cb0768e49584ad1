// When a form loads and unloads, where its focus is, and how events reach it.
#include "wynconfig/form.h"

#include <algorithm>
#include <utility>

#include "platform/forms/working.h"
#include "wynconfig/error.h"
#include "wynconfig/view.h"

namespace wynconfig {

Form::Form(std::string_view name) : m_name(name) {
    m_controls.reserve(64);
}

Form::~Form() {
    if (m_observer) m_observer->unloaded();
}

Control* Form::control(std::string_view name) const {
    const auto found = std::find_if(m_controls.begin(), m_controls.end(),
                                    [&](const Control* each) { return each->name() == name; });
    return found == m_controls.end() ? nullptr : *found;
}

std::string Form::help(const Control* control) const noexcept {
    try {
        return fetchHelp(control);
    } catch (...) {
        (void)Error::fromCurrentException();
        return {};
    }
}

std::string Form::fetchHelp(const Control*) const {
    return {};
}

void Form::setCaption(std::string caption) {
    touch();
    m_caption = std::move(caption);
    announce(nullptr);
}

std::string Form::title() const {
    for (const Control* each : m_controls) {
        if (each->kind() != ControlKind::FormCaption) continue;
        const auto* bar = static_cast<const FormCaption*>(each);
        if (bar->bound() && !bar->caption().empty()) return bar->caption();
    }
    return m_caption;
}

void Form::setFont(std::shared_ptr<const Font> font) {
    touch();
    m_font = std::move(font);
    announce(nullptr);
}

long Form::hDC() {
    touch();
    return installedView()->deviceContext(*this);
}

void Form::setSize(int width, int height) {
    m_width = width;
    m_height = height;
    announce(nullptr);
}

void Form::load() {
    m_state = State::Loading;
    try {
        Form_Load();
    } catch (...) {
        m_state = State::Loaded;
        throw;
    }
    m_state = State::Loaded;
}

void Form::Hide() {
    touch();
    m_visible = false;
}

void Form::Show() {
    touch();
    m_visible = true;
    raise([this] { Form_Activate(); });
    const WaitPause pause;
    installedView()->showModal(*this);
}

void Form::Unload() {
    if (m_state == State::Unloaded || m_state == State::Unloading) return;
    m_state = State::Unloading;
    const auto leave = [this] {
        m_state = State::Unloaded;
        m_visible = false;
        m_focused = nullptr;
        m_caption.clear();
        m_font.reset();
        for (Control* each : m_controls) each->reset();
        if (FormObserver* observer = std::exchange(m_observer, nullptr)) observer->unloaded();
    };
    try {
        Form_Unload();
    } catch (...) {
        leave();
        throw;
    }
    leave();
}

const FormLayout& Form::layout() {
    if (!m_layout) m_layout = declareLayout();
    return *m_layout;
}

void Form::announce(Control* control) {
    if (m_observer) m_observer->changed(control);
}

bool Form::canTakeFocus(const Control& control) const {
    return control.hasFace() && control.m_enabled && control.m_visible;
}

void Form::moveFocus(Control& control, bool byCode) {
    if (!canTakeFocus(control)) return;
    Control* previous = std::exchange(m_focused, &control);
    // Before the form is on the screen the focus only has a place; nothing moves yet.
    if (m_visible && previous != &control) {
        if (previous && previous->LostFocus) raise(previous->LostFocus);
        if (control.GotFocus) raise(control.GotFocus);
    }
    if (byCode && m_observer) m_observer->focusMoved(control);
}

template <class Handler>
void Form::raise(const Handler& handler) noexcept {
    try {
        handler();
    } catch (...) {
        // An event handler that nobody guards just ends; the dialog stays as it is.
        (void)Error::fromCurrentException();
    }
}

// What a person does. Each call ignores a form that is gone, since a view's event may come late.

void UserInput::focus(Control& control) const {
    if (control.form().loaded()) control.form().moveFocus(control, false);
}

void UserInput::type(Edit& edit, std::string text, std::size_t caret) const {
    if (!edit.form().loaded()) return;
    edit.setText(std::move(text));
    edit.setCaret(caret);
}

void UserInput::moveCaret(Edit& edit, std::size_t caret) const {
    if (edit.form().loaded()) edit.setCaret(caret);
}

void UserInput::click(Button& button) const {
    if (button.form().loaded() && button.Click) button.form().raise(button.Click);
}

void UserInput::tick(CheckBox& box, bool value) const {
    if (!box.form().loaded() || box.value() == value) return;
    box.setValue(value);
    if (box.Click) box.form().raise(box.Click);
}

void UserInput::choose(OptionButton& option) const {
    if (option.form().loaded()) option.setValue(true);
}

void UserInput::pick(ListView& list, std::size_t number) const {
    if (!list.form().loaded() || number < 1 || number > list.count()) return;
    list.select(number);
    if (list.ItemClick) list.form().raise(list.ItemClick);
}

void UserInput::choose(ComboBox& combo, int index) const {
    if (!combo.form().loaded() || index < 0 || index >= static_cast<int>(combo.items().size()))
        return;
    combo.setSelectedIndex(index);
}

void UserInput::changeTab(Tabs& tabs, int index) const {
    if (!tabs.form().loaded() || index < 0 || index >= tabs.count() || index == tabs.tab()) return;
    const int previous = tabs.tab();
    tabs.setTab(index);
    if (tabs.TabClick) tabs.form().raise([&] { tabs.TabClick(previous); });
}

void UserInput::resize(Form& form, int width, int height) const {
    if (!form.loaded()) return;
    form.setSize(width, height);
    form.raise([&] { form.Form_Resize(); });
}

void UserInput::closeByFrame(Form& form) const {
    form.raise([&] { form.Unload(); });
}

}  // namespace wynconfig

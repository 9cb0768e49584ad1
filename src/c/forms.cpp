// Forms and controls as a view or a test sees and works them, and the person of the test kit.
#include <utility>

#include "c/calls.h"
#include "wynconfig/layout.h"

namespace wynconfig::c {

namespace {

/// The forms that functions of the host act on, innermost last; null: a box.
std::vector<const OpenForm*>& openForms() {
    thread_local std::vector<const OpenForm*> forms;
    return forms;
}

/// The form of a handle, which has to be in front.
std::shared_ptr<OpenForm> inFront(wyn_form* handle) {
    auto form = get<OpenForm>(handle);
    if (openForms().back() != form.get())
        throw UserError("something else is in front of " + form->name);
    return form;
}

/// A form that the view of the host shows.
Form& shownByHost(wyn_form* handle) {
    Form* const form = get<OpenForm>(handle)->form;
    if (!form) throw Error(WYN_ERROR_CALL, "The host's own view does not show this form.");
    if (!form->loaded()) throw UserError("the form has closed");
    return *form;
}

wyn_control* openControl(wyn_form* handle, const std::string& name) {
    const auto form = get<OpenForm>(handle);
    const auto found = form->controls.find(name);
    if (found != form->controls.end()) return found->second;
    wyn_control* const control =
        open(std::make_shared<OpenControl>(OpenControl{handle, name}), false);
    form->controls.emplace(name, control);
    return control;
}

template <class What>
std::int32_t act(const char* function, wyn_form* form, const What& what) {
    return run(function, [&] { what(*inFront(form)->user); });
}

template <class What>
std::int32_t act(const char* function, wyn_control* control, const What& what) {
    return run(function, [&] {
        const auto open = get<OpenControl>(control);
        what(*inFront(open->form)->user, open->name);
    });
}

/// A call that looks at a control for a text.
std::int32_t lookFor(const char* function, wyn_control* control, char** place,
                     std::string Sight::*what) {
    return act(function, control, [&](User& user, const std::string& name) {
        requirePlace(place);
        *place = textOut(user.see(name).*what);
    });
}

bool isOpen(const OpenForm& form) {
    if (form.form) return form.form->loaded();
    try {
        form.user->formTitle();
        return form.user->formName() == form.name;
    } catch (const UserError&) {
        return false;
    }
}

/// What is left to count until the node of a number, and how deep it lies.
struct Search {
    std::size_t left;
    std::int32_t depth;
};

const Layout* nodeOf(const Layout& node, Search& search) {
    if (search.left-- == 0) return &node;
    ++search.depth;
    for (const Layout& child : node.children) {
        if (const Layout* found = nodeOf(child, search)) return found;
    }
    --search.depth;
    return nullptr;
}

wyn_control* openControl(wyn_form* handle, const Control* control) {
    return control ? openControl(handle, std::string(control->name())) : nullptr;
}

}  // namespace

FormScope::FormScope(std::shared_ptr<User> user, std::string name, Form* form)
    : m_form(std::make_shared<OpenForm>(OpenForm{std::move(user), std::move(name), form, {}})),
      m_handle(open(m_form, false)) {
    openForms().push_back(m_form.get());
}

FormScope::~FormScope() {
    openForms().pop_back();
    for (const auto& [name, control] : m_form->controls) close(control);
    close(m_handle);
}

Covered::Covered() {
    openForms().push_back(nullptr);
}

Covered::~Covered() {
    openForms().pop_back();
}

wyn_user* openUser(std::shared_ptr<User> user) {
    return open(std::move(user));
}

}  // namespace wynconfig::c

using namespace wynconfig;
using namespace wynconfig::c;

int32_t wyn_form_name(wyn_form* form, char** name) {
    return run("wyn_form_name", [&] {
        requirePlace(name);
        *name = textOut(get<OpenForm>(form)->name);
    });
}

int32_t wyn_form_title(wyn_form* form, char** title) {
    return act("wyn_form_title", form, [&](User& user) {
        requirePlace(title);
        *title = textOut(user.formTitle());
    });
}

int32_t wyn_form_is_open(wyn_form* form, int32_t* is_open) {
    return run("wyn_form_is_open", [&] {
        requirePlace(is_open);
        *is_open = isOpen(*get<OpenForm>(form)) ? 1 : 0;
    });
}

int32_t wyn_form_controls(wyn_form* form, wyn_list** names) {
    return run("wyn_form_controls", [&] {
        requirePlace(names);
        std::vector<std::string> all;
        for (const Control* each : controlsOf(shownByHost(form).layout().body))
            all.emplace_back(each->name());
        *names = listOf(all);
    });
}

int32_t wyn_find(wyn_form* form, const char* name, wyn_control** control) {
    return act("wyn_find", form, [&](User& user) {
        requirePlace(control);
        const std::string wanted = textIn(name);
        user.see(wanted);  // raises when there is none
        *control = openControl(form, wanted);
    });
}

int32_t wyn_press(wyn_form* form, int32_t key) {
    return act("wyn_press", form, [&](User& user) {
        switch (key) {
            case WYN_KEY_ENTER:
                return user.pressEnter();
            case WYN_KEY_ESCAPE:
                return user.pressEscape();
            case WYN_KEY_DELETE:
                return user.pressDelete();
            case WYN_KEY_F2:
                return user.pressF2();
            case WYN_KEY_TAB:
                return user.pressTab();
            default:
                throw Error(WYN_ERROR_CALL, "There is no such key.");
        }
    });
}

int32_t wyn_press_mnemonic(wyn_form* form, const char* key) {
    return act("wyn_press_mnemonic", form, [&](User& user) { user.pressMnemonic(textIn(key)); });
}

int32_t wyn_resize(wyn_form* form, int32_t width, int32_t height) {
    return act("wyn_resize", form, [&](User& user) {
        if (width < 0 || height < 0) throw Error(WYN_ERROR_CALL, "A size is not below 0.");
        user.resize(width, height);
    });
}

int32_t wyn_close_by_frame(wyn_form* form) {
    return act("wyn_close_by_frame", form, [](User& user) { user.closeByFrame(); });
}

int32_t wyn_control_name(wyn_control* control, char** name) {
    return run("wyn_control_name", [&] {
        requirePlace(name);
        *name = textOut(get<OpenControl>(control)->name);
    });
}

int32_t wyn_look(wyn_control* control, wyn_sight* sight) {
    return act("wyn_look", control, [&](User& user, const std::string& name) {
        const Sight seen = user.see(name);
        structOut(sight,
                  {0, seen.value, seen.selected, seen.caret, seen.focus, seen.enabled, seen.visible,
                   seen.tabStop, seen.background == Background::InactiveBorder});
    });
}

int32_t wyn_text(wyn_control* control, char** text) {
    return lookFor("wyn_text", control, text, &Sight::text);
}

int32_t wyn_caption(wyn_control* control, char** caption) {
    return lookFor("wyn_caption", control, caption, &Sight::caption);
}

int32_t wyn_mnemonic(wyn_control* control, char** key) {
    return lookFor("wyn_mnemonic", control, key, &Sight::key);
}

int32_t wyn_rows(wyn_control* control, wyn_list** rows) {
    return act("wyn_rows", control, [&](User& user, const std::string& name) {
        requirePlace(rows);
        Rows all;
        for (const SeenRow& row : user.see(name).rows) all.push_back({row.key, row.text});
        *rows = listOf(std::move(all));
    });
}

int32_t wyn_help(wyn_control* control, char** help) {
    return act("wyn_help", control, [&](User& user, const std::string& name) {
        requirePlace(help);
        *help = textOut(user.help(name));
    });
}

int32_t wyn_click(wyn_control* control) {
    return act("wyn_click", control, [](User& user, const std::string& name) { user.click(name); });
}

int32_t wyn_bare_click(wyn_control* control) {
    return act("wyn_bare_click", control,
               [](User& user, const std::string& name) { user.bareClick(name); });
}

int32_t wyn_focus(wyn_control* control) {
    return act("wyn_focus", control, [](User& user, const std::string& name) { user.focus(name); });
}

int32_t wyn_type(wyn_control* control, const char* text) {
    return act("wyn_type", control,
               [&](User& user, const std::string& name) { user.type(name, textIn(text)); });
}

int32_t wyn_set_caret(wyn_control* control, size_t caret) {
    return act("wyn_set_caret", control,
               [&](User& user, const std::string& name) { user.setCaret(name, caret); });
}

int32_t wyn_tick(wyn_control* control, int32_t value) {
    return act("wyn_tick", control,
               [&](User& user, const std::string& name) { user.tick(name, value != 0); });
}

int32_t wyn_pick(wyn_control* control, const char* text) {
    return act("wyn_pick", control,
               [&](User& user, const std::string& name) { user.pick(name, textIn(text)); });
}

int32_t wyn_double_click(wyn_control* control, const char* text) {
    return act("wyn_double_click", control,
               [&](User& user, const std::string& name) { user.doubleClick(name, textIn(text)); });
}

int32_t wyn_type_ahead(wyn_control* control, const char* letters) {
    return act("wyn_type_ahead", control,
               [&](User& user, const std::string& name) { user.typeAhead(name, textIn(letters)); });
}

int32_t wyn_choose(wyn_control* control, const char* text) {
    return act("wyn_choose", control,
               [&](User& user, const std::string& name) { user.choose(name, textIn(text)); });
}

int32_t wyn_change_tab(wyn_control* control, int32_t index) {
    return act("wyn_change_tab", control,
               [&](User& user, const std::string& name) { user.changeTab(name, index); });
}

int32_t wyn_control_kind(wyn_control* control, int32_t* kind) {
    return run("wyn_control_kind", [&] {
        requirePlace(kind);
        const auto open = get<OpenControl>(control);
        *kind = static_cast<std::int32_t>(shownByHost(open->form).control(open->name)->kind());
    });
}

int32_t wyn_form_node(wyn_form* form, size_t number, wyn_node* node) {
    return run("wyn_form_node", [&] {
        structIn(node);
        Search search{number, 0};
        const Layout* const found = nodeOf(shownByHost(form).layout().body, search);
        if (!found) throw Error(WYN_ERROR_RANGE, "The layout has no such node.");
        structOut(node, {0, static_cast<std::int32_t>(found->kind), search.depth,
                         openControl(form, found->control), openControl(form, found->label),
                         found->grows, found->behindBox});
    });
}

int32_t wyn_form_buttons(wyn_form* form, wyn_control** default_button,
                         wyn_control** cancel_button) {
    return run("wyn_form_buttons", [&] {
        requirePlace(default_button);
        requirePlace(cancel_button);
        const FormLayout& layout = shownByHost(form).layout();
        wyn_control* const byEnter = openControl(form, layout.defaultButton);
        *cancel_button = openControl(form, layout.cancelButton);
        *default_button = byEnter;
    });
}

int32_t wyn_on_form(wyn_user* user, const char* form, wyn_script script, void* context) {
    return run("wyn_on_form", [&] {
        if (!script) throw Error(WYN_ERROR_CALL, "There is nothing to do.");
        const auto person = get<User>(user);
        const std::string name = textIn(form);
        person->onForm(name, [weak = std::weak_ptr<User>(person), name, script, context](User&) {
            const FormScope scope(weak.lock(), name, nullptr);
            try {
                callHost("script", script, context, scope.handle());
            } catch (const Error& error) {
                throw UserError(error.description());
            }
        });
    });
}

int32_t wyn_on_box(wyn_user* user, int32_t answer) {
    return run("wyn_on_box", [&] { get<User>(user)->onBox(answer); });
}

int32_t wyn_on_browse(wyn_user* user, const char* path) {
    return run("wyn_on_browse", [&] { get<User>(user)->onBrowse(textIn(path)); });
}

int32_t wyn_boxes(wyn_user* user, wyn_list** boxes) {
    return run("wyn_boxes", [&] {
        requirePlace(boxes);
        Rows rows;
        for (const SeenBox& box : get<User>(user)->boxes()) rows.push_back({box.title, box.text});
        *boxes = listOf(std::move(rows));
    });
}

int32_t wyn_forms(wyn_user* user, wyn_list** names) {
    return run("wyn_forms", [&] {
        requirePlace(names);
        *names = listOf(get<User>(user)->forms());
    });
}

int32_t wyn_finish(wyn_user* user) {
    return run("wyn_finish", [&] { get<User>(user)->finish(); });
}

// What a person sees and does on a form, by a view of the host.
#include "check.h"

static wyn_sight look(wyn_control* control) {
    wyn_sight sight = WYN_STRUCT(wyn_sight);
    OK(wyn_look(control, &sight));
    return sight;
}

static void sees(wyn_form* form) {
    wyn_control* control = NULL;
    wyn_sight sight = {.size = 8};
    int32_t is_open = 7;
    GIVES("WYN 3rd Party Application Configuration", wyn_form_title(form, &text));
    FAILS(WYN_ERROR_USER, wyn_find(form, "btnNowhere", &control));
    FAILS(WYN_ERROR_USER, wyn_find(form, NULL, &control));
    FAILS(WYN_ERROR_TEXT, wyn_find(form, "\xE4", &control));
    EXPECT(control == NULL);
    FAILS(WYN_ERROR_CALL, wyn_find(form, "btnOK", NULL));
    EXPECT(find(form, "btnOK") == find(form, "btnOK"));
    GIVES("btnOK", wyn_control_name(find(form, "btnOK"), &text));
    GIVES("OK", wyn_caption(find(form, "btnOK"), &text));
    GIVES("Reverse List Order", wyn_caption(find(form, "chkReverseList"), &text));
    GIVES("O", wyn_mnemonic(find(form, "chkReverseList"), &text));
    GIVES("/bin/sh", wyn_text(find(form, "txtProgramPath"), &text));
    LISTS("3rd Party Application Launch|Part Number Format", wyn_rows(find(form, "SSTab2"), &list));
    FAILS(WYN_ERROR_STRUCT, wyn_look(find(form, "btnOK"), &sight));
    FAILS(WYN_ERROR_STRUCT, wyn_look(find(form, "btnOK"), NULL));
    sight = look(find(form, "rdoTop"));
    EXPECT(sight.value == 1 && sight.enabled == 1 && sight.visible == 1);
    sight = look(find(form, "lstSelectedFormats2"));
    EXPECT(sight.value == 0 && sight.visible == 0);
    FAILS(WYN_ERROR_CALL, wyn_form_name(form, NULL));
    FAILS(WYN_ERROR_CALL, wyn_form_title(form, NULL));
    FAILS(WYN_ERROR_CALL, wyn_form_is_open(form, NULL));
    FAILS(WYN_ERROR_CALL, wyn_control_name(find(form, "btnOK"), NULL));
    FAILS(WYN_ERROR_CALL, wyn_text(find(form, "btnOK"), NULL));
    FAILS(WYN_ERROR_CALL, wyn_caption(find(form, "btnOK"), NULL));
    FAILS(WYN_ERROR_CALL, wyn_mnemonic(find(form, "btnOK"), NULL));
    FAILS(WYN_ERROR_CALL, wyn_rows(find(form, "btnOK"), NULL));
    FAILS(WYN_ERROR_HANDLE, wyn_form_is_open((wyn_form*)find(form, "btnOK"), &is_open));
}

static void acts(wyn_form* form) {
    wyn_control* const program = find(form, "txtProgramPath");
    wyn_control* const reverse = find(form, "chkReverseList");
    wyn_control* const left = find(form, "rdoLeft");
    wyn_control* const tabs = find(form, "SSTab2");
    OK(wyn_focus(program));
    EXPECT(look(program).focus == 1);
    OK(wyn_type(program,
                "\xC3\xA4"
                "bc"));
    GIVES(
        "\xC3\xA4"
        "bc",
        wyn_text(program, &text));
    EXPECT(look(program).caret == 3);
    OK(wyn_set_caret(program, 1));
    EXPECT(look(program).caret == 1);
    OK(wyn_set_caret(program, 99));
    EXPECT(look(program).caret == 3);
    OK(wyn_set_caret(program, 0));
    OK(wyn_press(form, WYN_KEY_DELETE));
    GIVES("bc", wyn_text(program, &text));
    OK(wyn_press(form, WYN_KEY_TAB));
    EXPECT(look(program).focus == 0);
    OK(wyn_type(program, "/bin/sh"));
    OK(wyn_tick(reverse, 0));
    EXPECT(look(reverse).value == 0);
    OK(wyn_tick(reverse, 0));
    EXPECT(look(reverse).value == 0);
    OK(wyn_click(reverse));
    EXPECT(look(reverse).value == 1 && look(reverse).focus == 1);
    OK(wyn_focus(program));
    OK(wyn_bare_click(reverse));
    EXPECT(look(reverse).value == 0 && look(reverse).focus == 0);
    OK(wyn_press_mnemonic(form, "O"));
    EXPECT(look(reverse).value == 1);
    OK(wyn_click(left));
    EXPECT(look(left).value == 1 && look(find(form, "rdoTop")).value == 0);
    OK(wyn_change_tab(tabs, 1));
    OK(wyn_pick(find(form, "lstSelectedFormats2"), "PLAIN"));
    EXPECT(look(find(form, "lstSelectedFormats2")).selected == 1);
    OK(wyn_click(find(form, "btnRemove")));
    LISTS("", wyn_rows(find(form, "lstSelectedFormats2"), &list));
    OK(wyn_type_ahead(find(form, "lstAvailableFormats"), "pl"));
    EXPECT(look(find(form, "lstAvailableFormats")).selected == 1);
    OK(wyn_double_click(find(form, "lstAvailableFormats"), "PLAIN"));
    OK(wyn_change_tab(tabs, 0));
    OK(wyn_resize(form, 9000, 9000));
}

static void refuses_what_nobody_could_do(wyn_form* form) {
    wyn_control* const button = find(form, "btnOK");
    wyn_control* const program = find(form, "txtProgramPath");
    FAILS(WYN_ERROR_USER, wyn_click(find(form, "btnNew")));
    FAILS(WYN_ERROR_USER, wyn_click(program));
    FAILS(WYN_ERROR_USER, wyn_bare_click(program));
    FAILS(WYN_ERROR_USER, wyn_focus(find(form, "frmOrientation")));
    FAILS(WYN_ERROR_USER, wyn_type(button, "a"));
    FAILS(WYN_ERROR_TEXT, wyn_type(program, "\xE4"));
    FAILS(WYN_ERROR_USER, wyn_set_caret(button, 0));
    FAILS(WYN_ERROR_USER,
          wyn_tick(find(form, "rdoTop"), 1) == WYN_OK ? wyn_tick(find(form, "rdoTop"), 0) : WYN_OK);
    FAILS(WYN_ERROR_USER, wyn_pick(button, "a"));
    FAILS(WYN_ERROR_USER, wyn_pick(find(form, "lstAvailableFormats"), "PLAIN"));
    FAILS(WYN_ERROR_TEXT, wyn_pick(find(form, "lstAvailableFormats"), "\xE4"));
    FAILS(WYN_ERROR_USER, wyn_double_click(button, "a"));
    FAILS(WYN_ERROR_USER, wyn_type_ahead(button, "a"));
    FAILS(WYN_ERROR_USER, wyn_choose(button, "a"));
    FAILS(WYN_ERROR_USER, wyn_change_tab(button, 0));
    FAILS(WYN_ERROR_USER, wyn_change_tab(find(form, "SSTab2"), 2));
    FAILS(WYN_ERROR_USER, wyn_press_mnemonic(form, "?"));
    FAILS(WYN_ERROR_TEXT, wyn_press_mnemonic(form, "\xE4"));
    FAILS(WYN_ERROR_CALL, wyn_press(form, 5));
    FAILS(WYN_ERROR_CALL, wyn_press(form, -1));
    FAILS(WYN_ERROR_CALL, wyn_resize(form, -1, 0));
}

// The layout names each control once, and each node lies one deeper than its parent at most.
static void draws(wyn_form* form) {
    wyn_node node = WYN_STRUCT(wyn_node);
    wyn_list* names = NULL;
    wyn_control* by_enter = NULL;
    wyn_control* by_escape = NULL;
    size_t number = 0;
    size_t count = 0;
    size_t seen = 0;
    int32_t kind = 7;
    int32_t last_depth = 0;
    for (; wyn_form_node(form, number, &node) == WYN_OK; ++number) {
        EXPECT(node.depth <= last_depth + 1 && (node.depth > 0) == (number > 0));
        EXPECT(node.kind >= WYN_NODE_COLUMN && node.kind <= WYN_NODE_STRETCH);
        last_depth = node.depth;
        seen += (node.control ? 1U : 0U) + (node.label ? 1U : 0U);
        if (node.kind == WYN_NODE_TABS) {
            EXPECT(node.control == find(form, "SSTab2"));
            OK(wyn_control_kind(node.control, &kind));
            EXPECT(kind == WYN_TABS);
        }
        if (node.label) {
            OK(wyn_control_kind(node.label, &kind));
            EXPECT(kind == WYN_LABEL);
        }
    }
    FAILS(WYN_ERROR_RANGE, wyn_form_node(form, number, &node));
    FAILS(WYN_ERROR_RANGE, wyn_form_node(form, SIZE_MAX, &node));
    FAILS(WYN_ERROR_STRUCT, wyn_form_node(form, 0, NULL));
    OK(wyn_form_controls(form, &names));
    OK(wyn_list_count(names, &count));
    EXPECT(number > 20 && count > 25 && seen == count);
    OK(wyn_close(names));
    FAILS(WYN_ERROR_CALL, wyn_form_controls(form, NULL));
    FAILS(WYN_ERROR_CALL, wyn_control_kind(find(form, "btnOK"), NULL));
    OK(wyn_form_buttons(form, &by_enter, &by_escape));
    EXPECT(by_enter == find(form, "btnOK") && by_escape == find(form, "btnCancel"));
    FAILS(WYN_ERROR_CALL, wyn_form_buttons(form, NULL, &by_escape));
    FAILS(WYN_ERROR_CALL, wyn_form_buttons(form, &by_enter, NULL));
}

static int32_t show_modal(void* context, wyn_form* form) {
    EXPECT(context == NULL);
    char* name = NULL;
    OK(wyn_form_name(form, &name));
    if (strcmp(name, "frmTallyvaneConfig") == 0) {
        OK(wyn_choose(find(form, "cboPartFormat"), "PLAIN"));
        GIVES("PLAIN", wyn_text(find(form, "cboPartFormat"), &text));
        FAILS(WYN_ERROR_USER, wyn_choose(find(form, "cboPartFormat"), "none such"));
        FAILS(WYN_ERROR_TEXT, wyn_choose(find(form, "cboPartFormat"), "\xE4"));
        OK(wyn_press(form, WYN_KEY_ESCAPE));
    } else {
        sees(form);
        acts(form);
        refuses_what_nobody_could_do(form);
        draws(form);
        OK(wyn_press(form, WYN_KEY_F2));
        OK(wyn_click(find(form, "btnTallyvane")));
        OK(wyn_focus(find(form, "txtProgramPath")));
        OK(wyn_press(form, WYN_KEY_ENTER));
    }
    wyn_free(name);
    return WYN_OK;
}

// Every call about a form or control refuses what is none.
static void refuses_what_is_no_form(void) {
    wyn_form* const form = NULL;
    wyn_control* const none = NULL;
    wyn_control* control = NULL;
    wyn_list* list = NULL;
    wyn_sight sight = WYN_STRUCT(wyn_sight);
    wyn_node node = WYN_STRUCT(wyn_node);
    int32_t number = 7;
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_form_name(form, &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_form_title(form, &text));
    FAILS(WYN_ERROR_HANDLE, wyn_form_is_open(form, &number));
    FAILS(WYN_ERROR_HANDLE, wyn_form_controls(form, &list));
    FAILS(WYN_ERROR_HANDLE, wyn_find(form, "a", &control));
    FAILS(WYN_ERROR_HANDLE, wyn_press(form, WYN_KEY_ENTER));
    FAILS(WYN_ERROR_HANDLE, wyn_press_mnemonic(form, "A"));
    FAILS(WYN_ERROR_HANDLE, wyn_resize(form, 1, 1));
    FAILS(WYN_ERROR_HANDLE, wyn_close_by_frame(form));
    FAILS(WYN_ERROR_HANDLE, wyn_form_node(form, 0, &node));
    FAILS(WYN_ERROR_HANDLE, wyn_form_buttons(form, &control, &control));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_control_name(none, &text));
    FAILS(WYN_ERROR_HANDLE, wyn_control_kind(none, &number));
    FAILS(WYN_ERROR_HANDLE, wyn_look(none, &sight));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_text(none, &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_caption(none, &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_mnemonic(none, &text));
    FAILS(WYN_ERROR_HANDLE, wyn_rows(none, &list));
    FAILS(WYN_ERROR_HANDLE, wyn_click(none));
    FAILS(WYN_ERROR_HANDLE, wyn_bare_click(none));
    FAILS(WYN_ERROR_HANDLE, wyn_focus(none));
    FAILS(WYN_ERROR_HANDLE, wyn_type(none, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_set_caret(none, 0));
    FAILS(WYN_ERROR_HANDLE, wyn_tick(none, 1));
    FAILS(WYN_ERROR_HANDLE, wyn_pick(none, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_double_click(none, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_type_ahead(none, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_choose(none, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_change_tab(none, 0));
    EXPECT(number == 7 && !control && !list);
}

void form_cases(void) {
    wyn_view view = WYN_STRUCT(wyn_view);
    wyn_record* record = NULL;
    wyn_store* store = NULL;
    char* name = NULL;
    int32_t result = 7;
    save_session("COUNTER");
    view.show_modal = show_modal;
    OK(wyn_install_view(&view));
    OK(wyn_showMORAMConfigDlg("COUNTER", &name, &result));
    EXPECT(result == 0);
    wyn_free(name);
    OK(wyn_install_view(NULL));
    // What was done is what was stored.
    OK(wyn_store_open(root, &store));
    OK(wyn_store_read(store, WYN_SESSION, "COUNTER", &record));
    GIVES("top", wyn_record_get(record, "Orientation", &text));
    GIVES("true", wyn_record_get(record, "ReverseList", &text));
    GIVES("PLAIN", wyn_record_get(record, "FORMAT1", &text));
    OK(wyn_close(record));
    OK(wyn_close(store));
    refuses_what_is_no_form();
}

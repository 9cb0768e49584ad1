// The test kit: a person who does what a test says.
#include "check.h"

static wyn_user* user;

static int32_t fill_and_cancel(void* context, wyn_form* form) {
    int32_t kind = 7;
    wyn_node node = WYN_STRUCT(wyn_node);
    int32_t is_open = 7;
    EXPECT(context == &user);
    GIVES("Add a session", wyn_form_title(form, &text));
    OK(wyn_type(find(form, "txtName"), "a.b"));
    OK(wyn_click(find(form, "btnOK")));
    // What only a view of the host's own is told.
    FAILS(WYN_ERROR_CALL, wyn_form_node(form, 0, &node));
    FAILS(WYN_ERROR_CALL, wyn_control_kind(find(form, "btnOK"), &kind));
    OK(wyn_form_is_open(form, &is_open));
    EXPECT(is_open == 1);
    OK(wyn_click(find(form, "btnCancel")));
    OK(wyn_form_is_open(form, &is_open));
    EXPECT(is_open == 0);
    return WYN_OK;
}

static int32_t fail(void* context, wyn_form* form) {
    EXPECT(context == NULL && form != NULL);
    return wyn_fail(55, "the person fell asleep");
}

static int32_t browse(void* context, wyn_form* form) {
    EXPECT(context == NULL);
    OK(wyn_click(find(form, "btnBrowseFile")));
    GIVES("/bin/true", wyn_text(find(form, "txtProgramPath"), &text));
    return wyn_press(form, WYN_KEY_ESCAPE);
}

static void add_a_session(void) {
    char* text = NULL;
    int32_t result = 7;
    OK(wyn_showAddMORAMConfigDlg("", &text, &result));
    EXPECT(result == 1);
    wyn_free(text);
}

static int last_failure_tells(const char* what) {
    wyn_error error = WYN_STRUCT(wyn_error);
    OK(wyn_last_error(&error));
    return strstr(error.description, what) != NULL;
}

static void plays_a_person(void) {
    wyn_list* boxes = NULL;
    size_t count = 0;
    char* name = NULL;
    int32_t result = 7;
    OK(wyn_on_form(user, "frmAddMORAMConfig", fill_and_cancel, &user));
    OK(wyn_on_box(user, WYN_ANSWER_OK));
    add_a_session();
    LISTS("frmAddMORAMConfig", wyn_forms(user, &list));
    OK(wyn_boxes(user, &boxes));
    OK(wyn_list_count(boxes, &count));
    EXPECT(count == 1);
    GIVES(
        "The name must not be a number and must not contain any of these characters:\r\n"
        "         \\ / : * ? \" < > | .",
        wyn_list_text(boxes, 0, &text));
    GIVES("Invalid Name", wyn_list_key(boxes, 0, &text));
    OK(wyn_close(boxes));
    OK(wyn_finish(user));
    LISTS("", wyn_forms(user, &list));
    LISTS("", wyn_boxes(user, &list));

    save_session("COUNTER");
    OK(wyn_on_form(user, "frmMORAMConfig", browse, NULL));
    OK(wyn_on_browse(user, "/bin/true"));
    OK(wyn_showMORAMConfigDlg("COUNTER", &name, &result));
    EXPECT(result == 1);
    wyn_free(name);
    OK(wyn_finish(user));
}

static void tells_what_was_not_announced(void) {
    add_a_session();
    FAILS(WYN_ERROR_USER, wyn_finish(user));
    EXPECT(last_failure_tells("frmAddMORAMConfig"));
    OK(wyn_finish(user));
    OK(wyn_on_form(user, "frmMORAMConfig", fail, NULL));
    OK(wyn_on_box(user, WYN_ANSWER_YES));
    OK(wyn_on_browse(user, "/there"));
    FAILS(WYN_ERROR_USER, wyn_finish(user));
    EXPECT(last_failure_tells("frmMORAMConfig") && last_failure_tells("/there"));
    OK(wyn_on_form(user, "frmAddMORAMConfig", fail, NULL));
    add_a_session();
    FAILS(WYN_ERROR_USER, wyn_finish(user));
    EXPECT(last_failure_tells("the person fell asleep"));
}

static void refuses_bad_arguments(void) {
    wyn_list* list = NULL;
    FAILS(WYN_ERROR_CALL, wyn_on_form(user, "a", NULL, NULL));
    FAILS(WYN_ERROR_TEXT, wyn_on_form(user, "\xE4", fail, NULL));
    FAILS(WYN_ERROR_TEXT, wyn_on_browse(user, "\xE4"));
    FAILS(WYN_ERROR_CALL, wyn_boxes(user, NULL));
    FAILS(WYN_ERROR_CALL, wyn_forms(user, NULL));
    OK(wyn_finish(user));
    OK(wyn_close(user));
    FAILS(WYN_ERROR_HANDLE, wyn_on_form(user, "a", fail, NULL));
    FAILS(WYN_ERROR_HANDLE, wyn_on_box(user, WYN_ANSWER_OK));
    FAILS(WYN_ERROR_HANDLE, wyn_on_browse(user, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_boxes(user, &list));
    FAILS(WYN_ERROR_HANDLE, wyn_forms(user, &list));
    FAILS(WYN_ERROR_HANDLE, wyn_finish(user));
    EXPECT(list == NULL);
    OK(wyn_install_scripted_view(NULL));
    add_a_session();
    OK(wyn_install_view(NULL));
}

void kit_cases(void) {
    OK(wyn_install_scripted_view(&user));
    plays_a_person();
    tells_what_was_not_announced();
    refuses_bad_arguments();
}

// The twelve operations, by the view without a screen.
#include "check.h"

static wyn_user* user;

// Makes the session ready for its OK: a program, and the part format PLAIN.
static int32_t fill_session(void* context, wyn_form* form) {
    int32_t status = wyn_type(find(form, "txtProgramPath"), "/bin/sh");
    if (status == WYN_OK) status = wyn_change_tab(find(form, "SSTab2"), 1);
    if (status == WYN_OK) status = wyn_pick(find(form, "lstAvailableFormats"), "PLAIN");
    if (status == WYN_OK) status = wyn_click(find(form, "btnAdd"));
    return status == WYN_OK ? wyn_click(find(form, context ? context : "btnOK")) : status;
}

static int32_t name_session(void* name, wyn_form* form) {
    OK(wyn_type(find(form, "txtName"), name));
    return wyn_press(form, WYN_KEY_ENTER);
}

static int32_t click(void* button, wyn_form* form) {
    return wyn_click(find(form, button));
}

static int32_t pick_session(void* session, wyn_form* form) {
    OK(wyn_pick(find(form, "lstAvailableMORAMs2"), session));
    return wyn_click(find(form, "btnOK"));
}

static int32_t double_click_session(void* session, wyn_form* form) {
    return wyn_double_click(find(form, "lstAvailableTESessions"), session);
}

#define ENDS(wanted_result, wanted_name, call)                     \
    do {                                                           \
        char* text = NULL;                                         \
        int32_t result = 7;                                        \
        OK(call);                                                  \
        EXPECT(result == (wanted_result));                         \
        expect_text(wanted_name, text, __FILE__, __LINE__, #call); \
        OK(wyn_finish(user));                                      \
    } while (0)

static void works_on_files(void) {
    const char* const plain[] = {"MaxRecords", "12", NULL};
    save_item(WYN_PART_FORMAT, "PLAIN", plain);
    OK(wyn_on_form(user, "frmAddMORAMConfig", name_session, "counter"));
    OK(wyn_on_form(user, "frmMORAMConfig", fill_session, NULL));
    ENDS(0, "COUNTER", wyn_showAddMORAMConfigDlg("", &text, &result));
    OK(wyn_on_form(user, "frmAddMORAMConfig", click, "btnCancel"));
    ENDS(1, "", wyn_showAddMORAMConfigDlg("a", &text, &result));
    OK(wyn_on_form(user, "frmMORAMConfig", click, "btnOK"));
    ENDS(0, "COUNTER", wyn_showMORAMConfigDlg("counter", &text, &result));
    OK(wyn_on_form(user, "frmMORAMConfig", click, "btnCancel"));
    ENDS(1, "COUNTER", wyn_showMORAMConfigDlg("Counter", &text, &result));
    OK(wyn_on_form(user, "frmMORAMMaintenance", pick_session, "COUNTER"));
    ENDS(0, "COUNTER", wyn_showMORAMMaintenanceDlg(NULL, &text, &result));
    OK(wyn_on_form(user, "frmSessionManager", double_click_session, "COUNTER"));
    GIVES("COUNTER", wyn_showSessionManagerDlg("COUNTER,GONE", &text));
    OK(wyn_on_form(user, "frmSessionManager", click, "btnOK"));
    GIVES("COUNTER", wyn_showConfigurableSessionManagerDlg("COUNTER,GONE", &text));
    OK(wyn_finish(user));
}

static void works_in_memory(void) {
    const char* formats[1];
    wyn_record* record = NULL;
    wyn_list* texts = NULL;
    char* session = NULL;
    char* format = NULL;
    char* back = NULL;
    int32_t migrated = 7;
    OK(wyn_record_new(WYN_PART_FORMAT, "MINE", &record));
    OK(wyn_record_set(record, "MaxRecords", "5"));
    OK(wyn_record_xml(record, &format));
    OK(wyn_close(record));
    OK(wyn_on_form(user, "frmAddMORAMConfig", name_session, "held"));
    OK(wyn_on_form(user, "frmMORAMConfig", fill_session, NULL));
    ENDS(0, "HELD", wyn_showAddMORAMConfigDlgEX(NULL, &text, &result));
    OK(wyn_GetDatasetSessionData(&session));
    OK(wyn_record_parse(session, &record));
    GIVES("HELD", wyn_record_name(record, &text));
    OK(wyn_close(record));
    formats[0] = format;
    OK(wyn_on_form(user, "frmMORAMConfig", click, "btnOK"));
    ENDS(0, "HELD", wyn_showMORAMConfigDlgEX("held", session, formats, 1, &text, &result));
    OK(wyn_GetDatasetFormatsData(&texts));
    GIVES("", wyn_list_key(texts, 0, &text));
    OK(wyn_list_text(texts, 0, &back));
    OK(wyn_record_parse(back, &record));
    GIVES("MINE", wyn_record_name(record, &text));
    OK(wyn_close(record));
    OK(wyn_close(texts));
    wyn_free(back);
    wyn_free(session);
    wyn_free(format);
    OK(wyn_MigrateSession(root, "counter", &migrated));
    EXPECT(migrated == 1);
    OK(wyn_MigrateSession(root, "never", &migrated));
    EXPECT(migrated == 0);
}

static void refuses_bad_arguments(void) {
    char* text = root;
    int32_t result = 7;
    const char* formats[] = {"\xE4"};
    FAILS(WYN_ERROR_TEXT, wyn_init("\xE4/"));
    FAILS(WYN_ERROR_TEXT, wyn_showMORAMConfigDlg("\xE4", &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showMORAMMaintenanceDlg("\xE4", &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showAddMORAMConfigDlg("\xE4", &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showAddMORAMConfigDlgEX("\xE4", &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showMORAMConfigDlgEX("\xE4", "", NULL, 0, &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showMORAMConfigDlgEX("a", "\xE4", NULL, 0, &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showMORAMConfigDlgEX("a", "", formats, 1, &text, &result));
    FAILS(WYN_ERROR_CALL, wyn_showMORAMConfigDlgEX("a", "", NULL, 1, &text, &result));
    FAILS(WYN_ERROR_TEXT, wyn_showSessionManagerDlg("\xE4", &text));
    FAILS(WYN_ERROR_TEXT, wyn_showConfigurableSessionManagerDlg("\xE4", &text));
    FAILS(WYN_ERROR_TEXT, wyn_MigrateSession("\xE4", "a", &result));
    FAILS(WYN_ERROR_TEXT, wyn_MigrateSession(root, "\xE4", &result));
    FAILS(WYN_ERROR_CALL, wyn_GetDatasetSessionData(NULL));
    FAILS(WYN_ERROR_CALL, wyn_GetDatasetFormatsData(NULL));
    FAILS(WYN_ERROR_CALL, wyn_MigrateSession(root, "a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_showMORAMConfigDlg("a", NULL, &result));
    FAILS(WYN_ERROR_CALL, wyn_showMORAMConfigDlg("a", &text, NULL));
    FAILS(WYN_ERROR_CALL, wyn_showMORAMConfigDlgEX("a", "", NULL, 0, &text, NULL));
    FAILS(WYN_ERROR_CALL, wyn_showMORAMMaintenanceDlg("a", &text, NULL));
    FAILS(WYN_ERROR_CALL, wyn_showAddMORAMConfigDlg("a", NULL, &result));
    FAILS(WYN_ERROR_CALL, wyn_showAddMORAMConfigDlgEX("a", NULL, &result));
    FAILS(WYN_ERROR_CALL, wyn_showSessionManagerDlg("a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_showConfigurableSessionManagerDlg("a", NULL));
    EXPECT(text == root && result == 7);
    // No dialog came up for any of them.
    LISTS("", wyn_forms(user, &list));
}

void operation_cases(void) {
    OK(wyn_install_scripted_view(&user));
    works_on_files();
    works_in_memory();
    refuses_bad_arguments();
    OK(wyn_finish(user));
    OK(wyn_close(user));
    OK(wyn_install_view(NULL));
}

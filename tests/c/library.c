// The library itself: failures, texts, handles, and the texts of the dialogs.
#include <pthread.h>

#include "check.h"

static void tells_its_version(void) {
    char text[32];
    const int version = wyn_version();
    EXPECT(version > 0);
    snprintf(text, sizeof text, "%d.%d.%d", version / 10000, version / 100 % 100, version % 100);
    EXPECT(strcmp(text, wyn_version_text()) == 0);
}

static void tells_the_last_failure(void) {
    wyn_error error = WYN_STRUCT(wyn_error);
    char* upper = NULL;
    FAILS(41, wyn_fail(41, "the printer is on fire"));
    OK(wyn_upper_name("a", &upper));
    wyn_free(upper);
    OK(wyn_last_error(&error));
    EXPECT(error.number == 41);
    EXPECT(strcmp(error.description, "the printer is on fire") == 0);
    EXPECT(strcmp(error.function, "wyn_fail") == 0);
    FAILS(WYN_ERROR_CALL, wyn_fail(0, "a failure without a number"));
    FAILS(3, wyn_fail(3, NULL));
    OK(wyn_last_error(&error));
    EXPECT(error.description[0] != '\0');
    FAILS(WYN_ERROR_TEXT, wyn_fail(3, "\xFF"));
    error.size = sizeof error - 1;
    FAILS(WYN_ERROR_STRUCT, wyn_last_error(&error));
    FAILS(WYN_ERROR_STRUCT, wyn_last_error(NULL));
}

static void knows_its_handles(void) {
    wyn_store* store = NULL;
    wyn_record* record = NULL;
    wyn_list* list = NULL;
    int here = 0;
    size_t length = 7;
    OK(wyn_close(NULL));
    OK(wyn_store_open(root, &store));
    FAILS(WYN_ERROR_HANDLE, wyn_list_count((wyn_list*)store, &length));
    EXPECT(length == 7);
    OK(wyn_close(store));
    FAILS(WYN_ERROR_HANDLE, wyn_close(store));
    FAILS(WYN_ERROR_HANDLE, wyn_store_is_made(store, &here));
    FAILS(WYN_ERROR_HANDLE, wyn_close(&here));
    FAILS(WYN_ERROR_HANDLE, wyn_record_rows(NULL, &list));
    OK(wyn_record_new(WYN_SESSION, "a", &record));
    OK(wyn_close(record));
    FAILS(WYN_ERROR_HANDLE, wyn_record_rows(record, &list));
    EXPECT(list == NULL);
}

static void* use_elsewhere(void* store) {
    int32_t is_made = 7;
    FAILS(WYN_ERROR_HANDLE, wyn_store_is_made(store, &is_made));
    FAILS(WYN_ERROR_HANDLE, wyn_close(store));
    EXPECT(is_made == 7);
    wyn_store* left_open = NULL;
    OK(wyn_store_open(root, &left_open));
    OK(wyn_store_is_made(left_open, &is_made));
    EXPECT(is_made == 1);
    return left_open;
}

static void a_handle_belongs_to_its_thread(void) {
    pthread_t thread;
    wyn_store* store = NULL;
    void* theirs = NULL;
    int32_t is_made = 0;
    OK(wyn_store_open(root, &store));
    EXPECT(pthread_create(&thread, NULL, use_elsewhere, store) == 0);
    EXPECT(pthread_join(thread, &theirs) == 0);
    FAILS(WYN_ERROR_HANDLE, wyn_store_is_made(theirs, &is_made));
    OK(wyn_store_is_made(store, &is_made));
    EXPECT(is_made == 1);
    OK(wyn_close(store));
}

static void gives_lists(void) {
    const char* const rows[] = {"b", "1", "a", "", NULL};
    wyn_record* record = NULL;
    wyn_list* list = NULL;
    size_t count = 0;
    OK(wyn_record_new(WYN_SESSION, "x", &record));
    for (int i = 0; rows[i]; i += 2) OK(wyn_record_set(record, rows[i], rows[i + 1]));
    OK(wyn_record_rows(record, &list));
    OK(wyn_close(record));
    OK(wyn_list_count(list, &count));
    EXPECT(count == 2);
    GIVES("b", wyn_list_key(list, 0, &text));
    GIVES("1", wyn_list_text(list, 0, &text));
    GIVES("a", wyn_list_key(list, 1, &text));
    GIVES("", wyn_list_text(list, 1, &text));
    GIVES_NOTHING(WYN_ERROR_RANGE, wyn_list_text(list, 2, &text));
    GIVES_NOTHING(WYN_ERROR_RANGE, wyn_list_key(list, SIZE_MAX, &text));
    FAILS(WYN_ERROR_CALL, wyn_list_count(list, NULL));
    FAILS(WYN_ERROR_CALL, wyn_list_text(list, 0, NULL));
    FAILS(WYN_ERROR_CALL, wyn_list_key(list, 0, NULL));
    OK(wyn_close(list));
    FAILS(WYN_ERROR_HANDLE, wyn_list_count(list, &count));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_list_text(list, 0, &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_list_key(list, 0, &text));
    wyn_free(NULL);
}

static void upper_cases_names(void) {
    GIVES("\xC3\x84 B\xC3\x9F", wyn_upper_name("\xC3\xA4 b\xC3\x9F", &text));
    GIVES("", wyn_upper_name(NULL, &text));
    GIVES_NOTHING(WYN_ERROR_TEXT, wyn_upper_name("\xC3", &text));
    FAILS(WYN_ERROR_CALL, wyn_upper_name("a", NULL));
}

static void knows_the_languages(void) {
    wyn_list* languages = NULL;
    int32_t right_to_left = 7;
    char* folder = NULL;
    OK(wyn_bundle_folder(&folder));
    EXPECT(folder && folder[0] != '\0');
    wyn_free(folder);
    FAILS(WYN_ERROR_CALL, wyn_bundle_folder(NULL));
    OK(wyn_bundle_languages(bundle_folder, &languages));
    GIVES("ar", wyn_list_key(languages, 0, &text));
    GIVES("de", wyn_list_key(languages, 1, &text));
    GIVES("Deutsch", wyn_list_text(languages, 1, &text));
    OK(wyn_close(languages));
    LISTS("", wyn_bundle_languages("/nowhere", &list));
    FAILS(WYN_ERROR_CALL, wyn_bundle_languages(bundle_folder, NULL));
    FAILS(WYN_ERROR_TEXT, wyn_bundle_languages("\xFF", &languages));
    OK(wyn_bundle_right_to_left(bundle_folder, "ar", &right_to_left));
    EXPECT(right_to_left == 1);
    OK(wyn_bundle_right_to_left(bundle_folder, "de-AT", &right_to_left));
    EXPECT(right_to_left == 0);
    FAILS(WYN_ERROR_CALL, wyn_bundle_right_to_left(bundle_folder, "de", NULL));
    EXPECT(wyn_bundle_right_to_left("/nowhere", "de", &right_to_left) != WYN_OK);
    EXPECT(wyn_use_bundle("/nowhere", "de") != WYN_OK);
    FAILS(WYN_ERROR_TEXT, wyn_use_bundle(bundle_folder, "\xFF"));
}

// A resource manager that counts what it is asked for, and can fail.
struct resources {
    int strings;
    int fonts;
    int released;
    int32_t fails;
    int32_t tells;
    int founds;
    int32_t finding_fails;
};

static int32_t get_string(void* context, const char* key, wyn_answer* answer) {
    struct resources* const resources = context;
    ++resources->strings;
    if (resources->tells) return wyn_fail(resources->fails, "no such text here");
    if (resources->fails) return resources->fails;
    OK(wyn_give(answer, "first"));
    FAILS(WYN_ERROR_TEXT, wyn_give(answer, "\xFF"));
    FAILS(WYN_ERROR_HANDLE, wyn_close(answer));
    return strstr(key, "TITLE") ? wyn_give(answer, "Title") : wyn_give(answer, "Text");
}

static int32_t get_font(void* context, int64_t handle, wyn_font* font) {
    struct resources* const resources = context;
    ++resources->fonts;
    EXPECT(handle == 0);
    EXPECT(font->size == sizeof(wyn_font));
    font->family = "Serif";
    font->point_size = 11.5;
    font->bold = 1;
    return WYN_OK;
}

static void release(void* context) {
    ++((struct resources*)context)->released;
}

// Keeps the last failure that it was told.
static int32_t seen_number;
static char seen_description[64];

static void failed(void* context, const wyn_failure* failure) {
    EXPECT(context == &seen_number);
    EXPECT(failure->size == sizeof(wyn_failure));
    EXPECT(strcmp(failure->operation, "showAddMORAMConfigDlg") == 0);
    EXPECT(failure->tag[0] != '\0');
    seen_number = failure->number;
    snprintf(seen_description, sizeof seen_description, "%s", failure->description);
}

// Has a dialog ask for its texts.
static void ask_for_texts(void) {
    char* name = NULL;
    int32_t result = 7;
    OK(wyn_showAddMORAMConfigDlg("x", &name, &result));
    EXPECT(result == 1);
    wyn_free(name);
}

static int32_t look_at_texts(void* context, wyn_form* form) {
    EXPECT(context == NULL);
    GIVES("Text", wyn_caption(find(form, "btnOK"), &text));
    return wyn_click(find(form, "btnCancel"));
}

static void takes_a_resource_manager(void) {
    struct resources first = {0, 0, 0, 0, 0, 0, 0};
    struct resources second = {0, 0, 0, 76, 0, 0, 0};
    wyn_resource_manager manager = WYN_STRUCT(wyn_resource_manager);
    wyn_observer observer = WYN_STRUCT(wyn_observer);
    wyn_user* user = NULL;
    FAILS(WYN_ERROR_CALL, wyn_InitResourceManager(&manager));
    manager.context = &first;
    manager.get_string = get_string;
    manager.get_font = get_font;
    manager.release = release;
    manager.size = 8;
    FAILS(WYN_ERROR_STRUCT, wyn_InitResourceManager(&manager));
    manager.size = sizeof manager;
    OK(wyn_install_scripted_view(&user));
    OK(wyn_InitResourceManager(&manager));
    EXPECT(first.strings == 0 && first.released == 0);
    OK(wyn_on_form(user, "frmAddMORAMConfig", look_at_texts, NULL));
    ask_for_texts();
    OK(wyn_finish(user));
    EXPECT(first.strings > 5 && first.fonts > 0 && first.released == 0);

    observer.context = &seen_number;
    observer.failed = failed;
    OK(wyn_install_observer(&observer));
    manager.context = &second;
    manager.get_font = NULL;
    OK(wyn_InitResourceManager(&manager));
    EXPECT(first.released == 1);
    ask_for_texts();
    EXPECT(second.strings > 0);
    EXPECT(seen_number == 76);
    EXPECT(strstr(seen_description, "get_string") != NULL);
    second.tells = 1;
    ask_for_texts();
    EXPECT(seen_number == 76);
    EXPECT(strcmp(seen_description, "no such text here") == 0);
    OK(wyn_install_observer(NULL));
    OK(wyn_InitResourceManager(NULL));
    EXPECT(second.released == 1);
    OK(wyn_use_bundle(bundle_folder, "en"));
    OK(wyn_install_view(NULL));
    OK(wyn_close(user));
}

static int32_t find_string(void* context, const char* key, wyn_answer* answer) {
    struct resources* const resources = context;
    ++resources->founds;
    if (resources->finding_fails) return resources->finding_fails;
    return wyn_give(answer, key);
}

// The wanted help.
static int32_t ask_for_help(void* help, wyn_form* form) {
    GIVES(help, wyn_help(find(form, "txtName"), &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_help(NULL, &text));
    FAILS(WYN_ERROR_CALL, wyn_help(find(form, "txtName"), NULL));
    return wyn_click(find(form, "btnCancel"));
}

static void takes_help(void) {
    struct resources context = {0, 0, 0, 0, 0, 0, 0};
    wyn_resource_manager manager = WYN_STRUCT(wyn_resource_manager);
    wyn_user* user = NULL;
    manager.context = &context;
    manager.get_string = get_string;
    manager.find_string = find_string;
    OK(wyn_install_scripted_view(&user));
    OK(wyn_InitResourceManager(&manager));
    OK(wyn_on_form(user, "frmAddMORAMConfig", ask_for_help, "HELP_SESSION_NAME"));
    ask_for_texts();
    EXPECT(context.founds > 0);
    context.finding_fails = 76;
    OK(wyn_on_form(user, "frmAddMORAMConfig", ask_for_help, ""));
    ask_for_texts();
    context.finding_fails = 0;
    context.founds = 0;
    // Hosts that know less of the struct give none.
    manager.size = offsetof(wyn_resource_manager, find_string);
    OK(wyn_InitResourceManager(&manager));
    OK(wyn_on_form(user, "frmAddMORAMConfig", ask_for_help, ""));
    ask_for_texts();
    EXPECT(context.founds == 0);
    manager.size = sizeof manager;
    manager.find_string = NULL;
    OK(wyn_InitResourceManager(&manager));
    OK(wyn_on_form(user, "frmAddMORAMConfig", ask_for_help, ""));
    ask_for_texts();
    OK(wyn_finish(user));
    OK(wyn_use_bundle(bundle_folder, "en"));
    OK(wyn_install_view(NULL));
    OK(wyn_close(user));
}

static int32_t leave(void* context, wyn_form* form) {
    EXPECT(context == NULL);
    OK(wyn_leave());
    GIVES("frmAddMORAMConfig", wyn_form_name(form, &text));
    return wyn_click(find(form, "btnCancel"));
}

static void lets_go_of_all(void) {
    struct resources context = {0, 0, 0, 0, 0, 0, 0};
    wyn_resource_manager manager = WYN_STRUCT(wyn_resource_manager);
    wyn_user* user = NULL;
    wyn_store* store = NULL;
    int32_t is_made = 7;
    manager.context = &context;
    manager.get_string = get_string;
    manager.release = release;
    OK(wyn_InitResourceManager(&manager));
    OK(wyn_install_scripted_view(&user));
    OK(wyn_store_open(root, &store));
    OK(wyn_on_form(user, "frmAddMORAMConfig", leave, NULL));
    ask_for_texts();
    EXPECT(context.released == 1);
    FAILS(WYN_ERROR_HANDLE, wyn_finish(user));
    FAILS(WYN_ERROR_HANDLE, wyn_store_is_made(store, &is_made));
    ask_for_texts();
    OK(wyn_leave());
    OK(wyn_use_bundle(bundle_folder, "en"));
    OK(wyn_store_open(root, &store));
    OK(wyn_store_is_made(store, &is_made));
    EXPECT(is_made == 1);
    OK(wyn_close(store));
}

void library_cases(void) {
    tells_its_version();
    tells_the_last_failure();
    knows_its_handles();
    a_handle_belongs_to_its_thread();
    gives_lists();
    upper_cases_names();
    knows_the_languages();
    takes_a_resource_manager();
    takes_help();
    lets_go_of_all();
}

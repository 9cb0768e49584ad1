// Records, and what is in a store.
#include <sys/stat.h>
#include <unistd.h>

#include "check.h"

static void keeps_records(void) {
    wyn_record* record = NULL;
    wyn_record* copy = NULL;
    char* xml = NULL;
    OK(wyn_record_new(WYN_PART_FORMAT, "f\xC3\xBC", &record));
    GIVES("PARTFORMAT", wyn_record_type(record, &text));
    GIVES("f\xC3\xBC", wyn_record_name(record, &text));
    OK(wyn_record_set(record, "Header", " a\tb\n "));
    OK(wyn_record_set(record, "Trailer", "x"));
    OK(wyn_record_set(record, "Header", " c "));
    GIVES(" c ", wyn_record_get(record, "Header", &text));
    GIVES_NOTHING(WYN_ERROR_NO_SUCH_KEY, wyn_record_get(record, "header", &text));
    LISTS(" c |x", wyn_record_rows(record, &list));
    OK(wyn_record_remove(record, "Trailer"));
    FAILS(WYN_ERROR_NO_SUCH_KEY, wyn_record_remove(record, "Trailer"));
    LISTS(" c ", wyn_record_rows(record, &list));
    OK(wyn_record_xml(record, &xml));
    OK(wyn_record_parse(xml, &copy));
    wyn_free(xml);
    GIVES(" c ", wyn_record_get(copy, "Header", &text));
    OK(wyn_close(copy));
    OK(wyn_record_save(record, below("new.vla")));
    OK(wyn_record_load(below("new.vla"), &copy));
    GIVES("f\xC3\xBC", wyn_record_name(copy, &text));
    OK(wyn_close(copy));
    OK(wyn_close(record));
    OK(wyn_record_new(WYN_SESSION, NULL, &record));
    GIVES("MORAM", wyn_record_type(record, &text));
    GIVES("", wyn_record_name(record, &text));
    OK(wyn_close(record));
}

static void tells_what_is_no_record(void) {
    wyn_record* record = NULL;
    FILE* const file = fopen(below("torn.vla"), "w");
    EXPECT(file && fputs("<dataset", file) >= 0 && fclose(file) == 0);
    FAILS(WYN_ERROR_CALL, wyn_record_new(2, "x", &record));
    FAILS(WYN_ERROR_CALL, wyn_record_new(-1, "x", &record));
    FAILS(WYN_ERROR_CALL, wyn_record_new(WYN_SESSION, "x", NULL));
    FAILS(WYN_ERROR_TEXT, wyn_record_new(WYN_SESSION, "\xE4", &record));
    FAILS(WYN_ERROR_FILE_NOT_FOUND, wyn_record_load(below("none.vla"), &record));
    FAILS(WYN_ERROR_FILE_NOT_FOUND, wyn_record_load(NULL, &record));
    FAILS(WYN_ERROR_RECORD, wyn_record_load(below("torn.vla"), &record));
    FAILS(WYN_ERROR_CALL, wyn_record_load(below("torn.vla"), NULL));
    FAILS(WYN_ERROR_RECORD, wyn_record_parse("<dataset", &record));
    FAILS(WYN_ERROR_RECORD, wyn_record_parse("<other/>", &record));
    FAILS(WYN_ERROR_RECORD, wyn_record_parse(NULL, &record));
    FAILS(WYN_ERROR_CALL, wyn_record_parse("<a/>", NULL));
    FAILS(WYN_ERROR_TEXT, wyn_record_parse("\xE4", &record));
    EXPECT(record == NULL);
    EXPECT(unlink(below("torn.vla")) == 0);

    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_record_type(record, &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_record_name(record, &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_record_get(record, "a", &text));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_record_xml(record, &text));
    FAILS(WYN_ERROR_HANDLE, wyn_record_set(record, "a", "b"));
    FAILS(WYN_ERROR_HANDLE, wyn_record_remove(record, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_record_save(record, below("x.vla")));

    OK(wyn_record_new(WYN_SESSION, "x", &record));
    FAILS(WYN_ERROR_TEXT, wyn_record_set(record, "a", "\xE4"));
    FAILS(WYN_ERROR_TEXT, wyn_record_set(record, "\xE4", "a"));
    LISTS("", wyn_record_rows(record, &list));
    FAILS(WYN_ERROR_CALL, wyn_record_type(record, NULL));
    FAILS(WYN_ERROR_CALL, wyn_record_name(record, NULL));
    FAILS(WYN_ERROR_CALL, wyn_record_rows(record, NULL));
    FAILS(WYN_ERROR_CALL, wyn_record_get(record, "a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_record_xml(record, NULL));
    FAILS(WYN_ERROR_FILE_ACCESS, wyn_record_save(record, below("no/such/folder/x.vla")));
    EXPECT(mkdir(below("taken.vla"), 0700) == 0);
    FAILS(WYN_ERROR_FILE_ACCESS, wyn_record_save(record, below("taken.vla")));
    EXPECT(rmdir(below("taken.vla")) == 0);
    OK(wyn_close(record));
}

static void tells_of_a_store(void) {
    const char* const astray[] = {"FormatCount",          "1",    "FORMAT1", "GONE",
                                  "DisableProgramLaunch", "true", NULL};
    wyn_store* store = NULL;
    wyn_record* record = NULL;
    wyn_list* faults_found = NULL;
    int32_t answer = 7;
    char path[128];
    OK(wyn_store_open(root, &store));
    OK(wyn_store_is_made(store, &answer));
    EXPECT(answer == 1);
    LISTS("", wyn_store_names(store, WYN_SESSION, &list));
    save_session("COUNTER");
    LISTS("COUNTER", wyn_store_names(store, WYN_SESSION, &list));
    LISTS("PLAIN", wyn_store_names(store, WYN_PART_FORMAT, &list));
    LISTS("", wyn_store_check(store, &list));
    LISTS("COUNTER", wyn_store_sessions_with(store, "plain", &list));
    LISTS("", wyn_store_sessions_with(store, "other", &list));
    OK(wyn_store_has(store, WYN_SESSION, "counter", &answer));
    EXPECT(answer == 1);
    OK(wyn_store_has(store, WYN_PART_FORMAT, "counter", &answer));
    EXPECT(answer == 0);
    snprintf(path, sizeof path, "%sMORAM/COUNTER.vla", root);
    GIVES(path, wyn_store_path(store, WYN_SESSION, "counter", &text));
    EXPECT(access(path, R_OK) == 0);
    OK(wyn_store_read(store, WYN_SESSION, "counter", &record));
    GIVES("/bin/sh", wyn_record_get(record, "ProgramPath", &text));
    OK(wyn_close(record));
    save_item(WYN_SESSION, "ASTRAY", astray);
    OK(wyn_store_check(store, &faults_found));
    GIVES("session ASTRAY", wyn_list_key(faults_found, 0, &text));
    GIVES("Its part format \"GONE\" is not there.", wyn_list_text(faults_found, 0, &text));
    OK(wyn_close(faults_found));

    OK(wyn_store_move_to_deleted(store, WYN_SESSION, "Astray"));
    LISTS("COUNTER", wyn_store_names(store, WYN_SESSION, &list));
    LISTS("ASTRAY", wyn_store_deleted_names(store, WYN_SESSION, &list));
    FAILS(WYN_ERROR_FILE_NOT_FOUND, wyn_store_move_to_deleted(store, WYN_SESSION, "ASTRAY"));
    OK(wyn_store_restore(store, WYN_SESSION, "astray"));
    FAILS(WYN_ERROR_DUPLICATE_KEY, wyn_store_restore(store, WYN_SESSION, "astray"));
    FAILS(WYN_ERROR_FILE_NOT_FOUND, wyn_store_restore(store, WYN_SESSION, "never"));
    LISTS("", wyn_store_deleted_names(store, WYN_SESSION, &list));
    OK(wyn_close(store));
}

static void changes_a_store(void) {
    wyn_store* store = NULL;
    wyn_record* records[] = {NULL, NULL};
    wyn_list* sessions = NULL;
    int32_t is_one = 7;
    OK(wyn_is_item_name("a b", &is_one));
    EXPECT(is_one == 1);
    OK(wyn_is_item_name("a.b", &is_one));
    EXPECT(is_one == 0);
    OK(wyn_is_item_name(NULL, &is_one));
    EXPECT(is_one == 0);
    FAILS(WYN_ERROR_TEXT, wyn_is_item_name("\xE4", &is_one));
    FAILS(WYN_ERROR_CALL, wyn_is_item_name("a", NULL));

    OK(wyn_store_open(root, &store));
    OK(wyn_record_new(WYN_SESSION, "both", &records[0]));
    OK(wyn_record_new(WYN_PART_FORMAT, "both", &records[1]));
    OK(wyn_store_save(store, NULL, 0));
    OK(wyn_store_save(store, records, 2));
    LISTS("BOTH|PLAIN", wyn_store_names(store, WYN_PART_FORMAT, &list));
    OK(wyn_store_move_to_deleted(store, WYN_PART_FORMAT, "both"));
    OK(wyn_store_move_to_deleted(store, WYN_SESSION, "both"));
    FAILS(WYN_ERROR_CALL, wyn_store_save(store, NULL, 1));
    OK(wyn_close(records[1]));
    FAILS(WYN_ERROR_HANDLE, wyn_store_save(store, records, 2));
    OK(wyn_record_new(WYN_SESSION, "a.b", &records[1]));
    FAILS(WYN_ERROR_CALL, wyn_store_save(store, records, 2));
    OK(wyn_close(records[1]));
    OK(
        wyn_record_parse("<dataset version=\"1\" type=\"OTHER\" name=\"X\" key=\"Element\">"
                         "<column name=\"Element\"/><column name=\"Data\"/></dataset>",
                         &records[1]));
    FAILS(WYN_ERROR_CALL, wyn_store_save(store, records, 2));
    OK(wyn_close(records[1]));
    OK(wyn_close(records[0]));
    OK(wyn_store_has(store, WYN_SESSION, "both", &is_one));
    EXPECT(is_one == 0);

    LISTS("COUNTER", wyn_store_rename(store, "plain", "fancy", &list));
    LISTS("FANCY", wyn_store_names(store, WYN_PART_FORMAT, &list));
    LISTS("COUNTER", wyn_store_sessions_with(store, "FANCY", &list));
    FAILS(WYN_ERROR_FILE_NOT_FOUND, wyn_store_rename(store, "plain", "other", &sessions));
    FAILS(WYN_ERROR_DUPLICATE_KEY, wyn_store_rename(store, "fancy", "Fancy", &sessions));
    FAILS(WYN_ERROR_CALL, wyn_store_rename(store, "fancy", "a.b", &sessions));
    FAILS(WYN_ERROR_TEXT, wyn_store_rename(store, "fancy", "\xE4", &sessions));
    FAILS(WYN_ERROR_CALL, wyn_store_rename(store, "fancy", "x", NULL));
    OK(wyn_close(store));
    FAILS(WYN_ERROR_HANDLE, wyn_store_rename(store, "fancy", "x", &sessions));
    FAILS(WYN_ERROR_HANDLE, wyn_store_save(store, NULL, 0));
    EXPECT(sessions == NULL);
}

static void tells_what_is_no_store(void) {
    wyn_store* store = NULL;
    wyn_record* record = NULL;
    wyn_list* names = NULL;
    int32_t answer = 7;
    FAILS(WYN_ERROR_CALL, wyn_store_open(root, NULL));
    FAILS(WYN_ERROR_TEXT, wyn_store_open("\xE4", &store));
    FAILS(WYN_ERROR_HANDLE, wyn_store_is_made(store, &answer));
    FAILS(WYN_ERROR_HANDLE, wyn_store_names(store, WYN_SESSION, &names));
    FAILS(WYN_ERROR_HANDLE, wyn_store_has(store, WYN_SESSION, "a", &answer));
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_store_path(store, WYN_SESSION, "a", &text));
    FAILS(WYN_ERROR_HANDLE, wyn_store_read(store, WYN_SESSION, "a", &record));
    FAILS(WYN_ERROR_HANDLE, wyn_store_sessions_with(store, "a", &names));
    FAILS(WYN_ERROR_HANDLE, wyn_store_check(store, &names));
    FAILS(WYN_ERROR_HANDLE, wyn_store_deleted_names(store, WYN_SESSION, &names));
    FAILS(WYN_ERROR_HANDLE, wyn_store_move_to_deleted(store, WYN_SESSION, "a"));
    FAILS(WYN_ERROR_HANDLE, wyn_store_restore(store, WYN_SESSION, "a"));
    EXPECT(answer == 7);

    OK(wyn_store_open("/nowhere/", &store));
    OK(wyn_store_is_made(store, &answer));
    EXPECT(answer == 0);
    LISTS("", wyn_store_names(store, WYN_SESSION, &list));
    FAILS(WYN_ERROR_FILE_NOT_FOUND, wyn_store_read(store, WYN_SESSION, "a", &record));
    FAILS(WYN_ERROR_CALL, wyn_store_names(store, 2, &names));
    FAILS(WYN_ERROR_CALL, wyn_store_has(store, 2, "a", &answer));
    GIVES_NOTHING(WYN_ERROR_CALL, wyn_store_path(store, 2, "a", &text));
    FAILS(WYN_ERROR_CALL, wyn_store_read(store, 2, "a", &record));
    FAILS(WYN_ERROR_CALL, wyn_store_deleted_names(store, 2, &names));
    FAILS(WYN_ERROR_CALL, wyn_store_move_to_deleted(store, 2, "a"));
    FAILS(WYN_ERROR_CALL, wyn_store_restore(store, 2, "a"));
    FAILS(WYN_ERROR_CALL, wyn_store_is_made(store, NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_names(store, WYN_SESSION, NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_has(store, WYN_SESSION, "a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_path(store, WYN_SESSION, "a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_read(store, WYN_SESSION, "a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_sessions_with(store, "a", NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_check(store, NULL));
    FAILS(WYN_ERROR_CALL, wyn_store_deleted_names(store, WYN_SESSION, NULL));
    EXPECT(names == NULL && record == NULL);
    OK(wyn_close(store));
}

void store_cases(void) {
    keeps_records();
    tells_what_is_no_record();
    tells_of_a_store();
    changes_a_store();
    tells_what_is_no_store();
}

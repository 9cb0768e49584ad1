// The conformance of the C interface: each function, and each of its failures, from C11.
#include <sys/stat.h>
#include <unistd.h>

#include "check.h"

int faults = 0;
char root[64] = "";
const char* bundle_folder = NULL;

void expect_list(const char* wanted, wyn_list* list, const char* file, int line, const char* what) {
    char* joined = NULL;
    size_t length = 0;
    FILE* const out = open_memstream(&joined, &length);
    size_t count = 0;
    OK(wyn_list_count(list, &count));
    for (size_t i = 0; i < count; ++i) {
        char* text = NULL;
        OK(wyn_list_text(list, i, &text));
        fprintf(out, "%s%s", i == 0 ? "" : "|", text);
        wyn_free(text);
    }
    OK(wyn_close(list));
    fclose(out);
    if (strcmp(wanted, joined) != 0) {
        ++faults;
        fprintf(stderr, "%s:%d: %s gave \"%s\" and not \"%s\"\n", file, line, what, joined, wanted);
    }
    free(joined);
}

const char* below(const char* name) {
    static char paths[2][256];
    static int turn = 0;
    turn = 1 - turn;
    snprintf(paths[turn], sizeof paths[turn], "%s%s", root, name);
    return paths[turn];
}

void save_item(int32_t kind, const char* name, const char* const* rows) {
    wyn_record* record = NULL;
    wyn_store* store = NULL;
    char* path = NULL;
    OK(wyn_record_new(kind, name, &record));
    for (; *rows; rows += 2) OK(wyn_record_set(record, rows[0], rows[1]));
    OK(wyn_store_open(root, &store));
    OK(wyn_store_path(store, kind, name, &path));
    OK(wyn_record_save(record, path));
    wyn_free(path);
    OK(wyn_close(store));
    OK(wyn_close(record));
}

void save_session(const char* name) {
    const char* const format[] = {"MaxRecords", "12", NULL};
    const char* const session[] = {
        "ProgramPath", "/bin/sh",     "ReverseList", "true",    "AutoResize", "true", "Orientation",
        "top",         "FormatCount", "1",           "FORMAT1", "PLAIN",      NULL};
    save_item(WYN_PART_FORMAT, "PLAIN", format);
    save_item(WYN_SESSION, name, session);
}

// Runs cases on a store of their own.
static void run(void (*cases)(void)) {
    char command[128];
    strcpy(root, "/tmp/wyn-c-XXXXXX");
    if (!mkdtemp(root)) exit(2);
    strcat(root, "/");
    OK(wyn_install_view(NULL));
    OK(wyn_install_observer(NULL));
    OK(wyn_use_bundle(bundle_folder, "en"));
    OK(wyn_init(root));
    cases();
    snprintf(command, sizeof command, "rm -r '%s'", root);
    EXPECT(system(command) == 0);
}

int main(int count, char* arguments[]) {
    bundle_folder = count == 2 ? arguments[1] : NULL;
#ifdef WITH_QT
    run(qt_cases);
#else
    run(library_cases);
    run(store_cases);
    run(operation_cases);
    run(view_cases);
    run(form_cases);
    run(kit_cases);
#endif
    printf("%d expectation(s) not met\n", faults);
    return faults == 0 ? 0 : 1;
}

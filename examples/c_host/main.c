// A host in C: c_host FOLDER adds a session to the store in a folder, in real windows. With the
// number of a window behind the folder the dialogs belong to that window.
#include <wynconfig/c_qt.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

// Tells why a call failed.
static int failed(void) {
    wyn_error error = WYN_STRUCT(wyn_error);
    wyn_last_error(&error);
    fprintf(stderr, "%s: %s\n", error.function, error.description);
    return 2;
}

int main(int count, char* arguments[]) {
    char root[4096];
    char* name = NULL;
    int32_t result = 1;
    if (count < 2 || count > 3 || strlen(arguments[1]) > sizeof root - 2) {
        fprintf(stderr, "usage: c_host FOLDER [WINDOW]\n");
        return 2;
    }
    snprintf(root, sizeof root, "%s/", arguments[1]);  // the root, with its separator
    if (wyn_install_qt_view() || wyn_use_bundle(NULL, NULL)) return failed();
    if (count == 3 && wyn_qt_set_owner(strtoul(arguments[2], NULL, 0))) return failed();
    if (wyn_init(root) || wyn_showAddMORAMConfigDlg("", &name, &result)) return failed();
    if (result == 0)
        printf("added %s\n", name);
    else
        printf("nothing was added\n");
    wyn_free(name);
    return result;
}

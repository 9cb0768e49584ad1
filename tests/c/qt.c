// The desktop view for hosts in C.
#include "wynconfig/c_qt.h"

#include <sys/stat.h>

#include "check.h"

static int32_t take_picture(void* context, wyn_form* form) {
    EXPECT(context == NULL);
    GIVES("Add a session", wyn_form_title(form, &text));
    OK(wyn_type(find(form, "txtName"), "counter"));
    GIVES("counter", wyn_text(find(form, "txtName"), &text));
    OK(wyn_qt_save_picture(below("picture.png")));
    FAILS(WYN_ERROR_USER, wyn_qt_save_picture(below("no/folder/picture.png")));
    FAILS(WYN_ERROR_TEXT, wyn_qt_save_picture("\xE4"));
    FAILS(WYN_ERROR_USER, wyn_click(find(form, "cboConfigs")));
    return wyn_press(form, WYN_KEY_ESCAPE);
}

static void shows_windows(void) {
    wyn_user* user = NULL;
    char* name = NULL;
    int32_t result = 7;
    struct stat picture;
    OK(wyn_install_qt_view());
    OK(wyn_qt_set_owner(0));
    FAILS(WYN_ERROR_CALL, wyn_qt_user(NULL));
    OK(wyn_qt_user(&user));
    FAILS(WYN_ERROR_USER, wyn_qt_save_picture(below("picture.png")));
    OK(wyn_on_form(user, "frmAddMORAMConfig", take_picture, NULL));
    OK(wyn_showAddMORAMConfigDlg("", &name, &result));
    EXPECT(result == 1);
    wyn_free(name);
    OK(wyn_finish(user));
    EXPECT(stat(below("picture.png"), &picture) == 0 && picture.st_size > 1000);
    OK(wyn_install_view(NULL));
    OK(wyn_close(user));
}

static void fails_before_it_is_installed(void) {
    wyn_user* user = NULL;
    FAILS(WYN_ERROR_CALL, wyn_qt_set_owner(0));
    FAILS(WYN_ERROR_CALL, wyn_qt_user(&user));
    FAILS(WYN_ERROR_CALL, wyn_qt_save_picture(below("picture.png")));
    EXPECT(user == NULL);
}

// Without a display, which the test takes away.
static void tells_that_there_is_no_display(void) {
    wyn_error error = WYN_STRUCT(wyn_error);
    FAILS(WYN_ERROR_CALL, wyn_install_qt_view());
    OK(wyn_last_error(&error));
    EXPECT(strstr(error.description, "needs a display") != NULL);
    EXPECT(strcmp(error.function, "wyn_install_qt_view") == 0);
}

void qt_cases(void) {
    fails_before_it_is_installed();
    if (getenv("QT_QPA_PLATFORM"))
        shows_windows();
    else
        tells_that_there_is_no_display();
}

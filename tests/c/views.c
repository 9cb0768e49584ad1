// Views and observers that a host brings.
#include "check.h"

// What a host's view was asked, and what it says.
struct view {
    int forms;
    int boxes;
    int browses;
    int raises;
    int contexts;
    int released;
    int begun;
    int ended;
    int32_t fails;
    int32_t (*act)(wyn_form* form);
};

static wyn_form* kept_form;
static wyn_control* kept_control;

static int32_t show_modal(void* context, wyn_form* form) {
    struct view* const view = context;
    ++view->forms;
    return view->fails ? view->fails : view->act(form);
}

static int32_t show_message(void* context, const wyn_box* box, int32_t* answer) {
    struct view* const view = context;
    ++view->boxes;
    EXPECT(box->size == sizeof(wyn_box));
    EXPECT(box->text[0] != '\0' && box->title[0] != '\0' && box->ok_caption != NULL);
    // Nobody acts on a form that has a box in front.
    if (kept_control) FAILS(WYN_ERROR_USER, wyn_click(kept_control));
    *answer = (box->style & 15) == WYN_BOX_YES_NO ? WYN_ANSWER_YES : WYN_ANSWER_OK;
    return view->fails;
}

static int32_t browse(void* context, const wyn_browse* request, wyn_answer* path) {
    struct view* const view = context;
    ++view->browses;
    EXPECT(request->size == sizeof(wyn_browse));
    EXPECT(request->files == 1);
    EXPECT(request->title[0] && request->ok_caption[0] && request->cancel_caption[0]);
    OK(wyn_give(path, "/bin/true"));
    return view->fails;
}

static int32_t raise_window(void* context, int32_t top_most) {
    struct view* const view = context;
    ++view->raises;
    EXPECT(top_most == 0 || top_most == 1);
    return WYN_OK;
}

static int32_t device_context(void* context, int64_t* handle) {
    struct view* const view = context;
    ++view->contexts;
    *handle = 96;
    return WYN_OK;
}

static void release(void* context) {
    ++((struct view*)context)->released;
}

// Quick work has no words.
static int32_t show_progress(void* context, const wyn_progress* progress) {
    struct view* const view = context;
    EXPECT(progress->size == sizeof(wyn_progress));
    EXPECT(progress->title[0] == '\0' && progress->text[0] == '\0');
    EXPECT(progress->done == 0 && progress->all == 0);
    if (progress->stage == WYN_PROGRESS_BEGINS) ++view->begun;
    if (progress->stage == WYN_PROGRESS_ENDS) ++view->ended;
    EXPECT(view->begun - view->ended == (progress->stage == WYN_PROGRESS_BEGINS ? 1 : 0));
    return view->fails;
}

static wyn_view viewOf(struct view* context) {
    wyn_view view = WYN_STRUCT(wyn_view);
    view.context = context;
    view.show_modal = show_modal;
    view.show_message = show_message;
    view.browse = browse;
    view.raise = raise_window;
    view.device_context = device_context;
    view.release = release;
    view.show_progress = show_progress;
    return view;
}

// The name that the session dialog ends on.
static void configure(int32_t wanted_result) {
    char* text = NULL;
    int32_t result = 7;
    OK(wyn_showMORAMConfigDlg("COUNTER", &text, &result));
    EXPECT(result == wanted_result);
    expect_text("COUNTER", text, __FILE__, __LINE__, "configure");
}

static int32_t browse_and_confirm(wyn_form* form) {
    int32_t is_open = 7;
    GIVES("frmMORAMConfig", wyn_form_name(form, &text));
    kept_form = form;
    kept_control = find(form, "btnOK");
    OK(wyn_click(find(form, "btnBrowseFile")));
    GIVES("/bin/true", wyn_text(find(form, "txtProgramPath"), &text));
    OK(wyn_form_is_open(form, &is_open));
    EXPECT(is_open == 1);
    OK(wyn_click(kept_control));
    OK(wyn_form_is_open(form, &is_open));
    EXPECT(is_open == 0);
    // What has closed can't be acted on, and is not opened again by looking at it.
    FAILS(WYN_ERROR_USER, wyn_click(kept_control));
    GIVES_NOTHING(WYN_ERROR_USER, wyn_caption(kept_control, &text));
    GIVES_NOTHING(WYN_ERROR_USER, wyn_form_title(form, &text));
    FAILS(WYN_ERROR_HANDLE, wyn_close(form));
    FAILS(WYN_ERROR_HANDLE, wyn_close(kept_control));
    return WYN_OK;
}

static int32_t show_a_box(wyn_form* form) {
    kept_control = find(form, "btnCancel");
    OK(wyn_type(find(form, "txtProgramPath"), "/nowhere/at/all"));
    OK(wyn_click(find(form, "btnOK")));
    return wyn_click(kept_control);
}

static int32_t leave_open(wyn_form* form) {
    kept_control = find(form, "btnOK");
    return WYN_OK;
}

// Opens a second dialog, and acts on the first one from within it.
static int32_t open_another(wyn_form* form) {
    static wyn_control* outer;
    char* name = NULL;
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_form_name((wyn_form*)kept_control, &text));
    OK(wyn_form_name(form, &name));
    if (strcmp(name, "frmMORAMConfig") == 0) {
        outer = find(form, "btnCancel");
        OK(wyn_click(find(form, "btnAdvanced")));
        OK(wyn_click(outer));
    } else {
        EXPECT(strcmp(name, "dlgAdvConfig") == 0);
        FAILS(WYN_ERROR_USER, wyn_click(outer));
        OK(wyn_close_by_frame(form));
    }
    wyn_free(name);
    return WYN_OK;
}

static void shows_forms(void) {
    struct view context = {0};
    wyn_view view = viewOf(&context);
    context.act = browse_and_confirm;
    OK(wyn_install_view(&view));
    configure(0);
    EXPECT(context.forms == 1 && context.browses == 1 && context.contexts > 0);
    EXPECT(context.begun > 0 && context.ended == context.begun);
    // They are closed with the dialog.
    GIVES_NOTHING(WYN_ERROR_HANDLE, wyn_form_name(kept_form, &text));
    FAILS(WYN_ERROR_HANDLE, wyn_click(kept_control));
    kept_control = NULL;
    context.act = show_a_box;
    configure(1);
    EXPECT(context.boxes == 1);
    context.act = leave_open;
    configure(1);
    FAILS(WYN_ERROR_HANDLE, wyn_click(kept_control));
    context.act = open_another;
    configure(1);
    kept_control = NULL;
    EXPECT(context.forms == 5 && context.released == 0);
    OK(wyn_install_view(NULL));
    EXPECT(context.released == 1);
    configure(1);
    EXPECT(context.forms == 5);
}

// A view that can do nothing but show forms answers so that nothing changes.
static void may_lack_functions(void) {
    struct view context = {0};
    wyn_view view = WYN_STRUCT(wyn_view);
    FAILS(WYN_ERROR_STRUCT, wyn_install_view(&(wyn_view){.size = 8}));
    FAILS(WYN_ERROR_CALL, wyn_install_view(&view));
    view.context = &context;
    view.show_modal = show_modal;
    OK(wyn_install_view(&view));
    context.act = show_a_box;
    configure(1);
    OK(wyn_install_view(NULL));
    EXPECT(context.released == 0);
    kept_control = NULL;
}

// A host that was built when views had no more functions than these is served as ever.
static void may_end_before_the_signs_of_work(void) {
    struct view context = {0};
    wyn_view view = viewOf(&context);
    view.size = offsetof(wyn_view, show_progress);
    context.act = leave_open;
    OK(wyn_install_view(&view));
    configure(1);
    EXPECT(context.forms == 1 && context.begun == 0);
    view.size -= 1;
    FAILS(WYN_ERROR_STRUCT, wyn_install_view(&view));
    OK(wyn_install_view(NULL));
    EXPECT(context.released == 1);
    kept_control = NULL;
}

struct observed {
    int failures;
    int answers;
    int released;
    int32_t number;
    char description[64];
    char box[512];
};

static void failed(void* context, const wyn_failure* failure) {
    struct observed* const observed = context;
    ++observed->failures;
    observed->number = failure->number;
    snprintf(observed->description, sizeof observed->description, "%s", failure->description);
}

static void answered(void* context, const wyn_box* box, int32_t answer) {
    struct observed* const observed = context;
    ++observed->answers;
    EXPECT(answer == WYN_ANSWER_OK);
    EXPECT((box->style & WYN_BOX_CRITICAL) == WYN_BOX_CRITICAL);
    snprintf(observed->box, sizeof observed->box, "%s", box->text);
}

static void release_observer(void* context) {
    ++((struct observed*)context)->released;
}

static int32_t fail_to_show(wyn_form* form) {
    EXPECT(form != NULL);
    return wyn_fail(99, "the screen is dark");
}

static void its_failures_are_told(void) {
    struct view context = {0};
    struct observed observed = {0};
    wyn_view view = viewOf(&context);
    wyn_observer observer = WYN_STRUCT(wyn_observer);
    observer.context = &observed;
    observer.failed = failed;
    observer.answered = answered;
    observer.release = release_observer;
    FAILS(WYN_ERROR_STRUCT, wyn_install_observer(&(wyn_observer){.size = 8}));
    OK(wyn_install_observer(&observer));
    OK(wyn_install_view(&view));
    context.act = fail_to_show;
    configure(1);
    EXPECT(observed.failures == 1 && observed.number == 99);
    EXPECT(strcmp(observed.description, "the screen is dark") == 0);
    EXPECT(observed.answers == 1 && strstr(observed.box, "the screen is dark") != NULL);
    context.fails = 77;
    configure(1);
    EXPECT(observed.number == 77);
    EXPECT(strcmp(observed.description, "The host's show_modal failed with 77.") == 0);
    OK(wyn_install_observer(NULL));
    EXPECT(observed.released == 1);
    configure(1);
    EXPECT(observed.number == 77 && observed.released == 1);
    OK(wyn_install_view(NULL));
}

void view_cases(void) {
    save_session("COUNTER");
    shows_forms();
    may_lack_functions();
    may_end_before_the_signs_of_work();
    its_failures_are_told();
}

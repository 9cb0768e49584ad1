/// @file
/// The component for programs in C, and for every language that can call C.
///
/// Every call gives back WYN_OK or the number of a failure, which wyn_last_error tells more of;
/// what it has to give goes through the pointers behind its other arguments, and is untouched after
/// a failure. Nothing is ever thrown.
///
/// Texts, names and paths are UTF-8 and end with a zero byte; one that comes in and is not UTF-8 is
/// a failure, WYN_ERROR_TEXT. A text that comes out belongs to the caller, who gives it back by
/// wyn_free. What is in it behind a zero byte of its own is not seen. Of a text argument NULL
/// stands for the empty text.
///
/// A handle stands for an object. It belongs to the thread that got it and to nobody else: on
/// another thread, after wyn_close, or in the place of one of another kind it is a failure,
/// WYN_ERROR_HANDLE, and nothing worse. What a thread left open is closed as it ends.
///
/// A struct begins with its own size, by which the library knows how much of it the caller knows;
/// WYN_STRUCT makes one that is empty but for it. A function pointer in a struct may be NULL where
/// that is said. Functions that a host gives must not throw.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "wynconfig/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An empty struct of a kind, such as `wyn_view view = WYN_STRUCT(wyn_view);`
#define WYN_STRUCT(kind) \
    { .size = sizeof(kind) }

// Numbers of failures. A host's own functions may give any others.
#define WYN_OK 0                     ///< no failure
#define WYN_ERROR_CALL 5             ///< an argument or a state that the call can't serve
#define WYN_ERROR_MEMORY 7           ///< no memory is left
#define WYN_ERROR_RANGE 9            ///< no such row or node
#define WYN_ERROR_FILE_NOT_FOUND 53  ///< no such file
#define WYN_ERROR_FILE_ACCESS 75     ///< a file that can't be read, written or deleted
#define WYN_ERROR_DUPLICATE_KEY 457  ///< a key or name that is there already
#define WYN_ERROR_NO_SUCH_KEY 35601  ///< a key that is not there
#define WYN_ERROR_RECORD 1001        ///< stored text that is no record
#define WYN_ERROR_HANDLE 2001        ///< no open handle of this kind on this thread
#define WYN_ERROR_USER 2002          ///< what a person could not do, or what came up unannounced
#define WYN_ERROR_TEXT 2003          ///< text that is not UTF-8
#define WYN_ERROR_STRUCT 2004        ///< a struct without its size, or NULL in its place

// -------------------------------------------------------------------------------------------------
/// @name The library, failures, texts and handles
/// @{

/// The version of the library in use as one number that grows, such as 10203 for 1.2.3.
WYNCONFIG_API int32_t wyn_version(void);
/// The same in words. The text is the library's own and stays.
WYNCONFIG_API const char* wyn_version_text(void);

/// What wyn_last_error tells. The texts stay until the next failure on this thread.
typedef struct wyn_error {
    size_t size;              ///< of the struct, as WYN_STRUCT sets it
    int32_t number;           ///< 0: no call has failed yet
    const char* description;  ///< never NULL
    const char* function;     ///< the call that failed; never NULL
} wyn_error;

/// Tells of the last call on this thread that failed. Calls that succeed leave it as it is.
WYNCONFIG_API int32_t wyn_last_error(wyn_error* error);

/// For a function of the host that fails: sets the description and gives back the number, so that
/// the function can end with `return wyn_fail(1, "why");`.
/// @param number  0 counts as WYN_ERROR_CALL
/// @param description  may be NULL or empty, which stands for words of the library
WYNCONFIG_API int32_t wyn_fail(int32_t number, const char* description);

/// Gives a text back, on whatever thread; NULL is nothing.
WYNCONFIG_API void wyn_free(char* text);

/// Lets go of all that this thread has: its view, observer and resource manager, whose `release` is
/// called, and its open handles. For a host in a language that is gone before its threads are.
WYNCONFIG_API int32_t wyn_leave(void);

/// Closes a handle of any kind that the caller opened; NULL is nothing. Those of forms and controls
/// close by themselves.
WYNCONFIG_API int32_t wyn_close(void* handle);

/// Rows of texts that a call gave: names, rows of a list, findings. It never changes.
typedef struct wyn_list wyn_list;

/// How many rows there are.
WYNCONFIG_API int32_t wyn_list_count(wyn_list* list, size_t* count);
/// The text of a row.
/// @param list   the rows
/// @param index  from 0; WYN_ERROR_RANGE for one that is not there
/// @param text   the caller's, to be given back by wyn_free
WYNCONFIG_API int32_t wyn_list_text(wyn_list* list, size_t index, char** text);
/// What names the row, where its call says that it has a key; else empty.
WYNCONFIG_API int32_t wyn_list_key(wyn_list* list, size_t index, char** key);

/// Where a function of the host puts the text that it was asked for. Closed as that returns.
typedef struct wyn_answer wyn_answer;

/// Gives the text; the last one counts. Without one it is the empty text.
WYNCONFIG_API int32_t wyn_give(wyn_answer* answer, const char* text);
/// @}

// -------------------------------------------------------------------------------------------------
/// @name Texts and font of the dialogs
/// @{

/// A font; NULL and 0 stand for the view's own.
typedef struct wyn_font {
    size_t size;         ///< of the struct, as WYN_STRUCT sets it
    const char* family;  ///< family name
    double point_size;   ///< size in points
    int32_t bold;        ///< not 0: bold
    int32_t italic;      ///< not 0: italic
} wyn_font;

/// A resource manager of the host.
typedef struct wyn_resource_manager {
    size_t size;    ///< of the struct, as WYN_STRUCT sets it
    void* context;  ///< goes to each of its functions
    /// Gives the text of a key to the answer, by wyn_give. Must be there. A number other than
    /// WYN_OK stands for a key that it does not know.
    int32_t (*get_string)(void* context, const char* key, wyn_answer* answer);
    /// Fills in the font. The library copies the family as the call returns. NULL: the view's own
    /// font.
    /// @param handle  device context of the form, as its view gives it
    int32_t (*get_font)(void* context, int64_t handle, wyn_font* font);
    /// Is called when the library has no more use for it, on the same thread. May be NULL.
    void (*release)(void* context);
    /// Gives a text without which the dialogs do to the answer, by wyn_give: help, what a view says
    /// by itself, what is told of work that takes its time. A number other than WYN_OK counts as an
    /// empty text. NULL, as for hosts whose struct ends before it: no help, and the others in
    /// English.
    /// @param key  begins with "HELP_", "VIEW_" or "PROGRESS_"; `ResourceManager::FindString` tells
    ///             more
    int32_t (*find_string)(void* context, const char* key, wyn_answer* answer);
} wyn_resource_manager;

/// Keeps the resource manager that all texts and the font come from, on this thread.
/// @param manager  is copied; NULL: takes it away
WYNCONFIG_API int32_t wyn_InitResourceManager(const wyn_resource_manager* manager);

/// Takes the texts that come with the component. Fails where the folder has no texts that serve.
/// @param folder  of the texts; NULL or empty: where they are installed
/// @param locale  such as "de" or "zh-Hans"; NULL or empty: the user's own
WYNCONFIG_API int32_t wyn_use_bundle(const char* folder, const char* locale);
/// Where the texts are installed.
WYNCONFIG_API int32_t wyn_bundle_folder(char** folder);
/// The languages in a folder of texts: their own names, and as keys their tags.
/// @param folder     as for wyn_use_bundle
/// @param languages  to be closed by wyn_close
WYNCONFIG_API int32_t wyn_bundle_languages(const char* folder, wyn_list** languages);
/// Whether the language that wyn_use_bundle takes is written from right to left.
WYNCONFIG_API int32_t wyn_bundle_right_to_left(const char* folder, const char* locale,
                                               int32_t* right_to_left);
/// @}

// -------------------------------------------------------------------------------------------------
/// @name The twelve operations
/// What each does, and what the two ways of working are, is told of `wynconfig::WYNConfig` in
/// wynconfig.h. A failure within them comes up as a box of the view, and as wyn_observer tells;
/// they themselves fail on bad arguments alone.
///
/// Where an operation has a name that goes in and another one that comes out, `name` goes in and
/// `*name_after` comes out. `*result` is 0 when the user confirmed, else 1.
/// @{

/// Sets the store and makes its folders, as `WYNConfig::init`. The operation succeeds also where
/// that failed, which a box tells: ask wyn_store_is_made.
/// @param root  the store's root with its trailing separator; it must be there
WYNCONFIG_API int32_t wyn_init(const char* root);
/// The session held in memory, as XML text.
WYNCONFIG_API int32_t wyn_GetDatasetSessionData(char** xml);
/// The part formats held in memory, as XML texts in their order. When there is none it is one empty
/// text, which wyn_showMORAMConfigDlgEX does not take back: leave empty ones out.
WYNCONFIG_API int32_t wyn_GetDatasetFormatsData(wyn_list** texts);
/// Reads a session of another store into memory.
/// @param migration_path  the other store's root with its trailing separator
/// @param name            the session's name, in any case
/// @param migrated        1 when the session and all its part formats were read, else 0
WYNCONFIG_API int32_t wyn_MigrateSession(const char* migration_path, const char* name,
                                         int32_t* migrated);
/// Lets the user edit a session of the store. After an operation that ends in EX it saves nothing;
/// wyn_showAddMORAMConfigDlg is the way back.
WYNCONFIG_API int32_t wyn_showMORAMConfigDlg(const char* name, char** name_after, int32_t* result);
/// Lets the user edit a session that the host hands in. The store must have a part format of its
/// own: without one the dialog offers none at all.
/// @param name          the session's name
/// @param session_xml   XML text of the session
/// @param formats       XML text of each part format; NULL when there are none
/// @param format_count  how many, at most 32,768
/// @param name_after    as told above
/// @param result        0 when the user confirmed; 1 also when a text is no XML
WYNCONFIG_API int32_t wyn_showMORAMConfigDlgEX(const char* name, const char* session_xml,
                                               const char* const* formats, size_t format_count,
                                               char** name_after, int32_t* result);
/// Lets the user pick, make, edit and delete sessions of the store.
WYNCONFIG_API int32_t wyn_showMORAMMaintenanceDlg(const char* name, char** name_after,
                                                  int32_t* result);
/// Lets the user make a new session and edit it.
WYNCONFIG_API int32_t wyn_showAddMORAMConfigDlg(const char* name, char** name_after,
                                                int32_t* result);
/// The same for a session that is held in memory.
WYNCONFIG_API int32_t wyn_showAddMORAMConfigDlgEX(const char* name, char** name_after,
                                                  int32_t* result);
/// Lets the user pick a session out of a list.
/// @param sessions  names joined by commas
/// @param picked    its name, empty when there is none
WYNCONFIG_API int32_t wyn_showSessionManagerDlg(const char* sessions, char** picked);
/// Lets the user edit a list of sessions, and the sessions in it.
/// @param sessions        names joined by commas
/// @param sessions_after  the list as the dialog left it
WYNCONFIG_API int32_t wyn_showConfigurableSessionManagerDlg(const char* sessions,
                                                            char** sessions_after);
/// @}

// -------------------------------------------------------------------------------------------------
/// @name What is in a store, without a dialog
/// @{

// What the items of a store are.
#define WYN_SESSION 0      ///< which program gets the parts list and how, or which file
#define WYN_PART_FORMAT 1  ///< templates that lay the list out as text

/// A name in upper case, by which items are told apart.
WYNCONFIG_API int32_t wyn_upper_name(const char* name, char** upper);

/// Whether a session or part format may be given this name, by the rule of the dialogs.
WYNCONFIG_API int32_t wyn_is_item_name(const char* name, int32_t* is_one);

/// A record: a session or a part format, in memory.
typedef struct wyn_record wyn_record;

/// Makes a record without values. It is no file until it is saved.
/// @param kind    WYN_SESSION or WYN_PART_FORMAT
/// @param name    of the item
/// @param record  to be closed by wyn_close
WYNCONFIG_API int32_t wyn_record_new(int32_t kind, const char* name, wyn_record** record);
/// Reads the file of an item. Fails with WYN_ERROR_FILE_NOT_FOUND, WYN_ERROR_FILE_ACCESS, or
/// WYN_ERROR_RECORD when the file holds no record.
WYNCONFIG_API int32_t wyn_record_load(const char* path, wyn_record** record);
/// Reads XML text, as wyn_GetDatasetSessionData gives it. Fails with WYN_ERROR_RECORD.
WYNCONFIG_API int32_t wyn_record_parse(const char* xml, wyn_record** record);
/// "MORAM" of a session, "PARTFORMAT" of a part format.
WYNCONFIG_API int32_t wyn_record_type(wyn_record* record, char** type);
/// The name in the record, which need not be that of its file.
WYNCONFIG_API int32_t wyn_record_name(wyn_record* record, char** name);
/// Its values in their order, and as keys their keys, which keys.h lists.
WYNCONFIG_API int32_t wyn_record_rows(wyn_record* record, wyn_list** rows);
/// The value of a key; WYN_ERROR_NO_SUCH_KEY for one that is not there.
WYNCONFIG_API int32_t wyn_record_get(wyn_record* record, const char* key, char** value);
/// Sets a value, which may be a new one.
WYNCONFIG_API int32_t wyn_record_set(wyn_record* record, const char* key, const char* value);
/// Removes a key and its value; WYN_ERROR_NO_SUCH_KEY for one that is not there.
WYNCONFIG_API int32_t wyn_record_remove(wyn_record* record, const char* key);
/// Writes the file of an item: at all times it is wholly the old or the new one.
WYNCONFIG_API int32_t wyn_record_save(wyn_record* record, const char* path);
/// The record as XML text, as wyn_showMORAMConfigDlgEX takes it.
WYNCONFIG_API int32_t wyn_record_xml(wyn_record* record, char** xml);

/// A store. It keeps nothing: each call looks at the disk, and fails with
/// WYN_ERROR_FILE_ACCESS when the disk fails it. Names are compared without regard to case. `kind`
/// is WYN_SESSION or WYN_PART_FORMAT.
typedef struct wyn_store wyn_store;

/// Looks at a store, whether it is there or not.
/// @param root   with its trailing separator. Nothing is made there; wyn_init does that.
/// @param store  to be closed by wyn_close
WYNCONFIG_API int32_t wyn_store_open(const char* root, wyn_store** store);
/// Whether both folders are there with their catalogues.
WYNCONFIG_API int32_t wyn_store_is_made(wyn_store* store, int32_t* is_made);
/// The names of all items of a kind, as their files are spelt, in ascending order.
WYNCONFIG_API int32_t wyn_store_names(wyn_store* store, int32_t kind, wyn_list** names);
/// Whether there is an item of a name.
WYNCONFIG_API int32_t wyn_store_has(wyn_store* store, int32_t kind, const char* name, int32_t* has);
/// Where an item lies, or would be saved: a path that other programs know as well.
WYNCONFIG_API int32_t wyn_store_path(wyn_store* store, int32_t kind, const char* name, char** path);
/// Reads an item. Fails with WYN_ERROR_FILE_NOT_FOUND, or WYN_ERROR_RECORD when it is no record.
WYNCONFIG_API int32_t wyn_store_read(wyn_store* store, int32_t kind, const char* name,
                                     wyn_record** record);
/// The sessions that have a part format.
WYNCONFIG_API int32_t wyn_store_sessions_with(wyn_store* store, const char* format,
                                              wyn_list** sessions);
/// What is not as it should be: English sentences, and as keys the items' names behind "session "
/// or "part format ".
WYNCONFIG_API int32_t wyn_store_check(wyn_store* store, wyn_list** faults);
/// Writes records in place of the items that have their names: all of them or, after a failure,
/// none. WYN_ERROR_CALL, before anything is written, for one that is neither a session nor a part
/// format, and for a name that wyn_is_item_name refuses or that two of them have.
/// @param store    where
/// @param records  NULL when there are none
/// @param count    how many
WYNCONFIG_API int32_t wyn_store_save(wyn_store* store, wyn_record* const* records, size_t count);
/// Gives a part format another name, in all sessions too; all of it comes about or nothing.
/// WYN_ERROR_DUPLICATE_KEY for a name that is taken, WYN_ERROR_CALL for one that nothing may have,
/// WYN_ERROR_RECORD when a session can't be read.
/// @param store     where
/// @param format    its name, in any case
/// @param new_name  is stored in upper case
/// @param sessions  the sessions that have it
WYNCONFIG_API int32_t wyn_store_rename(wyn_store* store, const char* format, const char* new_name,
                                       wyn_list** sessions);
/// The names of the deleted items of a kind.
WYNCONFIG_API int32_t wyn_store_deleted_names(wyn_store* store, int32_t kind, wyn_list** names);
/// Moves an item into the folder of the deleted ones. What refers to it stays as it is.
WYNCONFIG_API int32_t wyn_store_move_to_deleted(wyn_store* store, int32_t kind, const char* name);
/// Moves it back; WYN_ERROR_DUPLICATE_KEY when the store has an item of this name.
WYNCONFIG_API int32_t wyn_store_restore(wyn_store* store, int32_t kind, const char* name);
/// @}

// -------------------------------------------------------------------------------------------------
/// @name Views
/// What puts the dialogs in front of a person. Without one every question gets the answer that
/// changes nothing.
/// @{

/// A form on the screen. Open as long as the function lasts that it was handed to; only the
/// innermost one can be acted on, as it is in front of the others.
typedef struct wyn_form wyn_form;
/// A control of a form, open as long as the form.
typedef struct wyn_control wyn_control;

// Styles of a message box, added up, and its answers.
#define WYN_BOX_OK 0               ///< one button, OK
#define WYN_BOX_YES_NO 4           ///< a question: the buttons Yes and No
#define WYN_BOX_CRITICAL 16        ///< the icon of a failure
#define WYN_BOX_SYSTEM_MODAL 4096  ///< in front of all other windows
#define WYN_ANSWER_OK 1            ///< the one button of a box that asks nothing
#define WYN_ANSWER_YES 6           ///< of a question
#define WYN_ANSWER_NO 7            ///< of a question, and whatever is no Yes

/// A message box.
typedef struct wyn_box {
    size_t size;             ///< of the struct
    const char* text;        ///< what it says, shown as it stands; lines end in CR LF or LF
    const char* title;       ///< of its window; a mark of a key in it is not shown
    const char* ok_caption;  ///< empty: the view's own word
    int32_t style;           ///< buttons and icon, WYN_BOX_...
} wyn_box;

/// A path to be browsed for.
typedef struct wyn_browse {
    size_t size;                 ///< of the struct
    const char* title;           ///< of its window
    const char* ok_caption;      ///< of the button that picks; empty: the view's own word
    const char* cancel_caption;  ///< of the button that cancels; empty: the view's own word
    int32_t files;               ///< not 0: files may be picked as well as folders
} wyn_browse;

// What wyn_progress tells.
#define WYN_PROGRESS_BEGINS 0  ///< the person waits from here on; there are no words yet
#define WYN_PROGRESS_LASTS 1   ///< the wait has taken half a second, and has words
#define WYN_PROGRESS_ENDS 2    ///< every sign of it is to go

/// Work that a person waits for. All but the stage is that of WYN_PROGRESS_LASTS alone.
typedef struct wyn_progress {
    size_t size;        ///< of the struct
    int32_t stage;      ///< one of WYN_PROGRESS_...
    const char* title;  ///< of a window; a mark of a key in it is not shown
    const char* text;   ///< such as "Updating sessions: 1,204 of 10,000"
    size_t done;        ///< how many are done
    size_t all;         ///< how many there are
} wyn_progress;

/// A view of the host. Each function may be NULL but for the first one: its question then gets the
/// answer that changes nothing. A number other than WYN_OK counts as a failure of the view, told by
/// the description of wyn_fail.
typedef struct wyn_view {
    size_t size;    ///< of the struct, as WYN_STRUCT sets it
    void* context;  ///< goes to each of its functions
    /// Shows a form until it is closed. The first focus is set. May be called again, for another
    /// form, before it returned. A form that is still open as it returns is cancelled.
    int32_t (*show_modal)(void* context, wyn_form* form);
    /// Shows a message box. The answer holds the one that changes nothing when it is called.
    int32_t (*show_message)(void* context, const wyn_box* box, int32_t* answer);
    /// Gives the path that the user picked; none or an empty one: the user picked none.
    int32_t (*browse)(void* context, const wyn_browse* request, wyn_answer* path);
    /// Puts the window of the form that is in front before those of other programs, or no longer.
    int32_t (*raise)(void* context, int32_t top_most);
    /// A number by which the resource manager may tell the screen; 0 when it is called.
    int32_t (*device_context)(void* context, int64_t* handle);
    /// Is called when the library has no more use for it, on the same thread.
    void (*release)(void* context);
    /// Gives a sign of life while the library works through many items: that it begins, then ten
    /// times a second at most how far it is, and that it has ended. It paints and returns, and lets
    /// nobody act on a form meanwhile. What it fails with goes to the observer alone. A struct that
    /// ends before it serves as well.
    int32_t (*show_progress)(void* context, const wyn_progress* progress);
} wyn_view;

/// Installs the view of this thread; NULL takes away whatever view there is.
WYNCONFIG_API int32_t wyn_install_view(const wyn_view* view);

/// What an observer is told of a failure.
typedef struct wyn_failure {
    size_t size;              ///< of the struct
    const char* operation;    ///< such as "init", or empty
    const char* tag;          ///< names the procedure, as the failure box does
    int32_t number;           ///< one of the component's, or of the host's own
    const char* description;  ///< what the box tells first
} wyn_failure;

/// Sees what the component tells its user. Each function may be NULL. Texts last until it returns.
typedef struct wyn_observer {
    size_t size;    ///< of the struct, as WYN_STRUCT sets it
    void* context;  ///< goes to each of its functions
    /// Is called for every failure that is told the user, before its box comes up and whether it
    /// does or not; and for what no box tells: a store's root without its separator, and a view
    /// that fails at `show_progress`.
    void (*failed)(void* context, const wyn_failure* failure);
    /// Is called for every message box, once it has been answered by one of WYN_ANSWER_...
    void (*answered)(void* context, const wyn_box* box, int32_t answer);
    /// Is called when the library has no more use for it, on the same thread.
    void (*release)(void* context);
} wyn_observer;

/// Installs the observer of this thread; NULL takes it away.
WYNCONFIG_API int32_t wyn_install_observer(const wyn_observer* observer);
/// @}

// -------------------------------------------------------------------------------------------------
/// @name Forms and controls
/// For a view and for a test: what a person sees and does. An act that a person could not do (a
/// control that is hidden or disabled, a form that has closed) is WYN_ERROR_USER.
/// @{

/// The form's name, such as "frmMORAMConfig".
WYNCONFIG_API int32_t wyn_form_name(wyn_form* form, char** name);
/// What its title bar shows.
WYNCONFIG_API int32_t wyn_form_title(wyn_form* form, char** title);
/// Whether the form is still on the screen.
WYNCONFIG_API int32_t wyn_form_is_open(wyn_form* form, int32_t* is_open);
/// The names of the controls in the order of the Tab key. Of a view of the host alone.
WYNCONFIG_API int32_t wyn_form_controls(wyn_form* form, wyn_list** names);
/// The control of a name; WYN_ERROR_USER, with the names that there are, when there is none. Need
/// not be closed.
WYNCONFIG_API int32_t wyn_find(wyn_form* form, const char* name, wyn_control** control);

// Keys that a form answers.
#define WYN_KEY_ENTER 0   ///< the button at the focus, the act of a list, or the default button
#define WYN_KEY_ESCAPE 1  ///< the cancel button
#define WYN_KEY_DELETE 2  ///< in a list the button behind it; in a box the character at the caret
#define WYN_KEY_F2 3      ///< in a list the button behind it
#define WYN_KEY_TAB 4     ///< to the next place, around the end

/// Presses a key where the focus is.
/// @param form  the innermost one
/// @param key   WYN_KEY_...; WYN_ERROR_CALL for any other
WYNCONFIG_API int32_t wyn_press(wyn_form* form, int32_t key);
/// Presses the Alt key and this one, an upper-case character.
WYNCONFIG_API int32_t wyn_press_mnemonic(wyn_form* form, const char* key);
/// Pulls the window's frame to a size in twips (1/1440 inch).
WYNCONFIG_API int32_t wyn_resize(wyn_form* form, int32_t width, int32_t height);
/// Closes the window by its frame.
WYNCONFIG_API int32_t wyn_close_by_frame(wyn_form* form);

/// What a person sees of a control, beside its texts.
typedef struct wyn_sight {
    size_t size;           ///< of the struct, as WYN_STRUCT sets it
    int32_t value;         ///< of an option or a check box: 1 when it is on
    size_t selected;       ///< number of the selected row from 1; 0: none
    size_t caret;          ///< of a box for text, in characters
    int32_t focus;         ///< the keyboard acts here
    int32_t enabled;       ///< it can be used, where it is visible too
    int32_t visible;       ///< 0 also for what lies on a tab that is not on top
    int32_t tab_stop;      ///< the Tab key stops here
    int32_t switched_off;  ///< it has the background of a box that is switched off
} wyn_sight;

/// The control's name, such as "btnOK".
WYNCONFIG_API int32_t wyn_control_name(wyn_control* control, char** name);
/// Looks at a control, also at one that is hidden.
WYNCONFIG_API int32_t wyn_look(wyn_control* control, wyn_sight* sight);
/// What is in a box for text or a combo box.
WYNCONFIG_API int32_t wyn_text(wyn_control* control, char** text);
/// The words of a label, button, frame, option or check box, without the mark of a key.
WYNCONFIG_API int32_t wyn_caption(wyn_control* control, char** caption);
/// The key that the caption marks; empty: none.
WYNCONFIG_API int32_t wyn_mnemonic(wyn_control* control, char** key);
/// The rows of a list with their keys, the items of a combo box, or the captions of tabs with the
/// keys that these mark.
WYNCONFIG_API int32_t wyn_rows(wyn_control* control, wyn_list** rows);
/// What is told of a control to whoever asks for it; empty when nothing is.
WYNCONFIG_API int32_t wyn_help(wyn_control* control, char** help);

/// Clicks a button, check box or option by the mouse; the focus moves there first.
WYNCONFIG_API int32_t wyn_click(wyn_control* control);
/// The click's event alone, for toolkits whose clicks move no focus.
WYNCONFIG_API int32_t wyn_bare_click(wyn_control* control);
/// Puts the focus on a control, without pressing it.
WYNCONFIG_API int32_t wyn_focus(wyn_control* control);
/// Goes to a box and types this in place of its text; the caret stands behind it.
WYNCONFIG_API int32_t wyn_type(wyn_control* control, const char* text);
/// Goes to a box and puts the caret there.
/// @param control  the box
/// @param caret    in characters from 0; beyond the end it is the end
WYNCONFIG_API int32_t wyn_set_caret(wyn_control* control, size_t caret);
/// Clicks a check box or option unless it shows this value already.
WYNCONFIG_API int32_t wyn_tick(wyn_control* control, int32_t value);
/// Clicks the first row of a list with this text, also when it is selected already.
WYNCONFIG_API int32_t wyn_pick(wyn_control* control, const char* text);
/// Clicks it twice: that does the usual act of the list as well.
WYNCONFIG_API int32_t wyn_double_click(wyn_control* control, const char* text);
/// Types letters in a list or a combo box, which picks the first row that begins so.
WYNCONFIG_API int32_t wyn_type_ahead(wyn_control* control, const char* letters);
/// Chooses the first item of a combo box with this text.
WYNCONFIG_API int32_t wyn_choose(wyn_control* control, const char* text);
/// Clicks a tab, by its index from 0.
WYNCONFIG_API int32_t wyn_change_tab(wyn_control* control, int32_t index);

// For a view of the host that draws the forms that it is handed.

// Kinds of controls.
#define WYN_EDIT 0           ///< a box for text
#define WYN_LIST_VIEW 1      ///< a list of rows
#define WYN_COMBO_BOX 2      ///< a drop-down list
#define WYN_TABS 3           ///< the tabs in front of panes
#define WYN_OPTION_BUTTON 4  ///< one of several choices
#define WYN_CHECK_BOX 5      ///< on or off
#define WYN_BUTTON 6         ///< does something when it is pressed
#define WYN_LABEL 7          ///< words, or a value that can't be changed
#define WYN_FRAME 8          ///< a titled frame around others
#define WYN_CONTAINER 9      ///< the pane of a tab

/// The kind of a control. Of a view of the host alone.
WYNCONFIG_API int32_t wyn_control_kind(wyn_control* control, int32_t* kind);

// Kinds of nodes of a layout, see layout.h.
#define WYN_NODE_COLUMN 0   ///< children from top to bottom
#define WYN_NODE_ROW 1      ///< children from left to right
#define WYN_NODE_GROUP 2    ///< a frame around the children
#define WYN_NODE_TABS 3     ///< tabs; the children are their panes in order
#define WYN_NODE_PANE 4     ///< a container around the children
#define WYN_NODE_FIELD 5    ///< a label in front of a control; children stand behind it
#define WYN_NODE_TITLED 6   ///< a label above a control, children in front of it
#define WYN_NODE_SINGLE 7   ///< a control alone
#define WYN_NODE_BUTTONS 8  ///< the buttons that end the dialog
#define WYN_NODE_STRETCH 9  ///< empty space that takes what is left

/// A node of a form's layout.
typedef struct wyn_node {
    size_t size;           ///< of the struct, as WYN_STRUCT sets it
    int32_t kind;          ///< WYN_NODE_...
    int32_t depth;         ///< 0 of the first node; a child's is one more than its parent's
    wyn_control* control;  ///< NULL: none
    wyn_control* label;    ///< NULL: none
    int32_t grows;         ///< takes a share of the space that is left
    int32_t behind_box;    ///< of WYN_NODE_TITLED: its children stand behind the box
} wyn_node;

/// A node by its number from 0, each in front of its children; WYN_ERROR_RANGE behind the last.
/// Of a view of the host alone.
WYNCONFIG_API int32_t wyn_form_node(wyn_form* form, size_t number, wyn_node* node);

/// The buttons behind the Enter and Escape keys; NULL: none. Of a view of the host alone.
WYNCONFIG_API int32_t wyn_form_buttons(wyn_form* form, wyn_control** default_button,
                                       wyn_control** cancel_button);
/// @}

// -------------------------------------------------------------------------------------------------
/// @name The test kit
/// A person at the screen who does what a test says. Whatever comes up unannounced is answered so
/// that nothing changes, and wyn_finish tells of it.
/// @{

/// A person in front of a view.
typedef struct wyn_user wyn_user;

/// Installs the view without a screen, for tests and for hosts without one.
/// @param user  who answers what it shows; may be NULL
WYNCONFIG_API int32_t wyn_install_scripted_view(wyn_user** user);

/// What a person does when a form comes up. It must close the form.
/// @return WYN_OK, or a number, which ends it: the form is cancelled and wyn_finish tells of it
typedef int32_t (*wyn_script)(void* context, wyn_form* form);

/// When a form of this name comes up, the person does this. Announcements of one kind are used up
/// in their order.
WYNCONFIG_API int32_t wyn_on_form(wyn_user* user, const char* form, wyn_script script,
                                  void* context);
/// When the next box comes up, the person presses the button of this answer.
WYNCONFIG_API int32_t wyn_on_box(wyn_user* user, int32_t answer);
/// When the next browse dialog comes up, the person picks this path; empty: cancels.
WYNCONFIG_API int32_t wyn_on_browse(wyn_user* user, const char* path);
/// The boxes since the last wyn_finish: their texts, and as keys their titles.
WYNCONFIG_API int32_t wyn_boxes(wyn_user* user, wyn_list** boxes);
/// The names of the forms since the last wyn_finish.
WYNCONFIG_API int32_t wyn_forms(wyn_user* user, wyn_list** names);
/// WYN_ERROR_USER when something came up unannounced, did not come up though announced, or could
/// not be done; the description tells all of it. Forgets all of it.
WYNCONFIG_API int32_t wyn_finish(wyn_user* user);
/// @}

#ifdef __cplusplus
}
#endif

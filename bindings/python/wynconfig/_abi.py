"""The C interface as ctypes sees it: the structs and functions of c.h and c_qt.h, in their order."""

from __future__ import annotations

from ctypes import (
    CFUNCTYPE,
    POINTER,
    Structure,
    c_char_p,
    c_double,
    c_int32,
    c_int64,
    c_size_t,
    c_void_p,
)
from typing import Any

OK = 0

ERROR_CALL = 5
ERROR_MEMORY = 7
ERROR_RANGE = 9
ERROR_FILE_NOT_FOUND = 53
ERROR_FILE_ACCESS = 75
ERROR_DUPLICATE_KEY = 457
ERROR_NO_SUCH_KEY = 35601
ERROR_RECORD = 1001
ERROR_HANDLE = 2001
ERROR_USER = 2002
ERROR_TEXT = 2003
ERROR_STRUCT = 2004

# Where a result goes. A text that comes out is an address, since it has to be given back.
TEXT_OUT = POINTER(c_void_p)
HANDLE_OUT = POINTER(c_void_p)
INT_OUT = POINTER(c_int32)
SIZE_OUT = POINTER(c_size_t)

RELEASE = CFUNCTYPE(None, c_void_p)


class Error(Structure):
    """wyn_error"""

    _fields_ = [
        ("size", c_size_t),
        ("number", c_int32),
        ("description", c_char_p),
        ("function", c_char_p),
    ]


class Font(Structure):
    """wyn_font"""

    _fields_ = [
        ("size", c_size_t),
        ("family", c_char_p),
        ("point_size", c_double),
        ("bold", c_int32),
        ("italic", c_int32),
    ]


GET_STRING = CFUNCTYPE(c_int32, c_void_p, c_char_p, c_void_p)
GET_FONT = CFUNCTYPE(c_int32, c_void_p, c_int64, POINTER(Font))


class ResourceManager(Structure):
    """wyn_resource_manager"""

    _fields_ = [
        ("size", c_size_t),
        ("context", c_void_p),
        ("get_string", GET_STRING),
        ("get_font", GET_FONT),
        ("release", RELEASE),
        ("find_string", GET_STRING),
    ]


class Box(Structure):
    """wyn_box"""

    _fields_ = [
        ("size", c_size_t),
        ("text", c_char_p),
        ("title", c_char_p),
        ("ok_caption", c_char_p),
        ("style", c_int32),
    ]


class Browse(Structure):
    """wyn_browse"""

    _fields_ = [
        ("size", c_size_t),
        ("title", c_char_p),
        ("ok_caption", c_char_p),
        ("cancel_caption", c_char_p),
        ("files", c_int32),
    ]


SHOW_MODAL = CFUNCTYPE(c_int32, c_void_p, c_void_p)
SHOW_MESSAGE = CFUNCTYPE(c_int32, c_void_p, POINTER(Box), INT_OUT)
BROWSE = CFUNCTYPE(c_int32, c_void_p, POINTER(Browse), c_void_p)
RAISE = CFUNCTYPE(c_int32, c_void_p, c_int32)
DEVICE_CONTEXT = CFUNCTYPE(c_int32, c_void_p, POINTER(c_int64))


class Progress(Structure):
    """wyn_progress"""

    _fields_ = [
        ("size", c_size_t),
        ("stage", c_int32),
        ("title", c_char_p),
        ("text", c_char_p),
        ("done", c_size_t),
        ("all", c_size_t),
    ]


SHOW_PROGRESS = CFUNCTYPE(c_int32, c_void_p, POINTER(Progress))


class View(Structure):
    """wyn_view"""

    _fields_ = [
        ("size", c_size_t),
        ("context", c_void_p),
        ("show_modal", SHOW_MODAL),
        ("show_message", SHOW_MESSAGE),
        ("browse", BROWSE),
        ("raise", RAISE),
        ("device_context", DEVICE_CONTEXT),
        ("release", RELEASE),
        ("show_progress", SHOW_PROGRESS),
    ]


class Failure(Structure):
    """wyn_failure"""

    _fields_ = [
        ("size", c_size_t),
        ("operation", c_char_p),
        ("tag", c_char_p),
        ("number", c_int32),
        ("description", c_char_p),
    ]


FAILED = CFUNCTYPE(None, c_void_p, POINTER(Failure))
ANSWERED = CFUNCTYPE(None, c_void_p, POINTER(Box), c_int32)


class Observer(Structure):
    """wyn_observer"""

    _fields_ = [
        ("size", c_size_t),
        ("context", c_void_p),
        ("failed", FAILED),
        ("answered", ANSWERED),
        ("release", RELEASE),
    ]


class Sight(Structure):
    """wyn_sight"""

    _fields_ = [
        ("size", c_size_t),
        ("value", c_int32),
        ("selected", c_size_t),
        ("caret", c_size_t),
        ("focus", c_int32),
        ("enabled", c_int32),
        ("visible", c_int32),
        ("tab_stop", c_int32),
        ("switched_off", c_int32),
    ]


class Node(Structure):
    """wyn_node"""

    _fields_ = [
        ("size", c_size_t),
        ("kind", c_int32),
        ("depth", c_int32),
        ("control", c_void_p),
        ("label", c_void_p),
        ("grows", c_int32),
        ("behind_box", c_int32),
    ]


SCRIPT = CFUNCTYPE(c_int32, c_void_p, c_void_p)

# The functions: what each takes. All but those of RESULTS give WYN_OK or the number of a failure.
FUNCTIONS: dict[str, tuple[Any, ...]] = {
    "wyn_version": (),
    "wyn_version_text": (),
    "wyn_last_error": (POINTER(Error),),
    "wyn_fail": (c_int32, c_char_p),
    "wyn_free": (c_void_p,),
    "wyn_leave": (),
    "wyn_close": (c_void_p,),
    "wyn_list_count": (c_void_p, SIZE_OUT),
    "wyn_list_text": (c_void_p, c_size_t, TEXT_OUT),
    "wyn_list_key": (c_void_p, c_size_t, TEXT_OUT),
    "wyn_give": (c_void_p, c_char_p),
    "wyn_InitResourceManager": (POINTER(ResourceManager),),
    "wyn_use_bundle": (c_char_p, c_char_p),
    "wyn_bundle_folder": (TEXT_OUT,),
    "wyn_bundle_languages": (c_char_p, HANDLE_OUT),
    "wyn_bundle_right_to_left": (c_char_p, c_char_p, INT_OUT),
    "wyn_init": (c_char_p,),
    "wyn_GetDatasetSessionData": (TEXT_OUT,),
    "wyn_GetDatasetFormatsData": (HANDLE_OUT,),
    "wyn_MigrateSession": (c_char_p, c_char_p, INT_OUT),
    "wyn_showMORAMConfigDlg": (c_char_p, TEXT_OUT, INT_OUT),
    "wyn_showMORAMConfigDlgEX": (
        c_char_p,
        c_char_p,
        POINTER(c_char_p),
        c_size_t,
        TEXT_OUT,
        INT_OUT,
    ),
    "wyn_showMORAMMaintenanceDlg": (c_char_p, TEXT_OUT, INT_OUT),
    "wyn_showAddMORAMConfigDlg": (c_char_p, TEXT_OUT, INT_OUT),
    "wyn_showAddMORAMConfigDlgEX": (c_char_p, TEXT_OUT, INT_OUT),
    "wyn_showSessionManagerDlg": (c_char_p, TEXT_OUT),
    "wyn_showConfigurableSessionManagerDlg": (c_char_p, TEXT_OUT),
    "wyn_upper_name": (c_char_p, TEXT_OUT),
    "wyn_is_item_name": (c_char_p, INT_OUT),
    "wyn_record_new": (c_int32, c_char_p, HANDLE_OUT),
    "wyn_record_load": (c_char_p, HANDLE_OUT),
    "wyn_record_parse": (c_char_p, HANDLE_OUT),
    "wyn_record_type": (c_void_p, TEXT_OUT),
    "wyn_record_name": (c_void_p, TEXT_OUT),
    "wyn_record_rows": (c_void_p, HANDLE_OUT),
    "wyn_record_get": (c_void_p, c_char_p, TEXT_OUT),
    "wyn_record_set": (c_void_p, c_char_p, c_char_p),
    "wyn_record_remove": (c_void_p, c_char_p),
    "wyn_record_save": (c_void_p, c_char_p),
    "wyn_record_xml": (c_void_p, TEXT_OUT),
    "wyn_store_open": (c_char_p, HANDLE_OUT),
    "wyn_store_is_made": (c_void_p, INT_OUT),
    "wyn_store_names": (c_void_p, c_int32, HANDLE_OUT),
    "wyn_store_has": (c_void_p, c_int32, c_char_p, INT_OUT),
    "wyn_store_path": (c_void_p, c_int32, c_char_p, TEXT_OUT),
    "wyn_store_read": (c_void_p, c_int32, c_char_p, HANDLE_OUT),
    "wyn_store_sessions_with": (c_void_p, c_char_p, HANDLE_OUT),
    "wyn_store_check": (c_void_p, HANDLE_OUT),
    "wyn_store_save": (c_void_p, POINTER(c_void_p), c_size_t),
    "wyn_store_rename": (c_void_p, c_char_p, c_char_p, HANDLE_OUT),
    "wyn_store_deleted_names": (c_void_p, c_int32, HANDLE_OUT),
    "wyn_store_move_to_deleted": (c_void_p, c_int32, c_char_p),
    "wyn_store_restore": (c_void_p, c_int32, c_char_p),
    "wyn_install_view": (POINTER(View),),
    "wyn_install_observer": (POINTER(Observer),),
    "wyn_form_name": (c_void_p, TEXT_OUT),
    "wyn_form_title": (c_void_p, TEXT_OUT),
    "wyn_form_is_open": (c_void_p, INT_OUT),
    "wyn_form_controls": (c_void_p, HANDLE_OUT),
    "wyn_find": (c_void_p, c_char_p, HANDLE_OUT),
    "wyn_press": (c_void_p, c_int32),
    "wyn_press_mnemonic": (c_void_p, c_char_p),
    "wyn_resize": (c_void_p, c_int32, c_int32),
    "wyn_close_by_frame": (c_void_p,),
    "wyn_control_name": (c_void_p, TEXT_OUT),
    "wyn_look": (c_void_p, POINTER(Sight)),
    "wyn_text": (c_void_p, TEXT_OUT),
    "wyn_caption": (c_void_p, TEXT_OUT),
    "wyn_mnemonic": (c_void_p, TEXT_OUT),
    "wyn_rows": (c_void_p, HANDLE_OUT),
    "wyn_help": (c_void_p, TEXT_OUT),
    "wyn_click": (c_void_p,),
    "wyn_bare_click": (c_void_p,),
    "wyn_focus": (c_void_p,),
    "wyn_type": (c_void_p, c_char_p),
    "wyn_set_caret": (c_void_p, c_size_t),
    "wyn_tick": (c_void_p, c_int32),
    "wyn_pick": (c_void_p, c_char_p),
    "wyn_double_click": (c_void_p, c_char_p),
    "wyn_type_ahead": (c_void_p, c_char_p),
    "wyn_choose": (c_void_p, c_char_p),
    "wyn_change_tab": (c_void_p, c_int32),
    "wyn_control_kind": (c_void_p, INT_OUT),
    "wyn_form_node": (c_void_p, c_size_t, POINTER(Node)),
    "wyn_form_buttons": (c_void_p, HANDLE_OUT, HANDLE_OUT),
    "wyn_install_scripted_view": (HANDLE_OUT,),
    "wyn_on_form": (c_void_p, c_char_p, SCRIPT, c_void_p),
    "wyn_on_box": (c_void_p, c_int32),
    "wyn_on_browse": (c_void_p, c_char_p),
    "wyn_boxes": (c_void_p, HANDLE_OUT),
    "wyn_forms": (c_void_p, HANDLE_OUT),
    "wyn_finish": (c_void_p,),
}

QT_FUNCTIONS: dict[str, tuple[Any, ...]] = {
    "wyn_install_qt_view": (),
    "wyn_qt_set_owner": (c_size_t,),
    "wyn_qt_user": (HANDLE_OUT,),
    "wyn_qt_save_picture": (c_char_p,),
}

RESULTS: dict[str, Any] = {"wyn_version_text": c_char_p, "wyn_free": None}

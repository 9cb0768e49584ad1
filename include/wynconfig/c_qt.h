/// @file
/// The desktop view on Qt for programs in C. It is in a library of its own, libwynconfig_qt.
#pragma once

#include "wynconfig/c.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Installs the view that shows every form in a real window. Fails with WYN_ERROR_CALL where it
/// can't work: without a display, in a program whose application object shows no widgets, and on
/// another thread than that of the QApplication.
WYNCONFIG_API int32_t wyn_install_qt_view(void);
/// Has the dialogs belong to a window of the host: they stand in front of it and centre on it.
/// Fails with WYN_ERROR_CALL before wyn_install_qt_view.
/// @param window  its number with the window system (of X11 its id); 0: to none
WYNCONFIG_API int32_t wyn_qt_set_owner(uintptr_t window);
/// The person who drives the real windows by real mouse and key events, in place of the one at the
/// desk. WYN_ERROR_CALL before wyn_install_qt_view.
WYNCONFIG_API int32_t wyn_qt_user(wyn_user** user);
/// Saves a picture of the window on top, as PNG. Fails with WYN_ERROR_USER when it can't, and with
/// WYN_ERROR_CALL before wyn_install_qt_view.
/// @param path  UTF-8
WYNCONFIG_API int32_t wyn_qt_save_picture(const char* path);

#ifdef __cplusplus
}
#endif

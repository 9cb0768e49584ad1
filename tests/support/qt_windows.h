// The window in front on the desktop view, for tests that look at its widgets.
#pragma once

#include <QApplication>
#include <QWidget>

namespace wynconfig {

/// The window that has the user's attention; null when none is open.
inline QWidget* window() {
    return QApplication::activeModalWidget();
}

}  // namespace wynconfig

// Message boxes and browse dialogs.
#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <string>

#include "wynconfig/view.h"

namespace wynconfig::desktop {

/// Dresses a message box as asked for.
void setUp(QMessageBox& box, const MessageRequest& wanted);
/// The button of a number (see `answer`), or null.
QAbstractButton* buttonOf(const QMessageBox& box, int number);
/// The number of the button that closed the box.
int answerOf(const QMessageBox& box);

/// Dresses a dialog as asked for.
void setUp(QFileDialog& dialog, const BrowseRequest& wanted);
/// The path picked, with the system's separators.
std::string pathOf(const QFileDialog& dialog);

}  // namespace wynconfig::desktop

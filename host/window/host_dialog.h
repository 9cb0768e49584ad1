// What tells the host's own dialogs from those of the component.
#pragma once

#include <QDialog>
#include <QPushButton>

#include "wynconfig/qt_view.h"

namespace host {

/// Object name of all dialogs of the host's own. Their buttons have object names too.
inline constexpr const char* kHostDialog = "hostDialog";

/// Makes a dialog one of the host's own, as clear to see as those of the component.
inline void makeHostDialog(QDialog& dialog) {
    dialog.setObjectName(QString::fromUtf8(kHostDialog));
    wynconfig::clarify(dialog);
}

/// Takes the icons off its buttons, as those of the component have none.
inline void leaveOffIcons(const QDialog& dialog) {
    for (QPushButton* each : dialog.findChildren<QPushButton*>()) each->setIcon({});
}

/// Shows it, without icons, until it is answered.
/// @return what the dialog gives as its result
inline int runHostDialog(QDialog& dialog) {
    leaveOffIcons(dialog);
    return dialog.exec();
}

}  // namespace host

// Help: tool tips and the like on the widgets, and the window that has all help of a dialog.
#pragma once

#include <QDialog>
#include <string>

#include "wynconfig/help.h"

class QTextEdit;

namespace wynconfig::desktop {

/// Whether an event asks what is to be told of a widget. Nothing is fetched before one comes.
bool asksForHelp(const QEvent& event);

/// Has a widget tell this when it is asked: as a tool tip, unless it has one that names it, as what
/// stands behind "What's this?", and, unless something else describes it, to a screen reader.
void provideHelp(QWidget& widget, const std::string& help);

/// Tells a screen reader why what is in a widget was refused, in place of its help; and the help
/// again when that is empty.
void tellRefusal(QWidget& widget, const QString& why);

/// Shows the help of a dialog beside it. Escape closes it, and so does the dialog.
class HelpWindow : public QDialog {
  public:
    explicit HelpWindow(QWidget& dialog);
    void show(const HelpPage& page);
    /// What is on the screen, a line for each of `HelpPage::lines`.
    QStringList lines() const;

  private:
    QTextEdit* m_text;
};

}  // namespace wynconfig::desktop

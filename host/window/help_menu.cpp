// Showing the guide, and what the program is.
#include "window/help_menu.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <QScreen>
#include <QTextEdit>
#include <QVBoxLayout>
#include <array>

#include "window/host_dialog.h"
#include "wynconfig/version.h"

namespace host {

namespace {

struct Section {
    const char* heading;
    const char* text;
};

constexpr std::array kGuide{
    Section{QT_TR_NOOP("Send a parts list"),
            QT_TR_NOOP("Tick parts in the catalogue, or enter their quantities. On the page “Send” "
                       "choose a session, look at what sending will do, and press “Send list”.")},
    Section{QT_TR_NOOP("Sessions"),
            QT_TR_NOOP("A session says where a parts list goes: to a program, into a file, or to "
                       "both. On the page “Sessions” you add one, or select one and configure it; "
                       "the menu “Store” has the same.")},
    Section{QT_TR_NOOP("Where part formats are made"),
            QT_TR_NOOP("A part format lays the list out as text. Configure a session and turn to "
                       "its tab “Part Number Format”: “New” makes a part format, and the arrow has "
                       "the session use it. A session needs at least one.")},
    Section{
        QT_TR_NOOP("What “Tallyvane” does"),
        QT_TR_NOOP("The button “Tallyvane” of a session’s dialog opens the settings of the file "
                   "that the session writes: a part format, a name and a folder. Without a part "
                   "format there no file is written. “Write File Only” launches no program.")},
    Section{
        QT_TR_NOOP("Delays"),
        QT_TR_NOOP("Under “Advanced” a session has its delays. This catalogue counts them in "
                   "seconds: it starts the program, waits so long, and hands the list over. It "
                   "looks for no windows, so that the delay of the window has no effect here.")},
    Section{QT_TR_NOOP("Languages"),
            QT_TR_NOOP("The menu “Tools” changes the language of the dialogs.")},
    Section{QT_TR_NOOP("Help in the dialogs"),
            QT_TR_NOOP("Rest the mouse over a field, or press Shift and F1 in it, to read what it "
                       "is. F1 shows the help of the whole dialog.")}};

QString guide() {
    QString all;
    for (const Section& each : kGuide) {
        all += QStringLiteral("<h4>%1</h4><p>%2</p>")
                   .arg(QObject::tr(each.heading).toHtmlEscaped(),
                        QObject::tr(each.text).toHtmlEscaped());
    }
    return all;
}

/// Beside the window, to be read while one follows it.
void showGuide(QWidget* window) {
    constexpr int kWidth = 560;
    constexpr int kHeight = 520;
    auto* dialog = new QDialog(window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    makeHostDialog(*dialog);
    dialog->setWindowTitle(QObject::tr("Short guide"));
    auto* text = new QTextEdit(guide());
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setAccessibleName(dialog->windowTitle());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setObjectName("close");
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* column = new QVBoxLayout(dialog);
    column->addWidget(text);
    column->addWidget(buttons);
    leaveOffIcons(*dialog);
    text->setFocus();
    dialog->resize(QSize(kWidth, kHeight).boundedTo(dialog->screen()->availableSize()));
    dialog->show();
}

void showAbout(QWidget* window) {
    QMessageBox box(window);
    makeHostDialog(box);
    box.setWindowTitle(QObject::tr("About %1").arg(window->windowTitle()));
    box.setText(QObject::tr("%1 %2").arg(window->windowTitle(),
                                         QString::fromUtf8(wynconfig::versionText())));
    box.setInformativeText(QObject::tr(
        "A sample of a program that uses the component WYNConfig: its user says in "
        "sessions and part formats how parts lists go to other programs or into files."));
    box.setStandardButtons(QMessageBox::Ok);
    box.button(QMessageBox::Ok)->setObjectName("ok");
    runHostDialog(box);
}

}  // namespace

QMenu* makeHelpMenu(QWidget* window) {
    // Each letter of the word is the key of something else in the window.
    auto* menu = new QMenu(QObject::tr("Help"), window);
    QAction* guide = menu->addAction(QObject::tr("Short &guide"), QKeySequence::HelpContents,
                                     window, [window] { showGuide(window); });
    guide->setObjectName("guide");
    guide->setStatusTip(QObject::tr("Tells how to send a list, and where part formats are made"));
    QAction* about =
        menu->addAction(QObject::tr("&About"), window, [window] { showAbout(window); });
    about->setObjectName("about");
    about->setStatusTip(QObject::tr("Tells what this program is, and its version"));
    return menu;
}

}  // namespace host

// Showing the guide, and what the program is.
#include "window/help_menu.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTextEdit>
#include <QVBoxLayout>
#include <array>

#include "window/host_dialog.h"
#include "window/wording.h"
#include "wynconfig/version.h"

namespace host {

namespace {

struct Section {
    const char* heading;
    const char* text;
};

/// Keys of the guide's sections.
constexpr std::array kGuide{Section{"GUIDE_SEND", "GUIDE_SEND_TEXT"},
                            Section{"GUIDE_SESSIONS", "GUIDE_SESSIONS_TEXT"},
                            Section{"GUIDE_FORMATS", "GUIDE_FORMATS_TEXT"},
                            Section{"GUIDE_FILE", "GUIDE_FILE_TEXT"},
                            Section{"GUIDE_DELAYS", "GUIDE_DELAYS_TEXT"},
                            Section{"GUIDE_LANGUAGES", "GUIDE_LANGUAGES_TEXT"},
                            Section{"GUIDE_HELP", "GUIDE_HELP_TEXT"}};

QString guide() {
    QString all;
    for (const Section& each : kGuide) {
        all += QStringLiteral("<h4>%1</h4><p>%2</p>")
                   .arg(wording(each.heading).toHtmlEscaped(), wording(each.text).toHtmlEscaped());
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
    worded(dialog, [dialog] { dialog->setWindowTitle(wording("GUIDE_TITLE")); });
    auto* text = new QTextEdit;
    worded(text, [text] { text->setHtml(guide()); });
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    withName(text, "GUIDE_TITLE");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    worded(buttons->button(QDialogButtonBox::Close), "DIALOG_CLOSE", "close");
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
    box.setWindowTitle(wording("ABOUT_TITLE", {window->windowTitle()}));
    box.setText(window->windowTitle() + u' ' + QString::fromUtf8(wynconfig::versionText()));
    box.setInformativeText(wording("ABOUT_TEXT"));
    box.setStandardButtons(QMessageBox::Ok);
    worded(box.button(QMessageBox::Ok), "DIALOG_OK", "ok");
    runHostDialog(box);
}

}  // namespace

QMenu* makeHelpMenu(QWidget* window) {
    auto* menu = withTitle(new QMenu(window), "MENU_HELP");
    QAction* guide = menu->addAction(QString(), QKeySequence::HelpContents, window,
                                     [window] { showGuide(window); });
    withTip(worded(guide, "MENU_GUIDE", "guide"), "MENU_GUIDE_TIP");
    QAction* about = menu->addAction(QString(), window, [window] { showAbout(window); });
    withTip(worded(about, "MENU_ABOUT", "about"), "MENU_ABOUT_TIP");
    return menu;
}

}  // namespace host

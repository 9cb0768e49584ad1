// The host's own help: the guide, and what the program is.
#include <QMenuBar>
#include <QTextEdit>

#include "support/host_window.h"
#include "wynconfig/mnemonic.h"
#include "wynconfig/version.h"

namespace host {
namespace {

class HostHelp : public HostWindow {
  protected:
    QAction& action(const char* name) const {
        QAction* found = window->findChild<QAction*>(QString::fromUtf8(name));
        if (!found) throw std::runtime_error(std::string("the window has no ") + name);
        return *found;
    }
    QDialog* guide() const {
        for (QDialog* each : window->findChildren<QDialog*>(kHostDialog)) {
            if (each->isVisible()) return each;
        }
        return nullptr;
    }
};

TEST_F(HostHelp, IsTheLastMenuOfTheBar) {
    const QAction* last = window->menuBar()->actions().back();
    EXPECT_EQ(last->text(), "Help");
    EXPECT_TRUE(last->menu()->actions().contains(&action("guide")));
    EXPECT_TRUE(last->menu()->actions().contains(&action("about")));
    EXPECT_EQ(action("guide").shortcut(), QKeySequence(Qt::Key_F1));
}

TEST_F(HostHelp, GuidesToWhatNewcomersLookFor) {
    EXPECT_EQ(guide(), nullptr);
    action("guide").trigger();
    QDialog* shown = guide();
    ASSERT_NE(shown, nullptr);
    EXPECT_FALSE(shown->isModal());
    const auto* page = shown->findChild<QTextEdit*>();
    ASSERT_NE(page, nullptr);
    EXPECT_TRUE(page->isReadOnly());
    EXPECT_EQ(shown->focusWidget(), page);
    const QString text = page->toPlainText();
    // The words of the dialogs, as they are read there.
    for (const char* key : {"MORAM_CONFIG_TAB_PART_FORMAT", "BUTTON_NEW", "BUTTON_TALLYVANE",
                            "BUTTON_ADVANCED", "TVW_CONFIG_CHK_WRITE_FILE_ONLY"}) {
        const auto english = wynconfig::makeBundleResourceManager(WYNCONFIG_RESOURCES, "en");
        const std::string caption = wynconfig::plainCaption(english->GetString(key));
        EXPECT_TRUE(text.contains(QString::fromStdString("“" + caption + "”"))) << caption;
    }
    EXPECT_TRUE(text.contains("seconds"));
    QTest::keyClick(shown, Qt::Key_Escape);
    EXPECT_EQ(guide(), nullptr);
}

TEST_F(HostHelp, TellsTheVersion) {
    QString text;
    QTimer::singleShot(0, window.get(), [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        text = box->text() + '\n' + box->informativeText();
        box->findChild<QPushButton*>("ok")->click();
    });
    action("about").trigger();
    EXPECT_TRUE(text.startsWith(QString("Parts Catalogue ") + wynconfig::versionText() + '\n'))
        << text.toStdString();
    EXPECT_TRUE(text.contains("WYNConfig"));
}

}  // namespace
}  // namespace host

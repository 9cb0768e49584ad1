// The sample host's window on a sample store of its own, for the tests that look at it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>

#include "sample/sample_store.h"
#include "sample/store_snapshot.h"
#include "support/temporary_folder.h"
#include "window/catalogue.h"
#include "window/direction.h"
#include "window/host_dialog.h"
#include "window/language.h"
#include "window/main_window.h"
#include "window/sentence_label.h"
#include "window/workplace.h"

namespace host {

/// The pages of the window, in their order.
enum Page { SendPage, SessionsPage, DeletedPage, DeveloperPage, PageCount };

class HostWindow : public testing::Test {
  protected:
    static constexpr int kPatienceMilliseconds = 20000;  ///< with programs

    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        if (!QCoreApplication::instance()) new QApplication(count, arguments);
    }

    void SetUp() override {
        // Also where an earlier test changed it. The side is that of the test.
        const Qt::LayoutDirection side = QApplication::layoutDirection();
        component.InitResourceManager(useLanguage(WYNCONFIG_RESOURCES, "en"));
        QApplication::setLayoutDirection(side);
        makeSampleStore(component, store);
        window = std::make_unique<MainWindow>(workplace);
        window->show();
        QCoreApplication::processEvents();
    }

    template <class W>
    W& widget(const char* name) const {
        W* found = window->findChild<W*>(QString::fromUtf8(name));
        if (!found) throw std::runtime_error(std::string("the window has no ") + name);
        return *found;
    }

    /// What a box holds, without the marks of direction.
    std::string text(const char* box) const {
        return withoutMarks(widget<QPlainTextEdit>(box).toPlainText()).toStdString();
    }

    /// What a label tells, in the same way.
    std::string told(const char* label) const {
        return widget<SentenceLabel>(label).told().toStdString();
    }

    void choose(const char* comboBox, const QString& item) const {
        auto& box = widget<QComboBox>(comboBox);
        ASSERT_GE(box.findText(item), 0) << item.toStdString();
        box.setCurrentIndex(box.findText(item));
    }

    void click(const char* button) const { widget<QPushButton>(button).click(); }

    void pick(const char* partNumber, int pieces) const {
        ASSERT_TRUE(window->catalogue().pick(QString::fromUtf8(partNumber), pieces)) << partNumber;
    }

    /// Closes the window, and answers what it asks by a button.
    /// @return whether it went
    bool closeBy(const char* button) {
        m_question.clear();
        QTimer::singleShot(0, window.get(), [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || box->objectName() != kHostDialog) return;
            m_question = box->text().toStdString();
            box->findChild<QPushButton*>(button)->click();
        });
        const bool closed = window->close();
        QCoreApplication::processEvents();
        return closed;
    }
    /// What it asked then; empty: nothing.
    const std::string& question() const { return m_question; }

    /// Sends the list into a file of the store.
    void sendToFile() const {
        choose("session", "WEB SHOP EXPORT");
        click("send");
    }

    QTabWidget& pages() const { return *window->centralWidget()->findChild<QTabWidget*>(); }

    wynconfig::TemporaryFolder folder;
    StoreFolders store{folder / "a store"};
    wynconfig::WYNConfig component;
    Workplace workplace{component, store, std::nullopt, WYNCONFIG_RESOURCES};
    std::unique_ptr<MainWindow> window;

  private:
    std::string m_question;
};

}  // namespace host

// What a person would look for in the sample host's window: nothing cut off, everything named and
// in reach of the keyboard, and a catalogue that can be searched.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabBar>
#include <QTableView>
#include <algorithm>
#include <set>

#include "sample/parts.h"
#include "support/host_window.h"

namespace host {
namespace {

const QSize kFirstSize(1180, 740);
const QSize kSmallSize(1024, 700);

class HostLook : public HostWindow {
  protected:
    void show(int page, const QSize& size) const {
        window->resize(size);
        pages().setCurrentIndex(page);
        QCoreApplication::processEvents();
    }

    template <class W>
    std::vector<W*> visible() const {
        std::vector<W*> found;
        for (W* each : window->findChildren<W*>())
            if (each->isVisibleTo(window.get())) found.push_back(each);
        return found;
    }

    static std::string nameOf(const QWidget& widget) {
        const auto* label = qobject_cast<const QLabel*>(&widget);
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        return std::string(widget.metaObject()->className()) + " \"" +
               (text.isEmpty() ? widget.objectName() : text).toStdString() + "\"";
    }

    static void expectUncut(const QWidget& widget) {
        EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << nameOf(widget);
        EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << nameOf(widget);
        const QRect whole = widget.parentWidget()->rect();
        EXPECT_TRUE(whole.contains(widget.geometry())) << nameOf(widget);
    }
};

TEST_F(HostLook, ShowsNothingCutOff) {
    for (const QSize& size : {kFirstSize, kSmallSize}) {
        for (int page = 0; page < PageCount; ++page) {
            show(page, size);
            ASSERT_EQ(window->size(), size);
            for (const QLabel* label : visible<QLabel>()) expectUncut(*label);
            for (const QAbstractButton* button : visible<QPushButton>()) expectUncut(*button);
            for (const QComboBox* box : visible<QComboBox>()) expectUncut(*box);
            for (const QLineEdit* edit : visible<QLineEdit>()) expectUncut(*edit);
        }
    }
}

TEST_F(HostLook, LeavesRoomForAListOfTenLines) {
    show(SendPage, kSmallSize);
    const auto& list = widget<QPlainTextEdit>("programList");
    EXPECT_GE(list.viewport()->height(), 10 * list.fontMetrics().lineSpacing());
}

TEST_F(HostLook, UsesEachMnemonicOnce) {
    for (int page = 0; page < PageCount; ++page) {
        show(page, kFirstSize);
        std::multiset<std::string> keys;
        const auto add = [&](const QString& text) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (!key.isEmpty()) keys.insert(key.toString().toStdString());
        };
        for (const QLabel* label : visible<QLabel>())
            if (label->buddy()) add(label->text());
        for (const QPushButton* button : visible<QPushButton>()) add(button->text());
        for (const QTabBar* bar : visible<QTabBar>())
            for (int tab = 0; tab < bar->count(); ++tab) add(bar->tabText(tab));
        for (const QAction* menu : window->menuBar()->actions()) add(menu->text());
        EXPECT_GE(keys.size(), 10U);
        for (const std::string& key : keys)
            EXPECT_EQ(keys.count(key), 1U) << key << " on page " << page;
    }
}

TEST_F(HostLook, NamesEverythingThatTakesTheFocus) {
    for (int page = 0; page < PageCount; ++page) {
        show(page, kFirstSize);
        int named = 0;
        for (QWidget* widget : visible<QWidget>()) {
            if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy()) continue;
            if (qobject_cast<QTabBar*>(widget)) continue;  // its tabs have names
            QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(face, nullptr);
            EXPECT_FALSE(face->text(QAccessible::Name).isEmpty()) << nameOf(*widget);
            ++named;
        }
        EXPECT_GE(named, 6);
    }
}

TEST_F(HostLook, LeadsTheTabKeyThroughThePageFromTopToBottom) {
    show(SendPage, kFirstSize);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    choose("session", "WORKSHOP COUNTER");
    widget<QComboBox>("session").setFocus();
    std::vector<std::string> visited;
    for (int steps = 0; steps < 8; ++steps) {
        visited.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    const std::vector<std::string> expected = {
        "session",     "partFormat", "vin",  "qt_tabwidget_tabbar",
        "programList", "plan",       "send", "outcome"};
    EXPECT_EQ(visited, expected);
}

TEST_F(HostLook, ShrinksBelowTheSmallSize) {
    EXPECT_LE(window->minimumSizeHint().width(), kSmallSize.width());
    EXPECT_LE(window->minimumSizeHint().height(), kSmallSize.height());
}

TEST_F(HostLook, HasNumbersAndStoredTextsOnThePageForDevelopersAlone) {
    const auto tells = [&](int page) {
        show(page, kFirstSize);
        std::string all;
        for (const QLabel* label : visible<QLabel>())
            all += withoutMarks(label->text()).toStdString() + "\n";
        for (const QPlainTextEdit* box : visible<QPlainTextEdit>())
            all += box->toPlainText().toStdString() + "\n";
        const auto holds = [&](const char* word) { return all.find(word) != std::string::npos; };
        return holds("Result 1, no name") || holds("No file changed.") || holds("<");
    };
    widget<QAction>("add").trigger();  // no view is installed: it is cancelled
    for (const int page : {SendPage, SessionsPage, DeletedPage}) EXPECT_FALSE(tells(page)) << page;
    EXPECT_TRUE(tells(DeveloperPage));
    EXPECT_EQ(told("result"), "Result 1, no name");
    EXPECT_EQ(told("changes"), "No file changed.");
}

class HostCatalogue : public HostWindow {
  protected:
    QTableView& found() const { return widget<QTableView>("catalogue"); }
    int rows() const { return found().model()->rowCount(); }
};

TEST(CatalogueParts, AreSomeHundredWithNumbersOfTheirOwn) {
    const QList<CataloguePart> parts = catalogueParts();
    EXPECT_GE(parts.size(), 300);
    std::set<QString> numbers;
    for (const CataloguePart& part : parts) {
        numbers.insert(part.number);
        EXPECT_FALSE(part.description.isEmpty() || part.group.isEmpty())
            << part.number.toStdString();
        EXPECT_GT(part.cents, 0) << part.number.toStdString();
        EXPECT_GE(part.stock, 0) << part.number.toStdString();
    }
    EXPECT_EQ(numbers.size(), static_cast<std::size_t>(parts.size()));
}

TEST_F(HostCatalogue, ShowsAllParts) {
    EXPECT_EQ(rows(), catalogueParts().size());
}

TEST_F(HostCatalogue, IsSearchedByTextAndByGroup) {
    auto& search = *window->catalogue().findChild<QLineEdit*>();
    auto& group = *window->catalogue().findChild<QComboBox*>();
    search.setText("battery");
    const int everywhere = rows();
    EXPECT_GT(everywhere, 3);
    EXPECT_LT(everywhere, 20);
    group.setCurrentText("Electrics");
    EXPECT_LT(rows(), everywhere);
    EXPECT_GT(rows(), 0);
    search.clear();
    EXPECT_EQ(rows(),
              std::ranges::count(catalogueParts(), QString("Electrics"), &CataloguePart::group));
    group.setCurrentIndex(0);
    EXPECT_EQ(rows(), catalogueParts().size());
}

TEST_F(HostCatalogue, GivesTheLastPartsToTheListToo) {
    const QList<CataloguePart> parts = catalogueParts();
    ASSERT_TRUE(window->catalogue().pick(parts.back().number, 3));
    const std::vector<PickedPart> picked = window->catalogue().partsList();
    ASSERT_EQ(picked.size(), 1U);
    EXPECT_EQ(picked.front().number, parts.back().number.toStdString());
    EXPECT_EQ(picked.front().quantity, 3);
    EXPECT_EQ(picked.front().description, parts.back().description.toStdString());
}

}  // namespace
}  // namespace host

// Quantities by the keyboard alone, from the search to the list.
#include <QAction>
#include <QLineEdit>
#include <QTableView>

#include "support/host_window.h"

namespace host {
namespace {

using Quantities = std::vector<std::pair<std::string, long>>;

class HostQuantities : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    Quantities list() const {
        Quantities found;
        for (const PickedPart& part : window->catalogue().partsList())
            found.emplace_back(part.number, part.quantity);
        return found;
    }
    QTableView& catalogue() const { return widget<QTableView>("catalogue"); }
    QTableView& picked() const { return widget<QTableView>("partsList"); }
    QLineEdit& search() const { return *window->catalogue().findChild<QLineEdit*>(); }

    static std::string current(const QTableView& table) {
        return table.currentIndex().siblingAtColumn(0).data(Qt::EditRole).toString().toStdString();
    }
    void lookFor(const QString& text) const {
        search().setFocus();
        search().setText(text);
        QTest::keyClick(&search(), Qt::Key_Down);
    }
    /// Goes to the first row of the parts list.
    void goToList() const {
        picked().setFocus();
        picked().selectRow(0);
    }
};

TEST_F(HostQuantities, AreTypedAtOnceInAnyColumn) {
    lookFor("10-0120");
    EXPECT_TRUE(catalogue().hasFocus());
    QTest::keyClicks(&catalogue(), "12");
    EXPECT_EQ(list(), (Quantities{{"10-0120", 12}}));
    QTest::keyClick(&catalogue(), Qt::Key_End);
    QTest::keyClick(&catalogue(), Qt::Key_3, Qt::KeypadModifier);
    EXPECT_EQ(list(), (Quantities{{"10-0120", 3}}));
    EXPECT_TRUE(catalogue().hasFocus());  // no box came up
}

TEST_F(HostQuantities, OfAnotherRowBeginAnew) {
    lookFor("filter");
    const std::string first = current(catalogue());
    QTest::keyClicks(&catalogue(), "1");
    QTest::keyClick(&catalogue(), Qt::Key_Down);
    const std::string second = current(catalogue());
    QTest::keyClicks(&catalogue(), "2");
    QTest::keyClick(&catalogue(), Qt::Key_Up);
    QTest::keyClicks(&catalogue(), "4");
    Quantities expected{{first, 4}, {second, 2}};
    Quantities found = list();
    std::ranges::sort(expected);
    std::ranges::sort(found);
    EXPECT_EQ(found, expected);
}

TEST_F(HostQuantities, GrowAndShrinkByPlusAndMinus) {
    lookFor("10-0120");
    QTest::keyClicks(&catalogue(), "-");
    EXPECT_TRUE(list().empty());
    QTest::keyClicks(&catalogue(), "+++-");
    EXPECT_EQ(list(), (Quantities{{"10-0120", 2}}));
    QTest::keyClicks(&catalogue(), "7+");
    EXPECT_EQ(list(), (Quantities{{"10-0120", 8}}));
    QTest::keyClick(&catalogue(), Qt::Key_Delete);
    EXPECT_TRUE(list().empty());
}

TEST_F(HostQuantities, HaveAnUpperEnd) {
    lookFor("10-0120");
    QTest::keyClicks(&catalogue(), "9998");
    EXPECT_EQ(list(), (Quantities{{"10-0120", 999}}));
    EXPECT_EQ(told("lastResult"), "A part can have 999 pieces at most.");
    QTest::keyClicks(&catalogue(), "+");
    EXPECT_EQ(list(), (Quantities{{"10-0120", 999}}));
}

TEST_F(HostQuantities, OfThePartsListAreTypedThereToo) {
    pick("10-0120", 2);
    pick("10-0183", 7);
    goToList();
    const std::string first = current(picked());
    QTest::keyClicks(&picked(), "15");
    EXPECT_EQ(list().front(), (std::pair<std::string, long>{first, 15}));
}

TEST_F(HostQuantities, OfAPartThatLeftTheListAreNotThoseOfTheNextOne) {
    pick("10-0120", 2);
    pick("10-0183", 7);
    goToList();
    const std::string first = current(picked());
    const Quantities before = list();
    QTest::keyClicks(&picked(), first == "10-0120" ? "-----" : "---------");
    EXPECT_EQ(list(), (Quantities{before.back()}));
    QTest::keyClicks(&picked(), "+");
    EXPECT_EQ(list().front(), (std::pair<std::string, long>{first, 1}));
    EXPECT_EQ(current(picked()), first);
    QTest::keyClick(&picked(), Qt::Key_Delete);
    QTest::keyClick(&picked(), Qt::Key_Home);
    QTest::keyClicks(&picked(), "3");
    EXPECT_EQ(list(), (Quantities{{before.back().first, 3}}));
}

TEST_F(HostQuantities, ThatWereTypedAreTakenBackAsOne) {
    lookFor("10-0120");
    QTest::keyClicks(&catalogue(), "4");
    QTest::keyClick(&catalogue(), Qt::Key_Home);
    QTest::keyClicks(&catalogue(), "123");
    widget<QAction>("undo").trigger();
    EXPECT_EQ(list(), (Quantities{{"10-0120", 4}}));
    widget<QAction>("redo").trigger();
    EXPECT_EQ(list(), (Quantities{{"10-0120", 123}}));
    QTest::keyClicks(&catalogue(), "++");
    widget<QAction>("undo").trigger();
    EXPECT_EQ(list(), (Quantities{{"10-0120", 124}}));
}

TEST_F(HostQuantities, LeaveKeysWithControlAndLettersAlone) {
    lookFor("10-0120");
    QTest::keyClick(&catalogue(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(list().empty());
    QTest::keyClicks(&catalogue(), "a");
    EXPECT_TRUE(list().empty());
}

class HostSearch : public HostQuantities {
  protected:
    /// A column of the rows that are found.
    std::vector<std::string> found(int column) const {
        std::vector<std::string> texts;
        const auto& rows = *catalogue().model();
        for (int row = 0; row < rows.rowCount(); ++row)
            texts.push_back(rows.index(row, column).data(Qt::EditRole).toString().toStdString());
        return texts;
    }
};

TEST_F(HostSearch, GoesDownIntoTheTableAndUpAgain) {
    catalogue().selectRow(5);
    lookFor("battery");
    EXPECT_TRUE(catalogue().hasFocus());
    EXPECT_EQ(catalogue().currentIndex().row(), 0);
    QTest::keyClick(&catalogue(), Qt::Key_Down);
    QTest::keyClick(&catalogue(), Qt::Key_Up);
    EXPECT_TRUE(catalogue().hasFocus());
    QTest::keyClick(&catalogue(), Qt::Key_Up);
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(search().selectedText(), "battery");
}

TEST_F(HostSearch, HasTheBestMatchFirst) {
    search().setText("oil");
    const auto rank = [&](const std::string& description) {
        const QString lower = QString::fromStdString(description).toLower();
        return lower.startsWith("oil") ? 0 : lower.contains(" oil") ? 1 : 2;
    };
    const std::vector<std::string> descriptions = found(CatalogueModel::Description);
    ASSERT_GT(descriptions.size(), 3U);
    EXPECT_TRUE(std::ranges::is_sorted(descriptions, {}, rank));
    EXPECT_NE(rank(descriptions.front()), rank(descriptions.back()));
    for (const auto order : {Qt::DescendingOrder, Qt::AscendingOrder}) {
        catalogue().sortByColumn(CatalogueModel::PartNumber, order);
        search().setText("10-01");
        search().setText("10-0120");
        EXPECT_EQ(found(CatalogueModel::PartNumber).front(), "10-0120");
    }
}

TEST_F(HostSearch, IsSortedAsTheUserAsksBehindIt) {
    search().setText("filter");
    catalogue().sortByColumn(CatalogueModel::PartNumber, Qt::DescendingOrder);
    std::vector<std::string> numbers = found(CatalogueModel::PartNumber);
    EXPECT_TRUE(std::ranges::is_sorted(numbers, std::greater<>()));
}

TEST_F(HostSearch, StaysWhereItIsWithoutAMatch) {
    lookFor("no such part");
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(told("lastResult"), "No part has this text. Shorten it, or choose all groups.");
}

}  // namespace
}  // namespace host

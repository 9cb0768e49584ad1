// Identifiers in a window that is read from left to right, and in one that is read from right to
// left: how they are painted, and that nobody who reads or copies them gets the marks for it.
#include "window/direction.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QTextLayout>
#include <QTextOption>

#include "support/host_window.h"
#include "window/session_panel.h"

namespace host {
namespace {

/// Whether the characters from the first to the last of these stand in their order from left to
/// right, as the toolkit lays the text out in a paragraph that is read from right to left.
bool runsLeftToRight(const QString& text, qsizetype first, qsizetype last) {
    QTextLayout layout(text);
    QTextOption option;
    option.setTextDirection(Qt::RightToLeft);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    bool inOrder = true;
    for (auto at = static_cast<int>(first); at < last; ++at)
        inOrder = inOrder && line.cursorToX(at) < line.cursorToX(at + 1);
    return inOrder;
}

constexpr const char* kMixed = "35-0171-A";

class HostIdentifiers : public HostWindow {
  protected:
    void SetUp() override {}  // it takes no window, only the fonts
};

TEST_F(HostIdentifiers, WouldBeScrambledInATextFromRightToLeft) {
    const QString bare = QString::fromUtf8(kMixed);
    EXPECT_FALSE(runsLeftToRight(bare, 0, bare.size() - 1));
}

TEST_F(HostIdentifiers, RunLeftToRightInTheirMarks) {
    for (const char* each : {kMixed, "/srv/a (2)/", "--quiet /to:desk!", "KRAFT (2)"}) {
        const QString marked = isolated(std::string(each));
        // The place of the first one's left edge is told as that of the mark before it.
        EXPECT_TRUE(runsLeftToRight(marked, 2, marked.size() - 2)) << each;
        EXPECT_EQ(withoutMarks(marked).toStdString(), each);
    }
    EXPECT_TRUE(isolated(QString()).isEmpty());
}

TEST_F(HostIdentifiers, ThatAreValuesRunAsTheyBegin) {
    for (const char* each : {"<CR><LF>", "--of-anna"}) {
        const QString marked = apart(QString::fromUtf8(each));
        EXPECT_TRUE(runsLeftToRight(marked, 2, marked.size() - 2)) << each;
        EXPECT_EQ(withoutMarks(marked).toStdString(), each);
    }
    EXPECT_TRUE(apart(QString()).isEmpty());
}

TEST_F(HostIdentifiers, AreFoundInSentencesTheLongestFirst) {
    EXPECT_EQ(isolatedIn("The file /a/b.c of /a is (b).", {"/a", "", "/a/b.c", "(b)"}),
              "The file " + isolated(QString("/a/b.c")) + " of " + isolated(QString("/a")) +
                  " is " + isolated(QString("(b)")) + ".");
    EXPECT_EQ(isolatedIn("Nothing.", {QString()}), "Nothing.");
}

class HostDirection : public HostWindow, public testing::WithParamInterface<Qt::LayoutDirection> {
  protected:
    void SetUp() override {
        QApplication::setLayoutDirection(GetParam());
        HostWindow::SetUp();
    }
    void TearDown() override {
        window.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    /// How a cell is painted.
    static QString painted(const QModelIndex& index, const QAbstractItemView& view) {
        const auto* delegate =
            qobject_cast<const DirectionDelegate*>(view.itemDelegateForIndex(index));
        return delegate ? delegate->displayText(index.data(), view.locale()) : QString();
    }
    static void expectIdentifiers(const QAbstractItemView& view, int column) {
        ASSERT_GT(view.model()->rowCount(), 0) << view.accessibleName().toStdString();
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QModelIndex index = view.model()->index(row, column);
            const QString name = index.data(Qt::EditRole).toString();
            EXPECT_FALSE(name.isEmpty());
            EXPECT_EQ(painted(index, view), isolated(name)) << view.accessibleName().toStdString();
            EXPECT_EQ(index.data(Qt::DisplayRole).toString(), withoutMarks(name));
        }
    }
    static QString copied() { return QGuiApplication::clipboard()->text(); }
};

TEST_P(HostDirection, OfAllListsAndTablesIsThatOfTheIdentifiers) {
    pick("35-0171-A", 2);
    QDir().mkpath(QString::fromStdString((store.sessions() / "deleted").string()));
    std::filesystem::rename(store.sessions() / "STOCK TAKING.vla",
                            store.sessions() / "deleted" / "STOCK TAKING.vla");
    pages().setCurrentIndex(DeletedPage);
    window->sessions().selectInDatabase(wynconfig::ItemKind::Session, "DESK");
    int seen = 0;
    for (const auto* view : window->findChildren<QAbstractItemView*>()) {
        const QString name = view->accessibleName();
        if (name != "Parts catalogue" && name != "Parts list" && name != "Sessions of the store" &&
            name != "Database" && name != "Deleted sessions and part formats")
            continue;
        expectIdentifiers(*view, 0);
        ++seen;
    }
    EXPECT_EQ(seen, 5);
}

TEST_P(HostDirection, OfADescriptionIsThatOfItsFirstLetter) {
    const auto& view = widget<QAbstractItemView>("catalogue");
    const QModelIndex index = view.model()->index(0, CatalogueModel::Description);
    EXPECT_EQ(painted(index, view), QChar(0x2068) + index.data().toString() + QChar(0x2069));
}

/// Lets look at what is painted.
class SeenBox : public IdentifierBox {
  public:
    using IdentifierBox::initStyleOption;
};

TEST_P(HostDirection, OfABoxIsThatOfItsChoice) {
    for (const char* name : {"session", "partFormat"}) {
        const auto& box = widget<IdentifierBox>(name);
        EXPECT_FALSE(box.currentText().isEmpty());
        EXPECT_EQ(box.currentText(), withoutMarks(box.currentText()));
        expectIdentifiers(*box.view(), 0);
    }
    SeenBox box;
    box.addItem(kMixed);
    QStyleOptionComboBox option;
    box.initStyleOption(&option);
    EXPECT_EQ(option.currentText, isolated(std::string(kMixed)));
    EXPECT_EQ(box.currentText(), kMixed);
    EXPECT_EQ(box.itemText(0), kMixed);
}

TEST_P(HostDirection, OfBoxesOfSentencesIsTheSideOnWhichTheirLinesBegin) {
    const bool rightToLeft = GetParam() == Qt::RightToLeft;
    for (const char* each : {"plan", "outcome", "facts"}) {
        const QTextOption option = widget<QPlainTextEdit>(each).document()->defaultTextOption();
        EXPECT_EQ(option.alignment() == Qt::AlignRight, rightToLeft) << each;
    }
    QApplication::setLayoutDirection(rightToLeft ? Qt::LeftToRight : Qt::RightToLeft);
    const QTextOption option = widget<QPlainTextEdit>("plan").document()->defaultTextOption();
    EXPECT_NE(option.alignment() == Qt::AlignRight, rightToLeft);
}

TEST_P(HostDirection, OfPathsAndNamesHoldsInSentences) {
    const QString root = isolated(store.root.string());
    EXPECT_EQ(widget<QLabel>("store").text(), "Store: " + root);
    EXPECT_EQ(widget<QLabel>("store").accessibleName(), withoutMarks("Store: " + root));
    choose("session", "WEB SHOP EXPORT");
    const QString file = isolated((store.lists() / "web-shop.csv").string());
    EXPECT_TRUE(widget<QPlainTextEdit>("plan").toPlainText().startsWith(
        "Nothing will be sent:\nThe parts list is empty.\nFile: " + file));
    pick("10-0120", 1);
    click("send");
    EXPECT_TRUE(widget<QPlainTextEdit>("outcome").toPlainText().contains(
        ": The list was written to " + file + " ("));
    choose("session", "DEALER ORDER DESK");
    EXPECT_TRUE(widget<QPlainTextEdit>("plan").toPlainText().contains(
        "Program: " +
        isolated('"' + (store.programs() / "order desk").string() + "\" /order:stock /quiet")));
}

TEST_P(HostDirection, IsNotCopied) {
    choose("session", "WEB SHOP EXPORT");
    auto& plan = widget<QPlainTextEdit>("plan");
    plan.selectAll();
    plan.copy();
    EXPECT_EQ(copied().toStdString(), text("plan"));
    EXPECT_NE(plan.toPlainText(), copied());

    SentenceLabel label;
    label.tell("Name " + isolated(std::string(kMixed)) + ".");
    label.letCopy();
    label.show();
    label.setSelection(0, static_cast<int>(label.text().size()));
    QTest::keySequence(&label, QKeySequence::Copy);
    EXPECT_EQ(copied(), "Name 35-0171-A.");
}

TEST_P(HostDirection, OfWhatIsTypedIsFromLeftToRightAtTheSideOfTheLayout) {
    auto& vin = dynamic_cast<IdentifierEdit&>(widget<QLineEdit>("vin"));
    const bool mirrored = GetParam() == Qt::RightToLeft;
    EXPECT_EQ(vin.alignment(),
              Qt::AlignVCenter | Qt::AlignAbsolute | (mirrored ? Qt::AlignRight : Qt::AlignLeft));
    // A letter that is read from right to left does not turn the text around.
    vin.setText(QString::fromUtf8("/ب"));
    const auto place = [&](int cursor) {
        vin.setCursorPosition(cursor);
        return vin.inputMethodQuery(Qt::ImCursorRectangle).toRectF().left();
    };
    vin.setCursorPosition(0);
    EXPECT_LT(place(0), place(1));
    // It follows a change of the language.
    QApplication::setLayoutDirection(mirrored ? Qt::LeftToRight : Qt::RightToLeft);
    QCoreApplication::processEvents();
    EXPECT_EQ(vin.alignment() & Qt::AlignHorizontal_Mask,
              Qt::AlignAbsolute | (mirrored ? Qt::AlignLeft : Qt::AlignRight));
}

TEST_P(HostDirection, OfTheListForAProgramIsFromLeftToRight) {
    for (const char* name : {"programList", "fileList"})
        EXPECT_EQ(widget<QPlainTextEdit>(name).document()->defaultTextOption().textDirection(),
                  Qt::LeftToRight)
            << name;
}

INSTANTIATE_TEST_SUITE_P(Layouts, HostDirection, testing::Values(Qt::LeftToRight, Qt::RightToLeft));

}  // namespace
}  // namespace host

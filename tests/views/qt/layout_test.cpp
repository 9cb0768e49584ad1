// What a person would look for in the windows: nothing cut off, sizes that fit what is shown, texts
// that can be read, and everything in reach of the keyboard.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "support/all_dialogs.h"
#include "support/contrast.h"
#include "support/qt_windows.h"
#include "support/temporary_folder.h"
#include "support/test_form.h"
#include "views/qt/widgets.h"
#include "wynconfig/qt_view.h"

namespace wynconfig {
namespace {

// Browse dialogs keep their columns in the user's settings; those of a test start and end with it.
const TemporaryFolder settings;
const bool ownSettings = qputenv("XDG_CONFIG_HOME", settings.path().c_str());

template <class W>
W* widget(std::string_view name) {
    return window()->findChild<W*>(QString::fromUtf8(name.data()));
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(window()->focusWidget(), &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    if (window()) QApplication::sendEvent(window()->focusWidget(), &up);
    QCoreApplication::sendPostedEvents();
}

/// The width of a title as the frame draws it.
int widthOfTitle(const QWidget& of) {
    QFont bold = QApplication::font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(of.windowTitle());
}

/// Every dialog with the English texts.
class EachDialog : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    }
    void showEach(const std::function<void(User&, Form&)>& script) {
        std::size_t shown = 0;
        for (const Dialog& dialog : allDialogs()) {
            SCOPED_TRACE(dialog.name);
            const auto form = dialog.make();
            user().onForm(dialog.name, [&](User& u) {
                script(u, *form);
                ++shown;
                u.closeByFrame();
            });
            form->Show();
        }
        EXPECT_EQ(shown, allDialogs().size());
    }
    /// Does this on each tab, or once where there are none.
    static void onEachTab(User& u, const Form& form, const std::function<void()>& work) {
        const auto& controls = form.controls();
        const auto tabs = std::find_if(controls.begin(), controls.end(), [](const Control* each) {
            return each->kind() == ControlKind::Tabs;
        });
        if (tabs == controls.end()) return work();
        for (int i = 0; i < static_cast<const Tabs*>(*tabs)->count(); ++i) {
            u.changeTab((*tabs)->name(), i);
            work();
        }
    }
    static void expectCaptionsWhole(User& u, Form& form) {
        std::set<std::string_view> seen;
        onEachTab(u, form, [&] {
            for (const Control* each : controlsOf(form.layout().body)) {
                const auto* shown = widget<QWidget>(each->name());
                if (!dynamic_cast<const CaptionedControl*>(each) || !shown->isVisible()) continue;
                seen.insert(each->name());
                // A value of any length is shortened on purpose, and told by its tool tip.
                if (dynamic_cast<const desktop::ValueLabel*>(shown)) continue;
                EXPECT_GE(shown->height(), shown->minimumSizeHint().height()) << each->name();
                // A square button is as wide as its arrow needs, and no wider.
                if (shown->minimumWidth() == shown->maximumWidth()) {
                    const QString arrow = static_cast<const QPushButton*>(shown)->text();
                    EXPECT_GE(shown->width(), shown->fontMetrics().horizontalAdvance(arrow) + 8);
                    EXPECT_EQ(shown->width(), shown->height()) << each->name();
                    continue;
                }
                EXPECT_GE(shown->width(), shown->minimumSizeHint().width()) << each->name();
                if (!qobject_cast<const QGroupBox*>(shown)) {
                    EXPECT_GE(shown->width(), shown->sizeHint().width()) << each->name();
                }
                EXPECT_TRUE(shown->parentWidget()->rect().contains(shown->geometry()))
                    << each->name();
            }
        });
        for (const Control* each : controlsOf(form.layout().body)) {
            if (dynamic_cast<const CaptionedControl*>(each) && each->visible()) {
                EXPECT_TRUE(seen.contains(each->name())) << each->name();
            }
        }
    }
};

TEST_P(EachDialog, ShowsEveryCaptionWhole) {
    showEach([](User& u, Form& form) { expectCaptionsWhole(u, form); });
}

/// The English texts, as another language might have them.
class LongTexts : public ResourceManager {
  public:
    std::string GetString(const std::string& key) override {
        const std::string text = m_english->GetString(key);
        std::string more;
        while (5 * more.size() < 2 * text.size()) more += "nerlisch"[more.size() % 8];
        return text + more;
    }
    Font GetFont(long handle) override {
        Font font = m_english->GetFont(handle);
        if (pointSize > 0) font.pointSize = pointSize;
        return font;
    }
    double pointSize = 0;

  private:
    std::shared_ptr<ResourceManager> m_english = makeBundleResourceManager(WYNCONFIG_RESOURCES);
};

TEST_P(EachDialog, ShowsEveryCaptionWholeInALongerLanguage) {
    component.InitResourceManager(std::make_shared<LongTexts>());
    showEach([](User& u, Form& form) { expectCaptionsWhole(u, form); });
}

TEST_P(EachDialog, ShowsEveryCaptionWholeInLargerFonts) {
    const auto larger = std::make_shared<LongTexts>();
    component.InitResourceManager(larger);
    for (const double size : {13.5, 18.0}) {
        larger->pointSize = size;
        showEach([](User& u, Form& form) { expectCaptionsWhole(u, form); });
    }
}

TEST_P(EachDialog, TheSessionDialogKeepsItsSizeInALongerLanguage) {
    for (const bool longer : {false, true}) {
        if (longer) component.InitResourceManager(std::make_shared<LongTexts>());
        frmMORAMConfig form;
        user().onForm("frmMORAMConfig", [&](User& u) {
            EXPECT_EQ(window()->size(), QSize(610, 440));
            u.closeByFrame();
        });
        form.Show();
    }
}

TEST_P(EachDialog, OneOfFixedSizeHasNoButtonsToChangeIt) {
    showEach([](User&, Form& form) {
        const Qt::WindowFlags flags = window()->windowFlags();
        EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
        EXPECT_FALSE(flags & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint));
        EXPECT_EQ(window()->minimumSize() == window()->maximumSize(), form.width() > 0);
        EXPECT_EQ((flags & Qt::MSWindowsFixedSizeDialogHint) != 0, form.width() > 0);
    });
}

TEST_P(EachDialog, TheListsOfFormatsAreEquallyWideAndTheirButtonsStandByThem) {
    putFormat("CSV");
    putFullSession("DESK", {"CSV"});
    frmMORAMConfig form;
    form.init("DESK");
    user().onForm("frmMORAMConfig", [&](User& u) {
        u.changeTab("SSTab2", 1);
        const auto* available = widget<QWidget>("lstAvailableFormats");
        const auto* selected = widget<QWidget>("lstSelectedFormats2");
        EXPECT_NEAR(available->width(), selected->width(), 12);
        EXPECT_GT(available->height(), window()->height() / 2);
        EXPECT_EQ(widget<QWidget>("btnNew")->y(), available->y());
        EXPECT_LT(widget<QWidget>("btnNew")->geometry().right(), available->x());
        EXPECT_LT(available->geometry().right(), widget<QWidget>("btnAdd")->x());
        EXPECT_LT(widget<QWidget>("btnAdd")->geometry().right(), selected->x());
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(EachDialog, HasLabelsOverTheirListsAndNotOverTheButtonsBesideThem) {
    std::set<QString> lists;
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        showEach([&](User& u, Form& form) {
            onEachTab(u, form, [&] {
                QCoreApplication::processEvents();  // a page is laid out as it is painted
                for (const QLabel* label : window()->findChildren<QLabel*>()) {
                    const auto* list = qobject_cast<const QTreeView*>(label->buddy());
                    if (!list || !label->isVisible()) continue;
                    const QRect over = label->geometry();
                    EXPECT_LT(over.bottom(), list->y());
                    if (direction == Qt::LeftToRight) {
                        EXPECT_EQ(over.left(), list->x());
                    } else {
                        EXPECT_EQ(over.right(), list->geometry().right());
                    }
                    lists.insert(list->objectName());
                }
            });
        });
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(lists.size(), 4U);
}

TEST_P(EachDialog, HasNarrowBoxesForFewCharacters) {
    putFormat("CSV");
    frmPartNumberFormat form;
    form.init("CSV");
    user().onForm("frmPartNumberFormat", [&](User& u) {
        const QWidget& length = *widget<QWidget>("txtPartFieldLength");
        const QWidget& pad = *widget<QWidget>("txtPartPad");
        const QFontMetrics metrics = length.fontMetrics();
        EXPECT_GT(length.width(), metrics.horizontalAdvance("1234"));
        EXPECT_LT(length.width(), pad.width() / 2);
        EXPECT_LT(widget<QWidget>("txtMaxRecords")->width(), pad.width() / 2);
        EXPECT_EQ(length.x(), pad.x()) << "they begin alike";
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(EachDialog, HasNoOutlineAroundWhatHasNoCaption) {
    frmAddMORAMConfig form;
    form.init("NEW");
    user().onForm("frmAddMORAMConfig", [&](User& u) {
        auto& frame = *widget<QWidget>("frmSession");
        const auto colours = [&] {
            u.formTitle();
            const QImage picture = frame.grab().toImage();
            std::set<QRgb> found;
            for (int x = 0; x < picture.width(); ++x)
                found.insert(picture.pixel(x, picture.height() - 2));
            return found.size();
        };
        EXPECT_EQ(colours(), 1U);
        form.frmSession.setCaption("Session");
        EXPECT_GT(colours(), 1U);
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(EachDialog, TellsInOneLineWhereAnArrowMovesRows) {
    frmMORAMConfig form;
    user().onForm("frmMORAMConfig", [&](User& u) {
        u.changeTab("SSTab2", 1);
        auto* button = widget<QWidget>("btnAdd");
        const QPoint middle = button->rect().center();
        QHelpEvent asking(QEvent::ToolTip, middle, button->mapToGlobal(middle));
        QApplication::sendEvent(button, &asking);
        const QWidgetList all = QApplication::topLevelWidgets();
        const auto tip = std::find_if(all.begin(), all.end(), [](const QWidget* each) {
            return each->inherits("QTipLabel") && each->isVisible();
        });
        ASSERT_NE(tip, all.end());
        EXPECT_LT((*tip)->height(), 2 * (*tip)->fontMetrics().height());
        EXPECT_GT((*tip)->width(),
                  (*tip)->fontMetrics().horizontalAdvance(button->accessibleName()));
        QToolTip::hideText();
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(EachDialog, IsAsWideAsItsTitleAndNoNarrowerThanIsComfortable) {
    showEach([](User&, Form&) {
        EXPECT_FALSE(window()->windowTitle().isEmpty());
        EXPECT_GE(window()->width(), widthOfTitle(*window()) + 100);
        EXPECT_GE(window()->width(), 340);
        EXPECT_GE(window()->minimumWidth(), 340);
    });
}

TEST_P(EachDialog, ComesUpInTheSizeThatItsContentAsksFor) {
    int free = 0;
    showEach([&](User&, Form& form) {
        EXPECT_GE(window()->width(), window()->minimumSizeHint().width());
        EXPECT_GE(window()->height(), window()->minimumSizeHint().height());
        if (form.width() > 0) return;
        EXPECT_EQ(window()->size(), window()->sizeHint());
        ++free;
    });
    EXPECT_GT(free, 0);
}

TEST_P(EachDialog, FitsASmallScreen) {
    showEach([](User&, Form&) {
        EXPECT_LE(window()->width(), 1024);
        EXPECT_LE(window()->height(), 700);
    });
}

TEST_P(EachDialog, KeepsItsSizeWhenATabIsChanged) {
    showEach([](User& u, Form& form) {
        const QSize before = window()->size();
        onEachTab(u, form, [&] { EXPECT_EQ(window()->size(), before); });
    });
}

TEST_P(EachDialog, NamesEveryBoxForScreenReaders) {
    showEach([](User&, Form& form) {
        for (const Control* each : controlsOf(form.layout().body)) {
            const auto* shown = widget<QWidget>(each->name());
            const bool box = qobject_cast<const QLineEdit*>(shown) ||
                             qobject_cast<const QComboBox*>(shown) ||
                             qobject_cast<const QTreeView*>(shown);
            if (box) {
                EXPECT_FALSE(shown->accessibleName().isEmpty()) << each->name();
            }
        }
    });
}

TEST_P(EachDialog, HasDisabledTextsThatCanBeRead) {
    showEach([](User&, Form&) {
        const QPalette palette = window()->palette();
        for (const auto& [text, ground] : {std::pair(QPalette::Text, QPalette::Base),
                                           std::pair(QPalette::WindowText, QPalette::Window),
                                           std::pair(QPalette::ButtonText, QPalette::Button)}) {
            EXPECT_GE(contrast(palette.color(QPalette::Disabled, text),
                               palette.color(QPalette::Disabled, ground)),
                      4.0);
        }
    });
}

TEST_P(EachDialog, ShowsAllSymbolsOfTheEditorAtOnce) {
    frmPartNumberFormat editor;
    editor.init("");
    user().onForm("frmPartNumberFormat", [&](User& u) {
        EXPECT_EQ(u.see("lstSpecialSymbols2").rows.size(), 10u);
        EXPECT_EQ(widget<QTreeView>("lstSpecialSymbols2")->verticalScrollBar()->maximum(), 0);
        EXPECT_EQ(widget<QWidget>("frmPart")->width(), widget<QWidget>("frmVin")->width());
        EXPECT_EQ(widget<QWidget>("frmQty")->width(), widget<QWidget>("frmDesc")->width());
        EXPECT_EQ(widget<QWidget>("rdoPartLeft")->y(), widget<QWidget>("rdoPartRight")->y());
        u.click("btnCancel");
    });
    editor.Show();
}

TEST_P(EachDialog, ArrowKeysWriteNoSymbolsOnTheWay) {
    frmPartNumberFormat editor;
    editor.init("");
    user().onForm("frmPartNumberFormat", [&](User& u) {
        u.focus("lstSpecialSymbols2");
        press(Qt::Key_Down);
        press(Qt::Key_Up);
        press(Qt::Key_End);
        EXPECT_EQ(u.see("txtHeader").text, "");
        EXPECT_EQ(u.see("lstSpecialSymbols2").selected, 0u);
        press(Qt::Key_Space);
        press(Qt::Key_Return);
        EXPECT_EQ(u.see("txtHeader").text, "<ESCAPE><ESCAPE>");
        u.click("btnCancel");
    });
    editor.Show();
}

INSTANTIATE_TEST_SUITE_P(Views, EachDialog, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

/// A form with what the keyboard and long texts are tried on.
class KeyForm : public TestForm {
  public:
    KeyForm() : TestForm("frmKeys") {}

    Tabs tabAll{*this, "tabAll", {"First", "Second", "Third"}};
    Container paneFirst{*this, "paneFirst"};
    Container paneSecond{*this, "paneSecond"};
    Container paneThird{*this, "paneThird"};
    Frame frmSide{*this, "frmSide", "Side"};
    OptionButton rdoTop{*this, "rdoTop", frmSide, "Top"};
    OptionButton rdoMiddle{*this, "rdoMiddle", frmSide, "Middle"};
    OptionButton rdoBottom{*this, "rdoBottom", frmSide, "Bottom"};
    Label lblName{*this, "lblName", "Name"};
    Edit txtName{*this, "txtName"};
    Label lblBase{*this, "lblBase", "Base"};
    ComboBox cboBase{*this, "cboBase"};
    Label lblShown{*this, "lblShown", "Shown"};
    Label lblValue{*this, "lblValue"};
    Label lblItems{*this, "lblItems", "Items"};
    ListView lstItems{*this, "lstItems"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        UniCaption1.bind(*this);
        UniCaption1.setCaption(title);
        for (const std::string& item : items) {
            lstItems.add(item, item);
            cboBase.addItem(item);
        }
        cboBase.setSelectedIndex(0);
        txtName.setText(items.front());
        lblValue.setCaption(items.front());
        lstItems.ItemClick = [this] { log.push_back(lstItems.selectedItem()->text); };
        btnOK.Click = [this] { Unload(); };
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {
            column({tabs(tabAll,
                         {pane(paneFirst, {field(lblShown, lblValue),
                                           group(frmSide, {row({single(rdoTop), single(rdoMiddle),
                                                                single(rdoBottom)})}),
                                           field(lblName, txtName), field(lblBase, cboBase)}),
                          pane(paneSecond, {titled(lblItems, lstItems)}), pane(paneThird, {})}),
                    row({stretch(), single(btnOK)})}),
            &btnOK, &btnOK};
    }

  public:
    std::vector<std::string> items{"ALPHA", "BETA", "GAMMA", "DELTA"};
    std::string title = "Keys";
};

class QtLayoutTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        view = makeQtView();
    }
    static void TearDownTestSuite() { view.reset(); }
    void SetUp() override { installView(view); }
    void TearDown() override {
        installView(nullptr);
        EXPECT_NO_THROW(user.finish());
    }

    void show(const User::Script& script) {
        bool ran = false;
        user.onForm("frmKeys", [&](User& u) {
            script(u);
            ran = true;
            if (form.loaded()) u.click("btnOK");
        });
        form.Show();
        EXPECT_TRUE(ran);
    }
    /// Shows a box and looks at it.
    void lookAtBox(const std::string& text, const std::function<void(QMessageBox&)>& look,
                   const std::string& title = "Title") {
        bool ran = false;
        user.onBox([&](const SeenBox& seen) {
            EXPECT_EQ(seen.text, text);
            if (auto* box = qobject_cast<QMessageBox*>(window())) {
                look(*box);
                ran = true;
            }
            return answer::Ok;
        });
        form.UniMsgBox1.ShowMsg(text, boxstyle::Critical, title, "OK");
        form.Unload();
        EXPECT_TRUE(ran);
    }
    static int heightOfText(const QMessageBox& box) {
        return box.findChild<QLabel*>("qt_msgbox_label")->height();
    }

    static std::shared_ptr<QtView> view;
    User& user = view->user();
    KeyForm form;
};

std::shared_ptr<QtView> QtLayoutTest::view;

TEST_F(QtLayoutTest, ABoxShowsNoEmptyLinesBehindItsText) {
    int plain = 0;
    lookAtBox("One line.", [&](QMessageBox& box) { plain = box.height(); });
    for (const std::string end : {"\r\n", "\r\n\r\n", "\n", "\r"}) {
        lookAtBox("One line." + end, [&](QMessageBox& box) {
            EXPECT_EQ(box.text(), "One line.");
            EXPECT_EQ(box.height(), plain);
        });
    }
    lookAtBox("One.\r\n\r\nThree.", [&](QMessageBox& box) {
        EXPECT_EQ(box.text(), "One.\n\nThree.");
        EXPECT_GT(box.height(), plain);
    });
    lookAtBox("\r\n", [](QMessageBox& box) { EXPECT_EQ(box.text(), ""); });
}

TEST_F(QtLayoutTest, ABoxIsAsWideAsItsLine) {
    const std::string line = "The file name is missing. Enter the name of the file.";
    lookAtBox(line, [&](QMessageBox& box) {
        EXPECT_EQ(box.text().toStdString(), line);
        EXPECT_LT(heightOfText(box), 2 * box.fontMetrics().height() + 30);
        const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        EXPECT_GE(label->width(), box.fontMetrics().horizontalAdvance(box.text()));
    });
}

TEST_F(QtLayoutTest, ALongTextIsWrappedIntoEvenLines) {
    std::string text = "Some";
    qsizetype most = 0;
    for (int words = 2; words <= 40; ++words) {
        text += " words";
        lookAtBox(text, [&](QMessageBox& box) {
            const QStringList lines = box.text().split('\n');
            EXPECT_EQ(lines.join(' ').toStdString(), text);
            EXPECT_TRUE(lines.back().contains(' ')) << words << ": a word is left over";
            EXPECT_LE(box.width(), 600);
            most = std::max(most, lines.size());
        });
    }
    EXPECT_GE(most, 3);
}

TEST_F(QtLayoutTest, AWordWithoutBlanksIsBrokenInsteadOfCutOff) {
    for (const QString& word : {QString(200, 'W'), QString("部品番号のリスト").repeated(20),
                                QString("😀").repeated(100)}) {
        const QString text = "The name " + word + " is taken.";
        lookAtBox(text.toStdString(), [&](QMessageBox& box) {
            QString shown = box.text();
            EXPECT_EQ(shown.remove('\n').remove(' '), QString(text).remove(' '));
            for (const QString& line : box.text().split('\n')) {
                EXPECT_LE(box.fontMetrics().horizontalAdvance(line), 500);
                EXPECT_EQ(QString::fromUtf8(line.toUtf8()), line) << "a character was split";
            }
            EXPECT_LE(box.width(), 600);
            EXPECT_LE(box.height(), 500);
        });
    }
}

TEST_F(QtLayoutTest, ABoxIsAsWideAsItsTitle) {
    lookAtBox(
        "No.", [](QMessageBox& box) { EXPECT_GE(box.width(), widthOfTitle(box) + 100); },
        "A title that is a good deal longer than the text");
}

TEST_F(QtLayoutTest, AWindowIsAsWideAsItsTitleAlsoWhenThatChanges) {
    show([&](User& u) {
        form.UniCaption1.setCaption("A title that is a good deal longer than one would think");
        u.see("btnOK");
        EXPECT_GE(window()->minimumSizeHint().width(), widthOfTitle(*window()) + 100);
        form.UniCaption1.setCaption(std::string(500, 'W'));
        u.see("btnOK");
        EXPECT_LE(window()->minimumSizeHint().width(), 640);
    });
}

TEST_F(QtLayoutTest, TheBrowseDialogsHaveRoomForTheirColumns) {
    const TemporaryFolder folder;
    ASSERT_TRUE(QFile(folder / "a file with a name of some length.txt").open(QIODevice::WriteOnly));
    int looked = 0;
    view->onShown([&](const std::string& name) {
        if (name != "browse") return;
        ASSERT_TRUE(ownSettings);
        auto* dialog = qobject_cast<QFileDialog*>(window());
        ASSERT_NE(dialog, nullptr);
        dialog->setDirectory(QString::fromStdString(folder.path()));
        QCoreApplication::processEvents();
        EXPECT_GE(dialog->width(), 720);
        EXPECT_GE(dialog->height(), 460);
        const QHeaderView* header = dialog->findChild<QTreeView*>("treeView")->header();
        EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Stretch);
        EXPECT_EQ(header->length(), header->viewport()->width());
        for (int column = 1; column < header->count(); ++column) {
            if (header->isSectionHidden(column)) continue;
            EXPECT_EQ(header->sectionResizeMode(column), QHeaderView::ResizeToContents) << column;
            EXPECT_LT(header->sectionSize(column), header->sectionSize(0)) << column;
        }
        ++looked;
    });
    for (const bool files : {true, false}) {
        user.onBrowse("");
        EXPECT_EQ(form.UniBrowse.browse(files, "Select", "OK", "Cancel", nullptr), "");
    }
    view->onShown({});
    form.Unload();
    EXPECT_EQ(looked, 2);
}

TEST_F(QtLayoutTest, ABoxIsInTheFontOfTheDialogThatAsks) {
    form.setFont(std::make_shared<Font>(Font{"", 15.0, true, false}));
    lookAtBox("Text", [](QMessageBox& box) {
        EXPECT_EQ(box.font().pointSizeF(), 15.0);
        EXPECT_TRUE(box.font().bold());
    });
}

/// A style that has the buttons of a dialog in an order of its own.
class OrderedStyle : public QProxyStyle {
  public:
    explicit OrderedStyle(QDialogButtonBox::ButtonLayout order) : m_order(order) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* of,
                  QStyleHintReturn* more) const override {
        return hint == SH_DialogButtonLayout ? m_order
                                             : QProxyStyle::styleHint(hint, option, of, more);
    }

  private:
    QDialogButtonBox::ButtonLayout m_order;
};

TEST_F(QtLayoutTest, ButtonsAndTheTabKeyFollowTheOrderOfThePlatform) {
    const std::map<QDialogButtonBox::ButtonLayout, Log> orders = {
        {QDialogButtonBox::WinLayout, {"btnOK", "btnCancel", "btnApply"}},
        {QDialogButtonBox::GnomeLayout, {"btnApply", "btnCancel", "btnOK"}}};
    const QString style = QApplication::style()->name();
    for (const auto& [order, names] : orders) {
        QApplication::setStyle(new OrderedStyle(order));
        frmMORAMConfig dialog;
        user.onForm("frmMORAMConfig", [&, names = names](User& u) {
            std::map<int, std::string> byPlace;
            for (const std::string& each : names)
                byPlace[widget<QWidget>(each)->mapTo(window(), QPoint()).x()] = each;
            Log shown;
            for (const auto& each : byPlace) shown.push_back(each.second);
            EXPECT_EQ(shown, names);
            u.focus(names.front());
            for (std::size_t i = 1; i < names.size(); ++i) {
                u.pressTab();
                EXPECT_TRUE(u.see(names[i]).focus) << names[i];
            }
            u.click("btnCancel");
        });
        dialog.Show();
    }
    QApplication::setStyle(style);
}

TEST_F(QtLayoutTest, CtrlTabAndCtrlPageKeysTurnTheTabs) {
    show([&](User& u) {
        u.focus("txtName");
        press(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(form.tabAll.tab(), 1);
        u.focus("lstItems");
        press(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(form.tabAll.tab(), 2);
        EXPECT_EQ(form.log, Log{});
        u.focus("btnOK");
        press(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(form.tabAll.tab(), 0);
        press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(form.tabAll.tab(), 2);
        press(Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(form.tabAll.tab(), 1);
        EXPECT_TRUE(u.see("btnOK").focus);
        form.tabAll.setEnabled(false);
        u.see("btnOK");
        press(Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(form.tabAll.tab(), 1);
    });
}

TEST_F(QtLayoutTest, ALetterThatNothingMarksIsNoTextWithAlt) {
    show([](User& u) {
        u.setCaret("txtName", 0);
        const auto type = [](const QString& letter, Qt::KeyboardModifiers held) {
            QKeyEvent down(QEvent::KeyPress, letter.front().toUpper().unicode(), held, letter);
            QApplication::sendEvent(window()->focusWidget(), &down);
        };
        type("q", Qt::AltModifier);
        type("Q", Qt::AltModifier | Qt::ShiftModifier);
        EXPECT_EQ(u.see("txtName").text, "ALPHA");
        // Both together are another level of some keyboards.
        type("@", Qt::AltModifier | Qt::ControlModifier);
        type("q", Qt::NoModifier);
        EXPECT_EQ(u.see("txtName").text, "@qALPHA");
    });
}

TEST_F(QtLayoutTest, ArrowKeysChooseAmongTheOptionsOfAFrame) {
    show([&](User& u) {
        u.click("rdoTop");
        press(Qt::Key_Right);
        EXPECT_TRUE(form.rdoMiddle.value());
        EXPECT_TRUE(u.see("rdoMiddle").focus);
        EXPECT_FALSE(u.see("rdoTop").value);
        press(Qt::Key_Down);
        EXPECT_TRUE(form.rdoBottom.value());
        press(Qt::Key_Down);
        EXPECT_TRUE(form.rdoTop.value());
        press(Qt::Key_Up);
        EXPECT_TRUE(form.rdoBottom.value());
        form.rdoMiddle.setEnabled(false);
        u.see("rdoMiddle");
        press(Qt::Key_Left);
        EXPECT_TRUE(form.rdoTop.value());
        EXPECT_EQ(form.focused(), &form.rdoTop);
        form.rdoBottom.setVisible(false);
        u.see("rdoBottom");
        press(Qt::Key_Right);
        EXPECT_TRUE(form.rdoTop.value());
        EXPECT_TRUE(u.see("rdoTop").focus);
    });
}

TEST_F(QtLayoutTest, RowsArePickedByTheKeyboard) {
    show([&](User& u) {
        u.changeTab("tabAll", 1);
        u.focus("lstItems");
        press(Qt::Key_Down);
        EXPECT_EQ(form.log, (Log{"ALPHA"}));
        press(Qt::Key_Down);
        press(Qt::Key_End);
        EXPECT_EQ(form.log, (Log{"ALPHA", "BETA", "DELTA"}));
        form.log.clear();
        press(Qt::Key_Up, Qt::ControlModifier);
        press(Qt::Key_Up, Qt::ControlModifier);
        EXPECT_EQ(form.log, Log{});
        EXPECT_EQ(u.see("lstItems").selected, 4u);
        press(Qt::Key_Space);
        press(Qt::Key_Space);
        EXPECT_EQ(form.log, (Log{"BETA", "BETA"}));
        EXPECT_EQ(u.see("lstItems").selected, 2u);
    });
}

TEST_F(QtLayoutTest, LongTextsDontWidenTheWindow) {
    QSize usual;
    show([&](User&) { usual = window()->size(); });
    for (const QString& name : {QString(200, 'W'), QString("部品番号のリスト").repeated(20),
                                QString("😀👩‍🔧").repeated(40)}) {
        form.items = {name.toStdString(), "BETA"};
        show([&](User& u) {
            EXPECT_EQ(window()->width(), usual.width());
            EXPECT_LE(window()->height(), usual.height() + 40);
            EXPECT_EQ(u.see("txtName").text, name.toStdString());
            EXPECT_EQ(u.see("lblValue").caption, name.toStdString());
            EXPECT_EQ(u.see("cboBase").text, name.toStdString());
            u.changeTab("tabAll", 1);
            QCoreApplication::processEvents();  // the page is laid out as it is painted
            const auto* list = widget<QTreeView>("lstItems");
            EXPECT_GT(list->width(), usual.width() / 2);
            EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
        });
    }
}

TEST_F(QtLayoutTest, ASwitchedOffBoxStandsOutOnABlackScreenToo) {
    const QPalette before = QApplication::palette();
    QPalette black(Qt::black);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        black.setColor(role, Qt::black);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        black.setColor(role, Qt::white);
    QApplication::setPalette(black);
    show([&](User& u) {
        EXPECT_EQ(u.see("txtName").background, Background::Window);
        form.txtName.setBackground(Background::InactiveBorder);
        form.txtName.setEnabled(false);
        EXPECT_EQ(u.see("txtName").background, Background::InactiveBorder);
        const QPalette shown = widget<QLineEdit>("txtName")->palette();
        EXPECT_NE(shown.color(QPalette::Disabled, QPalette::Base), QColor(Qt::black));
        EXPECT_GE(contrast(shown.color(QPalette::Disabled, QPalette::Text),
                           shown.color(QPalette::Disabled, QPalette::Base)),
                  4.0);
    });
    QApplication::setPalette(before);
}

}  // namespace
}  // namespace wynconfig

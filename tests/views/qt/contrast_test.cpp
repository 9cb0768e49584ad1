// What a person with weak eyes needs to find in the windows, in light colours as in dark ones:
// outlines, marks and texts that stand out from their ground, measured on the pixels.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QProxyStyle>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QStyleFactory>
#include <QTableView>
#include <QVBoxLayout>
#include <set>

#include "support/clear_window.h"
#include "support/dialog_walk.h"
#include "support/test_form.h"
#include "wynconfig/qt_view.h"

namespace wynconfig {
namespace {

class Contrast : public DialogWalk {};
INSTANTIATE_TEST_SUITE_P(Views, Contrast, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Contrast, ShowsOutlinesAndTextsOfAllDialogs) {
    for (const auto& [name, palette] : schemes()) {
        SCOPED_TRACE(name);
        const Coloured coloured(palette);
        std::set<std::string> outlined;
        showEach([&](User& u, Form& form) {
            const auto look = [&] {
                u.see(form.controls().front()->name());
                outlined.merge(expectClear(*window()));
            };
            look();
            if (!form.control("SSTab2")) return;
            u.changeTab("SSTab2", 1);
            look();
        });
        EXPECT_EQ(outlined.size(), 6U) << testing::PrintToString(outlined);
    }
}

TEST_P(Contrast, ShowsThemOfWhatIsSwitchedOff) {
    for (const auto& [name, palette] : schemes()) {
        SCOPED_TRACE(name);
        const Coloured coloured(palette);
        showEach([&](User& u, Form& form) {
            for (Control* each : controlsOf(form.layout().body)) {
                const bool around = each->kind() == ControlKind::Container ||
                                    each->kind() == ControlKind::Tabs ||
                                    each->kind() == ControlKind::Frame;
                if (!around) each->setEnabled(false);
            }
            u.see(form.controls().front()->name());
            expectClear(*window());
            if (!form.control("SSTab2")) return;
            u.changeTab("SSTab2", 1);
            expectClear(*window());
        });
    }
}

/// A form with each kind of control twice, of which the other is switched off.
class PairForm : public TestForm {
  public:
    PairForm() : TestForm("frmPairs") {}

    Label lblOne{*this, "lblOne", "One"};
    Edit txtOne{*this, "txtOne"};
    Label lblOther{*this, "lblOther", "Other"};
    Edit txtOther{*this, "txtOther"};
    Label lblBase{*this, "lblBase", "Base"};
    ComboBox cboOne{*this, "cboOne"};
    Label lblNoBase{*this, "lblNoBase", "No base"};
    ComboBox cboOther{*this, "cboOther"};
    Frame frmOne{*this, "frmOne", "Side"};
    OptionButton rdoOne{*this, "rdoOne", frmOne, "Top"};
    Frame frmOther{*this, "frmOther", "Side"};
    OptionButton rdoOther{*this, "rdoOther", frmOther, "Top"};
    CheckBox chkOne{*this, "chkOne", "Reverse"};
    CheckBox chkOther{*this, "chkOther", "Reverse"};
    Label lblItems{*this, "lblItems", "Items"};
    ListView lstOne{*this, "lstOne"};
    Label lblNoItems{*this, "lblNoItems", "No items"};
    ListView lstOther{*this, "lstOther"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnOther{*this, "btnOther", "Other"};

    void setTicks(bool on) {
        for (CheckBox* each : {&chkOne, &chkOther}) each->setValue(on);
        for (OptionButton* each : {&rdoOne, &rdoOther}) each->setValue(on);
    }

  protected:
    void Form_Load() override {
        for (Edit* each : {&txtOne, &txtOther}) each->setText("ALPHA");
        for (ComboBox* each : {&cboOne, &cboOther}) {
            each->addItem("ALPHA");
            each->setSelectedIndex(0);
        }
        for (ListView* each : {&lstOne, &lstOther}) each->add("ALPHA", "ALPHA");
        for (Control* each : std::initializer_list<Control*>{&txtOther, &cboOther, &rdoOther,
                                                             &chkOther, &lstOther, &btnOther})
            each->setEnabled(false);
        btnOK.Click = [this] { Unload(); };
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblOne, txtOne), field(lblOther, txtOther), field(lblBase, cboOne),
                        field(lblNoBase, cboOther), group(frmOne, {single(rdoOne)}),
                        group(frmOther, {single(rdoOther)}), single(chkOne), single(chkOther),
                        row({titled(lblItems, lstOne), titled(lblNoItems, lstOther)}),
                        row({single(btnOther), single(btnOK)})}),
                &btnOK, &btnOK};
    }
};

class PairContrast : public Contrast {
  protected:
    /// Shows such a form in each scheme.
    void showPairs(const std::function<void(User&, PairForm&)>& look) {
        for (const auto& [name, palette] : schemes()) {
            SCOPED_TRACE(name);
            const Coloured coloured(palette);
            PairForm form;
            user().onForm("frmPairs", [&](User& u) {
                look(u, form);
                u.closeByFrame();
            });
            form.Show();
        }
    }
    /// The place behind an outline, so far from it.
    static QRect inside(const Control& control, int margin) {
        const QRect place = outlinedPart(*widgetOf(control)).value();
        return place.adjusted(margin, margin, -margin, -margin);
    }
};
INSTANTIATE_TEST_SUITE_P(Views, PairContrast, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(PairContrast, ATickIsToldFromNone) {
    showPairs([](User& u, PairForm& form) {
        for (const bool on : {false, true}) {
            form.setTicks(on);
            u.see("chkOne");
            const Picture picture(*window());
            for (const Control* each : std::initializer_list<Control*>{
                     &form.chkOne, &form.chkOther, &form.rdoOne, &form.rdoOther}) {
                SCOPED_TRACE(each->name());
                const QWidget& box = *widgetOf(*each);
                expectOutline(picture, box, outlinedPart(box).value());
                const double mark = picture.markContrast(box, inside(*each, 4));
                EXPECT_EQ(mark >= kOutline, on) << mark;
            }
        }
    });
}

TEST_P(PairContrast, WhatIsSwitchedOffLooksSo) {
    // Boxes and lists have another ground then, and the texts of all are paler.
    constexpr double kOtherGround = 1.12;
    constexpr double kPaler = 1.25;
    showPairs([&](User& u, PairForm& form) {
        u.focus("btnOK");
        const Picture picture(*window());
        const auto compareGrounds = [&](const Control& one, const Control& other) {
            const QColor ground = picture.groundOf(*widgetOf(one), inside(one, 2));
            const QColor without = picture.groundOf(*widgetOf(other), inside(other, 2));
            EXPECT_GE(contrast(ground, without), kOtherGround) << one.name();
        };
        const auto compareTexts = [&](const Control& one, const Control& other) {
            const auto textContrast = [&](const Control& control) {
                const QWidget& shown = *widgetOf(control);
                return picture.markContrast(shown, textsOf(shown).front());
            };
            EXPECT_GE(textContrast(one), kPaler * textContrast(other)) << one.name();
        };
        compareGrounds(form.txtOne, form.txtOther);
        compareGrounds(form.rdoOne, form.rdoOther);
        compareGrounds(form.chkOne, form.chkOther);
        compareGrounds(form.lstOne, form.lstOther);
        compareTexts(form.txtOne, form.txtOther);
        compareTexts(form.cboOne, form.cboOther);
        compareTexts(form.rdoOne, form.rdoOther);
        compareTexts(form.chkOne, form.chkOther);
        compareTexts(form.btnOK, form.btnOther);
    });
}

TEST_P(PairContrast, TheFocusIsSeenOnAnEmptyListToo) {
    showPairs([](User& u, PairForm& form) {
        form.lstOne.clear();
        QWidget& list = *widgetOf(form.lstOne);
        const auto outlineOfList = [&] {
            u.see("lstOne");
            return QColor(window()->grab().toImage().pixel(
                list.mapTo(window(), QPoint(0, list.height() / 2))));
        };
        u.focus("btnOK");
        const QColor usual = outlineOfList();
        u.focus("lstOne");
        EXPECT_NE(outlineOfList(), usual);
        expectOutline(Picture(*window()), list, list.rect());
        u.focus("btnOK");
        EXPECT_EQ(outlineOfList(), usual);
    });
}

TEST_P(PairContrast, ASelectionIsPalerWhereTheFocusIsNot) {
    showPairs([](User& u, PairForm& form) {
        u.pick("lstOne", "ALPHA");
        const auto& list = *static_cast<QAbstractItemView*>(widgetOf(form.lstOne));
        const QRect row = list.visualRect(list.model()->index(0, 0)).adjusted(1, 1, -1, -1);
        const QColor base = list.palette().color(QPalette::Base);
        const auto groundOfRow = [&](const char* focused) {
            u.focus(focused);
            const Picture picture(*window());
            EXPECT_GE(picture.markContrast(*list.viewport(), row), kText) << focused;
            return picture.groundOf(*list.viewport(), row);
        };
        const QColor withFocus = groundOfRow("lstOne");
        const QColor without = groundOfRow("txtOne");
        EXPECT_NE(without, base);
        EXPECT_GE(contrast(withFocus, base), 1.3 * contrast(without, base));
        EXPECT_GE(contrast(without, base), 1.3) << "it is still seen";
    });
}

TEST_P(PairContrast, ColoursThatChangeMeanwhileAreFollowed) {
    showPairs([](User&, PairForm&) {
        for (const QPalette& other : {darkColours(), QPalette(Qt::lightGray)}) {
            const Coloured changed(other);
            QCoreApplication::processEvents();
            EXPECT_EQ(window()->palette().color(QPalette::Window), other.color(QPalette::Window));
            expectClear(*window());
        }
    });
}

/// A style of a host that changes no more than a detail of Qt's own.
class HostStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* of) const override {
        return metric == PM_IndicatorWidth || metric == PM_IndicatorHeight
                   ? 19
                   : QProxyStyle::pixelMetric(metric, option, of);
    }
};

TEST_P(PairContrast, AStyleOfTheHostKeepsItsSay) {
    const QString usual = QApplication::style()->name();
    QApplication::setStyle(new HostStyle(QStyleFactory::create("fusion")));
    showPairs([](User&, PairForm& form) {
        EXPECT_EQ(outlinedPart(*widgetOf(form.chkOne)).value().size(), QSize(19, 19));
        expectClear(*window());
    });
    qApp->setStyleSheet("QToolTip { color: red }");
    showPairs([](User&, PairForm& form) {
        const QWidget& box = *widgetOf(form.chkOne);
        expectOutline(Picture(*window()), box, outlinedPart(box).value());
    });
    qApp->setStyleSheet({});
    QApplication::setStyle(usual);
}

TEST_P(PairContrast, StylesWithOutlinesOfTheirOwnAreLeftAlone) {
    const QString usual = QApplication::style()->name();
    QApplication::setStyle("windows");
    showPairs([](User& u, PairForm& form) {
        u.focus("btnOK");
        for (const Control* each : std::initializer_list<Control*>{
                 &form.txtOne, &form.cboOne, &form.chkOne, &form.rdoOne, &form.lstOne}) {
            QWidget& shown = *widgetOf(*each);
            const QImage drawn = shown.grab().toImage();
            shown.setStyle(nullptr);
            EXPECT_EQ(shown.grab().toImage(), drawn) << each->name();
        }
    });
    QApplication::setStyle(usual);
}

/// A window of a host: a table whose rows can be ticked, and what comes into it later.
class HostTable : public Contrast {
  protected:
    void SetUp() override {
        Contrast::SetUp();
        for (int row = 0; row < 4; ++row) {
            auto* item = new QStandardItem("35-0171-A");
            item->setCheckable(true);
            item->setCheckState(row % 2 ? Qt::Checked : Qt::Unchecked);
            m_rows.setItem(row, 0, item);
        }
    }
    /// Shows the window with a tick of each kind selected and not.
    void showTable(const std::function<void(QWidget&, QTableView&)>& look) {
        for (const auto& [name, palette] : schemes()) {
            SCOPED_TRACE(name);
            const Coloured coloured(palette);
            QWidget host;
            auto* column = new QVBoxLayout(&host);
            auto* table = new QTableView;
            table->setModel(&m_rows);
            table->setSelectionMode(QAbstractItemView::MultiSelection);
            table->selectRow(2);
            table->selectRow(3);
            column->addWidget(table);
            clarify(host);
            host.show();
            look(host, *table);
        }
    }

  private:
    QStandardItemModel m_rows;
};
INSTANTIATE_TEST_SUITE_P(Views, HostTable, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(HostTable, HasTicksThatAreSeen) {
    showTable([](QWidget& host, QTableView& table) {
        const Picture picture(host);
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            SCOPED_TRACE(row);
            const QModelIndex index = table.model()->index(row, 0);
            const QRect tick = tickOf(table, index);
            const Picture::Edge edge = picture.edgeOf(*table.viewport(), tick);
            EXPECT_GE(edge.outside, kOutline);
            // On the ground of a selected row the ground of the box stands out by itself.
            if (row < 2) {
                EXPECT_GE(edge.inside, kOutline);
            }
            const double mark =
                picture.markContrast(*table.viewport(), tick.adjusted(4, 4, -4, -4));
            EXPECT_EQ(mark >= kOutline, index.data(Qt::CheckStateRole) == Qt::Checked) << mark;
        }
    });
}

TEST_P(HostTable, HasWhatComesLaterJustAsClear) {
    showTable([](QWidget& host, QTableView&) {
        auto* box = new QGroupBox("Later", &host);
        auto* number = new QSpinBox(box);
        (new QVBoxLayout(box))->addWidget(number);
        host.layout()->addWidget(box);
        box->show();
        QCoreApplication::processEvents();
        expectOutline(Picture(host), *number, number->rect());
    });
}

TEST_P(HostTable, KeepsTheStyleOfAWidgetThatHasOne) {
    const std::unique_ptr<QStyle> own(QStyleFactory::create("windows"));
    QWidget host;
    auto* box = new QLineEdit(&host);
    box->setStyle(own.get());
    clarify(host);
    EXPECT_EQ(box->style(), own.get());
}

TEST_P(Contrast, BoxesAndBrowseDialogsAreClearToo) {
    for (const auto& [name, palette] : schemes()) {
        SCOPED_TRACE(name);
        const Coloured coloured(palette);
        PairForm form;
        std::set<std::string> outlined;
        const auto view = std::dynamic_pointer_cast<QtView>(installedView());
        view->onShown([&](const std::string&) { outlined.merge(expectClear(*window())); });
        user().onBox(answer::Yes);
        form.UniMsgBox1.ShowMsg("Go on?", boxstyle::YesNo, "Title", "OK");
        user().onBrowse("");
        form.UniBrowse.browse(true, "Select", "OK", "Cancel", nullptr);
        view->onShown({});
        form.Unload();
        EXPECT_TRUE(outlined.contains("QPushButton"));
        EXPECT_TRUE(outlined.contains("QSidebar"));
    }
}

}  // namespace
}  // namespace wynconfig

// What people find who see little, who hear the dialogs, or whose language runs the other way:
// names and roles, contrasts, and arrows that point where they lead.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "support/contrast.h"
#include "support/dialog_walk.h"
#include "wynconfig/form.h"

namespace wynconfig {
namespace {

QString nameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

QPalette darkPalette() {
    QPalette dark(QColor(53, 53, 53), QColor(53, 53, 53));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, Qt::white);
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(110, 110, 110));
    return dark;
}

/// The colour behind what a widget shows: the one that most of its place on the screen has. Styles
/// shade a little, so that shades count as one colour.
QColor groundOf(const QWidget& widget) {
    constexpr int frame = 2;
    constexpr QRgb shades = 0xfff0f0f0;
    const QPixmap all = window()->grab();
    const double scale = all.devicePixelRatio();
    const QRect place(widget.mapTo(window(), QPoint(frame, frame)) * scale,
                      (widget.size() - QSize(2 * frame, 2 * frame)) * scale);
    const QImage picture = all.toImage().copy(place);
    std::map<QRgb, int> colours;
    std::map<QRgb, int> shadings;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++colours[picture.pixel(x, y)];
            ++shadings[picture.pixel(x, y) & shades];
        }
    }
    const auto rank = [&](QRgb colour) {
        return std::pair(shadings[colour & shades], colours[colour]);
    };
    QRgb ground = picture.pixel(0, 0);
    for (const auto& each : colours) {
        if (rank(each.first) > rank(ground)) ground = each.first;
    }
    return QColor::fromRgb(ground);
}

QPalette::ColorRole textRole(const Control& control) {
    switch (control.kind()) {
        case ControlKind::Edit:
        case ControlKind::ListView:
        case ControlKind::ComboBox:
            return QPalette::Text;
        case ControlKind::Button:
            return QPalette::ButtonText;
        default:
            return QPalette::WindowText;
    }
}

QAccessible::Role roleOf(const Control& control) {
    switch (control.kind()) {
        case ControlKind::Edit:
            return QAccessible::EditableText;
        case ControlKind::ListView:
            return QAccessible::Tree;
        case ControlKind::ComboBox:
            return QAccessible::ComboBox;
        case ControlKind::OptionButton:
            return QAccessible::RadioButton;
        case ControlKind::CheckBox:
            return QAccessible::CheckBox;
        case ControlKind::Button:
            return QAccessible::Button;
        case ControlKind::Frame:
            return QAccessible::Grouping;
        case ControlKind::Label:
            return QAccessible::StaticText;
        case ControlKind::Tabs:
            return QAccessible::PageTabList;
        default:
            return QAccessible::NoRole;
    }
}

class Access : public DialogWalk {};
INSTANTIATE_TEST_SUITE_P(Views, Access, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Access, EverythingThatTakesTheFocusHasAPlainName) {
    int looked = 0;
    lookAtEachControl([&](User&, Form&, Control& control) {
        if (!takesFocus(control)) return;
        // What Qt tells of a combo box besides is its text.
        const bool combo = control.kind() == ControlKind::ComboBox;
        QWidget* widget = widgetOf(control);
        const QString name = combo ? widget->accessibleName() : nameOf(widget);
        EXPECT_FALSE(name.isEmpty()) << control.name();
        EXPECT_FALSE(name.contains('&')) << control.name() << ": " << name.toStdString();
        EXPECT_TRUE(
            std::any_of(name.begin(), name.end(), [](QChar each) { return each.isLetter(); }))
            << control.name() << ": " << name.toStdString();
        ++looked;
    });
    EXPECT_GT(looked, 80);
}

TEST_P(Access, EverythingHasItsRole) {
    lookAtEachControl([](User&, Form&, Control& control) {
        if (control.kind() == ControlKind::Container) return;
        QWidget* widget = widgetOf(control);
        if (auto* tabs = qobject_cast<QTabWidget*>(widget)) widget = tabs->tabBar();
        EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->role(), roleOf(control))
            << control.name();
    });
}

TEST_P(Access, LabelsAreTiedToWhatTheyStandAt) {
    int ties = 0;
    const std::function<void(const Layout&)> check = [&](const Layout& node) {
        for (const Layout& child : node.children) check(child);
        if (!node.label) return;
        QWidget* widget = widgetOf(*node.control);
        // Options have it together.
        if (node.control->kind() == ControlKind::OptionButton) widget = widget->parentWidget();
        const auto found =
            QAccessible::queryAccessibleInterface(widget)->relations(QAccessible::Label);
        const bool tied = std::any_of(found.begin(), found.end(), [&](const auto& each) {
            return each.first->object() == widgetOf(*node.label);
        });
        // Of lists Qt tells no ties, but their names.
        if (node.control->kind() == ControlKind::ListView)
            EXPECT_EQ(nameOf(widgetOf(*node.control)), nameOf(widgetOf(*node.label)));
        else
            EXPECT_TRUE(tied) << node.control->name();
        ++ties;
    };
    showEach([&](User&, Form& form) { check(form.layout().body); });
    EXPECT_GT(ties, 25);
}

TEST_P(Access, OptionsStandInAGroupOfTheirName) {
    const std::map<std::string, QString> groups = {
        {"rdoTop", "Orientation"},           {"btnClassMatches", "Window Class"},
        {"rdoPartLeft", "Alignment"},        {"rdoVINRight", "Alignment"},
        {"rdoAppend", "If the file exists"}, {"rdoOverWrite", "If the file exists"}};
    std::size_t found = 0;
    showEach([&](User&, Form& form) {
        for (Control* each : controlsOf(form.layout().body)) {
            if (each->kind() != ControlKind::OptionButton) continue;
            QAccessibleInterface* around =
                QAccessible::queryAccessibleInterface(widgetOf(*each))->parent();
            while (around && around->role() != QAccessible::Grouping) around = around->parent();
            ASSERT_NE(around, nullptr) << each->name();
            const QString name = around->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty()) << each->name();
            const auto known = groups.find(std::string(each->name()));
            if (known == groups.end()) continue;
            EXPECT_EQ(name, known->second) << each->name();
            ++found;
        }
    });
    EXPECT_EQ(found, groups.size());
}

TEST_P(Access, TheListOfTokensIsCalledSo) {
    showEach([](User&, Form& form) {
        if (form.name() != "frmPartNumberFormat") return;
        EXPECT_EQ(nameOf(window()->findChild<QWidget*>("lstSpecialSymbols2")), "Tokens");
    });
}

TEST_P(Access, AButtonBetweenListsSaysWhichWayItMoves) {
    frmMORAMConfig form;
    form.init("DESK");
    user().onForm("frmMORAMConfig", [&](User& u) {
        EXPECT_EQ(nameOf(widgetOf(form.formatTab.btnAdd)),
                  "Available Part Formats → Selected Part Formats");
        EXPECT_EQ(nameOf(widgetOf(form.formatTab.btnRemove)),
                  "Selected Part Formats → Available Part Formats");
        EXPECT_EQ(u.see("btnAdd").caption, ">");
        form.formatTab.lblSelectedFormats.setCaption("&Chosen");
        u.see("btnAdd");
        EXPECT_EQ(nameOf(widgetOf(form.formatTab.btnAdd)), "Available Part Formats → Chosen");
        EXPECT_TRUE(widgetOf(form.formatTab.btnAdd)->toolTip().contains("Chosen"));
        const QString description =
            QAccessible::queryAccessibleInterface(widgetOf(form.formatTab.btnAdd))
                ->text(QAccessible::Description);
        EXPECT_FALSE(description.contains('<')) << description.toStdString();
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(Access, TabsAndValuesAreNamedByTheirWords) {
    frmMORAMConfig form;
    form.init("DESK");
    user().onForm("frmMORAMConfig", [&](User& u) {
        const auto* tabs = static_cast<QTabWidget*>(widgetOf(form.SSTab2));
        EXPECT_EQ(tabs->tabBar()->accessibleTabName(1), "Part Number Format");
        u.type("txtDisplayName", "R&D");
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lblDisplayName2").caption, "R&D");
        EXPECT_EQ(nameOf(widgetOf(form.formatTab.lblDisplayName2)), "R&D");
        u.closeByFrame();
    });
    form.Show();
}

/// Checks every text on the screen against the ground that it really stands on.
void expectContrasts(const Control& control, QWidget& widget) {
    QWidget* shown = &widget;
    if (control.kind() == ControlKind::Container || control.kind() == ControlKind::Frame ||
        control.kind() == ControlKind::Tabs)
        return;
    const QPalette& palette = shown->palette();
    const auto group = shown->isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor text = palette.color(group, textRole(control));
    const QColor ground = groundOf(*shown);
    EXPECT_GE(contrast(text, ground), 4.5)
        << control.name() << (shown->isEnabled() ? "" : " (disabled)") << ": "
        << text.name().toStdString() << " on " << ground.name().toStdString();
    if (control.kind() != ControlKind::ListView) return;
    for (const auto each : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        EXPECT_GE(contrast(palette.color(each, QPalette::HighlightedText),
                           palette.color(each, QPalette::Highlight)),
                  4.5)
            << control.name();
    }
}

class Contrasts : public Access {
  protected:
    void check() {
        lookAtEachControl([](User& u, Form&, Control& control) {
            QWidget& widget = *widgetOf(control);
            expectContrasts(control, widget);
            control.setEnabled(!control.enabled());
            u.see(control.name());
            if (widget.isVisible()) expectContrasts(control, widget);
            control.setEnabled(!control.enabled());
        });
    }
};
INSTANTIATE_TEST_SUITE_P(Views, Contrasts, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Contrasts, AreEnoughInLight) {
    check();
}

TEST_P(Contrasts, AreEnoughInDark) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(darkPalette());
    check();
    QApplication::setPalette(before);
}

TEST_P(Contrasts, ASwitchedOffBoxStandsOut) {
    const QPalette before = QApplication::palette();
    for (const QPalette& palette : {before, darkPalette()}) {
        QApplication::setPalette(palette);
        frmMORAMConfig form;
        form.init("DESK");
        user().onForm("frmMORAMConfig", [&](User& u) {
            form.txtProgramPath.setBackground(Background::InactiveBorder);
            form.txtProgramPath.setEnabled(false);
            u.see("txtProgramPath");
            EXPECT_GE(contrast(groundOf(*widgetOf(form.txtProgramPath)),
                               groundOf(*widgetOf(form.txtDisplayName))),
                      1.1);
            expectContrasts(form.txtProgramPath, *widgetOf(form.txtProgramPath));
            u.closeByFrame();
        });
        form.Show();
    }
    QApplication::setPalette(before);
}

/// Which way an arrow points: at half its height the ink is its tip.
bool pointsRight(QWidget& button) {
    const QImage picture = button.grab().toImage();
    const QRect middle = picture.rect().adjusted(5, 5, -5, -5);
    const QRgb ground = picture.pixel(middle.topLeft());
    QRect ink;
    for (int y = middle.top(); y <= middle.bottom(); ++y) {
        for (int x = middle.left(); x <= middle.right(); ++x) {
            if (contrast(QColor(picture.pixel(x, y)), QColor(ground)) > 3) ink |= QRect(x, y, 1, 1);
        }
    }
    int left = 0;
    int right = 0;
    const int row = ink.center().y();
    for (int x = ink.left(); x <= ink.right(); ++x) {
        if (contrast(QColor(picture.pixel(x, row)), QColor(ground)) <= 3) continue;
        ++(2 * x < ink.left() + ink.right() ? left : right);
    }
    return right > left;
}

TEST_P(Access, ArrowsPointToTheListThatTheyMoveTo) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        frmMORAMConfig form;
        form.init("DESK");
        user().onForm("frmMORAMConfig", [&](User& u) {
            u.changeTab("SSTab2", 1);
            const auto middleOf = [](const Control& control) {
                QWidget* widget = widgetOf(control);
                return widget->mapTo(window(), widget->rect().center()).x();
            };
            const bool onTheRight = middleOf(form.formatTab.lstSelectedFormats2) >
                                    middleOf(form.formatTab.lstAvailableFormats);
            EXPECT_EQ(onTheRight, direction == Qt::LeftToRight);
            EXPECT_EQ(pointsRight(*widgetOf(form.formatTab.btnAdd)), onTheRight);
            EXPECT_EQ(pointsRight(*widgetOf(form.formatTab.btnRemove)), !onTheRight);
            EXPECT_EQ(u.see("btnAdd").caption, ">");
            u.closeByFrame();
        });
        form.Show();
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_P(Access, CaptionsOfTheOtherDirectionAreSeenAsTheyAre) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    lookAtEachControl([](User& u, Form&, Control& control) {
        const Sight sight = u.see(control.name());
        for (const QChar each : QString::fromStdString(sight.caption + sight.text))
            EXPECT_FALSE(each.unicode() >= 0x2066 && each.unicode() <= 0x2069) << control.name();
        for (const std::string& row : sight.rowTexts())
            EXPECT_EQ(row.find("\u2068"), std::string::npos) << control.name();
    });
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace
}  // namespace wynconfig

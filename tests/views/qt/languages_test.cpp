// Every dialog in every language in its real window: no text is cut off, and the session dialog
// keeps its size.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <algorithm>
#include <functional>

#include "support/all_dialogs.h"
#include "support/desk.h"
#include "support/languages.h"
#include "support/qt_windows.h"
#include "views/qt/widgets.h"

namespace wynconfig {
namespace {

Qt::LayoutDirection directionOf(const std::string& language) {
    return bundleLanguage(WYNCONFIG_RESOURCES, language).rightToLeft ? Qt::RightToLeft
                                                                     : Qt::LeftToRight;
}

class DialogsInEveryLanguage : public Desk {
  protected:
    void TearDown() override {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Desk::TearDown();
    }

    /// Shows every dialog in every language, laid out as the language runs, and does this on each
    /// of its tabs.
    void lookAtEach(const std::function<void(const std::string& language)>& look) {
        for (const std::string& language : allLanguages()) {
            SCOPED_TRACE(language);
            component.InitResourceManager(textsIn(language));
            QApplication::setLayoutDirection(directionOf(language));
            for (const Dialog& dialog : allDialogs()) {
                SCOPED_TRACE(dialog.name);
                const auto form = dialog.make();
                user().onForm(dialog.name, [&](User& person) {
                    onEachTab(person, [&] { look(language); });
                    ++m_looked;
                    person.closeByFrame();
                });
                form->Show();
            }
        }
        EXPECT_EQ(m_looked, allLanguages().size() * allDialogs().size());
    }

  private:
    static void onEachTab(User& person, const std::function<void()>& work) {
        const auto* tabs = window()->findChild<QTabWidget*>();
        if (!tabs) return work();
        const std::string name = tabs->objectName().toStdString();
        for (int i = 0; i < tabs->count(); ++i) {
            person.changeTab(name, i);
            work();
        }
    }

    std::size_t m_looked = 0;
};

std::string described(const QWidget& shown, const QString& text) {
    return shown.objectName().toStdString() + ": " + text.toStdString();
}

/// The width that a text takes when its marked letter is drawn by itself, for the underline: that
/// ends the joining and kerning with the letters around it.
double widthAsDrawn(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    const qsizetype mark = text.indexOf(u'&');
    if (mark < 0) return metrics.horizontalAdvance(text);
    return metrics.horizontalAdvance(text.left(mark)) +
           metrics.horizontalAdvance(text.mid(mark + 1, 1)) +
           metrics.horizontalAdvance(text.mid(mark + 2));
}

void expectRoom(const QWidget& shown, const QString& text) {
    EXPECT_GE(shown.width() + 0.5, widthAsDrawn(text, shown.font())) << described(shown, text);
    // An arrow is square on purpose, and so narrower than a button for words.
    if (std::any_of(text.begin(), text.end(), [](QChar each) { return each.isLetter(); })) {
        EXPECT_GE(shown.width(), shown.sizeHint().width()) << described(shown, text);
    }
    EXPECT_GE(shown.height(), shown.sizeHint().height()) << described(shown, text);
    for (const QWidget* each = &shown; !each->isWindow(); each = each->parentWidget()) {
        EXPECT_TRUE(each->parentWidget()->rect().contains(each->geometry()))
            << described(shown, text) << " reaches out of " << each->objectName().toStdString();
    }
}

TEST_P(DialogsInEveryLanguage, ShowTheirTextsWhole) {
    std::size_t shown = 0;
    lookAtEach([&](const std::string&) {
        for (const QLabel* each : window()->findChildren<QLabel*>()) {
            // A value of any length is shortened on purpose.
            if (!each->isVisible() || dynamic_cast<const desktop::ValueLabel*>(each)) continue;
            expectRoom(*each, each->text());
            ++shown;
        }
        for (const QAbstractButton* each : window()->findChildren<QAbstractButton*>()) {
            if (!each->isVisible() || each->text().isEmpty()) continue;
            expectRoom(*each, each->text());
            ++shown;
        }
    });
    EXPECT_GT(shown, 80 * allLanguages().size());
}

TEST_P(DialogsInEveryLanguage, ShowTheTitlesOfFramesAndTabsWhole) {
    std::size_t titles = 0;
    lookAtEach([&](const std::string&) {
        for (const QGroupBox* each : window()->findChildren<QGroupBox*>()) {
            if (!each->isVisible()) continue;
            EXPECT_GE(each->width(), each->minimumSizeHint().width())
                << described(*each, each->title());
            ++titles;
        }
        for (const QTabBar* bar : window()->findChildren<QTabBar*>()) {
            EXPECT_GE(bar->width(), bar->sizeHint().width());
            for (int i = 0; i < bar->count(); ++i) {
                EXPECT_TRUE(bar->rect().contains(bar->tabRect(i))) << bar->tabText(i).toStdString();
                EXPECT_GT(bar->tabRect(i).width(),
                          bar->fontMetrics().horizontalAdvance(bar->tabText(i).remove('&')));
                ++titles;
            }
        }
    });
    EXPECT_GT(titles, 10 * allLanguages().size());
}

TEST_P(DialogsInEveryLanguage, LeaveTheSessionDialogItsSize) {
    std::size_t shown = 0;
    lookAtEach([&](const std::string&) {
        if (window()->objectName() != "frmMORAMConfig") return;
        ++shown;
        EXPECT_EQ(window()->width(), 610);
        EXPECT_EQ(window()->height(), 440);
    });
    EXPECT_EQ(shown, 2 * allLanguages().size());
}

TEST_P(DialogsInEveryLanguage, FitASmallScreen) {
    lookAtEach([](const std::string&) {
        EXPECT_LE(window()->width(), 1024);
        EXPECT_LE(window()->height(), 700);
    });
}

TEST_P(DialogsInEveryLanguage, PutALabelWhereItsLineBegins) {
    std::size_t fromTheRight = 0;
    lookAtEach([&](const std::string& language) {
        const bool rightToLeft = directionOf(language) == Qt::RightToLeft;
        for (const QLabel* label : window()->findChildren<QLabel*>()) {
            const QWidget* box = label->buddy();
            if (!label->isVisible() || !box) continue;
            const QPoint place = label->mapTo(window(), QPoint(label->width() / 2, 0));
            const QPoint ofBox = box->mapTo(window(), QPoint(box->width() / 2, 0));
            // A label above its box begins where the box does.
            if (place.y() + label->height() <= ofBox.y()) continue;
            EXPECT_EQ(place.x() > ofBox.x(), rightToLeft) << described(*label, label->text());
            fromTheRight += rightToLeft ? 1 : 0;
        }
    });
    EXPECT_GT(fromTheRight, 10u);
}

INSTANTIATE_TEST_SUITE_P(Views, DialogsInEveryLanguage, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace wynconfig

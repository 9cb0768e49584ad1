// The host's windows in other languages: nothing stays in the one before when the language changes,
// and numbers and times follow.
#include "window/language.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDateTime>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTabBar>
#include <QTextEdit>
#include <functional>
#include <map>

#include "sending/sending.h"
#include "support/host_window.h"

#include "support/languages.h"
#include "window/first_steps.h"
#include "window/refused_dialog.h"
#include "window/store_dialogs.h"
#include "window/wording.h"
#include "wynconfig/mnemonic.h"

namespace host {
namespace {

/// What of a text is neither a value nor a key: letters of the plain alphabet are left there only
/// where a text was not translated.
QString lettersLeft(QString text) {
    static const QRegularExpression marked("\u2066[^\u2069]*\u2069");
    // A path goes to the end of what is told.
    static const QRegularExpression kept("&.|‹[A-Z0-9]+›|\"[^\"]*\"|(?<!\\w)/\\w.*");
    text.remove(marked).remove(kept);
    static const QRegularExpression word("[A-Za-z]{2,}");
    return word.match(text).captured();
}

class HostLanguage : public HostWindow {
  protected:
    void TearDown() override {
        window.reset();
        useLanguage(WYNCONFIG_RESOURCES, "en");
    }

    /// Everything that is shown or told somewhere in the window, also on pages in the back, but for
    /// what is stored: parts, names and paths.
    QStringList shownTexts() const { return textsOf(*window); }

    static QStringList textsOf(const QWidget& shown) {
        QStringList texts = {shown.windowTitle()};
        for (const QWidget* each : shown.findChildren<QWidget*>())
            texts << each->accessibleName() << each->toolTip() << each->statusTip();
        for (const auto* each : shown.findChildren<QLabel*>()) texts << each->text();
        for (const auto* each : shown.findChildren<QAbstractButton*>()) texts << each->text();
        for (const auto* each : shown.findChildren<QAction*>())
            texts << each->text() << each->statusTip();
        for (const auto* each : shown.findChildren<QMenu*>()) texts << each->title();
        for (const auto* each : shown.findChildren<QLineEdit*>()) texts << each->placeholderText();
        for (const auto* each : shown.findChildren<QTabWidget*>())
            for (int page = 0; page < each->count(); ++page) texts << each->tabText(page);
        for (const auto* each : shown.findChildren<QPlainTextEdit*>()) {
            texts << each->placeholderText();
            if (each->objectName() == "plan" || each->objectName() == "facts")
                texts << each->toPlainText();
        }
        for (const auto* each : shown.findChildren<QHeaderView*>())
            for (int column = 0; column < each->count(); ++column)
                texts << each->model()->headerData(column, Qt::Horizontal).toString();
        texts.removeAll(QString());
        return texts;
    }

    /// Changes to the language as its menu does.
    void change(const std::string& resources, const std::string& tag) {
        component.InitResourceManager(useLanguage(resources, tag));
        QCoreApplication::processEvents();
    }

    /// Looks for what is in no other language.
    static void expectNoneLeft(const QStringList& texts) {
        // Names of keys, of languages, what the toolkit says by itself, and what is stored.
        const QRegularExpression kept(
            "^(Ctrl|Shift|F1|F5|Del|Return|Alt|Tab).*|^(Deutsch|English|Español|Français|Italiano|"
            "Português)$|Scroll (Left|Right)$|.*[A-Z]{4,}.*|VIN.*|EUR.*");
        for (const QString& text : texts) {
            for (const QString& line : text.split('\n')) {
                if (kept.match(withoutMarks(line).remove('&')).hasMatch()) continue;
                EXPECT_EQ(lettersLeft(line).toStdString(), "") << line.toStdString();
            }
        }
    }

    /// The dialogs of the host's own, by their names.
    std::map<std::string, std::function<void()>> dialogs() const {
        return {{"open", [this] { askForStore(window.get(), store.root); }},
                {"take over", [this] { askForTakeOver(window.get()); }},
                {"remove", [this] { askToRemove(window.get(), "DESK"); }},
                {"quit", [this] { askToQuit(window.get()); }},
                {"failure", [this] { tellFailure(window.get(), "/tmp/a"); }},
                {"first format", [this] { askForFirstFormat(window.get()); }},
                {"guide", [this] { trigger("guide"); }},
                {"about", [this] { trigger("about"); }},
                {"refusal", [this] {
                     wynconfig::MemoryEdit edit;
                     edit.session.name = "DESK";
                     askAboutRefusal(window.get(), wynconfig::RefusedEdit("/tmp/a", edit));
                 }}};
    }

    /// Shows each of them, and does this while it is there.
    void lookAtDialogs(const std::function<void(const std::string& name, QDialog&)>& look) const {
        for (const auto& each : dialogs()) {
            const std::string& name = each.first;
            bool seen = false;
            const auto lookOnce = [&] {
                for (QWidget* shown : QApplication::topLevelWidgets()) {
                    auto* dialog = qobject_cast<QDialog*>(shown);
                    if (!dialog || !dialog->isVisible() || seen) continue;
                    seen = true;
                    look(name, *dialog);
                    dialog->reject();
                }
            };
            QTimer::singleShot(0, window.get(), lookOnce);
            each.second();
            lookOnce();  // one that does not wait for its answer
            QCoreApplication::processEvents();
            EXPECT_TRUE(seen) << name;
        }
    }

    void trigger(const char* action) const {
        window->findChild<QAction*>(QString::fromUtf8(action))->trigger();
    }

    void prepare() const {
        pick("10-0120", 2);
        choose("session", "WORKSHOP COUNTER");
    }
};

TEST_F(HostLanguage, LeavesNoTextInTheOneBefore) {
    prepare();
    change(WYNCONFIG_PSEUDO_RESOURCES, wynconfig::kPseudoLanguage);
    const QStringList texts = shownTexts();
    expectNoneLeft(texts);
    EXPECT_GT(texts.size(), 150);
}

TEST_F(HostLanguage, IsThatOfEachDialog) {
    change(WYNCONFIG_PSEUDO_RESOURCES, wynconfig::kPseudoLanguage);
    lookAtDialogs([](const std::string& name, QDialog& dialog) {
        SCOPED_TRACE(name);
        QStringList texts = textsOf(dialog);
        if (const auto* guide = dialog.findChild<QTextEdit*>(); guide && name == "guide")
            texts << guide->toPlainText();
        EXPECT_GT(texts.size(), 2);
        expectNoneLeft(texts);
    });
}

TEST_F(HostLanguage, ComesBackWhole) {
    prepare();
    const QStringList before = shownTexts();
    change(WYNCONFIG_PSEUDO_RESOURCES, wynconfig::kPseudoLanguage);
    EXPECT_NE(shownTexts(), before);
    change(WYNCONFIG_RESOURCES, "en");
    EXPECT_EQ(shownTexts(), before);
}

TEST_F(HostLanguage, IsThatOfAWindowMadeLater) {
    prepare();
    change(WYNCONFIG_PSEUDO_RESOURCES, wynconfig::kPseudoLanguage);
    QStringList changed = shownTexts();
    window.reset();
    window = std::make_unique<MainWindow>(workplace);
    window->show();
    QCoreApplication::processEvents();
    prepare();
    QStringList made = shownTexts();
    changed.sort();
    made.sort();
    EXPECT_EQ(made, changed);
}

TEST_F(HostLanguage, WritesNumbersItsOwnWay) {
    change(WYNCONFIG_RESOURCES, "de");
    EXPECT_EQ(numberText(12345).toStdString(), "12.345");
    EXPECT_EQ(secondsText(std::chrono::milliseconds(2500)), "2,5");
    pick("50-0242", 5);
    const auto& table = widget<QAbstractItemView>("partsList");
    const QModelIndex price = table.model()->index(0, CatalogueModel::Price);
    EXPECT_EQ(price.data().toString().toStdString(), "324,00");
    EXPECT_EQ(widget<QLabel>("total").text().toStdString(), "Stück: 5, gesamt: 1.620,00 EUR");
    change(WYNCONFIG_RESOURCES, "en");
    EXPECT_EQ(price.data().toString().toStdString(), "324.00");
    EXPECT_EQ(widget<QLabel>("total").text().toStdString(), "Pieces: 5, total: EUR 1,620.00");
}

TEST_F(HostLanguage, WritesMomentsItsOwnWay) {
    const QDateTime moment(QDate(2025, 11, 30), QTime(14, 5));
    change(WYNCONFIG_RESOURCES, "de");
    EXPECT_EQ(momentText(moment).toStdString(), "30.11.25 14:05");
    change(WYNCONFIG_RESOURCES, "en");
    EXPECT_EQ(momentText(moment).toStdString().substr(0, 8), "11/30/25");
}

TEST_F(HostLanguage, TellsOfAFasterWorkstationInItsWords) {
    change(WYNCONFIG_RESOURCES, "de");
    wynconfig::ItemConflict conflict;
    conflict.change = {wynconfig::ItemChange::Act::Update, wynconfig::ItemKind::Session, "desk"};
    conflict.present.emplace();
    conflict.present->changedBy = "ben@office";
    conflict.present->changedAt =
        QDateTime(QDate(2025, 11, 30), QTime(14, 5)).toUTC().toString(Qt::ISODate).toStdString();
    wynconfig::MemoryEdit edit;
    edit.session.name = "DESK";
    const wynconfig::RefusedEdit refused("English", edit, {conflict});
    QString told;
    QTimer::singleShot(0, window.get(), [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        for (const auto* each : dialog->findChildren<QLabel*>()) told += each->text() + '\n';
        dialog->reject();
    });
    EXPECT_FALSE(askAboutRefusal(window.get(), refused).has_value());
    told = withoutMarks(told);
    EXPECT_TRUE(
        told.contains("Die Sitzung DESK wurde inzwischen von ben@office am 30.11.25 14:05 "
                      "geändert."))
        << told.toStdString();
    EXPECT_FALSE(told.contains("English"));
}

/// What a person reads and presses at once, in every language.
class HostInEveryLanguage : public HostLanguage {
  protected:
    /// Does this on each page, in a window of the size of a small screen.
    void lookAtEach(const std::function<void(const std::string& place)>& look) {
        pick("10-0120", 2);
        window->resize(1366, 768);
        std::size_t looked = 0;
        for (const std::string& tag : wynconfig::shippedLanguages()) {
            change(WYNCONFIG_RESOURCES, tag);
            for (int page = 0; page < PageCount; ++page) {
                pages().setCurrentIndex(page);
                QCoreApplication::processEvents();
                look(tag + ", page " + std::to_string(page));
                ++looked;
            }
        }
        EXPECT_EQ(looked, 9U * PageCount);
    }

    /// The key that a caption marks; none where there is no mark.
    static QChar markIn(const QString& caption) {
        const std::string key = wynconfig::mnemonicOf(caption.toStdString());
        return key.empty() ? QChar() : QString::fromStdString(key).front();
    }

    /// The captions whose keys the window knows by now.
    QStringList captions() const {
        QStringList all;
        for (const QAction* each : window->menuBar()->actions()) all << each->text();
        for (const auto* each : window->findChildren<QLabel*>())
            if (each->isVisible() && each->buddy()) all << each->text();
        for (const auto* each : window->findChildren<QAbstractButton*>())
            if (each->isVisible()) all << each->text();
        for (const auto* each : window->findChildren<QTabWidget*>())
            for (int page = 0; each->isVisible() && page < each->count(); ++page)
                all << each->tabText(page);
        return all;
    }
};

TEST_F(HostInEveryLanguage, MarksNoKeyTwice) {
    const auto expectEachOnce = [](const QStringList& captions) {
        std::map<QChar, std::string> seen;
        for (const QString& caption : captions) {
            const QChar mark = markIn(caption);
            if (mark.isNull()) continue;
            const auto [other, isNew] = seen.emplace(mark, caption.toStdString());
            EXPECT_TRUE(isNew) << caption.toStdString() << " and " << other->second;
        }
    };
    lookAtEach([&](const std::string& place) {
        SCOPED_TRACE(place);
        expectEachOnce(captions());
        for (const auto* menu : window->findChildren<QMenu*>()) {
            QStringList entries;
            for (const QAction* each : menu->actions()) entries << each->text();
            if (menu->objectName() != "recentStores") expectEachOnce(entries);
        }
    });
}

/// @return how many texts there were
std::size_t expectRoom(const QWidget& shown) {
    std::size_t seen = 0;
    for (const auto* each : shown.findChildren<QAbstractButton*>()) {
        if (!each->isVisible() || each->text().isEmpty()) continue;
        EXPECT_GE(each->width(), each->minimumSizeHint().width()) << each->text().toStdString();
        ++seen;
    }
    for (const auto* each : shown.findChildren<QLabel*>()) {
        // One that gives way is whole in its tool tip.
        if (!each->isVisible() || each->text().isEmpty() || !each->toolTip().isEmpty()) continue;
        EXPECT_GE(each->width(), each->minimumSizeHint().width()) << each->text().toStdString();
        EXPECT_GE(each->height(), each->hasHeightForWidth() ? each->heightForWidth(each->width())
                                                            : each->minimumSizeHint().height())
            << each->text().toStdString();
        ++seen;
    }
    for (const auto* each : shown.findChildren<QTabBar*>()) {
        if (!each->isVisible()) continue;
        for (int tab = 0; tab < each->count(); ++tab)
            EXPECT_TRUE(each->rect().contains(each->tabRect(tab)))
                << each->tabText(tab).toStdString();
        ++seen;
    }
    return seen;
}

void expectRoomForHeads(const QWidget& shown) {
    for (const auto* each : shown.findChildren<QHeaderView*>()) {
        if (!each->isVisible() || each->orientation() != Qt::Horizontal) continue;
        for (int column = 0; column < each->count(); ++column) {
            if (each->isSectionHidden(column)) continue;
            const QString text = each->model()->headerData(column, Qt::Horizontal).toString();
            EXPECT_GE(each->sectionSize(column), each->fontMetrics().horizontalAdvance(text))
                << text.toStdString();
        }
    }
}

TEST_F(HostInEveryLanguage, HasRoomForItsTexts) {
    std::size_t seen = 0;
    lookAtEach([&](const std::string& place) {
        SCOPED_TRACE(place);
        EXPECT_LE(window->width(), 1366);
        EXPECT_LE(window->height(), 768);
        seen += expectRoom(*window);
        expectRoomForHeads(*window);
    });
    EXPECT_GT(seen, 300U);
}

TEST_F(HostInEveryLanguage, HasRoomForTheTextsOfItsDialogs) {
    std::size_t seen = 0;
    for (const std::string& tag : wynconfig::shippedLanguages()) {
        change(WYNCONFIG_RESOURCES, tag);
        lookAtDialogs([&](const std::string& name, QDialog& dialog) {
            SCOPED_TRACE(tag + ", " + name);
            EXPECT_LE(dialog.width(), 1024);
            EXPECT_LE(dialog.height(), 700);
            seen += expectRoom(dialog);
        });
    }
    EXPECT_GT(seen, 9U * 25);
}

}  // namespace
}  // namespace host

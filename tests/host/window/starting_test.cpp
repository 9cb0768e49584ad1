// Starts at which something is missing: told in a window, with a way on.
#include "window/starting.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QObject>
#include <deque>
#include <fstream>

#include "support/host_window.h"
#include "window/session_panel.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostStarting : public HostWindow {
  protected:
    void TearDown() override {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        EXPECT_TRUE(m_answers.empty()) << "a box did not come up";
    }

    /// Answers the next box by a button, once what else is to be done there is done.
    void answer(const char* button, const std::function<void(QDialog&)>& act = {}) {
        m_answers.push_back({button, act});
        if (m_answers.size() == 1) look();
    }
    /// The texts of the boxes that came up.
    std::vector<std::string> seen;

  private:
    struct Answer {
        const char* button;
        std::function<void(QDialog&)> act;
    };

    void look() {
        if (m_answers.empty()) return;
        QTimer::singleShot(5, &m_looking, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || dialog == m_last) return look();
            m_last = dialog;
            const Answer now = m_answers.front();
            m_answers.pop_front();
            if (auto* box = qobject_cast<QMessageBox*>(dialog))
                seen.push_back(withoutMarks(box->text()).toStdString());
            if (now.act) now.act(*dialog);
            auto* button = dialog->findChild<QPushButton*>(now.button);
            look();
            m_last = nullptr;
            button ? button->click() : dialog->accept();
        });
    }

    std::deque<Answer> m_answers;
    QDialog* m_last = nullptr;
    QObject m_looking;  ///< nobody looks longer than it lives
};

TEST_F(HostStarting, FindsAStoreWithoutAQuestion) {
    EXPECT_EQ(findStore(component, store.root)->root, store.root);
    EXPECT_TRUE(seen.empty());
}

TEST_F(HostStarting, MakesASampleStoreWhereThereIsNone) {
    const auto found = findStore(component, folder / "new");
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->names(wynconfig::ItemKind::Session),
              store.names(wynconfig::ItemKind::Session));
}

TEST_F(HostStarting, AsksForAnotherFolderWhereNoStoreCanBeMade) {
    const fs::path full = folder / "full";
    fs::create_directory(full);
    std::ofstream(full / "letter.txt") << "not a store";
    answer("folder");
    answer("ok", [&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("storeFolder")
            ->setText(QString::fromStdString(store.root.string()));
    });
    const auto found = findStore(component, full);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->root, store.root);
    EXPECT_EQ(seen, (std::vector<std::string>{"The folder " + full.string() +
                                              " holds other files, but no store."}));
    EXPECT_TRUE(fs::exists(full / "letter.txt"));
}

TEST_F(HostStarting, TriesAgainWhenTheUserHasPutItRight) {
    const fs::path blocked = folder / "file";
    std::ofstream(blocked) << "in the way";
    answer("again");
    answer("again", [&](QDialog&) { fs::remove(blocked); });
    const auto found = findStore(component, blocked / "store");
    ASSERT_TRUE(found.has_value());
    const std::string sentence = "The store " + (blocked / "store").string() +
                                 " can't be made: a folder of its path is a file.";
    EXPECT_EQ(seen, (std::vector<std::string>{sentence, sentence}));
}

TEST_F(HostStarting, EndsWhenTheUserGivesUp) {
    std::ofstream(folder / "file") << "in the way";
    answer("quit");
    EXPECT_FALSE(findStore(component, folder / "file" / "store").has_value());
    answer("quit");
    std::string nowhere = folder / "nowhere";
    std::string language;
    EXPECT_EQ(findTexts(nowhere, language), nullptr);
    EXPECT_EQ(seen.back(), "There are no texts in the folder \"" + nowhere + "\".");
}

TEST_F(HostStarting, TakesEnglishWhereTheTextsOfALanguageCantBeRead) {
    fs::create_directory(folder / "texts");
    fs::copy(fs::path(WYNCONFIG_RESOURCES) / "en.xlf", fs::path(folder / "texts") / "en.xlf");
    std::ofstream(fs::path(folder / "texts") / "de.xlf") << "no texts";
    std::string resources = folder / "texts";
    std::string language = "de";
    answer("english");
    EXPECT_NE(findTexts(resources, language), nullptr);
    EXPECT_EQ(language, "en");
    EXPECT_EQ(seen.size(), 1U);
}

TEST_F(HostStarting, AsksForTheFolderOfTheTexts) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    std::string resources = folder / "nowhere";
    std::string language = "en";
    answer("folder", [](QDialog& box) { EXPECT_FALSE(box.findChild<QPushButton*>("english")); });
    answer("", [](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        files.setDirectory(WYNCONFIG_RESOURCES);
        files.findChild<QLineEdit*>("fileNameEdit")->setText(WYNCONFIG_RESOURCES);
    });
    EXPECT_NE(findTexts(resources, language), nullptr);
    EXPECT_EQ(fs::weakly_canonical(resources), fs::weakly_canonical(WYNCONFIG_RESOURCES));
}

TEST_F(HostStarting, SpeaksItsLanguageAlsoWhereTheTextsOfTheDialogsAreMissing) {
    std::string resources = folder / "nowhere";
    std::string language = "de";
    std::string caption;
    answer("quit", [&](QDialog& box) {
        caption = box.findChild<QPushButton*>("english")->text().remove('&').toStdString();
    });
    EXPECT_EQ(findTexts(resources, language), nullptr);
    EXPECT_EQ(caption, "Englisch nehmen");
}

TEST_F(HostStarting, SaysWhyNothingComesUp) {
    answer("quit");
    tellBadStart("The catalogue can't be opened.");
    EXPECT_EQ(seen, (std::vector<std::string>{"The catalogue can't be opened."}));
}

TEST_F(HostStarting, OffersTheStoresDatabaseWhereTheGivenOneCantBeReached) {
    const fs::path far = folder / "far" / "shared.sqlite";
    Workplace other(component, store, wynconfig::DatabaseAddress::file(far.string()),
                    WYNCONFIG_RESOURCES);
    window.reset();
    window = std::make_unique<MainWindow>(other);
    window->show();
    window->showSessions();
    window->sessions().selectInDatabase(wynconfig::ItemKind::Session, "DESK");
    auto& again = widget<QPushButton>("databaseAgain");
    auto& own = widget<QPushButton>("takeOwnDatabase");
    EXPECT_TRUE(again.isVisible());
    EXPECT_TRUE(own.isVisible());
    own.click();
    EXPECT_FALSE(again.isVisible());
    EXPECT_FALSE(own.isVisible());
    EXPECT_TRUE(fs::exists(store.database()));
    window.reset();  // before its workplace
}

TEST_F(HostStarting, TriesTheDatabaseAgain) {
    fs::create_directory(store.database());
    window->showSessions();
    window->sessions().selectInDatabase(wynconfig::ItemKind::Session, "DESK");
    auto& again = widget<QPushButton>("databaseAgain");
    EXPECT_TRUE(again.isVisible());
    EXPECT_FALSE(widget<QPushButton>("takeOwnDatabase").isVisible());  // it is that one
    fs::remove(store.database());
    again.click();
    EXPECT_FALSE(again.isVisible());
}

}  // namespace
}  // namespace host

// What a person sees while the dialogs work through many sessions or part formats.
#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/session/frmAddMORAMConfig.h"
#include "dialogs/session/frmTallyvaneConfig.h"
#include "support/format_desk.h"
#include "support/wait_clock.h"
#include "wynconfig/error.h"

namespace wynconfig {
namespace {

using namespace std::chrono_literals;
using Stage = Progress::Stage;

/// Two sessions and three part formats. The first texts are told from the others by one letter.
class SignsOfLife : public FormatDesk {
  protected:
    void SetUp() override {
        FormatDesk::SetUp();
        for (const char* name : {"X", "Y", "Z"}) putFormat(name);
        putSessionOf("A", {"X", "Y"});
        putSessionOf("B", {"Y", "Z"});
        texts->texts["PROGRESS_TITLE"] = "&Wait";
        for (const std::string kind :
             {"CHECKING_SESSIONS", "UPDATING_SESSIONS", "SAVING_SESSIONS", "LISTING_SESSIONS",
              "LISTING_FORMATS", "TRANSFERRING_FORMATS"})
            texts->texts["PROGRESS_" + kind] = kind + " %1/%2";
    }
    /// What the person has read since then, one text after the other; "<" and ">" are where a wait
    /// begins and ends.
    Names readSince(std::size_t first) {
        Names read;
        const auto& signs = user().progress();
        for (std::size_t at = first; at < signs.size(); ++at) {
            const SeenProgress& sign = signs[at];
            read.push_back(sign.stage == Stage::Begins ? "<"
                           : sign.stage == Stage::Ends ? ">"
                                                       : sign.text);
        }
        return read;
    }
    /// What the person reads during a piece of work each of whose steps takes very long.
    template <class Work>
    Names readDuring(const Work& work) {
        const std::size_t first = user().progress().size();
        const WaitClock slow(600ms);
        work();
        return readSince(first);
    }
    /// The same, each text once, without its numbers and without where it begins and ends.
    template <class Work>
    Names kindsDuring(const Work& work) {
        Names kinds;
        for (const std::string& text : readDuring(work)) {
            const std::string kind = text.substr(0, text.find(' '));
            if (kind.size() > 1 && std::ranges::find(kinds, kind) == kinds.end())
                kinds.push_back(kind);
        }
        return kinds;
    }
};
ON_EVERY_VIEW(SignsOfLife);

TEST_P(SignsOfLife, ADeletionIsOneWaitWithAllItsParts) {
    open("A", [&](User& u) {
        u.pick("lstAvailableFormats", "Y");
        u.onBox(answer::Yes);
        EXPECT_EQ(
            readDuring([&] { u.click("btnDelete"); }),
            (Names{"<", "CHECKING_SESSIONS 1/2", "CHECKING_SESSIONS 2/2", "UPDATING_SESSIONS 0/2",
                   "UPDATING_SESSIONS 1/2", "UPDATING_SESSIONS 2/2", "SAVING_SESSIONS 0/2",
                   "SAVING_SESSIONS 1/2", "SAVING_SESSIONS 2/2", "LISTING_FORMATS 0/2",
                   "LISTING_FORMATS 1/2", "LISTING_FORMATS 2/2", ">"}));
    });
    EXPECT_EQ(formatsOf("A"), Names{"X"});
    EXPECT_EQ(formatsOf("B"), Names{"Z"});
}

TEST_P(SignsOfLife, TheBarStandsWhereTheNumbersSay) {
    open("A", [&](User& u) {
        u.pick("lstAvailableFormats", "Y");
        u.onBox(answer::Yes);
        readDuring([&] { u.click("btnDelete"); });
        const auto& signs = u.progress();
        const auto sign = std::ranges::find(signs, "UPDATING_SESSIONS 1/2", &SeenProgress::text);
        ASSERT_NE(sign, signs.end());
        EXPECT_EQ(*sign, (SeenProgress{Stage::Lasts, "Wait", "UPDATING_SESSIONS 1/2", 1, 2}));
    });
}

TEST_P(SignsOfLife, QuickWorkIsAWaitWithoutWords) {
    const WaitClock still;
    open("A", [&](User& u) {
        const std::size_t first = u.progress().size();
        EXPECT_GT(first, 0U) << "the lists were filled";
        texts->asked.clear();
        u.pick("lstAvailableFormats", "Y");
        u.onBox(answer::Yes);
        u.click("btnDelete");
        EXPECT_EQ(readSince(first), (Names{"<", ">"}));
        for (const std::string& key : texts->asked)
            EXPECT_FALSE(key.starts_with("PROGRESS_")) << key;
    });
}

TEST_P(SignsOfLife, RenamingAndEditingGoThroughTheSessionsToo) {
    open("A", [&](User& u) {
        u.pick("lstAvailableFormats", "Y");
        u.onForm("dlgSingleEntry", [](User& prompt) {
            prompt.type("txtTextBox", "NEW");
            prompt.click("OKButton");
        });
        const Names through{"UPDATING_SESSIONS", "SAVING_SESSIONS", "LISTING_FORMATS"};
        EXPECT_EQ(kindsDuring([&] { u.click("btnRename"); }), through);
        u.onForm("frmPartNumberFormat", [](User& editor) {
            editor.type("txtMaxRecords", "1");
            editor.click("btnOk");
        });
        EXPECT_EQ(kindsDuring([&] { u.click("btnEdit"); }), through);
    });
    EXPECT_EQ(formatsOf("B"), (Names{"NEW", "Z"}));
}

TEST_P(SignsOfLife, NobodyWaitsWhileABoxIsUp) {
    putMalformedSession("AA");
    Names before;
    open("A", [&](User& u) {
        u.pick("lstAvailableFormats", "Y");
        u.onBox(answer::Yes);
        for (int i = 0; i < 2; ++i) {
            u.onBox([&](const SeenBox&) {
                before.push_back(readSince(0).back());
                return answer::Ok;
            });
        }
        EXPECT_EQ(readDuring([&] { u.click("btnDelete"); }).back(), ">");
    });
    EXPECT_EQ(before, (Names{">", ">"}));
}

TEST_P(SignsOfLife, ADialogThatCameUpForAnotherOneIsNotWaitedFor) {
    open("A", [&](User& u) {
        u.onForm("frmPartNumberFormat", [&](User& editor) {
            EXPECT_EQ(readSince(0).back(), ">");
            editor.click("btnCancel");
        });
        u.click("btnNew");
    });
}

TEST_P(SignsOfLife, TextsThatAreMissingAreEnglish) {
    for (const std::string key : {"PROGRESS_TITLE", "PROGRESS_CHECKING_SESSIONS"})
        texts->missing.insert(key);
    texts->texts["PROGRESS_UPDATING_SESSIONS"] = "";
    open("A", [&](User& u) {
        u.pick("lstAvailableFormats", "Y");
        u.onBox(answer::Yes);
        const Names read = readDuring([&] { u.click("btnDelete"); });
        EXPECT_EQ(read[1], "Checking sessions: 1 of 2");
        EXPECT_EQ(read[3], "Updating sessions: 0 of 2");
        const auto& signs = u.progress();
        EXPECT_EQ(std::ranges::find(signs, read[1], &SeenProgress::text)->title, "Please Wait");
    });
    EXPECT_EQ(user().boxes().size(), 1U) << "the question, and no failure";
}

TEST_P(SignsOfLife, TheListsOfTheDialogsAreWaitedFor) {
    EXPECT_EQ(kindsDuring([] { frmTallyvaneConfig().init(std::make_shared<Dataset>(), "A"); }),
              Names{"LISTING_FORMATS"});
    EXPECT_EQ(kindsDuring([] { frmAddMORAMConfig().init("A"); }), Names{"LISTING_SESSIONS"});
    EXPECT_EQ(kindsDuring([] { frmMORAMConfig().init(""); }), Names{"LISTING_FORMATS"});
    user().onForm("frmMORAMMaintenance", pressing("btnCancel"));
    std::string name;
    EXPECT_EQ(kindsDuring([&] { component.showMORAMMaintenanceDlg(name); }),
              Names{"LISTING_SESSIONS"});
    user().onForm("frmSessionManager", pressing("btnCancel"));
    EXPECT_EQ(kindsDuring([&] { component.showSessionManagerDlg("A,B"); }),
              Names{"LISTING_SESSIONS"});
}

TEST_P(SignsOfLife, PartFormatsThatComeAndGoAreWaitedFor) {
    EXPECT_EQ(readDuring([&] { EXPECT_TRUE(component.MigrateSession("/store/", "A")); }),
              (Names{"<", "TRANSFERRING_FORMATS 1/2", "TRANSFERRING_FORMATS 2/2", ">"}));
    std::vector<std::string> formats;
    EXPECT_EQ(readDuring([&] { formats = component.GetDatasetFormatsData(); }),
              (Names{"<", "TRANSFERRING_FORMATS 1/2", "TRANSFERRING_FORMATS 2/2", ">"}));
    announceConfiguring([](User& u) { u.click("btnCancel"); });
    std::string name = "A";
    EXPECT_EQ(kindsDuring([&] {
                  component.showMORAMConfigDlgEX(name, component.GetDatasetSessionData(), formats);
              }),
              (Names{"TRANSFERRING_FORMATS", "LISTING_FORMATS"}));
}

TEST_P(SignsOfLife, FactoryFormatsThatJoinASessionInMemoryAreWaitedFor) {
    openInMemory({"X", "Y"}, [&](User& u) {
        u.changeTab("SSTab2", 0);
        u.onBox();  // there is no program
        const Names read = readDuring([&] { u.click("btnApply"); });
        EXPECT_EQ(read[1], "TRANSFERRING_FORMATS 1/2");
        EXPECT_EQ(read[2], "TRANSFERRING_FORMATS 2/2");
    });
    EXPECT_EQ(hostKeys(), (Names{"X", "Y"}));
}

/// A view that fails at every sign of life.
class Lifeless : public ScriptedView {
  public:
    void showProgress(const Progress&) override { throw Error(errc::InvalidCall, "no bar"); }
};

TEST_P(SignsOfLife, AViewThatFailsAtThemIsNothingToTheWork) {
    const auto broken = std::make_shared<Lifeless>();
    installView(broken);
    const WaitClock slow(600ms);
    frmMORAMConfig().UpdatePartNumberFormatsInAllMORAMs("Y", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "NEW"}));
    EXPECT_EQ(formatsOf("B"), (Names{"NEW", "Z"}));
    EXPECT_NO_THROW(broken->user().finish()) << "no box came up";
}

}  // namespace
}  // namespace wynconfig

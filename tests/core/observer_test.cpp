// What a program that watches the component gets to see.
#include "wynconfig/observer.h"

#include <stdexcept>
#include <string>
#include <vector>

#include "support/session_dialog_desk.h"

namespace wynconfig {
namespace {

/// Notes down a line for each thing that it is told.
class Notes : public Observer {
  public:
    void failed(const Failure& failure) override {
        lines.push_back(failure.operation + "|" + failure.tag + "|" +
                        std::to_string(failure.number) + "|" + failure.description);
        if (throwing) throw std::runtime_error("the host's own");
    }
    void answered(const MessageRequest& box, int answer) override {
        lines.push_back("box " + std::to_string(answer) + " " + box.title);
        if (throwing) throw 42;
    }
    std::vector<std::string> lines;
    bool throwing = false;
};

class Observing : public FullSessionDesk {
  protected:
    void SetUp() override {
        FullSessionDesk::SetUp();
        installObserver(notes);
    }
    void TearDown() override {
        installObserver(nullptr);
        FullSessionDesk::TearDown();
    }
    void refuseText() {
        std::string name = "DESK";
        user().onBox();
        EXPECT_EQ(component.showMORAMConfigDlgEX(name, "no xml", {}), 1);
    }

    const std::shared_ptr<Notes> notes = std::make_shared<Notes>();
    const std::string refusal =
        "showMORAMConfigDlgEX|showMORAMConfigDlgEX|0|strSessionDataXML is not a valid XML document";
    const std::string refusalBox = "box 1 {GLOBAL_MOD_UNEXPECTED}";
};
ON_EVERY_VIEW(Observing);

TEST_P(Observing, TellsAFailureAndThenItsBox) {
    refuseText();
    EXPECT_EQ(notes->lines, (std::vector<std::string>{refusal, refusalBox}));
}

TEST_P(Observing, TellsTheInnermostOperation) {
    std::string name = "desk";
    user().onForm("frmMORAMConfig", [this](User& u) {
        refuseText();
        u.click("btnCancel");
    });
    component.showMORAMConfigDlg(name);
    ASSERT_EQ(notes->lines.size(), 2U);
    EXPECT_EQ(notes->lines[0], refusal);
    // Behind an inner operation it is the outer one again.
    ConfigGlobalModule::g_DatasetMode = false;
    disk.failOn(Operation::Read, "DESK.vla");
    user().onBox();
    user().onForm("frmMORAMConfig", pressing("btnCancel"));
    EXPECT_EQ(component.GetDatasetFormatsData(), std::vector<std::string>{""});
    component.showMORAMConfigDlg(name);
    ASSERT_EQ(notes->lines.size(), 4U);
    EXPECT_TRUE(notes->lines[2].starts_with("showMORAMConfigDlg|")) << notes->lines[2];
    EXPECT_TRUE(notes->lines[2].find("|75|") != std::string::npos) << notes->lines[2];
}

TEST_P(Observing, TellsQuestionsWithTheirAnswers) {
    user().onForm("frmMORAMMaintenance", [](User& u) {
        u.pick("lstAvailableMORAMs2", "DESK");
        u.click("btnDelete");
        u.click("btnCancel");
    });
    user().onBox(answer::No);
    std::string name;
    component.showMORAMMaintenanceDlg(name);
    ASSERT_EQ(notes->lines.size(), 1U);
    EXPECT_TRUE(notes->lines[0].starts_with("box " + std::to_string(answer::No) + " {"))
        << notes->lines[0];
}

TEST_P(Observing, TellsAFailureWhoseBoxCannotComeUp) {
    installView(nullptr);
    std::string name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, "no xml", {}), 1);
    EXPECT_EQ(notes->lines.front(), refusal);
}

TEST_P(Observing, MindsNothingThatItRaises) {
    notes->throwing = true;
    refuseText();
    EXPECT_EQ(notes->lines, (std::vector<std::string>{refusal, refusalBox}));
    installObserver(nullptr);
    refuseText();
    EXPECT_EQ(notes->lines.size(), 2U);
}

TEST_P(Observing, TellsOfARootWithoutItsSeparator) {
    component.init("/store");
    EXPECT_EQ(notes->lines,
              (std::vector<std::string>{
                  "init|WYNConfig:init|5|The root \"/store\" has no separator behind it: the "
                  "store's folders are \"/storeMORAM\\\" and \"/storePARTFORMAT\\\"."}));
    EXPECT_TRUE(memory->folderExists("/storeMORAM")) << "it is used as it stands";
    notes->lines.clear();
    component.init("/store/");
    component.init("/store\\");
    EXPECT_EQ(notes->lines, std::vector<std::string>{});
}

TEST_P(Observing, IsNothingToOtherOperations) {
    std::string name = "desk";
    user().onForm("frmMORAMConfig", pressing("btnCancel"));
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(component.GetDatasetFormatsData(), std::vector<std::string>{""});
    EXPECT_EQ(notes->lines, std::vector<std::string>{});
}

}  // namespace
}  // namespace wynconfig

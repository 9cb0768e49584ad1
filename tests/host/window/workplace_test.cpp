// The operations on the database as the host calls them, behind a view without a screen.
#include <algorithm>
#include <memory>

#include "installed_view.h"
#include "platform/files/faulty_file_system.h"
#include "support/host_window.h"
#include "window/operations.h"
#include "wynconfig/dataset.h"
#include "wynconfig/scripted_view.h"

namespace host {
namespace {

constexpr const char* kSession = "WORKSHOP COUNTER";

class HostWorkplace : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        // The database has a copy of a session of the store, which is no factory item then.
        put(wynconfig::ItemKind::Session, "DESK", textOf("MORAM", kSession, "DESK"));
    }

    void TearDown() override { workplace.onFiles(); }  // other tests of the thread begin there

    wynconfig::User& user() { return view->user(); }

    void put(wynconfig::ItemKind kind, const std::string& name, const std::string& xml) {
        workplace.database().store({{wynconfig::ItemChange::Act::Insert, kind, name, xml}});
    }
    /// The text of a record of the store under another name.
    std::string textOf(const std::string& type, const std::string& item, const std::string& name) {
        wynconfig::Dataset record;
        record.Load((store.root / type / (item + ".vla")).string());
        record.setName(name);
        wynconfig::Document document;
        record.Save(document);
        return document.xml();
    }
    Outcome configureDesk() {
        user().onForm("frmMORAMConfig", [](wynconfig::User& u) { u.click("btnOK"); });
        Selection selection;
        selection.database = SelectedItem{wynconfig::ItemKind::Session, {"DESK", 0, "", ""}};
        const auto& all = operations();
        return std::find_if(
                   all.begin(), all.end(),
                   [](const auto& each) { return std::string(each.id) == "configure-of-database"; })
            ->call(workplace, selection);
    }

    std::shared_ptr<wynconfig::ScriptedView> view = std::make_shared<wynconfig::ScriptedView>();
    InstalledView installed{view};
};

TEST_F(HostWorkplace, TellsThatAnEditWasStoredAndWhatWasLeftOut) {
    EXPECT_EQ(configureDesk().text, "Stored in the database.");
    put(wynconfig::ItemKind::PartFormat, "BROKEN", "<half");
    const Outcome outcome = configureDesk();
    EXPECT_EQ(outcome.text,
              "The part format BROKEN is damaged and was left out. Stored in the database.");
    EXPECT_EQ(outcome.name, "DESK");
    EXPECT_NE(outcome.shown.find("DESK"), std::string::npos);
}

TEST_F(HostWorkplace, SavesFilesAgainAfterTheInMemoryMode) {
    configureDesk();
    user().onForm("frmMORAMConfig", [](wynconfig::User& u) {
        u.type("txtCommandLineArgs", "--of the file");
        u.click("btnOK");
    });
    std::string name = kSession;
    EXPECT_EQ(workplace.onFiles().showMORAMConfigDlg(name), 0);
    wynconfig::Dataset record;
    record.Load((store.sessions() / "WORKSHOP COUNTER.vla").string());
    EXPECT_EQ(record.GetRow("CommandLineArgs")[1], "--of the file");
}

TEST_F(HostWorkplace, KeepsTheSessionListAsAWholeNewFile) {
    workplace.keepSessionList("DESK,LONGER");
    std::filesystem::create_hard_link(store.sessionList(), store.root / "as it was");
    workplace.keepSessionList("DESK");
    EXPECT_EQ(workplace.sessionList(), "DESK");
    EXPECT_EQ(readFile(store.root / "as it was"), "DESK,LONGER");
}

TEST_F(HostWorkplace, KeepsTheFormerSessionListWhenTheNewOneCantBeWritten) {
    workplace.keepSessionList("DESK");
    const auto disk = wynconfig::makeRealFileSystem();
    wynconfig::FaultyFileSystem full(*disk);
    full.failOn(wynconfig::FaultyFileSystem::Operation::Save);
    wynconfig::setFileSystem(&full);
    EXPECT_THROW(workplace.keepSessionList("OTHER"), wynconfig::Error);
    wynconfig::setFileSystem(nullptr);
    EXPECT_EQ(workplace.sessionList(), "DESK");
}

}  // namespace
}  // namespace host

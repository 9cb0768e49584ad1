// Several threads, each with a component of its own: what one of them does is nothing to the
// others.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/text/numbers.h"
#include "support/temporary_folder.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {
namespace {

/// Texts that tell whose they are.
class OwnTexts : public ResourceManager {
  public:
    explicit OwnTexts(std::string owner) : m_owner(std::move(owner)) {}
    std::string GetString(const std::string& key) override { return m_owner + " " + key; }
    Font GetFont(long) override { return {}; }

  private:
    std::string m_owner;
};

/// A host on a thread of its own, with its own store, view and texts.
class HostOnAThread {
  public:
    explicit HostOnAThread(std::string name) : m_name(std::move(name)) {}

    /// Goes through the ways of working; all is as on one thread.
    void work(int rounds) {
        std::ofstream(m_folder / "parts.exe") << "a program";
        installView(m_view);
        setNumberLocale(m_name == "HOST0" ? "de-DE" : "en-US");
        m_component.InitResourceManager(std::make_shared<OwnTexts>(m_name));
        m_component.init(m_folder.path() + "/");
        putFormat();
        for (int round = 0; round < rounds; ++round) {
            addSession(m_name + " " + std::to_string(round));
            exchange();
            meetAFailure();
        }
        m_view->user().finish();
        installView(nullptr);
    }
    /// The sessions of the store, joined by commas, as the component gives them.
    std::string sessions() {
        std::string all;
        installView(m_view);
        m_view->user().onForm("frmMORAMMaintenance", [&](User& u) {
            for (const std::string& each : u.see("lstAvailableMORAMs2").rowTexts())
                all += each + ",";
            u.click("btnCancel");
        });
        std::string none;
        m_component.showMORAMMaintenanceDlg(none);
        return all;
    }

  private:
    void putFormat() {
        Dataset format;
        format.Create(partformat::kType, "CSV", "", session::kColumns);
        format.Save((m_folder / "PARTFORMAT" / "CSV.vla").string());
    }
    void addSession(const std::string& name) {
        m_view->user().onForm("frmAddMORAMConfig", [name](User& u) {
            u.type("txtName", name);
            u.click("btnOK");
        });
        m_view->user().onForm("frmMORAMConfig", [this](User& u) {
            EXPECT_EQ(u.formTitle(), m_name + " MORAM_CONFIG_TITLE");
            u.type("txtProgramPath", (m_folder / "parts.exe").string());
            u.changeTab("SSTab2", 1);
            u.pick("lstAvailableFormats", "CSV");
            u.click("btnAdd");
            u.click("btnOK");
        });
        std::string added;
        EXPECT_EQ(m_component.showAddMORAMConfigDlg(added), 0);
        EXPECT_EQ(added, name);
    }
    void exchange() {
        Document document;
        Dataset session;
        session.setName(m_name);
        session.Save(document);
        m_view->user().onForm("frmMORAMConfig", [](User& u) { u.click("btnCancel"); });
        std::string name = m_name;
        EXPECT_EQ(m_component.showMORAMConfigDlgEX(name, document.xml(), {}), 1);
        EXPECT_EQ(m_component.GetDatasetSessionData(), document.xml());
        // The comma is a mark of this thread's locale.
        EXPECT_EQ(toDouble("1,5"), m_name == "HOST0" ? 1.5 : 15.0);
    }
    void meetAFailure() {
        m_view->user().onBox();
        std::string name;
        EXPECT_EQ(m_component.showMORAMConfigDlgEX(name, "no xml", {}), 1);
        const std::string told = m_view->user().boxes().back().text;
        EXPECT_TRUE(told.starts_with(m_name + " ")) << told;
    }

    const std::string m_name;
    const TemporaryFolder m_folder;
    const std::shared_ptr<ScriptedView> m_view = std::make_shared<ScriptedView>();
    WYNConfig m_component;
};

TEST(Threads, EachHasAComponentOfItsOwn) {
    constexpr int count = 4;
    constexpr int rounds = 5;
    std::vector<std::thread> threads;
    std::array<std::string, count> listed;
    for (int number = 0; number < count; ++number) {
        threads.emplace_back([number, &listed] {
            HostOnAThread host("HOST" + std::to_string(number));
            host.work(rounds);
            listed[static_cast<std::size_t>(number)] = host.sessions();
        });
    }
    for (std::thread& each : threads) each.join();
    for (int number = 0; number < count; ++number) {
        std::string expected;
        for (int round = 0; round < rounds; ++round)
            expected += "HOST" + std::to_string(number) + " " + std::to_string(round) + ",";
        EXPECT_EQ(listed[static_cast<std::size_t>(number)], expected);
    }
}

TEST(Threads, HaveNoViewUntilTheyInstallOne) {
    const auto view = std::make_shared<ScriptedView>();
    installView(view);
    std::shared_ptr<View> seen = view;
    std::thread([&] { seen = installedView(); }).join();
    EXPECT_NE(seen, view);
    EXPECT_EQ(installedView(), view);
    installView(nullptr);
}

}  // namespace
}  // namespace wynconfig

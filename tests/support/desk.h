// A desk for acceptance tests: a store, texts, a view with a person in front of it. The tests are
// written once and run on every view.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "platform/files/file_system.h"
#include "store/config_global_module.h"
#include "support/short_names.h"
#include "wynconfig/dataset.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

/// A resource manager whose text of a key is the key in braces, unless a test says otherwise.
class TestTexts : public ResourceManager {
  public:
    std::map<std::string, std::string> texts;  ///< texts that differ from the rule
    std::set<std::string> missing;             ///< keys that raise
    bool failing = false;                      ///< every key raises
    bool fontFailing = false;
    Font font{"Sans", 9.0, false, false};
    std::vector<std::string> asked;  ///< the keys in the order of their asking

    std::string GetString(const std::string& key) override;
    Font GetFont(long handle) override;
    /// Those of `texts` alone.
    std::string FindString(const std::string& key) override;
};

/// The rows of a record, by key.
using Rows = std::map<std::string, std::string>;

/// The fixture. The store lies in memory below "/store/", behind a file system that fails on
/// demand; number marks are those of en-US.
class Desk : public ::testing::TestWithParam<const char*> {
  protected:
    void SetUp() override;
    void TearDown() override;

    User& user() { return *m_user; }
    /// Whether the dialogs come up in windows, which takes its time.
    static bool onScreen() { return std::string(GetParam()) != "Scripted"; }

    /// Writes an item file straight into the store.
    void putSession(const std::string& name,
                    const std::vector<std::pair<std::string, std::string>>& rows);
    void putFormat(const std::string& name,
                   const std::vector<std::pair<std::string, std::string>>& rows = {});
    /// The rows of a session with every key at a value of its own.
    static std::vector<std::pair<std::string, std::string>> fullSession(
        const std::vector<std::string>& formats);
    void putFullSession(const std::string& name, const std::vector<std::string>& formats);
    /// Replaces the data of rows that a session has.
    void changeSession(const std::string& name,
                       const std::vector<std::pair<std::string, std::string>>& rows);
    /// A record and its rows, straight from the item file.
    std::shared_ptr<Dataset> sessionRecord(const std::string& name);
    Rows sessionRows(const std::string& name);
    std::string sessionText(const std::string& name);
    bool sessionExists(const std::string& name);
    std::vector<std::string> sessionFiles();
    std::shared_ptr<Dataset> formatRecord(const std::string& name);
    std::string formatText(const std::string& name);
    std::vector<std::string> formatFiles();
    /// The keys of the part formats that the host holds, in their order.
    static Names hostKeys();
    /// Puts a program where a session's path can name it.
    void putProgram(const std::string& path);

    /// The session dialog is to come up next.
    void announceConfiguring(const User::Script& script) {
        user().onForm("frmMORAMConfig", script);
    }
    /// A script that presses one button.
    static User::Script pressing(const std::string& button) {
        return [button](User& u) { u.click(button); };
    }

    /// The failure box that a tag and description make by these texts.
    static std::string failureText(const std::string& tag, const std::string& description);
    /// Whether the text is that of a failure box with this tag.
    static bool isFailureOf(const std::string& text, const std::string& tag);

    WYNConfig component;
    std::shared_ptr<TestTexts> texts = std::make_shared<TestTexts>();
    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    FaultyFileSystem disk{*memory};
    const std::string sessionFolder = "/store/MORAM\\";
    const std::string formatFolder = "/store/PARTFORMAT\\";

  private:
    std::shared_ptr<View> m_view;
    User* m_user = nullptr;
};

/// Makes a view by its name, one of `WYNCONFIG_TEST_VIEWS`, and gives its user.
std::shared_ptr<View> makeView(const std::string& name, User*& user);

/// Runs the tests of a fixture on every view that this build has.
#define ON_EVERY_VIEW(Fixture)                                                        \
    INSTANTIATE_TEST_SUITE_P(Views, Fixture, ::testing::Values(WYNCONFIG_TEST_VIEWS), \
                             [](const auto& each) { return std::string(each.param); })

}  // namespace wynconfig

// The disk of Windows: attributes, files that others hold open, long paths, links and pipes.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/files/win32/win32.h"
#include "support/file_system_kit.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using NameSet = std::set<std::string>;

class WindowsDisk : public OnTheDisk {
  protected:
    std::wstring native(const std::string& name) const { return nativePath(root + name); }
    /// Opens a file as another program would.
    Handle hold(const std::string& name, DWORD share) const {
        Handle file{::CreateFileW(native(name).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                  0, nullptr)};
        EXPECT_TRUE(file.isOpen()) << ::GetLastError();
        return file;
    }
    void setAttributes(const std::string& name, DWORD attributes) const {
        EXPECT_TRUE(::SetFileAttributesW(native(name).c_str(), attributes));
    }
    DWORD attributes(const std::string& name) const {
        return ::GetFileAttributesW(native(name).c_str());
    }
    void saveInBatch(const Names& all) const {
        SaveBatch batch{*files};
        for (const std::string& name : all) files->save(at(name), "new");
        batch.commit();
    }
    static void expectFailure(const std::string& description, const std::function<void()>& call) {
        const Error error = raisedBy(call);
        EXPECT_EQ(error.number(), errc::FileAccess);
        EXPECT_EQ(error.description(), description);
    }
    std::string heldOpen(const std::string& verb) const {
        return "The file " + root + "A.vla can't be " + verb + ": another program holds it open.";
    }
};

TEST_F(WindowsDisk, keepsAttributes) {
    constexpr DWORD kOdd = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    for (const char* name : {"A.vla", "B.vla", "C.vla"}) put(name, "old");
    setAttributes("A.vla", kOdd);
    setAttributes("B.vla", FILE_ATTRIBUTE_HIDDEN);
    const DWORD a = attributes("A.vla") & kOdd;
    const DWORD b = attributes("B.vla") & kOdd;
    if (a != kOdd || b != FILE_ATTRIBUTE_HIDDEN) GTEST_SKIP() << "this disk keeps none";
    files->save(at("A.vla"), "new");
    saveInBatch({"B.vla", "C.vla"});
    EXPECT_EQ(attributes("A.vla") & kOdd, kOdd);
    EXPECT_EQ(attributes("B.vla") & kOdd, DWORD{FILE_ATTRIBUTE_HIDDEN});
    EXPECT_EQ(attributes("C.vla") & kOdd, 0U);
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla") + contentOf("C.vla"), "newnewnew");
}

TEST_F(WindowsDisk, leavesReadOnlyFilesAlone) {
    put("A.vla", "old");
    setAttributes("A.vla", FILE_ATTRIBUTE_READONLY);
    const std::string refused = "The file " + root + "A.vla can't be written: it is read-only.";
    expectFailure(refused, [&] { files->save(at("a.vla"), "new"); });
    expectFailure(refused, [&] { files->saveExactly(root + "A.vla", "new"); });
    {
        SaveBatch batch{*files};
        expectFailure(refused, [&] { files->save(at("A.vla"), "new"); });
        files->save(at("B.vla"), "new");
        batch.commit();
    }
    expectFailure("The file " + root + "A.vla can't be deleted: it is read-only.",
                  [&] { files->remove(at("A.vla")); });
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
    setAttributes("A.vla", FILE_ATTRIBUTE_NORMAL);
    files->save(at("A.vla"), "new");
    EXPECT_EQ(contentOf("A.vla"), "new");
}

TEST_F(WindowsDisk, leavesFilesAloneThatBecomeReadOnlyInABatch) {
    for (const char* name : {"A.vla", "B.vla"}) put(name, "old");
    SaveBatch batch{*files};
    for (const char* name : {"A.vla", "B.vla"}) files->save(at(name), "new");
    setAttributes("A.vla", FILE_ATTRIBUTE_READONLY);
    expectFailure("The file " + root + "A.vla can't be written: it is read-only.",
                  [&] { batch.commit(); });
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla"), "oldnew");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
    setAttributes("A.vla", FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsDisk, waitsForFilesThatOthersHoldForAMoment) {
    for (const auto& act : std::vector<std::function<void()>>{
             [&] { files->save(at("A.vla"), "new"); }, [&] { saveInBatch({"A.vla"}); },
             [&] { EXPECT_EQ(files->read(at("A.vla")), "old"); },
             [&] { files->remove(at("A.vla")); }}) {
        put("A.vla", "old");
        std::thread other{[held = hold("A.vla", 0)]() mutable {
            std::this_thread::sleep_for(std::chrono::milliseconds(120));
            held.close();
        }};
        EXPECT_NO_THROW(act());
        other.join();
    }
    EXPECT_TRUE(names().empty());
}

TEST_F(WindowsDisk, givesUpOnFilesThatOthersHoldForLong) {
    put("A.vla", "old");
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const Handle held = hold("A.vla", share);
        const Clock::time_point start = Clock::now();
        expectFailure(heldOpen("written"), [&] { files->save(at("A.vla"), "new"); });
        const auto waited = Clock::now() - start;
        EXPECT_GE(waited, std::chrono::milliseconds(450));
        EXPECT_LT(waited, std::chrono::seconds(3));
        expectFailure(heldOpen("written"), [&] { saveInBatch({"A.vla"}); });
        expectFailure(heldOpen("deleted"), [&] { files->remove(at("A.vla")); });
        if (share == 0) expectFailure(heldOpen("read"), [&] { files->read(at("A.vla")); });
        EXPECT_EQ(files->find(at("a.vla")), "A.vla");
        EXPECT_EQ(names(), NameSet{"A.vla"});
    }
    EXPECT_EQ(contentOf("A.vla"), "old");
}

TEST_F(WindowsDisk, goesOnBehindManyFilesThatOthersHold) {
    Names all;
    std::vector<Handle> held;
    for (int i = 0; i < 12; ++i) {
        all.push_back(std::to_string(i) + ".vla");
        put(all.back(), "old");
        if (i < 10) held.push_back(hold(all.back(), FILE_SHARE_READ));
    }
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(raisedBy([&] { saveInBatch(all); }).description(),
              "The file " + root + "0.vla can't be written: another program holds it open.");
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(4)) << "not half a second for each";
    EXPECT_EQ(contentOf("9.vla") + contentOf("10.vla") + contentOf("11.vla"), "oldnewnew");
    EXPECT_EQ(names(), (NameSet{all.begin(), all.end()}));
}

TEST_F(WindowsDisk, isNotDisturbedByWhoeverSharesDeleting) {
    put("A.vla", "old");
    const Handle held = hold("A.vla", kShareAll);
    EXPECT_EQ(files->read(at("A.vla")), "old");
    EXPECT_TRUE(files->existsExactly(root + "A.vla"));
}

TEST_F(WindowsDisk, hasPathsOfAnyLength) {
    std::string deep = root;
    std::vector<std::string> made;
    for (int i = 0; i < 6; ++i) {
        deep += std::string(60, 'd') + "\\";
        files->makeFolder(deep);
        made.push_back(deep);
    }
    ASSERT_GT(deep.size(), 350U);
    const ItemPath path{deep, "A.vla"};
    files->save(path, "old");
    {
        SaveBatch batch{*files};
        files->save({deep, "a.VLA"}, "new");
        batch.commit();
    }
    EXPECT_EQ(files->read(path), "new");
    EXPECT_EQ(files->listItems(deep), Names{"A.vla"});
    EXPECT_TRUE(files->existsExactly(path.text()));
    files->remove(path);
    EXPECT_TRUE(files->listItems(deep).empty());
    for (auto each = made.rbegin(); each != made.rend(); ++each)
        EXPECT_TRUE(::RemoveDirectoryW(nativePath(*each).c_str())) << "nothing is left in it";
}

TEST_F(WindowsDisk, savesAtAnExactPathIntoTheOneFileOfThatName) {
    put("Mine.txt", "old");
    files->saveExactly(root + "MINE.txt", "new");
    EXPECT_EQ(contentOf("Mine.txt"), "new");
    EXPECT_EQ(names().size(), 1U);
    for (const std::string& path : {root, root + "Bin\\", std::string{"\\"}, std::string{"C:\\"}}) {
        EXPECT_EQ(raisedBy([&] { files->saveExactly(path, "x"); }).number(), errc::FileAccess);
    }
}

TEST_F(WindowsDisk, savesWithEitherSeparator) {
    files->makeFolder(root + "A");
    files->saveExactly(root + "A\\mine.txt", "x");
    files->saveExactly(root + "A/mine.txt", "y");
    EXPECT_EQ(contentOf("A/mine.txt"), "y");
    EXPECT_TRUE(files->isNoPlainFile(root + "A\\"));
    EXPECT_FALSE(files->isNoPlainFile(root + "A\\mine.txt"));
}

TEST_F(WindowsDisk, seesChangesByOthersInAFolderWhoseTimeWasSetBack) {
    put("one.vla", "x");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    const Handle open{::CreateFileW(nativePath(root).c_str(),
                                    FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, kShareAll,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)};
    FILETIME before{};
    ASSERT_TRUE(::GetFileTime(open.get(), nullptr, nullptr, &before));
    EXPECT_EQ(files->find(at("TWO.VLA")), "");
    put("two.vla", "x");
    ASSERT_TRUE(::SetFileTime(open.get(), nullptr, nullptr, &before));
    EXPECT_EQ(files->find(at("TWO.VLA")), "two.vla");
}

TEST_F(WindowsDisk, keepsAFolderThatFilesAreSavedIn) {
    fs::create_directory(root + "X");
    const ItemPath path{root + "X\\", "A.vla"};
    SaveBatch batch{*files};
    files->save(path, "new");
    std::error_code refused;
    fs::remove_all(root + "X", refused);
    EXPECT_TRUE(fs::exists(root + "X"));
}

// ---------------------------------------------------------------------------------------------
// What is no plain file.

/// A pipe to which somebody may come.
class Pipe {
  public:
    explicit Pipe(const std::wstring& name)
        : m_pipe(::CreateNamedPipeW((L"\\\\.\\pipe\\" + name).c_str(), PIPE_ACCESS_DUPLEX,
                                    PIPE_TYPE_BYTE | PIPE_NOWAIT, 1, 512, 512, 0, nullptr)) {
        EXPECT_TRUE(m_pipe.isOpen());
        EXPECT_FALSE(wasOpened());
    }
    bool wasOpened() const {
        return ::ConnectNamedPipe(m_pipe.get(), nullptr) != 0 ||
               ::GetLastError() != ERROR_PIPE_LISTENING;
    }

  private:
    Handle m_pipe;
};

TEST_F(WindowsDisk, neverOpensAPipe) {
    const Pipe pipe{L"wynconfig-test.vla"};
    const std::string name = "wynconfig-test.vla";
    for (const char* pipes : {"\\\\.\\pipe\\", "//./pipe/", "\\\\localhost\\pipe\\",
                              "\\\\?\\pipe\\", "\\\\?\\UNC\\localhost\\PIPE\\"}) {
        SCOPED_TRACE(pipes);
        EXPECT_EQ(files->find({pipes, name}), "");
        EXPECT_EQ(raisedBy([&] { files->read({pipes, name}); }).number(), errc::FileNotFound);
        EXPECT_EQ(raisedBy([&] { files->save({pipes, name}, "x"); }).number(), errc::FileAccess);
        EXPECT_EQ(raisedBy([&] { files->saveExactly(pipes + name, "x"); }).number(),
                  errc::FileAccess);
        EXPECT_FALSE(files->existsExactly(pipes + name));
        EXPECT_FALSE(files->folderExists(pipes));
        EXPECT_TRUE(files->listItems(pipes).empty());
    }
    EXPECT_FALSE(pipe.wasOpened());
    const Handle visitor{::CreateFileW(L"\\\\.\\pipe\\wynconfig-test.vla", GENERIC_READ, 0, nullptr,
                                       OPEN_EXISTING, 0, nullptr)};
    EXPECT_TRUE(pipe.wasOpened()) << "an opening is seen";
}

class WindowsLinks : public WindowsDisk {
  protected:
    void SetUp() override {
        fs::create_directory(root + "elsewhere");
        put("elsewhere/real", "old");
        constexpr DWORD kAnybody = 2;  // with the system's developer mode
        ::CreateSymbolicLinkW(native("Link.vla").c_str(), L"elsewhere\\real", kAnybody);
        ::CreateSymbolicLinkW(native("Folder").c_str(), L"elsewhere",
                              SYMBOLIC_LINK_FLAG_DIRECTORY | kAnybody);
        if (!names().contains("Link.vla") || !names().contains("Folder"))
            GTEST_SKIP() << "no links can be made here";
    }
};

TEST_F(WindowsLinks, areReadWhereTheyLeadToAPlainFile) {
    EXPECT_EQ(files->listItems(root), Names{"Link.vla"});
    EXPECT_EQ(files->read(at("LINK.VLA")), "old");
    EXPECT_TRUE(files->folderExists(root + "FOLDER"));
}

TEST_F(WindowsLinks, giveWayToTheFileThatIsSaved) {
    files->save(at("LINK.VLA"), "new");
    EXPECT_EQ(contentOf("Link.vla"), "new");
    EXPECT_EQ(contentOf("elsewhere/real"), "old");
    EXPECT_EQ(attributes("Link.vla") & FILE_ATTRIBUTE_REPARSE_POINT, 0U);
}

TEST_F(WindowsLinks, areFollowedByExactPaths) {
    files->saveExactly(root + "Link.vla", "new");
    EXPECT_EQ(contentOf("elsewhere/real"), "new");
    EXPECT_NE(attributes("Link.vla") & FILE_ATTRIBUTE_REPARSE_POINT, 0U);
}

TEST_F(WindowsLinks, areToldFromFoldersInAnyCase) {
    expectFailure("The folder " + root + "Folder can't be used: it is a link.",
                  [&] { files->refuseLink(root + "FOLDER\\"); });
    EXPECT_NO_THROW(files->refuseLink(root + "elsewhere"));
}

TEST_F(WindowsLinks, goThemselvesWhenTheyAreRemoved) {
    files->remove(at("LINK.VLA"));
    EXPECT_EQ(contentOf("elsewhere/real"), "old");
}

}  // namespace
}  // namespace wynconfig

// What a killed program leaves behind on Windows: temporaries that the next save cleans away, and
// those of a living program that it leaves alone.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <thread>

#include "platform/files/file_system.h"
#include "platform/files/win32/win32.h"
#include "support/file_system_kit.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;
using NameSet = std::set<std::string>;

class WindowsLeftovers : public OnTheDisk {
  public:
    void save(const std::string& name) const { files->save(at(name), "saved"); }
    void saveInBatch(const std::string& name) const {
        SaveBatch batch{*files};
        files->save(at(name), "saved");
        batch.commit();
    }
};

TEST_F(WindowsLeftovers, areCleanedAwayByTheNextSave) {
    for (const auto& work : {&WindowsLeftovers::save, &WindowsLeftovers::saveInBatch}) {
        // A mark is left where the power failed.
        for (const char* name : {".wyn-9-0123abcd-1.tmp", ".wyn-9-0123abcd-1-1.tmp",
                                 ".wyn-9-0123abcd-1-2.tmp", ".wyn-9-0123abcd-7-3.tmp"}) {
            put(name, "left behind");
        }
        (this->*work)("A.vla");
        EXPECT_EQ(names(), NameSet{"A.vla"});
    }
}

TEST_F(WindowsLeftovers, areNotWhatMerelyLooksAlike) {
    const NameSet foreign = {".wyn-1-1.tmp",
                             ".wyn-123-0123abcd-1.TMP",
                             ".WYN-124-0123abcd-1.tmp",
                             "wyn-123-0123abcd-1.tmp",
                             ".wyn-123-0123ABCD-2.tmp",
                             ".wyn-123-0123abcd-01.tmp",
                             ".wyn-123-0123abcd-1-2-3.tmp"};
    for (const std::string& name : foreign) put(name, "foreign");
    fs::create_directory(root + ".wyn-125-0123abcd-1.tmp");
    NameSet expected = foreign;
    expected.insert({"A.vla", ".wyn-125-0123abcd-1.tmp"});
    save("A.vla");
    saveInBatch("A.vla");
    EXPECT_EQ(names(), expected);
}

TEST_F(WindowsLeftovers, areNotTheTemporariesOfTheLiving) {
    put(".wyn-9-0123abcd-1-1.tmp", "of another program");
    const auto living = [&] {
        const std::wstring path = nativePath(root + ".wyn-9-0123abcd-1.tmp");
        return Handle{::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr)};
    };
    Handle mark = living();
    ASSERT_TRUE(mark.isOpen());
    save("A.vla");
    saveInBatch("B.vla");
    EXPECT_EQ(names(),
              (NameSet{".wyn-9-0123abcd-1.tmp", ".wyn-9-0123abcd-1-1.tmp", "A.vla", "B.vla"}));
    mark.close();
    EXPECT_FALSE(names().contains(".wyn-9-0123abcd-1.tmp"));
    save("A.vla");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
}

TEST_F(WindowsLeftovers, areNotTheTemporariesOfAnotherObjectOfTheSameProgram) {
    const auto others = makeRealFileSystem();
    SaveBatch batch{*others};
    others->save(at("X.vla"), "by the other object");
    save("A.vla");
    saveInBatch("B.vla");
    batch.commit();
    EXPECT_EQ(contentOf("X.vla"), "by the other object");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla", "X.vla"}));
}

// ---------------------------------------------------------------------------------------------
// Killing.

constexpr const char* kFolderOfTheOther = "WYNCONFIG_TEST_SAVES_IN";

/// The other program: it saves two files in a batch and waits to be killed before the commit.
TEST(WindowsOtherProgram, waitsInABatch) {
    const char* const folder = std::getenv(kFolderOfTheOther);
    if (!folder) GTEST_SKIP() << "another test starts this one";
    const auto files = makeRealFileSystem();
    SaveBatch batch{*files};
    for (const char* name : {"X.vla", "Y.vla"}) files->save({folder, name}, "by the other program");
    std::this_thread::sleep_for(std::chrono::minutes(1));
}

/// This program once more, in which the test above runs. It is killed with the object.
class OtherProgram {
  public:
    explicit OtherProgram(const std::string& folder) {
        std::wstring program(MAX_PATH, L'\0');
        program.resize(::GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
        std::wstring line = L"\"" + program + L"\" --gtest_filter=WindowsOtherProgram.*";
        ::SetEnvironmentVariableA(kFolderOfTheOther, folder.c_str());
        // What it says is not for whoever reads what this one says.
        STARTUPINFOW how{};
        how.cb = sizeof how;
        how.dwFlags = STARTF_USESTDHANDLES;
        EXPECT_TRUE(::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                                     nullptr, nullptr, &how, &m_process));
        ::SetEnvironmentVariableA(kFolderOfTheOther, nullptr);
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() {
        kill();
        ::CloseHandle(m_process.hThread);
        ::CloseHandle(m_process.hProcess);
    }
    void kill() const {
        ::TerminateProcess(m_process.hProcess, 1);
        ::WaitForSingleObject(m_process.hProcess, INFINITE);
    }

  private:
    PROCESS_INFORMATION m_process{};
};

TEST_F(WindowsLeftovers, ofALivingBatchAreLeftAloneUntilItIsKilled) {
    for (const char* name : {"X.vla", "Y.vla"}) put(name, "old");
    const OtherProgram other{root};
    for (int i = 0; i < 600 && names().size() < 5; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    const NameSet before = names();
    ASSERT_EQ(before.size(), 5U) << "two files, their temporaries and the mark of the batch";
    save("A.vla");
    saveInBatch("B.vla");
    NameSet expected = before;
    expected.insert({"A.vla", "B.vla"});
    EXPECT_EQ(names(), expected);

    other.kill();
    save("A.vla");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla", "X.vla", "Y.vla"}));
    EXPECT_EQ(contentOf("X.vla") + contentOf("Y.vla"), "oldold");
}

}  // namespace
}  // namespace wynconfig

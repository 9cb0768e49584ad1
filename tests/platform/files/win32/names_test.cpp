// Paths and names of Windows: roots, network folders, and names that stand for something else than
// a file of their folder.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/files/own_file.h"
#include "platform/files/paths.h"
#include "platform/files/win32/win32.h"
#include "platform/text/text.h"
#include "support/file_system_kit.h"

namespace wynconfig {
namespace {

TEST(WindowsPaths, keepTheirRoots) {
    using Row = std::tuple<std::string, std::string, std::size_t>;
    for (const auto& [given, system, root] : std::vector<Row>{
             {"C:\\", "C:/", 3},
             {"c:/A\\\\B\\", "c:/A/B", 3},
             {"\\A\\B\\", "/A/B", 1},
             {"\\", "/", 1},
             {"A\\B", "A/B", 0},
             {"", "", 0},
             {"\\\\server\\share", "//server/share", 14},
             {"\\\\server\\share\\", "//server/share", 14},
             {"//server\\share\\\\A/B\\", "//server/share/A/B", 15},
             {"\\\\server", "//server", 8},
             {"\\\\?\\C:\\A", "C:/A", 3},
             {"\\\\?\\C:\\", "C:/", 3},
             {"\\\\?\\UNC\\server\\share\\A", "//server/share/A", 15},
             {"\\\\?\\unc\\server\\share", "//server/share", 14},
             {"\\\\.\\COM1", "//./COM1", 8},
             {"C:", "C:", 0},
         }) {
        EXPECT_EQ(systemPath(given), system) << given;
        EXPECT_EQ(rootLength(systemPath(given)), root) << given;
        EXPECT_EQ(systemPath(systemPath(given)), system) << given;
    }
}

TEST(WindowsPaths, areAbsoluteAndOfAnyLengthForTheSystem) {
    EXPECT_EQ(nativePath("C:\\"), L"\\\\?\\C:\\");
    EXPECT_EQ(nativePath("C:\\A/.\\B\\..\\\u00C4 C\\"), L"\\\\?\\C:\\A\\\u00C4 C");
    EXPECT_EQ(nativePath("C:\\..\\.."), L"\\\\?\\C:\\");
    EXPECT_EQ(nativePath("\\\\server\\share"), L"\\\\?\\UNC\\server\\share\\");
    EXPECT_EQ(nativePath("//server/share/A/../../B"), L"\\\\?\\UNC\\server\\share\\B");
    const std::wstring working = nativePath("");
    EXPECT_EQ(nativePath("A\\B"), working + (working.back() == L'\\' ? L"A\\B" : L"\\A\\B"));
    EXPECT_EQ(nativePath("\\A"), working.substr(0, 7) + L"A");
}

TEST(WindowsPaths, leadToNoDeviceAndNoPipe) {
    for (const char* path :
         {"C:\\CON", "C:\\A\\nul.txt\\B", "C:\\A.\\B", "C:\\A \\B", "C:\\A:B", "C:\\A*", "C:B",
          "C:\\A\x01", "\\\\.\\COM1", "\\\\.\\C:\\A", "\\\\.\\pipe\\A", "\\\\server\\PIPE\\A",
          "\\\\server\\mailslot\\A", "\\\\server\\ipc$\\A", "\\\\server", "\\\\?\\GLOBALROOT\\A",
          "\\\\?\\Volume{1}\\A", "C:\\caf\xE9"}) {
        EXPECT_THROW(nativePath(path), SystemFailure) << path;
    }
    EXPECT_THROW(nativePath("C:\\" + std::string(256, 'n')), SystemFailure);
    EXPECT_NO_THROW(nativePath("C:\\" + std::string(255, 'n')));
}

class WindowsNames : public OnTheDisk {
  protected:
    void expectRefused(const std::string& name) {
        SCOPED_TRACE(name);
        const std::string refused = " can't be written: its name is not allowed.";
        EXPECT_EQ(files->find(at(name)), "");
        EXPECT_EQ(raisedBy([&] { files->read(at(name)); }).number(), errc::FileNotFound);
        EXPECT_EQ(raisedBy([&] { files->remove(at(name)); }).number(), errc::FileNotFound);
        EXPECT_FALSE(files->existsExactly(root + name));
        EXPECT_FALSE(files->isNoPlainFile(root + name));
        for (const auto& save :
             std::vector<std::function<void()>>{[&] { files->save(at(name), "x"); },
                                                [&] { files->saveExactly(root + name, "x"); }}) {
            const Error error = raisedBy(save);
            EXPECT_EQ(error.number(), errc::FileAccess);
            EXPECT_TRUE(error.description().ends_with(refused)) << error.description();
        }
        EXPECT_FALSE(files->folderExists(root + name));
        EXPECT_TRUE(files->listItems(root + name + "\\").empty());
        const Error made = raisedBy([&] { files->makeFolder(root + name); });
        EXPECT_EQ(made.number(), errc::FileAccess);
        const Error inside = raisedBy([&] { files->save({root + name + "\\", "A.vla"}, "x"); });
        EXPECT_TRUE(holds(inside.description(), "its folder is not there")) << inside.description();
        EXPECT_TRUE(names().empty());
    }
};

TEST_F(WindowsNames, areRefusedThatStandForDevices) {
    for (const char* device : {"CON", "con.vla", "Prn.vla", "AUX.vla", "NUL", "nul.tar.gz",
                               "NUL .vla", "COM1.vla", "com9", "COM0.vla", "LPT1.vla", "lpt9.x.vla",
                               "COM\u00B9.vla", "LPT\u00B3", "CONIN$.vla", "conout$"}) {
        expectRefused(device);
    }
}

TEST_F(WindowsNames, areRefusedThatTheSystemReadsOtherwise) {
    for (const char* name : {"A.", "A. ", "A.vla ", "A.vla.", "...", "A:B", "A.vla:stream",
                             "A.vla::$DATA", ":A", "A*.vla", "A?.vla", "<A>.vla", "A|B.vla",
                             "\"A\".vla", "A\tB.vla", "caf\xE9.vla", "\xED\xA0\x80.vla"}) {
        expectRefused(name);
    }
}

TEST_F(WindowsNames, areTakenThatOnlyLookAlike) {
    Names all;
    for (const std::string name :
         {"CONS.vla", "COM.vla", "COM10.vla", "COMA.vla", "LPT.vla", "NULL.vla", "AUXIN.vla",
          "A.CON.vla", " A.vla", ".A.vla", "A..vla", "\u00C4 \u4E2D \U0001F600.vla"}) {
        files->save(at(name), name);
        EXPECT_EQ(files->find(at(UCase(name))), name);
        EXPECT_EQ(files->read(at(UCase(name))), name);
        all.push_back(name);
    }
    EXPECT_EQ(files->listItems(root).size(), all.size());
    for (const std::string& name : all) files->remove(at(name));
    EXPECT_TRUE(names().empty());
}

TEST_F(WindowsNames, areComparedByTheirSpellingWhereThatIsAsked) {
    files->makeFolder(root + "Bin");
    files->save({root + "Bin\\", "Run Me.exe"}, "x");
    EXPECT_TRUE(files->existsExactly(root + "Bin\\Run Me.exe"));
    EXPECT_TRUE(files->existsExactly(root + "Bin/.\\Run Me.exe"));
    for (const char* other : {"Bin\\RUN ME.exe", "BIN\\Run Me.exe", "Bin\\Run Me.EXE"})
        EXPECT_FALSE(files->existsExactly(root + other)) << other;
    // The letter of a drive has no spelling of its own.
    std::string drive = root + "Bin\\Run Me.exe";
    drive[0] = static_cast<char>(drive[0] ^ 0x20);
    EXPECT_TRUE(files->existsExactly(drive));
}

TEST_F(WindowsNames, areFoundInAnyCaseFromTheRootOn) {
    put("Mine.vla", "x");
    EXPECT_EQ(files->find({UCase(root), "MINE.VLA"}), "Mine.vla");
    const Error error = raisedBy([&] { files->read({UCase(root), "None.vla"}); });
    EXPECT_EQ(error.description(), "The file " + root + "None.vla was not found.");
    EXPECT_TRUE(files->folderExists(root.substr(0, 3)));
    EXPECT_TRUE(files->folderExists("\\"));
    EXPECT_NO_THROW(files->listItems("C:\\"));
}

TEST_F(WindowsNames, mayBeGivenAsTheSystemNamesLongPaths) {
    files->save({"\\\\?\\" + root, "A.vla"}, "x");
    EXPECT_EQ(contentOf("A.vla"), "x");
    EXPECT_TRUE(files->existsExactly("\\\\?\\" + root + "A.vla"));
}

TEST(OwnFile, isTheProgramThatTheComponentIsIn) {
    std::wstring program(MAX_PATH, L'\0');
    program.resize(::GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
    EXPECT_EQ(ownFile().wstring(), program);
}

}  // namespace
}  // namespace wynconfig

// The file layer: the rules that hold on the disk and in memory alike, the file system that fails
// on demand, and the one in use.
#include "platform/files/file_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "platform/text/text.h"
#include "support/file_system_kit.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

// ---------------------------------------------------------------------------------------------
// Rules that hold on every kind of file system.

class AnyFileSystem : public OnEveryFileSystem {
  protected:
    void expectRefused(const ItemPath& path, const std::string& cause) {
        const Names before = stranger->names(root);
        const Error error = raisedBy([&] { files->save(path, "new"); });
        EXPECT_EQ(error.number(), errc::FileAccess);
        EXPECT_TRUE(holds(error.description(), "can't be written")) << error.description();
        EXPECT_TRUE(holds(error.description(), cause)) << error.description();
        EXPECT_EQ(stranger->names(root), before);
    }
};
ON_EVERY_FILE_SYSTEM(AnyFileSystem);

TEST_P(AnyFileSystem, readsBackWhatWasSaved) {
    const std::string every = "\0\r\n\t\xFF\xFE plain \xC3\x84"s;
    files->save(at("A.vla"), every);
    files->save(at("EMPTY.vla"), "");
    files->save(at("LONG.vla"), std::string(300'000, 'x'));
    EXPECT_EQ(files->read(at("A.vla")), every);
    EXPECT_EQ(files->read(at("EMPTY.vla")), "");
    EXPECT_EQ(files->read(at("LONG.vla")), std::string(300'000, 'x'));
    files->save(at("LONG.vla"), "short");
    EXPECT_EQ(files->read(at("LONG.vla")), "short");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "EMPTY.vla", "LONG.vla"}));
}

TEST_P(AnyFileSystem, findsNamesWithoutRegardToCase) {
    stranger->write(root + "my Ähre.Vla", "x");
    EXPECT_EQ(files->find(at("my Ähre.Vla")), "my Ähre.Vla");
    EXPECT_EQ(files->find(at("MY ÄHRE.vla")), "my Ähre.Vla");
    EXPECT_EQ(files->find(at("My ähre.VLA")), "my Ähre.Vla");
    EXPECT_EQ(files->read(at("MY ÄHRE.VLA")), "x");
    EXPECT_EQ(files->find(at("MY AHRE.vla")), "");
    EXPECT_EQ(files->find(at("MY ÄHRE")), "");
}

TEST_P(AnyFileSystem, prefersTheExactSpellingThenTheFirstInByteOrder) {
    if (!tellsCase()) GTEST_SKIP() << "this disk takes names that differ in case alone for one";
    stranger->write(root + "same.vla", "lower");
    stranger->write(root + "Same.vla", "mixed");
    EXPECT_EQ(files->find(at("same.vla")), "same.vla");
    EXPECT_EQ(files->find(at("Same.vla")), "Same.vla");
    EXPECT_EQ(files->find(at("SAME.vla")), "Same.vla");
    EXPECT_EQ(files->read(at("sAME.vla")), "mixed");
    files->save(at("SAME.VLA"), "new");
    EXPECT_EQ(files->read(at("Same.vla")), "new");
    EXPECT_EQ(files->read(at("same.vla")), "lower");
    files->remove(at("SAME.VLA"));
    EXPECT_EQ(files->find(at("SAME.vla")), "same.vla");
}

TEST_P(AnyFileSystem, keepsTheSpellingOfAFileThatIsThere) {
    files->save(at("Mixed Case.vla"), "old");
    files->save(at("MIXED CASE.VLA"), "new");
    EXPECT_EQ(stranger->names(root), Names{"Mixed Case.vla"});
    EXPECT_EQ(files->read(at("mixed case.vla")), "new");
}

TEST_P(AnyFileSystem, removesInAnyCase) {
    files->save(at("Gone.vla"), "x");
    files->remove(at("GONE.VLA"));
    EXPECT_TRUE(stranger->names(root).empty());
    EXPECT_EQ(files->find(at("Gone.vla")), "");
    const Error error = raisedBy([&] { files->remove(at("GONE.VLA")); });
    EXPECT_EQ(error.number(), errc::FileNotFound);
    EXPECT_TRUE(holds(error.description(), root + "GONE.VLA")) << error.description();
}

TEST_P(AnyFileSystem, namesTheFileThatIsNotThere) {
    const Error error = raisedBy([&] { files->read(at("None.vla")); });
    EXPECT_EQ(error.number(), errc::FileNotFound);
    EXPECT_EQ(error.description(), "The file " + root + "None.vla was not found.");
    EXPECT_EQ(raisedBy([&] {
                  files->read({root + "none\\", "A.vla"});
              }).number(),
              errc::FileNotFound);
    EXPECT_EQ(raisedBy([&] {
                  files->remove({root + "none\\", "A.vla"});
              }).number(),
              errc::FileNotFound);
}

TEST_P(AnyFileSystem, showsBothEndsOfALongPath) {
    for (const std::size_t length : {300U, 301U, 1000U}) {
        std::string path = root;
        while (path.size() < length) path += static_cast<char>('a' + path.size() % 26);
        const std::string shown =
            length == 300 ? path : path.substr(0, 140) + "…" + path.substr(length - 140);
        const Error error = raisedBy([&] { files->read(ItemPath::of(path)); });
        EXPECT_EQ(error.description(), "The file " + shown + " was not found.");
    }
}

TEST_P(AnyFileSystem, keepsNamesInsideTheirFolder) {
    files->makeFolder(root + "inner\\");
    files->makeFolder(root + "inner\\deleted");
    files->save(at("X"), "outside");
    files->save({root + "inner\\deleted\\", "X"}, "below");
    const std::string inner = root + "inner\\";
    for (const std::string& name :
         {"..\\X"s, "../X"s, "deleted\\X"s, "deleted/X"s, "/etc/passwd"s, "\\X"s, "X\\"s, "X/"s,
          "X\0"s, "\0"s, "A\0.vla"s, "."s, ".."s, ""s}) {
        SCOPED_TRACE(name);
        const ItemPath path{inner, name};
        EXPECT_EQ(files->find(path), "");
        EXPECT_EQ(raisedBy([&] { files->read(path); }).number(), errc::FileNotFound);
        EXPECT_EQ(raisedBy([&] { files->remove(path); }).number(), errc::FileNotFound);
        expectRefused(path, "its name is not allowed");
        EXPECT_EQ(stranger->names(root + "inner"), Names{"deleted"});
        EXPECT_EQ(stranger->names(root + "inner/deleted"), Names{"X"});
    }
    EXPECT_EQ(files->read(at("X")), "outside");
    // What stands before a name makes it no better.
    for (const char* name : {".", "..", "", "\\X"}) {
        EXPECT_EQ(files->find({inner + ".", name}), "");
        expectRefused({inner + "A", name}, "its name is not allowed");
    }
    EXPECT_EQ(stranger->names(root + "inner"), Names{"deleted"});
}

TEST_P(AnyFileSystem, gluesFolderAndNameAsGiven) {
    files->save({root + "PRE", "FIX.vla"}, "x");
    EXPECT_EQ(stranger->names(root), Names{"PREFIX.vla"});
    EXPECT_EQ(files->find({root + "pre", "fix.vla"}), "PREFIX.vla");
}

TEST_P(AnyFileSystem, refusesANulInAFolder) {
    files->save(at("A.vla"), "x");
    const std::string cut = root + "\0more\\"s;
    EXPECT_EQ(files->find({cut, "A.vla"}), "");
    EXPECT_FALSE(files->folderExists(cut));
    EXPECT_TRUE(files->listItems(cut).empty());
    EXPECT_EQ(raisedBy([&] { files->makeFolder(root + "B\0C"s); }).number(), errc::FileAccess);
    expectRefused({cut, "B.vla"}, "its name is not allowed");
}

TEST_P(AnyFileSystem, takesWildcardsAsPlainLetters) {
    files->save(at("AB.vla"), "plain");
    for (const std::string& name :
         {"A*.vla"s, "A?.vla"s, "*"s, "[A]B.vla"s, "{AB,C}.vla"s, "!AB.vla"s, "A[!C].vla"s}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(files->find(at(name)), "");
        EXPECT_EQ(raisedBy([&] { files->read(at(name)); }).number(), errc::FileNotFound);
        if (kOnWindows && name.find_first_of("*?") != name.npos) {
            expectRefused(at(name), "its name is not allowed");
            continue;
        }
        files->save(at(name), "letters");
        EXPECT_EQ(files->find(at(name)), name);
        EXPECT_EQ(files->read(at(name)), "letters");
        EXPECT_EQ(files->read(at("AB.vla")), "plain");
        files->remove(at(name));
    }
    EXPECT_EQ(stranger->names(root), Names{"AB.vla"});
}

TEST_P(AnyFileSystem, listsItemsInTheOrderOfTheirUpperCasedNames) {
    Names ordered = {"!B.vla", ".vla",  "A B.vla", "A.B.vla", "A.VLA", "a.vla", "b.vLa",
                     "C.vla",  "z.vla", "[a.vla",  "_.vla",   "Ä.vla", "ä.vla", "Ö.vla"};
    if (!tellsCase())
        std::erase_if(ordered, [](const auto& n) { return n == "a.vla" || n == "ä.vla"; });
    Names shuffled = ordered;
    std::reverse(shuffled.begin(), shuffled.end());
    std::rotate(shuffled.begin(), shuffled.begin() + 5, shuffled.end());
    for (const std::string& name : shuffled) stranger->write(root + name, "x");
    EXPECT_EQ(files->listItems(root), ordered);
}

TEST_P(AnyFileSystem, listsPlainItemFilesAlone) {
    for (const std::string& name :
         {"MORAM.vls"s, "vla"s, "A.vla.tmp"s, "Avla"s, ".wyn-1-1.tmp"s, "B.vlä"s}) {
        stranger->write(root + name, "x");
    }
    stranger->makeExactly(root + "Q.vla");
    stranger->write(root + "Q.vla/INNER.vla", "x");
    EXPECT_TRUE(files->listItems(root).empty());
    stranger->write(root + "ITEM.vLA", "x");
    EXPECT_EQ(files->listItems(root), Names{"ITEM.vLA"});
    EXPECT_EQ(files->listItems(root + "q.VLA\\"), Names{"INNER.vla"});
}

TEST_P(AnyFileSystem, tellsAMissingFolderFromAnEmptyOne) {
    stranger->makeExactly(root + "EMPTY");
    stranger->write(root + "FILE", "x");
    EXPECT_TRUE(stranger->canList(root + "EMPTY"));
    EXPECT_TRUE(stranger->isStamped(root + "EMPTY"));
    for (const char* name : {"NONE", "FILE"}) {
        EXPECT_FALSE(stranger->canList(root + name)) << name;
        EXPECT_FALSE(stranger->isStamped(root + name)) << name;
    }
}

TEST_P(AnyFileSystem, listsNothingInAFolderThatIsNotThere) {
    stranger->write(root + "FILE", "x");
    EXPECT_TRUE(files->listItems(root + "NONE\\").empty());
    EXPECT_TRUE(files->listItems(root + "FILE\\").empty());
}

TEST_P(AnyFileSystem, takesNoFolderForAFile) {
    stranger->makeExactly(root + "Q.vla");
    for (const char* name : {"Q.vla", "q.VLA"}) {
        EXPECT_EQ(files->find(at(name)), "");
        EXPECT_EQ(raisedBy([&] { files->read(at(name)); }).number(), errc::FileNotFound);
        EXPECT_EQ(raisedBy([&] { files->remove(at(name)); }).number(), errc::FileNotFound);
        expectRefused(at(name), "a folder of that name is there");
    }
    EXPECT_TRUE(files->folderExists(root + "Q.vla"));
    EXPECT_TRUE(stranger->names(root + "Q.vla").empty());
    if (!tellsCase()) return;
    // A plain file of the name in another case is found beside it, by every operation.
    stranger->write(root + "q.vla", "old");
    EXPECT_EQ(files->find(at("Q.vla")), "q.vla");
    files->save(at("Q.vla"), "new");
    EXPECT_EQ(files->read(at("Q.vla")), "new");
}

TEST_P(AnyFileSystem, refusesToSaveIntoAFolderThatIsNotThere) {
    expectRefused({root + "NONE\\", "A.vla"}, "its folder is not there");
    stranger->write(root + "FILE", "x");
    for (const char* inFile : {"FILE\\", "FILE\\SUB\\"})
        expectRefused({root + inFile, "A.vla"}, "Not a directory");
    EXPECT_EQ(files->find({root + "FILE\\", "A.vla"}), "");
    const Error error = raisedBy([&] { files->save({root + "None\\", "A.vla"}, ""); });
    EXPECT_EQ(error.description(),
              "The file " + root + "None/A.vla can't be written: its folder is not there.");
}

TEST_P(AnyFileSystem, refusesNamesThatAreTooLong) {
    const std::string most = std::string(251, 'n') + ".vla";
    files->save(at(most), "x");
    EXPECT_EQ(files->listItems(root), Names{most});
    EXPECT_EQ(files->find(at(UCase(most))), most);
    files->save(at(UCase(most)), "y");
    EXPECT_EQ(files->read(at(most)), "y");
    for (const std::size_t length : {256U, 300U, 32'768U}) {
        const std::string name(length, 'n');
        EXPECT_EQ(files->find(at(name)), "");
        EXPECT_EQ(raisedBy([&] { files->read(at(name)); }).number(), errc::FileNotFound);
        expectRefused(at(name), "File name too long");
        const Error error = raisedBy([&] { files->makeFolder(root + name); });
        EXPECT_EQ(error.number(), errc::FileAccess);
        EXPECT_LT(error.description().size(), 500U);
        EXPECT_FALSE(files->folderExists(root + name));
        EXPECT_FALSE(files->existsExactly(root + name));
    }
}

TEST_P(AnyFileSystem, refusesPathsThatAreTooLong) {
    if (kOnWindows && GetParam() == FilesOn::Disk) GTEST_SKIP() << "there they may be longer";
    constexpr std::size_t most = 4095;
    std::string path = root;
    while (most - path.size() > 200) {
        path += std::string(100, 'd');
        files->makeFolder(path);
        path += '/';
    }
    const std::string longest = path + std::string(most - path.size(), 'd');
    files->makeFolder(longest);
    EXPECT_TRUE(files->folderExists(longest));
    const Error error = raisedBy([&] { files->makeFolder(longest + 'd'); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), "File name too long")) << error.description();
    EXPECT_FALSE(files->folderExists(longest + 'd'));
}

TEST_P(AnyFileSystem, refusesContentThatItWouldNotReadBack) {
    files->save(at("BIG.vla"), "old");
    const std::string big((std::size_t{64} << 20) + 1, 'x');
    const Error error = raisedBy([&] { files->save(at("BIG.vla"), big); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(files->read(at("BIG.vla")), "old");
}

TEST_P(AnyFileSystem, findsFoldersWithoutRegardToCase) {
    stranger->makeExactly(root + "moram");
    stranger->makeExactly(root + "moram/Deleted");
    stranger->write(root + "moram/one.vla", "1");
    const std::string given = root + "MORAM\\";
    EXPECT_TRUE(files->folderExists(given));
    EXPECT_TRUE(files->folderExists(root + "MORAM"));
    EXPECT_TRUE(files->folderExists(given + "DELETED\\"));
    EXPECT_EQ(files->listItems(given), Names{"one.vla"});
    EXPECT_EQ(files->find({given, "ONE.vla"}), "one.vla");
    EXPECT_EQ(files->read({given, "ONE.vla"}), "1");
    files->save({given + "DELETED\\", "Two.vla"}, "2");
    files->save({given, "ONE.vla"}, "new");
    EXPECT_EQ(stranger->names(root + "moram/Deleted"), Names{"Two.vla"});
    EXPECT_EQ(files->read({root + "moram/", "one.vla"}), "new");
    files->remove({given, "ONE.VLA"});
    EXPECT_EQ(stranger->names(root + "moram"), Names{"Deleted"});
    EXPECT_EQ(stranger->names(root), Names{"moram"});
}

TEST_P(AnyFileSystem, takesOnlyFoldersForFolders) {
    if (!tellsCase()) GTEST_SKIP() << "this disk takes names that differ in case alone for one";
    stranger->write(root + "MORAM", "a file");
    stranger->makeExactly(root + "Moram");
    stranger->makeExactly(root + "moram");
    files->save({root + "MORAM\\", "A.vla"}, "x");
    EXPECT_EQ(stranger->names(root + "Moram"), Names{"A.vla"});
    files->save({root + "moram\\", "B.vla"}, "x");
    EXPECT_EQ(stranger->names(root + "moram"), Names{"B.vla"});
    EXPECT_FALSE(files->folderExists(root + "MORA"));
}

TEST_P(AnyFileSystem, takesNoFolderForALink) {
    files->makeFolder(root + "A");
    EXPECT_NO_THROW(files->refuseLink(root + "A\\"));
    EXPECT_NO_THROW(files->refuseLink(root + "NONE\\"));
}

TEST_P(AnyFileSystem, takesEitherSeparator) {
    files->makeFolder(root + "A");
    files->makeFolder(root + "A\\B\\");
    files->save({root + "A\\B/", "X.vla"}, "x");
    EXPECT_EQ(files->read({root + "A/B\\", "X.vla"}), "x");
    EXPECT_EQ(files->read({root + "\\A\\\\B\\", "X.vla"}), "x");
    EXPECT_EQ(files->read({root + ".\\A\\..\\A\\B\\", "X.vla"}), "x");
}

TEST_P(AnyFileSystem, goesUpNoFurtherThanToTheTop) {
    files->save(at("A.vla"), "x");
    std::string up;
    for (int i = 0; i < 20; ++i) up += "..\\";
    const std::string below = fs::path(root).relative_path().generic_string();
    EXPECT_EQ(files->read({root + up + below, "A.vla"}), "x");
}

TEST_P(AnyFileSystem, makesOneFolderAtATime) {
    const Error missing = raisedBy([&] { files->makeFolder(root + "A\\B\\"); });
    EXPECT_EQ(missing.number(), errc::FileAccess);
    EXPECT_TRUE(holds(missing.description(), root + "A/B")) << missing.description();
    EXPECT_FALSE(files->folderExists(root + "A"));
    files->makeFolder(root + "Aa\\");
    files->makeFolder(root + "AA\\b");
    EXPECT_EQ(stranger->names(root), Names{"Aa"});
    EXPECT_EQ(stranger->names(root + "Aa"), Names{"b"});
    for (const std::string& there : {"Aa"s, "AA\\"s, "aa/"s, "Aa\\B\\"s, "."s, ".."s, ""s}) {
        const Error error = raisedBy([&] { files->makeFolder(root + there); });
        EXPECT_EQ(error.number(), errc::FileAccess) << there;
        EXPECT_TRUE(holds(error.description(), "can't be made")) << error.description();
    }
    stranger->write(root + "file", "x");
    EXPECT_EQ(raisedBy([&] { files->makeFolder(root + "FILE\\"); }).number(), errc::FileAccess);
    EXPECT_EQ(raisedBy([&] { files->makeFolder(root + "file\\X"); }).number(), errc::FileAccess);
    EXPECT_EQ(raisedBy([&] { files->makeFolder(""); }).number(), errc::FileAccess);
    EXPECT_EQ(stranger->names(root), (Names{"Aa", "file"}));
}

TEST_P(AnyFileSystem, looksForExactPathsLetterByLetter) {
    files->makeFolder(root + "Bin");
    files->save({root + "Bin\\", "Run Me"}, "x");
    EXPECT_TRUE(files->existsExactly(root + "Bin/Run Me"));
    EXPECT_TRUE(files->existsExactly(root + "Bin\\Run Me"));
    for (const std::string& path :
         {root + "Bin/RUN ME", root + "BIN/Run Me", root + "Bin", root + "Bin/", root + "Bin\\",
          root + "Bin/Run Me/", root + "Bin/Run Me\\", root + "Bin/Run", root + "Bin/Run*", ""s,
          " "s, "/"s, "."s, root + "Bin/Run Me\0"s}) {
        EXPECT_FALSE(files->existsExactly(path)) << path;
    }
}

TEST_P(AnyFileSystem, savesAtExactPathsLetterByLetter) {
    if (!tellsCase()) GTEST_SKIP() << "this disk takes names that differ in case alone for one";
    files->save(at("Mine.txt"), "old");
    files->saveExactly(root + "MINE.txt", "other");
    EXPECT_EQ(stranger->names(root), (Names{"MINE.txt", "Mine.txt"}));
    files->saveExactly(root + "Mine.txt", "new");
    EXPECT_EQ(stranger->readExactly(root + "Mine.txt"), "new");
    EXPECT_EQ(stranger->readExactly(root + "MINE.txt"), "other");
    EXPECT_EQ(files->read(at("mINE.txt")), "other");
    files->makeFolder(root + "Bin");
    for (const std::string& path : {root, root + "Bin", root + "Bin/", root + "NONE/a.txt", ""s,
                                    root + "a.txt\0"s, root + "BIN/a.txt"}) {
        const Error error = raisedBy([&] { files->saveExactly(path, "x"); });
        EXPECT_EQ(error.number(), errc::FileAccess) << path;
        EXPECT_TRUE(holds(error.description(), "can't be written")) << error.description();
    }
    EXPECT_EQ(stranger->names(root), (Names{"Bin", "MINE.txt", "Mine.txt"}));
}

TEST_P(AnyFileSystem, savesAtExactPathsAtOnceAndOfAnySize) {
    const SaveBatch batch{*files};
    files->saveExactly(root + "small.txt", "new");
    EXPECT_EQ(stranger->readExactly(root + "small.txt"), "new");
    files->saveExactly(root + "large.txt", std::string(kMaxItemSize + 1, 'x'));
    EXPECT_EQ(stranger->names(root), (Names{"large.txt", "small.txt"}));
}

TEST_P(AnyFileSystem, takesAnEmptyFolderForTheWorkingFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    files->save({"", "HERE.vla"}, "x");
    EXPECT_TRUE(files->folderExists(""));
    EXPECT_EQ(files->listItems(""), Names{"HERE.vla"});
    EXPECT_EQ(files->find({"", "here.vla"}), "HERE.vla");
    EXPECT_EQ(files->read({".\\", "Here.vla"}), "x");
    EXPECT_TRUE(files->existsExactly("HERE.vla"));
    EXPECT_TRUE(files->existsExactly(".\\HERE.vla"));
    EXPECT_FALSE(files->existsExactly("here.vla"));
    EXPECT_EQ(files->find({"..\\", "HERE.vla"}), "");
    files->makeFolder("Sub\\");
    files->save({"SUB\\", "A.vla"}, "y");
    EXPECT_TRUE(files->existsExactly("Sub\\A.vla"));
    EXPECT_EQ(files->listItems("sub"), Names{"A.vla"});
    files->remove({"", "here.VLA"});
    EXPECT_TRUE(files->listItems("").empty());
    fs::current_path(before);
}

TEST_P(AnyFileSystem, keepsBytesThatAreNoText) {
    if (kOnWindows) GTEST_SKIP() << "its names are no bytes";
    const std::string name = "caf\xE9 \xFF.vla";
    stranger->write(root + name, "x");
    EXPECT_EQ(files->listItems(root), Names{name});
    EXPECT_EQ(files->find(at("CAF\xE9 \xFF.VLA")), name);
    files->save(at("CAF\xE9 \xFF.VLA"), "new");
    EXPECT_EQ(files->read(at(name)), "new");
    EXPECT_EQ(stranger->names(root), Names{name});
    files->remove(at(name));
    const Error error = raisedBy([&] { files->read(at(name)); });
    EXPECT_TRUE(isUtf8(error.description())) << error.description();
    EXPECT_TRUE(holds(error.description(), "caf? ?.vla")) << error.description();
}

TEST_P(AnyFileSystem, seesWhatOthersChange) {
    EXPECT_EQ(files->find(at("OTHER.VLA")), "");
    stranger->write(root + "other.vla", "x");
    EXPECT_EQ(files->find(at("OTHER.VLA")), "other.vla");
    stranger->erase(root + "other.vla");
    EXPECT_EQ(files->find(at("OTHER.VLA")), "");
    EXPECT_FALSE(files->folderExists(root + "SUB"));
    stranger->makeExactly(root + "sub");
    EXPECT_TRUE(files->folderExists(root + "SUB"));
}

TEST_P(AnyFileSystem, seesWhatOthersChangeTwice) {
    EXPECT_EQ(files->find(at("ONE.VLA")), "");
    stranger->makeExactly(root + "first");
    stranger->write(root + "one.vla", "x");
    EXPECT_EQ(files->find(at("ONE.VLA")), "one.vla");
    stranger->makeExactly(root + "second");
    stranger->erase(root + "one.vla");
    EXPECT_TRUE(files->folderExists(root + "SECOND"));
    stranger->write(root + "two.vla", "x");
    EXPECT_EQ(files->find(at("TWO.VLA")), "two.vla");
    stranger->erase(root + "two.vla");
    stranger->write(root + "three.vla", "x");
    EXPECT_EQ(files->find(at("THREE.VLA")), "three.vla");
}

TEST_P(AnyFileSystem, tellsThePlainFileThatItHasAVersionOf) {
    stranger->makeExactly(root + "FOLDER");
    stranger->write(root + "FILE", "x");
    EXPECT_TRUE(stranger->hasVersion(root + "FILE"));
    EXPECT_FALSE(stranger->hasVersion(root + "FOLDER"));
    EXPECT_FALSE(stranger->hasVersion(root + "NONE"));
}

TEST_P(AnyFileSystem, tellsOfAFileThatOthersRemovedFirst) {
    for (const char* name : {"NONE", "NONE/A.vla"}) {
        const Error error = raisedBy([&] { stranger->erase(root + name); });
        EXPECT_EQ(error.number(), errc::FileNotFound) << name;
    }
}

TEST_P(AnyFileSystem, makesNoFolderWhereOthersMadeSomething) {
    stranger->makeExactly(root + "FOLDER");
    stranger->write(root + "FILE", "x");
    for (const char* name : {"FOLDER", "FILE"}) {
        const Error error = raisedBy([&] { stranger->makeExactly(root + name); });
        EXPECT_EQ(error.number(), errc::FileAccess);
        EXPECT_TRUE(holds(error.description(), "can't be made")) << error.description();
    }
    EXPECT_EQ(stranger->names(root), (Names{"FILE", "FOLDER"}));
}

TEST_P(AnyFileSystem, readsAFolderOnceForManyLookUps) {
    for (int i = 0; i < 20; ++i) files->save(at("Item " + std::to_string(i) + ".vla"), "x");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    FaultyFileSystem counted{*files};
    for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_EQ(counted.find(at("ITEM " + number + ".VLA")),
                  i < 20 ? "Item " + number + ".vla" : "");
    }
    EXPECT_EQ(counted.count(Operation::List), 1U);
    for (int i = 0; i < 20; ++i) counted.read(at("Item " + std::to_string(i) + ".vla"));
    EXPECT_EQ(counted.count(Operation::List), 1U);
    EXPECT_EQ(counted.count(Operation::Read), 20U);
}

TEST_P(AnyFileSystem, needsNoListForExactNames) {
    files->save(at("EXACT.vla"), "x");
    FaultyFileSystem counted{*files};
    EXPECT_EQ(counted.find(at("EXACT.vla")), "EXACT.vla");
    counted.read(at("EXACT.vla"));
    counted.save(at("EXACT.vla"), "y");
    counted.remove(at("EXACT.vla"));
    EXPECT_EQ(counted.count(Operation::List), 0U);
}

TEST(Memory, tellsItsTopFromTheWorkingFolder) {
    const auto memory = makeMemoryFileSystem();
    memory->save({"/", "TOP.vla"}, "x");
    memory->save({"", "HERE.vla"}, "x");
    EXPECT_EQ(memory->listItems("/"), Names{"TOP.vla"});
    EXPECT_EQ(memory->listItems(""), Names{"HERE.vla"});
}

// ---------------------------------------------------------------------------------------------
// A clock so coarse that it hides changes.

/// Memory whose folders all bear the time that the test sets.
class CoarseClock : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;
    std::int64_t time = 1;
    bool settled = false;
    bool tellsTime = true;
    std::function<void()> duringSave = [] {};

  protected:
    bool stampOf(const std::string& folder, Stamp& stamp) override {
        if (tellsTime) stamp = {time, settled};
        return tellsTime && isFolder(folder);
    }
    void replaceFile(const std::string& path, std::string_view content) override {
        FaultyFileSystem::replaceFile(path, content);
        duringSave();
    }
};

class UnderACoarseClock : public testing::Test {
  protected:
    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    Stranger stranger{*memory};
    CoarseClock files{*memory};
};

TEST_F(UnderACoarseClock, trustsNoIndexWhileChangesMayHide) {
    EXPECT_EQ(files.find({"", "A.VLA"}), "");
    stranger.write("a.vla", "x");
    EXPECT_EQ(files.find({"", "A.VLA"}), "a.vla");
    EXPECT_EQ(files.read({"", "A.VLA"}), "x");
    stranger.erase("a.vla");
    stranger.write("A.vla", "y");
    EXPECT_EQ(files.read({"", "A.VLA"}), "y");
    files.remove({"", "A.VLA"});
    EXPECT_EQ(files.find({"", "a.vla"}), "");
}

TEST_F(UnderACoarseClock, trustsNoIndexReadWhileChangesCouldHide) {
    EXPECT_EQ(files.find({"", "A.VLA"}), "");
    stranger.write("a.vla", "x");
    files.settled = true;
    EXPECT_EQ(files.find({"", "A.VLA"}), "a.vla");
    files.resetCounts();
    EXPECT_EQ(files.find({"", "A.VLA"}), "a.vla");
    EXPECT_EQ(files.find({"", "B.VLA"}), "");
    EXPECT_EQ(files.count(Operation::List), 0U);
    files.time = 2;
    EXPECT_EQ(files.find({"", "B.VLA"}), "");
    EXPECT_EQ(files.count(Operation::List), 1U);
}

TEST_F(UnderACoarseClock, seesWhatOthersDidDuringOurOwnSave) {
    files.settled = true;
    EXPECT_EQ(files.find({"", "A.VLA"}), "");
    files.duringSave = [&] {
        stranger.write("a.vla", "x");
        files.time = 2;
    };
    files.save({"", "OWN.vla"}, "x");
    EXPECT_EQ(files.find({"", "A.VLA"}), "a.vla");
}

TEST_F(UnderACoarseClock, readsAFolderEachTimeWhoseTimeNobodyTells) {
    files.tellsTime = false;
    EXPECT_EQ(files.find({"", "A.VLA"}), "");
    stranger.write("a.vla", "x");
    EXPECT_EQ(files.find({"", "A.VLA"}), "a.vla");
    files.save({"", "Own.vla"}, "x");
    files.save({"", "OWN.vla"}, "y");
    EXPECT_EQ(memory->listItems(""), (Names{"a.vla", "Own.vla"}));
    EXPECT_EQ(files.find({"none\\", "OWN.vla"}), "");
    stranger.write("b.vla", "x");
    files.tellsTime = true;
    files.settled = true;
    files.time = 0;  // what was read without a time is not of this one
    EXPECT_EQ(files.find({"", "B.VLA"}), "b.vla");
}

TEST_F(UnderACoarseClock, entersNoRemovalInAnIndexThatOthersOutdated) {
    files.save({"", "OWN.vla"}, "x");
    EXPECT_EQ(files.find({"", "A.VLA"}), "");
    stranger.write("a.vla", "x");
    files.time = 2;
    files.remove({"", "OWN.vla"});
    files.save({"", "A.VLA"}, "y");
    EXPECT_EQ(memory->listItems(""), Names{"a.vla"});
}

TEST_F(UnderACoarseClock, keepsNoIndexBehindASaveWhoseTimeNobodyTells) {
    EXPECT_EQ(files.find({"", "A.VLA"}), "");
    files.duringSave = [&] {
        stranger.write("a.vla", "x");
        files.tellsTime = false;
    };
    files.save({"", "OWN.vla"}, "x");
    files.duringSave = [] {};
    files.tellsTime = true;
    files.save({"", "A.VLA"}, "y");
    EXPECT_EQ(memory->listItems(""), (Names{"a.vla", "OWN.vla"}));
}

TEST_F(UnderACoarseClock, savesNewFilesByTheIndexAtHand) {
    for (int i = 0; i < 100; ++i) {
        files.save({"", "New " + std::to_string(i) + ".vla"}, "x");
        files.save({"", "NEW " + std::to_string(i) + ".VLA"}, "y");
    }
    EXPECT_EQ(files.count(Operation::List), 1U);
    EXPECT_EQ(memory->listItems("").size(), 100U);
}

// ---------------------------------------------------------------------------------------------
// Failing on demand, and the file system in use.

class Faulty : public testing::Test {
  protected:
    Faulty() {
        memory->makeFolder("A");
        memory->save({"A\\", "ONE.vla"}, "1");
        memory->save({"A\\", "TWO.vla"}, "2");
    }
    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    FaultyFileSystem files{*memory};
};

TEST_F(Faulty, passesEverythingOn) {
    EXPECT_EQ(files.listItems("a\\"), (Names{"ONE.vla", "TWO.vla"}));
    EXPECT_EQ(files.read({"a\\", "one.vla"}), "1");
    files.save({"a\\", "one.VLA"}, "new");
    files.remove({"a\\", "two.VLA"});
    files.makeFolder("a\\B");
    EXPECT_EQ(memory->listItems("A"), Names{"ONE.vla"});
    EXPECT_EQ(memory->read({"A\\", "ONE.vla"}), "new");
    EXPECT_TRUE(memory->folderExists("A\\B"));
    EXPECT_TRUE(files.existsExactly("A/ONE.vla"));
    EXPECT_FALSE(files.existsExactly("a/ONE.vla"));
}

TEST_F(Faulty, keepsTheOldFileWhenASaveFails) {
    files.failOn(Operation::Save, "ONE");
    const Error error = raisedBy([&] { files.save({"A\\", "one.vla"}, "new"); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(), "The file A/ONE.vla can't be written: No space left on device.");
    EXPECT_EQ(files.read({"A\\", "ONE.vla"}), "1");
    files.save({"A\\", "TWO.vla"}, "new");
    EXPECT_EQ(files.read({"A\\", "TWO.vla"}), "new");
    files.failNowhere();
    files.save({"A\\", "ONE.vla"}, "new");
    EXPECT_EQ(files.read({"A\\", "ONE.vla"}), "new");
}

TEST_F(Faulty, failsEveryKindOfOperation) {
    for (const Operation operation :
         {Operation::List, Operation::Read, Operation::Remove, Operation::MakeFolder}) {
        files.failOn(operation);
    }
    EXPECT_EQ(files.find({"A\\", "ONE.vla"}), "ONE.vla");
    for (const auto& call : std::vector<std::function<void()>>{[&] { files.listItems("A"); },
                                                               [&] {
                                                                   files.find({"A\\", "one.vla"});
                                                               },
                                                               [&] {
                                                                   files.read({"A\\", "ONE.vla"});
                                                               },
                                                               [&] {
                                                                   files.remove({"A\\", "ONE.vla"});
                                                               },
                                                               [&] { files.makeFolder("A\\B"); }}) {
        EXPECT_EQ(raisedBy(call).number(), errc::FileAccess);
    }
    EXPECT_EQ(memory->read({"A\\", "ONE.vla"}), "1");
    EXPECT_FALSE(memory->folderExists("A\\B"));
    // A folder that could not be read is not taken for an empty one, now or later.
    files.failNowhere();
    EXPECT_EQ(files.find({"A\\", "one.vla"}), "ONE.vla");
}

TEST_F(Faulty, skipsAndStopsAsTold) {
    files.failOn(Operation::Read, "O", 1, 2);
    EXPECT_EQ(files.read({"A\\", "ONE.vla"}), "1");
    EXPECT_THROW(files.read({"A\\", "TWO.vla"}), Error);
    EXPECT_THROW(files.read({"A\\", "ONE.vla"}), Error);
    EXPECT_EQ(files.read({"A\\", "TWO.vla"}), "2");
}

TEST_F(Faulty, countsOperations) {
    files.failOn(Operation::Read, "TWO");
    files.read({"A\\", "ONE.vla"});
    EXPECT_THROW(files.read({"A\\", "TWO.vla"}), Error);
    EXPECT_THROW(files.read({"A\\", "NONE.vla"}), Error);
    files.save({"A\\", "ONE.vla"}, "");
    files.remove({"A\\", "ONE.vla"});
    files.makeFolder("A\\B");
    EXPECT_EQ(files.count(Operation::Read), 2U);
    EXPECT_EQ(files.count(Operation::Save), 1U);
    EXPECT_EQ(files.count(Operation::Remove), 1U);
    EXPECT_EQ(files.count(Operation::MakeFolder), 1U);
    files.resetCounts();
    EXPECT_EQ(files.count(Operation::Read), 0U);
}

TEST(FileSystemInUse, isTheDiskUntilAnotherIsSet) {
    TemporaryFolder folder;
    const ItemPath path{folder.path() + "/", "A.vla"};
    FileSystem& disk = fileSystem();
    disk.save(path, "on disk");
    EXPECT_TRUE(fs::exists(path.text()));
    const auto memory = makeMemoryFileSystem();
    setFileSystem(memory.get());
    EXPECT_EQ(&fileSystem(), memory.get());
    EXPECT_EQ(fileSystem().find(path), "");
    setFileSystem(nullptr);
    EXPECT_EQ(&fileSystem(), &disk);
    EXPECT_EQ(fileSystem().read(path), "on disk");
}

TEST(ItemPathTest, keepsFolderAndNameApart) {
    const ItemPath item = ItemPath::item("C:\\STORE\\MORAM\\", "..\\X");
    EXPECT_EQ(item.folder, "C:\\STORE\\MORAM\\");
    EXPECT_EQ(item.name, "..\\X.vla");
    EXPECT_EQ(item.text(), "C:\\STORE\\MORAM\\..\\X.vla");
}

TEST(ItemPathTest, cutsAPathBehindItsLastSeparator) {
    const auto parts = [](const char* path) {
        const ItemPath cut = ItemPath::of(path);
        return std::pair{cut.folder, cut.name};
    };
    EXPECT_EQ(parts("C:\\A/B.vla"), (std::pair{"C:\\A/"s, "B.vla"s}));
    EXPECT_EQ(parts("/a\\B.vla"), (std::pair{"/a\\"s, "B.vla"s}));
    EXPECT_EQ(parts("B.vla"), (std::pair{""s, "B.vla"s}));
    EXPECT_EQ(parts("A\\"), (std::pair{"A\\"s, ""s}));
    EXPECT_EQ(parts(""), (std::pair{""s, ""s}));
}

}  // namespace
}  // namespace wynconfig

// The keys that captions mark.
#include "wynconfig/mnemonic.h"

#include <gtest/gtest.h>

#include <string>

namespace wynconfig {
namespace {

TEST(Mnemonic, MarksTheCharacterBehindIt) {
    EXPECT_EQ(mnemonicOf("&New"), "N");
    EXPECT_EQ(mnemonicOf("Program &path"), "P");
    EXPECT_EQ(mnemonicOf("L&öschen"), "Ö");
    EXPECT_EQ(mnemonicOf("&تطبيق"), "ت");
}

TEST(Mnemonic, IsNoneWithoutAMark) {
    for (const char* caption : {"", "New", "R&&D", "New&", "&", "&&", "&&&"})
        EXPECT_EQ(mnemonicOf(caption), "") << caption;
}

TEST(Mnemonic, IsTheFirstOneBehindDoubledMarks) {
    EXPECT_EQ(mnemonicOf("R&&D &list"), "L");
    EXPECT_EQ(mnemonicOf("&&&A"), "A");
    EXPECT_EQ(mnemonicOf("&One &Two"), "O");
}

TEST(PlainCaption, HasNoMarks) {
    EXPECT_EQ(plainCaption("&New"), "New");
    EXPECT_EQ(plainCaption("Program &path"), "Program path");
    EXPECT_EQ(plainCaption("L&öschen"), "Löschen");
    EXPECT_EQ(plainCaption("New"), "New");
    EXPECT_EQ(plainCaption(""), "");
}

TEST(PlainCaption, KeepsOneOfTwoMarks) {
    EXPECT_EQ(plainCaption("R&&D"), "R&D");
    EXPECT_EQ(plainCaption("&&"), "&");
    EXPECT_EQ(plainCaption("&&&A"), "&A");
    EXPECT_EQ(plainCaption("New&"), "New");
    EXPECT_EQ(plainCaption("&"), "");
}

TEST(PlainCaption, DropsAKeyInBracketsAtItsEnd) {
    EXPECT_EQ(plainCaption("追加(&A)"), "追加");
    EXPECT_EQ(plainCaption("Löschen(&Ö)"), "Löschen");
    EXPECT_EQ(mnemonicOf("追加(&A)"), "A");
    EXPECT_EQ(plainCaption("Path (&old) one"), "Path (old) one");
    EXPECT_EQ(plainCaption("Path (&a) one"), "Path (a) one");
    EXPECT_EQ(plainCaption("Both (&&)"), "Both (&)");
    EXPECT_EQ(plainCaption("Open (&"), "Open (");
}

TEST(PlainCaption, KeepsBytesThatAreNoText) {
    EXPECT_EQ(plainCaption("&\xFFx"), "\xFFx");
    EXPECT_EQ(plainCaption("(&\xE2\x82"), "(\xE2\x82");
}

}  // namespace
}  // namespace wynconfig

// The stored form of records, as the schema in docs/dataset.xsd describes it: what is written keeps
// to the schema, and the schema refuses what is no record.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/rows.h"
#include "support/strange_texts.h"
#include "support/temporary_folder.h"
#include "wynconfig/dataset.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

/// Holds stored forms as files, and has them all validated at once.
class StoredForm : public ::testing::Test {
  protected:
    void add(const std::string& xml) {
        const fs::path file = m_folder / (std::to_string(++m_count) + ".xml");
        std::ofstream(file, std::ios::binary) << xml;
        m_files += " '" + file.string() + "'";
    }
    void add(const Dataset& record) { add(xmlOf(record)); }

    /// What the validator says; it starts each file's verdict with the file's path.
    std::string validate() {
        const fs::path log = m_folder / "log";
        const std::string command = "xmllint --noout --schema '" WYNCONFIG_SOURCE
                                    "/docs/dataset.xsd'" +
                                    m_files + " > '" + log.string() + "' 2>&1";
        m_failed = std::system(command.c_str()) != 0;
        std::ostringstream text;
        text << std::ifstream(log).rdbuf();
        return text.str();
    }
    void expectValid() {
        const std::string said = validate();
        EXPECT_FALSE(m_failed) << said;
        for (int i = 1; i <= m_count; ++i)
            EXPECT_NE(said.find("/" + std::to_string(i) + ".xml validates"), std::string::npos)
                << said;
    }
    /// Each of these texts alone must be refused, for the reason given.
    void expectRefused(const std::string& xml, const std::string& reason) {
        m_files.clear();
        m_count = 0;
        add(xml);
        const std::string said = validate();
        EXPECT_TRUE(m_failed) << xml;
        EXPECT_NE(said.find("fails to validate"), std::string::npos) << said;
        EXPECT_NE(said.find(reason), std::string::npos) << said;
    }

  private:
    TemporaryFolder m_folder;
    std::string m_files;
    int m_count = 0;
    bool m_failed = false;
};

const std::string kHead =
    "<dataset version=\"1\" type=\"\" name=\"\" key=\"Element\">"
    "<column>Element</column><column>Data</column>";

TEST_F(StoredForm, ReadsLikeThis) {
    Dataset record;
    record.Create("MORAM", "TOM & \"CO\"", "/store/MORAM\\", {"Element", "Data"});
    record.SetKey("Element", 3);
    record.AddRow({"ProgramPath", "/programs/<parts>.exe"});
    record.AddRow({"CommandLineArgs", ""});
    record.AddRow({"Odd\tkey", "two\r\nlines\x01"});
    EXPECT_EQ(xmlOf(record),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<dataset version=\"1\" type=\"MORAM\" name=\"TOM &amp; &quot;CO&quot;\" "
              "key=\"Element\">\n"
              "  <column>Element</column>\n"
              "  <column>Data</column>\n"
              "  <row key=\"ProgramPath\">/programs/&lt;parts&gt;.exe</row>\n"
              "  <row key=\"CommandLineArgs\"/>\n"
              "  <row key=\"Odd&#9;key\">two&#13;\nlines_x0001_</row>\n"
              "</dataset>\n");
    add(record);
    expectValid();
}

TEST_F(StoredForm, HasColumnsLikeThis) {
    Dataset record;
    record.Create("MORAM", "TOM", "/store/MORAM\\",
                  {"\"One\" & <two>", "two\r\nlines\tand _x0041_"});
    EXPECT_EQ(xmlOf(record),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<dataset version=\"1\" type=\"MORAM\" name=\"TOM\" "
              "key=\"&quot;One&quot; &amp; &lt;two&gt;\">\n"
              "  <column>\"One\" &amp; &lt;two&gt;</column>\n"
              "  <column>two&#13;\nlines\tand _x005F_x0041_</column>\n"
              "</dataset>\n");
    add(record);
    expectValid();
}

TEST_F(StoredForm, OfEmptyRecordsIsValid) {
    Dataset untouched;
    add(untouched);
    Dataset catalogue;
    catalogue.Create("MORAM", "MORAM", "/store/", {"Element", "Data"});
    catalogue.SetKey("Element", 3);
    add(catalogue);
    expectValid();
}

TEST_F(StoredForm, OfStrangeTextsIsValid) {
    for (const StrangeText& strange : strangeTexts()) {
        Dataset record;
        record.Create(strange.text, strange.text, strange.text, {strange.text, "x" + strange.text});
        record.AddRow({strange.text, strange.text});
        record.AddRow({strange.text + "x", "x" + strange.text});
        add(record);
    }
    expectValid();
}

TEST_F(StoredForm, OfManyRowsAndLongTextsIsValid) {
    Dataset record;
    for (int i = 0; i < 1000; ++i)
        record.AddRow({"KEY" + std::to_string(i), std::string(1000, 'x') + "\r\n<>&\""});
    record.AddRow({"long", std::string(1U << 20, '<')});
    add(record);
    expectValid();
}

TEST_F(StoredForm, OfALaterVersionIsValidAndLoads) {
    const std::string later =
        "<dataset xmlns:z=\"urn:z\" version=\"2\" type=\"T\" name=\"N\" key=\"Element\" new=\"1\" "
        "z:a=\"b\"><column note=\"x\">Element</column><column>Data</column><comment/>"
        "<row key=\"a\" z:since=\"2\">b<new>gone</new>c</row>"
        "<z:extra key=\"a\"><y>deep</y></z:extra></dataset>";
    add(later);
    expectValid();
    Document document;
    ASSERT_TRUE(document.loadXML(later));
    Dataset record;
    record.Load(document, 0);
    EXPECT_EQ(record.Rows().size(), 1U);
    EXPECT_EQ(record.GetRow("a")[1], "bc");
}

TEST_F(StoredForm, WithAKeyTwiceIsRefused) {
    expectRefused(kHead + "<row key=\"a\"/><row key=\"b\"/><row key=\"a\"/></dataset>",
                  "Duplicate key-sequence ['a']");
}

TEST_F(StoredForm, WithARowWithoutKeyIsRefused) {
    expectRefused(kHead + "<row/></dataset>", "The attribute 'key' is required but missing");
}

TEST_F(StoredForm, WithoutItsTwoColumnsIsRefused) {
    const std::string open = "<dataset version=\"1\" type=\"\" name=\"\" key=\"Element\">";
    expectRefused(open + "</dataset>", "Missing child element(s)");
    expectRefused(open + "<column>Element</column><row key=\"a\"/></dataset>",
                  "This element is not expected");
}

TEST_F(StoredForm, WithoutAnAttributeOfTheRecordIsRefused) {
    for (const std::string missing : {"version", "type", "name", "key"}) {
        std::string xml = kHead + "</dataset>";
        const std::size_t at = xml.find(" " + missing + "=");
        const std::size_t quote = xml.find('"', at);
        xml.erase(at, xml.find('"', quote + 1) + 1 - at);
        expectRefused(xml, "The attribute '" + missing + "' is required but missing");
    }
}

TEST_F(StoredForm, OfAnotherRootIsRefused) {
    expectRefused("<records version=\"1\" type=\"\" name=\"\" key=\"\"/>",
                  "No matching global declaration");
    expectRefused("<z:dataset xmlns:z=\"urn:z\" version=\"1\" type=\"\" name=\"\" key=\"\"/>",
                  "No matching global declaration");
}

TEST_F(StoredForm, WithAVersionThatIsNoNumberIsRefused) {
    std::string xml = kHead + "</dataset>";
    xml.replace(xml.find("\"1\""), 3, "\"one\"");
    expectRefused(xml, "'one' is not a valid value");
}

}  // namespace
}  // namespace wynconfig

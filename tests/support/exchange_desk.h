// A desk for tests of the in-memory mode from the host's side: XML texts to hand in, and a look at
// those that come back.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/format_desk.h"

namespace wynconfig {

using Texts = std::vector<std::string>;

/// What a host gets when there is no part format.
inline const Texts kNoFormats{""};

class ExchangeDesk : public FormatDesk {
  protected:
    void SetUp() override {
        FormatDesk::SetUp();
        putProgram("/programs/parts.exe");
    }

    // Texts to hand in.

    /// A session that can be applied as it is.
    static std::string sessionXml(const std::string& sessionName, const Names& formats) {
        Dataset record;
        record.Create("MORAM", sessionName, "", session::kColumns);
        for (const auto& [key, value] : fullSession(formats)) record.AddRow({key, value});
        return xmlOf(record);
    }
    /// A part format that the editor accepts as it is, told from others by its header.
    std::string formatXml(const std::string& formatName) const {
        return xmlOf(*fullFormat(formatName));
    }

    // The operations, each of which must leave the store alone.

    /// Hands texts in, with `name` in and out; the script must close the session dialog.
    long exchange(const std::string& sessionText, const Texts& formatTexts, User::Script script) {
        user().onForm("frmMORAMConfig", std::move(script));
        return refused(sessionText, formatTexts);
    }
    /// The same on texts that bring up no dialog.
    long refused(const std::string& sessionText, const Texts& formatTexts) {
        disk.resetCounts();
        const long result = component.showMORAMConfigDlgEX(name, sessionText, formatTexts);
        expectNothingWritten();
        return result;
    }
    long addInMemory() {
        disk.resetCounts();
        const long result = component.showAddMORAMConfigDlgEX(name);
        expectNothingWritten();
        return result;
    }
    /// Nothing has been written to the disk since the last `disk.resetCounts`.
    void expectNothingWritten() const {
        EXPECT_EQ(saves(), 0U);
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Remove), 0U);
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::MakeFolder), 0U);
    }

    // What comes back.

    static std::shared_ptr<Dataset> recordIn(const std::string& xml) {
        Document document;
        EXPECT_TRUE(document.loadXML(xml)) << xml;
        auto record = std::make_shared<Dataset>();
        record->Load(document);
        return record;
    }
    std::shared_ptr<Dataset> sessionBack() { return recordIn(component.GetDatasetSessionData()); }
    Rows rowsBack() {
        Rows rows;
        const auto session = sessionBack();
        for (const DataRow& row : session->Rows()) rows.emplace(row[0], row[1]);
        return rows;
    }
    std::shared_ptr<Dataset> formatBack(std::size_t index) {
        return recordIn(component.GetDatasetFormatsData().at(index));
    }
    /// The names of the part formats that come back; there must be some.
    Names formatsBack() {
        Names names;
        for (const std::string& text : component.GetDatasetFormatsData())
            names.push_back(recordIn(text)->Name());
        return names;
    }
    static Rows fullRows(const Names& formats) {
        const auto rows = fullSession(formats);
        return Rows(rows.begin(), rows.end());
    }

    // Scripts.

    /// Does something on the part format tab, then presses OK.
    static User::Script onFormatTab(const User::Script& script) {
        return [script](User& u) {
            u.changeTab("SSTab2", 1);
            script(u);
            u.click("btnOK");
        };
    }

    std::string name = "mine";
};

}  // namespace wynconfig

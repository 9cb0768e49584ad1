// A desk for tests of the part format tab: opens the session dialog there, in either mode, and has
// short ways to part formats and to the formats of a session.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "store/session_record.h"
#include "support/dialog_checks.h"
#include "support/format_rows.h"
#include "support/session_dialog_desk.h"

namespace wynconfig {

class FormatDesk : public SessionDialogDesk {
  protected:
    // The procedures that walk over all sessions, as their failure boxes name them.
    static inline const std::string kCheckTag =
        "UnifrmMORAMConfig:CheckForLastPartNumberFormatInAllMORAMs";
    static inline const std::string kUpdateTag =
        "UnifrmMORAMConfig:UpdatePartNumberFormatsInAllMORAMs";

    /// Opens a session on the part format tab. The script may leave the dialog open: Cancel ends
    /// it.
    void open(const std::string& session, const User::Script& script) {
        SessionDialogDesk::open(session, onTheTab(script));
    }
    /// The same on a session of these formats in memory.
    void openInMemory(const Names& formats, const User::Script& script) {
        ConfigGlobalModule::g_Session = std::make_shared<Dataset>();
        ConfigGlobalModule::g_Session->setName("MINE");
        fill(*ConfigGlobalModule::g_Session, std::to_string(formats.size()), formats);
        openHeld("MINE", onTheTab(script));
    }

    static Names available(User& u) { return u.see("lstAvailableFormats").rowTexts(); }
    static std::vector<SeenRow> selected(User& u) { return u.see("lstSelectedFormats2").rows; }
    static Names selectedNames(User& u) { return u.see("lstSelectedFormats2").rowTexts(); }
    /// The text of the marked row of the available list; empty when there is none.
    static std::string marked(User& u) {
        const Sight list = u.see("lstAvailableFormats");
        return list.selected == 0 ? std::string() : list.rows[list.selected - 1].text;
    }
    static bool listHasFocus(User& u) { return u.see("lstAvailableFormats").focus; }
    /// Marks a format in the available list and presses a button.
    static void act(User& u, const std::string& format, const std::string& button) {
        u.pick("lstAvailableFormats", format);
        u.click(button);
    }

    /// A session file whose count says this, with these format rows from number 1 on.
    void putSessionOf(const std::string& name, const std::string& count, const Names& formats) {
        Dataset record;
        record.Create("MORAM", name, sessionFolder, session::kColumns);
        fill(record, count, formats);
        record.Save(ItemPath::item(sessionFolder, name));
    }
    void putSessionOf(const std::string& name, const Names& formats) {
        putSessionOf(name, std::to_string(formats.size()), formats);
    }
    void putMalformedSession(const std::string& name) {
        memory->save(ItemPath::item(sessionFolder, name), "<no record");
    }
    /// The format rows of a session that are there, in the order of their numbers.
    static Names formatsOf(const Dataset& record) {
        Names names;
        for (int number = 1; number <= 9; ++number) {
            for (const DataRow& row : record.Rows())
                if (row[0] == session::formatKey(number)) names.push_back(row[1]);
        }
        return names;
    }
    Names formatsOf(const std::string& sessionName) {
        return formatsOf(*sessionRecord(sessionName));
    }
    std::string countOf(const std::string& sessionName) {
        return sessionRecord(sessionName)->GetRow(session::kFormatCount)[1];
    }
    static Names formatsInMemory() { return formatsOf(*ConfigGlobalModule::g_Session); }
    static std::string countInMemory() {
        return ConfigGlobalModule::g_Session->GetRow(session::kFormatCount)[1];
    }

    /// A part format that the editor accepts as it is, told from others by its header.
    std::shared_ptr<Dataset> fullFormat(const std::string& name) const {
        auto format = std::make_shared<Dataset>();
        format->Create(partformat::kType, name, formatFolder, session::kColumns);
        for (const auto& [key, first] : kFirstFormat) {
            format->AddRow({key, key == "MaxRecords" ? "100"
                                 : key == "Header"   ? "head of " + name
                                                     : first});
        }
        return format;
    }
    void putFullFormat(const std::string& name) {
        fullFormat(name)->Save(ItemPath::item(formatFolder, name));
    }
    void addHostFormat(const std::string& name, const std::string& key) {
        ConfigGlobalModule::g_PartFormats.Add(fullFormat(name), key);
    }
    void addHostFormat(const std::string& name) { addHostFormat(name, name); }
    std::shared_ptr<Dataset> deletedFormat(const std::string& name) {
        auto record = std::make_shared<Dataset>();
        record->Load(ItemPath::item(formatFolder + "deleted\\", name));
        return record;
    }
    static std::string headerOf(const Dataset& format) { return format.GetRow("Header")[1]; }

    /// How often the disk was written to since the last `disk.resetCounts`.
    std::size_t saves() const { return disk.count(FaultyFileSystem::Operation::Save); }
    std::size_t reads() const { return disk.count(FaultyFileSystem::Operation::Read); }

    /// Checks that the box of a number from 0 tells a failure of this procedure.
    void expectFailureBox(std::size_t number, const std::string& tag) {
        ASSERT_LT(number, user().boxes().size()) << tag;
        const SeenBox& box = user().boxes()[number];
        EXPECT_TRUE(isFailureOf(box.text, tag)) << box.text;
        EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
        EXPECT_EQ(box.style, 4112);
        EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
    }

  private:
    static User::Script onTheTab(const User::Script& script) {
        return [script](User& u) {
            u.changeTab("SSTab2", 1);
            script(u);
        };
    }
    static void fill(Dataset& record, const std::string& count, const Names& formats) {
        record.AddRow({session::kFormatCount, count});
        int number = 0;
        for (const std::string& format : formats)
            record.AddRow({session::formatKey(++number), format});
    }
};

}  // namespace wynconfig

// What the played user does to part formats: the editor, the prompt for a name, and the buttons of
// the part format tab.
#include "tour/tour_format_steps.h"

#include <utility>

#include "wynconfig/keys.h"

namespace host {

namespace {

namespace partformat = wynconfig::partformat;
namespace session = wynconfig::session;
namespace words = wynconfig::words;
using wynconfig::User;
using Names = std::vector<std::string>;

constexpr const char* kAvailable = "lstAvailableFormats";
constexpr const char* kSelected = "lstSelectedFormats2";

// Sessions of the sample store that have formats which change on the way.
constexpr const char* kWorkshop = "WORKSHOP COUNTER";
constexpr const char* kBodyShop = "BODY SHOP QUOTES";

std::string formatFile(const std::string& name) {
    return "PARTFORMAT/" + name + ".vla";
}

std::string deletedFile(const std::string& name) {
    return "PARTFORMAT/deleted/" + name + ".vla";
}

/// From here on a session has these formats, and all else as it was.
void expectFormats(Tour& tour, const std::string& session, const Names& formats) {
    Rows rows = tour.expectedRows(sessionFile(session));
    std::erase_if(rows,
                  [](const auto& row) { return row.first.starts_with(session::kFormatPrefix); });
    rows[session::kFormatCount] = std::to_string(formats.size());
    for (std::size_t i = 0; i < formats.size(); ++i)
        rows[session::formatKey(static_cast<int>(i) + 1)] = formats[i];
    tour.expectRecord(sessionFile(session), std::move(rows));
}

/// From here on a format goes by another name.
void expectRenamed(Tour& tour, const std::string& oldName, const std::string& newName) {
    tour.expectRecord(formatFile(newName), tour.expectedRows(formatFile(oldName)));
    tour.expectNoRecord(formatFile(oldName));
}

void expectSelectedList(Tour& tour, const Names& formats) {
    tour.expect(tour.user().see(kSelected).rowTexts() == formats,
                "the selected list does not show the session's formats");
}

void expectAvailableRow(Tour& tour, const std::string& name) {
    const wynconfig::Sight list = tour.user().see(kAvailable);
    tour.expectText(list.selected == 0 ? "" : list.rows[list.selected - 1].text, name,
                    "the selected row of the available list");
}

/// Selects an available format and presses a button.
void press(Tour& tour, const std::string& format, const char* button) {
    tour.user().pick(kAvailable, format);
    tour.user().click(button);
}

Rows jobCardRows() {
    return {{partformat::kHeader, "<ESCAPE>"},
            {partformat::kRecord, "<Part #> x <Quantity>"},
            {partformat::kSeparator, "<CR><LF>"},
            {partformat::kTrailer, ""},
            {partformat::kPart.flag, words::kTrue},
            {partformat::kPart.length, "16"},
            {partformat::kPart.alignment, words::kLeft},
            {partformat::kPart.pad, "<SPACE>"},
            {partformat::kQty.flag, words::kTrue},
            {partformat::kQty.length, "4"},
            {partformat::kQty.alignment, words::kRight},
            {partformat::kQty.pad, "0"},
            {partformat::kDesc.flag, words::kFalse},
            {partformat::kDesc.length, "34"},
            {partformat::kDesc.alignment, words::kRight},
            {partformat::kDesc.pad, ""},
            {partformat::kVin.flag, words::kFalse},
            {partformat::kVin.length, "17"},
            {partformat::kVin.alignment, words::kRight},
            {partformat::kVin.pad, ""},
            {partformat::kMaxRecords, "25"}};
}

void fillJobCard(Tour& tour) {
    User& user = tour.user();
    tour.say("a format without a maximum of records is refused");
    user.type("txtFormatName", " job card ");
    tour.expectBox("no-maximum-records", "PART_FORMAT_MSG_NUM_MAX_RECORDS");
    user.click("btnOk");
    tour.expectText(user.see("txtFormatName").text, "JOB CARD", "the name in the editor");
    tour.expect(user.see("txtMaxRecords").focus, "the box did not lead to the maximum of records");
    user.type("txtMaxRecords", "25");

    tour.say("symbols are picked from the list");
    user.focus("txtRecord");
    user.pick("lstSpecialSymbols2", "<Part #>");
    user.type("txtRecord", user.see("txtRecord").text + " x ");
    user.pick("lstSpecialSymbols2", "<Quantity>");
    tour.say("a symbol that makes no sense in a box is not put there");
    user.focus("txtHeader");
    user.pick("lstSpecialSymbols2", "<Part #>");
    user.pick("lstSpecialSymbols2", "<ESCAPE>");
    user.focus("txtSeparator");
    user.pick("lstSpecialSymbols2", "<CR>");
    user.pick("lstSpecialSymbols2", "<LF>");

    tour.say("ticking a field leads the list to its pad box");
    user.tick("chkFormatPartNumber");
    user.pick("lstSpecialSymbols2", "<SPACE>");
    user.type("txtPartFieldLength", "16");
    user.click("rdoPartLeft");
    user.tick("chkFormatQty");
    user.type("txtQtyFieldLength", "4");
    user.type("txtQtyPad", "0");
    tour.picture("editor-filled");
    user.click("btnOk");
}

void addNewFormat(Tour& tour) {
    User& user = tour.user();
    user.changeTab("SSTab2", 1);
    tour.picture("format-tab");
    user.onForm("frmPartNumberFormat", [&](User&) { fillJobCard(tour); });
    user.click("btnNew");
    tour.expectRecord(formatFile("JOB CARD"), jobCardRows());
    tour.checkStore();
    expectAvailableRow(tour, "JOB CARD");
    expectSelectedList(tour, {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED"});
    press(tour, "QUANTITY FIRST", "btnAdd");
    press(tour, "JOB CARD", "btnAdd");
    expectSelectedList(
        tour, {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED", "QUANTITY FIRST", "JOB CARD"});
    tour.picture("new-format-selected");
    user.click("btnOK");
}

/// A new name in the editor.
void editFormat(Tour& tour, const std::string& session) {
    User& user = tour.user();
    tour.say("the editor gives a format another name, and the sessions follow");
    user.onForm("frmPartNumberFormat", [&](User&) {
        tour.expectText(user.see("txtFormatName").text, "TAB SEPARATED", "the name in the editor");
        tour.expectText(user.see("txtRecord").text, "<Part #><TAB><Quantity><TAB><Description>",
                        "the record in the editor");
        user.type("txtFormatName", "tab separated list");
        user.type("txtMaxRecords", "750");
        tour.picture("editor-changed");
        user.pressEnter();
    });
    press(tour, "TAB SEPARATED", "btnEdit");

    expectRenamed(tour, "TAB SEPARATED", "TAB SEPARATED LIST");
    Rows rows = tour.expectedRows(formatFile("TAB SEPARATED LIST"));
    rows[partformat::kMaxRecords] = "750";
    tour.expectRecord(formatFile("TAB SEPARATED LIST"), std::move(rows));
    expectFormats(tour, kBodyShop, {"COMMA SEPARATED", "QUANTITY FIRST", "TAB SEPARATED LIST"});
    expectFormats(
        tour, session,
        {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED LIST", "QUANTITY FIRST", "JOB CARD"});
    tour.checkStore();
    expectAvailableRow(tour, "TAB SEPARATED LIST");
    tour.picture("format-edited");
}

/// A name that the prompt gives and that is refused.
void refuseName(Tour& tour, const std::string& name, const char* pictureName, const char* textKey) {
    User& user = tour.user();
    user.onForm("dlgSingleEntry", [&](User&) {
        user.type("txtTextBox", name);
        user.pressEnter();
    });
    tour.expectBox(pictureName, textKey);
    press(tour, "QUANTITY FIRST", "btnRename");
    tour.checkStore();
}

void renameFormat(Tour& tour, const std::string& session) {
    User& user = tour.user();
    tour.say("the name of another format, and one with a point, are refused");
    refuseName(tour, "order form", "rename-name-taken", "MORAM_CONFIG_MSG_NAME_EXISTS");
    refuseName(tour, "pieces.first", "rename-name-with-point", "MORAM_CONFIG_MSG_INVALID_CHARS");
    tour.say("a format gets another name, and the sessions follow");
    user.onForm("dlgSingleEntry", [&](User&) {
        tour.expectText(user.see("txtTextBox").text, "QUANTITY FIRST", "the name in the prompt");
        user.type("txtTextBox", "pieces first");
        tour.picture("rename-filled");
        user.click("OKButton");
    });
    press(tour, "QUANTITY FIRST", "btnRename");

    expectRenamed(tour, "QUANTITY FIRST", "PIECES FIRST");
    expectFormats(tour, kWorkshop, {"COMMA SEPARATED", "PIECES FIRST"});
    expectFormats(tour, kBodyShop, {"COMMA SEPARATED", "PIECES FIRST", "TAB SEPARATED LIST"});
    expectFormats(
        tour, session,
        {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED LIST", "PIECES FIRST", "JOB CARD"});
    tour.checkStore();
    expectAvailableRow(tour, "PIECES FIRST");
    tour.picture("format-renamed");
}

void copyFormat(Tour& tour) {
    tour.say("a format is copied");
    press(tour, "JOB CARD", "btnCopy");
    tour.expectRecord(formatFile("COPY OF JOB CARD"), tour.expectedRows(formatFile("JOB CARD")));
    tour.checkStore();
    expectAvailableRow(tour, "JOB CARD");
    tour.picture("format-copied");
}

void refuseDeletion(Tour& tour) {
    tour.say("the only format of some session is not deleted");
    tour.expectQuestion("delete-question", "MORAM_CONFIG_MSG_DELETE_CONFIG",
                        wynconfig::answer::Yes);
    tour.expectBox("delete-refused", "MORAM_CONFIG_MSG_LAST_PART_FORMAT", "LABEL PRINTING");
    press(tour, "SHELF LABEL", "btnDelete");
    tour.checkStore();

    tour.say("the question is answered with No");
    tour.expectQuestion("delete-question-no", "MORAM_CONFIG_MSG_DELETE_CONFIG",
                        wynconfig::answer::No);
    press(tour, "PIECES FIRST", "btnDelete");
    tour.checkStore();
}

void deleteFormat(Tour& tour, const std::string& session) {
    tour.say("a format is deleted, and the sessions follow");
    tour.expectQuestion("delete-question-yes", "MORAM_CONFIG_MSG_DELETE_CONFIG",
                        wynconfig::answer::Yes);
    press(tour, "PIECES FIRST", "btnDelete");

    tour.expectRecord(deletedFile("PIECES FIRST"), tour.expectedRows(formatFile("PIECES FIRST")));
    tour.expectNoRecord(formatFile("PIECES FIRST"));
    expectFormats(tour, kWorkshop, {"COMMA SEPARATED"});
    expectFormats(tour, kBodyShop, {"COMMA SEPARATED", "TAB SEPARATED LIST"});
    const Names left = {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED LIST", "JOB CARD"};
    expectFormats(tour, session, left);
    tour.checkStore();
    expectSelectedList(tour, left);
    tour.picture("format-deleted");
}

}  // namespace

void makePartFormat(Tour& tour, const std::string& session) {
    tour.user().onForm("frmMORAMConfig", [&](User&) { addNewFormat(tour); });
    tour.perform("configure", session, {0, session});
    expectFormats(
        tour, session,
        {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED", "QUANTITY FIRST", "JOB CARD"});
    tour.checkStore();
}

void changePartFormats(Tour& tour, const std::string& session) {
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        user.changeTab("SSTab2", 1);
        editFormat(tour, session);
        renameFormat(tour, session);
        copyFormat(tour);
        tour.say("cancelling the session takes nothing of that back");
        user.pressEscape();
    });
    tour.perform("configure", session, {1, session});
    tour.checkStore();
    tour.hostPicture("host-after-changes");
}

void deletePartFormats(Tour& tour, const std::string& session) {
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        user.changeTab("SSTab2", 1);
        refuseDeletion(tour);
        deleteFormat(tour, session);
        user.click("btnOK");
    });
    tour.perform("configure", session, {0, session});
    tour.checkStore();
    tour.hostPicture("host-after-deletion");
}

}  // namespace host

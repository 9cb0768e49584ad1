// The steps of the tour, and what the played user does to sessions.
#include "tour/tour.h"
#include "tour/tour_database_steps.h"
#include "tour/tour_format_steps.h"
#include "tour/tour_tool_steps.h"
#include "wynconfig/keys.h"

namespace host {

namespace {

namespace session = wynconfig::session;
namespace words = wynconfig::words;
using wynconfig::User;

// The road is walked on this session, which is renamed on the way.
constexpr const char* kFirstName = "NIGHT COUNTER";
constexpr const char* kFirstFile = "MORAM/NIGHT COUNTER.vla";
constexpr const char* kLastName = "LATE COUNTER";
constexpr const char* kLastFile = "MORAM/LATE COUNTER.vla";
constexpr const char* kArguments = "--night --import \"parts list.csv\"";

std::string programPath(const Tour& tour) {
    return (tour.store().programs() / "warranty-claims").string();
}

Rows expectedRows(const Tour& tour) {
    return {{session::kProgramPath, programPath(tour)},
            {session::kCommandLineArgs, kArguments},
            {session::kReverseList, words::kTrue},
            {session::kAutoResize, words::kFalse},
            {session::kOrientation, words::kBottom},
            {session::kFormatCount, "3"},
            {session::formatKey(1), "COMMA SEPARATED"},
            {session::formatKey(2), "FIXED WIDTH"},
            {session::formatKey(3), "TAB SEPARATED"},
            {session::kWindowTitleSearchType, words::kMatches},
            {session::kWindowClassSearchType, words::kContains},
            {session::kWindowTitle, "Night Desk"},
            {session::kWindowClass, "JobCardFrame"},
            {session::kDisableProgramLaunch, words::kFalse},
            {session::kWindowTitleClassDelay, "12"},
            {session::kProgramLaunchDelay, "3"},
            {session::kWindowTitleCaseSensitive, words::kTrue},
            {session::kWindowClassCaseSensitive, words::kFalse},
            {session::kPartFormat, "FIXED WIDTH"},
            {session::kFileName, "night.txt"},
            {session::kFileFolder, tour.store().lists().string()},
            {session::kFileAction, words::kAppend},
            {session::kWriteFileOnly, words::kFalse}};
}

void showHost(Tour& tour) {
    tour.pickPart("10-0120", 2);
    tour.pickPart("10-0183", 1);
    tour.pickPart("10-0350", 5);
    tour.hostPicture("host");
}

void sendList(Tour& tour) {
    tour.say("a session that writes a file gets the parts list");
    tour.send("WEB SHOP EXPORT", "web-shop.csv",
              "Part number,Quantity,Description\r\n"
              "10-0120,2,\"Oil filter\"\r\n"
              "10-0183,1,\"Air filter element\"\r\n"
              "10-0350,5,\"Engine oil 5W-30, 1 l\"\r\n");
    tour.hostPicture("host-sent");
}

/// Names that are refused, then a good one.
void nameTheSession(Tour& tour) {
    User& user = tour.user();
    tour.say("a name that is taken, and one with a point, are refused");
    user.type("txtName", "workshop counter");
    tour.expectBox("add-name-taken", "MORAM_CONFIG_MSG_NAME_EXISTS");
    user.click("btnOK");
    user.type("txtName", "night.counter");
    tour.expectBox("add-name-with-point", "MORAM_CONFIG_MSG_INVALID_CHARS");
    user.click("btnOK");
    user.type("txtName", "night counter");
    user.choose("cboConfigs", "WORKSHOP COUNTER");
    tour.picture("add-filled");
    user.pressEnter();
}

void fillLaunchTab(Tour& tour) {
    User& user = tour.user();
    tour.expectText(user.see("txtDisplayName").text, kFirstName, "the display name");
    tour.say("a program that is not there is refused at Apply");
    user.type("txtProgramPath", (tour.store().programs() / "gone").string());
    tour.expectBox("program-not-found", "MORAM2_MSG_CHECK_SESSION_CONFIG");
    user.click("btnApply");
    tour.say("the program is browsed for");
    tour.expectBrowse("browse-program", programPath(tour));
    user.click("btnBrowseFile");
    tour.expectText(user.see("txtProgramPath").text, programPath(tour), "the path browsed for");
    user.type("txtCommandLineArgs", kArguments);
    user.tick("chkReverseList");
    user.tick("chkAutoResize", false);
    user.click("rdoBottom");
    tour.picture("launch-tab-changed");
}

void fillAdvanced(Tour& tour) {
    User& user = tour.user();
    tour.expectText(user.see("txtWindowTitle").text, "Job Card - ", "the base's window title");
    user.type("txtWindowTitleClassDelay", "soon");
    tour.expectBox("advanced-delay-no-number", "ADV_CONFIG_MSG_ENTER_VALID_TITLE_DELAY");
    user.click("OKButton");
    user.type("txtWindowTitleClassDelay", "12");
    user.tick("chkDisableProgramLaunch");
    tour.picture("advanced-launch-disabled");
    user.tick("chkDisableProgramLaunch", false);
    user.type("txtProgramLaunchDelay", "3");
    user.click("btnTitleMatches");
    user.type("txtWindowTitle", "Night Desk");
    user.click("btnClassContains");
    tour.picture("advanced-changed");
    user.click("OKButton");
}

void fillFileWriter(Tour& tour) {
    User& user = tour.user();
    user.choose("cboPartFormat", "FIXED WIDTH");
    tour.expectBox("file-name-missing", "TVW_ERR_FILE_NAME_INVALID");
    user.click("btnOk");
    user.type("txtFileName", "night.txt");
    tour.say("the folder is browsed for");
    tour.expectBrowse("browse-folder", tour.store().lists().string());
    user.click("btnBrowseFolder");
    user.click("rdoAppend");
    tour.picture("file-writer-changed");
    user.click("btnOk");
}

void moveFormats(Tour& tour) {
    User& user = tour.user();
    user.changeTab("SSTab2", 1);
    tour.picture("format-tab");
    const std::vector<std::string> before = {"COMMA SEPARATED", "QUANTITY FIRST", "FIXED WIDTH"};
    tour.expect(user.see("lstSelectedFormats2").rowTexts() == before,
                "the format of the file writer did not join the selected list");
    user.pick("lstAvailableFormats", "TAB SEPARATED");
    user.click("btnAdd");
    tour.say("a format that is selected already is not added again");
    user.click("btnAdd");
    user.pick("lstSelectedFormats2", "QUANTITY FIRST");
    user.click("btnRemove");
    const std::vector<std::string> after = {"COMMA SEPARATED", "FIXED WIDTH", "TAB SEPARATED"};
    tour.expect(user.see("lstSelectedFormats2").rowTexts() == after,
                "the selected list does not hold what was moved there");
    tour.picture("format-tab-changed");
}

void configureTheSession(Tour& tour) {
    User& user = tour.user();
    fillLaunchTab(tour);
    tour.say("the advanced dialog");
    user.onForm("dlgAdvConfig", [&](User&) { fillAdvanced(tour); });
    user.click("btnAdvanced");
    tour.say("the file-writer dialog");
    user.onForm("frmTallyvaneConfig", [&](User&) { fillFileWriter(tour); });
    user.click("btnTallyvane");
    tour.say("the part formats");
    moveFormats(tour);
    user.click("btnApply");
    tour.expect(tour.rowsOnDisk(kFirstFile) == expectedRows(tour),
                "Apply did not save the session as it was shown");
    tour.picture("applied");
    user.click("btnOK");
}

void addSession(Tour& tour) {
    tour.user().onForm("frmAddMORAMConfig", [&](User&) { nameTheSession(tour); });
    tour.user().onForm("frmMORAMConfig", [&](User&) { configureTheSession(tour); });
    tour.expectRecord(kFirstFile, expectedRows(tour));
    tour.perform("add", {}, {0, kFirstName});
    tour.hostPicture("host-after-add");
}

void lookAgain(Tour& tour) {
    User& user = tour.user();
    tour.expectText(user.see("txtProgramPath").text, programPath(tour), "the program path");
    tour.expectText(user.see("txtCommandLineArgs").text, kArguments, "the command line");
    tour.expect(user.see("chkReverseList").value, "reverse list order is off");
    tour.expect(!user.see("chkAutoResize").value, "automatic resize is on");
    tour.expect(user.see("rdoBottom").value, "the orientation is not bottom");
    user.type("txtCommandLineArgs", "never saved");
    user.click("rdoLeft");
    tour.picture("opened-again");
    user.pressEscape();
}

void cancelSession(Tour& tour) {
    const Snapshot before = takeSnapshot(tour.store().root);
    tour.user().onForm("frmMORAMConfig", [&](User&) { lookAgain(tour); });
    tour.perform("configure", kFirstName, {1, kFirstName});
    tour.expect(changesBetween(before, takeSnapshot(tour.store().root)).empty(),
                "cancelling the session dialog changed the store");
}

void renameSession(Tour& tour) {
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        tour.say("the name of another session is refused");
        user.type("txtDisplayName", "stock taking");
        tour.expectBox("rename-name-taken", "MORAM_CONFIG_MSG_NAME_EXISTS");
        user.click("btnApply");
        user.type("txtDisplayName", "late counter");
        user.pressEnter();
    });
    tour.expectNoRecord(kFirstFile);
    tour.expectRecord(kLastFile, expectedRows(tour));
    tour.perform("configure", kFirstName, {0, kLastName});
    tour.hostPicture("host-after-rename");
}

void takeSessionBack(Tour& tour) {
    tour.user().onForm("frmAddMORAMConfig", [](User& user) {
        user.type("txtName", "scratch");
        user.pressEnter();
    });
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        tour.say("a session without a part format is refused");
        tour.expectBox("no-format", "MORAM_CONFIG_MSG_SELECT_FORMAT");
        user.click("btnOK");
        tour.expect(user.see("SSTab2").selected == 2, "the box did not lead to the format tab");
        tour.picture("no-format-tab");
        user.pressEscape();
    });
    tour.expectNoRecord("MORAM/SCRATCH.vla");
    tour.perform("add", {}, {1, ""});
    tour.hostPicture("host-after-cancel");
}

}  // namespace

const std::vector<TourStep>& tourSteps() {
    static const std::vector<TourStep> all = {
        {"the host and the sample store", showHost},
        {"send the parts list", sendList},
        {"add a session on the base of another one", addSession},
        {"open it again and cancel", cancelSession},
        {"give it another name", renameSession},
        {"add a session and cancel its configuration", takeSessionBack},
        {"make a part format", [](Tour& tour) { makePartFormat(tour, kLastName); }},
        {"edit, rename and copy part formats",
         [](Tour& tour) { changePartFormats(tour, kLastName); }},
        {"delete a part format", [](Tour& tour) { deletePartFormats(tour, kLastName); }},
        {"maintain the sessions", maintainSessions},
        {"edit a session list, and pick from it", useSessionList},
        {"take a session over from another store into the database", takeSessionOver},
        {"configure it in memory", configureInMemory},
        {"another workstation is faster", beRefused},
        {"add a session to the database, and remove one", addAndRemoveInDatabase},
        {"open another store, and come back", openOtherStore},
    };
    return all;
}

}  // namespace host

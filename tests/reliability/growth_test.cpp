// Dialogs that are opened and closed again and again leave nothing behind in memory.
// WYNCONFIG_DIALOGS says how many are opened.
#include <gtest/gtest.h>
#include <malloc.h>

#include <QPixmapCache>
#include <cstddef>
#include <cstdlib>

#include "support/format_desk.h"

// There in a program that a sanitizer watches.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();

namespace wynconfig {
namespace {

/// The bytes that are taken from the heap at this moment.
std::size_t bytesInUse() {
    if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

class Growth : public FormatDesk {
  protected:
    static constexpr int kDialogsOfARound = 7;

    void SetUp() override {
        FormatDesk::SetUp();
        putProgram("/programs/parts.exe");
        putFullFormat("CSV");
        putFullSession("A", {"CSV"});
    }

    /// One of each dialog, all of them cancelled, and a question that is answered with No.
    void openAll() {
        user().onForm("dlgAdvConfig", pressing("CancelButton"));
        user().onForm("frmTallyvaneConfig", pressing("btnCancel"));
        user().onForm("frmPartNumberFormat", pressing("btnCancel"));
        user().onForm("dlgSingleEntry", pressing("CancelButton"));
        user().onBox(answer::No);
        open("A", [](User& u) {
            act(u, "CSV", "btnEdit");
            act(u, "CSV", "btnRename");
            act(u, "CSV", "btnDelete");
            u.changeTab("SSTab2", 0);
            u.click("btnAdvanced");
            u.click("btnTallyvane");
            u.click("btnCancel");
        });
        user().onForm("frmAddMORAMConfig", pressing("btnCancel"));
        user().onForm("frmMORAMMaintenance", [](User& u) {
            u.click("btnNew");
            u.click("btnCancel");
        });
        std::string name;
        component.showMORAMMaintenanceDlg(name);
        user().finish();
        texts->asked.clear();
    }
    void openRounds(int rounds) {
        for (int i = 0; i < rounds; ++i) openAll();
    }
};
ON_EVERY_VIEW(Growth);

TEST_P(Growth, IsNoneHoweverManyDialogsAreOpened) {
    const char* const wanted = std::getenv("WYNCONFIG_DIALOGS");
    const int dialogs = wanted ? std::atoi(wanted) : onScreen() ? 280 : 1400;
    // What the toolkit keeps of drawn parts is bounded, but not by a few dialogs.
    QPixmapCache::setCacheLimit(0);
    constexpr int warm = 5;
    openRounds(warm);
    const std::size_t before = bytesInUse();
    openRounds(dialogs / kDialogsOfARound);
    const auto grown = static_cast<long>(bytesInUse() - before);
    RecordProperty("bytes", static_cast<int>(grown));
    constexpr long roomOfTheHeap = 32768;
    constexpr long lessThanAnyObject = 16;
    EXPECT_LT(grown, roomOfTheHeap + lessThanAnyObject * dialogs);
}

}  // namespace
}  // namespace wynconfig

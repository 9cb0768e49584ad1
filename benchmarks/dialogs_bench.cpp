// The dialogs: an unseen pass, opening the main dialog on stores of growing size, and an Apply.
#include <memory>
#include <vector>

#include "bench_store.h"
#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "figures.h"
#include "platform/files/file_system.h"
#include "store/config_global_module.h"
#include "wynconfig/keys.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::bench {

using namespace ConfigGlobalModule;

namespace {

void hiddenPass(benchmark::State& state) {
    keptStore("empty", 0, 0);
    g_DatasetMode = true;
    const auto record = std::make_shared<Dataset>();
    fillSession(*record, "DEALER ORDER DESK", "TAB SEPARATED");
    for (auto _ : state) {
        dlgAdvConfig advanced;
        advanced.init(record, "DEALER ORDER DESK");
        advanced.SaveAdvancedChanges();
        advanced.Unload();
    }
    g_DatasetMode = false;
}

/// What the pass leaves in the record, without a dialog.
void replaceNineRows(benchmark::State& state) {
    Dataset record;
    fillSession(record, "DEALER ORDER DESK", "TAB SEPARATED");
    const std::vector<std::string> keys{session::kWindowTitleSearchType,
                                        session::kWindowClassSearchType,
                                        session::kWindowTitle,
                                        session::kWindowClass,
                                        session::kDisableProgramLaunch,
                                        session::kWindowTitleClassDelay,
                                        session::kProgramLaunchDelay,
                                        session::kWindowTitleCaseSensitive,
                                        session::kWindowClassCaseSensitive};
    for (auto _ : state) {
        for (const std::string& key : keys) {
            const DataRow row = record.GetRow(key);
            record.DeleteRow(key);
            record.AddRow(row);
        }
    }
}

Work openOn(int items) {
    return [items](benchmark::State& state) {
        keptStore("open-" + std::to_string(items), items, items);
        for (auto _ : state) {
            frmMORAMConfig form;
            form.init("SESSION 00003");
            if (form.formatTab.lstAvailableFormats.count() != static_cast<std::size_t>(items))
                state.SkipWithError("the dialog does not list all formats");
        }
    };
}

/// OK in the session dialog, from the opening to the last save.
void apply(benchmark::State& state) {
    keptStore("apply", 1, 8);
    const auto view = std::make_shared<ScriptedView>();
    installView(view);
    Dataset record;
    const ItemPath file = ItemPath::item(g_SessionFolder, "SESSION 00000");
    record.Load(file);
    record.UpdateRow({"DisableProgramLaunch", ""}, {"DisableProgramLaunch", "true"});
    record.Save(file);
    WYNConfig component;
    for (auto _ : state) {
        view->user().onForm("frmMORAMConfig", [](User& user) { user.click("btnOK"); });
        std::string name = "SESSION 00000";
        if (component.showMORAMConfigDlg(name) != 0) state.SkipWithError("the Apply was refused");
        view->user().finish();
    }
    installView(nullptr);
}

/// The three saves that an Apply makes, alone.
void saveThreeTimes(benchmark::State& state) {
    keptStore("saves", 1, 0);
    const ItemPath file = ItemPath::item(g_SessionFolder, "SESSION 00000");
    const std::string text = fileSystem().read(file);
    for (auto _ : state) {
        for (int i = 0; i < 3; ++i) fileSystem().save(file, text);
    }
}

}  // namespace

void registerDialogFigures() {
    figure("hidden-pass", benchmark::kMicrosecond, hiddenPass, replaceNineRows);
    figure("open-1000-against-10", benchmark::kMillisecond, openOn(1000), openOn(10), {5});
    figure("open-10000-against-1000", benchmark::kMillisecond, openOn(10000), openOn(1000), {5});
    figure("apply-against-its-saves", benchmark::kMillisecond, apply, saveThreeTimes);
}

}  // namespace wynconfig::bench

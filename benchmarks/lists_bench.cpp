// Long lists: the dialogs that show all sessions, from the host's call to its return, and a host
// that hands in its part formats. Each against a tenth of itself, since the cost has to grow with
// the length and no faster.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "bench_store.h"
#include "figures.h"
#include "store/config_global_module.h"
#include "wynconfig/form.h"
#include "wynconfig/view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::bench {

using namespace ConfigGlobalModule;

namespace {

/// Closes each dialog at once by its frame, and keeps how many rows its longest list had.
class ClosingView : public View {
  public:
    std::size_t rows = 0;
    bool boxes = false;

    void showModal(Form& form) override {
        rows = 0;
        for (const Control* each : form.controls()) {
            if (const auto* list = dynamic_cast<const ListView*>(each))
                rows = std::max(rows, list->count());
        }
        userInput().closeByFrame(form);
    }
    int showMessage(const MessageRequest&) override {
        boxes = true;
        return answer::Ok;
    }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form&, bool) override {}
    long deviceContext(Form&) override { return 0; }
};

/// Calls an operation whose dialog must come up with so many rows, and without a box.
template <class Operation>
void callEachTime(benchmark::State& state, std::size_t rows, const Operation& operation) {
    const auto view = std::make_shared<ClosingView>();
    installView(view);
    for (auto _ : state) operation();
    installView(nullptr);
    if (view->rows != rows || view->boxes) state.SkipWithError("the list is not as it should be");
}

void useSessions(int sessions) {
    keptStore("open-" + std::to_string(sessions), sessions, sessions);
}

Work maintenance(int sessions) {
    return [sessions](benchmark::State& state) {
        useSessions(sessions);
        callEachTime(state, static_cast<std::size_t>(sessions), [] {
            std::string name = sessionName(3);
            WYNConfig().showMORAMMaintenanceDlg(name);
        });
    };
}

Work manager(int sessions) {
    return [sessions](benchmark::State& state) {
        useSessions(sessions);
        std::string list;
        for (int i = 0; i < sessions; ++i) list += (i == 0 ? "" : ",") + sessionName(i);
        callEachTime(state, static_cast<std::size_t>(sessions), [&] {
            benchmark::DoNotOptimize(WYNConfig().showConfigurableSessionManagerDlg(list));
        });
    };
}

/// A list of sessions of this many bytes; all but one of them are gone.
Work managerOfGone(std::size_t bytes) {
    return [bytes](benchmark::State& state) {
        useSessions(1000);
        std::string list = sessionName(0);
        for (int i = 0; list.size() < bytes; ++i) list += ",GONE " + std::to_string(i);
        callEachTime(state, 1, [&] {
            if (WYNConfig().showConfigurableSessionManagerDlg(list) != sessionName(0))
                state.SkipWithError("the sessions that are gone stay in the list");
        });
    };
}

Work managerOfCommas(std::size_t bytes) {
    return [bytes](benchmark::State& state) {
        useSessions(1000);
        const std::string list(bytes, ',');
        callEachTime(state, 0, [&] {
            benchmark::DoNotOptimize(WYNConfig().showConfigurableSessionManagerDlg(list));
        });
    };
}

/// A host in the in-memory mode hands in one session and these part formats.
Work formatsHandedIn(int formats) {
    return [formats](benchmark::State& state) {
        // The dialog lists the host's formats behind those of the store, if that has any.
        keptStore("one-format", 0, 1);
        Document document;
        Dataset record;
        std::vector<std::string> texts;
        for (int i = 1; i <= formats; ++i) {
            fillFormat(record, i);
            record.Save(document);
            texts.push_back(document.xml());
        }
        fillSession(record, "MINE", "ORDER FORM");
        record.Save(document);
        callEachTime(state, static_cast<std::size_t>(formats) + 1, [&] {
            std::string name = "MINE";
            WYNConfig().showMORAMConfigDlgEX(name, document.xml(), texts);
        });
        if (g_PartFormats.Count() != static_cast<std::size_t>(formats))
            state.SkipWithError("not all part formats were taken");
        g_PartFormats = {};
        g_DatasetMode = false;
    };
}

}  // namespace

void registerListFigures() {
    constexpr auto ms = benchmark::kMillisecond;
    constexpr std::size_t megabyte = 1'000'000;
    figure("maintenance-10000-against-1000", ms, maintenance(10000), maintenance(1000), {5});
    figure("manager-10000-against-1000", ms, manager(10000), manager(1000), {5});
    figure("manager-1MB-gone", ms, managerOfGone(megabyte), managerOfGone(megabyte / 10), {5});
    figure("manager-1MB-commas", ms, managerOfCommas(megabyte), managerOfCommas(megabyte / 10),
           {5});
    figure("formats-in-10000-against-1000", ms, formatsHandedIn(10000), formatsHandedIn(1000), {5});
}

}  // namespace wynconfig::bench

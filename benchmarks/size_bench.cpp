// A store of a hundred thousand sessions and as many part formats: nothing may grow faster than it.
#include <malloc.h>

#include <filesystem>
#include <string>

#include "bench_store.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "figures.h"
#include "store/config_global_module.h"
#include "turn.h"
#include "wynconfig/store.h"

namespace wynconfig::bench {

namespace {

BenchStore& storeOf(int items) {
    return keptStore("size-" + std::to_string(items), items, items);
}

Work listing(int items) {
    return [items](benchmark::State& state) {
        const Store store(storeOf(items).root());
        for (auto _ : state) {
            if (store.names(ItemKind::Session).size() != static_cast<std::size_t>(items))
                state.SkipWithError("not all sessions are listed");
        }
    };
}

Work opening(int items) {
    return [items](benchmark::State& state) {
        storeOf(items);
        for (auto _ : state) {
            frmMORAMConfig form;
            form.init(sessionName(3));
            if (form.formatTab.lstAvailableFormats.count() != static_cast<std::size_t>(items))
                state.SkipWithError("the dialog does not list all formats");
        }
    };
}

Work walking(int items) {
    return [items](benchmark::State& state) {
        static Turn turn;
        storeOf(items);
        frmMORAMConfig form;
        for (auto _ : state) {
            // A walk there and one back.
            for (int i = 0; i < 2; ++i) {
                form.UpdatePartNumberFormatsInAllMORAMs(turn.from(), turn.to());
                turn.next();
            }
        }
    };
}

Work checking(int items) {
    return [items](benchmark::State& state) {
        const Store store(storeOf(items).root());
        for (auto _ : state) {
            // No session finds its program and its six formats here.
            if (store.check().size() < static_cast<std::size_t>(items))
                state.SkipWithError("not all sessions are checked");
        }
    };
}

/// Bytes that the process has asked for and not given back.
double heapBytes() {
    const struct mallinfo2 told = mallinfo2();
    return static_cast<double>(told.uordblks + told.hblkhd);
}

/// What the open dialog holds for each part format in its list.
double bytesOfAFormat(int items) {
    storeOf(items);
    const double before = heapBytes();
    frmMORAMConfig form;
    form.init(sessionName(3));
    return (heapBytes() - before) / items;
}

}  // namespace

void registerSizeFigures() {
    constexpr auto ms = benchmark::kMillisecond;
    constexpr int some = 10'000;
    constexpr int many = 100'000;
    figure("list-100000-against-10000", ms, listing(many), listing(some), {5});
    figure("open-100000-against-10000", ms, opening(many), opening(some), {3, true});
    figure("walk-100000-against-10000", ms, walking(many), walking(some), {3, true});
    figure("check-100000-against-10000", ms, checking(many), checking(some), {3, true});
    countedFigure(
        "open-bytes-a-format", "B", [] { return bytesOfAFormat(many); }, 1024);
}

}  // namespace wynconfig::bench

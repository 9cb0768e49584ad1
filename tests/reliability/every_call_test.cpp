// Every system call of every operation that writes to a store fails in turn, once and for good.
// Whatever it is, each file is whole, the user is told by the boxes of the procedures that met it
// and by no others, nothing leaks, and the next try works.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "support/store_work.h"
#include "support/temporary_folder.h"
#include "support/traced_process.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace wynconfig {

// For the names of the cases.
void PrintTo(const StoreWork& work, std::ostream* out) {
    *out << work.name;
}

namespace {

/// What a process tells of its work under a fault, and of the same work done once more without one,
/// on the store as it was at first.
struct Tried {
    StoreOutcome first;
    StoreOutcome again;
    TracedRun run;
};

class EveryCall : public testing::TestWithParam<StoreWork> {
  protected:
    Tried tried(std::optional<CallFault> fault) {
        const StoreWork& work = GetParam();
        StoreWorker worker(m_folder.path());
        Tried tried;
        tried.run = traced(
            [&] {
                worker.putStore(work.onFreshRoot);
                worker.begin(work);
            },
            [&] { worker.run(work); },
            [&] {
                const std::string first = written(worker.outcome());
                worker.putStore(work.onFreshRoot);
                worker.run(work);
                const std::string again = written(worker.outcome());
                return std::to_string(first.size()) + ":" + first + again;
            },
            fault);
        if (!tried.run.ended) return tried;
        const std::string& report = tried.run.report;
        const std::size_t colon = report.find(':');
        const std::size_t size = std::stoul(report.substr(0, colon));
        tried.first = readOutcome(report.substr(colon + 1, size));
        tried.again = readOutcome(report.substr(colon + 1 + size));
        return tried;
    }

    /// The store before all work.
    StoreFiles before() {
        StoreWorker worker(m_folder.path());
        worker.putStore(GetParam().onFreshRoot);
        worker.begin({.name = "", .run = {}, .tags = {}, .subjects = {}, .onFreshRoot = true});
        return worker.outcome().files;
    }

  private:
    TemporaryFolder m_folder;
};

bool isRecord(const std::string& text) {
    Document document;
    if (!document.loadXML(text)) return false;
    try {
        Dataset().Load(document);
        return true;
    } catch (const Error&) {
        return false;
    }
}

bool isToldBy(const std::string& box, const std::set<std::string>& tags) {
    return std::any_of(tags.begin(), tags.end(),
                       [&](const std::string& tag) { return box.find(tag) != std::string::npos; });
}

/// The first box of a failure loads the form that owns it, in the background, and that one tells
/// its own failure first. What follows from a failure may then be refused as any other wrong input.
/// @param usual  the boxes that come up without a fault
std::string wrongBox(const StoreWork& work, const std::vector<std::string>& boxes,
                     const std::vector<std::string>& usual) {
    // A program that can't be looked at is taken for missing, without a failure box.
    bool failed = !boxes.empty() && boxes[0] == "{MORAM2_MSG_CHECK_SESSION_CONFIG}.";
    for (const std::string& box : boxes) {
        if (std::count(usual.begin(), usual.end(), box) > 0) continue;
        const bool isOwners = box.find("frmMORAMMaintenance:loadLstAvailableMORAMs") != box.npos;
        const bool isFailure = isOwners || isToldBy(box, work.tags);
        failed = failed || isFailure;
        if (!failed || (!isFailure && box.find("{GLOBAL_MOD_ERROR}") != box.npos)) return box;
    }
    return {};
}

/// Says in which way what came of a fault is not as it should be; empty when it is.
std::string complaint(const StoreWork& work, const StoreFiles& before, const StoreOutcome& well,
                      const Tried& tried, bool removalFailed) {
    if (!tried.run.ended) return "it did not come to its end";
    const StoreOutcome& first = tried.first;
    for (const auto& [path, text] : first.files)
        if (!isRecord(text)) return path + " is not whole";
    if (const std::string box = wrongBox(work, first.boxes, well.boxes); !box.empty())
        return "a box says " + box;
    if (first.boxes == well.boxes && first.files != well.files) return "it goes wrong in silence";
    for (const auto& [path, text] : before) {
        if (!work.subjects.contains(path) && !first.files.contains(path)) return path + " is lost";
    }
    if (first.descriptors > 0) return "it leaves files open";
    if (!first.temporaries.empty() && !removalFailed) return "a temporary is left over";
    if (tried.again.boxes != well.boxes) return "the next try says something else";
    if (tried.again.files != well.files) return "the next try does something else";
    return {};
}

/// The errors that a call is to meet: all, or in the short run one of them in turn.
std::vector<int> errorsFor(const TracedCall& call, std::size_t number) {
    std::vector<int> errors = errorsOf(call);
    if (errors.empty() || std::getenv("WYNCONFIG_THOROUGH")) return errors;
    return {errors[number % errors.size()]};
}

TEST_P(EveryCall, MayFail) {
    const StoreWork& work = GetParam();
    const StoreFiles before = this->before();
    const Tried well = tried({});
    ASSERT_TRUE(well.run.ended);
    for (const std::string& box : well.first.boxes) ASSERT_FALSE(isToldBy(box, work.tags)) << box;
    ASSERT_NE(well.first.files, before) << "it changes the store";
    ASSERT_EQ(well.again.files, well.first.files);
    ASSERT_TRUE(well.run.unknown.empty()) << "a call of number " << *well.run.unknown.begin();
    int faults = 0;
    std::map<std::string, int> complaints;
    std::map<std::string, std::string> examples;
    std::map<long, std::size_t> ofKind;  // calls so far
    for (std::size_t at = 0; at < well.run.calls.size(); ++at) {
        const TracedCall& call = well.run.calls[at];
        const FileCall& kind = *fileCall(call.number);
        const std::size_t nth = ofKind[call.number]++;
        for (const int error : errorsFor(call, at)) {
            for (const bool forGood : {false, true}) {
                if (forGood && error == EINTR) continue;
                ++faults;
                const Tried tried = this->tried(CallFault{call.number, nth, error, forGood});
                const bool removes = std::string(kind.name).starts_with("unlink");
                const std::string told = complaint(work, before, well.first, tried, removes);
                if (told.empty()) continue;
                ++complaints[told];
                examples[told] = std::string(kind.name) + " " + call.path + " " + call.newPath +
                                 ", call " + std::to_string(at) + ", " + std::strerror(error) +
                                 (forGood ? " for good" : " once");
            }
        }
    }
    for (const auto& [told, times] : complaints)
        ADD_FAILURE() << times << " times: " << told << "\n  as at " << examples[told];
    RecordProperty("calls", static_cast<int>(well.run.calls.size()));
    RecordProperty("faults", faults);
    std::cout << well.run.calls.size() << " calls, " << faults << " faults\n";
}
INSTANTIATE_TEST_SUITE_P(Works, EveryCall, testing::ValuesIn(storeWorks()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace wynconfig

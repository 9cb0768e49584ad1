// How items come over from one place to another, and how a person is told of it.
#include "manner.h"

#include <CLI/CLI.hpp>

#include "command.h"

namespace tool {

namespace {

/// A word and an item on each line.
std::string linesOf(const char* word, const std::vector<Item>& items) {
    std::string lines;
    for (const Item& item : items) lines += std::string(word) + " " + textOf(item) + "\n";
    return lines;
}

}  // namespace

std::shared_ptr<Manner> declareManner(CLI::App& app) {
    auto manner = std::make_shared<Manner>();
    app.add_flag("--dry-run", manner->isDryRun, "Write nothing, and tell what would come of it");
    app.add_flag("--replace", manner->replaces,
                 "Write also over items of the store that differ from those that come");
    return manner;
}

Json jsonOf(const Plan& plan, bool replaces) {
    const std::vector<Item> none;
    return {{"new", jsonOf(plan.added)},
            {"replaced", jsonOf(replaces ? plan.differing : none)},
            {"unchanged", jsonOf(plan.unchanged)},
            {"conflicts", jsonOf(replaces ? none : plan.differing)}};
}

int carryOver(const Workplace& here, const Plan& plan, Manner manner, const char* done,
              const std::function<void(const Plan&)>& save) {
    const bool hasConflicts = !plan.differing.empty() && !manner.replaces;
    const bool saves = !hasConflicts && !manner.isDryRun;
    if (saves) save(plan);
    Json json{{"dryRun", manner.isDryRun}, {done, saves}};
    json.update(jsonOf(plan, manner.replaces));
    here.answer(json, linesOf("new", plan.added) + linesOf("unchanged", plan.unchanged) +
                          linesOf(manner.replaces ? "replaced" : "conflict", plan.differing));
    if (hasConflicts && !manner.isDryRun)
        here.remark(std::string("Nothing was ") + done + ": there are other items of these names.");
    return hasConflicts ? kFindings : kClean;
}

}  // namespace tool

// How items come over from one place to another, and how a person is told of it.
#pragma once

#include <functional>
#include <memory>

#include "bundle.h"
#include "workplace.h"

namespace CLI {
class App;
}

namespace tool {

/// How items come into a store or a database.
struct Manner {
    bool isDryRun = false;
    bool replaces = false;
};

/// Declares --dry-run and --replace.
std::shared_ptr<Manner> declareManner(CLI::App& app);

/// The four lists that tell what comes of items.
Json jsonOf(const Plan& plan, bool replaces);

/// Saves what a plan says, all of it or nothing, and answers what came of it.
/// @param done  names the field that says in JSON whether it was saved, and the word for a person
/// @return the command's exit code
int carryOver(const Workplace& here, const Plan& plan, Manner manner, const char* done,
              const std::function<void(const Plan&)>& save);

}  // namespace tool

// What a command of the program is, and what its exit code says.
#pragma once

#include <functional>
#include <stdexcept>

namespace CLI {
class App;
}

namespace tool {

class Workplace;

/// What the program ends with.
enum ExitCode : int {
    kClean = 0,     ///< done, and nothing to tell
    kFindings = 1,  ///< done or refused as told: there are faults, conflicts or missing items
    kUsage = 2,     ///< a command line that makes no sense
    kFailed = 3,    ///< what was asked for could not be done
};

/// A command line that makes no sense, as far as only a command can tell.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Does the work of a command, and returns the exit code. Raises `wynconfig::Error` or
/// `UsageError`.
using Run = std::function<int(Workplace&)>;

/// One command.
struct Command {
    const char* name;
    const char* summary;            ///< a sentence for --help
    Run (*declare)(CLI::App& app);  ///< declares the command's own arguments and options
};

}  // namespace tool

// The administrator's program: lists, checks and changes the sessions and part formats of a store.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <string_view>

#include "commands.h"
#include "workplace.h"
#include "wynconfig/error.h"
#include "wynconfig/version.h"

namespace tool {

namespace {

constexpr const char* kFooter =
    "Exit code: 0 clean, 1 there are findings, 2 a command line that makes no sense, 3 failed.\n"
    "`wynconfig COMMAND --help` tells what a command takes; the manual is wynconfig(1).";
constexpr const char* kUnquoted =
    "The command line makes no sense. It is not quoted, since it may hold a password; "
    "`wynconfig sql --help` tells what it takes.";
constexpr const char* kCommandFooter = "`wynconfig --help` tells the options of all commands.";

/// Runs what the command line asks for. A command line that can't be parsed has said nothing yet
/// about how it wants its errors, hence `wantsJson`.
int run(int argc, char** argv, bool wantsJson) {
    CLI::App app{"Administers a store of sessions and part formats.", "wynconfig"};
    app.footer(kFooter);
    app.set_version_flag("--version", std::string("wynconfig ") + wynconfig::versionText());
    app.require_subcommand(1);
    app.fallthrough();
    Workplace here;
    app.add_option("--store", here.root, "Root of the store")
        ->envname("WYNCONFIG_STORE")
        ->type_name("ROOT");
    app.add_flag("--json", here.asJson, "Answer in JSON, errors as well");
    app.add_flag("--progress", here.showsProgress,
                 "Tell how far long work has come, also where no terminal is");
    Run wanted;
    for (const Command& command : commands()) {
        CLI::App* const sub = app.add_subcommand(command.name, command.summary);
        sub->footer(kCommandFooter);
        sub->final_callback([&wanted, work = command.declare(*sub)] { wanted = work; });
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) {  // --help and --version
        return app.exit(asked);
    } catch (const CLI::ParseError& error) {
        // The parser quotes what it did not expect.
        printError(wantsJson, "usage", 0,
                   mayHoldPassword({argv + 1, argv + argc}) ? kUnquoted : error.what());
        return kUsage;
    }
    here.showsProgress = here.showsProgress || Progress::hasTerminal();
    return wanted(here);
}

int runGuarded(int argc, char** argv) {
    const bool wantsJson = std::find(argv, argv + argc, std::string_view("--json")) != argv + argc;
    try {
        return run(argc, argv, wantsJson);
    } catch (const UsageError& error) {
        printError(wantsJson, "usage", 0, error.what());
        return kUsage;
    } catch (...) {
        const auto error = wynconfig::Error::fromCurrentException();
        printError(wantsJson, "failure", error.number(), error.description());
        return kFailed;
    }
}

}  // namespace

}  // namespace tool

int main(int argc, char** argv) {
    const int code = tool::runGuarded(argc, argv);
    // An answer that did not get through is none, be it on a full disk.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::perror("wynconfig: the answer can't be written");
        return tool::kFailed;
    }
    return code;
}

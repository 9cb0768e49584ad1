// The command line that a session starts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A program and what it is called with.
struct CommandLine {
    std::string program;
    std::vector<std::string> arguments;
    bool operator==(const CommandLine&) const = default;
};

/// Splits a command line's text. Blanks and tabs stand between arguments; within double quotes they
/// belong to the argument, and the quotes themselves go. Backslashes are themselves but right in
/// front of a double quote: there two of them stand for one, and one left over makes the quote a
/// character of the argument. A quote that is never closed reaches to the end.
std::vector<std::string> splitArguments(std::string_view text);

/// An argument written so that `splitArguments` gives it back.
std::string quoted(const std::string& argument);

/// Reads what a session holds. Of the program's path the blanks at its ends and double quotes
/// around the whole of it go; nothing in it is an argument.
CommandLine readCommandLine(std::string_view programPath, std::string_view arguments);

/// Program and arguments in one line, each in quotes where it needs them.
std::string textOf(const CommandLine& command);

}  // namespace host

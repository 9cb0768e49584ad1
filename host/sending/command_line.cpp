// Splitting and joining command lines.
#include "sending/command_line.h"

#include <algorithm>

namespace host {

namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

/// Takes the backslashes that a text begins with off it, and a quote that they make literal, and
/// puts what they stand for onto an argument.
void takeBackslashes(std::string_view& text, std::string& argument) {
    const std::size_t count = std::min(text.find_first_not_of('\\'), text.size());
    text.remove_prefix(count);
    const bool beforeQuote = text.starts_with('"');
    argument.append(beforeQuote ? count / 2 : count, '\\');
    if (beforeQuote && count % 2 == 1) {
        argument += '"';
        text.remove_prefix(1);
    }
}

/// Takes one argument off a text that begins with it.
std::string takeArgument(std::string_view& text) {
    std::string argument;
    bool inQuotes = false;
    while (!text.empty()) {
        const char character = text.front();
        if (character == '\\') {
            takeBackslashes(text, argument);
            continue;
        }
        if (!inQuotes && isBlank(character)) break;
        if (character == '"')
            inQuotes = !inQuotes;
        else
            argument += character;
        text.remove_prefix(1);
    }
    return argument;
}

void skipBlanks(std::string_view& text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
}

std::string_view withoutBlanks(std::string_view text) {
    skipBlanks(text);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> arguments;
    for (skipBlanks(text); !text.empty(); skipBlanks(text)) arguments.push_back(takeArgument(text));
    return arguments;
}

std::string quoted(const std::string& argument) {
    if (!argument.empty() && argument.find_first_of(" \t\"") == std::string::npos) return argument;
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char character : argument) {
        // Those in front of a quote are doubled, and one more keeps the quote.
        if (character == '"') text.append(backslashes + 1, '\\');
        backslashes = character == '\\' ? backslashes + 1 : 0;
        text += character;
    }
    return text.append(backslashes, '\\') + "\"";
}

CommandLine readCommandLine(std::string_view programPath, std::string_view arguments) {
    std::string_view program = withoutBlanks(programPath);
    if (program.size() >= 2 && program.front() == '"' && program.back() == '"')
        program = program.substr(1, program.size() - 2);
    return {std::string(program), splitArguments(arguments)};
}

std::string textOf(const CommandLine& command) {
    std::string text = quoted(command.program);
    for (const std::string& argument : command.arguments) text += " " + quoted(argument);
    return text;
}

}  // namespace host

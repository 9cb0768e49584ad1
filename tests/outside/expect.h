// Plain checks: what is not as it should be is told, and the program then ends with 1.
#pragma once

#include <cstdio>
#include <string>

inline int failedChecks = 0;

/// @param line  that of the caller
inline void expect(bool holds, const std::string& what, int line = __builtin_LINE()) {
    if (holds) return;
    ++failedChecks;
    std::fprintf(stderr, "line %d: not so: %s\n", line, what.c_str());
}

inline void expectEqual(const std::string& found, const std::string& expected,
                        int line = __builtin_LINE()) {
    expect(found == expected, "\"" + found + "\" is \"" + expected + "\"", line);
}

// Tells a person at the terminal how far long work has come.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace tool {

/// A line on the standard error stream that is written over, a few times in a second at most; where
/// that is no terminal, a line each time. It is gone, or ended, with the object.
class Progress {
  public:
    /// @param what      what is being done, such as "checking"
    /// @param isWanted  false: nothing is ever written
    Progress(std::string what, bool isWanted);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    void operator()(std::size_t done, std::size_t all);

    /// Whether the standard error stream is a terminal.
    static bool hasTerminal();

  private:
    std::string m_what;
    bool m_isWanted;
    bool m_isShown = false;
    std::chrono::steady_clock::time_point m_next;
};

}  // namespace tool

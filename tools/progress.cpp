// Writes progress to the standard error stream.
#include "progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

namespace tool {

namespace {

constexpr auto kPause = std::chrono::milliseconds(200);
constexpr const char* kClearLine = "\r\x1B[K";

}  // namespace

Progress::Progress(std::string what, bool isWanted)
    : m_what(std::move(what)), m_isWanted(isWanted) {}

Progress::~Progress() {
    if (m_isShown && hasTerminal()) std::fputs(kClearLine, stderr);
}

void Progress::operator()(std::size_t done, std::size_t all) {
    const auto now = std::chrono::steady_clock::now();
    if (!m_isWanted || (done < all && now < m_next)) return;
    m_next = now + kPause;
    m_isShown = true;
    const bool over = hasTerminal();
    std::fprintf(stderr, "%s%s: %zu of %zu%s", over ? kClearLine : "", m_what.c_str(), done, all,
                 over ? "" : "\n");
    std::fflush(stderr);
}

bool Progress::hasTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

}  // namespace tool

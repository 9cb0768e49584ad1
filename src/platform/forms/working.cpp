// When a view is told of work, and what.
#include "platform/forms/working.h"

#include <algorithm>
#include <utility>

#include "platform/forms/filled_in.h"
#include "platform/forms/observing.h"
#include "platform/text/count_text.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

using namespace std::chrono_literals;

/// How long somebody waits before there are words, and from one sign to the next.
constexpr auto kPatience = 500ms;
constexpr auto kRest = 100ms;

thread_local Wait::Time (*clockOfThread)() = nullptr;

Wait::Time now() {
    return clockOfThread ? clockOfThread() : std::chrono::steady_clock::now();
}

Wait& ongoing() {
    thread_local Wait wait;
    return wait;
}

/// Tells the observer what the view, or whoever has the words, fails with: a box would come between
/// the steps of the work.
void noteFailure(Wait& wait) noexcept {
    if (std::exchange(wait.failed, true)) return;
    try {
        const Error error = Error::fromCurrentException();
        tellFailure("View:showProgress", error.number(), error.description());
    } catch (...) {
        // Without the memory to tell it, it stays untold.
    }
}

/// Has the view give a sign, unless it is at one: what it does then is no wait of its own.
template <class Sign>
void give(Wait& wait, const Sign& sign) noexcept {
    if (wait.telling) return;
    wait.telling = true;
    try {
        wait.view->showProgress(sign());
    } catch (...) {
        noteFailure(wait);
    }
    wait.telling = false;
}

void begin(Wait& wait) noexcept {
    if (!wait.view || wait.failed) return;
    wait.begun = true;
    wait.lasts = false;
    give(wait, [] { return Progress{}; });
    wait.next = now() + kPatience;
}

void end(Wait& wait) noexcept {
    if (!std::exchange(wait.begun, false)) return;
    give(wait, [] {
        Progress last;
        last.stage = Progress::Stage::Ends;
        return last;
    });
}

}  // namespace

Working::Working(Wording wording, std::size_t all) noexcept : m_wording(wording), m_all(all) {
    Wait& wait = ongoing();
    if (wait.depth++ == 0) {
        try {
            wait.view = installedView();
        } catch (...) {
            // Without the memory to find the view nothing is shown.
        }
        begin(wait);
    }
    if (m_all > 0) expect(m_all);
}

Working::~Working() {
    Wait& wait = ongoing();
    if (--wait.depth > 0) return;
    end(wait);
    // It may be the last who holds the view, which may do more as it goes than nothing.
    const std::shared_ptr<View> held = std::exchange(wait, Wait{}).view;
}

void Working::expect(std::size_t all) noexcept {
    m_all = all;
    m_done = 0;
    // What comes next in a wait that lasts is told at once: its first step may be a long one.
    if (m_all > 0 && ongoing().lasts) tell();
}

void Working::step() noexcept {
    ++m_done;
    if (now() >= ongoing().next) tell();
}

void Working::tell() noexcept {
    Wait& wait = ongoing();
    if (!wait.begun || wait.failed || !m_wording) return;
    give(wait, [&] {
        if (!m_words) m_words = m_wording();
        const std::size_t done = std::min(m_done, m_all);
        return Progress{Progress::Stage::Lasts, m_words->title,
                        filledIn(m_words->text, countText(done), countText(m_all)), done, m_all};
    });
    wait.lasts = true;
    wait.next = now() + kRest;
}

WaitPause::WaitPause() noexcept {
    Wait& wait = ongoing();
    if (wait.depth == 0) return;
    end(wait);
    m_held = std::exchange(wait, Wait{});
}

WaitPause::~WaitPause() {
    if (m_held.depth == 0) return;
    Wait& wait = ongoing();
    wait = std::move(m_held);
    begin(wait);
}

void setWaitClock(Wait::Time (*clock)()) {
    clockOfThread = clock;
}

}  // namespace wynconfig

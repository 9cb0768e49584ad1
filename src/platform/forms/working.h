// How a person is told that there is something to wait for: the one place that decides when a view
// gives which sign.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "wynconfig/view.h"

namespace wynconfig {

/// What a wait of this thread is, from the sign that it begins to the sign that it ends.
struct Wait {
    using Time = std::chrono::steady_clock::time_point;

    std::shared_ptr<View> view;  ///< gets all signs of it, also when another one is installed
    Time next;                   ///< when the next sign is due
    int depth = 0;               ///< how many `Working` are at it; 0: nobody waits
    bool begun = false;          ///< the view shows something of it
    bool lasts = false;          ///< there are words by now
    bool failed = false;         ///< the view gives no more signs
    bool telling = false;        ///< the view is at it, or whoever has the words
};

/// Work that a person waits for, as long as it lives. What begins within other work is a part of
/// it: the wait begins with the outermost one and ends with it, and the innermost one counts. None
/// of this ever raises: whatever the view or the words fail with, the work goes on.
class Working {
  public:
    /// What is told of work that lasts; in the text %1 is how many are done and %2 of how many.
    struct Words {
        std::string title;
        std::string text;
    };
    /// Gives the words. Is asked when they are needed first, by work that lasts.
    using Wording = Words (*)();

    /// @param wording  null for work that doesn't count itself: parts of it may
    explicit Working(Wording wording = nullptr, std::size_t all = 0) noexcept;
    ~Working();
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

    /// There are so many, none of which is done.
    void expect(std::size_t all) noexcept;
    /// One more is done.
    void step() noexcept;

  private:
    void tell() noexcept;

    Wording m_wording;
    std::optional<Words> m_words;
    std::size_t m_all;
    std::size_t m_done = 0;
};

/// Something comes up on which the person acts: nobody waits as long as it lives.
class WaitPause {
  public:
    WaitPause() noexcept;
    ~WaitPause();
    WaitPause(const WaitPause&) = delete;
    WaitPause& operator=(const WaitPause&) = delete;

  private:
    Wait m_held;
};

/// Has the waits of this thread go by another clock; null: by the steady one again. For tests.
void setWaitClock(Wait::Time (*clock)());

}  // namespace wynconfig

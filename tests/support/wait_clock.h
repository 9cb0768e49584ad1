// The clock of waits in tests: it stands still, but for what each look at it takes.
#pragma once

#include <chrono>

#include "platform/forms/working.h"

namespace wynconfig {

/// As long as one lives, the waits of this thread go by it.
class WaitClock {
  public:
    /// @param look  by how much each look at the clock sets it on
    explicit WaitClock(std::chrono::milliseconds look = {}) {
        time() = {};
        each() = look;
        setWaitClock(+[] { return time() += each(); });
    }
    ~WaitClock() { setWaitClock(nullptr); }
    WaitClock(const WaitClock&) = delete;
    WaitClock& operator=(const WaitClock&) = delete;

    static void advance(std::chrono::milliseconds by) { time() += by; }

  private:
    static Wait::Time& time() {
        thread_local Wait::Time now;
        return now;
    }
    static std::chrono::milliseconds& each() {
        thread_local std::chrono::milliseconds look{};
        return look;
    }
};

}  // namespace wynconfig

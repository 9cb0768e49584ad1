// Memory that runs out where a test says, and what is counted of it. A test program that has
// failing_memory.cpp takes all of its memory in C++ by it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <new>
#include <ostream>

namespace wynconfig {

/// What is counted of the memory of a thread, and when it runs out.
struct Memory {
    static constexpr long kNever = std::numeric_limits<long>::max();

    long untilFailure = kNever;  ///< allocations that still come about
    bool failsOnce = false;      ///< the one behind them fails, else all of them
    bool hasFailed = false;      ///< an allocation has failed
    long blocks = 0;             ///< that it has
};

/// That of this thread.
Memory& memoryOfThread();

/// How the allocations of a statement fail.
enum class Failing { Once, ForGood };

inline void PrintTo(Failing failing, std::ostream* out) {
    *out << (failing == Failing::Once ? "once" : "for good");
}

/// What came of a statement with a failing allocation.
enum class Outcome {
    Undisturbed,  ///< it needs fewer allocations
    DoneAllTheSame,
    Raised
};

/// Runs a statement of which the allocation behind so many others fails.
inline Outcome withFailure(const std::function<void()>& statement, long behind, Failing failing) {
    Memory& memory = memoryOfThread();
    memory.hasFailed = false;
    memory.failsOnce = failing == Failing::Once;
    memory.untilFailure = behind;
    Outcome outcome = Outcome::DoneAllTheSame;
    try {
        statement();
    } catch (const std::bad_alloc&) {
        outcome = Outcome::Raised;
    }
    memory.untilFailure = Memory::kNever;
    return memory.hasFailed ? outcome : Outcome::Undisturbed;
}

}  // namespace wynconfig

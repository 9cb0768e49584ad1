// How a figure is declared: the work of this component, and a reference that does comparable work.
// Both are measured in one run, interleaved, and printed as one line.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace wynconfig::bench {

using Work = std::function<void(benchmark::State&)>;

/// How long-running work is measured: so many single runs of it.
struct Runs {
    int repetitions = 9;
    bool single = false;  ///< each repetition is one run, instead of as many as fill some time
};

/// Registers a figure.
/// @param unit  unit of the times that are printed
void figure(const std::string& name, benchmark::TimeUnit unit, const Work& ours,
            const Work& reference, Runs runs = {});

/// Registers a figure that is held against a goal.
/// @param unit  of the times that are printed, and of the goal
void goalFigure(const std::string& name, benchmark::TimeUnit unit, const Work& ours, double goal,
                Runs runs = {});

/// Registers a figure that is counted, not timed; it is printed behind the others.
void countedFigure(const std::string& name, const std::string& unit,
                   const std::function<double()>& ours, double reference);

/// Calls to fsync, fdatasync and syncfs of this process so far.
long flushCount();

}  // namespace wynconfig::bench

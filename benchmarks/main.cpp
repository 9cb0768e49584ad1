// Runs the figures and prints one line each: name, ratio, ours, reference, unit; behind them the
// least and the greatest of the runs.
#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include "figures.h"

namespace wynconfig::bench {

namespace {

struct Times {
    std::vector<double> ours;
    std::vector<double> reference;
    std::string unit;
};

struct Counted {
    std::string name;
    std::string unit;
    std::function<double()> ours;
    double reference;
};

std::vector<Counted>& countedFigures() {
    static std::vector<Counted> figures;
    return figures;
}

/// By the names of their figures.
std::map<std::string, double>& goals() {
    static std::map<std::string, double> goals;
    return goals;
}

double median(std::vector<double>& values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Gathers the runs of both sides of each figure, and prints the lines at the end.
class LinePerFigure : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override {
        std::printf("%-28s %8s %12s %12s %-4s   ours min..max | reference min..max\n", "figure",
                    "ratio", "ours", "reference", "unit");
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                m_failed = true;
                continue;
            }
            const std::string& name = run.run_name.function_name;
            const auto bar = name.find('|');
            Times& times = timesOf(name.substr(0, bar));
            times.unit = benchmark::GetTimeUnitString(run.time_unit);
            (name.substr(bar + 1) == "ours" ? times.ours : times.reference)
                .push_back(run.GetAdjustedRealTime());
        }
    }
    void Finalize() override {
        for (const std::string& name : m_order) {
            if (const auto goal = goals().find(name); goal != goals().end())
                m_times[name].reference = {goal->second};
            print(name, m_times[name]);
        }
        // A filter asks for timed figures alone.
        if (!benchmark::GetBenchmarkFilter().empty()) return;
        for (const Counted& each : countedFigures()) {
            const double ours = each.ours();
            std::printf("%-28s %8.2f %12.0f %12.0f %-4s\n", each.name.c_str(),
                        ours / each.reference, ours, each.reference, each.unit.c_str());
        }
    }
    bool failed() const { return m_failed; }

  private:
    Times& timesOf(const std::string& name) {
        if (!m_times.contains(name)) m_order.push_back(name);
        return m_times[name];
    }
    static void print(const std::string& name, Times& times) {
        if (times.ours.empty() || times.reference.empty()) return;
        const double ours = median(times.ours);
        const double reference = median(times.reference);
        std::printf("%-28s %8.2f %12.4g %12.4g %-4s   %.4g..%.4g | %.4g..%.4g\n", name.c_str(),
                    ours / reference, ours, reference, times.unit.c_str(), times.ours.front(),
                    times.ours.back(), times.reference.front(), times.reference.back());
        std::fflush(stdout);
    }

    std::vector<std::string> m_order;
    std::map<std::string, Times> m_times;
    bool m_failed = false;
};

}  // namespace

namespace {

void registerSide(const std::string& name, const std::string& side, benchmark::TimeUnit unit,
                  const Work& work, Runs runs) {
    auto* registered = benchmark::RegisterBenchmark((name + "|" + side).c_str(), work)
                           ->Unit(unit)
                           ->UseRealTime()
                           ->Repetitions(runs.repetitions);
    if (runs.single)
        registered->Iterations(1);
    else
        registered->MinTime(0.05);
}

}  // namespace

void figure(const std::string& name, benchmark::TimeUnit unit, const Work& ours,
            const Work& reference, Runs runs) {
    registerSide(name, "ours", unit, ours, runs);
    registerSide(name, "reference", unit, reference, runs);
}

void goalFigure(const std::string& name, benchmark::TimeUnit unit, const Work& ours, double goal,
                Runs runs) {
    goals()[name] = goal;
    registerSide(name, "ours", unit, ours, runs);
}

void countedFigure(const std::string& name, const std::string& unit,
                   const std::function<double()>& ours, double reference) {
    countedFigures().push_back({name, unit, ours, reference});
}

void registerRecordFigures();
void registerDialogFigures();
void registerListFigures();
void registerWalkFigures();
void registerDatabaseFigures();
void registerSqliteFigures();
void registerSizeFigures();
void registerPaintFigures();

}  // namespace wynconfig::bench

int main(int argc, char** argv) {
    using namespace wynconfig::bench;
    // Both sides of a figure take turns, so that a machine whose speed drifts is fair to both.
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments{argv[0], interleave.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    registerRecordFigures();
    registerDialogFigures();
    registerListFigures();
    registerWalkFigures();
    registerDatabaseFigures();
    registerSqliteFigures();
    registerSizeFigures();
    registerPaintFigures();
    LinePerFigure reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.failed() ? 1 : 0;
}

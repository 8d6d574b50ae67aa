#include "benchmarks/Figures.h"

#include "base/Diagnostics.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>

namespace KOLT::Bench {

namespace {

/// Keeps the shortest time of each benchmark: what disturbs a run only ever makes it longer.
class ShortestTimes : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            const double seconds = run.real_accumulated_time /
                                   static_cast<double>(std::max<int64_t>(1, run.iterations));
            const std::string name = run.run_name.function_name;
            const auto known = m_seconds.find(name);
            if (known == m_seconds.end() || seconds < known->second)
                m_seconds[name] = seconds;
            if (const auto items = run.counters.find("values"); items != run.counters.end())
                m_values[name] = items->second;
        }
    }

    bool has(const std::string& name) const { return m_seconds.contains(name); }

    double seconds(const std::string& name) const { return m_seconds.at(name); }

    void print() const
    {
        for (const auto& [name, seconds] : m_seconds) {
            const auto values = m_values.find(name);
            if (values != m_values.end())
                std::printf("    %-28s %10.2f ns per value\n", name.c_str(),
                            seconds / values->second * 1e9);
            else
                std::printf("    %-28s %10.3f ms\n", name.c_str(), seconds * 1e3);
        }
    }

private:
    std::map<std::string, double> m_seconds; ///< per iteration
    std::map<std::string, double> m_values;  ///< values handled per iteration, where that is told
};

} // namespace

bool printFigure(const std::string& name, double measured, Figure::Bound bound, double target)
{
    const bool atMost = bound == Figure::Bound::AtMost;
    const bool isMet = atMost ? measured <= target : measured >= target;
    std::printf("%-44s %8.2f  %s %.2f  %s\n", name.c_str(), measured, atMost ? "<=" : ">=", target,
                isMet ? "ok" : "short");
    return isMet;
}

bool runAndPrint(int argc, char** argv, const std::vector<Figure>& figures)
{
    Diagnostics::setSink([](std::string_view) {});
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=5";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving.data()});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    ShortestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    times.print();
    bool allMet = true;
    for (const Figure& figure : figures) {
        const bool isRatio = !figure.baseline.empty();
        // A filter on the command line may have left them out.
        if (!times.has(figure.benchmark) || (isRatio && !times.has(figure.baseline)))
            continue;
        const double measured =
            isRatio ? times.seconds(figure.benchmark) / times.seconds(figure.baseline)
                    : times.seconds(figure.benchmark) * 1e3;
        allMet = printFigure(figure.name, measured, figure.bound, figure.target) && allMet;
    }
    return allMet;
}

} // namespace KOLT::Bench

#pragma once

#include <functional>
#include <string>
#include <vector>

namespace benchmark {
class State;
}

/// A figure is the time of a benchmark divided by that of a baseline in the same run, so that it
/// holds on any machine (docs/performance.md). A program prints its figures as lines of JSON;
/// scripts/bench collects those of several runs and judges them.
namespace KOLT::Bench {

using Benchmark = void (*)(benchmark::State&);

enum class Bound { AtMost, AtLeast };

struct Figure
{
    std::string name;
    Benchmark measured = nullptr;
    Benchmark baseline = nullptr; ///< null: the figure is the time in milliseconds
    Bound bound = Bound::AtMost;
    double target = 0.0;
    std::function<double()> value = {}; ///< instead of both; called once in a run
};

/// Measures each figure as interleaved pairs (measured, baseline, measured, baseline, ...) and
/// prints it. Returns the program's exit code.
///   bench_NAME [--pairs N] [--only TEXT]
int run(int argc, char** argv, const std::vector<Figure>& figures);

} // namespace KOLT::Bench

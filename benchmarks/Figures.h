#pragma once

#include <functional>
#include <string>
#include <vector>

namespace benchmark {
class State;
}

/// Figures compare a benchmark with a baseline of the same run, so that they hold on any machine
/// (docs/performance.md). A program lists its figures and prints them as lines of JSON;
/// scripts/bench puts those of several runs together and judges them.
namespace KOLT::Bench {

using Benchmark = void (*)(benchmark::State&);

enum class Bound { AtMost, AtLeast };

struct Figure
{
    std::string name;
    Benchmark measured = nullptr; ///< its time is divided ...
    Benchmark baseline = nullptr; ///< ... by the time of this one; null: told in milliseconds
    Bound bound = Bound::AtMost;
    double target = 0.0;
    std::function<double()> value = {}; ///< instead of both, measured once in a run
};

/// Measures each figure as interleaved pairs (measured, baseline, measured, baseline, ...) and
/// prints it. Returns the program's exit code.
///   bench_NAME [--pairs N] [--only TEXT]
int run(int argc, char** argv, const std::vector<Figure>& figures);

} // namespace KOLT::Bench

#pragma once

#include <string>
#include <vector>

namespace KOLT::Bench {

/// A program that has run to its end.
struct ProgramRun
{
    double milliseconds = 0.0; ///< from its start to its end
    double peakBytes = 0.0;    ///< of its resident memory, or of this program's if that is more
};

/// Runs a program without its output. If it fails, the benchmark ends with a message.
ProgramRun runProgram(const std::vector<std::string>& command);

/// The middle of several runs of two programs in turn: the time of the first divided by that of
/// the second.
double timeRatio(const std::vector<std::string>& measured,
                 const std::vector<std::string>& baseline);

} // namespace KOLT::Bench

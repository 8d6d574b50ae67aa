#pragma once

#include <string>
#include <vector>

/// Figures are ratios of two benchmarks of one run, so that they hold on any machine.
namespace KOLT::Bench {

struct Figure
{
    enum class Bound { AtMost, AtLeast };

    std::string name;
    std::string benchmark; ///< its time is divided ...
    std::string baseline;  ///< ... by the time of this one; empty: it is told in milliseconds
    Bound bound = Bound::AtMost;
    double target = 0.0;
};

/// Prints "name  measured  target  ok|short" and returns whether the target is met.
bool printFigure(const std::string& name, double measured, Figure::Bound bound, double target);

/// Runs all registered benchmarks several times in mixed order, takes the shortest time of each,
/// and prints the times and then the figures. True when every figure is met.
bool runAndPrint(int argc, char** argv, const std::vector<Figure>& figures);

} // namespace KOLT::Bench

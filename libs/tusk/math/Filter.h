#pragma once

namespace TUSK::Math::Filter {

/// One step of a first-order lag: the new output for an input, from the output before it. Time
/// constant and step in seconds; y + (u - y) * step / (T + step).
inline double pt1(double output, double input, double timeConstant, double step)
{
    return output + (input - output) * step / (timeConstant + step);
}

} // namespace TUSK::Math::Filter

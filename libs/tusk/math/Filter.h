#pragma once

namespace TUSK::Math::Filter {

/// One step of a first-order lag: the output after `output` for an input. Time constant and step
/// are in seconds; y + (u - y) * step / (T + step).
inline double pt1(double output, double input, double timeConstant, double step)
{
    return output + (input - output) * step / (timeConstant + step);
}

} // namespace TUSK::Math::Filter

#pragma once

namespace TUSK::Misc::Timer {

/// Seconds of a monotonic clock with an arbitrary origin.
double getTime();

} // namespace TUSK::Misc::Timer

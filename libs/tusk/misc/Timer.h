#pragma once

namespace TUSK::Misc::Timer {

/// Wall-clock seconds since some moment before the program started. Never steps back.
double getTime();

} // namespace TUSK::Misc::Timer

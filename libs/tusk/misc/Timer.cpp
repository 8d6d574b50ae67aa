#include "libs/tusk/misc/Timer.h"

#include <chrono>

namespace TUSK::Misc::Timer {

double getTime()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace TUSK::Misc::Timer

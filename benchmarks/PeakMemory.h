#pragma once

#include <functional>

namespace KOLT::Bench {

/// By how many bytes the memory of the process grows at most while the function runs. Runs it in a
/// process of its own, so that memory kept from earlier work does not count.
double peakMemory(const std::function<void()>& function);

} // namespace KOLT::Bench

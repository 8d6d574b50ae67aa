#pragma once

#include <array>

namespace KOLT {

/// The data bytes of a message, as sent on the bus.
using MessageData = std::array<unsigned char, 8>;

} // namespace KOLT

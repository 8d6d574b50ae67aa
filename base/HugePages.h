#pragma once

#include <cstddef>

namespace KOLT {

/// As on the common processors.
constexpr std::size_t hugePageBytes = std::size_t{2} << 20;

/// Memory for long lists, in huge pages where the system has them: the page faults of small pages
/// cost more than writing the values. Release it with std::free. Throws std::bad_alloc.
void* allocateHugePages(std::size_t bytes);

} // namespace KOLT

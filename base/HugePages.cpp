#include "base/HugePages.h"

#include <cstdlib>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace KOLT {

void* allocateHugePages(std::size_t bytes)
{
#ifdef __linux__
    const std::size_t rounded = (bytes + hugePageBytes - 1) / hugePageBytes * hugePageBytes;
    void* const memory = std::aligned_alloc(hugePageBytes, rounded);
    if (memory != nullptr)
        madvise(memory, rounded, MADV_HUGEPAGE); // only a hint
#else
    void* const memory = std::malloc(bytes);
#endif
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace KOLT

#pragma once

#include <cstdlib>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace KOLT {

/// Memory for millions of values: in huge pages where the system has them, as touching it in small
/// ones costs more than writing the values, and not filled before the values are written.
template <typename Value>
struct SampleAllocator
{
    using value_type = Value;

    SampleAllocator() = default;

    template <typename Other>
    SampleAllocator(const SampleAllocator<Other>& /*other*/)
    {
    }

    Value* allocate(std::size_t count)
    {
        constexpr std::size_t hugePage = std::size_t{2} << 20;
        const std::size_t bytes = count * sizeof(Value);
        if (bytes < hugePage)
            return std::allocator<Value>().allocate(count);
        const std::size_t rounded = (bytes + hugePage - 1) / hugePage * hugePage;
        void* const memory = std::aligned_alloc(hugePage, rounded);
        if (memory == nullptr)
            throw std::bad_alloc();
#ifdef __linux__
        madvise(memory, rounded, MADV_HUGEPAGE); // only advice
#endif
        return static_cast<Value*>(memory);
    }

    void deallocate(Value* values, std::size_t count)
    {
        if (count * sizeof(Value) < std::size_t{2} << 20)
            std::allocator<Value>().deallocate(values, count);
        else
            std::free(values);
    }

    /// Growing leaves new values as the memory is.
    template <typename Other>
    void construct(Other* place)
    {
        ::new (static_cast<void*>(place)) Other;
    }

    template <typename Other, typename... Arguments>
    void construct(Other* place, Arguments&&... arguments)
    {
        ::new (static_cast<void*>(place)) Other(std::forward<Arguments>(arguments)...);
    }

    template <typename Other>
    bool operator==(const SampleAllocator<Other>& /*other*/) const
    {
        return true;
    }
};

using SampleValues = std::vector<double, SampleAllocator<double>>;

} // namespace KOLT

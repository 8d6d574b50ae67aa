#pragma once

#include "base/HugePages.h"

#include <cstdlib>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace KOLT {

/// Allocator for millions of values: large blocks come in huge pages. Resizing leaves new values
/// uninitialised.
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
        return isLarge(count) ? static_cast<Value*>(allocateHugePages(count * sizeof(Value)))
                              : std::allocator<Value>().allocate(count);
    }

    void deallocate(Value* values, std::size_t count)
    {
        if (isLarge(count))
            std::free(values);
        else
            std::allocator<Value>().deallocate(values, count);
    }

    /// Leaves the value uninitialised.
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

private:
    static bool isLarge(std::size_t count) { return count * sizeof(Value) >= hugePageBytes; }
};

using SampleValues = std::vector<double, SampleAllocator<double>>;

} // namespace KOLT

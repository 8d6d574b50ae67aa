#pragma once

/// The compiler extensions that the program uses, each with a portable fallback.

namespace KOLT {

/// Prefetches memory that will be read soon. Any address is allowed.
inline void prefetch(const void* address)
{
#if defined(__GNUC__)
    __builtin_prefetch(address);
#else
    static_cast<void>(address);
#endif
}

} // namespace KOLT

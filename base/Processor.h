#pragma once

/// The compiler's extensions for processors that the program uses, each with a portable fallback.

#ifdef __SSE2__
#include <emmintrin.h>
#else
#include <array>
#include <cstddef>
#endif

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

#ifdef __SSE2__

/// Two numbers processed at once. Compilers do not vectorize minima and maxima by themselves
/// because of their rules for NaN.
class NumberPair
{
public:
    static NumberPair both(double value) { return NumberPair(_mm_set1_pd(value)); }

    static NumberPair load(const double* values) { return NumberPair(_mm_loadu_pd(values)); }

    void store(double* values) const { _mm_storeu_pd(values, m_pair); }

    NumberPair operator+(NumberPair b) const { return NumberPair(_mm_add_pd(m_pair, b.m_pair)); }

    NumberPair operator-(NumberPair b) const { return NumberPair(_mm_sub_pd(m_pair, b.m_pair)); }

    /// Keeps what it has where the other is NaN.
    void lower(NumberPair b) { m_pair = _mm_min_pd(b.m_pair, m_pair); }

    /// Keeps what it has where the other is NaN.
    void raise(NumberPair b) { m_pair = _mm_max_pd(b.m_pair, m_pair); }

private:
    explicit NumberPair(__m128d pair)
        : m_pair(pair)
    {
    }

    __m128d m_pair;
};

#else

/// Two numbers, for processors without SSE2.
class NumberPair
{
public:
    static NumberPair both(double value) { return {value, value}; }

    static NumberPair load(const double* values) { return {values[0], values[1]}; }

    void store(double* values) const
    {
        values[0] = m_pair[0];
        values[1] = m_pair[1];
    }

    NumberPair operator+(NumberPair b) const
    {
        return {m_pair[0] + b.m_pair[0], m_pair[1] + b.m_pair[1]};
    }

    NumberPair operator-(NumberPair b) const
    {
        return {m_pair[0] - b.m_pair[0], m_pair[1] - b.m_pair[1]};
    }

    void lower(NumberPair b)
    {
        for (std::size_t i = 0; i < m_pair.size(); ++i)
            m_pair[i] = b.m_pair[i] < m_pair[i] ? b.m_pair[i] : m_pair[i];
    }

    void raise(NumberPair b)
    {
        for (std::size_t i = 0; i < m_pair.size(); ++i)
            m_pair[i] = b.m_pair[i] > m_pair[i] ? b.m_pair[i] : m_pair[i];
    }

private:
    NumberPair(double first, double second)
        : m_pair{first, second}
    {
    }

    std::array<double, 2> m_pair;
};

#endif

} // namespace KOLT

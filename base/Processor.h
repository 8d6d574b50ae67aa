#pragma once

/// What compilers offer beyond the language for the processors that they know. Everything else is
/// written without: other compilers have the plain way here.

#ifdef __SSE2__
#include <emmintrin.h>
#else
#include <array>
#include <cstddef>
#endif

namespace KOLT {

/// Asks for memory that will be read some time later. Any address will do.
inline void prefetch(const void* address)
{
#if defined(__GNUC__)
    __builtin_prefetch(address);
#else
    static_cast<void>(address);
#endif
}

#ifdef __SSE2__

/// Two numbers that are worked on at once. Compilers do not do this by themselves with minima and
/// maxima, whose rules for NaN they keep to.
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

/// Two numbers, for processors that we know no better for.
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

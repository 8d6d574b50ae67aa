#pragma once

#include <cstdint>
#include <random>

namespace KOLT::SampleCard {

/// Uniform random numbers, the same with every standard library.
class Random
{
public:
    explicit Random(std::uint64_t seed)
        : m_engine(seed)
    {
    }

    /// In [low, high).
    double uniform(double low, double high)
    {
        constexpr double unit = 1.0 / 9007199254740992.0; // 2^-53
        return low + (high - low) * static_cast<double>(m_engine() >> 11) * unit;
    }

    /// In [-amplitude, amplitude).
    double noise(double amplitude) { return uniform(-amplitude, amplitude); }

private:
    std::mt19937_64 m_engine;
};

} // namespace KOLT::SampleCard

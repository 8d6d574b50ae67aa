#include "analysis/ValuesUpTo.h"

#include "profile/ValueDecoder.h"

#include <cmath>
#include <limits>

namespace KOLT {

namespace {

/// An older value says nothing about the moment.
constexpr double oldest = 10.0;

constexpr std::size_t maxLooksPerSample = 200;

} // namespace

ValuesUpTo::ValuesUpTo(const DataSet& dataSet)
    : m_messages(dataSet.messages)
    , m_budget(maxLooksPerSample * (dataSet.messages.sampleCount() + 1))
{
}

const StoredSample* ValuesUpTo::sampleAt(const ProfileParameter& parameter, double seconds)
{
    const MessageSeries& series = seriesOf(m_messages, parameter);
    const std::size_t work = series.around(seconds, seconds).size() + 1;
    if (work > m_budget)
        return nullptr;
    m_budget -= work;
    const StoredSample* const sample =
        series.lastBefore(std::nextafter(seconds, std::numeric_limits<double>::infinity()));
    return sample != nullptr && sample->seconds() >= seconds - oldest ? sample : nullptr;
}

std::optional<double> ValuesUpTo::at(const ProfileParameter* parameter, double seconds)
{
    const StoredSample* const sample =
        parameter != nullptr ? sampleAt(*parameter, seconds) : nullptr;
    if (sample == nullptr)
        return {};
    const double number = decodeNumber(sample->data, *parameter);
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace KOLT

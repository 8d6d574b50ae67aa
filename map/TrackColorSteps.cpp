#include "map/TrackColorSteps.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

using Vector = TUSK::Geodetic::Vector;

float medianOf(std::span<const float> values)
{
    std::vector<float> numbers;
    std::ranges::copy_if(values, std::back_inserter(numbers),
                         [](float value) { return std::isfinite(value); });
    if (numbers.empty())
        return 0.0F;
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::ranges::nth_element(numbers, middle);
    return *middle;
}

} // namespace

TrackColorSteps::TrackColorSteps(std::span<const float> values, const ValueScale& scale)
{
    const float median = medianOf(values);
    m_steps.reserve(values.size());
    m_deviations.reserve(values.size());
    for (const float value : values) {
        const bool isNumber = std::isfinite(value);
        m_steps.push_back(isNumber ? scale.stepOf(static_cast<double>(value)) : none);
        m_deviations.push_back(isNumber ? std::abs(value - median) : -1.0F);
    }
}

std::uint8_t TrackColorSteps::extreme(std::size_t first, std::size_t last) const
{
    const auto begin = m_deviations.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = m_deviations.begin() + static_cast<std::ptrdiff_t>(last) + 1;
    return m_steps[first + static_cast<std::size_t>(std::max_element(begin, end) - begin)];
}

std::vector<TrackPart> TrackColorSteps::partsOf(const TrackRun& run, std::span<const Vector> places,
                                                double shortest) const
{
    std::vector<TrackPart> parts;
    const auto append = [&](std::size_t last, std::uint8_t color) {
        if (!parts.empty() && parts.back().color == color)
            parts.back().last = last;
        else
            parts.push_back({last, color});
    };
    std::size_t from = run.first;
    while (from < run.last) {
        // As far as one step reaches, but at least as far as is visible.
        std::size_t last = from + 1;
        double way = length(places[last] - places[from]);
        const std::uint8_t color = m_steps[last];
        bool isMixed = from == run.first && m_steps[from] != color;
        while (last < run.last && ((!isMixed && m_steps[last + 1] == color) || way < shortest)) {
            ++last;
            isMixed = isMixed || m_steps[last] != color;
            way += length(places[last] - places[last - 1]);
        }
        if (way < shortest) {
            // The end of the run: the last part takes its length from the parts before it.
            while (from > run.first && way < shortest) {
                way += length(places[from] - places[from - 1]);
                --from;
            }
            while (!parts.empty() && parts.back().last > from) {
                const std::size_t before =
                    parts.size() > 1 ? parts[parts.size() - 2].last : run.first;
                if (before < from)
                    parts.back().last = from;
                else
                    parts.pop_back();
            }
            append(last, extreme(from == run.first ? from : from + 1, last));
            break;
        }
        append(last, extreme(from == run.first ? from : from + 1, last));
        from = last;
    }
    return parts;
}

} // namespace KOLT

#include "map/TrackClasses.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

using Vector = TUSK::Geodetic::Vector;

double distance(const Vector& a, const Vector& b)
{
    const double x = a.x - b.x;
    const double y = a.y - b.y;
    const double z = a.z - b.z;
    return std::sqrt(x * x + y * y + z * z);
}

float middleOf(std::span<const float> values)
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

TrackClasses::TrackClasses(std::span<const float> values, const ValueScale& scale)
{
    const float middle = middleOf(values);
    m_classes.reserve(values.size());
    m_deviations.reserve(values.size());
    for (const float value : values) {
        const bool isNumber = std::isfinite(value);
        m_classes.push_back(isNumber ? scale.classOf(static_cast<double>(value)) : none);
        m_deviations.push_back(isNumber ? std::abs(value - middle) : -1.0F);
    }
}

std::uint8_t TrackClasses::extreme(std::size_t first, std::size_t last) const
{
    const auto begin = m_deviations.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = m_deviations.begin() + static_cast<std::ptrdiff_t>(last) + 1;
    return m_classes[first + static_cast<std::size_t>(std::max_element(begin, end) - begin)];
}

std::vector<TrackPart> TrackClasses::partsOf(const TrackRun& run, std::span<const Vector> places,
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
        // As far as one class reaches, but at least as far as is visible.
        std::size_t last = from + 1;
        double way = distance(places[from], places[last]);
        const std::uint8_t color = m_classes[last];
        bool isMixed = from == run.first && m_classes[from] != color;
        while (last < run.last && ((!isMixed && m_classes[last + 1] == color) || way < shortest)) {
            ++last;
            isMixed = isMixed || m_classes[last] != color;
            way += distance(places[last - 1], places[last]);
        }
        if (way < shortest) {
            // The end of the run: the last part takes its length from the parts before it.
            while (from > run.first && way < shortest) {
                way += distance(places[from - 1], places[from]);
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

#include "analysis/EpisodeJoiner.h"

#include <QHash>

#include <algorithm>

namespace KOLT {

namespace {

/// An excursion with its place in the lists.
struct Entry
{
    const Excursion* excursion;
    std::size_t member;
    std::size_t index;
};

std::vector<Entry> entriesByTime(const std::vector<ExcursionList>& lists)
{
    std::vector<Entry> entries;
    for (std::size_t member = 0; member < lists.size(); ++member) {
        for (std::size_t i = 0; i < lists[member].size(); ++i)
            entries.push_back({&lists[member][i], member, i});
    }
    const auto from = [](const Entry& entry) { return entry.excursion->from; };
    if (!std::ranges::is_sorted(entries, {}, from))
        std::ranges::stable_sort(entries, {}, from);
    return entries;
}

EpisodeSpan spanOf(const Entry& entry, const Quantity& quantity)
{
    const Excursion& excursion = *entry.excursion;
    EpisodeSpan span;
    span.parts.resize(quantity.members.size());
    span.parts[entry.member] = {entry.index, entry.index + 1, excursion.crossings > 0};
    span.begin = excursion.firstCrossing;
    span.end = excursion.to;
    span.isCut = excursion.isCut;
    span.isHigh = excursion.isHigh;
    span.isLampOnly =
        excursion.crossings == 0 || quantity.members[entry.member]->role == Role::WarningLamp;
    span.state = excursion.state;
    span.crossings = excursion.crossings;
    span.firstWorst = excursion.firstWorst;
    return span;
}

} // namespace

std::vector<Quantity> quantitiesOf(const Profile& profile)
{
    std::vector<Quantity> quantities;
    QHash<QString, std::size_t> known;
    for (const Device& device : profile.devices()) {
        for (const ProfileParameter* parameter : device.parameters) {
            if (parameter->threshold == nullptr)
                continue;
            const QString& name = parameter->quantity;
            const std::size_t place = known.value(name, quantities.size());
            if (place == quantities.size())
                quantities.push_back({name.isEmpty() ? parameter->name : name, {}, 0.0});
            if (!name.isEmpty())
                known.insert(name, place);
            Quantity& quantity = quantities[place];
            quantity.members.push_back(parameter);
            quantity.holdSeconds =
                std::max(quantity.holdSeconds, parameter->threshold->holdSeconds);
        }
    }
    return quantities;
}

void EpisodeSpan::add(const EpisodeSpan& later)
{
    const bool hadCrossings = crossings > 0;
    if (later.crossings > 0) {
        begin = hadCrossings ? std::min(begin, later.begin) : later.begin;
        // Measured values go before lamps, which only announce them.
        const bool isWorse =
            later.state != state ? later.state > state : later.firstWorst < firstWorst;
        if (!hadCrossings || (later.isLampOnly == isLampOnly ? isWorse : isLampOnly)) {
            state = later.state;
            isHigh = later.isHigh;
            firstWorst = later.firstWorst;
        }
        isLampOnly = (!hadCrossings || isLampOnly) && later.isLampOnly;
    }
    crossings += later.crossings;
    end = std::max(end, later.end);
    isCut = isCut || later.isCut;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part& part = later.parts[i];
        if (part.first == part.behind)
            continue;
        if (parts[i].first == parts[i].behind)
            parts[i].first = part.first;
        parts[i].first = std::min(parts[i].first, part.first);
        parts[i].behind = std::max(parts[i].behind, part.behind);
        parts[i].hasCrossed = parts[i].hasCrossed || part.hasCrossed;
    }
}

std::vector<EpisodeSpan> joinExcursions(const Quantity& quantity,
                                        const std::vector<ExcursionList>& lists)
{
    std::vector<EpisodeSpan> episodes;
    EpisodeSpan together; // not all members were back in between
    bool isOpen = false;
    const auto finish = [&] {
        if (!isOpen || together.crossings == 0)
            return;
        if (!episodes.empty() && together.begin - episodes.back().end < quantity.holdSeconds)
            episodes.back().add(together);
        else
            episodes.push_back(std::move(together));
    };
    for (const Entry& entry : entriesByTime(lists)) {
        EpisodeSpan span = spanOf(entry, quantity);
        if (isOpen && entry.excursion->from <= together.end) {
            together.add(span);
            continue;
        }
        finish();
        together = std::move(span);
        isOpen = true;
    }
    finish();
    return episodes;
}

} // namespace KOLT

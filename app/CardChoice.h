#pragma once

#include <QString>

#include <list>
#include <optional>

namespace KOLT {

/// What to load from a card: some of its files, or a cycle or one flight of it.
struct CardChoice
{
    std::list<QString> files; ///< paths; only without a cycle
    std::optional<int> cycle; ///< number
    int flight = wholeCycle;  ///< index in the cycle

    static constexpr int wholeCycle = -1;

    bool isNone() const { return files.empty() && !cycle; }

    bool isFlight() const { return cycle && flight != wholeCycle; }
};

} // namespace KOLT

#pragma once

#include "libs/tessamap/terrain/ElevationFile.h"

#include <list>
#include <memory>
#include <unordered_map>

namespace Tessa {

/// One of the levels of an elevation file (ElevationLevels).
struct GridId
{
    ElevationCell cell;
    std::size_t level = 0;

    friend bool operator==(const GridId&, const GridId&) = default;
};

} // namespace Tessa

template <>
struct std::hash<Tessa::GridId>
{
    std::size_t operator()(const Tessa::GridId& id) const noexcept
    {
        return std::hash<Tessa::ElevationCell>()(id.cell) * Tessa::ElevationLevels::count +
               id.level;
    }
};

namespace Tessa {

/// Height grids in memory, up to a limit; the least recently used are dropped first.
class HeightCache
{
public:
    using Grid = std::shared_ptr<const HeightGrid>;

    /// Bytes of all grids together; a single one is kept in any case.
    void setLimit(std::size_t bytes) { m_limit = bytes; }

    /// Null when it is not there.
    Grid find(const GridId& id);
    void add(const GridId& id, Grid grid);
    void remove(const GridId& id);
    void clear();

private:
    using Entry = std::pair<GridId, Grid>;

    std::list<Entry> m_entries; ///< most recently used first
    std::unordered_map<GridId, std::list<Entry>::iterator> m_places;
    std::size_t m_bytes = 0;
    std::size_t m_limit = std::size_t(192) << 20;
};

} // namespace Tessa

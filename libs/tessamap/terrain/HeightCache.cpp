#include "libs/tessamap/terrain/HeightCache.h"

namespace Tessa {

HeightCache::Grid HeightCache::find(const GridId& id)
{
    const auto place = m_places.find(id);
    if (place == m_places.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, place->second);
    return place->second->second;
}

void HeightCache::add(const GridId& id, Grid grid)
{
    if (m_places.contains(id))
        return;
    m_bytes += grid->bytes();
    m_entries.emplace_front(id, std::move(grid));
    m_places[id] = m_entries.begin();
    while (m_bytes > m_limit && m_entries.size() > 1)
        remove(GridId(m_entries.back().first));
}

void HeightCache::remove(const GridId& id)
{
    const auto place = m_places.find(id);
    if (place == m_places.end())
        return;
    m_bytes -= place->second->second->bytes();
    m_entries.erase(place->second);
    m_places.erase(place);
}

void HeightCache::clear()
{
    m_entries.clear();
    m_places.clear();
    m_bytes = 0;
}

} // namespace Tessa

#include "libs/tessamap/terrain/ShadeSource.h"

#include "libs/tessamap/globe/Mercator.h"
#include "libs/tessamap/terrain/ElevationSource.h"

namespace Tessa {

namespace {

constexpr int shadeSize = ElevationSource::gridSize - 2;

std::vector<double> cellMetres(const TileId& tile)
{
    const double world = double(shadeSize) * TileId::count(tile.zoom);
    std::vector<double> metres;
    for (int row = 0; row < shadeSize; ++row) {
        const double y = (double(tile.y) * shadeSize + row + 0.5) / world;
        metres.push_back(Mercator::metres(Mercator::latitude(y)) / world);
    }
    return metres;
}

} // namespace

ShadeSource::ShadeSource(ElevationSource& elevation, QObject* parent)
    : QObject(parent)
    , m_elevation(elevation)
{
    connect(&elevation, &ElevationSource::changed, this, &ShadeSource::changed);
    connect(&elevation, &ElevationSource::filesChanged, this, [this] { ++m_revision; });
}

void ShadeSource::setShading(const Shading& shading)
{
    if (shading == m_shading)
        return;
    m_shading = shading;
    ++m_revision;
    emit changed();
}

std::optional<TileId> ShadeSource::shadeTile(const TileId& tile) const
{
    const int dataZoom = m_elevation.dataZoom(tile);
    if (dataZoom == 0)
        return std::nullopt;
    return tile.ancestor(tile.zoom - std::min(tile.zoom, dataZoom));
}

void ShadeSource::setWanted(std::span<const TileId> byPriority)
{
    m_wanted.assign(byPriority.begin(), byPriority.end());
}

std::optional<ShadeSource::Shade> ShadeSource::takeNext()
{
    for (auto tile = m_wanted.begin(); tile != m_wanted.end();) {
        switch (m_elevation.sample(*tile, m_heights)) {
        case ElevationSource::State::Loading:
            ++tile;
            break;
        case ElevationSource::State::None:
            tile = m_wanted.erase(tile);
            break;
        case ElevationSource::State::Ready:
            const TileId id = *tile;
            m_wanted.erase(tile);
            return Shade{id, hillShade(m_heights, cellMetres(id), m_shading)};
        }
    }
    return std::nullopt;
}

} // namespace Tessa

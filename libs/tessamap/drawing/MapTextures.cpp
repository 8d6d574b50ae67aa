#include "libs/tessamap/drawing/MapTextures.h"

#include "libs/tusk/misc/Timer.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Tessa {

namespace {

constexpr std::size_t mebibyte = 1024 * 1024;
constexpr std::size_t mostTileBytes = 128 * mebibyte;
constexpr std::size_t mostBaseBytes = 32 * mebibyte;
constexpr std::size_t mostShadeBytes = 32 * mebibyte;
constexpr double tileSeconds = 0.005; ///< per frame, for decoding and uploading
constexpr double baseSeconds = 0.003;
constexpr double shadeSeconds = 0.003;
/// A fetched picture that is more levels coarser than the embedded map's gives way to the latter.
constexpr int coarserLevels = 3;

double now()
{
    return TUSK::Misc::Timer::getTime();
}

/// The tile or its nearest ancestor that has a texture.
std::optional<TileId> nearest(const TextureCache& textures, const TileId& tile)
{
    for (int up = 0; up <= tile.zoom; ++up) {
        if (textures.contains(tile.ancestor(up)))
            return tile.ancestor(up);
    }
    return std::nullopt;
}

} // namespace

MapTextures::MapTextures(TileSource& tiles, ShadeSource& shades)
    : m_tiles(tiles)
    , m_shades(shades)
    , m_tileTextures(mostTileBytes)
    , m_baseTextures(mostBaseBytes)
    , m_shadeTextures(mostShadeBytes)
{
}

void MapTextures::initialize()
{
    m_gl.initializeOpenGLFunctions();
    m_hasFailed = false;
    paintBase({0, 0, 0}); // the fallback for all tiles
}

void MapTextures::clear()
{
    for (TextureCache* const textures : {&m_tileTextures, &m_baseTextures, &m_shadeTextures})
        textures->clear(m_gl);
}

void MapTextures::upload(TextureCache& textures, const TileId& tile, const QImage& image,
                         int revision)
{
    if (!textures.upload(m_gl, tile, image, revision))
        m_hasFailed = true;
}

void MapTextures::paintBase(const TileId& tile)
{
    upload(m_baseTextures, tile, m_baseMap.paint(tile));
}

void MapTextures::loadTiles(std::span<const SelectedTile> selected, double deadline)
{
    std::vector<TileId> visible;
    std::vector<TileId> wanted;
    for (const SelectedTile& tile : selected) {
        // Where the server lacks a tile, it may have a coarser one.
        TileId best = tile.id;
        while (best.zoom > 0 && m_tiles.isMissing(best))
            best = best.ancestor(1);
        visible.push_back(best);
        if (!m_tileTextures.contains(best))
            wanted.push_back(best);
    }
    m_tiles.setVisible(visible);
    m_tiles.setWanted(wanted);
    while (now() < deadline) {
        const auto tile = m_tiles.takeNext();
        if (!tile)
            return;
        upload(m_tileTextures, tile->id, tile->image);
    }
}

void MapTextures::loadBaseMap(std::span<const SelectedTile> selected, double deadline)
{
    m_missingBase = 0;
    for (const SelectedTile& tile : selected) {
        const TileId base = BaseMap::covering(tile.id);
        if (m_tileTextures.contains(tile.id) || m_baseTextures.contains(base))
            continue;
        // Painting is not worth while where a fetched picture that is coarse but good enough covers
        // the place.
        const auto coarser = nearest(m_tileTextures, tile.id);
        if (coarser && coarser->zoom + coarserLevels >= base.zoom)
            continue;
        if (now() < deadline)
            paintBase(base);
        else
            ++m_missingBase;
    }
}

void MapTextures::loadShades(std::span<const SelectedTile> selected, double deadline)
{
    std::vector<TileId> wanted;
    for (const SelectedTile& tile : selected) {
        const auto shade = m_shades.shadeTile(tile.id);
        if (shade && m_shadeTextures.revisionOf(*shade) != m_shades.revision() &&
            std::ranges::find(wanted, *shade) == wanted.end())
            wanted.push_back(*shade);
    }
    m_shades.setWanted(wanted);
    while (now() < deadline) {
        const auto shade = m_shades.takeNext();
        if (!shade)
            return;
        upload(m_shadeTextures, shade->id, shade->image, m_shades.revision());
    }
}

void MapTextures::load(std::span<const SelectedTile> selected,
                       const std::optional<Shading>& shading)
{
    if (std::exchange(m_isDropPending, false))
        m_tileTextures.clear(m_gl);
    for (TextureCache* const textures : {&m_tileTextures, &m_baseTextures, &m_shadeTextures})
        textures->beginFrame(m_gl);
    m_baseTextures.use({0, 0, 0}); // never dropped, so that there is always something to show

    // Unused time passes on to the next stage. Each stage may exceed its deadline by one picture.
    const double start = now();
    loadTiles(selected, start + tileSeconds);
    loadBaseMap(selected, start + tileSeconds + baseSeconds);
    m_isShaded = shading.has_value();
    if (shading) {
        m_shades.setShading(*shading);
        loadShades(selected, start + tileSeconds + baseSeconds + shadeSeconds);
    } else {
        m_shades.setWanted({});
    }
}

bool MapTextures::hasFetched(const TileId& tile) const
{
    const auto fetched = nearest(m_tileTextures, tile);
    return fetched && fetched->zoom + coarserLevels >= tile.zoom;
}

TextureView MapTextures::pictureOf(const TileId& tile)
{
    const auto fetched = nearest(m_tileTextures, tile);
    const auto base = nearest(m_baseTextures, BaseMap::covering(tile));
    if (fetched && (!base || fetched->zoom + coarserLevels >= base->zoom))
        return TextureView::within(tile, *fetched, m_tileTextures.use(*fetched));
    if (base)
        return TextureView::within(tile, *base, m_baseTextures.use(*base));
    return {};
}

TextureView MapTextures::shadeOf(const TileId& tile)
{
    if (!m_isShaded)
        return {};
    const auto own = m_shades.shadeTile(tile);
    if (!own)
        return {};
    const auto shade = nearest(m_shadeTextures, *own);
    if (!shade)
        return {};
    return TextureView::within(tile, *shade, m_shadeTextures.use(*shade));
}

} // namespace Tessa

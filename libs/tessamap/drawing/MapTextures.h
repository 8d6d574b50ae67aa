#pragma once

#include "libs/tessamap/basemap/BaseMap.h"
#include "libs/tessamap/drawing/TextureCache.h"
#include "libs/tessamap/drawing/TileDrawer.h"
#include "libs/tessamap/globe/TileSelection.h"
#include "libs/tessamap/terrain/ShadeSource.h"
#include "libs/tessamap/tiles/TileSource.h"

#include <optional>
#include <span>

namespace Tessa {

/// The textures of the tiles in view: fetched pictures, the embedded map where there are none, and
/// hill shade. Each frame loads what is missing for as long as its time lasts. All calls need the
/// same current context, except where noted.
class MapTextures
{
public:
    /// Both must outlive this. Needs no context.
    MapTextures(TileSource& tiles, ShadeSource& shades);

    /// To be called once for each context.
    void initialize();
    /// Deletes all textures; to be called before the context is destroyed.
    void clear();

    /// Deletes the fetched pictures in the next load(). Needs no context.
    void dropTiles() { m_isDropPending = true; }

    /// Loads textures for the tiles of a frame, most important first. Without `shading` there is no
    /// shade.
    void load(std::span<const SelectedTile> selected, const std::optional<Shading>& shading);

    /// The best picture at hand for a tile, also from a coarser one.
    TextureView pictureOf(const TileId& tile);
    /// Whether there is a fetched picture that is not much too coarse for the tile.
    bool hasFetched(const TileId& tile) const;
    /// None where there is no shade.
    TextureView shadeOf(const TileId& tile);

    /// Tiles of the embedded map that the last load() had no time for.
    int missingCount() const { return m_missingBase; }

    /// Whether the driver has refused a texture since initialize().
    bool hasFailed() const { return m_hasFailed; }

private:
    void loadTiles(std::span<const SelectedTile> selected, double deadline);
    void loadBaseMap(std::span<const SelectedTile> selected, double deadline);
    void loadShades(std::span<const SelectedTile> selected, double deadline);
    void paintBase(const TileId& tile);
    void upload(TextureCache& textures, const TileId& tile, const QImage& image, int revision = 0);

    TileSource& m_tiles;
    ShadeSource& m_shades;
    BaseMap m_baseMap;
    QOpenGLFunctions m_gl;
    TextureCache m_tileTextures;
    TextureCache m_baseTextures;
    TextureCache m_shadeTextures;
    bool m_isShaded = false;
    bool m_isDropPending = false;
    bool m_hasFailed = false;
    int m_missingBase = 0;
};

} // namespace Tessa

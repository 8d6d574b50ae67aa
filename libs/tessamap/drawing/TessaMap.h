#pragma once

#include "libs/tessamap/basemap/BaseMap.h"
#include "libs/tessamap/drawing/TextureCache.h"
#include "libs/tessamap/drawing/TileDrawer.h"
#include "libs/tessamap/globe/Globe.h"
#include "libs/tessamap/globe/TileSelection.h"
#include "libs/tessamap/terrain/ElevationSource.h"
#include "libs/tessamap/terrain/ShadeSource.h"
#include "libs/tessamap/tiles/TileSource.h"

#include <QObject>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

namespace Tessa {

/// A globe of map tiles: seen from straight above, lit by the relief of its terrain, and never
/// empty, as the embedded world map stands in for tiles that are not there.
///
/// Degrees and metres; window places are pixels of the framebuffer from its lower left corner.
/// render() and releaseGl() need the current context of the widget; all else can be called without.
/// What is decoded and uploaded in a frame is bound by a time, so that a frame never waits for
/// tiles. Lives in the GUI thread.
class TessaMap : public QObject
{
    Q_OBJECT

public:
    explicit TessaMap(QObject* parent = nullptr);
    ~TessaMap() override;

    void setTileDirectory(const QString& path);
    void setTerrainPath(const QString& path);

    /// Looks for new elevation files.
    void refreshTerrain() { m_elevation.refresh(); }

    void setTileServer(const QString& address);
    /// Must name the application.
    void setUserAgent(const QByteArray& userAgent);
    /// 1 is the sphere, the only one that there is.
    void setProjection(int projection);
    /// 0 is the server's map, the only one that there is.
    void setMapType(int type);

    /// Of the framebuffer, in pixels.
    void setWindowSize(double width, double height);
    /// Of the shown area.
    void setVisibleRange(double width, double height);
    /// The centre; the altitude has no effect on a view from straight above.
    void setPosition(double latitude, double longitude, double altitude);

    /// The view as it now is.
    Globe globe() const;

    bool window2LatLong(double x, double y, double& latitude, double& longitude) const;
    /// The same as if (`centreLatitude`, `centreLongitude`) were the centre.
    bool window2LatLongFromPos(double x, double y, double centreLatitude, double centreLongitude,
                               double& latitude, double& longitude) const;
    /// False on the far side.
    bool latLong2Window(double latitude, double longitude, double& x, double& y) const;

    void setBrightness(double brightness) { m_brightness = brightness; }

    /// The way the light goes: east, north and up.
    void setLightDirection(float x, float y, float z);

    void setShading(bool isShaded) { m_isShaded = isShaded; }

    /// Contrast, brightness of flat ground (0 to 2), and the factor by which heights are
    /// exaggerated.
    void setShadingStrength(double contrast, double brightness, double factor);

    /// Draws a frame. False when the context lacks what it takes; told once by message().
    bool render();
    /// Drops what belongs to the context, before it goes.
    void releaseGl();

    /// Tiles that are under way or still to be made.
    int nrLoadingTiles() const;

    /// The tile server cannot be reached.
    bool isOffline() const { return m_tiles.isOffline(); }

    QString attribution() const { return m_tiles.server().attribution(); }

    QUrl attributionLink() const { return m_tiles.server().attributionLink(); }

    TileSource& tiles() { return m_tiles; }

    /// Tiles in the last frame.
    std::size_t drawnCount() const { return m_selected.size(); }

    /// What the last frame took apart from drawing: choosing, reading, decoding and uploading.
    double loadingSeconds() const { return m_loadingSeconds; }

signals:
    /// There is something new to draw.
    void changed();
    /// For the user.
    void message(const QString& text);

private:
    /// A texture and the part of it that lies on a tile.
    struct Picture
    {
        GLuint texture = 0;
        TextureWindow window;
    };

    bool prepareGl();
    void loadTextures();
    void loadTiles(double deadline);
    void loadBaseMap(double deadline);
    void loadShades(double deadline);
    void paintBase(const TileId& tile);
    void upload(TextureCache& textures, const TileId& tile, const QImage& image, int revision = 0);
    std::optional<TileId> nearest(const TextureCache& textures, const TileId& tile) const;
    Picture pictureOf(const TileId& tile);
    Picture shadeOf(const TileId& tile);

    TileSource m_tiles;
    ElevationSource m_elevation;
    ShadeSource m_shades;
    BaseMap m_baseMap;
    double m_windowWidth = 1.0;
    double m_windowHeight = 1.0;
    double m_rangeWidth = 1.0;
    LatLong m_centre;
    double m_brightness = 1.0;
    bool m_isShaded = false;
    Shading m_shading;
    std::vector<SelectedTile> m_selected;
    int m_missingBase = 0;
    double m_loadingSeconds = 0.0;

    bool m_hasFailed = false;
    bool m_saidNoMemory = false;
    bool m_isOtherServer = false; ///< since the last picture
    QOpenGLFunctions m_gl;
    std::unique_ptr<TileDrawer> m_drawer;
    TextureCache m_tileTextures;
    TextureCache m_baseTextures;
    TextureCache m_shadeTextures;
};

} // namespace Tessa

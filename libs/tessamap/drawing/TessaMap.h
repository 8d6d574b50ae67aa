#pragma once

#include "libs/tessamap/drawing/MapTextures.h"
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
#include <vector>

namespace Tessa {

/// A globe of map tiles with hill shading, seen from straight above. Where there are no tiles it
/// shows the embedded world map.
///
/// In degrees and metres; points in the window are pixels of the framebuffer from its lower left
/// corner. render() and releaseGl() need the widget's current context, nothing else does. The time
/// for decoding and uploading in a frame is limited, and a frame never waits for tiles. Used in the
/// GUI thread.
class TessaMap : public QObject
{
    Q_OBJECT

public:
    explicit TessaMap(QObject* parent = nullptr);
    ~TessaMap() override;

    void setTileDirectory(const QString& path);
    void setTerrainPath(const QString& path);

    /// Looks for new and changed elevation files.
    void refreshTerrain() { m_elevation.refresh(); }

    void setTileServer(const QString& address);
    /// Must name the application.
    void setUserAgent(const QByteArray& userAgent);
    /// Has no effect: 1, the sphere, is the only projection.
    void setProjection(int projection);
    /// Has no effect: 0, the server's map, is the only type.
    void setMapType(int type);

    /// Of the framebuffer, in pixels.
    void setWindowSize(double width, double height);
    /// Of the visible area in metres. The height has no effect: it follows from the width.
    void setVisibleRange(double width, double height);
    /// The centre. The altitude has no effect on a view from straight above.
    void setPosition(double latitude, double longitude, double altitude);

    /// The projection of the current view.
    Globe globe() const;

    /// False off the globe; latitude and longitude are then left unchanged.
    bool window2LatLong(double x, double y, double& latitude, double& longitude) const;
    /// As above for a view centred on (`centreLatitude`, `centreLongitude`).
    bool window2LatLongFromPos(double x, double y, double centreLatitude, double centreLongitude,
                               double& latitude, double& longitude) const;
    /// False on the far side; x and y are then left unchanged.
    bool latLong2Window(double latitude, double longitude, double& x, double& y) const;

    void setBrightness(double brightness) { m_brightness = brightness; }

    /// The direction in which light travels: east, north and up.
    void setLightDirection(float x, float y, float z);

    void setShading(bool isShaded) { m_isShaded = isShaded; }

    /// See Shading.
    void setShadingStrength(double contrast, double brightness, double factor);

    /// Draws a frame. False when the context lacks a needed feature; message() says so once.
    bool render();
    /// Deletes all objects of the context; to be called before it is destroyed.
    void releaseGl();

    /// Tiles that are being fetched or still have to be decoded, painted or baked.
    int nrLoadingTiles() const;

    /// Whether at the last frame's scale, beyond that of the embedded map, there was hardly any
    /// tile, and none was being loaded.
    bool lacksTiles() const { return m_lacksTiles; }

    /// The tile server cannot be reached.
    bool isOffline() const { return m_tiles.isOffline(); }

    QString attribution() const { return m_tiles.server().attribution(); }

    QUrl attributionLink() const { return m_tiles.server().attributionLink(); }

    TileSource& tiles() { return m_tiles; }

    /// Tiles in the last frame.
    std::size_t drawnCount() const { return m_selected.size(); }

    /// The time of the last frame before drawing: selecting, reading, decoding and uploading.
    double loadingSeconds() const { return m_loadingSeconds; }

signals:
    /// A new frame would look different.
    void changed();
    /// A message for the user.
    void message(const QString& text);

private:
    bool prepareGl();
    void findLack();

    TileSource m_tiles;
    ElevationSource m_elevation;
    ShadeSource m_shades;
    MapTextures m_textures;
    double m_windowWidth = 1.0;
    double m_windowHeight = 1.0;
    double m_rangeWidth = 1.0;
    LatLong m_centre;
    double m_brightness = 1.0;
    bool m_isShaded = false;
    Shading m_shading;
    std::vector<SelectedTile> m_selected;
    double m_loadingSeconds = 0.0;
    bool m_lacksTiles = false;

    bool m_hasFailed = false;
    bool m_hasToldNoMemory = false;
    std::unique_ptr<TileDrawer> m_drawer;
};

} // namespace Tessa

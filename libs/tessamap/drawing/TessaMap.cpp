#include "libs/tessamap/drawing/TessaMap.h"

#include "libs/tusk/misc/Timer.h"

#include <QOpenGLContext>

#include <algorithm>
#include <utility>

namespace Tessa {

TessaMap::TessaMap(QObject* parent)
    : QObject(parent)
    , m_shades(m_elevation)
    , m_textures(m_tiles, m_shades)
{
    connect(&m_tiles, &TileSource::changed, this, &TessaMap::changed);
    connect(&m_tiles, &TileSource::message, this, &TessaMap::message);
    connect(&m_shades, &ShadeSource::changed, this, &TessaMap::changed);
    connect(&m_elevation, &ElevationSource::message, this, &TessaMap::message);
}

TessaMap::~TessaMap() = default;

void TessaMap::setTileDirectory(const QString& path)
{
    m_tiles.setDirectory(path);
}

void TessaMap::setTerrainPath(const QString& path)
{
    m_elevation.setPath(path);
}

void TessaMap::setTileServer(const QString& address)
{
    if (TileServer(address) == m_tiles.server())
        return;
    m_tiles.setServer(address);
    // Pictures of the former server must not be shown with the new one's attribution.
    m_textures.dropTiles();
    emit changed();
}

void TessaMap::setUserAgent(const QByteArray& userAgent)
{
    m_tiles.setUserAgent(userAgent);
}

void TessaMap::setProjection(int /*projection*/) {}

void TessaMap::setMapType(int /*type*/) {}

void TessaMap::setWindowSize(double width, double height)
{
    m_windowWidth = std::max(1.0, width);
    m_windowHeight = std::max(1.0, height);
}

void TessaMap::setVisibleRange(double width, double /*height*/)
{
    m_rangeWidth = width; // the height follows from the window's aspect ratio
}

void TessaMap::setPosition(double latitude, double longitude, double /*altitude*/)
{
    m_centre = {latitude, longitude};
}

Globe TessaMap::globe() const
{
    return {m_centre, m_rangeWidth / m_windowWidth, m_windowWidth, m_windowHeight};
}

bool TessaMap::window2LatLong(double x, double y, double& latitude, double& longitude) const
{
    return window2LatLongFromPos(x, y, m_centre.latitude, m_centre.longitude, latitude, longitude);
}

bool TessaMap::window2LatLongFromPos(double x, double y, double centreLatitude,
                                     double centreLongitude, double& latitude,
                                     double& longitude) const
{
    const Globe view({centreLatitude, centreLongitude}, m_rangeWidth / m_windowWidth, m_windowWidth,
                     m_windowHeight);
    const auto place = view.window2LatLong({x, y});
    if (!place)
        return false;
    latitude = place->latitude;
    longitude = place->longitude;
    return true;
}

bool TessaMap::latLong2Window(double latitude, double longitude, double& x, double& y) const
{
    const auto point = globe().latLong2Window({latitude, longitude});
    if (!point)
        return false;
    x = point->x;
    y = point->y;
    return true;
}

void TessaMap::setLightDirection(float x, float y, float z)
{
    m_shading.light = {x, y, z};
}

void TessaMap::setShadingStrength(double contrast, double brightness, double factor)
{
    m_shading.contrast = contrast;
    m_shading.brightness = brightness;
    m_shading.factor = factor;
}

bool TessaMap::prepareGl()
{
    if (m_drawer != nullptr)
        return true;
    if (m_hasFailed || QOpenGLContext::currentContext() == nullptr)
        return false;
    QString error;
    m_drawer = TileDrawer::create(error);
    if (m_drawer == nullptr) {
        m_hasFailed = true;
        emit message(tr("The map cannot be drawn with this graphics driver: %1").arg(error));
        return false;
    }
    m_textures.initialize();
    return true;
}

void TessaMap::releaseGl()
{
    if (m_drawer != nullptr)
        m_textures.clear();
    m_drawer.reset();
    m_hasFailed = false;
    m_hasToldNoMemory = false;
}

bool TessaMap::render()
{
    if (!prepareGl())
        return false;
    const double start = TUSK::Misc::Timer::getTime();
    const Globe view = globe();
    m_selected = selectTiles(view);
    m_textures.load(m_selected, m_isShaded ? std::optional(m_shading) : std::nullopt);
    m_loadingSeconds = TUSK::Misc::Timer::getTime() - start;
    if (m_textures.hasFailed() && !std::exchange(m_hasToldNoMemory, true))
        emit message(tr("The graphics driver accepts no more pictures. The map stays coarse."));

    m_drawer->begin(view, m_brightness);
    m_drawer->drawCap(TileDrawer::Pole::North, BaseMap::waterColor());
    m_drawer->drawCap(TileDrawer::Pole::South, BaseMap::iceColor());
    // Between neighbouring tiles there may be hairline gaps: borders of all tiles are drawn below.
    for (const TileDrawer::Piece piece : {TileDrawer::Piece::Border, TileDrawer::Piece::Tile}) {
        for (const SelectedTile& tile : m_selected) {
            m_drawer->draw(piece, tile.id, m_textures.pictureOf(tile.id),
                           m_textures.shadeOf(tile.id));
        }
    }
    m_drawer->end();
    findLack();
    return true;
}

void TessaMap::findLack()
{
    if (m_tiles.loadingCount() > 0)
        return; // not known yet
    const auto lacking = std::ranges::count_if(m_selected, [this](const SelectedTile& tile) {
        return tile.id.zoom > BaseMap::maxZoom && !m_textures.hasFetched(tile.id);
    });
    m_lacksTiles = 4 * lacking > 3 * static_cast<std::ptrdiff_t>(m_selected.size());
}

int TessaMap::nrLoadingTiles() const
{
    return m_tiles.loadingCount() + m_shades.loadingCount() + m_textures.missingCount();
}

} // namespace Tessa

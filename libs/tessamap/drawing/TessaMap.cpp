#include "libs/tessamap/drawing/TessaMap.h"

#include "libs/tusk/misc/Timer.h"

#include <QOpenGLContext>

#include <algorithm>
#include <utility>

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

} // namespace

TessaMap::TessaMap(QObject* parent)
    : QObject(parent)
    , m_shades(m_elevation)
    , m_tileTextures(mostTileBytes)
    , m_baseTextures(mostBaseBytes)
    , m_shadeTextures(mostShadeBytes)
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
    m_isOtherServer = true;
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
    m_gl.initializeOpenGLFunctions();
    QString error;
    m_drawer = TileDrawer::create(error);
    if (m_drawer == nullptr) {
        m_hasFailed = true;
        emit message(tr("The map cannot be drawn with this graphics driver: %1").arg(error));
        return false;
    }
    paintBase({0, 0, 0}); // the fallback for all tiles
    return true;
}

void TessaMap::releaseGl()
{
    if (m_drawer != nullptr) {
        m_tileTextures.clear(m_gl);
        m_baseTextures.clear(m_gl);
        m_shadeTextures.clear(m_gl);
    }
    m_drawer.reset();
    m_hasFailed = false;
    m_saidNoMemory = false;
}

void TessaMap::upload(TextureCache& textures, const TileId& tile, const QImage& image, int revision)
{
    if (textures.upload(m_gl, tile, image, revision) || m_saidNoMemory)
        return;
    m_saidNoMemory = true;
    emit message(tr("The graphics driver refuses pictures of the map. It stays coarse."));
}

void TessaMap::paintBase(const TileId& tile)
{
    upload(m_baseTextures, tile, m_baseMap.paint(tile));
}

std::optional<TileId> TessaMap::nearest(const TextureCache& textures, const TileId& tile) const
{
    for (int up = 0; up <= tile.zoom; ++up) {
        if (textures.contains(tile.ancestor(up)))
            return tile.ancestor(up);
    }
    return std::nullopt;
}

void TessaMap::loadTiles(double deadline)
{
    std::vector<TileId> visible;
    std::vector<TileId> wanted;
    for (const SelectedTile& tile : m_selected) {
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

void TessaMap::loadBaseMap(double deadline)
{
    m_missingBase = 0;
    for (const SelectedTile& tile : m_selected) {
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

void TessaMap::loadShades(double deadline)
{
    m_shades.setShading(m_shading);
    std::vector<TileId> wanted;
    for (const SelectedTile& tile : m_selected) {
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

void TessaMap::loadTextures()
{
    // Unused time passes on to the next stage. Each stage may exceed its deadline by one picture.
    const double start = now();
    loadTiles(start + tileSeconds);
    loadBaseMap(start + tileSeconds + baseSeconds);
    if (m_isShaded)
        loadShades(start + tileSeconds + baseSeconds + shadeSeconds);
    else
        m_shades.setWanted({});
}

TessaMap::Picture TessaMap::pictureOf(const TileId& tile)
{
    const auto fetched = nearest(m_tileTextures, tile);
    const auto base = nearest(m_baseTextures, BaseMap::covering(tile));
    if (fetched && (!base || fetched->zoom + coarserLevels >= base->zoom))
        return {m_tileTextures.use(*fetched), TextureWindow::within(tile, *fetched)};
    if (base)
        return {m_baseTextures.use(*base), TextureWindow::within(tile, *base)};
    return {};
}

TessaMap::Picture TessaMap::shadeOf(const TileId& tile)
{
    if (!m_isShaded)
        return {};
    const auto own = m_shades.shadeTile(tile);
    if (!own)
        return {};
    const auto shade = nearest(m_shadeTextures, *own);
    if (!shade)
        return {};
    return {m_shadeTextures.use(*shade), TextureWindow::within(tile, *shade)};
}

bool TessaMap::render()
{
    if (!prepareGl())
        return false;
    const double start = now();
    const Globe view = globe();
    m_selected = selectTiles(view);
    if (std::exchange(m_isOtherServer, false))
        m_tileTextures.clear(m_gl);
    for (TextureCache* const textures : {&m_tileTextures, &m_baseTextures, &m_shadeTextures})
        textures->beginFrame(m_gl);
    m_baseTextures.use({0, 0, 0}); // never dropped, so that there is always something to show
    loadTextures();
    m_loadingSeconds = now() - start;

    m_drawer->begin(view, m_brightness);
    m_drawer->drawCap(true, BaseMap::waterColor());
    m_drawer->drawCap(false, BaseMap::iceColor());
    // Between neighbouring tiles there may be hairline gaps: borders of all tiles are drawn below.
    for (const TileDrawer::Piece piece : {TileDrawer::Piece::Border, TileDrawer::Piece::Tile}) {
        for (const SelectedTile& tile : m_selected) {
            const Picture picture = pictureOf(tile.id);
            const Picture shade = shadeOf(tile.id);
            m_drawer->draw(piece, tile.id, picture.texture, picture.window, shade.texture,
                           shade.window);
        }
    }
    m_drawer->end();
    return true;
}

int TessaMap::nrLoadingTiles() const
{
    return m_tiles.loadingCount() + m_shades.loadingCount() + m_missingBase;
}

} // namespace Tessa

// The moving map on the software renderer: a frame of tiles compared with a bare loop that draws
// the same pictures to the same places, long tracks with short ones, how long a pan over tiles on
// the disk blocks the window, and how often an idle map is drawn.

#include "benchmarks/Figures.h"
#include "benchmarks/ShownWindow.h"
#include "benchmarks/Stage.h"
#include "map/ui/MapPainter.h"
#include "map/ui/WidgetMap.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QBuffer>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>

using namespace KOLT;
using Tessa::TileId;

namespace {

constexpr QSize pictureSize(1280, 800);
constexpr int samples = 4; // per pixel, as in the window
constexpr Tessa::LatLong home{48.35, 11.45};
constexpr double width = 42'000.0;
constexpr int tileSide = 256;
constexpr int secondsPerCircuit = 360;
constexpr int idleSeconds = 6;
const QString server = QStringLiteral("http://127.0.0.1:1");

std::unique_ptr<QTemporaryDir> directory;

/// A picture that takes a decoder about as long as a map does.
QByteArray tilePicture(const TileId& tile)
{
    std::mt19937 random(static_cast<unsigned>(tile.x * 7919 + tile.y));
    QImage image(tileSide, tileSide, QImage::Format_RGB32);
    for (int y = 0; y < tileSide; ++y) {
        for (int x = 0; x < tileSide; ++x)
            image.setPixelColor(x, y,
                                QColor(200 + (x / 31 + tile.x) % 5 * 9, 210, 190 + y / 40 * 7));
    }
    for (int i = 0; i < 8000; ++i)
        image.setPixelColor(static_cast<int>(random() % tileSide),
                            static_cast<int>(random() % tileSide), QColor(90, 80, 70));
    QByteArray body;
    QBuffer buffer(&body);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return body;
}

std::unique_ptr<Bench::Stage> stage; ///< with a framebuffer like the window's

/// The map with all tiles from the disk.
class Map
{
public:
    Map()
    {
        m_map.setTileDirectory(directory->path());
        m_map.setTileServer(server);
        m_map.tiles().setNetworkEnabled(false);
        m_map.setWindowSize(pictureSize.width(), pictureSize.height());
        lookAt(home);
        while (m_map.nrLoadingTiles() > 0 || m_map.drawnCount() == 0)
            frame();
    }

    ~Map() { m_map.releaseGl(); }

    Map(const Map&) = delete;
    Map& operator=(const Map&) = delete;

    void lookAt(Tessa::LatLong centre, double visible = width)
    {
        m_map.setVisibleRange(visible, visible * pictureSize.height() / pictureSize.width());
        m_map.setPosition(centre.latitude, centre.longitude, 0.0);
    }

    void frame()
    {
        stage->clear(Qt::black);
        m_map.render();
    }

    Tessa::TessaMap& map() { return m_map; }

private:
    Tessa::TessaMap m_map;
};

/// Writes every tile of an area around home to the disk cache.
void fillDisk()
{
    Tessa::TileDiskCache cache;
    cache.setPlace(directory->path(), Tessa::TileServer(server).cacheKey());
    const qint64 expires = QDateTime::currentMSecsSinceEpoch() + 24LL * 3600 * 1000;
    const Tessa::Globe globe(home, width / pictureSize.width(), 3 * pictureSize.width(),
                             3 * pictureSize.height());
    for (const Tessa::SelectedTile& tile : Tessa::selectTiles(globe))
        cache.write(tile.id, tilePicture(tile.id), {"tag", {}, expires});
}

/// The least work that draws these tiles: two triangles each, with corners computed beforehand in
/// one buffer, and a shader like the map's.
class BareLoop
{
public:
    explicit BareLoop(Tessa::TessaMap& map)
    {
        m_program.bindAttributeLocation("corner", 0);
        m_program.addShaderFromSourceCode(QOpenGLShader::Vertex, R"(
            attribute highp vec4 corner;
            varying highp vec2 place;
            void main() { place = corner.zw; gl_Position = vec4(corner.xy, 0.0, 1.0); })");
        m_program.addShaderFromSourceCode(QOpenGLShader::Fragment, R"(
            uniform sampler2D image;
            uniform lowp float brightness;
            varying highp vec2 place;
            void main() { gl_FragColor = vec4(texture2D(image, place).rgb * brightness, 1.0); })");
        m_program.link();
        QOpenGLFunctions& gl = stage->gl();
        std::vector<float> corners;
        const Tessa::Globe globe = map.globe();
        for (const Tessa::SelectedTile& tile : Tessa::selectTiles(globe)) {
            for (const auto& [u, v] : {std::pair(0.0, 0.0), {0.0, 1.0}, {1.0, 0.0}, {1.0, 1.0}}) {
                const auto point = globe.windowOf(globe.toView(Tessa::placeInTile(tile.id, u, v)));
                for (const double value : {2.0 * point.x / globe.width() - 1.0,
                                           2.0 * point.y / globe.height() - 1.0, u, v})
                    corners.push_back(static_cast<float>(value));
            }
            m_textures.upload(
                gl, tile.id,
                QImage::fromData(tilePicture(tile.id)).convertToFormat(QImage::Format_RGBA8888));
            m_names.push_back(m_textures.use(tile.id));
        }
        m_buffer.create();
        m_buffer.bind();
        m_buffer.allocate(corners.data(), static_cast<int>(corners.size() * sizeof(float)));
        m_buffer.release();
    }

    ~BareLoop() { m_textures.clear(stage->gl()); }

    BareLoop(const BareLoop&) = delete;
    BareLoop& operator=(const BareLoop&) = delete;

    std::size_t count() const { return m_names.size(); }

    void frame()
    {
        stage->clear(Qt::black);
        QOpenGLFunctions& gl = stage->gl();
        gl.glDisable(GL_DEPTH_TEST);
        gl.glDisable(GL_BLEND);
        m_program.bind();
        m_program.setUniformValue("image", 0);
        m_program.setUniformValue("brightness", 1.0F);
        m_buffer.bind();
        m_program.enableAttributeArray(0);
        m_program.setAttributeBuffer(0, GL_FLOAT, 0, 4);
        for (std::size_t i = 0; i < m_names.size(); ++i) {
            gl.glBindTexture(GL_TEXTURE_2D, m_names[i]);
            gl.glDrawArrays(GL_TRIANGLE_STRIP, static_cast<GLint>(4 * i), 4);
        }
        m_program.disableAttributeArray(0);
        m_buffer.release();
        m_program.release();
    }

private:
    QOpenGLShaderProgram m_program;
    QOpenGLBuffer m_buffer{QOpenGLBuffer::VertexBuffer};
    Tessa::TextureCache m_textures{128 * 1024 * 1024};
    std::vector<GLuint> m_names;
};

/// Times frames after a first one, which compiles shaders and fills buffers. OpenGL draws behind
/// the caller: each frame, the first included, is waited for, or the next would pay for it.
template <typename Frame>
void timeFrames(benchmark::State& state, Frame frame)
{
    frame();
    stage->gl().glFinish();
    for (auto _ : state) {
        frame();
        stage->gl().glFinish();
    }
}

void drawMap(benchmark::State& state)
{
    Map map;
    timeFrames(state, [&] { map.frame(); });
}

void drawBareLoop(benchmark::State& state)
{
    Map map;
    BareLoop loop(map.map());
    timeFrames(state, [&] { loop.frame(); });
}

/// Circuits around an airfield, two points a second, each slightly different.
std::vector<TrackPoint> circuits(int hours)
{
    std::mt19937 random(7);
    std::normal_distribution<double> offset(0.0, 150.0);
    std::vector<TrackPoint> track;
    const double metre = 1.0 / 111120.0;
    double side = 0.0;
    double length = 0.0;
    for (int i = 0; i < hours * 7200; ++i) {
        const double part = i % (2 * secondsPerCircuit) / (2.0 * secondsPerCircuit);
        if (i % (2 * secondsPerCircuit) == 0) {
            side = 2000.0 + offset(random);
            length = 7000.0 + offset(random);
        }
        // A stadium: two straights and two half circles of radius side / 2.
        const double turn = std::numbers::pi * side / 2.0;
        double way = part * 2.0 * (length + turn);
        const bool isBack = way >= length + turn;
        if (isBack)
            way -= length + turn;
        double east = way - length / 2.0;
        double north = -side / 2.0;
        if (way > length) {
            const double angle = (way - length) / (side / 2.0);
            east = length / 2.0 + side / 2.0 * std::sin(angle);
            north = -side / 2.0 * std::cos(angle);
        }
        const double sign = isBack ? -1.0 : 1.0;
        track.push_back({i, home.latitude + sign * north * metre,
                         home.longitude + sign * east * metre /
                                              std::cos(home.latitude * std::numbers::pi / 180.0),
                         500.0, 180.0, 0.0});
    }
    return track;
}

/// Cross-country at some 180 km/h, two points a second, over an area of 200 km, without repeats.
std::vector<TrackPoint> crossCountry(int hours)
{
    constexpr double reach = 0.9; ///< degrees
    std::vector<TrackPoint> track;
    for (int i = 0; i < hours * 7200; ++i)
        track.push_back({i, home.latitude + reach * std::sin(i * 2.2e-4),
                         home.longitude + 1.5 * reach * std::sin(i * 1.7e-4 * std::numbers::phi),
                         500.0, 180.0, 0.0});
    return track;
}

void drawTrack(benchmark::State& state, const std::vector<TrackPoint>& points,
               double visibleWidth = width)
{
    Map map;
    map.lookAt(home, visibleWidth);
    MapPainter painter(pictureSize.width(), pictureSize.height(), 1.0);
    const TrackLine line(points);
    timeFrames(state, [&] {
        map.frame();
        painter.begin(pictureSize.width(), pictureSize.height());
        painter.drawTrack(map.map().globe(), line);
    });
}

void drawOneHour(benchmark::State& state)
{
    drawTrack(state, circuits(1));
}

void drawTwentyHours(benchmark::State& state)
{
    drawTrack(state, circuits(20));
}

constexpr double wholeCountry = 400e3; ///< metres

void drawOneHourAway(benchmark::State& state)
{
    drawTrack(state, crossCountry(1), wholeCountry);
}

void drawTwentyHoursAway(benchmark::State& state)
{
    drawTrack(state, crossCountry(20), wholeCountry);
}

/// The first frame with a day's track at a new scale, for which its line has to be built.
void buildTrackLevel(benchmark::State& state)
{
    const std::vector<TrackPoint> points = circuits(20);
    for (auto _ : state) {
        state.PauseTiming();
        auto line = std::make_unique<TrackLine>(points);
        state.ResumeTiming();
        benchmark::DoNotOptimize(line->chunks(10.0));
        state.PauseTiming();
        line.reset();
        state.ResumeTiming();
    }
}

/// Writes heights for the hill shading of the area.
void writeTerrain()
{
    QByteArray heights;
    for (int row = 0; row < 1201; ++row) {
        for (int column = 0; column < 1201; ++column) {
            const int height =
                static_cast<int>(1000.0 + 400.0 * std::sin(row / 9.0) * std::cos(column / 13.0));
            heights += static_cast<char>(height / 256);
            heights += static_cast<char>(height % 256);
        }
    }
    QFile file(directory->filePath(QStringLiteral("N48E011.hgt")));
    if (!file.open(QIODevice::WriteOnly) || file.write(heights) != heights.size())
        std::abort();
}

/// The longest loading time, in milliseconds, of a frame during a pan with hill shading over tiles
/// that are on the disk but not yet textures.
double longestLoading()
{
    Map map;
    map.map().setTerrainPath(directory->path());
    map.map().setShading(true);
    map.map().setShadingStrength(1.0, 1.0, 0.5);
    map.map().setLightDirection(1.0F, -1.0F, -1.0F);
    double longest = 0.0;
    // Diagonally across the area on the disk, half a tile per frame.
    const double degrees = width / 111120.0;
    for (int i = 0; i <= 60; ++i) {
        map.lookAt({home.latitude + degrees * 0.5 * i / 60.0, home.longitude + degrees * i / 60.0});
        map.frame();
        stage->gl().glFinish();
        longest = std::max(longest, map.map().loadingSeconds());
        QCoreApplication::processEvents();
    }
    return longest * 1e3;
}

/// Frames per second of a map without changes.
double idleFrames()
{
    MapSettings settings;
    settings.isNetworkEnabled = false;
    MapViewState state;
    WidgetMap map(state, settings);
    map.resize(pictureSize);
    Bench::showAndWait(map);
    const auto wait = [](qint64 milliseconds) {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            QThread::msleep(1);
        }
    };
    wait(2000);
    const int before = map.frameCount();
    wait(idleSeconds * 1000);
    return static_cast<double>(map.frameCount() - before) / idleSeconds;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    directory = std::make_unique<QTemporaryDir>();
    initKoltResources();
    stage = std::make_unique<Bench::Stage>(pictureSize, samples);
    fillDisk();
    writeTerrain();
    using Bench::Bound;
    const int status = Bench::run(
        argc, argv,
        {{"frame of 1280 x 800 / bare loop of the same tiles", drawMap, drawBareLoop, Bound::AtMost,
          1.5},
         {"frame with a track of 20 h / of 1 h", drawTwentyHours, drawOneHour, Bound::AtMost, 2.0},
         {"cross-country track of 20 h / of 1 h, seen whole", drawTwentyHoursAway, drawOneHourAway,
          Bound::AtMost, 2.0},
         {"level of a 20 h track built, ms", buildTrackLevel, nullptr, Bound::AtMost, 100.0},
         {"pan over tiles on disk: longest loading, ms", nullptr, nullptr, Bound::AtMost, 16.0,
          longestLoading},
         {"idle map: frames a second", nullptr, nullptr, Bound::AtMost, 1.2, idleFrames}});
    stage.reset();
    directory.reset();
    return status;
}

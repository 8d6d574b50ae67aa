#include "libs/tessamap/terrain/ElevationSource.h"

#include "libs/tessamap/globe/Mercator.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace Tessa {

namespace {

constexpr int tilePixels = 256;
constexpr std::size_t maxLoading = 4;

} // namespace

/// The places of the samples along one axis of a tile, grouped by the degree that they lie in.
struct ElevationSource::Axis
{
    struct Run
    {
        int degree;
        std::size_t from;
        std::size_t to;
    };

    std::vector<double> fractions; ///< within the degree
    std::vector<Run> runs;

    void add(double angle, int lowest, int highest)
    {
        const int degree = std::clamp(static_cast<int>(std::floor(angle)), lowest, highest);
        if (runs.empty() || runs.back().degree != degree)
            runs.push_back({degree, fractions.size(), fractions.size()});
        fractions.push_back(std::clamp(angle - degree, 0.0, 1.0));
        ++runs.back().to;
    }

    static Axis longitudes(const TileId& tile)
    {
        const double world = double(tilePixels) * TileId::count(tile.zoom);
        Axis axis;
        for (int i = 0; i < gridSize; ++i) {
            const double x = (double(tile.x) * tilePixels + i - 0.5) / world;
            axis.add(Mercator::longitude(x - std::floor(x)), -180, 179);
        }
        return axis;
    }

    static Axis latitudes(const TileId& tile)
    {
        const double world = double(tilePixels) * TileId::count(tile.zoom);
        Axis axis;
        for (int i = 0; i < gridSize; ++i)
            axis.add(Mercator::latitude((double(tile.y) * tilePixels + i - 0.5) / world), -90, 89);
        return axis;
    }
};

namespace {

float interpolated(const HeightGrid& grid, double row, double column)
{
    const int last = grid.side - 2;
    const int top = std::min(static_cast<int>(row), last);
    const int left = std::min(static_cast<int>(column), last);
    const double down = row - top;
    const double along = column - left;
    const std::int16_t corners[2][2] = {{grid.at(top, left), grid.at(top, left + 1)},
                                        {grid.at(top + 1, left), grid.at(top + 1, left + 1)}};
    for (const auto& pair : corners) {
        for (const std::int16_t height : pair) {
            if (height != HeightGrid::missing)
                continue;
            // Next to a hole, take the nearest sample, which may be missing.
            const std::int16_t nearest = corners[down >= 0.5 ? 1 : 0][along >= 0.5 ? 1 : 0];
            return nearest == HeightGrid::missing ? std::numeric_limits<float>::quiet_NaN()
                                                  : static_cast<float>(nearest);
        }
    }
    const double north = corners[0][0] + (corners[0][1] - corners[0][0]) * along;
    const double south = corners[1][0] + (corners[1][1] - corners[1][0]) * along;
    return static_cast<float>(north + (south - north) * down);
}

} // namespace

ElevationSource::ElevationSource(QObject* parent)
    : QObject(parent)
{
    m_worker.setMaxThreadCount(1);
}

ElevationSource::~ElevationSource()
{
    m_worker.clear();
    m_worker.waitForDone();
}

void ElevationSource::setPath(const QString& path)
{
    if (path == m_path)
        return;
    m_path = path;
    m_kept.clear();
    m_slots.clear();
    m_memory = 0;
    m_files.clear();
    refresh();
}

void ElevationSource::refresh()
{
    std::unordered_map<ElevationCell, File> found;
    if (!m_path.isEmpty()) {
        QDirIterator entries(m_path, QDir::Files);
        while (entries.hasNext()) {
            const QString path = entries.next();
            const auto cell = ElevationCell::ofFile(entries.fileName());
            // Prefer a plain file to a compressed one of the same cell: it is read faster.
            if (cell && (!found.contains(*cell) ||
                         path.endsWith(QLatin1String(".hgt"), Qt::CaseInsensitive)))
                found[*cell] =
                    File{path, -1, entries.fileInfo().size(), entries.fileInfo().lastModified()};
        }
    }
    bool isOther = false;
    for (auto& [cell, file] : found) {
        const auto known = m_files.find(cell);
        // A file that has changed may have become usable.
        if (known != m_files.end() && known->second.isSame(file))
            file.side = known->second.side;
        else
            isOther = true;
    }
    for (const auto& [cell, file] : m_files) {
        const auto now = found.find(cell);
        if (now != found.end() && now->second.isSame(file))
            continue;
        isOther = true;
        drop(cell);
    }
    m_files = std::move(found);
    if (isOther) {
        emit filesChanged();
        emit changed();
    }
}

ElevationSource::File* ElevationSource::usableFile(const ElevationCell& cell)
{
    const auto entry = m_files.find(cell);
    if (entry == m_files.end())
        return nullptr;
    File& file = entry->second;
    if (file.side < 0) {
        file.side = elevationSide(file.path).value_or(0);
        if (file.side == 0)
            emit message(tr("The elevation file cannot be used: %1")
                             .arg(QDir::toNativeSeparators(file.path)));
    }
    return file.side > 0 ? &file : nullptr;
}

int ElevationSource::dataZoom(const TileId& tile)
{
    if (m_files.empty() || !tile.isValid() || tile.zoom < minZoom)
        return 0;
    const double side = 1.0 / TileId::count(tile.zoom);
    const auto degree = [](double angle) { return static_cast<int>(std::floor(angle)); };
    const int west = degree(Mercator::longitude(tile.x * side));
    const int east = std::min(degree(Mercator::longitude((tile.x + 1) * side)), 179);
    const int south = degree(Mercator::latitude((tile.y + 1) * side));
    const int north = degree(Mercator::latitude(tile.y * side));
    int finest = 0;
    for (int latitude = south; latitude <= north; ++latitude) {
        for (int longitude = west; longitude <= east; ++longitude) {
            if (const File* file = usableFile({latitude, longitude}))
                finest = std::max(finest, file->side);
        }
    }
    return finest == 0 ? 0 : finest > 1201 ? 13 : 11;
}

/// The coarsest level whose samples are hardly farther apart than a pixel at the equator. It
/// depends on the zoom alone, so that neighbouring tiles use the same heights.
std::size_t ElevationSource::levelFor(int side, int zoom)
{
    const double spacing = Mercator::circumference / 360.0 / (side - 1);
    const double pixel = Mercator::circumference / tilePixels / TileId::count(zoom);
    std::size_t level = ElevationLevels::count - 1;
    while (level > 0 && spacing * ElevationLevels::steps[level] > 1.3 * pixel)
        --level;
    return level;
}

ElevationSource::State ElevationSource::sample(const TileId& tile, std::vector<float>& heights)
{
    if (m_files.empty() || !tile.isValid() || tile.zoom < minZoom)
        return State::None;
    const Axis rows = Axis::latitudes(tile);
    const Axis columns = Axis::longitudes(tile);
    State state = State::None;
    std::vector<std::shared_ptr<const HeightGrid>> grids;
    for (const Axis::Run& row : rows.runs) {
        for (const Axis::Run& column : columns.runs) {
            const ElevationCell cell{row.degree, column.degree};
            const File* const file = usableFile(cell);
            grids.push_back(file ? grid(cell, levelFor(file->side, tile.zoom)) : nullptr);
            if (file && !grids.back())
                state = State::Loading;
            else if (file && state == State::None)
                state = State::Ready;
        }
    }
    if (state != State::Ready)
        return state;

    heights.assign(std::size_t(gridSize) * gridSize, std::numeric_limits<float>::quiet_NaN());
    auto next = grids.begin();
    for (const Axis::Run& row : rows.runs) {
        for (const Axis::Run& column : columns.runs) {
            const auto& grid = *next++;
            if (!grid)
                continue;
            const double last = grid->side - 1;
            for (std::size_t i = row.from; i < row.to; ++i) {
                const double y = (1.0 - rows.fractions[i]) * last;
                for (std::size_t j = column.from; j < column.to; ++j)
                    heights[i * gridSize + j] = interpolated(*grid, y, columns.fractions[j] * last);
            }
        }
    }
    return State::Ready;
}

std::size_t ElevationSource::slot(const ElevationCell& cell, std::size_t level)
{
    return std::hash<ElevationCell>()(cell) * ElevationLevels::count + level;
}

std::shared_ptr<const HeightGrid> ElevationSource::grid(const ElevationCell& cell,
                                                        std::size_t level)
{
    const auto entry = m_slots.find(slot(cell, level));
    if (entry != m_slots.end()) {
        m_kept.splice(m_kept.begin(), m_kept, entry->second);
        return entry->second->grid;
    }
    // Only a few at a time, so that the most important are read first; the others will be asked
    // for again.
    if (m_loading.size() < maxLoading && m_loading.insert(slot(cell, level)).second)
        load(cell, level, m_files.at(cell));
    return nullptr;
}

void ElevationSource::load(const ElevationCell& cell, std::size_t level, const File& file)
{
    m_worker.start([this, cell, level, file] {
        auto levels = ElevationLevels::read(file.path);
        QMetaObject::invokeMethod(
            this, [=, this] { take(cell, level, file, levels); }, Qt::QueuedConnection);
    });
}

void ElevationSource::take(const ElevationCell& cell, std::size_t level, const File& read,
                           const std::optional<ElevationLevels>& levels)
{
    m_loading.erase(slot(cell, level));
    const auto file = m_files.find(cell);
    // A file that was replaced in the meantime will be asked for again.
    if (file != m_files.end() && file->second.isSame(read)) {
        if (levels) {
            // Coarser versions are small. Finer ones are read again when they are needed.
            for (std::size_t i = ElevationLevels::count; i-- > level;)
                keep(cell, i, levels->grids[i]);
            file->second.side = levels->grids[0]->side;
        } else {
            file->second.side = 0;
            emit message(tr("The elevation file cannot be used: %1")
                             .arg(QDir::toNativeSeparators(read.path)));
        }
    }
    emit changed();
}

void ElevationSource::drop(const ElevationCell& cell)
{
    for (std::size_t level = 0; level < ElevationLevels::count; ++level) {
        const auto entry = m_slots.find(slot(cell, level));
        if (entry == m_slots.end())
            continue;
        m_memory -= entry->second->grid->bytes();
        m_kept.erase(entry->second);
        m_slots.erase(entry);
    }
}

void ElevationSource::keep(const ElevationCell& cell, std::size_t level,
                           std::shared_ptr<const HeightGrid> grid)
{
    if (m_slots.contains(slot(cell, level)))
        return;
    m_memory += grid->bytes();
    m_kept.push_front({cell, level, std::move(grid)});
    m_slots[slot(cell, level)] = m_kept.begin();
    while (m_memory > m_memoryLimit && m_kept.size() > 1) {
        const Kept& oldest = m_kept.back();
        m_memory -= oldest.grid->bytes();
        m_slots.erase(slot(oldest.cell, oldest.level));
        m_kept.pop_back();
    }
}

} // namespace Tessa

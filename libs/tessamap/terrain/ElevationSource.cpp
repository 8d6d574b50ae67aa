#include "libs/tessamap/terrain/ElevationSource.h"

#include "libs/tessamap/globe/Mercator.h"
#include "libs/tessamap/terrain/TileSamples.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tessa {

namespace {

constexpr qsizetype maxLoading = 4;

/// The coarsest level whose samples are hardly farther apart than a pixel at the equator. It
/// depends on the zoom alone, so that neighbouring tiles use the same heights.
std::size_t levelFor(int side, int zoom)
{
    const double spacing = Mercator::circumference / 360.0 / (side - 1);
    const double pixel =
        Mercator::circumference / (ElevationSource::gridSize - 2) / TileId::count(zoom);
    std::size_t level = ElevationLevels::count - 1;
    while (level > 0 && spacing * ElevationLevels::steps[level] > 1.3 * pixel)
        --level;
    return level;
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
    m_heights.clear();
    m_files.clear();
    refresh();
}

ElevationSource::Files ElevationSource::filesIn(const QString& folder)
{
    Files found;
    if (folder.isEmpty())
        return found;
    QDirIterator entries(folder, QDir::Files);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const auto cell = ElevationCell::ofFile(entries.fileName());
        // Prefer a plain file to a compressed one of the same cell: it is read faster.
        if (cell &&
            (!found.contains(*cell) || path.endsWith(QLatin1String(".hgt"), Qt::CaseInsensitive)))
            found[*cell] =
                File{path, -1, entries.fileInfo().size(), entries.fileInfo().lastModified()};
    }
    return found;
}

void ElevationSource::refresh()
{
    Files found = filesIn(m_path);
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
        for (std::size_t level = 0; level < ElevationLevels::count; ++level)
            m_heights.remove({cell, level});
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
            tellUnusable(file);
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

ElevationSource::State ElevationSource::sample(const TileId& tile, std::vector<float>& heights)
{
    if (m_files.empty() || !tile.isValid() || tile.zoom < minZoom)
        return State::None;
    const TileSamples samples(tile);
    State state = State::None;
    std::vector<Grid> grids;
    for (const TileSamples::Block& block : samples.blocks()) {
        const File* const file = usableFile(block.cell);
        grids.push_back(file ? grid({block.cell, levelFor(file->side, tile.zoom)}) : nullptr);
        if (file && !grids.back())
            state = State::Loading;
        else if (file && state == State::None)
            state = State::Ready;
    }
    if (state != State::Ready)
        return state;

    heights.assign(std::size_t(gridSize) * gridSize, std::numeric_limits<float>::quiet_NaN());
    for (std::size_t i = 0; i < grids.size(); ++i) {
        if (grids[i])
            samples.fill(samples.blocks()[i], *grids[i], heights);
    }
    return State::Ready;
}

ElevationSource::Grid ElevationSource::grid(const GridId& id)
{
    if (const Grid* const known = m_heights.object(id))
        return *known;
    // Only a few at a time, so that the most important are read first; the others will be asked
    // for again.
    if (m_loading.size() < maxLoading && !m_loading.contains(id)) {
        m_loading.insert(id);
        load(id, m_files.at(id.cell));
    }
    return nullptr;
}

void ElevationSource::load(const GridId& id, const File& file)
{
    m_worker.start([this, id, file] {
        auto levels = ElevationLevels::read(file.path);
        QMetaObject::invokeMethod(
            this, [=, this] { take(id, file, levels); }, Qt::QueuedConnection);
    });
}

void ElevationSource::take(const GridId& id, const File& read,
                           const std::optional<ElevationLevels>& levels)
{
    m_loading.remove(id);
    const auto file = m_files.find(id.cell);
    // A file that was replaced in the meantime will be asked for again.
    if (file != m_files.end() && file->second.isSame(read)) {
        if (levels) {
            // Coarser versions are small. Finer ones are read again when they are needed.
            for (std::size_t i = ElevationLevels::count; i-- > id.level;)
                keep({id.cell, i}, levels->grids[i]);
            file->second.side = levels->grids[0]->side;
        } else {
            file->second.side = 0;
            tellUnusable(read);
        }
    }
    emit changed();
}

void ElevationSource::keep(const GridId& id, const Grid& grid)
{
    if (!m_heights.contains(id))
        m_heights.insert(id, new Grid(grid), static_cast<qsizetype>(grid->bytes()));
}

void ElevationSource::tellUnusable(const File& file)
{
    emit message(
        tr("The elevation file cannot be used: %1").arg(QDir::toNativeSeparators(file.path)));
}

} // namespace Tessa

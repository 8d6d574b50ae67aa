#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/terrain/ElevationFile.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QThreadPool>

#include <list>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Tessa {

/// Heights of the ground from the elevation files of a folder (docs/map.md), sampled for map tiles.
/// Files are read in a thread of their own and kept in memory up to a limit, the least recently
/// used going first; all else happens in the GUI thread and never waits.
class ElevationSource : public QObject
{
    Q_OBJECT

public:
    enum class State {
        None,    ///< no file covers any of the tile
        Loading, ///< changed() will tell
        Ready,
    };

    /// Samples along a tile's side, one beyond the tile on each.
    static constexpr int gridSize = 258;
    /// Below, a view would need thousands of files.
    static constexpr int minZoom = 5;

    explicit ElevationSource(QObject* parent = nullptr);
    ~ElevationSource() override;

    void setPath(const QString& path);

    /// Looks for files anew, as when the user has added some; what was read of those that are still
    /// the same is kept.
    void refresh();

    bool isEmpty() const { return m_files.empty(); }

    /// The deepest zoom at which the data of this tile show something new: 11 for samples every 3
    /// seconds of arc, 13 for every second; 0 where there are none.
    int dataZoom(const TileId& tile);

    /// Fills in gridSize by gridSize heights in metres in the middles of the tile's pixels, NaN
    /// where they are missing, from north to south; neighbouring tiles have the same heights where
    /// they overlap. `heights` is left alone unless the result is Ready.
    State sample(const TileId& tile, std::vector<float>& heights);

    void setMemoryLimit(std::size_t bytes) { m_memoryLimit = bytes; }

signals:
    /// A file that was waited for has come, or turned out to be of no use.
    void changed();

    /// Other files than before cover the earth.
    void filesChanged();

    /// For the user, once for each file that cannot be used.
    void message(const QString& text);

private:
    struct File
    {
        QString path;
        int side = -1; ///< 0 for files that cannot be used, -1 before the first look
        qint64 bytes = 0;
        QDateTime changed;

        bool isSame(const File& other) const
        {
            return path == other.path && bytes == other.bytes && changed == other.changed;
        }
    };

    struct Kept
    {
        ElevationCell cell;
        std::size_t level;
        std::shared_ptr<const HeightGrid> grid;
    };
    struct Axis;

    static std::size_t levelFor(int side, int zoom);
    static std::size_t slot(const ElevationCell& cell, std::size_t level);
    File* usableFile(const ElevationCell& cell);
    std::shared_ptr<const HeightGrid> grid(const ElevationCell& cell, std::size_t level);
    void load(const ElevationCell& cell, std::size_t level, const File& file);
    void drop(const ElevationCell& cell);
    void take(const ElevationCell& cell, std::size_t level, const File& read,
              const std::optional<ElevationLevels>& levels);
    void keep(const ElevationCell& cell, std::size_t level, std::shared_ptr<const HeightGrid> grid);

    QString m_path;
    std::unordered_map<ElevationCell, File> m_files;
    std::list<Kept> m_kept; ///< most recently used first
    std::unordered_map<std::size_t, std::list<Kept>::iterator> m_slots;
    std::unordered_set<std::size_t> m_loading;
    std::size_t m_memory = 0;
    std::size_t m_memoryLimit = std::size_t(192) << 20;
    QThreadPool m_worker;
};

} // namespace Tessa

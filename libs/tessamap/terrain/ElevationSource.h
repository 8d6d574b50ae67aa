#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/terrain/TileSamples.h"

#include <QCache>
#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QString>
#include <QThreadPool>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Tessa {

/// Ground heights from the elevation files of a folder (docs/map.md), sampled for map tiles.
/// Files are read in a thread of their own and kept in memory up to a limit; the least recently
/// used are dropped first. Everything else happens in the GUI thread and never waits.
class ElevationSource : public QObject
{
    Q_OBJECT

public:
    enum class State {
        None,    ///< no file covers any part of the tile
        Loading, ///< changed() is sent when it is worth asking again
        Ready,
    };

    /// Samples along a tile's side: its 256 pixels and one more at each end.
    static constexpr int gridSize = TileSamples::side;
    /// At lower zooms a view would need thousands of files.
    static constexpr int minZoom = 5;

    explicit ElevationSource(QObject* parent = nullptr);
    ~ElevationSource() override;

    void setPath(const QString& path);

    /// Looks for new, changed and removed files. Heights from unchanged files are kept.
    void refresh();

    bool isEmpty() const { return m_files.empty(); }

    /// The deepest zoom at which the data of this tile add detail: 11 for samples every 3 seconds
    /// of arc, 13 for every second; 0 without data.
    int dataZoom(const TileId& tile);

    /// Fills in gridSize by gridSize heights in metres at the centres of the tile's pixels, NaN
    /// where missing, rows from north to south. Neighbouring tiles get the same heights where they
    /// overlap. `heights` is left unchanged unless the result is Ready.
    State sample(const TileId& tile, std::vector<float>& heights);

    void setMemoryLimit(qsizetype bytes) { m_heights.setMaxCost(bytes); }

signals:
    /// A file has been read or found unusable, or the files have changed.
    void changed();

    /// Files have been added, changed or removed.
    void filesChanged();

    /// For the user, once per file that cannot be used.
    void message(const QString& text);

private:
    struct File
    {
        QString path;
        int side = -1; ///< samples along an edge; 0: cannot be used, -1: not yet known
        qint64 bytes = 0;
        QDateTime changed;

        bool isSame(const File& other) const
        {
            return path == other.path && bytes == other.bytes && changed == other.changed;
        }
    };

    using Files = std::unordered_map<ElevationCell, File>;
    using Grid = std::shared_ptr<const HeightGrid>;

    /// One of the levels of an elevation file (ElevationLevels).
    struct GridId
    {
        ElevationCell cell;
        std::size_t level = 0;

        friend bool operator==(const GridId&, const GridId&) = default;

        friend std::size_t qHash(const GridId& id, std::size_t seed = 0)
        {
            return ::qHash(std::hash<ElevationCell>()(id.cell) * ElevationLevels::count + id.level,
                           seed);
        }
    };

    static Files filesIn(const QString& folder);
    File* usableFile(const ElevationCell& cell);
    void tellUnusable(const File& file);
    Grid grid(const GridId& id);
    void load(const GridId& id, const File& file);
    void keep(const GridId& id, const Grid& grid);
    void take(const GridId& id, const File& read, const std::optional<ElevationLevels>& levels);

    QString m_path;
    Files m_files;
    QCache<GridId, Grid> m_heights{qsizetype(192) << 20}; ///< limited by their bytes
    QSet<GridId> m_loading;
    QThreadPool m_worker;
};

} // namespace Tessa

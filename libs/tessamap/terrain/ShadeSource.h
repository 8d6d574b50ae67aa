#pragma once

#include "libs/tessamap/globe/TileId.h"
#include "libs/tessamap/terrain/HillShade.h"

#include <QImage>
#include <QObject>

#include <optional>
#include <span>
#include <vector>

namespace Tessa {

class ElevationSource;

/// Bakes hill shade into tiles, in the order of their importance; used like TileSource:
///
///     for each tile in view
///         if (const auto id = shades.shadeTile(tile); id && !hasShade(*id, shades.revision()))
///             missing.push_back(*id);
///     shades.setWanted(missing);
///     while (hasTime())
///         if (const auto shade = shades.takeNext()) upload(*shade); else break;
///
/// When revision() has moved on, all shades taken before are out of date; they may be shown until
/// the new ones have come.
class ShadeSource : public QObject
{
    Q_OBJECT

public:
    struct Shade
    {
        TileId id;
        QImage image; ///< 256 pixels square, Format_Grayscale8, 128 neutral
    };

    /// `elevation` must live longer.
    explicit ShadeSource(ElevationSource& elevation, QObject* parent = nullptr);

    void setShading(const Shading& shading);

    /// Moves on with the light and with the files.
    int revision() const { return m_revision; }

    /// Whose shade belongs on this tile: its own, or that of the ancestor at the zoom where the
    /// data end, to be stretched; std::nullopt where there is no terrain.
    std::optional<TileId> shadeTile(const TileId& tile) const;

    /// Shades that the caller lacks, most important first; replaces the former list.
    void setWanted(std::span<const TileId> byPriority);

    /// The most important shade that can be baked now; one baking per call (docs/map.md has the
    /// time). What waits for its files comes in a later call.
    std::optional<Shade> takeNext();

    /// Wanted shades that wait for their files or for takeNext().
    int loadingCount() const { return static_cast<int>(m_wanted.size()); }

signals:
    /// There may be something to take.
    void changed();

private:
    ElevationSource& m_elevation;
    Shading m_shading;
    int m_revision = 0;
    std::vector<TileId> m_wanted;
    std::vector<float> m_heights;
};

} // namespace Tessa

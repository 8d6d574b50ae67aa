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

/// Bakes hill shade into tiles, most important first. Used like TileSource:
///
///     for each tile in view
///         if (const auto id = shades.shadeTile(tile); id && !hasShade(*id, shades.revision()))
///             missing.push_back(*id);
///     shades.setWanted(missing);
///     while (hasTime())
///         if (const auto shade = shades.takeNext()) upload(*shade); else break;
///
/// When revision() changes, all shades taken before are out of date; they may be shown until the
/// new ones are ready.
class ShadeSource : public QObject
{
    Q_OBJECT

public:
    struct Shade
    {
        TileId id;
        QImage image; ///< 256 pixels square; see hillShade()
    };

    /// `elevation` must outlive this.
    explicit ShadeSource(ElevationSource& elevation, QObject* parent = nullptr);

    void setShading(const Shading& shading);

    /// Increases when the shading or the files change.
    int revision() const { return m_revision; }

    /// The tile whose shade covers this one: itself, or its ancestor at the deepest zoom of the
    /// data, whose shade is magnified. std::nullopt without terrain.
    std::optional<TileId> shadeTile(const TileId& tile) const;

    /// The shades that the caller lacks, most important first. Replaces the former list.
    void setWanted(std::span<const TileId> byPriority);

    /// Bakes the most important wanted shade whose files have been read (times: docs/map.md);
    /// std::nullopt when there is none at the moment.
    std::optional<Shade> takeNext();

    /// Wanted shades that have not been taken.
    int loadingCount() const { return static_cast<int>(m_wanted.size()); }

signals:
    /// takeNext() may have something.
    void changed();

private:
    ElevationSource& m_elevation;
    Shading m_shading;
    int m_revision = 0;
    std::vector<TileId> m_wanted;
    std::vector<float> m_heights;
};

} // namespace Tessa

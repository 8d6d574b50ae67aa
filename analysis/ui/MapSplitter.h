#pragma once

#include <QSplitter>

namespace KOLT {

/// Divides the data window between the pages and the map.
class MapSplitter : public QSplitter
{
public:
    enum MapType { hideMap, mapBeside, mapBelow };

    using QSplitter::QSplitter;

    /// A shown map keeps its size, or gets half of the room if either part has none.
    void arrange(MapType type)
    {
        if (type == hideMap) {
            setSizes({100, 0});
            return;
        }
        setOrientation(type == mapBeside ? Qt::Horizontal : Qt::Vertical);
        const QList<int> before = sizes();
        if (before.contains(0)) {
            const int half = (before[0] + before[1]) / 2;
            setSizes({half, half});
        }
    }
};

} // namespace KOLT

#pragma once

#include <QSplitter>

namespace KOLT {

/// Divides the data window between the pages and the map.
class MapSplitter : public QSplitter
{
public:
    enum MapType { hideMap, mapBeside, mapBelow };

    using QSplitter::QSplitter;

    bool isMapShown() const { return sizes().last() > 0; }

    /// Empty sizes stand for the first ones.
    void restore(MapType type, const QList<int>& sizes)
    {
        setOrientation(type == mapBelow ? Qt::Vertical : Qt::Horizontal);
        setSizes(type == hideMap   ? QList<int>{100, 0}
                 : sizes.isEmpty() ? QList<int>{200, 300}
                                   : sizes);
    }

    /// A shown map keeps its size, or gets half of the room if either part has none.
    void arrange(MapType type)
    {
        if (type == hideMap) {
            setSizes({100, 0});
            return;
        }
        // Read before the axis changes: along the other one a hidden map has a size.
        const QList<int> before = sizes();
        setOrientation(type == mapBeside ? Qt::Horizontal : Qt::Vertical);
        const int half = (before[0] + before[1]) / 2;
        setSizes(before.contains(0) ? QList<int>{half, half} : before);
    }
};

} // namespace KOLT

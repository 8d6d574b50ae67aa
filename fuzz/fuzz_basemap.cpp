// Reads arbitrary bytes as a base map, and as the uncompressed content of one, which mutations of
// compressed data never reach. All coordinates must be finite, and rings stay within their clip.

#include "fuzz/FuzzFile.h"
#include "libs/tessamap/basemap/BaseMapData.h"

#include <cmath>

using namespace Tessa;

namespace {

void checkLines(const std::vector<BaseMapData::Line>& lines)
{
    const QRectF tile(0.25, 0.25, 0.25, 0.25);
    const QRectF roomy = tile.adjusted(-1e-9, -1e-9, 1e-9, 1e-9);
    for (const BaseMapData::Line& line : lines) {
        if (line.points.size() < 2)
            std::abort();
        for (const QPointF& point : line.points) {
            if (!std::isfinite(point.x()) || !std::isfinite(point.y()))
                std::abort();
        }
        for (const QPointF& point : clippedRing(line.points, tile)) {
            if (!roomy.contains(point))
                std::abort();
        }
    }
}

void check(const QByteArray& content)
{
    const std::optional<BaseMapData> map = BaseMapData::read(content);
    if (!map)
        return;
    for (const BaseMapData::Layer* layer : {&map->coarse, &map->fine}) {
        checkLines(layer->land);
        checkLines(layer->borders);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    check(bytes);
    check(qCompress(bytes, 1));
    return 0;
}

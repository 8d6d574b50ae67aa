#include "libs/tessamap/basemap/BaseMapData.h"

#include "libs/tessamap/globe/Mercator.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <utility>

// The macro must not be used in a namespace.
static void initResource()
{
    Q_INIT_RESOURCE(basemap);
}

namespace Tessa {

namespace {

constexpr double degreesPerStep = 360.0 / 100000.0;
constexpr double lastLatitude = 89.0;
constexpr std::uint32_t maxPoints = 1000000;

/// Reads numbers. Beyond the end of the data all are 0 and hasFailed() is true.
class Reader
{
public:
    explicit Reader(const QByteArray& data)
        : m_data(data)
    {
    }

    bool hasFailed() const { return m_hasFailed; }

    bool skip(const QByteArray& magic)
    {
        m_position = magic.size();
        return m_data.startsWith(magic);
    }

    std::uint8_t byte()
    {
        if (m_position >= m_data.size()) {
            m_hasFailed = true;
            return 0;
        }
        return static_cast<std::uint8_t>(m_data[m_position++]);
    }

    std::uint32_t count()
    {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8 | byte();
        if (value > maxPoints)
            m_hasFailed = true;
        return m_hasFailed ? 0 : value;
    }

    std::int32_t signedNumber()
    {
        std::uint32_t value = 0;
        for (unsigned shift = 0; shift < 32; shift += 7) {
            const std::uint8_t part = byte();
            value |= static_cast<std::uint32_t>(part & 127u) << shift;
            if (part < 128)
                return static_cast<std::int32_t>(value >> 1) ^
                       -static_cast<std::int32_t>(value & 1);
        }
        m_hasFailed = true;
        return 0;
    }

private:
    const QByteArray& m_data;
    qsizetype m_position = 0;
    bool m_hasFailed = false;
};

QRectF boundsOf(const std::vector<QPointF>& points)
{
    QPointF low = points.front();
    QPointF high = points.front();
    for (const QPointF& point : points) {
        low = {std::min(low.x(), point.x()), std::min(low.y(), point.y())};
        high = {std::max(high.x(), point.x()), std::max(high.y(), point.y())};
    }
    return QRectF(low, high);
}

std::vector<BaseMapData::Line> readLines(Reader& reader)
{
    std::vector<BaseMapData::Line> lines;
    for (std::uint32_t left = reader.count(); left > 0 && !reader.hasFailed(); --left) {
        BaseMapData::Line line;
        const std::uint8_t flags = reader.byte();
        line.isPolar = (flags & 1u) != 0;
        line.isIce = (flags & 2u) != 0;
        double x = 0.0;
        double y = 0.0;
        for (std::uint32_t points = reader.count(); points > 0 && !reader.hasFailed(); --points) {
            x += reader.signedNumber();
            y += reader.signedNumber();
            const double latitude = std::clamp(y * degreesPerStep, -lastLatitude, lastLatitude);
            line.points.emplace_back(Mercator::x(x * degreesPerStep), Mercator::y(latitude));
        }
        if (line.points.size() < 2)
            continue;
        line.bounds = boundsOf(line.points);
        if (line.isPolar)
            line.bounds.setBottom(Mercator::y(-lastLatitude));
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace

std::optional<BaseMapData> BaseMapData::read(const QByteArray& content)
{
    // qUncompress() allocates the length noted in front of the data: check it first.
    if (content.size() < 4 || qFromBigEndian<quint32>(content.constData()) > 16u * maxPoints)
        return std::nullopt;
    const QByteArray raw = qUncompress(content);
    Reader reader(raw);
    if (!reader.skip("TWM1"))
        return std::nullopt;
    BaseMapData data;
    for (Layer* layer : {&data.coarse, &data.fine}) {
        layer->land = readLines(reader);
        layer->borders = readLines(reader);
    }
    return reader.hasFailed() ? std::nullopt : std::optional(std::move(data));
}

BaseMapData BaseMapData::embedded()
{
    initResource();
    QFile file(QStringLiteral(":/tessamap/world.bin"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return read(file.readAll()).value_or(BaseMapData{});
}

namespace {

/// One step of Sutherland-Hodgman clipping: the part of the ring on the inner side of one line.
template <typename Inside, typename Cross>
void clipSide(const std::vector<QPointF>& ring, std::vector<QPointF>& result, Inside isInside,
              Cross crossing)
{
    result.clear();
    if (ring.empty())
        return;
    QPointF last = ring.back();
    bool wasInside = isInside(last);
    for (const QPointF& point : ring) {
        const bool isNowInside = isInside(point);
        if (isNowInside != wasInside)
            result.push_back(crossing(last, point));
        if (isNowInside)
            result.push_back(point);
        last = point;
        wasInside = isNowInside;
    }
}

QPointF atX(const QPointF& a, const QPointF& b, double x)
{
    return {x, a.y() + (b.y() - a.y()) * (x - a.x()) / (b.x() - a.x())};
}

QPointF atY(const QPointF& a, const QPointF& b, double y)
{
    return {a.x() + (b.x() - a.x()) * (y - a.y()) / (b.y() - a.y()), y};
}

} // namespace

std::vector<QPointF> clippedRing(const std::vector<QPointF>& ring, const QRectF& to)
{
    std::vector<QPointF> a;
    std::vector<QPointF> b;
    const double left = to.left();
    const double right = to.right();
    const double top = to.top();
    const double bottom = to.bottom();
    clipSide(
        ring, a, [=](const QPointF& p) { return p.x() >= left; },
        [=](const QPointF& p, const QPointF& q) { return atX(p, q, left); });
    clipSide(
        a, b, [=](const QPointF& p) { return p.x() <= right; },
        [=](const QPointF& p, const QPointF& q) { return atX(p, q, right); });
    clipSide(
        b, a, [=](const QPointF& p) { return p.y() >= top; },
        [=](const QPointF& p, const QPointF& q) { return atY(p, q, top); });
    clipSide(
        a, b, [=](const QPointF& p) { return p.y() <= bottom; },
        [=](const QPointF& p, const QPointF& q) { return atY(p, q, bottom); });
    return b;
}

} // namespace Tessa

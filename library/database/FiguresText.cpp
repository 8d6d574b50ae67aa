#include "library/database/FiguresText.h"

#include <QDataStream>
#include <QIODevice>

#include <type_traits>

namespace KOLT::Library {

namespace {

/// Writes or reads: the same functions describe the order of both.
class Writer
{
public:
    explicit Writer(QByteArray& bytes)
        : m_stream(&bytes, QIODevice::WriteOnly)
    {
    }

    template <typename T>
    void value(const T& value)
    {
        if constexpr (std::is_enum_v<T>)
            m_stream << static_cast<qint32>(value);
        else if constexpr (std::is_same_v<T, std::size_t>)
            m_stream << static_cast<quint64>(value);
        else
            m_stream << value;
    }

    template <typename T, typename Each>
    void optional(const std::optional<T>& value, Each&& each)
    {
        m_stream << value.has_value();
        if (value)
            each(*value);
    }

    template <typename List, typename Each>
    void list(const List& list, Each&& each)
    {
        m_stream << static_cast<quint64>(list.size());
        for (const auto& one : list)
            each(one);
    }

private:
    QDataStream m_stream;
};

class Reader
{
public:
    explicit Reader(const QByteArray& bytes)
        : m_stream(bytes)
    {
    }

    bool isWhole() const { return m_stream.status() == QDataStream::Ok && m_stream.atEnd(); }

    template <typename T>
    void value(T& value)
    {
        if constexpr (std::is_enum_v<T>) {
            qint32 number = 0;
            m_stream >> number;
            value = static_cast<T>(number);
        } else if constexpr (std::is_same_v<T, std::size_t>) {
            quint64 number = 0;
            m_stream >> number;
            value = number;
        } else {
            m_stream >> value;
        }
    }

    template <typename T, typename Each>
    void optional(std::optional<T>& value, Each&& each)
    {
        bool isThere = false;
        m_stream >> isThere;
        if (isThere)
            each(value.emplace());
    }

    template <typename List, typename Each>
    void list(List& list, Each&& each)
    {
        quint64 size = 0;
        m_stream >> size;
        for (quint64 i = 0; i < size && m_stream.status() == QDataStream::Ok; ++i)
            each(list.emplace_back());
    }

private:
    QDataStream m_stream;
};

template <typename Stream>
auto number(Stream& stream)
{
    return [&stream](auto& value) { stream.value(value); };
}

template <typename Stream, typename... Values>
void all(Stream& stream, Values&... values)
{
    (stream.value(values), ...);
}

template <typename Stream, typename Cycle>
void cycle(Stream& s, Cycle& c)
{
    all(s, c.folder, c.unit, c.engine, c.engineType, c.ecuType, c.dateTime);
    s.list(c.files, [&](auto& file) { all(s, file.name, file.sha256, file.bytes); });
}

template <typename Stream, typename Counts>
void counts(Stream& s, Counts& c)
{
    all(s, c.limits.episodes, c.limits.crossings, c.warnings.episodes, c.warnings.crossings,
        c.lamps.episodes, c.lamps.crossings);
}

template <typename Stream, typename Flight>
void flight(Stream& s, Flight& f)
{
    all(s, f.dateTime, f.startSeconds, f.endSeconds, f.takeOffSeconds, f.landingSeconds,
        f.statisticsValid, f.minAltitude, f.maxAltitude, f.altitudeGain, f.climbRate, f.descentRate,
        f.maxGroundSpeed, f.fuelA, f.fuelB, f.fuel, f.timePer100m, f.fuelPer100m, f.takeOffDistance,
        f.takeOffDistance15m);
}

template <typename Stream, typename Episode>
void episode(Stream& s, Episode& e)
{
    all(s, e.quantity, e.parameters, e.state, e.isLampOnly, e.isHigh, e.begin, e.end, e.isCut,
        e.crossings, e.secondsBeyondWarning, e.secondsBeyondLimit, e.peakParameter, e.phase);
    s.optional(e.peak, number(s));
    s.optional(e.peakSeconds, number(s));
    s.optional(e.engineSpeed, number(s));
    s.optional(e.flight, number(s));
}

template <typename Stream, typename Figures>
void figures(Stream& s, Figures& f)
{
    const auto counter = [&](auto& span) { all(s, span.first, span.last); };
    all(s, f.startSeconds, f.stopSeconds, f.recordedSeconds, f.runSeconds, f.starts, f.fuel,
        f.trackPoints, f.episodesLeftOut, f.unreadFiles);
    counts(s, f.outside);
    s.optional(f.unitHours, counter);
    s.optional(f.unitStarts, counter);
    s.list(f.flights, [&](auto& one) {
        flight(s, one.flight);
        all(s, one.marked, one.airSeconds);
        counts(s, one.counts);
    });
    s.list(f.episodes, [&](auto& one) { episode(s, one); });
    s.list(f.faults, [&](auto& one) {
        all(s, one.parameter, one.begin, one.end, one.isCut);
        s.optional(one.flight, number(s));
    });
    s.list(f.findings, [&](auto& one) {
        all(s, one.kind, one.severity, one.files, one.text);
        s.optional(one.from, number(s));
        s.optional(one.to, number(s));
    });
    s.list(f.bands, [&](auto& one) { all(s, one.quantity, one.state, one.seconds); });
}

} // namespace

QByteArray lineOf(const ArchivedCycle& archived)
{
    QByteArray bytes;
    Writer writer(bytes);
    cycle(writer, archived);
    return bytes.toBase64();
}

QByteArray lineOf(const FoundFigures& found)
{
    QByteArray bytes;
    Writer writer(bytes);
    writer.value(found.folder);
    writer.value(found.error);
    writer.optional(found.figures, [&](const CycleFigures& all) { figures(writer, all); });
    return bytes.toBase64();
}

std::optional<ArchivedCycle> cycleFrom(const QByteArray& line)
{
    Reader reader(QByteArray::fromBase64(line));
    ArchivedCycle archived;
    cycle(reader, archived);
    if (!reader.isWhole())
        return {};
    return archived;
}

std::optional<FoundFigures> figuresFrom(const QByteArray& line)
{
    Reader reader(QByteArray::fromBase64(line));
    FoundFigures found;
    reader.value(found.folder);
    reader.value(found.error);
    reader.optional(found.figures, [&](CycleFigures& all) { figures(reader, all); });
    if (!reader.isWhole())
        return {};
    return found;
}

} // namespace KOLT::Library

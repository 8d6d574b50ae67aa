#pragma once

#include "export/CsvWriter.h"
#include "export/GpxWriter.h"
#include "export/KmlWriter.h"
#include "tests/support/RecordingFixture.h"

#include <QBuffer>
#include <QProcess>

#include <functional>

/// Helpers shared by the tests of the exports.
namespace KOLT::Test {

constexpr int position = 1; // message identifiers
constexpr int altitude = 2;
constexpr int gauge = 3;
constexpr int lamp = 4;

/// The output of a system program, empty if it fails.
inline QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// A profile, a recording, and the documents written from them (empty if writing fails).
class ExportFixture
{
protected:
    bool load()
    {
        newRecording(10.0);
        return loadProfile(
            m_profile,
            unit("unitMetric='m' unitImperial='ft' factor='2' offset='0'") +
                "<EnumList><Enum name='E'><Value val='0' label='off; \"no\"&#10;, x'/>"
                "<Value val='1' label='&lt;on&gt; &amp; hot'/></Enum></EnumList>" +
                threshold("T", {"val='100' color='red' state='LIMIT'"}) +
                threshold("L", {"val='1' color='red' state='WARNING'"}) +
                device({"name='Lat' id='1' dataType='FLOAT' koltDataType='Latitude'",
                        "name='Lon' id='1' startByte='4' dataType='FLOAT' koltDataType='Longitude'",
                        "name='Alt' id='2' dataType='FLOAT' koltDataType='Altitude' precision='1' "
                        "unitMetric='m' unitImperial='ft'",
                        "name='Speed' id='2' startByte='4' dataType='FLOAT' precision='0' "
                        "koltDataType='GroundSpeed' unitMetric='km/h'",
                        "name='Gauge; &lt;1&gt;' id='3' dataType='FLOAT' precision='0' "
                        "thresholdId='T'",
                        "name='Lamp' id='4' dataType='BLONG' startBit='0' endBit='0' enumId='E' "
                        "thresholdId='L' koltDataType='WarningLamp'",
                        "name='Big' id='4' startByte='4' dataType='ULONG' precision='2'"}));
    }

    void newRecording(double stop)
    {
        m_dataSet = std::make_unique<DataSet>();
        m_dataSet->dateTime = QDateTime(QDate(2026, 7, 28), QTime(23, 59, 55), Qt::UTC);
        m_dataSet->stopSeconds = stop;
    }

    void add(int id, double seconds, const MessageData& data = {})
    {
        KOLT::Test::add(m_dataSet->messages, static_cast<std::uint32_t>(id), seconds, data);
    }

    /// Adds a flight east along 48.5 degrees, with a position every 0.5 s and 0.01 minutes.
    void fly(double from, double to)
    {
        for (double t = from; t <= to; t += 0.5) {
            add(position, t, floats(4830.0F, static_cast<float>(1100 + t / 50)));
            add(altitude, t, floats(static_cast<float>(400 + t), 120.0F));
        }
        m_dataSet->stopSeconds = to;
        m_dataSet->track = buildTrack(m_profile, m_dataSet->messages);
    }

    Flight flight(double start, double takeOff, double landing, double end) const
    {
        Flight result;
        result.dateTime = m_dataSet->dateTime.addSecs(static_cast<qint64>(takeOff));
        result.startSeconds = start;
        result.takeOffSeconds = takeOff;
        result.landingSeconds = landing;
        result.endSeconds = end;
        return result;
    }

    static QByteArray written(const std::function<ExportStatus(QIODevice&)>& writer)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        return writer(buffer) == ExportStatus::Done ? buffer.data() : QByteArray();
    }

    QByteArray csv(const CsvOptions& options) const
    {
        return written(
            [&](QIODevice& to) { return CsvWriter(m_profile, *m_dataSet, options).write(to); });
    }

    QByteArray kml(const KmlOptions& options, const QString& title = "T") const
    {
        return written(
            [&](QIODevice& to) { return writeKml(to, m_profile, *m_dataSet, options, title); });
    }

    QByteArray gpx(const QString& title = "T", const GpxOptions& options = {}) const
    {
        return written(
            [&](QIODevice& to) { return writeGpx(to, m_profile, *m_dataSet, options, title); });
    }

    QTemporaryDir m_directory;
    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
};

} // namespace KOLT::Test

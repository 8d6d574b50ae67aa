#include "export/CsvWriter.h"
#include "export/ExportFile.h"
#include "export/ExportName.h"
#include "export/FlightPath.h"
#include "export/GpxWriter.h"
#include "export/KmlWriter.h"
#include "export/NumberText.h"
#include "profile/ValueDecoder.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/TestFiles.h"

#include <QBuffer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <array>
#include <bit>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <limits>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

constexpr int position = 1;
constexpr int altitude = 2;
constexpr int gauge = 3;
constexpr int lamp = 4;

/// What a program of the system prints, empty when it fails.
QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// All numbers of the line after the n-th of such texts. Positions come from single precision.
QList<double> numbersAfter(const QString& read, const QString& text, int index = 0)
{
    static const QRegularExpression separators(QStringLiteral("[ ,()]+"));
    QList<double> numbers;
    for (const QString& word :
         read.section(text, index + 1, index + 1).section('\n', 0, 0).split(separators)) {
        bool ok = false;
        const double number = word.toDouble(&ok);
        if (ok)
            numbers << number;
    }
    return numbers;
}

bool isNear(const QList<double>& numbers, std::initializer_list<double> expected)
{
    constexpr double ulp = 3e-6;
    return numbers.size() >= static_cast<qsizetype>(expected.size()) &&
           std::equal(expected.begin(), expected.end(), numbers.begin(),
                      [](double a, double b) { return std::abs(a - b) <= ulp; });
}

/// Takes some bytes, then is full.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 capacity)
        : m_left(capacity)
    {
        open(QIODevice::WriteOnly);
    }

    qint64 largestWrite() const { return m_largest; }

protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char*, qint64 size) override
    {
        m_largest = std::max(m_largest, size);
        if (size > m_left)
            return -1;
        m_left -= size;
        return size;
    }

private:
    qint64 m_left;
    qint64 m_largest = 0;
};

} // namespace

/// Exports are read back by the readers of others: Python's csv module, and GDAL's of KML and GPX.
class TestExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void numbersAsPrintf();
    void csvToTheByte();
    void csvReadByPython_data();
    void csvReadByPython();
    void csvBounds();
    void csvSpan_data();
    void csvSpan();
    void kmlReadByGdal_data();
    void kmlReadByGdal();
    void kmlStylesAndMarks();
    void kmlDescriptions();
    void gpxReadByGdal();
    void oddPaths();
    void beforeTheFirstFix();
    void sections();
    void hostileTexts();
    void formerFileStays_data();
    void formerFileStays();
    void pipesAreLeftAlone();
    void namesAndFolders();
    void settingsAreBounded();

private:
    void fly(double from, double to);
    std::unique_ptr<DataSet> emptySet(double stop) const;
    Flight flight(double start, double takeOff, double landing, double end) const;
    QByteArray csv(const CsvOptions& options) const;
    QByteArray kml(const KmlOptions& options, const QString& title = "T");
    QByteArray gpx(const QString& title = "T");
    QString readByGdal(const QByteArray& content, const QString& suffix) const;

    QTemporaryDir m_directory;
    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
};

void TestExport::init()
{
    QVERIFY(loadProfile(
        m_profile,
        "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='2' offset='0'/>"
        "</UnitConversions><EnumList><Enum name='E'><Value val='0' label='off; \"no\"&#10;, x'/>"
        "<Value val='1' label='&lt;on&gt; &amp; hot'/></Enum></EnumList><ThresholdList>"
        "<Threshold name='T'><Value val='100' color='red' state='LIMIT'/></Threshold>"
        "<Threshold name='L'><Value val='1' color='red' state='WARNING'/></Threshold>"
        "</ThresholdList>" +
            device({"name='Lat' id='1' dataType='FLOAT' koltDataType='Latitude'",
                    "name='Lon' id='1' startByte='4' dataType='FLOAT' koltDataType='Longitude'",
                    "name='Alt' id='2' dataType='FLOAT' koltDataType='Altitude' precision='1' "
                    "unitMetric='m' unitImperial='ft'",
                    "name='Speed' id='2' startByte='4' dataType='FLOAT' koltDataType='GroundSpeed' "
                    "unitMetric='km/h' precision='0'",
                    "name='Gauge; &lt;1&gt;' id='3' dataType='FLOAT' precision='0' thresholdId='T'",
                    "name='Lamp' id='4' dataType='BLONG' startBit='0' endBit='0' enumId='E' "
                    "thresholdId='L' koltDataType='WarningLamp'",
                    "name='Big' id='4' startByte='4' dataType='ULONG' precision='2'"})));
    m_dataSet = emptySet(10.0);
}

std::unique_ptr<DataSet> TestExport::emptySet(double stop) const
{
    auto dataSet = std::make_unique<DataSet>();
    dataSet->dateTime = QDateTime(QDate(2026, 7, 28), QTime(23, 59, 55), Qt::UTC);
    dataSet->stopSeconds = stop;
    return dataSet;
}

/// East along 48.5 degrees, a position each half second, 0.01 minutes apart.
void TestExport::fly(double from, double to)
{
    for (double t = from; t <= to; t += 0.5) {
        add(m_dataSet->messages, position, t, floats(4830.0F, static_cast<float>(1100 + t / 50)));
        add(m_dataSet->messages, altitude, t, floats(static_cast<float>(400 + t), 120.0F));
    }
    m_dataSet->stopSeconds = to;
    m_dataSet->track = buildTrack(m_profile, m_dataSet->messages);
}

Flight TestExport::flight(double start, double takeOff, double landing, double end) const
{
    Flight result;
    result.dateTime = m_dataSet->dateTime.addSecs(static_cast<qint64>(takeOff));
    result.startSeconds = start;
    result.takeOffSeconds = takeOff;
    result.landingSeconds = landing;
    result.endSeconds = end;
    return result;
}

QByteArray TestExport::csv(const CsvOptions& options) const
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const CsvWriter writer(m_profile, *m_dataSet, options);
    return writer.write(buffer) == ExportStatus::Done ? buffer.data() : QByteArray();
}

QByteArray TestExport::kml(const KmlOptions& options, const QString& title)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeKml(buffer, m_profile, *m_dataSet, options, title) == ExportStatus::Done
               ? buffer.data()
               : QByteArray();
}

QByteArray TestExport::gpx(const QString& title)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeGpx(buffer, *m_dataSet, title) == ExportStatus::Done ? buffer.data() : QByteArray();
}

QString TestExport::readByGdal(const QByteArray& content, const QString& suffix) const
{
    const QString path = m_directory.filePath("read." + suffix);
    return writeFile(path, content) ? outputOf("ogrinfo", {"-ro", "-al", path}) : QString();
}

void TestExport::numbersAsPrintf()
{
    std::mt19937_64 random(3);
    std::vector<double> numbers{
        0.0, -0.0,          0.5,    -0.5,   1.5, 2.5,   0.125,
        1e9, 999'999'999.5, -1e-30, 99.995, 0.1, 1e300, std::numeric_limits<double>::denorm_min()};
    for (int i = 0; i < 20'000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        const auto single = std::bit_cast<float>(bits);
        if (std::isfinite(single))
            numbers.push_back(single);
        numbers.push_back(static_cast<double>(static_cast<int>(bits)) / 65'536.0); // many ties
        numbers.push_back(static_cast<double>(bits % 1'000'000) / 1000.0);
    }
    std::array<char, 400> expected{};
    for (const double number : numbers) {
        for (const int decimals : {0, 1, 2, 3, 6, 9, 12}) {
            std::snprintf(expected.data(), expected.size(), "%.*f", decimals, number);
            std::string text = "x";
            appendFixed(text, number, decimals);
            if (text.substr(1) != expected.data())
                QCOMPARE(QByteArray::fromStdString(text).mid(1), QByteArray(expected.data()));
        }
    }
}

void TestExport::csvToTheByte()
{
    // Held values, exact ties, none before the first sample, a new day, a column out of order.
    add(m_dataSet->messages, gauge, 4.5, floats(2.5F));
    add(m_dataSet->messages, gauge, 5.3, floats(std::numeric_limits<float>::quiet_NaN()));
    add(m_dataSet->messages, altitude, 5.9, floats(0.25F, 7.0F));
    add(m_dataSet->messages, altitude, 4.0, floats(0.75F, -0.5F));
    add(m_dataSet->messages, lamp, 6.2);
    CsvOptions options;
    options.allParameters = false;
    options.resolution = 500;
    options.decimalComma = true;
    m_profile.select([](const ProfileParameter& parameter) {
        return parameter.id == gauge || parameter.id == altitude;
    });
    QCOMPARE(csv(options),
             QByteArray("\xEF\xBB\xBF"
                        "Date;Time;Seconds;D/Alt [m];D/Speed [km/h];\"D/Gauge; <1>\"\r\n"
                        "2026-07-28;23:59:59.000;4,000;0,8;-0;\r\n"
                        "2026-07-28;23:59:59.500;4,500;0,8;-0;2\r\n"
                        "2026-07-29;00:00:00.000;5,000;0,8;-0;2\r\n"
                        "2026-07-29;00:00:00.500;5,500;0,8;-0;nan\r\n"
                        "2026-07-29;00:00:01.000;6,000;0,2;7;nan\r\n"));
    m_profile.setUnitSystem(UnitSystem::Imperial);
    m_dataSet->dateTime = {};
    QCOMPARE(csv(options).split('\n').value(0).split(';').value(3), QByteArray("D/Alt [ft]"));
    QCOMPARE(csv(options).split('\n').value(5), QByteArray(";;6,000;0,5;7;nan\r"));
    m_profile.setUnitSystem(UnitSystem::Metric);
}

void TestExport::csvReadByPython_data()
{
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("resolution");
    QTest::newRow("semicolon") << ";" << 100;
    QTest::newRow("comma") << "," << 37;
    QTest::newRow("tabulator") << "\t" << 1000;
    QTest::newRow("blank") << " " << 250;
}

/// Every cell against a search for the last sample up to its row.
void TestExport::csvReadByPython()
{
    QFETCH(QString, separator);
    QFETCH(int, resolution);
    std::mt19937 random(7);
    double first = 0.25;
    double last = 0.0;
    add(m_dataSet->messages, lamp, first);
    for (int id = position; id <= lamp; ++id) {
        double t = 0.0;
        for (int i = 0; i < 60; ++i) {
            t += static_cast<int>(random() % 400) / 1000.0 -
                 (i % 17 == 5 ? 1.0 : 0.0); // at times backwards
            MessageData data;
            for (unsigned char& byte : data)
                byte = static_cast<unsigned char>(random());
            add(m_dataSet->messages, id, std::max(t, 0.25), data);
            last = std::max(last, t);
        }
    }
    CsvOptions options;
    options.separator = separator[0].toLatin1();
    options.resolution = resolution;
    const QString path = m_directory.filePath("read.csv");
    QVERIFY(writeFile(path, csv(options)));
    const QString output = outputOf(
        "python3", {"-c",
                    "import csv, json, sys\n"
                    "with open(sys.argv[1], encoding='utf-8-sig', newline='') as f:\n"
                    "    json.dump(list(csv.reader(f, delimiter=sys.argv[2], strict=True)), "
                    "sys.stdout)",
                    path, separator});
    const QJsonArray rows = QJsonDocument::fromJson(output.toUtf8()).array();
    QCOMPARE(rows.size(), 1 + static_cast<int>((last - first) * 1000 / resolution + 1e-6) + 1);
    const std::deque<ProfileParameter>& columns = m_profile.parameters();
    for (qsizetype row = 1; row < rows.size(); ++row) {
        const double seconds = first + static_cast<double>((row - 1) * resolution) / 1000.0;
        const QJsonArray cells = rows[row].toArray();
        QCOMPARE(cells.size(), static_cast<qsizetype>(columns.size()) + 3);
        QVERIFY(std::abs(cells[2].toString().toDouble() - seconds) < 0.0006);
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const ProfileParameter& parameter = columns[column];
            const StoredSample* held = nullptr;
            for (const StoredSample& sample : seriesOf(m_dataSet->messages, parameter)) {
                if (sample.seconds() <= seconds + 1e-6 &&
                    (held == nullptr || sample.seconds() >= held->seconds()))
                    held = &sample;
            }
            const QString expected = held == nullptr ? QString()
                                                     : textOf(m_profile, parameter, held->data,
                                                              decodeNumber(held->data, parameter));
            QCOMPARE(cells[static_cast<qsizetype>(column) + 3].toString(), expected);
        }
    }
}

void TestExport::csvBounds()
{
    fly(0.0, 2000.0);
    CsvOptions options;
    options.resolution = 10;
    const CsvWriter writer(m_profile, *m_dataSet, options);
    QCOMPARE(writer.rowCount(), 200'001);
    FullDevice device(1'000'000'000);
    QCOMPARE(writer.write(device), ExportStatus::Done);
    QVERIFY(device.largestWrite() < 2'000'000); // of some 14 MB
    const double size = static_cast<double>(csv(options).size());
    QVERIFY2(std::abs(writer.estimatedBytes() / size - 1.0) < 0.1,
             qPrintable(QString::number(writer.estimatedBytes() / size)));

    FullDevice full(3'000'000);
    QCOMPARE(writer.write(full), ExportStatus::Failed);
    QFile devFull("/dev/full");
    QVERIFY(devFull.open(QIODevice::WriteOnly));
    m_dataSet = emptySet(0.0);
    add(m_dataSet->messages, gauge, 1.0); // a single row waits in the file's buffer
    QCOMPARE(CsvWriter(m_profile, *m_dataSet, options).write(devFull), ExportStatus::Failed);
    QCOMPARE(writeKml(devFull, m_profile, *m_dataSet, {}, "T"), ExportStatus::Failed);
    QCOMPARE(writeGpx(devFull, *m_dataSet, "T"), ExportStatus::Failed);
}

void TestExport::csvSpan_data()
{
    QTest::addColumn<QList<double>>("times"); // as recorded
    QTest::addColumn<QList<double>>("span");  // first and last row; none: nothing is written
    const auto row = [](const char* name, const QList<double>& times, const QList<double>& span) {
        QTest::newRow(name) << times << span;
    };
    row("sound", {5000, 5001, 5002}, {5000, 5002});
    row("last stamp is damaged", {5000, 5001, 5002, 5.7e11}, {5000, 5002});
    row("last stamp runs back", {5000, 5001, 5002, 3}, {5000, 5002});
    row("last stamp is a week ahead", {5000, 5001, 5002, 605e3}, {5000, 5002});
    row("first stamp is damaged", {900e3, 5000, 5001, 5002}, {5000, 5002});
    row("strays within", {5000, 5001, 9e5, 1, 5e11, 5002, 5003}, {5000, 5003});
    row("stray of less than an hour", {5000, 5001, 3000, 5002, 8000, 5003, 5004}, {5000, 5004});
    row("last stamp is 0", {3000, 3001, 3002, 0}, {3000, 3002});
    row("pauses of some minutes", {5000, 5300, 5600, 6000}, {5000, 6000});
    row("long gap", {0, 1, 50e3, 50e3 + 1}, {0, 50e3 + 1});
    row("files in reverse order", {5000, 5001, 0, 1}, {0, 5001});
    row("one sample", {7}, {7, 7});
    row("samples hours apart", {7, 9000}, {7, 9000});
    row("no usable time", {5e11, 5e11}, {});
    row("nothing recorded", {}, {});
    row("too many rows", {0, 1, 2.4e6, 2.4e6 + 1}, {});
}

void TestExport::csvSpan()
{
    QFETCH(QList<double>, times);
    QFETCH(QList<double>, span);
    int id = position;
    for (const double seconds : times)
        add(m_dataSet->messages, id++ % lamp, seconds);
    m_dataSet->startSeconds = times.value(0);
    m_dataSet->stopSeconds = times.isEmpty() ? 0.0 : times.last();
    CsvOptions options;
    options.resolution = 100;
    const QList<QByteArray> lines = csv(options).split('\n');
    if (span.isEmpty()) {
        QCOMPARE(lines, QList<QByteArray>{""}); // not even a header
        return;
    }
    QCOMPARE(lines.size(), 1 + static_cast<int>((span[1] - span[0]) * 10 + 1) + 1);
    QCOMPARE(lines[1].split(';').value(2).toDouble(), span[0]);
    QCOMPARE(lines[lines.size() - 2].split(';').value(2).toDouble(), span[1]);
}

void TestExport::kmlReadByGdal_data()
{
    QTest::addColumn<int>("times");
    QTest::addColumn<bool>("hasClock");
    QTest::addColumn<int>("features"); // path, curtain, marks, playback
    QTest::addColumn<int>("stamped");
    QTest::newRow("no times") << 0 << true << 2 + 11 << 0;
    QTest::newRow("times on marks") << 1 << true << 2 + 11 << 11;
    QTest::newRow("playback") << 2 << true << 2 + 11 + 1 << 11;
    QTest::newRow("playback without a clock") << 2 << false << 2 + 11 << 0;
}

void TestExport::kmlReadByGdal()
{
    QFETCH(int, times);
    QFETCH(bool, hasClock);
    QFETCH(int, features);
    fly(0.0, 50.0);
    if (!hasClock)
        m_dataSet->dateTime = {};
    KmlOptions options;
    options.timeStamp = static_cast<KmlOptions::Times>(times);
    const QByteArray content = kml(options);
    const QString read = readByGdal(content, "kml");
    QCOMPARE(read.count("OGRFeature("), features);
    QCOMPARE(read.count("LINESTRING Z"), times == 2 && hasClock ? 3 : 2);
    for (int line = 0; line < 2; ++line) {
        const QList<double> numbers = numbersAfter(read, "LINESTRING Z", line);
        QCOMPARE(numbers.size(), 3 * 101);
        QVERIFY(isNear(numbers, {11.0, 48.5, 400.0, 11.0 + 0.01 / 60, 48.5, 400.5}));
        QVERIFY(isNear(numbers.mid(300), {11.0 + 1.0 / 60, 48.5, 450.0}));
    }
    QCOMPARE(read.count("POINT Z"), 11);
    QTEST(static_cast<int>(content.count("<TimeStamp>")), "stamped");
    QCOMPARE(content.contains("<when>2026-07-29T00:00:00.000Z</when>"), times > 0 && hasClock);
    QCOMPARE(content.count("<gx:coord>"), times == 2 && hasClock ? 101 : 0);
}

void TestExport::kmlStylesAndMarks()
{
    fly(0.0, 50.0);
    add(m_dataSet->messages, lamp, 5e11, {0}); // beyond all calendars
    add(m_dataSet->messages, lamp, 5e11 + 1, {1});
    // An exceedance between two points of the path, and a lamp long after the last.
    add(m_dataSet->messages, gauge, 5.0, floats(1.0F));
    add(m_dataSet->messages, gauge, 20.25, floats(150.0F));
    add(m_dataSet->messages, lamp, 1.0, {0});
    add(m_dataSet->messages, lamp, 80.0, {1});
    KmlOptions options;
    options.lineColor = QColor(0x12, 0x34, 0x56);
    options.lineAlpha = 0x0a;
    options.lineWidth = 7;
    options.polygonOn = false;
    options.placeMarkOn = false;
    QByteArray content = kml(options);
    QVERIFY(content.contains("<color>0a563412</color>"));
    QVERIFY(content.contains("<width>7</width>"));
    QCOMPARE(content.count("<TimeStamp>"), 2);
    QString read = readByGdal(content, "kml");
    QCOMPARE(read.count("OGRFeature("), 4);
    // 420.25 m to the decimetre, and halfway in longitude.
    const QList<double> place = numbersAfter(read, "POINT Z");
    QVERIFY(place.size() == 3 && isNear(place, {11.0 + 20.25 / 50 / 60, 48.5}) &&
            std::abs(place[2] - 420.25) < 0.051);
    QVERIFY(read.contains("Name (String) = D Gauge; <1> 150"));
    QVERIFY(read.contains("No position was recorded."));
    options.showLimit = false;
    QVERIFY(!kml(options).contains("Gauge") && kml(options).contains("D Lamp 1: "));
    options.showLimit = true;
    options.showWarning = false;
    QVERIFY(kml(options).contains("Gauge") && !kml(options).contains("Lamp"));
    options.errorMarkOn = false;
    QCOMPARE(readByGdal(kml(options), "kml").count("OGRFeature("), 1);
}

void TestExport::kmlDescriptions()
{
    fly(0.0, 50.0);
    add(m_dataSet->messages, lamp, 3.0, {1});
    m_profile.select([](const ProfileParameter& parameter) { return parameter.id == lamp; });
    KmlOptions options;
    options.placeMarkInterval = 60;
    m_profile.setUnitSystem(UnitSystem::Imperial);
    const QString read = readByGdal(kml(options), "kml");
    m_profile.setUnitSystem(UnitSystem::Metric);
    QCOMPARE(read.count("POINT Z"), 2);
    const QString text = read.section("<table>", 2); // at 30 s
    QVERIFY2(text.contains("<td>29.07.2026 00:00:25.000</td>") &&
                 text.contains("<td>860.0 ft</td>") && text.contains("<td>120 km/h</td>") &&
                 text.contains("<td>1: &lt;on&gt; &amp; hot</td>"),
             qPrintable(text));
    QVERIFY(read.contains("Name (String) = 00:00:25"));
}

void TestExport::gpxReadByGdal()
{
    fly(0.0, 200.0);
    m_dataSet->flights = {flight(10, 40, 60, 90), flight(120, 150, 170, 200)};
    const QString path = m_directory.filePath("read.gpx");
    QVERIFY(writeFile(path, gpx()));
    QVERIFY(outputOf("ogrinfo", {"-ro", "-so", path, "tracks"}).contains("Feature Count: 2\n"));
    const QString points = outputOf("ogrinfo", {"-ro", "-al", path, "track_points"});
    QVERIFY(points.contains("Feature Count: 322\n")); // 161 each
    QVERIFY(points.contains("ele (Real) = 600\n"));
    QVERIFY2(points.contains("time (DateTime) = 2026/07/29 00:00:05+00"),
             qPrintable(points.left(2000)));
    const QString tracks = outputOf("ogrinfo", {"-ro", "-al", path, "tracks"});
    QVERIFY(isNear(numbersAfter(tracks, "MULTILINESTRING"), {11.0 + 10.0 / 50 / 60, 48.5}));
}

void TestExport::oddPaths()
{
    // No position at all: well-formed, and empty.
    KmlOptions options;
    QVERIFY(!hasPath(*m_dataSet));
    QVERIFY(kml(options).endsWith("</Document>\n</kml>\n"));
    QVERIFY(!kml(options).contains("<Placemark>"));
    QVERIFY(!gpx().contains("<trk>"));

    // A single point is a point; half of a degree is missing; then over the antimeridian.
    const auto point = [](int halfSecond, double longitude, double latitude = 10.0) {
        return TrackPoint{halfSecond, latitude, longitude, 100.0, 0.0, 0.0};
    };
    m_dataSet->track = {point(4, 20.0)};
    options.placeMarkOn = false;
    options.polygonOn = false;
    QString read = readByGdal(kml(options), "kml");
    QCOMPARE(numbersAfter(read, "POINT Z"), (QList<double>{20, 10, 100}));
    m_dataSet->track = {point(0, 179.9),  point(1, 180.0),  point(2, -179.9),  point(3, -179.8),
                        point(9, -179.0), point(10, 500.0), point(11, -178.9), point(12, -178.8)};
    read = readByGdal(kml(options), "kml");
    QCOMPARE(read.count("OGRFeature("), 1);
    QVERIFY2(read.contains("GEOMETRYCOLLECTION Z"), qPrintable(read));
    QCOMPARE(numbersAfter(read, "GEOMETRYCOLLECTION Z"),
             (QList<double>{179.9, 10,     100, 180.0, 10,     100, -179.9, 10,     100, -179.8, 10,
                            100,   -179.0, 10,  100,   -178.9, 10,  100,    -178.8, 10,  100}));
    QVERIFY(!kml(options).contains("500"));
    QCOMPARE(gpx().count("<trkseg>"), 4);
    QVERIFY(gpx().contains("lon=\"-180.0000000\"") && !gpx().contains("lon=\"180."));
    m_dataSet->track[0].longitude = 179.99999999; // rounded
    QVERIFY(!gpx().contains("lon=\"180."));
    // Points look like the marks, and have no curtain.
    options.polygonOn = true;
    const QByteArray pieces = kml(options);
    QCOMPARE(pieces.count("<Point>"), 1);
    QVERIFY(pieces.mid(pieces.indexOf("<Style id=\"path\">")).left(200).contains("<IconStyle>"));
    options.polygonOn = false;

    // Without altitudes an absolute path would lie below the ground.
    m_dataSet->track = {point(0, 20.0), point(1, 20.1)};
    for (TrackPoint& p : m_dataSet->track)
        p.hasAltitude = false;
    options.polygonOn = true;
    QVERIFY(kml(options).contains("clampToGround") && !kml(options).contains("absolute"));
    QVERIFY(!gpx().contains("<ele>"));
}

/// Units send zeros until they know where they are. A lamp is on before.
void TestExport::beforeTheFirstFix()
{
    MessageMap& messages = m_dataSet->messages;
    add(messages, lamp, 1.0, {0});
    add(messages, lamp, 5.0, {1});
    for (int t = 0; t <= 20; ++t) {
        add(messages, position, t, t < 10 ? floats(0.0F, 0.0F) : floats(4830.0F, 1100.0F));
        add(messages, altitude, t, floats(t < 12 ? 0.0F : 500.0F));
    }
    m_dataSet->track = buildTrack(m_profile, messages);
    const QByteArray track = gpx();
    QCOMPARE(track.count("<trkpt"), 21);
    QVERIFY(track.contains("<time>2026-07-29T00:00:05.000Z") && !track.contains("T23:59:"));
    QCOMPARE(track.count("<ele>"), 17);
    QCOMPARE(track.count("<ele>500.0</ele>"), 17);
    const QByteArray document = kml({});
    QVERIFY(document.contains("<coordinates>11.0000000,48.5000000,500.0"));
    QVERIFY(!document.contains(",0.0") && document.contains("No position was recorded."));
    QCOMPARE(document.count("<Point>"), 3); // at 10, 15 and 20 s
    QCOMPARE(document.count("Altitude"), 2);
}

void TestExport::sections()
{
    fly(0.0, 400.0);
    // The second begins while the first one's 30 s still run; the third is nonsense.
    m_dataSet->flights = {flight(20, 50, 100, 130), flight(90, 120, 200, 230),
                          flight(10, 40, 60, 90)};
    const std::vector<PathSection> parts = pathSections(*m_dataSet);
    using Kind = PathSection::Kind;
    QCOMPARE(parts.size(), 5U);
    double done = -std::numeric_limits<double>::infinity();
    for (const PathSection& part : parts) {
        QCOMPARE(part.from, done);
        QVERIFY(part.to >= part.from);
        done = part.to;
    }
    QVERIFY(parts[1].kind == Kind::Flight && parts[1].from == 20.0 && parts[1].to == 110.0);
    QVERIFY(parts[2].kind == Kind::Flight && parts[2].points.front().seconds() == 110.0);
    QVERIFY(parts[3].kind == Kind::Flight && parts[3].from == parts[3].to);
    QVERIFY(parts[4].kind == Kind::Ground && parts[4].points.back().seconds() == 400.0);
    QCOMPARE(sectionAt(parts, -5.0), 0U);
    QCOMPARE(sectionAt(parts, 109.9), 1U);
    QCOMPARE(sectionAt(parts, 1e9), 4U);

    KmlOptions options;
    options.placeMarkOn = false;
    const QByteArray content = kml(options);
    for (const char* folder : {"Flight 1", "Flight 2", "On the ground"})
        QCOMPARE(content.count(QByteArray("<Folder>\n   <name>") + folder), 1);
    QCOMPARE(content.count("<name>Flight path</name>"), 2 + 1 + 2);
    // Of a loaded flight only its own.
    m_dataSet->flightIndex = 1;
    m_dataSet->startSeconds = 90.0;
    m_dataSet->stopSeconds = 230.0;
    QVERIFY(!kml(options).contains("<Folder>"));
    QCOMPARE(pathSections(*m_dataSet).front().points.size(), 281U);
}

void TestExport::hostileTexts()
{
    fly(0.0, 5.0);
    add(m_dataSet->messages, lamp, 1.0, {0});
    add(m_dataSet->messages, lamp, 2.0, {1});
    const QString title = QString::fromUtf8("a&b<c>\"d'\x01\x0b ]]> \xF0\x9F\x98\x80") +
                          QChar(0xD800) + QChar(0xFFFF) + QChar(0);
    for (const QString& suffix : {QStringLiteral("kml"), QStringLiteral("gpx")}) {
        const QString path = m_directory.filePath("hostile." + suffix);
        QVERIFY(writeFile(path, suffix == "kml" ? kml({}, title) : gpx(title)));
        const QString names = outputOf(
            "python3", {"-c",
                        "import sys, xml.etree.ElementTree as e\n"
                        "sys.stdout.buffer.write('|'.join(n.text for n in e.parse(sys.argv[1])"
                        ".iter() if n.tag.endswith('}name')).encode())",
                        path});
        QVERIFY2(names.startsWith(QString::fromUtf8("a&b<c>\"d' ]]> \xF0\x9F\x98\x80|")),
                 qPrintable(names));
        QVERIFY(suffix == "gpx" || names.contains("D Lamp 1: <on> & hot"));
    }
}

void TestExport::formerFileStays_data()
{
    QTest::addColumn<int>("stopAtPercent"); // below 0: the disk is full
    QTest::newRow("cancelled") << 20;
    QTest::newRow("full disk") << -1;
}

/// A write beyond the limit of the file's size fails as it does on a full disk.
void TestExport::formerFileStays()
{
    QFETCH(int, stopAtPercent);
    fly(0.0, 3000.0);
    const QString folder = m_directory.filePath(QTest::currentDataTag());
    QVERIFY(QDir().mkpath(folder));
    const QString path = folder + "/out";
    QVERIFY(writeFile(path, "before"));
    const ExportProgress stop = [&](int percent) {
        return stopAtPercent < 0 || percent < stopAtPercent;
    };
    KmlOptions options;
    options.timeStamp = KmlOptions::Times::PlaceMarksAndTrack;
    const std::function<ExportStatus(QIODevice&)> writers[] = {
        [&](QIODevice& device) { return CsvWriter(m_profile, *m_dataSet, {}).write(device, stop); },
        [&](QIODevice& device) {
            return writeKml(device, m_profile, *m_dataSet, options, "T", stop);
        },
        [&](QIODevice& device) { return writeGpx(device, *m_dataSet, "T", stop); }};
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const auto& writer : writers) {
        if (stopAtPercent < 0) {
            const rlimit small{100'000, usual.rlim_max};
            setrlimit(RLIMIT_FSIZE, &small);
        }
        const ExportOutcome outcome = exportToFile(path, writer);
        setrlimit(RLIMIT_FSIZE, &usual);
        QCOMPARE(outcome.status,
                 stopAtPercent < 0 ? ExportStatus::Failed : ExportStatus::Cancelled);
        QCOMPARE(outcome.error.isEmpty(), stopAtPercent >= 0);
        QVERIFY2(!outcome.error.contains("Unknown"), qPrintable(outcome.error));
        QCOMPARE(readFile(path), QByteArray("before"));
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{"out"});
        QCOMPARE(exportToFile(folder + "/new", writer).status,
                 stopAtPercent < 0 ? ExportStatus::Done : ExportStatus::Cancelled);
        QFile::remove(folder + "/new");
    }
    // Not even root writes there.
    for (const char* unwritable : {"/proc/out.kml", "/no/such/folder/out.kml"}) {
        const ExportOutcome outcome = exportToFile(unwritable, writers[1]);
        QVERIFY(outcome.status == ExportStatus::Failed && !outcome.error.isEmpty());
    }
}

void TestExport::pipesAreLeftAlone()
{
    const QString pipe = m_directory.filePath("pipe");
    const QString link = m_directory.filePath("linked pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe), 0600), 0);
    QVERIFY(QFile::link(pipe, link));
    for (const QString& path : {pipe, link, m_directory.path()}) {
        const ExportOutcome outcome =
            exportToFile(path, [](QIODevice&) { return ExportStatus::Done; });
        QCOMPARE(outcome.status, ExportStatus::Failed);
        QCOMPARE(outcome.error, "This is no regular file.");
        QVERIFY(QFileInfo::exists(path) && !QFileInfo(path).isFile());
    }
}

void TestExport::namesAndFolders()
{
    const ExportSubject cycle{3, {}};
    m_dataSet->startSeconds = 10.0;
    QCOMPARE(exportFileName(cycle, *m_dataSet, "kml"), "Kolt_2026-07-29_0000_Cycle3.kml");
    QCOMPARE(exportTitle(cycle, *m_dataSet), "Cycle 3, 29.07.2026 00:00");
    QCOMPARE(exportFileName({{}, {"A b/\xC3\xA4.CAN", "B.CAN"}}, *m_dataSet, "csv").section('_', 2),
             "0000_A_b__.csv");
    m_dataSet->flights = {flight(0, 0, 1, 1), flight(20, 52'365, 52'400, 52'430)};
    m_dataSet->flightIndex = 1;
    QCOMPARE(exportFileName(cycle, *m_dataSet, "kml"), "Kolt_2026-07-29_1432_Flight2.kml");
    QCOMPARE(exportTitle(cycle, *m_dataSet), "Flight 2, 29.07.2026 14:32");
    m_dataSet->flights[1].dateTime = {};
    QCOMPARE(exportFileName(cycle, *m_dataSet, "gpx"), "Kolt_Cycle3_Flight2.gpx");

    const QString card = m_directory.filePath("card");
    QVERIFY(QDir().mkpath(card) && QDir().mkpath(card + "-copy"));
    QVERIFY(QFile::link(card, m_directory.filePath("link")));
    QVERIFY(isWithin(card, card + "/x/y/new.csv"));
    QVERIFY(isWithin(card, m_directory.filePath("link/new.csv")));
    QVERIFY(isWithin(m_directory.filePath("link"), card));
    QVERIFY(!isWithin(card, card + "-copy/new.csv"));
    QVERIFY(!isWithin(card, card + "/../new.csv"));
    QVERIFY(!isWithin("/no/such", "/no/such/new.csv"));
}

void TestExport::settingsAreBounded()
{
    struct Store
    {
        std::map<QByteArray, QByteArray> values;

        int getInteger(const QByteArray& key, int fallback) const
        {
            return values.contains(key) ? values.at(key).toInt() : fallback;
        }

        bool getBoolean(const QByteArray& key, bool fallback) const
        {
            return values.contains(key) ? values.at(key) == "true" : fallback;
        }

        QByteArray getText(const QByteArray& key) const
        {
            return values.contains(key) ? values.at(key) : QByteArray();
        }

        void setInteger(const QByteArray& key, int value)
        {
            values[key] = QByteArray::number(value);
        }

        void setBoolean(const QByteArray& key, bool value)
        {
            values[key] = value ? "true" : "false";
        }

        void setText(const QByteArray& key, const QByteArray& value) { values[key] = value; }
    };

    Store store;
    KmlOptions usual;
    storeKmlOptions(readKmlOptions(store), store);
    for (const ExportSetting& setting : kmlSettings())
        QVERIFY2(setting.accepts(store.values[setting.key]), setting.key);
    QCOMPARE(store.values["KmlLineColor"], QByteArray("ff0000"));
    QCOMPARE(store.values["KmlPlaceMarkIntervall"], QByteArray("10"));
    storeCsvOptions(readCsvOptions(store, false), store);
    for (const ExportSetting& setting : csvSettings())
        QVERIFY2(setting.accepts(store.values[setting.key]), setting.key);
    QCOMPARE(store.values["CsvLimiter"], QByteArray("59"));

    store.values = {{"KmlPlaceMarkIntervall", "0"}, {"KmlLineAlpha", "900"},
                    {"KmlLineColor", "#f00"},       {"KmlTimeStamp", "7"},
                    {"CsvResolution", "-5"},        {"CsvLimiter", "34"}};
    QCOMPARE(readKmlOptions(store).placeMarkInterval, 1);
    QCOMPARE(readKmlOptions(store).lineAlpha, 255);
    QCOMPARE(readKmlOptions(store).lineColor, usual.lineColor);
    QCOMPARE(readKmlOptions(store).timeStamp, KmlOptions::Times::PlaceMarksAndTrack);
    QCOMPARE(readCsvOptions(store, true).resolution, 1);
    QCOMPARE(readCsvOptions(store, true).separator, ';');
}

QTEST_GUILESS_MAIN(TestExport)
#include "tst_export.moc"

#include "export/RecordingNote.h"
#include "record/FlightPath.h"
#include "tests/export/ExportSupport.h"
#include "tests/support/Rows.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

/// All numbers of the line after the n-th occurrence of a text, rounded: positions are single
/// precision.
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

bool isNear(const QList<double>& numbers, const QList<double>& expected)
{
    return numbers.size() >= expected.size() &&
           std::ranges::equal(expected, numbers.first(expected.size()),
                              [](double a, double b) { return std::abs(a - b) <= 3e-6; });
}

} // namespace

/// Flight paths, read back by GDAL.
class TestPathExport : public QObject, private ExportFixture
{
    Q_OBJECT

private slots:

    void init() { QVERIFY(load()); }

    void kmlReadByGdal_data();
    void kmlReadByGdal();
    void kmlStylesAndMarks();
    void kmlDescriptions();
    void playbackHasHeadingsAndValues();
    void altitudeModes_data();
    void altitudeModes();
    void gpxReadByGdal();
    void gpxExtras();
    void damageIsDescribed();
    void lostPositions_data();
    void lostPositions();
    void oddPaths();
    void beforeTheFirstFix();
    void sections();
    void hostileTexts();

private:
    QString readByGdal(const QByteArray& content, const QString& suffix) const
    {
        const QString path = m_directory.filePath("read." + suffix);
        return writeFile(path, content) ? outputOf("ogrinfo", {"-ro", "-al", path}) : QString();
    }
};

void TestPathExport::kmlReadByGdal_data()
{
    // times, hasClock, features (path, curtain, marks, playback), stamped
    const Rows<int, bool, int, int> row;
    row("no times", 0, true, 2 + 11, 0);
    row("times on marks", 1, true, 2 + 11, 11);
    row("playback", 2, true, 2 + 11 + 1, 11);
    row("playback without a clock", 2, false, 2 + 11, 0);
}

void TestPathExport::kmlReadByGdal()
{
    const auto [times, hasClock, features, stamped] = fetchRow<int, bool, int, int>();
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
    QCOMPARE(static_cast<int>(content.count("<TimeStamp>")), stamped);
    QCOMPARE(content.contains("<when>2026-07-29T00:00:00.000Z</when>"), times > 0 && hasClock);
    QCOMPARE(content.count("<gx:coord>"), times == 2 && hasClock ? 101 : 0);
}

void TestPathExport::kmlStylesAndMarks()
{
    fly(0.0, 50.0);
    add(lamp, 5e11, {0}); // beyond any calendar
    add(lamp, 5e11 + 1, {1});
    // An exceedance between two points of the path, and a lamp long after its end.
    add(gauge, 5.0, floats(1.0F));
    add(gauge, 20.25, floats(150.0F));
    add(lamp, 1.0, {0});
    add(lamp, 80.0, {1});
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
    // 420.25 m rounded to the decimetre; the longitude is interpolated.
    const QList<double> place = numbersAfter(read, "POINT Z");
    QVERIFY(place.size() == 3 && isNear(place, {11.0 + 20.25 / 50 / 60, 48.5}) &&
            std::abs(place[2] - 420.25) < 0.051);
    QVERIFY(read.contains("Name (String) = D Gauge; <1> 150"));
    QVERIFY(read.contains("No position was recorded."));
    QVERIFY(content.contains("&lt;br/&gt;LIMIT from 100</description>"));
    QCOMPARE(content.count("<styleUrl>#error<"), 1);
    QCOMPARE(content.count("<styleUrl>#warning<"), 2);
    options.showLimit = false;
    QVERIFY(!kml(options).contains("Gauge") && kml(options).contains("D Lamp 1: "));
    options.showLimit = true;
    options.showWarning = false;
    QVERIFY(kml(options).contains("Gauge") && !kml(options).contains("Lamp"));
    options.errorMarkOn = false;
    QCOMPARE(readByGdal(kml(options), "kml").count("OGRFeature("), 1);
}

void TestPathExport::kmlDescriptions()
{
    fly(0.0, 50.0);
    add(lamp, 3.0, {1});
    m_profile.select([](const ProfileParameter& parameter) { return parameter.id == lamp; });
    KmlOptions options;
    options.placeMarkInterval = 60;
    m_profile.setUnitSystem(UnitSystem::Imperial);
    const QString read = readByGdal(kml(options), "kml");
    m_profile.setUnitSystem(UnitSystem::Metric);
    QCOMPARE(read.count("POINT Z"), 2);
    const QString text = read.section("<table>", 2); // the mark at 30 s
    QVERIFY2(text.contains("<td>29.07.2026 00:00:25.000</td>") &&
                 text.contains("<td>860.0 ft</td>") && text.contains("<td>120 km/h</td>") &&
                 text.contains("<td>1: &lt;on&gt; &amp; hot</td>"),
             qPrintable(text));
    QVERIFY(read.contains("Name (String) = 00:00:25"));
}

/// Each point of a track that plays back has a time, a place, a heading and a value.
void TestPathExport::playbackHasHeadingsAndValues()
{
    QVERIFY(loadProfile(
        m_profile,
        device({"name='Lat' id='1' dataType='FLOAT' koltDataType='Latitude'",
                "name='Lon' id='1' startByte='4' dataType='FLOAT' koltDataType='Longitude'",
                "name='Way' id='2' dataType='FLOAT' koltDataType='Track'",
                "name='Level' id='3' dataType='FLOAT' precision='1' unitMetric='l'",
                "name='Code' id='4' dataType='BLONG' startBit='0' endBit='31'"})));
    m_profile.select([](const ProfileParameter& parameter) { return parameter.id > 2; });
    fly(0.0, 10.0);
    add(gauge, 5.0, floats(2.5F));
    add(gauge, 7.5, floats(std::numeric_limits<float>::quiet_NaN()));
    m_dataSet->before[lamp].data = {0xFE, 0xFF, 0xFF, 0xFF};
    KmlOptions options;
    options.timeStamp = KmlOptions::Times::PlaceMarksAndTrack;
    const QString path = m_directory.filePath("track.kml");
    QVERIFY(writeFile(path, kml(options)));
    QCOMPARE(
        outputOf("python3", {"-c",
                             "import sys, xml.etree.ElementTree as e\n"
                             "k = '{http://www.opengis.net/kml/2.2}'\n"
                             "g = '{http://www.google.com/kml/ext/2.2}'\n"
                             "d = e.parse(sys.argv[1]).getroot()[0]\n"
                             "print([(f.get('name'), f.get('type'), f[0].text) for f in "
                             "d.find(k + 'Schema')], d.find(k + 'Schema').get('id'))\n"
                             "t = d.find(f'.//{g}Track')\n"
                             "print([len(t.findall(n)) for n in (k + 'when', g + 'coord', g + "
                             "'angles')], t.find(g + 'angles').text)\n"
                             "for a in t.iter(g + 'SimpleArrayData'):\n"
                             "    print(a.get('name'), [v.text for v in a][8:17:2], len(a))\n",
                             path}),
        "[('p1', 'int', 'D/Code'), ('p2', 'float', 'D/Level [l]')] values\n[21, 21, 21] 40.0 0 0\n"
        "p1 ['-2', '-2', '-2', '-2', '-2'] 21\np2 [None, '2.5', '2.5', '2.5', None] 21\n");
    QVERIFY(!kml({}).contains("Schema")); // only with a track
}

void TestPathExport::altitudeModes_data()
{
    using Mode = KmlOptions::AltitudeMode;
    // mode, how KML calls it, altitude of the first point, curtains
    const Rows<int, QByteArray, QByteArray, int> row;
    row("as recorded", int(Mode::Absolute), "absolute", "410.0", 1);
    row("on the ground", int(Mode::Ground), "clampToGround", "410.0", 0);
    row("above the ground", int(Mode::Relative), "relativeToGround", "10.0", 1);
}

void TestPathExport::altitudeModes()
{
    const auto [mode, name, first, curtains] = fetchRow<int, QByteArray, QByteArray, int>();
    fly(10.0, 60.0);
    m_dataSet->track.back().altitude = 400.0; // the lowest
    KmlOptions options;
    options.altitudeMode = static_cast<KmlOptions::AltitudeMode>(mode);
    const QByteArray content = kml(options);
    QCOMPARE(content.count("<altitudeMode>" + name + "<"), content.count("<altitudeMode>"));
    const QByteArray point = content.mid(content.indexOf("<coordinates>")).split('\n').value(0);
    QCOMPARE(point.split(',').value(2), first);
    QCOMPARE(content.count("<extrude>1"), curtains);
}

/// Elements in the order that the format wants; speeds in m/s.
void TestPathExport::gpxExtras()
{
    fly(0.0, 200.0);
    m_dataSet->flights = {flight(10, 40, 60, 90), flight(120, 150, 170, 200)};
    add(gauge, 20.0, floats(1.0F));
    add(gauge, 30.25, floats(150.0F)); // an episode until the end
    const QString path = m_directory.filePath("extras.gpx");
    QVERIFY(writeFile(path, gpx()));
    const QString script =
        "import sys, xml.etree.ElementTree as e\n"
        "tag = lambda x: x.tag.split('}')[1]\n"
        "for x in e.parse(sys.argv[1]).getroot():\n"
        "    print(tag(x), *(f'{tag(y)}={(y.text or str()).strip()}' for y in x "
        "if tag(y) not in ('trkseg', 'desc')), [tag(y) for y in x.iter()][-3:])\n"
        "    if tag(x) == 'metadata': print(list(x[-1].attrib.items()))\n"
        "    for y in list(x.iter())[-2:]: tag(x) == 'trk' and print(y.text.strip())\n";
    const QString read = outputOf("python3", {"-c", script, path});
    const QStringList lines = read.split('\n');
    QCOMPARE(lines[0], "metadata name=T time=2026-07-29T00:00:05.000Z bounds= ['name', 'time', "
                       "'bounds']");
    QVERIFY2(lines[1].startsWith("[('minlat', '48.5000000'), ('minlon', '11.0033") &&
                 lines[1].contains("('maxlon', '11.0666667')"),
             qPrintable(lines[1]));
    QCOMPARE(lines[2], "wpt ele=440.0 time=2026-07-29T00:00:35.000Z name=Take-off 1 sym=Airport "
                       "['time', 'name', 'sym']");
    QVERIFY(lines[5].contains("name=Landing 2 "));
    QCOMPARE(lines[6], "wpt ele=430.2 time=2026-07-29T00:00:25.250Z name=Gauge; <1>: limit "
                       "sym=Flag, Red ['name', 'desc', 'sym']");
    QCOMPARE(lines[7], "trk name=Flight 1, 29.07.2026 00:00 ['extensions', 'TrackPointExtension', "
                       "'speed']");
    QCOMPARE(lines[9], "33.33");
    // Of one flight only what belongs to it; nothing that is not wanted.
    m_dataSet->flightIndex = 1;
    QVERIFY(!gpx().contains("Take-off 1") && gpx().contains("Take-off 2"));
    const QByteArray plain = gpx("T", {false, false});
    QVERIFY(!plain.contains("<wpt") && !plain.contains("extensions") && plain.contains("<trkpt"));
}

void TestPathExport::gpxReadByGdal()
{
    fly(0.0, 200.0);
    m_dataSet->flights = {flight(10, 40, 60, 90), flight(120, 150, 170, 200)};
    const QString path = m_directory.filePath("read.gpx");
    QVERIFY(writeFile(path, gpx()));
    QVERIFY(outputOf("ogrinfo", {"-ro", "-so", path, "tracks"}).contains("Feature Count: 2\n"));
    const QString points = outputOf("ogrinfo", {"-ro", "-al", path, "track_points"});
    QVERIFY(points.contains("Feature Count: 322\n")); // 161 per flight
    QVERIFY(points.contains("ele (Real) = 600\n"));
    QVERIFY2(points.contains("time (DateTime) = 2026/07/29 00:00:05+00"),
             qPrintable(points.left(2000)));
    const QString tracks = outputOf("ogrinfo", {"-ro", "-al", path, "tracks"});
    QVERIFY(isNear(numbersAfter(tracks, "MULTILINESTRING"), {11.0 + 10.0 / 50 / 60, 48.5}));
}

void TestPathExport::damageIsDescribed()
{
    std::vector<TrustFinding> findings(3);
    findings[0].kind = TrustKind::NeverRecorded;
    findings[0].text = "a note";
    findings[1].text = "<b>.CAN has a hole";
    findings[2].text = "another";
    QCOMPARE(recordingNote({findings[0]}), "");
    const QString note = recordingNote(findings);
    const auto described = [&](auto&& writer) { return QString::fromUtf8(written(writer)); };
    const QString kml = described(
        [&](QIODevice& to) { return writeKml(to, m_profile, *m_dataSet, {}, "T", {}, note); });
    QVERIFY2(kml.contains("<description>Recording: &amp;lt;b&amp;gt;.CAN has a hole&lt;br/&gt;"
                          "another</description>"),
             qPrintable(kml));
    const QString gpx = described(
        [&](QIODevice& to) { return writeGpx(to, m_profile, *m_dataSet, {}, "T", {}, note); });
    QVERIFY(gpx.contains("<desc>Recording: &lt;b&gt;.CAN has a hole\nanother</desc>"));
}

void TestPathExport::lostPositions_data()
{
    // position lost from, to; latitude sent meanwhile, if any; remaining points, pieces of the path
    const Rows<int, int, QList<float>, int, int> row;
    row("nothing is sent", 40, 60, {}, 162, 2);
    row("zeros are sent", 40, 60, {0.0F}, 162, 2);
    row("positions that the filter replaces", 40, 60, {49.0F}, 162, 2);
    row("zeros until the end", 40, 200, {0.0F}, 81, 1);
    row("too short", 40, 50, {0.0F}, 201, 1);
}

/// A span without positions, with an exceedance inside it and one long after it.
void TestPathExport::lostPositions()
{
    const auto [from, to, sent, points, pieces] = fetchRow<int, int, QList<float>, int, int>();
    for (double t = 0.0; t <= 100.0; t += 0.5) {
        const bool isLost = t > from && t < to;
        const auto east = static_cast<float>(1100 + t / 50);
        if (!isLost)
            add(position, t, floats(4830.0F, east));
        else if (!sent.isEmpty())
            add(position, t, floats(sent[0] * 100, sent[0] > 0 ? east : 0.0F));
        add(altitude, t, floats(500.0F));
    }
    for (const double t : {45.25, 70.25}) {
        add(gauge, t - 1, floats(1.0F));
        add(gauge, t, floats(150.0F));
    }
    m_dataSet->track = buildTrack(m_profile, m_dataSet->messages);
    QCOMPARE(m_dataSet->track.size(), std::size_t{201}); // the track itself has no holes
    QCOMPARE(gpx().count("<trkpt"), points);
    QCOMPARE(gpx().count("<trkseg>"), pieces);
    KmlOptions options;
    options.placeMarkInterval = 1;
    options.timeStamp = KmlOptions::Times::PlaceMarksAndTrack;
    const QByteArray document = kml(options);
    QCOMPARE(document.count("<LineString>"), 2 * pieces); // path and curtain
    QCOMPARE(document.count("<gx:coord>"), points);
    const int unknown = (points < 201 ? 1 : 0) + (points < 100 ? 1 : 0);
    QCOMPARE(document.count("<Point>"), points + 2 - unknown);
    QCOMPARE(document.count("No position was recorded."), unknown);
}

void TestPathExport::oddPaths()
{
    // Without a position the document is well-formed and empty.
    KmlOptions options;
    QVERIFY(!hasPath(*m_dataSet));
    QVERIFY(kml(options).endsWith("</Document>\n</kml>\n"));
    QVERIFY(!kml(options).contains("<Placemark>"));
    QVERIFY(!gpx().contains("<trk>"));

    // A single point becomes a Point; then a path with a missing part, across the antimeridian.
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
    m_dataSet->track[0].longitude = 179.99999999; // would be rounded to 180
    QVERIFY(!gpx().contains("lon=\"180."));
    // Single points look like marks and have no curtain.
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
    options.placeMarkOn = true;
    options.placeMarkInterval = 1;
    QVERIFY(kml(options).contains("clampToGround") && !kml(options).contains("absolute"));
    QVERIFY(kml(options).contains("Time") && !kml(options).contains("Speed")); // not recorded
    QVERIFY(!gpx().contains("<ele>"));
}

/// Units send zeros before their first fix. A lamp comes on before it.
void TestPathExport::beforeTheFirstFix()
{
    add(lamp, 1.0, {0});
    add(lamp, 5.0, {1});
    for (int t = 0; t <= 20; ++t) {
        add(position, t, t < 10 ? floats(0.0F, 0.0F) : floats(4830.0F, 1100.0F));
        add(altitude, t, floats(t < 12 ? 0.0F : 500.0F));
    }
    m_dataSet->track = buildTrack(m_profile, m_dataSet->messages);
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
    // With an altitude from before the flight, all points have one.
    m_dataSet->before[position].data = floats(4830.0F, 1100.0F);
    for (const float before : {0.0F, 400.0F}) {
        m_dataSet->before[altitude].data = floats(before);
        m_dataSet->track = buildTrack(m_profile, m_dataSet->messages, 0.0, m_dataSet->before);
        QCOMPARE(gpx().count("<ele>"), before > 0.0F ? 21 : 17);
    }
}

void TestPathExport::sections()
{
    fly(0.0, 400.0);
    // The second flight starts within the 30 s after the first; the third makes no sense.
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
    for (const auto& [seconds, part] : {std::pair(-5.0, 0U), {109.9, 1U}, {1e9, 4U}})
        QCOMPARE(sectionAt(parts, seconds), part);

    KmlOptions options;
    options.placeMarkOn = false;
    const QByteArray content = kml(options);
    for (const char* folder : {"Flight 1", "Flight 2", "On the ground"})
        QCOMPARE(content.count(QByteArray("<Folder>\n   <name>") + folder), 1);
    QCOMPARE(content.count("<name>Flight path</name>"), 2 + 1 + 2);
    // Of a loaded flight only its own part.
    m_dataSet->flightIndex = 1;
    m_dataSet->startSeconds = 90.0;
    m_dataSet->stopSeconds = 230.0;
    QVERIFY(!kml(options).contains("<Folder>"));
    QCOMPARE(pathSections(*m_dataSet).front().points.size(), 281U);
}

void TestPathExport::hostileTexts()
{
    fly(0.0, 5.0);
    add(lamp, 1.0, {0});
    add(lamp, 2.0, {1});
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

QTEST_GUILESS_MAIN(TestPathExport)
#include "tst_pathexport.moc"

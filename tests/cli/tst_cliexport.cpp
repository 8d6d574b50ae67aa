#include "tests/cli/CliSupport.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QDir>
#include <QRegularExpression>

#include <cmath>

using namespace KOLT::Test;

/// Exports of kolt-cli, from the sample card and from small ones.
class TestCliExport : public QObject
{
    Q_OBJECT

private slots:
    void csvOfAFlight();
    void pathsOfACycle();
    void everyFlightOfACard();
    void failingFlightDoesNotStopTheRest();
    void settingsOfTheProgramCount();
    void failures_data();
    void failures();
    void helpNamesTheSettings();

private:
    Result cli(const QStringList& arguments) const
    {
        return run(m_home, KOLT_CLI,
                   arguments + QStringList{"--profile", KOLT_PROFILE, "--variant", "915"});
    }

    QJsonArray flightsOfCycle2() const
    {
        return cli({"flights", m_card, "--cycle", "2"}).json()["flights"].toArray();
    }

    QTemporaryDir m_home;
    QTemporaryDir m_out;
    const QString m_card = KOLT_SAMPLE_CARD;
};

void TestCliExport::csvOfAFlight()
{
    const QJsonObject flight = flightsOfCycle2()[1].toObject();
    const double span = flight["end"].toDouble() - flight["start"].toDouble();
    const QString path = m_out.filePath("flight.csv");
    const Result result = cli({"export", "csv", m_card, "--cycle", "2", "--flight", "2", "--output",
                               path, "--csv-resolution", "500", "--CsvLimiter=44", "--parameter",
                               "GPS/Altitude", "--parameter", "GPS/Ground Speed"});
    QVERIFY2(result.status == 0, qPrintable(result.lastError()));
    QCOMPARE(result.output, QByteArray());
    const QList<QByteArray> lines = readFile(path).split('\n');
    QCOMPARE(lines.size(), 1 + static_cast<int>(span * 2) + 1 + 1);
    QCOMPARE(lines[0], QByteArray("\xEF\xBB\xBF"
                                  "Date,Time,Seconds,GPS/Altitude [m],GPS/Ground Speed [km/h]\r"));
    double highest = 0.0;
    for (const QByteArray& line : lines.mid(1))
        highest = std::max(highest, line.split(',').value(3).toDouble());
    QVERIFY(std::abs(highest - flight["maxAltitude"].toDouble()) < 2.0);
}

void TestCliExport::pathsOfACycle()
{
    const qsizetype flights = flightsOfCycle2().size();
    QVERIFY(flights >= 4);
    const std::pair<QString, QString> layers[] = {{"kml", "-al"}, {"gpx", "tracks"}};
    const auto path = [&](const QString& format) { return m_out.filePath("cycle." + format); };
    for (const auto& [format, layer] : layers) {
        const Result result =
            cli({"export", format, m_card, "--cycle", "2", "--output", path(format)});
        QVERIFY2(result.status == 0, qPrintable(result.lastError()));
        const QByteArray written = readFile(path(format));
        for (int flight = 1; flight <= flights; ++flight)
            QVERIFY(written.contains("<name>Flight " + QByteArray::number(flight)));
    }
    KOLT_NEEDS("GDAL");
    for (const auto& [format, layer] : layers) {
        const QByteArray read =
            run(m_home, "ogrinfo", {"-ro", "-geom=SUMMARY", path(format), layer}).output;
        for (int flight = 1; flight <= flights; ++flight)
            QCOMPARE(read.count("Flight " + QByteArray::number(flight) +
                                (format == "gpx" ? ", 18.05.2024 " : "\n")),
                     1);
    }
}

void TestCliExport::everyFlightOfACard()
{
    const QString folder = m_out.filePath("all/kml");
    const Result result = cli({"export", "kml", m_card, "--all", "--output", folder});
    QVERIFY2(result.status == 0, qPrintable(result.lastError()));
    const QJsonArray exported = result.json()["exported"].toArray();
    QVERIFY(exported.size() >= 10 && result.json()["failed"].toArray().isEmpty());
    QStringList names;
    for (const QJsonValue& entry : exported) {
        names << entry["file"].toString().section('/', -1);
        QVERIFY2(QRegularExpression("^Kolt_20\\d\\d-\\d\\d-\\d\\d_\\d{4}_Flight\\d+\\.kml$")
                     .match(names.last())
                     .hasMatch(),
                 qPrintable(names.last()));
        QVERIFY(readFile(entry["file"].toString()).endsWith("</kml>\n"));
    }
    names.sort();
    QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name), names);
    QCOMPARE(names.removeDuplicates(), 0);

    // A second run does not overwrite the files of the first.
    QVERIFY(writeFile(folder + '/' + names[0], "kept"));
    const Result second = cli({"export", "kml", m_card, "--all", "--output", folder});
    QVERIFY2(second.status == 0, qPrintable(second.lastError()));
    QCOMPARE(readFile(folder + '/' + names[0]), QByteArray("kept"));
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 2 * names.size());
    QVERIFY(QFile::exists(folder + '/' + QString(names[0]).replace(".kml", "_2.kml")));
}

/// Two cycles without a date, each with a flight; the second has no positions.
void TestCliExport::failingFlightDoesNotStopTheRest()
{
    const QTemporaryDir card;
    const QString profile = m_out.filePath("Profile.xml");
    QVERIFY(writeFile(profile,
                      "<KorvanProfile><Device name='D'>"
                      "<Parameter name='Speed' id='1' dataType='FLOAT' koltDataType='GroundSpeed'/>"
                      "<Parameter name='Lat' id='2' dataType='FLOAT' koltDataType='Latitude'/>"
                      "<Parameter name='Lon' id='2' startByte='4' dataType='FLOAT' "
                      "koltDataType='Longitude'/></Device></KorvanProfile>"));
    for (int cycle = 1; cycle <= 3; ++cycle) {
        RecordBytes bytes;
        for (int t = 0; t < 200; ++t) {
            bytes.sample(1, t, floats(t > 50 && t < 120 ? 100.0F : 0.0F));
            if (cycle != 2)
                bytes.sample(2, t, floats(4830.0F, 1100.0F));
        }
        QVERIFY(writeFile(card.filePath(QStringLiteral("%1.CAN").arg(cycle)), bytes.bytes()));
    }
    const QString folder = m_out.filePath("some");
    const Result result = run(m_home, KOLT_CLI,
                              {"export", "gpx", card.path(), "--all", "--output", folder,
                               "--profile", profile, "--variant", ""});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.lastError().startsWith("kolt-cli: 1 flights or cycles failed") &&
                 result.lastError().contains("no position"),
             qPrintable(result.lastError()));
    QCOMPARE(result.json()["exported"].toArray().size(), 2);
    QCOMPARE(result.json()["failed"][0]["cycle"].toInt(), 2);
    QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name),
             (QStringList{"Kolt_Cycle1_Flight1.gpx", "Kolt_Cycle3_Flight1.gpx"}));
}

void TestCliExport::settingsOfTheProgramCount()
{
    const QByteArray content = "<KOLT><Property id='KmlLineWidth' value='7'/>"
                               "<Property id='KmlLineColor' value='102030'/></KOLT>";
    const ProgramFile settings(m_home, "KOLT.ini", content);
    QVERIFY(settings.isReady());
    const QString path = m_out.filePath("settings.kml");
    const Result result = cli({"export", "kml", m_card, "--cycle", "1", "--flight", "1", "--output",
                               path, "--kml-line-color", "a0b0c0", "--kml-place-mark-on=false"});
    QVERIFY2(result.status == 0, qPrintable(result.lastError()));
    const QByteArray written = readFile(path);
    QVERIFY(written.contains("<width>7</width>") && written.contains("<color>ffc0b0a0</color>"));
    QVERIFY(!written.contains("Positions"));
    QCOMPARE(readFile(settings.path()), content); // options are not stored
}

void TestCliExport::failures_data()
{
    const Rows<QStringList, QString> row; // arguments without "export", says
    const QString card = KOLT_SAMPLE_CARD;
    const auto with = [&](const char* format, const QStringList& more) {
        return QStringList{format, card, "--output", "OUT"} + more;
    };
    const QStringList first{"--cycle", "1"};
    row("nothing", {}, "csv, kml, kmz, gpx, candump, dbc or sqlite");
    row("unknown format", with("pdf", first), "not \"pdf\"");
    row("no folder", {"csv", "--cycle", "1", "--output", "OUT"}, "one folder");
    row("no output", {"csv", card, "--cycle", "1"}, "--output is missing");
    row("neither cycle nor files", with("csv", {}), "either");
    row("all and a cycle", with("csv", first + QStringList{"--all"}), "--all");
    row("flight of files", with("csv", {"--files", "a", "--flight", "1"}),
        "--flight needs --cycle");
    row("flight 0", with("csv", first + QStringList{"--flight", "0"}), "\"0\"");
    row("unknown flight", with("csv", first + QStringList{"--flight", "99"}), "no flight 99");
    row("unknown cycle", with("csv", {"--cycle", "99"}), "no cycle 99");
    row("no such file", with("csv", {"--files", "no.CAN"}), "have no samples");
    row("wrong number", with("csv", first + QStringList{"--CsvResolution", "0"}),
        "--CsvResolution cannot be \"0\"");
    row("separator that is none", with("csv", first + QStringList{"--CsvLimiter", "46"}), "\"46\"");
    row("comma twice",
        with("csv", first + QStringList{"--CsvLimiter", "44", "--CsvDecimalComma", "true"}),
        "decimal comma");
    row("wrong colour", with("kml", first + QStringList{"--KmlLineColor", "red"}), "\"red\"");
    row("setting of another format", with("gpx", first + QStringList{"--CsvResolution", "5"}),
        "does not apply to an export as gpx");
    row("picture to the standard output", {"kmz", card, "--cycle", "1", "--output", "-"},
        "--output needs a file");
    row("database to the standard output", {"sqlite", card, "--all", "--output", "-"},
        "--output needs a file");
    row("every flight to the standard output", {"csv", card, "--all", "--output", "-"},
        "--output needs a folder");
    row("imperial database", with("sqlite", first + QStringList{"--unit", "imperial"}), "metric");
    row("database of an unknown cycle", with("sqlite", {"--cycle", "99"}), "no cycle 99");
    row("database below the card", {"sqlite", card, "--all", "--output", card + "/out.sqlite"},
        "folder of the recordings");
    row("database in a folder that cannot be written",
        {"sqlite", card, "--cycle", "1", "--output", "/proc/out"}, "could not be written");
    row("profile of a card", with("dbc", {}), "give no folder");
    row("profile of a cycle", {"dbc", "--cycle", "1", "--output", "OUT"}, "the profile alone");
    row("unknown parameter", with("csv", first + QStringList{"--parameter", "No/Such"}), "No/Such");
    row("no parameter at all", with("csv", first + QStringList{"--CsvAllParameter", "false"}),
        "--parameter is missing");
    row("below the card", {"csv", card, "--cycle", "1", "--output", card + "/new/out.csv"},
        "folder of the recordings");
    row("a folder that cannot be written",
        {"kml", card, "--cycle", "1", "--output", "/proc/out.kml"}, "could not be written");
    row("a folder that cannot be created", {"kml", card, "--all", "--output", "/proc/out"},
        "cannot be created");
}

void TestCliExport::failures()
{
    auto [arguments, says] = fetchRow<QStringList, QString>();
    if (arguments.value(arguments.size() - 1).startsWith("/proc"))
        KOLT_NEEDS("a folder that cannot be written by anybody");
    const QString path = m_out.filePath("kept");
    QVERIFY(writeFile(path, "before"));
    arguments.replaceInStrings("OUT", path).prepend("export");
    const Result result = cli(arguments);
    QVERIFY2(result.status > 0, QByteArray::number(result.status) + ' ' + result.errors);
    QCOMPARE(result.output, QByteArray());
    QVERIFY2(result.lastError().startsWith("kolt-cli: ") && result.lastError().contains(says),
             qPrintable(result.lastError()));
    QCOMPARE(readFile(path), QByteArray("before"));
}

void TestCliExport::helpNamesTheSettings()
{
    const Result result = run(m_home, KOLT_CLI, {"export", "--help"});
    QCOMPARE(result.status, 0);
    for (const char* text : {"kolt-cli export csv|kml|kmz|gpx|candump|dbc|sqlite FOLDER", "--all",
                             "--output", "--CsvResolution <N>", "--KmlPolygonColor <RRGGBB>"})
        QVERIFY2(result.output.contains(text), text);
}

QTEST_GUILESS_MAIN(TestCliExport)
#include "tst_cliexport.moc"

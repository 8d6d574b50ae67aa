#include "tests/cli/CliSupport.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QDir>
#include <QTest>

#include <cmath>

using namespace KOLT::Test;

/// Exports for the tools of others, read back by Python and its libraries.
class TestCliOpenFormats : public QObject
{
    Q_OBJECT

private slots:
    void othersReadTheSameValues();
    void databaseOfACard();
    void standardOutput_data();
    void standardOutput();
    void closedOutputIsTold();
    void packedKml();

private:
    Result cli(const QStringList& arguments) const
    {
        return run(m_home, KOLT_CLI,
                   arguments + QStringList{"--profile", KOLT_PROFILE, "--variant", "915"});
    }

    Result python(const QStringList& arguments) const
    {
        // Debian's, which has its libraries; another one may come first in the path.
        return run(m_home, "/usr/bin/python3", arguments);
    }

    QTemporaryDir m_home;
    QTemporaryDir m_out;
    const QString m_card = KOLT_SAMPLE_CARD;
};

/// One parameter of each kind: floats with factor and offset, scaled integers of each width and
/// sign, bit fields in the upper bits, positions.
void TestCliOpenFormats::othersReadTheSameValues()
{
    const QString log = m_out.filePath("cycle.log");
    const QString dbc = m_out.filePath("profile.dbc");
    const QString database = m_out.filePath("cycle.sqlite");
    for (const QStringList& arguments :
         {QStringList{"export", "candump", m_card, "--cycle", "3", "--clock-offset", "+02:00",
                      "--output", log},
          {"export", "dbc", "--output", dbc},
          {"export", "sqlite", m_card, "--cycle", "3", "--output", database}}) {
        const Result result = cli(arguments);
        QVERIFY2(result.status == 0, qPrintable(result.lastError()));
        QVERIFY(result.output.isEmpty());
    }
    const QStringList names{"ECU Lane A/Engine Speed",
                            "ECU Lane A/Coolant Temperature A",
                            "ECU Lane A/Ambient Pressure",
                            "ECU Lane A/Engine Hours",
                            "ECU Lane A/Ignition Advance A",
                            "ECU Lane A/Knock Retard A",
                            "ECU Lane A/Control Mode A",
                            "ECU Lane A/Supply Voltage A",
                            "ECU Lane B/Injection Time B",
                            "Airframe/Propeller Pitch",
                            "Airframe/Density Altitude",
                            "Airframe/Tow Hook",
                            "GPS/Latitude",
                            "GPS/Longitude",
                            "EMU/Lamp Lane B"};
    QStringList arguments{KOLT_READER, dbc, log, database, "3"};
    for (int i = 0; i < names.size(); ++i) {
        const QString path = m_out.filePath(QStringLiteral("values%1.json").arg(i));
        QVERIFY(writeFile(path,
                          cli({"values", m_card, "--cycle", "3", "--parameter", names[i]}).output));
        arguments << names[i] + '=' + path;
    }
    KOLT_NEEDS("Python");
    const Result read = python(arguments);
    QVERIFY2(read.status == 0, read.errors.constData());
    const QJsonObject json = read.json();
    for (const QString& name : names) {
        const QJsonObject counts = json["parameters"][name].toObject();
        const int samples = counts["samples"].toInt();
        QVERIFY2(samples > 100 && counts["frames"] == samples && counts["rows"] == samples &&
                     counts["wrongFrames"] == 0 && counts["wrongRows"] == 0,
                 QJsonDocument(counts).toJson() + name.toUtf8());
    }
    QCOMPARE(json["integrity"].toString(), "ok");

    // The log's clock is the counter plus the cycle's date, moved by the offset.
    const QJsonObject list = cli({"list", m_card, "--headers-only"}).json();
    QDateTime start = QDateTime::fromString(list["cycles"][2]["dateTime"].toString(), Qt::ISODate);
    start.setTimeSpec(Qt::UTC);
    const double expected = static_cast<double>(start.toSecsSinceEpoch()) + 7200.0;
    const double first = json["clocks"][0].toDouble();
    QVERIFY(first >= expected && first < expected + 1.0); // the list is cut to seconds
    QVERIFY(json["clocks"][1].toDouble() - first < 2e-6);

    const QJsonObject counts = json["counts"].toObject();
    const auto size = [&](const QStringList& verb, const char* key) {
        return cli(verb + QStringList{m_card, "--cycle", "3"}).json()[key].toArray().size();
    };
    QCOMPARE(counts["flights"].toInt(), size({"flights"}, "flights"));
    QCOMPARE(counts["events"].toInt(), size({"events"}, "events"));
    QCOMPARE(counts["episodes"].toInt(), size({"episodes"}, "episodes"));
    QCOMPARE(counts["findings"].toInt(), size({"flights"}, "trust"));
    QCOMPARE(counts["files"].toInt(), list["cycles"][2]["files"].toArray().size());
}

/// All cycles in one file, of some parameters, in place of a former file.
void TestCliOpenFormats::databaseOfACard()
{
    const QString path = m_out.filePath("card.sqlite");
    QVERIFY(writeFile(path, "former"));
    const Result result = cli({"export", "sqlite", m_card, "--all", "--output", path, "--parameter",
                               "GPS/Altitude", "--parameter", "ECU Lane A/Engine State A"});
    QVERIFY2(result.status == 0, qPrintable(result.lastError()));
    KOLT_NEEDS("Python");
    const Result read = python(
        {"-c",
         "import json, sqlite3, sys\n"
         "c = sqlite3.connect(sys.argv[1])\n"
         "one = lambda q: c.execute(q).fetchone()[0]\n"
         "print(json.dumps({\n"
         "'cycles': one('SELECT count(*) FROM cycles'),\n"
         "'sampled': one('SELECT count(DISTINCT cycle) FROM samples'),\n"
         "'highest': one('SELECT max(value) FROM \"GPS/Altitude\" WHERE cycle = 2'),\n"
         "'label': one('SELECT label FROM labels JOIN parameters USING (parameter) WHERE "
         "full_name = \"ECU Lane A/Engine State A\" AND value = 4'),\n"
         "'feet': one('SELECT value * factor + u.\"offset\" FROM samples JOIN parameters p USING "
         "(parameter) JOIN units u USING (unit, imperial_unit) WHERE name = \"Altitude\" AND value "
         "= (SELECT max(value) FROM \"GPS/Altitude\" WHERE cycle = 2)'),\n"
         "'without': one('SELECT count(*) FROM parameters WHERE table_name IS NULL')}))\n",
         path});
    QVERIFY2(read.status == 0, read.errors.constData());
    const QJsonObject json = read.json();
    const QJsonObject list = cli({"list", m_card, "--headers-only"}).json();
    const qsizetype cycles = list["cycles"].toArray().size();
    QVERIFY(cycles > 2);
    QCOMPARE(json["cycles"].toInt(), cycles);
    QCOMPARE(json["sampled"].toInt(), cycles);
    QCOMPARE(json["label"].toString(), "CRUISE");
    QVERIFY(json["highest"].toDouble() > 1000.0);
    QVERIFY(std::abs(json["feet"].toDouble() - json["highest"].toDouble() * 3.2808399) < 1e-6);
    QVERIFY(json["without"].toInt() > 100);
    QCOMPARE(QDir(m_out.path()).entryList({"card*"}, QDir::Files | QDir::Hidden),
             QStringList{"card.sqlite"});
}

void TestCliOpenFormats::standardOutput_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QStringList cycle{m_card, "--cycle", "1"};
    for (const char* format : {"csv", "kml", "gpx", "candump"})
        QTest::newRow(format) << QStringList{"export", format} + cycle;
    QTest::newRow("dbc") << QStringList{"export", "dbc"};
}

void TestCliOpenFormats::standardOutput()
{
    QFETCH(QStringList, arguments);
    const QString path = m_out.filePath("file");
    QCOMPARE(cli(arguments + QStringList{"--output", path}).status, 0);
    const Result result = cli(arguments + QStringList{"--output", "-"});
    QVERIFY2(result.status == 0, qPrintable(result.lastError()));
    QVERIFY(!result.output.isEmpty());
    QCOMPARE(result.output, readFile(path));
    QVERIFY(!QFile::exists("-"));
}

void TestCliOpenFormats::closedOutputIsTold()
{
    KOLT_NEEDS("a shell");
    const QString program = QStringLiteral("'%1' export candump '%2' --cycle 1 --output - "
                                           "--profile '%3' --variant 915 ")
                                .arg(KOLT_CLI, m_card, KOLT_PROFILE);
    const Result full = run(m_home, "sh", {"-c", program + "> /dev/full"});
    QCOMPARE(full.status, 1);
    QVERIFY2(full.lastError().contains("the standard output could not be written"),
             qPrintable(full.lastError()));
    const Result closed =
        run(m_home, "sh", {"-c", "{ " + program + "; echo status $? >&2; } | head -1"});
    QCOMPARE(closed.output.count('\n'), 1);
    QVERIFY2(closed.errors.contains("Broken pipe") && closed.errors.endsWith("status 1\n"),
             closed.errors.right(200).constData());
}

/// A KMZ file whose document refers to icons that it holds, and that GDAL reads.
void TestCliOpenFormats::packedKml()
{
    const QString path = m_out.filePath("cycle.kmz");
    const Result result = cli({"export", "kmz", m_card, "--cycle", "2", "--output", path});
    QVERIFY2(result.status == 0, qPrintable(result.lastError()));
    KOLT_NEEDS("Python");
    const Result read = python(
        {"-c",
         "import json, re, sys, zipfile\n"
         "z = zipfile.ZipFile(sys.argv[1])\n"
         "assert z.testzip() is None\n"
         "names = z.namelist()\n"
         "text = z.read(names[0]).decode()\n"
         "print(json.dumps({'first': names[0], 'icons': sorted(set(re.findall('<href>(.*?)<', "
         "text))), 'held': sorted(n for n in names if z.read(n)[:4] == b'\\x89PNG'),\n"
         "'used': sorted(set(re.findall('#(error|warning)', text))), 'net': text.count('http://"
         "maps')}))\n",
         path});
    QVERIFY2(read.status == 0, read.errors.constData());
    const QJsonObject json = read.json();
    QCOMPARE(json["first"].toString(), "doc.kml");
    QCOMPARE(json["icons"].toArray().size(), 3);
    QCOMPARE(json["held"], json["icons"]);
    QCOMPARE(json["net"].toInt(), 0);
    QCOMPARE(json["used"].toArray(), (QJsonArray{"error", "warning"}));
    QVERIFY(run(m_home, "ogrinfo", {"-ro", "-q", path}).output.contains("Exceeded"));
}

QTEST_GUILESS_MAIN(TestCliOpenFormats)
#include "tst_cliopenformats.moc"

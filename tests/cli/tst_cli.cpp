#include "tests/support/RecordBytes.h"
#include "tests/support/TestFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

using namespace KOLT::Test;

/// Runs kolt-cli as a shop would, on the sample card and on bad input.
class TestCli : public QObject
{
    Q_OBJECT

private slots:
    void listTellsFilesAndCycles();
    void dateRepairedOnlyWithAValidDate();
    void everyFlightIsBelievable();
    void cardHasItsStories();
    void valuesAreExact();
    void eventsInBothUnits();
    void reportIsForPeople();
    void failures_data();
    void failures();
    void helpOfEveryVerb();
    void fullOutputIsAFailure();

private:
    struct Result
    {
        int status = -1;
        QByteArray output;
        QByteArray errors;

        QJsonObject json() const { return QJsonDocument::fromJson(output).object(); }
    };

    Result run(const QStringList& arguments) const;
    QJsonObject onCard(const QString& verb, const QStringList& more) const;
    int cycleCount() const;

    QTemporaryDir m_home;
    const QString m_card = KOLT_SAMPLE_CARD;
    const QStringList m_profile{"--profile", KOLT_PROFILE, "--variant", "915"};
};

TestCli::Result TestCli::run(const QStringList& arguments) const
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", m_home.path());
    program.setProcessEnvironment(environment);
    program.start(KOLT_CLI, arguments);
    program.waitForFinished(120'000);
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
            program.readAllStandardOutput(), program.readAllStandardError()};
}

QJsonObject TestCli::onCard(const QString& verb, const QStringList& more) const
{
    const Result result = run(QStringList{verb, m_card} + more + m_profile);
    return result.status == 0 ? result.json() : QJsonObject();
}

int TestCli::cycleCount() const
{
    return static_cast<int>(run({"list", m_card}).json()["cycles"].toArray().size());
}

void TestCli::listTellsFilesAndCycles()
{
    const Result result = run({"list", m_card});
    QCOMPARE(result.status, 0);
    const QJsonArray files = result.json()["files"].toArray();
    const QJsonArray cycles = result.json()["cycles"].toArray();
    QVERIFY(cycles.size() >= 6);
    QStringList ofCycles;
    for (const QJsonValue& cycle : cycles) {
        QCOMPARE(cycle["name"].toString(), QStringLiteral("Cycle %1").arg(cycle["number"].toInt()));
        QVERIFY(cycle["files"].toArray().size() >= 2);
        QVERIFY(
            QDateTime::fromString(cycle["dateTime"].toString(), "yyyy-MM-ddThh:mm:ss").isValid());
        for (const QJsonValue& name : cycle["files"].toArray())
            ofCycles << name.toString();
    }
    QStringList listed;
    for (const QJsonValue& file : files) {
        QCOMPARE(file.toObject().size(), 14);
        QVERIFY(file["stop"].toDouble() > file["start"].toDouble());
        QVERIFY(file["samples"].toInt() > 0);
        QVERIFY(!file["engineSerial"].toString().isEmpty());
        listed << file["name"].toString();
    }
    QCOMPARE(listed, ofCycles);
    QVERIFY(result.errors.contains("CardContainer::readContainer: Path <"));
}

void TestCli::dateRepairedOnlyWithAValidDate()
{
    const QTemporaryDir card;
    QVERIFY(writeFile(card.filePath("1.CAN"), RecordBytes().sample(1, 0.1).sample(1, 60).bytes()));
    QVERIFY(writeFile(card.filePath("2.CAN"), RecordBytes().date(2026, 2, 1, 12).bytes()));
    QVERIFY(writeFile(card.filePath("3.CAN"), {}));
    const QJsonObject json = run({"list", card.path()}).json();
    const QJsonArray files = json["files"].toArray();
    QCOMPARE(files[0]["dateTime"].toString(), "2026-02-01T11:59:00");
    QCOMPARE(files[0]["start"].toDouble(), 0.1);
    QVERIFY(files[0]["dateRepaired"].toBool());
    QVERIFY(!files[1]["dateRepaired"].toBool());
    QVERIFY(files[2]["dateTime"].isNull() && !files[2]["dateRepaired"].toBool());
    QVERIFY(json["cycles"][1]["dateTime"].isNull());
}

void TestCli::everyFlightIsBelievable()
{
    int flights = 0;
    for (int cycle = 1; cycle <= cycleCount(); ++cycle) {
        const QJsonObject json = onCard("flights", {"--cycle", QString::number(cycle)});
        QVERIFY(json["trackPoints"].toInt() > 100);
        for (const QJsonValue& flight : json["flights"].toArray()) {
            ++flights;
            QCOMPARE(flight.toObject().size(), 18);
            const auto within = [&](const char* key, double low, double high) {
                const double value = flight[QLatin1String(key)].toDouble();
                return QTest::qVerify(
                    value >= low && value <= high, key,
                    qPrintable(QStringLiteral("%1 in cycle %2").arg(value).arg(cycle)), __FILE__,
                    __LINE__);
            };
            QVERIFY(within("altitudeGain", 300, 1100));
            QVERIFY(within("minAltitude", 400, 500));
            QVERIFY(within("climbRate", 1.5, 6));
            QVERIFY(within("descentRate", 1, 8));
            QVERIFY(within("maxGroundSpeed", 110, 230));
            QVERIFY(within("fuel", 1, 8));
            QVERIFY(within("takeOffDistance", 150, 450));
            QVERIFY(within("takeOffDistance15m", 250, 750));
            QVERIFY(flight["takeOffDistance15m"].toDouble() > flight["takeOffDistance"].toDouble());
            const double duration = flight["landing"].toDouble() - flight["takeOff"].toDouble();
            QVERIFY2(duration > 180 && duration < 1800, qPrintable(QString::number(duration)));
        }
    }
    QVERIFY2(flights >= 10, qPrintable(QString::number(flights)));
}

void TestCli::cardHasItsStories()
{
    int cyclesOfFour = 0;
    int cyclesOnTheGround = 0;
    QSet<QString> exceeded;
    QSet<QString> lamps;
    for (int cycle = 1; cycle <= cycleCount(); ++cycle) {
        const QStringList choice{"--cycle", QString::number(cycle)};
        const qsizetype flights = onCard("flights", choice)["flights"].toArray().size();
        cyclesOfFour += flights >= 4 ? 1 : 0;
        cyclesOnTheGround += flights == 0 ? 1 : 0;
        for (const QJsonValue& event : onCard("events", choice)["events"].toArray())
            exceeded << event["parameter"].toString();
        for (const QJsonValue& event :
             onCard("events", choice + QStringList{"--lamps"})["events"].toArray())
            lamps << event["parameter"].toString();
    }
    QVERIFY(cyclesOfFour >= 2);
    QVERIFY(cyclesOnTheGround >= 1);
    const QStringList names(exceeded.begin(), exceeded.end());
    QVERIFY2(names.filter("Oil Temp").size() >= 1 && names.filter("EGT").size() >= 1 &&
                 names.filter("Engine Speed").size() >= 1,
             qPrintable(names.join(", ")));
    QVERIFY(!lamps.isEmpty() && exceeded.contains(lamps));
    QVERIFY(lamps.size() < exceeded.size());
}

void TestCli::valuesAreExact()
{
    const QTemporaryDir card;
    const QString profile = card.filePath("Profile.xml");
    QVERIFY(writeFile(
        profile,
        "<KorvanProfile><UnitConversions><Unit unitMetric='&#176;C' unitImperial='\"F\"' "
        "factor='1.8' offset='32'/>"
        "</UnitConversions><ThresholdList><Threshold name='T'><Value val='1' color='#ffaa00' "
        "state='WARNING'/>"
        "</Threshold></ThresholdList><Device name='D'><Parameter name='p' id='291' "
        "dataType='FLOAT' precision='1' "
        "unitMetric='&#176;C' unitImperial='\"F\"' thresholdId='T'/></Device></KorvanProfile>"));
    // 0.1 and 2.5 in single precision, and a NaN.
    QVERIFY(
        writeFile(card.filePath("a.can"), RecordBytes(false)
                                              .sample(0x80000123, 0.25, {0xcd, 0xcc, 0xcc, 0x3d})
                                              .sample(291, 134.217728, {0, 0, 0x20, 0x40})
                                              .sample(291, 200, {0, 0, 0xc0, 0x7f})
                                              .bytes()));
    const Result result = run({"values", card.path(), "--profile", profile, "--variant", "x",
                               "--unit", "imperial", "--parameter", "D/p", "--files", "a.can"});
    QCOMPARE(result.output, QByteArray("{\"unit\":\"\\\"F\\\"\",\"samples\":[\n"
                                       "[0.25,3,0.10000000149011612,\"32.2\",0,\"#ffffff\"],\n"
                                       "[134.217728,1342,2.5,\"36.5\",1,\"#ffaa00\"],\n"
                                       "[200,2000,null,\"nan\",0,\"#ffffff\"]\n]}\n"));
    QVERIFY(!result.json().isEmpty());
    // A file that is not there is an empty one.
    const QJsonObject empty = run({"values", card.path(), "--files", "b.can", "c.can", "--profile",
                                   profile, "--parameter", "D/p"})
                                  .json();
    QVERIFY(empty["samples"].isArray() && empty["samples"].toArray().isEmpty());
    QCOMPARE(empty["unit"].toString(), QString::fromUtf8("°C"));
}

void TestCli::eventsInBothUnits()
{
    bool anyDifference = false;
    for (int cycle = 1; cycle <= cycleCount(); ++cycle) {
        const QJsonArray metric =
            onCard("events", {"--cycle", QString::number(cycle)})["events"].toArray();
        const QJsonArray imperial =
            onCard("events", {"--cycle", QString::number(cycle), "--unit", "imperial"})["events"]
                .toArray();
        QCOMPARE(metric.size(), imperial.size());
        double previous = 0.0;
        for (qsizetype i = 0; i < metric.size(); ++i) {
            QCOMPARE(metric[i]["time"].toDouble(), imperial[i]["time"].toDouble());
            QVERIFY(metric[i]["time"].toDouble() >= previous);
            previous = metric[i]["time"].toDouble();
            QVERIFY(metric[i]["text"].toString().startsWith(
                metric[i]["group"].toString() + " " + metric[i]["parameter"].toString() + " "));
            anyDifference = anyDifference || metric[i]["text"] != imperial[i]["text"];
        }
    }
    QVERIFY(anyDifference);
}

void TestCli::reportIsForPeople()
{
    // Without --profile and --variant the installed ones are used.
    const Result result = run({"report", m_card});
    QCOMPARE(result.status, 0);
    const QString text = QString::fromUtf8(result.output);
    QCOMPARE(text.count("\nCycle "), cycleCount());
    QVERIFY(text.contains("\nTotal: "));
    QVERIFY(!text.contains("nan") && !text.contains("inf"));
    QVERIFY(QFile::exists(m_home.filePath("KOLT/Profile.xml")));
}

void TestCli::failures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("says");

    const QString card = KOLT_SAMPLE_CARD;
    const QString profile = KOLT_PROFILE;
    QTest::newRow("nothing") << QStringList{} << "no verb";
    QTest::newRow("unknown verb") << QStringList{"fly", card} << "unknown verb \"fly\"";
    QTest::newRow("no folder") << QStringList{"list"} << "one folder";
    QTest::newRow("two folders") << QStringList{"list", card, card} << "one folder";
    QTest::newRow("unknown option") << QStringList{"list", card, "--cycle", "1"} << "cycle";
    QTest::newRow("missing folder")
        << QStringList{"list", "/no/such"} << "there is no folder /no/such";
    QTest::newRow("missing profile")
        << QStringList{"report", card, "--profile", "/no/such.xml"} << "/no/such.xml";
    QTest::newRow("profile that is none")
        << QStringList{"report", card, "--profile", KOLT_CLI} << "not a KOLT profile";
    QTest::newRow("unknown cycle")
        << QStringList{"flights", card, "--cycle", "99", "--profile", profile} << "no cycle 99";
    QTest::newRow("cycle is no number") << QStringList{"flights", card, "--cycle", "x"} << "\"x\"";
    QTest::newRow("cycle and files")
        << QStringList{"flights", card, "--cycle", "1", "--files", "a"} << "either";
    QTest::newRow("neither") << QStringList{"events", card} << "either";
    QTest::newRow("unknown unit") << QStringList{"events", card, "--cycle", "1", "--unit", "feet"}
                                  << "\"feet\"";
    QTest::newRow("no parameter") << QStringList{"values", card, "--cycle", "1"} << "--parameter";
    QTest::newRow("unknown parameter")
        << QStringList{"values",    card,    "--cycle",     "1",
                       "--profile", profile, "--parameter", "No/Such"}
        << "No/Such";
}

void TestCli::failures()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, says);
    const Result result = run(arguments);
    QVERIFY2(result.status > 0, qPrintable(QString::number(result.status)));
    QCOMPARE(result.output, QByteArray());
    const QString last = QString::fromUtf8(result.errors).trimmed().section('\n', -1);
    QVERIFY2(last.startsWith("kolt-cli: ") && last.contains(says), qPrintable(last));
}

void TestCli::helpOfEveryVerb()
{
    const QString general = QString::fromUtf8(run({"--help"}).output);
    for (const char* verb : {"list", "flights", "values", "events", "report"}) {
        QVERIFY(general.contains(verb));
        const Result result = run({verb, "--help"});
        QCOMPARE(result.status, 0);
        QVERIFY(result.output.startsWith(QByteArray("Usage: kolt-cli ") + verb));
        QCOMPARE(result.output.contains("--cycle"),
                 verb != QByteArray("list") && verb != QByteArray("report"));
    }
}

void TestCli::fullOutputIsAFailure()
{
    QProcess program;
    program.setStandardOutputFile("/dev/full");
    program.start(KOLT_CLI, {"list", m_card});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 1);
    QVERIFY(program.readAllStandardError().contains("kolt-cli: the output could not be written"));
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

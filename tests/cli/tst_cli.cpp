#include "tests/cli/CliSupport.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QDir>

#include <cmath>
#include <numeric>

using namespace KOLT::Test;

/// Runs kolt-cli on the sample card and on bad input.
class TestCli : public QObject
{
    Q_OBJECT

private slots:
    void listTellsFilesAndCycles();
    void trustIsWhatWasPlanted();
    void dateRepairedOnlyWithAValidDate();
    void valuesAreExact();
    void flightsAndEventsOfTheCard();
    void overviewSaysWhatTheOtherVerbsSay();
    void reportIsForPeople();
    void reportOfAnotherEngine();
    void clockOffset();
    void variantsAreThoseOfTheWindow();
    void positionsAreFiltered();
    void unreadFilesAreAnError();
    void failures_data();
    void failures();
    void helpOfEveryVerb();
    void fullOutputIsAFailure();

private:
    Result run(const QStringList& arguments) const
    {
        return KOLT::Test::run(m_home, KOLT_CLI, arguments);
    }

    QJsonObject onCard(const QString& verb, const QStringList& more) const
    {
        const Result result = run(QStringList{verb, m_card} + more + m_profile);
        return result.status == 0 ? result.json() : QJsonObject();
    }

    qsizetype cycleCount() const
    {
        return run({"list", m_card, "--headers-only"}).json()["cycles"].toArray().size();
    }

    QTemporaryDir m_home;
    const QString m_card = KOLT_SAMPLE_CARD;
    const QStringList m_profile{"--profile", KOLT_PROFILE, "--variant", "915"};
};

void TestCli::listTellsFilesAndCycles()
{
    const Result result = run({"list", m_card, "--headers-only"});
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

/// The findings of the sample card are those that its generator knows of, and no others.
void TestCli::trustIsWhatWasPlanted()
{
    QJsonArray planted;
    for (const QJsonValue& entry :
         QJsonDocument::fromJson(readFile(m_card + "/../planted.json")).array()) {
        if (entry.toObject().contains("kind"))
            planted << entry;
        else
            QVERIFY(entry["peak"].toDouble() > 0.0 && !entry["parameter"].toString().isEmpty());
    }
    QCOMPARE(planted.size(), 3);
    qsizetype found = 0;
    const QJsonObject list = onCard("list", {});
    for (const QJsonValue& cycle : list["cycles"].toArray()) {
        for (const QJsonValue& finding : cycle["trust"].toArray()) {
            const QJsonValue expected = planted.at(found++);
            QCOMPARE(cycle["number"], expected["cycle"]);
            QCOMPARE(finding["kind"], expected["kind"]);
            QCOMPARE(finding["files"], expected["files"]);
            for (const char* end : {"from", "to"}) // a take-off is found some samples later
                QVERIFY(std::abs(finding[QLatin1String(end)].toDouble() -
                                 expected[QLatin1String(end)].toDouble()) < 3.0);
            QVERIFY(finding["severity"] == "doubtful" && finding["text"].toString().size() > 20);
        }
    }
    QCOMPARE(found, planted.size());
    // The same of what is loaded; the hole ends within the 30 s before the take-off, or before.
    const QJsonObject flights = onCard("flights", {"--cycle", "6"});
    const QJsonValue hole = flights["trust"].toArray().first();
    const QJsonValue flight = flights["flights"].toArray().first();
    QCOMPARE(hole["kind"].toString(), "hole");
    QVERIFY(std::abs(hole["to"].toDouble() - hole["from"].toDouble() - 60.0) < 0.5);
    QCOMPARE(flight["marked"].toArray().contains("fuel"),
             hole["to"].toDouble() > flight["start"].toDouble());
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

void TestCli::valuesAreExact()
{
    const QTemporaryDir card;
    const QString profile = card.filePath("Profile.xml");
    QVERIFY(writeFile(profile, "<KorvanProfile><UnitConversions><Unit unitMetric='&#176;C' "
                               "unitImperial='\"F\"' factor='1.8' offset='32'/></UnitConversions>"
                               "<ThresholdList><Threshold name='T'><Value val='1' color='#ffaa00' "
                               "state='WARNING'/></Threshold></ThresholdList><Device name='D'>"
                               "<Parameter name='p' id='291' dataType='FLOAT' precision='1' "
                               "unitMetric='&#176;C' unitImperial='\"F\"' thresholdId='T'/>"
                               "</Device></KorvanProfile>"));
    // 0.1 and 2.5 in single precision, and a NaN.
    QVERIFY(writeFile(card.filePath("a.can"), RecordBytes(false)
                                                  .sample(0x80000123, 0.25, floats(0.1F))
                                                  .sample(291, 134.217728, floats(2.5F))
                                                  .sample(291, 200, floats(std::nanf("")))
                                                  .bytes()));
    const QStringList asked{"--profile", profile, "--parameter", "D/p", "--files"};
    const Result result =
        run(QStringList{"values", card.path(), "--variant", "x", "--unit", "imperial"} + asked +
            QStringList{"a.can"});
    QCOMPARE(result.output, QByteArray("{\"unit\":\"\\\"F\\\"\",\"unread\":[],\"samples\":[\n"
                                       "[0.25,3,0.10000000149011612,\"32.2\",0,\"#ffffff\"],\n"
                                       "[134.217728,1342,2.5,\"36.5\",1,\"#ffaa00\"],\n"
                                       "[200,2000,null,\"nan\",0,\"#ffffff\"]\n]}\n")
                                .replace("\n", lineEnd));
    QVERIFY(!result.json().isEmpty());
    // A missing file counts as empty.
    const QJsonObject empty =
        run(QStringList{"values", card.path()} + asked + QStringList{"b.can", "c.can"}).json();
    QVERIFY(empty["samples"].isArray() && empty["samples"].toArray().isEmpty());
    QCOMPARE(empty["unit"].toString(), QString::fromUtf8("°C"));
    QCOMPARE(empty["unread"].toArray(), (QJsonArray{"b.can", "c.can"}));
}

/// Plausible flights, events beyond those of the lamps, and the same events in both unit systems.
void TestCli::flightsAndEventsOfTheCard()
{
    const std::tuple<const char*, double, double> ranges[] = {
        {"altitudeGain", 300, 1100},   {"minAltitude", 400, 500},       {"climbRate", 1.5, 6},
        {"descentRate", 1, 8},         {"maxGroundSpeed", 110, 230},    {"fuel", 1, 8},
        {"takeOffDistance", 150, 450}, {"takeOffDistance15m", 250, 750}};
    QList<qsizetype> flightsOfCycles;
    bool anyDifference = false;
    QSet<QString> exceeded;
    QSet<QString> lamps;
    for (int cycle = 1; cycle <= cycleCount(); ++cycle) {
        const QStringList choice{"--cycle", QString::number(cycle)};
        const QJsonObject json = onCard("flights", choice);
        QVERIFY(json["trackPoints"].toInt() > 100);
        const QJsonArray flights = json["flights"].toArray();
        flightsOfCycles << flights.size();
        for (const QJsonValue& flight : flights) {
            QCOMPARE(flight.toObject().size(), 19);
            for (const auto& [key, low, high] : ranges) {
                const double value = flight[QLatin1String(key)].toDouble();
                QVERIFY2(value >= low && value <= high, key);
            }
            QVERIFY(flight["takeOffDistance15m"].toDouble() > flight["takeOffDistance"].toDouble());
            const double duration = flight["landing"].toDouble() - flight["takeOff"].toDouble();
            QVERIFY2(duration > 180 && duration < 1800, qPrintable(QString::number(duration)));
        }
        const auto eventsOf = [&](const QStringList& more) {
            return onCard("events", choice + more)["events"].toArray();
        };
        const QJsonArray metric = eventsOf({});
        const QJsonArray imperial = eventsOf({"--unit", "imperial"});
        QCOMPARE(metric.size(), imperial.size());
        double previous = 0.0;
        for (qsizetype i = 0; i < metric.size(); ++i) {
            const QString parameter = metric[i]["parameter"].toString();
            exceeded << parameter;
            QCOMPARE(metric[i]["time"].toDouble(), imperial[i]["time"].toDouble());
            QVERIFY(metric[i]["time"].toDouble() >= previous);
            previous = metric[i]["time"].toDouble();
            QVERIFY(metric[i]["text"].toString().startsWith(metric[i]["group"].toString() + " " +
                                                            parameter + " "));
            anyDifference = anyDifference || metric[i]["text"] != imperial[i]["text"];
        }
        for (const QJsonValue& event : eventsOf({"--lamps"}))
            lamps << event["parameter"].toString();
    }
    QVERIFY(anyDifference);
    QVERIFY(std::accumulate(flightsOfCycles.begin(), flightsOfCycles.end(), 0) >= 10);
    QVERIFY(flightsOfCycles.contains(0));
    QVERIFY(std::ranges::count_if(flightsOfCycles, [](qsizetype n) { return n >= 4; }) >= 2);
    const QStringList names(exceeded.begin(), exceeded.end());
    for (const char* name : {"Oil Temp", "EGT", "Engine Speed"})
        QVERIFY2(!names.filter(name).isEmpty(), name);
    QVERIFY(!lamps.isEmpty() && exceeded.contains(lamps) && lamps.size() < exceeded.size());
}

void TestCli::overviewSaysWhatTheOtherVerbsSay()
{
    const QJsonObject json = onCard("overview", {});
    QCOMPARE(json.keys(), (QStringList{"cycles", "days"}));
    const QJsonArray cycles = json["cycles"].toArray();
    QCOMPARE(cycles.size(), cycleCount());
    QHash<QString, std::pair<qsizetype, double>> days;
    bool anyOutside = false;
    for (const QJsonValue& cycle : cycles) {
        const QStringList choice{"--cycle", QString::number(cycle["number"].toInt())};
        const QJsonArray flights = cycle["flights"].toArray();
        QCOMPARE(flights, onCard("flights", choice)["flights"].toArray());
        const QJsonArray events = onCard("events", choice)["events"].toArray();
        QCOMPARE(cycle["crossings"].toInt(), events.size());
        QCOMPARE(cycle["lamps"].toInt(),
                 onCard("events", choice + QStringList{"--lamps"})["events"].toArray().size());
        const QJsonValue worst = cycle["worst"];
        QCOMPARE(worst.isNull(), events.isEmpty());
        QVERIFY(worst.isNull() || std::ranges::any_of(events, [&](const QJsonValue& event) {
                    return event["time"] == worst["time"] &&
                           event["group"].toString() + '/' + event["parameter"].toString() ==
                               worst["parameter"].toString();
                }));
        double fuel = cycle["outside"]["fuel"].toDouble();
        anyOutside = anyOutside || fuel > 0.5;
        for (const QJsonValue& flight : flights)
            fuel += flight["fuel"].toDouble();
        QVERIFY(qAbs(fuel - cycle["fuel"].toDouble()) < 1e-9 && fuel > 0.0);
        auto& [count, used] = days[cycle["dateTime"].toString().left(10)];
        count += flights.size();
        used += fuel;
    }
    QVERIFY(anyOutside);
    QCOMPARE(json["days"].toArray().size(), days.size());
    QString previous = "9999";
    for (const QJsonValue& day : json["days"].toArray()) {
        const QString date = day["date"].toString();
        QVERIFY(date < previous);
        previous = date;
        QCOMPARE(day["flights"].toInt(), days[date].first);
        QCOMPARE(day["fuel"].toDouble(), days[date].second);
        QCOMPARE(day["airSeconds"].toDouble() > 0.0, day["flights"].toInt() > 0);
    }
}

void TestCli::reportIsForPeople()
{
    // Without --profile and --variant the installed ones are used, which the first start puts
    // there.
    const ProgramFile profile(m_home, "Profile.xml");
    QVERIFY(profile.isReady());
    const Result result = run({"report", m_card});
    QCOMPARE(result.status, 0);
    const QString text = QString::fromUtf8(result.text());
    QCOMPARE(text.count("\nCycle "), cycleCount());
    QVERIFY(text.contains("\nTotal: "));
    QCOMPARE(text.count("Outside flights "), 2 * cycleCount()); // in the table, and of each cycle
    QVERIFY(!text.contains("nan") && !text.contains("inf"));
    QVERIFY(QFile::exists(profile.path()));
    QVERIFY(text.contains("\nProfile: Tow plane, version ") && text.contains("taken as UTC.\n"));
    QVERIFY(!text.contains("The variant"));
}

/// What the window's bar says of a variant for another engine.
void TestCli::reportOfAnotherEngine()
{
    const QByteArray text =
        run({"report", m_card, "--profile", KOLT_PROFILE, "--variant", "850"}).output;
    QCOMPARE(text.count("\nThe recording is of an engine \"915 TURBO\""), 1);
    QVERIFY(text.contains("The variant 915 fits."));
    QCOMPARE(text.count("850*"), cycleCount()); // among what is found in each of them
}

/// Exports and report follow the settings, JSON only the command line.
void TestCli::clockOffset()
{
    const QTemporaryDir home;
    const ProgramFile settings(home, "KOLT.ini",
                               "<KOLT><Property id='ClockOffset' value='-90'/></KOLT>");
    QVERIFY(settings.isReady());
    const auto at = [&](const QStringList& more) {
        return QDateTime::fromString(
            KOLT::Test::run(home, KOLT_CLI, QStringList{"list", m_card, "--headers-only"} + more)
                .json()["cycles"][0]["dateTime"]
                .toString(),
            Qt::ISODate);
    };
    const QDateTime raw = at({});
    QCOMPARE(raw.secsTo(at({"--clock-offset", "-01:30"})), -5400);
    QCOMPARE(raw.secsTo(at({"--clock-offset", "+14:00"})), 14 * 3600);
    const auto date = [](const QDateTime& dateTime) {
        return dateTime.toString("dd.MM.yyyy hh:mm:ss").toUtf8();
    };
    const QByteArray report = KOLT::Test::run(home, KOLT_CLI, {"report", m_card}).output;
    QVERIFY(report.contains(date(raw.addSecs(-5400))) && !report.contains(date(raw)));
    QVERIFY(report.contains("and -01:30."));
}

/// An unknown variant is accepted from the settings, but not on the command line.
void TestCli::variantsAreThoseOfTheWindow()
{
    const QTemporaryDir home;
    const ProgramFile settings(home, "KOLT.ini",
                               "<KOLT><Property id='Profile' value='No such'/></KOLT>");
    QVERIFY(settings.isReady());
    const auto events = [&](const QStringList& more) {
        return KOLT::Test::run(
                   home, KOLT_CLI,
                   QStringList{"events", m_card, "--cycle", "4", "--profile", KOLT_PROFILE} + more)
            .json()["events"]
            .toArray();
    };
    const QJsonArray ofTheFirst = events({"--variant", "915"});
    QCOMPARE(ofTheFirst.size(), 8); // different without a variant's limits
    QCOMPARE(events({}), ofTheFirst);
}

/// Jumps of a degree in each axis; the limit for the longitude depends on the latitude.
void TestCli::positionsAreFiltered()
{
    const QTemporaryDir card;
    const QString profile = card.filePath("Profile.xml");
    QVERIFY(writeFile(profile,
                      "<KorvanProfile><Device name='D'>"
                      "<Parameter name='lat' id='1' dataType='FLOAT' koltDataType='Latitude'/>"
                      "<Parameter name='lon' id='1' startByte='4' dataType='FLOAT' "
                      "koltDataType='Longitude'/></Device></KorvanProfile>"));
    RecordBytes bytes;
    for (int t = 0; t < 8; ++t) {
        const float jump = t == 6 ? 100.0F : 0.0F;
        // At 60 degrees north, 0.15 degrees of longitude are less than 10 km.
        bytes.sample(1, t, t == 7 ? floats(6000.0F, 1109.0F) : floats(6000.0F + jump, 1100 + jump));
    }
    QVERIFY(writeFile(card.filePath("1.CAN"), bytes.bytes()));
    for (const auto& [name, last] : {std::pair("D/lat", 60.0), {"D/lon", 11.15}}) {
        const QJsonArray samples = run({"values", card.path(), "--files", "1.CAN", "--profile",
                                        profile, "--parameter", name})
                                       .json()["samples"]
                                       .toArray();
        QCOMPARE(samples.size(), 8);
        QCOMPARE(samples[6][2].toDouble(), samples[5][2].toDouble());
        QVERIFY(std::abs(samples[7][2].toDouble() - last) < 1e-6);
    }
}

/// A cycle of two files; the first ends before its reported size, and has no date either.
void TestCli::unreadFilesAreAnError()
{
    KOLT_NEEDS("links to files of the system");
    const QTemporaryDir card;
    QVERIFY(QFile::link("/sys/kernel/uevent_seqnum", card.filePath("1.CAN")));
    QVERIFY(QFile::copy(m_card + "/REC00002.CAN", card.filePath("2.CAN")));
    const QStringList verbs[] = {{"flights", "--cycle", "1"},
                                 {"events", "--cycle", "1"},
                                 {"values", "--cycle", "1", "--parameter", "GPS/Altitude"},
                                 {"report"}};
    for (const QStringList& verb : verbs) {
        const Result result = run(QStringList{verb[0], card.path()} + verb.mid(1) + m_profile);
        QCOMPARE(result.status, 1);
        QCOMPARE(result.lastError(), "kolt-cli: incomplete: 1.CAN could not be read");
        if (verb[0] != "report")
            QCOMPARE(result.json()["unread"].toArray(), QJsonArray{"1.CAN"});
        QVERIFY(verb[0] != "report" || result.output.contains("\nTotal: "));
    }
}

void TestCli::failures_data()
{
    const Rows<QStringList, QString> row; // arguments, says
    const QString card = KOLT_SAMPLE_CARD;
    const QString profile = KOLT_PROFILE;
    row("nothing", {}, "no verb");
    row("unknown verb", {"fly", card}, "unknown verb \"fly\"");
    row("no folder", {"list"}, "one folder");
    row("two folders", {"list", card, card}, "one folder");
    row("unknown option", {"list", card, "--cycle", "1"}, "cycle");
    row("missing folder", {"list", "/no/such"}, "there is no folder /no/such");
    row("missing profile", {"report", card, "--profile", "/no/such.xml"}, "/no/such.xml");
    row("profile that is none", {"report", card, "--profile", KOLT_CLI}, "not a KOLT profile");
    row("unknown variant", {"report", card, "--profile", profile, "--variant", "x"}, "has 91");
    row("unknown cycle", {"flights", card, "--cycle", "99", "--profile", profile}, "no cycle 99");
    row("cycle is no number", {"flights", card, "--cycle", "x"}, "\"x\"");
    row("cycle and files", {"flights", card, "--cycle", "1", "--files", "a"}, "either");
    row("neither", {"events", card}, "either");
    row("unknown unit", {"events", card, "--cycle", "1", "--unit", "feet"}, "\"feet\"");
    row("clock offset", {"list", card, "--clock-offset", "15:00"}, "15:00");
    row("no parameter", {"values", card, "--cycle", "1"}, "--parameter");
    row("unknown parameter",
        {"values", card, "--cycle", "1", "--profile", profile, "--parameter", "No/Such"},
        "No/Such");
}

void TestCli::failures()
{
    const auto [arguments, says] = fetchRow<QStringList, QString>();
    const Result result = run(arguments);
    QVERIFY2(result.status > 0, QByteArray::number(result.status) + ' ' + result.errors);
    QCOMPARE(result.output, QByteArray());
    const QString last = result.lastError();
    QVERIFY2(last.startsWith("kolt-cli: ") && last.contains(says), qPrintable(last));
}

void TestCli::helpOfEveryVerb()
{
    const QString general = QString::fromUtf8(run({"--help"}).output);
    for (const char* verb : {"list", "flights", "values", "events", "overview", "report"}) {
        QVERIFY(general.contains(verb));
        const Result result = run({verb, "--help"});
        QCOMPARE(result.status, 0);
        QVERIFY(result.output.startsWith(QByteArray("Usage: kolt-cli ") + verb));
        QCOMPARE(result.output.contains("--cycle"),
                 QByteArrayList({"flights", "values", "events"}).contains(verb));
    }
}

void TestCli::fullOutputIsAFailure()
{
    KOLT_NEEDS("/dev/full");
    const Result result =
        KOLT::Test::run(m_home, "sh", {"-c", KOLT_CLI " list \"$0\" > /dev/full", m_card});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("kolt-cli: the output could not be written"));
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

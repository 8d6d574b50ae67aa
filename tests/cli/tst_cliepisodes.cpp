#include "tests/cli/CliSupport.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <cmath>

using namespace KOLT::Test;

/// Episodes, case files and the check of profiles, by running kolt-cli on the sample card.
class TestCliEpisodes : public QObject
{
    Q_OBJECT

private slots:
    void plantedIncidents();
    void countsAreThoseOfEventsAndOverview();
    void caseOfAWholeCycle();
    void caseAroundAFinding();
    void refusedCases_data();
    void refusedCases();
    void profileCheck_data();
    void profileCheck();
    void shippedProfileIsSound();

private:
    Result run(const QStringList& arguments)
    {
        return KOLT::Test::run(m_home, KOLT_CLI, arguments);
    }

    QJsonObject on(const QString& folder, const QString& verb, const QStringList& more = {})
    {
        const Result result =
            run(QStringList{verb, folder, "--profile", KOLT_PROFILE, "--variant", "915T"} + more);
        return result.json();
    }

    QTemporaryDir m_home;
    const QString m_card = KOLT_SAMPLE_CARD;
};

void TestCliEpisodes::plantedIncidents()
{
    int exceedances = 0;
    int faults = 0;
    for (const QJsonValue& planted :
         QJsonDocument::fromJson(readFile(m_card + "/../planted.json")).array()) {
        const QString name = "/" + planted["parameter"].toString();
        const QJsonObject found =
            on(m_card, "episodes", {"--cycle", QString::number(planted["cycle"].toInt())});
        const double from = planted["from"].toDouble();
        const double to = planted["to"].toDouble();
        const auto isWithin = [&](const QJsonValue& one) {
            return one["begin"].toDouble() <= to && one["end"].toDouble() >= from;
        };
        int hits = 0;
        for (const QJsonValue& episode : found["episodes"].toArray()) {
            QStringList names;
            for (const QJsonValue& parameter : episode["parameters"].toArray())
                names << parameter.toString();
            if (planted["kind"].isString() || names.filter(name).isEmpty() || !isWithin(episode))
                continue;
            ++hits;
            const double peak = planted["peak"].toDouble();
            // The cause was there at the begin; lanes differ a little, heat comes late.
            QVERIFY(episode["begin"].toDouble() >= from && episode["begin"].toDouble() <= to);
            QVERIFY(std::abs(episode["peak"].toDouble() - peak) < 0.005 * peak);
            QVERIFY(episode["peakTime"].toDouble() <= episode["end"].toDouble());
            QVERIFY(episode["secondsBeyondWarning"].toDouble() > 0.5 * (to - from) &&
                    !episode["isCut"].toBool() && episode["engineSpeed"].isDouble());
        }
        for (const QJsonValue& fault : found["faults"].toArray()) {
            if (!fault["parameter"].toString().endsWith(name) || !isWithin(fault))
                continue;
            ++faults;
            QVERIFY(std::abs(fault["begin"].toDouble() - from) < 0.5 &&
                    std::abs(fault["end"].toDouble() - to) < 0.5 && !fault["isCut"].toBool());
        }
        QVERIFY2(hits <= 1, qPrintable(name));
        exceedances += hits;
    }
    QCOMPARE(exceedances, 4); // oil, exhaust gas, overspeed, bus voltage
    QCOMPARE(faults, 4);
}

void TestCliEpisodes::countsAreThoseOfEventsAndOverview()
{
    const QJsonArray cycles = on(m_card, "overview")["cycles"].toArray();
    QVERIFY(cycles.size() >= 6);
    for (const QJsonValue& cycle : cycles) {
        const QStringList choice{"--cycle", QString::number(cycle["number"].toInt())};
        const QJsonArray episodes = on(m_card, "episodes", choice)["episodes"].toArray();
        qsizetype crossings = 0;
        for (const QJsonValue& episode : episodes)
            crossings += episode["crossings"].toInt();
        QCOMPARE(crossings, on(m_card, "events", choice)["events"].toArray().size());
        QCOMPARE(cycle["episodes"].toInt(), episodes.size());
    }
    const QJsonArray flight =
        on(m_card, "episodes", {"--cycle", "4", "--flight", "1"})["episodes"].toArray();
    QCOMPARE(flight.size(), 1);
    QCOMPARE(flight[0]["quantity"].toString(), "Engine Speed");
    QCOMPARE(flight[0]["phase"].toString(), "climb");
}

/// All samples in one file give the same as the card's files.
void TestCliEpisodes::caseOfAWholeCycle()
{
    for (const char* cycle : {"2", "5"}) { // one has a cut file, the other is big-endian
        const QString folder = m_home.filePath(QStringLiteral("whole") + cycle);
        const Result cut = run(
            {"cut", m_card, "--cycle", cycle, "--from", "0", "--to", "1e6", "--output", folder});
        QVERIFY2(cut.status == 0, cut.errors);
        for (const char* verb : {"episodes", "flights"}) {
            QJsonObject whole = on(m_card, verb, {"--cycle", cycle});
            QJsonObject single = on(folder, verb, {"--cycle", "0"});
            for (QJsonObject* object : {&whole, &single}) { // trust is of the files
                object->remove("trust");
                QJsonArray flights = object->take("flights").toArray();
                for (qsizetype i = 0; i < flights.size(); ++i) {
                    QJsonObject flight = flights[i].toObject();
                    flight.remove("marked");
                    flight.remove("dateTime"); // to a second, see below
                    (*object)[QString::number(i)] = flight;
                }
            }
            QVERIFY(whole.size() > 3);
            QCOMPARE(single, whole);
        }
    }
}

void TestCliEpisodes::caseAroundAFinding()
{
    const QString folder = m_home.filePath("new/case");
    const Result cut = run({"cut", m_card, "--cycle", "4", "--from", "645", "--to", "710",
                            "--output", folder, "--parameter", "ECU Lane A/Engine Speed"});
    QVERIFY2(cut.status == 0, cut.errors);
    QCOMPARE(QDir(folder).entryList(QDir::Files).join(' '),
             "case.json CASE0001.CAN Profile.xml Project.xml");
    // The same as a zip file, which is read by another program.
    const QString zip = m_home.filePath("mail/case.zip");
    QVERIFY(QDir(m_home.path()).mkpath("mail"));
    const QStringList zipped{"cut",    m_card, "--cycle",     "4",
                             "--from", "645",  "--to",        "710",
                             "--zip",  zip,    "--parameter", "ECU Lane A/Engine Speed"};
    QVERIFY(run(zipped).status == 0);
    KOLT_NEEDS("Python");
    QCOMPARE(QProcess::execute("python3", {"-m", "zipfile", "-e", zip, m_home.path()}), 0);
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        QCOMPARE(readFile(m_home.filePath("case/") + name), readFile(folder + '/' + name));
    QVERIFY(run(zipped).lastError().contains("new file"));
    const auto rowsOf = [&](const QString& card, const QString& cycle) {
        QJsonArray rows;
        const QStringList choice{"--cycle", cycle, "--parameter", "ECU Lane A/Engine Speed"};
        for (const QJsonValue& row : on(card, "values", choice)["samples"].toArray()) {
            if (row[0].toDouble() >= 645 && row[0].toDouble() <= 710)
                rows << row;
        }
        return rows;
    };
    const QJsonArray rows = rowsOf(folder, "0");
    QVERIFY(rows.size() > 500);
    QCOMPARE(rows, rowsOf(m_card, "4"));
    // The same clock, serial numbers, and one finding that says what it is.
    const QJsonObject list = on(folder, "list");
    const QDateTime clock =
        QDateTime::fromString(list["cycles"][0]["dateTime"].toString(), Qt::ISODate);
    const QDateTime own =
        QDateTime::fromString(on(m_card, "list")["cycles"][3]["dateTime"].toString(), Qt::ISODate);
    QVERIFY(clock.isValid() && std::abs(clock.secsTo(own)) <= 1);
    QCOMPARE(list["files"][0]["engineSerial"], on(m_card, "list")["files"][16]["engineSerial"]);
    const QJsonArray trust = list["cycles"][0]["trust"].toArray();
    QCOMPARE(trust.size(), 1);
    QCOMPARE(trust[0]["kind"].toString() + trust[0]["severity"].toString(), "case-filenote");
    QVERIFY(trust[0]["text"].toString().contains("REC00018"));
    QVERIFY(!readFile(folder + "/case.json").contains("\"selection\": [\n    ]"));
    QVERIFY(readFile(folder + "/Project.xml").contains("<Parameter name=\"Engine Speed\"/>"));
}

void TestCliEpisodes::refusedCases_data()
{
    const Rows<QString, QString, QString> row; // cycle, folder below home or card, error
    row("no such cycle", "99", "new", "no cycle 99");
    row("below the card", "4", "CARD/new", "");
    row("not empty", "4", "full", "not empty");
    row("nothing recorded", "4", "new", "Nothing was recorded");
}

void TestCliEpisodes::refusedCases()
{
    const auto [cycle, name, error] = fetchRow<QString, QString, QString>();
    QVERIFY(QDir(m_home.path()).mkpath("full"));
    QVERIFY(writeFile(m_home.filePath("full/CASE0001.CAN"), "mine"));
    const QString folder =
        name.startsWith("CARD") ? m_card + name.mid(4) : m_home.filePath("refused-" + name);
    const QString target = name == "full" ? m_home.filePath("full") : folder;
    const bool isLate = error.startsWith("Nothing");
    const Result cut = run({"cut", m_card, "--cycle", cycle, "--from", isLate ? "9e6" : "600",
                            "--to", isLate ? "9.1e6" : "610", "--output", target});
    QCOMPARE(cut.status, 1);
    QVERIFY2(cut.lastError().contains(error), qPrintable(cut.lastError()));
    QVERIFY(name == "full" || !QFileInfo::exists(target));
    QCOMPARE(readFile(m_home.filePath("full/CASE0001.CAN")), "mine");
}

void TestCliEpisodes::profileCheck_data()
{
    const Rows<QByteArray, QByteArray> row; // changed, into what: then a finding at that line
    row("unknown type", "dataType='FLOAT' id='5'", "dataType='FLAOT' id='5'");
    row("type that is not implemented", "dataType='FLOAT' id='5'", "dataType='CHKSUM' id='5'");
    row("beyond the message", "id='5' startByte='4'", "id='5' startByte='5'");
    row("bits beyond the word", "endBit='2'", "endBit='16'");
    row("overlapping bits", "startBit='3' endBit='4'", "startBit='2' endBit='4'");
    row("descending", "val='200'", "val='99'");
    row("repeated", "val='200'", "val='100'");
    row("unknown state", "state='LIMIT'", "state='limit'");
    row("unknown list", "thresholdId='T'", "thresholdId='U'");
    row("unused enumeration", "name='E'", "name='F'");
    row("unit without conversion", "unitMetric='C' unitImperial='F' q='1'",
        "unitMetric='C' unitImperial='K' q='1'");
    row("missing role", "koltDataType='Track'", "koltDataType='track'");
    row("doubled role", "name='spare'", "name='spare' koltDataType='FuelA'");
    row("mixed units", "name='spare'", "name='spare' quantity='Q'");
    row("bad number", "hysteresis='2'", "hysteresis='-2'");
    row("unknown variant", "name='spare'", "name='spare' variant='!B'");
    row("not XML", "</KorvanProfile>", "");
    row("two names", "name='spare'", "name='FuelB'");
    row("empty matrix", "ErrorMatrix id='7'", "ErrorMatrix id='8'");
}

void TestCliEpisodes::profileCheck()
{
    QByteArray xml = "<KorvanProfile>\n<Variants><Variant name='A'/></Variants>\n"
                     "<UnitConversions><Unit unitMetric='C' unitImperial='F'/></UnitConversions>\n"
                     "<EnumList><Enum name='E'/></EnumList>\n"
                     "<ThresholdList><Threshold name='T' hysteresis='2'>\n"
                     "<Value val='100' state='WARNING'/>\n<Value val='200' state='LIMIT'/>\n"
                     "</Threshold></ThresholdList>\n<Device name='D'>\n"
                     "<ErrorMatrix id='7' name='M'/>\n";
    for (const char* role : {"Latitude", "Longitude", "Altitude", "GroundSpeed", "Track",
                             "ThrottleA", "FuelA", "FuelB", "EngineSpeed"})
        xml += QByteArray("<Parameter name='") + role + "' id='1' dataType='FLOAT' koltDataType='" +
               role + "'/>\n";
    xml += "<Parameter name='m' unitMetric='C' unitImperial='F' q='1' quantity='Q' "
           "dataType='FLOAT' id='5' startByte='4' thresholdId='T'/>\n"
           "<Parameter name='b' id='7' dataType='BSHORT' startBit='0' endBit='2' enumId='E'/>\n"
           "<Parameter name='c' id='7' dataType='BSHORT' startBit='3' endBit='4'/>\n"
           "<Parameter name='spare' id='9' dataType='FLOAT'/>\n"
           "</Device>\n</KorvanProfile>\n";
    const QString path = m_home.filePath("checked.xml");
    QVERIFY(writeFile(path, xml));
    const Result sound = run({"profile", "check", path});
    QVERIFY2(sound.status == 0 && sound.output.isEmpty(), sound.output);
    const auto [before, after] = fetchRow<QByteArray, QByteArray>();
    const qsizetype place = xml.indexOf(before);
    QVERIFY(place >= 0);
    xml.replace(place, before.size(), after);
    QVERIFY(writeFile(path, xml));
    const Result bad = run({"profile", "check", path});
    QCOMPARE(bad.status, 1);
    qsizetype line = xml.left(place).count('\n') + 1;
    if (after.contains("koltDataType='track'") || after.isEmpty())
        line = 1; // what is missing is told of the whole
    const QByteArray start = path.toUtf8() + ":" + QByteArray::number(line) + ": ";
    QVERIFY2(bad.output.startsWith(start) || bad.output.contains("\n" + start), bad.output);
    for (const QByteArray& text : bad.text().trimmed().split('\n'))
        QVERIFY2(text.endsWith('.') && text.size() > start.size() + 10, text);
}

void TestCliEpisodes::shippedProfileIsSound()
{
    const Result result = run({"profile", "check", KOLT_PROFILE});
    QVERIFY2(result.status == 0, result.output);
}

QTEST_GUILESS_MAIN(TestCliEpisodes)
#include "tst_cliepisodes.moc"

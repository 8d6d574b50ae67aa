#include "export/CandumpWriter.h"
#include "export/DbcWriter.h"
#include "export/EventStep.h"
#include "export/SqliteWriter.h"
#include "tests/export/ExportSupport.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"

#include <limits>

using namespace KOLT;
using namespace KOLT::Test;

/// Odd recordings and profiles in the formats for other tools.
class TestOpenFormats : public QObject, private ExportFixture
{
    Q_OBJECT

private slots:

    void init() { QVERIFY(load()); }

    void logHasTheRecordedOrder();
    void logWithoutAUsableClock();
    void logFailsOnAFullDisk();
    void dbcSignals_data();
    void dbcSignals();
    void dbcOfOddNames();
    void databaseOfOddNames();
    void stepsOfEvents_data();
    void stepsOfEvents();

private:
    QList<QByteArray> log(const std::vector<BusSpan>& buses, CandumpSummary& summary) const
    {
        return written([&](QIODevice& to) { return writeCandump(to, *m_dataSet, buses, summary); })
            .split('\n');
    }
};

void TestOpenFormats::logHasTheRecordedOrder()
{
    add(0x7FF, 5.0000005, {1, 2, 3, 4, 5, 6, 7, 0xFE});
    add(0x123, 7.25);
    add(0x800, 6.0); // times may run back
    add(0x123, 8.0);
    add(0x20000000, 9.0);  // 30 bits
    add(0x1FFFFFFF, 5e11); // damaged
    CandumpSummary summary;
    // The second file starts with the third sample.
    QCOMPARE(
        log({{0, 2}, {2, 4'000'000'000}}, summary),
        (QList<QByteArray>{"(1785283200.000001) can2 7FF#01020304050607FE",
                           "(1785283202.250000) can2 123#0000000000000000",
                           "(1785283201.000000) can4000000000 00000800#0000000000000000",
                           "(1785283203.000000) can4000000000 123#0000000000000000",
                           "(501785283195.000000) can4000000000 1FFFFFFF#0000000000000000", ""}));
    QCOMPARE(summary.written, 5U);
    QCOMPARE(summary.leftOut, 1U);
    QVERIFY(summary.hasClock);
}

void TestOpenFormats::logWithoutAUsableClock()
{
    add(1, 5.5);
    for (const QDateTime& start : {QDateTime(), QDateTime(QDate(1969, 1, 1), QTime(), Qt::UTC)}) {
        m_dataSet->dateTime = start;
        CandumpSummary summary;
        QCOMPARE(log({}, summary).first(), "(0000000005.500000) can0 001#0000000000000000");
        QVERIFY(!summary.hasClock);
    }
}

void TestOpenFormats::logFailsOnAFullDisk()
{
    KOLT_NEEDS("/dev/full");
    add(1, 5.5); // stays in the file's buffer
    QFile full("/dev/full");
    QVERIFY(full.open(QIODevice::WriteOnly));
    CandumpSummary summary;
    QCOMPARE(writeCandump(full, *m_dataSet, {}, summary), ExportStatus::Failed);
}

void TestOpenFormats::dbcSignals_data()
{
    // attributes of the parameter; start bit to range, empty if it is left out
    const Rows<QByteArray, QByteArray> row;
    row("float", "dataType='FLOAT' startByte='4' factor='0.5' offset='-273.15'",
        "32|32@1- (0.5,-273.15) [0|0]");
    row("imperial", "dataType='FLOAT' factor='3' offset='1' unitMetric='m' unitImperial='ft'",
        "0|32@1- (6,2) [0|0]");
    row("signed", "dataType='SHORT_2' startByte='6' factor='-0.1'",
        "48|16@1- (-0.1,0) [-3276.7|3276.8]");
    row("unsigned", "dataType='ULONG' startByte='3'", "24|32@1+ (1,0) [0|4294967295]");
    row("bits", "dataType='BSHORT' startByte='6' startBit='4' endBit='5'", "52|2@1+ (1,0) [0|3]");
    row("bits are never scaled", "dataType='BLONG' startBit='31' endBit='31' factor='5'",
        "31|1@1+ (1,0) [0|1]");
    row("bits beyond the word are 0", "dataType='BSHORT' startByte='2' startBit='12' endBit='20'",
        "28|4@1+ (1,0) [0|15]");
    row("first bit counts modulo 32", "dataType='BLONG' startBit='40' endBit='41'",
        "8|2@1+ (1,0) [0|3]");
    row("all bits", "dataType='BLONG' startBit='0' endBit='60'", "0|32@1+ (1,0) [0|4294967295]");
    row("bits beside the word", "dataType='BSHORT' startBit='16' endBit='17'", "");
    row("no bits", "dataType='BLONG' startBit='5' endBit='4'", "");
    row("not decoded", "dataType='CHKSUM'", "");
    row("beyond the message", "dataType='FLOAT' startByte='5'", "");
    row("no number", "dataType='CHAR' factor='inf'", "");
}

void TestOpenFormats::dbcSignals()
{
    const auto [attributes, expected] = fetchRow<QByteArray, QByteArray>();
    QVERIFY(loadProfile(m_profile, unit("unitMetric='m' unitImperial='ft' factor='2' offset='0'") +
                                       device({"name='P' id='2048' " + attributes})));
    m_profile.setUnitSystem(UnitSystem::Imperial);
    const DbcFile file = dbcOf(m_profile);
    QVERIFY(file.content.contains("BO_ 2147485696 D_800: 8 D\n")); // marked as extended
    QCOMPARE(file.content.contains(" SG_ P : " + expected + " \""), !expected.isEmpty());
    QCOMPARE(file.leftOut.size(), expected.isEmpty() ? 1 : 0);
    QCOMPARE(file.content.contains("SIG_VALTYPE_ 2147485696 P : 1;"),
             attributes.contains("FLOAT") && !expected.isEmpty());
}

void TestOpenFormats::dbcOfOddNames()
{
    const QByteArray longName(40, 'x');
    QVERIFY(loadProfile(
        m_profile,
        "<EnumList><Enum name='E'><Value val='0' label='say \"no\"'/><Value val='-1' "
        "label='all'/><Value val='2' label='too large'/></Enum></EnumList>" +
            device({"name='1st &#176;' id='1' dataType='CHAR' unitMetric='&#176;&#8486;'",
                    "name='" + longName + "a' id='1' dataType='CHAR'",
                    "name='" + longName + "b' id='1' dataType='CHAR'",
                    "name='lamp' id='1' dataType='BLONG' enumId='E'",
                    "name='Lamp' id='2' dataType='BLONG' endBit='31' enumId='E'",
                    "name='' id='1' dataType='CHAR'", "name='far' id='-5' dataType='CHAR'",
                    "name='farther' id='1610612736' dataType='CHAR'"})));
    const DbcFile file = dbcOf(m_profile);
    for (const QByteArray& text :
         {QByteArray(" SG_ _1st__ : 0|8@1- (1,0) [-128|127] \"\xB0?\""),
          " SG_ " + longName.left(32) + " : ",
          " SG_ " + longName.left(30) + "_2 : ", QByteArray(" SG_ _ : "),
          QByteArray("CM_ SG_ 1 " + longName.left(32) + " \"D/" + longName),
          QByteArray("VAL_ 1 lamp 0 \"say 'no'\" ;\n"),
          QByteArray("VAL_ 2 Lamp 4294967295 \"all\" 0 \"say 'no'\" 2 \"too large\" ;\n")})
        QVERIFY2(file.content.contains(text), text + '\n' + file.content);
    QCOMPARE(file.leftOut.size(), 2);
    QCOMPARE(file.signalCount, 6);
}

/// Names that SQL could take for something else, or for each other.
void TestOpenFormats::databaseOfOddNames()
{
    QVERIFY(loadProfile(
        m_profile, device({"name='cycle' id='1' dataType='FLOAT'",
                           "name='a\"; DROP' id='1' startByte='4' dataType='FLOAT'",
                           "name='A\"; drop' id='1' startByte='4' dataType='FLOAT'",
                           "name='%1' id='-7' dataType='CHAR'", "name='no' dataType='NODATA'"})));
    const QTemporaryDir card;
    RecordBytes bytes;
    bytes.date(2026, 7, 28, 14, 32, 5).sample(1, 2.0, floats(1.5F, -2.0F));
    bytes.sample(1, 1.0, floats(std::numeric_limits<float>::quiet_NaN(), 3.0F));
    QVERIFY(writeFile(card.filePath("A.CAN"), bytes.bytes()));
    CardContainer container(m_profile);
    const DiagnosticsCapture output;
    QVERIFY(container.readContainer(card.path()) &&
            container.loadFiles({card.filePath("A.CAN"), card.filePath("none.CAN")}));
    const QString path = m_directory.filePath("odd.sqlite");
    QVERIFY(writeFile(path, {}));
    SqliteWriter writer(m_profile, false);
    writer.open(path);
    QCOMPARE(writer.add(container, {}, {}), ExportStatus::Done);
    QVERIFY2(writer.close(), qPrintable(writer.error()));
    KOLT_NEEDS("Python");
    QCOMPARE(
        outputOf("python3",
                 {"-c",
                  "import sqlite3, sys\n"
                  "c = sqlite3.connect(sys.argv[1])\n"
                  "for q in ('SELECT * FROM message_1', 'SELECT * FROM \"D/a\"\"; DROP\"',\n"
                  "'SELECT value FROM \"D/A\"\"; drop_2\"', 'SELECT count(*) FROM samples',\n"
                  "'SELECT view_name, column_name FROM parameters WHERE parameter > 2',\n"
                  "'SELECT name, is_complete FROM files', 'SELECT cycle, clock FROM cycles'):\n"
                  "    print(c.execute(q).fetchall())",
                  path}),
        "[(-1, 2.0, 1.5, -2.0, -2.0), (-1, 1.0, None, 3.0, 3.0)]\n"
        "[(-1, 2.0, -2.0), (-1, 1.0, 3.0)]\n[(-2.0,), (3.0,)]\n[(6,)]\n"
        "[('D/A\"; drop_2', 'A\"; drop_2'), ('D/%1', '%1'), (None, None)]\n"
        "[('A.CAN', 1), ('none.CAN', 0)]\n[(-1, '2026-07-28 14:32:05.000')]\n");

    // What SQLite says of a file that it cannot fill.
    SqliteWriter failing(m_profile, false);
    failing.open("/dev/full");
    QCOMPARE(failing.add(container, {}, {}), ExportStatus::Failed);
    QVERIFY(!failing.close() && !failing.error().isEmpty());
}

void TestOpenFormats::stepsOfEvents_data()
{
    // values at 1 s and 2 s; what is told of the event at 2 s
    const Rows<float, float, QString> row;
    row("up to a warning", 3.0F, 3.4F, "WARNING from 3.3 bar");
    row("up to a limit", 3.0F, 4.0F, "LIMIT from 3.6 bar");
    row("down to a warning", 3.0F, 2.6F, "WARNING below 2.8 bar");
    row("down to a limit", 2.6F, 1.0F, "LIMIT below 2.5 bar");
    row("from another normal range", 7.0F, 4.0F, "LIMIT below 5.0 bar");
}

void TestOpenFormats::stepsOfEvents()
{
    const auto [before, after, told] = fetchRow<float, float, QString>();
    QVERIFY(loadProfile(
        m_profile,
        threshold("T", {"val='-1000' state='LIMIT'", "val='2.5' state='WARNING'", "val='2.8'",
                        "val='3.3' state='WARNING'", "val='3.6' state='LIMIT'", "val='5'"}) +
            device({"name='P' id='1' dataType='FLOAT' precision='1' unitMetric='bar' "
                    "thresholdId='T'"})));
    add(1, 1.0, floats(before));
    add(1, 2.0, floats(after));
    const std::vector<Event> events = findEvents(m_profile, *m_dataSet, EventScope::AllParameters);
    QCOMPARE(events.size(), 1U);
    QCOMPARE(stateAndStep(m_profile, *m_dataSet, events[0]), told);
}

QTEST_GUILESS_MAIN(TestOpenFormats)
#include "tst_openformats.moc"

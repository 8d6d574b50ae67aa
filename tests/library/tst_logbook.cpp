#include "library/ledger/Logbook.h"
#include "library/ledger/MaintenanceState.h"
#include "library/ledger/UnitUse.h"
#include "tests/support/TestFiles.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// What people write is read again, by other computers too, and nobody's text is lost unsaid.
class TestLogbook : public QObject
{
    Q_OBJECT

private slots:
    void itemsComeBack();
    void damagedFilesAreNamed_data();
    void damagedFilesAreNamed();
    void laterWriterWinsAndIsTold();
    void unknownFieldsStay();
    void absentArchiveIsNotMade();
    void maintenance_data();
    void maintenance();
    void countersOfUnits();

private:
    static Note momentNote()
    {
        Note note;
        note.about = Note::About::Moment;
        note.engine = "E-1";
        const QDateTime time({2025, 4, 1}, {8, 30, 0, 250}, Qt::UTC);
        note.place = {4711023, "REC00002.CAN", "aa", "bb", time, 812.4};
        note.text = QStringLiteral("Öldruck fällt\n\"kurz\"");
        return note;
    }
};

void TestLogbook::itemsComeBack()
{
    const QTemporaryDir folder;
    const Logbook book(folder.path());
    Note note = momentNote();
    MaintenanceLimit limit{{}, "E-1", "Oil", 25.0, {}, 1230.5, {2025, 3, 1}};
    MaintenanceLimit yearly{{}, "E-1", "Yearly", {}, 12, 0.0, {}};
    AircraftName aircraft{{}, 4711023, "D-EKLT"};
    EngineFacts facts{{}, "E-1", 812.0};
    WrittenInstallation installation{{}, "E-1", 4711023, {2024, 1, 2}, {}};
    QVERIFY(book.save(note) && book.save(limit) && book.save(yearly) && book.save(aircraft) &&
            book.save(facts) && book.save(installation));

    Logbook::Contents read = Logbook(folder.path()).read();
    QCOMPARE(read.damaged, QStringList());
    QCOMPARE(read.notes.size(), 1U);
    const Note& same = read.notes.front();
    QCOMPARE(same.about, Note::About::Moment);
    QCOMPARE(same.text, note.text);
    QCOMPARE(same.place.fileKey, note.place.fileKey);
    QCOMPARE(same.place.seconds, note.place.seconds);
    QCOMPARE(same.place.dateTime, note.place.dateTime);
    QCOMPARE(same.item.changed, note.item.changed);
    QCOMPARE(read.limitsOf("E-1").size(), 2U);
    QCOMPARE(read.limitsOf("E-1")[0].everyHours, std::optional(25.0));
    QCOMPARE(read.limitsOf("E-1")[0].lastDate, QDate(2025, 3, 1));
    QCOMPARE(read.limitsOf("E-1")[1].everyMonths, std::optional(12));
    QVERIFY(!read.limitsOf("E-1")[1].lastDate.isValid());
    QCOMPARE(read.nameOf(4711023), QString("D-EKLT"));
    QCOMPARE(read.factsOf("E-1")->hoursBefore, std::optional(812.0));
    QCOMPARE(read.installations.at(0).from, QDate(2024, 1, 2));

    read.notes[0].item.isRemoved = true;
    QVERIFY(book.save(read.notes[0]));
    QVERIFY(book.read().notes.empty());
}

void TestLogbook::damagedFilesAreNamed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray start = R"({"format":1,"about":"moment","fileKey":"a","text":"x")";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << start;
    QTest::newRow("no object") << QByteArray("[1, 2]");
    QTest::newRow("newer") << QByteArray(R"({"format":2,"about":"engine","engine":"E"})");
    QTest::newRow("no moment") << start + "}";
    QTest::newRow("moment is a text") << start + R"(,"seconds":"12"})";
    QTest::newRow("of a dog") << QByteArray(R"({"format":1,"about":"dog","engine":"E"})");
    QTest::newRow("huge") << QByteArray(2 << 20, ' ') + start + R"(,"seconds":12})";
}

void TestLogbook::damagedFilesAreNamed()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    const Logbook book(folder.path());
    Note note = momentNote();
    QVERIFY(book.save(note));
    const QString path = folder.filePath("notes/damaged.json");
    QVERIFY(writeFile(path, bytes));
    const Logbook::Contents read = book.read();
    QCOMPARE(read.damaged, QStringList(path));
    QCOMPARE(read.notes.size(), 1U);
    QCOMPARE(readFile(path), bytes);
}

void TestLogbook::laterWriterWinsAndIsTold()
{
    const QTemporaryDir folder;
    const Logbook book(folder.path());
    Note note = momentNote();
    QVERIFY(book.save(note));
    Note here = book.read().notes.at(0);
    Note there = here;
    there.text = "there";
    QVERIFY(book.save(there).replaced.isEmpty());
    here.text = "here";
    const Logbook::Saved saved = book.save(here);
    QVERIFY(saved);
    QVERIFY(saved.replaced.contains(there.item.author));
    QCOMPARE(book.read().notes.at(0).text, QString("here"));
    here.text = "again";
    QVERIFY(book.save(here).replaced.isEmpty());
    // Items of two computers lie in two files.
    Note other = momentNote();
    QVERIFY(book.save(other).replaced.isEmpty());
    QCOMPARE(book.read().notes.size(), 2U);
}

void TestLogbook::unknownFieldsStay()
{
    const QTemporaryDir folder;
    const Logbook book(folder.path());
    AircraftName aircraft{{}, 7, "D-1"};
    QVERIFY(book.save(aircraft));
    const QString path = folder.filePath("aircraft/" + aircraft.item.id + ".json");
    QJsonObject object = QJsonDocument::fromJson(readFile(path)).object();
    object.insert("hangar", "north");
    QVERIFY(writeFile(path, QJsonDocument(object).toJson()));
    AircraftName read = book.read().aircraft.at(0);
    read.name = "D-2";
    QVERIFY(book.save(read));
    object = QJsonDocument::fromJson(readFile(path)).object();
    QCOMPARE(object.value("hangar").toString(), QString("north"));
    QCOMPARE(object.value("name").toString(), QString("D-2"));
}

void TestLogbook::absentArchiveIsNotMade()
{
    const QTemporaryDir folder;
    const QString root = folder.filePath("unplugged");
    Note note = momentNote();
    const Logbook::Saved saved = Logbook(root).save(note);
    QVERIFY(!saved);
    QVERIFY(saved.error.contains("unplugged"));
    QVERIFY(!QFileInfo::exists(root));
}

void TestLogbook::maintenance_data()
{
    QTest::addColumn<double>("everyHours");
    QTest::addColumn<int>("everyMonths");
    QTest::addColumn<double>("hours");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<DueState>("state");
    QTest::addColumn<double>("left");
    QTest::addColumn<QDate>("expected");
    // Done at 1000 h on 1 March 2025; the engine runs half an hour a day.
    const QDate march(2025, 3, 11);
    const auto row = [](const char* name, double everyHours, int everyMonths, double hours,
                        const QDate& today, DueState state, double left, int days) {
        QTest::newRow(name) << everyHours << everyMonths << hours << today << state << left
                            << (days < 0 ? QDate() : today.addDays(days));
    };
    row("fresh", 100.0, 0, 1040.0, march, DueState::Ok, 60.0, 120);
    row("last tenth", 100.0, 0, 1090.0, march, DueState::Soon, 10.0, 20);
    row("due", 100.0, 0, 1100.0, march, DueState::Overdue, 0.0, 0);
    row("over", 25.0, 0, 1031.0, march, DueState::Overdue, -6.0, -1);
    row("year", 0.0, 12, 5000.0, {2026, 1, 1}, DueState::Ok, 0.0, -1);
    row("year soon", 0.0, 12, 5000.0, {2026, 2, 10}, DueState::Soon, 0.0, -1);
    row("year over", 0.0, 12, 5000.0, {2026, 3, 1}, DueState::Overdue, 0.0, -1);
    row("worse of both", 100.0, 12, 1010.0, {2026, 3, 2}, DueState::Overdue, 90.0, 180);
}

void TestLogbook::maintenance()
{
    QFETCH(double, everyHours);
    QFETCH(int, everyMonths);
    QFETCH(double, hours);
    QFETCH(QDate, today);
    QFETCH(double, left);
    MaintenanceLimit limit{{}, "E", "x", {}, {}, 1000.0, {2025, 3, 1}};
    if (everyHours > 0.0)
        limit.everyHours = everyHours;
    if (everyMonths > 0)
        limit.everyMonths = everyMonths;
    const MaintenanceState state = maintenanceState(limit, hours, 0.5, today);
    QTEST(state.state, "state");
    QCOMPARE(state.hoursLeft.value_or(0.0), left);
    QTEST(state.expected, "expected");
}

/// An engine goes from unit 1 to unit 2 and back; what unit 1 counts for another one is not its.
void TestLogbook::countersOfUnits()
{
    const auto cycle = [](quint32 unit, const char* engine, int day, double from, double to) {
        const QDateTime time =
            day > 0 ? QDateTime(QDate(2025, 1, 1).addDays(day), QTime(9, 0), Qt::UTC) : QDateTime();
        return CountedCycle{unit, engine, time.toString(Qt::ISODate), CounterSpan{from, to}, {}};
    };
    const std::vector<CountedCycle> cycles{
        cycle(1, "A", 1, 100.0, 101.0), cycle(1, "A", 2, 103.0, 104.0), // 2 h without a card
        cycle(1, "B", 3, 105.0, 109.0), cycle(1, "A", 5, 110.0, 112.0),
        cycle(1, "A", 0, 112.0, 113.0), // without a date, within the step that follows
        cycle(1, "A", 6, 113.5, 114.0), // 0.5 h without a card
        cycle(1, "A", 7, 2.0, 3.0),     // the counter was set back
        cycle(2, "A", 4, 50.0, 51.0),
    };
    const CountedUse a = engineUse(cycles, "A").hours;
    QCOMPARE(a.recorded, 7.5);
    QCOMPARE(a.missed(), 2.5);
    QCOMPARE(a.first, std::optional(100.0));
    QCOMPARE(a.last, std::optional(3.0));
    QCOMPARE(engineUse(cycles, "B").hours.used, 4.0);
    QVERIFY(!engineUse(cycles, "A").starts.first);
}

QTEST_GUILESS_MAIN(TestLogbook)
#include "tst_logbook.moc"

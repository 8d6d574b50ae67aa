#include "record/CardContainer.h"
#include "record/ClockOffset.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Systems.h"

#include <QDir>
#include <QTest>

#include <filesystem>
#include <fstream>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

QByteArray flightProfile()
{
    return device({"name='v' id='1' dataType='FLOAT' koltDataType='GroundSpeed'",
                   "name='lat' id='2' dataType='FLOAT' koltDataType='Latitude'",
                   "name='lon' id='2' startByte='4' dataType='FLOAT' koltDataType='Longitude'"});
}

/// Two flights in 400 s, without a date.
RecordBytes flights()
{
    RecordBytes record;
    record.sample(3, 20);
    for (int t = 0; t < 400; ++t) {
        const bool flying = (t >= 100 && t < 150) || (t >= 250 && t < 300);
        record.sample(1, t, floats(flying ? 100.0F : 0.0F)).sample(2, t, floats(4800.0F, 1100.0F));
    }
    return record;
}

} // namespace

class TestCardContainer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void onlyRecordFilesAreListed();
    void missingFolderChangesNothing();
    void cyclesStartAtFilesWithoutADate();
    void datesAreRepairedFromTheFollower();
    void clockOffsetMovesAllDates();
    void lateClocks();
    void clockOffsetTexts();
    void filesLoadInTheOrderGiven();
    void unknownAndUnreadableFilesContributeNothing();
    void cycleAndFlight();
    void manyFilesAndCoarseProgress();
    void nothingIsWrittenToTheCard();

private:
    void put(const QString& name, const RecordBytes& record) const
    {
        QVERIFY(writeFile(m_directory->filePath(name), record.bytes()));
    }

    bool read(const CardContainer::Progress& progress = {})
    {
        return m_card->readContainer(m_directory->path(), progress);
    }

    QStringList names() const
    {
        QStringList result;
        for (const auto& [name, file] : m_card->files())
            result << name;
        return result;
    }

    QString dateOf(const QString& name) const
    {
        return m_card->files().at(name).info().dateTime.toString("dd hh:mm:ss.zzz");
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<CardContainer> m_card;
    std::unique_ptr<DiagnosticsCapture> m_output;
};

void TestCardContainer::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_profile = std::make_unique<Profile>();
    m_card = std::make_unique<CardContainer>(*m_profile);
    m_output.reset();
    m_output = std::make_unique<DiagnosticsCapture>();
}

void TestCardContainer::onlyRecordFilesAreListed()
{
    KOLT_NEEDS("links, and names that differ by case");
    for (const char* name : {"A.CAN", "b.can", "c.xcb", "d.Can", "e.txt", "CAN", "x.CAN.bak",
                             "X.CAN", "X.can", "Flug über Köln.CAN", "two.dots.xcb"})
        put(QString::fromUtf8(name), RecordBytes().date(2026, 7, 28));
    const QString folder = m_directory->path();
    QVERIFY(QDir(folder).mkpath("dir.CAN"));
    QVERIFY(QFile::link("A.CAN", folder + "/link.CAN"));
    QVERIFY(QFile::link("gone", folder + "/dangling.CAN"));
    QVERIFY(QFile::link("/dev/zero", folder + "/device.CAN"));
    QVERIFY(writeFile(folder + "/empty.CAN", {}));
    const std::string badName = QFile::encodeName(folder).toStdString() + "/bad\xff.CAN";
    std::ofstream(badName).put('x');
    QVERIFY(read());
    QCOMPARE(names(), (QStringList{"A.CAN", "Flug über Köln.CAN", "X.CAN", "X.can", "b.can",
                                   "c.xcb", "empty.CAN", "link.CAN", "two.dots.xcb"}));
    const QString output = m_output->text();
    QVERIFY(output.startsWith(
        QStringLiteral("CardContainer::readContainer: Path <%1> NrFiles 14\n").arg(folder)));
    for (const char* odd : {"dir.CAN", "dangling.CAN", "device.CAN", "bad\xef\xbf\xbd.CAN"})
        QVERIFY2(output.contains(QString::fromUtf8(odd) + " is not a plain file, or"), odd);
    QVERIFY(std::filesystem::remove(badName)); // QTemporaryDir cannot remove such a name
}

void TestCardContainer::missingFolderChangesNothing()
{
    put("A.CAN", RecordBytes());
    QVERIFY(read());
    QVERIFY(!m_card->readContainer(m_directory->filePath("missing")));
    QVERIFY(!m_card->readContainer(m_directory->filePath("A.CAN")));
    QVERIFY(!m_card->readContainer({})); // must not mean the current directory
    QCOMPARE(names(), QStringList{"A.CAN"});
    QCOMPARE(m_card->folder(), m_directory->path());
    const QTemporaryDir empty;
    int percent = -1;
    QVERIFY(m_card->readContainer(empty.path(), [&](int p) { percent = p; }));
    QVERIFY(m_card->files().empty() && m_card->cycles().empty());
    QCOMPARE(percent, 100);
}

void TestCardContainer::cyclesStartAtFilesWithoutADate()
{
    put("1.CAN", RecordBytes().date(2026, 7, 1));
    put("2.CAN", RecordBytes().sample(1, 10).sample(1, 600));
    put("3.CAN", RecordBytes().date(2026, 7, 2, 10).sample(1, 600).sample(1, 900.5));
    put("4.CAN", RecordBytes());
    QVERIFY(read());
    QStringList texts;
    for (const auto& [number, cycle] : m_card->cycles())
        texts << QStringLiteral("%1 %2 %3 %4")
                     .arg(number)
                     .arg(cycle.name)
                     .arg(cycle.dateTime.toString("dd hh:mm:ss"))
                     .arg(cycle.durationSeconds());
    QCOMPARE(texts, (QStringList{"0 Cycle 0 01 00:00:00 0", "1 Cycle 1 02 09:50:00 890.5",
                                 "2 Cycle 2  0"}));
    QCOMPARE(m_card->cycles().at(1).fileNames, (std::vector<QString>{"2.CAN", "3.CAN"}));
}

void TestCardContainer::datesAreRepairedFromTheFollower()
{
    put("1.CAN", RecordBytes().sample(1, 5));
    put("2.CAN", RecordBytes().sample(1, 1).sample(1, 90.0625));
    put("3.CAN", RecordBytes().date(2026, 7, 2, 0, 1, 0));
    put("4.CAN", RecordBytes().sampleTicks(1, 0xFFFFFFFF, 0));
    put("5.CAN", RecordBytes().date(2026, 7, 2));
    put("6.CAN", RecordBytes());
    QVERIFY(read());
    const auto& files = m_card->files();
    QCOMPARE(dateOf("2.CAN"), "01 23:59:29.938"); // milliseconds are truncated
    QVERIFY(files.at("2.CAN").info().dateRepaired && files.at("2.CAN").info().dateInvalid);
    QVERIFY(!files.at("3.CAN").info().dateRepaired && !files.at("3.CAN").info().dateInvalid);
    for (const char* name : {"1.CAN", "6.CAN"}) { // follower without a date, no follower
        QVERIFY(!files.at(name).info().dateTime.isValid());
        QVERIFY(files.at(name).info().dateInvalid && !files.at(name).info().dateRepaired);
    }
    QVERIFY(files.at("4.CAN").info().dateTime.date().year() < -10000); // 5.7e11 s earlier
    for (int i = 0; i < 2; ++i) { // the repaired date survives loading
        QVERIFY(m_card->loadCycle(2));
        QCOMPARE(m_card->dataSet()->dateTime.toString("dd hh:mm:ss"), "01 23:59:29");
        QCOMPARE(dateOf("2.CAN"), "01 23:59:29.938");
    }
}

/// Before and after a folder is listed and loaded; times on the counter stay.
void TestCardContainer::clockOffsetMovesAllDates()
{
    put("1.CAN", flights());
    put("2.CAN", RecordBytes().date(2026, 7, 1, 23, 30, 0).sample(3, 410));
    QVERIFY(loadProfile(*m_profile, flightProfile()));
    const auto dates = [&] {
        const Cycle& cycle = m_card->cycles().at(1);
        const DataSet& dataSet = *m_card->dataSet();
        QStringList texts{dateOf("1.CAN"), dateOf("2.CAN")};
        for (const QDateTime& dateTime :
             {cycle.dateTime, dataSet.dateTime, dataSet.flights.front().dateTime,
              m_card->flightsOf(1).front().dateTime})
            texts << dateTime.toString("dd hh:mm");
        return texts;
    };
    QStringList moved{"02 01:23:21.000", "02 01:30:00.000", "02 01:23",
                      "02 01:23",        "02 01:25",        "02 01:25"};
    m_card->setClockOffset(120);
    QVERIFY(read() && m_card->loadCycle(1));
    QCOMPARE(dates(), moved);
    QCOMPARE(m_card->dataSet()->stopSeconds, 410.0);
    QCOMPARE(m_card->dataSet()->flights.front().takeOffSeconds, 111.0);
    m_card->setClockOffset(0);
    QStringList plain = moved.replaceInStrings("02 01:", "01 23:");
    QCOMPARE(dates(), plain);
    QVERIFY(m_card->loadCycle(1)); // reads the headers again
    QCOMPARE(dates(), plain);
    m_card->setClockOffset(5000);
    QCOMPARE(m_card->clockOffset(), 14 * 60);
}

void TestCardContainer::lateClocks()
{
    put("1.CAN", RecordBytes().sample(1, 0).sample(1, 600));
    put("2.CAN", RecordBytes().date(2026, 7, 1, 8).sample(1, 600).sample(1, 900));
    put("3.CAN", RecordBytes().date(2026, 7, 1, 9).sample(1, 5));
    QVERIFY(read());
    const auto late = [&](const char* name) {
        return lateClockSeconds(m_card->files().at(name).info());
    };
    QCOMPARE(late("1.CAN"), 0.0); // worked out from the next one
    QCOMPARE(late("2.CAN"), 600.0);
    QCOMPARE(late("3.CAN"), 0.0); // counter 0, but for some seconds
}

void TestCardContainer::clockOffsetTexts()
{
    const std::pair<const char*, int> texts[] = {{"+02:00", 120}, {"-00:30", -30}, {"+14:00", 840}};
    for (const auto& [text, minutes] : texts) {
        QCOMPARE(clockOffsetText(minutes), text);
        QCOMPARE(clockOffsetOf(text), minutes);
    }
    QCOMPARE(clockOffsetOf(" 1:05"), 65);
    for (const char* text : {"", "2", "1:60", "14:01", "-15:00", "+-1:00", "1:5"})
        QVERIFY2(!clockOffsetOf(text), text);
    QVERIFY(clockLine(0).endsWith("UTC.") && clockLine(-90).contains("-01:30"));
}

void TestCardContainer::filesLoadInTheOrderGiven()
{
    put("1.CAN", RecordBytes().date(2026, 7, 1, 8).sample(1, 10).sample(2, 20));
    put("2.CAN", RecordBytes().date(2026, 7, 1, 9).sample(1, 20).sample(1, 30));
    QVERIFY(read());
    QVERIFY(m_card->loadFiles({"/any/where/2.CAN", "1.CAN"}));
    const DataSet& dataSet = *m_card->dataSet();
    QCOMPARE(dataSet.startSeconds, 20.0);
    QCOMPARE(dataSet.stopSeconds, 20.0);
    QCOMPARE(dataSet.dateTime.time().hour(), 9);
    QCOMPARE(dataSet.messages.series(1)[0].seconds(), 20.0);
    QCOMPARE(dataSet.messages.series(1).last().seconds(), 10.0);
    QVERIFY(m_output->text().endsWith("load Files <2.CAN>\ndate valid 1\nload Files <1.CAN>\n"));
    QVERIFY(m_card->loadFiles({}));
    QCOMPARE(m_card->dataSet()->messages.sampleCount(), 0U);
    QVERIFY(!m_card->dataSet()->dateTime.isValid());
}

void TestCardContainer::unknownAndUnreadableFilesContributeNothing()
{
    put("1.CAN", RecordBytes().date(2026, 7, 1).sample(1, 10));
    put("2.CAN", RecordBytes().date(2026, 7, 1).sample(1, 20));
    put("3.CAN", RecordBytes().date(2026, 7, 1).sample(1, 30));
    QVERIFY(read());
    QVERIFY(QFile::remove(m_directory->filePath("2.CAN")));
    QVERIFY(m_card->loadFiles({"nobody.CAN", "2.CAN", "3.CAN"}));
    QCOMPARE(m_card->dataSet()->messages.sampleCount(), 1U);
    QCOMPARE(m_card->dataSet()->startSeconds, 0.0);
    QVERIFY(!m_card->dataSet()->dateTime.isValid());
    QCOMPARE(m_card->dataSet()->stopSeconds, 30.0);
    QVERIFY(m_output->text().contains("date valid 0"));
    QCOMPARE(m_output->text().count("RecordFile::readRecordData: Could not open"), 2);
    QCOMPARE(m_card->dataSet()->unreadFiles, (std::vector<QString>{"nobody.CAN", "2.CAN"}));
}

void TestCardContainer::cycleAndFlight()
{
    QVERIFY(loadProfile(*m_profile, flightProfile()));
    put("1.CAN", flights());
    put("2.CAN", RecordBytes().date(2026, 7, 1, 8).sample(3, 400).sample(3, 10));
    QVERIFY(read());
    QVERIFY(!m_card->loadCycle(7));
    QVERIFY(m_card->dataSet() == nullptr);
    QVERIFY(m_card->loadCycle(1));
    QCOMPARE(m_card->dataSet()->flights.size(), 2U);
    QVERIFY(m_card->dataSet()->flight() == nullptr);
    QCOMPARE(m_card->dataSet()->stopSeconds, 10.0);

    QVERIFY(!m_card->loadFlight(1, 2));
    QCOMPARE(m_card->dataSet()->stopSeconds, 10.0); // the whole cycle
    const std::unique_ptr<DataSet> copy = m_card->copyOfFlight(1);
    QVERIFY(m_card->loadFlight(1, 1));
    for (const DataSet* dataSet : {m_card->dataSet(), const_cast<const DataSet*>(copy.get())}) {
        QCOMPARE(dataSet->flights.size(), 2U);
        QCOMPARE(dataSet->flight()->takeOffSeconds, 261.0);
        QCOMPARE(dataSet->startSeconds, 231.0);
        QCOMPARE(dataSet->stopSeconds, 340.0);
        const MessageSeries& speed = dataSet->messages.series(1);
        QCOMPARE(speed[0].seconds(), 231.0);
        QCOMPARE(speed[0].sequence, 463U); // as stored
        QCOMPARE(speed.last().seconds(), 340.0);
        QVERIFY(dataSet->messages.series(3).empty());
        QCOMPARE(dataSet->track.front().seconds(), 231.0);
        QCOMPARE(dataSet->track.back().seconds(), 340.0);
        QCOMPARE(dataSet->before.size(), 3U);
        QCOMPARE(dataSet->before.at(1).seconds(), 230.0);
        QCOMPARE(dataSet->before.at(3).seconds(), 20.0); // by time, not by stored order
    }
}

void TestCardContainer::manyFilesAndCoarseProgress()
{
    const QByteArray bytes = RecordBytes().date(2026, 7, 1).sample(1, 10).bytes();
    for (int i = 0; i < 5000; ++i)
        QVERIFY(writeFile(m_directory->filePath(QStringLiteral("%1.CAN").arg(i, 5)), bytes));
    QList<int> steps;
    QVERIFY(read([&](int percent) { steps << percent; }));
    QCOMPARE(m_card->files().size(), 5000U);
    QCOMPARE(steps.count(0), 5000);
    QCOMPARE(steps.last(), 100);
    QCOMPARE(m_card->cycles().at(0).fileNames.size(), 5000U);

    steps.clear();
    QVERIFY(m_card->loadCycle(0, [&](int percent) { steps << percent; }));
    QVERIFY(std::ranges::is_sorted(steps));
    QCOMPARE(steps.last(), 100);
}

void TestCardContainer::nothingIsWrittenToTheCard()
{
    put("1.CAN", RecordBytes().sample(1, 10));
    const QByteArray before = readFile(m_directory->filePath("1.CAN"));
    const QDateTime changed = QFileInfo(m_directory->path()).lastModified();
    QVERIFY(read());
    QVERIFY(m_card->loadCycle(1));
    QCOMPARE(readFile(m_directory->filePath("1.CAN")), before);
    QCOMPARE(QFileInfo(m_directory->path()).lastModified(), changed);
    QCOMPARE(QDir(m_directory->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{"1.CAN"});
}

QTEST_GUILESS_MAIN(TestCardContainer)
#include "tst_cardcontainer.moc"

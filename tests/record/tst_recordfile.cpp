#include "record/RecordFile.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

using namespace KOLT;
using namespace KOLT::Test;

class TestRecordFile : public QObject
{
    Q_OBJECT

private slots:
    void bothByteOrdersReadTheSame();
    void dates_data();
    void dates();
    void everyLengthIsReadSafely();
    void timeStampsAreWords();
    void samplesFollowOneAnother();
    void fileThatShrinksGivesWhatIsLeft();
    void unreadableFilesAreLogged();
    void hugeSparseFileIsRefused();

private:
    QString file(const QByteArray& content) const
    {
        const QString path = m_directory.filePath(QStringLiteral("Größe 1.CAN"));
        writeFile(path, content);
        return path;
    }

    QTemporaryDir m_directory;
};

void TestRecordFile::bothByteOrdersReadTheSame()
{
    for (const bool littleEndian : {true, false}) {
        RecordBytes record(littleEndian);
        record.date(2026, 7, 28, 14, 32, 5).headerTime(1.0).busType(0x80000001).ecuSerial(4711);
        record.text(0, "PART-A-567890").text(1, "ECU").text(2, QByteArray("Nr\xe4\0x", 5));
        record.text(5, "1.2.345").sample(0x80000123, 2.5, {1, 2, 3, 4, 5, 6, 7, 8}, 0x0102);
        RecordFile reader;
        QVERIFY(reader.readRecordInfo(file(record.sample(0x7FFFFFF0, 3.25).bytes())));
        const RecordInfo& info = reader.info();
        QCOMPARE(info.dateTime, QDateTime(QDate(2026, 7, 28), QTime(14, 32, 5), Qt::UTC));
        QCOMPARE(info.startSeconds, 2.5);
        QCOMPARE(info.stopSeconds, 3.25);
        QCOMPARE(info.sampleCount, 2);
        QCOMPARE(info.busType, 0x80000001U);
        QCOMPARE(info.ecuSerialNumber, 4711U);
        QCOMPARE((QStringList{info.softwarePartA, info.ecuType, info.engineSerial, info.engineType,
                              info.emuVersion}),
                 (QStringList{"PART-A-567890", "ECU", QString::fromUtf8("Nrä"), "", "1.2.345"}));

        MessageMap messages;
        QVERIFY(reader.readRecordData(messages));
        QCOMPARE(messages.series(0x123).size(), 1U);
        const StoredSample& sample = messages.series(0x123).last();
        QCOMPARE(sample.data, (MessageData{1, 2, 3, 4, 5, 6, 7, 8}));
        QCOMPARE(sample.kind, 0x0102);
        QCOMPARE(sample.byte8, 0x11);
        QCOMPARE(sample.byte9, 0x22);
        QCOMPARE(sample.word16, 0x12345678U);
        QCOMPARE(sample.seconds(), 2.5);
        QCOMPARE(messages.series(0x7FFFFFF0).size(), 1U);
    }
}

void TestRecordFile::dates_data()
{
    const Rows<std::array<int, 6>, QString> row; // fields, dateTime
    row("valid", {2024, 2, 29, 23, 59, 59}, "2024-02-29T23:59:59");
    row("no date", {}, "");
    row("30 February", {2023, 2, 30, 1, 0, 0}, "");
    row("month 13", {2023, 13, 1, 1, 0, 0}, "");
    row("all ones", {-1, 255, 255, 255, 255, 255}, "");
    row("impossible time", {2023, 1, 31, 24, 0, 0}, "2023-01-31T00:00:00");
    row("hour that summer time skips", {2026, 3, 29, 2, 30, 0}, "2026-03-29T02:30:00");
}

void TestRecordFile::dates()
{
    const auto [fields, dateTime] = fetchRow<std::array<int, 6>, QString>();
    const auto [year, month, day, hour, minute, second] = fields;
    qputenv("TZ", "Europe/Berlin");
    RecordFile reader;
    QVERIFY(reader.readRecordInfo(
        file(RecordBytes().date(year, month, day, hour, minute, second).bytes())));
    QCOMPARE(reader.info().dateTime.toString("yyyy-MM-ddThh:mm:ss"), dateTime);
}

void TestRecordFile::everyLengthIsReadSafely()
{
    RecordBytes record;
    record.date(2026, 7, 28).headerTime(77.0).ecuSerial(5).text(5, "1.2.345");
    record.sample(1, 100.0).sample(1, 200.0).sample(1, 300.0);
    for (qsizetype length = 0; length <= record.bytes().size(); ++length) {
        RecordFile reader;
        QVERIFY(reader.readRecordInfo(file(record.bytes().left(length))));
        const RecordInfo& info = reader.info();
        const int count = static_cast<int>(std::max<qsizetype>(0, length - 128) / 28);
        QCOMPARE(info.sampleCount, count);
        QCOMPARE(info.dateTime.isValid(), length >= 16);
        QCOMPARE(info.ecuSerialNumber, length >= 36 ? 5U : 0U);
        QCOMPARE(info.emuVersion, length >= 108 ? "1.2.345" : "");
        const double headerSeconds = length >= 28 ? 77.0 : 0.0;
        QCOMPARE(info.startSeconds, count > 0 ? 100.0 : headerSeconds);
        QCOMPARE(info.stopSeconds, count > 0 ? 100.0 * count : headerSeconds);
        MessageMap messages;
        QVERIFY(reader.readRecordData(messages));
        QCOMPARE(messages.sampleCount(), static_cast<std::size_t>(count));
    }
}

void TestRecordFile::timeStampsAreWords()
{
    RecordFile reader;
    QVERIFY(reader.readRecordInfo(file(RecordBytes()
                                           .sampleTicks(1, 1, 0)
                                           .sampleTicks(1, 0, 4'800'000)
                                           .sampleTicks(1, ~0U, ~0U)
                                           .bytes())));
    QCOMPARE(reader.info().startSeconds, 134.217728);
    MessageMap messages;
    QVERIFY(reader.readRecordData(messages));
    const MessageSeries& series = messages.series(1);
    QCOMPARE(series[0].tenths(), 1342);
    QCOMPARE(series[1].seconds(), 0.15);
    QCOMPARE(series[1].tenths(), 2); // rounded half up
    QVERIFY(series[2].seconds() > 5.7e11 && series[2].seconds() < 5.8e11);
}

void TestRecordFile::samplesFollowOneAnother()
{
    // More than one block: no sample may be lost or repeated.
    RecordBytes record;
    constexpr int count = 70'000;
    for (int i = 0; i < count; ++i)
        record.sample(static_cast<std::uint32_t>(i % 3), i * 0.5);
    RecordFile reader;
    QVERIFY(reader.readRecordInfo(file(record.bytes())));
    MessageMap messages;
    qint64 lastProgress = 0;
    QVERIFY(reader.readRecordData(messages, [&](qint64 bytes) {
        QVERIFY(bytes > lastProgress);
        lastProgress = bytes;
    }));
    QCOMPARE(lastProgress, qint64{count} * 28);
    QCOMPARE(messages.all().size(), 3U);
    for (const auto& [id, series] : messages.all()) {
        QCOMPARE(series.size(), count / 3 + (id == 0 ? 1U : 0U));
        std::size_t i = 0;
        for (const StoredSample& sample : series)
            QCOMPARE(sample.seconds(), static_cast<double>(id + 3 * i++) * 0.5);
    }
    // Sequence numbers continue in a second file.
    QVERIFY(reader.readRecordData(messages));
    QCOMPARE(messages.series(1).last().sequence, 2U * count - 3U);
}

void TestRecordFile::fileThatShrinksGivesWhatIsLeft()
{
    RecordBytes record;
    for (int i = 0; i < 100'000; ++i)
        record.sample(1, i);
    const QString path = file(record.bytes());
    RecordFile reader;
    QVERIFY(reader.readRecordInfo(path));
    MessageMap messages;
    const DiagnosticsCapture output;
    bool cut = false;
    QVERIFY(!reader.readRecordData(messages, [&](qint64) { // false: incomplete
        if (!cut)
            QFile::resize(path, 128 + 28 * 50'000 + 5);
        cut = true;
    }));
    QCOMPARE(messages.sampleCount(), 50'000U);
    QVERIFY2(output.text().contains("ends after 50000 of 100000 samples"),
             qPrintable(output.text()));

    QVERIFY(QFile::remove(path));
    QVERIFY(!reader.readRecordData(messages));
    QVERIFY(output.text().contains(
        QStringLiteral("RecordFile::readRecordData: Could not open %1\n").arg(path)));
    QCOMPARE(messages.sampleCount(), 50'000U);
}

void TestRecordFile::unreadableFilesAreLogged()
{
    const DiagnosticsCapture output;
    RecordFile reader;
    QVERIFY(!reader.readRecordInfo("/nowhere/X.CAN"));
    QVERIFY(output.text().startsWith(
        "RecordFile::readRecordInfo: Could not open /nowhere/X.CAN\nError: "));
    QCOMPARE(reader.info().sampleCount, 0);
    QVERIFY(!reader.info().dateTime.isValid());
    MessageMap messages;
    QVERIFY(!RecordFile().readRecordData(messages));
    QVERIFY(!reader.readRecordData(messages));
    QCOMPARE(messages.sampleCount(), 0U);
}

void TestRecordFile::hugeSparseFileIsRefused()
{
    const QString path = file(RecordBytes().bytes());
    if (!QFile::resize(path, 8LL << 40))
        QSKIP("the file system holds no sparse file of 8 TiB");
    RecordFile reader;
    QVERIFY(reader.readRecordInfo(path));
    QCOMPARE(reader.info().sampleCount, 2147483647);
    // Needs more than 90 GB of memory.
    const DiagnosticsCapture output;
    MessageMap messages;
    QVERIFY(!reader.readRecordData(messages));
    QVERIFY(output.text().contains("Not enough memory"));
    QCOMPARE(messages.sampleCount(), 0U);
    QVERIFY(QFile::remove(path));
}

QTEST_GUILESS_MAIN(TestRecordFile)
#include "tst_recordfile.moc"

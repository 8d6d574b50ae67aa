#include "profile/ValueDecoder.h"
#include "record/CardContainer.h"
#include "tests/support/TestFiles.h"
#include "tools/samplecard/SampleCard.h"
#include "tools/samplecard/SampleHistory.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

/// The sample card must be the same everywhere and hold the stories that the other tests and the
/// documentation rely on.
class TestSampleCard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sameSeedSameBytes();
    void everyCycleOpensWithoutADate();
    void oddFiles();
    void storiesOfTheFlights();
    void profileIsRichEnough();
    void longCard();
    void history();
    void failuresAreTold();

private:
    bool write(const QTemporaryDir& folder, std::uint64_t seed, double hours = 0.0) const
    {
        SampleCard::SampleCardOptions options;
        options.folder = folder.path();
        options.profilePath = QStringLiteral(KOLT_PROFILE);
        options.seed = seed;
        options.hours = hours;
        QString error;
        return SampleCard::writeSampleCard(options, &error) && error.isEmpty();
    }

    struct CycleFacts
    {
        std::size_t files = 0;
        std::size_t flights = 0;
        QString engine;
        double hours = 0.0;
        double starts = 0.0;
    };

    double lastNumber(const DataSet& dataSet, Role role) const
    {
        const ProfileParameter& parameter = *m_profile.parameterByRole(role);
        MessageData data = seriesOf(dataSet.messages, parameter).last().data;
        // The text has the decimals of the hours.
        return decodeValue(m_profile, parameter, data).text.section(' ', 0, 0).toDouble();
    }

    QTemporaryDir m_folder;
    Profile m_profile;
    CardContainer m_card{m_profile};
    std::unique_ptr<DiagnosticsCapture> m_output;
};

void TestSampleCard::initTestCase()
{
    m_output = std::make_unique<DiagnosticsCapture>();
    QVERIFY(write(m_folder, 1));
    QVERIFY(m_profile.loadProfil(QStringLiteral(KOLT_PROFILE), "915"));
    QVERIFY(m_card.readContainer(m_folder.path()));
}

void TestSampleCard::sameSeedSameBytes()
{
    const QTemporaryDir again;
    const QTemporaryDir other;
    QVERIFY(write(again, 1) && write(other, 2));
    bool anyDifference = false;
    for (const auto& [name, file] : m_card.files()) {
        const QByteArray bytes = readFile(file.path());
        QVERIFY(bytes == readFile(again.filePath(name)));
        anyDifference = anyDifference || bytes != readFile(other.filePath(name));
    }
    QVERIFY(anyDifference);
}

void TestSampleCard::everyCycleOpensWithoutADate()
{
    QVERIFY(!m_card.cycles().contains(0));
    for (const auto& [number, cycle] : m_card.cycles()) {
        QVERIFY(cycle.dateTime.isValid());
        double previousStop = 0.0;
        for (const QString& name : cycle.fileNames) {
            const RecordInfo& info = m_card.files().at(name).info();
            QCOMPARE(info.dateInvalid, name == cycle.fileNames.front());
            QVERIFY(info.startSeconds >= previousStop && info.stopSeconds > info.startSeconds);
            // A dated header tells the clock at the file's start.
            const double clock =
                static_cast<double>(cycle.dateTime.msecsTo(info.dateTime)) / 1000.0;
            QVERIFY(info.dateInvalid || std::abs(clock - info.startSeconds) < 2.0);
            previousStop = info.stopSeconds;
        }
    }
}

void TestSampleCard::oddFiles()
{
    int bigEndian = 0;
    int trailing = 0;
    QSet<QString> suffixes;
    for (const auto& [name, file] : m_card.files()) {
        bigEndian += file.info().byteOrder == ByteOrder::Big ? 1 : 0;
        trailing += (QFileInfo(file.path()).size() - 128) % 28 != 0 ? 1 : 0;
        suffixes << name.section('.', -1);
    }
    QVERIFY(bigEndian >= 2 && bigEndian < static_cast<int>(m_card.files().size()));
    QCOMPARE(trailing, 1);
    QCOMPARE(suffixes, (QSet<QString>{"CAN", "can", "xcb"}));
}

void TestSampleCard::storiesOfTheFlights()
{
    const ProfileParameter& speed = *m_profile.parameterByRole(Role::GroundSpeed);
    const ProfileParameter& latitude = *m_profile.parameterByRole(Role::Latitude);
    int gaps = 0;
    int endsInTheAir = 0;
    int aborted = 0;
    int jumps = 0;
    for (const auto& [number, cycle] : m_card.cycles()) {
        QVERIFY(m_card.loadCycle(number));
        const DataSet& dataSet = *m_card.dataSet();
        const MessageSeries& speeds = seriesOf(dataSet.messages, speed);
        QCOMPARE(decodeNumber(speeds[0].data, speed), 0.0);
        endsInTheAir += decodeNumber(speeds.last().data, speed) > 80.0 ? 1 : 0;
        double previous = 0.0;
        bool isFast = false;
        double lastPosition = 0.0;
        int runs = 0;
        for (const StoredSample& sample : speeds) {
            gaps += sample.seconds() - previous > 55.0 ? 1 : 0;
            previous = sample.seconds();
            const double value = decodeNumber(sample.data, speed);
            runs += !isFast && value > 50.0 ? 1 : 0;
            isFast = value > (isFast ? 45.0 : 50.0);
        }
        aborted += runs > static_cast<int>(dataSet.flights.size()) && !isFast ? 1 : 0;
        for (const StoredSample& sample : seriesOf(dataSet.messages, latitude)) {
            const double position = decodeNumber(sample.data, latitude);
            jumps += lastPosition != 0.0 && std::abs(position - lastPosition) > 0.09 ? 1 : 0;
            lastPosition = position;
        }
        for (const TrackPoint& point : dataSet.track)
            QVERIFY(std::abs(point.latitude - dataSet.track.front().latitude) < 0.09);
    }
    QCOMPARE(gaps, 1);
    QCOMPARE(endsInTheAir, 1);
    QVERIFY(aborted >= 1);
    QVERIFY(jumps >= 1); // and none of them on a track
}

void TestSampleCard::profileIsRichEnough()
{
    QSet<int> types;
    QSet<QString> names;
    for (const ProfileParameter& parameter : m_profile.parameters()) {
        types << parameter.dataType;
        names << parameter.name;
        QVERIFY2(parameter.rule != DecodingRule::NotImplemented, qPrintable(parameter.fullName));
        QVERIFY2(parameter.rule != DecodingRule::BitField || parameter.enumList != nullptr,
                 qPrintable(parameter.fullName));
    }
    QCOMPARE(types.size(), 17); // every type that decodes
    QCOMPARE(static_cast<std::size_t>(names.size()), m_profile.parameters().size());
    QVERIFY(m_profile.parametersByRole(Role::WarningLamp).size() >= 8);
    QCOMPARE(m_profile.errorMatrices().size(), 2U);
    for (const ErrorMatrix& matrix : m_profile.errorMatrices())
        QVERIFY(matrix.members.size() >= 16);
    QVERIFY(m_profile.loadVariants(QStringLiteral(KOLT_PROFILE)));
    QCOMPARE(m_profile.variants().size(), 3U);
    QCOMPARE(m_profile.variants().front().name, "915");
}

void TestSampleCard::longCard()
{
    const QTemporaryDir folder;
    QVERIFY(write(folder, 1, 1.25));
    CardContainer card(m_profile);
    QVERIFY(card.readContainer(folder.path()));
    QCOMPARE(card.cycles().size(), 1U);
    QCOMPARE(card.files().size(), 3U); // files of half an hour
    QVERIFY(std::abs(card.cycles().at(1).stopSeconds - 1.25 * 3600.0) < 30.0);
}

/// Its cards overlap as real ones do, and its truth file tells what they hold.
void TestSampleCard::history()
{
    const QTemporaryDir folder;
    SampleCard::HistoryOptions options;
    options.folder = folder.path();
    options.profilePath = QStringLiteral(KOLT_PROFILE);
    options.flights = 16;
    options.flightsWithoutCard = 3;
    options.flightsPerMonth = 4;
    QString error;
    QVERIFY2(SampleCard::writeSampleHistory(options, {}, &error), qPrintable(error));
    const QJsonObject truth =
        QJsonDocument::fromJson(readFile(folder.filePath("history.json"))).object();

    std::map<std::pair<quint32, QDateTime>, CycleFacts> found;
    std::map<QString, QSet<QByteArray>> contents;
    bool wasCompleted = false;
    for (const QString& name : QDir(folder.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        CardContainer card(m_profile);
        QVERIFY(card.readContainer(folder.filePath(name)));
        for (const auto& [number, cycle] : card.cycles()) {
            QVERIFY(card.loadCycle(number));
            const RecordInfo& info = card.files().at(cycle.fileNames.front()).info();
            if (!cycle.dateTime.isValid())
                continue; // its first file alone, completed in the next folder
            QVERIFY(name.endsWith(QString::number(info.ecuSerialNumber)));
            CycleFacts& facts = found[{info.ecuSerialNumber, cycle.dateTime}];
            wasCompleted |= facts.files > 0 && facts.files < cycle.fileNames.size();
            facts.files = cycle.fileNames.size();
            facts.flights = card.flightsOf(number).size();
            facts.engine = info.engineSerial;
            facts.hours = lastNumber(*card.dataSet(), Role::EngineHours);
            facts.starts = lastNumber(*card.dataSet(), Role::EngineStarts);
        }
        for (const auto& [file, record] : card.files())
            contents[name.section('-', 2) + file].insert(readFile(record.path()));
    }
    QVERIFY(wasCompleted);
    QVERIFY(
        std::ranges::any_of(contents, [](const auto& entry) { return entry.second.size() > 1; }));

    int flights = 0;
    int missing = 0;
    const QJsonArray cycles = truth.value("cycles").toArray();
    for (const QJsonValue& cycle : cycles) {
        if (!cycle["recorded"].toBool()) {
            missing += cycle["flights"].toInt();
            continue;
        }
        const QDateTime time = QDateTime::fromString(cycle["dateTime"].toString(), Qt::ISODate);
        const auto unit = static_cast<quint32>(cycle["unit"].toInteger());
        const auto facts = std::ranges::find_if(found, [&](const auto& entry) {
            return entry.first.first == unit && std::abs(entry.first.second.secsTo(time)) < 2;
        });
        QVERIFY(facts != found.end());
        const CycleFacts& read = facts->second;
        flights += cycle["flights"].toInt();

        QCOMPARE(static_cast<int>(read.flights), cycle["flights"].toInt());
        QCOMPARE(read.engine, cycle["engine"].toString());
        QCOMPARE(static_cast<int>(read.starts), cycle["unitStarts"].toInt());
        // A hundredth of an hour, and what the rare messages miss at the end.
        const double late = cycle["unitHours"].toDouble() - read.hours;
        QVERIFY2(std::abs(late) < 0.008, qPrintable(time.toString() + QString::number(late)));
    }
    QCOMPARE(flights, options.flights);
    QCOMPARE(missing, options.flightsWithoutCard);
}

void TestSampleCard::failuresAreTold()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("file"), {}));
    SampleCard::SampleCardOptions options;
    options.folder = folder.filePath("file");
    options.profilePath = QStringLiteral(KOLT_PROFILE);
    QString error;
    QVERIFY(!SampleCard::writeSampleCard(options, &error));
    QVERIFY(error.contains("file"));
    options.folder = folder.filePath("card");
    options.profilePath = folder.filePath("none.xml");
    QVERIFY(!SampleCard::writeSampleCard(options, &error));
    QVERIFY(error.contains("none.xml"));
}

QTEST_GUILESS_MAIN(TestSampleCard)
#include "tst_samplecard.moc"

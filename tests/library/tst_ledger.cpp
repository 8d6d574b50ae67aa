#include "library/archive/CardImport.h"
#include "library/database/LibraryUpdate.h"
#include "library/ledger/EngineLedger.h"
#include "tests/support/TestFiles.h"
#include "tools/samplecard/SampleHistory.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// The ledger of a generated history is what its truth file says, however the cards came in.
class TestLedger : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void equalsTheCountersAndTheTruth();
    void anyOrderOfImportsGivesTheSame();
    void processesAnswerForTheirCycles();

private:
    QStringList cards() const
    {
        QStringList paths;
        for (const QString& name :
             QDir(m_history.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
            paths << m_history.filePath(name);
        return paths;
    }

    /// Imports the cards in this order and works out all figures.
    bool makeLibrary(const QString& root, const QStringList& cards, LibraryDatabase& database);
    static QStringList ledgerText(LibraryDatabase& database, const QString& engine);
    static void compare(const EngineLedger& ledger, const QJsonValue& truth);

    std::unique_ptr<DiagnosticsCapture> m_output = std::make_unique<DiagnosticsCapture>();
    QTemporaryDir m_history;
    QJsonObject m_truth;
    Profile m_profile;
};

void TestLedger::initTestCase()
{
    SampleCard::HistoryOptions options;
    options.folder = m_history.path();
    options.profilePath = QStringLiteral(KOLT_PROFILE);
    // 300 flights take minutes: by hand.
    bool isGiven = false;
    const int flights = qEnvironmentVariableIntValue("KOLT_HISTORY_FLIGHTS", &isGiven);
    options.flights = isGiven ? flights : 24;
    options.flightsWithoutCard = options.flights / 8;
    options.flightsPerMonth = isGiven ? 25 : 6;
    QString error;
    QVERIFY2(SampleCard::writeSampleHistory(options, {}, &error), qPrintable(error));
    m_truth = QJsonDocument::fromJson(readFile(m_history.filePath("history.json"))).object();
    QVERIFY(m_profile.loadProfil(QStringLiteral(KOLT_PROFILE), "915"));
}

bool TestLedger::makeLibrary(const QString& root, const QStringList& cards,
                             LibraryDatabase& database)
{
    Archive archive;
    if (!Archive::create(root).isEmpty() || !archive.open(root))
        return false;
    for (const QString& card : cards) {
        if (!CardImport(archive, card).run().isComplete())
            return false;
    }
    if (!database.open({root, {}}, LibraryDatabase::Access::Create))
        return false;
    const FiguresSource source = figuresSource(m_profile);
    const auto cycles = archive.cycles();
    return std::ranges::all_of(cycles, [&](const ArchivedCycle& cycle) {
        const FoundFigures found = findCycleFigures(m_profile, root, cycle);
        return found.figures && database.storeCycle(cycle, *found.figures, source);
    });
}

void TestLedger::compare(const EngineLedger& ledger, const QJsonValue& truth)
{
    const QJsonValue recorded = truth["recorded"];
    const QJsonValue missing = truth["withoutCard"];
    const LibrarySums& sums = ledger.engine.sums;
    const int cycles = recorded["cycles"].toInt();
    QCOMPARE(sums.cycles, cycles);
    QCOMPARE(sums.flights, recorded["flights"].toInt());
    QCOMPARE(sums.starts, recorded["starts"].toInt());
    // A recording begins and ends within seconds of the engine; 500 and 1000 rpm differ less.
    const double seconds = recorded["runSeconds"].toDouble();
    QVERIFY2(std::abs(sums.runSeconds - seconds) < 2.0 * cycles,
             qPrintable(QString::number(sums.runSeconds - seconds)));
    QVERIFY(std::abs(sums.fuel / recorded["fuel"].toDouble() - 1.0) < 0.01);

    // The unit counts in hundredths of an hour, and sends every five seconds what it counted.
    constexpr double step = 0.0065;
    const double all = recorded["hours"].toDouble() + missing["hours"].toDouble();
    QVERIFY2(std::abs(ledger.use.hours.used - all) < 4.0 * step,
             qPrintable(QString::number(ledger.use.hours.used - all)));
    const double missed = ledger.use.hours.missed() - missing["hours"].toDouble();
    QVERIFY2(std::abs(missed) < step * cycles, qPrintable(QString::number(missed)));
    const double starts = recorded["starts"].toDouble() + missing["starts"].toDouble();
    QCOMPARE(ledger.use.starts.used, starts);
    QCOMPARE(ledger.use.starts.missed(), missing["starts"].toDouble());
}

void TestLedger::equalsTheCountersAndTheTruth()
{
    const QTemporaryDir folder;
    LibraryDatabase database;
    QVERIFY(makeLibrary(folder.path(), cards(), database));
    const QJsonArray engines = m_truth.value("engines").toArray();
    QCOMPARE(engines.size(), 2);
    double hours = 0.0;
    double starts = 0.0;
    for (const QJsonValue& engine : engines) {
        const auto answer = engineLedger(database, {}, engine["engine"].toString(), {2027, 1, 1});
        QVERIFY2(answer, qPrintable(answer.error));
        QVERIFY(answer.value);
        compare(*answer.value, engine);
        hours += answer.value->use.hours.used;
        starts += answer.value->use.starts.used;
    }
    double unitHours = 0.0;
    double unitStarts = 0.0;
    for (const QJsonValue& unit : m_truth.value("units").toArray()) {
        unitHours += unit["hours"].toDouble() - unit["hoursFirst"].toDouble();
        unitStarts += unit["starts"].toDouble() - unit["startsFirst"].toDouble();
    }
    QVERIFY2(std::abs(hours - unitHours) < 0.05, qPrintable(QString::number(hours - unitHours)));
    QCOMPARE(starts, unitStarts);
}

QStringList TestLedger::ledgerText(LibraryDatabase& database, const QString& engine)
{
    const auto answer = engineLedger(database, {}, engine, {2027, 1, 1});
    if (!answer || !answer.value)
        return {answer.error};
    const EngineLedger& ledger = *answer.value;
    const auto number = [](double value) { return QString::number(value, 'g', 17); };
    QStringList text{number(ledger.engine.sums.runSeconds), number(ledger.engine.sums.fuel),
                     number(ledger.use.hours.used),         number(ledger.use.starts.missed()),
                     number(ledger.engine.sums.flights),    number(ledger.hoursPerDay)};
    for (const BandTime& band : ledger.engine.bands)
        text << band.quantity + number(band.seconds);
    for (const MonthRow& month : ledger.months)
        text << month.month.toString(Qt::ISODate) + number(month.sums.fuel);
    for (const EpisodeRow& row : ledger.episodes)
        text << row.folder + row.episode.quantity + number(row.episode.begin);
    return text;
}

void TestLedger::anyOrderOfImportsGivesTheSame()
{
    if (qEnvironmentVariableIsSet("KOLT_HISTORY_FLIGHTS"))
        QSKIP("with few flights only");
    const QTemporaryDir folder;
    LibraryDatabase database;
    QVERIFY(makeLibrary(folder.path(), cards(), database));
    QStringList order = cards();
    std::ranges::reverse(order);
    const QTemporaryDir reversed;
    LibraryDatabase second;
    QVERIFY(makeLibrary(reversed.path(), order, second));
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same order each time
    std::shuffle(order.begin(), order.end(), random);
    const QTemporaryDir shuffled;
    LibraryDatabase third;
    // Twice: what is known changes nothing.
    QVERIFY(makeLibrary(shuffled.path(), order + order, third));
    for (const QJsonValue& engine : m_truth.value("engines").toArray()) {
        const QString name = engine["engine"].toString();
        const QStringList text = ledgerText(database, name);
        QVERIFY(text.size() > 20);
        QCOMPARE(ledgerText(second, name), text);
        QCOMPARE(ledgerText(third, name), text);
    }
}

/// A window processes events while it shows progress; answers that come meanwhile are still taken
/// for the cycles that they are of.
void TestLedger::processesAnswerForTheirCycles()
{
    if (qEnvironmentVariableIsSet("KOLT_HISTORY_FLIGHTS"))
        QSKIP("with few flights only");
    const QTemporaryDir folder;
    LibraryDatabase expected;
    QVERIFY(makeLibrary(folder.path(), cards(), expected));
    const QTemporaryDir other;
    Archive archive;
    QVERIFY(Archive::create(other.path()).isEmpty() && archive.open(other.path()));
    for (const QString& card : cards())
        QVERIFY(CardImport(archive, card).run().isComplete());
    const auto cycles = archive.cycles();
    LibraryDatabase database;
    QVERIFY(database.open({other.path(), {}}, LibraryDatabase::Access::Create));
    UpdateOptions options;
    options.source = figuresSource(m_profile);
    options.worker = figuresWorker(other.path(), m_profile);
    options.worker.processes = 1;
    options.progress = [](const UpdateProgress& progress) {
        if (progress.done < 4) { // until the next answer is there, unless it was there before
            QTimer wake;
            wake.start(200);
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return true;
    };
    const UpdateResult result =
        updateLibrary(database, {QList<ArchivedCycle>(cycles.begin(), cycles.end()), {}}, options);
    QVERIFY2(result.error.isEmpty(), qPrintable(result.error));
    QCOMPARE(result.failed, QStringList());
    QCOMPARE(result.cycles, static_cast<int>(cycles.size()));
    LibraryQueries found(database);
    LibraryQueries known(expected);
    const auto rows = found.cycles(LibraryFilter());
    QCOMPARE(rows.value.size(), cycles.size());
    for (const CycleRow& row : rows.value) {
        const auto same = known.cycle(row.folder);
        QVERIFY(same && same.value);
        QCOMPARE(row.sums.flights, same.value->sums.flights);
        QCOMPARE(row.sums.runSeconds, same.value->sums.runSeconds);
    }
}

QTEST_GUILESS_MAIN(TestLedger)
#include "tst_ledger.moc"

#include "library/database/FiguresText.h"
#include "library/database/LibraryUpdate.h"
#include "tests/library/DatabaseSupport.h"

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

namespace {

/// Stores cycles [first, behind) as a program of its own would.
int storeCycles(const QString& library, const QString& archive, int first, int behind)
{
    LibraryDatabase database;
    if (!database.open(*parseLibraryAddress(library, archive).address, Access::Create)) {
        qWarning("%s", qUtf8Printable(database.error()));
        return 1;
    }
    for (int i = first; i < behind; ++i) {
        if (!database.storeCycle(someCycle(i), someFigures(i), someSource())) {
            qWarning("%s", qUtf8Printable(database.error()));
            return 1;
        }
        std::puts("stored");
        std::fflush(stdout);
    }
    return 0;
}

constexpr int badCycle = 7;
constexpr int strayCycle = 9;

/// In place of kolt-cli: figures made up, a cycle that ends the process, and one that is answered
/// for another.
int workOutFigures()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    for (QByteArray line = input.readLine(); !line.isEmpty(); line = input.readLine()) {
        const ArchivedCycle cycle = *cycleFrom(line.trimmed());
        const int number = cycle.folder.section('/', 2).section(' ', 0, 0).toInt();
        if (number == badCycle)
            std::_Exit(3);
        const QString folder = number == strayCycle ? someCycle(0).folder : cycle.folder;
        std::puts(lineOf(FoundFigures{someFigures(number), {}, folder}).constData());
        std::fflush(stdout);
    }
    return 0;
}

} // namespace

/// Several programs, and processes of one, write to a library.
class TestLibraryWriters : public DatabaseTest
{
    Q_OBJECT

private slots:

    void severalWritersLoseAndDoubleNothing()
    {
        std::vector<std::unique_ptr<QProcess>> writers;
        for (int i = 0; i < 4; ++i) { // overlapping parts, all at once, the first on nothing
            writers.push_back(std::make_unique<QProcess>());
            writers.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            writers.back()->start(QCoreApplication::applicationFilePath(),
                                  {"store", m_library, m_folder->path(), QString::number(i * 12),
                                   QString::number(i * 12 + 24)});
        }
        for (const auto& writer : writers) {
            QVERIFY(writer->waitForFinished(120'000));
            QCOMPARE(writer->exitCode(), 0);
        }
        const QJsonArray together = contentOf(m_address);
        checkWhole(m_address);
        LibraryDatabase database;
        QVERIFY(database.recreate(m_address));
        for (int i = 0; i < cycleCount; ++i)
            QVERIFY(database.storeCycle(someCycle(i), someFigures(i), someSource()));
        QCOMPARE(contentOf(m_address), together);
    }

    void killedWriterLeavesWholeCycles()
    {
        int most = 0;
        for (const int until : {1, 2, 5, 9, 14, 20}) {
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {"store", m_library, m_folder->path(), "0", "1000"});
            for (int told = 0; told < until;) {
                QVERIFY(writer.waitForReadyRead(30'000));
                told += static_cast<int>(writer.readAll().count("stored"));
            }
            writer.kill(); // in the middle of one of the next
            QVERIFY(writer.waitForFinished(30'000));
            checkWhole(m_address);
            const int kept = static_cast<int>(ask(m_address, "SELECT 1 FROM cycle").size());
            QVERIFY(kept >= until && kept >= most);
            most = kept;
        }
    }

    void updateGoesOnPastBadCycles()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        QVERIFY(database.storeCycle(someCycle(500), someFigures(500), someSource()));
        std::vector<ArchivedCycle> archive;
        for (int i = 0; i < 20; ++i)
            archive.push_back(someCycle(i));
        const auto plan = planUpdate(database, archive, {}, someSource());
        QCOMPARE(plan.value.cycles.size(), 20);
        QCOMPARE(plan.value.removed, QStringList{someCycle(500).folder});

        ArchivedCycle grown = someCycle(3); // another import adds a file meanwhile
        grown.files.push_back({"REC99999.CAN", QString(64, 'a'), 5});
        UpdateOptions options;
        options.source = someSource();
        options.worker = {QCoreApplication::applicationFilePath(), {"figures"}, 3};
        options.current = [&](const QString& folder) -> std::optional<ArchivedCycle> {
            if (folder == grown.folder)
                return grown;
            const auto found = std::ranges::find(archive, folder, &ArchivedCycle::folder);
            return folder == archive[5].folder ? std::nullopt : std::optional(*found);
        };
        qsizetype last = 0;
        options.progress = [&](const UpdateProgress& progress) {
            last = progress.done;
            return true;
        };
        const UpdateResult result = updateLibrary(database, plan.value, options);
        QCOMPARE(result.error, QString());
        QStringList failed = result.failed;
        failed.sort();
        QCOMPARE(failed.size(), 2);
        QVERIFY(failed[1].startsWith(someCycle(badCycle).folder + ": "));
        QVERIFY(failed[0].startsWith(someCycle(strayCycle).folder + ": "));
        QVERIFY(failed[0].contains(someCycle(0).folder));
        QCOMPARE(result.cycles, 17); // without the bad ones and the one that was taken away
        QCOMPARE(last, 20);
        checkWhole(m_address);
        archive[3] = grown;
        archive.erase(archive.begin() + 5);
        const auto rest = planUpdate(database, archive, {}, someSource());
        QCOMPARE(rest.value.removed, QStringList());
        QCOMPARE(rest.value.cycles.size(), 2); // the bad ones are tried again next time
        QCOMPARE(rest.value.cycles[0].folder, someCycle(badCycle).folder);
        QCOMPARE(rest.value.cycles[1].folder, someCycle(strayCycle).folder);
    }

    void updateEndsEarly()
    {
        LibraryDatabase database;
        QVERIFY(database.open(m_address, Access::Create));
        UpdatePlan plan;
        for (int i = 10; i < 30; ++i)
            plan.cycles << someCycle(i);
        UpdateOptions options;
        options.source = someSource();
        options.worker = {QCoreApplication::applicationFilePath(), {"figures"}, 2};
        options.progress = [](const UpdateProgress& progress) { return progress.done < 4; };
        const UpdateResult cancelled = updateLibrary(database, plan, options);
        QVERIFY(cancelled.isCancelled);
        QCOMPARE(cancelled.cycles, 4);
        QCOMPARE(ask(m_address, "SELECT 1 AS n FROM cycle").size(), 4);
        options.progress = {};
        options.worker.program = "/nowhere/kolt-cli";
        QVERIFY(updateLibrary(database, plan, options).error.contains("/nowhere/kolt-cli"));
        options.worker = {QCoreApplication::applicationFilePath(), {"refuse"}, 2};
        QVERIFY(updateLibrary(database, plan, options).error.contains("status 2"));
        checkWhole(m_address);
    }

    void linesBetweenProcessesAreWhole()
    {
        const CycleFigures figures = someFigures(4, 3);
        const QByteArray line = lineOf(FoundFigures{figures, {}, "unit/folder"});
        const auto found = figuresFrom(line);
        QVERIFY(found && found->figures);
        QCOMPARE(lineOf(*found), line);
        QCOMPARE(found->figures->flights[2].flight.fuel, figures.flights[2].flight.fuel);
        for (qsizetype length = 0; length < line.size(); length += 4)
            QVERIFY(!figuresFrom(line.left(length)));
        QCOMPARE(lineOf(*cycleFrom(lineOf(someCycle(4)))), lineOf(someCycle(4)));
    }
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "store")
        return storeCycles(arguments[2], arguments[3], arguments[4].toInt(), arguments[5].toInt());
    if (arguments.value(1) == "figures")
        return workOutFigures();
    if (arguments.value(1) == "refuse")
        return 2;
    TestLibraryWriters test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_librarywriters.moc"

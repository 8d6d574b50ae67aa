#include "base/WriteGuard.h"
#include "library/archive/ArchiveCheck.h"
#include "library/archive/ArchiveTrash.h"
#include "library/archive/Manifest.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"
#include "tests/library/ArchiveSupport.h"
#include "tests/support/Rows.h"

#include <QTest>

#include <random>

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

class TestArchive : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cyclesAreThoseOfTheCard();
    void secondImportChangesNothing();
    void anyOrderGivesTheSame_data();
    void anyOrderGivesTheSame();
    void unitThatCountsAnewKeepsItsRuns();
    void runsWithLostFilesBetweenStayApart();
    void otherContentGoesBeside_data();
    void otherContentGoesBeside();
    void lostManifestIsMadeAgain_data();
    void lostManifestIsMadeAgain();
    void damagedFileIsReplacedFromTheCard();
    void checkTellsWhatIsWrong();
    void archiveIsNotMadeAnew();
    void libraryOnTheCardIsRefused();
    void cancelKeepsWhatIsComplete();
    void importIsTakenBack();
    void listenersAreToldOfEachChange();

private:
    QString path(const QString& name) const { return m_directory->filePath(name); }

    bool makeCard(const QString& name, const CardContent& content) const
    {
        QDir(path(name)).removeRecursively();
        return writeCard(path(name), content);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    DiagnosticsCapture m_output;
};

namespace {

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

/// The files of each cycle, as the listing of a card finds them.
QStringList listingOf(const QString& card)
{
    const Profile profile;
    CardContainer container(profile);
    container.readContainer(card);
    QStringList lines;
    for (const auto& [number, cycle] : container.cycles()) {
        QString line = cycle.dateTime.toString(Qt::ISODate);
        for (const QString& name : cycle.fileNames)
            line += ' ' + name;
        lines << line;
    }
    return sorted(lines);
}

QStringList archivedAs(const QString& root)
{
    Archive archive;
    archive.open(root);
    QStringList lines;
    for (const ArchivedCycle& cycle : archive.cycles()) {
        QString line = cycle.dateTime.toString(Qt::ISODate);
        for (const ArchivedFile& file : cycle.files)
            line += ' ' + file.name;
        lines << line;
    }
    return sorted(lines);
}

/// What can happen to the files of a card.
void damage(CardContent& card, std::mt19937& random)
{
    for (auto file = card.begin(); file != card.end();) {
        const auto chance = random() % 12;
        if (chance == 0)
            file->second.truncate(static_cast<qsizetype>(random() % file->second.size()));
        file = chance == 1 ? card.erase(file) : std::next(file);
    }
}

} // namespace

void TestArchive::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(makeCard("card", summerCard()));
}

void TestArchive::cyclesAreThoseOfTheCard()
{
    const ImportResult result = importInto(path("lib"), path("card"));
    QCOMPARE(told(result), "copied 12 known 0 beside 0");
    QVERIFY(result.isComplete());
    QCOMPARE(archivedAs(path("lib")), listingOf(path("card")));
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    const std::vector<ArchivedCycle> cycles = archive.cyclesOf(4711);
    QCOMPARE(cycles.size(), 3U);
    const QString first = hashOf(summerCard().at(recordName(1)));
    // The run that ended before it knew the date comes first.
    QCOMPARE(cycles[1].folder, "4711/2026/2026-07-01 08-00-00 " + first.left(8));
    QCOMPARE(cycles[1].files[0].sha256, first);
    QCOMPARE(cycles[1].engine, "E-1");
    QVERIFY(cycles[0].folder.startsWith("4711/undated/undated "));
    for (const ArchivedFile& file : cycles[1].files)
        QCOMPARE(readFile(archive.pathOf(cycles[1].folder) + '/' + file.name),
                 summerCard().at(file.name));
    QCOMPARE(recordFiles(path("card")), summerCard());
}

void TestArchive::secondImportChangesNothing()
{
    const auto treeOf = [this] {
        std::map<QString, QByteArray> tree;
        QDirIterator entries(path("lib"), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString entry = entries.next();
            tree[entry] = readFile(entry);
        }
        return tree;
    };
    importInto(path("lib"), path("card"));
    const auto before = treeOf();
    const ImportResult again = importInto(path("lib"), path("card"));
    QCOMPARE(told(again), "copied 0 known 12 beside 0");
    QCOMPARE(again.bytes, 0);
    QCOMPARE(treeOf(), before);
}

void TestArchive::anyOrderGivesTheSame_data()
{
    const Rows<int> row;
    for (int seed = 1; seed <= 40; ++seed)
        row(seed % 2 == 0 ? "damaged" + QByteArray::number(seed)
                          : "whole" + QByteArray::number(seed),
            seed);
}

/// Cards with some of the files each, overlapping, in any order.
void TestArchive::anyOrderGivesTheSame()
{
    const auto [seed] = fetchRow<int>();
    std::mt19937 random(static_cast<unsigned>(seed));
    CardContent all;
    int number = 1;
    for (int run = 0; run < 5; ++run) {
        const int files = 1 + static_cast<int>(random() % 6);
        all.merge(engineRun(number, files, clockOf(7, 1 + run)));
        number += files;
    }
    if (seed % 2 == 0)
        damage(all, random);
    QVERIFY(makeCard("all", all));
    importInto(path("whole"), path("all"));
    QCOMPARE(archivedAs(path("whole")), listingOf(path("all")));

    std::vector<CardContent> parts(2 + random() % 3);
    for (const auto& file : all) {
        parts[random() % parts.size()].insert(file);
        parts[random() % parts.size()].insert(file);
    }
    for (const CardContent& part : parts) {
        QVERIFY(makeCard("part", part));
        const ImportResult result = importInto(path("parts"), path("part"));
        QVERIFY2(result.isComplete() || part.empty(), qPrintable(result.error));
    }
    QCOMPARE(cyclesIn(path("parts")).join('\n'), cyclesIn(path("whole")).join('\n'));
    QCOMPARE(recordFiles(path("parts")), recordFiles(path("whole")));
}

void TestArchive::unitThatCountsAnewKeepsItsRuns()
{
    // The card was formatted in August, and the unit began with 1 again.
    const CardContent july = summerCard();
    CardContent august = engineRun(1, 3, clockOf(8, 20), 4711, 8);
    august.merge(engineRun(4, 4, clockOf(8, 21), 4711, 8));
    CardContent lateJuly(std::next(july.begin(), 8), july.end());
    const CardContent earlyJuly(july.begin(), std::next(july.begin(), 8));
    const std::vector<std::vector<CardContent>> orders{{july, august},
                                                       {august, july},
                                                       {august, lateJuly, earlyJuly},
                                                       {lateJuly, august, earlyJuly}};
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const QString library = path("order" + QString::number(i));
        int beside = 0;
        for (const CardContent& card : orders[i]) {
            QVERIFY(makeCard("card", card));
            beside += importInto(library, path("card")).beside;
        }
        QCOMPARE(beside, 0);
        QCOMPARE(cyclesIn(library), cyclesIn(path("order0")));
    }
    QVERIFY(makeCard("july", july) && makeCard("august", august));
    QCOMPARE(archivedAs(path("order0")),
             sorted(listingOf(path("july")) + listingOf(path("august"))));
}

void TestArchive::runsWithLostFilesBetweenStayApart()
{
    // By September the unit had overwritten a month, also the beginning of a run.
    CardContent september = engineRun(40, 6, clockOf(9, 10));
    september.erase(recordName(40));
    september.erase(recordName(41));
    QVERIFY(makeCard("september", september));
    importInto(path("lib"), path("card"));
    importInto(path("lib"), path("september"));
    QCOMPARE(archivedAs(path("lib")),
             sorted(listingOf(path("card")) + listingOf(path("september"))));
}

void TestArchive::otherContentGoesBeside_data()
{
    const Rows<QString> row;
    row("cut short", "cut");
    row("one byte changed", "flip");
    row("the same without its header", "header");
}

void TestArchive::otherContentGoesBeside()
{
    const auto [kind] = fetchRow<QString>();
    const QString name = recordName(9);
    const CardContent good = summerCard();
    CardContent other = good;
    QByteArray& bytes = other[name];
    if (kind == "cut")
        bytes.chop(40);
    else if (kind == "flip")
        bytes[200] = static_cast<char>(bytes[200] ^ 1);
    else
        bytes.truncate(100);
    QVERIFY(makeCard("good", good) && makeCard("other", other));
    QCOMPARE(told(importInto(path("a"), path("good"))), "copied 12 known 0 beside 0");
    QCOMPARE(told(importInto(path("a"), path("other"))), "copied 0 known 11 beside 1");
    QCOMPARE(told(importInto(path("a"), path("other"))), "copied 0 known 12 beside 0");
    importInto(path("b"), path("other"));
    importInto(path("b"), path("good"));
    QCOMPARE(cyclesIn(path("b")), cyclesIn(path("a")));
    QCOMPARE(recordFiles(path("b")), recordFiles(path("a")));
    QCOMPARE(recordFiles(path("a")).size(), 13U);
    if (kind == "flip")
        return; // nobody knows which is right
    Archive archive;
    QVERIFY(archive.open(path("a")));
    const QString folder = archive.pathOf(archive.cycles().back().folder);
    QCOMPARE(readFile(folder + '/' + name), good.at(name));
    QCOMPARE(readFile(folder + "/copies/" + name), bytes);
}

void TestArchive::lostManifestIsMadeAgain_data()
{
    const Rows<QByteArray> row;
    row("empty", "");
    row("cut", R"({"kind": "KOLT cycle", "unit": 4711, "files": [{"name")");
    row("no object", "[1, 2]");
    row("without files", R"({"kind": "KOLT cycle", "unit": 4711})");
    row("paths for names",
        R"({"kind": "KOLT cycle", "unit": 4711, "files": [{"name": "../../a.CAN", "bytes": 1,
        "sha256": "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"}]})");
    row("wrong types", R"({"kind": "KOLT cycle", "unit": 4711, "files": {"name": [1e999]},
        "copies": ["a", null, {"name": 5}], "sequence": -1e300})");
}

void TestArchive::lostManifestIsMadeAgain()
{
    const auto [text] = fetchRow<QByteArray>();
    importInto(path("lib"), path("card"));
    const QStringList before = cyclesIn(path("lib"));
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    const QString folder = archive.cycles().back().folder;
    QVERIFY(writeFile(archive.pathOf(folder) + "/manifest.json", text));
    QVERIFY(cyclesIn(path("lib")) != before);
    QCOMPARE(told(importInto(path("lib"), path("card"))), "copied 0 known 12 beside 0");
    QCOMPARE(cyclesIn(path("lib")), before);
    QVERIFY(checkArchive(archive).isSound());
}

void TestArchive::damagedFileIsReplacedFromTheCard()
{
    importInto(path("lib"), path("card"));
    const CardContent before = recordFiles(path("lib"));
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    const QString damaged = before.rbegin()->first;
    QByteArray bytes = before.rbegin()->second;
    bytes[150] = static_cast<char>(~bytes[150]);
    QVERIFY(writeFile(archive.pathOf(damaged), bytes));
    QCOMPARE(checkArchive(archive).damaged, QStringList{damaged});
    QCOMPARE(told(importInto(path("lib"), path("card"))), "copied 1 known 11 beside 0");
    QCOMPARE(recordFiles(path("lib")), before);
    QVERIFY(checkArchive(archive).isSound());
}

void TestArchive::checkTellsWhatIsWrong()
{
    importInto(path("lib"), path("card"));
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    const CheckResult sound = checkArchive(archive);
    QVERIFY(sound.isSound());
    QCOMPARE(sound.files, 12);
    const CardContent files = recordFiles(path("lib"));
    QVERIFY(QFile::remove(archive.pathOf(files.begin()->first)));
    const QString folder = archive.cycles().back().folder;
    QVERIFY(writeFile(archive.pathOf(folder) + "/REC99999.CAN", "stray"));
    QVERIFY(writeFile(archive.pathOf(archive.cycles().front().folder) + "/manifest.json", "{"));
    const CheckResult result = checkArchive(archive);
    QCOMPARE(result.missing, QStringList{files.begin()->first});
    QVERIFY(result.unlisted.contains(folder + "/REC99999.CAN"));
    QCOMPARE(result.manifests.size(), 1);
    QVERIFY(!result.isSound());
    QVERIFY(!checkArchive(archive, [](qint64, qint64) { return false; }).isSound());
}

void TestArchive::archiveIsNotMadeAnew()
{
    Archive archive;
    QVERIFY(!archive.open(path("absent")));
    QVERIFY(archive.error().contains(QDir::toNativeSeparators(path("absent"))));
    QVERIFY(!QFileInfo::exists(path("absent")));
    QVERIFY(!archive.open(path("card")));
    QVERIFY(!Archive::create(path("absent/deeper")).isEmpty());
    QVERIFY(!Archive::create(path("card")).isEmpty());
    QVERIFY(!QFileInfo::exists(path("card/kolt-library.json")));
    QCOMPARE(Archive::create(path("new")), QString());
    QVERIFY(archive.open(path("new")));
    const QString id = archive.id();
    // Moved as a whole it is the same library; its disk may vanish while it is open.
    importInto(path("new"), path("card"));
    CardImport import(archive, path("card"));
    QVERIFY(QDir().rename(path("new"), path("moved")));
    const ImportResult result = import.run();
    QVERIFY(!result.isComplete());
    QCOMPARE(result.safe(), 0);
    QVERIFY(!QFileInfo::exists(path("new")));
    QVERIFY(archive.open(path("moved")));
    QCOMPARE(archive.id(), id);
    QCOMPARE(archive.cycles().size(), 3U);
    QVERIFY(writeFile(path("moved/kolt-library.json"), R"({"version": 2})"));
    QVERIFY(!archive.open(path("moved")));
}

void TestArchive::libraryOnTheCardIsRefused()
{
    QCOMPARE(Archive::create(path("card/lib")), QString());
    const ImportResult result = importInto(path("card/lib"), path("card"));
    QVERIFY(!result.error.isEmpty());
    QCOMPARE(recordFiles(path("card")), summerCard());
    const auto protection = protectFolder(path("card"));
    QVERIFY(!Archive::create(path("card/other")).isEmpty());
}

void TestArchive::cancelKeepsWhatIsComplete()
{
    QCOMPARE(Archive::create(path("lib")), QString());
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    CardImport import(archive, path("card"));
    const ImportResult result = import.run([&](const ImportProgress& progress) {
        if (progress.filesDone == 6)
            import.cancel();
    });
    QVERIFY(result.isCancelled);
    QVERIFY(!result.isComplete() && result.safe() >= 4 && result.safe() < 12);
    QCOMPARE(static_cast<int>(recordFiles(path("lib")).size()), result.safe());
    QVERIFY(checkArchive(archive).isSound());
    const ImportResult next = importInto(path("lib"), path("card"));
    QCOMPARE(next.safe(), 12);
    QCOMPARE(archivedAs(path("lib")), listingOf(path("card")));
}

void TestArchive::importIsTakenBack()
{
    // Another pilot's card, which has the last files of this aircraft, too.
    CardContent foreign = engineRun(1, 4, clockOf(7, 9), 815);
    const CardContent all = summerCard();
    for (int number = 11; number <= 12; ++number)
        foreign[recordName(number)] = all.at(recordName(number));
    QVERIFY(makeCard("foreign", foreign));
    const ImportResult wrong = importInto(path("lib"), path("foreign"));
    QCOMPARE(told(wrong), "copied 6 known 0 beside 0");
    importInto(path("lib"), path("card"));
    importInto(path("right"), path("card"));
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    QCOMPARE(importsOf(archive).size(), 2U);
    const TakeBackResult result = takeBack(archive, wrong.id);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.files, 4);
    QCOMPARE(cyclesIn(path("lib")), cyclesIn(path("right")));
    QVERIFY(checkArchive(archive).isSound());
    QCOMPARE(recordFiles(result.folder).size(), 4U);
    QVERIFY(importsOf(archive).back().isTakenBack && importsOf(archive).back().id == wrong.id);
    QVERIFY(!takeBack(archive, "no such import").error.isEmpty());
    // It can be imported once more.
    QCOMPARE(told(importInto(path("lib"), path("foreign"))), "copied 4 known 2 beside 0");
}

void TestArchive::listenersAreToldOfEachChange()
{
    const CardContent all = summerCard();
    QStringList known;
    ArchiveListener listener;
    listener.cycleChanged = [&](const ArchivedCycle& cycle) {
        if (!known.contains(cycle.folder))
            known << cycle.folder;
    };
    listener.cycleRemoved = [&](const QString& folder) { known.removeAll(folder); };
    const auto foldersOf = [this] {
        Archive archive;
        archive.open(path("lib"));
        QStringList folders;
        for (const ArchivedCycle& cycle : archive.cycles())
            folders << cycle.folder;
        return sorted(folders);
    };
    QVERIFY(makeCard("late", CardContent(std::next(all.begin(), 2), all.end())));
    importInto(path("lib"), path("late"), listener);
    QCOMPARE(sorted(known), foldersOf());
    const QStringList before = foldersOf();
    importInto(path("lib"), path("card"), listener);
    QVERIFY(foldersOf() != before);
    QCOMPARE(sorted(known), foldersOf());
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    for (const ImportRecord& record : importsOf(archive))
        QCOMPARE(takeBack(archive, record.id, listener).error, QString());
    QCOMPARE(foldersOf(), QStringList());
    QCOMPARE(known, QStringList());
}

QTEST_GUILESS_MAIN(TestArchive)
#include "tst_archive.moc"

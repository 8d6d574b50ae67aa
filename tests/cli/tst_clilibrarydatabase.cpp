#include "tests/cli/CliSupport.h"
#include "tests/support/PostgresServer.h"

#include <QDirIterator>
#include <QTest>

using namespace KOLT::Test;

namespace {

QJsonArray arrayOf(const Result& result)
{
    return QJsonDocument::fromJson(result.output).array();
}

QStringList namesOf(const QJsonArray& files)
{
    QStringList names;
    for (const QJsonValue& file : files)
        names << file["name"].toString();
    return names;
}

} // namespace

/// The verbs of kolt-cli library on a library of the sample card; each test runs on both databases.
class TestCliLibraryDatabase : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("SQLite") << "SQLite";
        QTest::newRow("PostgreSQL") << "PostgreSQL";
    }

    /// The four short cycles of the sample card, which say as much as all seven.
    void initTestCase()
    {
        m_card = std::make_unique<QTemporaryDir>();
        for (const QFileInfo& file : QDir(KOLT_SAMPLE_CARD).entryInfoList(QDir::Files)) {
            const int number = file.fileName().mid(3, 5).toInt();
            if ((number >= 14 && number <= 20) || number >= 24)
                QVERIFY(QFile::copy(file.filePath(), m_card->filePath(file.fileName())));
        }
    }

    void init()
    {
        QFETCH_GLOBAL(QString, kind);
        m_folder = std::make_unique<QTemporaryDir>();
        m_archive = m_folder->filePath("archive");
        m_library = {"--library", m_archive};
        if (kind == "SQLite")
            return;
        if (!m_hasServer) {
            const QString error = m_server.start();
            QVERIFY2(error.isEmpty(), qPrintable(error));
            m_hasServer = true;
        }
        m_library = QStringList{"--library", m_server.newDatabase(), "--archive", m_archive};
        QVERIFY(!m_library[1].isEmpty());
    }

    void figuresAreThoseOfTheCard()
    {
        QCOMPARE(verb("import", KOLT_SAMPLE_CARD).status, 0);
        const QJsonArray list = arrayOf(verb("list"));
        const QJsonObject card = run("list", {KOLT_SAMPLE_CARD, "--headers-only"}).json();
        QCOMPARE(list.size(), card["cycles"].toArray().size());
        QVERIFY(list.size() > 3);
        double fuel = 0.0;
        int flights = 0;
        qsizetype episodes = 0;
        for (const QJsonValue& cycle : list) {
            const QJsonValue listed = cycleWith(card["cycles"].toArray(), cycle["files"].toArray());
            QCOMPARE(cycle["dateTime"], listed["dateTime"]);
            const QString number = QString::number(listed["number"].toInt());
            const QJsonObject told = run("flights", {KOLT_SAMPLE_CARD, "--cycle", number}).json();
            QCOMPARE(cycle["flights"], told["flights"]);
            flights += static_cast<int>(told["flights"].toArray().size());

            const QJsonObject found = run("episodes", {KOLT_SAMPLE_CARD, "--cycle", number}).json();
            const QString first = cycle["files"][0]["sha256"].toString();
            const QJsonArray kept =
                rows("SELECT e.quantity, e.begin_seconds AS \"begin\", e.end_seconds AS \"end\", "
                     "e.peak, e.peak_seconds AS \"peakTime\", e.crossings, e.phase, "
                     "e.engine_speed AS \"engineSpeed\", "
                     "e.seconds_beyond_warning AS \"secondsBeyondWarning\", "
                     "e.seconds_beyond_limit AS \"secondsBeyondLimit\" FROM episode e JOIN file f "
                     "ON f.cycle = e.cycle WHERE f.sha256 = '" +
                     first + "' ORDER BY e.number");
            QCOMPARE(kept.size(), found["episodes"].toArray().size());
            episodes += kept.size();
            for (qsizetype i = 0; i < kept.size(); ++i) {
                const QJsonObject row = kept[i].toObject();
                for (auto it = row.begin(); it != row.end(); ++it)
                    QCOMPARE(it.value(), found["episodes"][i][it.key()]);
            }
        }
        for (const QJsonValue& cycle :
             run("overview", {KOLT_SAMPLE_CARD}).json()["cycles"].toArray())
            fuel += cycle["fuel"].toDouble();
        QVERIFY(flights > 5 && episodes > 3);

        const QJsonArray engines = arrayOf(verb("engines"));
        QCOMPARE(engines.size(), 1);
        const QJsonObject engine = engines.at(0).toObject();
        QCOMPARE(engine["units"].toArray().size(), 1);
        QCOMPARE(engine["flights"].toInt(), flights);
        QCOMPARE(engine["episodes"].toInt(), static_cast<int>(episodes));
        QVERIFY(std::abs(engine["fuel"].toDouble() - fuel) < 1e-4);
        // The unit counts hours with two decimals, and starts.
        const QJsonArray first = rows("SELECT MIN(unit_hours_first) AS hours, "
                                      "MIN(unit_starts_first) AS starts FROM cycle");
        const double hours = engine["unitHours"].toDouble() - first.at(0)["hours"].toDouble();
        QVERIFY2(std::abs(engine["runSeconds"].toDouble() / 3600.0 - hours) < 0.021,
                 qPrintable(QString::number(hours)));
        QCOMPARE(engine["starts"].toInt(),
                 engine["unitStarts"].toInt() - first.at(0)["starts"].toInt());
        checkRebuild(list, engines);
    }

    void importsAtOnceAndAgainGiveTheSame()
    {
        // The first on nothing, so that all make the tables; two are halves of the card.
        QTemporaryDir halves;
        const QStringList files = QDir(m_card->path()).entryList(QDir::Files, QDir::Name);
        QVERIFY(QDir(halves.path()).mkpath("a") && QDir(halves.path()).mkpath("b"));
        for (qsizetype i = 0; i < files.size(); ++i)
            QVERIFY(QFile::copy(m_card->filePath(files[i]),
                                halves.filePath((i % 2 == 0 ? "a/" : "b/") + files[i])));
        QCOMPARE(verb("import", halves.filePath("a")).status, 0);
        std::vector<std::unique_ptr<QProcess>> imports;
        for (const QString& card : {m_card->path(), halves.filePath("b")}) {
            imports.push_back(std::make_unique<QProcess>());
            imports.back()->setProcessEnvironment(environment());
            imports.back()->start(
                KOLT_CLI,
                QStringList{"library", "import", card, "--profile", KOLT_PROFILE} + m_library);
        }
        for (const auto& import : imports) {
            QVERIFY(import->waitForFinished(300'000));
            QVERIFY2(import->exitCode() == 0, import->readAllStandardError().right(300));
        }
        const QJsonArray list = arrayOf(verb("list"));
        const QJsonArray engines = arrayOf(verb("engines"));
        for (const QJsonValue& cycle : list)
            QVERIFY(!cycle["flights"].toArray().isEmpty() || cycle["files"].toArray().size() < 4);

        const QStringList other{"--library", m_folder->filePath("other")};
        QCOMPARE(run("library", QStringList{"import", m_card->path()} + other).status, 0);
        QCOMPARE(arrayOf(run("library", QStringList{"list"} + other)), list);
        QCOMPARE(arrayOf(run("library", QStringList{"engines"} + other)), engines);
    }

    void killedImportIsMendedByTheNext()
    {
        for (const int milliseconds : {400, 1200}) {
            QProcess import;
            import.setProcessEnvironment(environment());
            import.start(KOLT_CLI, QStringList{"library", "import", m_card->path(), "--profile",
                                               KOLT_PROFILE} +
                                       m_library);
            import.waitForFinished(milliseconds); // wherever it is then
            import.kill();
            import.waitForFinished(30'000);
        }
        QCOMPARE(verb("import", m_card->path()).status, 0);
        checkRebuild(arrayOf(verb("list")), arrayOf(verb("engines")));
        QCOMPARE(rows("SELECT 1 AS n FROM cycle WHERE source IS NULL"), QJsonArray());
    }

    void damagedManifestIsTold()
    {
        QCOMPARE(verb("import", m_card->path()).status, 0);
        const QJsonArray list = arrayOf(verb("list"));
        const QJsonArray engines = arrayOf(verb("engines"));
        QDirIterator it(m_archive, {"REC00014.*"}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(it.hasNext());
        const QDir cycle(QFileInfo(it.next()).path());
        QFile manifest(cycle.filePath("manifest.json"));
        QVERIFY(manifest.open(QIODevice::ReadWrite) && manifest.resize(manifest.size() / 2));
        manifest.close();
        const Result rebuilt = verb("rebuild");
        QCOMPARE(rebuilt.status, 1);
        QCOMPARE(rebuilt.json()["cycles"].toInt(), static_cast<int>(list.size()) - 1);
        QVERIFY2(rebuilt.lastError().contains(cycle.dirName()), qPrintable(rebuilt.lastError()));
        QCOMPARE(arrayOf(verb("list")), list); // what was known of it stays
        QCOMPARE(arrayOf(verb("engines")), engines);
        // The next import mends it.
        QCOMPARE(verb("import", m_card->path()).status, 0);
        checkRebuild(list, engines);
    }

    void anotherProfileFindsFiguresAgain()
    {
        QFile profile(KOLT_PROFILE);
        QVERIFY(profile.open(QIODevice::ReadOnly));
        const QByteArray text = profile.readAll();
        QFile other(m_folder->filePath("Profile.xml"));
        QVERIFY(other.open(QIODevice::WriteOnly));
        QVERIFY(text.contains("koltDataType=\"FuelA\""));
        other.write(QByteArray(text).replace("koltDataType=\"FuelA\"", ""));
        other.close();
        QCOMPARE(verb("import", m_card->path()).status, 0);
        const double fuel = arrayOf(verb("engines")).at(0)["fuel"].toDouble();
        QCOMPARE(run("library", QStringList{"import", m_card->path()} + m_library, other.fileName())
                     .status,
                 0);
        QVERIFY(arrayOf(verb("engines")).at(0)["fuel"].toDouble() < 0.6 * fuel);
        QCOMPARE(rows("SELECT COUNT(DISTINCT source) AS n FROM cycle").at(0)["n"].toInt(), 1);
        QCOMPARE(verb("rebuild").status, 0);
        QCOMPARE(arrayOf(verb("engines")).at(0)["fuel"].toDouble(), fuel);
        QCOMPARE(run("library", QStringList{"rebuild"} + m_library, "/nowhere.xml").status, 1);
    }

    void choosesAndRefuses()
    {
        QCOMPARE(verb("list").status, 1); // there is no library yet
        QCOMPARE(verb("rebuild").status, 1);
        QVERIFY(!QFile::exists(m_archive));
        QCOMPARE(verb("import", m_card->path()).status, 0);
        const QJsonArray list = arrayOf(verb("list"));
        const QString unit = QString::number(list.at(0)["unit"].toInt());
        const QString day = list.at(2)["dateTime"].toString().left(10);
        const auto on = [](const QString& from, const QString& to) {
            return [=](const QJsonValue& cycle) {
                const QString own = cycle["dateTime"].toString().left(10);
                return own >= from && own <= to;
            };
        };
        const auto count = [&](auto&& has) { return std::count_if(list.begin(), list.end(), has); };
        QVERIFY(count(on(day, "9999")) > 0 && count(on(day, "9999")) < list.size());
        const auto listed = [&](const QStringList& options) {
            return arrayOf(verb("list", {}, options)).size();
        };
        QCOMPARE(listed({"--from", day}), count(on(day, "9999")));
        QCOMPARE(listed({"--to", day}), count(on("0000", day)));
        QCOMPARE(listed({"--from", day, "--to", day, "--unit", unit}), count(on(day, day)));
        QCOMPARE(listed({"--unit", "1"}), 0);
        QCOMPARE(verb("list", {}, {"--unit", "x"}).status, 1);
        QCOMPARE(verb("list", {}, {"--from", "18.05.2024"}).status, 1);
        QCOMPARE(verb("query", "SELECT 1 AS n").status, 0);
        QCOMPARE(verb("query", "DELETE FROM cycle").status, 1);
        QCOMPARE(verb("query", "SELECT none FROM cycle").status, 1);
        QCOMPARE(arrayOf(verb("list")), list);
    }

    void enginesAreWherePeopleWrote()
    {
        QCOMPARE(verb("import", m_card->path()).status, 0);
        const QJsonArray list = arrayOf(verb("list"));
        const QString day = list.at(2)["dateTime"].toString().left(10);
        QVERIFY(QDir(m_archive).mkpath("installations"));
        QFile written(m_archive + "/installations/1.json");
        QVERIFY(written.open(QIODevice::WriteOnly));
        written.write(QJsonDocument(QJsonObject{{"format", 1},
                                                {"id", "1"},
                                                {"engine", "SPARE"},
                                                {"unit", list.at(0)["unit"]},
                                                {"from", day}})
                          .toJson());
        written.close();
        QCOMPARE(verb("rebuild").status, 0);
        for (const QJsonValue& cycle : arrayOf(verb("list"))) {
            const bool isSpare = cycle["dateTime"].toString().left(10) >= day;
            QCOMPARE(cycle["engine"], isSpare ? QJsonValue("SPARE") : list.at(0)["engine"]);
        }
        QCOMPARE(arrayOf(verb("engines")).size(), 2);
        QVERIFY(written.remove());
        QCOMPARE(verb("import", m_card->path()).status, 0);
        QCOMPARE(arrayOf(verb("list")), list);
    }

    void documentedQueriesWork()
    {
        QFile document(QFileInfo(KOLT_PROFILE).path() + "/../docs/formats/library.md");
        QVERIFY(document.open(QIODevice::ReadOnly));
        QCOMPARE(verb("import", KOLT_SAMPLE_CARD).status, 0);
        int examples = 0;
        for (const QString& part : QString::fromUtf8(document.readAll()).split("```sql\n").mid(1)) {
            const QString sql = part.section("```", 0, 0);
            const Result result = verb("query", sql);
            QVERIFY2(result.status == 0, qPrintable(sql + result.lastError()));
            QVERIFY2(!arrayOf(result).isEmpty(), qPrintable(sql));
            ++examples;
        }
        QVERIFY(examples >= 5);
    }

    void damagedDatabaseIsRebuilt()
    {
        if (m_library.size() > 2)
            QSKIP("the files of a server are its own business");
        QCOMPARE(verb("import", m_card->path()).status, 0);
        const QJsonArray list = arrayOf(verb("list"));
        const QJsonArray engines = arrayOf(verb("engines"));
        QFile file(m_archive + "/library.sqlite");
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.seek(file.size() / 4);
        file.write(QByteArray(static_cast<int>(file.size() / 2), 'x'));
        file.close();
        const Result told = verb("list");
        QCOMPARE(told.status, 1);
        QVERIFY2(told.lastError().contains("rebuild"), qPrintable(told.lastError()));
        checkRebuild(list, engines);
    }

private:
    QProcessEnvironment environment() const
    {
        QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
        result.insert("XDG_DATA_HOME", m_folder->path());
        return result;
    }

    Result run(const QString& verb, const QStringList& arguments,
               const QString& profile = KOLT_PROFILE) const
    {
        const QStringList withoutProfile{"list", "engines", "query"};
        const bool isPlain = verb == "library" && withoutProfile.contains(arguments.value(0));
        return KOLT::Test::run(*m_folder, KOLT_CLI,
                               QStringList{verb} + arguments +
                                   (isPlain ? QStringList() : QStringList{"--profile", profile}));
    }

    /// Of the library.
    Result verb(const QString& name, const QString& operand = {}, const QStringList& options = {})
    {
        return run("library", QStringList{name} +
                                  (operand.isEmpty() ? QStringList() : QStringList{operand}) +
                                  m_library + options);
    }

    QJsonArray rows(const QString& sql) { return arrayOf(verb("query", sql)); }

    static QJsonValue cycleWith(const QJsonArray& cycles, const QJsonArray& files)
    {
        for (const QJsonValue& cycle : cycles) {
            if (cycle["files"].toVariant().toStringList() == namesOf(files))
                return cycle;
        }
        return {};
    }

    void checkRebuild(const QJsonArray& list, const QJsonArray& engines)
    {
        const Result rebuilt = verb("rebuild");
        QVERIFY2(rebuilt.status == 0, qPrintable(rebuilt.lastError()));
        int flights = 0;
        for (const QJsonValue& cycle : list)
            flights += static_cast<int>(cycle["flights"].toArray().size());
        QCOMPARE(rebuilt.json(), QJsonObject({{"cycles", list.size()}, {"flights", flights}}));
        QCOMPARE(arrayOf(verb("list")), list);
        QCOMPARE(arrayOf(verb("engines")), engines);
        // Without anything but the archive.
        if (m_library.size() > 2)
            m_library[1] = m_server.newDatabase();
        else
            QVERIFY(QFile::remove(m_archive + "/library.sqlite"));
        QCOMPARE(verb("rebuild").status, 0);
        QCOMPARE(arrayOf(verb("list")), list);
        QCOMPARE(arrayOf(verb("engines")), engines);
    }

    PostgresServer m_server;
    bool m_hasServer = false;
    std::unique_ptr<QTemporaryDir> m_card;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_archive;
    QStringList m_library; ///< the options that say where it is
};

QTEST_GUILESS_MAIN(TestCliLibraryDatabase)

#include "tst_clilibrarydatabase.moc"

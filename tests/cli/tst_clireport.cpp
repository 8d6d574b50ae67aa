#include "tests/cli/CliSupport.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QCryptographicHash>
#include <QRegularExpression>

using namespace KOLT::Test;

/// The engine report of the sample card, as PDF and JSON.
class TestCliReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void holdsWhatOtherVerbsTell();
    void pdfHoldsWhatJsonTells_data();
    void pdfHoldsWhatJsonTells();
    void sameBytesAgain();
    void addsWhatTheLibraryKnows();
    void refused_data();
    void refused();

private:
    Result run(const QString& verb, const QStringList& more)
    {
        return KOLT::Test::run(
            m_home, KOLT_CLI,
            QStringList{verb, m_card, "--profile", KOLT_PROFILE, "--variant", "915T"} + more);
    }

    QString pdf(const char* name) const { return m_home.filePath(name); }

    static QString textOf(const QString& program, const QStringList& arguments)
    {
        QProcess tool;
        tool.start(program, arguments);
        tool.waitForFinished();
        return QString::fromUtf8(tool.readAllStandardOutput());
    }

    const QJsonObject& told() const { return m_told; }

    QTemporaryDir m_home;
    const QString m_card = KOLT_SAMPLE_CARD;
    QJsonObject m_told;
};

void TestCliReport::initTestCase()
{
    const Result result = run("report", {"--json"});
    QCOMPARE(result.status, 0);
    m_told = result.json();
    QVERIFY(told()["cycles"].toArray().size() > 2);
}

void TestCliReport::holdsWhatOtherVerbsTell()
{
    qsizetype episodes = 0;
    qsizetype faults = 0;
    for (const QJsonValue& cycle : told()["cycles"].toArray()) {
        const QStringList choice{"--cycle", QString::number(cycle["cycle"].toInt())};
        const QJsonObject found = run("episodes", choice).json();
        episodes += found["episodes"].toArray().size();
        faults += found["faults"].toArray().size();
        QCOMPARE(cycle["flights"].toArray().size(),
                 run("flights", choice).json()["flights"].toArray().size());
    }
    const QJsonArray ranked = told()["episodes"].toArray();
    QCOMPARE(ranked.size(), episodes);
    for (qsizetype i = 0; i < ranked.size(); ++i) {
        QCOMPARE(ranked[i]["hasGraph"].toBool(), i < 10);
        const auto group = [&](qsizetype at) {
            const QJsonValue one = ranked[at];
            return one["isLampOnly"].toBool() ? 2 : one["state"] == "LIMIT" ? 0 : 1;
        };
        QVERIFY(i == 0 || group(i - 1) <= group(i));
    }
    qsizetype occurrences = 0;
    for (const QJsonValue& fault : told()["faults"].toArray())
        occurrences += fault["count"].toInt();
    QVERIFY(faults > 0);
    QCOMPARE(occurrences, faults);
    const QJsonArray files = told()["files"].toArray();
    QCOMPARE(files.size(), QDir(m_card).entryList(QDir::Files).size());
    for (const QJsonValue& file : files)
        QCOMPARE(file["sha256"].toString().toLatin1(),
                 QCryptographicHash::hash(readFile(m_card + '/' + file["name"].toString()),
                                          QCryptographicHash::Sha256)
                     .toHex());
    const QJsonObject hours = told()["identity"]["engineHours"].toObject();
    QVERIFY(hours["last"].toDouble() > hours["first"].toDouble());
}

void TestCliReport::pdfHoldsWhatJsonTells_data()
{
    const Rows<QString, QString, QString, QString, QString> row; // ..., title, page size, a unit
    row("metric", "en", "A4", "Engine Report", "595 x 842");
    row("imperial", "en", "Letter", "Engine Report", "612 x 792");
    row("metric", "de", "Letter", "Motorbericht", "612 x 792");
    row("imperial", "de", "A4", "Motorbericht", "595 x 842");
}

void TestCliReport::pdfHoldsWhatJsonTells()
{
    const auto [units, language, paper, title, size] =
        fetchRow<QString, QString, QString, QString, QString>();
    const QString path = pdf("report.pdf");
    const Result result =
        run("report", {"--pdf", path, "--unit", units, "--language", language, "--paper", paper});
    QVERIFY2(result.status == 0 && result.output.isEmpty(), result.errors);
    KOLT_NEEDS("the tools of poppler");
    QVERIFY(textOf("pdfinfo", {path}).contains("Page size:       " + size));
    QVERIFY2(!textOf("pdfimages", {"-list", path}).contains("image "), "the graphs are pixels");
    QString text = textOf("pdftotext", {"-layout", path, "-"});
    const auto pages = text.count('\f');
    for (int i = 1; i <= pages; ++i)
        QVERIFY(text.contains(
            QString(language == "de" ? "Seite %1 von %2" : "Page %1 of %2").arg(i).arg(pages)));
    text = text.simplified();
    QStringList expected{title};
    for (const QString key : {"engineSerials", "unitSerials", "softwareA", "displaySoftware"})
        for (const QJsonValue& value : told()["identity"][key].toArray())
            expected << value.toString();
    expected << QString::number(told()["identity"]["engineHours"]["last"].toDouble(), 'f', 2) + " h"
             << told()["profile"]["name"].toString() << told()["profile"]["version"].toString();
    for (const QJsonValue& file : told()["files"].toArray())
        expected << file["name"].toString() + ' ' + QString::number(file["bytes"].toInteger()) +
                        ' ' + file["sha256"].toString();
    const QString spaceless = QString(text).remove(' '); // long figures are wrapped
    for (const QJsonValue& episode : told()["episodes"].toArray()) {
        expected << episode["quantity"].toString();
        if (units == "imperial" || language == "de")
            continue;
        expected << episode["peakText"].toString();
        for (const QJsonValue& figure : episode["figures"].toArray())
            QVERIFY2(!episode["hasGraph"].toBool() ||
                         spaceless.contains(figure["text"].toString().remove(' ')),
                     qPrintable(figure["text"].toString()));
    }
    for (const QString key : {"faults", "lamps"})
        for (const QJsonValue& one : told()[key].toArray())
            expected << one["parameter"].toString().section('/', 1);
    for (const QJsonValue& cycle : told()["cycles"].toArray())
        for (const QJsonValue& flight : cycle["flights"].toArray())
            expected << QString::number(flight["fuelA"].toDouble(), 'f', 2)
                     << QString::number(flight["maxAltitude"].toDouble(), 'f', 0);
    for (const QString& one : expected)
        QVERIFY2(text.contains(one.simplified()), qPrintable(one));
    QCOMPARE(text.contains(QStringLiteral("°F")), units == "imperial");
}

void TestCliReport::sameBytesAgain()
{
    static const QRegularExpression made("/CreationDate \\(D:[^)]*\\)");
    QString first;
    for (const char* name : {"1.pdf", "2.pdf", "3.pdf"}) {
        QCOMPARE(run("report", {"--pdf", pdf(name)}).status, 0);
        QString content = QString::fromLatin1(readFile(pdf(name)));
        QCOMPARE(content.count(made), 1);
        content.remove(made);
        QVERIFY(content.size() > 10'000 && (first.isEmpty() || first == content));
        first = content;
    }
}

void TestCliReport::addsWhatTheLibraryKnows()
{
    const QString library = m_home.filePath("library");
    const QStringList options{"--library", library};
    QCOMPARE(KOLT::Test::run(m_home, KOLT_CLI,
                             QStringList{"library", "import", m_card, "--profile", KOLT_PROFILE,
                                         "--variant", "915T"} +
                                 options)
                 .status,
             0);
    QVERIFY(QDir().mkpath(library + "/limits"));
    const QString engine = told()["identity"]["engineSerials"][0].toString();
    writeFile(library + "/limits/oil.json", QJsonDocument({{"format", 1},
                                                           {"id", "oil"},
                                                           {"engine", engine},
                                                           {"title", "Oil change"},
                                                           {"everyHours", 25.0},
                                                           {"everyMonths", 12},
                                                           {"lastHours", 3.5},
                                                           {"lastDate", "2020-02-03"}})
                                                .toJson());
    QJsonObject report = run("report", QStringList{"--json"} + options).json();
    const QJsonArray ledgers = report.take("ledgers").toArray();
    QCOMPARE(report, told());
    QCOMPARE(ledgers.size(), told()["identity"]["engineSerials"].toArray().size());
    qsizetype flights = 0;
    for (const QJsonValue& cycle : told()["cycles"].toArray())
        flights += cycle["flights"].toArray().size();
    qsizetype known = 0;
    for (const QJsonValue& ledger : ledgers)
        known += ledger["flights"].toInt();
    QCOMPARE(known, flights);
    const QJsonValue limit = ledgers[0]["limits"][0];
    QCOMPARE(limit["dueHours"].toDouble(), 28.5);
    QCOMPARE(limit["dueDate"], "2021-02-03");
    QCOMPARE(limit["state"], "overdue");
    QCOMPARE(limit["hoursLeft"].toDouble(), 28.5 - ledgers[0]["hours"].toDouble());

    QVERIFY(QString(run("report", options).output)
                .contains(QRegularExpression("Oil change: overdue, due 28\\.50 h, 3\\.2\\.2021")));
    QCOMPARE(run("report", QStringList{"--pdf", pdf("ledger.pdf")} + options).status, 0);
    KOLT_NEEDS("the tools of poppler");
    const QString text = textOf("pdftotext", {"-layout", pdf("ledger.pdf"), "-"}).simplified();
    for (const QString& part :
         {"Ledger of engine " + engine, QString("Oil change 25 h or 12 months"),
          QString("28.50 h, 3.2.2021"), QString("overdue")})
        QVERIFY2(text.contains(part), qPrintable(part));
}

void TestCliReport::refused_data()
{
    const Rows<QStringList, int, QString> row;
    const QString file = pdf("no.pdf");
    row("language", {"--pdf", file, "--language", "fr"}, 2, "--language is en or de");
    row("paper", {"--pdf", file, "--paper", "A5"}, 2, "--paper is A4 or Letter");
    row("unit alone", {"--unit", "metric"}, 2, "--unit needs --pdf");
    row("both", {"--pdf", file, "--json"}, 2, "either --pdf or --json");
    row("onto the card", {"--pdf", m_card + "/report.pdf"}, 1, "was not written");
    row("no library", {"--json", "--library", m_home.filePath("none")}, 1,
        QDir::toNativeSeparators(m_home.filePath("none")));
    row("server alone", {"--library", "postgresql://u@h/d"}, 2, "--archive is missing");
    row("archive alone", {"--archive", m_home.path()}, 2, "--archive needs --library");
    row("no folder", {"--pdf", m_home.filePath("none/no.pdf")}, 1, "was not written");
}

void TestCliReport::refused()
{
    const auto [options, status, message] = fetchRow<QStringList, int, QString>();
    const Result result = run("report", options);
    QCOMPARE(result.status, status);
    QVERIFY2(result.errors.contains(message.toUtf8()), result.errors);
    QVERIFY(!QFile::exists(pdf("no.pdf")) && !QFile::exists(m_card + "/report.pdf"));
}

QTEST_GUILESS_MAIN(TestCliReport)
#include "tst_clireport.moc"

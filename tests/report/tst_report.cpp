#include "report/ReportPrinter.h"
#include "report/ReportText.h"
#include "tests/support/Rows.h"
#include "tests/support/Systems.h"
#include "tests/support/TestFiles.h"

#include <QProcess>
#include <QRegularExpression>

#include <algorithm>

using namespace KOLT;
using namespace KOLT::Test;

/// The pages of made-up reports.
class TestReport : public QObject
{
    Q_OBJECT

private slots:
    void layoutOnPaper_data();
    void layoutOnPaper();

private:
    static EngineReport reportOf(int episodes);
    QTemporaryDir m_home;
};

/// With long names, many values and graphs.
EngineReport TestReport::reportOf(int episodes)
{
    EngineReport report;
    report.date = QDate(2026, 7, 28);
    report.identity.engineSerials = QStringList{"<E4711>"};
    ReportCycle cycle;
    cycle.sheet.number = 1;
    report.cycles.push_back(cycle);
    for (int i = 0; i < episodes; ++i) {
        ReportEpisode episode;
        episode.cycle = 1;
        episode.title = QStringLiteral("Exhaust Gas Temperature of Cylinder %1: limit").arg(i);
        episode.peakText = "1234.5 rpm";
        for (int figure = 0; figure < 15; ++figure)
            episode.figures.push_back({"Engine speed", "00:00:01.234"});
        episode.figures.push_back({"Of its group", QString("EGT 2 812.5 °C, ").repeated(15)});
        if (i < 10) {
            episode.graph = GraphScene();
            episode.graph->texts.push_back({5.0, 5.0, Qt::AlignLeft, "InGraph", Qt::black});
        }
        report.episodes.push_back(episode);
    }
    report.files.assign(3, {"A.CAN", 5, QByteArray(64, 'f')});
    return report;
}

void TestReport::layoutOnPaper_data()
{
    const Rows<int, QSize, int> row; // size, points, episodes
    for (const int episodes : {0, 1, 300}) {
        row(qPrintable(QString("A4 %1").arg(episodes)), QPageSize::A4, {595, 842}, episodes);
        row(qPrintable(QString("Letter %1").arg(episodes)), QPageSize::Letter, {612, 792},
            episodes);
    }
}

void TestReport::layoutOnPaper()
{
    const auto [size, points, episodes] = fetchRow<int, QSize, int>();
    const QString path = m_home.filePath("report.pdf");
    QVERIFY(
        writeFile(path, reportPdf(reportOf(episodes), static_cast<QPageSize::PageSizeId>(size))));
    KOLT_NEEDS("pdftotext");
    QProcess tool;
    tool.start("pdftotext", {"-bbox", path, "-"});
    QVERIFY2(tool.waitForFinished(), "pdftotext of the package poppler-utils is missing");
    QStringList pages = QString::fromUtf8(tool.readAllStandardOutput()).split("<page ");
    pages.removeFirst();
    // Head and files; up to three episodes with graphs on a page; the others as lines.
    const int graphs = std::min(episodes, 10);
    QVERIFY2(pages.size() >= (graphs + 2) / 3 + 1 && pages.size() < 20,
             qPrintable(QString::number(pages.size())));
    static const QRegularExpression word(
        "xMin=\"(.*)\" yMin=\"(.*)\" xMax=\"(.*)\" yMax=\"(.*)\">(.*)</word>");
    for (const QString& page : pages) {
        QVERIFY(page.startsWith(
            QString("width=\"%1.000000\" height=\"%2").arg(points.width()).arg(points.height())));
        for (auto it = word.globalMatch(page); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            const auto at = [&](int index) { return match.captured(index).toDouble(); };
            QVERIFY2(at(1) > 40.0 && at(3) < points.width() - 40.0 && at(2) > 30.0 &&
                         at(4) < points.height() - 25.0 && at(4) - at(2) < 25.0,
                     qPrintable(match.captured()));
        }
        // A graph stays on the page of its figures; the headings of the lines are repeated.
        const auto figures = page.count(">group<");
        QCOMPARE(page.count(">InGraph<"), figures);
        QCOMPARE(page.count(">Phase<"), page.count(">Exhaust<") > figures ? 1 : 0);
        QVERIFY(page.contains(">Page<") && page.count(">&lt;E4711&gt;,<") == 1);
    }
    const QString all = pages.join(QString());
    QCOMPARE(all.count(">Exhaust<"), episodes);
    QCOMPARE(all.count(">InGraph<"), graphs);
    QCOMPARE(all.contains(">exceeded.<"), episodes == 0);
    QCOMPARE(all.count('>' + QString(64, 'f') + '<'), 3);
}

QTEST_MAIN(TestReport)
#include "tst_report.moc"

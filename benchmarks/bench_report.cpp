// The engine report of a card of twenty hours, beside the hashing of its files.

#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "report/ReportPrinter.h"
#include "report/ReportReader.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

using namespace KOLT;

namespace {

constexpr double hours = 20.0;

double hashMilliseconds(const CardContainer& card)
{
    QElapsedTimer timer;
    timer.start();
    for (const auto& [name, listed] : card.files()) {
        QFile file(listed.path());
        QCryptographicHash hash(QCryptographicHash::Sha256);
        if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
            return 0.0;
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Reading, ranking, ten graphs, pages.
double reportMilliseconds()
{
    static Bench::Card card(hours);
    hashMilliseconds(card.container); // brings the files into the cache
    QElapsedTimer timer;
    timer.start();
    const EngineReport report = readReport(card.profile, card.container, QDate(2024, 5, 18));
    const QByteArray pdf = reportPdf(report, QPageSize::A4);
    const double all = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    const bool isWhole = report.episodes.size() > EngineReport::graphCount &&
                         report.episodes[EngineReport::graphCount - 1].graph &&
                         report.files.size() == card.container.files().size() &&
                         pdf.startsWith("%PDF");
    const double hashing = hashMilliseconds(card.container);
    if (!isWhole || hashing <= 0.0) {
        std::fprintf(stderr, "the report is not whole\n");
        std::exit(1);
    }
    return all - hashing;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return Bench::run(argc, argv,
                      {{"engine report of 20 h without hashing, ms", nullptr, nullptr,
                        Bench::Bound::AtMost, 2000.0, reportMilliseconds}});
}

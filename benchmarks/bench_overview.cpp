// The overview of a card of twenty hours, against a bare pass over the same files.

#include "analysis/CardOverview.h"
#include "base/Diagnostics.h"
#include "benchmarks/BarePasses.h"
#include "benchmarks/Figures.h"
#include "benchmarks/PeakMemory.h"
#include "record/CardContainer.h"
#include "tools/samplecard/SampleCard.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>

using namespace KOLT;

namespace {

constexpr int runs = 10;
constexpr double hoursPerRun = 2.0;

void require(bool isTrue)
{
    if (!isTrue)
        std::abort();
}

/// Ten engine runs of two hours in one folder.
class LongCard
{
public:
    LongCard()
    {
        Diagnostics::setSink([](std::string_view) {});
        for (int run = 0; run < runs; ++run) {
            const QTemporaryDir one;
            SampleCard::SampleCardOptions options;
            options.folder = one.path();
            options.profilePath = QStringLiteral(KOLT_PROFILE);
            options.hours = hoursPerRun;
            options.seed = static_cast<std::uint64_t>(run) + 1;
            require(SampleCard::writeSampleCard(options, nullptr));
            const QStringList names = QDir(one.path()).entryList(QDir::Files, QDir::Name);
            for (const QString& name : names) {
                paths << folder.filePath(QStringLiteral("%1_%2").arg(run).arg(name));
                require(QFile::copy(one.filePath(name), paths.back()));
            }
        }
        require(profile.loadProfil(QStringLiteral(KOLT_PROFILE), QStringLiteral("915")));
    }

    QTemporaryDir folder;
    QStringList paths;
    Profile profile;
};

const LongCard& card()
{
    static const LongCard card;
    return card;
}

void readAndGroup(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Bench::readAndGroup(card().paths));
}

/// From the opening of the folder until so many rows are complete.
void fillRows(std::size_t rows)
{
    CardContainer container(card().profile);
    require(container.readContainer(card().folder.path()) && container.cycles().size() == runs);
    CardOverview overview(card().profile, container, CardOverview::Trust::Ignored);
    while (overview.completedCount() < rows)
        overview.step();
    require(!overview.cycles().front().flights.empty() && overview.cycles().front().fuel > 0.0);
}

void wholeOverview(benchmark::State& state)
{
    for (auto _ : state)
        fillRows(runs);
}

void firstRow(benchmark::State& state)
{
    for (auto _ : state)
        fillRows(1);
}

double memory()
{
    card();
    const double overview = Bench::peakMemory([] { fillRows(runs); });
    return overview / Bench::peakMemory([] {
               CardContainer container(card().profile);
               require(container.readContainer(card().folder.path()) && container.loadCycle(1));
           });
}

} // namespace

int main(int argc, char** argv)
{
    using Bench::Bound;
    return Bench::run(
        argc, argv,
        {{"memory of a 20 h overview / loading a cycle", nullptr, nullptr, Bound::AtMost, 1.0,
          memory},
         {"overview of 20 h / read and group", wholeOverview, readAndGroup, Bound::AtMost, 2.0},
         {"first row of a 20 h overview, ms", firstRow, nullptr, Bound::AtMost, 500.0}});
}

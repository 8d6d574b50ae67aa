// What it takes to say how far a long recording can be believed, beside reading it.

#include "benchmarks/BarePasses.h"
#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "record/RecordingTrust.h"

#include <benchmark/benchmark.h>
#include <cstdlib>

using namespace KOLT;

namespace {

Bench::Card& card()
{
    static Bench::Card card(20.0);
    return card;
}

QStringList paths()
{
    QStringList paths;
    for (const auto& [name, file] : card().container.files())
        paths << file.path();
    return paths;
}

void readAndGroup(benchmark::State& state)
{
    const QStringList files = paths();
    for (auto _ : state) {
        if (Bench::readAndGroup(files) == 0)
            std::abort();
    }
}

void trustOfLoaded(benchmark::State& state)
{
    card();
    for (auto _ : state) {
        const RecordingTrust trust =
            recordingTrust(card().profile, CardFiles(card().container), card().dataSet());
        if (trust.marked.empty())
            std::abort();
    }
}

} // namespace

int main(int argc, char** argv)
{
    using Bench::Bound;
    return Bench::run(
        argc, argv,
        {{"trust of 20 h / read and group", trustOfLoaded, readAndGroup, Bound::AtMost, 0.4}});
}

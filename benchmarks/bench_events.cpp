// Finding events in a card of twenty hours, against decoding the same samples alone.

#include "analysis/EventFinder.h"
#include "app/base/Diagnostics.h"
#include "benchmarks/Figures.h"
#include "profile/ValueDecoder.h"
#include "record/CardContainer.h"
#include "tools/samplecard/SampleCard.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

using namespace KOLT;

namespace {

constexpr double hours = 20.0;

Profile& profile()
{
    static Profile profile;
    return profile;
}

CardContainer& card()
{
    static CardContainer card(profile());
    return card;
}

/// The parameters that can give events, with their samples.
template <typename Function>
void forEachGraded(Function&& function)
{
    for (const ProfileParameter& parameter : profile().parameters()) {
        if (parameter.threshold != nullptr)
            function(parameter, seriesOf(card().dataSet()->messages, parameter));
    }
}

double gradedSamples()
{
    std::size_t count = 0;
    forEachGraded(
        [&](const ProfileParameter&, const MessageSeries& series) { count += series.size(); });
    return static_cast<double>(count);
}

void decodeGraded(benchmark::State& state)
{
    for (auto _ : state) {
        double sum = 0.0;
        forEachGraded([&](const ProfileParameter& parameter, const MessageSeries& series) {
            for (const StoredSample& sample : series)
                sum += decodeNumber(sample.data, parameter);
        });
        benchmark::DoNotOptimize(sum);
    }
    state.counters["values"] = gradedSamples();
}

void findAllEvents(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            findEvents(profile(), *card().dataSet(), EventScope::AllParameters));
    state.counters["values"] = gradedSamples();
}

BENCHMARK(decodeGraded)->Unit(benchmark::kMillisecond);
BENCHMARK(findAllEvents)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    Diagnostics::setSink([](std::string_view) {});
    const QTemporaryDir directory;
    SampleCard::SampleCardOptions options;
    options.folder = directory.path();
    options.profilePath = QStringLiteral(KOLT_PROFILE);
    options.hours = hours;
    QString error;
    if (!SampleCard::writeSampleCard(options, &error) ||
        !profile().loadProfil(options.profilePath, QStringLiteral("915")) ||
        !card().readContainer(directory.path()) || !card().loadCycle(1)) {
        std::fprintf(stderr, "bench_events: no card to work on: %s\n", qUtf8Printable(error));
        return 2;
    }
    const bool met = Bench::runAndPrint(argc, argv,
                                        {{"events of 20 h / numeric decoding", "findAllEvents",
                                          "decodeGraded", Bench::Figure::Bound::AtMost, 3.0}});
    return met ? 0 : 1;
}

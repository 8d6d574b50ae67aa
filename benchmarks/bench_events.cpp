// Finding events in a card of twenty hours, against decoding the same samples alone.

#include "analysis/EventFinder.h"
#include "analysis/FaultFinder.h"
#include "base/Diagnostics.h"
#include "benchmarks/Figures.h"
#include "profile/ValueDecoder.h"
#include "record/CardContainer.h"
#include "tools/samplecard/SampleCard.h"

#include <QCoreApplication>
#include <QFile>
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

/// Two hundred members on the two messages that carry the card's faults.
const Profile& faultProfile()
{
    static const auto loaded = [] {
        QByteArray xml = "<KorvanProfile><Device name='D'>";
        for (const int message : {272, 528}) {
            const QByteArray id = QByteArray::number(message);
            xml += "<ErrorMatrix id='" + id + "' name='M" + id + "'/>";
            for (int i = 0; i < 100; ++i) {
                const QByteArray bit = QByteArray::number(i % 32);
                xml += "<Parameter name='f" + QByteArray::number(i) + "' id='" + id +
                       "' dataType='BLONG' startByte='" + QByteArray::number(i / 32 % 2 * 4) +
                       "' startBit='" + bit + "' endBit='" + bit + "' errorType='Fault'/>";
            }
        }
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("Profile.xml")));
        auto result = std::make_unique<Profile>();
        if (file.open(QIODevice::WriteOnly) && file.write(xml + "</Device></KorvanProfile>") > 0 &&
            file.flush())
            result->loadProfil(file.fileName(), {});
        return result;
    }();
    return *loaded;
}

double memberSamples()
{
    std::size_t count = 0;
    for (const ErrorMatrix& matrix : faultProfile().errorMatrices()) {
        for (const ProfileParameter* member : matrix.members)
            count += seriesOf(card().dataSet()->messages, *member).size();
    }
    return static_cast<double>(count);
}

void decodeMembers(benchmark::State& state)
{
    for (auto _ : state) {
        double sum = 0.0;
        for (const ErrorMatrix& matrix : faultProfile().errorMatrices()) {
            for (const ProfileParameter* member : matrix.members) {
                for (const StoredSample& sample : seriesOf(card().dataSet()->messages, *member))
                    sum += decodeNumber(sample.data, *member);
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.counters["values"] = memberSamples();
}

void findAllFaults(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(findFaults(faultProfile(), *card().dataSet()));
    state.counters["values"] = memberSamples();
}

BENCHMARK(decodeMembers)->Unit(benchmark::kMillisecond);
BENCHMARK(findAllFaults)->Unit(benchmark::kMillisecond);
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
    const bool met = Bench::runAndPrint(
        argc, argv,
        {{"events of 20 h / numeric decoding", "findAllEvents", "decodeGraded",
          Bench::Figure::Bound::AtMost, 3.0},
         {"200 faults of 20 h, ms", "findAllFaults", "", Bench::Figure::Bound::AtMost, 1000.0},
         {"  / numeric decoding", "findAllFaults", "decodeMembers", Bench::Figure::Bound::AtMost,
          3.0}});
    return met ? 0 : 1;
}

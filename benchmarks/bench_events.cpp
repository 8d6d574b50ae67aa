// Finding events in a card of twenty hours, compared with only decoding the same samples.

#include "analysis/EpisodeFinder.h"
#include "analysis/EventFinder.h"
#include "analysis/FaultFinder.h"
#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "profile/ValueDecoder.h"

#include <benchmark/benchmark.h>

using namespace KOLT;

namespace {

constexpr double hours = 20.0;

const Bench::Card& card()
{
    static const Bench::Card card(hours);
    return card;
}

/// The parameters that can give events, with their samples.
template <typename Function>
void forEachGraded(Function&& function)
{
    for (const ProfileParameter& parameter : card().profile.parameters()) {
        if (parameter.threshold != nullptr)
            function(parameter, seriesOf(card().dataSet().messages, parameter));
    }
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
}

void findAllEvents(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            findEvents(card().profile, card().dataSet(), EventScope::AllParameters));
}

void findAllEpisodes(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(findEpisodes(card().profile, card().dataSet()));
        benchmark::DoNotOptimize(findFaultOccurrences(card().profile, card().dataSet()));
    }
}

/// Two hundred members on the two messages that carry the card's faults.
const Profile& faultProfile()
{
    static const auto loaded = [] {
        QByteArray xml;
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
        return Bench::profileOf(xml);
    }();
    return *loaded;
}

void decodeMembers(benchmark::State& state)
{
    for (auto _ : state) {
        double sum = 0.0;
        for (const ErrorMatrix& matrix : faultProfile().errorMatrices()) {
            for (const ProfileParameter* member : matrix.members) {
                for (const StoredSample& sample : seriesOf(card().dataSet().messages, *member))
                    sum += decodeNumber(sample.data, *member);
            }
        }
        benchmark::DoNotOptimize(sum);
    }
}

void findAllFaults(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(findFaults(faultProfile(), card().dataSet()));
}

} // namespace

int main(int argc, char** argv)
{
    using Bench::Bound;
    return Bench::run(
        argc, argv,
        {{"events of 20 h / numeric decoding", findAllEvents, decodeGraded, Bound::AtMost, 3.0},
         {"episodes and faults of 20 h / events", findAllEpisodes, findAllEvents, Bound::AtMost,
          1.5},
         {"200 faults of 20 h, ms", findAllFaults, nullptr, Bound::AtMost, 1000.0},
         {"200 faults of 20 h / numeric decoding", findAllFaults, decodeMembers, Bound::AtMost,
          3.0}});
}

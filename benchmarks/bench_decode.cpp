// Decoding of numbers alone, compared with decoding to text.

#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "profile/ValueDecoder.h"

#include <benchmark/benchmark.h>
#include <bit>
#include <vector>

using namespace KOLT;

namespace {

constexpr std::size_t count = 100'000;

const Profile& profile()
{
    static const auto profile = Bench::profileOf(
        "<Parameter name='EGT' dataType='FLOAT' factor='0.1' offset='1' precision='1' "
        "thresholdId='T'/>",
        "<ThresholdList><Threshold name='T'><Value val='900' state='WARNING' color='yellow'/>"
        "<Value val='950' state='LIMIT' color='red'/></Threshold></ThresholdList>");
    return *profile;
}

std::vector<MessageData> messages()
{
    std::vector<MessageData> result(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto word = std::bit_cast<std::uint32_t>(static_cast<float>(i) * 0.13F);
        for (std::size_t byte = 0; byte < 4; ++byte)
            result[i][byte] = static_cast<unsigned char>(word >> (8 * byte));
    }
    return result;
}

void floatNumber(benchmark::State& state)
{
    const ProfileParameter& parameter = profile().parameters().front();
    const std::vector<MessageData> data = messages();
    std::vector<double> numbers(count); // stored, as a graph does
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i)
            numbers[i] = decodeNumber(data[i], parameter);
        benchmark::DoNotOptimize(numbers.data());
        benchmark::ClobberMemory();
    }
}

void floatText(benchmark::State& state)
{
    const ProfileParameter& parameter = profile().parameters().front();
    const std::vector<MessageData> data = messages();
    std::vector<DecodedValue> values(count);
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i) {
            MessageData copy = data[i];
            values[i] = decodeValue(profile(), parameter, copy);
        }
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
}

} // namespace

int main(int argc, char** argv)
{
    return Bench::run(
        argc, argv,
        {{"FLOAT text time / number time", floatText, floatNumber, Bench::Bound::AtLeast, 30.0}});
}

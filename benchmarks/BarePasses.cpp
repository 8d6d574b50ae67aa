#include "benchmarks/BarePasses.h"

#include "record/RecordFormat.h"

#include <QFile>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <unordered_map>
#include <vector>

namespace KOLT::Bench {

namespace {

using Sample = std::array<char, RecordFormat::sampleBytes>;

constexpr std::size_t blockSamples = 32'768;

void open(QFile& file)
{
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        std::abort();
}

} // namespace

std::size_t read(const QStringList& paths)
{
    static std::vector<char> memory;
    std::size_t bytes = 0;
    for (const QString& path : paths) {
        QFile file(path);
        open(file);
        const auto size = static_cast<std::size_t>(file.size());
        if (memory.size() < size)
            memory.resize(size);
        if (file.read(memory.data(), file.size()) != file.size())
            std::abort();
        bytes += size;
    }
    return bytes;
}

std::size_t readAndGroup(const QStringList& paths)
{
    static std::unordered_map<std::uint32_t, std::vector<Sample>> groups;
    for (auto& [identifier, group] : groups)
        group.clear();
    std::vector<Sample> block(blockSamples);
    auto* const bytes = reinterpret_cast<char*>(block.data());
    std::size_t samples = 0;
    for (const QString& path : paths) {
        QFile file(path);
        open(file);
        file.seek(RecordFormat::headerBytes);
        while (const auto count = static_cast<std::size_t>(
                   file.read(bytes, blockSamples * sizeof(Sample)) / qint64{sizeof(Sample)})) {
            for (const Sample& sample : std::span(block).first(count)) {
                std::uint32_t identifier = 0;
                std::memcpy(&identifier, &sample[RecordFormat::identifierOffset],
                            sizeof identifier);
                groups[identifier].push_back(sample);
            }
            samples += count;
        }
    }
    return samples;
}

} // namespace KOLT::Bench

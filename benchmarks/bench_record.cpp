// Listing and loading of record files, against bare loops over the same files.

#include "benchmarks/Figures.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"
#include "tools/recordwriter/RecordFileWriter.h"

#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

using namespace KOLT;
using namespace KOLT::RecordFileWriter;

namespace {

constexpr int listedFiles = 1000;
constexpr qint64 loadedBytes = 500'000'000;
constexpr int identifiers = 25;

const QTemporaryDir& directory()
{
    static const QTemporaryDir directory;
    return directory;
}

QString listedPath(int index)
{
    return directory().filePath(
        QStringLiteral("list/REC%1.CAN").arg(index, 5, 10, QLatin1Char('0')));
}

QString loadedPath()
{
    return directory().filePath(QStringLiteral("load/BIG.CAN"));
}

/// Samples of several identifiers in turn, as on a bus.
void writeRecord(const QString& path, qint64 samples)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    QByteArray bytes;
    appendHeader(bytes, RecordHeader());
    for (qint64 i = 0; i < samples; ++i) {
        RecordSample sample;
        sample.kind = static_cast<std::uint16_t>(i % 3);
        sample.identifier = 0x100 + static_cast<std::uint32_t>(i % identifiers) * 16;
        sample.ticks = static_cast<std::uint64_t>(i) * 100'000;
        std::memcpy(sample.data.data(), &i, sizeof i);
        appendSample(bytes, sample);
        if (bytes.size() > 1'000'000) {
            file.write(bytes);
            bytes.clear();
        }
    }
    file.write(bytes);
}

void prepare()
{
    QDir(directory().path()).mkpath(QStringLiteral("list"));
    QDir(directory().path()).mkpath(QStringLiteral("load"));
    for (int i = 0; i < listedFiles; ++i)
        writeRecord(listedPath(i), 200);
    writeRecord(loadedPath(),
                (loadedBytes - RecordFormat::headerBytes) / RecordFormat::sampleBytes);
}

void listBare(benchmark::State& state)
{
    std::vector<QByteArray> paths;
    for (int i = 0; i < listedFiles; ++i)
        paths.push_back(QFile::encodeName(listedPath(i)));
    for (auto _ : state) {
        for (const QByteArray& path : paths) {
            std::array<char, RecordFormat::headerBytes> header{};
            std::array<char, RecordFormat::sampleBytes> last{};
            const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
            const off_t size = lseek(file, 0, SEEK_END);
            benchmark::DoNotOptimize(pread(file, header.data(), header.size(), 0));
            benchmark::DoNotOptimize(
                pread(file, last.data(), last.size(), size - RecordFormat::sampleBytes));
            close(file);
        }
    }
}

void listContainer(benchmark::State& state)
{
    const Profile profile;
    const QString folder = directory().filePath(QStringLiteral("list"));
    for (auto _ : state) {
        CardContainer card(profile);
        if (!card.readContainer(folder) || card.files().size() != listedFiles)
            std::abort();
    }
}

/// Reads the file and converts each sample into one array that is already there.
void loadBare(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>((loadedBytes - RecordFormat::headerBytes) /
                                                RecordFormat::sampleBytes);
    std::vector<StoredSample> samples(count);
    std::vector<unsigned char> block(32'768 * RecordFormat::sampleBytes);
    const QByteArray path = QFile::encodeName(loadedPath());
    for (auto _ : state) {
        const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
        lseek(file, RecordFormat::headerBytes, SEEK_SET);
        std::size_t next = 0;
        for (ssize_t got = 0; (got = read(file, block.data(), block.size())) > 0;) {
            const ByteReader reader(
                std::span<const unsigned char>(block).first(static_cast<std::size_t>(got)),
                ByteOrder::Little);
            for (std::size_t at = 0;
                 at + RecordFormat::sampleBytes <= static_cast<std::size_t>(got);
                 at += RecordFormat::sampleBytes) {
                StoredSample& sample = samples[next++];
                std::memcpy(sample.data.data(), block.data() + at, sample.data.size());
                sample.byte8 = block[at + 8];
                sample.byte9 = block[at + 9];
                sample.word16 = reader.u32(at + 16);
                sample.kind = reader.u16(at + RecordFormat::kindOffset);
                sample.id =
                    reader.u32(at + RecordFormat::identifierOffset) & RecordFormat::identifierMask;
                sample.timeHigh = reader.u32(at + RecordFormat::sampleTimeOffset);
                sample.timeLow = reader.u32(at + RecordFormat::sampleTimeOffset + 4);
            }
        }
        close(file);
        benchmark::DoNotOptimize(samples.data());
    }
}

void loadGrouped(benchmark::State& state)
{
    RecordFile record;
    record.readRecordInfo(loadedPath());
    for (auto _ : state) {
        MessageMap messages;
        if (!record.readRecordData(messages) || messages.all().size() != identifiers)
            std::abort();
    }
}

BENCHMARK(listBare)->Unit(benchmark::kMillisecond);
BENCHMARK(listContainer)->Unit(benchmark::kMillisecond);
BENCHMARK(loadBare)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(loadGrouped)->Unit(benchmark::kMillisecond)->Iterations(1);

/// A line of /proc/self/status, in bytes.
double statusBytes(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == key) {
            double kilobytes = 0.0;
            status >> kilobytes;
            return kilobytes * 1024.0;
        }
    }
    return 0.0;
}

/// Peak memory of loading the file, per byte of it, measured in a process of its own.
double loadMemory()
{
    std::array<int, 2> channel{};
    if (pipe(channel.data()) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        const double before = statusBytes("VmRSS:");
        RecordFile record;
        record.readRecordInfo(loadedPath());
        MessageMap messages;
        record.readRecordData(messages);
        const double ratio = (statusBytes("VmHWM:") - before) / static_cast<double>(loadedBytes);
        const bool written = write(channel[1], &ratio, sizeof ratio) == sizeof ratio;
        _exit(written ? 0 : 1);
    }
    double ratio = 0.0;
    const bool got = read(channel[0], &ratio, sizeof ratio) == sizeof ratio;
    waitpid(child, nullptr, 0);
    return got ? ratio : 1e9;
}

} // namespace

int main(int argc, char** argv)
{
    using Bound = Bench::Figure::Bound;
    prepare();
    const double memory = loadMemory();
    const bool fast = Bench::runAndPrint(
        argc, argv,
        {{"listing 1,000 files / bare reads", "listContainer", "listBare", Bound::AtMost, 3.0},
         {"loading 500 MB / bare conversion", "loadGrouped", "loadBare", Bound::AtMost, 2.0}});
    const bool small =
        Bench::printFigure("memory of loading 500 MB / file", memory, Bound::AtMost, 3.0);
    return fast && small ? 0 : 1;
}

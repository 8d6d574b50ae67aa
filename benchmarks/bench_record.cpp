// Listing and loading of record files, compared with bare passes over the same files.

#include "benchmarks/BarePasses.h"
#include "benchmarks/Figures.h"
#include "benchmarks/PeakMemory.h"
#include "profile/Profile.h"
#include "record/CardContainer.h"
#include "record/RecordFileWriter.h"

#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <benchmark/benchmark.h>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace KOLT;
using namespace KOLT::RecordFileWriter;

namespace {

constexpr int listedFiles = 1000;
constexpr qint64 loadedBytes = 500'000'000;
constexpr std::size_t loadedSamples =
    (loadedBytes - RecordFormat::headerBytes) / RecordFormat::sampleBytes;
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

/// Samples that alternate between several identifiers, as on a bus.
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
    writeRecord(loadedPath(), loadedSamples);
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

void readBare(benchmark::State& state)
{
    for (auto _ : state) {
        if (Bench::read({loadedPath()}) / RecordFormat::sampleBytes < loadedSamples)
            std::abort();
    }
}

void readAndGroup(benchmark::State& state)
{
    for (auto _ : state) {
        if (Bench::readAndGroup({loadedPath()}) != loadedSamples)
            std::abort();
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

/// A value of /proc/self/status, in bytes.
/// Peak memory of loading the file, per byte of it.
double loadMemory()
{
    return Bench::peakMemory([] {
               RecordFile record;
               record.readRecordInfo(loadedPath());
               MessageMap messages;
               record.readRecordData(messages);
           }) /
           static_cast<double>(loadedBytes);
}

} // namespace

int main(int argc, char** argv)
{
    using Bench::Bound;
    prepare();
    return Bench::run(
        argc, argv,
        {{"memory of loading 500 MB / file", nullptr, nullptr, Bound::AtMost, 3.0, loadMemory},
         {"listing 1,000 files / bare reads", listContainer, listBare, Bound::AtMost, 3.0},
         {"loading 500 MB / read", loadGrouped, readBare, Bound::AtMost, 6.0},
         {"loading 500 MB / read and group", loadGrouped, readAndGroup, Bound::AtMost, 2.0}});
}

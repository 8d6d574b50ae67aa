#include "record/CardFiles.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <array>

namespace KOLT {

namespace {

using namespace RecordFormat;

/// Samples looked at on either end: with three, one of which is a stray, the one in the middle is
/// sound.
constexpr std::size_t endSamples = 3;

std::uint64_t ticksAt(const ByteReader& reader, std::size_t offset)
{
    return std::uint64_t{reader.u32(offset)} << 32 | reader.u32(offset + 4);
}

double secondsOf(std::uint64_t ticks)
{
    return RecordFormat::secondsOf(static_cast<std::uint32_t>(ticks >> 32),
                                   static_cast<std::uint32_t>(ticks));
}

template <typename Value>
Value median(std::vector<Value> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// Time stamps of samples that lie back to back from an offset on.
std::vector<std::uint64_t> stampsAt(QFile& file, qint64 offset, std::size_t count, ByteOrder order)
{
    std::array<unsigned char, endSamples * sampleBytes> bytes{};
    if (!file.seek(offset) || file.read(reinterpret_cast<char*>(bytes.data()),
                                        static_cast<qint64>(count * sampleBytes)) <= 0)
        return {};
    const ByteReader reader(bytes, order);
    std::vector<std::uint64_t> ticks;
    for (std::size_t i = 0; i < count; ++i)
        ticks.push_back(ticksAt(reader, i * sampleBytes + sampleTimeOffset));
    return ticks;
}

/// The outermost time, unless it is far from the one in the middle.
double soundEnd(std::uint64_t outermost, const std::vector<std::uint64_t>& ticks)
{
    const std::uint64_t middle = median(ticks);
    const double seconds = secondsOf(outermost);
    const double sound = secondsOf(middle);
    constexpr double straySeconds = 2.0;
    return std::abs(seconds - sound) <= straySeconds ? seconds : sound;
}

void readEnds(FileFacts& facts, QFile& file)
{
    const ByteOrder order = facts.info.byteOrder;
    std::array<unsigned char, headerBytes> header{};
    file.seek(0);
    if (file.read(reinterpret_cast<char*>(header.data()), headerBytes) < headerBytes)
        return;
    facts.headerSeconds = secondsOf(ticksAt(ByteReader(header, order), headerTimeOffset));
    const auto samples = static_cast<std::size_t>(facts.info.sampleCount);
    const std::size_t count = std::min(samples, endSamples);
    const auto first = stampsAt(file, headerBytes, count, order);
    const auto last = stampsAt(
        file, headerBytes + static_cast<qint64>((samples - count) * sampleBytes), count, order);
    facts.isReadable = first.size() == count && last.size() == count;
    if (first.empty() || last.empty())
        return;
    facts.firstTicks = first.front();
    facts.lastTicks = last.back();
    facts.firstSeconds = soundEnd(facts.firstTicks, first);
    facts.lastSeconds = soundEnd(facts.lastTicks, last);
    if (!facts.info.dateInvalid && facts.info.dateTime.isValid())
        facts.clock = static_cast<double>(facts.info.dateTime.toMSecsSinceEpoch()) / 1000.0 -
                      facts.firstSeconds;
}

FileFacts factsOf(const QString& name, const RecordFile& record)
{
    FileFacts facts;
    facts.name = name;
    facts.info = record.info();
    QFile file(record.path());
    if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        facts.bytes = file.size();
        facts.isReadable = facts.bytes < headerBytes;
        facts.info.sampleCount = static_cast<int>(
            std::max<qint64>(0, std::min<qint64>(facts.info.sampleCount,
                                                 (facts.bytes - headerBytes) / sampleBytes)));
        readEnds(facts, file);
    }
    facts.stem = name.section(QLatin1Char('.'), 0, -2);
    qsizetype digits = 0;
    while (digits < std::min<qsizetype>(facts.stem.size(), 9) &&
           facts.stem[facts.stem.size() - 1 - digits].isDigit())
        ++digits;
    if (digits > 0)
        facts.number = facts.stem.right(digits).toInt();
    facts.stem.chop(digits);
    return facts;
}

QByteArray hashOf(const CardContainer& card, const QString& name)
{
    QFile file(card.files().at(name).path());
    QCryptographicHash hash(QCryptographicHash::Sha1);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}

} // namespace

bool FileFacts::isCut() const
{
    return isReadable && (bytes < headerBytes || (bytes - headerBytes) % sampleBytes != 0);
}

CardFiles::CardFiles(const CardContainer& card)
    : m_cycles(card.cycles())
    , m_caseNote(readCaseNote(card.folder()))
{
    m_files.reserve(card.files().size());
    for (const auto& [name, file] : card.files())
        m_files.push_back(factsOf(name, file));
    findCopies(card);
    lookAtNumbers();
    lookAtLengths();
}

const FileFacts* CardFiles::find(const QString& name) const
{
    const auto found = std::ranges::lower_bound(m_files, name, {}, &FileFacts::name);
    return found != m_files.end() && found->name == name ? &*found : nullptr;
}

std::optional<int> CardFiles::cycleOf(const std::vector<QString>& names) const
{
    const auto found = std::ranges::find_if(
        m_cycles, [&](const auto& entry) { return entry.second.fileNames == names; });
    return found != m_cycles.end() ? std::optional(found->first) : std::nullopt;
}

bool CardFiles::isNumberMissing(const FileFacts& before, const FileFacts& after) const
{
    if (!m_isNumbered || !before.number || !after.number || before.stem != after.stem)
        return false;
    for (int number = *before.number + 1; number < *after.number; ++number) {
        if (!m_numbers.contains({before.stem, number}))
            return true;
    }
    return false;
}

void CardFiles::findCopies(const CardContainer& card)
{
    std::map<std::tuple<qint64, std::uint64_t, std::uint64_t>, std::vector<FileFacts*>> alike;
    for (FileFacts& file : m_files) {
        if (file.hasSamples())
            alike[{file.bytes, file.firstTicks, file.lastTicks}].push_back(&file);
    }
    for (auto& [key, files] : alike) {
        if (files.size() < 2)
            continue;
        // Who copies adds to the name: "REC00010 (1)".
        std::ranges::stable_sort(files, {}, [](const FileFacts* f) { return f->name.size(); });
        std::map<QByteArray, QString> known;
        for (FileFacts* file : files) {
            const auto [found, isNew] = known.try_emplace(hashOf(card, file->name), file->name);
            if (!isNew)
                file->copyOf = found->second;
        }
    }
}

void CardFiles::lookAtNumbers()
{
    // Names may hold dates and times as well, which do not count up.
    constexpr int usualStep = 2;
    std::vector<int> steps;
    const FileFacts* before = nullptr;
    for (const FileFacts& file : m_files) {
        if (!file.number || !file.copyOf.isEmpty())
            continue;
        m_numbers.insert({file.stem, *file.number});
        if (before != nullptr && before->stem == file.stem)
            steps.push_back(*file.number - *before->number);
        before = &file;
    }
    m_isNumbered = !steps.empty() && median(steps) <= usualStep;
}

void CardFiles::lookAtLengths()
{
    std::vector<double> lengths;
    for (std::size_t i = 1; i < m_files.size(); ++i) {
        const FileFacts& file = m_files[i - 1];
        const FileFacts& next = m_files[i];
        if (file.hasSamples() && next.hasSamples() && !next.info.dateInvalid &&
            next.firstSeconds > file.firstSeconds && !isNumberMissing(file, next))
            lengths.push_back(next.firstSeconds - file.firstSeconds);
    }
    constexpr std::size_t enough = 2;
    m_usualSeconds = lengths.size() >= enough ? median(lengths) : 0.0;
}

} // namespace KOLT

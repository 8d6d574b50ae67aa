#include "analysis/CycleScan.h"

#include "analysis/EpisodeJoiner.h"
#include "analysis/EventFinder.h"
#include "record/FuelUse.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>

namespace KOLT {

namespace {

using namespace RecordFormat;

constexpr Role storedRoles[] = {Role::GroundSpeed, Role::Altitude, Role::Latitude, Role::Longitude,
                                Role::ThrottleA,   Role::FuelA,    Role::FuelB};

QString fileNameOf(const RecordFile& file)
{
    return file.path().section(QLatin1Char('/'), -1);
}

std::uint32_t idOf(const ProfileParameter& parameter)
{
    return static_cast<std::uint32_t>(parameter.id);
}

double secondsOfTicks(std::uint64_t ticks)
{
    return secondsOf(static_cast<std::uint32_t>(ticks >> 32), static_cast<std::uint32_t>(ticks));
}

bool isKindSeries(std::uint32_t id)
{
    return id == kind0Series || id == kind1Series;
}

} // namespace

CycleScan::CycleScan(const Profile& profile, CycleOverview overview, std::vector<RecordFile> files)
    : m_profile(profile)
    , m_overview(std::move(overview))
    , m_files(std::move(files))
{
    for (const RecordFile& file : m_files)
        m_totalBytes += qint64{file.info().sampleCount} * sampleBytes;
    addRoles();
    addTrackers();
}

void CycleScan::addRoles()
{
    for (const Role role : storedRoles) {
        const ProfileParameter* const parameter = m_profile.parameterByRole(role);
        if (parameter == nullptr)
            continue;
        m_known[idOf(*parameter)].isStored = true;
        m_isAllStored = m_isAllStored || isKindSeries(idOf(*parameter));
    }
}

void CycleScan::addTrackers()
{
    for (const Quantity& quantity : quantitiesOf(m_profile)) {
        for (const ProfileParameter* parameter : quantity.members)
            addTracker(*parameter, quantity.hasSeveral());
    }
}

void CycleScan::addTracker(const ProfileParameter& parameter, bool keepsBands)
{
    Message& message = m_known[idOf(parameter)];
    if (parameter.role == Role::Longitude) {
        // Its filter must have seen all latitudes.
        m_late.emplace_back(parameter, PositionFilter());
        m_lateExcursions.emplace_back(parameter, keepsBands);
        message.isStored = true;
        m_isAllStored = m_isAllStored || isKindSeries(idOf(parameter));
        return;
    }
    message.trackers.emplace_back(parameter, PositionFilter());
    message.excursions.emplace_back(parameter, keepsBands);
    message.isFiltered = message.isFiltered || parameter.isPosition();
    if (isKindSeries(idOf(parameter)))
        m_kinds[kind0Series - idOf(parameter)] = &message;
}

bool CycleScan::step()
{
    if (m_overview.isComplete)
        return false;
    try {
        if (!m_isReading && !openNextFile()) {
            finish();
            return false;
        }
        const std::span<const unsigned char> samples = m_reader.next();
        if (samples.empty()) {
            m_isReading = false;
            m_doneBytes += m_reader.doneBytes();
            if (!m_reader.isComplete())
                m_overview.unreadFiles.push_back(fileNameOf(m_files[m_nextFile - 1]));
        } else if (m_files[m_nextFile - 1].info().byteOrder == ByteOrder::Little) {
            take<ByteOrder::Little>(samples);
        } else {
            take<ByteOrder::Big>(samples);
        }
    } catch (const std::bad_alloc&) {
        m_isReading = false;
        m_overview.unreadFiles.push_back(fileNameOf(m_files[m_nextFile - 1]));
    }
    return true;
}

double CycleScan::progress() const
{
    const qint64 done = m_doneBytes + (m_isReading ? m_reader.doneBytes() : 0);
    return m_totalBytes > 0 ? static_cast<double>(done) / static_cast<double>(m_totalBytes) : 1.0;
}

bool CycleScan::openNextFile()
{
    while (m_nextFile < m_files.size()) {
        const RecordFile& file = m_files[m_nextFile++];
        m_isReading = m_reader.open(file.path());
        if (m_isReading)
            return true;
        m_overview.unreadFiles.push_back(fileNameOf(file));
    }
    return false;
}

CycleScan::Message* CycleScan::recorded(std::uint32_t id)
{
    const auto found = m_known.find(id);
    if (found != m_known.end() && found->second.isRecorded)
        return &found->second;
    if (m_recordedCount == MessageMap::maxIdentifiers)
        return nullptr;
    ++m_recordedCount;
    Message& message = m_known[id];
    message.isRecorded = true;
    return &message;
}

template <ByteOrder order>
void CycleScan::take(std::span<const unsigned char> samples)
{
    for (; samples.size() >= sampleBytes; samples = samples.subspan(sampleBytes)) {
        const auto bytes = samples.first<sampleBytes>();
        const ByteReader reader(bytes, order);
        const std::uint32_t id = reader.u32(identifierOffset) & identifierMask;
        CacheLine& line = m_cache[(id * 2654435769U) >> (32 - cacheBits)];
        if (line.message == nullptr || line.id != id) {
            Message* const message = recorded(id);
            if (message == nullptr)
                continue;
            line = {id, message};
        }
        ++m_sampleCount;
        Message& message = *line.message;
        if (message.isStored || m_isAllStored)
            store<order>(bytes, id);
        const bool isTracked = !message.trackers.empty();
        if (!isTracked && m_kinds[0] == nullptr && m_kinds[1] == nullptr)
            continue;
        MessageData data;
        std::memcpy(data.data(), bytes.data(), data.size());
        const auto trackIn = [&](Message& tracked) {
            track(tracked, data, reader.u32(sampleTimeOffset), reader.u32(sampleTimeOffset + 4));
        };
        if (isTracked)
            trackIn(message);
        const std::uint16_t kind = reader.u16(kindOffset);
        if (kind < m_kinds.size() && m_kinds[kind] != nullptr)
            trackIn(*m_kinds[kind]);
    }
}

template <ByteOrder order>
void CycleScan::store(std::span<const unsigned char, sampleBytes> bytes, std::uint32_t id)
{
    const ByteReader reader(bytes, order);
    StoredSample* const sample =
        m_messages.append(id, reader.u32(sampleTimeOffset), reader.u32(sampleTimeOffset + 4));
    if (sample == nullptr)
        return;
    std::memcpy(sample->data.data(), bytes.data(), sample->data.size());
    sample->byte8 = sample->byte9 = 0; // nothing here looks at them
    sample->word16 = 0;
    sample->kind = reader.u16(kindOffset);
}

void CycleScan::track(Message& message, const MessageData& data, std::uint32_t timeHigh,
                      std::uint32_t timeLow)
{
    const std::uint64_t ticks = std::uint64_t{timeHigh} << 32 | timeLow;
    const std::uint64_t ticksBefore = std::exchange(message.lastTicks, ticks);
    const std::size_t index = message.count++;
    if (index == 0)
        message.firstTicks = ticks;
    // The same bytes as before: the same values.
    const auto bytes = std::bit_cast<std::uint64_t>(data);
    if (message.hasLast && !message.isFiltered && bytes == message.last)
        return;
    message.hasLast = true;
    message.last = bytes;
    for (std::size_t i = 0; i < message.trackers.size(); ++i) {
        ExceedanceTracker& tracker = message.trackers[i];
        const bool isCrossing = tracker.step(m_profile, data, timeHigh, timeLow, m_exceedances);
        if (isCrossing)
            addCrossing(tracker, secondsOf(timeHigh, timeLow));
        const CrossingDetector& now = tracker.detector();
        if (!message.excursions[i].isIdle(now.number()))
            message.excursions[i].step(now.number(), now.state(), isCrossing,
                                       {secondsOfTicks(ticks), secondsOfTicks(ticksBefore),
                                        secondsOfTicks(message.firstTicks), index});
    }
    if (m_exceedances.size() >= 2 * maxEvents)
        limitExceedances();
}

void CycleScan::addCrossing(const ExceedanceTracker& tracker, double seconds)
{
    m_crossings.push_back(seconds);
    if (!tracker.isLamp())
        return;
    m_lampCrossings.push_back(seconds);
    ++m_overview.lampNames[tracker.parameter().fullName];
}

void CycleScan::limitExceedances()
{
    if (m_exceedances.size() < 2 * maxEvents)
        return;
    std::ranges::nth_element(m_exceedances, m_exceedances.begin() + maxEvents, isWorse);
    m_exceedances.resize(maxEvents);
}

void CycleScan::finish()
{
    finishTrackers();
    countEpisodes();
    std::ranges::sort(m_crossings);
    std::ranges::sort(m_lampCrossings);
    std::ranges::sort(m_exceedances, {}, &Exceedance::seconds);
    m_overview.crossings = m_crossings.size();
    m_overview.lamps = m_lampCrossings.size();
    for (const Role role : {Role::FuelA, Role::FuelB})
        m_overview.fuel += fuelUsed(RoleSeries(m_profile, m_messages, role));
    const auto worst = std::ranges::min_element(m_exceedances, isWorse);
    if (worst != m_exceedances.end())
        m_overview.worst = *worst;
    addFlights();
    countOutside();
    m_messages.clear();
    m_overview.isComplete = true;
}

void CycleScan::finishTrackers()
{
    for (std::size_t i = 0; i < m_late.size(); ++i) {
        ExceedanceTracker& tracker = m_late[i];
        ExcursionTracker& excursions = m_lateExcursions[i];
        const ProfileParameter& parameter = tracker.parameter();
        tracker = ExceedanceTracker(parameter, positionFilterFor(m_profile, m_messages, parameter));
        const MessageSeries& series = seriesOf(m_messages, parameter);
        std::size_t index = 0;
        for (const StoredSample& sample : series) {
            const bool isCrossing = tracker.step(m_profile, sample.data, sample.timeHigh,
                                                 sample.timeLow, m_exceedances);
            if (isCrossing)
                addCrossing(tracker, sample.seconds());
            limitExceedances();
            const CrossingDetector& now = tracker.detector();
            const StoredSample& before = series[index > 0 ? index - 1 : 0];
            excursions.step(now.number(), now.state(), isCrossing,
                            {sample.seconds(), before.seconds(), series[0].seconds(), index});
            ++index;
        }
        if (index > 0)
            excursions.finish(series.last().seconds(), index);
    }
    const auto finishOne = [&](ExceedanceTracker& tracker) {
        tracker.finish(m_exceedances);
        limitExceedances();
        if (tracker.isLamp() && tracker.isOnFromTheStart())
            m_overview.lampsFromTheStart.push_back(tracker.parameter().fullName);
    };
    std::ranges::for_each(m_late, finishOne);
    for (auto& [id, message] : m_known) {
        std::ranges::for_each(message.trackers, finishOne);
        for (ExcursionTracker& excursions : message.excursions)
            excursions.finish(secondsOfTicks(message.lastTicks), message.count);
    }
    std::ranges::sort(m_overview.lampsFromTheStart);
}

} // namespace KOLT

#pragma once

#include "analysis/CycleOverview.h"
#include "analysis/ExcursionTracker.h"
#include "record/MessageMap.h"
#include "record/RecordFile.h"
#include "record/SampleReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <span>
#include <vector>

namespace KOLT {

/// Works out the overview of one cycle from its files, in steps of about a millisecond. Decodes
/// graded parameters as they are read and keeps only the samples that flights and fuel need, so
/// that it takes a fraction of the memory and time of loading the cycle. The profile must outlive
/// the scan and stay as it is.
class CycleScan
{
public:
    /// `overview` says which cycle it is; the scan adds the rest. `files` are those of the cycle.
    CycleScan(const Profile& profile, CycleOverview overview, std::vector<RecordFile> files);
    CycleScan(const CycleScan&) = delete;
    CycleScan& operator=(const CycleScan&) = delete;

    /// Does the next piece of work; false if all is done.
    bool step();

    /// The part of the bytes that have been read, 0..1.
    double progress() const;

    const CycleOverview& overview() const { return m_overview; }

private:
    /// What the scan does with a message of the recording.
    struct Message
    {
        std::vector<ExceedanceTracker> trackers;
        std::vector<ExcursionTracker> excursions; ///< one for each of them
        std::size_t count = 0;                    ///< of samples, with the times of two:
        std::uint64_t firstTicks = 0;
        std::uint64_t lastTicks = 0;
        bool isStored = false;   ///< flights or fuel need its samples
        bool isRecorded = false; ///< it was seen, and counts as one of MessageMap::maxIdentifiers
        bool isFiltered = false; ///< a position: equal bytes may give another value
        bool hasLast = false;
        std::uint64_t last = 0; ///< bytes of the sample before
    };

    struct CacheLine
    {
        std::uint32_t id = 0;
        Message* message = nullptr;
    };

    static constexpr int cacheBits = 9;

    void addRoles();
    void addTrackers();
    bool openNextFile();
    Message* recorded(std::uint32_t id);
    template <ByteOrder order>
    void take(std::span<const unsigned char> samples);
    template <ByteOrder order>
    void store(std::span<const unsigned char, RecordFormat::sampleBytes> bytes, std::uint32_t id);
    void track(Message& message, const MessageData& data, std::uint32_t timeHigh,
               std::uint32_t timeLow);
    void addTracker(const ProfileParameter& parameter, bool keepsBands);
    void countEpisodes();
    void addCrossing(const ExceedanceTracker& tracker, double seconds);
    void limitExceedances();
    void finish();
    void finishTrackers();
    void addFlights();
    void countOutside();

    const Profile& m_profile;
    CycleOverview m_overview;
    std::vector<RecordFile> m_files;
    std::size_t m_nextFile = 0;
    SampleReader m_reader;
    bool m_isReading = false;
    qint64 m_totalBytes = 0;
    qint64 m_doneBytes = 0;
    std::map<std::uint32_t, Message> m_known;
    std::array<CacheLine, 1U << cacheBits> m_cache{};
    std::size_t m_recordedCount = 0;
    std::size_t m_sampleCount = 0;     ///< of all messages
    std::array<Message*, 2> m_kinds{}; ///< those of all samples of kind 0 and kind 1, if needed
    bool m_isAllStored = false;
    std::deque<ExceedanceTracker> m_late; ///< of parameters that need another series first
    std::deque<ExcursionTracker> m_lateExcursions;
    MessageMap m_messages;
    std::vector<Exceedance> m_exceedances;
    std::vector<double> m_crossings; ///< seconds
    std::vector<double> m_lampCrossings;
    std::vector<double> m_episodeBegins;
};

} // namespace KOLT

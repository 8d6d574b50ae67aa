#pragma once

#include "library/database/LibraryDatabase.h"
#include "library/database/LibraryRecords.h"

#include <map>

namespace KOLT::Library {

/// What pages and verbs ask a library. With 100,000 flights each answer takes below 100 ms. Belongs
/// to the thread of the database, which must be open and outlive it.
class LibraryQueries
{
public:
    explicit LibraryQueries(LibraryDatabase& database)
        : m_database(database)
    {
    }

    /// By serial number; only units and sums of what the filter lets through, as in all below.
    Answer<std::vector<UnitRow>> units(const LibraryFilter& filter = {});
    /// Newest first.
    Answer<std::vector<YearRow>> years(quint32 unit, const LibraryFilter& filter = {});
    /// Newest first. Year 0: the one day without a date.
    Answer<std::vector<DayRow>> days(quint32 unit, int year, const LibraryFilter& filter = {});
    /// By time. An invalid day: cycles without a date.
    Answer<std::vector<CycleRow>> cycles(quint32 unit, const QDate& day,
                                         const LibraryFilter& filter = {});
    /// All that the filter lets through, by unit and time; `limit` below 0: without a limit.
    Answer<std::vector<CycleRow>> cycles(const LibraryFilter& filter, int limit = -1);
    /// Those of one cycle, by number.
    Answer<std::vector<FlightRow>> flights(qint64 cycle);
    /// All that the filter lets through, newest first; of these, with `after`, those behind the
    /// last row of the page before. Each page takes the same time, however old it is.
    Answer<std::vector<FlightRow>> flights(const LibraryFilter& filter, int limit,
                                           const FlightRow* after = nullptr);
    Answer<int> flightCount(const LibraryFilter& filter);
    Answer<LibrarySums> sums(const LibraryFilter& filter);

    /// By the id of the cycle, in name order.
    Answer<std::map<qint64, QList<ArchivedFile>>> files(const LibraryFilter& filter);

    Answer<ArchivedCycle> archived(qint64 cycle);
    Answer<std::optional<CycleRow>> cycle(const QString& folder);
    Answer<std::vector<EpisodeRow>> episodes(qint64 cycle);
    Answer<std::vector<FaultRow>> faults(qint64 cycle);
    Answer<std::vector<FindingRecord>> findings(qint64 cycle);

    /// By serial number.
    Answer<std::vector<EngineRow>> engines();
    /// The ledger of one engine; no value if the library has no cycle of it.
    Answer<std::optional<EngineRow>> engine(const QString& engine);
    /// By time; months without cycles are left out.
    Answer<std::vector<MonthRow>> months(const QString& engine);
    /// Newest first.
    Answer<std::vector<EpisodeRow>> engineEpisodes(const QString& engine, int limit);
    Answer<std::vector<FaultRow>> engineFaults(const QString& engine, int limit);
    /// What an engine has done from a moment on, for limits of maintenance.
    Answer<LibrarySums> engineSince(const QString& engine, const QDateTime& from);
    Answer<std::vector<Installation>> installations();

private:
    Answer<LibrarySums> sumsWhere(const QString& condition, const QVariantList& values);

    LibraryDatabase& m_database;
};

} // namespace KOLT::Library

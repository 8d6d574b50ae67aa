#pragma once

#include "library/database/LibraryQueries.h"
#include "library/ledger/Logbook.h"
#include "library/ledger/MaintenanceState.h"
#include "library/ledger/UnitUse.h"

#include <array>

namespace KOLT::Library {

/// What an engine has lived through, as far as the library knows. It is the same whatever the order
/// in which the recordings came.
struct EngineLedger
{
    EngineRow engine; ///< sums of the recordings, with bands and counters
    EngineUse use;    ///< by the counters of its units
    std::vector<MonthRow> months;
    std::vector<EpisodeRow> episodes; ///< the newest, at most ledgerEpisodes
    double hours = 0.0; ///< of the engine: at its first recorded run, and all since by the counter
    double hoursPerDay = 0.0;             ///< in the 90 days up to its last run; 0: not known
    std::vector<MaintenanceState> limits; ///< the most urgent first
    std::vector<Note> notes; ///< about the engine or a recording of it, the newest first

    double recordedHours() const { return engine.sums.runSeconds / 3600.0; }

    /// Worst of the limits.
    DueState state() const;
};

inline constexpr int ledgerEpisodes = 200;

/// No value if the library has no recording of the engine.
Answer<std::optional<EngineLedger>> engineLedger(LibraryDatabase& database,
                                                 const Logbook::Contents& written,
                                                 const QString& engine, const QDate& today);

/// What people wrote about engines in units, for LibraryDatabase::setInstallations().
std::vector<Installation> installationsOf(const Logbook::Contents& written);

/// The folders of the cycles with files that the notes are about.
Answer<QStringList> notedFolders(LibraryDatabase& database, const std::vector<Note>& notes);

/// The seconds of a quantity by ThresholdState.
struct LedgerBand
{
    QString quantity;
    std::array<double, 3> seconds{};

    double total() const { return seconds[0] + seconds[1] + seconds[2]; }
};

/// The quantities of an engine, those beyond a limit for the longest time first.
std::vector<LedgerBand> ledgerBands(const EngineRow& engine);

} // namespace KOLT::Library

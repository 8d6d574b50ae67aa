#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace KOLT::SampleCard {

struct SampleCardOptions
{
    QString folder;      ///< created if missing
    QString profilePath; ///< defines how values are encoded in messages
    std::uint64_t seed = 1;
    /// Where to write down what the card holds on purpose, as JSON; empty: nowhere. Never in the
    /// card's folder.
    QString plantedPath;
    double hours = 0.0;   ///< above 0: one engine run of that length instead of the usual card
    bool isShort = false; ///< one engine run with one flight, in three files
    /// Called with one line about each cycle written.
    std::function<void(const QString& line)> report;
};

/// Writes a card of simulated tow flights; the same options give the same bytes. Existing files are
/// never replaced: a name that is taken is an error. False, with the reason, on failure.
bool writeSampleCard(const SampleCardOptions& options, QString* error);

} // namespace KOLT::SampleCard

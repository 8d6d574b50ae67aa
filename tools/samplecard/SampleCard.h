#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace KOLT::SampleCard {

struct SampleCardOptions
{
    QString folder;      ///< created when it is not there
    QString profilePath; ///< says how values are put into messages
    std::uint64_t seed = 1;
    double hours = 0.0; ///< above 0: one engine run of that length instead of the usual card
    /// Called with one line about each cycle written.
    std::function<void(const QString& line)> report;
};

/// Writes a card of simulated tow flights; the same options give the same bytes. Files of the same
/// names are replaced, others left alone. False, with the reason, when it cannot be written.
bool writeSampleCard(const SampleCardOptions& options, QString* error);

} // namespace KOLT::SampleCard

#pragma once

#include "library/archive/Archive.h"
#include "library/archive/UnitFolder.h"

#include <QSet>

namespace KOLT::Library {

/// A proven file that waits in ".incoming".
struct Arrival
{
    ManifestFile file;
    QString waiting; ///< below the archive
    int cycle = 0;   ///< of the card's listing
};

enum class Arrived {
    Copied,
    Beside, ///< the cycle has another content of this name
    Known,  ///< meanwhile another import brought it
    Failed
};

struct PlaceResult
{
    std::vector<Arrived> files; ///< as given
    QString error;              ///< for the user; some files were not placed then
};

struct PlaceRequest
{
    quint32 unit = 0;
    std::vector<Arrival> arrivals;
    QSet<QString> onCard; ///< keyOf() of the files of the card
    QSet<QString> taken;  ///< keyOf() of files that were taken out, and are not missed
};

/// Puts files of a unit into their cycles and moves those that are not where they belong, which
/// also completes what an interrupted import left behind. Takes the archive's lock; the listener is
/// called after it is released.
PlaceResult placeFiles(const Archive& archive, const PlaceRequest& request,
                       const ArchiveListener& listener);

} // namespace KOLT::Library

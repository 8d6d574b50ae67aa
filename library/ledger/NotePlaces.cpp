#include "library/ledger/NotePlaces.h"

#include <cmath>

namespace KOLT::Library {

bool isAbout(const NotePlace& place, const NotedFile& file)
{
    if (file.key.isEmpty() || place.fileKey != file.key)
        return false;
    if (place.fileName == file.name || !place.dateTime.isValid() || !file.dateTime.isValid())
        return true;
    // The clock may have been found late and mended meanwhile, but not by a day.
    constexpr qint64 most = 24 * 60 * 60;
    const auto seconds = static_cast<qint64>(place.seconds.value_or(0.0));
    return std::abs(file.dateTime.addSecs(seconds).secsTo(place.dateTime)) < most;
}

} // namespace KOLT::Library

#pragma once

#include "library/archive/Archive.h"

namespace KOLT::Library {

/// What is kept of an import: "imports/<id>.json" in the archive.
struct ImportRecord
{
    QString id; ///< "<date time> <random>", ascending in time
    QString card;
    QDateTime when; ///< UTC
    QString program;
    bool isTakenBack = false;
    QStringList added; ///< "<hash> <name>" of the files that it added
    QStringList known; ///< of those that were there before
};

/// The imports of the archive, the latest first.
std::vector<ImportRecord> importsOf(const Archive& archive);

struct TakeBackResult
{
    int files = 0;
    QString folder; ///< absolute; where the files are now
    QString error;  ///< for the user; what was moved until then stays moved
};

/// Moves what the import added to "trash/<id>" in the archive, except for files that another
/// import found as well. Repeated after a failure, it moves the rest.
TakeBackResult takeBack(const Archive& archive, const QString& id,
                        const ArchiveListener& listener = {});

} // namespace KOLT::Library

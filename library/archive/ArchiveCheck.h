#pragma once

#include "library/archive/Archive.h"

namespace KOLT::Library {

/// What is wrong with the archive's files; all paths are below the archive.
struct CheckResult
{
    int cycles = 0;
    int files = 0; ///< named by manifests, with those in "copies"
    qint64 bytes = 0;
    QStringList damaged;   ///< their content is not what was imported, or cannot be read
    QStringList missing;   ///< named by a manifest
    QStringList unlisted;  ///< record files that no manifest names; the next import takes them in
    QStringList manifests; ///< folders whose manifest cannot be read
    bool isCancelled = false;

    bool isSound() const
    {
        return damaged.isEmpty() && missing.isEmpty() && manifests.isEmpty() && !isCancelled;
    }
};

/// Reads every file and compares its hash. `progress` gets the bytes read so far and in total, and
/// returns false to cancel.
CheckResult checkArchive(const Archive& archive,
                         const std::function<bool(qint64 done, qint64 total)>& progress = {});

} // namespace KOLT::Library

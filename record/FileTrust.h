#pragma once

#include "record/CardFiles.h"
#include "record/TrustDraft.h"

namespace KOLT {

/// What is found from the files alone.
struct FileTrust
{
    TrustDrafts drafts;
    /// Files that count for holes and strays: those that can be read, and no copies. In the order
    /// of loading.
    std::vector<const FileFacts*> sound;
    /// Whether times run through all of them as they are loaded.
    bool isInOrder = true;
};

/// Looks at the files of a cycle, or of another choice, as they are loaded: which are missing,
/// doubled, cut, in the wrong place, or from another run. `dateTime` is the date that their data
/// set takes for counter 0, `unread` names those that could not be read to their end, and
/// `engineType` is the wildcard pattern of the engines that the profile's variant is for, or empty.
FileTrust fileTrust(const CardFiles& card, const std::vector<QString>& names,
                    const QDateTime& dateTime, const std::vector<QString>& unread,
                    const QString& engineType);

} // namespace KOLT

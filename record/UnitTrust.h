#pragma once

#include "record/CardFiles.h"
#include "record/TrustDraft.h"

namespace KOLT {

/// Finds serial numbers and software that change from file to file, and engines other than the
/// wildcard pattern names; an empty one takes all.
void unitTrust(const std::vector<const FileFacts*>& files, const QString& engineType,
               TrustDrafts& drafts);

} // namespace KOLT

#pragma once

#include "profile/Profile.h"
#include "record/MessageMap.h"

#include <QStringList>

#include <set>

/// Whether the chosen variant of the profile is the one for a recording.
namespace KOLT {

/// What a recording tells of the engine that it is of.
struct RecordedEngine
{
    QStringList types;                   ///< from the headers of its files, without empty ones
    std::set<std::uint32_t> identifiers; ///< of its messages
};

RecordedEngine recordedEngine(const QStringList& types, const MessageMap& messages);

struct VariantFit
{
    QString variant;     ///< the active one
    QString otherEngine; ///< an engine that the variant is not for; empty if there is none
    std::size_t identifiers = 0;
    std::size_t known = 0; ///< identifiers that the profile has for the variant
    QString better;        ///< a variant that fits better; empty if there is none

    /// Fewer than 90 % of the identifiers are known.
    bool isForeign() const { return known * 10 < identifiers * 9; }

    bool isFine() const { return otherEngine.isEmpty() && !isForeign(); }

    /// In one sentence; empty when all is fine.
    QString text() const;
};

/// `profile` must know its variants. Where the engine tells nothing, its file is read once more for
/// each other variant, to count what that knows.
VariantFit variantFit(const Profile& profile, const RecordedEngine& recorded);

} // namespace KOLT

#pragma once

#include "profile/Profile.h"
#include "record/CardFiles.h"
#include "record/DataSet.h"
#include "record/TrustFinding.h"

#include <QString>

#include <vector>

/// How far a recording can be believed. The figures stay as they are; this says beside them what
/// they were made from. Kinds, thresholds and what is marked: docs/trust.md.
namespace KOLT {

struct RecordingTrust
{
    /// By what they are about, the causes first. A cause is told once.
    std::vector<TrustFinding> findings;
    /// For each flight of the data set, the figures that some finding touches.
    std::vector<Figures> marked;

    /// The findings that mark a flight, by their index.
    std::vector<std::size_t> findingsOf(std::size_t flight) const;
};

struct TrustOptions
{
    /// Wildcard pattern of the engines that the profile's variant is for ("915*"); empty: any.
    QString engineType;
};

/// What is found in a data set: a whole cycle, chosen files, or one flight, of which only what
/// meets it is told. `card` must have been made of the folder that the data set was loaded from.
/// Costs a walk through the series of the roles, and a look at some samples of all others. It uses
/// the indexes of the series, so nobody else may look at the data set meanwhile.
RecordingTrust recordingTrust(const Profile& profile, const CardFiles& card, const DataSet& dataSet,
                              const TrustOptions& options = {});

/// What the files of a cycle tell before anything of it is loaded: at once, but without what lies
/// within them. None when there is no such cycle.
std::vector<TrustFinding> cycleFileTrust(const CardFiles& card, int cycle,
                                         const TrustOptions& options = {});

} // namespace KOLT

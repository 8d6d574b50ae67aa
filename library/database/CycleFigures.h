#pragma once

#include "analysis/Episode.h"
#include "library/archive/ArchivedCycle.h"
#include "record/Flight.h"
#include "record/TrustFinding.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What the library keeps of the analysis of an archived cycle: the figures of `kolt-cli flights`,
/// `episodes` and `report`, found by the same code. Nothing here refers to the profile or to loaded
/// data. Times are seconds on the unit's counter, values metric.
namespace KOLT {
class Profile;
} // namespace KOLT

namespace KOLT::Library {

/// With what figures were found. Those found with something else are stale.
struct FiguresSource
{
    QString profile; ///< name of the profile
    QString profileVersion;
    QString profileSha256; ///< of its file
    QString variant;
    QString program; ///< version of the program and of the figures' computation

    bool operator==(const FiguresSource&) const = default;
};

/// Of the loaded profile and this program. The hash is empty if the file cannot be read.
FiguresSource figuresSource(const Profile& profile);

struct FlightFigures
{
    Flight flight;
    Figures marked = 0; ///< that a finding of trust touches
    EpisodeCounts counts;
    qint64 airSeconds = 0; ///< from take-off to landing as lists show it, in whole seconds
};

/// An episode without what lives in the profile.
struct EpisodeRecord
{
    QString quantity;
    QStringList parameters; ///< full names
    ThresholdState state = ThresholdState::Ok;
    bool isLampOnly = false;
    bool isHigh = true;
    double begin = 0.0;
    double end = 0.0;
    bool isCut = false;
    int crossings = 0;
    double secondsBeyondWarning = 0.0;
    double secondsBeyondLimit = 0.0;
    std::optional<double> peak;
    std::optional<double> peakSeconds;
    QString peakParameter; ///< full name; empty without a peak
    QString phase;         ///< as phaseName()
    std::optional<double> engineSpeed;
    std::optional<int> flight; ///< from 1; none outside of flights
};

struct FaultRecord
{
    QString parameter; ///< full name
    double begin = 0.0;
    double end = 0.0;
    bool isCut = false;
    std::optional<int> flight; ///< from 1; in which it began
};

struct FindingRecord
{
    QString kind;     ///< as trustKindName()
    QString severity; ///< as trustSeverityName()
    std::optional<double> from;
    std::optional<double> to;
    QStringList files;
    QString text;
};

/// How long a quantity was in one of its limit bands, and known.
struct BandTime
{
    QString quantity;
    ThresholdState state = ThresholdState::Ok;
    double seconds = 0.0;
};

/// A counter that the unit itself keeps, at the first and last sample of a cycle.
struct CounterSpan
{
    double first = 0.0;
    double last = 0.0;
};

struct CycleFigures
{
    double startSeconds = 0.0;
    double stopSeconds = 0.0;
    double recordedSeconds = 0.0; ///< by the headers of the files: the run of `kolt-cli report`
    double runSeconds = 0.0;      ///< the engine turned by itself
    int starts = 0;               ///< that the recording shows
    double fuel = 0.0;            ///< litres, of the whole cycle
    qint64 trackPoints = 0;
    std::optional<CounterSpan> unitHours;
    std::optional<CounterSpan> unitStarts;
    std::vector<FlightFigures> flights;
    std::vector<EpisodeRecord> episodes;
    qint64 episodesLeftOut = 0;
    EpisodeCounts outside; ///< that began in no flight
    std::vector<FaultRecord> faults;
    std::vector<FindingRecord> findings;
    std::vector<BandTime> bands; ///< those above 0
    QStringList unreadFiles;
};

/// Loads a cycle of the archive and works out its figures. `error` says why there are none: its
/// folder or all of its files are gone. Files that cannot be read are named in unreadFiles.
struct FoundFigures
{
    std::optional<CycleFigures> figures;
    QString error;
    QString folder; ///< of the cycle; as an answer between processes says which one it is of
};

FoundFigures findCycleFigures(const Profile& profile, const QString& archive,
                              const ArchivedCycle& cycle);

} // namespace KOLT::Library

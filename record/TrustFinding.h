#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

/// How far a recording can be believed: what is told about it (docs/trust.md).
namespace KOLT {

/// In the order in which they explain each other: a cause is told once, by the first that knows it.
enum class TrustKind {
    DuplicateFile,
    UnreadableFile,
    MissingFile,
    TruncatedFile,
    OverlappingFiles,
    TimeJump,
    Hole,
    MessageHole,
    NoPosition,
    NotANumber,
    UnfinishedFlight,
    LateClock,
    SerialChanged,
    SoftwareChanged,
    OtherEngine,
    BeforeFirstCycle,
    UnknownMessages,
    NeverRecorded,
    CaseFile, ///< not a card, but cut from one on purpose
};

enum class TrustSeverity {
    Note,     ///< good to know, the figures hold
    Doubtful, ///< figures may be off
    Wrong,    ///< figures are off, or sums
};

/// A set of a flight's figures: bit i stands for figureKeys[i].
using Figures = std::uint32_t;

/// The figures of a flight by their keys in the JSON of kolt-cli.
inline constexpr std::array figureKeys{"dateTime",
                                       "start",
                                       "end",
                                       "takeOff",
                                       "landing",
                                       "minAltitude",
                                       "maxAltitude",
                                       "altitudeGain",
                                       "climbRate",
                                       "descentRate",
                                       "maxGroundSpeed",
                                       "fuelA",
                                       "fuelB",
                                       "fuel",
                                       "timePer100m",
                                       "fuelPer100m",
                                       "takeOffDistance",
                                       "takeOffDistance15m"};

namespace Figure {
enum : Figures {
    DateTime = 1U << 0,
    Start = 1U << 1,
    End = 1U << 2,
    TakeOff = 1U << 3,
    Landing = 1U << 4,
    MinAltitude = 1U << 5,
    MaxAltitude = 1U << 6,
    AltitudeGain = 1U << 7,
    ClimbRate = 1U << 8,
    DescentRate = 1U << 9,
    MaxGroundSpeed = 1U << 10,
    FuelA = 1U << 11,
    FuelB = 1U << 12,
    Fuel = 1U << 13,
    TimePer100m = 1U << 14,
    FuelPer100m = 1U << 15,
    TakeOffDistance = 1U << 16,
    TakeOffDistance15m = 1U << 17,

    All = (1U << 18) - 1,
    Times = DateTime | Start | End | TakeOff | Landing,
    Climb = MinAltitude | MaxAltitude | AltitudeGain | ClimbRate | DescentRate | TimePer100m |
            FuelPer100m,
    Distances = TakeOffDistance | TakeOffDistance15m,
};
} // namespace Figure

/// The figures of one flight of the data set that a finding touches.
struct FlightMark
{
    std::size_t flight = 0; ///< index in the data set's flights
    Figures figures = 0;
};

struct TrustFinding
{
    TrustKind kind = TrustKind::Hole;
    /// The touched stretch in seconds on the unit's counter: the ends of a hole, the first and last
    /// time of a file. None where the whole is meant, or an end is not known.
    std::optional<double> from;
    std::optional<double> to;
    std::vector<QString> files; ///< names of files in the folder that it is about
    QString text;               ///< what it does to which figures, and what can be done
    std::vector<FlightMark> marks;
};

/// As in the JSON of kolt-cli: "missing-file".
QString trustKindName(TrustKind kind);
/// For people: "File missing".
QString trustKindTitle(TrustKind kind);
TrustSeverity trustSeverity(TrustKind kind);
/// "note", "doubtful" or "wrong".
QString trustSeverityName(TrustSeverity severity);

/// The worst of them; none where there are no findings.
std::optional<TrustSeverity> worstSeverity(const std::vector<TrustFinding>& findings);

/// The keys of the figures in a set, in the order of figureKeys.
std::vector<QString> figureNames(Figures figures);

} // namespace KOLT

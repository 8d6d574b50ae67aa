#pragma once

/// Time stamps are untrusted: a flipped bit can turn one into 5.7e11 s. Structures along the time
/// axis therefore have at most maxTimeSlots entries and leave out later samples.
namespace KOLT {

constexpr int maxTimeSlots = 5'000'000;

/// The track's grid.
constexpr double gridSeconds = 0.5;
constexpr double maxGridSeconds = maxTimeSlots * gridSeconds;

} // namespace KOLT

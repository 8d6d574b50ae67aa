#pragma once

/// Time stamps are untrusted: one flipped bit makes 5.7e11 s. Whatever is laid out along the time
/// axis keeps this many slots at most; what lies beyond is dropped.
namespace KOLT {

constexpr int maxTimeSlots = 5'000'000;

/// The track's grid.
constexpr double gridSeconds = 0.5;
constexpr double maxGridSeconds = maxTimeSlots * gridSeconds;

} // namespace KOLT

#pragma once

/// The version of the program, in one place.
namespace KOLT {

constexpr const char* versionText = "KOLT 2.1.4";
constexpr const char* versionDate = "28.07.2026";

} // namespace KOLT

#pragma once

namespace KOLT {

/// Prints the program's name, version, build time and working directory.
void printBanner();

} // namespace KOLT

#pragma once

#include <QString>

/// The libraries that this user has worked with. One that is not there any more is on a disk that
/// is not connected, and is not made anew.
namespace KOLT {

bool isKnownLibrary(const QString& folder);

/// A small file for each library, as several programs may do this at the same time. A failure is
/// only printed.
void rememberLibrary(const QString& folder);

} // namespace KOLT

#pragma once

#include "library/archive/Archive.h"
#include "library/database/LibraryUpdate.h"

class QWidget;

namespace KOLT {

class Profile;

/// Works out the figures of a library that are missing or stale, in processes of the program. Runs
/// an event loop, and shows a progress window with a cancel button beside the others when it takes
/// longer. Ends early, like a cancel, once `isWanted` returns false: the user has turned to another
/// library. The database must live until it returns; it belongs to the archive.
Library::UpdateResult evaluateLibrary(const Library::Archive& archive,
                                      Library::LibraryDatabase& database, const Profile& profile,
                                      QWidget& window, const std::function<bool()>& isWanted);

} // namespace KOLT

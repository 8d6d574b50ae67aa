#pragma once

#include "analysis/GraphTarget.h"

#include <QString>

class QWidget;

namespace KOLT {

class CardSession;
class Profile;

enum class CaseForm { Folder, Zip };

/// Asks where, and writes what was recorded around a finding of the loaded data into a new folder
/// there, or into a zip file, 30 s before and after it. Failures are told with `window` as parent.
/// Returns the folder or file, empty if none was written.
QString writeCaseFile(const Profile& profile, const CardSession& card, const GraphTarget& target,
                      CaseForm form, QWidget* window);

} // namespace KOLT

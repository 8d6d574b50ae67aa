#pragma once

#include "profile/Profile.h"

#include <QByteArray>
#include <QStringList>

namespace KOLT {

/// A profile as a DBC file for the tools of other makers (docs/exports.md, which tells where they
/// decode otherwise than KOLT).
struct DbcFile
{
    QByteArray content;  ///< Latin-1
    int signalCount = 0; ///< parameters that became signals
    QStringList leftOut; ///< "full name: reason" of those that a DBC file cannot describe
};

/// The active variant's parameters, in the profile's unit system.
DbcFile dbcOf(const Profile& profile);

} // namespace KOLT

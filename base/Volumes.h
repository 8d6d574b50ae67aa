#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace KOLT {

/// A mounted memory card or stick.
struct Volume
{
    QString name; ///< as file managers show it
    QString path;

    bool operator==(const Volume&) const = default;
};

/// The system's table of mounts, as in /proc/self/mounts, or of its drives (SystemDrives.h); empty
/// on systems that have neither.
QByteArray mountTable();

/// The local removable volumes of such a table. Looks at no file system but the kernel's own: a
/// request to a network mount that has gone would block.
std::vector<Volume> removableVolumes(const QByteArray& table);

} // namespace KOLT

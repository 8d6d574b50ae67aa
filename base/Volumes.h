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

/// The local removable volumes of a mount table in the format of /proc/self/mounts. Looks at no
/// file system but the kernel's own: asking a network mount that has gone would block.
std::vector<Volume> removableVolumes(const QByteArray& mountTable);

} // namespace KOLT

#include "base/Volumes.h"

#include "base/SystemDrives.h"

#include <QFile>
#include <QList>

#include <algorithm>
#include <array>

namespace KOLT {

namespace {

/// Of cards and sticks. Network file systems have other names, and so have those that some program
/// provides ("fuse.sshfs"); "fuseblk" is a local disk.
constexpr std::array localTypes{"vfat", "exfat", "msdos", "ntfs",    "ntfs3", "fuseblk",
                                "ext2", "ext3",  "ext4",  "hfsplus", "udf",   "iso9660"};

/// A field of the table, in which blanks are written as "\040".
QByteArray unescaped(const QByteArray& field)
{
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isOctal = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&isOctal, 8) : 0;
        text += isOctal ? static_cast<char>(code) : field[i];
        i += isOctal ? 3 : 0;
    }
    return text;
}

/// What the kernel says of the disk that holds the partition.
bool isRemovableDisk(const QByteArray& device)
{
    const QString name = QFile::decodeName(device.mid(device.lastIndexOf('/') + 1));
    for (const char* path : {"/sys/class/block/%1/removable", "/sys/class/block/%1/../removable"}) {
        QFile file(QLatin1String(path).arg(name));
        if (file.open(QIODevice::ReadOnly))
            return file.readAll().trimmed() == "1";
    }
    return false;
}

} // namespace

QByteArray mountTable()
{
    QFile file(QStringLiteral("/proc/self/mounts"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : System::removableDrives();
}

std::vector<Volume> removableVolumes(const QByteArray& table)
{
    std::vector<Volume> volumes;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() == 4 && fields[0] == "drive") {
            const QString label = QString::fromUtf8(unescaped(fields[2]));
            const QString drive = QString::fromUtf8(fields[1]);
            volumes.push_back({label.isEmpty() ? drive : label, drive});
            continue;
        }
        if (fields.size() < 3 || !fields[0].startsWith("/dev/") ||
            std::ranges::none_of(localTypes, [&](const char* type) { return fields[2] == type; }))
            continue;
        const QString path = QFile::decodeName(unescaped(fields[1]));
        const bool isOfUser = path.startsWith(QLatin1String("/media/")) ||
                              path.startsWith(QLatin1String("/run/media/"));
        if (path == QLatin1String("/") || (!isOfUser && !isRemovableDisk(fields[0])))
            continue;
        volumes.push_back({path.section(QLatin1Char('/'), -1), path});
    }
    return volumes;
}

} // namespace KOLT

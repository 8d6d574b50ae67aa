#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QIODevice;

/// The only way in which KOLT writes files.
namespace KOLT {

struct WriteResult
{
    enum class Status {
        Written,
        Refused, ///< it could harm recordings (WriteGuard.h)
        Failed
    };

    explicit operator bool() const { return status == Status::Written; }

    Status status = Status::Failed;
    QString error; ///< reason, for the user
};

/// Replaces the file by what `write` writes to the device. The new content takes effect only when
/// all of it has reached the disk; otherwise the old file is unchanged and nothing is left behind.
/// Links are followed and their target is replaced. Folders, pipes and devices are refused.
WriteResult replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write);
WriteResult replaceFile(const QString& path, const QByteArray& content);

/// The same for libraries that write to a path of their own: `write` gets the path of a new, empty
/// file beside the target and returns what went wrong, empty on success. It must have closed the
/// file then.
WriteResult replaceFileAt(const QString& path,
                          const std::function<QString(const QString& temporary)>& write);

/// Creates or replaces the target by a copy of the file.
WriteResult copyFile(const QString& source, const QString& target);

/// A path that is not taken: "<stem><suffix>", otherwise "<stem>.2<suffix>" and so on.
QString freePath(const QString& stem, const QString& suffix);

/// Renames an unusable file to "<path>.broken", or "<path>.broken.2" and so on where that name is
/// taken. Returns the new name; empty when it could not be renamed.
QString moveAside(const QString& path);

} // namespace KOLT

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QIODevice;

/// The one way in which KOLT writes files.
namespace KOLT {

struct WriteResult
{
    enum class Status {
        Written,
        Refused, ///< recordings could be harmed (WriteGuard.h)
        Failed
    };

    explicit operator bool() const { return status == Status::Written; }

    Status status = Status::Failed;
    QString error; ///< why, in words for the user
};

/// Replaces the file by what `write` puts out. Only when all of that has reached the disk does it
/// take the place of a file that was there before; else the old one stays as it was, and nothing is
/// left behind. A link is followed, and what it leads to is replaced. Folders, pipes and devices
/// are left alone.
WriteResult replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write);
WriteResult replaceFile(const QString& path, const QByteArray& content);

/// Puts a copy of the file into the place of the target, or where none is yet.
WriteResult copyFile(const QString& source, const QString& target);

/// Gives a file that could not be used the name "<path>.broken", or "<path>.broken.2" and so on
/// where that is taken. Returns the name; empty when it could not be renamed.
QString moveAside(const QString& path);

} // namespace KOLT

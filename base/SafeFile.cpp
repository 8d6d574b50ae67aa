#include "base/SafeFile.h"

#include "base/SystemDisk.h"
#include "base/SystemPath.h"
#include "base/WriteGuard.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <system_error>

namespace KOLT {

namespace {

using Status = WriteResult::Status;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::SafeFile)
};

/// The system's error text. A write that was only partly done often has none.
QString errorOf(const QSaveFile& file)
{
    const QString unknown = QSaveFile().errorString();
    return file.error() == QFileDevice::NoError || file.errorString() == unknown
               ? Text::tr("Not everything could be written. The disk may be full.")
               : file.errorString();
}

} // namespace

WriteResult replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write)
{
    if (const QString objection = writeObjection(path); !objection.isEmpty())
        return {Status::Refused, objection};
    // The final target of a chain of links is replaced, not a link in the chain.
    const QString target = resolvedPath(path);
    if (const QFileInfo info(target); info.exists() && !info.isFile())
        return {Status::Failed, Text::tr("This is not a regular file.")};
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return {Status::Failed, file.errorString()};
    // commit() would flush the rest of the buffer as well, but ignore errors.
    if (!write(file) || !file.flush())
        return {Status::Failed, errorOf(file)};
    // commit() also does this, but ignores errors.
    if (const QString error = System::syncFile(file); !error.isEmpty())
        return {Status::Failed, error};
    System::awaitReplaceable(target);
    if (!file.commit())
        return {Status::Failed, errorOf(file)};
    return {Status::Written, {}};
}

WriteResult replaceFile(const QString& path, const QByteArray& content)
{
    return replaceFile(path,
                       [&](QIODevice& device) { return device.write(content) == content.size(); });
}

WriteResult copyFile(const QString& source, const QString& target)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return {Status::Failed, file.errorString()};
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {Status::Failed, file.errorString()};
    return replaceFile(target, content);
}

QString freePath(const QString& stem, const QString& suffix)
{
    QString path = stem + suffix;
    for (int i = 2; QFileInfo(path).isSymLink() || QFileInfo::exists(path); ++i)
        path = stem + QLatin1Char('.') + QString::number(i) + suffix;
    return path;
}

QString moveAside(const QString& path)
{
    const QString aside = freePath(path + QStringLiteral(".broken"), {});
    // QFile::rename() would fall back to copying and then remove the original.
    std::error_code error;
    System::awaitReplaceable(path);
    std::filesystem::rename(System::nativePath(path), System::nativePath(aside), error);
    return error ? QString() : aside;
}

} // namespace KOLT

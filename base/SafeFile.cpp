#include "base/SafeFile.h"

#include "base/SystemDisk.h"
#include "base/SystemPath.h"
#include "base/WriteGuard.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
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

/// What the path leads to in the end, or why it must not be replaced.
WriteResult targetOf(const QString& path, QString& target)
{
    if (const QString objection = writeObjection(path); !objection.isEmpty())
        return {Status::Refused, objection};
    // The final target of a chain of links is replaced, not a link in the chain.
    target = resolvedPath(path);
    if (const QFileInfo info(target); info.exists() && !info.isFile())
        return {Status::Failed, Text::tr("This is not a regular file.")};
    return {Status::Written, {}};
}

/// Unlike QFile::rename(), never falls back to copying; replaces a file that has the new name.
std::error_code renameFile(const QString& from, const QString& to)
{
    std::error_code error;
    System::awaitReplaceable(QFileInfo::exists(to) ? to : from);
    std::filesystem::rename(System::nativePath(from), System::nativePath(to), error);
    return error;
}

/// Creates a file beside the target under a name that nothing else has.
QString createBeside(const QString& target, QFile& file)
{
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        const quint32 number = QRandomGenerator::global()->generate();
        file.setFileName(target + QLatin1Char('.') + QString::number(number, 16));
        if (file.open(QIODevice::ReadWrite | QIODevice::NewOnly))
            return {};
        if (!QFileInfo::exists(file.fileName()))
            break;
    }
    return file.errorString();
}

} // namespace

WriteResult replaceFileAt(const QString& path,
                          const std::function<QString(const QString& temporary)>& write)
{
    QString target;
    if (WriteResult result = targetOf(path, target); !result)
        return result;
    QFile file;
    if (const QString error = createBeside(target, file); !error.isEmpty())
        return {Status::Failed, error};
    const QString temporary = file.fileName();
    if (QFileInfo::exists(target))
        file.setPermissions(QFile::permissions(target));
    file.close();
    QString error = write(temporary);
    if (error.isEmpty() && !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        error = file.errorString();
    if (error.isEmpty())
        error = System::syncFile(file);
    file.close();
    if (error.isEmpty()) {
        const std::error_code code = renameFile(temporary, target);
        if (!code)
            return {Status::Written, {}};
        error = QString::fromLocal8Bit(code.message().c_str());
    }
    QFile::remove(temporary);
    return {Status::Failed, error};
}

WriteResult replaceFile(const QString& path, const std::function<bool(QIODevice&)>& write)
{
    QString target;
    if (WriteResult result = targetOf(path, target); !result)
        return result;
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
    return renameFile(path, aside) ? QString() : aside;
}

} // namespace KOLT

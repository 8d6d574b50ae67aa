#pragma once

#include "library/archive/CardImport.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/TestFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>

#include <map>

namespace KOLT::Test {

/// File names with their contents, as on a card.
using CardContent = std::map<QString, QByteArray>;

inline QString recordName(int number)
{
    return QStringLiteral("REC%1.CAN").arg(number, 5, 10, QLatin1Char('0'));
}

/// A run of the engine in files of ten minutes, the first of them without a date. `salt` makes the
/// contents differ from those of another run at the same time.
inline CardContent engineRun(int firstNumber, int files, const QDateTime& clock,
                             std::uint32_t unit = 4711, std::uint32_t salt = 0)
{
    constexpr int seconds = 600;
    CardContent content;
    for (int i = 0; i < files; ++i) {
        const double start = 4.0 + i * seconds;
        const QDateTime at = clock.addSecs(static_cast<qint64>(start));
        RecordBytes bytes;
        if (i > 0)
            bytes.date(at.date().year(), at.date().month(), at.date().day(), at.time().hour(),
                       at.time().minute(), at.time().second());
        bytes.headerTime(start).ecuSerial(unit).text(2, "E-1").text(3, "915");
        for (int s = 0; s <= seconds; s += 100)
            bytes.sample(1, start + s, floats(static_cast<float>(salt), static_cast<float>(s)));
        content[recordName(firstNumber + i)] = bytes.bytes();
    }
    return content;
}

inline QDateTime clockOf(int month, int day, int hour = 8)
{
    return {QDate(2026, month, day), QTime(hour, 0), Qt::UTC};
}

/// Three runs of a summer: files 1 to 12.
inline CardContent summerCard()
{
    CardContent card = engineRun(1, 5, clockOf(7, 1));
    card.merge(engineRun(6, 1, clockOf(7, 2)));
    card.merge(engineRun(7, 6, clockOf(7, 3)));
    return card;
}

inline QString hashOf(const QByteArray& content)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

inline bool writeCard(const QString& folder, const CardContent& content)
{
    bool isWritten = QDir().mkpath(folder);
    for (const auto& [name, bytes] : content)
        isWritten = writeFile(folder + '/' + name, bytes) && isWritten;
    return isWritten;
}

/// The record files below a folder, with their contents; of an archive without its trash.
inline CardContent recordFiles(const QString& root)
{
    CardContent content;
    QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString below = QDir(root).relativeFilePath(path);
        if (!below.startsWith("trash/") && (below.endsWith(".CAN") || below.endsWith(".part")))
            content[below] = readFile(path);
    }
    return content;
}

/// The cycles as names and hashes of their files, which is what must not depend on the order.
inline QStringList cyclesIn(const QString& root)
{
    Library::Archive archive;
    if (!archive.open(root))
        return {archive.error()};
    QStringList damaged;
    QStringList lines;
    for (const Library::ArchivedCycle& cycle : archive.cycles(&damaged)) {
        QString line = cycle.folder + cycle.dateTime.toString(Qt::ISODate);
        for (const Library::ArchivedFile& file : cycle.files)
            line += ' ' + file.name + ' ' + file.sha256.left(8);
        lines << line;
    }
    return lines + damaged;
}

/// Imports what is on the card; creates the archive when it is absent.
inline Library::ImportResult importInto(const QString& root, const QString& card,
                                        const Library::ArchiveListener& listener = {})
{
    Library::Archive archive;
    if (const QString error = Library::Archive::create(root);
        !error.isEmpty() || !archive.open(root)) {
        Library::ImportResult result;
        result.error = error + archive.error();
        return result;
    }
    return Library::CardImport(archive, card).run({}, listener);
}

/// The result as one text.
inline QString told(const Library::ImportResult& result)
{
    QString text = QStringLiteral("copied %1 known %2 beside %3")
                       .arg(result.copied)
                       .arg(result.known)
                       .arg(result.beside);
    for (const auto& failure : result.failed)
        text += " failed " + failure.name;
    if (!result.error.isEmpty())
        text += ": " + result.error;
    return text + (result.isCancelled ? " cancelled" : "");
}

} // namespace KOLT::Test

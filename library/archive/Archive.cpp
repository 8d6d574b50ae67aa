#include "library/archive/Archive.h"

#include "base/SafeFile.h"
#include "base/Version.h"
#include "base/WriteGuard.h"
#include "library/archive/Manifest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <tuple>

namespace KOLT::Library {

namespace {

const auto markName = QStringLiteral("kolt-library.json");
constexpr int knownVersion = 1;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::Archive)
};

QString markOf(const QString& root)
{
    return root + QLatin1Char('/') + markName;
}

/// What a disk may hold although nobody has put anything on it.
bool isOfSystem(const QString& name)
{
    return name.startsWith(QLatin1Char('.')) || name.startsWith(QLatin1Char('$')) ||
           name == QLatin1String("lost+found") ||
           name == QLatin1String("System Volume Information");
}

bool isEmptyFolder(const QString& path)
{
    const QStringList names =
        QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    return std::ranges::all_of(names, isOfSystem);
}

QStringList subfolders(const QString& path)
{
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

std::optional<quint32> unitOf(const QString& name)
{
    bool isNumber = false;
    const uint number = name.toUInt(&isNumber);
    return isNumber && QString::number(number) == name ? std::optional<quint32>(number)
                                                       : std::nullopt;
}

/// What the manifest tells, without files that are not there.
std::optional<ArchivedCycle> presentCycle(const QString& path, const QString& folder)
{
    std::optional<Manifest> manifest = readManifest(path);
    if (!manifest)
        return std::nullopt;
    const QStringList names = QDir(path).entryList(QDir::Files);
    const QSet<QString> present(names.begin(), names.end());
    manifest->files.removeIf(
        [&](const ManifestFile& file) { return !present.contains(file.name); });
    return cycleOf(*manifest, folder);
}

} // namespace

bool Archive::open(const QString& root)
{
    m_root = QDir::cleanPath(QFileInfo(root).absoluteFilePath());
    m_id.clear();
    m_error.clear();
    const QString native = QDir::toNativeSeparators(m_root);
    QFile mark(markOf(m_root));
    if (root.isEmpty() || !QFileInfo(m_root).isDir()) {
        m_error = Text::tr("The library folder %1 is not there. Is its disk or network folder "
                           "connected?")
                      .arg(native);
    } else if (!QFileInfo(mark).exists()) {
        m_error = Text::tr("The folder %1 holds no library. Is its disk or network folder "
                           "connected?")
                      .arg(native);
    } else if (!mark.open(QIODevice::ReadOnly)) {
        m_error = Text::tr("The library %1 cannot be read: %2").arg(native, mark.errorString());
    } else {
        constexpr qint64 maxBytes = 65536;
        // A damaged mark is a mark: the recordings do not depend on what is in it.
        const QJsonObject object = QJsonDocument::fromJson(mark.read(maxBytes)).object();
        m_id = object[QStringLiteral("id")].toString();
        if (object[QStringLiteral("version")].toInt(knownVersion) > knownVersion)
            m_error = Text::tr("The library %1 was made by a later version of KOLT. Please install "
                               "that version.")
                          .arg(native);
    }
    return m_error.isEmpty();
}

QString Archive::create(const QString& root)
{
    if (isArchive(root))
        return {};
    const QString path = QDir::cleanPath(QFileInfo(root).absoluteFilePath());
    const QString native = QDir::toNativeSeparators(path);
    if (const QString objection = writeObjection(markOf(path)); !objection.isEmpty())
        return objection;
    const QFileInfo info(path);
    if (info.exists() && !(info.isDir() && isEmptyFolder(path)))
        return Text::tr("The folder %1 is not empty. Please choose an empty or new folder for the "
                        "library.")
            .arg(native);
    if (!info.exists() && !QDir().mkdir(path))
        return Text::tr("The folder %1 cannot be created. Is its disk or network folder connected?")
            .arg(native);
    const QJsonObject object{
        {QStringLiteral("kind"), QStringLiteral("KOLT library")},
        {QStringLiteral("version"), knownVersion},
        {QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces)},
        {QStringLiteral("created"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
        {QStringLiteral("program"), QLatin1String(versionText)},
    };
    const WriteResult result = replaceFile(markOf(path), QJsonDocument(object).toJson());
    return result ? QString()
                  : Text::tr("The library %1 cannot be written: %2").arg(native, result.error);
}

bool Archive::isArchive(const QString& root)
{
    return !root.isEmpty() && QFileInfo(markOf(root)).isFile();
}

std::vector<quint32> Archive::units() const
{
    std::vector<quint32> units;
    for (const QString& name : subfolders(m_root)) {
        if (const auto unit = unitOf(name))
            units.push_back(*unit);
    }
    std::ranges::sort(units);
    return units;
}

std::vector<ArchivedCycle> Archive::cyclesOf(quint32 unit, QStringList* damaged) const
{
    std::vector<ArchivedCycle> cycles;
    for (const QString& year : subfolders(pathOf(QString::number(unit)))) {
        const QString top = QStringLiteral("%1/%2").arg(unit).arg(year);
        for (const QString& name : subfolders(pathOf(top))) {
            const QString folder = top + QLatin1Char('/') + name;
            const std::optional<ArchivedCycle> cycle = presentCycle(pathOf(folder), folder);
            if (!cycle && damaged != nullptr)
                *damaged << folder;
            if (cycle && !cycle->files.isEmpty())
                cycles.push_back(*cycle);
        }
    }
    std::ranges::sort(cycles, {}, [](const ArchivedCycle& cycle) {
        return std::tuple(cycle.dateTime.isValid() ? cycle.dateTime.toMSecsSinceEpoch()
                                                   : std::numeric_limits<qint64>::min(),
                          cycle.folder);
    });
    return cycles;
}

std::vector<ArchivedCycle> Archive::cycles(QStringList* damaged) const
{
    std::vector<ArchivedCycle> cycles;
    for (const quint32 unit : units()) {
        std::vector<ArchivedCycle> more = cyclesOf(unit, damaged);
        std::ranges::move(more, std::back_inserter(cycles));
    }
    return cycles;
}

std::optional<ArchivedCycle> Archive::cycle(const QString& folder) const
{
    std::optional<ArchivedCycle> cycle = presentCycle(pathOf(folder), folder);
    return cycle && !cycle->files.isEmpty() ? cycle : std::nullopt;
}

QString Archive::pathOf(const QString& folder) const
{
    return m_root + QLatin1Char('/') + folder;
}

} // namespace KOLT::Library

#include "base/WriteGuard.h"

#include "base/SystemPath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <array>
#include <filesystem>
#include <list>
#include <mutex>
#include <optional>
#include <system_error>
#include <vector>

namespace KOLT {

namespace {

namespace fs = std::filesystem;

constexpr int maxLinks = 40; // as in Linux

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::WriteGuard)
};

using Entry = std::shared_ptr<const QString>;

class FolderList
{
public:
    /// Made absolute now, as the working directory may change.
    Entry add(const QString& folder)
    {
        auto entry = std::make_shared<const QString>(QFileInfo(folder).absoluteFilePath());
        std::erase_if(m_folders, [](const auto& known) { return known.expired(); });
        m_folders.push_back(entry);
        return entry;
    }

    QStringList folders() const
    {
        QStringList result;
        for (const auto& known : m_folders) {
            if (const Entry entry = known.lock())
                result << *entry;
        }
        return result;
    }

private:
    std::vector<std::weak_ptr<const QString>> m_folders;
};

struct Guard
{
    FolderList folders;
    FolderList archives;
    QString ownFolder;
    std::weak_ptr<const QString> recordFolder; ///< where record files may be written
};

/// The mutex is held while the reference is used.
Guard& guard()
{
    static Guard instance;
    return instance;
}

std::mutex& mutex()
{
    static std::mutex instance;
    return instance;
}

std::optional<fs::path> resolve(const fs::path& path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    fs::path resolved = absolute.root_path();
    const fs::path relative = absolute.relative_path();
    std::list<fs::path> parts(relative.begin(), relative.end());
    int links = 0;
    while (!parts.empty()) {
        const fs::path part = parts.front();
        parts.pop_front();
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            resolved = resolved.parent_path();
            continue;
        }
        const fs::path next = resolved / part;
        if (!fs::is_symlink(fs::symlink_status(next, error))) {
            resolved = next;
            continue;
        }
        if (++links > maxLinks)
            return std::nullopt;
        const fs::path target = fs::read_symlink(next, error);
        if (target.is_absolute())
            resolved = target.root_path();
        const fs::path rest = target.relative_path();
        parts.insert(parts.begin(), rest.begin(), rest.end());
    }
    return resolved;
}

/// Whether the resolved path is the folder or lies below it. Also true for other paths to the same
/// folder: a second mount, or another spelling on a file system that ignores case.
bool isWithin(const QString& folder, const fs::path& target)
{
    const std::optional<fs::path> top = resolve(System::nativePath(folder));
    if (!top)
        return false;
    for (fs::path path = target;; path = path.parent_path()) {
        std::error_code error;
        if (path == *top || fs::equivalent(path, *top, error))
            return true;
        if (path == path.parent_path())
            return false;
    }
}

bool hasRecordSuffix(const QString& name, Qt::CaseSensitivity sensitivity)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const QStringView suffix = QStringView(name).mid(dot + 1);
    constexpr std::array suffixes{QLatin1String("CAN"), QLatin1String("can"), QLatin1String("xcb")};
    return dot >= 0 && std::ranges::any_of(suffixes, [&](QLatin1String known) {
               return suffix.compare(known, sensitivity) == 0;
           });
}

} // namespace

bool isRecordFileName(const QString& name)
{
    return hasRecordSuffix(name, Qt::CaseSensitive);
}

std::shared_ptr<const void> protectFolder(const QString& folder)
{
    const std::lock_guard lock(mutex());
    return guard().folders.add(folder);
}

void setOwnFolder(const QString& folder)
{
    const std::lock_guard lock(mutex());
    guard().ownFolder = folder;
}

std::shared_ptr<const void> allowRecordFiles(const QString& folder)
{
    auto entry = std::make_shared<const QString>(folder);
    const std::lock_guard lock(mutex());
    guard().recordFolder = entry;
    return entry;
}

std::shared_ptr<const void> allowArchive(const QString& folder)
{
    const std::lock_guard lock(mutex());
    return guard().archives.add(folder);
}

bool isBelow(const QString& folder, const QString& path)
{
    const std::optional<fs::path> target = resolve(System::nativePath(path));
    return target && isWithin(folder, *target);
}

QString resolvedPath(const QString& path)
{
    const std::optional<fs::path> resolved = resolve(System::nativePath(path));
    return resolved ? System::pathText(*resolved) : QString();
}

QString writeObjection(const QString& path)
{
    const std::optional<fs::path> target = resolve(System::nativePath(path));
    if (!target)
        return Text::tr("The links in this path form a loop:\n%1").arg(path);
    std::unique_lock lock(mutex());
    const QStringList archives = guard().archives.folders();
    const QStringList folders = guard().folders.folders();
    const QString own = guard().ownFolder;
    const Entry recordFolder = guard().recordFolder.lock();
    lock.unlock();
    if (std::ranges::any_of(archives, [&](const QString& root) { return isWithin(root, *target); }))
        return {};
    const QString name = System::pathText(target->filename());
    const bool areRecordsAllowed = recordFolder != nullptr && isWithin(*recordFolder, *target);
    // A card's file system does not tell letters by their case.
    if (!areRecordsAllowed &&
        (hasRecordSuffix(path, Qt::CaseInsensitive) || hasRecordSuffix(name, Qt::CaseInsensitive)))
        return Text::tr("Names that end with .CAN, .can or .xcb belong to recordings, which are "
                        "never written. Please choose another name than\n%1")
            .arg(QDir::toNativeSeparators(path));
    const bool isOwn = !own.isEmpty() && isWithin(own, *target);
    for (const QString& folder : folders) {
        if (!isWithin(folder, *target) ||
            (isOwn && isWithin(folder, System::nativePath(resolvedPath(own)))))
            continue;
        return Text::tr("Nothing is written to the folder of the recordings, so that they remain "
                        "unchanged. Please choose another folder than\n%1")
            .arg(QDir::toNativeSeparators(folder));
    }
    return {};
}

} // namespace KOLT

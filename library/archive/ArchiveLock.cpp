#include "library/archive/ArchiveLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>

namespace KOLT::Library {

namespace {

using namespace std::chrono_literals;

constexpr auto staleAfter = 10min;
constexpr auto refreshEvery = 20s;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::ArchiveLock)
};

} // namespace

ArchiveLock::ArchiveLock(const QString& path)
    : m_path(path)
    , m_file(path)
{
    m_file.setStaleLockTime(static_cast<int>(std::chrono::milliseconds(staleAfter).count()));
}

ArchiveLock::~ArchiveLock() = default;

bool ArchiveLock::take(std::chrono::milliseconds patience)
{
    m_refreshed = std::chrono::steady_clock::now();
    return m_file.tryLock(static_cast<int>(patience.count()));
}

void ArchiveLock::refresh()
{
    const auto now = std::chrono::steady_clock::now();
    if (now - m_refreshed < refreshEvery)
        return;
    m_refreshed = now;
    // Its age is what others judge it by.
    QFile file(m_path);
    if (file.open(QIODevice::Append | QIODevice::ExistingOnly))
        file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
}

QString ArchiveLock::error() const
{
    if (m_file.error() != QLockFile::LockFailedError)
        return Text::tr("No file can be written to the library folder: %1")
            .arg(QDir::toNativeSeparators(m_path));
    qint64 process = 0;
    QString host;
    QString program;
    m_file.getLockInfo(&process, &host, &program);
    return Text::tr("The library is in use by another program on the computer \"%1\". Please try "
                    "again later. If there is none, delete the file %2.")
        .arg(host, QDir::toNativeSeparators(m_path));
}

QString ArchiveLock::pathIn(const QString& root)
{
    return root + QStringLiteral("/.lock");
}

} // namespace KOLT::Library

#include "library/archive/ArchiveLock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <thread>

namespace KOLT::Library {

namespace {

using namespace std::chrono_literals;

constexpr auto staleAfter = 10min;
constexpr auto refreshEvery = 20s;
constexpr auto emptyAfter = 3s;
constexpr auto pollEvery = 50ms;

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
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    Clock::time_point written = begin;
    while (!m_file.tryLock(0)) {
        const Clock::time_point now = Clock::now();
        if (m_file.error() != QLockFile::LockFailedError || now - begin >= patience)
            return false;
        // Who was killed while creating it has not yet written who it was.
        const QFileInfo info(m_path);
        if (!info.exists() || info.size() > 0)
            written = now;
        else if (now - written > emptyAfter)
            QFile::remove(m_path);
        std::this_thread::sleep_for(std::min<std::chrono::milliseconds>(pollEvery, patience));
    }
    m_refreshed = Clock::now();
    return true;
}

void ArchiveLock::refresh()
{
    const auto now = std::chrono::steady_clock::now();
    if (now - m_refreshed < refreshEvery)
        return;
    m_refreshed = now;
    // Its age is what others judge it by.
    std::error_code ignored;
    std::filesystem::last_write_time(m_path.toStdU16String(),
                                     std::filesystem::file_time_type::clock::now(), ignored);
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

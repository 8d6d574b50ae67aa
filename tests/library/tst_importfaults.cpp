#include "library/archive/ArchiveCheck.h"
#include "tests/library/ArchiveSupport.h"
#include "tests/support/Rows.h"

#include <QTest>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// System calls that fail on request, or end the process. Being part of the executable, they take
// precedence over those of the C library, also for Qt.
namespace {

enum Call { Open, Read, Write, Sync, Rename, MakeFolder, Remove, CallCount };

constexpr int killed = 77;

struct Fault
{
    int call = -1; ///< -1: any
    int error = 0; ///< 0: the process ends
    bool isLasting = false;
    const char* below = nullptr; ///< where the file lies, for opening
};

Fault fault;
std::atomic<int> countdown = 0; ///< which call fails: 1 is the next; 0: none
std::atomic<int> hits = 0;

int lie = 0; ///< which write of a record file changes a byte: 1 is the next; 0: none

bool isRecord(const void* bytes, size_t size)
{
    return size > 128 && std::memcmp(bytes, "\xBA\xAB", 2) == 0;
}

unsigned pauseMicroseconds = 0; ///< before a rename, for others to interfere

bool fails(Call call)
{
    if (call == Rename && pauseMicroseconds > 0)
        usleep(pauseMicroseconds);
    if (countdown <= 0 || (fault.call >= 0 && fault.call != call))
        return false;
    if (countdown.load() > 1) {
        --countdown;
        return false;
    }
    ++hits;
    if (fault.error == 0)
        _exit(killed);
    if (!fault.isLasting)
        countdown = 0;
    errno = fault.error;
    return true;
}

template <typename Function>
Function* systemCall(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {
#define KOLT_OPEN(name)                                                                            \
    int name(const char* path, int flags, ...)                                                     \
    {                                                                                              \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const int mode = va_arg(arguments, int);                                                   \
        va_end(arguments);                                                                         \
        static auto* const real = systemCall<int(const char*, int, ...)>(#name);                   \
        const bool counts = fault.below == nullptr || std::strstr(path, fault.below) != nullptr;   \
        return counts && fails(Open) ? -1 : real(path, flags, mode);                               \
    }
KOLT_OPEN(open)
KOLT_OPEN(open64)

#define KOLT_CALL(result, name, call, parameters, arguments)                                       \
    result name parameters                                                                         \
    {                                                                                              \
        static auto* const real = systemCall<result parameters>(#name);                            \
        return fails(call) ? -1 : real arguments;                                                  \
    }
KOLT_CALL(ssize_t, read, Read, (int file, void* bytes, size_t size), (file, bytes, size))

ssize_t write(int file, const void* bytes, size_t size)
{
    static auto* const real = systemCall<ssize_t(int, const void*, size_t)>("write");
    if (fails(Write))
        return -1;
    if (!isRecord(bytes, size) || lie == 0 || --lie > 0)
        return real(file, bytes, size);
    QByteArray changed(static_cast<const char*>(bytes), static_cast<qsizetype>(size));
    changed[200] = static_cast<char>(~changed[200]);
    return real(file, changed.constData(), size);
}

KOLT_CALL(int, fsync, Sync, (int file), (file))
KOLT_CALL(int, rename, Rename, (const char* from, const char* to), (from, to))
KOLT_CALL(int, mkdir, MakeFolder, (const char* path, mode_t mode), (path, mode))
KOLT_CALL(int, unlink, Remove, (const char* path), (path))
KOLT_CALL(int, rmdir, Remove, (const char* path), (path))
}

using namespace KOLT;
using namespace KOLT::Library;
using namespace KOLT::Test;

/// Whatever ends or disturbs an import, no file is half in the archive, what the import tells is
/// true, and the next one completes it.
class TestImportFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void killedAtAnyCall();
    void eachFaultIsTold_data();
    void eachFaultIsTold();
    void diskThatLies();
    void fullDisk();
    void pulledCard();
    void severalImportersAtOnce();

private:
    QString path(const QString& name) const { return m_directory->filePath(name); }

    QString wrong() const;
    void startOver();
    void complete();

    std::unique_ptr<QTemporaryDir> m_directory;
    CardContent m_card;
    QStringList m_whole; ///< cycles after an import without faults
    DiagnosticsCapture m_output;
};

namespace {

/// Runs in a child process; its exit status.
template <typename Function>
pid_t inChild(const Function& run)
{
    const pid_t child = fork();
    if (child == 0) {
        run();
        _exit(0);
    }
    return child;
}

int statusOf(pid_t child)
{
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

void TestImportFaults::initTestCase()
{
    m_card = engineRun(1, 2, clockOf(7, 1));
    m_card.merge(engineRun(3, 1, clockOf(7, 2)));
    m_card.merge(engineRun(4, 3, clockOf(7, 3)));
}

void TestImportFaults::init()
{
    fault = {};
    countdown = 0;
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(writeCard(path("card"), m_card));
    // A run that was there before is completed, and begins with another file then.
    CardContent earlier(std::next(m_card.begin(), 4), m_card.end());
    earlier.begin()->second.chop(50);
    QVERIFY(writeCard(path("earlier"), earlier));
    importInto(path("before"), path("earlier"));
    startOver();
    importInto(path("lib"), path("card"));
    m_whole = cyclesIn(path("lib"));
    QCOMPARE(m_whole.size(), 3);
    startOver();
}

void TestImportFaults::startOver()
{
    QDir(path("lib")).removeRecursively();
    std::filesystem::copy(path("before").toStdString(), path("lib").toStdString(),
                          std::filesystem::copy_options::recursive);
}

/// What is in the archive under a final name and was never on a card.
QString TestImportFaults::wrong() const
{
    const CardContent earlier = recordFiles(path("earlier"));
    for (const auto& [place, bytes] : recordFiles(path("lib"))) {
        const QString name = place.section('/', -1);
        if (place.startsWith(".incoming/"))
            continue;
        const auto old = earlier.find(name);
        if (bytes != m_card.at(name) && (old == earlier.end() || bytes != old->second))
            return place;
    }
    return recordFiles(path("card")) == m_card ? QString() : "the card was changed";
}

void TestImportFaults::complete()
{
    const ImportResult result = importInto(path("lib"), path("card"));
    QVERIFY2(result.isComplete() && result.safe() == 6, qPrintable(told(result)));
    QCOMPARE(cyclesIn(path("lib")).join('\n'), m_whole.join('\n'));
    QCOMPARE(recordFiles(path("lib")).size(), 7U);
    QCOMPARE(QDir(path("lib/.incoming")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList());
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    QVERIFY(checkArchive(archive).isSound());
}

void TestImportFaults::killedAtAnyCall()
{
    int n = 0;
    int status = killed;
    for (; status == killed; ++n) {
        startOver();
        status = statusOf(inChild([&] {
            fault = {-1, 0, false, nullptr};
            countdown = n + 1;
            importInto(path("lib"), path("card"));
        }));
        QCOMPARE(wrong(), QString());
        complete();
        if (QTest::currentTestFailed()) {
            qWarning("killed at call %d", n + 1);
            return;
        }
    }
    QCOMPARE(status, 0);
    QVERIFY2(n > 100, qPrintable(QString::number(n)));
}

void TestImportFaults::eachFaultIsTold_data()
{
    const Rows<int, int> row("call", "error");
    row("open", Open, EACCES);
    row("read", Read, EIO);
    row("write", Write, ENOSPC);
    row("sync", Sync, EIO);
    row("rename", Rename, EIO);
    row("folders", MakeFolder, ENOSPC);
}

void TestImportFaults::eachFaultIsTold()
{
    QFETCH(int, call);
    QFETCH(int, error);
    for (const bool isLasting : {false, true}) {
        int n = 0;
        do {
            startOver();
            hits = 0;
            fault = {call, error, isLasting, nullptr};
            n += isLasting ? 5 : 1; // what follows a lasting one is much alike
            countdown = n;
            const ImportResult result = importInto(path("lib"), path("card"));
            countdown = 0;
            const QByteArray what = QStringLiteral("number %1, lasting %2: %3")
                                        .arg(n)
                                        .arg(isLasting)
                                        .arg(told(result))
                                        .toUtf8();
            QVERIFY2(wrong().isEmpty(), what);
            // What it calls safe is there, and what it calls complete is.
            CardContent present;
            for (const auto& [place, bytes] : recordFiles(path("lib"))) {
                const QString name = place.section('/', -1);
                if (!place.startsWith(".incoming/") && bytes == m_card.at(name))
                    present[name] = bytes;
            }
            QVERIFY2(static_cast<int>(present.size()) >= result.safe(), what);
            QVERIFY2(!result.isComplete() || cyclesIn(path("lib")) == m_whole, what);
            QVERIFY2(result.isComplete() || !told(result).isEmpty(), what);
            complete();
            QVERIFY2(!QTest::currentTestFailed(), what);
        } while (hits > 0);
        QVERIFY2(n > 1, "the call is never made");
    }
}

void TestImportFaults::diskThatLies()
{
    // Five files are new: the last is there already.
    for (int n = 1; n <= 5; ++n) {
        startOver();
        lie = n;
        const ImportResult result = importInto(path("lib"), path("card"));
        QCOMPARE(lie, 0);
        QVERIFY2(result.failed.size() == 1 && result.safe() == 5, qPrintable(told(result)));
        QCOMPARE(wrong(), QString());
        complete();
    }
}

void TestImportFaults::fullDisk()
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit little{200, usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    const ImportResult result = importInto(path("lib"), path("card"));
    setrlimit(RLIMIT_FSIZE, &usual);
    QVERIFY(!result.isComplete() && !result.error.isEmpty());
    QCOMPARE(result.safe() + result.failed.size(), 6);
    QCOMPARE(wrong(), QString());
    complete();
}

void TestImportFaults::pulledCard()
{
    Archive archive;
    QVERIFY(archive.open(path("lib")));
    CardImport import(archive, path("card"));
    const ImportResult result = import.run([&](const ImportProgress& progress) {
        if (progress.filesDone == 3)
            QDir().rename(path("card"), path("pulled"));
    });
    QVERIFY(QDir().rename(path("pulled"), path("card")));
    QVERIFY(!result.failed.isEmpty() && result.safe() >= 3);
    QCOMPARE(result.safe() + result.failed.size(), 6);
    QCOMPARE(wrong(), QString());
    QVERIFY(checkArchive(archive).isSound());
    complete();
}

void TestImportFaults::severalImportersAtOnce()
{
    // Each sees two thirds of the card.
    std::vector<pid_t> children;
    for (int part = 0; part < 3; ++part) {
        CardContent content;
        int number = 0;
        for (const auto& file : m_card) {
            if (number++ % 3 != part)
                content.insert(file);
        }
        const QString card = path("part" + QString::number(part));
        QVERIFY(writeCard(card, content));
        children.push_back(inChild([&] {
            pauseMicroseconds = 3000;
            const ImportResult result = importInto(path("lib"), card);
            _exit(result.isComplete() && result.safe() == static_cast<int>(content.size()) ? 0 : 1);
        }));
    }
    for (const pid_t child : children)
        QCOMPARE(statusOf(child), 0);
    QCOMPARE(cyclesIn(path("lib")).join('\n'), m_whole.join('\n'));
    QCOMPARE(recordFiles(path("lib")).size(), 7U);
    complete();
}

QTEST_GUILESS_MAIN(TestImportFaults)
#include "tst_importfaults.moc"

#include "app/project/Project.h"
#include "app/settings/DataPaths.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/SettingsStore.h"
#include "export/ExportFile.h"
#include "tests/export/ExportSupport.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <map>
#include <sys/resource.h>
#include <unistd.h>

// System calls that fail on request. Being part of the executable, they take precedence over those
// of the C library, also for Qt.
namespace {

enum Call { Open, Write, Sync, Rename, CallCount };

struct Fault
{
    Call call = CallCount;
    int countdown = 0; ///< which call fails: 1 is the next
    int error = 0;     ///< 0: the write is partial
    bool isLasting = false;
    int hits = 0;
} fault;

bool fails(Call call)
{
    if (fault.call != call || --fault.countdown > 0 || (fault.countdown < 0 && !fault.isLasting))
        return false;
    ++fault.hits;
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
        return fails(Open) ? -1 : real(path, flags, mode);                                         \
    }
KOLT_OPEN(open)
KOLT_OPEN(open64)

ssize_t write(int file, const void* bytes, size_t size)
{
    static auto* const real = systemCall<ssize_t(int, const void*, size_t)>("write");
    if (!fails(Write))
        return real(file, bytes, size);
    return fault.error == 0 ? real(file, bytes, size / 2) : -1;
}

int fsync(int file)
{
    static auto* const real = systemCall<int(int)>("fsync");
    return fails(Sync) ? -1 : real(file);
}

int rename(const char* from, const char* to)
{
    static auto* const real = systemCall<int(const char*, const char*)>("rename");
    return fails(Rename) ? -1 : real(from, to);
}
}

using namespace KOLT;
using namespace KOLT::Test;

/// Whichever system call fails while a file is being replaced, either the old or the new file is
/// there.
class TestWriteFaults : public QObject, private ExportFixture
{
    Q_OBJECT

private slots:
    void initTestCase();
    void eachFaultOfEachWriter_data();
    void eachFaultOfEachWriter();

    void fullDisk_data() { eachFaultOfEachWriter_data(); }

    void fullDisk();

private:
    struct Writer
    {
        QString path;
        QByteArray former;
        std::function<bool()> write;
    };

    std::map<QByteArray, Writer> writers();
    void prepare(const Writer& writer) const;
    QString leftBehind(const Writer& writer) const;
    bool isOldOrNew(const Writer& writer, bool isWritten, const QByteArray& expected) const;

    QTemporaryDir m_home;
    DiagnosticsCapture m_output;
    Project m_project;
};

void TestWriteFaults::initTestCase()
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    QVERIFY(load());
    fly(0.0, 300.0);
    m_project.setProfile(&m_profile);
    QVERIFY(writeFile(m_directory.filePath("new.xml"), newProfile));
}

std::map<QByteArray, TestWriteFaults::Writer> TestWriteFaults::writers()
{
    const QString data = QFile::decodeName(DataPaths::instance().dataPath());
    const auto exporter = [this](const QString& path, const auto& write) {
        return Writer{path, "former", [path, write] {
                          return exportToFile(path, write).status == ExportStatus::Done;
                      }};
    };
    return {
        {"settings",
         {data + "/KOLT.ini", "<KOLT><Property id=\"other\" value=\"1\"/></KOLT>",
          [data] {
              SettingsStore store;
              store.setFileName(QFile::encodeName(data + "/KOLT.ini"));
              store.load();
              store.setText("Unit", "1");
              return store.save();
          }}},
        {"project",
         {data + "/CurrentProject.xml", "former",
          [this, data] {
              m_project.write(data + "/CurrentProject.xml");
              return bool{m_project.lastWrite()};
          }}},
        {"profile",
         {InstalledProfile::path(), "former",
          [this] {
              return InstalledProfile::replaceWith(m_directory.filePath("new.xml")) ==
                     InstalledProfile::Result::Installed;
          }}},
        {"csv", exporter(data + "/out.csv",
                         [this](QIODevice& to) {
                             return CsvWriter(m_profile, *m_dataSet, {}).write(to);
                         })},
        {"kml",
         exporter(data + "/out.kml",
                  [this](QIODevice& to) { return writeKml(to, m_profile, *m_dataSet, {}, "T"); })},
        {"gpx",
         exporter(data + "/out.gpx",
                  [this](QIODevice& to) { return writeGpx(to, m_profile, *m_dataSet, {}, "T"); })},
        {"by a library",
         {data + "/out.sqlite", "former",
          [data] {
              return bool{replaceFileAt(data + "/out.sqlite", [](const QString& temporary) {
                  QFile file(temporary);
                  const bool isWritten = file.open(QIODevice::WriteOnly) &&
                                         file.write("all of it") > 0 && file.flush();
                  return isWritten ? QString() : file.errorString();
              })};
          }}},
        {"small sheet",
         {data + "/sheet.csv", "former",
          [data] { return bool{replaceFile(data + "/sheet.csv", "few\n")}; }}},
        {"picture",
         {data + "/picture.bmp", "former",
          [data] { return bool{replaceFile(data + "/picture.bmp", QByteArray(100'000, 'p'))}; }}},
    };
}

void TestWriteFaults::prepare(const Writer& writer) const
{
    QDir folder = QFileInfo(writer.path).dir();
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
        folder.remove(name);
    QVERIFY(writeFile(writer.path, writer.former));
}

/// Other files in the folder, except for a copy of the old one.
QString TestWriteFaults::leftBehind(const Writer& writer) const
{
    const QDir folder = QFileInfo(writer.path).dir();
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        const bool isCopy = (name.endsWith(".bak") || name.endsWith(".broken")) &&
                            readFile(folder.filePath(name)) == writer.former;
        if (folder.filePath(name) != writer.path && !isCopy)
            return name;
    }
    return {};
}

bool TestWriteFaults::isOldOrNew(const Writer& writer, bool isWritten,
                                 const QByteArray& expected) const
{
    // Unreadable settings are moved aside before new ones are written, if that works.
    const bool isAside = readFile(writer.path + ".broken") == writer.former;
    const QByteArray content = readFile(writer.path);
    return isWritten ? content == expected || (isAside && !content.isEmpty())
                     : content == writer.former || (isAside && !QFile::exists(writer.path));
}

void TestWriteFaults::eachFaultOfEachWriter_data()
{
    const Rows<QByteArray> row;
    for (const auto& [name, writer] : writers())
        row(name, name);
}

void TestWriteFaults::eachFaultOfEachWriter()
{
    const auto [name] = fetchRow<QByteArray>();
    const Writer writer = writers().at(name);
    prepare(writer);
    QVERIFY(writer.write());
    const QByteArray expected = readFile(writer.path);
    QVERIFY(!expected.isEmpty() && expected != writer.former && leftBehind(writer).isEmpty());
    for (int call = 0; call < CallCount; ++call) {
        for (const int error : {ENOSPC, EIO, EACCES, EINTR, 0}) {
            const bool isPartial = error == 0;
            if ((isPartial && call != Write) || (error == EINTR && call == Rename))
                continue;
            for (const bool isLasting : {false, true}) {
                if (isLasting && (isPartial || error == EINTR))
                    continue; // retried until it works
                int n = 0;
                do {
                    prepare(writer);
                    fault = {static_cast<Call>(call), ++n, error, isLasting, 0};
                    const bool isWritten = writer.write();
                    fault.call = CallCount;
                    const QString what = QStringLiteral("call %1, number %2: %3, lasting %4, %5")
                                             .arg(call)
                                             .arg(n)
                                             .arg(QString(std::strerror(error)))
                                             .arg(isLasting)
                                             .arg(isWritten ? "written" : "not written");
                    QVERIFY2(isOldOrNew(writer, isWritten, expected), qPrintable(what));
                    QVERIFY2(leftBehind(writer).isEmpty(),
                             qPrintable(what + ", left: " + leftBehind(writer)));
                    const bool isHarmless = isPartial || error == EINTR || fault.hits == 0;
                    QVERIFY2(isWritten || !isHarmless, qPrintable(what));
                    // Errors that matter must be reported.
                    if (call == Write && !isHarmless && name != "settings")
                        QVERIFY2(!isWritten, qPrintable(what));
                    if (call == Sync && !isHarmless)
                        QVERIFY2(!isWritten, qPrintable(what));
                } while (fault.hits > 0);
                QVERIFY2(n > 1, "the call is never made");
            }
        }
    }
}

void TestWriteFaults::fullDisk()
{
    const auto [name] = fetchRow<QByteArray>();
    const Writer writer = writers().at(name);
    prepare(writer);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit none{0, usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
    const bool isWritten = writer.write();
    setrlimit(RLIMIT_FSIZE, &usual);
    QVERIFY(!isWritten);
    QCOMPARE(readFile(writer.path), writer.former);
    QCOMPARE(leftBehind(writer), QString());
}

QTEST_GUILESS_MAIN(TestWriteFaults)
#include "tst_writefaults.moc"

#include "app/LibraryOpener.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QInputDialog>
#include <QProgressDialog>
#include <QTimer>

namespace KOLT {

using namespace Library;

namespace {

constexpr int patienceMilliseconds = 200; // before progress is shown
constexpr int tickMilliseconds = 20;
constexpr int restMilliseconds = 60'000;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibraryOpener)
};

} // namespace

LibraryOpener::~LibraryOpener()
{
    if (m_thread.joinable())
        m_thread.join();
}

bool LibraryOpener::isResting() const
{
    return m_sinceSilence.isValid() && m_sinceSilence.elapsed() < restMilliseconds;
}

bool LibraryOpener::open(LibraryDatabase& database, const LibraryAddress& address)
{
    if (m_isOpening)
        return false;
    m_isOpening = true;
    m_error.clear();
    const bool isOpen = (!address.isServer() || !LibraryDatabase::hasServers() || reach(address)) &&
                        connect(database, address);
    m_isOpening = false;
    return isOpen;
}

/// The toolkit's connection belongs to the thread that opens it. So another one is tried before, in
/// a thread of its own.
bool LibraryOpener::reach(const LibraryAddress& address)
{
    if (m_thread.joinable())
        m_thread.join(); // of an attempt that was cancelled
    m_isDone = false;
    m_thread = std::thread([this, address] {
        m_found = LibraryDatabase::silence(address);
        m_isDone = true;
    });
    QProgressDialog dialog(
        Text::tr("Waiting for the server of the library, %1").arg(address.shown()),
        Text::tr("Cancel"), 0, 0, &m_window);
    dialog.setWindowTitle(Text::tr("Library"));
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(patienceMilliseconds);
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (m_isDone || dialog.wasCanceled())
            loop.quit();
    });
    dialog.setValue(0); // shows it after a while
    timer.start(tickMilliseconds);
    loop.exec();
    if (!m_isDone) {
        m_error =
            Text::tr("The server of the library %1 has not answered yet").arg(address.shown());
    } else {
        m_thread.join();
        m_error = m_found;
    }
    if (m_error.isEmpty())
        m_sinceSilence.invalidate();
    else
        m_sinceSilence.start();
    return m_error.isEmpty();
}

bool LibraryOpener::connect(LibraryDatabase& database, const LibraryAddress& address)
{
    bool isAgain = false;
    const auto prompt = [&](const QString& server) -> std::optional<QString> {
        const QString text = isAgain ? Text::tr("This password was not accepted. Password of %1:")
                                     : Text::tr("Password of %1:");
        isAgain = true;
        bool isGiven = false;
        const QString password = QInputDialog::getText(
            &m_window, Text::tr("Library"), text.arg(server), QLineEdit::Password, {}, &isGiven);
        return isGiven ? std::optional(password) : std::nullopt;
    };
    if (database.open(address, LibraryDatabase::Access::Create, prompt))
        return true;
    // All of it can be made again from the archive.
    if (database.status() == LibraryDatabase::Status::Damaged && database.recreate(address, prompt))
        return true;
    m_error = database.error();
    return false;
}

} // namespace KOLT

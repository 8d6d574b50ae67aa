#pragma once

#include "library/database/LibraryDatabase.h"

#include <QElapsedTimer>

#include <atomic>
#include <thread>

class QWidget;

namespace KOLT {

/// Opens the database of the user's library for the window: asks for the password of a server, and
/// waits for one that does not answer with progress in place of a window that stands still.
class LibraryOpener
{
public:
    explicit LibraryOpener(QWidget& window)
        : m_window(window)
    {
    }

    /// Waits for a server that is still being tried.
    ~LibraryOpener();
    LibraryOpener(const LibraryOpener&) = delete;
    LibraryOpener& operator=(const LibraryOpener&) = delete;

    /// False on failure, of which error() tells the reason, and during another call of it. With a
    /// server it processes events.
    bool open(Library::LibraryDatabase& database, const Library::LibraryAddress& address);

    const QString& error() const { return m_error; }

    bool isOpening() const { return m_isOpening; }

    /// A server did not answer a short time ago: who is not asked by the user had better not wait
    /// for it again.
    bool isResting() const;

private:
    bool reach(const Library::LibraryAddress& address);
    bool connect(Library::LibraryDatabase& database, const Library::LibraryAddress& address);

    QWidget& m_window;
    QString m_error;
    bool m_isOpening = false;
    QElapsedTimer m_sinceSilence; ///< valid while the last server did not answer
    std::thread m_thread;
    std::atomic_bool m_isDone = false;
    QString m_found; ///< by the thread
};

} // namespace KOLT

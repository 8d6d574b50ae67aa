#pragma once

#include "library/archive/CardImport.h"

#include <QObject>

#include <thread>

namespace KOLT::Library {

/// Runs an import in a thread of its own. All signals come in the thread of this object.
class ImportRunner : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    /// Like end().
    ~ImportRunner() override;

    /// Lists the card, which processes events, and begins. Nothing happens while one is running.
    void start(const Archive& archive, const QString& card);

    void cancel();

    /// Cancels, and waits; there are no signals any more, and no import begins. May be called from
    /// the events that are processed while a card is listed.
    void end();

    bool isRunning() const { return m_isRunning; }

signals:
    void signalProgress(const KOLT::Library::ImportProgress& progress);
    void signalCycleChanged(const KOLT::Library::ArchivedCycle& cycle);
    void signalCycleRemoved(const QString& folder);
    void signalFinished(const KOLT::Library::ImportResult& result);

private:
    void run();
    void finish(const ImportResult& result);

    std::unique_ptr<CardImport> m_import;
    std::thread m_thread;
    bool m_isRunning = false;
    bool m_isCancelled = false; ///< while the card is listed
    bool m_hasEnded = false;
};

} // namespace KOLT::Library

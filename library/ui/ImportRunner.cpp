#include "library/ui/ImportRunner.h"

#include "ui/EventPump.h"

namespace KOLT::Library {

ImportRunner::~ImportRunner()
{
    end();
}

void ImportRunner::end()
{
    m_hasEnded = true;
    blockSignals(true);
    cancel();
    if (m_thread.joinable())
        m_thread.join();
}

void ImportRunner::start(const Archive& archive, const QString& card)
{
    if (m_isRunning || m_hasEnded)
        return;
    m_isRunning = true;
    m_isCancelled = false;
    EventPump events;
    m_import = std::make_unique<CardImport>(archive, card, [&] { events.tick(); });
    if (m_hasEnded) {
        finish({});
        return;
    }
    if (m_isCancelled)
        m_import->cancel();
    m_thread = std::thread([this] { run(); });
}

void ImportRunner::cancel()
{
    m_isCancelled = true;
    if (m_import != nullptr)
        m_import->cancel();
}

void ImportRunner::run()
{
    const auto tell = [this](auto function) {
        QMetaObject::invokeMethod(this, function, Qt::QueuedConnection);
    };
    ArchiveListener listener;
    listener.cycleChanged = [&](const ArchivedCycle& cycle) {
        tell([this, cycle] { emit signalCycleChanged(cycle); });
    };
    listener.cycleRemoved = [&](const QString& folder) {
        tell([this, folder] { emit signalCycleRemoved(folder); });
    };
    const ImportResult result = m_import->run(
        [&](const ImportProgress& progress) {
            tell([this, progress] { emit signalProgress(progress); });
        },
        listener);
    tell([this, result] { finish(result); });
}

void ImportRunner::finish(const ImportResult& result)
{
    if (m_thread.joinable())
        m_thread.join();
    m_import.reset();
    m_isRunning = false;
    emit signalFinished(result);
}

} // namespace KOLT::Library

#pragma once

#include "library/archive/ArchivedCycle.h"

#include <QObject>

class QWidget;

namespace KOLT {

class CardSession;
class SettingsStore;

namespace Library {
class DialogImport;
}

/// The import of cards into the library: its window, and where the library lies.
///
/// The arguments must outlive the session.
class ImportSession : public QObject
{
    Q_OBJECT

public:
    ImportSession(SettingsStore& settings, const CardSession& card, QWidget& window);
    /// Cancels a running import and waits for it.
    ~ImportSession() override;

    /// Shows the window, with the open card.
    void open();

signals:
    /// The archive has another state of this cycle, or has it no more.
    void signalCycleChanged(const KOLT::Library::ArchivedCycle& cycle);
    void signalCycleRemoved(const QString& folder);
    /// For the status bar.
    void signalMessage(const QString& message);

private:
    QString proposedCard() const;

    SettingsStore& m_settings;
    const CardSession& m_card;
    QWidget& m_window;
    Library::DialogImport* m_dialog = nullptr;
};

} // namespace KOLT

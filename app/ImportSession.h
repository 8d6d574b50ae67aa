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
    /// Like end().
    ~ImportSession() override;

    /// Shows the window, with the open card.
    void open();

    /// Cancels a running import, waits for it, and lets none begin. The window stays alive, as its
    /// own work, or a dialog on it, may be what closes the program.
    void end();

    bool isRunning() const;

signals:
    /// The archive of the settings has another state of this cycle, or has it no more. An archive
    /// that the user has left meanwhile is not told of: its next import catches up.
    void signalCycleChanged(const KOLT::Library::ArchivedCycle& cycle);
    void signalCycleRemoved(const QString& folder);
    /// An import has ended, or was taken back: the archive changes no more.
    void signalChanged();
    /// For the status bar.
    void signalMessage(const QString& message);

private:
    QString proposedCard() const;
    void connectRunner();
    bool isOfSettings() const;

    SettingsStore& m_settings;
    const CardSession& m_card;
    QWidget& m_window;
    Library::DialogImport* m_dialog = nullptr;
    QString m_archive; ///< that the dialog works on
};

} // namespace KOLT

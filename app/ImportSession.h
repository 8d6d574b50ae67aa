#pragma once

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
    /// An import, or one that was taken back, has changed what the archive has.
    void signalArchiveChanged();
    /// For the status bar.
    void signalMessage(const QString& message);

private:
    QString proposedCard() const;
    void noteChange();
    void tellChange();

    SettingsStore& m_settings;
    const CardSession& m_card;
    QWidget& m_window;
    Library::DialogImport* m_dialog = nullptr;
    bool m_isChanged = false;
};

} // namespace KOLT

#include "app/ImportSession.h"

#include "app/CardSession.h"
#include "app/SettingsSaver.h"
#include "app/settings/KnownLibraries.h"
#include "app/settings/LibrarySettingsStore.h"
#include "base/WriteGuard.h"
#include "library/ui/DialogImport.h"

namespace KOLT {

ImportSession::ImportSession(SettingsStore& settings, const CardSession& card, QWidget& window)
    : m_settings(settings)
    , m_card(card)
    , m_window(window)
{
}

ImportSession::~ImportSession()
{
    delete m_dialog;
}

void ImportSession::open()
{
    if (m_dialog == nullptr) {
        m_dialog = new Library::DialogImport(&m_window);
        connect(m_dialog, &Library::DialogImport::signalMessage, this,
                &ImportSession::signalMessage);
        connect(m_dialog, &Library::DialogImport::signalSettings, this,
                [this](const Library::ArchiveSettings& settings) {
                    m_archive = settings.folder;
                    Library::LibraryAddress address = loadLibraryAddress(m_settings);
                    address.archive = settings.folder;
                    storeLibraryAddress(address, m_settings);
                    rememberLibrary(settings.folder);
                    saveSettings(m_dialog);
                });
        connectRunner();
    }
    m_dialog->open({loadLibraryAddress(m_settings).archive}, proposedCard());
}

void ImportSession::end()
{
    if (m_dialog == nullptr)
        return;
    m_dialog->runner().end();
    m_dialog->hide();
}

bool ImportSession::isRunning() const
{
    return m_dialog != nullptr && m_dialog->runner().isRunning();
}

bool ImportSession::isOfSettings() const
{
    return loadLibraryAddress(m_settings).archive == m_archive;
}

void ImportSession::connectRunner()
{
    Library::ImportRunner& runner = m_dialog->runner();
    connect(&runner, &Library::ImportRunner::signalCycleChanged, this,
            [this](const Library::ArchivedCycle& cycle) {
                if (isOfSettings())
                    emit signalCycleChanged(cycle);
            });
    connect(&runner, &Library::ImportRunner::signalCycleRemoved, this,
            [this](const QString& folder) {
                if (isOfSettings())
                    emit signalCycleRemoved(folder);
            });
    connect(m_dialog, &Library::DialogImport::signalChanged, this, [this] {
        if (isOfSettings())
            emit signalChanged();
    });
}

/// A cycle of the library that is open is no card.
QString ImportSession::proposedCard() const
{
    const CardContainer& card = m_card.container();
    const QString library = loadLibraryAddress(m_settings).archive;
    const bool isInLibrary = !library.isEmpty() && isBelow(library, card.folder());
    return card.files().empty() || isInLibrary ? QString() : card.folder();
}

} // namespace KOLT

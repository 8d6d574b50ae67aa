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
                    Library::LibraryAddress address = loadLibraryAddress(m_settings);
                    address.archive = settings.folder;
                    storeLibraryAddress(address, m_settings);
                    rememberLibrary(settings.folder);
                    saveSettings(m_dialog);
                });
        Library::ImportRunner& runner = m_dialog->runner();
        connect(&runner, &Library::ImportRunner::signalCycleChanged, this,
                &ImportSession::signalCycleChanged);
        connect(&runner, &Library::ImportRunner::signalCycleRemoved, this,
                &ImportSession::signalCycleRemoved);
    }
    m_dialog->open({loadLibraryAddress(m_settings).archive}, proposedCard());
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

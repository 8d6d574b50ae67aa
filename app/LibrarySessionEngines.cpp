// What the session shows of engines, and what people change in its windows.
#include "app/LibrarySession.h"
#include "app/settings/LibrarySettingsStore.h"
#include "library/ledger/LedgerText.h"
#include "library/ui/EngineWindow.h"
#include "library/ui/InstallationsWindow.h"
#include "ui/Messages.h"

#include <QInputDialog>

#include <type_traits>

namespace KOLT {

using namespace Library;

template <typename Item>
void LibrarySession::save(Item item)
{
    const Logbook::Saved saved = Logbook(m_archive.root()).save(item);
    if (!saved)
        Messages::warn(&m_window, saved.error);
    else if (!saved.replaced.isEmpty())
        Messages::inform(&m_window, tr("This had been changed meanwhile by %1. Your text is kept, "
                                       "as it is the later one.")
                                        .arg(saved.replaced));
    if (m_database == nullptr) // it was closed while the user wrote
        return;
    if constexpr (std::is_same_v<Item, WrittenInstallation>)
        takeInstallations();
    notesChanged();
    if constexpr (std::is_same_v<Item, WrittenInstallation> || std::is_same_v<Item, AircraftName>)
        showPage();
}

EngineWindow& LibrarySession::engineWindow()
{
    if (m_engine != nullptr)
        return *m_engine;
    m_engine = new EngineWindow(&m_window);
    connect(m_engine, &EngineWindow::signalEngine, this, &LibrarySession::showLedger);
    connect(m_engine, &EngineWindow::signalOpen, this, &LibrarySession::openCycle);
    connect(m_engine, &EngineWindow::signalLimit, this,
            [this](const MaintenanceLimit& limit) { save(limit); });
    connect(m_engine, &EngineWindow::signalNote, this, [this](const Note& note) { save(note); });
    connect(m_engine, &EngineWindow::signalFacts, this, [this](EngineFacts facts) {
        if (const EngineFacts* const known = m_written.factsOf(facts.engine))
            facts.item = known->item;
        save(facts);
    });
    connect(m_engine, &EngineWindow::signalInstallations, this, &LibrarySession::showInstallations);
    return *m_engine;
}

void LibrarySession::showEngine(const QString& engine)
{
    const bool isOpen = open();
    EngineWindow& window = engineWindow();
    if (isOpen)
        listEngines(engine);
    else
        showNoEngine();
    window.show();
    window.raise();
    window.activateWindow();
}

/// Of these, shows the given engine or else the first one.
void LibrarySession::listEngines(const QString& engine)
{
    EngineWindow& window = engineWindow();
    const auto engines = LibraryQueries(*m_database).engines();
    QStringList names;
    for (const EngineRow& row : engines.value)
        names << row.engine;
    window.setEngines(names);
    if (!engines)
        window.showNote(engines.error);
    else if (names.isEmpty())
        window.showNote(tr("The library has no recordings yet. Import a card."));
    else
        showLedger(names.contains(engine) ? engine : names.constFirst());
}

void LibrarySession::refreshEngine()
{
    if (m_engine != nullptr && m_engine->isVisible())
        listEngines(m_engine->engine());
}

/// There is no library any more, and m_absence says why.
void LibrarySession::showNoEngine()
{
    if (m_installations != nullptr)
        m_installations->close();
    if (m_engine == nullptr)
        return;
    m_engine->setEngines({});
    m_engine->showNote(m_absence);
}

void LibrarySession::showLedger(const QString& engine)
{
    read();
    const QDate today = QDate::currentDate();
    const auto ledger = engineLedger(*m_database, m_written, engine, today);
    if (ledger && ledger.value)
        engineWindow().setLedger(*ledger.value, today);
    else
        engineWindow().showNote(ledger ? tr("The library has no recording of this engine.")
                                       : ledger.error);
}

QString LibrarySession::reportSection(const QStringList& engines)
{
    const bool isChosen = !loadLibraryAddress(m_settings).archive.isEmpty();
    if (!isChosen || !openQuietly())
        return {};
    read();
    QString html;
    for (const QString& engine : engines) {
        const QDate today = QDate::currentDate();
        const auto ledger = engineLedger(*m_database, m_written, engine, today);
        if (ledger && ledger.value)
            html += ledgerHtml(*ledger.value, today);
    }
    return html;
}

void LibrarySession::nameAircraft(quint32 unit)
{
    bool isAccepted = false;
    const QString name =
        QInputDialog::getText(&m_window, tr("Name of the Aircraft"),
                              tr("Name of the aircraft with unit %1:").arg(unit), QLineEdit::Normal,
                              m_written.nameOf(unit), &isAccepted)
            .trimmed();
    if (!isAccepted)
        return;
    AircraftName aircraft;
    for (const AircraftName& known : m_written.aircraft) {
        if (known.unit == unit)
            aircraft = known;
    }
    aircraft.unit = unit;
    aircraft.name = name;
    save(aircraft);
}

void LibrarySession::showInstallations()
{
    if (!open()) {
        Messages::inform(&m_window, m_absence);
        return;
    }
    if (m_installations == nullptr) {
        m_installations = new InstallationsWindow(&m_window);
        connect(m_installations, &InstallationsWindow::signalInstallation, this,
                [this](const WrittenInstallation& installation) { save(installation); });
    }
    read();
    listInstallations();
    m_installations->show();
    m_installations->raise();
    m_installations->activateWindow();
}

void LibrarySession::listInstallations()
{
    if (m_installations == nullptr)
        return;
    LibraryQueries queries(*m_database);
    QStringList engines;
    QStringList units;
    for (const EngineRow& row : queries.engines().value)
        engines << row.engine;
    for (const UnitRow& row : queries.units().value)
        units << QString::number(row.unit);
    engines.removeAll(QString());
    m_installations->setInstallations(m_written.installations, engines, units);
}

} // namespace KOLT

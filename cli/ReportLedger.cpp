#include "cli/ReportLedger.h"

#include "base/Diagnostics.h"
#include "cli/Arguments.h"
#include "cli/Json.h"
#include "cli/LibraryDatabaseVerbs.h"
#include "library/ledger/LedgerText.h"

#include <QJsonObject>

namespace KOLT::Cli {

using namespace Library;

namespace {

QString key(const char* name)
{
    return QLatin1String(name);
}

QJsonValue jsonDate(const QDate& date)
{
    return date.isValid() ? QJsonValue(date.toString(Qt::ISODate)) : QJsonValue(QJsonValue::Null);
}

QString stateName(DueState state)
{
    return state == DueState::Overdue ? key("overdue")
           : state == DueState::Soon  ? key("soon")
                                      : key("ok");
}

QJsonObject jsonLimit(const MaintenanceState& state)
{
    return {{key("title"), state.limit.title},
            {key("everyHours"), orNull(state.limit.everyHours)},
            {key("everyMonths"), orNull(state.limit.everyMonths)},
            {key("lastHours"), state.limit.lastHours},
            {key("lastDate"), jsonDate(state.limit.lastDate)},
            {key("dueHours"), orNull(state.dueHours)},
            {key("hoursLeft"), orNull(state.hoursLeft)},
            {key("dueDate"), jsonDate(state.dueDate)},
            {key("expected"), jsonDate(state.expected)},
            {key("state"), stateName(state.state)}};
}

QJsonObject jsonLedger(const EngineLedger& ledger)
{
    QJsonArray units;
    for (const quint32 unit : ledger.engine.units)
        units.append(qint64{unit});
    QJsonArray limits;
    for (const MaintenanceState& state : ledger.limits)
        limits.append(jsonLimit(state));
    const LibrarySums& sums = ledger.engine.sums;
    const CountedUse& hours = ledger.use.hours;
    return {{key("engine"), ledger.engine.engine},
            {key("units"), units},
            {key("first"), jsonDate(ledger.engine.first)},
            {key("last"), jsonDate(ledger.engine.last)},
            {key("hours"), ledger.hours},
            {key("runSeconds"), sums.runSeconds},
            {key("starts"), sums.starts},
            {key("flights"), sums.flights},
            {key("airSeconds"), sums.airSeconds},
            {key("fuel"), sums.fuel},
            {key("episodes"), sums.episodes},
            {key("unitHours"), orNull(hours.last)},
            {key("unitStarts"), orNull(ledger.use.starts.last)},
            {key("missedHours"), hours.first ? QJsonValue(hours.missed()) : QJsonValue::Null},
            {key("limits"), limits}};
}

} // namespace

QString ReportLedger::open(const Arguments& arguments)
{
    if (arguments.library.isEmpty())
        return {};
    LibraryArguments library;
    library.library = arguments.library;
    library.archive = arguments.archive.isEmpty() ? arguments.library : arguments.archive;
    m_archive = library.archive;
    Archive archive;
    if (const QString error = openArchive(library, archive); !error.isEmpty())
        return error;
    return openDatabase(library, LibraryDatabase::Access::ReadOnly, m_database);
}

QString ReportLedger::read(const QStringList& engines, const QDate& today)
{
    m_today = today;
    if (!isOpen())
        return {};
    const Logbook::Contents written = Logbook(m_archive).read();
    for (const QString& engine : engines) {
        const auto ledger = engineLedger(m_database, written, engine, today);
        if (!ledger)
            return ledger.error.simplified();
        if (ledger.value)
            m_ledgers.push_back(*ledger.value);
        else
            Diagnostics::print("The library has no recording of engine %s\n",
                               qUtf8Printable(engine));
    }
    return {};
}

QString ReportLedger::html() const
{
    QString html;
    for (const EngineLedger& ledger : m_ledgers)
        html += ledgerHtml(ledger, m_today);
    return html;
}

QJsonArray ReportLedger::json() const
{
    QJsonArray ledgers;
    for (const EngineLedger& ledger : m_ledgers)
        ledgers.append(jsonLedger(ledger));
    return ledgers;
}

QByteArray ReportLedger::text() const
{
    QString text;
    for (const EngineLedger& ledger : m_ledgers) {
        text += QStringLiteral("\nLedger of engine %1\n").arg(ledger.engine.engine);
        constexpr int nameWidth = 22;
        for (const auto& [name, value] : ledgerFigures(ledger))
            text += QStringLiteral(" %1 %2\n").arg(name.leftJustified(nameWidth), value);
        for (const MaintenanceState& state : ledger.limits)
            text += QStringLiteral(" %1: %2, due %3, %4 left\n")
                        .arg(state.limit.title, dueStateText(state.state), dueText(state),
                             leftText(state, m_today));
    }
    return text.toUtf8();
}

} // namespace KOLT::Cli

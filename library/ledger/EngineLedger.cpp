#include "library/ledger/EngineLedger.h"

#include "library/database/QueryRows.h"

#include <algorithm>
#include <tuple>

namespace KOLT::Library {

namespace {

constexpr double secondsPerHour = 3600.0;
constexpr int rateDays = 90;

/// The hours of the engine. Without a counter in its units, what was recorded.
double engineHours(const EngineLedger& ledger, const EngineFacts* facts)
{
    const CountedUse& counter = ledger.use.hours;
    const double before =
        facts != nullptr && facts->hoursBefore ? *facts->hoursBefore : counter.first.value_or(0.0);
    return before + (counter.first ? counter.used : ledger.recordedHours());
}

Answer<double> rateOf(LibraryQueries& queries, const EngineLedger& ledger)
{
    if (!ledger.engine.last.isValid() || ledger.engine.sums.runSeconds <= 0.0)
        return {};
    const QDateTime from(ledger.engine.last.addDays(-rateDays), QTime(0, 0), Qt::UTC);
    const auto since = queries.engineSince(ledger.engine.engine, from);
    // An engine that is known for a short time is not expected to rest before and after it.
    const qint64 days =
        std::clamp<qint64>(ledger.engine.first.daysTo(ledger.engine.last) + 1, 7, rateDays);
    const double missedPart =
        ledger.use.hours.recorded > 0.0 ? ledger.use.hours.used / ledger.use.hours.recorded : 1.0;
    return {since.value.runSeconds / secondsPerHour / static_cast<double>(days) * missedPart,
            since.error};
}

/// What is overdue first, then by what is left of the interval.
double partLeft(const MaintenanceState& state, const QDate& today)
{
    double part = 1.0;
    if (state.hoursLeft && state.limit.everyHours)
        part = std::min(part, *state.hoursLeft / *state.limit.everyHours);
    if (state.dueDate.isValid()) {
        const auto interval = static_cast<double>(state.limit.lastDate.daysTo(state.dueDate));
        part = std::min(part, static_cast<double>(today.daysTo(state.dueDate)) / interval);
    }
    return part;
}

std::vector<MaintenanceState> statesOf(const EngineLedger& ledger,
                                       const std::vector<MaintenanceLimit>& limits,
                                       const QDate& today)
{
    std::vector<MaintenanceState> states;
    for (const MaintenanceLimit& limit : limits)
        states.push_back(maintenanceState(limit, ledger.hours, ledger.hoursPerDay, today));
    std::ranges::stable_sort(states, [&](const MaintenanceState& a, const MaintenanceState& b) {
        return partLeft(a, today) < partLeft(b, today);
    });
    return states;
}

/// The engine that a note is about: as the library says of the recording, if people have said
/// which engine was in the unit.
QString engineOf(LibraryDatabase& database, const Note& note)
{
    if (note.about == Note::About::Engine)
        return note.engine;
    const auto found =
        rowsOf<QString>(database,
                        QStringLiteral("SELECT c.engine FROM cycle c JOIN file f ON f.cycle = c.id "
                                       "WHERE f.sha256 = ? AND f.name = ?"),
                        {note.place.fileSha256, note.place.fileName},
                        [](const QSqlQuery& query) { return query.value(0).toString(); });
    return found && !found.value.empty() ? found.value.front() : note.engine;
}

std::vector<Note> notesOf(LibraryDatabase& database, const Logbook::Contents& written,
                          const QString& engine)
{
    const bool isSaid = !written.installations.empty();
    std::vector<Note> notes;
    std::ranges::copy_if(written.notes, std::back_inserter(notes), [&](const Note& note) {
        return (isSaid ? engineOf(database, note) : note.engine) == engine;
    });
    std::ranges::stable_sort(notes, [](const Note& a, const Note& b) {
        return std::tie(b.item.changed, b.item.id) < std::tie(a.item.changed, a.item.id);
    });
    return notes;
}

} // namespace

DueState EngineLedger::state() const
{
    DueState worst = DueState::Ok;
    for (const MaintenanceState& limit : limits)
        worst = std::max(worst, limit.state);
    return worst;
}

Answer<std::optional<EngineLedger>> engineLedger(LibraryDatabase& database,
                                                 const Logbook::Contents& written,
                                                 const QString& engine, const QDate& today)
{
    LibraryQueries queries(database);
    const auto row = queries.engine(engine);
    if (!row || !row.value)
        return {{}, row.error};
    EngineLedger ledger;
    ledger.engine = *row.value;
    const auto cycles = countedCycles(database, engine);
    const auto months = queries.months(engine);
    const auto episodes = queries.engineEpisodes(engine, ledgerEpisodes);
    for (const QString& error : {cycles.error, months.error, episodes.error}) {
        if (!error.isEmpty())
            return {{}, error};
    }
    ledger.use = engineUse(cycles.value, engine);
    ledger.months = months.value;
    ledger.episodes = episodes.value;
    ledger.hours = engineHours(ledger, written.factsOf(engine));
    const auto rate = rateOf(queries, ledger);
    if (!rate)
        return {{}, rate.error};
    ledger.hoursPerDay = rate.value;
    ledger.limits = statesOf(ledger, written.limitsOf(engine), today);
    ledger.notes = notesOf(database, written, engine);
    return {std::move(ledger), {}};
}

std::vector<Installation> installationsOf(const Logbook::Contents& written)
{
    std::vector<Installation> installations;
    for (const WrittenInstallation& one : written.installations)
        installations.push_back({one.engine, one.unit, one.from, one.to});
    return installations;
}

namespace {

/// Of the cycle with the file that a note is about: the very file, of which another cycle may have
/// the same content under another name; or a longer version of one that was saved too early.
Answer<std::vector<QString>> foldersOf(LibraryDatabase& database, const NotePlace& place)
{
    const auto find = [&](const QString& condition, const QVariantList& values) {
        return rowsOf<QString>(
            database,
            QStringLiteral("SELECT DISTINCT c.folder FROM cycle c JOIN file f ON f.cycle = c.id "
                           "WHERE %1")
                .arg(condition),
            values, [](const QSqlQuery& query) { return query.value(0).toString(); });
    };
    const auto same =
        find(QStringLiteral("f.sha256 = ? AND f.name = ?"), {place.fileSha256, place.fileName});
    if (!same || !same.value.empty())
        return same;
    const auto renamed = find(QStringLiteral("f.sha256 = ?"), {place.fileSha256});
    if (!renamed || !renamed.value.empty() || !place.dateTime.isValid())
        return renamed;
    const QDate day = place.dateTime.date(); // the cycle may have begun before midnight
    return find(QStringLiteral("c.unit = ? AND f.name = ? AND c.day >= ? AND c.day <= ?"),
                {qint64{place.unit}, place.fileName, day.addDays(-1).toString(Qt::ISODate),
                 day.toString(Qt::ISODate)});
}

} // namespace

Answer<QStringList> notedFolders(LibraryDatabase& database, const std::vector<Note>& notes)
{
    Answer<QStringList> folders;
    for (const Note& note : notes) {
        if (note.place.fileSha256.isEmpty())
            continue;
        const auto found = foldersOf(database, note.place);
        if (!found)
            return {{}, found.error};
        folders.value << QStringList(found.value.begin(), found.value.end());
    }
    folders.value.removeDuplicates();
    return folders;
}

std::vector<LedgerBand> ledgerBands(const EngineRow& engine)
{
    std::vector<LedgerBand> bands;
    for (const BandTime& time : engine.bands) {
        if (bands.empty() || bands.back().quantity != time.quantity)
            bands.push_back({time.quantity, {}});
        bands.back().seconds.at(static_cast<std::size_t>(time.state)) += time.seconds;
    }
    std::ranges::stable_sort(bands, [](const LedgerBand& a, const LedgerBand& b) {
        return std::tuple(b.seconds[2], b.seconds[1]) < std::tuple(a.seconds[2], a.seconds[1]);
    });
    return bands;
}

} // namespace KOLT::Library

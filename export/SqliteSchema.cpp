#include "export/SqliteSchema.h"

#include <QColor>

#include <map>
#include <set>

namespace KOLT {

namespace {

constexpr std::size_t maxColumns = 500;
constexpr std::size_t maxUnion = 400; ///< SQLite refuses longer ones from 500 on

constexpr const char* fixedTables[] = {
    "info (key TEXT PRIMARY KEY, value TEXT)",
    "cycles (cycle INTEGER PRIMARY KEY, name TEXT, flight INTEGER, clock TEXT, start_seconds REAL, "
    "stop_seconds REAL, samples INTEGER)",
    "files (cycle INTEGER, position INTEGER, name TEXT, bus_type INTEGER, ecu_serial INTEGER, "
    "ecu_type TEXT, engine_serial TEXT, engine_type TEXT, is_complete INTEGER)",
    "units (unit TEXT, imperial_unit TEXT, factor REAL, \"offset\" REAL)",
    "parameters (parameter INTEGER PRIMARY KEY, full_name TEXT, device TEXT, name TEXT, unit TEXT, "
    "imperial_unit TEXT, message INTEGER, data_type TEXT, decimals INTEGER, role TEXT, "
    "quantity TEXT, table_name TEXT, column_name TEXT, view_name TEXT)",
    "labels (parameter INTEGER, value INTEGER, label TEXT)",
    "steps (parameter INTEGER, position INTEGER, value REAL, state TEXT, color TEXT)",
    "flights (cycle INTEGER, flight INTEGER, take_off_clock TEXT, start_seconds REAL, "
    "take_off_seconds REAL, landing_seconds REAL, end_seconds REAL, min_altitude REAL, "
    "max_altitude REAL, altitude_gain REAL, climb_rate REAL, descent_rate REAL, "
    "max_ground_speed REAL, fuel_a REAL, fuel_b REAL, fuel REAL, take_off_distance REAL, "
    "take_off_distance_15m REAL, has_figures INTEGER)",
    "events (cycle INTEGER, seconds REAL, clock TEXT, parameter INTEGER, state TEXT, "
    "is_rising INTEGER, text TEXT)",
    "episodes (cycle INTEGER, quantity TEXT, state TEXT, is_lamp INTEGER, from_seconds REAL, "
    "to_seconds REAL, is_cut INTEGER, crossings INTEGER, seconds_beyond_warning REAL, "
    "seconds_beyond_limit REAL, peak_parameter INTEGER, peak REAL, peak_seconds REAL, phase TEXT)",
    "findings (cycle INTEGER, kind TEXT, severity TEXT, from_seconds REAL, to_seconds REAL, "
    "text TEXT)",
};

/// Names that differ from each other, as SQL does not tell letters by case.
class Names
{
public:
    explicit Names(std::initializer_list<const char*> taken)
    {
        for (const char* name : taken)
            m_taken.insert(QLatin1String(name));
    }

    QString of(const QString& name)
    {
        QString unique = name;
        for (int i = 2; !m_taken.insert(unique.toLower()).second; ++i)
            unique = QStringLiteral("%1_%2").arg(name).arg(i);
        return unique;
    }

private:
    std::set<QString> m_taken;
};

QString columnType(const ProfileParameter& parameter)
{
    const bool isReal = parameter.rule == DecodingRule::Float ||
                        parameter.dataType == static_cast<int>(DataType::ULong);
    return isReal ? QStringLiteral("REAL") : QStringLiteral("INTEGER");
}

void createSampleTable(SqliteFile& file, const SampleTable& table)
{
    QString columns = QStringLiteral("cycle INTEGER, seconds REAL");
    for (const SampleTable::Column& column : table.columns)
        columns += QStringLiteral(", %1 %2").arg(SqliteFile::quotedName(column.name),
                                                 columnType(*column.parameter));
    file.execute(
        QStringLiteral("CREATE TABLE %1 (%2)").arg(SqliteFile::quotedName(table.name), columns));
}

/// What a view shows of a parameter.
QString selection(const SampleTable& table, const SampleTable::Column& column)
{
    return QStringLiteral("cycle, seconds, %1 AS value FROM %2")
        .arg(SqliteFile::quotedName(column.name), SqliteFile::quotedName(table.name));
}

void createSamplesView(SqliteFile& file, const std::vector<SampleTable>& tables)
{
    QStringList parts;
    for (const SampleTable& table : tables) {
        for (const SampleTable::Column& column : table.columns)
            parts << QStringLiteral("SELECT %1 AS parameter, ").arg(column.number) +
                         selection(table, column);
    }
    if (!parts.isEmpty() && static_cast<std::size_t>(parts.size()) <= maxUnion)
        file.execute(QStringLiteral("CREATE VIEW samples AS ") +
                     parts.join(QStringLiteral(" UNION ALL ")));
}

/// What the profile says of a parameter besides its name.
void describe(const ProfileParameter& parameter, int number, SqliteFile::Rows& labels,
              SqliteFile::Rows& steps)
{
    if (parameter.enumList != nullptr) {
        for (const auto& [value, entry] : parameter.enumList->entries)
            labels.add({number, static_cast<quint32>(value), entry.label});
    }
    if (parameter.threshold == nullptr)
        return;
    int position = 0;
    for (const ThresholdStep& step : parameter.threshold->steps)
        steps.add({number, ++position, step.value, stateText(step.grade.state),
                   QColor(step.grade.color).name()});
}

/// Where the samples of a parameter are.
struct Place
{
    QVariant table; ///< NULL: they are not exported
    QVariant column;
    QVariant view;
};

/// Creates a view of each parameter's samples under its full name.
std::map<const ProfileParameter*, Place> createViews(SqliteFile& file,
                                                     const std::vector<SampleTable>& tables)
{
    Names views{"info",  "cycles",  "files",  "units",    "parameters", "labels",
                "steps", "flights", "events", "episodes", "findings",   "samples"};
    for (const SampleTable& table : tables)
        views.of(table.name);
    std::map<const ProfileParameter*, Place> places;
    for (const SampleTable& table : tables) {
        for (const SampleTable::Column& column : table.columns) {
            const QString view = views.of(column.parameter->fullName);
            file.execute(QStringLiteral("CREATE VIEW %1 AS SELECT %2")
                             .arg(SqliteFile::quotedName(view), selection(table, column)));
            places[column.parameter] = {table.name, column.name, view};
        }
    }
    return places;
}

void describeParameters(SqliteFile& file, const Profile& profile,
                        const std::vector<SampleTable>& tables)
{
    const std::map<const ProfileParameter*, Place> places = createViews(file, tables);
    SqliteFile::Rows parameters(file, QStringLiteral("parameters"), 14);
    SqliteFile::Rows labels(file, QStringLiteral("labels"), 3);
    SqliteFile::Rows steps(file, QStringLiteral("steps"), 5);
    int number = 0;
    for (const ProfileParameter& parameter : profile.parameters()) {
        ++number;
        const auto found = places.find(&parameter);
        const Place place = found == places.end() ? Place() : found->second;
        const std::string_view type = dataTypeInfo(parameter.dataType).name;
        parameters.add({number, parameter.fullName,
                        profile.devices()[static_cast<std::size_t>(parameter.device)].name,
                        parameter.name, parameter.unitMetric, parameter.unitImperial, parameter.id,
                        QString::fromLatin1(type.data(), static_cast<qsizetype>(type.size())),
                        parameter.precision, parameter.koltDataType, parameter.quantity,
                        place.table, place.column, place.view});
        describe(parameter, number, labels, steps);
    }
}

void describeUnits(SqliteFile& file, const Profile& profile)
{
    std::map<std::pair<QString, QString>, UnitConversion> units;
    for (const ProfileParameter& parameter : profile.parameters()) {
        if (parameter.conversion != nullptr)
            units[{parameter.unitMetric, parameter.unitImperial}] = *parameter.conversion;
    }
    SqliteFile::Rows rows(file, QStringLiteral("units"), 4);
    for (const auto& [names, conversion] : units)
        rows.add({names.first, names.second, conversion.factor, conversion.offset});
}

} // namespace

std::vector<SampleTable> sampleTables(const Profile& profile,
                                      const std::vector<const ProfileParameter*>& parameters)
{
    std::map<int, std::vector<SampleTable::Column>> messages;
    const std::set<const ProfileParameter*> wanted(parameters.begin(), parameters.end());
    int number = 0;
    for (const ProfileParameter& parameter : profile.parameters()) {
        ++number;
        if (wanted.contains(&parameter) && parameter.rule != DecodingRule::NotImplemented)
            messages[parameter.id].push_back({&parameter, number, {}});
    }
    std::vector<SampleTable> tables;
    for (const auto& [id, columns] : messages) {
        for (std::size_t first = 0; first < columns.size(); first += maxColumns) {
            SampleTable& table = tables.emplace_back();
            table.message = id;
            table.name = QStringLiteral("message_%1").arg(id);
            if (first > 0)
                table.name += QStringLiteral("_%1").arg(first / maxColumns + 1);
            Names names{"cycle", "seconds"};
            for (std::size_t i = first; i < std::min(first + maxColumns, columns.size()); ++i) {
                table.columns.push_back(columns[i]);
                table.columns.back().name = names.of(columns[i].parameter->name);
            }
        }
    }
    return tables;
}

void createSchema(SqliteFile& file, const Profile& profile, const std::vector<SampleTable>& tables)
{
    for (const char* table : fixedTables)
        file.execute(QStringLiteral("CREATE TABLE ") + QLatin1String(table));
    for (const SampleTable& table : tables)
        createSampleTable(file, table);
    createSamplesView(file, tables);
    describeParameters(file, profile, tables);
    describeUnits(file, profile);
}

QString stateText(ThresholdState state)
{
    switch (state) {
    case ThresholdState::Warning:
        return QStringLiteral("WARNING");
    case ThresholdState::Limit:
        return QStringLiteral("LIMIT");
    case ThresholdState::Ok:
        break;
    }
    return QStringLiteral("OK");
}

} // namespace KOLT

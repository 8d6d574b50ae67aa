#include "cli/ExportArguments.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

namespace KOLT::Cli {

namespace {

const std::array<FormatInfo, 7>& formats()
{
    using F = ExportFormat;
    static const std::array<FormatInfo, 7> table{
        FormatInfo{"csv", "csv", F::Csv, csvSettings(), true, false},
        {"kml", "kml", F::Kml, kmlSettings(), true, true},
        {"kmz", "kmz", F::Kmz, kmlSettings(), false, true},
        {"gpx", "gpx", F::Gpx, gpxSettings(), true, true},
        {"candump", "log", F::Candump, {}, true, false},
        {"dbc", "dbc", F::Dbc, {}, true, false},
        {"sqlite", "sqlite", F::Sqlite, {}, false, false}};
    return table;
}

/// The settings of all formats, each once.
std::array<std::span<const ExportSetting>, 3> settingTables()
{
    return {csvSettings(), kmlSettings(), gpxSettings()};
}

/// Placeholder for the option's value in the help text.
const char* valueName(ExportSetting::Kind kind)
{
    switch (kind) {
    case ExportSetting::Kind::Boolean:
        return "true|false";
    case ExportSetting::Kind::Color:
        return "RRGGBB";
    case ExportSetting::Kind::Integer:
    case ExportSetting::Kind::Separator:
        break;
    }
    return "N";
}

/// Reads the settings given for the chosen format; settings of other formats and invalid values are
/// errors.
QString readSettings(const QCommandLineParser& parser, const FormatInfo& chosen,
                     Arguments& arguments)
{
    for (const std::span<const ExportSetting> table : settingTables()) {
        for (const ExportSetting& setting : table) {
            const QString key = QLatin1String(setting.key);
            if (!parser.isSet(key))
                continue;
            if (table.data() != chosen.settings.data())
                return QStringLiteral("--%1 does not apply to an export as %2")
                    .arg(key, QLatin1String(chosen.name));
            const QByteArray value = parser.value(key).toUtf8();
            if (!setting.accepts(value))
                return QStringLiteral("--%1 cannot be \"%2\"").arg(key, parser.value(key));
            arguments.settings.emplace_back(setting.key, value);
        }
    }
    return {};
}

/// What does not go together with the format; empty if all does.
QString objectionTo(const FormatInfo& format, const Arguments& arguments)
{
    const bool isStandardOutput = arguments.output == QLatin1String("-");
    if (isStandardOutput && !format.isText)
        return QStringLiteral("%1 is no text: --output needs a file")
            .arg(QLatin1String(format.name));
    if (isStandardOutput && arguments.all)
        return QStringLiteral("--all writes a file for each flight: --output needs a folder");
    if (format.format == ExportFormat::Sqlite && arguments.units == UnitSystem::Imperial)
        return QStringLiteral("a database has metric units, and a table to convert them");
    return {};
}

} // namespace

QStringList withSettingNames(const QStringList& arguments)
{
    const auto plain = [](QString text) { return text.remove(QLatin1Char('-')).toLower(); };
    QStringList result;
    for (const QString& argument : arguments) {
        QString replaced = argument;
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        for (const std::span<const ExportSetting> table : settingTables()) {
            for (const ExportSetting& setting : table) {
                const QString key = QLatin1String(setting.key);
                if (name.startsWith(QLatin1String("--")) && plain(name) == plain(key))
                    replaced = QStringLiteral("--") + key + argument.mid(name.size());
            }
        }
        result << replaced;
    }
    return result;
}

void addExportOptions(QCommandLineParser& parser)
{
    const auto add = [&](const char* name, const char* description, const char* value = "") {
        parser.addOption({QLatin1String(name), QLatin1String(description), QLatin1String(value)});
    };
    add("all", "Every flight of the card, each into a file of its own; of sqlite, every cycle.");
    add("output", "The file to write, \"-\" for the standard output; with --all the folder.",
        "FILE");
    add("parameter", "A selected parameter, as \"Device/Name\"; may be given several times.",
        "NAME");
    for (const std::span<const ExportSetting> table : settingTables()) {
        for (const ExportSetting& setting : table)
            add(setting.key, setting.description, valueName(setting.kind));
    }
}

const FormatInfo& formatInfo(ExportFormat format)
{
    return *std::ranges::find(formats(), format, &FormatInfo::format);
}

QString exportFormatNames()
{
    QStringList names;
    for (const FormatInfo& format : formats())
        names << QLatin1String(format.name);
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

QString readFormat(const QString& name, Arguments& arguments)
{
    const auto found = std::ranges::find_if(
        formats(), [&](const FormatInfo& f) { return name == QLatin1String(f.name); });
    if (found == formats().end())
        return QStringLiteral("an export is %1, not \"%2\"").arg(exportFormatNames(), name);
    arguments.format = found->format;
    return {};
}

QString readExport(const QCommandLineParser& parser, Arguments& arguments)
{
    const FormatInfo& format = formatInfo(arguments.format);
    arguments.output = parser.value(QStringLiteral("output"));
    if (arguments.output.isEmpty())
        return QStringLiteral("--output is missing");
    arguments.selection = parser.values(QStringLiteral("parameter"));
    const QString error = readSettings(parser, format, arguments);
    return error.isEmpty() ? objectionTo(format, arguments) : error;
}

} // namespace KOLT::Cli

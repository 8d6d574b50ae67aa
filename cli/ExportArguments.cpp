#include "cli/ExportArguments.h"

#include "cli/Arguments.h"
#include "export/ExportOptions.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

namespace KOLT::Cli {

namespace {

struct Format
{
    const char* name;
    ExportFormat format;
    std::span<const ExportSetting> settings;
};

std::array<Format, 3> formats()
{
    return {Format{"csv", ExportFormat::Csv, csvSettings()},
            Format{"kml", ExportFormat::Kml, kmlSettings()}, Format{"gpx", ExportFormat::Gpx, {}}};
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
QString readSettings(const QCommandLineParser& parser, const Format& chosen, Arguments& arguments)
{
    for (const Format& format : formats()) {
        for (const ExportSetting& setting : format.settings) {
            const QString key = QLatin1String(setting.key);
            if (!parser.isSet(key))
                continue;
            if (format.format != chosen.format)
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

} // namespace

QStringList withSettingNames(const QStringList& arguments)
{
    const auto plain = [](QString text) { return text.remove(QLatin1Char('-')).toLower(); };
    QStringList result;
    for (const QString& argument : arguments) {
        QString replaced = argument;
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        for (const Format& format : formats()) {
            for (const ExportSetting& setting : format.settings) {
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
    add("all", "Every flight of the card, each into a file of its own.");
    add("output", "The file to write; with --all the folder.", "FILE");
    add("parameter", "A selected parameter, as \"Device/Name\"; may be given several times.",
        "NAME");
    for (const Format& format : formats()) {
        for (const ExportSetting& setting : format.settings)
            add(setting.key, setting.description, valueName(setting.kind));
    }
}

QString readExport(const QCommandLineParser& parser, const QString& format, Arguments& arguments)
{
    const std::array<Format, 3> known = formats();
    const auto chosen = std::ranges::find_if(
        known, [&](const Format& f) { return format == QLatin1String(f.name); });
    if (chosen == known.end())
        return QStringLiteral("an export is csv, kml or gpx, not \"%1\"").arg(format);
    arguments.format = chosen->format;
    arguments.output = parser.value(QStringLiteral("output"));
    if (arguments.output.isEmpty())
        return QStringLiteral("--output is missing");
    arguments.selection = parser.values(QStringLiteral("parameter"));
    return readSettings(parser, *chosen, arguments);
}

} // namespace KOLT::Cli

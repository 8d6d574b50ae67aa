#include "cli/Arguments.h"

#include "cli/ExportArguments.h"
#include "cli/ReportArguments.h"
#include "cli/Verbs.h"
#include "record/ClockOffset.h"

#include <QCommandLineParser>

#include <algorithm>

namespace KOLT::Cli {

namespace {

QString generalHelp()
{
    QString text = QStringLiteral("Usage: kolt-cli VERB FOLDER [options]\n\n"
                                  "Reads the recordings of an engine management unit.\n\nVerbs:\n");
    for (const Verb& verb : verbs)
        text += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(verb.name), -8)
                    .arg(QLatin1String(verb.description));
    text +=
        QStringLiteral("  %1 %2\n")
            .arg(QStringLiteral("library"), -8)
            .arg(QStringLiteral("Keep the recordings of cards; see 'kolt-cli library --help'."));
    return text + QStringLiteral("\n'kolt-cli VERB --help' lists the options of a verb.\n");
}

/// The parser takes one value per option: "--files A B" becomes "--files=A --files=B".
QStringList withSingleFiles(const QStringList& arguments)
{
    QStringList result;
    bool inFiles = false;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--files")) {
            inFiles = true;
        } else if (inFiles && !argument.startsWith(QLatin1String("--"))) {
            result << QStringLiteral("--files=") + argument;
        } else {
            inFiles = false;
            result << argument;
        }
    }
    return result;
}

bool isExport(const Verb& verb)
{
    return QLatin1String(verb.name) == QLatin1String("export");
}

bool isCut(const Verb& verb)
{
    return verb.run == cut;
}

bool isReport(const Verb& verb)
{
    return verb.run == report;
}

bool choosesFlight(const Verb& verb)
{
    return isExport(verb) || QLatin1String(verb.name) == QLatin1String("episodes");
}

void addOptions(QCommandLineParser& parser, const Verb& verb)
{
    const auto add = [&](const char* name, const char* description, const char* value = "") {
        parser.addOption({QLatin1String(name), QLatin1String(description), QLatin1String(value)});
    };
    const QString action = QLatin1String(verb.action());
    if (!action.isEmpty())
        parser.addPositionalArgument(isExport(verb) ? QStringLiteral("format") : action,
                                     isExport(verb) ? QStringLiteral("Kind of the file.")
                                                    : QStringLiteral("What to do."),
                                     action);
    parser.addPositionalArgument(
        verb.isOnFile() ? QStringLiteral("file") : QStringLiteral("folder"),
        verb.isOnFile()  ? QStringLiteral("The file.")
        : isExport(verb) ? QStringLiteral("The card, or a copy of it; not for dbc.")
                         : QStringLiteral("The card, or a copy of it."),
        verb.isOnFile() ? QStringLiteral("FILE") : QStringLiteral("FOLDER"));
    add("help", "Show this help.");
    if (verb.choosesFiles()) {
        add("cycle", "Load the engine cycle of this number.", "N");
        if (!isCut(verb))
            add("files", "Load these files, in this order.", "NAME...");
    }
    if (verb.usesProfile()) {
        add("profile", "Parameter profile; default: the installed one.", "FILE");
        add("variant", "Variant of the profile; default: the one in the settings.", "V");
    }
    if (verb.choosesFiles() && !isCut(verb))
        add("unit",
            isExport(verb) ? "Units: metric or imperial; default: those in the settings."
                           : "Units of the texts: metric or imperial.",
            "U");
    if (!verb.isOnFile())
        add("clock-offset",
            verb.usesClockOfSettings() ? "Added to dates and clock times, from -14:00 to +14:00; "
                                         "default: that of the settings."
                                       : "Added to dates and clock times, from -14:00 to +14:00.",
            "HH:MM");
    if (QLatin1String(verb.name) == QLatin1String("values"))
        add("parameter", "The parameter, as \"Device/Name\".", "NAME");
    if (QLatin1String(verb.name) == QLatin1String("events"))
        add("lamps", "Warning lamps only.");
    if (QLatin1String(verb.name) == QLatin1String("list"))
        add("headers-only", "At once, from the headers alone: without \"trust\".");
    if (isCut(verb)) {
        add("from", "From this second on the unit's counter on.", "S");
        add("to", "Up to this one.", "S");
        add("output", "The folder to create.", "FOLDER");
        add("zip", "In place of a folder: the zip file to create.", "FILE");
        add("parameter", "A selected parameter, as \"Device/Name\"; may be given several times.",
            "NAME");
    }
    if (choosesFlight(verb))
        add("flight", "Only this flight of the cycle, from 1.", "K");
    if (isExport(verb))
        addExportOptions(parser);
    if (isReport(verb))
        addReportOptions(parser);
}

/// The parser's help text with a usage line that has the verb.
QString helpOf(const Verb& verb, const QCommandLineParser& parser)
{
    const QString action = QLatin1String(verb.action());
    return QStringLiteral("Usage: kolt-cli %1 %2%3 [options]\n")
               .arg(QLatin1String(verb.name),
                    action.isEmpty() ? QString() : action + QLatin1Char(' '),
                    verb.isOnFile() ? QStringLiteral("FILE") : QStringLiteral("FOLDER")) +
           parser.helpText().section(QLatin1Char('\n'), 1);
}

/// Reads --cycle, --files and --unit; returns an error message or nothing.
QString readChoice(const QCommandLineParser& parser, Arguments& arguments)
{
    const bool hasCycle = parser.isSet(QStringLiteral("cycle"));
    const bool isCutting = isCut(*arguments.verb);
    const bool hasFiles = !isCutting && parser.isSet(QStringLiteral("files"));
    if (arguments.all && (hasCycle || hasFiles))
        return QStringLiteral("--all goes with neither --cycle nor --files");
    if (isCutting && !hasCycle)
        return QStringLiteral("--cycle is missing");
    const bool isOfProfile = isExport(*arguments.verb) && arguments.format == ExportFormat::Dbc;
    if (isOfProfile && (hasCycle || hasFiles || arguments.all))
        return QStringLiteral("a dbc file is made from the profile alone, without --cycle, "
                              "--files or --all");
    if (!isOfProfile && !arguments.all && hasCycle == hasFiles)
        return QStringLiteral("give either --cycle or --files");
    if (hasFiles) {
        arguments.files = parser.values(QStringLiteral("files"));
    } else if (hasCycle) {
        bool ok = false;
        arguments.cycle = parser.value(QStringLiteral("cycle")).toInt(&ok);
        if (!ok)
            return QStringLiteral("--cycle needs a number, not \"%1\"")
                .arg(parser.value(QStringLiteral("cycle")));
    }
    if (isCutting)
        return {};
    const QString unit = parser.value(QStringLiteral("unit"));
    if (unit == QLatin1String("imperial"))
        arguments.units = UnitSystem::Imperial;
    else if (unit == QLatin1String("metric"))
        arguments.units = UnitSystem::Metric;
    else if (parser.isSet(QStringLiteral("unit")))
        return QStringLiteral("--unit is metric or imperial, not \"%1\"").arg(unit);
    return {};
}

/// Reads --flight; returns an error message or nothing.
QString readFlight(const QCommandLineParser& parser, Arguments& arguments)
{
    const auto name = QStringLiteral("flight");
    if (!parser.isSet(name))
        return {};
    bool ok = false;
    arguments.flight = parser.value(name).toInt(&ok);
    if (!ok || *arguments.flight < 1)
        return QStringLiteral("--flight needs a number from 1 on, not \"%1\"")
            .arg(parser.value(name));
    return arguments.cycle ? QString() : QStringLiteral("--flight needs --cycle");
}

/// Reads what only "cut" has; returns an error message or nothing.
QString readCut(const QCommandLineParser& parser, Arguments& arguments)
{
    for (const auto& [name, seconds] : {std::pair(QStringLiteral("from"), &arguments.from),
                                        {QStringLiteral("to"), &arguments.to}}) {
        bool ok = false;
        *seconds = parser.value(name).toDouble(&ok);
        if (!ok)
            return QStringLiteral("--%1 needs seconds on the counter, not \"%2\"")
                .arg(name, parser.value(name));
    }
    arguments.output = parser.value(QStringLiteral("output"));
    arguments.selection = parser.values(QStringLiteral("parameter"));
    arguments.zip = parser.value(QStringLiteral("zip"));
    return arguments.output.isEmpty() == arguments.zip.isEmpty()
               ? QStringLiteral("give either --output or --zip")
               : QString();
}

/// Returns an error message or nothing.
QString readClockOffset(const QCommandLineParser& parser, Arguments& arguments)
{
    const auto name = QStringLiteral("clock-offset");
    if (arguments.verb->isOnFile())
        return {};
    if (parser.isSet(name))
        arguments.clockOffset = clockOffsetOf(parser.value(name));
    return parser.isSet(name) && !arguments.clockOffset
               ? QStringLiteral("--clock-offset is from -14:00 to +14:00, not \"%1\"")
                     .arg(parser.value(name))
               : QString();
}

/// The option's value; empty when the verb does not have the option.
QString valueOf(const QCommandLineParser& parser, const QString& name, bool isKnown)
{
    return isKnown ? parser.value(name) : QString();
}

} // namespace

ParseResult parseArguments(const QStringList& commandLine)
{
    const QStringList given = commandLine.mid(1);
    if (given.isEmpty())
        return {{}, {}, QStringLiteral("no verb given; 'kolt-cli --help' lists them")};
    const QString& name = given.first();
    if (name == QLatin1String("--help") || name == QLatin1String("-h"))
        return {{}, generalHelp(), {}};
    const auto* const verb =
        std::ranges::find_if(verbs, [&](const Verb& v) { return name == QLatin1String(v.name); });
    if (verb == verbs.end())
        return {
            {}, {}, QStringLiteral("unknown verb \"%1\"; 'kolt-cli --help' lists them").arg(name)};

    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(verb->description));
    addOptions(parser, *verb);
    const bool isParsed = parser.parse(QStringList{QStringLiteral("kolt-cli ") + name} +
                                       withSingleFiles(withSettingNames(given.mid(1))));
    if (!isParsed)
        return {{}, {}, parser.errorText()};
    if (parser.isSet(QStringLiteral("help")))
        return {{}, helpOf(*verb, parser), {}};
    QStringList folders = parser.positionalArguments();
    const bool hasAction = *verb->action() != '\0';
    if (isExport(*verb) && folders.isEmpty())
        return {{}, {}, QStringLiteral("give %1, and the folder").arg(exportFormatNames())};
    const QString format = hasAction && !folders.isEmpty() ? folders.takeFirst() : QString();
    if (verb->isOnFile() && (format != QLatin1String(verb->action()) || folders.size() != 1))
        return {{}, {}, QStringLiteral("give %1 and one file").arg(QLatin1String(verb->action()))};
    if (folders.isEmpty() && !given.filter(QStringLiteral("--files")).isEmpty())
        return {{}, {}, QStringLiteral("give the folder before --files")};

    Arguments arguments;
    arguments.verb = verb;
    QString error = isExport(*verb) ? readFormat(format, arguments) : QString();
    if (!error.isEmpty())
        return {{}, {}, error};
    const bool isOfProfile = isExport(*verb) && arguments.format == ExportFormat::Dbc;
    if (isOfProfile && !folders.isEmpty())
        return {
            {}, {}, QStringLiteral("a dbc file is made from the profile alone: give no folder")};
    if (!isOfProfile && folders.size() != 1)
        return {{}, {}, QStringLiteral("give one folder, not %1").arg(folders.size())};
    arguments.folder = folders.value(0);
    arguments.profile = valueOf(parser, QStringLiteral("profile"), verb->usesProfile());
    if (verb->usesProfile() && parser.isSet(QStringLiteral("variant")))
        arguments.variant = parser.value(QStringLiteral("variant"));
    const bool isValues = name == QLatin1String("values");
    arguments.parameter = valueOf(parser, QStringLiteral("parameter"), isValues);
    arguments.lampsOnly = name == QLatin1String("events") && parser.isSet(QStringLiteral("lamps"));
    arguments.headersOnly =
        name == QLatin1String("list") && parser.isSet(QStringLiteral("headers-only"));
    arguments.all = isExport(*verb) && parser.isSet(QStringLiteral("all"));
    error = readClockOffset(parser, arguments);
    if (error.isEmpty() && verb->choosesFiles())
        error = readChoice(parser, arguments);
    if (error.isEmpty() && isCut(*verb))
        error = readCut(parser, arguments);
    if (error.isEmpty() && isReport(*verb))
        error = readReport(parser, arguments);
    if (error.isEmpty() && choosesFlight(*verb))
        error = readFlight(parser, arguments);
    if (error.isEmpty() && isExport(*verb))
        error = readExport(parser, arguments);
    if (!error.isEmpty())
        return {{}, {}, error};
    if (isValues && arguments.parameter.isEmpty())
        return {{}, {}, QStringLiteral("--parameter is missing")};
    return {arguments, {}, {}};
}

} // namespace KOLT::Cli

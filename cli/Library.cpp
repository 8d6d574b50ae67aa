#include "cli/Library.h"

#include "base/Diagnostics.h"
#include "cli/LibraryDatabaseVerbs.h"
#include "cli/Recording.h"

#include <QCommandLineParser>

#include <algorithm>

namespace KOLT::Cli {

namespace {

int failed(const QString& error, int status)
{
    Diagnostics::print("kolt-cli: %s\n", qUtf8Printable(error));
    return status;
}

int print(const QString& text)
{
    writeOutput(text.toUtf8());
    const QString error = finishOutput();
    return error.isEmpty() ? 0 : failed(error, 1);
}

QString usage(const LibraryVerb& verb)
{
    const QString operand = QLatin1String(verb.operand);
    return QStringLiteral("Usage: kolt-cli library %1 %2--library FOLDER [options]\n")
        .arg(QLatin1String(verb.name), operand.isEmpty() ? operand : operand + QLatin1Char(' '));
}

QString generalHelp()
{
    QString text = QStringLiteral("Usage: kolt-cli library VERB --library FOLDER [options]\n\n"
                                  "Keeps the recordings of cards in a library.\n\nVerbs:\n");
    for (const LibraryVerb& verb : libraryVerbs()) {
        if (*verb.description != '\0') // for people
            text += QStringLiteral("  %1 %2\n")
                        .arg(QLatin1String(verb.name), -8)
                        .arg(QLatin1String(verb.description));
    }
    return text + QStringLiteral("\n'kolt-cli library VERB --help' lists the options of a verb.\n");
}

void addOptions(QCommandLineParser& parser, const LibraryVerb& verb)
{
    parser.setApplicationDescription(QLatin1String(verb.description));
    if (*verb.operand != '\0')
        parser.addPositionalArgument(QLatin1String(verb.operand), {});
    const auto add = [&](const char* name, const char* description, const char* value) {
        parser.addOption({QLatin1String(name), QLatin1String(description), QLatin1String(value)});
    };
    add("help", "Show this help.", "");
    add("library", "The folder of the library, or postgresql://USER@HOST/DATABASE.", "FOLDER");
    add("archive", "The folder with the recordings; default: that of the library.", "FOLDER");
    for (const LibraryOption& option : verb.options)
        add(option.name, option.description, option.value);
}

/// Returns an error message or nothing.
QString readArguments(const QCommandLineParser& parser, const LibraryVerb& verb,
                      LibraryArguments& arguments)
{
    const QStringList operands = parser.positionalArguments();
    const bool hasOperand = *verb.operand != '\0';
    if (operands.size() != (hasOperand ? 1 : 0))
        return hasOperand ? QStringLiteral("give one %1, not %2")
                                .arg(QLatin1String(verb.operand))
                                .arg(operands.size())
                          : QStringLiteral("unexpected \"%1\"").arg(operands.first());
    arguments.operand = operands.value(0);
    arguments.library = parser.value(QStringLiteral("library"));
    arguments.archive = parser.value(QStringLiteral("archive"));
    if (arguments.library.isEmpty())
        return QStringLiteral("--library is missing");
    const bool isServer = arguments.library.startsWith(QLatin1String("postgresql://"));
    if (isServer && arguments.archive.isEmpty())
        return QStringLiteral("--archive is missing");
    if (arguments.archive.isEmpty())
        arguments.archive = arguments.library;
    for (const LibraryOption& option : verb.options) {
        const QString name = QLatin1String(option.name);
        if (parser.isSet(name))
            arguments.options[name] = *option.value != '\0' ? parser.value(name) : QString();
    }
    return {};
}

} // namespace

const std::vector<LibraryVerb>& libraryVerbs()
{
    static const std::vector<LibraryVerb> verbs{
        {"import", "Copy the new recordings of a card into the library, with proof.", "CARD",
         profileOptions(), importCard},
        {"list",
         "List the cycles of the library with their flights as JSON.",
         "",
         {{"unit", "Only those of the unit with this serial number.", "SERIAL"},
          {"from", "Only those of this day and later ones, such as 2024-05-18.", "DATE"},
          {"to", "Only those of this day and earlier ones.", "DATE"}},
         libraryList},
        {"engines", "Print what each engine has lived through as JSON.", "", {}, libraryEngines},
        {"rebuild", "Make the database anew from the recordings, on all cores.", "",
         profileOptions(), libraryRebuild},
        {"check",
         "Read all recordings of the library and compare their hashes.",
         "",
         {},
         checkLibrary},
        {"query",
         "Print the rows of an SQL statement that reads the database as JSON.",
         "SQL",
         {},
         libraryQuery},
        {"figures", "", "", profileOptions(), libraryFigures},
    };
    return verbs;
}

LibraryParseResult parseLibrary(const QStringList& given)
{
    LibraryParseResult result;
    if (given.isEmpty()) {
        result.error = QStringLiteral("no verb given; 'kolt-cli library --help' lists them");
        return result;
    }
    const QString& name = given.first();
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        result.help = generalHelp();
        return result;
    }
    const std::vector<LibraryVerb>& verbs = libraryVerbs();
    const auto verb = std::ranges::find_if(
        verbs, [&](const LibraryVerb& known) { return name == QLatin1String(known.name); });
    if (verb == verbs.end()) {
        result.error = QStringLiteral("unknown verb \"library %1\"; 'kolt-cli library --help' "
                                      "lists them")
                           .arg(name);
        return result;
    }
    QCommandLineParser parser;
    addOptions(parser, *verb);
    if (!parser.parse(QStringList{QStringLiteral("kolt-cli")} + given.mid(1))) {
        result.error = parser.errorText();
    } else if (parser.isSet(QStringLiteral("help"))) {
        result.help = usage(*verb) + parser.helpText().section(QLatin1Char('\n'), 1);
    } else {
        result.verb = &*verb;
        result.error = readArguments(parser, *verb, result.arguments);
    }
    return result;
}

int runLibrary(const QStringList& given)
{
    const LibraryParseResult parsed = parseLibrary(given);
    if (!parsed.error.isEmpty())
        return failed(parsed.error, 2);
    if (parsed.verb == nullptr)
        return print(parsed.help);
    const QString error = parsed.verb->run(parsed.arguments);
    return error.isEmpty() ? 0 : failed(error, 1);
}

QString openArchive(const LibraryArguments& arguments, Library::Archive& archive)
{
    return archive.open(arguments.archive) ? QString() : archive.error();
}

} // namespace KOLT::Cli

#include "cli/ReportArguments.h"

#include "cli/Arguments.h"

#include <QCommandLineParser>

namespace KOLT::Cli {

namespace {

/// Reads --library and --archive; returns an error message or nothing.
QString readLibrary(const QCommandLineParser& parser, Arguments& arguments)
{
    arguments.library = parser.value(QStringLiteral("library"));
    arguments.archive = parser.value(QStringLiteral("archive"));
    if (arguments.library.isEmpty())
        return parser.isSet(QStringLiteral("library"))
                   ? QStringLiteral("--library needs a folder or the address of a server")
               : parser.isSet(QStringLiteral("archive"))
                   ? QStringLiteral("--archive needs --library")
                   : QString();
    const bool isServer = arguments.library.contains(QLatin1String("://"));
    return isServer && arguments.archive.isEmpty() ? QStringLiteral("--archive is missing")
                                                   : QString();
}

} // namespace

void addReportOptions(QCommandLineParser& parser)
{
    const auto add = [&](const char* name, const char* description, const char* value = "") {
        parser.addOption({QLatin1String(name), QLatin1String(description), QLatin1String(value)});
    };
    add("pdf", "Write the engine report to this PDF file instead of the text.", "FILE");
    add("json", "Print what the engine report holds as JSON.");
    add("unit", "Of the PDF file: metric or imperial; default: metric.", "U");
    add("language", "Of the PDF file: en or de; default: en.", "L");
    add("paper", "Of the PDF file: A4 or Letter; default: A4.", "P");
    add("library",
        "Add the ledgers of the card's engines from this library: its folder, or "
        "postgresql://USER@HOST/DATABASE.",
        "FOLDER");
    add("archive", "The folder with the recordings of a library on a server.", "FOLDER");
}

QString readReport(const QCommandLineParser& parser, Arguments& arguments)
{
    arguments.pdf = parser.value(QStringLiteral("pdf"));
    arguments.asJson = parser.isSet(QStringLiteral("json"));
    const bool hasPdf = parser.isSet(QStringLiteral("pdf"));
    if (hasPdf && arguments.pdf.isEmpty())
        return QStringLiteral("--pdf needs a file");
    if (hasPdf && arguments.asJson)
        return QStringLiteral("give either --pdf or --json");
    bool isImperial = false;
    const auto read = [&](const char* option, const char* usual, const char* other, bool& isOther) {
        const QString name = QLatin1String(option);
        const QString value = parser.value(name);
        if (!parser.isSet(name))
            return QString();
        if (!hasPdf)
            return QStringLiteral("--%1 needs --pdf").arg(name);
        isOther = value == QLatin1String(other);
        return isOther || value == QLatin1String(usual)
                   ? QString()
                   : QStringLiteral("--%1 is %2 or %3, not \"%4\"")
                         .arg(name, QLatin1String(usual), QLatin1String(other), value);
    };
    QString error = read("unit", "metric", "imperial", isImperial);
    if (error.isEmpty())
        error = read("language", "en", "de", arguments.isGerman);
    if (error.isEmpty())
        error = read("paper", "A4", "Letter", arguments.isLetter);
    if (isImperial)
        arguments.units = UnitSystem::Imperial;
    return error.isEmpty() ? readLibrary(parser, arguments) : error;
}

} // namespace KOLT::Cli

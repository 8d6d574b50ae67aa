// Builds command lines of kolt-cli from arbitrary bytes, parses them, and does what they ask for:
// only in a temporary folder with a small card, and without starting processes.

#include "app/settings/ExportSettingsStore.h"
#include "cli/Arguments.h"
#include "cli/Library.h"
#include "cli/Recording.h"
#include "cli/Verbs.h"
#include "fuzz/FuzzFile.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <string_view>

using namespace KOLT;

namespace {

/// What a byte stands for. Words that start with "<" become paths of the temporary folder.
constexpr std::string_view words[] = {
    "list",
    "flights",
    "values",
    "events",
    "episodes",
    "overview",
    "report",
    "export",
    "cut",
    "profile",
    "library",
    "import",
    "engines",
    "rebuild",
    "check",
    "query",
    "figures",
    "csv",
    "kml",
    "kmz",
    "gpx",
    "candump",
    "dbc",
    "sqlite",
    "<card>",
    "<empty>",
    "<missing>",
    "<out>",
    "<out>/a",
    "<out>/b.csv",
    "<card>/REC00001.CAN",
    "<profile>",
    "--help",
    "-h",
    "--",
    "-",
    "--cycle",
    "--cycle=",
    "--files",
    "--files=",
    "--profile",
    "--profile=",
    "--variant",
    "--variant=",
    "--unit",
    "--unit=",
    "--clock-offset",
    "--clock-offset=",
    "--parameter",
    "--parameter=",
    "--lamps",
    "--headers-only",
    "--from",
    "--from=",
    "--to",
    "--to=",
    "--output",
    "--output=",
    "--zip",
    "--zip=",
    "--flight",
    "--flight=",
    "--all",
    "--pdf=",
    "--json",
    "--language=",
    "--paper=",
    "--library",
    "--library=",
    "--archive=",
    "--csv-limiter",
    "--csv-limiter=",
    "--CsvResolution=",
    "--csv-all-parameter=",
    "--csv-decimal-comma=",
    "--kml-line-color=",
    "--kml-line-width=",
    "--gpx-track-points=",
    "0",
    "1",
    "2",
    "-1",
    "007",
    "2147483648",
    "99999999999999999999",
    "1e308",
    "-1e308",
    "1e-320",
    "nan",
    "inf",
    "-inf",
    "0x10",
    "12.5",
    "1,5",
    " ",
    "",
    "true",
    "FALSE",
    "metric",
    "imperial",
    "en",
    "de",
    "A4",
    "Letter",
    "+14:00",
    "-14:00",
    "14:01",
    "-00:00",
    "1:2:3",
    "2024-05-18",
    "2024-02-30",
    "0000-00-00",
    "A",
    "B",
    "!A",
    "D/v",
    "D/",
    "/",
    "D/v/x",
    "REC00001.CAN",
    "REC00002.CAN",
    "../card/REC00001.CAN",
    ".",
    "..",
    "*",
    "%1",
    "%2 %1",
    "%n",
    "\xc3\xa4\xe2\x82\xac",
    "\xf0\x9f\x9b\xa9",
    "\xff\xfe",
    "a\nb",
    "postgresql://u@h/d",
    "select 1",
    "FF0000",
    "#12345678",
    "=",
    "--=",
    "---",
    "--x",
    "-x",
};
constexpr std::uint8_t glue = 254;  ///< the next word continues this one
constexpr std::uint8_t plain = 255; ///< bytes up to the next 0 follow

/// The places of the temporary folder, and a program without settings.
struct World
{
    World()
    {
        // The results are not of interest, and reports would fill the log.
        if (std::freopen("/dev/null", "w", stdout) == nullptr)
            std::abort();
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(QStringLiteral("home"))));
        qputenv("HOME", QFile::encodeName(folder.filePath(QStringLiteral("home"))));
        Diagnostics::setSink([](std::string_view) {});
        for (const char* name : {"card", "empty", "out"})
            QDir(folder.path()).mkdir(QLatin1String(name));
        write("card/REC00001.CAN", record(1, 12));
        write("card/REC00002.CAN", record(9, 3));
        write("profile.xml",
              "<KorvanProfile><Variants><Variant name='A'/><Variant name='B'/></Variants>"
              "<Device name='D'><Parameter name='v' id='1' dataType='FLOAT' "
              "koltDataType='GroundSpeed'/><Parameter name='a' id='2' dataType='FLOAT' "
              "koltDataType='Latitude'/><Parameter name='o' id='2' startByte='4' "
              "dataType='FLOAT' koltDataType='Longitude'/></Device></KorvanProfile>");
    }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    /// Whether a path cannot lead out of the folder.
    bool isInside(const QString& path) const
    {
        return QDir::cleanPath(path).startsWith(folder.path() + QLatin1Char('/'));
    }

    QTemporaryDir folder;

private:
    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            std::abort();
    }

    /// A header with a valid date, and samples a second apart.
    static QByteArray record(int minute, int samples)
    {
        QByteArray bytes(128, '\0');
        const char start[] = {'\xba', '\xab'};
        bytes.replace(qsizetype(0), 2, start, 2);
        const char date[] = {'\xe8', '\x07', 5, 18, 12, static_cast<char>(minute), 0};
        bytes.replace(qsizetype(12), 7, date, 7);
        for (int i = 0; i < samples; ++i) {
            QByteArray sample(28, '\0');
            sample[0] = static_cast<char>(1 + i % 2);
            sample[8] = static_cast<char>(i);
            sample[23] = 0x42;
            bytes += sample;
        }
        return bytes;
    }
};

QStringList commandLine(const World& world, const std::uint8_t* data, std::size_t size)
{
    QStringList line{QStringLiteral("kolt-cli")};
    bool isGlued = false;
    for (std::size_t i = 0; i < size && line.size() < 24; ++i) {
        QString word;
        if (data[i] == glue) {
            isGlued = line.size() > 1;
            continue;
        }
        if (data[i] == plain) {
            QByteArray bytes;
            while (++i < size && data[i] != 0)
                bytes += static_cast<char>(data[i]);
            word = QString::fromUtf8(bytes);
        } else {
            const std::string_view text = words[data[i] % std::size(words)];
            word = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
            for (const char* name : {"card", "empty", "missing", "out"})
                word.replace(QStringLiteral("<%1>").arg(QLatin1String(name)), world.path(name));
            word.replace(QLatin1String("<profile>"), world.path("profile.xml"));
        }
        if (isGlued || line.last().endsWith(QLatin1Char('=')))
            line.last() += word;
        else
            line << word;
        isGlued = false;
    }
    return line;
}

/// What the rest of the program relies on.
void check(const Cli::Arguments& arguments)
{
    const bool isDbc =
        arguments.verb->run == Cli::exportData && arguments.format == Cli::ExportFormat::Dbc;
    const int choices = (arguments.cycle ? 1 : 0) + (arguments.files ? 1 : 0) + arguments.all;
    const bool choosesOne = arguments.verb->choosesFiles() && !isDbc;
    if (choices != (choosesOne ? 1 : 0) || (arguments.flight && !arguments.cycle) ||
        arguments.flight.value_or(1) < 1 || (!isDbc && arguments.folder.isNull()))
        std::abort();
    if (std::abs(arguments.clockOffset.value_or(0)) > 14 * 60)
        std::abort();
    const bool writes = arguments.verb->run == Cli::exportData || arguments.verb->run == Cli::cut;
    if (writes && arguments.output.isEmpty() == arguments.zip.isEmpty())
        std::abort();
}

/// Whether all paths are inside, and nothing takes long.
bool isHarmless(const World& world, const Cli::Arguments& arguments)
{
    for (const QString& path :
         {arguments.folder, arguments.output, arguments.zip, arguments.profile}) {
        if (!path.isEmpty() && path != QLatin1String("-") && !world.isInside(path))
            return false;
    }
    for (const QString& name : arguments.files.value_or(QStringList())) {
        if (!world.isInside(arguments.folder + QLatin1Char('/') + name))
            return false;
    }
    return arguments.pdf.isEmpty() && !arguments.profile.isEmpty();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const World world;
    static int count = 1;
    static char name[] = "kolt-cli";
    static char* names[] = {name, nullptr};
    static const QCoreApplication application(count, names);
    const QStringList line = commandLine(world, data, size);
    if (line.value(1) == QLatin1String("library")) {
        const Cli::LibraryParseResult parsed = Cli::parseLibrary(line.mid(2));
        if (parsed.error.isEmpty() && (parsed.verb == nullptr) == parsed.help.isEmpty())
            std::abort();
        if (parsed.error.isEmpty() && parsed.verb != nullptr &&
            (parsed.arguments.library.isEmpty() || parsed.arguments.archive.isEmpty()))
            std::abort();
        return 0;
    }
    const Cli::ParseResult parsed = Cli::parseArguments(line);
    const int results =
        (parsed.arguments ? 1 : 0) + !parsed.help.isEmpty() + !parsed.error.isEmpty();
    if (results != 1)
        std::abort();
    if (!parsed.arguments)
        return 0;
    check(*parsed.arguments);
    if (!isHarmless(world, *parsed.arguments))
        return 0;
    SettingsStore& settings = Cli::installedSettings();
    storeCsvOptions({}, settings); // exports leave their options there
    storeKmlOptions({}, settings);
    storeGpxOptions({}, settings);
    parsed.arguments->verb->run(*parsed.arguments);
    QDir out(world.path("out"));
    if (!out.removeRecursively() || !out.mkpath(QStringLiteral(".")))
        std::abort();
    return 0;
}

#include "base/Diagnostics.h"
#include "tools/samplecard/SampleCard.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <string_view>

namespace {

int fail(const QString& text)
{
    std::fprintf(stderr, "kolt-samplecard: %s\n", qUtf8Printable(text));
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kolt-samplecard"));
    // The tool reports errors itself, in one line.
    KOLT::Diagnostics::setSink([](std::string_view) {});

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes a memory card of simulated tow flights."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("DIR"), QStringLiteral("Folder of the card."));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("Another card for each N."), QStringLiteral("N"),
                                  QStringLiteral("1"));
    const QCommandLineOption hours(QStringLiteral("hours"),
                                   QStringLiteral("One engine run of H hours instead of the card."),
                                   QStringLiteral("H"));
    const QCommandLineOption isShort(QStringLiteral("short"),
                                     QStringLiteral("One short engine run in three files."));
    const QCommandLineOption profile(
        QStringLiteral("profile"), QStringLiteral("Profile that the messages are encoded with."),
        QStringLiteral("FILE"),
        QCoreApplication::applicationDirPath() + QStringLiteral("/../profiles/Profile.xml"));
    const QCommandLineOption planted(
        QStringLiteral("planted"),
        QStringLiteral(
            "Where to write down what the card holds on purpose; \"planted.json\" beside "
            "its folder without this option."),
        QStringLiteral("FILE"));
    parser.addOptions({seed, hours, isShort, profile, planted});
    parser.process(application);

    if (parser.positionalArguments().size() != 1)
        return fail(QStringLiteral("name one folder to write to"));
    KOLT::SampleCard::SampleCardOptions options;
    options.folder = parser.positionalArguments().constFirst();
    options.profilePath = parser.value(profile);
    options.plantedPath =
        parser.isSet(planted)
            ? parser.value(planted)
            : QDir::cleanPath(options.folder + QStringLiteral("/../planted.json"));
    bool ok = false;
    options.seed = parser.value(seed).toULongLong(&ok);
    if (!ok)
        return fail(QStringLiteral("--seed needs a whole number"));
    if (parser.isSet(hours)) {
        options.hours = parser.value(hours).toDouble(&ok);
        // 1000 hours take about 16 GB.
        if (!ok || !(options.hours > 0.0) || options.hours > 1000.0)
            return fail(QStringLiteral("--hours needs a number above 0, up to 1000"));
    }
    options.isShort = parser.isSet(isShort);
    options.report = [](const QString& line) {
        std::printf("%s\n", qUtf8Printable(line));
        std::fflush(stdout);
    };
    QString error;
    return KOLT::SampleCard::writeSampleCard(options, &error) ? 0 : fail(error);
}

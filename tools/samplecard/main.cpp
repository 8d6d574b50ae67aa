#include "base/Diagnostics.h"
#include "tools/samplecard/SampleCard.h"
#include "tools/samplecard/SampleHistory.h"

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

void print(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

/// The options of "--history".
class HistorySwitches
{
public:
    explicit HistorySwitches(QCommandLineParser& parser)
    {
        parser.addOptions({m_folder, m_flights, m_missing, m_units});
    }

    bool isWanted(const QCommandLineParser& parser) const { return parser.isSet(m_folder); }

    int run(const QCommandLineParser& parser, const QString& profile, const QString& seed) const
    {
        if (!parser.positionalArguments().isEmpty())
            return fail(QStringLiteral("--history takes the only folder"));
        KOLT::SampleCard::HistoryOptions options;
        options.folder = parser.value(m_folder);
        options.profilePath = profile;
        bool ok = false;
        options.seed = seed.toULongLong(&ok);
        const auto number = [&](const QCommandLineOption& option, int low, int high) {
            bool isNumber = false;
            const int value = parser.value(option).toInt(&isNumber);
            ok = ok && isNumber && value >= low && value <= high;
            return value;
        };
        options.flights = number(m_flights, 1, 200000);
        options.flightsWithoutCard = number(m_missing, 0, 200000);
        options.units = number(m_units, 1, 2);
        if (!ok)
            return fail(QStringLiteral("a number is none or out of range"));
        QString error;
        return KOLT::SampleCard::writeSampleHistory(options, print, &error) ? 0 : fail(error);
    }

private:
    QCommandLineOption m_folder{QStringLiteral("history"),
                                QStringLiteral("Cards of many months instead of one card, with "
                                               "what is true of them in \"history.json\"."),
                                QStringLiteral("FOLDER")};
    QCommandLineOption m_flights{QStringLiteral("flights"), QStringLiteral("Flights on the cards."),
                                 QStringLiteral("N"), QStringLiteral("300")};
    QCommandLineOption m_missing{QStringLiteral("without-card"),
                                 QStringLiteral("More flights, with no card in the unit."),
                                 QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption m_units{QStringLiteral("units"),
                               QStringLiteral("1 or 2; of two, the engines change places."),
                               QStringLiteral("N"), QStringLiteral("2")};
};

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
    const HistorySwitches history(parser);
    parser.process(application);

    if (history.isWanted(parser))
        return history.run(parser, parser.value(profile), parser.value(seed));
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
    options.report = print;
    QString error;
    return KOLT::SampleCard::writeSampleCard(options, &error) ? 0 : fail(error);
}

#include "record/TrustText.h"

#include <QCoreApplication>

namespace KOLT::TrustText {

namespace {

class Trust
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Trust)
};

/// "0.4 s", "60 s", "12.5 min".
QString lengthText(double seconds)
{
    constexpr double minute = 60.0;
    if (seconds < 10.0)
        return QStringLiteral("%1 s").arg(seconds, 0, 'f', 1);
    if (seconds < 3.0 * minute)
        return QStringLiteral("%1 s").arg(seconds, 0, 'f', 0);
    return QStringLiteral("%1 min").arg(seconds / minute, 0, 'f', 1);
}

/// Some of them, and how many more there are.
QString someOf(const QStringList& names)
{
    constexpr qsizetype told = 3;
    if (names.size() <= told)
        return names.join(QStringLiteral(", "));
    return Trust::tr("%1 and %n more", nullptr, static_cast<int>(names.size() - told))
        .arg(names.mid(0, told).join(QStringLiteral(", ")));
}

QString namesText(const std::vector<QString>& names)
{
    return someOf(QStringList(names.begin(), names.end()));
}

} // namespace

QString duplicateFile(const QString& copy, const QString& original)
{
    return Trust::tr(
               "%1 is a copy of %2: what it holds counts twice in fuel, altitudes and all sums. "
               "Take the copy out of the folder.")
        .arg(copy, original);
}

QString unreadableFile(const QString& name)
{
    return Trust::tr(
               "%1 could not be read: its flights are lacking, and figures around it are wrong. "
               "Copy it from the card once more.")
        .arg(name);
}

QString missingFile(const QString& before, const QString& after, double seconds)
{
    return Trust::tr(
               "Between %1 and %2 a file is missing (%3): altitudes, fuel and times of flights "
               "there are wrong, and so are all sums. Look for it on the card.")
        .arg(before, after, lengthText(seconds));
}

QString missingOpener(const QString& before, const QString& first)
{
    return Trust::tr(
               "Between %1 and %2 files are missing, among them the one that opens an engine run: "
               "two runs lie in one cycle, and dates, figures and sums from %2 on are wrong. Look "
               "for them on the card.")
        .arg(before, first);
}

QString missingAtEnd(const QString& last, const QString& next)
{
    return Trust::tr(
               "Between %1 and %2 files are missing: the end of this engine run, or other runs. "
               "Sums lack what they hold. Look for them on the card.")
        .arg(last, next);
}

QString truncatedFile(const QString& name, std::optional<double> seconds)
{
    if (!seconds)
        return Trust::tr(
                   "%1 is cut short: figures of a flight at its end may lack something. Copy it "
                   "from the card once more, or take its end with care.")
            .arg(name);
    return Trust::tr(
               "%1 is cut short by %2: altitudes, fuel and times of a flight at its end may be "
               "wrong. Copy it from the card once more.")
        .arg(name, lengthText(*seconds));
}

QString overlappingFiles(const QString& before, const QString& after)
{
    return Trust::tr(
               "%1 and %2 hold the same time: fuel, altitudes and sums count it twice. Take one of "
               "them out of the folder.")
        .arg(before, after);
}

QString foreignFiles(const std::vector<QString>& names)
{
    return Trust::tr(
               "The times in %1 do not go on from the file before, and belong to another engine "
               "run: figures and dates around there are wrong. Load these files alone, or give "
               "them back their names.")
        .arg(namesText(names));
}

QString wrongOrder(const std::vector<QString>& names)
{
    return Trust::tr(
               "By their times %1 belong in another order than by their names: figures of flights "
               "in them are wrong. Give the files back their names.")
        .arg(namesText(names));
}

QString strayTimes(const QString& name, int count)
{
    return Trust::tr(
               "%n time stamp(s) in %1 are far off: figures of flights there may be wrong. Take "
               "them with care.",
               nullptr, count)
        .arg(name);
}

QString counterJumps(const QString& name)
{
    return Trust::tr(
               "The counter jumps within %1: times, fuel and altitudes of flights there are wrong. "
               "Take them with care.")
        .arg(name);
}

QString hole(double seconds)
{
    return Trust::tr(
               "For %1 nothing was recorded: altitudes, fuel and times of a flight there may be "
               "wrong. Take them with care.")
        .arg(lengthText(seconds));
}

QString holes(int count, double seconds)
{
    return Trust::tr("%n times nothing was recorded, for %1 in all: altitudes, fuel and times of "
                     "flights there may be wrong. Look at the card and the unit.",
                     nullptr, count)
        .arg(lengthText(seconds));
}

QString messageHole(const QStringList& parameters, double seconds)
{
    return Trust::tr("For %1 nothing came of %2: what is made from it lacks that time. Look at the "
                     "sensor and its cable when it happens again.")
        .arg(lengthText(seconds), someOf(parameters));
}

QString noPosition(double seconds)
{
    return Trust::tr(
               "For %1 there was no position in flight: altitudes, speeds and distances of the "
               "flight may be wrong, and it may count as two. Look at the antenna when it happens "
               "again.")
        .arg(lengthText(seconds));
}

QString notANumber(const QString& parameter, int count)
{
    return Trust::
        tr("%n value(s) of %1 are no numbers and left out: figures made from it lack them. Look "
           "at the sensor.",
           nullptr, count)
            .arg(parameter);
}

QString noLanding()
{
    return Trust::tr(
        "A take-off has no landing before the recording ends: the flight is in no list, "
        "its time is in no sum, and its fuel counts as outside flights. Look whether the "
        "recording goes on elsewhere.");
}

QString noTakeOff()
{
    return Trust::tr(
        "The recording begins in the air: the first flight lacks its take-off, and its "
        "figures are wrong. Look whether the recording begins elsewhere.");
}

QString cutStart()
{
    return Trust::tr(
        "A flight begins at the edge of the recording: its figures may lack something. Look "
        "whether the recording begins elsewhere.");
}

QString cutEnd()
{
    return Trust::tr(
        "A flight ends at the edge of the recording: its figures may lack something. Look "
        "whether the recording goes on elsewhere.");
}

QString lateClock(const QString& file, double seconds)
{
    if (seconds < 0.0)
        return Trust::tr(
                   "Dates and clock times are %1 early, as the date of %2 does not fit the files "
                   "behind it; times on the counter are right. Add that to them.")
            .arg(lengthText(-seconds), file);
    return Trust::tr(
               "Dates and clock times are %1 late, as the recording begins with %2, in the middle "
               "of an engine run; times on the counter are right. Load the whole run, or take that "
               "off them.")
        .arg(lengthText(seconds), file);
}

QString beforeFirstCycle()
{
    return Trust::tr(
        "These files lie before the first engine run: the file that opened theirs is not on "
        "the card. Sums lack what it holds.");
}

QString caseFile(const QStringList& sources)
{
    return Trust::tr("This is no card, but a case: what was recorded in this time, cut from %1. "
                     "Flights that begin or end outside of it are not found.")
        .arg(sources.join(QStringLiteral(", ")));
}

QString engineSerial()
{
    return Trust::tr("The engine's serial number");
}

QString unitSerial()
{
    return Trust::tr("The unit's serial number");
}

QString software()
{
    return Trust::tr("The software");
}

QString unitChanged(TrustKind kind, const QString& what, const QString& usual, const QString& other)
{
    if (kind == TrustKind::SoftwareChanged)
        return Trust::tr(
                   "%1 changes within the cycle from %2 to %3: values may be sent in another way, "
                   "above all the fuel. Compare them before and behind.")
            .arg(what, usual, other);
    return Trust::
        tr("%1 changes within the cycle (%2, %3): files of two aircraft may be mixed, and their "
           "figures and sums with them. Put files of each into a folder of their own.")
            .arg(what, usual, other);
}

QString otherEngine(const QString& engine, const QString& pattern)
{
    return Trust::tr(
               "The recording is of an engine \"%1\", the variant of the profile is for \"%2\": "
               "limits and exceedances may be those of another engine. Choose another variant.")
        .arg(engine, pattern);
}

QString unknownMessages(int identifiers, double share)
{
    return Trust::tr(
               "%n message(s), %1 % of all samples, are not in the profile and shown nowhere; the "
               "figures hold. Look for a newer profile, or another variant.",
               nullptr, identifiers)
        .arg(share * 100.0, 0, 'f', 1);
}

QString neverRecorded(const QStringList& parameters)
{
    return Trust::tr(
               "%1 were never recorded: figures and limits of them are empty. Look whether the "
               "profile is for this aircraft.")
        .arg(someOf(parameters));
}

} // namespace KOLT::TrustText

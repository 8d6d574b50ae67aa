#include "analysis/FaultSnapshot.h"

#include "analysis/MomentText.h"
#include "profile/ValueDecoder.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::FaultSnapshot)
};

/// A change is one that leaves the spread before by so many standard deviations, and the mean
/// before by this part of it.
constexpr double deviations = 4.0;
constexpr double leastPart = 0.01;

constexpr std::size_t mostSwitches = 200; ///< of one parameter; more is chatter

struct Sampled
{
    double seconds;
    double number;
};

std::vector<Sampled> samplesWithin(const DataSet& dataSet, const ProfileParameter& parameter,
                                   double from, double to)
{
    std::vector<Sampled> values;
    for (const StoredSample& sample : seriesOf(dataSet.messages, parameter).around(from, to)) {
        const double seconds = sample.seconds();
        const double number = decodeNumber(sample.data, parameter);
        if (seconds >= from && seconds <= to && std::isfinite(number))
            values.push_back({seconds, number});
    }
    return values;
}

void addSwitches(const Profile& profile, const ProfileParameter& parameter,
                 const std::vector<Sampled>& values, FaultSnapshot& snapshot)
{
    std::size_t count = 0;
    for (std::size_t i = 1; i < values.size() && count < mostSwitches; ++i) {
        if (values[i].number == values[i - 1].number)
            continue;
        ++count;
        snapshot.switches.push_back({values[i].seconds, &parameter,
                                     numberText(profile, parameter, values[i - 1].number),
                                     numberText(profile, parameter, values[i].number)});
    }
}

struct RankedChange
{
    double strength = 0.0;
    FaultSnapshot::Change change;
};

std::optional<RankedChange> changeOf(const Profile& profile, const ProfileParameter& parameter,
                                     const std::vector<Sampled>& values, double moment)
{
    double sum = 0.0;
    double squares = 0.0;
    std::size_t count = 0;
    for (; count < values.size() && values[count].seconds <= moment; ++count) {
        sum += values[count].number;
        squares += values[count].number * values[count].number;
    }
    if (count == 0 || count == values.size())
        return {};
    const double mean = sum / static_cast<double>(count);
    const double spread =
        std::sqrt(std::max(0.0, squares / static_cast<double>(count) - mean * mean));
    const auto farthest =
        std::max_element(values.begin() + static_cast<std::ptrdiff_t>(count), values.end(),
                         [&](const Sampled& a, const Sampled& b) {
                             return std::abs(a.number - mean) < std::abs(b.number - mean);
                         });
    const double distance = std::abs(farthest->number - mean);
    const double least = std::max(deviations * spread, leastPart * std::abs(mean));
    if (!(distance > least))
        return {};
    const auto text = [&](double number) { return numberText(profile, parameter, number); };
    return RankedChange{least > 0.0 ? distance / least : distance,
                        {&parameter, text(mean), text(values[count - 1].number),
                         text(farthest->number), farthest->seconds, text(values.back().number)}};
}

/// A number of one of several states, not of an amount.
bool isState(const ProfileParameter& parameter)
{
    return parameter.rule == DecodingRule::BitField || parameter.enumList != nullptr;
}

QString relative(double seconds, double moment)
{
    const QString text = QString::number(seconds - moment, 'f', 1);
    return (text.startsWith(QLatin1Char('-')) ? QString() : QStringLiteral("+")) + text +
           QStringLiteral(" s");
}

QString headOf(const FaultSnapshot& snapshot, const DataSet& dataSet)
{
    const FaultOccurrence& one = snapshot.occurrence;
    const QString lasted = QString::number(one.duration(), 'f', 1);
    return Text::tr("Fault %1, set at %2 (%3), for %4")
        .arg(one.parameter->fullName, counterText(one.begin),
             dateTimeText(dataSet.dateTime, one.begin),
             one.isCut ? Text::tr("at least %1 s").arg(lasted) : Text::tr("%1 s").arg(lasted));
}

/// The tables as rows of cells; the first row has the headings.
using Table = std::vector<QStringList>;

Table switchTable(const FaultSnapshot& snapshot)
{
    Table table{{Text::tr("Time"), Text::tr("Parameter"), Text::tr("From"), Text::tr("To")}};
    for (const FaultSnapshot::Switch& one : snapshot.switches)
        table.push_back({relative(one.seconds, snapshot.occurrence.begin), one.parameter->fullName,
                         one.from, one.to});
    return table;
}

Table changeTable(const FaultSnapshot& snapshot)
{
    Table table{{Text::tr("Parameter"), Text::tr("30 s before, mean"), Text::tr("At the fault"),
                 Text::tr("Farthest within 30 s"), Text::tr("30 s after")}};
    for (const FaultSnapshot::Change& one : snapshot.changes)
        table.push_back(
            {one.parameter->fullName, one.before, one.at,
             QStringLiteral("%1 (%2)").arg(
                 one.farthest, relative(one.farthestSeconds, snapshot.occurrence.begin)),
             one.after});
    return table;
}

QString html(const Table& table)
{
    QString text =
        QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\" border=\"1\">");
    for (const QStringList& row : table) {
        const auto tag = &row == &table.front() ? QStringLiteral("th") : QStringLiteral("td");
        text += QStringLiteral("<tr>");
        for (const QString& cell : row)
            text += QStringLiteral("<%1 align=\"left\">%2</%1>").arg(tag, cell.toHtmlEscaped());
        text += QStringLiteral("</tr>");
    }
    return text + QStringLiteral("</table>");
}

QString lines(const Table& table)
{
    QString text;
    for (const QStringList& row : table)
        text += row.join(QLatin1Char('\t')) + QLatin1Char('\n');
    return text;
}

} // namespace

FaultSnapshot faultSnapshot(const Profile& profile, const DataSet& dataSet,
                            const FaultOccurrence& occurrence)
{
    FaultSnapshot snapshot;
    snapshot.occurrence = occurrence;
    const double moment = occurrence.begin;
    std::vector<RankedChange> changes;
    for (const Device& device : profile.devices()) {
        for (const ProfileParameter* parameter : device.parameters) {
            if (parameter->rule == DecodingRule::NotImplemented || parameter->isPosition())
                continue;
            std::vector<Sampled> values =
                samplesWithin(dataSet, *parameter, moment - FaultSnapshot::seconds,
                              moment + FaultSnapshot::seconds);
            std::ranges::stable_sort(values, {}, &Sampled::seconds);
            if (isState(*parameter))
                addSwitches(profile, *parameter, values, snapshot);
            else if (auto change = changeOf(profile, *parameter, values, moment))
                changes.push_back(std::move(*change));
        }
    }
    std::ranges::stable_sort(snapshot.switches, {}, &FaultSnapshot::Switch::seconds);
    std::ranges::stable_sort(changes, std::greater<>(), &RankedChange::strength);
    for (RankedChange& change : changes)
        snapshot.changes.push_back(std::move(change.change));
    return snapshot;
}

QString snapshotHtml(const FaultSnapshot& snapshot, const DataSet& dataSet)
{
    QString text = QStringLiteral("<h2>%1</h2>").arg(headOf(snapshot, dataSet).toHtmlEscaped());
    text += QStringLiteral("<h3>%1</h3>").arg(Text::tr("What switched within 30 s")) +
            html(switchTable(snapshot));
    return text + QStringLiteral("<h3>%1</h3>").arg(Text::tr("What changed")) +
           html(changeTable(snapshot));
}

QString snapshotText(const FaultSnapshot& snapshot, const DataSet& dataSet)
{
    return headOf(snapshot, dataSet) + QStringLiteral("\n\n") +
           Text::tr("What switched within 30 s") + QLatin1Char('\n') +
           lines(switchTable(snapshot)) + QLatin1Char('\n') + Text::tr("What changed") +
           QLatin1Char('\n') + lines(changeTable(snapshot));
}

} // namespace KOLT

#include "library/ledger/LedgerText.h"

#include "record/ClockTime.h"

#include <QCoreApplication>

#include <cmath>

namespace KOLT::Library {

namespace {

constexpr double secondsPerHour = 3600.0;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::EngineLedger)
};

QString dayText(const QDate& date)
{
    return date.toString(QStringLiteral("d.M.yyyy"));
}

QString whole(double value)
{
    return QString::number(value, 'f', 0);
}

QString cell(const QString& text, bool isNumber = false)
{
    return QStringLiteral("<td%1>%2</td>")
        .arg(isNumber ? QStringLiteral(" align=\"right\"") : QString(), text.toHtmlEscaped());
}

/// Those of numbers stand above these, at the right.
enum class Below { Texts, Numbers };

QString heading(const QStringList& names, Below below = Below::Texts)
{
    QString html = QStringLiteral("<tr>");
    for (const QString& name : names) {
        const bool isRight = below == Below::Numbers && &name != &names.constFirst();
        html += QStringLiteral("<th align=\"%1\">%2</th>")
                    .arg(isRight ? QStringLiteral("right") : QStringLiteral("left"),
                         name.toHtmlEscaped());
    }
    return html + QStringLiteral("</tr>");
}

QString table(const QString& rows)
{
    return QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">%1</table>").arg(rows);
}

QString section(const QString& title, const QString& body, const QString& style = {})
{
    return QStringLiteral("<h3 style=\"%1\">%2</h3>%3").arg(style, title.toHtmlEscaped(), body);
}

QString limitsHtml(const EngineLedger& ledger, const QDate& today)
{
    QString rows = heading({Text::tr("What"), Text::tr("Every"), Text::tr("Last done"),
                            Text::tr("Due"), Text::tr("Left"), Text::tr("State")});
    for (const MaintenanceState& state : ledger.limits) {
        rows += QStringLiteral("<tr>") + cell(state.limit.title) + cell(intervalText(state.limit)) +
                cell(lastDoneText(state.limit)) + cell(dueText(state)) +
                cell(leftText(state, today)) + cell(dueStateText(state.state)) +
                QStringLiteral("</tr>");
    }
    return section(Text::tr("Maintenance"), table(rows));
}

QString bandsHtml(const EngineLedger& ledger)
{
    QString rows = heading({Text::tr("Quantity"), Text::tr("Known"), Text::tr("Beyond a warning"),
                            Text::tr("Beyond a limit")},
                           Below::Numbers);
    for (const LedgerBand& band : ledgerBands(ledger.engine)) {
        rows += QStringLiteral("<tr>") + cell(band.quantity) +
                cell(durationText(band.total()), true) + cell(durationText(band.seconds[1]), true) +
                cell(durationText(band.seconds[2]), true) + QStringLiteral("</tr>");
    }
    return section(Text::tr("Time in the limit bands"), table(rows));
}

/// With graphics, what is before fills a page: the title would stand alone at its foot.
QString monthsHtml(const EngineLedger& ledger, bool isBehindGraphics)
{
    QString rows =
        heading({Text::tr("Month"), Text::tr("Hours"), Text::tr("Starts"), Text::tr("Flights"),
                 Text::tr("In the air"), Text::tr("Fuel l"), Text::tr("Episodes")},
                Below::Numbers);
    for (const MonthRow& month : ledger.months) {
        const LibrarySums& sums = month.sums;
        rows += QStringLiteral("<tr>") +
                cell(month.month.isValid() ? month.month.toString(QStringLiteral("MM.yyyy"))
                                           : Text::tr("without a date")) +
                cell(QString::number(sums.runSeconds / secondsPerHour, 'f', 1), true) +
                cell(QString::number(sums.starts), true) +
                cell(QString::number(sums.flights), true) +
                cell(durationText(sums.airSeconds), true) + cell(whole(sums.fuel), true) +
                cell(QString::number(sums.episodes), true) + QStringLiteral("</tr>");
    }
    return section(Text::tr("Months"), table(rows),
                   isBehindGraphics ? QStringLiteral("page-break-before:always;") : QString());
}

QString notesHtml(const EngineLedger& ledger)
{
    QString rows;
    for (const Note& note : ledger.notes) {
        const QDateTime time =
            note.place.dateTime.isValid() ? note.place.dateTime : note.item.changed;
        rows +=
            QStringLiteral("<tr>") + cell(time.toString(QStringLiteral("d.M.yyyy hh:mm"))) +
            QStringLiteral("<td>%1</td></tr>")
                .arg(note.text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")));
    }
    return section(Text::tr("Notes"), table(rows));
}

} // namespace

QString hoursText(double hours)
{
    return Text::tr("%1 h").arg(hours, 0, 'f', 2);
}

QString intervalText(const MaintenanceLimit& limit)
{
    const QString hours =
        limit.everyHours ? Text::tr("%1 h").arg(*limit.everyHours, 0, 'g', 6) : QString();
    const QString months =
        limit.everyMonths ? Text::tr("%n month(s)", nullptr, *limit.everyMonths) : QString();
    return hours.isEmpty() || months.isEmpty() ? hours + months
                                               : Text::tr("%1 or %2").arg(hours, months);
}

QString lastDoneText(const MaintenanceLimit& limit)
{
    if (!limit.lastDate.isValid() && limit.lastHours == 0.0)
        return Text::tr("never");
    const QString hours = limit.everyHours ? hoursText(limit.lastHours) : QString();
    const QString date = limit.lastDate.isValid() ? dayText(limit.lastDate) : QString();
    return hours.isEmpty() || date.isEmpty() ? hours + date
                                             : QStringLiteral("%1, %2").arg(hours, date);
}

QString dueText(const MaintenanceState& state)
{
    QStringList parts;
    if (state.dueHours)
        parts << hoursText(*state.dueHours);
    if (state.dueDate.isValid())
        parts << dayText(state.dueDate);
    if (state.expected.isValid())
        parts << Text::tr("about %1").arg(dayText(state.expected));
    return parts.join(QStringLiteral(", "));
}

QString leftText(const MaintenanceState& state, const QDate& today)
{
    QStringList parts;
    if (state.hoursLeft && *state.hoursLeft >= 0.0)
        parts << Text::tr("%1 h").arg(*state.hoursLeft, 0, 'f', 1);
    else if (state.hoursLeft)
        parts << Text::tr("%1 h over").arg(-*state.hoursLeft, 0, 'f', 1);
    if (state.dueDate.isValid()) {
        const auto days = static_cast<int>(today.daysTo(state.dueDate));
        parts << (days >= 0 ? Text::tr("%n day(s)", nullptr, days)
                            : Text::tr("%n day(s) over", nullptr, -days));
    }
    return parts.join(QStringLiteral(", "));
}

QString dueStateText(DueState state)
{
    switch (state) {
    case DueState::Soon:
        return Text::tr("due soon");
    case DueState::Overdue:
        return Text::tr("overdue");
    case DueState::Ok:
        break;
    }
    return Text::tr("not due");
}

std::vector<std::pair<QString, QString>> ledgerFigures(const EngineLedger& ledger)
{
    const LibrarySums& sums = ledger.engine.sums;
    QStringList units;
    for (const quint32 unit : ledger.engine.units)
        units << QString::number(unit);
    std::vector<std::pair<QString, QString>> figures{
        {Text::tr("Engine"),
         QStringLiteral("%1 %2").arg(ledger.engine.engine, ledger.engine.engineType)},
        {Text::tr("Units"), units.join(QStringLiteral(", "))},
        {Text::tr("Recorded"),
         Text::tr("%1 to %2").arg(dayText(ledger.engine.first), dayText(ledger.engine.last))},
        {Text::tr("Hours of the engine"), hoursText(ledger.hours)},
        {Text::tr("Recorded hours"), hoursText(ledger.recordedHours())},
        {Text::tr("Recorded starts"), QString::number(sums.starts)}};
    const CountedUse& hours = ledger.use.hours;
    const CountedUse& starts = ledger.use.starts;
    if (hours.last)
        figures.emplace_back(Text::tr("Unit's counter"), hoursText(*hours.last));
    if (starts.last)
        figures.emplace_back(Text::tr("Unit's starts"), whole(*starts.last));
    if (hours.first) {
        QString text = hoursText(hours.missed());
        if (starts.first)
            text += QStringLiteral(", ") +
                    Text::tr("%n start(s)", nullptr, static_cast<int>(starts.missed()));
        figures.emplace_back(Text::tr("Flown without a card"), text);
    }
    figures.emplace_back(Text::tr("Flights"), QString::number(sums.flights));
    figures.emplace_back(Text::tr("In the air"), durationText(sums.airSeconds));
    figures.emplace_back(Text::tr("Fuel"), Text::tr("%1 l").arg(sums.fuel, 0, 'f', 1));
    figures.emplace_back(
        Text::tr("Episodes"),
        Text::tr("%1, of them %2 beyond a limit").arg(sums.episodes).arg(sums.limits));
    return figures;
}

QString ledgerHtml(const EngineLedger& ledger, const QDate& today, const QString& graphics)
{
    QString rows;
    for (const auto& [name, value] : ledgerFigures(ledger))
        rows += QStringLiteral("<tr>") + cell(name) + cell(value) + QStringLiteral("</tr>");
    QString html = section(Text::tr("Ledger of engine %1").arg(ledger.engine.engine), table(rows));
    if (!ledger.limits.empty())
        html += limitsHtml(ledger, today);
    html += graphics + monthsHtml(ledger, !graphics.isEmpty());
    if (!ledger.engine.bands.empty())
        html += bandsHtml(ledger);
    if (!ledger.notes.empty())
        html += notesHtml(ledger);
    return html;
}

} // namespace KOLT::Library

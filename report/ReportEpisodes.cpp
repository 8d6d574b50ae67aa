#include "analysis/MomentText.h"
#include "report/HtmlTable.h"
#include "report/ReportText.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::EngineReport)
};

constexpr const char* newPage = "page-break-before:always;";
constexpr int longText = 34; ///< a longer figure has a line of its own

QString placeText(const ReportEpisode& episode)
{
    if (!episode.flight)
        return Text::tr("Cycle %1").arg(episode.cycle);
    return Text::tr("Cycle %1, flight %2").arg(episode.cycle).arg(*episode.flight);
}

QString dateText(const QDateTime& moment)
{
    return moment.isValid() ? moment.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                            : QString(noDate);
}

QString secondsText(double seconds, bool isCut)
{
    const QString text = Text::tr("%1 s").arg(seconds, 0, 'f', 1);
    return isCut ? Text::tr("at least %1").arg(text) : text;
}

/// The short figures in two columns, the long ones below.
QString figuresHtml(const std::vector<EpisodeFigure>& figures)
{
    HtmlTable two("LlLl");
    HtmlTable one("Ll");
    QStringList cells;
    for (const EpisodeFigure& figure : figures) {
        if (figure.text.size() > longText) {
            one.add({figure.label, figure.text});
            continue;
        }
        cells << figure.label << figure.text;
        if (cells.size() == 4) {
            two.add(cells);
            cells.clear();
        }
    }
    if (!cells.isEmpty())
        two.add(cells << QString() << QString());
    return two.html() + one.html();
}

QString worstHtml(const EngineReport& report, std::size_t index)
{
    const ReportEpisode& episode = report.episodes[index];
    QString html =
        htmlParagraph(QStringLiteral("%1. %2 - %3, %4")
                          .arg(index + 1)
                          .arg(episode.title, placeText(episode), dateText(episode.begins)),
                      "h3") +
        figuresHtml(episode.figures);
    if (episode.graph)
        html +=
            QStringLiteral("<p style=\"margin:3px 0px 8px\"><img src=\"graph:%1\"></p>").arg(index);
    return html;
}

QString othersHtml(const EngineReport& report, std::size_t first)
{
    HtmlTable table("RlllRRRl", {Text::tr("No."), Text::tr("Episode"), Text::tr("Cycle, flight"),
                                 Text::tr("Begin"), Text::tr("Peak"), Text::tr("Duration"),
                                 Text::tr("Beyond"), Text::tr("Phase")});
    for (std::size_t i = first; i < report.episodes.size(); ++i) {
        const ReportEpisode& episode = report.episodes[i];
        const double beyond = episode.state == ThresholdState::Limit ? episode.secondsBeyondLimit
                                                                     : episode.secondsBeyondWarning;
        table.add({QString::number(i + 1), episode.title, placeText(episode),
                   dateText(episode.begins), episode.peakText,
                   secondsText(episode.end - episode.begin, episode.isCut),
                   secondsText(beyond, episode.isCut), episode.phase});
    }
    return table.html();
}

/// The parameters, together where it is the same cycles.
QString startsHtml(const EngineReport& report)
{
    QStringList names;
    std::map<QString, QStringList> cycles;
    for (const ReportStart& start : report.atStart) {
        if (!names.contains(start.parameter))
            names << start.parameter;
        cycles[start.parameter] << QString::number(start.cycle);
    }
    std::vector<std::pair<QStringList, QStringList>> groups; // cycles, names
    for (const QString& name : names) {
        const auto same =
            std::ranges::find(groups, cycles[name], &std::pair<QStringList, QStringList>::first);
        if (same != groups.end())
            same->second << name;
        else
            groups.emplace_back(cycles[name], QStringList{name});
    }
    QStringList texts;
    for (const auto& [numbers, parameters] : groups) {
        const QString together = parameters.join(QStringLiteral(", "));
        texts
            << (static_cast<std::size_t>(numbers.size()) == report.cycles.size()
                    ? Text::tr("%1 (every cycle)").arg(together)
                    : Text::tr("%1 (cycle %2)").arg(together, numbers.join(QStringLiteral(", "))));
    }
    return texts.isEmpty() ? QString()
                           : htmlParagraph(Text::tr("Beyond a threshold at the first sample, which "
                                                    "is no episode: %1")
                                               .arg(texts.join(QStringLiteral("; "))));
}

QString occurrencesHtml(const EngineReport& report, const QString& title, const QString& none,
                        const std::vector<ReportOccurrences>& list)
{
    HtmlTable table("lRrLR", {Text::tr("Name"), Text::tr("Times"), Text::tr("Cycle"),
                              Text::tr("Begin"), Text::tr("Duration")});
    for (const ReportOccurrences& all : list) {
        bool isFirst = true;
        for (const ReportSpan& span : all.spans) {
            const auto cycle =
                std::ranges::find(report.cycles, std::optional(span.cycle),
                                  [](const ReportCycle& listed) { return listed.sheet.number; });
            const QDateTime start =
                cycle == report.cycles.end() ? QDateTime() : cycle->sheet.dateTime;
            table.add({isFirst ? all.parameter : QString(),
                       isFirst ? QString::number(all.count) : QString(),
                       QString::number(span.cycle),
                       QStringLiteral("%1 (%2)").arg(dateText(momentOf(start, span.begin)),
                                                     counterText(span.begin)),
                       span.end ? secondsText(*span.end - span.begin, span.isCut)
                                : Text::tr("to the end of the recording")});
            isFirst = false;
        }
        if (all.count > all.spans.size())
            table.add({QString(), QString(), QString(),
                       Text::tr("and %1 more").arg(all.count - all.spans.size()), QString()});
    }
    const QString html = table.html();
    return htmlParagraph(title, "h2") + (html.isEmpty() ? htmlParagraph(none) : html);
}

} // namespace

QString episodesHtml(const EngineReport& report)
{
    const EpisodeCounts& counts = report.counts;
    const auto line = [](const QString& label, const EpisodeCounts::Count& count) {
        return label.arg(episodeCellText(count.episodes, count.crossings));
    };
    const std::size_t worst = std::min(report.episodes.size(), EngineReport::graphCount);
    QString html = htmlParagraph(Text::tr("Episodes"), "h2", worst > 0 ? newPage : "") +
                   htmlParagraph(QStringList{line(Text::tr("Limits exceeded: %1"), counts.limits),
                                             line(Text::tr("warnings: %1"), counts.warnings),
                                             line(Text::tr("lamps alone: %1"), counts.lamps)}
                                     .join(QStringLiteral("; "))) +
                   startsHtml(report);
    if (worst == 0)
        html += htmlParagraph(Text::tr("No threshold was exceeded."));
    for (std::size_t i = 0; i < worst; ++i)
        html += worstHtml(report, i);
    if (report.episodes.size() > worst)
        html += htmlParagraph(Text::tr("Other episodes"), "h2") + othersHtml(report, worst);
    if (report.episodesLeftOut > 0)
        html += htmlParagraph(
            Text::tr("%1 less severe episodes are not listed.").arg(report.episodesLeftOut));
    return html +
           occurrencesHtml(report, Text::tr("Faults"), Text::tr("No fault was set."),
                           report.faults) +
           occurrencesHtml(report, Text::tr("Warning lamps"), Text::tr("No lamp came on."),
                           report.lamps);
}

} // namespace KOLT

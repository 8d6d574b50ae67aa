#include "analysis/Episode.h"

#include "profile/ValueDecoder.h"

#include <QCoreApplication>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Episode)
};

} // namespace

QString Episode::peakText(const Profile& profile) const
{
    return peak ? numberText(profile, *peak->parameter, peak->number) : QString();
}

QString episodeLine(const Profile& profile, const Episode& episode)
{
    const QString peak = episode.peakText(profile);
    const QString name =
        peak.isEmpty() ? episode.quantity : episode.quantity + QLatin1Char(' ') + peak;
    const QString lasted = QString::number(episode.duration(), 'f', 1);
    return QStringLiteral("%1, %2: %3")
        .arg(name,
             episode.isCut ? Text::tr("for at least %1 s").arg(lasted)
                           : Text::tr("for %1 s").arg(lasted),
             episodeCountText(1, episode.crossings));
}

QRgb episodeColor(const Episode& episode)
{
    if (episode.peak)
        return gradeOf(*episode.peak->parameter, episode.peak->number).color;
    const Threshold& threshold = *episode.parameters.front()->threshold;
    return threshold.steps.empty() ? Grade().color : threshold.steps.back().grade.color;
}

QString episodeCountText(std::size_t episodes, std::size_t crossings)
{
    // kolt-cli has no translation that would choose between one and several.
    const QString first =
        episodes == 1 ? Text::tr("1 episode") : Text::tr("%1 episodes").arg(episodes);
    const QString second =
        crossings == 1 ? Text::tr("1 crossing") : Text::tr("%1 crossings").arg(crossings);
    return QStringLiteral("%1 (%2)").arg(first, second);
}

QString episodeCellText(std::size_t episodes, std::size_t crossings)
{
    return crossings == 0 ? QStringLiteral("0") : episodeCountText(episodes, crossings);
}

void EpisodeCounts::add(const Episode& episode)
{
    Count& count = episode.isLampOnly                       ? lamps
                   : episode.state == ThresholdState::Limit ? limits
                                                            : warnings;
    ++count.episodes;
    count.crossings += episode.crossings;
}

void EpisodeCounts::add(const EpisodeCounts& other)
{
    const auto addCount = [](Count& to, const Count& from) {
        to.episodes += from.episodes;
        to.crossings += from.crossings;
    };
    addCount(limits, other.limits);
    addCount(warnings, other.warnings);
    addCount(lamps, other.lamps);
}

} // namespace KOLT

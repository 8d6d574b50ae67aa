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

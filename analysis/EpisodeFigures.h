#pragma once

#include "analysis/Episode.h"
#include "profile/Profile.h"

#include <QString>

#include <vector>

namespace KOLT {

/// One line of what is known of an episode.
struct EpisodeFigure
{
    QString label;
    QString text; ///< with unit, in the profile's unit system
};

/// "Engine Speed: limit".
QString titleOf(const Episode& episode);

/// All that is known of an episode; what is not known has no line.
std::vector<EpisodeFigure> figuresOf(const Profile& profile, const Episode& episode);

/// Title and figures, a line each, with a tab between label and text.
QString figuresText(const Profile& profile, const Episode& episode);

} // namespace KOLT

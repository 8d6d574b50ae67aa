#include "analysis/EpisodeFigures.h"

#include "analysis/MomentText.h"
#include "profile/ValueDecoder.h"

#include <QCoreApplication>
#include <QStringList>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::EpisodeFigures)
};

/// Seconds of an episode; those of one that is cut are the least.
QString lengthText(const Episode& episode, double seconds)
{
    const QString text = Text::tr("%1 s").arg(seconds, 0, 'f', 1);
    return episode.isCut ? Text::tr("at least %1").arg(text) : text;
}

QString namedValue(const Profile& profile, const MomentValue& value)
{
    return QStringLiteral("%1 %2").arg(value.parameter->name,
                                       numberText(profile, *value.parameter, value.number));
}

/// Collects the lines.
class Figures
{
public:
    explicit Figures(const Profile& profile)
        : m_profile(profile)
    {
    }

    void add(const QString& label, const QString& text) { m_lines.push_back({label, text}); }

    /// The value of the parameter with a role, if it is known.
    void add(const QString& label, Role role, const std::optional<double>& value)
    {
        const ProfileParameter* const parameter = m_profile.parameterByRole(role);
        if (value && parameter != nullptr)
            add(label, numberText(m_profile, *parameter, *value));
    }

    std::vector<EpisodeFigure> take() { return std::move(m_lines); }

private:
    const Profile& m_profile;
    std::vector<EpisodeFigure> m_lines;
};

void addExtent(Figures& figures, const Profile& profile, const Episode& episode)
{
    if (episode.peak)
        figures.add(Text::tr("Peak"),
                    Text::tr("%1 at %2, %3")
                        .arg(episode.peakText(profile), counterText(episode.peak->seconds),
                             episode.peak->parameter->name));
    figures.add(Text::tr("Begin"), counterText(episode.begin));
    figures.add(Text::tr("End"), counterText(episode.end));
    figures.add(Text::tr("Duration"), lengthText(episode, episode.duration()));
    figures.add(Text::tr("Beyond warning"), lengthText(episode, episode.secondsBeyondWarning));
    figures.add(Text::tr("Beyond limit"), lengthText(episode, episode.secondsBeyondLimit));
    figures.add(Text::tr("Crossings"), QString::number(episode.crossings));
}

void addMoment(Figures& figures, const Profile& profile, const Episode& episode)
{
    figures.add(Text::tr("Phase"), phaseTitle(episode.phase));
    figures.add(Text::tr("Engine speed"), Role::EngineSpeed, episode.engineSpeed);
    figures.add(Text::tr("Throttle"), Role::ThrottleA, episode.throttle);
    figures.add(Text::tr("Altitude"), Role::Altitude, episode.altitude);
    figures.add(Text::tr("Ground speed"), Role::GroundSpeed, episode.groundSpeed);
    QStringList values;
    for (const MomentValue& value : episode.group)
        values << namedValue(profile, value);
    if (!values.isEmpty())
        figures.add(Text::tr("Of its group"), values.join(QStringLiteral(", ")));
}

} // namespace

QString titleOf(const Episode& episode)
{
    const QString state =
        episode.state == ThresholdState::Limit ? Text::tr("limit") : Text::tr("warning");
    return QStringLiteral("%1: %2").arg(episode.quantity,
                                        episode.isLampOnly ? Text::tr("lamp") : state);
}

std::vector<EpisodeFigure> figuresOf(const Profile& profile, const Episode& episode)
{
    Figures figures(profile);
    addExtent(figures, profile, episode);
    addMoment(figures, profile, episode);
    QStringList levels;
    for (const EpisodeLevel& level : episode.levels)
        levels << QStringLiteral("%1: %2").arg(
            numberText(profile, *episode.peak->parameter, level.level),
            Text::tr("%1 s").arg(level.seconds, 0, 'f', 1));
    if (!levels.isEmpty())
        figures.add(Text::tr("Time beyond levels"), levels.join(QStringLiteral(", ")));
    return figures.take();
}

QString figuresText(const Profile& profile, const Episode& episode)
{
    QString text = titleOf(episode) + QLatin1Char('\n');
    for (const EpisodeFigure& figure : figuresOf(profile, episode))
        text += figure.label + QLatin1Char('\t') + figure.text + QLatin1Char('\n');
    return text;
}

} // namespace KOLT

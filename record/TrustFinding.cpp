#include "record/TrustFinding.h"

#include <QCoreApplication>

#include <algorithm>

namespace KOLT {

namespace {

struct KindInfo
{
    const char* name;
    const char* title;
    TrustSeverity severity;
};

/// By TrustKind.
constexpr std::array kinds{
    KindInfo{"duplicate-file", QT_TRANSLATE_NOOP("KOLT::Trust", "File twice"),
             TrustSeverity::Wrong},
    KindInfo{"unreadable-file", QT_TRANSLATE_NOOP("KOLT::Trust", "File unreadable"),
             TrustSeverity::Wrong},
    KindInfo{"missing-file", QT_TRANSLATE_NOOP("KOLT::Trust", "File missing"),
             TrustSeverity::Wrong},
    KindInfo{"truncated-file", QT_TRANSLATE_NOOP("KOLT::Trust", "File cut short"),
             TrustSeverity::Doubtful},
    KindInfo{"overlapping-files", QT_TRANSLATE_NOOP("KOLT::Trust", "Files overlap"),
             TrustSeverity::Wrong},
    KindInfo{"time-jump", QT_TRANSLATE_NOOP("KOLT::Trust", "Times jump"), TrustSeverity::Wrong},
    KindInfo{"hole", QT_TRANSLATE_NOOP("KOLT::Trust", "Hole"), TrustSeverity::Doubtful},
    KindInfo{"message-hole", QT_TRANSLATE_NOOP("KOLT::Trust", "Message silent"),
             TrustSeverity::Note},
    KindInfo{"no-position", QT_TRANSLATE_NOOP("KOLT::Trust", "No position"),
             TrustSeverity::Doubtful},
    KindInfo{"not-a-number", QT_TRANSLATE_NOOP("KOLT::Trust", "Not a number"),
             TrustSeverity::Doubtful},
    KindInfo{"unfinished-flight", QT_TRANSLATE_NOOP("KOLT::Trust", "Flight unfinished"),
             TrustSeverity::Doubtful},
    KindInfo{"late-clock", QT_TRANSLATE_NOOP("KOLT::Trust", "Clock off"), TrustSeverity::Doubtful},
    KindInfo{"serial-changed", QT_TRANSLATE_NOOP("KOLT::Trust", "Serial number changes"),
             TrustSeverity::Wrong},
    KindInfo{"software-changed", QT_TRANSLATE_NOOP("KOLT::Trust", "Software changes"),
             TrustSeverity::Doubtful},
    KindInfo{"other-engine", QT_TRANSLATE_NOOP("KOLT::Trust", "Other engine"),
             TrustSeverity::Doubtful},
    KindInfo{"before-first-cycle", QT_TRANSLATE_NOOP("KOLT::Trust", "Before the first cycle"),
             TrustSeverity::Note},
    KindInfo{"unknown-messages", QT_TRANSLATE_NOOP("KOLT::Trust", "Unknown messages"),
             TrustSeverity::Note},
    KindInfo{"never-recorded", QT_TRANSLATE_NOOP("KOLT::Trust", "Never recorded"),
             TrustSeverity::Note},
    KindInfo{"case-file", QT_TRANSLATE_NOOP("KOLT::Trust", "Case file"), TrustSeverity::Note},
};
static_assert(kinds.size() == static_cast<std::size_t>(TrustKind::CaseFile) + 1);
static_assert(Figure::All == (1U << figureKeys.size()) - 1);

const KindInfo& infoOf(TrustKind kind)
{
    return kinds[static_cast<std::size_t>(kind)];
}

} // namespace

QString trustKindName(TrustKind kind)
{
    return QLatin1String(infoOf(kind).name);
}

QString trustKindTitle(TrustKind kind)
{
    return QCoreApplication::translate("KOLT::Trust", infoOf(kind).title);
}

TrustSeverity trustSeverity(TrustKind kind)
{
    return infoOf(kind).severity;
}

QString trustSeverityName(TrustSeverity severity)
{
    constexpr std::array names{"note", "doubtful", "wrong"};
    return QLatin1String(names[static_cast<std::size_t>(severity)]);
}

std::optional<TrustSeverity> worstSeverity(const std::vector<TrustFinding>& findings)
{
    std::optional<TrustSeverity> worst;
    for (const TrustFinding& finding : findings)
        worst = std::max(worst, std::optional(trustSeverity(finding.kind)));
    return worst;
}

std::vector<QString> figureNames(Figures figures)
{
    std::vector<QString> names;
    for (std::size_t i = 0; i < figureKeys.size(); ++i) {
        if ((figures >> i & 1U) != 0)
            names.emplace_back(QLatin1String(figureKeys[i]));
    }
    return names;
}

} // namespace KOLT

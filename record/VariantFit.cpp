#include "record/VariantFit.h"

#include <QCoreApplication>

#include <algorithm>

namespace KOLT {

namespace {

struct Fit
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::VariantFit)
};

std::size_t knownOf(const Profile& profile, const RecordedEngine& recorded)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(recorded.identifiers, [&](std::uint32_t id) {
            return !profile.parametersById(static_cast<int>(id)).empty();
        }));
}

/// An engine that is not meant by the patterns; empty if there is none.
QString strangerTo(const QString& patterns, const RecordedEngine& recorded)
{
    const auto found = std::ranges::find_if_not(recorded.types, [&](const QString& type) {
        return Profile::matchesEngine(type, patterns);
    });
    return found == recorded.types.end() ? QString() : *found;
}

/// The first other variant that is for exactly these engines.
QString variantByEngine(const Profile& profile, const RecordedEngine& recorded)
{
    for (const Variant& variant : profile.variants()) {
        if (variant.name != profile.activeVariant() && !variant.engineType.isEmpty() &&
            strangerTo(variant.engineType, recorded).isEmpty())
            return variant.name;
    }
    return {};
}

/// The variant that knows most identifiers, and more than `known`; none that is for other engines.
QString variantByIdentifiers(const Profile& profile, const RecordedEngine& recorded,
                             std::size_t known)
{
    QString best;
    for (const Variant& variant : profile.variants()) {
        Profile other;
        if (variant.name == profile.activeVariant() ||
            !strangerTo(variant.engineType, recorded).isEmpty() ||
            !other.loadProfil(profile.path(), variant.name))
            continue;
        if (const std::size_t count = knownOf(other, recorded); count > known) {
            known = count;
            best = variant.name;
        }
    }
    return best;
}

} // namespace

RecordedEngine recordedEngine(const QStringList& types, const MessageMap& messages)
{
    RecordedEngine recorded;
    for (const QString& type : types) {
        const QString text = type.trimmed();
        if (!text.isEmpty() && !recorded.types.contains(text))
            recorded.types << text;
    }
    for (const auto& [id, series] : messages.all())
        recorded.identifiers.insert(id);
    return recorded;
}

VariantFit variantFit(const Profile& profile, const RecordedEngine& recorded)
{
    VariantFit fit;
    fit.variant = profile.activeVariant();
    if (profile.parameters().empty()) // none could be loaded, which is told otherwise
        return fit;
    fit.otherEngine = strangerTo(profile.engineType(), recorded);
    fit.identifiers = recorded.identifiers.size();
    fit.known = knownOf(profile, recorded);
    if (!fit.otherEngine.isEmpty())
        fit.better = variantByEngine(profile, recorded);
    if (fit.better.isEmpty() && !fit.isFine())
        fit.better = variantByIdentifiers(profile, recorded, fit.known);
    return fit;
}

QString VariantFit::text() const
{
    if (!otherEngine.isEmpty())
        return better.isEmpty()
                   ? Fit::tr("The recording is of an engine \"%1\", which the variant %2 is not "
                             "for: its limits may be those of another engine.")
                         .arg(otherEngine, variant)
                   : Fit::tr("The recording is of an engine \"%1\", which the variant %2 is not "
                             "for: its limits may be those of another engine. The variant %3 "
                             "fits.")
                         .arg(otherEngine, variant, better);
    if (!isForeign())
        return {};
    const QString text =
        Fit::tr("Only %1 of the %2 recorded messages are in the profile for the variant %3: the "
                "others are shown nowhere.")
            .arg(known)
            .arg(identifiers)
            .arg(variant);
    return better.isEmpty()
               ? text + QLatin1Char(' ') + Fit::tr("Look for a newer profile.")
               : text + QLatin1Char(' ') + Fit::tr("The variant %1 has more of them.").arg(better);
}

} // namespace KOLT

#include "library/ledger/Installations.h"

#include <QCoreApplication>

#include <algorithm>
#include <tuple>

namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Installations)
};

QString dayText(const QDate& day)
{
    return day.toString(QStringLiteral("d.M.yyyy"));
}

bool haveCommonDay(const WrittenInstallation& one, const WrittenInstallation& other)
{
    const auto isBefore = [](const QDate& end, const QDate& begin) {
        return end.isValid() && begin.isValid() && end < begin;
    };
    return !isBefore(one.to, other.from) && !isBefore(other.to, one.from);
}

} // namespace

QString objectionTo(const WrittenInstallation& installation,
                    const std::vector<WrittenInstallation>& others)
{
    if (installation.from.isValid() && installation.to.isValid() &&
        installation.to < installation.from)
        return Text::tr("It ends on %1, before it begins on %2.")
            .arg(dayText(installation.to), dayText(installation.from));
    for (const WrittenInstallation& other : others) {
        if (other.item.id == installation.item.id || !haveCommonDay(installation, other))
            continue;
        if (other.unit == installation.unit)
            return Text::tr("Unit %1 has engine %2 then: %3. A day belongs to one engine.")
                .arg(other.unit)
                .arg(other.engine, spanText(other));
        if (other.engine == installation.engine)
            return Text::tr("Engine %1 is in unit %2 then: %3.")
                .arg(other.engine)
                .arg(other.unit)
                .arg(spanText(other));
    }
    return {};
}

std::vector<WrittenInstallation> inOrder(std::vector<WrittenInstallation> installations)
{
    std::ranges::stable_sort(installations, {}, [](const WrittenInstallation& one) {
        return std::tuple(one.unit, one.from.isValid() ? one.from.toJulianDay() : 0, one.engine,
                          one.item.id);
    });
    return installations;
}

QString spanText(const WrittenInstallation& installation)
{
    const QString from = dayText(installation.from);
    const QString to = dayText(installation.to);
    if (from.isEmpty() && to.isEmpty())
        return Text::tr("always");
    if (to.isEmpty())
        return Text::tr("from %1 until now").arg(from);
    return from.isEmpty() ? Text::tr("until %1").arg(to) : Text::tr("from %1 to %2").arg(from, to);
}

} // namespace KOLT::Library

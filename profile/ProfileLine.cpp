#include "profile/ProfileLine.h"

#include "profile/Profile.h"

#include <QCoreApplication>

namespace KOLT {

namespace {

struct ProfileLine
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileLine)
};

} // namespace

QString profileLine(const Profile& profile)
{
    QStringList parts;
    if (!profile.name().isEmpty())
        parts << profile.name();
    if (!profile.version().isEmpty())
        parts << ProfileLine::tr("version %1").arg(profile.version());
    if (!profile.activeVariant().isEmpty())
        parts << ProfileLine::tr("variant %1").arg(profile.activeVariant());
    return parts.isEmpty() ? QString()
                           : ProfileLine::tr("Profile: %1").arg(parts.join(QStringLiteral(", ")));
}

} // namespace KOLT

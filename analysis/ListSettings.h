#pragma once

#include <QString>

namespace KOLT {

/// What saving a list as CSV takes from the program's settings.
struct ListSettings
{
    QString folder{QStringLiteral(".")}; ///< offered first
    QChar separator{u';'};
};

} // namespace KOLT

#include "export/ui/PathSummary.h"

#include "record/FlightPath.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Export)
};

} // namespace

QString pathSummary(const DataSet& dataSet)
{
    if (!hasPath(dataSet))
        return Text::tr("No position was recorded, so there is no flight path to export.");
    int flights = 0;
    std::size_t points = 0;
    for (const PathSection& section : pathSections(dataSet)) {
        flights += section.kind == PathSection::Kind::Flight ? 1 : 0;
        points += static_cast<std::size_t>(std::ranges::count_if(section.points, isRecorded));
    }
    const QString size = Text::tr("%1 positions, two a second")
                             .arg(QLocale().toString(static_cast<qulonglong>(points)));
    return flights == 0 ? size
                        : Text::tr("%n flight(s)", nullptr, flights) + QStringLiteral(", ") + size;
}

} // namespace KOLT

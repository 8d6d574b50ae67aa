#include "export/ui/PathSummary.h"

#include "export/ExportText.h"
#include "record/FlightPath.h"

#include <QLocale>

#include <algorithm>

namespace KOLT {

QString pathSummary(const DataSet& dataSet)
{
    if (!hasPath(dataSet))
        return ExportText::tr("No position was recorded, so there is no flight path to export.");
    int flights = 0;
    std::size_t points = 0;
    for (const PathSection& section : pathSections(dataSet)) {
        flights += section.kind == PathSection::Kind::Flight ? 1 : 0;
        points += static_cast<std::size_t>(std::ranges::count_if(section.points, isRecorded));
    }
    const QString size = ExportText::tr("%1 positions, two a second")
                             .arg(QLocale().toString(static_cast<qulonglong>(points)));
    return flights == 0
               ? size
               : ExportText::tr("%n flight(s)", nullptr, flights) + QStringLiteral(", ") + size;
}

} // namespace KOLT

#include "export/ui/DialogExportGpx.h"

#include "export/GpxWriter.h"
#include "export/ui/PathSummary.h"
#include "record/FlightPath.h"

namespace KOLT {

DialogExportGpx::DialogExportGpx(Source source, QWidget* parent)
    : DialogExport(std::move(source),
                   {tr("Export GPX File"), QStringLiteral("gpx"), tr("GPX Files (*.gpx)"),
                    tr("KOLT Warning"), tr("Exporting GPX file failed !")},
                   parent)
{
    setSummary(pathSummary(this->source().dataSet), hasPath(this->source().dataSet));
}

ExportStatus DialogExportGpx::write(QIODevice& device, const ExportProgress& progress)
{
    return writeGpx(device, source().dataSet, source().title, progress, source().note);
}

} // namespace KOLT

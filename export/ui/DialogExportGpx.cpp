#include "export/ui/DialogExportGpx.h"

#include "export/GpxWriter.h"
#include "export/ui/PathSummary.h"
#include "record/FlightPath.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace KOLT {

DialogExportGpx::DialogExportGpx(const Profile& profile, Source source, const GpxOptions& options,
                                 QWidget* parent)
    : DialogExport(std::move(source),
                   {tr("Export GPX File"), QStringLiteral("gpx"), tr("GPX Files (*.gpx)"),
                    tr("KOLT Warning"), tr("Exporting GPX file failed !")},
                   parent)
    , m_profile(profile)
    , m_wayPoints(new QCheckBox(tr("&Waypoints at take-offs, landings and exceedances")))
    , m_speeds(new QCheckBox(tr("&Speed and course with each position")))
{
    m_wayPoints->setChecked(options.wayPoints);
    m_speeds->setChecked(options.speeds);
    m_speeds->setToolTip(tr("As an extension of the format, which most programs read"));
    optionsLayout().addWidget(m_wayPoints);
    optionsLayout().addWidget(m_speeds);
    setSummary(pathSummary(this->source().dataSet), hasPath(this->source().dataSet));
}

GpxOptions DialogExportGpx::options() const
{
    return {m_wayPoints->isChecked(), m_speeds->isChecked()};
}

ExportStatus DialogExportGpx::write(QIODevice& device, const ExportProgress& progress)
{
    return writeGpx(device, m_profile, source().dataSet, options(), source().title, progress,
                    source().note);
}

} // namespace KOLT

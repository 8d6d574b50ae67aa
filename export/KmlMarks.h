#pragma once

#include "analysis/EventFinder.h"
#include "export/ExportOptions.h"
#include "export/KmlDescription.h"
#include "export/KmlGeometry.h"

namespace KOLT {

/// Writes the marks of a KML document: those along the path, and those of exceedances. Sections
/// must be written in ascending order of time. Functions that return bool return false if the
/// export was cancelled or failed.
class KmlMarks
{
public:
    KmlMarks(XmlExport& xml, KmlGeometry& geometry, const Profile& profile, const DataSet& dataSet,
             const KmlOptions& options);

    bool writePlaceMarks(KmlGeometry::Points points);
    bool writeErrorMarks(const std::vector<const Event*>& events);

private:
    void beginMark(const QString& name, const QString& description, double seconds,
                   const char* style);

    XmlExport& m_xml;
    KmlGeometry& m_geometry;
    const Profile& m_profile;
    const DataSet& m_dataSet;
    const KmlOptions& m_options;
    ExportClock m_clock;
    KmlDescription m_description;
};

} // namespace KOLT

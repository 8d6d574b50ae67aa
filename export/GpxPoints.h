#pragma once

#include "export/ExportClock.h"
#include "export/ExportOptions.h"
#include "export/XmlExport.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <span>

namespace KOLT {

/// Of the extension with speed and course; its prefix is "gpxtpx".
constexpr auto gpxTrackNamespace = "http://www.garmin.com/xmlschemas/TrackPointExtension/v2";

/// Writes the points of a GPX document: bounds, waypoints and points of tracks.
class GpxPoints
{
public:
    GpxPoints(XmlExport& xml, const Profile& profile, const DataSet& dataSet,
              const GpxOptions& options);

    /// Whether points have an extension.
    bool hasExtension() const { return m_hasSpeed || m_hasCourse; }

    /// Around the points; nothing if none of them was recorded.
    void writeBounds(const std::vector<std::span<const TrackPoint>>& pieces);
    void writeTrackPoint(const TrackPoint& point);
    /// The take-offs and landings, then the episodes that have a position. False if the export was
    /// cancelled or failed.
    bool writeWayPoints();

private:
    void begin(const char* name, const TrackPoint& point);
    void writeWayPoint(double seconds, const QString& name, const QString& description,
                       const QString& symbol);
    void writeExtension(const TrackPoint& point);

    XmlExport& m_xml;
    const Profile& m_profile;
    const DataSet& m_dataSet;
    ExportClock m_clock;
    bool m_hasSpeed;
    bool m_hasCourse;
};

} // namespace KOLT

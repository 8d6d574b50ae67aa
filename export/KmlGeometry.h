#pragma once

#include "export/ExportClock.h"
#include "export/XmlExport.h"
#include "record/DataSet.h"

#include <optional>
#include <span>
#include <vector>

namespace KOLT {

/// Of the extension that plays back a track; its prefix is "gx".
constexpr auto kmlExtensionNamespace = "http://www.google.com/kml/ext/2.2";

/// Writes the positions of a KML document: path, curtain, playback and single points. Functions
/// that return bool return false if the export was cancelled or failed.
class KmlGeometry
{
public:
    using Points = std::span<const TrackPoint>;

    KmlGeometry(XmlExport& xml, const DataSet& dataSet);

    /// Without any altitude the path lies on the ground.
    bool hasAltitude() const { return m_firstAltitude.has_value(); }

    bool writePath(Points points);
    /// The path, extruded to the ground.
    bool writeCurtain(Points points);
    /// The path with times, to play it back.
    bool writeTrack(Points points);
    void writePoint(const TrackPoint& point);

private:
    enum class Line { Path, Curtain };

    bool writeLine(Line line, const std::vector<Points>& pieces);
    bool writeCoordinates(Points piece);
    void writeAltitudeMode();
    QString coordinates(const TrackPoint& point, char separator) const;

    XmlExport& m_xml;
    ExportClock m_clock;
    std::optional<double> m_firstAltitude;
};

} // namespace KOLT

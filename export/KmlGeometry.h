#pragma once

#include "export/ExportClock.h"
#include "export/ExportOptions.h"
#include "export/XmlExport.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

#include <optional>
#include <span>
#include <vector>

namespace KOLT {

class KmlTrackValues;

/// Of the extension that plays back a track; its prefix is "gx".
constexpr auto kmlExtensionNamespace = "http://www.google.com/kml/ext/2.2";

/// Writes the positions of a KML document: path, curtain, playback and single points. Functions
/// that return bool return false if the export was cancelled or failed.
class KmlGeometry
{
public:
    using Points = std::span<const TrackPoint>;

    KmlGeometry(XmlExport& xml, const Profile& profile, const DataSet& dataSet,
                KmlOptions::AltitudeMode mode);

    /// Without any altitude the path lies on the ground, as it does where that is wanted.
    bool hasAltitude() const
    {
        return m_firstAltitude && m_mode != KmlOptions::AltitudeMode::Ground;
    }

    bool writePath(Points points);
    /// The path, extruded to the ground.
    bool writeCurtain(Points points);
    /// The path with times, headings and values, to play it back.
    bool writeTrack(Points points, KmlTrackValues& values);
    void writePoint(const TrackPoint& point);

private:
    enum class Line { Path, Curtain };

    bool writeTrackPoints(Points piece);
    bool writeLine(Line line, const std::vector<Points>& pieces);
    bool writeCoordinates(Points piece);
    void writeAltitudeMode();
    QString coordinates(const TrackPoint& point, char separator) const;

    XmlExport& m_xml;
    ExportClock m_clock;
    KmlOptions::AltitudeMode m_mode;
    std::optional<double> m_firstAltitude;
    double m_ground = 0.0; ///< is subtracted from altitudes
    bool m_hasHeading;
};

} // namespace KOLT

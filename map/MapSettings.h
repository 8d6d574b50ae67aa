#pragma once

#include <QByteArray>
#include <QString>

namespace KOLT {

/// The settings of the map, with their defaults.
struct MapSettings
{
    /// Base address or template.
    QString tileServer{QStringLiteral("https://tile.openstreetmap.org")};
    QString tileDirectory;    ///< disk cache of tiles; empty: none
    QString terrainDirectory; ///< elevation files; empty: none
    QByteArray userAgent;     ///< names the program to the tile server
    bool isNetworkEnabled = true;
    double shadingContrast = 1.0;
    double shadingBrightness = 1.0;
    double shadingFactor = 0.5; ///< exaggeration of heights
    bool areValuesShown = true; ///< the panel with the values is not folded
    bool areNotesShown = true;  ///< flags where somebody wrote a note
};

} // namespace KOLT

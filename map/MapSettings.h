#pragma once

#include <QByteArray>
#include <QString>

namespace KOLT {

/// What the map takes from the program's settings.
struct MapSettings
{
    QString tileServer;       ///< plain address or template; empty: the default one
    QString tileDirectory;    ///< disk cache of tiles; empty: none
    QString terrainDirectory; ///< elevation files; empty: none
    QByteArray userAgent;     ///< names the program to the tile server
    bool isNetworkEnabled = true;
    double shadingContrast = 1.0;
    double shadingBrightness = 1.0;
    double shadingFactor = 0.5; ///< of the heights
};

} // namespace KOLT

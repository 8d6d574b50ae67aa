#pragma once

#include "libs/tusk/gl/GlHandler.h"
#include "libs/tusk/gl/TextureFont.h"
#include "map/MapGrid.h"
#include "map/ScaleBar.h"
#include "map/TrackColors.h"

#include <QRectF>
#include <QSizeF>
#include <QStringList>

#include <optional>
#include <span>

namespace KOLT {

/// The texts in the map's lower corners on light plates: scale bar and legend of the track's
/// colours on the left, the attribution and a note above it on the right; and the grid and compass
/// of a map without tiles. In logical pixels. Needs the current context like its handler.
class MapLabels
{
public:
    struct Contents
    {
        ScaleBar scale;
        TrackColors legend;
        QString attribution;
        QString note;
    };

    /// Without the font of the resources nothing is drawn. `handler` must outlive this.
    MapLabels(TUSK::OpenGL::GlHandler& handler, double pixelRatio);

    void draw(const Contents& contents, double windowWidth);

    /// Distances are left out where something covers the map. Covered areas are counted from the
    /// upper left corner of the window.
    void drawGrid(const MapGrid& grid, const QSizeF& window, std::span<const QRectF> covered);
    /// Where the compass is drawn, from the lower left corner of the window.
    QRectF compassRect(const QString& attribution, double windowWidth) const;
    /// A compass card above the attribution.
    void drawCompass(const QString& attribution, double windowWidth);

    /// Where the attribution is drawn, from the lower left corner of the window.
    QRectF attributionRect(const QString& attribution, double windowWidth) const;

private:
    double textWidth(const QString& text) const;
    QStringList attributionLines(const QString& attribution, double windowWidth) const;
    void drawScaleBar(const ScaleBar& bar, double bottom);
    void drawLegend(const TrackColors& colors, double bottom);
    void drawTextUpTo(double right, double y, const QString& text);
    void drawRectangle(const QRectF& area, const QColor& color);

    TUSK::OpenGL::GlHandler& m_handler;
    std::optional<TUSK::OpenGL::TextureFont> m_font;
};

} // namespace KOLT

#pragma once

#include <QColor>

namespace KOLT {

enum class CursorMode : int {
    Floating = 0,
    Center = 1, ///< the window stays centred on the replay time
    End = 2     ///< the window moves so that the replay time is a tenth of the span before its end
};

/// The user's settings for the graph.
struct GraphSettings
{
    double timeSpan = 60.0;  ///< seconds
    bool isWhole = true;     ///< a new recording is shown as a whole; else the user chose a span
    bool isSplit = true;     ///< each trace has its own band; otherwise all share one scale
    bool isAutomatic = true; ///< a new span keeps the window's end rather than its start
    CursorMode cursorMode = CursorMode::Center;
    QColor background{0x00, 0x00, 0x00};
    bool hasGrid = true;
    QColor gridColor{0xff, 0x66, 0x66};
    QColor labelColor{0x00, 0x00, 0x00};
    QColor labelBackground{0xbb, 0xbb, 0xbb};
    bool hasCursor = true;
    bool hasLegend = true;
    bool isAutoscaled = true;
    double yMinimum = -100.0; ///< the scale without autoscale
    double yMaximum = 100.0;
    bool hasThresholds = true;
    bool hasStatistic = true;
    bool hasEvents = true;
    bool hasNotes = true; ///< flags where somebody wrote a note
};

} // namespace KOLT

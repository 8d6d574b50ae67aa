#pragma once

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace KOLT {

/// Gives a new window the size that fits its content in the standard font, or as much more as its
/// font is larger; never more than the screen has.
inline void resizeForFont(QWidget& window, QSize size)
{
    constexpr double standardPixels = 12.0;
    constexpr QSize frame(16, 48); // of the window manager
    window.ensurePolished();       // knows its font
    const double factor = std::max(1.0, window.fontInfo().pixelSize() / standardPixels);
    window.resize((size * factor).boundedTo(window.screen()->availableSize() - frame));
}

} // namespace KOLT

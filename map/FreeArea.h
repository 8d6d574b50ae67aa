#pragma once

#include <QRectF>

#include <span>

namespace KOLT {

/// The rectangle of a window that no other covers, and in which a picture of the given width /
/// height is largest. The whole window where little is left.
QRectF freeArea(const QSizeF& window, std::span<const QRectF> covered, double aspect);

} // namespace KOLT

#pragma once

#include <QIcon>

#include <functional>

namespace KOLT {

/// Draws an icon into a rectangle.
using DrawIcon = std::function<void(QPainter& painter, const QRect& place)>;

/// An icon that is drawn whenever it is shown, so that it is sharp at any size and scale factor and
/// has the colours of the current look.
QIcon paintedIcon(DrawIcon draw);

/// An icon of the program, by the name of its file. Its strokes follow the current look.
QIcon lookIcon(const QString& name);

} // namespace KOLT

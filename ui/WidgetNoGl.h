#pragma once

#include <QLabel>

class QOpenGLWidget;

namespace KOLT {

/// What stands in a window in place of a widget that needs OpenGL, on a machine that has none: the
/// toolkit would end the program as soon as such a window is shown.
class WidgetNoGl : public QLabel
{
    Q_OBJECT

public:
    /// The page as it can be shown: itself, with the OpenGL widgets in it replaced, or what stands
    /// in its place. With OpenGL, nothing changes. What is replaced lives on, out of sight, as long
    /// as its replacement.
    static QWidget* shown(QWidget* page);

private:
    explicit WidgetNoGl(QOpenGLWidget* replaced);
};

} // namespace KOLT

#pragma once

#include "ui/EmptyNote.h"

class QOpenGLWidget;

namespace KOLT {

/// Replaces a widget that needs OpenGL on a machine without a usable one: Qt would abort the
/// program as soon as a window with such a widget is shown.
class WidgetNoGl : public EmptyNote
{
    Q_OBJECT

public:
    /// Replaces the OpenGL widgets in a page when there is no OpenGL, and returns the page, or the
    /// replacement of a page that is an OpenGL widget itself. Replaced widgets stay alive, hidden,
    /// as long as their replacement.
    static QWidget* shown(QWidget* page);

private:
    explicit WidgetNoGl(QOpenGLWidget* replaced);
};

} // namespace KOLT

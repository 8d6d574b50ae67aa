#include "ui/WidgetNoGl.h"

#include "libs/tusk/gl/GlSupport.h"

#include <QLayout>
#include <QOpenGLWidget>

namespace KOLT {

WidgetNoGl::WidgetNoGl(QOpenGLWidget* replaced)
    : EmptyNote(replaced->parentWidget())
{
    setText(tr("This cannot be shown: the graphics driver offers no usable OpenGL (2.0 or "
               "newer).\nInstall or update the driver, and start KOLT again."));
    setMinimumSize(replaced->minimumSize());
    connect(this, &QObject::destroyed, replaced, [replaced] { delete replaced; });
}

QWidget* WidgetNoGl::shown(QWidget* page)
{
    if (TUSK::OpenGL::isAvailable())
        return page;
    if (auto* const whole = qobject_cast<QOpenGLWidget*>(page)) {
        auto* const label = new WidgetNoGl(whole);
        whole->setParent(nullptr);
        return label;
    }
    const QList<QOpenGLWidget*> parts = page->findChildren<QOpenGLWidget*>();
    for (QOpenGLWidget* const part : parts) {
        auto* const label = new WidgetNoGl(part);
        QWidget* const parent = part->parentWidget();
        if (parent->layout() != nullptr)
            delete parent->layout()->replaceWidget(part, label);
        label->lower(); // overlaid panels stay on top
        part->setParent(nullptr);
    }
    return page;
}

} // namespace KOLT

#include "app/WidgetNames.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QEvent>

namespace KOLT {

namespace {

bool needsName(QWidget& widget)
{
    const bool isUsed =
        widget.focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(&widget) != nullptr;
    if (!isUsed || widget.toolTip().isEmpty() || !widget.accessibleName().isEmpty())
        return false;
    QAccessibleInterface* const known = QAccessible::queryAccessibleInterface(&widget);
    return known != nullptr && known->text(QAccessible::Name).isEmpty();
}

} // namespace

WidgetNames::WidgetNames()
{
    qApp->installEventFilter(this);
}

bool WidgetNames::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish && watched->isWidgetType()) {
        auto& widget = static_cast<QWidget&>(*watched);
        if (needsName(widget))
            widget.setAccessibleName(widget.toolTip().section(QLatin1Char('\n'), 0, 0));
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT

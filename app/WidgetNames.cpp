#include "app/WidgetNames.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QLineEdit>

namespace KOLT {

namespace {

/// A widget is named by its tool tip, or the text that an empty field shows.
QString nameOf(const QWidget& widget)
{
    const auto* const field = qobject_cast<const QLineEdit*>(&widget);
    return field != nullptr && widget.toolTip().isEmpty()
               ? field->placeholderText()
               : widget.toolTip().section(QLatin1Char('\n'), 0, 0);
}

bool needsName(QWidget& widget)
{
    const bool isUsed =
        widget.focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(&widget) != nullptr;
    if (!isUsed || !widget.accessibleName().isEmpty())
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
            widget.setAccessibleName(nameOf(widget));
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT

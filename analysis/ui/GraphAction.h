#pragma once

#include "ui/PaintedIcon.h"

#include <QAction>
#include <QCoreApplication>
#include <QWidget>

namespace KOLT {

/// The command of a list or a line to show what is chosen in the graph, with its key.
inline QAction* createGraphAction(QWidget& owner)
{
    auto* const action =
        new QAction(lookIcon(QStringLiteral("tab-graph")),
                    QCoreApplication::translate("GraphAction", "Show in graph"), &owner);
    action->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Return),
                          QKeySequence(Qt::CTRL | Qt::Key_Enter)}); // Enter of the number pad
    action->setShortcutContext(Qt::WidgetShortcut);
    return action;
}

} // namespace KOLT

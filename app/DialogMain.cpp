#include "app/DialogMain.h"

#include <QKeyEvent>

namespace KOLT {

DialogMain::DialogMain()
{
    setWindowTitle(QStringLiteral("KOLT"));
    resize(1000, 800);
    show();
}

bool DialogMain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::ShiftModifier;
        if (key->key() == Qt::Key_Z && modifiers == Qt::ControlModifier && !key->isAutoRepeat())
            return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace KOLT

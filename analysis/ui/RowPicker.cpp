#include "analysis/ui/RowPicker.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace KOLT {

RowPicker::RowPicker(QAbstractItemView* view)
    : QObject(view)
    , m_view(*view)
{
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    connect(view, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (index.row() == m_pressedRow)
            emit signalPicked(index.row());
    });
    connect(view, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { emit signalPicked(index.row()); });
}

bool RowPicker::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        m_pressedRow = m_view.currentIndex().row();
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if ((isOverride || event->type() == QEvent::KeyPress) &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->accept();
        if (!isOverride)
            emit signalCopy();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT

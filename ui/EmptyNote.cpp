#include "ui/EmptyNote.h"

#include <QAbstractScrollArea>
#include <QEvent>

namespace KOLT {

EmptyNote::EmptyNote(QWidget* parent)
    : QLabel(parent)
{
    setObjectName(QStringLiteral("emptyState")); // for the style sheet
    setTextFormat(Qt::PlainText);                // file names may look like markup
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
}

EmptyNote::EmptyNote(QAbstractScrollArea* area)
    : EmptyNote(area->viewport())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    area->viewport()->installEventFilter(this);
    hide();
}

void EmptyNote::showNote(const QString& text)
{
    setText(text);
    setGeometry(parentWidget()->rect());
    setVisible(!text.isEmpty());
}

bool EmptyNote::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QLabel::eventFilter(watched, event);
}

} // namespace KOLT

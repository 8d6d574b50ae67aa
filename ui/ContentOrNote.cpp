#include "ui/ContentOrNote.h"

#include "ui/EmptyNote.h"

namespace KOLT {

ContentOrNote::ContentOrNote(QWidget* page, QWidget* content)
    : QStackedLayout(page)
    , m_note(new EmptyNote(page))
{
    addWidget(content);
    addWidget(m_note);
}

void ContentOrNote::showContent()
{
    setCurrentIndex(0);
}

void ContentOrNote::showNote(const QString& text)
{
    m_note->setText(text);
    setCurrentWidget(m_note);
}

} // namespace KOLT

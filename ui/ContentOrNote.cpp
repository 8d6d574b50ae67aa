#include "ui/ContentOrNote.h"

#include <QLabel>

namespace KOLT {

ContentOrNote::ContentOrNote(QWidget* page, QWidget* content)
    : QStackedLayout(page)
    , m_note(new QLabel(page))
{
    m_note->setObjectName(QStringLiteral("emptyState"));
    m_note->setTextFormat(Qt::PlainText); // file names may look like markup
    m_note->setAlignment(Qt::AlignCenter);
    m_note->setWordWrap(true);
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

#pragma once

#include <QStackedLayout>

namespace KOLT {

class EmptyNote;

/// A page's layout that shows either the content, or a note that says why there is none and what to
/// do.
class ContentOrNote : public QStackedLayout
{
public:
    ContentOrNote(QWidget* page, QWidget* content);

    void showContent();
    void showNote(const QString& text);

private:
    EmptyNote* m_note;
};

} // namespace KOLT

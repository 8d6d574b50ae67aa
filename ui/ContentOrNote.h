#pragma once

#include <QStackedLayout>

class QLabel;

namespace KOLT {

/// The layout of a page: what it shows, or in its place a note that says why there is nothing and
/// what to do.
class ContentOrNote : public QStackedLayout
{
public:
    ContentOrNote(QWidget* page, QWidget* content);

    void showContent();
    void showNote(const QString& text);

private:
    QLabel* m_note;
};

} // namespace KOLT

#pragma once

#include <QLabel>

class QAbstractScrollArea;

namespace KOLT {

/// Says why a page or a list is empty, and what to do; the same everywhere.
class EmptyNote : public QLabel
{
    Q_OBJECT

public:
    explicit EmptyNote(QWidget* parent);

    /// Over the area's content. Hidden while there is no text.
    explicit EmptyNote(QAbstractScrollArea* area);

    void showNote(const QString& text);

protected:
    /// Keeps the note as large as the area.
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace KOLT

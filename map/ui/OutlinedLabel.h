#pragma once

#include <QLabel>

namespace KOLT {

/// A line of text with an outline, so that it can be read on a translucent panel over any map. Cut
/// where it is too long.
class OutlinedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit OutlinedLabel(const QString& text = QString(), QWidget* parent = nullptr);

    void setTextColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color = Qt::white;
};

} // namespace KOLT

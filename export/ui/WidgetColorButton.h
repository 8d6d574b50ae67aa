#pragma once

#include <QColor>
#include <QPushButton>

namespace KOLT {

/// A button that shows a color and lets the user choose another one.
class WidgetColorButton : public QPushButton
{
    Q_OBJECT

public:
    explicit WidgetColorButton(QWidget* parent = nullptr);

    const QColor& color() const { return m_color; }

    void setColor(const QColor& color);

private:
    void choose();

    QColor m_color;
};

} // namespace KOLT

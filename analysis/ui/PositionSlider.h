#pragma once

#include <QSlider>

namespace KOLT {

/// A horizontal slider that jumps to where it is clicked and can be dragged on from there.
class PositionSlider : public QSlider
{
public:
    explicit PositionSlider(QWidget* parent = nullptr)
        : QSlider(Qt::Horizontal, parent)
    {
    }

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace KOLT

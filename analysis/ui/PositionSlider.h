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

    /// Where the handle's centre is at the first position, and over how many pixels it moves.
    struct Travel
    {
        int left = 0;
        int width = 0;
    };

    Travel travel() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace KOLT

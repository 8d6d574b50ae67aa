#pragma once

#include "analysis/TrustStrip.h"
#include "record/RecordingTrust.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

namespace KOLT {

class PositionSlider;

/// A thin strip above the position slider, in step with it: what was recorded of the loaded time,
/// and holes, overlaps and jumps in it. They differ in shape and in colour.
///
/// Drawn once for its data and size; moving the slider does not paint it.
class RecordingStrip : public QWidget
{
    Q_OBJECT

public:
    /// The slider must outlive the strip.
    explicit RecordingStrip(const PositionSlider& slider, QWidget* parent = nullptr);

    void setSpan(double first, double last);

    /// Null: not known yet, or nothing is loaded.
    void setTrust(std::shared_ptr<const RecordingTrust> trust);

    QSize sizeHint() const override;

signals:
    /// The strip was clicked: at a finding, by its index, or beside all (-1).
    void signalClicked(int finding);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    TimeStrip layout() const;
    int findingAt(int x) const;
    QString tipAt(int x) const;
    void redraw();
    void draw(QPainter& painter) const;
    void drawPiece(QPainter& painter, const StripPiece& piece) const;

    const PositionSlider& m_slider;
    double m_first = 0.0;
    double m_last = 0.0;
    std::shared_ptr<const RecordingTrust> m_trust;
    TimeStrip m_strip; ///< as drawn
    std::vector<StripPiece> m_pieces;
    QPixmap m_pixmap; ///< null: to be drawn again
};

} // namespace KOLT

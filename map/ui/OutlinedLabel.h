#pragma once

#include <QFont>
#include <QLabel>
#include <QPixmap>

namespace KOLT {

/// A line of text with an outline, so that it can be read on a translucent panel over any map. Cut
/// where it is too long. Drawn once for each text: the map below it is painted far more often.
class OutlinedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit OutlinedLabel(const QString& text = QString(), QWidget* parent = nullptr);

    void setTextColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// All that its picture depends on.
    struct Look
    {
        QString text;
        QSize size;
        QFont font;
        QColor color;
        Qt::Alignment alignment;
        double ratio = 0.0; ///< pixels of the display to one of the window

        bool operator==(const Look& other) const = default;
    };

    void drawText();

    QColor m_color = Qt::white;
    Look m_look;
    QPixmap m_picture;
};

} // namespace KOLT

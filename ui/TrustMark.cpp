#include "ui/TrustMark.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include <algorithm>

namespace KOLT {

namespace {

constexpr qreal units = 16.0; ///< a mark is drawn on a square of this size
constexpr QPointF center(8.0, 8.0);
constexpr QColor noteColor(0x78, 0x78, 0x78);
constexpr QColor doubtfulColor(0xe0, 0x92, 0x00);
constexpr QColor wrongColor(0xd3, 0x2f, 0x2f);

QPen linePen(const QColor& color, qreal width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void drawNote(QPainter& painter)
{
    painter.setPen(linePen(noteColor, 1.5));
    painter.drawEllipse(center, 5.0, 5.0);
    painter.setBrush(noteColor);
    painter.drawEllipse(center, 1.0, 1.0);
}

void drawDoubtful(QPainter& painter)
{
    painter.setPen(linePen(doubtfulColor, 2.0));
    painter.setBrush(doubtfulColor);
    painter.drawPolygon(QPolygonF({{8.0, 2.5}, {14.0, 13.0}, {2.0, 13.0}}));
    painter.setPen(linePen(Qt::black, 1.8));
    painter.drawLine(QPointF(8.0, 6.0), QPointF(8.0, 9.0));
    painter.drawPoint(QPointF(8.0, 11.8));
}

void drawWrong(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(wrongColor);
    painter.drawEllipse(center, 7.0, 7.0);
    painter.setPen(linePen(Qt::white, 2.2));
    painter.drawLine(QPointF(5.4, 5.4), QPointF(10.6, 10.6));
    painter.drawLine(QPointF(5.4, 10.6), QPointF(10.6, 5.4));
}

class TrustIconEngine : public QIconEngine
{
public:
    explicit TrustIconEngine(TrustMark mark)
        : m_mark(mark)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override
    {
        const qreal scale = std::min(rect.width(), rect.height()) / units;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center() - center * scale);
        painter->scale(scale, scale);
        painter->setBrush(Qt::NoBrush);
        if (m_mark == TrustMark::Note)
            drawNote(*painter);
        else if (m_mark == TrustMark::Doubtful)
            drawDoubtful(*painter);
        else
            drawWrong(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new TrustIconEngine(m_mark); }

private:
    TrustMark m_mark;
};

} // namespace

QIcon trustIcon(TrustMark mark)
{
    return mark == TrustMark::None ? QIcon() : QIcon(new TrustIconEngine(mark));
}

} // namespace KOLT

#include "analysis/ui/RecordingStrip.h"

#include "analysis/ui/PositionSlider.h"
#include "ui/LookColors.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QToolTip>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int stripHeight = 10;
constexpr int barInset = 3; ///< what was recorded is drawn thinner than what is told of it
constexpr int reach = 3;    ///< pixels; a place this close to a piece means the piece

QString paragraph(const QString& text)
{
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace

RecordingStrip::RecordingStrip(const PositionSlider& slider, QWidget* parent)
    : QWidget(parent)
    , m_slider(slider)
{
    setObjectName(QStringLiteral("recordingStrip"));
    setAccessibleName(tr("What was recorded"));
    setAccessibleDescription(tr("Holes, jumps and doubled times over the loaded data; the window "
                                "Recording lists them"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

QSize RecordingStrip::sizeHint() const
{
    return {stripHeight, stripHeight};
}

void RecordingStrip::setSpan(double first, double last)
{
    m_first = first;
    m_last = last;
    redraw();
}

void RecordingStrip::setTrust(std::shared_ptr<const RecordingTrust> trust)
{
    m_trust = std::move(trust);
    redraw();
}

void RecordingStrip::redraw()
{
    m_pixmap = {};
    m_pieces.clear();
    update();
}

void RecordingStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        redraw();
}

TimeStrip RecordingStrip::layout() const
{
    const auto [left, width] = m_slider.travel();
    return {m_first, m_last, width, left + m_slider.x() - x()};
}

void RecordingStrip::paintEvent(QPaintEvent* /*event*/)
{
    const TimeStrip strip = layout();
    const QSize pixels = size() * devicePixelRatioF();
    if (m_pixmap.size() != pixels || strip.left != m_strip.left || strip.width != m_strip.width) {
        m_strip = strip;
        m_pieces =
            m_trust != nullptr ? stripPieces(strip, m_trust->findings) : std::vector<StripPiece>();
        m_pixmap = QPixmap(pixels);
        m_pixmap.setDevicePixelRatio(devicePixelRatioF());
        m_pixmap.fill(Qt::transparent);
        QPainter painter(&m_pixmap);
        draw(painter);
    }
    QPainter(this).drawPixmap(0, 0, m_pixmap);
}

void RecordingStrip::draw(QPainter& painter) const
{
    if (m_trust == nullptr || m_strip.width <= 0)
        return;
    const QRect bar(m_strip.left, barInset, m_strip.width, height() - 2 * barInset);
    QRegion recorded(bar);
    for (const StripPiece& piece : m_pieces) {
        if (piece.kind == StripPiece::Kind::Hole)
            recorded -= QRect(QPoint(piece.run.left, 0), QPoint(piece.run.right, height()));
    }
    for (const QRect& part : recorded)
        painter.fillRect(part, lookColor(Tone::Recorded));
    for (const StripPiece& piece : m_pieces)
        drawPiece(painter, piece);
}

void RecordingStrip::drawPiece(QPainter& painter, const StripPiece& piece) const
{
    const bool isWrong =
        trustSeverity(m_trust->findings[piece.finding].kind) == TrustSeverity::Wrong;
    const QColor color = lookColor(isWrong ? Tone::Wrong : Tone::Doubtful);
    const QRect place(QPoint(piece.run.left, 0), QPoint(piece.run.right, height() - 1));
    switch (piece.kind) {
    case StripPiece::Kind::Hole:
        painter.setPen(color);
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRect(place.adjusted(0, 0, -1, -1));
        break;
    case StripPiece::Kind::Overlap:
        painter.fillRect(place, color);
        painter.fillRect(place, QBrush(lookColor(Tone::Panel), Qt::BDiagPattern));
        break;
    case StripPiece::Kind::Jump: {
        const QRectF area(place);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPolygon(QPolygonF(
            {area.topLeft(), area.topRight(), QPointF(area.center().x(), area.bottom())}));
        painter.setRenderHint(QPainter::Antialiasing, false);
        break;
    }
    }
}

int RecordingStrip::findingAt(int x) const
{
    const StripPiece* const piece = pieceAt(m_pieces, x, reach);
    return piece != nullptr ? static_cast<int>(piece->finding) : -1;
}

QString RecordingStrip::tipAt(int x) const
{
    if (const int index = findingAt(x); index >= 0) {
        const TrustFinding& finding = m_trust->findings[static_cast<std::size_t>(index)];
        return paragraph(trustKindTitle(finding.kind)) + paragraph(finding.text);
    }
    return paragraph(tr("What was recorded: an empty box is a hole, hatching is time recorded "
                        "twice, a triangle is a jump of the counter. A click lists all findings."));
}

bool RecordingStrip::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    if (m_trust == nullptr)
        event->ignore();
    else
        QToolTip::showText(help->globalPos(), tipAt(help->pos().x()), this);
    return true;
}

void RecordingStrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_trust != nullptr)
        emit signalClicked(findingAt(event->position().toPoint().x()));
}

} // namespace KOLT

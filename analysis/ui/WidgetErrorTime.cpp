#include "analysis/ui/WidgetErrorTime.h"

#include "analysis/MomentText.h"
#include "analysis/ui/GraphAction.h"
#include "ui/LookColors.h"
#include "ui/PlainToolTip.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace KOLT {

namespace {

constexpr int rowPadding = 8;
constexpr int gap = 6;
constexpr int badgeWidth = 18;
constexpr int stateWidth = 34;
constexpr int countWidth = 32;
constexpr int namePercent = 35; ///< at least, if the name needs it
constexpr int leastStrip = 50;  ///< before a name gets more
constexpr int reach = 3;        ///< pixels; a click this close to a fault means the fault
constexpr int smallestRun = 2;  ///< pixels; keeps a fault of one sample visible

struct ClassLook
{
    QColor color;
    QString letter;
};

ClassLook lookOf(ErrorType type)
{
    switch (type) {
    case ErrorType::Info:
        return {lookColor(Tone::ClassInfo), QStringLiteral("I")};
    case ErrorType::Warning:
        return {lookColor(Tone::ClassWarning), QStringLiteral("W")};
    case ErrorType::Fault:
        return {lookColor(Tone::ClassFault), QStringLiteral("F")};
    case ErrorType::None:
        break;
    }
    return {lookColor(Tone::ClassNone), QStringLiteral("-")};
}

} // namespace

WidgetErrorTime::Layout WidgetErrorTime::layoutFor(const QSize& size, int nameWidth)
{
    const int others = badgeWidth + stateWidth + countWidth + 6 * gap;
    const int room = std::max(size.width() * namePercent / 100, size.width() - others - leastStrip);
    const int name = std::clamp(nameWidth, 0, std::max(room, 0));
    Layout layout;
    int x = gap;
    const auto next = [&](int width) {
        const QRect rect(x, 0, std::max(width, 0), size.height());
        x += width + gap;
        return rect;
    };
    layout.errorClass = next(badgeWidth);
    layout.name = next(name);
    layout.state = next(stateWidth);
    layout.count = next(countWidth);
    layout.strip = next(size.width() - x - gap).adjusted(0, 3, 0, -3);
    return layout;
}

WidgetErrorTime::WidgetErrorTime(const FaultHistory& history, double first, double last,
                                 int nameWidth, QWidget* parent)
    : QWidget(parent)
    , m_history(history)
    , m_nameWidth(nameWidth)
    , m_seconds(first)
    , m_strip{first, last}
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const ProfileParameter& parameter = *history.parameter;
    setAccessibleName(parameter.name);
    setAccessibleDescription(tr("Fault, with its occurrences over the loaded data"));
    setToolTip(plainToolTip(tr("%1\nClass: %2\nMessage %3, byte %4, bit %5\nLeft and Right go to "
                               "the occurrence before and after")
                                .arg(parameter.fullName, errorClassText(parameter.errorType))
                                .arg(parameter.id)
                                .arg(parameter.startByte)
                                .arg(parameter.startBit)));
    QAction* const graphAction = createGraphAction(*this);
    connect(graphAction, &QAction::triggered, this, [this] { showInGraph(currentInterval()); });
    addAction(graphAction);
}

QSize WidgetErrorTime::sizeHint() const
{
    return {m_nameWidth * 2, fontMetrics().height() + rowPadding};
}

void WidgetErrorTime::resizeEvent(QResizeEvent* /*event*/)
{
    m_layout = layoutFor(size(), m_nameWidth);
    m_strip.left = m_layout.strip.left();
    m_strip.width = m_layout.strip.width();
    m_runs = pixelRuns(m_strip, m_history.intervals, smallestRun);
}

void WidgetErrorTime::setTime(double seconds)
{
    const int before = m_strip.xOf(m_seconds);
    const FaultHistory::State stateBefore = m_history.stateAt(m_seconds);
    m_seconds = seconds;
    const int now = m_strip.xOf(seconds);
    if (stateBefore != m_history.stateAt(seconds))
        update();
    else if (now != before) {
        for (const int x : {before, now})
            update(x - 1, 0, 3, height());
    }
}

void WidgetErrorTime::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintClass(painter);
    const QFontMetrics metrics = fontMetrics();
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(
        m_layout.name, Qt::AlignVCenter | Qt::AlignLeft,
        metrics.elidedText(m_history.parameter->name, Qt::ElideMiddle, m_layout.name.width()));
    paintState(painter);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(m_layout.count, Qt::AlignVCenter | Qt::AlignRight,
                     m_history.hasSamples ? QString::number(m_history.count())
                                          : QStringLiteral("-"));
    paintStrip(painter);
    if (hasFocus()) {
        painter.setPen(lookColor(Tone::Accent));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void WidgetErrorTime::paintClass(QPainter& painter) const
{
    const ClassLook look = lookOf(m_history.parameter->errorType);
    const int side = std::min(badgeWidth, height() - 4);
    QRect badge(0, 0, badgeWidth, side);
    badge.moveCenter(m_layout.errorClass.center());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.color);
    painter.drawRoundedRect(badge, 3, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(lookColor(Tone::ClassText));
    painter.drawText(badge, Qt::AlignCenter, look.letter);
}

void WidgetErrorTime::paintState(QPainter& painter) const
{
    const FaultHistory::State state = m_history.stateAt(m_seconds);
    if (state == FaultHistory::State::Set) {
        const QColor color = lookOf(m_history.parameter->errorType).color;
        painter.fillRect(m_layout.state.adjusted(0, 3, 0, -3), color);
        painter.setPen(lookColor(Tone::ClassText));
        painter.drawText(m_layout.state, Qt::AlignCenter, tr("ON"));
        return;
    }
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(m_layout.state, Qt::AlignCenter,
                     state == FaultHistory::State::Clear ? tr("off") : QStringLiteral("-"));
}

void WidgetErrorTime::paintStrip(QPainter& painter) const
{
    const QRect& area = m_layout.strip;
    painter.fillRect(area, lookColor(Tone::Strip));
    const QColor color = lookOf(m_history.parameter->errorType).color;
    for (const PixelRun& run : m_runs)
        painter.fillRect(run.left, area.top() + 2, run.right - run.left + 1, area.height() - 4,
                         color);
    painter.fillRect(m_strip.xOf(m_seconds), 0, 1, height(), lookColor(Tone::Text));
    if (m_pointer)
        paintPointer(painter);
}

void WidgetErrorTime::paintPointer(QPainter& painter) const
{
    const QString text = counterText(m_strip.timeAt(*m_pointer));
    const QRect& area = m_layout.strip;
    painter.fillRect(*m_pointer, area.top(), 1, area.height(), lookColor(Tone::Accent));
    QRect plate(*m_pointer + gap, area.top(), fontMetrics().horizontalAdvance(text) + gap,
                area.height());
    if (plate.right() > area.right())
        plate.moveRight(*m_pointer - gap);
    painter.fillRect(plate, lookColor(Tone::Strip));
    painter.setPen(lookColor(Tone::Text));
    painter.drawText(plate, Qt::AlignCenter, text);
}

void WidgetErrorTime::setPointer(std::optional<int> x)
{
    if (x && (*x < m_strip.left || *x > m_strip.right()))
        x.reset();
    if (std::exchange(m_pointer, x) != x)
        update(); // in a narrow strip the text reaches beyond it
}

const FaultInterval* WidgetErrorTime::currentInterval() const
{
    if (m_history.intervals.empty())
        return nullptr;
    const FaultInterval* const after = m_history.intervalAfter(m_seconds);
    const FaultInterval* const first = m_history.intervals.data();
    if (after == nullptr)
        return &m_history.intervals.back();
    return after == first ? first : after - 1;
}

void WidgetErrorTime::showInGraph(const FaultInterval* interval)
{
    if (interval != nullptr)
        emit signalShowInGraph(FaultEntry{&m_history, interval}.target());
}

void WidgetErrorTime::reportAt(int x)
{
    if (m_strip.width <= 1)
        return;
    double seconds = m_strip.timeAt(x);
    // A short fault is too narrow to be hit exactly.
    const FaultInterval* const meant = intervalAt(m_strip, m_history.intervals, x, reach);
    if (meant != nullptr && m_history.stateAt(seconds) != FaultHistory::State::Set)
        seconds = meant->start;
    emit signalTime(seconds);
    if (meant != nullptr)
        emit signalPicked({&m_history, meant});
}

void WidgetErrorTime::mousePressEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    if (event->button() == Qt::LeftButton && x >= m_strip.left)
        reportAt(x);
}

void WidgetErrorTime::mouseMoveEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    setPointer(x);
    if (event->buttons().testFlag(Qt::LeftButton))
        reportAt(x);
}

void WidgetErrorTime::leaveEvent(QEvent* event)
{
    setPointer({});
    QWidget::leaveEvent(event);
}

void WidgetErrorTime::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isInStrip =
        event->reason() == QContextMenuEvent::Mouse && event->x() >= m_strip.left;
    const FaultInterval* meant =
        isInStrip ? intervalAt(m_strip, m_history.intervals, event->x(), reach) : nullptr;
    if (meant == nullptr)
        meant = currentInterval();
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const graphAction = createGraphAction(*menu);
    graphAction->setEnabled(meant != nullptr);
    connect(graphAction, &QAction::triggered, this, [this, meant] { showInGraph(meant); });
    menu->addAction(graphAction);
    menu->popup(event->globalPos());
}

void WidgetErrorTime::keyPressEvent(QKeyEvent* event)
{
    const FaultInterval* wanted = nullptr;
    switch (event->key()) {
    case Qt::Key_Right:
        wanted = m_history.intervalAfter(m_seconds);
        break;
    case Qt::Key_Left:
        wanted = m_history.intervalBefore(m_seconds);
        break;
    case Qt::Key_Down:
        focusNextPrevChild(true);
        return;
    case Qt::Key_Up:
        focusNextPrevChild(false);
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (wanted == nullptr)
        return;
    emit signalTime(wanted->start);
    emit signalPicked({&m_history, wanted});
}

void WidgetErrorTime::focusInEvent(QFocusEvent* event)
{
    update();
    QWidget::focusInEvent(event);
}

} // namespace KOLT

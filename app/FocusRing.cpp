#include "app/FocusRing.h"

#include "ui/LookColors.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace KOLT {

namespace {

constexpr int ringWidth = 3;

class Ring : public QWidget
{
public:
    explicit Ring(QWidget* parent)
        : QWidget(parent)
    {
        setObjectName(QStringLiteral("focusRing"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        hide();
    }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override
    {
        // What is inside is left to the widget below, which may be repainted often.
        const QRect inside = rect().adjusted(ringWidth, ringWidth, -ringWidth, -ringWidth);
        setMask(QRegion(rect()) - QRegion(inside));
    }

    /// The line inside shows on grounds that are like the frame.
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), lookColor(Tone::Accent));
        painter.setPen(lookColor(Tone::Panel));
        painter.drawRect(rect().adjusted(ringWidth - 1, ringWidth - 1, -ringWidth, -ringWidth));
    }
};

} // namespace

FocusRing::FocusRing(QWidget& window)
    : m_window(window)
    , m_ring(new Ring(&window))
{
    qApp->installEventFilter(this);
}

void FocusRing::place()
{
    if (m_focus == nullptr || !m_isKeyUsed || !m_focus->isVisible()) {
        m_ring->hide();
        return;
    }
    QRect area = m_focus->rect();
    for (const QWidget* widget = m_focus; widget != &m_window; widget = widget->parentWidget()) {
        area = area.translated(widget->pos()) & widget->parentWidget()->rect();
    }
    m_ring->setGeometry(area);
    m_ring->setVisible(!area.isEmpty());
    m_ring->raise();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = watched->isWidgetType() ? static_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr || widget->window() != &m_window || widget == m_ring)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        m_isKeyUsed = true;
        break;
    case QEvent::MouseButtonPress:
        m_isKeyUsed = false;
        place();
        break;
    case QEvent::FocusIn:
        m_focus = widget != &m_window ? widget : nullptr;
        place();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
        if (m_focus != nullptr && (widget == m_focus || widget->isAncestorOf(m_focus)))
            QMetaObject::invokeMethod(this, &FocusRing::place, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT

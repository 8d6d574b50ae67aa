#include "ui/ProgressDisplay.h"

#include <QCoreApplication>
#include <QProgressBar>
#include <QStatusBar>

namespace KOLT {

namespace {

constexpr int lingeringMilliseconds = 300;
constexpr int barWidth = 160;

} // namespace

ProgressDisplay::ProgressDisplay(QStatusBar& statusBar)
    : m_statusBar(statusBar)
    , m_bar(new QProgressBar(&statusBar))
{
    m_bar->setFixedWidth(barWidth);
    m_bar->hide();
    statusBar.addPermanentWidget(m_bar);
    m_lingering.setSingleShot(true);
    m_lingering.setInterval(lingeringMilliseconds);
    QObject::connect(&m_lingering, &QTimer::timeout, m_bar, &QWidget::hide);
}

void ProgressDisplay::begin(const QString& text)
{
    m_lingering.stop();
    m_statusBar.showMessage(text);
    m_bar->setRange(0, 0);
    m_bar->show();
    m_events.restart();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ProgressDisplay::setPercent(int percent)
{
    m_bar->setRange(0, 100);
    m_bar->setValue(percent);
    m_events.tick();
}

void ProgressDisplay::end()
{
    m_lingering.start(); // so that 100 % is seen
    m_statusBar.clearMessage();
}

} // namespace KOLT

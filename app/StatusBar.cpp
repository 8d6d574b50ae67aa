#include "app/StatusBar.h"

#include "ui/PlainToolTip.h"

#include <QLabel>

#include <utility>

namespace KOLT {

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent)
    , m_progress(*this)
    , m_data(new QLabel(this))
{
    m_data->setTextFormat(Qt::PlainText); // file names may look like markup
    m_data->setMinimumWidth(1);           // a long text must not widen the window
    insertPermanentWidget(0, m_data);     // left of the progress bar
}

void StatusBar::showData(const QString& text)
{
    m_data->setText(text);
    const QString tip = tr("The loaded data; times since the recording unit was switched on");
    m_data->setToolTip(plainToolTip(text.isEmpty() ? tip : text + QLatin1Char('\n') + tip));
}

void StatusBar::showTip(const QString& tip)
{
    const QString shown = currentMessage();
    if (m_tip.isEmpty() || shown != m_tip)
        m_messageBehindTip = shown;
    m_tip = tip;
    showMessage(tip.isEmpty() ? m_messageBehindTip : tip);
}

void StatusBar::showNotice(const QString& message)
{
    m_notice = message;
    showMessage(message);
}

void StatusBar::repeatNotice()
{
    if (!m_notice.isEmpty())
        showMessage(std::exchange(m_notice, {}));
}

} // namespace KOLT

#include "analysis/ui/PageTabs.h"

namespace KOLT {

namespace {

constexpr QSize tabIconSize(16, 16);

} // namespace

PageTabs::PageTabs(QWidget* parent)
    : QTabBar(parent)
{
    setIconSize(tabIconSize);
    setExpanding(false);
    setDrawBase(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideRight);
}

void PageTabs::add(const QString& icon, const QString& text)
{
    m_icons.push_back(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)));
    const int tab = addTab(m_icons.back(), text);
    setTabToolTip(tab, text); // for a text that is cut
}

void PageTabs::resizeEvent(QResizeEvent* event)
{
    for (int i = 0; i < count(); ++i)
        setTabIcon(i, m_icons[i]);
    if (sizeHint().width() > width()) {
        for (int i = 0; i < count(); ++i)
            setTabIcon(i, {});
    }
    QTabBar::resizeEvent(event);
}

} // namespace KOLT

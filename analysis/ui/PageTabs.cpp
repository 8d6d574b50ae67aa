#include "analysis/ui/PageTabs.h"

#include "ui/PaintedIcon.h"

namespace KOLT {

namespace {

constexpr QSize tabIconSize(16, 16);
constexpr int spareRoom = 12;

} // namespace

PageTabs::PageTabs(QWidget* parent)
    : QTabBar(parent)
{
    setIconSize(tabIconSize);
    setExpanding(false);
    setDrawBase(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
}

void PageTabs::add(const QString& icon, const QString& text)
{
    const int tab = addTab(lookIcon(icon), text);
    setTabToolTip(tab, text); // for a tab that is scrolled half out of sight
}

QSize PageTabs::tabSizeHint(int index) const
{
    return QTabBar::tabSizeHint(index) - QSize(spareRoom, 0);
}

} // namespace KOLT

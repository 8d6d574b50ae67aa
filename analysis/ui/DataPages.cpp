#include "analysis/ui/DataPages.h"

#include "ui/WidgetNoGl.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>

namespace KOLT {

QWidget* DataPages::add(Page page, const Hosted& hosted, QWidget* parent)
{
    hosted.widget->setParent(parent);
    QWidget* const shown = WidgetNoGl::shown(hosted.widget);
    shown->installEventFilter(this);
    m_pages[index(page)] = {hosted.page, shown};
    return shown;
}

void DataPages::setData(const DataSet* dataSet)
{
    for (const Hosted& entry : m_pages)
        entry.page->setData(dataSet);
}

void DataPages::refresh(DataPage::Changes changes)
{
    for (const Hosted& entry : m_pages)
        entry.page->refresh(changes);
}

void DataPages::setTime(double seconds, std::initializer_list<Page> except)
{
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        if (std::ranges::find(except, static_cast<Page>(i)) == except.end())
            m_pages[i].page->setTime(seconds);
    }
}

bool DataPages::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        const auto entry = std::ranges::find(m_pages, watched, &Hosted::widget);
        if (entry != m_pages.end())
            entry->page->setShown(event->type() == QEvent::Show);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT

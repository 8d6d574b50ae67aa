#include "ui/ColumnMemory.h"

#include <QEvent>
#include <QHeaderView>

#include <utility>

namespace KOLT {

namespace {

ColumnMemory::Keeper& keeper()
{
    static ColumnMemory::Keeper keeper;
    return keeper;
}

} // namespace

void ColumnMemory::setKeeper(Keeper newKeeper)
{
    keeper() = std::move(newKeeper);
}

ColumnMemory::ColumnMemory(QHeaderView& header, QString table)
    : QObject(&header)
    , m_header(header)
    , m_table(std::move(table))
{
    connect(&header, &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) { note(column, width); });
    header.viewport()->installEventFilter(this);
}

QString ColumnMemory::nameOf(int column) const
{
    return m_header.model()->headerData(column, Qt::Horizontal).toString().simplified();
}

void ColumnMemory::restore()
{
    if (!m_isLoaded && keeper().load) {
        m_widths = keeper().load(m_table);
        m_isLoaded = true;
    }
    for (int column = 0; column < m_header.count() && !m_widths.isEmpty(); ++column) {
        const int width = m_widths.value(nameOf(column));
        if (width > 0 && !m_header.isSectionHidden(column) &&
            m_header.sectionResizeMode(column) == QHeaderView::Interactive)
            m_header.resizeSection(column, width);
    }
}

/// Of what the user drags; the last column and stretched ones only follow.
void ColumnMemory::note(int column, int width)
{
    const bool isFollowing =
        m_header.stretchLastSection() && m_header.visualIndex(column) == m_header.count() - 1;
    if (!m_isPressed || isFollowing || width == 0 ||
        m_header.sectionResizeMode(column) != QHeaderView::Interactive)
        return;
    m_widths[nameOf(column)] = width;
    m_isChanged = true;
}

bool ColumnMemory::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        restore(); // the table may have been made before it was said where widths are kept
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // fits the column
        m_isPressed = true;
        break;
    case QEvent::MouseButtonRelease:
        m_isPressed = false;
        if (std::exchange(m_isChanged, false) && keeper().store)
            keeper().store(m_table, m_widths);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT

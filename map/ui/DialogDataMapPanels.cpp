#include "map/ui/DialogDataMap.h"
#include "map/ui/WidgetMap.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int panelEdge = 10;
constexpr int toolBarRoom = 70;
constexpr int valuePanelPlace = 310;
constexpr int valuePanelWidth = 300;
constexpr int attributionHeight = 48; ///< two lines
constexpr int leastFree = 90;         ///< pixels of the map below the panels
constexpr int mostPercent = 46;       ///< of the height for panels in a column; the aircraft is in
                                      ///< the middle

} // namespace

/// Places a panel of the left column at `top`, unless it is hidden, and moves `top` below it.
void DialogDataMap::raiseInto(QWidget& panel, int& top)
{
    if (panel.isHidden())
        return;
    panel.setMaximumWidth(std::max(1, width() - 2 * panelEdge));
    panel.adjustSize();
    panel.move(panelEdge, top);
    panel.raise();
    top = panel.geometry().bottom() + panelEdge / 2;
    m_covered.emplace_back(panel.geometry());
}

/// In a narrow map the reason alone leads to the settings. Left out where it would lie over the
/// attribution.
void DialogDataMap::placeNote(int& top)
{
    const int room = width() - 2 * panelEdge;
    const auto link = QStringLiteral("<a style=\"color: #2f6690\" href=\"settings\">%1</a>");
    m_note->setWordWrap(false);
    m_note->setText(m_noteReason + QLatin1Char(' ') + link.arg(tr("Map settings...")));
    if (m_note->sizeHint().width() > room) {
        m_note->setText(link.arg(m_noteReason));
        m_note->setWordWrap(m_note->sizeHint().width() > room);
    }
    m_note->setMaximumWidth(std::max(1, room));
    m_note->adjustSize();
    m_note->setVisible(m_areTilesLacking && top + m_note->height() < height() - attributionHeight);
    raiseInto(*m_note, top);
}

/// Beside the left column if there is room; else below it, where half of the map stays free.
/// Returns whether the values are beside it.
bool DialogDataMap::placeValues(int top)
{
    QRect values(std::max(panelEdge, width() - valuePanelPlace), panelEdge,
                 std::min(valuePanelWidth, width() - 2 * panelEdge), 0);
    const int beside = values.left() - panelEdge - m_fold->sizeHint().width();
    const bool isBeside = std::ranges::none_of(m_covered, [&](const QRectF& panel) {
        return panel.top() < height() - attributionHeight && panel.right() >= beside;
    });
    if (isBeside) {
        values.setBottom(height() - attributionHeight);
    } else {
        values.moveTop(top);
        values.setBottom(height() * mostPercent / 100);
    }
    const int free = height() - attributionHeight - values.bottom();
    if (!isBeside && free < leastFree)
        values.setHeight(0);
    const bool hasRoom = m_values.place(values);
    m_fold->setEnabled(hasRoom);
    m_fold->setToolTip(hasRoom ? tr("Show the values of the selected parameters")
                               : tr("The map is too small for the values"));
    m_values.widget().raise();
    return isBeside;
}

void DialogDataMap::placePanels()
{
    // The attribution and the scale bar at the bottom must stay visible.
    m_covered = {QRectF(0, height() - attributionHeight, width(), attributionHeight)};
    const int room = std::max(1, width() - toolBarRoom);
    m_toolPanel->setMaximumWidth(room);
    // In a narrow map rather without this command than without the choice of colors.
    if (m_notesShown->isVisible())
        m_toolsWidth = m_toolPanel->sizeHint().width();
    m_notesShown->setVisible(m_toolsWidth <= room);
    m_toolPanel->adjustSize();
    m_toolPanel->move(panelEdge, panelEdge);
    m_toolPanel->raise();
    m_covered.emplace_back(m_toolPanel->geometry());
    int top = m_toolPanel->geometry().bottom() + panelEdge / 2;
    m_flight.fit(width() - 2 * panelEdge);
    raiseInto(m_flight.widget(), top);
    placeNote(top);
    const bool isBeside = placeValues(top);
    const QWidget& values = m_values.widget();
    if (!values.isHidden())
        m_covered.emplace_back(values.geometry());
    m_fold->adjustSize();
    const int right =
        !values.isHidden() && isBeside ? values.x() - panelEdge / 2 : width() - panelEdge;
    m_fold->move(right - m_fold->width(), panelEdge);
    m_fold->raise();
    m_covered.emplace_back(m_fold->geometry());
    m_isFlightHidden = m_flight.widget().isHidden();
    m_map->setCovered(m_covered);
}

} // namespace KOLT

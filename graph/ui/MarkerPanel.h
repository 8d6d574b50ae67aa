#pragma once

#include <QWidget>

class QLabel;
class QTableWidget;

namespace KOLT {

class WidgetGraphBase;

/// The table below the graph of what is between the markers. It is shown once the user has set
/// them apart, and hidden when they are together again; while they are moved, neither, so that the
/// graph does not change its size under the pointer.
class MarkerPanel : public QWidget
{
    Q_OBJECT

public:
    explicit MarkerPanel(const WidgetGraphBase& graph, QWidget* parent = nullptr);

    /// Follows the graph's markers, traces and settings.
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fill();
    void fitHeight();
    void copy() const;

    const WidgetGraphBase& m_graph;
    QLabel* m_heading;
    QTableWidget* m_table;
};

} // namespace KOLT

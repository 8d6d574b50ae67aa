#pragma once

#include "analysis/EventFinder.h"

#include <QTableWidget>

#include <functional>

namespace KOLT {

class ColumnMemory;

/// The table in a list of exceedances: a row for each, with its time and text.
class EventTable : public QTableWidget
{
    Q_OBJECT

public:
    /// Returns the tool tip of an event.
    using Description = std::function<QString(const Event&)>;

    EventTable(const QString& heading, Description description, QWidget* parent = nullptr);

    /// The events must ascend, and stay valid until the next call.
    void setEvents(std::vector<const Event*> events);

    const std::vector<const Event*>& events() const { return m_events; }

    /// Of the current row; null if there is none.
    const Event* currentEvent() const;

    /// Selects the last event at or before the time, or else the first one.
    void showTime(double seconds);

    /// Whether the selection is changed by the table, not by the user.
    bool isChanging() const { return m_isChanging; }

    /// The time of a row in seconds: the first whole millisecond at or after the event, as its
    /// sample is not there earlier.
    double secondsOf(int row) const;

    /// Sizes rows and columns by the font.
    void fit();

    /// Copies the current row to the clipboard.
    void copy() const;

    QString descriptionOf(const Event& event) const { return m_description(event); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Description m_description;
    ColumnMemory* m_widths = nullptr;
    std::vector<const Event*> m_events; ///< by row
    bool m_isChanging = false;
};

} // namespace KOLT

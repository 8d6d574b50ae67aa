#pragma once

#include <QCalendarWidget>
#include <QDateEdit>
#include <QHeaderView>
#include <QTableView>

namespace KOLT {

/// Gives a field a calendar, in the format of all fields with dates.
inline void useCalendar(QDateEdit& field)
{
    field.setCalendarPopup(true);
    field.setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    // Its hidden header would keep the rows so high that the last week is cut.
    for (auto* days : field.calendarWidget()->findChildren<QTableView*>())
        days->verticalHeader()->setMinimumSectionSize(1);
}

} // namespace KOLT

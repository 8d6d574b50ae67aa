#pragma once

#include "library/ledger/LogbookRecords.h"

namespace KOLT::Library {

enum class DueState { Ok, Soon, Overdue };

/// How far a maintenance limit is from being due.
struct MaintenanceState
{
    MaintenanceLimit limit;
    DueState state = DueState::Ok;
    std::optional<double> dueHours;  ///< of the engine
    std::optional<double> hoursLeft; ///< below 0: overdue
    QDate dueDate;                   ///< by the calendar; invalid without one
    QDate expected;                  ///< when the hours will be used up at the present rate
};

/// Soon is the last tenth of an interval. What was never done counts from hour 0 on, and has no
/// due date. `hoursPerDay` is how much the engine runs at present; 0: not known.
MaintenanceState maintenanceState(const MaintenanceLimit& limit, double engineHours,
                                  double hoursPerDay, const QDate& today);

} // namespace KOLT::Library

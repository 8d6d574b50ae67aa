#include "library/ledger/MaintenanceState.h"

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

constexpr double soonPart = 0.1;
constexpr double longestOutlook = 3650.0; // days

DueState stateOf(double left, double interval)
{
    if (left <= 0.0)
        return DueState::Overdue;
    return left <= soonPart * interval ? DueState::Soon : DueState::Ok;
}

} // namespace

MaintenanceState maintenanceState(const MaintenanceLimit& limit, double engineHours,
                                  double hoursPerDay, const QDate& today)
{
    MaintenanceState result;
    result.limit = limit;
    if (limit.everyHours) {
        result.dueHours = limit.lastHours + *limit.everyHours;
        result.hoursLeft = *result.dueHours - engineHours;
        result.state = stateOf(*result.hoursLeft, *limit.everyHours);
        const double days = hoursPerDay > 0.0 ? *result.hoursLeft / hoursPerDay : -1.0;
        if (days >= 0.0 && days <= longestOutlook)
            result.expected = today.addDays(static_cast<qint64>(std::floor(days)));
    }
    if (limit.everyMonths && limit.lastDate.isValid()) {
        result.dueDate = limit.lastDate.addMonths(*limit.everyMonths);
        const auto interval = static_cast<double>(limit.lastDate.daysTo(result.dueDate));
        const auto left = static_cast<double>(today.daysTo(result.dueDate));
        result.state = std::max(result.state, stateOf(left, interval));
    }
    return result;
}

} // namespace KOLT::Library

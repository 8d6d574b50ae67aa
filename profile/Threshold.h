#pragma once

#include <QColor>
#include <QString>

#include <cmath>
#include <optional>
#include <vector>

namespace KOLT {

enum class ThresholdState : int { Ok = 0, Warning = 1, Limit = 2 };

struct Grade
{
    QRgb color = qRgb(255, 255, 255);
    ThresholdState state = ThresholdState::Ok;
};

struct ThresholdStep
{
    double value = 0.0;
    Grade grade;
};

/// Grades a value by a list of steps, which are kept in file order.
struct Threshold
{
    int id = 0;
    QString name;
    std::vector<ThresholdStep> steps;
    double holdSeconds = 3.0;         ///< crossings less than this apart are one episode
    std::optional<double> hysteresis; ///< metric; none: 1 % of the step's absolute value

    /// How far inside the normal range a value is back that had left it at this step.
    double hysteresisAt(double step) const
    {
        constexpr double part = 0.01;
        return hysteresis.value_or(part * std::abs(step));
    }

    /// The grade of the last step at or below `value`, searching up to the first step above it.
    /// White and Ok below the first step and for NaN.
    Grade grade(double value) const
    {
        Grade result;
        if (std::isnan(value))
            return result;
        for (const ThresholdStep& step : steps) {
            if (step.value > value)
                break;
            if (step.value <= value)
                result = step.grade;
        }
        return result;
    }
};

} // namespace KOLT

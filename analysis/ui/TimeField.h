#pragma once

#include <QTimeEdit>

namespace KOLT {

/// A field for a time of the counter. Its steps carry over to the other parts of the time, and from
/// one day to the next. A typed time counts when it is confirmed, as parts of it may lie outside
/// the data.
class TimeField : public QTimeEdit
{
public:
    explicit TimeField(QWidget* parent = nullptr)
        : QTimeEdit(parent)
    {
        setDisplayFormat(QStringLiteral("hh:mm:ss"));
        setKeyboardTracking(false);
    }

    void stepBy(int steps) override
    {
        constexpr int day = 24 * 60 * 60;
        const Section section = currentSection();
        const int unit = section == HourSection ? 60 * 60 : section == MinuteSection ? 60 : 1;
        const int seconds = QTime(0, 0).secsTo(time()) + steps * unit;
        setTime(QTime(0, 0).addSecs((seconds % day + day) % day));
        setSelectedSection(section);
    }

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
};

} // namespace KOLT

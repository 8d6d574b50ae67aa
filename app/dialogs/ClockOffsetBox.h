#pragma once

#include "record/ClockOffset.h"

#include <QSpinBox>

namespace KOLT {

/// A field for hours and minutes with a sign, in steps of a quarter of an hour.
class ClockOffsetBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit ClockOffsetBox(QWidget* parent = nullptr)
        : QSpinBox(parent)
    {
        constexpr int step = 15;
        setRange(-maxClockOffset, maxClockOffset);
        setSingleStep(step);
    }

protected:
    QString textFromValue(int value) const override { return clockOffsetText(value); }

    int valueFromText(const QString& text) const override
    {
        return clockOffsetOf(text).value_or(value());
    }

    QValidator::State validate(QString& text, int& /*position*/) const override
    {
        return clockOffsetOf(text) ? QValidator::Acceptable : QValidator::Intermediate;
    }
};

} // namespace KOLT

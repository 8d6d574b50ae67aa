#pragma once

#include <QString>

#include <cmath>

namespace Zinc2D {

/// The value of a variable or an expression: not set, a finite number, or a text. Colours are
/// numbers of the form 0xAARRGGBB. A text is owned by the expression that it is a constant of,
/// which must outlive the value.
class Value
{
public:
    Value() = default;

    /// Not set for NaN and infinity.
    explicit Value(double number)
        : m_number(number)
        , m_kind(std::isfinite(number) ? Kind::Number : Kind::Unset)
    {
    }

    explicit Value(bool isTrue)
        : Value(isTrue ? 1.0 : 0.0)
    {
    }

    explicit Value(const QString* text)
        : m_text(text)
        , m_kind(Kind::Text)
    {
    }

    bool isSet() const { return m_kind != Kind::Unset; }

    bool isNumber() const { return m_kind == Kind::Number; }

    bool isText() const { return m_kind == Kind::Text; }

    /// 0 unless it is a number.
    double number() const { return m_number; }

    /// Empty unless it is a text.
    QString text() const { return m_text != nullptr ? *m_text : QString(); }

    bool operator==(const Value& other) const
    {
        return m_kind == other.m_kind && m_number == other.m_number && text() == other.text();
    }

private:
    enum class Kind { Unset, Number, Text };

    double m_number = 0.0;
    const QString* m_text = nullptr;
    Kind m_kind = Kind::Unset;
};

} // namespace Zinc2D

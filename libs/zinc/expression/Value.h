#pragma once

#include <QString>

#include <cmath>

namespace Zinc2D {

/// What a variable holds and an expression yields: nothing, a finite number, or a text. Colours are
/// numbers of the form 0xAARRGGBB. Texts belong to the expression that they stand in, which must
/// outlive the value.
class Value
{
public:
    Value() = default;

    /// Numbers that are none (infinite, NaN) are nothing.
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

    /// 0 where it is no number.
    double number() const { return m_number; }

    /// Empty where it is no text.
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

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Zinc2D {

/// A number put into a text as printf does it, with a decimal point wherever the program runs:
/// "%.1f bar", "%04d h", "100 %%". At most one conversion out of d, i, u, x, X, e, E, f, F, g, G;
/// the integer ones round. Width and precision go up to 30.
class NumberFormat
{
public:
    /// "%g"
    NumberFormat();

    /// Nothing where the text is no such format; `badOffset` is then where it goes wrong.
    static std::optional<NumberFormat> parse(const QString& text, qsizetype* badOffset = nullptr);

    /// A number that rounds to 0 has no sign.
    QString apply(double number) const;

    /// What stands in its place when there is no number: a dash for each decimal, "--.-".
    QString dashes() const;

private:
    enum class Kind { None, Integer, Unsigned, Floating };

    QByteArray toBytes(double number) const;

    QString m_prefix;
    QString m_suffix;
    QByteArray m_conversion; ///< with its % and without length modifier
    Kind m_kind = Kind::Floating;
    int m_decimals = 0;
    int m_width = 0;
};

} // namespace Zinc2D

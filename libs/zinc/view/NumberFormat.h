#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Zinc2D {

/// Formats a number like printf, with a decimal point in every locale: "%.1f bar", "%04d h",
/// "100 %%". At most one conversion, one of d, i, u, x, X, e, E, f, F, g, G; those of integers
/// round. Width and precision go up to 30.
class NumberFormat
{
public:
    /// "%g"
    NumberFormat();

    /// Empty if the text is not such a format; `badOffset` is then the index of the error.
    static std::optional<NumberFormat> parse(const QString& text, qsizetype* badOffset = nullptr);

    /// A number that rounds to 0 is written without a sign.
    QString apply(double number) const;

    /// The text for a missing number: "---", or with a dash for each decimal, "--.-".
    QString dashes() const;

private:
    enum class Kind { None, Integer, Unsigned, Floating };

    QByteArray toBytes(double number) const;

    QString m_prefix;
    QString m_suffix;
    QByteArray m_conversion; ///< for snprintf: with its %, and "ll" for integers
    Kind m_kind = Kind::Floating;
    int m_decimals = 0;
    int m_width = 0;
};

} // namespace Zinc2D

#include "export/DbcSignal.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int bitsPerByte = 8;
constexpr int longestName = 32;

/// As the decoder takes them: from the word shifted right, so that bits beyond it are 0.
std::optional<DbcSignal> bitField(const ProfileParameter& parameter, int wordBits)
{
    const std::int64_t width = std::int64_t{parameter.endBit} - parameter.startBit + 1;
    const int shift = static_cast<int>(static_cast<unsigned>(parameter.startBit) & 31U);
    DbcSignal signal;
    signal.startBit = parameter.startByte * bitsPerByte + shift;
    signal.bits = static_cast<int>(std::min<std::int64_t>(width, wordBits - shift));
    return signal.bits > 0 ? std::optional(signal) : std::nullopt;
}

void setRange(DbcSignal& signal)
{
    if (signal.isFloat)
        return;
    const int magnitudeBits = signal.isSigned ? signal.bits - 1 : signal.bits;
    const double highestRaw = std::ldexp(1.0, magnitudeBits) - 1.0;
    const double lowestRaw = signal.isSigned ? -highestRaw - 1.0 : 0.0;
    const double one = lowestRaw * signal.factor + signal.offset;
    const double other = highestRaw * signal.factor + signal.offset;
    signal.lowest = std::min(one, other);
    signal.highest = std::max(one, other);
}

bool isPlain(char16_t code)
{
    return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
           (code >= u'0' && code <= u'9');
}

} // namespace

std::optional<DbcSignal> dbcSignalOf(const Profile& profile, const ProfileParameter& parameter)
{
    const DataTypeInfo& type = dataTypeInfo(parameter.dataType);
    if (parameter.rule == DecodingRule::NotImplemented)
        return std::nullopt;
    std::optional<DbcSignal> signal;
    if (parameter.rule == DecodingRule::BitField) {
        signal = bitField(parameter, type.width * bitsPerByte);
    } else {
        signal = DbcSignal();
        signal->startBit = parameter.startByte * bitsPerByte;
        signal->bits = type.width * bitsPerByte;
        signal->isFloat = parameter.rule == DecodingRule::Float;
        signal->isSigned = type.isSigned || signal->isFloat;
        signal->factor = parameter.factor;
        signal->offset = parameter.offset;
    }
    if (signal && profile.isConverted(parameter)) {
        signal->factor *= parameter.conversion->factor;
        signal->offset =
            signal->offset * parameter.conversion->factor + parameter.conversion->offset;
    }
    if (!signal || !std::isfinite(signal->factor) || !std::isfinite(signal->offset))
        return std::nullopt;
    setRange(*signal);
    return signal;
}

QByteArray DbcNames::of(const QString& text)
{
    QByteArray plain;
    for (const QChar character : text.left(longestName))
        plain += isPlain(character.unicode()) ? character.toLatin1() : '_';
    if (plain.isEmpty() || (plain[0] >= '0' && plain[0] <= '9'))
        plain.prepend('_');
    plain.truncate(longestName);
    QByteArray name = plain;
    for (int i = 2; !m_taken.insert(name.toLower()).second; ++i) {
        const QByteArray number = '_' + QByteArray::number(i);
        name = plain.left(longestName - number.size()) + number;
    }
    return name;
}

QByteArray dbcNumber(double number)
{
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
}

QByteArray dbcString(const QString& text)
{
    QByteArray latin = text.toLatin1();
    latin.replace('"', '\'');
    latin.replace('\\', '/'); // some tools take it as an escape
    latin.replace('\0', ' ');
    return '"' + latin + '"';
}

} // namespace KOLT

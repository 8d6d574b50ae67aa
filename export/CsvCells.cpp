#include "export/CsvCells.h"

#include "base/Csv.h"
#include "base/NumberText.h"
#include "profile/ValueDecoder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>

namespace KOLT {

void CsvFormat::append(std::string& text, double number, int decimals) const
{
    const std::size_t start = text.size();
    appendFixed(text, number, decimals);
    setDecimalSign(text, start);
}

void CsvFormat::append(std::string& text, const ExportClock& clock, double seconds) const
{
    const std::size_t start = text.size();
    clock.appendTo(text, seconds, m_separator);
    setDecimalSign(text, start);
}

void CsvFormat::append(std::string& text, const ProfileParameter& parameter,
                       const MessageData& data, double number) const
{
    if (parameter.rule == DecodingRule::Float && std::isfinite(number)) {
        append(text, m_profile.convertUnit(parameter, number), parameter.precision);
        return;
    }
    if (parameter.rule == DecodingRule::Integer &&
        parameter.dataType != static_cast<int>(DataType::ULong)) {
        appendFixed(text, number, 0);
        return;
    }
    if (parameter.rule == DecodingRule::BitField && m_hasCodesOnly) {
        // Signed, as in the text with the label.
        text += std::to_string(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
        return;
    }
    QString other = textOf(m_profile, parameter, data, number);
    if (m_hasComma && parameter.rule == DecodingRule::Integer)
        other.replace(QLatin1Char('.'), QLatin1Char(','));
    text += csvField(other, QLatin1Char(m_separator)).toStdString();
}

void CsvFormat::setDecimalSign(std::string& text, std::size_t start) const
{
    if (m_hasComma)
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), '.', ',');
}

CsvCells::CsvCells(const DataSet& dataSet, const std::vector<const ProfileParameter*>& parameters,
                   const CsvFormat& format)
    : m_format(format)
{
    std::map<int, std::size_t> messageOfId;
    for (const ProfileParameter* parameter : parameters) {
        const auto [place, isNew] = messageOfId.emplace(parameter->id, m_messages.size());
        if (isNew)
            m_messages.push_back({SampleWalker(seriesOf(dataSet.messages, *parameter)), {}});
        m_messages[place->second].columns.push_back(m_columns.size());
        m_columns.push_back({parameter, std::string(1, format.separator()), {}});
    }
    for (const auto& [id, place] : messageOfId) {
        const auto held = dataSet.before.find(static_cast<std::uint32_t>(id));
        if (held != dataSet.before.end())
            decode(m_messages[place], held->second.data);
    }
}

void CsvCells::appendTo(std::string& line, double seconds)
{
    for (Message& message : m_messages) {
        const StoredSample* const before = message.walker.sample();
        if (message.walker.advanceTo(seconds) &&
            (before == nullptr || before->data != message.walker.sample()->data))
            decode(message, message.walker.sample()->data);
    }
    for (const Column& column : m_columns)
        line += column.text;
}

void CsvCells::decode(const Message& message, const MessageData& data)
{
    for (const std::size_t index : message.columns) {
        Column& column = m_columns[index];
        const double number = decodeNumber(data, *column.parameter);
        const auto bits = std::bit_cast<std::uint64_t>(number); // 0 and -0 differ
        // The text of a scaled integer may be more exact than its number.
        const DecodingRule rule = column.parameter->rule;
        if (bits == column.bits && (rule == DecodingRule::Float || rule == DecodingRule::BitField))
            continue;
        column.bits = bits;
        column.text.resize(1);
        m_format.append(column.text, *column.parameter, data, number);
    }
}

} // namespace KOLT

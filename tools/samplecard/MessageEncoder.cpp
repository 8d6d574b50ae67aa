#include "tools/samplecard/MessageEncoder.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace KOLT::SampleCard {

namespace {

/// In steps; all periods divide it.
constexpr int longestPeriod = 250;

constexpr std::uint32_t extendedFrame = 0x80000000U;

/// The unit sends positions as DDDMM.mmmm (degrees and minutes).
double degreesAndMinutes(double degrees)
{
    const double whole = std::trunc(degrees);
    return whole * 100.0 + (degrees - whole) * 60.0;
}

bool fail(QString* error, const QString& text)
{
    if (error != nullptr)
        *error = text;
    return false;
}

} // namespace

bool MessageEncoder::prepare(const Profile& profile, QString* error)
{
    m_messages.clear();
    for (const Device& device : profile.devices()) {
        for (const ProfileParameter* parameter : device.parameters) {
            if (!addParameter(*parameter, device.name, error))
                return false;
        }
    }
    if (m_messages.empty())
        return fail(error, QStringLiteral("the profile has no parameters"));
    spread();
    return true;
}

void MessageEncoder::thinOut()
{
    for (Message& message : m_messages) {
        const bool isQuick = std::ranges::any_of(message.fields, [](const Field& field) {
            return field.source != nullptr && (field.source->value == &Quantities::engineSpeed ||
                                               field.source->value == &Quantities::groundSpeed ||
                                               field.source->value == &Quantities::fuelFlowPerLane);
        });
        message.period = std::max(message.period, isQuick ? 50 : longestPeriod);
    }
    spread();
}

/// Messages of the same rate evenly over the steps.
void MessageEncoder::spread()
{
    m_due.assign(longestPeriod, {});
    for (std::size_t i = 0; i < m_messages.size(); ++i) {
        Message& message = m_messages[i];
        message.phase = static_cast<int>(7 * i) % message.period;
        for (std::size_t step = 0; step < m_due.size(); ++step) {
            if (static_cast<int>(step) % message.period == message.phase)
                m_due[step].push_back(i);
        }
    }
}

bool MessageEncoder::addParameter(const ProfileParameter& parameter, const QString& device,
                                  QString* error)
{
    Field field;
    field.source = parameterSource(parameter.name.toStdString());
    if (field.source == nullptr && parameter.errorType != ErrorType::None)
        field.fault = parameter.name.toStdString();
    else if (field.source == nullptr)
        return fail(error,
                    QStringLiteral("no simulated value for parameter %1").arg(parameter.name));
    if (parameter.rule == DecodingRule::NotImplemented || parameter.factor == 0.0)
        return fail(error, QStringLiteral("parameter %1 cannot be encoded").arg(parameter.name));
    const std::optional<int> period = messagePeriod(parameter.id);
    if (!period)
        return fail(error, QStringLiteral("no rate for message %1").arg(parameter.id));

    const DataTypeInfo& type = dataTypeInfo(parameter.dataType);
    field.rule = parameter.rule;
    field.startByte = static_cast<std::size_t>(parameter.startByte);
    field.width = type.width;
    field.isSigned = type.isSigned;
    field.isPosition = parameter.isPosition();
    field.factor = parameter.factor;
    field.offset = parameter.offset;
    field.shift = parameter.startBit & 31;
    const int bits = static_cast<int>(
        std::clamp<std::int64_t>(std::int64_t{parameter.endBit} - parameter.startBit + 1, 0, 32));
    field.mask = bits == 32 ? 0xFFFFFFFFU : (1U << bits) - 1U;

    const bool laneA = device == QLatin1String("ECU Lane A");
    const bool laneB = device == QLatin1String("ECU Lane B");
    const bool engine = laneA || laneB || device == QLatin1String("EMU");
    const auto identifier = static_cast<std::uint32_t>(parameter.id);
    const std::uint32_t sent = engine ? identifier : identifier | extendedFrame;
    // A message is sent once, by its first device, even when parameters of other devices are in it.
    auto message = std::ranges::find_if(m_messages, [&](const Message& known) {
        return (known.identifier & ~extendedFrame) == identifier;
    });
    if (message == m_messages.end()) {
        const std::uint16_t kind = laneA ? 0 : laneB ? 1 : 2;
        m_messages.push_back({sent, kind, static_cast<std::uint8_t>(kind), *period, 0, {}});
        message = std::prev(m_messages.end());
    }
    message->fields.push_back(field);
    return true;
}

RecordFileWriter::RecordSample
MessageEncoder::encode(std::size_t message, const Quantities& quantities, Random& random) const
{
    const Message& plan = m_messages[message];
    RecordFileWriter::RecordSample sample;
    sample.byte8 = static_cast<std::uint8_t>(sample.data.size());
    sample.byte9 = plan.channel;
    sample.kind = plan.kind;
    sample.identifier = plan.identifier;
    for (const Field& field : plan.fields) {
        double value = 0.0;
        if (field.source != nullptr) {
            value = quantities.*field.source->value;
            // A quantity of 0 is switched off or standing still: it has no noise.
            if (field.source->noise > 0.0 && value != 0.0)
                value += random.noise(field.source->noise);
        } else if (!quantities.faults.empty()) {
            value = std::ranges::count(quantities.faults, field.fault) > 0 ? 1.0 : 0.0;
        }
        const std::uint32_t raw = rawValue(field, value);
        for (int i = 0; i < field.width; ++i) {
            std::uint8_t& byte = sample.data[field.startByte + static_cast<std::size_t>(i)];
            byte = static_cast<std::uint8_t>(byte | ((raw >> (8 * i)) & 0xFFU));
        }
    }
    return sample;
}

std::uint32_t MessageEncoder::rawValue(const Field& field, double value)
{
    if (field.rule == DecodingRule::BitField)
        return (static_cast<std::uint32_t>(value) & field.mask) << field.shift;
    if (field.isPosition)
        value = degreesAndMinutes(value);
    const double raw = (value - field.offset) / field.factor;
    if (!std::isfinite(raw))
        return 0;
    if (field.rule == DecodingRule::Float)
        return std::bit_cast<std::uint32_t>(static_cast<float>(raw));

    const double range = std::exp2(8 * field.width);
    const double low = field.isSigned ? -range / 2.0 : 0.0;
    const double high = field.isSigned ? range / 2.0 - 1.0 : range - 1.0;
    const double whole = std::clamp(std::round(raw), low, high);
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(whole));
}

} // namespace KOLT::SampleCard

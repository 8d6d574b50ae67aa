#pragma once

#include "profile/MessageData.h"

#include <QByteArray>
#include <QDateTime>

#include <bit>
#include <cstdint>

namespace KOLT::Test {

/// The data bytes of two FLOAT values, at byte 0 and byte 4.
inline MessageData floats(float first, float second = 0.0F)
{
    MessageData data{};
    const std::uint32_t words[] = {std::bit_cast<std::uint32_t>(first),
                                   std::bit_cast<std::uint32_t>(second)};
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<unsigned char>(words[i / 4] >> (8 * (i % 4)));
    return data;
}

/// Builds the bytes of a record file field by field, independently of the product's code.
class RecordBytes
{
public:
    explicit RecordBytes(bool littleEndian = true)
        : m_little(littleEndian)
    {
        m_bytes = QByteArray(128, '\0');
        put(0, 0xABBA, 2);
    }

    RecordBytes& date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
    {
        put(12, static_cast<std::uint16_t>(year), 2);
        put(14, month, 1).put(15, day, 1).put(16, hour, 1).put(17, minute, 1).put(18, second, 1);
        return *this;
    }

    RecordBytes& headerTime(double seconds) { return putTime(20, seconds); }

    RecordBytes& busType(std::uint32_t value) { return put(28, value, 4); }

    RecordBytes& ecuSerial(std::uint32_t value) { return put(32, value, 4); }

    /// Field 0..5: software part A, ECU type, engine serial, engine type, software part B, EMU
    /// version.
    RecordBytes& text(int field, const QByteArray& value)
    {
        m_bytes.replace(36 + 13 * field, value.size(), value);
        return *this;
    }

    RecordBytes& sample(std::uint32_t id, double seconds, const MessageData& data = {},
                        int kind = 0)
    {
        const auto at = m_bytes.size();
        m_bytes += QByteArray(28, '\0');
        std::copy(data.begin(), data.end(), m_bytes.begin() + at);
        put(at + 8, 0x11, 1).put(at + 9, 0x22, 1).put(at + 10, kind, 2).put(at + 12, id, 4);
        put(at + 16, 0x12345678, 4);
        return putTime(at + 20, seconds);
    }

    /// A sample with raw time words.
    RecordBytes& sampleTicks(std::uint32_t id, std::uint32_t high, std::uint32_t low)
    {
        sample(id, 0.0);
        return put(m_bytes.size() - 8, high, 4).put(m_bytes.size() - 4, low, 4);
    }

    const QByteArray& bytes() const { return m_bytes; }

private:
    RecordBytes& put(qsizetype offset, std::uint64_t value, int width)
    {
        for (int i = 0; i < width; ++i)
            m_bytes[offset + (m_little ? i : width - 1 - i)] = static_cast<char>(value >> (8 * i));
        return *this;
    }

    RecordBytes& putTime(qsizetype offset, double seconds)
    {
        const auto ticks = static_cast<std::uint64_t>(seconds * 32e6 + 0.5);
        return put(offset, ticks >> 32, 4).put(offset + 4, ticks & 0xFFFFFFFFU, 4);
    }

    bool m_little;
    QByteArray m_bytes;
};

} // namespace KOLT::Test

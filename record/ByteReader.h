#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace KOLT {

enum class ByteOrder { Little, Big };

/// Reads unsigned numbers from a block of bytes. A number that extends beyond the block reads as 0.
class ByteReader
{
public:
    ByteReader(std::span<const unsigned char> bytes, ByteOrder order)
        : m_bytes(bytes)
        , m_order(order)
    {
    }

    std::uint8_t u8(std::size_t offset) const { return static_cast<std::uint8_t>(read<1>(offset)); }

    std::uint16_t u16(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(read<2>(offset));
    }

    std::uint32_t u32(std::size_t offset) const { return read<4>(offset); }

private:
    template <std::size_t width>
    std::uint32_t read(std::size_t offset) const
    {
        if (offset > m_bytes.size() || m_bytes.size() - offset < width)
            return 0;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t place = m_order == ByteOrder::Little ? i : width - 1 - i;
            value |= static_cast<std::uint32_t>(m_bytes[offset + i]) << (8 * place);
        }
        return value;
    }

    std::span<const unsigned char> m_bytes;
    ByteOrder m_order;
};

} // namespace KOLT

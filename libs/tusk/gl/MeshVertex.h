#pragma once

#include <cstdint>

namespace TUSK::OpenGL {

/// A corner of a triangle: position, texture coordinates and colour.
struct MeshVertex
{
    float x = 0.0F;
    float y = 0.0F;
    float s = 0.0F;
    float t = 0.0F;
    std::uint32_t rgba = 0; ///< bytes red, green, blue, alpha in memory
};

/// From 0xAARRGGBB.
constexpr std::uint32_t rgbaOf(std::uint32_t argb)
{
    // Little-endian: red is the first byte.
    return (argb & 0xFF00FF00U) | (argb >> 16 & 0xFFU) | (argb & 0xFFU) << 16;
}

} // namespace TUSK::OpenGL

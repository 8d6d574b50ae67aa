#include "libs/tessamap/terrain/HillShade.h"

#include <algorithm>
#include <cmath>

namespace Tessa {

namespace {

constexpr float neutral = 128.0f;

float finite(double value, float otherwise)
{
    return std::isfinite(value) ? static_cast<float>(value) : otherwise;
}

} // namespace

std::array<double, 3> towardsLight(const std::array<float, 3>& light)
{
    const double length = std::hypot(light[0], light[1], light[2]);
    if (!std::isfinite(length) || length == 0.0)
        return {0.0, 0.0, 1.0};
    return {-light[0] / length, -light[1] / length, -light[2] / length};
}

QImage hillShade(std::span<const float> heights, std::span<const double> cellMetres,
                 const Shading& shading)
{
    const std::size_t side = cellMetres.size();
    const std::size_t stride = side + 2;
    if (side == 0 || side > 4096 || heights.size() != stride * stride)
        return QImage();
    const auto light = towardsLight(shading.light);
    const auto lx = static_cast<float>(light[0]);
    const auto ly = static_cast<float>(light[1]);
    const auto lz = static_cast<float>(light[2]);
    const float contrast = finite(shading.contrast, 1.0f);
    const float brightness = finite(shading.brightness, 1.0f);
    const float factor = finite(shading.factor, 1.0f);

    QImage image(static_cast<int>(side), static_cast<int>(side), QImage::Format_Grayscale8);
    for (std::size_t row = 0; row < side; ++row) {
        const float* const north = heights.data() + row * stride;
        const float* const middle = north + stride;
        const float* const south = middle + stride;
        const float scale = factor / static_cast<float>(8.0 * cellMetres[row]);
        uchar* const out = image.scanLine(static_cast<int>(row));
        for (std::size_t i = 0; i < side; ++i) {
            const float p = scale * ((north[i + 2] + 2.0f * middle[i + 2] + south[i + 2]) -
                                     (north[i] + 2.0f * middle[i] + south[i]));
            const float q = scale * ((north[i] + 2.0f * north[i + 1] + north[i + 2]) -
                                     (south[i] + 2.0f * south[i + 1] + south[i + 2]));
            const float lit = (lz - p * lx - q * ly) / std::sqrt(1.0f + p * p + q * q);
            const float shade = brightness + contrast * (std::max(0.0f, lit) - lz);
            const float byte = std::clamp(shade * neutral + 0.5f, 0.0f, 255.0f);
            // The slopes do not depend on the middle sample.
            const bool isMissing = std::isnan(p) || std::isnan(q) || std::isnan(middle[i + 1]);
            out[i] = static_cast<uchar>(isMissing ? neutral : byte);
        }
    }
    return image;
}

} // namespace Tessa

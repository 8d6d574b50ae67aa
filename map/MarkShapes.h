#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "map/MapMarks.h"

#include <QColor>

#include <initializer_list>
#include <span>
#include <vector>

namespace KOLT {

/// The marks of a frame as triangles in one list, so that thousands of them take one draw call.
class MarkShapes
{
public:
    /// `place`: in the window, in logical pixels.
    void add(const MapMark& mark, Tessa::WindowPoint place);

    /// Per vertex: x, y, z (0), then red, green, blue and alpha from 0 to 1.
    std::span<const float> vertices() const { return m_vertices; }

private:
    void polygon(std::initializer_list<Tessa::WindowPoint> corners, const QColor& color);

    std::vector<float> m_vertices;
};

} // namespace KOLT

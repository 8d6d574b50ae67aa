#pragma once

#include <cmath>

/// Vectors of two and three doubles: positions or directions.
namespace TUSK::Math {

struct Vector2
{
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const Vector2&, const Vector2&) = default;
};

struct Vector3
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend bool operator==(const Vector3&, const Vector3&) = default;
};

constexpr Vector2 operator+(const Vector2& a, const Vector2& b)
{
    return {a.x + b.x, a.y + b.y};
}

constexpr Vector2 operator-(const Vector2& a, const Vector2& b)
{
    return {a.x - b.x, a.y - b.y};
}

constexpr Vector2 operator*(double factor, const Vector2& vector)
{
    return {factor * vector.x, factor * vector.y};
}

constexpr double dot(const Vector2& a, const Vector2& b)
{
    return a.x * b.x + a.y * b.y;
}

inline double length(const Vector2& vector)
{
    return std::hypot(vector.x, vector.y);
}

constexpr Vector3 operator+(const Vector3& a, const Vector3& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

constexpr Vector3 operator-(const Vector3& a, const Vector3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

constexpr Vector3 operator*(double factor, const Vector3& vector)
{
    return {factor * vector.x, factor * vector.y, factor * vector.z};
}

constexpr double dot(const Vector3& a, const Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr Vector3 cross(const Vector3& a, const Vector3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(const Vector3& vector)
{
    return std::hypot(vector.x, vector.y, vector.z);
}

} // namespace TUSK::Math

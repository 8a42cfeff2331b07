// Point and vector arithmetic on GE_POINT, so that formulas read as
// formulas.
#pragma once

#include <cmath>

#include "polyarc/records.h"

namespace polyarc {

constexpr GE_POINT operator+(GE_POINT a, GE_POINT b) { return {a.x + b.x, a.y + b.y}; }
constexpr GE_POINT operator-(GE_POINT a, GE_POINT b) { return {a.x - b.x, a.y - b.y}; }
constexpr GE_POINT operator-(GE_POINT a) { return {-a.x, -a.y}; }
constexpr GE_POINT operator*(double s, GE_POINT a) { return {s * a.x, s * a.y}; }
constexpr GE_POINT operator*(GE_POINT a, double s) { return {a.x * s, a.y * s}; }
constexpr bool operator==(GE_POINT a, GE_POINT b) { return a.x == b.x && a.y == b.y; }

constexpr double Dot(GE_POINT a, GE_POINT b) { return a.x * b.x + a.y * b.y; }
// z-component of the cross product; positive when b turns left of a.
constexpr double Cross(GE_POINT a, GE_POINT b) { return a.x * b.y - a.y * b.x; }
constexpr double Norm2(GE_POINT a) { return a.x * a.x + a.y * a.y; }
inline double Norm(GE_POINT a) { return std::hypot(a.x, a.y); }
inline double Dist(GE_POINT a, GE_POINT b) { return Norm(b - a); }
inline double Angle(GE_POINT v) { return std::atan2(v.y, v.x); }

// The direction turned a quarter turn counter-clockwise (to the left).
constexpr GE_POINT LeftNormal(GE_POINT d) { return {-d.y, d.x}; }
// The direction turned a quarter turn clockwise; a line's stored normal.
constexpr GE_POINT RightNormal(GE_POINT d) { return {d.y, -d.x}; }

inline GE_POINT Polar(GE_POINT centre, double radius, double angle) {
  return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

}  // namespace polyarc

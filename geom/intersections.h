// Intersections of element carriers (infinite lines in normal form and
// full circles), shared by the crossing tests and the tangency tests.
#pragma once

#include <cmath>
#include <cstdint>

#include "polyarc/records.h"

namespace polyarc {

// sqrt of a radicand that rounding may have pushed to or below zero.
inline double SafeRoot(double radicand) { return radicand > 0.0 ? std::sqrt(radicand) : 0.0; }

// Where two circles with centres d apart would cross: k is twice the
// distance from centre 1 to their common chord, along the centre line, and
// h half the chord's length (0 when they do not cross).
struct CircleChord {
  double k;
  double h;
};

inline CircleChord ChordOfCircles(double r1, double r2, double d) {
  const double k = (r1 * r1 - r2 * r2 + d * d) / d;
  return {k, SafeRoot(r1 * r1 - k * k / 4.0)};
}

// The crossing of the lines n1.p = c1 and n2.p = c2 (unit normals).
// PA_PARALLEL when the sine of their angle is below the fixed limit; the
// point is then not written.
uint16_t IntersectLines(GE_POINT n1, double c1, GE_POINT n2, double c2, GE_POINT &p);

// The points of the circle on the line n.p = c, in the line's direction of
// travel; returns their number (0, 1 in the tangent band, or 2). Both
// points are zeroed first. Clears errno.
uint16_t IntersectCircleLine(GE_POINT centre, double radius, GE_POINT n, double c, GE_POINT &p1,
                             GE_POINT &p2);

// The points of two circles: count 0, 1 (touching, or a chord no longer
// than tol) or 2. Returns PA_CONCENTRIC when the centres are within tol,
// else errno (cleared first). count and both points are zeroed first.
uint16_t IntersectCircles(GE_POINT c1, double r1, GE_POINT c2, double r2, uint16_t &count,
                          GE_POINT &p1, GE_POINT &p2);

}  // namespace polyarc

// The recurring tolerance rules of the library, written once. The rules
// differ on purpose (per axis or by distance, strict or inclusive, tol or
// 10 x tol), so each helper takes what differs as an argument; callers pass
// the tolerance they read at the time of the call.
#pragma once

#include <cmath>

#include "geom/vec.h"
#include "polyarc/records.h"

namespace polyarc {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kHalfPi = 1.5707963267948966;
// Fixed absolute limits, independent of the tolerance: the sine of the
// angle below which lines count as parallel (and side decisions as
// undecided), and the cosine above which unit normals count as parallel.
inline constexpr double kParallelSine = 5e-09;
inline constexpr double kParallelCosine = 0.999999995;

// The current process-wide tolerance (owned by geom/tolerance.cpp).
double Tol();

// Both coordinate differences strictly below eps.
constexpr bool CoincidePerAxis(GE_POINT a, GE_POINT b, double eps) {
  return (a.x - b.x < eps && b.x - a.x < eps) && (a.y - b.y < eps && b.y - a.y < eps);
}

// Squared distance strictly below eps squared.
constexpr bool CoincideByDistance(GE_POINT a, GE_POINT b, double eps) {
  return Norm2(a - b) < eps * eps;
}

constexpr bool IsLine(const LI_TAB_STRUCT &e) { return e.type == LI_LINE || e.type == LI_MOVE; }
constexpr bool IsArc(const LI_TAB_STRUCT &e) { return e.type == LI_ARC_CW || e.type == LI_ARC_CCW; }

// A line's unit direction, from its stored normal: d = (-n.y, n.x).
constexpr GE_POINT LineDirection(const LI_TAB_STRUCT &e) { return LeftNormal(e.mp); }

// A point's parameter along a line's carrier: p.d.
constexpr double LineParameter(const LI_TAB_STRUCT &line, GE_POINT p) {
  return Dot(p, LineDirection(line));
}

// The point of a line's carrier at parameter t: c.n + t.d.
constexpr GE_POINT LinePoint(const LI_TAB_STRUCT &line, double t) {
  return line.rad * line.mp + t * LineDirection(line);
}

// A point's distance from a line's carrier: |n.p - c|.
inline double CarrierDistance(const LI_TAB_STRUCT &line, GE_POINT p) {
  return std::fabs(Dot(line.mp, p) - line.rad);
}

// Adds one full turn to a negative angle difference: a sweep in [0, 2pi)
// for differences of two angles in (-pi, pi].
constexpr double SweepOnce(double s) { return s < 0.0 ? s + kTwoPi : s; }

// The angle swept from one angle to another travelling clockwise (type 3)
// or counter-clockwise (any other type), in [0, 2pi).
constexpr double SweepInSense(uint16_t type, double from, double to) {
  return SweepOnce(type == LI_ARC_CW ? from - to : to - from);
}

// The angle an arc sweeps in its own sense of travel, in [0, 2pi). Equal
// end angles give 0, so a full circle is not a full turn here; callers
// that mean the angle an arc covers take CoveredSweep.
constexpr double TravelSweep(const LI_TAB_STRUCT &e) {
  return SweepInSense(e.type, e.ang_ap, e.ang_ep);
}

// An angle in (-pi, pi] turned by half a turn, staying in (-pi, pi].
constexpr double Opposite(double a) { return a + kPi > kPi ? a + kPi - kTwoPi : a + kPi; }

// The angle an arc stores for a point of its carrier at the given polar
// angle about mp: the polar angle itself, or its opposite when rad < 0
// (the point is mp + rad (cos a, sin a), so it lies opposite the angle).
constexpr double ArcAngleOf(double polar, double rad) {
  return rad < 0.0 ? Opposite(polar) : polar;
}

// An arc whose ends coincide within tol per axis is a full circle: it
// covers a full turn and holds every angle. This is the one place that
// decides it, per axis like the other end-point coincidences, so that
// every function agrees on which arcs are full circles. Every element
// that is not a line counts as an arc here.
constexpr bool IsFullCircle(const LI_TAB_STRUCT &arc, double tol) {
  return !IsLine(arc) && CoincidePerAxis(arc.ap, arc.ep, tol);
}

// The angle an arc covers in its sense of travel: a full turn for a full
// circle, else its travel sweep in [0, 2pi).
constexpr double CoveredSweep(const LI_TAB_STRUCT &arc, double tol) {
  return IsFullCircle(arc, tol) ? kTwoPi : TravelSweep(arc);
}

// How far an element strays from the chord between its ends: 0 for a
// line, |rad| (1 - cos(sweep / 2)) for an arc, by its travel sweep (so a
// full circle, whose travel sweep is 0, counts as flat: callers rule it
// out by its ends).
inline double Sagitta(const LI_TAB_STRUCT &e) {
  if (IsLine(e)) return 0.0;
  return std::fabs(e.rad) * (1.0 - std::cos(TravelSweep(e) / 2.0));
}

// The turning sense of the travel p1 -> p2 -> p3 from its turn
// (p2 - p1) x (p3 - p1): counter-clockwise (4) when positive, else
// clockwise (3), collinear included.
constexpr uint16_t SenseOfTurn(double turn) { return turn > 0.0 ? LI_ARC_CCW : LI_ARC_CW; }

// An arc's angular range in counter-clockwise order: from lo up to hi,
// wrapping through +-pi when lo > hi.
struct AngleRange {
  double lo;
  double hi;
};

// The angles passed travelling from one angle to another, clockwise for
// type 3 and counter-clockwise otherwise.
constexpr AngleRange RangeInSense(uint16_t type, double from, double to) {
  return type == LI_ARC_CW ? AngleRange{to, from} : AngleRange{from, to};
}

constexpr AngleRange RangeOf(const LI_TAB_STRUCT &arc) {
  return RangeInSense(arc.type, arc.ang_ap, arc.ang_ep);
}

enum class Bounds { kInclusive, kStrict };
// What a range with lo == hi holds: the single angle, or every angle.
enum class EqualEnds { kSingleAngle, kFullTurn };

// An angle against an explicit range. For an element's range take
// AngleOnArc, which knows full circles.
constexpr bool AngleInRange(double a, AngleRange r, Bounds bounds, EqualEnds equal) {
  const bool wraps = equal == EqualEnds::kFullTurn ? r.lo >= r.hi : r.lo > r.hi;
  if (bounds == Bounds::kInclusive)
    return wraps ? (a >= r.lo || a <= r.hi) : (r.lo <= a && a <= r.hi);
  return wraps ? (a > r.lo || a < r.hi) : (r.lo < a && a < r.hi);
}

// Is the angle in the arc's range? A full circle holds every angle; any
// other arc the angles from ang_ap to ang_ep in its sense of travel, its
// end angles included or not as bounds says.
constexpr bool AngleOnArc(double a, const LI_TAB_STRUCT &arc, double tol, Bounds bounds) {
  return IsFullCircle(arc, tol) || AngleInRange(a, RangeOf(arc), bounds, EqualEnds::kSingleAngle);
}

}  // namespace polyarc

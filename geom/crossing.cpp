// Crossings of two elements with their position codes (the entry of the
// crossing lists), the quick tests that tell a proper crossing from a
// touching, and the common tangents of two circles.
#include <cerrno>
#include <cmath>

#include "geom/intersections.h"
#include "geom/point_on.h"
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// Points common to the carriers of a and b, in the line's direction when
// one of them is a line. Arcs with a radius below tol meet nothing.
uint16_t CarrierPoints(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, GE_POINT &p1, GE_POINT &p2) {
  const double tol = Tol();
  if (IsLine(a) && IsLine(b)) return IntersectLines(a.mp, a.rad, b.mp, b.rad, p1) == PA_OK ? 1 : 0;
  if (IsLine(a) || IsLine(b)) {
    const LI_TAB_STRUCT &line = IsLine(a) ? a : b;
    const LI_TAB_STRUCT &arc = IsLine(a) ? b : a;
    if (std::fabs(arc.rad) < tol) return 0;
    return IntersectCircleLine(arc.mp, arc.rad, line.mp, line.rad, p1, p2);
  }
  if (std::fabs(a.rad) < tol || std::fabs(b.rad) < tol) return 0;
  uint16_t count = 0;
  if (IntersectCircles(a.mp, a.rad, b.mp, b.rad, count, p1, p2) != PA_OK) return 0;
  return count;
}

// The first element classifies (and may snap) the point before the second
// sees it, so a crossing at a shared vertex gets the vertex's coordinates.
IsectPoint Classify(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, GE_POINT p) {
  IsectPoint out{};
  out.pos1 = PointOn(a, p, out.par1);
  out.pos2 = PointOn(b, p, out.par2);
  out.x = p.x;
  out.y = p.y;
  return out;
}

uint16_t Cross2(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, IsectPoint &i1, IsectPoint &i2) {
  GE_POINT p1{}, p2{};
  const uint16_t count = CarrierPoints(a, b, p1, p2);
  if (count >= 1) i1 = Classify(a, b, p1);
  if (count >= 2) i2 = Classify(a, b, p2);
  return count;
}

uint16_t CircleCircleTest(GE_POINT c1, double r1, GE_POINT c2, double r2, GE_POINT p,
                          uint16_t &side, uint16_t &touch) {
  side = touch = 0;
  errno = 0;
  const double tol = Tol();
  const double d = Dist(c1, c2);
  if (d <= tol) {
    touch = 2;
    return static_cast<uint16_t>(errno);
  }
  r1 = std::fabs(r1);
  r2 = std::fabs(r2);
  const auto within = [tol](double lo, double v) { return lo - tol <= v && v <= lo + tol; };
  if (within(r1 + r2, d) || within(d + r2, r1) || within(d + r1, r2)) {
    touch = 1;
    return static_cast<uint16_t>(errno);
  }
  if (2.0 * ChordOfCircles(r1, r2, d).h > tol) {
    // On or right of the directed centre line c1 -> c2.
    side = Cross(p - c1, c2 - c1) >= 0.0 ? 1 : 0;
  } else {
    touch = 1;
  }
  return static_cast<uint16_t>(errno);
}

// Unlike two circles, a line that misses the circle leaves touch at 0.
uint16_t CircleLineTest(GE_POINT centre, double radius, GE_POINT n, double c, GE_POINT p,
                        uint16_t &side, uint16_t &touch) {
  side = touch = 0;
  errno = 0;
  const double tol = Tol();
  const double a = std::fabs(Dot(centre, n) - c);
  const double r = std::fabs(radius);
  if (r - tol < a && a < r + tol) touch = 1;
  if (a < r - tol) {
    const double h = SafeRoot(r * r - a * a);
    if (2.0 * h > tol) {
      side = Cross(p - centre, n) < 0.0 ? 1 : 0;
    } else {
      touch = 1;
    }
  }
  return static_cast<uint16_t>(errno);
}

// The test point is always the first element's end point.
uint16_t ElementTest(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, uint16_t &side,
                     uint16_t &touch) {
  side = touch = 0;
  if (!IsLine(a) && !IsLine(b))
    return CircleCircleTest(a.mp, a.rad, b.mp, b.rad, a.ep, side, touch);
  if (!IsLine(a)) return CircleLineTest(a.mp, a.rad, b.mp, b.rad, a.ep, side, touch);
  if (!IsLine(b)) return CircleLineTest(b.mp, b.rad, a.mp, a.rad, a.ep, side, touch);
  GE_POINT unused{};
  const uint16_t status = IntersectLines(a.mp, a.rad, b.mp, b.rad, unused);
  if (status == PA_PARALLEL) {
    touch = 2;
    return PA_OK;
  }
  return status;
}

struct Tangents {
  GE_POINT n1, n2;
  double c1, c2;
};

// The radii keep their signs. No tangent exists when |q| > 1, which with
// signed radii can happen on either side.
uint16_t CommonTangents(GE_POINT c1, double r1, GE_POINT c2, double r2, bool inner, Tangents &t) {
  const double d = Dist(c1, c2);
  if (d < Tol()) return PA_IMPOSSIBLE;
  const GE_POINT u = (c2 - c1) * (1.0 / d);
  const double q = (inner ? r1 + r2 : r1 - r2) / d;
  if (q > 1.0 || q < -1.0) return PA_IMPOSSIBLE;
  const double w = std::sqrt(1.0 - q * q);
  // u turned by +alpha and by -alpha, with cos alpha = q and sin alpha = w.
  t.n1 = q * u + w * LeftNormal(u);
  t.n2 = q * u + w * RightNormal(u);
  t.c1 = Dot(c1, t.n1) + r1;
  t.c2 = Dot(c1, t.n2) + r1;
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GeCross(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, IsectPoint *i1,
                            IsectPoint *i2) {
  if (e1 == nullptr || e2 == nullptr || i1 == nullptr || i2 == nullptr) return 0;
  return Cross2(*e1, *e2, *i1, *i2);
}

extern "C" uint16_t GeCirCirTest(const GE_POINT *c1, double r1, const GE_POINT *c2, double r2,
                                 const GE_POINT *p, uint16_t *side, uint16_t *touch) {
  if (c1 == nullptr || c2 == nullptr || p == nullptr || side == nullptr || touch == nullptr)
    return PA_INVALID;
  return CircleCircleTest(*c1, r1, *c2, r2, *p, *side, *touch);
}

extern "C" uint16_t GeCirLinTest(const GE_POINT *centre, double radius, const GE_POINT *n, double c,
                                 const GE_POINT *p, uint16_t *side, uint16_t *touch) {
  if (centre == nullptr || n == nullptr || p == nullptr || side == nullptr || touch == nullptr)
    return PA_INVALID;
  return CircleLineTest(*centre, radius, *n, c, *p, *side, *touch);
}

extern "C" uint16_t GeElemIsectTest(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2,
                                    uint16_t *side, uint16_t *touch) {
  if (e1 == nullptr || e2 == nullptr || side == nullptr || touch == nullptr) return PA_INVALID;
  return ElementTest(*e1, *e2, *side, *touch);
}

extern "C" uint16_t GeCirCirTan(const GE_POINT *c1, double r1, const GE_POINT *c2, double r2,
                                int32_t inner, GE_POINT *n1, double *k1, GE_POINT *n2, double *k2) {
  if (c1 == nullptr || c2 == nullptr || n1 == nullptr || k1 == nullptr || n2 == nullptr ||
      k2 == nullptr)
    return PA_INVALID;
  Tangents t{};
  if (const uint16_t st = CommonTangents(*c1, r1, *c2, r2, inner != 0, t); st != PA_OK) return st;
  *n1 = t.n1;
  *k1 = t.c1;
  *n2 = t.n2;
  *k2 = t.c2;
  return PA_OK;
}

// Intersections of carriers: line with line, circle with line and circle
// with circle. Radii are used by absolute value; tangent bands are one
// tolerance wide on either side.
#include "geom/intersections.h"

#include <cerrno>
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// The single point of two touching circles, or false when they do not
// touch. The outer touch is tested first, then circle 2 inside circle 1,
// then circle 1 inside circle 2: a configuration in two bands takes the
// first.
bool TouchingPoint(GE_POINT c1, double r1, double r2, double d, GE_POINT u, double tol,
                   GE_POINT &p) {
  const double s = r1 + r2;
  if (s - tol <= d && d <= s + tol) {
    p = c1 + u * ((d - r2 + r1) * 0.5);
    return true;
  }
  if (std::fabs(d + r2 - r1) <= tol) {
    p = c1 + u * ((d + r2 + r1) * 0.5);
    return true;
  }
  if (std::fabs(d + r1 - r2) <= tol) {
    p = c1 - u * ((r2 - d + r1) * 0.5);
    return true;
  }
  return false;
}

}  // namespace

uint16_t IntersectLines(GE_POINT n1, double c1, GE_POINT n2, double c2, GE_POINT &p) {
  const double det = Cross(n1, n2);
  if (std::fabs(det) < kParallelSine) return PA_PARALLEL;
  const double s = (c2 - Dot(n1, n2) * c1) / det;
  p = c1 * n1 + s * LeftNormal(n1);
  return PA_OK;
}

uint16_t IntersectCircleLine(GE_POINT centre, double radius, GE_POINT n, double c, GE_POINT &p1,
                             GE_POINT &p2) {
  p1 = p2 = {0.0, 0.0};
  errno = 0;
  const double tol = Tol();
  const GE_POINT d = LeftNormal(n);
  const double a = std::fabs(Dot(centre, n) - c);
  const double r = std::fabs(radius);
  const double t0 = Dot(centre, d);
  if (a >= r + tol) return 0;
  const GE_POINT foot = c * n + t0 * d;
  if (a >= r - tol) {
    p1 = foot;
    return 1;
  }
  const double h = SafeRoot(r * r - a * a);
  // A chord no longer than tol is one touching point at the foot.
  if (!(2.0 * h > tol)) {
    p1 = foot;
    return 1;
  }
  p1 = c * n + (t0 - h) * d;
  p2 = c * n + (t0 + h) * d;
  return errno != 0 ? 0 : 2;
}

uint16_t IntersectCircles(GE_POINT c1, double r1, GE_POINT c2, double r2, uint16_t &count,
                          GE_POINT &p1, GE_POINT &p2) {
  count = 0;
  p1 = p2 = {0.0, 0.0};
  errno = 0;
  const double tol = Tol();
  const GE_POINT delta = c2 - c1;
  const double d2 = Norm2(delta);
  const double d = d2 > 0.0 ? std::sqrt(d2) : 0.0;
  if (d <= tol) return PA_CONCENTRIC;
  r1 = std::fabs(r1);
  r2 = std::fabs(r2);
  const GE_POINT u = delta * (1.0 / d);
  if (TouchingPoint(c1, r1, r2, d, u, tol, p1)) {
    count = 1;
    return static_cast<uint16_t>(errno);
  }
  if (d < r1 + r2 && d > std::fabs(r1 - r2)) {
    const auto [k, h] = ChordOfCircles(r1, r2, d);
    const GE_POINT m = c1 + u * (k / 2.0);
    count = 1;
    p1 = m;
    if (2.0 * h > tol) {
      count = 2;
      p1 = m + h * LeftNormal(u);
      p2 = m + h * RightNormal(u);
    }
  }
  return static_cast<uint16_t>(errno);
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GeIseLinLin(const GE_POINT *n1, double c1, const GE_POINT *n2, double c2,
                                GE_POINT *p) {
  if (n1 == nullptr || n2 == nullptr || p == nullptr) return PA_INVALID;
  return IntersectLines(*n1, c1, *n2, c2, *p);
}

extern "C" uint16_t GeIseCirLin(const GE_POINT *centre, double radius, const GE_POINT *n, double c,
                                GE_POINT *p1, GE_POINT *p2) {
  if (centre == nullptr || n == nullptr || p1 == nullptr || p2 == nullptr) return 0;
  return IntersectCircleLine(*centre, radius, *n, c, *p1, *p2);
}

extern "C" uint16_t GeIseCirCir(const GE_POINT *c1, double r1, const GE_POINT *c2, double r2,
                                uint16_t *count, GE_POINT *p1, GE_POINT *p2) {
  if (c1 == nullptr || c2 == nullptr || count == nullptr || p1 == nullptr || p2 == nullptr)
    return PA_INVALID;
  return IntersectCircles(*c1, r1, *c2, r2, *count, *p1, *p2);
}

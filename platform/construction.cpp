// The construction services of the geometry layer: the circle through
// three points, the line through two points, the circle that touches a
// line at a point and passes through another, and the area between an arc
// and its chord.
#include <cmath>

#include "geom/line_form.h"
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// Below this sweep theta - sin(theta) loses its digits to cancellation;
// the series keeps them (its first omitted term is below 1e-17 of theta^3).
constexpr double kSeriesSweep = 0.1;

double SegmentFactor(double theta) {
  if (theta >= kSeriesSweep) return theta - std::sin(theta);
  const double t2 = theta * theta;
  return theta * t2 *
         (1.0 / 6.0 - t2 * (1.0 / 120.0 - t2 * (1.0 / 5040.0 - t2 * (1.0 / 362880.0))));
}

uint16_t CircleThrough(GE_POINT p1, GE_POINT p2, GE_POINT p3, GE_POINT &centre, double &radius) {
  const double tol = Tol();
  if (CoincidePerAxis(p1, p2, tol) || CoincidePerAxis(p1, p3, tol) || CoincidePerAxis(p2, p3, tol))
    return PA_IMPOSSIBLE;
  const GE_POINT b = p2 - p1;
  const GE_POINT c = p3 - p1;
  const double cross = Cross(b, c);
  // Collinear within tol: the triangle's height over its longest side.
  const double longest = std::fmax(Norm(b), std::fmax(Norm(c), Dist(p2, p3)));
  if (std::fabs(cross) < tol * longest) return PA_IMPOSSIBLE;
  const double bb = Norm2(b);
  const double cc = Norm2(c);
  const GE_POINT offset{(c.y * bb - b.y * cc) / (2.0 * cross),
                        (b.x * cc - c.x * bb) / (2.0 * cross)};
  centre = p1 + offset;
  radius = Norm(offset);
  return PA_OK;
}

uint16_t CircleTouching(GE_POINT p, GE_POINT n, double c, GE_POINT q, GE_POINT &centre,
                        double &radius) {
  const double tol = Tol();
  if (!(std::fabs(Dot(n, p) - c) < tol)) return PA_INVALID;
  // The centre lies on the normal through p, equally far from p and q.
  const GE_POINT v = q - p;
  const double across = Dot(n, v);
  if (!(std::fabs(across) >= tol)) return PA_IMPOSSIBLE;
  const double s = Norm2(v) / (2.0 * across);
  centre = p + s * n;
  radius = std::fabs(s);
  return PA_OK;
}

double ArcArea(GE_POINT ap, GE_POINT ep, GE_POINT centre, double radius, uint16_t type) {
  const double r2 = radius * radius;
  if (CoincidePerAxis(ap, ep, Tol())) return kPi * r2;
  const GE_POINT va = ap - centre;
  const GE_POINT ve = ep - centre;
  // The turn from va to ve, then measured in the arc's sense.
  const double turn = std::atan2(Cross(va, ve), Dot(va, ve));
  const double theta = SweepInSense(type, 0.0, turn);
  return 0.5 * r2 * SegmentFactor(theta);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GeCirByPtPtPt(const GE_POINT *p1, const GE_POINT *p2, const GE_POINT *p3,
                                  GE_POINT *centre, double *radius) {
  if (p1 == nullptr || p2 == nullptr || p3 == nullptr || centre == nullptr || radius == nullptr)
    return PA_INVALID;
  return CircleThrough(*p1, *p2, *p3, *centre, *radius);
}

extern "C" uint16_t GeLineByPtPt(const GE_POINT *p1, const GE_POINT *p2, GE_POINT *normal,
                                 double *c) {
  if (p1 == nullptr || p2 == nullptr || normal == nullptr || c == nullptr) return PA_INVALID;
  if (CoincidePerAxis(*p1, *p2, Tol())) return PA_ZERO_LENGTH;
  const LineForm f = LineFormOf(*p1, *p2);
  *normal = f.normal;
  *c = f.c;
  return PA_OK;
}

extern "C" uint16_t GeCirByPtOnLinPt(const GE_POINT *p, const GE_POINT *normal, double c,
                                     const GE_POINT *q, GE_POINT *centre, double *radius) {
  if (p == nullptr || normal == nullptr || q == nullptr || centre == nullptr || radius == nullptr)
    return PA_INVALID;
  return CircleTouching(*p, *normal, c, *q, *centre, *radius);
}

extern "C" double GeArcArea(const GE_POINT *ap, const GE_POINT *ep, const GE_POINT *centre,
                            double radius, uint16_t type) {
  if (ap == nullptr || ep == nullptr || centre == nullptr) return 0.0;
  return ArcArea(*ap, *ep, *centre, radius, type);
}

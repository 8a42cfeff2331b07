// Circles and arcs constructed from points: through three points (with its
// degenerate-case checks and the full circle on a diameter), from a start
// tangent, and about a given centre.
#include <cmath>
#include <utility>

#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

GE_POINT Plane(const GE_POINT3 &p) { return {p.x, p.y}; }

// Every point lies in the plane z = a.z within tol.
bool SamePlane(const GE_POINT3 &a, const GE_POINT3 &b, const GE_POINT3 &c) {
  const double tol = Tol();
  return std::fabs(b.z - a.z) < tol && std::fabs(c.z - a.z) < tol;
}

uint16_t ThreePointCheck(GE_POINT p1, GE_POINT p2, GE_POINT p3) {
  const double tol = Tol();
  const GE_POINT a = p1 - p3;
  const GE_POINT b = p1 - p2;
  // A mixed product, not a cross product: this is the test that routes a
  // configuration to the full circle.
  if (std::fabs(a.x * b.x - a.y * b.y) < tol) return PA_DEGENERATE;
  if (std::fabs(a.y) < tol) return PA_IMPOSSIBLE;
  if (std::fabs(a.y * b.x - a.x * b.y) < tol) return PA_IMPOSSIBLE;
  return PA_OK;
}

uint16_t Round(GE_POINT p1, GE_POINT p2, GE_POINT p3, GE_POINT &centre, double &radius,
               uint16_t &sense) {
  const double tol = Tol();
  if (CoincidePerAxis(p1, p3, tol)) {
    if (CoincidePerAxis(p2, p1, tol)) return PA_DEGENERATE;
    return PA_IMPOSSIBLE;
  }
  // p2 for the centre and p3 for the radius: with p2 = p3 this is the
  // circle on the diameter p1-p2.
  centre = (p1 + p2) * 0.5;
  radius = Dist(p1, p3) * 0.5;
  sense = LI_CIRCLE_CW;
  return PA_OK;
}

uint16_t ThreePoints(GE_POINT p1, GE_POINT &p2, GE_POINT &p3, GE_POINT &centre, double &radius,
                     uint16_t &sense) {
  uint16_t status = ThreePointCheck(p1, p2, p3);
  bool exchanged = false;
  if (status == PA_IMPOSSIBLE) {
    std::swap(p2, p3);
    exchanged = true;
    status = ThreePointCheck(p1, p2, p3);
  }
  if (status == PA_DEGENERATE) return Round(p1, p2, p3, centre, radius, sense);
  if (status != PA_OK) return status;
  // After the exchange the turn is reversed, so that the code describes
  // the travel through the points in the order they were passed in.
  const double turn = Cross(p2 - p1, p3 - p1);
  sense = SenseOfTurn(exchanged ? -turn : turn);
  return GeCirByPtPtPt(&p1, &p2, &p3, &centre, &radius);
}

uint16_t ByThreePoints(const GE_POINT3 &p1, const GE_POINT3 &p2, const GE_POINT3 &p3,
                       GE_POINT3 &centre, double &radius, uint16_t &sense) {
  if (!SamePlane(p1, p2, p3)) return PA_INVALID;
  const GE_POINT a = Plane(p1), b = Plane(p2), c = Plane(p3);
  GE_POINT m{};
  if (const uint16_t st = GeCirByPtPtPt(&a, &b, &c, &m, &radius); st != PA_OK) return st;
  centre = {m.x, m.y, p1.z};
  sense = SenseOfTurn(Cross(b - a, c - a));
  return PA_OK;
}

uint16_t ByTangent(const GE_POINT3 &p1, const GE_POINT3 &p2, const GE_POINT3 &p3, GE_POINT3 &centre,
                   double &radius, uint16_t &sense) {
  if (!SamePlane(p1, p2, p3)) return PA_INVALID;
  const GE_POINT a = Plane(p1), b = Plane(p2), c = Plane(p3);
  GE_POINT normal{};
  double constant = 0.0;
  if (const uint16_t st = GeLineByPtPt(&a, &b, &normal, &constant); st != PA_OK) return st;
  GE_POINT m{};
  if (const uint16_t st = GeCirByPtOnLinPt(&b, &normal, constant, &c, &m, &radius); st != PA_OK)
    return st;
  centre = {m.x, m.y, p1.z};
  sense = SenseOfTurn(Cross(b - a, c - b));
  return PA_OK;
}

uint16_t ByCentre(const GE_POINT3 &centre, const GE_POINT3 &start, GE_POINT3 &end, double &radius) {
  if (!SamePlane(centre, start, end)) return PA_INVALID;
  const GE_POINT m = Plane(centre);
  radius = Dist(Plane(start), m);
  // An end at the centre has no direction to move along; it stays.
  const GE_POINT v = Plane(end) - m;
  if (Norm2(v) > 0.0) {
    const GE_POINT moved = m + (radius / Norm(v)) * v;
    end.x = moved.x;
    end.y = moved.y;
  }
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GeArc3PointCheck(const GE_POINT *p1, const GE_POINT *p2, const GE_POINT *p3) {
  if (p1 == nullptr || p2 == nullptr || p3 == nullptr) return PA_INVALID;
  return ThreePointCheck(*p1, *p2, *p3);
}

extern "C" uint16_t GeArcRound(const GE_POINT *p1, const GE_POINT *p2, const GE_POINT *p3,
                               GE_POINT *centre, double *radius, uint16_t *sense) {
  if (p1 == nullptr || p2 == nullptr || p3 == nullptr || centre == nullptr || radius == nullptr ||
      sense == nullptr)
    return PA_INVALID;
  return Round(*p1, *p2, *p3, *centre, *radius, *sense);
}

extern "C" uint16_t GeArc3Points(const GE_POINT *p1, GE_POINT *p2, GE_POINT *p3, GE_POINT *centre,
                                 double *radius, uint16_t *sense) {
  if (p1 == nullptr || p2 == nullptr || p3 == nullptr || centre == nullptr || radius == nullptr ||
      sense == nullptr)
    return PA_INVALID;
  return ThreePoints(*p1, *p2, *p3, *centre, *radius, *sense);
}

extern "C" uint16_t GeArcBy3Points(const GE_POINT3 *p1, const GE_POINT3 *p2, const GE_POINT3 *p3,
                                   GE_POINT3 *centre, double *radius, uint16_t *sense) {
  if (p1 == nullptr || p2 == nullptr || p3 == nullptr || centre == nullptr || radius == nullptr ||
      sense == nullptr)
    return PA_INVALID;
  return ByThreePoints(*p1, *p2, *p3, *centre, *radius, *sense);
}

extern "C" uint16_t GeArcByTang(const GE_POINT3 *p1, const GE_POINT3 *p2, const GE_POINT3 *p3,
                                GE_POINT3 *centre, double *radius, uint16_t *sense) {
  if (p1 == nullptr || p2 == nullptr || p3 == nullptr || centre == nullptr || radius == nullptr ||
      sense == nullptr)
    return PA_INVALID;
  return ByTangent(*p1, *p2, *p3, *centre, *radius, *sense);
}

extern "C" uint16_t GeArcByCenter(const GE_POINT3 *centre, const GE_POINT3 *start, GE_POINT3 *end,
                                  double *radius) {
  if (centre == nullptr || start == nullptr || end == nullptr || radius == nullptr)
    return PA_INVALID;
  return ByCentre(*centre, *start, *end, *radius);
}

extern "C" uint16_t GeArc3DAng(void) { return 0; }

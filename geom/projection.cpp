// Projection of a point onto an element's carrier, the side of a point,
// tangents, curvature, midpoints and the normal form of a line.
#include <cerrno>
#include <cmath>

#include "geom/line_form.h"
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

uint16_t Project(const LI_TAB_STRUCT &e, GE_POINT p, GE_POINT &foot) {
  foot = {0.0, 0.0};
  if (IsLine(e)) {
    foot = LinePoint(e, LineParameter(e, p));
    return PA_OK;
  }
  if (CoincidePerAxis(p, e.mp, Tol())) return PA_IMPOSSIBLE;
  foot = e.mp + (e.rad / Dist(p, e.mp)) * (p - e.mp);
  return PA_OK;
}

uint16_t Side(const LI_TAB_STRUCT &e, GE_POINT p, int32_t &side, double &dist) {
  const double tol = Tol();
  double s = 0.0;
  uint16_t status = PA_OK;
  if (IsLine(e)) {
    s = e.rad - Dot(e.mp, p);
  } else {
    const double r = Dist(p, e.mp);
    s = e.type == LI_ARC_CCW ? e.rad - r : r - e.rad;
    // A full circle holds every angle.
    if (!AngleOnArc(Angle(p - e.mp), e, tol, Bounds::kInclusive)) status = PA_NOT_ON;
  }
  side = s > tol ? 1 : (s < -tol ? -1 : 0);
  dist = std::fabs(s);
  return status;
}

uint16_t Tangent(const LI_TAB_STRUCT &e, GE_POINT p, GE_POINT &t) {
  if (IsLine(e)) {
    t = e.tan_ap;
    return PA_OK;
  }
  if (CoincidePerAxis(p, e.mp, Tol())) return PA_INVALID;
  // Divided by the stored radius, not the point's distance: a unit vector
  // only on the circle, and reversed by a negative radius.
  const GE_POINT r = p - e.mp;
  t = (1.0 / e.rad) * (e.type == LI_ARC_CCW ? LeftNormal(r) : RightNormal(r));
  return PA_OK;
}

// A full circle is deliberately not halved: the sweep between its equal end
// angles is 0, so its midpoint is its start (a caller that needs a point on
// a full circle splits it first).
GE_POINT Midpoint(const LI_TAB_STRUCT &e) {
  if (IsLine(e)) return {(e.ap.x + e.ep.x) * 0.5, (e.ap.y + e.ep.y) * 0.5};
  const double sense = e.type == LI_ARC_CCW ? 1.0 : -1.0;
  return Polar(e.mp, e.rad, e.ang_ap + sense * TravelSweep(e) * 0.5);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GeProjPtElem(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *foot) {
  if (e == nullptr || p == nullptr || foot == nullptr) return PA_INVALID;
  return Project(*e, *p, *foot);
}

extern "C" uint16_t GePtElemSide(const LI_TAB_STRUCT *e, const GE_POINT *p, int32_t *side,
                                 double *dist) {
  if (e == nullptr || p == nullptr || side == nullptr || dist == nullptr) return PA_INVALID;
  return Side(*e, *p, *side, *dist);
}

extern "C" uint16_t GePtElemTan(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *tangent) {
  if (e == nullptr || p == nullptr || tangent == nullptr) return PA_INVALID;
  return Tangent(*e, *p, *tangent);
}

extern "C" double GeKruem(const LI_TAB_STRUCT *e) {
  if (e == nullptr || IsLine(*e)) return 0.0;
  return e->type == LI_ARC_CCW ? 1.0 / e->rad : -(1.0 / e->rad);
}

extern "C" uint16_t GeElemMpt(const LI_TAB_STRUCT *e, GE_POINT *mid) {
  if (e == nullptr || mid == nullptr) return PA_INVALID;
  *mid = Midpoint(*e);
  return PA_OK;
}

extern "C" uint16_t GeNearOnCir(const GE_POINT *centre, double radius, GE_POINT *p) {
  if (centre == nullptr || p == nullptr) return PA_INVALID;
  errno = 0;
  const GE_POINT v = *p - *centre;
  if (Norm2(v) > 0.0) *p = *centre + (radius / Norm(v)) * v;
  return static_cast<uint16_t>(errno);
}

extern "C" uint16_t GeGeoLineToNf(const GE_POINT *p1, const GE_POINT *p2, GE_POINT *normal,
                                  double *c, double *t1, double *t2) {
  if (p1 == nullptr || p2 == nullptr || normal == nullptr || c == nullptr || t1 == nullptr ||
      t2 == nullptr)
    return PA_INVALID;
  const LineForm f = LineFormOf(*p1, *p2);
  if (f.degenerate) return PA_ZERO_LENGTH;
  *normal = f.normal;
  *c = f.c;
  *t1 = f.t1;
  *t2 = f.t2;
  return PA_OK;
}

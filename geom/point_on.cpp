// Where a point lies on an element: position codes with snapping to the
// ends, the on-element tests, and the nearest points of segments and arcs.
#include <cmath>

#include "geom/point_on.h"
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// How far the angle lies behind the arc's start and past its end, each
// measured in the arc's sense of travel; 4 when nearer the start side.
uint16_t BeforeOrBeyond(const LI_TAB_STRUCT &e, double angle) {
  const bool cw = e.type == LI_ARC_CW;
  const double before = SweepOnce(cw ? angle - e.ang_ap : e.ang_ap - angle);
  const double beyond = SweepOnce(cw ? e.ang_ep - angle : angle - e.ang_ep);
  return beyond > before ? GE_BEFORE : GE_BEYOND;
}

// The on-element test; band is the admitted distance across a line.
uint16_t OnElement(const LI_TAB_STRUCT &e, GE_POINT p, double band) {
  const double tol = Tol();
  if (IsLine(e)) {
    if (CarrierDistance(e, p) >= band) return 0;
    const double t = LineParameter(e, p);
    if (t <= e.ang_ap - tol || t >= e.ang_ep + tol) return 0;
    if (CoincideByDistance(p, e.ep, tol)) return GE_AT_END;
    if (CoincideByDistance(p, e.ap, tol)) return GE_AT_START;
    return (e.ang_ap < t && t < e.ang_ep) ? GE_INSIDE : 0;
  }
  if (std::fabs(Dist(p, e.mp) - std::fabs(e.rad)) >= tol) return 0;
  if (CoincideByDistance(p, e.ep, tol)) return GE_AT_END;
  if (CoincideByDistance(p, e.ap, tol)) return GE_AT_START;
  // The sign of rad plays no part: p's own angle is tested.
  return AngleOnArc(Angle(p - e.mp), e, tol, Bounds::kInclusive) ? GE_INSIDE : 0;
}

uint16_t NearestOnLine(GE_POINT p, const LI_TAB_STRUCT &e, GE_POINT &nearest, double &dist) {
  const double tol = Tol();
  nearest = {0.0, 0.0};
  dist = 0.0;
  const double t = LineParameter(e, p);
  if (e.ang_ap <= t && t <= e.ang_ep) {
    nearest = LinePoint(e, t);
    dist = CarrierDistance(e, p);
    return PA_OK;
  }
  const bool near_start = std::fabs(t - e.ang_ap) < tol;
  if (!near_start && std::fabs(t - e.ang_ep) >= tol) return PA_NOT_ON;
  nearest = near_start ? e.ap : e.ep;
  dist = Dist(p, nearest);
  return PA_OK;
}

}  // namespace

uint16_t PointOn(const LI_TAB_STRUCT &e, GE_POINT &p, double &par) {
  const double tol = Tol();
  // The end is tested before the start so that a degenerate element
  // reports its end.
  if (CoincideByDistance(p, e.ep, tol)) {
    p = e.ep;
    par = e.ang_ep;
    return GE_AT_END;
  }
  if (CoincideByDistance(p, e.ap, tol)) {
    p = e.ap;
    par = e.ang_ap;
    return GE_AT_START;
  }
  if (IsLine(e)) {
    const double t = LineParameter(e, p);
    par = t;
    if (e.ang_ap < t && t < e.ang_ep) return GE_INSIDE;
    return t < e.ang_ap ? GE_BEFORE : GE_BEYOND;
  }
  const double angle = Angle(p - e.mp);
  par = angle;
  // A negative radius places the carrier point opposite its angle, and
  // the stored angles are those of the points so placed.
  const double test = ArcAngleOf(angle, e.rad);
  if (AngleOnArc(test, e, tol, Bounds::kInclusive)) return GE_INSIDE;
  return BeforeOrBeyond(e, test);
}

// A full circle holds every angle, so every point has its radial foot.
void NearestOnArc(GE_POINT p, const LI_TAB_STRUCT &e, double &dist, GE_POINT &nearest,
                  double &angle) {
  dist = std::fabs(Dist(p, e.mp) - e.rad);
  angle = Angle(p - e.mp);
  if (AngleOnArc(angle, e, Tol(), Bounds::kInclusive)) {
    nearest = Polar(e.mp, e.rad, angle);
    return;
  }
  const bool start = Norm2(p - e.ap) <= Norm2(p - e.ep);
  nearest = start ? e.ap : e.ep;
  angle = start ? e.ang_ap : e.ang_ep;
  dist = Dist(p, nearest);
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GePointOn(const LI_TAB_STRUCT *e, GE_POINT *pt, double *par) {
  if (e == nullptr || pt == nullptr || par == nullptr) return 0;
  return PointOn(*e, *pt, *par);
}

extern "C" uint16_t GePtOnElem(const LI_TAB_STRUCT *e, const GE_POINT *p) {
  if (e == nullptr || p == nullptr) return 0;
  // Ten times the tolerance across a line, deliberately wider than along it.
  return OnElement(*e, *p, 10.0 * Tol());
}

extern "C" uint16_t GePtOnElemUniformDistEpsi(const LI_TAB_STRUCT *e, const GE_POINT *p) {
  if (e == nullptr || p == nullptr) return 0;
  return OnElement(*e, *p, Tol());
}

extern "C" uint16_t GePtOnLine(const GE_POINT *p, const LI_TAB_STRUCT *line, GE_POINT *nearest,
                               double *dist) {
  if (p == nullptr || line == nullptr || nearest == nullptr || dist == nullptr) return PA_INVALID;
  return NearestOnLine(*p, *line, *nearest, *dist);
}

extern "C" uint16_t GePtOnArc(const GE_POINT *p, const LI_TAB_STRUCT *arc, double *dist,
                              GE_POINT *nearest, double *angle) {
  if (p == nullptr || arc == nullptr || dist == nullptr || nearest == nullptr || angle == nullptr)
    return PA_INVALID;
  NearestOnArc(*p, *arc, *dist, *nearest, *angle);
  return GePtOnElem(arc, p) != 0 ? PA_OK : PA_NOT_ON;
}

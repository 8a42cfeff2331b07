// Measures of single elements and contours: reversal, length and the point
// at a fraction of the way along an element.
#include <cmath>
#include <utility>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The angle an arc sweeps from ang_ap to ang_ep in its sense of travel.
// Equal end angles give 0, so a full circle is deliberately not a full turn
// here: every point of it is its start (callers split a full circle to get
// points on it).
double ArcSweep(const LI_TAB_STRUCT &e) {
  // The second turn only matters for angles outside (-pi, pi].
  return SweepOnce(TravelSweep(e));
}

// An arc's length is the angle it covers times |rad|, a full circle's a
// full turn: never negative, also for an arc moved past its centre.
double ElemLen(const LI_TAB_STRUCT &e) {
  if (!IsArc(e)) return e.ang_ep - e.ang_ap;
  return CoveredSweep(e, Tol()) * std::fabs(e.rad);
}

GE_POINT ElemPt(const LI_TAB_STRUCT &e, double u) {
  if (u < 0.0) return e.ap;
  if (u > 1.0) return e.ep;
  if (!IsArc(e)) return (1.0 - u) * e.ap + u * e.ep;
  const double s = ArcSweep(e);
  const double angle = e.type == LI_ARC_CCW ? e.ang_ap + u * s : e.ang_ap - u * s;
  return Polar(e.mp, e.rad, angle);
}

void Reverse(LI_TAB_STRUCT &e) {
  if (e.type == LI_ARC_CCW) {
    e.type = LI_ARC_CW;
  } else if (e.type == LI_ARC_CW) {
    e.type = LI_ARC_CCW;
  } else if (IsLine(e)) {
    e.mp = -e.mp;
    e.rad = Dot(e.mp, e.ep);
    e.ang_ap = -e.ang_ap;
    e.ang_ep = -e.ang_ep;
  }
  std::swap(e.ap, e.ep);
  std::swap(e.ang_ap, e.ang_ep);
  const GE_POINT tan_ap = e.tan_ap;
  e.tan_ap = -e.tan_ep;
  e.tan_ep = -tan_ap;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" void LiElemUmdreh(LI_TAB_STRUCT *e) {
  if (e != nullptr) Reverse(*e);
}

extern "C" double LiElemLen(const LI_TAB_STRUCT *e) { return e != nullptr ? ElemLen(*e) : 0.0; }

extern "C" GE_POINT LiElemPt(const LI_TAB_STRUCT *e, double u) {
  if (e == nullptr) return {0.0, 0.0};
  return ElemPt(*e, u);
}

extern "C" double LiKontLen(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return 0.0;
  double len = 0.0;
  const LI_TAB_STRUCT *e = k;
  do {
    len += ElemLen(*e);
    e = e->next;
  } while (e != k);
  return len;
}

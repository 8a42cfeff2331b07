// Is a point on an element, on a contour, or on the stretch of a contour
// between two of its points.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

bool OnElem(const LI_TAB_STRUCT &e, GE_POINT p) {
  const double tol = Tol();
  if (CoincideByDistance(p, e.ep, tol) || CoincideByDistance(p, e.ap, tol)) return true;
  if (IsArc(e)) {
    if (std::fabs(Dist(p, e.mp) - e.rad) >= tol) return false;
    // Exact angles: the tolerance was spent on the ends. A full circle
    // holds every angle.
    return AngleOnArc(Angle(p - e.mp), e, tol, Bounds::kInclusive);
  }
  if (CarrierDistance(e, p) >= tol) return false;
  const double u = LineParameter(e, p);
  return u + tol >= e.ang_ap && u - tol <= e.ang_ep;
}

// How far q lies along e from its start: the distance from ap for lines;
// for arcs the angle swept from ap in e's sense, brought into [0, 2pi),
// times q's distance from the centre.
double DistanceAlong(const LI_TAB_STRUCT &e, GE_POINT q) {
  if (!IsArc(e)) return Dist(e.ap, q);
  return SweepInSense(e.type, e.ang_ap, Angle(q - e.mp)) * Dist(q, e.mp);
}

// The elements that hold p2 and q, searched forwards from e1, the element
// of p1.
struct Stretch {
  const LI_TAB_STRUCT *e2 = nullptr;
  const LI_TAB_STRUCT *eq = nullptr;
};

// The search ends with k, the contour's first element: when e1 is k, k is
// looked at once more after a full circuit. On that first look at k a p2 at
// k's start does not count, so that p1 == p2 there spans the whole contour.
Stretch FindStretch(const LI_TAB_STRUCT *k, const LI_TAB_STRUCT *e1, GE_POINT p2, GE_POINT q) {
  const bool skip_first = e1 == k && OnElem(*e1, p2) && CoincidePerAxis(p2, k->ap, Tol());
  Stretch s;
  const LI_TAB_STRUCT *e = e1;
  for (bool first = true;; first = false, e = e->next) {
    if (OnElem(*e, q)) s.eq = e;
    if (!(first && skip_first) && OnElem(*e, p2)) {
      s.e2 = e;
      return s;
    }
    if (e == k && !first) return s;
  }
}

bool InInterval(const LI_TAB_STRUCT *k, GE_POINT p1, GE_POINT p2, GE_POINT q) {
  const LI_TAB_STRUCT *e1 = k;
  while (!OnElem(*e1, p1)) {
    e1 = e1->next;
    if (e1 == k) return false;
  }
  const Stretch s = FindStretch(k, e1, p2, q);
  if (s.e2 == nullptr || s.eq == nullptr) return false;
  if (s.eq == e1 && DistanceAlong(*e1, p1) > DistanceAlong(*e1, q)) return false;
  if (s.eq == s.e2 && DistanceAlong(*s.e2, q) > DistanceAlong(*s.e2, p2)) return false;
  return true;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" int LiPtOnElem(const LI_TAB_STRUCT *e, const GE_POINT *p) {
  if (e == nullptr || p == nullptr) return 0;
  return OnElem(*e, *p) ? 1 : 0;
}

extern "C" int LiPtOnKont(LI_TAB_STRUCT *k, const GE_POINT *p, LI_TAB_STRUCT **out) {
  if (k == nullptr || p == nullptr) return 0;
  LI_TAB_STRUCT *e = k;
  do {
    if (OnElem(*e, *p)) {
      if (out != nullptr) *out = e;
      return 1;
    }
    e = e->next;
  } while (e != k);
  if (out != nullptr) *out = nullptr;
  return 0;
}

extern "C" int LiPtInIntervall(LI_TAB_STRUCT *k, const GE_POINT *p1, const GE_POINT *p2,
                               const GE_POINT *q) {
  if (k == nullptr || p1 == nullptr || p2 == nullptr || q == nullptr) return 0;
  return InInterval(k, *p1, *p2, *q) ? 1 : 0;
}

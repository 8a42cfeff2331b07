// One element's share of a contour's signed area, for LiKontArea and for
// the operations that take a contour's area in the same walk as other
// measures (the sum must come out the same, element by element).
#pragma once

#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {

// The trapezoid under the element's chord, plus or minus the segment
// between an arc and its chord. A full circle counts as the whole disc
// instead.
inline double ElementArea(const LI_TAB_STRUCT &e, double tol) {
  const double sense = e.type == LI_ARC_CCW ? 1.0 : -1.0;
  if (IsArc(e) && IsFullCircle(e, tol)) return sense * kPi * e.rad * e.rad;
  double area = -0.5 * (e.ep.x - e.ap.x) * (e.ap.y + e.ep.y);
  if (IsArc(e)) area += sense * GeArcArea(&e.ap, &e.ep, &e.mp, e.rad, e.type);
  return area;
}

}  // namespace polyarc

// Signed area and direction of travel of whole contours.
#include <utility>

#include "geom/predicates.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The element's share of the contour's signed area: the trapezoid under
// its chord, plus or minus the segment between an arc and its chord. A
// full circle counts as the whole disc instead.
double ElementArea(const LI_TAB_STRUCT &e, double tol) {
  const double sense = e.type == LI_ARC_CCW ? 1.0 : -1.0;
  if (IsArc(e) && IsFullCircle(e, tol)) return sense * kPi * e.rad * e.rad;
  double area = -0.5 * (e.ep.x - e.ap.x) * (e.ap.y + e.ep.y);
  if (IsArc(e)) area += sense * GeArcArea(&e.ap, &e.ep, &e.mp, e.rad, e.type);
  return area;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" double LiKontArea(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return 0.0;
  const double tol = Tol();
  double area = 0.0;
  const LI_TAB_STRUCT *e = k;
  do {
    area += ElementArea(*e, tol);
    e = e->next;
  } while (e != k);
  return area;
}

extern "C" void LiKontChgDir(LI_TAB_STRUCT **kont) {
  if (kont == nullptr || *kont == nullptr) return;
  LI_TAB_STRUCT *e = *kont;
  do {
    LiElemUmdreh(e);
    std::swap(e->next, e->prev);
    e = e->prev;  // the old successor
  } while (e != *kont);
  // An open contour starts at its old end.
  LI_TAB_STRUCT *first = *kont;
  if (!CoincidePerAxis(first->ep, first->next->ap, Tol())) *kont = first->next;
}

// Signed area and direction of travel of whole contours.
#include <utility>

#include "contour/element_area.h"
#include "geom/predicates.h"
#include "polyarc/li.h"

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

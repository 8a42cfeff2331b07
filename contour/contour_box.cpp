// Boxes of whole contours and their position against the x-axis.
#include <algorithm>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

struct Extent {
  GE_POINT lo{1e308, 1e308};
  GE_POINT hi{-1e308, -1e308};
  void Add(GE_POINT a, GE_POINT b) {
    lo = {std::min(lo.x, a.x), std::min(lo.y, a.y)};
    hi = {std::max(hi.x, b.x), std::max(hi.y, b.y)};
  }
};

// The union of the stored element boxes, tolerance margin included.
Extent StoredBox(const LI_TAB_STRUCT *k) {
  Extent x;
  const LI_TAB_STRUCT *e = k;
  do {
    x.Add({e->box.xmin, e->box.ymin}, {e->box.xmax, e->box.ymax});
    e = e->next;
  } while (e != k);
  return x;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" void LiKontBox(const LI_TAB_STRUCT *k, GE_POINT *lo, GE_POINT *hi) {
  if (k == nullptr || lo == nullptr || hi == nullptr) return;
  const Extent x = StoredBox(k);
  *lo = x.lo;
  *hi = x.hi;
}

extern "C" void LiKontRealBox(const LI_TAB_STRUCT *k, GE_POINT *lo, GE_POINT *hi) {
  if (k == nullptr || lo == nullptr || hi == nullptr) return;
  Extent x;
  const LI_TAB_STRUCT *e = k;
  do {
    GE_POINT a{}, b{};
    LiElemRealBox(e, &a, &b);
    x.Add(a, b);
    e = e->next;
  } while (e != k);
  *lo = x.lo;
  *hi = x.hi;
}

extern "C" uint16_t LiKontPos(const LI_TAB_STRUCT *k, int16_t *pos) {
  if (k == nullptr || pos == nullptr) return PA_OK;
  // The stored boxes carry the tolerance margin, so a contour that touches
  // the axis is neither above nor below it.
  const Extent x = StoredBox(k);
  const double tol = Tol();
  *pos = 0;
  if (x.lo.y > -tol && x.hi.y > tol) *pos = 1;
  if (x.hi.y < tol && x.lo.y < -tol) *pos = -1;
  return PA_OK;
}

// Rigid transforms of whole contours: mirroring in the x-axis, moving and
// rotating. Every element is re-expanded after its points move.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

void Mirror(LI_TAB_STRUCT &e) {
  e.ap.y = -e.ap.y;
  e.ep.y = -e.ep.y;
  e.mp.y = -e.mp.y;
  if (e.type == LI_ARC_CW) {
    e.type = LI_ARC_CCW;
  } else if (e.type == LI_ARC_CCW) {
    e.type = LI_ARC_CW;
  }
}

struct MoveRot {
  GE_POINT shift;
  GE_POINT centre;
  double cos_a;
  double sin_a;
  GE_POINT operator()(GE_POINT p) const {
    const GE_POINT v = p + shift - centre;
    return centre + GE_POINT{cos_a * v.x - sin_a * v.y, sin_a * v.x + cos_a * v.y};
  }
};

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiMirror(LI_TAB_STRUCT *k) {
  if (k == nullptr) return PA_OK;
  uint16_t status = PA_OK;
  LI_TAB_STRUCT *e = k;
  do {
    Mirror(*e);
    status = LiElemExpand(e);
    e = e->next;
  } while (e != k);
  return status;
}

extern "C" uint16_t LiMoveRotKont(LI_TAB_STRUCT *k, const GE_POINT *p1, const GE_POINT *p2,
                                  double a) {
  if (k == nullptr || p1 == nullptr || p2 == nullptr) return PA_OK;
  const MoveRot f{*p1, *p2, std::cos(a), std::sin(a)};
  LI_TAB_STRUCT *e = k;
  do {
    e->ap = f(e->ap);
    e->ep = f(e->ep);
    // A line's mp is its normal, recomputed by the expansion anyway.
    if (IsArc(*e)) e->mp = f(e->mp);
    if (const uint16_t status = LiElemExpand(e); status != PA_OK) return status;
    e = e->next;
  } while (e != k);
  return PA_OK;
}

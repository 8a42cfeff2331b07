// Offsetting one element in place: by a fixed distance (LiParElem) and by a
// distance that changes linearly from the start to the end (LiConicElem).
#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Shifts e by s to the left of its travel (to the right for negative s).
// The centre, tangents and angles of a parallel element are those of the
// original, so only the ends, rad and the box change.
void ShiftParallel(LI_TAB_STRUCT &e, double s) {
  e.ap = e.ap + s * LeftNormal(e.tan_ap);
  e.ep = e.ep + s * LeftNormal(e.tan_ep);
  // Left of a clockwise arc is away from its centre; for a line rad is its
  // distance from the origin along the right-hand normal.
  if (e.type == LI_ARC_CW) {
    e.rad += s;
  } else {
    e.rad -= s;
  }
  LiElemBox(&e);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiParElem(LI_TAB_STRUCT *e, int16_t side, double d) {
  if (e == nullptr) return PA_INVALID;
  ShiftParallel(*e, side * d);
  return PA_OK;
}

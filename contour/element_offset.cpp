// Offsetting one element in place: by a fixed distance (LiParElem) and by a
// distance that changes linearly from the start to the end (LiConicElem).
#include "geom/predicates.h"
#include "polyarc/ge.h"
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

uint16_t ConicLine(LI_TAB_STRUCT &e, double s0, double s1) {
  e.ap = e.ap + s0 * LeftNormal(e.tan_ap);
  e.ep = e.ep + s1 * LeftNormal(e.tan_ep);
  return LiElemExpand(&e);
}

// The arc through the start of the parallel at d0, the middle of the
// parallel at the mean distance and the end of the parallel at d1. When no
// arc passes through them, e is left as it was.
uint16_t ConicArc(LI_TAB_STRUCT &e, int16_t side, double d0, double d1) {
  LI_TAB_STRUCT at_start = e, at_middle = e, at_end = e;
  ShiftParallel(at_start, side * d0);
  ShiftParallel(at_middle, side * ((d0 + d1) * 0.5));
  ShiftParallel(at_end, side * d1);
  const GE_POINT start = at_start.ap, end = at_end.ep;
  // GeArc3Points may exchange its second and third points in place.
  GE_POINT middle{}, last = end;
  GeElemMpt(&at_middle, &middle);
  GE_POINT centre{};
  double radius = 0.0;
  uint16_t sense = 0;
  if (const uint16_t status = GeArc3Points(&start, &middle, &last, &centre, &radius, &sense);
      status != PA_OK) {
    return status;
  }
  e.mp = centre;
  e.rad = radius;
  e.ap = start;
  e.ep = end;
  return LiElemExpand(&e);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiParElem(LI_TAB_STRUCT *e, int16_t side, double d) {
  if (e == nullptr) return PA_INVALID;
  ShiftParallel(*e, side * d);
  return PA_OK;
}

extern "C" uint16_t LiConicElem(LI_TAB_STRUCT *e, int16_t side, double d0, double d1) {
  if (e == nullptr) return PA_INVALID;
  if (IsArc(*e)) return ConicArc(*e, side, d0, d1);
  return ConicLine(*e, side * d0, side * d1);
}

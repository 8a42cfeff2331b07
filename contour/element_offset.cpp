// Offsetting one element in place: by a fixed distance (LiParElem) and by a
// distance that changes linearly from the start to the end (LiConicElem).
#include <cmath>

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

// With one distance all along, the three points lie on the parallel, so
// the arc through them is the parallel itself: the same centre, radius
// |rad -+ d| (an arc moved past its centre turns about it in the same
// sense, so its type stays), the parallel's ends. Taken directly, it holds
// also for nearly straight arcs, whose three points the construction
// service calls collinear, and for full circles, whose three points are
// one.
uint16_t ParallelArc(LI_TAB_STRUCT &e, double s) {
  ShiftParallel(e, s);
  e.rad = std::fabs(e.rad);
  return LiElemExpand(&e);
}

// The arc through the start of the parallel at d0, the middle of the
// parallel at the mean distance and the end of the parallel at d1,
// travelling through them in that order (the sense rule of GeArc3Points).
// When no circle passes through them (two coincide, or all three lie on a
// line within tol), e is left as it was.
uint16_t ThreePointArc(LI_TAB_STRUCT &e, double s0, double s1) {
  LI_TAB_STRUCT at_start = e, at_middle = e, at_end = e;
  ShiftParallel(at_start, s0);
  ShiftParallel(at_middle, (s0 + s1) * 0.5);
  ShiftParallel(at_end, s1);
  const GE_POINT start = at_start.ap, end = at_end.ep;
  GE_POINT middle{}, centre{};
  GeElemMpt(&at_middle, &middle);
  double radius = 0.0;
  if (const uint16_t status = GeCirByPtPtPt(&start, &middle, &end, &centre, &radius);
      status != PA_OK) {
    return status;
  }
  e.type = SenseOfTurn(Cross(middle - start, end - start));
  e.mp = centre;
  e.rad = radius;
  e.ap = start;
  e.ep = end;
  return LiElemExpand(&e);
}

// A full circle has no arc through its three offset points (they are one
// point): it stays a full circle when both distances agree within tol, and
// is refused otherwise, since its ends would part.
uint16_t ConicArc(LI_TAB_STRUCT &e, int16_t side, double d0, double d1) {
  const double tol = Tol();
  if (IsFullCircle(e, tol)) {
    if (!(std::fabs(d1 - d0) < tol)) return PA_DEGENERATE;
    return ParallelArc(e, side * ((d0 + d1) * 0.5));
  }
  if (d0 == d1) return ParallelArc(e, side * d0);
  return ThreePointArc(e, side * d0, side * d1);
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

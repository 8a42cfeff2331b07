// Recomputation of an element's derived fields from its defining ones, and
// the element boxes. Every operation that changes an element ends here.
#include <algorithm>
#include <cmath>

#include "geom/arc_box.h"
#include "geom/line_form.h"
#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

ArcBox SegmentBox(const LI_TAB_STRUCT &e) {
  return {{std::min(e.ap.x, e.ep.x), std::min(e.ap.y, e.ep.y)},
          {std::max(e.ap.x, e.ep.x), std::max(e.ap.y, e.ep.y)}};
}

// An arc covers the points of the circle of radius |rad| from ap to ep in
// its sense of travel, whatever the sign of rad, so its box is taken from
// the real end points and |rad|.
ArcBox TightBox(const LI_TAB_STRUCT &e, double tol) {
  if (!IsArc(e)) return SegmentBox(e);
  const double r = std::fabs(e.rad);
  if (IsFullCircle(e, tol)) return {{e.mp.x - r, e.mp.y - r}, {e.mp.x + r, e.mp.y + r}};
  // The clockwise arc from ap to ep, or, for type 4, from ep to ap.
  return e.type == LI_ARC_CW ? ClockwiseArcBox(e.mp, r, e.ap, e.ep)
                             : ClockwiseArcBox(e.mp, r, e.ep, e.ap);
}

void StoreBox(LI_TAB_STRUCT &e, const ArcBox &b, double tol) {
  e.box = {b.min.x - tol, b.min.y - tol, b.max.x + tol, b.max.y + tol};
}

// Whatever e's type, it is expanded and boxed as the segment ap-ep.
uint16_t ExpandLine(LI_TAB_STRUCT &e, double tol) {
  const LineForm f = LineFormOf(e.ap, e.ep);
  e.tan_ap = e.tan_ep = f.dir;
  e.mp = f.normal;
  e.rad = f.c;
  e.ang_ap = f.t1;
  e.ang_ep = f.t2;
  StoreBox(e, SegmentBox(e), tol);
  return f.degenerate ? PA_ZERO_LENGTH : PA_OK;
}

// With rad < 0 the angles stored are those of the carrier points mp +
// rad (cos a, sin a), opposite the ends' polar angles, and k = 1/rad turns
// the tangents round: the fields LiParElem leaves on an arc moved past its
// centre, so that a piece cut from such an arc reads like the arc itself.
uint16_t ExpandArc(LI_TAB_STRUCT &e, double tol) {
  const GE_POINT ra = e.ap - e.mp;
  const GE_POINT re = e.ep - e.mp;
  e.ang_ap = ArcAngleOf(Angle(ra), e.rad);
  e.ang_ep = ArcAngleOf(Angle(re), e.rad);
  uint16_t status = PA_OK;
  if (std::fabs(e.rad) >= tol) {
    const double k = 1.0 / e.rad;
    const bool cw = e.type == LI_ARC_CW;
    e.tan_ap = k * (cw ? RightNormal(ra) : LeftNormal(ra));
    e.tan_ep = k * (cw ? RightNormal(re) : LeftNormal(re));
  } else {
    e.tan_ap = e.tan_ep = {0.0, 0.0};
    status = PA_ZERO_RADIUS;
  }
  StoreBox(e, TightBox(e, tol), tol);
  return status;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiElemExpand(LI_TAB_STRUCT *e) {
  if (e == nullptr) return PA_INVALID;
  const double tol = Tol();
  if (IsLine(*e)) return ExpandLine(*e, tol);
  if (IsArc(*e)) return ExpandArc(*e, tol);
  StoreBox(*e, TightBox(*e, tol), tol);
  return PA_OK;
}

extern "C" uint16_t LiElemExpandDrawVectorized(LI_TAB_STRUCT *e) {
  if (e == nullptr) return PA_INVALID;
  return ExpandLine(*e, Tol());
}

extern "C" void LiElemBox(LI_TAB_STRUCT *e) {
  if (e == nullptr) return;
  const double tol = Tol();
  StoreBox(*e, TightBox(*e, tol), tol);
}

extern "C" void LiElemRealBox(const LI_TAB_STRUCT *e, GE_POINT *lo, GE_POINT *hi) {
  if (e == nullptr || lo == nullptr || hi == nullptr) return;
  const ArcBox b = TightBox(*e, Tol());
  *lo = b.min;
  *hi = b.max;
}

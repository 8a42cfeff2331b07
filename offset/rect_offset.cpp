// The rectangle offset: every point of an element moves by the corner of an
// axis-aligned rectangle that lies furthest out on the chosen side, arcs
// are first cut where their direction crosses an axis, the gaps between
// moved neighbours are bridged by axis-parallel legs and open ends carried
// out to a target point.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

constexpr int16_t kRight = -1;

// One component of the corner for the direction component `across` (the
// other axis) and `along` (this axis): negative half-side when the
// direction points one way across, positive the other way, and at an
// axis-parallel direction a tie-break on the sign of `along` that depends
// on which end of the element is moved. The comparisons against 0.5 only
// test the sign of a unit vector's component; their asymmetry (>= at the
// start, not greater than at the end) is kept as it stands.
double CornerComponent(double across, double along, double half, double eps, int32_t end,
                       bool positive_when_above) {
  if (std::fabs(across) < eps) {
    const bool negative = end == 0 ? along >= 0.5 : !(along > 0.5);
    return negative ? -half : half;
  }
  const bool above = positive_when_above ? across > eps : !(across < -eps);
  return positive_when_above ? (above ? half : -half) : (above ? -half : half);
}

GE_POINT RectangleCorner(GE_POINT v, double dx, double dy, int16_t side, int32_t end,
                         double scale) {
  // A zero scale (an element of zero length) makes every direction a tie.
  const double eps = scale != 0.0 ? Tol() / scale : HUGE_VAL;
  // x: +dx when the direction points down, -dx when it points up (or sits
  // exactly at -eps); y: +dy when it points right, -dy when left (or at
  // exactly +eps).
  GE_POINT c{CornerComponent(v.y, v.x, dx, eps, end, false),
             CornerComponent(v.x, v.y, dy, eps, end, true)};
  if (side == kRight) {
    // Components along an exactly axis-parallel direction keep their
    // tie-break, so that both sides lengthen the element the same way.
    if (std::fabs(v.y) > eps) c.x = -c.x;
    if (std::fabs(v.x) > eps) c.y = -c.y;
  }
  return c;
}

// The offset runs towards the arc's centre (or the element is a line): its
// start takes the end-side corner and its end the start-side one, which
// lengthens it. Moves are never lengthened.
bool Lengthens(const LI_TAB_STRUCT &e, int16_t side) {
  if (e.type == LI_ARC_CCW) return side == 1;
  if (e.type == LI_ARC_CW) return side == kRight;
  return e.type != LI_MOVE;
}

uint16_t MoveByCorners(LI_TAB_STRUCT &e, double dx, double dy, int16_t side) {
  const double tol = Tol();
  const double scale = IsArc(e) ? e.rad : e.ang_ep - e.ang_ap;
  const int32_t lengthen = Lengthens(e, side) ? 1 : 0;
  LI_TAB_STRUCT moved = e;
  const GE_POINT at_start = RectangleCorner(e.tan_ap, dx, dy, side, 1 - lengthen, scale);
  const GE_POINT at_end = RectangleCorner(e.tan_ep, dx, dy, side, lengthen, scale);
  moved.ap = e.ap + at_start;
  moved.ep = e.ep + at_end;
  if (IsArc(e)) {
    // The arc is translated by its end's displacement; when its start moved
    // differently the arc turns through more than one quadrant.
    moved.mp = e.mp + at_end;
    if (std::fabs(Dist(moved.ap, moved.mp) - moved.rad) > tol ||
        std::fabs(Dist(moved.ep, moved.mp) - moved.rad) > tol) {
      return PA_INVALID;
    }
  }
  e = moved;
  if (CoincidePerAxis(e.ap, e.ep, tol)) return PA_OK;
  return LiElemExpand(&e);
}

uint16_t SplitAtAxisPoint(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t yfactor, int16_t xfactor) {
  uint16_t status = PA_OK;
  LI_TAB_STRUCT *e = *k;
  do {
    if (IsArc(*e)) {
      const GE_POINT p{e->mp.x + xfactor * e->rad, e->mp.y + yfactor * e->rad};
      if (GePtOnElem(e, &p) == GE_INSIDE) {
        LI_TAB_STRUCT *piece = nullptr;
        status = LiElemTeilen(head, e, &piece, &p);
        if (status != PA_OK) return status;
        if (e == *k) *k = piece;
      }
    }
    e = e->next;
  } while (e != *k);
  return status;
}

// A new line a -> b with e's payload, chained after e and expanded.
uint16_t Leg(LI_HEAD *head, LI_TAB_STRUCT *e, GE_POINT a, GE_POINT b, LI_TAB_STRUCT *&leg) {
  if (const uint16_t status = LiNew(head, &leg); status != PA_OK) return status;
  leg->type = LI_LINE;
  leg->ap = a;
  leg->ep = b;
  leg->attr_val = e->attr_val;
  leg->attr_id = e->attr_id;
  leg->no = e->no;
  LiChain(e, leg);
  return LiElemExpand(leg);
}

uint16_t Bridge(LI_HEAD *head, LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, double dx, double dy,
                int16_t side) {
  if (e1 == e2) return PA_OK;
  const double tol = Tol();
  const GE_POINT gap = e2->ap - e1->ep;
  const auto wrong = [tol](double g, double half) {
    return std::fabs(g) > tol && std::fabs(2.0 * half - std::fabs(g)) > tol;
  };
  if (wrong(gap.x, dx) || wrong(gap.y, dy)) return PA_INVALID;
  if (std::fabs(gap.x) <= tol && std::fabs(gap.y) <= tol) return PA_OK;
  LI_TAB_STRUCT *leg = nullptr;
  if (std::fabs(gap.x) < tol || std::fabs(gap.y) < tol) return Leg(head, e1, e1->ep, e2->ap, leg);
  // Which leg comes first decides on which side of the gap the corner of
  // the two legs lies: the outer one for the side of the offset.
  const bool same_sign = (gap.x > 0) == (gap.y > 0);
  const bool vertical_first = same_sign != (side == kRight);
  const GE_POINT first = vertical_first ? GE_POINT{0.0, gap.y} : GE_POINT{gap.x, 0.0};
  const GE_POINT second = gap - first;
  if (const uint16_t status = Leg(head, e1, e1->ep, e1->ep + first, leg); status != PA_OK)
    return status;
  if (std::fabs(second.x) <= tol && std::fabs(second.y) <= tol) return PA_OK;
  LI_TAB_STRUCT *second_leg = nullptr;
  return Leg(head, leg, leg->ep, leg->ep + second, second_leg);
}

// A zero-length tangent line at the open end of the contour, for an arc
// end whose target lies off the arc: it starts and ends at the arc's end
// point, carries the end direction t, and is chained in front of the
// first element (at the start) or after the last. Only its carrier is set,
// as the normal (-t.y, t.x) and its distance; the caller moves its free
// end and expands it.
uint16_t TangentLine(LI_HEAD *head, LI_TAB_STRUCT **k, LI_TAB_STRUCT *e, GE_POINT t, bool at_start,
                     LI_TAB_STRUCT *&line) {
  if (const uint16_t status = LiNew(head, &line); status != PA_OK) return status;
  const GE_POINT p = at_start ? e->ap : e->ep;
  line->type = LI_LINE;
  line->ap = line->ep = p;
  line->mp = LeftNormal(t);
  line->rad = Dot(line->mp, p);
  if (at_start) {
    LiChainPrev(e, line);
    *k = line;
  } else {
    LiChain(e, line);
  }
  return PA_OK;
}

uint16_t CarryEnd(LI_HEAD *head, LI_TAB_STRUCT **k, GE_POINT target, bool at_start, bool always) {
  const double tol = Tol();
  LI_TAB_STRUCT *e = at_start ? *k : (*k)->prev;
  const GE_POINT t = at_start ? e->tan_ap : e->tan_ep;
  GE_POINT foot{};
  uint16_t status = GeProjPtElem(e, &target, &foot);
  // The line's rad (its distance from the origin) is read like a radius
  // here as well; that is how this rule has always scaled the tolerance.
  const double eps = std::fabs(e->rad) > tol ? tol / e->rad : tol;
  const bool axis_parallel = std::fabs(t.x) < eps || std::fabs(t.y) < eps;
  if (status == PA_OK && !IsLine(*e) && axis_parallel) {
    if (GePtOnElem(e, &foot) == 0) {
      LI_TAB_STRUCT *line = nullptr;
      if (status = TangentLine(head, k, e, t, at_start, line); status != PA_OK) return status;
      status = GeProjPtElem(line, &target, &foot);
      e = line;
    } else if (!always) {
      return PA_OK;
    }
  } else if (!always && GePtOnElem(e, &foot) != 0) {
    return PA_OK;  // only ever lengthened, never shortened
  }
  if (status != PA_OK) return status;
  (at_start ? e->ap : e->ep) = foot;
  return LiElemExpand(e);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlOffsVk(const GE_POINT *dir, double dx, double dy, int16_t side,
                             GE_POINT *offset, int32_t end, double scale) {
  if (dir == nullptr || offset == nullptr) return PA_INVALID;
  *offset = RectangleCorner(*dir, dx, dy, side, end, scale);
  return PA_OK;
}

extern "C" uint16_t FlOffsElem(LI_TAB_STRUCT *e, double dx, double dy, uint16_t side) {
  if (e == nullptr) return PA_INVALID;
  return MoveByCorners(*e, dx, dy, static_cast<int16_t>(side));
}

extern "C" uint16_t FlOffsSplit(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t yfactor,
                                int16_t xfactor) {
  if (head == nullptr || k == nullptr) return PA_INVALID;
  if (*k == nullptr) return PA_OK;
  return SplitAtAxisPoint(head, k, yfactor, xfactor);
}

extern "C" uint16_t FlOffsKon(LI_HEAD *head, LI_TAB_STRUCT *e1, LI_TAB_STRUCT *e2, double dx,
                              double dy, uint16_t side) {
  if (head == nullptr || e1 == nullptr || e2 == nullptr) return PA_INVALID;
  return Bridge(head, e1, e2, dx, dy, static_cast<int16_t>(side));
}

extern "C" uint16_t FlOffAnf(LI_HEAD *head, LI_TAB_STRUCT **k, const GE_POINT *target,
                             int32_t at_start, int32_t always) {
  if (head == nullptr || k == nullptr || *k == nullptr || target == nullptr) return PA_INVALID;
  return CarryEnd(head, k, *target, at_start != 0, always != 0);
}

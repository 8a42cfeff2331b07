// How two neighbouring offset elements are joined at a corner: trimmed or
// extended to their crossing, bridged by an arc about the source corner,
// by a connecting line or move, or left apart; and the process-wide corner
// mode that chooses among them.
#include "offset/corner_joins.h"

#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Shared by every caller of the parallel and conic offsets and not
// synchronised, like the tolerance.
uint16_t g_corner_mode = FL_CORNER_SHARP;

// Mode 4 joins like the sharp mode.
constexpr uint16_t kSharpToo = 4;

bool SharpMode(uint16_t mode) { return mode == FL_CORNER_SHARP || mode == kSharpToo; }

// Appends e1 and, when e1 does not end where e2 starts, a connector from
// e1's end to e2's start whose kind `shape` sets.
template <class Shape>
uint16_t AppendConnected(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2,
                         Shape shape) {
  if (const uint16_t status = LiInsertElem(a.head, a.out, &e1); status != PA_OK) return status;
  if (CoincidePerAxis(e1.ep, e2.ap, Tol())) return PA_OK;
  LI_TAB_STRUCT c{};
  c.ap = e1.ep;
  c.ep = e2.ap;
  shape(c);
  if (const uint16_t status = LiElemExpand(&c); status != PA_OK) return status;
  c.no = ++*a.counter;
  return LiInsertElem(a.head, a.out, &c);
}

uint16_t AppendOnly(const JoinArgs &a, const LI_TAB_STRUCT &e1) {
  return LiInsertElem(a.head, a.out, &e1);
}

// The crossing is off at least one element: in the sharp modes a corner
// beyond e1's end and before e2's start is still a sharp corner, and so is
// one just off a single element when the source elements meet there.
bool AcceptedOffElement(uint16_t c1, uint16_t c2, const LI_TAB_STRUCT *o1,
                        const LI_TAB_STRUCT *o2) {
  if (!SharpMode(CornerMode())) return false;
  if (c1 == GE_BEYOND && c2 == GE_BEFORE) return true;
  const bool one_off = (c1 == GE_BEYOND && c2 == GE_INSIDE) || (c1 == GE_INSIDE && c2 == GE_BEFORE);
  return one_off && o1 != nullptr && o2 != nullptr && CoincidePerAxis(o1->ep, o2->ap, Tol());
}

// Moves e1's end and e2's start to p. A line e2 whose end p is keeps its
// derived fields but its start parameter: a full expansion of what is now
// a zero-length line would fail the join.
uint16_t TrimTo(LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2, GE_POINT p, uint16_t c2) {
  e1.ep = p;
  if (const uint16_t status = LiElemExpand(&e1); status != PA_OK) return status;
  const bool keep = c2 == GE_AT_END && IsLine(e2) && !CoincidePerAxis(e2.ap, e2.ep, Tol());
  e2.ap = p;
  if (keep) {
    e2.ang_ap = Dot(p, e2.tan_ap);
    return PA_OK;
  }
  return LiElemExpand(&e2);
}

// A move connector where a join finds no usable crossing.
uint16_t Move(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2) {
  return ConnectWithMoveOrDraw(a, e1, e2, false);
}

// Which join a corner gets when the path turns back on itself: a round
// corner on the outside of the turn-back, the crossing on its inside. p
// says which of the two the offset side is (taken the other way about
// after a counter-clockwise arc).
uint16_t ReverseJoin(const JoinArgs &a, LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2) {
  const int16_t side = e1.type == LI_ARC_CCW ? static_cast<int16_t>(-a.side) : a.side;
  const bool p = side == 1;
  const uint16_t select_ccw = e1.type == LI_ARC_CCW ? 1 : 0;
  const uint16_t select_cw = e1.type == LI_ARC_CW ? 1 : 0;
  if (IsLine(e1)) {
    if (IsLine(e2) || e1.type == LI_MOVE) return FlConElemBlunt(a, e1, e2);
    return p ? FlConElemIsect(a, e1, e2, nullptr, nullptr, 0) : FlConElemArc(a, e1, e2);
  }
  if (IsLine(e2))
    return p ? FlConElemIsect(a, e1, e2, nullptr, nullptr, 1) : FlConElemArc(a, e1, e2);
  if (e1.type == e2.type)
    return p ? FlConElemIsect(a, e1, e2, nullptr, nullptr, select_ccw) : FlConElemArc(a, e1, e2);
  if (e2.rad < e1.rad)
    return p ? FlConElemArc(a, e1, e2) : FlConElemIsect(a, e1, e2, nullptr, nullptr, select_ccw);
  return p ? FlConElemIsect(a, e1, e2, nullptr, nullptr, select_cw) : FlConElemArc(a, e1, e2);
}

}  // namespace

void SetCornerMode(uint16_t mode) { g_corner_mode = mode; }
uint16_t CornerMode() { return g_corner_mode; }

uint16_t NewResultFrom(LI_HEAD *head, const LI_TAB_STRUCT &e, LI_TAB_STRUCT **out) {
  LI_TAB_STRUCT *r = nullptr;
  if (const uint16_t status = LiNew(head, &r); status != PA_OK) return status;
  CopyGeometry(*r, e);
  r->attr_val = e.attr_val;
  r->attr_id = e.attr_id;
  r->no = e.no;
  *out = r;
  return PA_OK;
}

uint16_t ConnectWithMoveOrDraw(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2,
                               bool draw) {
  return AppendConnected(a, e1, e2,
                         [draw](LI_TAB_STRUCT &c) { c.type = draw ? LI_LINE : LI_MOVE; });
}

uint16_t FlConElemArc(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2) {
  return AppendConnected(a, e1, e2, [&a](LI_TAB_STRUCT &c) {
    // Offsets to the right turn counter-clockwise about a convex corner.
    c.type = a.side < 1 ? LI_ARC_CCW : LI_ARC_CW;
    c.mp = a.centre;
    c.rad = a.distance;
  });
}

uint16_t FlConElemBlunt(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2) {
  if (Dot(e1.tan_ep, e2.tan_ap) > 0.0) return AppendOnly(a, e1);
  return FlConElemArc(a, e1, e2);
}

uint16_t FlConElemIsect(const JoinArgs &a, LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2,
                        const LI_TAB_STRUCT *o1, const LI_TAB_STRUCT *o2, uint16_t select) {
  IsectPoint found[2]{};
  const uint16_t n = GeCross(&e1, &e2, &found[0], &found[1]);
  // No crossing at all: a round corner in the sharp modes, a gap in the
  // gap mode (that mode adds nothing wherever neighbours do not cross on
  // both), a move otherwise.
  if (n == 0) {
    if (SharpMode(CornerMode())) return FlConElemArc(a, e1, e2);
    return CornerMode() == FL_CORNER_GAP ? AppendOnly(a, e1) : Move(a, e1, e2);
  }
  const IsectPoint &q = n == 2 && select == 1 ? found[1] : found[0];
  if ((q.pos1 >= GE_BEFORE || q.pos2 >= GE_BEFORE) && !AcceptedOffElement(q.pos1, q.pos2, o1, o2)) {
    return CornerMode() == FL_CORNER_GAP ? AppendOnly(a, e1) : Move(a, e1, e2);
  }
  if (const uint16_t status = TrimTo(e1, e2, {q.x, q.y}, q.pos2); status != PA_OK) return status;
  return AppendOnly(a, e1);
}

uint16_t FlConElemReverse(const JoinArgs &a, LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2) {
  if (Dot(e1.tan_ep, e2.tan_ap) >= 0.0) return AppendOnly(a, e1);
  return ReverseJoin(a, e1, e2);
}

uint16_t FlConElemCorner(const JoinArgs &a, const LI_TAB_STRUCT &o1, const LI_TAB_STRUCT &o2,
                         LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2) {
  const JoinArgs at{a.head, o1.ep, a.side, a.distance, a.out, a.counter};
  if (at.side == 0) return AppendOnly(at, e1);
  const double turn = Cross(e1.tan_ep, e2.tan_ap);
  if (std::fabs(turn) < kParallelSine) return FlConElemReverse(at, e1, e2);
  // A corner that turns away from the offset side opens a gap outside it.
  const int16_t turn_sign = turn > 0.0 ? 1 : -1;
  if (turn_sign == -at.side && CornerMode() == FL_CORNER_ROUND) return FlConElemArc(at, e1, e2);
  uint16_t select = 0, touch = 0;
  if (const uint16_t status = GeElemIsectTest(&o1, &o2, &select, &touch); status != PA_OK)
    return status;
  if (touch == 1) return FlConElemReverse(at, e1, e2);
  if (touch == 2) return FlConElemBlunt(at, e1, e2);
  return FlConElemIsect(at, e1, e2, &o1, &o2, select);
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlConElemMoveOrDraw(LI_HEAD *head, const LI_TAB_STRUCT *e1,
                                        const LI_TAB_STRUCT *e2, LI_TAB_STRUCT **out,
                                        uint16_t *counter, int32_t draw) {
  if (head == nullptr || e1 == nullptr || e2 == nullptr || out == nullptr || counter == nullptr)
    return PA_INVALID;
  const JoinArgs a{head, {0.0, 0.0}, 0, 0.0, out, counter};
  return ConnectWithMoveOrDraw(a, *e1, *e2, draw != 0);
}

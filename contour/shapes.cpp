// Ready-made shapes: the rectangle and the rounded rectangle as clockwise
// contours centred on the origin, and the full circle as one element.
#include "polyarc/li.h"

namespace polyarc {
namespace {

// One pen stroke of a shape outline: a move, a line, or a clockwise arc
// about centre.
struct Stroke {
  enum Kind { kMove, kDraw, kArc } kind;
  GE_POINT to;
  GE_POINT centre;
};

uint16_t Run(LI_HEAD *head, LI_TAB_STRUCT **kont, const Stroke &s) {
  switch (s.kind) {
    case Stroke::kMove:
      return LiMove(head, kont, &s.to);
    case Stroke::kDraw:
      return LiDraw(head, kont, &s.to);
    default:
      return LiArc(head, kont, &s.to, &s.centre, 1);
  }
}

// Starts a fresh contour in *kont (whatever it held is not given back) and
// draws the strokes, stopping at the first non-zero status. Elements drawn
// before a failure stay in the contour.
template <size_t N>
uint16_t DrawOutline(LI_HEAD *head, LI_TAB_STRUCT **kont, const Stroke (&strokes)[N]) {
  *kont = nullptr;
  for (const Stroke &s : strokes) {
    if (const uint16_t status = Run(head, kont, s); status != PA_OK) return status;
  }
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiCreateRect(LI_HEAD *head, LI_TAB_STRUCT **kont, double a, double b) {
  if (kont == nullptr) return PA_INVALID;
  const Stroke strokes[] = {
      {Stroke::kMove, {-a, b}, {}},  {Stroke::kDraw, {a, b}, {}},  {Stroke::kDraw, {a, -b}, {}},
      {Stroke::kDraw, {-a, -b}, {}}, {Stroke::kDraw, {-a, b}, {}},
  };
  return DrawOutline(head, kont, strokes);
}

extern "C" uint16_t LiCreateRound(LI_HEAD *head, LI_TAB_STRUCT **kont, double a, double b,
                                  double r) {
  if (kont == nullptr) return PA_INVALID;
  // Clockwise from the top edge; when r equals a or b the straight edges
  // of zero length add nothing.
  const Stroke strokes[] = {
      {Stroke::kMove, {r - a, b}, {}},
      {Stroke::kDraw, {a - r, b}, {}},
      {Stroke::kArc, {a, b - r}, {a - r, b - r}},
      {Stroke::kDraw, {a, r - b}, {}},
      {Stroke::kArc, {a - r, -b}, {a - r, r - b}},
      {Stroke::kDraw, {r - a, -b}, {}},
      {Stroke::kArc, {-a, r - b}, {r - a, r - b}},
      {Stroke::kDraw, {-a, b - r}, {}},
      {Stroke::kArc, {r - a, b}, {r - a, b - r}},
  };
  return DrawOutline(head, kont, strokes);
}

extern "C" uint16_t LiCreateCircle(const GE_POINT *cen, double r, uint16_t dir, LI_TAB_STRUCT *e) {
  if (cen == nullptr || e == nullptr) return PA_INVALID;
  e->rad = r;
  e->mp = *cen;
  e->ap = e->ep = {cen->x + r, cen->y};
  // Unlike LiArc, 2 means clockwise here and every other code
  // counter-clockwise.
  e->type = dir == 2 ? LI_ARC_CW : LI_ARC_CCW;
  return LiElemExpand(e);
}

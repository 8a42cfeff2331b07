// Cutting contours at the crossings of a list: finding the piece of an
// already cut element that carries a point, and the cuts themselves.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Whether e carries p. Lines use the on-element test (10 x tol across the
// carrier); arcs admit every angle when their end angles are equal, as a
// cut full circle may have them.
bool Carries(const LI_TAB_STRUCT &e, GE_POINT p, double tol) {
  if (IsLine(e)) return GePtOnElem(&e, &p) != 0;
  if (std::fabs(Dist(p, e.mp) - std::fabs(e.rad)) >= tol) return false;
  if (CoincideByDistance(p, e.ep, tol) || CoincideByDistance(p, e.ap, tol)) return true;
  if (CoincidePerAxis(e.ap, e.ep, tol)) return true;
  return AngleInRange(Angle(p - e.mp), RangeOf(e), Bounds::kInclusive, EqualEnds::kFullTurn);
}

uint16_t SeekPt(LI_TAB_STRUCT *start, GE_POINT p, LI_TAB_STRUCT *&out) {
  out = start;
  if (start == nullptr) return PA_IMPOSSIBLE;
  const double tol = Tol();
  LI_TAB_STRUCT *e = start;
  do {
    if (Carries(*e, p, tol)) {
      // A point at a joint belongs to the element that ends there.
      out = CoincidePerAxis(p, e->ap, tol) && Carries(*e->prev, p, tol) ? e->prev : e;
      return PA_OK;
    }
    e = e->prev;
  } while (e != start);
  return PA_IMPOSSIBLE;
}

// Cuts the piece of elem that carries pt so that a piece ends there, and
// makes elem that piece. A real cut sets bit in flags and makes loc an
// end code; so does a point inside the element that lies within tol of an
// end, where nothing is cut: the crossing sits at that joint all the same,
// and FlCrossSetPt must move the joint exactly onto it, or the loops keep
// a gap there. *start follows when the cut element was the contour's first.
// A cut arc of radius below tol is made all the same and its status
// returned after the bookkeeping.
uint16_t CutAt(LI_HEAD *head, GE_POINT pt, LI_TAB_STRUCT *&elem, uint16_t &loc, uint32_t &flags,
               uint32_t bit, LI_TAB_STRUCT **start) {
  LI_TAB_STRUCT *e = nullptr;
  if (const uint16_t st = SeekPt(elem, pt, e); st != PA_OK) return st;
  LI_TAB_STRUCT *before = e->prev;
  LI_TAB_STRUCT *piece = nullptr;
  const uint16_t st = LiElemTeilen(head, e, &piece, &pt);
  if (piece == nullptr) return st;
  const bool cut = piece != before && piece != e;
  if (cut) flags |= bit;
  if (cut || loc == GE_INSIDE) loc = GE_AT_END;
  if (start != nullptr && *start == e) *start = piece;
  elem = piece;
  return st;
}

uint16_t SplitCross(LI_HEAD *head, GE_CROSS *list, int last, uint32_t &flags, LI_TAB_STRUCT **a,
                    LI_TAB_STRUCT **b) {
  flags = 0;
  for (int i = 0; i <= last; ++i) {
    GE_CROSS &c = list[i];
    if (c.loc_a == GE_AT_START) c.elem_a = c.elem_a->prev;
    if (c.loc_b == GE_AT_START) c.elem_b = c.elem_b->prev;
  }
  for (int i = 0; i <= last; ++i) {
    GE_CROSS &c = list[i];
    if (const uint16_t st = CutAt(head, c.pt, c.elem_a, c.loc_a, flags, 1, a); st != PA_OK)
      return st;
    if (const uint16_t st = CutAt(head, c.pt, c.elem_b, c.loc_b, flags, 2, b); st != PA_OK)
      return st;
  }
  for (int i = 0; i <= last; ++i) {
    list[i].next_a = list[i].elem_a->next;
    list[i].next_b = list[i].elem_b->next;
  }
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlSeekPt(LI_TAB_STRUCT *start, const GE_POINT *p, LI_TAB_STRUCT **out) {
  if (p == nullptr || out == nullptr) return PA_IMPOSSIBLE;
  return SeekPt(start, *p, *out);
}

extern "C" uint16_t FlSplitCross(LI_HEAD *head, GE_CROSS *list, int16_t last, uint32_t *flags,
                                 LI_TAB_STRUCT **a, LI_TAB_STRUCT **b) {
  if (head == nullptr || flags == nullptr || a == nullptr || (list == nullptr && last >= 0))
    return PA_INVALID;
  return SplitCross(head, list, last, *flags, a, b);
}

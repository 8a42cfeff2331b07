// Merging runs of elements that continue one another, and the
// process-wide choose function that decides whose payload a merged
// element keeps. This file owns that function.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Shared by every store and thread, without a lock: callers set it before
// concurrent use and leave it alone.
LI_CRUNCH_CHOOSE g_choose = nullptr;

// One arc covers at most a full turn: two arcs whose turns add up to more
// (beyond tol along the circle) stay apart, since the merged arc would
// silently lose the excess. A full circle covers a full turn already, so
// it never merges with a neighbour; arcs that make up exactly one turn
// merge into a full circle.
bool FitsOneTurn(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &n, double tol) {
  const double excess = CoveredSweep(e, tol) + CoveredSweep(n, tol) - kTwoPi;
  return excess * std::fabs(e.rad) < tol;
}

// n continues e: same type, same carrier and sense, and no gap between.
bool Continues(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &n, double tol) {
  if (n.type != e.type) return false;
  // 2: parallel (or concentric) with the same sense; 1: one of them is
  // point-like and merging it changes no shape.
  const uint16_t parallel = GeElemTestParallel(&e, &n);
  if (parallel != 1 && parallel != 2) return false;
  if (IsArc(e) && !FitsOneTurn(e, n, tol)) return false;
  return CoincidePerAxis(e.ep, n.ap, tol);
}

void Absorb(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT *n) {
  if (g_choose != nullptr && g_choose(e, n) != e) {
    e->attr_val = n->attr_val;
    e->attr_id = n->attr_id;
    e->no = n->no;
  }
  e->ep = n->ep;
  LiElemExpand(e);
  e->mark = (e->mark != 0 && n->mark != 0) ? 1 : 0;
  // n is never the contour's first element, so no handle moves.
  LI_TAB_STRUCT *chain = e;
  LiDel(head, &chain, n);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiCrunch(LI_HEAD *head, LI_TAB_STRUCT *k) {
  if (k == nullptr) return PA_OK;
  if (head == nullptr) return PA_INVALID;
  const double tol = Tol();
  LI_TAB_STRUCT *e = k;
  do {
    // Nothing merges across the first element.
    while (e->next != k && Continues(*e, *e->next, tol)) Absorb(head, e, e->next);
    e = e->next;
  } while (e != k);
  return PA_OK;
}

extern "C" LI_CRUNCH_CHOOSE LiKontSetChooseForCrunchCB(LI_CRUNCH_CHOOSE choose) {
  const LI_CRUNCH_CHOOSE previous = g_choose;
  g_choose = choose;
  return previous;
}

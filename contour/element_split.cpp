// Cutting an element in two at a point. LiElemSplit keeps the first piece
// in the element and chains the second after it; LiElemTeilen keeps the
// second piece and chains the first before it, and corrects arc radii.
#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// A whole-record copy of e (payload, number and mark included) as a
// one-element chain, or null when the store cannot grow.
LI_TAB_STRUCT *Duplicate(LI_HEAD *head, const LI_TAB_STRUCT &e) {
  LI_TAB_STRUCT *copy = LiNewNoInit(head);
  if (copy == nullptr) return nullptr;
  *copy = e;
  copy->next = copy->prev = copy;
  return copy;
}

uint16_t SplitAfter(LI_HEAD *head, LI_TAB_STRUCT &e, LI_TAB_STRUCT *&out, GE_POINT p) {
  const double tol = Tol();
  if (CoincidePerAxis(p, e.ap, tol)) {
    out = &e;
    return PA_OK;
  }
  if (CoincidePerAxis(p, e.ep, tol)) {
    out = e.next;
    return PA_OK;
  }
  LI_TAB_STRUCT *second = Duplicate(head, e);
  if (second == nullptr) {
    out = nullptr;
    return PA_NO_RECORD;
  }
  second->ap = p;
  e.ep = p;
  // A piece may come out degenerate; it is kept all the same.
  LiElemExpand(&e);
  LiElemExpand(second);
  LiChain(&e, second);
  out = second;
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiElemSplit(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT **out,
                                const GE_POINT *p) {
  if (e == nullptr || out == nullptr || p == nullptr) return PA_INVALID;
  return SplitAfter(head, *e, *out, *p);
}

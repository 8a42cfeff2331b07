// Link surgery on circular chains and the store internals that the chain
// and copy operations share.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// Links e's neighbours to each other and makes e a one-element chain.
inline void Unlink(LI_TAB_STRUCT *e) {
  e->prev->next = e->next;
  e->next->prev = e->prev;
  e->next = e->prev = e;
}

// Splices the chain holding b directly after a: a, b, ..., b.prev, a.next.
inline void SpliceAfter(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  if (a == b) return;
  LI_TAB_STRUCT *an = a->next;
  LI_TAB_STRUCT *bp = b->prev;
  a->next = b;
  b->prev = a;
  bp->next = an;
  an->prev = bp;
}

// Splices the chain holding b in front of a: a.prev, b, ..., b.prev, a.
inline void SpliceBefore(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  LI_TAB_STRUCT *ap = a->prev;
  LI_TAB_STRUCT *bp = b->prev;
  b->prev = ap;
  ap->next = b;
  a->prev = bp;
  bp->next = a;
}

// Appends the chain first..(first.prev) at the end of the contour *kont,
// or makes it the contour when *kont is null.
inline void Append(LI_TAB_STRUCT **kont, LI_TAB_STRUCT *first) {
  if (*kont == nullptr) {
    *kont = first;
  } else {
    SpliceBefore(*kont, first);
  }
}

// Store internals (store/cLI_list.cpp).
uint16_t Expand(LI_HEAD &head, uint16_t count);
LI_TAB_STRUCT *PopFree(LI_HEAD &head);
void SpliceIntoFree(LI_HEAD &head, LI_TAB_STRUCT *first);

}  // namespace polyarc

// Link surgery on circular chains and the store internals that the chain
// and copy operations share.
#pragma once

#include <cstdint>

#include "platform/block_allocator.h"
#include "polyarc/records.h"

namespace polyarc {

// Makes b the successor of a.
inline void Link(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  a->next = b;
  b->prev = a;
}

// Links e's neighbours to each other and makes e a one-element chain.
inline void Unlink(LI_TAB_STRUCT *e) {
  Link(e->prev, e->next);
  Link(e, e);
}

// Splices the chain holding b directly after a: a, b, ..., b.prev, a.next.
inline void SpliceAfter(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  if (a == b) return;
  LI_TAB_STRUCT *an = a->next;
  LI_TAB_STRUCT *bp = b->prev;
  Link(a, b);
  Link(bp, an);
}

// Splices the chain holding b in front of a: a.prev, b, ..., b.prev, a.
// When a and b are in one chain, this splits it in two.
inline void SpliceBefore(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  LI_TAB_STRUCT *ap = a->prev;
  LI_TAB_STRUCT *bp = b->prev;
  Link(ap, b);
  Link(bp, a);
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

// A hint that the walk along e's chain will soon read the record a few
// places further on in memory: long copies take their records in address
// order, so a chain of them mostly runs forwards through memory, and the
// loops cut from two copies run forwards through each in turn, which the
// processor's own prefetching follows poorly. A prefetch never faults, so
// a wrong guess costs only the hint.
inline void PrefetchAlong(const LI_TAB_STRUCT *e) {
  constexpr uintptr_t kAhead = 4 * sizeof(LI_TAB_STRUCT);
  __builtin_prefetch(
      reinterpret_cast<const void *>(reinterpret_cast<uintptr_t>(&e->next) + kAhead));
}

// Receives each element of a copy once it and its successor's start are
// in place, in chain order, so that a caller can finish the elements in
// the walk that copies them.
class CopyVisitor {
 public:
  virtual void Visit(LI_TAB_STRUCT *e) = 0;

 protected:
  ~CopyVisitor() = default;
};

// LiCopyBlock, handing every copied element to visitor (store/chain.cpp);
// count, when not 0, is ChainLength(first, last), already known.
LI_TAB_STRUCT *CopyChain(LI_HEAD &head, const LI_TAB_STRUCT *first, const LI_TAB_STRUCT *last,
                         CopyVisitor *visitor, uint32_t count = 0);

// The number of elements a copy of first..last holds: up to last, or once
// round the chain when last is not on it.
uint32_t ChainLength(const LI_TAB_STRUCT *first, const LI_TAB_STRUCT *last);

// Takes n records off the free list into records, in address order, so
// that copies made onto consecutive slices each run forwards through one
// stretch of memory. PA_NO_RECORD (every record back on the free list)
// when the store cannot grow, PA_NO_MEMORY when the array cannot be had.
uint16_t TakeSorted(LI_HEAD &head, uint32_t n, BlockVector<LI_TAB_STRUCT *> &records);

// Copies the n elements from first onto records already taken, in their
// order, closes the chain and hands each copy to visitor (may be null).
LI_TAB_STRUCT *CopyOnto(const LI_TAB_STRUCT *first, LI_TAB_STRUCT *const *records, uint32_t n,
                        CopyVisitor *visitor);

// Store internals (store/cLI_list.cpp).
uint16_t Expand(LI_HEAD &head, uint16_t count);
LI_TAB_STRUCT *PopFree(LI_HEAD &head, uint16_t grow_by);
void SpliceIntoFree(LI_HEAD &head, LI_TAB_STRUCT *first);

}  // namespace polyarc

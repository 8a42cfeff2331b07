// Joining chains, appending elements to contours, copying contours and
// checking their links.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <new>

#include "geom/predicates.h"
#include "platform/block_allocator.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

constexpr uint16_t kCopyBlock = 256;

// Copies the geometric fields, attr_val, attr_id and no of src into a
// one-element chain with mark cleared.
void CopyForInsert(LI_TAB_STRUCT *copy, const LI_TAB_STRUCT *src) {
  std::memcpy(static_cast<void *>(copy), src, offsetof(LI_TAB_STRUCT, next));
  copy->attr_val = src->attr_val;
  copy->attr_id = src->attr_id;
  copy->no = src->no;
  copy->mark = 0;
  copy->next = copy->prev = copy;
}

void VisitAll(LI_TAB_STRUCT *k, CopyVisitor *visitor) {
  if (visitor == nullptr) return;
  LI_TAB_STRUCT *e = k;
  do {
    visitor->Visit(e);
    e = e->next;
  } while (e != k);
}

// Long copies take their records in address order, so that walking the
// copy runs forwards through memory: earlier operations leave the free
// list shuffled, and at 10^5 elements a walk that jumps about costs more
// than all the geometry. Short copies, and any copy whose scratch array
// cannot be had, take the records as they come off the list.
constexpr uint32_t kSortedCopyMin = 1024;


// Overwrites dst's elements with src's, keeping dst's links; 0 only when
// both chains end together.
uint16_t CopyInPlace(const LI_TAB_STRUCT *src, LI_TAB_STRUCT *dst) {
  const LI_TAB_STRUCT *s = src;
  LI_TAB_STRUCT *d = dst;
  do {
    LI_TAB_STRUCT *const next = d->next;
    LI_TAB_STRUCT *const prev = d->prev;
    *d = *s;
    d->next = next;
    d->prev = prev;
    s = s->next;
    d = next;
  } while (s != src && d != dst);
  return (s == src && d == dst) ? PA_OK : PA_NO_MEMORY;
}

}  // namespace

// Stops when the walk comes back to first, so that a last outside the
// chain cannot run it forever.
uint32_t ChainLength(const LI_TAB_STRUCT *first, const LI_TAB_STRUCT *last) {
  uint32_t n = 1;
  for (const LI_TAB_STRUCT *src = first; src != last && src->next != first; src = src->next) ++n;
  return n;
}

// Each copy goes to the visitor while it is still in the cache.
LI_TAB_STRUCT *CopyOnto(const LI_TAB_STRUCT *first, LI_TAB_STRUCT *const *records, uint32_t n,
                        CopyVisitor *visitor) {
  const LI_TAB_STRUCT *src = first;
  for (uint32_t i = 0; i < n; ++i, src = src->next) {
    *records[i] = *src;
    if (i == 0) continue;
    Link(records[i - 1], records[i]);
    if (visitor != nullptr) visitor->Visit(records[i - 1]);
  }
  Link(records[n - 1], records[0]);
  if (visitor != nullptr) visitor->Visit(records[n - 1]);
  return records[0];
}

uint16_t TakeSorted(LI_HEAD &head, uint32_t n, BlockVector<LI_TAB_STRUCT *> &records) {
  records.clear();
  try {
    records.reserve(n);
  } catch (const std::bad_alloc &) {
    return PA_NO_MEMORY;
  }
  for (uint32_t i = 0; i < n; ++i) {
    LI_TAB_STRUCT *record = PopFree(head, kCopyBlock);
    if (record == nullptr) {
      for (LI_TAB_STRUCT *r : records) r->next = head.free, head.free = r;
      records.clear();
      return PA_NO_RECORD;
    }
    PrefetchAlong(record);  // the free list holds the loops last given back
    records.push_back(record);
  }
  std::sort(records.begin(), records.end(), std::less<LI_TAB_STRUCT *>());
  return PA_OK;
}

// Copies first..last; on failure every record taken goes back.
LI_TAB_STRUCT *CopyChain(LI_HEAD &head, const LI_TAB_STRUCT *first, const LI_TAB_STRUCT *last,
                         CopyVisitor *visitor, uint32_t count) {
  const uint32_t n = count != 0 ? count : ChainLength(first, last);
  if (n >= kSortedCopyMin) {
    BlockVector<LI_TAB_STRUCT *> records;
    const uint16_t status = TakeSorted(head, n, records);
    if (status == PA_OK) return CopyOnto(first, records.data(), n, visitor);
    if (status == PA_NO_RECORD) return nullptr;
  }
  LI_TAB_STRUCT *copy_first = nullptr, *copy_last = nullptr;
  const LI_TAB_STRUCT *src = first;
  for (uint32_t i = 0; i < n; ++i, src = src->next) {
    LI_TAB_STRUCT *copy = PopFree(head, kCopyBlock);
    if (copy == nullptr) {
      if (copy_first != nullptr) {
        Link(copy_last, copy_first);
        SpliceIntoFree(head, copy_first);
      }
      return nullptr;
    }
    *copy = *src;
    if (copy_last != nullptr) Link(copy_last, copy);  // the first copy's prev comes at the close
    if (copy_first == nullptr) copy_first = copy;
    copy_last = copy;
  }
  Link(copy_last, copy_first);
  VisitAll(copy_first, visitor);
  return copy_first;
}

}  // namespace polyarc

using namespace polyarc;

extern "C" void LiChain(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  if (a != nullptr && b != nullptr) SpliceAfter(a, b);
}

extern "C" uint16_t LiChain2(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *chain) {
  if (kont == nullptr) return PA_INVALID;
  if (chain == nullptr) return PA_OK;
  if (*kont == nullptr) {
    *kont = chain;
    return PA_OK;
  }
  const GE_POINT end = (*kont)->prev->ep;
  if (!CoincidePerAxis(end, chain->ap, Tol())) {
    LI_TAB_STRUCT *bridge = nullptr;
    if (const uint16_t status = LiEnlarge(head, kont, &bridge); status != PA_OK) return status;
    bridge->type = LI_MOVE;
    bridge->ap = end;
    bridge->ep = chain->ap;
  }
  SpliceAfter((*kont)->prev, chain);
  return PA_OK;
}

extern "C" uint16_t LiEnlarge(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT **out) {
  if (kont == nullptr || out == nullptr) return PA_INVALID;
  LI_TAB_STRUCT *e = nullptr;
  if (const uint16_t status = LiNew(head, &e); status != PA_OK) return status;
  Append(kont, e);
  *out = e;
  return PA_OK;
}

extern "C" uint16_t LiInsertElem2(LI_HEAD *head, LI_TAB_STRUCT **kont, const LI_TAB_STRUCT *e) {
  if (kont == nullptr || e == nullptr) return PA_INVALID;
  LI_TAB_STRUCT *copy = LiNewNoInit(head);
  if (copy == nullptr) return PA_NO_MEMORY;
  CopyForInsert(copy, e);
  Append(kont, copy);
  return PA_OK;
}

extern "C" uint16_t LiInsertElem(LI_HEAD *head, LI_TAB_STRUCT **kont, const LI_TAB_STRUCT *e) {
  if (kont == nullptr || e == nullptr) return PA_INVALID;
  // The type is ignored on purpose: zero-length moves and full circles are
  // skipped too; callers that need them use LiInsertElem2.
  if (CoincidePerAxis(e->ap, e->ep, Tol())) return PA_OK;
  return LiInsertElem2(head, kont, e);
}

extern "C" LI_TAB_STRUCT *LiCopyBlock(LI_HEAD *head, const LI_TAB_STRUCT *first,
                                      const LI_TAB_STRUCT *last) {
  if (head == nullptr || first == nullptr) return nullptr;
  return CopyChain(*head, first, last, nullptr);
}

extern "C" uint16_t LiCopy(LI_HEAD *head, const LI_TAB_STRUCT *src, LI_TAB_STRUCT **dst) {
  if (dst == nullptr) return PA_INVALID;
  if (*dst != nullptr) {
    if (src == nullptr) return PA_NO_MEMORY;
    return CopyInPlace(src, *dst);
  }
  if (src == nullptr) return PA_OK;
  *dst = LiCopyBlock(head, src, src->prev);
  return *dst != nullptr ? PA_OK : PA_NO_RECORD;
}

extern "C" LI_TAB_STRUCT *LiSucc(const LI_TAB_STRUCT *e) {
  return e != nullptr ? e->next : nullptr;
}

extern "C" LI_TAB_STRUCT *LiPred(const LI_TAB_STRUCT *e) {
  return e != nullptr ? e->prev : nullptr;
}

extern "C" int LiCheck(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return 0;
  // Terminates on any corruption: an element entered a second time from a
  // different predecessor fails the prev test, so the first repeat is k.
  const LI_TAB_STRUCT *e = k;
  do {
    PrefetchAlong(e);
    const LI_TAB_STRUCT *n = e->next;
    if (n == nullptr || n->prev != e) return 0;
    e = n;
  } while (e != k);
  return 1;
}

extern "C" uint16_t LiCheckValid(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return PA_OK;
  const double tol = Tol();
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type == LI_MOVE) return PA_IMPOSSIBLE;
    if (IsArc(*e) && e->rad < -tol) return PA_IMPOSSIBLE;
    e = e->next;
  } while (e != k);
  return PA_OK;
}

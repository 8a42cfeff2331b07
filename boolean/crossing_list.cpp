// Crossing lists: entering one crossing in order along A's element, the
// lists of two contours and of one contour with itself, and releasing
// crossing and contour lists.
#include <algorithm>
#include <cstring>

#include "boolean/crossing_list.h"
#include "geom/predicates.h"
#include "platform/memory.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Two consecutive elements of one contour meeting at their common joint.
bool IsOwnJoint(const IsectPoint &pt, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b) {
  return (a == b->next && pt.pos1 == GE_AT_START && pt.pos2 == GE_AT_END) ||
         (a == b->prev && pt.pos1 == GE_AT_END && pt.pos2 == GE_AT_START);
}

// Whether the entry lies farther along a than the parameter par, with a
// tolerance of tol along the element (converted to an angle on arcs).
bool LiesFarther(const LI_TAB_STRUCT &a, const GE_CROSS &entry, double par, double tol) {
  if (IsLine(a)) return entry.par_a - tol > par;
  return SweepInSense(a.type, a.ang_ap, par) <
         SweepInSense(a.type, a.ang_ap, entry.par_a) - tol / a.rad;
}

// The first entry from first on that lies at the point or farther along
// a; last + 1 when there is none.
int InsertionIndex(const GE_CROSS *list, int first, int last, const IsectPoint &pt,
                   const LI_TAB_STRUCT &a, double tol) {
  const GE_POINT p{pt.x, pt.y};
  for (int i = std::max(first, 0); i <= last; ++i) {
    if (CoincidePerAxis(list[i].pt, p, tol) || LiesFarther(a, list[i], pt.par1, tol)) return i;
  }
  return last + 1;
}

// The same crossing reached again through a neighbour of B's element. The
// entry before k rejects an identical B element too, the entry at k only
// B's neighbours: the two checks differ on purpose.
bool IsDuplicate(const GE_CROSS *list, int k, int last, const IsectPoint &pt,
                 const LI_TAB_STRUCT *b, double tol) {
  const GE_POINT p{pt.x, pt.y};
  if (k >= 1 && CoincidePerAxis(list[k - 1].pt, p, tol)) {
    const LI_TAB_STRUCT *before = list[k - 1].elem_b;
    if (b == before || b == before->prev || b == before->next) return true;
  }
  if (k <= last && CoincidePerAxis(list[k].pt, p, tol)) {
    const LI_TAB_STRUCT *at = list[k].elem_b;
    if (at == b->next || at == b->prev) return true;
  }
  return false;
}

// Makes room for one more entry, growing by FL_CROSS_STEP entries.
uint16_t GrowForOne(CrossListRef ref) {
  if (ref.last + 1 < ref.capacity) return PA_OK;
  const int capacity = ref.list == nullptr ? FL_CROSS_STEP : ref.capacity + FL_CROSS_STEP;
  if (capacity > FL_CROSS_MAX) return PA_LIST_FULL;
  if (const uint16_t st = GrowBlock(ref.list, static_cast<size_t>(capacity), false); st != PA_OK)
    return st;
  ref.capacity = static_cast<uint16_t>(capacity);
  return PA_OK;
}

GE_CROSS MakeEntry(const IsectPoint &pt, LI_TAB_STRUCT *elem_a, LI_TAB_STRUCT *elem_b) {
  GE_CROSS c{};
  c.pt = {pt.x, pt.y};
  c.par_a = pt.par1;
  c.par_b = pt.par2;
  c.loc_a = pt.pos1;
  c.loc_b = pt.pos2;
  c.elem_a = elem_a;
  c.elem_b = elem_b;
  return c;
}

// While the last entry repeats entry 0: the crossing at A's closing joint
// is found at A's last element and again at its first.
void TrimClosingJoint(const GE_CROSS *list, int16_t &last, double tol) {
  while (last > 0 && CoincidePerAxis(list[last].pt, list[0].pt, tol)) --last;
}

// Crosses a with every element of the chain from b in chain order.
uint16_t CrossWithChain(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, int16_t first, CrossListRef ref,
                        double tol) {
  const GE_BOX box = WidenedBox(a->box, tol);
  LI_TAB_STRUCT *eb = b;
  do {
    if (eb->type != LI_MOVE && CrossBoxesOverlap(box, eb->box)) {
      if (const uint16_t st = CrossPair(ref, first, a, eb); st != PA_OK) return st;
    }
    eb = eb->next;
  } while (eb != b);
  return PA_OK;
}

uint16_t CrossContours(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, CrossListRef ref) {
  const double tol = Tol();
  LI_TAB_STRUCT *ea = a;
  do {
    if (ea->type != LI_MOVE) {
      const int16_t first = static_cast<int16_t>(ref.last + 1);
      if (const uint16_t st = CrossWithChain(ea, b, first, ref, tol); st != PA_OK) return st;
    }
    ea = ea->next;
  } while (ea != a);
  return PA_OK;
}

// The first element of a's neighbourhood: up to n steps back while the
// chain is joined.
LI_TAB_STRUCT *NeighbourhoodStart(LI_TAB_STRUCT *a, int n, double tol) {
  LI_TAB_STRUCT *b = a;
  for (int step = 0; step < n && CoincidePerAxis(b->ap, b->prev->ep, tol); ++step) b = b->prev;
  return b;
}

uint16_t CrossNeighbours(LI_TAB_STRUCT *a, int n, int16_t first, CrossListRef ref, double tol) {
  const GE_BOX box = WidenedBox(a->box, tol);
  LI_TAB_STRUCT *b = NeighbourhoodStart(a, n, tol);
  for (int remaining = 2 * n + 1; remaining > 0; --remaining) {
    if (b->type != LI_MOVE && CrossBoxesOverlap(box, b->box)) {
      if (const uint16_t st = CrossPair(ref, first, a, b); st != PA_OK) return st;
    }
    // A gap ends the neighbourhood.
    if (!CoincidePerAxis(b->ep, b->next->ap, tol)) break;
    b = b->next;
  }
  return PA_OK;
}

uint16_t CrossSelf(LI_TAB_STRUCT *k, int n, CrossListRef ref) {
  const double tol = Tol();
  LI_TAB_STRUCT *a = k;
  do {
    if (a->type != LI_MOVE) {
      const int16_t first = static_cast<int16_t>(ref.last + 1);
      const uint16_t st = n > 0 ? CrossNeighbours(a, n, first, ref, tol)
                                : CrossWithChain(a, k, first, ref, tol);
      if (st != PA_OK) return st;
    }
    a = a->next;
  } while (a != k);
  return PA_OK;
}

}  // namespace

GE_BOX WidenedBox(const GE_BOX &box, double tol) {
  const double w = 10.0 * tol;
  return {box.xmin - w, box.ymin - w, box.xmax + w, box.ymax + w};
}

bool CrossBoxesOverlap(const GE_BOX &a, const GE_BOX &b) {
  return !(std::max(a.xmin, b.xmin) > std::min(a.xmax, b.xmax) ||
           std::max(a.ymin, b.ymin) > std::min(a.ymax, b.ymax));
}

uint16_t NewCross(CrossListRef ref, int16_t first, const IsectPoint &pt, LI_TAB_STRUCT *elem_a,
                  LI_TAB_STRUCT *elem_b) {
  if (IsOwnJoint(pt, elem_a, elem_b)) return PA_OK;
  const double tol = Tol();
  const int k = InsertionIndex(ref.list, first, ref.last, pt, *elem_a, tol);
  if (IsDuplicate(ref.list, k, ref.last, pt, elem_b, tol)) return PA_OK;
  if (const uint16_t st = GrowForOne(ref); st != PA_OK) return st;
  GE_CROSS *list = ref.list;
  std::memmove(list + k + 1, list + k, static_cast<size_t>(ref.last + 1 - k) * sizeof(GE_CROSS));
  list[k] = MakeEntry(pt, elem_a, elem_b);
  ++ref.last;
  return PA_OK;
}

uint16_t CrossPair(CrossListRef ref, int16_t first, LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  IsectPoint i1{}, i2{};
  const uint16_t count = GeCross(a, b, &i1, &i2);
  const auto on_both = [](const IsectPoint &i) {
    return i.pos1 <= GE_INSIDE && i.pos2 <= GE_INSIDE;
  };
  if (count >= 1 && on_both(i1)) {
    if (const uint16_t st = NewCross(ref, first, i1, a, b); st != PA_OK) return st;
  }
  if (count >= 2 && on_both(i2)) return NewCross(ref, first, i2, a, b);
  return PA_OK;
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlNewCross(GE_CROSS **list, uint16_t *capacity, int16_t *last, int16_t first,
                               const IsectPoint *pt, LI_TAB_STRUCT *elem_a,
                               LI_TAB_STRUCT *elem_b) {
  if (list == nullptr || capacity == nullptr || last == nullptr || pt == nullptr ||
      elem_a == nullptr || elem_b == nullptr)
    return PA_INVALID;
  if (*last >= 0 && *list == nullptr) return PA_INVALID;
  return NewCross({*list, *capacity, *last}, first, *pt, elem_a, elem_b);
}

extern "C" uint16_t FlCrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, GE_CROSS **list,
                                int16_t *last) {
  if (list == nullptr || last == nullptr) return PA_INVALID;
  *last = FL_EMPTY;
  if (a == nullptr) return PA_OK;
  uint16_t capacity = 0;
  const CrossListRef ref{*list, capacity, *last};
  const bool self = b == nullptr || b == a;
  const uint16_t st = CrossContours(a, self ? a : b, ref);
  // Self-crossing lists keep both finds of the closing joint.
  if (st == PA_OK && !self) TrimClosingJoint(*list, *last, Tol());
  return st;
}

extern "C" uint16_t FlCrossListSingle(LI_TAB_STRUCT *k, GE_CROSS **list, int16_t *last,
                                      int16_t n) {
  if (list == nullptr || last == nullptr) return PA_INVALID;
  *last = FL_EMPTY;
  if (k == nullptr) return PA_OK;
  uint16_t capacity = 0;
  return CrossSelf(k, n, {*list, capacity, *last});
}

extern "C" void FlFreeCross(GE_CROSS **list) {
  if (list != nullptr) FreeBlock(*list);
}

extern "C" void FlFreeList(LI_HEAD *head, LI_TAB_STRUCT ***list, int16_t last) {
  if (list == nullptr || *list == nullptr) return;
  // Without a store the contours cannot go back; the array is freed all
  // the same.
  if (head != nullptr)
    for (int i = 0; i <= last; ++i) LiRemove(head, &(*list)[i]);
  FreeBlock(*list);
}

// Entering one crossing in a crossing list in order along A's element,
// crossing one pair of elements, and releasing crossing and contour
// lists.
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

// Whether the entry lies farther along a than the position along, by more
// than the tolerance along a.
bool LiesFarther(const LI_TAB_STRUCT &a, const GE_CROSS &entry, double along, double tol) {
  return along < PositionAlong(a, entry.par_a) - ToleranceAlong(a, tol);
}

// The first entry from first on that lies at the point or farther along
// a; last + 1 when there is none.
int InsertionIndex(const GE_CROSS *list, int first, int last, const IsectPoint &pt,
                   const LI_TAB_STRUCT &a, double tol) {
  const GE_POINT p{pt.x, pt.y};
  const double along = PositionAlong(a, pt.par1);
  for (int i = std::max(first, 0); i <= last; ++i) {
    if (CoincidePerAxis(list[i].pt, p, tol) || LiesFarther(a, list[i], along, tol)) return i;
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

// The capacity after the next growth: one step more, or half as much
// again in whole steps, but not past the last whole step within
// FL_CROSS_MAX, so that a list fills up at the same entry either way.
// A full list's next capacity passes FL_CROSS_MAX.
int NextCapacity(const CrossListRef &ref) {
  constexpr int kFull = FL_CROSS_MAX / FL_CROSS_STEP * FL_CROSS_STEP;
  if (ref.list == nullptr) return FL_CROSS_STEP;
  if (ref.capacity >= kFull) return ref.capacity + FL_CROSS_STEP;
  const int half = ref.capacity / 2 / FL_CROSS_STEP * FL_CROSS_STEP;
  const int step = ref.by_half ? std::max<int>(FL_CROSS_STEP, half) : FL_CROSS_STEP;
  return std::min(ref.capacity + step, kFull);
}

// Makes room for one more entry.
uint16_t GrowForOne(CrossListRef ref) {
  if (ref.last + 1 < ref.capacity) return PA_OK;
  const int capacity = NextCapacity(ref);
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

}  // namespace

double PositionAlong(const LI_TAB_STRUCT &a, double par) {
  return IsLine(a) ? par : SweepInSense(a.type, a.ang_ap, par);
}

double ToleranceAlong(const LI_TAB_STRUCT &a, double tol) { return IsLine(a) ? tol : tol / a.rad; }

bool ElementRun::NothingAtOrBeyond(const LI_TAB_STRUCT &a, const IsectPoint &pt, double tol) const {
  if (empty_) return true;
  if (PositionAlong(a, pt.par1) < farthest_ - ToleranceAlong(a, tol)) return false;
  return pt.x - points_.xmax >= tol || points_.xmin - pt.x >= tol || pt.y - points_.ymax >= tol ||
         points_.ymin - pt.y >= tol;
}

void ElementRun::Add(const LI_TAB_STRUCT &a, const GE_CROSS &entry) {
  const double along = PositionAlong(a, entry.par_a);
  if (empty_) {
    empty_ = false;
    farthest_ = along;
    points_ = {entry.pt.x, entry.pt.y, entry.pt.x, entry.pt.y};
    return;
  }
  // Comparisons leave NaN out: such an entry is never at a point or
  // farther in the scan either.
  if (along > farthest_) farthest_ = along;
  if (entry.pt.x < points_.xmin) points_.xmin = entry.pt.x;
  if (entry.pt.x > points_.xmax) points_.xmax = entry.pt.x;
  if (entry.pt.y < points_.ymin) points_.ymin = entry.pt.y;
  if (entry.pt.y > points_.ymax) points_.ymax = entry.pt.y;
}

uint16_t NewCross(CrossListRef ref, int16_t first, const IsectPoint &pt, LI_TAB_STRUCT *elem_a,
                  LI_TAB_STRUCT *elem_b, ElementRun *run) {
  if (IsOwnJoint(pt, elem_a, elem_b)) return PA_OK;
  const double tol = Tol();
  const int k = run != nullptr && run->NothingAtOrBeyond(*elem_a, pt, tol)
                    ? ref.last + 1
                    : InsertionIndex(ref.list, first, ref.last, pt, *elem_a, tol);
  if (IsDuplicate(ref.list, k, ref.last, pt, elem_b, tol)) return PA_OK;
  if (const uint16_t st = GrowForOne(ref); st != PA_OK) return st;
  GE_CROSS *list = ref.list;
  std::memmove(list + k + 1, list + k, static_cast<size_t>(ref.last + 1 - k) * sizeof(GE_CROSS));
  list[k] = MakeEntry(pt, elem_a, elem_b);
  ++ref.last;
  if (run != nullptr) run->Add(*elem_a, list[k]);
  return PA_OK;
}

uint16_t CrossPair(CrossListRef ref, int16_t first, LI_TAB_STRUCT *a, LI_TAB_STRUCT *b,
                   ElementRun &run) {
  IsectPoint i1{}, i2{};
  const uint16_t count = GeCross(a, b, &i1, &i2);
  const auto on_both = [](const IsectPoint &i) {
    return i.pos1 <= GE_INSIDE && i.pos2 <= GE_INSIDE;
  };
  if (count >= 1 && on_both(i1)) {
    if (const uint16_t st = NewCross(ref, first, i1, a, b, &run); st != PA_OK) return st;
  }
  if (count >= 2 && on_both(i2)) return NewCross(ref, first, i2, a, b, &run);
  return PA_OK;
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlNewCross(GE_CROSS **list, uint16_t *capacity, int16_t *last, int16_t first,
                               const IsectPoint *pt, LI_TAB_STRUCT *elem_a, LI_TAB_STRUCT *elem_b) {
  if (list == nullptr || capacity == nullptr || last == nullptr || pt == nullptr ||
      elem_a == nullptr || elem_b == nullptr)
    return PA_INVALID;
  if (*last >= 0 && *list == nullptr) return PA_INVALID;
  return NewCross({*list, *capacity, *last}, first, *pt, elem_a, elem_b, nullptr);
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

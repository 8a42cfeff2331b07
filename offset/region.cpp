// The offset of the region a closed contour bounds: the raw parallel offset,
// cleared of the runs that lie nearer the source than the distance, cut at
// its self-crossings, and of its loops those that lie at the distance.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>

#include "boolean/crossing_list.h"
#include "boolean/loop_list.h"
#include "geom/predicates.h"
#include "offset/source_bands.h"
#include "platform/block_allocator.h"
#include "platform/memory.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// In tolerances: how much nearer than the distance a stretch of the raw
// offset must lie to be cleared, and how much nearer a kept loop's sample
// may lie (the clean-up moves element ends at crossings by about a
// tolerance). The first is the larger, so that nothing cleared could
// belong to a loop that is kept.
constexpr double kClearedDepth = 100.0;
constexpr double kKeptDepth = 10.0;

// ---- Cutting off the buried runs -------------------------------------------
//
// A raw element is buried when the source's bands prove every point of it
// nearer than the reach d - kClearedDepth tol to the source: none of it
// lies on the true offset.
//
// Where the raw offset leaves the distance along the end of an element A,
// runs buried, and comes back along the start of an element B that
// crosses A at z, the clean-up would cut the loop z - A's end - the run -
// B's start - z off at z. That loop lies nearer than the distance
// everywhere but at z (the run is buried, and the middles of A's end and
// B's start are checked), so it is never kept, and whatever crosses it
// crosses it there, where no kept loop passes. Cutting it off first
// leaves the kept loops as they were, and spares the clean-up a crossing:
// a jagged rim's raw offset crosses itself a few times per vertex, mostly
// in such loops.

class Clearing {
 public:
  Clearing(LI_HEAD *head, const SourceBands &bands, double d, double tol)
      : head_(head), bands_(bands), d_(d), reach_(d - kClearedDepth * tol), tol_(tol) {}

  // Cuts the buried loops off the raw offset *raw, whose elements are
  // `elements` in chain order. Returns false when every element is buried
  // (nothing of the raw offset lies at the distance); *raw is then left
  // whole.
  bool Run(const BlockVector<LI_TAB_STRUCT *> &elements, LI_TAB_STRUCT **raw);

 private:
  bool LeftOut(const LI_TAB_STRUCT &e, GE_POINT from, GE_POINT to) const;
  void CutOff(LI_TAB_STRUCT *a, LI_TAB_STRUCT *first, LI_TAB_STRUCT *last, LI_TAB_STRUCT *b);

  LI_HEAD *head_;
  const SourceBands &bands_;
  double d_;
  double reach_;
  double tol_;
};

// The elements in chain order, without the arcs whose ends coincide in a
// chain of several: tiny arcs the offset shrank, which as full circles
// would cross the offset far from where they are.
BlockVector<LI_TAB_STRUCT *> Number(LI_HEAD *head, LI_TAB_STRUCT **k, double tol) {
  BlockVector<LI_TAB_STRUCT *> elements;
  const uint32_t n = LiCountElem(*k);
  elements.reserve(n);
  LI_TAB_STRUCT *e = *k;
  for (uint32_t i = 0; i < n; ++i) {
    LI_TAB_STRUCT *next = e->next;
    if (IsFullCircle(*e, tol) && (*k)->next != *k) {
      LiDel(head, k, e);
    } else {
      elements.push_back(e);
    }
    e = next;
  }
  return elements;
}

// Whether the piece of e from `from` to `to` would be left out: it is
// shorter than the tolerance, or its middle lies nearer than a kept loop
// may.
bool Clearing::LeftOut(const LI_TAB_STRUCT &e, GE_POINT from, GE_POINT to) const {
  if (CoincidePerAxis(from, to, tol_)) return true;
  LI_TAB_STRUCT piece = e;
  piece.ap = from;
  piece.ep = to;
  LiElemExpand(&piece);
  return bands_.Nearer(LiElemPt(&piece, 0.5), d_ - kKeptDepth * tol_);
}

// Moves e's end (at_end) or start onto p, on its circle for an arc.
void MoveEnd(LI_TAB_STRUCT *e, GE_POINT p, bool at_end) {
  (at_end ? e->ep : e->ap) = p;
  if (IsArc(*e)) LiRadKorr(e);
  LiElemExpand(e);
}

// The loop a - first..last - b cut off at the crossing of a and b nearest
// the run, when there is one and the loop would be left out.
void Clearing::CutOff(LI_TAB_STRUCT *a, LI_TAB_STRUCT *first, LI_TAB_STRUCT *last,
                      LI_TAB_STRUCT *b) {
  if (a == b || a->type == LI_MOVE || b->type == LI_MOVE) return;
  IsectPoint found[2];
  const uint16_t count = GeCross(a, b, &found[0], &found[1]);
  const IsectPoint *z = nullptr;
  for (uint16_t i = 0; i < count; ++i) {
    const IsectPoint &p = found[i];
    if (p.pos1 > GE_INSIDE || p.pos2 > GE_INSIDE) continue;
    if (z == nullptr || PositionAlong(*a, p.par1) > PositionAlong(*a, z->par1)) z = &p;
  }
  if (z == nullptr) return;
  // The crossing nearest the run on a must be the nearest on b too.
  for (uint16_t i = 0; i < count; ++i) {
    const IsectPoint &p = found[i];
    if (&p != z && p.pos1 <= GE_INSIDE && p.pos2 <= GE_INSIDE &&
        PositionAlong(*b, p.par2) < PositionAlong(*b, z->par2)) {
      return;
    }
  }
  const GE_POINT at{z->x, z->y};
  if (CoincidePerAxis(at, a->ap, tol_) || CoincidePerAxis(at, b->ep, tol_)) return;
  if (!LeftOut(*a, at, a->ep) || !LeftOut(*b, b->ap, at)) return;
  LI_TAB_STRUCT *rest = a;
  LiDelBlock(head_, &rest, first, last);
  MoveEnd(a, at, true);
  MoveEnd(b, at, false);
}

bool Clearing::Run(const BlockVector<LI_TAB_STRUCT *> &elements, LI_TAB_STRUCT **raw) {
  const size_t n = elements.size();
  BlockVector<uint8_t> buried;
  bands_.Bury(elements, reach_, buried);
  const size_t start = std::find(buried.begin(), buried.end(), 0) - buried.begin();
  if (start == n) return false;
  *raw = elements[start];  // never cut off: the walk starts and ends there
  LI_TAB_STRUCT *before = elements[start], *first = nullptr;
  for (size_t j = 1; j <= n; ++j) {
    const size_t i = (start + j) % n;
    if (buried[i] != 0) {
      if (first == nullptr) first = elements[i];
      continue;
    }
    if (first != nullptr) CutOff(before, first, elements[i]->prev, elements[i]);
    first = nullptr;
    before = elements[i];
  }
  return true;
}

// ---- The clean-up and the loops kept ---------------------------------------

struct Request {
  LI_HEAD *head;
  const LI_TAB_STRUCT *k;
  uint16_t side;
  double d;
  uint16_t mode;
  uint16_t *counter;
};

// The contours of one call, given back to the store however it ends.
struct Held {
  LI_HEAD *head;
  LI_TAB_STRUCT *raw = nullptr;
  LI_TAB_STRUCT *outer = nullptr;
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = FL_EMPTY;

  explicit Held(LI_HEAD *h) : head(h) {}
  Held(const Held &) = delete;
  Held &operator=(const Held &) = delete;
  ~Held() {
    LiRemove(head, &raw);
    LiRemove(head, &outer);
    FlFreeList(head, &loops, last);
  }
};

struct Result {
  LI_TAB_STRUCT ***list;
  int16_t *last;
  uint32_t dropped = 0;
};

// Whether the loop lies at the distance d: the middle of its longest drawn
// element lies no nearer to the source than d - kKeptDepth tol.
bool AtDistance(const LI_TAB_STRUCT *loop, const SourceBands &bands, double d, double tol) {
  const LI_TAB_STRUCT *longest = nullptr;
  double most = -1.0;
  const LI_TAB_STRUCT *e = loop;
  do {
    if (e->type != LI_MOVE && LiElemLen(e) > most) {
      most = LiElemLen(e);
      longest = e;
    }
    e = e->next;
  } while (e != loop);
  return longest != nullptr && !bands.Nearer(LiElemPt(longest, 0.5), d - kKeptDepth * tol);
}

// The uncrossed offset bounds a region of the source's orientation: a lone
// element that is not a full circle is what a walk stopped at its first
// corner leaves (the offset shrank the contour to a point).
bool BoundsRegion(const LI_TAB_STRUCT *k, int sign, double tol) {
  if (k->next == k && !IsFullCircle(*k, tol)) return false;
  return AreaSign(LiKontArea(k), tol) == sign;
}

// Moves the candidates of what the clean-up left into a new contour list:
// the uncrossed offset, or the outer loop and the list's loops.
uint16_t Gather(Held &held, bool no_cross, int sign, double tol, Result &r) {
  int16_t count = 0;
  if (no_cross) {
    count = BoundsRegion(held.raw, sign, tol) ? 1 : 0;
  } else {
    count = static_cast<int16_t>((held.outer != nullptr ? 1 : 0) + held.last + 1);
  }
  if (count == 0) return PA_OK;
  if (const uint16_t st = GrowBlock(*r.list, static_cast<size_t>(count), true); st != PA_OK)
    return st;
  int16_t at = 0;
  auto take = [&](LI_TAB_STRUCT *&loop) {
    (*r.list)[at++] = loop;
    loop = nullptr;
  };
  if (no_cross) take(held.raw);
  if (held.outer != nullptr) take(held.outer);
  for (int16_t i = 0; i <= held.last; ++i) take(held.loops[i]);
  *r.last = static_cast<int16_t>(at - 1);
  return PA_OK;
}

// Keeps the loops of the result list that lie at the distance.
void KeepAtDistance(LI_HEAD *head, const SourceBands &bands, double d, double tol, Result &r) {
  for (int16_t i = 0; i <= *r.last; ++i) {
    if (AtDistance((*r.list)[i], bands, d, tol)) continue;
    LiRemove(head, &(*r.list)[i]);
    ++r.dropped;
  }
  *r.last = CloseUp(*r.list, *r.last);
  if (*r.last == FL_EMPTY) FreeBlock(*r.list);
}

// The region's orientation (+1 counter-clockwise) and whether the offset
// to `side` (the side the elements really move to) goes outward.
struct Way {
  int sign;
  bool outward;
};

uint16_t Offset(const Request &q, const Way &way, Result &r) {
  const double tol = Tol(), d = std::fabs(q.d);
  const SourceBands bands(q.k, tol);
  Held held(q.head);
  if (const uint16_t st = FlParallel(q.head, q.k, q.side, q.d, &held.raw, 1, q.mode, q.counter, 0);
      st != PA_OK) {
    return st;
  }
  const BlockVector<LI_TAB_STRUCT *> elements = Number(q.head, &held.raw, tol);
  Clearing clearing(q.head, bands, d, tol);
  if (d > kClearedDepth * tol && !clearing.Run(elements, &held.raw)) return PA_OK;
  uint32_t no_cross = 1;
  const uint16_t cleaning = way.outward ? 1 : 2;  // FlCleanKont's outward and inward modes
  if (const uint16_t st = FlCleanKont(q.head, &held.raw, static_cast<int16_t>(way.sign), cleaning,
                                      &held.outer, &held.loops, &held.last, &no_cross, 0, 0);
      st != PA_OK) {
    return st;
  }
  if (const uint16_t st = Gather(held, no_cross != 0, way.sign, tol, r); st != PA_OK) return st;
  if (*r.last != FL_EMPTY) KeepAtDistance(q.head, bands, d, tol, r);
  return PA_OK;
}

// Side 0 or a distance within the tolerance: the region itself.
uint16_t Copy(const Request &q, Result &r) {
  LI_TAB_STRUCT *copy = nullptr;
  if (const uint16_t st = LiCopy(q.head, q.k, &copy); st != PA_OK) return st;
  if (const uint16_t st = GrowBlock(*r.list, 1, true); st != PA_OK) {
    LiRemove(q.head, &copy);
    return st;
  }
  (*r.list)[0] = copy;
  *r.last = 0;
  return PA_OK;
}

uint16_t ParallelRegion(const Request &q, Result &r) {
  const double tol = Tol();
  const int sign = AreaSign(LiKontArea(q.k), tol);
  if (sign == 0) return PA_INVALID;
  const int16_t side = static_cast<int16_t>(q.side);
  if (side == 0 || std::fabs(q.d) <= tol) return Copy(q, r);
  const int moves_to = q.d < 0.0 ? -side : side;
  // Outward is to the right of a counter-clockwise contour.
  const Way way{sign, moves_to == -sign};
  const uint16_t st = Offset(q, way, r);
  if (st != PA_OK) FlFreeList(q.head, r.list, *r.last);
  return st;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlParallelRegion(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                                     uint16_t mode, uint16_t *counter, LI_TAB_STRUCT ***list,
                                     int16_t *last, uint32_t *dropped) {
  if (head == nullptr || list == nullptr || last == nullptr) return PA_INVALID;
  *list = nullptr;
  *last = FL_EMPTY;
  if (dropped != nullptr) *dropped = 0;
  if (k == nullptr || LiTestClosed(k) != 1) return PA_INVALID;
  uint16_t own_counter = 0;
  const Request q{head, k, side, d, mode, counter != nullptr ? counter : &own_counter};
  Result r{list, last};
  uint16_t st = PA_NO_MEMORY;
  try {
    st = ParallelRegion(q, r);
  } catch (const std::bad_alloc &) {
    FlFreeList(head, list, *last);
    *last = FL_EMPTY;
  }
  if (st != PA_OK) *last = FL_EMPTY;
  if (dropped != nullptr) *dropped = r.dropped;
  return st;
}

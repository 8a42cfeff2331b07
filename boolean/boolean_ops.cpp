// Union, difference and intersection of two closed contours, computed on
// copies, and the largest loop of a difference or intersection.
#include <algorithm>
#include <cmath>

#include "boolean/pipelines.h"
#include "contour/element_area.h"
#include "contour/short_elements.h"
#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

// A temporary copy: whatever chain it holds goes back to the store when
// the operation ends, on every path.
class CopyGuard {
 public:
  explicit CopyGuard(LI_HEAD *head) : head_(head) {}
  CopyGuard(const CopyGuard &) = delete;
  CopyGuard &operator=(const CopyGuard &) = delete;
  ~CopyGuard() { Reset(); }
  void Reset() { LiRemove(head_, &k_); }
  LI_TAB_STRUCT *&k() { return k_; }

 private:
  LI_HEAD *head_;
  LI_TAB_STRUCT *k_ = nullptr;
};

// A copy's box (the union of its stored element boxes, as LiKontBox takes
// it), its signed area (as LiKontArea sums it) and whether every element
// ends where the next one starts, taken in one walk.
struct Box {
  GE_POINT lo{1e308, 1e308}, hi{-1e308, -1e308};
  double area = 0.0;
  bool closed = true;
  uint32_t count = 0;  // elements
};

// Adds one element to the measures; slivers tells whether DropSlivers
// would find work.
void Take(Box &box, const LI_TAB_STRUCT &e, double tol, bool &slivers) {
  slivers = slivers || (IsArc(e) && IsFullCircle(e, tol));
  box.lo = {std::min(box.lo.x, e.box.xmin), std::min(box.lo.y, e.box.ymin)};
  box.hi = {std::max(box.hi.x, e.box.xmax), std::max(box.hi.y, e.box.ymax)};
  box.area += ElementArea(e, tol);
  box.closed = box.closed && CoincidePerAxis(e.ep, e.next->ap, tol);
  ++box.count;
}

Box Measure(const LI_TAB_STRUCT *k, bool &slivers) {
  const double tol = Tol();
  Box box;
  slivers = false;
  const LI_TAB_STRUCT *e = k;
  do {
    Take(box, *e, tol, slivers);
    e = e->next;
  } while (e != k);
  return box;
}

// LiRemShort on a fresh closed copy of two or more elements when nothing in
// it is short, which is the rule: then the removal only flattens and
// recomputes each element, and the walk that copies it recomputes and
// measures each element too (at 10^5 elements every walk over the records
// costs as much as the geometry). Once an element is short, the rest is
// only copied: the copy is half done and must be made afresh.
class Tidy final : public CopyVisitor {
 public:
  Tidy(double short_len, bool flatten) : short_len_(short_len), flatten_(flatten) {}

  void Visit(LI_TAB_STRUCT *e) override {
    if (first_ == nullptr) first_ = e;
    if (short_ || e->next == e) {
      short_ = true;
      return;
    }
    if (flatten_) FlattenArc(*e, short_len_, tol_);
    if (IsShort(*e, false, short_len_)) {
      short_ = true;
      return;
    }
    if (e->next == first_) e->ep = first_->ap;  // the removal closes the contour
    status_ |= Recompute(e);
    Take(box_, *e, tol_, slivers_);
  }

  // Whether the copy came out tidied and measured.
  bool Done() const { return first_ != nullptr && !short_; }
  uint16_t status() const { return status_; }
  const Box &box() const { return box_; }
  bool slivers() const { return slivers_; }

 private:
  double tol_ = Tol();
  double short_len_;
  bool flatten_;
  const LI_TAB_STRUCT *first_ = nullptr;
  bool short_ = false;
  uint16_t status_ = PA_OK;
  Box box_;
  bool slivers_ = false;
};

// Touching boxes overlap.
bool Overlap(const Box &a, const Box &b) {
  return !(std::fmax(a.lo.x, b.lo.x) > std::fmin(a.hi.x, b.hi.x) ||
           std::fmax(a.lo.y, b.lo.y) > std::fmin(a.hi.y, b.hi.y));
}

// An arc whose ends coincide in a contour of several elements is a sliver
// left by a cut near an arc's end, not a full circle (the containment walk
// skips it for that reason): it would count as a whole disc in areas and
// boxes and cross B anywhere on its circle. It goes, and its neighbours
// meet. The walk ends at the element that was last when it began, so it
// needs no count.
uint16_t DropSlivers(LI_HEAD *head, LI_TAB_STRUCT *&k) {
  const double tol = Tol();
  LI_TAB_STRUCT *e = k;
  const LI_TAB_STRUCT *const last = e->prev;
  for (bool at_last = false; !at_last && k->next != k;) {
    at_last = e == last;
    LI_TAB_STRUCT *next = e->next;
    if (IsArc(*e) && IsFullCircle(*e, tol)) {
      LI_TAB_STRUCT *prev = e->prev;
      LiDel(head, &k, e);
      prev->ep = next->ap;
      if (IsArc(*prev)) LiRadKorr(prev);
      if (auto status = LiElemExpand(prev); status != PA_OK) return status;
    }
    e = next;
  }
  return PA_OK;
}

// Finishes a copy of src made with tidy: removes its short elements
// (flattening nearly straight arcs unless told to keep them) and slivers,
// and takes its box and area. A copy left open is no region: an open
// source, or one smaller than short_len, of which a single open element
// remains.
uint16_t FinishCopy(LI_HEAD *head, const LI_TAB_STRUCT *src, double short_len, bool keep_arcs,
                    const Tidy &tidy, CopyGuard &copy, Box &box) {
  uint16_t status = tidy.status();
  bool slivers = tidy.slivers();
  box = tidy.box();
  if (tidy.Done() && status != PA_OK) return status;
  if (!tidy.Done()) {
    copy.Reset();
    copy.k() = LiCopyBlock(head, src, src->prev);
    if (copy.k() == nullptr) return PA_NO_RECORD;
    status = LiRemShort(head, &copy.k(), 1, short_len, keep_arcs ? 0 : 1);
    if (status != PA_OK) return status;
    box = Measure(copy.k(), slivers);
  }
  // Slivers are rare: only when the measuring walk finds one are they
  // dropped and the copy measured again.
  if (slivers) {
    if (status = DropSlivers(head, copy.k()); status != PA_OK) return status;
    box = Measure(copy.k(), slivers);
  }
  return box.closed ? PA_OK : PA_INVALID;
}

// count, when not 0, is src's element count.
uint16_t PrepareCopy(LI_HEAD *head, const LI_TAB_STRUCT *src, double short_len, bool keep_arcs,
                     CopyGuard &copy, Box &box, uint32_t count = 0) {
  copy.Reset();
  Tidy tidy(short_len, !keep_arcs);
  copy.k() = CopyChain(*head, src, src->prev, &tidy, count);
  if (copy.k() == nullptr) return PA_NO_RECORD;
  return FinishCopy(head, src, short_len, keep_arcs, tidy, copy, box);
}

struct Operands {
  const LI_TAB_STRUCT *a, *b;
  double short_len;
  bool keep_arcs;
};

// Both copies at once, when they are long: A's onto the lower half of
// records taken in address order, B's onto the upper half. After an
// operation the free list holds the loops it returned, which interleave
// the records of its two copies; copies taken one after the other from it
// would each be spread over the whole store, and at 10^5 elements every
// walk along them would jump about. False when the records were not taken
// this way (status tells whether the store could not grow).
constexpr uint32_t kPairedCopyMin = 2048;

bool CopyPair(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b, uint32_t na,
              uint32_t nb, Tidy &ta, Tidy &tb, CopyGuard &ca, CopyGuard &cb, uint16_t &status) {
  status = PA_OK;
  if (na + nb < kPairedCopyMin) return false;
  BlockVector<LI_TAB_STRUCT *> records;
  status = TakeSorted(*head, na + nb, records);
  if (status != PA_OK) return false;
  ca.k() = CopyOnto(a, records.data(), na, &ta);
  cb.k() = CopyOnto(b, records.data() + na, nb, &tb);
  return true;
}

// The copies of A and B, prepared.
uint16_t PrepareCopies(LI_HEAD *head, const Operands &in, CopyGuard &ca, CopyGuard &cb, Box &ba,
                       Box &bb) {
  Tidy ta(in.short_len, !in.keep_arcs), tb(in.short_len, !in.keep_arcs);
  const uint32_t na = ChainLength(in.a, in.a->prev), nb = ChainLength(in.b, in.b->prev);
  uint16_t status = PA_OK;
  if (!CopyPair(head, in.a, in.b, na, nb, ta, tb, ca, cb, status)) {
    if (status == PA_NO_RECORD) return status;
    if (status = PrepareCopy(head, in.a, in.short_len, in.keep_arcs, ca, ba, na); status != PA_OK)
      return status;
    return PrepareCopy(head, in.b, in.short_len, in.keep_arcs, cb, bb, nb);
  }
  if (status = FinishCopy(head, in.a, in.short_len, in.keep_arcs, ta, ca, ba); status != PA_OK)
    return status;
  return FinishCopy(head, in.b, in.short_len, in.keep_arcs, tb, cb, bb);
}

enum class Sense { kPositive, kNegative };

// LiKontChgDir on a closed copy, done so that the turned chain still runs
// forwards through memory: the records keep their links and their order,
// the first keeps its element, the others' elements are laid out in
// reverse over them, and each is turned. Turning the links instead would
// leave every later walk along a long copy running backwards through
// memory.
void SwapElements(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  std::swap(*a, *b);
  std::swap(a->next, b->next);
  std::swap(a->prev, b->prev);
}

// Each element is turned as soon as it has its place, while it is in the
// cache; k and a middle element keep theirs.
void TurnInOrder(LI_TAB_STRUCT *k) {
  LiElemUmdreh(k);
  LI_TAB_STRUCT *i = k->next, *j = k->prev;
  for (; i != k && i != j; i = i->next, j = j->prev) {
    SwapElements(i, j);
    LiElemUmdreh(i);
    LiElemUmdreh(j);
    if (i->next == j) return;
  }
  if (i == j && i != k) LiElemUmdreh(i);
}

// Turns the copy of the given area to the wanted sense; returns |area|.
double Orient(LI_TAB_STRUCT *&k, double area, Sense sense) {
  const bool turn = sense == Sense::kPositive ? !(area >= 0.0) : area > 0.0;
  if (turn) TurnInOrder(k);
  return std::fabs(area);
}

struct Result {
  LI_TAB_STRUCT ***loops;
  int16_t *last;
  uint32_t *no_cross;
  int16_t *contain;
};

void DropList(LI_HEAD *head, const Result &r) {
  FlFreeList(head, r.loops, *r.last);
  *r.last = FL_EMPTY;
}


// Nothing crossed: A or B may have been cut at crossings that came to
// nothing, so those are copied afresh before the nesting is decided.
uint16_t Contain(LI_HEAD *head, const Operands &in, uint32_t split, CopyGuard &ca, CopyGuard &cb,
                 Box &ba, Box &bb, int16_t &contain) {
  if ((split & 1) != 0)
    if (auto status = PrepareCopy(head, in.a, in.short_len, in.keep_arcs, ca, ba); status != PA_OK)
      return status;
  if ((split & 2) != 0)
    if (auto status = PrepareCopy(head, in.b, in.short_len, in.keep_arcs, cb, bb); status != PA_OK)
      return status;
  if (LiKontExactInKont(ca.k(), cb.k(), &ba.lo, &ba.hi, &bb.lo, &bb.hi) != 0) {
    contain = 1;
  } else if (LiKontExactInKont(cb.k(), ca.k(), &bb.lo, &bb.hi, &ba.lo, &ba.hi) != 0) {
    contain = -1;
  }
  return PA_OK;
}

uint16_t Combine(LI_HEAD *head, const Operands &in, int32_t op, const Result &r) {
  *r.loops = nullptr;
  *r.last = FL_EMPTY;
  *r.no_cross = 1;
  *r.contain = 0;
  CopyGuard ca(head), cb(head);
  Box ba{}, bb{};
  if (auto status = PrepareCopies(head, in, ca, cb, ba, bb); status != PA_OK) return status;
  if (!Overlap(ba, bb)) return PA_OK;
  const double area_a = Orient(ca.k(), ba.area, Sense::kPositive);
  const double area_b =
      Orient(cb.k(), bb.area, op == FL_OP_DIFFERENCE ? Sense::kNegative : Sense::kPositive);
  uint32_t split = 0;
  LoopAreas areas;
  if (auto status = CrossKonturClosed(head, ca.k(), cb.k(), op, split, *r.loops, *r.last, &areas,
                                      ba.count, bb.count);
      status != PA_OK) {
    DropList(head, r);
    return status;
  }
  if (*r.last == FL_EMPTY) return Contain(head, in, split, ca, cb, ba, bb, *r.contain);
  // The copies now live on in the loops.
  *r.no_cross = 0;
  const uint16_t status = CrossKonturCleanClosed(head, area_a, area_b, static_cast<uint32_t>(op),
                                                 *r.loops, *r.last, areas.data());
  if (status != PA_OK) DropList(head, r);
  return status;
}

uint16_t Boolean(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b, double short_len,
                 int32_t keep, int32_t op, LI_TAB_STRUCT ***loops, int16_t *last,
                 uint32_t *no_cross, int16_t *contain) {
  if (head == nullptr || loops == nullptr || last == nullptr || no_cross == nullptr ||
      contain == nullptr)
    return PA_INVALID;
  if (a == nullptr || b == nullptr) {
    *loops = nullptr;
    *last = FL_EMPTY;
    return PA_INVALID;
  }
  return Combine(head, Operands{a, b, short_len, keep != 0}, op,
                 Result{loops, last, no_cross, contain});
}

// Short elements are removed at the tolerance, or at 100 x tol when the
// tolerance is set finer than its default.
double ShortLength() {
  const double tol = Tol();
  return tol >= 5e-5 ? tol : 100.0 * tol;
}

// Takes the loop of largest |area| (the earliest on a tie) out of the list.
LI_TAB_STRUCT *TakeLargest(LI_TAB_STRUCT **loops, int16_t last) {
  int16_t best = 0;
  double best_area = std::fabs(LiKontArea(loops[0]));
  for (int16_t i = 1; i <= last; ++i) {
    const double area = std::fabs(LiKontArea(loops[i]));
    if (area > best_area) {
      best = i;
      best_area = area;
    }
  }
  LI_TAB_STRUCT *k = loops[best];
  loops[best] = nullptr;
  return k;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlUnionKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                int16_t *last, uint32_t *no_cross, int16_t *contain) {
  return Boolean(head, a, b, short_len, keep, FL_OP_UNION, loops, last, no_cross, contain);
}

extern "C" uint16_t FlDiffKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                               double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                               int16_t *last, uint32_t *no_cross, int16_t *contain) {
  return Boolean(head, a, b, short_len, keep, FL_OP_DIFFERENCE, loops, last, no_cross, contain);
}

extern "C" uint16_t FlIsectKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                int16_t *last, uint32_t *no_cross, int16_t *contain) {
  return Boolean(head, a, b, short_len, keep, FL_OP_INTERSECTION, loops, last, no_cross, contain);
}

extern "C" uint16_t FlBewDiffMaxKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                     int32_t isect, LI_TAB_STRUCT **out) {
  if (out == nullptr) return PA_INVALID;
  *out = nullptr;
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = FL_EMPTY, contain = 0;
  uint32_t no_cross = 1;
  const int32_t op = isect != 0 ? FL_OP_INTERSECTION : FL_OP_DIFFERENCE;
  const uint16_t status =
      Boolean(head, a, b, ShortLength(), 1, op, &loops, &last, &no_cross, &contain);
  if (status == PA_OK && no_cross == 0 && last >= 0) *out = TakeLargest(loops, last);
  if (head != nullptr) FlFreeList(head, &loops, last);
  return status;
}

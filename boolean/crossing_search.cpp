// Building crossing lists: the crossings of two contours and of one contour
// with itself. One walk of each chain gathers its elements into arrays, and
// B's boxes into a spatial index; each element of A takes its candidates
// from the index, in B's chain order, and runs the pairwise step on those
// that pass the box test: the same pairs in the same order as comparing
// every pair, so the same list, at a fraction of the cost.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <utility>

#include "boolean/box_index.h"
#include "boolean/crossing_list.h"
#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

using Elements = BlockVector<LI_TAB_STRUCT *>;

bool Finite(const GE_BOX &b) {
  return std::isfinite(b.xmin) && std::isfinite(b.ymin) && std::isfinite(b.xmax) &&
         std::isfinite(b.ymax);
}

// Where the elements of one contour can meet those of another: the union
// of their widened boxes, or everywhere when one of them is not finite and
// so escapes a plain interval test.
class Reach {
 public:
  void Add(const GE_BOX &b) {
    if (!Finite(b)) {
      everywhere_ = true;
    } else if (empty_) {
      box_ = b;
      empty_ = false;
    } else {
      box_ = {std::min(box_.xmin, b.xmin), std::min(box_.ymin, b.ymin),
              std::max(box_.xmax, b.xmax), std::max(box_.ymax, b.ymax)};
    }
  }
  // The union of the boxes added, when they are all finite.
  const GE_BOX *Box() const { return everywhere_ || empty_ ? nullptr : &box_; }
  // Whether a box may pass the crossing box test with one of the boxes
  // added: a finite box that misses their union cannot.
  bool MayMeet(const GE_BOX &b) const {
    return everywhere_ || !Finite(b) || (!empty_ && BoxesMeet(box_, b));
  }

 private:
  bool everywhere_ = false;
  bool empty_ = true;
  GE_BOX box_{};
};

// The elements of a contour that take part in crossings (all but moves)
// in chain order, and the leaves of an index over their boxes. The search
// runs on these compact arrays and reads a record again only for a pair
// that may pass the box test.
struct Crossers {
  Elements elems;
  BoxIndex::Leaves leaves;

  void Add(LI_TAB_STRUCT *e) {
    elems.push_back(e);
    leaves.push_back(BoxIndex::Leaf(e->box));
  }
};

// A's elements, and where they reach; size, when known, is at least
// their number, so that the array is had at once.
Elements CrossersOfA(LI_TAB_STRUCT *k, double tol, Reach &reach, uint32_t size) {
  Elements out;
  out.reserve(size);
  LI_TAB_STRUCT *e = k;
  do {
    if (e->type != LI_MOVE) {
      out.push_back(e);
      reach.Add(WidenedBox(e->box, tol));
    }
    e = e->next;
  } while (e != k);
  return out;
}

// B's elements that may meet one of A's (all of them without A).
Crossers CrossersOfB(LI_TAB_STRUCT *k, const Reach *reach, uint32_t size) {
  Crossers out;
  out.elems.reserve(size);
  out.leaves.reserve(size);
  LI_TAB_STRUCT *e = k;
  do {
    if (e->type != LI_MOVE && (reach == nullptr || reach->MayMeet(e->box))) out.Add(e);
    e = e->next;
  } while (e != k);
  return out;
}

// Of the numbers (positions in b) in from, those of b's elements whose
// boxes pass the crossing box test with A's widened box, in the same order.
void Overlapping(const GE_BOX &widened, const Elements &b, const BlockVector<uint32_t> &from,
                 BlockVector<uint32_t> &out) {
  out.clear();
  for (const uint32_t i : from)
    if (CrossBoxesOverlap(widened, b[i]->box)) out.push_back(i);
}

// The index's candidates for box in ascending order (B's chain order), or
// false when there are more than limit.
bool Query(const BoxIndex &index, const GE_BOX &box, BlockVector<uint32_t> &out,
           size_t limit = SIZE_MAX) {
  out.clear();
  if (!index.Query(box, out, limit)) return false;
  if (!index.Ordered()) std::sort(out.begin(), out.end());
  return true;
}

// Neighbours along A's chain lie close together, so a run of them shares
// one query of B's index, and each element of the run keeps from its
// answers those that pass its own box test. A run whose widened boxes are
// not all finite, or whose query gets more than kSharedMost answers, goes
// back to one query per element.
constexpr size_t kRun = 8;
constexpr size_t kSharedMost = 64;

bool QueryRun(const Elements &a, size_t from, size_t to, double tol, const BoxIndex &index,
              BlockVector<uint32_t> &out) {
  Reach run;
  for (size_t i = from; i < to; ++i) run.Add(WidenedBox(a[i]->box, tol));
  const GE_BOX *box = run.Box();
  return box != nullptr && Query(index, *box, out, kSharedMost);
}

// Crosses a with the elements of b numbered in numbers, in that order.
uint16_t CrossWith(LI_TAB_STRUCT *a, const Elements &b, const BlockVector<uint32_t> &numbers,
                   CrossListRef ref) {
  const int16_t first = static_cast<int16_t>(ref.last + 1);
  ElementRun run;
  for (const uint32_t i : numbers)
    if (const uint16_t st = CrossPair(ref, first, a, b[i], run); st != PA_OK) return st;
  return PA_OK;
}

// Every element of a against the elements of b, whose boxes b_leaves
// hold.
uint16_t CrossAll(const Elements &a, const Elements &b, BoxIndex::Leaves b_leaves,
                  CrossListRef ref) {
  if (b.empty()) return PA_OK;
  const double tol = Tol();
  const BoxIndex index(std::move(b_leaves));
  BlockVector<uint32_t> shared, own, numbers;
  for (size_t from = 0; from < a.size(); from += kRun) {
    const size_t to = std::min(from + kRun, a.size());
    const bool sharing = QueryRun(a, from, to, tol, index, shared);
    for (size_t i = from; i < to; ++i) {
      const GE_BOX widened = WidenedBox(a[i]->box, tol);
      if (!sharing) Query(index, widened, own);
      Overlapping(widened, b, sharing ? shared : own, numbers);
      if (const uint16_t st = CrossWith(a[i], b, numbers, ref); st != PA_OK) return st;
    }
  }
  return PA_OK;
}

uint16_t CrossTwo(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, uint32_t size_a, uint32_t size_b,
                  CrossListRef ref) {
  Reach reach;
  const Elements as = CrossersOfA(a, Tol(), reach, size_a);
  Crossers bs = CrossersOfB(b, &reach, size_b);
  return CrossAll(as, bs.elems, std::move(bs.leaves), ref);
}

uint16_t CrossSelf(LI_TAB_STRUCT *k, CrossListRef ref) {
  Crossers ks = CrossersOfB(k, nullptr, 0);
  return CrossAll(ks.elems, ks.elems, std::move(ks.leaves), ref);
}

// The elements of a contour numbered in chain order from its first, with
// an index over the boxes of those that take part in crossings.
class NumberedChain {
 public:
  explicit NumberedChain(LI_TAB_STRUCT *k) {
    BoxIndex::Leaves leaves;
    LI_TAB_STRUCT *e = k;
    do {
      if (e->type != LI_MOVE) {
        crossing_.push_back(static_cast<uint32_t>(all_.size()));
        leaves.push_back(BoxIndex::Leaf(e->box));
      }
      all_.push_back(e);
      e = e->next;
    } while (e != k);
    index_.emplace(std::move(leaves));
  }

  uint32_t size() const { return static_cast<uint32_t>(all_.size()); }
  LI_TAB_STRUCT *at(uint32_t i) const { return all_[i]; }
  const Elements &all() const { return all_; }

  // The numbers of the elements whose boxes may meet box, ascending: a
  // superset of those that pass the crossing box test.
  void Candidates(const GE_BOX &box, BlockVector<uint32_t> &out) const {
    out.clear();
    index_->Query(box, out);
    for (uint32_t &i : out) i = crossing_[i];
    if (!index_->Ordered()) std::sort(out.begin(), out.end());
  }

 private:
  Elements all_;
  BlockVector<uint32_t> crossing_;
  std::optional<BoxIndex> index_;
};

// The neighbourhoods of a self list with width n: element i is crossed with
// the run of elements that starts up to n joined steps before it and holds
// up to 2n + 1 elements, ending after the first element a gap follows.
class Neighbourhoods {
 public:
  static constexpr uint32_t kEndless = std::numeric_limits<uint32_t>::max();

  Neighbourhoods(const NumberedChain &chain, uint32_t n, double tol)
      : n_(n), size_(chain.size()), joined_after_(size_), joined_before_(size_) {
    BlockVector<uint8_t> joined(size_);
    uint32_t gap = kEndless;
    for (uint32_t j = 0; j < size_; ++j) {
      joined[j] = CoincidePerAxis(chain.at(j)->ep, chain.at(Next(j))->ap, tol) ? 1 : 0;
      if (!joined[j]) gap = j;
    }
    if (gap == kEndless) {
      std::fill(joined_after_.begin(), joined_after_.end(), kEndless);
      std::fill(joined_before_.begin(), joined_before_.end(), kEndless);
      return;
    }
    // Runs of joined joints after and before each joint, counted round the
    // circle from a gap.
    for (uint32_t step = 0; step < size_; ++step) {
      const uint32_t back = (gap + size_ - step) % size_;
      const uint32_t fwd = (gap + step) % size_;
      joined_after_[back] = joined[back] ? joined_after_[Next(back)] + 1 : 0;
      joined_before_[fwd] = joined[fwd] ? joined_before_[(fwd + size_ - 1) % size_] + 1 : 0;
    }
  }

  // The first number and the length of element i's neighbourhood.
  uint32_t Start(uint32_t i) const {
    const uint32_t back = std::min(n_, joined_before_[(i + size_ - 1) % size_]);
    return static_cast<uint32_t>((i + uint64_t{size_} * (back / size_ + 1) - back) % size_);
  }
  uint32_t Length(uint32_t start) const {
    const uint32_t after = joined_after_[start];
    return after >= 2 * n_ ? 2 * n_ + 1 : after + 1;
  }

 private:
  uint32_t Next(uint32_t j) const { return j + 1 == size_ ? 0 : j + 1; }

  uint32_t n_;
  uint32_t size_;
  BlockVector<uint32_t> joined_after_;   // joined joints from joint j on
  BlockVector<uint32_t> joined_before_;  // joined joints up to joint j, backwards
};

// Below this length a neighbourhood is walked; above it the index finds
// the few elements of it that may cross.
constexpr uint32_t kWalkedNeighbourhood = 64;

// The steps into element i's neighbourhood (which may pass round the
// contour more than once) at which an element that may cross a stands.
void NeighbourSteps(const NumberedChain &chain, const GE_BOX &box, uint32_t start, uint32_t length,
                    BlockVector<uint32_t> &candidates, BlockVector<uint32_t> &steps) {
  steps.clear();
  if (length <= kWalkedNeighbourhood) {
    for (uint32_t s = 0; s < length; ++s) steps.push_back(s);
    return;
  }
  chain.Candidates(box, candidates);
  const uint64_t size = chain.size();
  for (const uint32_t i : candidates) {
    for (uint64_t s = (i + size - start) % size; s < length; s += size)
      steps.push_back(static_cast<uint32_t>(s));
  }
  std::sort(steps.begin(), steps.end());
}

uint16_t CrossNeighbours(const NumberedChain &chain, uint32_t n, CrossListRef ref) {
  const double tol = Tol();
  const Neighbourhoods hoods(chain, n, tol);
  BlockVector<uint32_t> candidates, steps, numbers;
  for (uint32_t i = 0; i < chain.size(); ++i) {
    LI_TAB_STRUCT *a = chain.at(i);
    if (a->type == LI_MOVE) continue;
    const GE_BOX box = WidenedBox(a->box, tol);
    const uint32_t start = hoods.Start(i);
    NeighbourSteps(chain, box, start, hoods.Length(start), candidates, steps);
    numbers.clear();
    for (const uint32_t s : steps) {
      const uint32_t j = (start + s) % chain.size();
      LI_TAB_STRUCT *b = chain.at(j);
      if (b->type != LI_MOVE && CrossBoxesOverlap(box, b->box)) numbers.push_back(j);
    }
    if (const uint16_t st = CrossWith(a, chain.all(), numbers, ref); st != PA_OK) return st;
  }
  return PA_OK;
}

// While the last entry repeats entry 0 at A's closing joint: that crossing
// is found at A's last element and again at its first. Two distinct
// crossings that merely lie within the tolerance of each other elsewhere
// (the tip of a thin wedge of A across an edge of B) both stay, or the
// wedge would lose one of its two crossings.
void TrimClosingJoint(const GE_CROSS *list, int16_t &last, GE_POINT joint, double tol) {
  if (last <= 0 || !CoincidePerAxis(list[0].pt, joint, tol)) return;
  while (last > 0 && CoincidePerAxis(list[last].pt, list[0].pt, tol)) --last;
}

}  // namespace

uint16_t CrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, uint32_t size_a, uint32_t size_b,
                   GE_CROSS *&list, int16_t &last) {
  last = FL_EMPTY;
  if (a == nullptr) return PA_OK;
  uint16_t capacity = 0;
  const CrossListRef ref{list, capacity, last, true};
  const bool self = b == nullptr || b == a;
  try {
    const uint16_t st = self ? CrossSelf(a, ref) : CrossTwo(a, b, size_a, size_b, ref);
    // Self-crossing lists keep both finds of the closing joint.
    if (st == PA_OK && !self) TrimClosingJoint(list, last, a->ap, Tol());
    return st;
  } catch (const std::bad_alloc &) {
    return PA_NO_MEMORY;
  }
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlCrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, GE_CROSS **list,
                                int16_t *last) {
  if (list == nullptr || last == nullptr) return PA_INVALID;
  return CrossList(a, b, 0, 0, *list, *last);
}

extern "C" uint16_t FlCrossListSingle(LI_TAB_STRUCT *k, GE_CROSS **list, int16_t *last, int16_t n) {
  if (list == nullptr || last == nullptr) return PA_INVALID;
  *last = FL_EMPTY;
  if (k == nullptr) return PA_OK;
  uint16_t capacity = 0;
  const CrossListRef ref{*list, capacity, *last, true};
  try {
    if (n == 0) return CrossSelf(k, ref);
    return CrossNeighbours(NumberedChain(k), static_cast<uint32_t>(n), ref);
  } catch (const std::bad_alloc &) {
    return PA_NO_MEMORY;
  }
}

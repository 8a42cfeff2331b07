// Building crossing lists: the crossings of two contours and of one contour
// with itself. Each element of A takes its candidates from a spatial index
// over B's element boxes, puts them in B's chain order and runs the
// pairwise step on those that pass the box test: the same pairs in the same
// order as comparing every pair, so the same list, at a fraction of the cost.
#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "boolean/box_index.h"
#include "boolean/crossing_list.h"
#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The elements of a contour in chain order from its first, and the numbers
// and boxes of those that take part in crossings (all but moves), gathered
// in one walk: at 10^5 elements every walk of the chain costs more than the
// arrays it fills.
struct Numbering {
  BlockVector<LI_TAB_STRUCT *> all;
  BlockVector<uint32_t> crossing;
  BlockVector<GE_BOX> boxes;
};

Numbering Number(LI_TAB_STRUCT *k) {
  Numbering out;
  LI_TAB_STRUCT *e = k;
  do {
    if (e->type != LI_MOVE) {
      out.crossing.push_back(static_cast<uint32_t>(out.all.size()));
      out.boxes.push_back(e->box);
    }
    out.all.push_back(e);
    e = e->next;
  } while (e != k);
  return out;
}

// The elements of a contour numbered in chain order from its first, with
// an index over the boxes of those that take part in crossings.
class NumberedChain {
 public:
  explicit NumberedChain(LI_TAB_STRUCT *k) : NumberedChain(Number(k)) {}

  uint32_t size() const { return static_cast<uint32_t>(all_.size()); }
  LI_TAB_STRUCT *at(uint32_t i) const { return all_[i]; }

  // The numbers of the elements whose boxes may meet box, ascending: a
  // superset of those that pass the crossing box test.
  void Candidates(const GE_BOX &box, BlockVector<uint32_t> &out) const {
    out.clear();
    index_.Query(box, out);
    for (uint32_t &i : out) i = crossing_[i];
    std::sort(out.begin(), out.end());
  }

 private:
  explicit NumberedChain(Numbering n)
      : all_(std::move(n.all)), crossing_(std::move(n.crossing)), index_(n.boxes) {}

  BlockVector<LI_TAB_STRUCT *> all_;
  BlockVector<uint32_t> crossing_;
  BoxIndex index_;
};

// Crosses a with the elements of b numbered in numbers, in that order.
uint16_t CrossWith(LI_TAB_STRUCT *a, const NumberedChain &b, const BlockVector<uint32_t> &numbers,
                   int16_t first, CrossListRef ref, double tol) {
  const GE_BOX box = WidenedBox(a->box, tol);
  ElementRun run;
  for (const uint32_t i : numbers) {
    LI_TAB_STRUCT *eb = b.at(i);
    if (eb->type == LI_MOVE || !CrossBoxesOverlap(box, eb->box)) continue;
    if (const uint16_t st = CrossPair(ref, first, a, eb, run); st != PA_OK) return st;
  }
  return PA_OK;
}

uint16_t CrossAll(LI_TAB_STRUCT *a, const NumberedChain &b, CrossListRef ref) {
  const double tol = Tol();
  BlockVector<uint32_t> candidates;
  LI_TAB_STRUCT *ea = a;
  do {
    if (ea->type != LI_MOVE) {
      const int16_t first = static_cast<int16_t>(ref.last + 1);
      b.Candidates(WidenedBox(ea->box, tol), candidates);
      if (const uint16_t st = CrossWith(ea, b, candidates, first, ref, tol); st != PA_OK) return st;
    }
    ea = ea->next;
  } while (ea != a);
  return PA_OK;
}

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
    const uint32_t start = hoods.Start(i);
    NeighbourSteps(chain, WidenedBox(a->box, tol), start, hoods.Length(start), candidates, steps);
    numbers.clear();
    for (const uint32_t s : steps) numbers.push_back((start + s) % chain.size());
    const int16_t first = static_cast<int16_t>(ref.last + 1);
    if (const uint16_t st = CrossWith(a, chain, numbers, first, ref, tol); st != PA_OK) return st;
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
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlCrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, GE_CROSS **list,
                                int16_t *last) {
  if (list == nullptr || last == nullptr) return PA_INVALID;
  *last = FL_EMPTY;
  if (a == nullptr) return PA_OK;
  uint16_t capacity = 0;
  const CrossListRef ref{*list, capacity, *last};
  const bool self = b == nullptr || b == a;
  try {
    const uint16_t st = CrossAll(a, NumberedChain(self ? a : b), ref);
    // Self-crossing lists keep both finds of the closing joint.
    if (st == PA_OK && !self) TrimClosingJoint(*list, *last, a->ap, Tol());
    return st;
  } catch (const std::bad_alloc &) {
    return PA_NO_MEMORY;
  }
}

extern "C" uint16_t FlCrossListSingle(LI_TAB_STRUCT *k, GE_CROSS **list, int16_t *last, int16_t n) {
  if (list == nullptr || last == nullptr) return PA_INVALID;
  *last = FL_EMPTY;
  if (k == nullptr) return PA_OK;
  uint16_t capacity = 0;
  const CrossListRef ref{*list, capacity, *last};
  try {
    const NumberedChain chain(k);
    return n > 0 ? CrossNeighbours(chain, static_cast<uint32_t>(n), ref) : CrossAll(k, chain, ref);
  } catch (const std::bad_alloc &) {
    return PA_NO_MEMORY;
  }
}

// Test support for crossing lists: element chains with gaps and moves, a
// crossing list that frees itself, and entry comparisons.
#pragma once

#include <initializer_list>
#include <random>

#include "polyarc/fl.h"
#include "support/support.h"

namespace polyarc_test {

// A closed chain of copies of the given elements in order (no bridging:
// an element that does not start where the previous one ends leaves a
// gap). Build them with Line and Arc.
LI_TAB_STRUCT *Chain(LI_HEAD *head, std::initializer_list<LI_TAB_STRUCT> elements);
LI_TAB_STRUCT *Chain(LI_HEAD *head, const std::vector<LI_TAB_STRUCT> &elements);

// A move from ap to ep, expanded like a line (a bridging move).
LI_TAB_STRUCT Move(GE_POINT ap, GE_POINT ep);

// Random seeded contours for comparisons with reference computations.
class Shapes {
 public:
  explicit Shapes(unsigned seed) : rng_(seed) {}

  double Real(double lo, double hi) { return std::uniform_real_distribution<>(lo, hi)(rng_); }
  int Int(int lo, int hi) { return std::uniform_int_distribution<>(lo, hi)(rng_); }
  bool Chance(double p) { return Real(0, 1) < p; }

  // n points round centre c at random radii: a star, or with shuffled
  // angles a contour that crosses itself.
  std::vector<GE_POINT> Star(int n, GE_POINT c, double r0, double r1, bool shuffled);

  // A random walk on the integer grid 0..side, each step split into
  // collinear pieces: shared vertices, overlaps and touches everywhere.
  std::vector<GE_POINT> GridWalk(int n, int side);

  // The closed chain through the points, some edges as arcs (bulging
  // either way, either sense), some as moves, some starts pulled apart
  // into gaps.
  std::vector<LI_TAB_STRUCT> Edges(const std::vector<GE_POINT> &p, double arcs, double moves,
                                   double gaps);

 private:
  LI_TAB_STRUCT Bulge(GE_POINT p, GE_POINT q);

  std::mt19937 rng_;
};

// A crossing list held for one test and freed at its end.
struct CrossList {
  CrossList() = default;
  CrossList(const CrossList &) = delete;
  CrossList &operator=(const CrossList &) = delete;
  ~CrossList() { FlFreeCross(&list); }
  int size() const { return last + 1; }
  const GE_CROSS &operator[](int i) const { return list[i]; }

  GE_CROSS *list = nullptr;
  int16_t last = FL_EMPTY;
};

// Passes when both lists hold the same entries, field for field, in the
// same order.
testing::AssertionResult SameEntries(const GE_CROSS *a, int16_t a_last, const GE_CROSS *b,
                                     int16_t b_last);

// The crossing lists by the literal rule, comparing every pair of elements
// (and walking each neighbourhood) and entering with FlNewCross: the
// reference that the library's indexed builders must match entry for
// entry.
uint16_t AllPairsCrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, GE_CROSS **list, int16_t *last);
uint16_t AllPairsCrossListSingle(LI_TAB_STRUCT *k, GE_CROSS **list, int16_t *last, int16_t n);

}  // namespace polyarc_test

// The indexed crossing-list builders against the literal all-pairs loop on
// random seeded contours: the same status and the same entries in the same
// order, field for field.
#include <cstring>

#include "support/crossing_support.h"

namespace polyarc_test {
namespace {

testing::AssertionResult SameAsAllPairs(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  CrossList fast, slow;
  const uint16_t st_fast = FlCrossList(a, b, &fast.list, &fast.last);
  const uint16_t st_slow = AllPairsCrossList(a, b, &slow.list, &slow.last);
  if (st_fast != st_slow)
    return testing::AssertionFailure() << "status " << st_fast << " against " << st_slow;
  return SameEntries(fast.list, fast.last, slow.list, slow.last);
}

testing::AssertionResult SameAsAllPairs(LI_TAB_STRUCT *k, int16_t n) {
  CrossList fast, slow;
  const uint16_t st_fast = FlCrossListSingle(k, &fast.list, &fast.last, n);
  const uint16_t st_slow = AllPairsCrossListSingle(k, &slow.list, &slow.last, n);
  if (st_fast != st_slow)
    return testing::AssertionFailure() << "status " << st_fast << " against " << st_slow;
  return SameEntries(fast.list, fast.last, slow.list, slow.last);
}

// Two contours of one of four kinds: polygons, polygons with arcs, grid
// walks of collinear pieces, and any of these with moves and gaps.
std::vector<LI_TAB_STRUCT> RandomContour(Shapes &s, int kind, GE_POINT c) {
  const int n = s.Chance(0.15) ? s.Int(260, 300) : s.Int(3, 60);
  switch (kind) {
    case 0:
      return s.Edges(s.Star(n, c, 0.5, 1.5, false), 0, 0, 0);
    case 1:
      return s.Edges(s.Star(n, c, 0.5, 1.5, false), 0.5, 0, 0);
    case 2:
      return s.Edges(s.GridWalk(std::min(n, 80), 4), 0.1, 0, 0);
    default:
      return s.Edges(s.Star(n, c, 0.2, 2, n < 80 && s.Chance(0.5)), 0.3, 0.1, 0.1);
  }
}

TEST(CrossSearch, TwoContoursMatchTheAllPairsLoop) {
  for (unsigned seed = 0; seed < 120; ++seed) {
    Shapes s(seed);
    Store store;
    const int kind = seed % 4;
    LI_TAB_STRUCT *a = Chain(store.get(), RandomContour(s, kind, {0, 0}));
    LI_TAB_STRUCT *b =
        Chain(store.get(), RandomContour(s, kind, {s.Real(-0.5, 0.5), s.Real(-0.5, 0.5)}));
    EXPECT_TRUE(SameAsAllPairs(a, b)) << "seed " << seed;
    EXPECT_TRUE(SameAsAllPairs(b, a)) << "seed " << seed;
    EXPECT_TRUE(SameAsAllPairs(a, nullptr)) << "seed " << seed;
  }
}

TEST(CrossSearch, SelfListsMatchTheAllPairsLoop) {
  // Neighbourhoods short and long (past the walked length of 64), and
  // longer than the contour so that they pass round it more than once.
  const int16_t widths[] = {0, 1, 3, 40, 300};
  for (unsigned seed = 0; seed < 60; ++seed) {
    Shapes s(1000 + seed);
    Store store;
    // Small contours crossing themselves everywhere, or long ones that go
    // round twice and cross themselves where the two turns meet.
    std::vector<GE_POINT> points;
    if (s.Chance(0.2)) {
      const int n = s.Int(80, 150);
      points = s.Star(n, {0, 0}, 1.0, 1.1, false);
      const auto second = s.Star(n, {0, 0}, 0.95, 1.05, false);
      points.insert(points.end(), second.begin(), second.end());
    } else {
      const int n = s.Int(3, 40);
      points = seed % 2 ? s.Star(n, {0, 0}, 0.2, 2, true) : s.GridWalk(n, 5);
    }
    LI_TAB_STRUCT *k = Chain(store.get(), s.Edges(points, 0.3, 0.05, seed % 3 ? 0.0 : 0.1));
    for (const int16_t w : widths)
      EXPECT_TRUE(SameAsAllPairs(k, w)) << "seed " << seed << " n " << w;
  }
}

// Whether every entry of part appears in whole, in the same order.
bool Subsequence(const CrossList &part, const CrossList &whole) {
  int j = 0;
  for (int i = 0; i < part.size(); ++i) {
    while (j < whole.size() && std::memcmp(&part[i], &whole[j], sizeof(GE_CROSS)) != 0) ++j;
    if (j++ == whole.size()) return false;
  }
  return true;
}

TEST(CrossSearch, AllocationFailuresKeepTheEntriesMadeAndFreeTheIndex) {
  Shapes s(77);
  Store store;
  LI_TAB_STRUCT *k = Chain(store.get(), s.Edges(s.Star(40, {0, 0}, 0.2, 2, true), 0.3, 0, 0));
  for (const int16_t n : {int16_t{0}, int16_t{40}}) {
    CrossList whole;
    ASSERT_EQ(FlCrossListSingle(k, &whole.list, &whole.last, n), PA_OK);
    ASSERT_GT(whole.size(), 40);
    const unsigned long blocks = MemTestLiveBlocks();
    const unsigned long failing = ForEachAllocationFailure([&](InjectedFailure &failure) {
      CrossList part;
      failure.Arm();
      const uint16_t st = FlCrossListSingle(k, &part.list, &part.last, n);
      failure.Disarm();
      EXPECT_EQ(st, failure.Fired() ? PA_NO_MEMORY : PA_OK);
      EXPECT_TRUE(Subsequence(part, whole)) << "failure " << failure.n();
      FlFreeCross(&part.list);
      EXPECT_EQ(MemTestLiveBlocks(), blocks);
    });
    EXPECT_GT(failing, 10u) << "the index's arrays come from the memory service";
  }
}

}  // namespace
}  // namespace polyarc_test

// The indexed crossing-list builders against the literal all-pairs loop on
// random seeded contours: the same status and the same entries in the same
// order, field for field.
#include <cmath>
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

// Far from the origin the index's single-precision boxes are coarser than
// the tolerance, and a box that is not finite must reach every query.
TEST(CrossSearch, FarFromTheOriginAndWithBoxesThatAreNotFinite) {
  const double poison[] = {NAN, INFINITY, -INFINITY};
  for (unsigned seed = 0; seed < 40; ++seed) {
    Shapes s(2000 + seed);
    Store store;
    const GE_POINT far{1e7 + 0.125, -3e6};
    const int n = s.Int(20, 120);
    LI_TAB_STRUCT *a = Chain(store.get(), s.Edges(s.Star(n, far, 0.5, 1.5, false), 0.3, 0, 0));
    LI_TAB_STRUCT *b = Chain(store.get(), s.Edges(s.Star(n, far, 0.5, 1.5, false), 0.3, 0, 0));
    EXPECT_TRUE(SameAsAllPairs(a, b)) << "seed " << seed;
    // Every third seed spoils one coordinate of a box of A or of B.
    if (seed % 3 != 0) continue;
    LI_TAB_STRUCT *spoilt = seed % 2 ? a : b;
    GE_BOX &box = spoilt->next->next->box;
    double *coordinate[] = {&box.xmin, &box.ymin, &box.xmax, &box.ymax};
    *coordinate[seed % 4] = poison[(seed / 3) % 3];
    EXPECT_TRUE(SameAsAllPairs(a, b)) << "seed " << seed;
    EXPECT_TRUE(SameAsAllPairs(b, a)) << "seed " << seed;
    EXPECT_TRUE(SameAsAllPairs(spoilt, int16_t{0})) << "seed " << seed;
  }
}

// A line in 16 pieces across a comb of 100 teeth: a run of pieces sees
// more teeth than a run shares, so each piece asks the index alone. The
// line crosses every tooth once, at y = 0.5.
TEST(CrossSearch, CrowdedRunsMatchTheAllPairsLoop) {
  Store store;
  std::vector<LI_TAB_STRUCT> line, comb;
  for (int i = 0; i < 16; ++i) line.push_back(Line({i + 0.0, 0.5}, {i + 1.0, 0.5}));
  line.push_back(Line({16, 0.5}, {16, 2}));
  line.push_back(Line({16, 2}, {0, 2}));
  line.push_back(Line({0, 2}, {0, 0.5}));
  // Teeth at x = 0.05 + 0.16 k, up and down by turns, joined along y = 0 and
  // y = 1, closed below y = 0.
  for (int k = 0; k < 100; ++k) {
    const double x = 0.05 + 0.16 * k, y0 = k % 2 ? 1 : 0;
    comb.push_back(Line({x, y0}, {x, 1 - y0}));
    comb.push_back(Line({x, 1 - y0}, {x + 0.16, 1 - y0}));
  }
  comb.back() = Line(comb.back().ap, {16.05, -1});
  comb.push_back(Line({16.05, -1}, {0.05, -1}));
  comb.push_back(Line({0.05, -1}, {0.05, 0}));
  LI_TAB_STRUCT *a = Chain(store.get(), line);
  LI_TAB_STRUCT *b = Chain(store.get(), comb);
  CrossList c;
  ASSERT_EQ(FlCrossList(a, b, &c.list, &c.last), PA_OK);
  int teeth = 0;
  for (int i = 0; i < c.size(); ++i) teeth += c[i].pt.y == 0.5 ? 1 : 0;
  EXPECT_EQ(teeth, 100);
  EXPECT_TRUE(SameAsAllPairs(a, b));
  EXPECT_TRUE(SameAsAllPairs(b, a));
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

// The search grows its own list by more than a step at a time, but fills
// it up at the same entry as a list grown by steps: 32752 crossings fit,
// one more does not.
TEST(CrossSearch, ListFillsUpWhereStepsWould) {
  for (const int zigs : {32752, 32753}) {
    Store store;
    std::vector<LI_TAB_STRUCT> teeth;
    for (int k = 0; k < zigs; ++k)
      teeth.push_back(Line({double(k), k % 2 == 0 ? 1.0 : -1.0},
                           {double(k + 1), k % 2 == 0 ? -1.0 : 1.0}));
    LI_TAB_STRUCT *a = Chain(store.get(), teeth);
    LI_TAB_STRUCT *b = Chain(store.get(), {Line({-1, 0}, {zigs + 1.0, 0})});
    CrossList c;
    const uint16_t st = FlCrossList(a, b, &c.list, &c.last);
    if (zigs == 32752) {
      ASSERT_EQ(st, PA_OK);
      ASSERT_EQ(c.last, 32751);
      EXPECT_NEAR(c[32751].pt.x, 32751.5, 1e-9);
    } else {
      EXPECT_EQ(st, PA_LIST_FULL);
    }
  }
}

TEST(CrossSearch, AllocationFailuresKeepTheEntriesMadeAndFreeTheIndex) {
  Shapes s(77);
  Store store;
  LI_TAB_STRUCT *k = Chain(store.get(), s.Edges(s.Star(40, {0, 0}, 0.2, 2, true), 0.3, 0, 0));
  LI_TAB_STRUCT *other = Chain(store.get(), s.Edges(s.Star(40, {0.5, 0}, 0.2, 2, false), 0.3, 0, 0));
  // A self list of all pairs and of neighbourhoods, and a list of two
  // contours (n = -1).
  for (const int16_t n : {int16_t{0}, int16_t{40}, int16_t{-1}}) {
    const auto build = [&](CrossList &c) {
      return n < 0 ? FlCrossList(k, other, &c.list, &c.last)
                   : FlCrossListSingle(k, &c.list, &c.last, n);
    };
    CrossList whole;
    ASSERT_EQ(build(whole), PA_OK);
    ASSERT_GT(whole.size(), 20);
    const unsigned long blocks = MemTestLiveBlocks();
    const unsigned long failing = ForEachAllocationFailure([&](InjectedFailure &failure) {
      CrossList part;
      failure.Arm();
      const uint16_t st = build(part);
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

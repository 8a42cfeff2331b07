// Crossing lists of two contours and of one contour with itself, entering
// single crossings, and the list's limit.
#include <cmath>

#include "support/crossing_support.h"

namespace polyarc_test {
namespace {

const double kRoot3Half = std::sqrt(0.75);
const double kPi = 3.141592653589793;

TEST(CrossList, ClosingJointOnceForTwoContoursTwiceForOne) {
  Store store;
  // B's first edge runs through A's start (0, 0) and B crosses A's bottom
  // and top edges at (0.75, 0) and (0.5, 1).
  LI_TAB_STRUCT *a = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  LI_TAB_STRUCT *b = Polygon(store.get(), {{-1, 1}, {1, -1}, {0, 3}});
  CrossList two;
  ASSERT_EQ(FlCrossList(a, b, &two.list, &two.last), PA_OK);
  ASSERT_EQ(two.size(), 3);
  EXPECT_EQ((Points{two[0].pt, two[1].pt, two[2].pt}), (Points{{0, 0}, {0.75, 0}, {0.5, 1}}));
  EXPECT_EQ(two[0].loc_a, GE_AT_START);

  // One contour whose third edge runs through its own start: found at the
  // first element and again at the last, and both kept.
  LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {2, 0}, {2, 1}, {-2, -1}, {-2, 0}});
  const auto e = Elements(k);
  for (const bool single : {false, true}) {
    CrossList self;
    ASSERT_EQ(single ? FlCrossListSingle(k, &self.list, &self.last, 0)
                     : FlCrossList(k, nullptr, &self.list, &self.last),
              PA_OK);
    ASSERT_EQ(self.size(), 3) << single;
    const LI_TAB_STRUCT *want_a[] = {e[0], e[2], e[4]};
    const LI_TAB_STRUCT *want_b[] = {e[2], e[0], e[2]};
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(self[i].pt, (GE_POINT{0, 0}));
      EXPECT_EQ(self[i].elem_a, want_a[i]) << i;
      EXPECT_EQ(self[i].elem_b, want_b[i]) << i;
    }
  }
}

TEST(CrossList, CrossingsOnAnArcFollowItsSenseAcrossTheSeam) {
  Store store;
  const GE_POINT up{-std::sqrt(0.5), std::sqrt(0.5)}, down{up.x, -up.y}, o{0, 0};
  // Three rays from the left, met by B in the order y = -0.5, 0.5, 0.
  LI_TAB_STRUCT *b = Chain(store.get(), {Line({-2, -0.5}, {-0.8, -0.5}),
                                         Line({-2, 0.5}, {-0.8, 0.5}), Line({-2, 0}, {-0.8, 0})});
  const struct {
    LI_TAB_STRUCT arc;
    double y[3];
  } rows[] = {{Arc(up, down, o, LI_ARC_CCW), {0.5, 0, -0.5}},
              {Arc(down, up, o, LI_ARC_CW), {-0.5, 0, 0.5}}};
  for (const auto &row : rows) {
    LI_TAB_STRUCT *a = Chain(store.get(), {row.arc, Line(row.arc.ep, row.arc.ap)});
    CrossList c;
    ASSERT_EQ(FlCrossList(a, b, &c.list, &c.last), PA_OK);
    ASSERT_EQ(c.size(), 3);
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(c[i].elem_a, a);
      EXPECT_NEAR(c[i].pt.y, row.y[i], 1e-12) << row.arc.type << " entry " << i;
      EXPECT_NEAR(c[i].pt.x, row.y[i] == 0 ? -1 : -kRoot3Half, 1e-12);
    }
    EXPECT_NEAR(std::fabs(c[1].par_a), kPi, 1e-12);
  }
}

TEST(CrossListSingle, NeighbourhoodStopsAtAGap) {
  Store store;
  // The first edge is crossed at (1, 0) by the third, two steps on, and
  // four steps back round the contour.
  const LI_TAB_STRUCT first = Line({0, 0}, {2, 0}), cross = Line({1, -1}, {1, 1});
  const std::vector<LI_TAB_STRUCT> rest = {Line({1, 1}, {0, 1}), Line({0, 1}, {-1, 1}),
                                           Line({-1, 1}, {-1, 0}), Line({-1, 0}, {0, 0})};
  std::vector<LI_TAB_STRUCT> joined = {first, Line({2, 0}, {1, -1}), cross};
  std::vector<LI_TAB_STRUCT> gap = {first, Line({2, 0}, {1.5, -1}), Line({1.2, -1}, {1, -1}),
                                    cross};
  joined.insert(joined.end(), rest.begin(), rest.end());
  gap.insert(gap.end(), rest.begin(), rest.end());
  LI_TAB_STRUCT *joined_k = Chain(store.get(), joined);
  LI_TAB_STRUCT *gap_k = Chain(store.get(), gap);
  const struct {
    LI_TAB_STRUCT *k;
    int16_t n;
    int found;
  } rows[] = {
      {joined_k, 2, 2},  // crossed from both sides
      {joined_k, 1, 0},  // out of reach
      {gap_k, 2, 0},     // in reach but for the gap after the second edge
      {gap_k, 0, 2},     // n = 0 sees the whole contour
  };
  for (const auto &row : rows) {
    CrossList c;
    ASSERT_EQ(FlCrossListSingle(row.k, &c.list, &c.last, row.n), PA_OK);
    EXPECT_EQ(c.size(), row.found) << "n = " << row.n;
    for (int i = 0; i < c.size(); ++i) EXPECT_LT(std::hypot(c[i].pt.x - 1, c[i].pt.y), 1e-9);
  }
}

TEST(NewCross, JointsAndRepeatsAtOnePointAreLeftOut) {
  Store store;
  LI_TAB_STRUCT *b = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}});
  const auto e = Elements(b);
  const LI_TAB_STRUCT a0 = Line({1.5, -1}, {1.5, 1}), a1 = Line({1.5, 1}, {1.5, 3});
  const IsectPoint p{1.5, 0, 0, 1.5, GE_INSIDE, GE_INSIDE};
  CrossList c;
  uint16_t capacity = 0;
  auto enter = [&](int16_t first, const IsectPoint &pt, const LI_TAB_STRUCT *ea,
                   LI_TAB_STRUCT *eb) {
    return FlNewCross(&c.list, &capacity, &c.last, first, &pt, const_cast<LI_TAB_STRUCT *>(ea), eb);
  };
  ASSERT_EQ(enter(0, p, &a0, e[1]), PA_OK);
  EXPECT_EQ(capacity, FL_CROSS_STEP);
  // The next element of A starts at entry 1: the entry before it rejects
  // B's element and both its neighbours, nothing else.
  for (int i : {1, 0, 2, 3}) EXPECT_EQ(enter(1, p, &a1, e[i]), PA_OK);
  EXPECT_EQ(c.size(), 2);
  // Scanning from 0 the new entry goes before the equal point, which
  // rejects only B's neighbours: the same B element is entered again.
  for (int i : {2, 1}) EXPECT_EQ(enter(0, p, &a0, e[i]), PA_OK);
  ASSERT_EQ(c.size(), 3);
  EXPECT_TRUE(c[0].elem_b == e[1] && c[2].elem_b == e[3]);

  // Two consecutive elements of one contour meeting at their joint.
  const IsectPoint joint{1, 0, 1, 1, GE_AT_START, GE_AT_END};
  const IsectPoint joint_back{1, 0, 1, 1, GE_AT_END, GE_AT_START};
  EXPECT_EQ(enter(3, joint, e[1], e[0]) + enter(3, joint_back, e[0], e[1]), PA_OK);
  EXPECT_EQ(c.size(), 3);
  EXPECT_EQ(enter(3, joint_back, e[1], e[0]), PA_OK);
  EXPECT_EQ(c.size(), 4) << "codes the other way round";
}

TEST(NewCross, ListFullBeyondTheCapacityLimit) {
  Store store;
  LI_TAB_STRUCT *b = Polyline(store.get(), {{0, -1}, {0, 1}});
  const LI_TAB_STRUCT a = Line({0, 0}, {1e5, 0});
  // A list one step below the limit, as a caller may hand it in: 2046
  // steps of 16 entries, all used.
  CrossList c;
  uint16_t capacity = 32736;
  ASSERT_EQ(MemAllocBlock(reinterpret_cast<void **>(&c.list), capacity, sizeof(GE_CROSS), 1, 0),
            PA_OK);
  for (int i = 0; i < capacity; ++i) c.list[i].pt = {double(i), 0};
  c.last = int16_t(capacity - 1);
  uint16_t st = PA_OK;
  int entered = 0;
  for (int i = capacity; st == PA_OK; ++i) {
    const IsectPoint p{double(i), 0, double(i), 0, GE_INSIDE, GE_INSIDE};
    // Each as the first entry of its own element of A: no scan.
    st =
        FlNewCross(&c.list, &capacity, &c.last, c.last + 1, &p, const_cast<LI_TAB_STRUCT *>(&a), b);
    if (st == PA_OK) ++entered;
  }
  EXPECT_EQ(st, PA_LIST_FULL);
  // The 2047th step fits below 32767; the 2048th would pass it.
  EXPECT_TRUE(entered == 16 && c.last == 32751 && capacity == 32752);
  EXPECT_EQ(c[32751].pt.x, 32751.0);
}

}  // namespace
}  // namespace polyarc_test

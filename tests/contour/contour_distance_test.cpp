// Distances from a point to a contour and between contours, and which
// element or pair wins a tie.
#include <cmath>
#include <numbers>

#include "support/support.h"

namespace polyarc_test {
namespace {

// Separate lines in one chain, in the order given.
LI_TAB_STRUCT *Lines(LI_HEAD *head, GE_POINT a0, GE_POINT b0, GE_POINT a1, GE_POINT b1) {
  LI_TAB_STRUCT *k = Polyline(head, {a0, b0});
  LiChainPrev(k, Polyline(head, {a1, b1}));
  return k;
}

TEST(ContourDistance, ThePointKeepsTheLaterElementThePairsTheEarlierPair) {
  ToleranceScope tol(0.25);
  Store store;
  GE_POINT fa{}, fb{};
  LI_TAB_STRUCT *ea = nullptr, *eb = nullptr;
  double aux_a = 0, aux_b = 0, d = 0;
  auto between = [&](LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb) {
    return LiKontKontDist(ka, kb, &fa, &ea, &aux_a, &fb, &eb, &aux_b, &d);
  };
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {2, 0}, {2, 2}, {0, 2}});
  const GE_POINT centre{1, 1};
  ASSERT_EQ(LiPtKontDist(square, &centre, &fa, &ea, &d, &aux_a), PA_OK);
  EXPECT_TRUE(ea == square->prev && d == 1 && fa == (GE_POINT{0, 1})) << "all 1 away";

  // A later pair nearer by exactly tol / 2 is not enough.
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {4, 0}});
  LI_TAB_STRUCT *near_tie = Lines(store.get(), {0, 1.125}, {2, 1.125}, {2, 1}, {4, 1});
  ASSERT_EQ(between(a, near_tie), PA_OK);
  EXPECT_TRUE(eb == near_tie && d == 1.125 && fb == (GE_POINT{0, 1.125}));
  LI_TAB_STRUCT *clear = Lines(store.get(), {0, 1.25}, {2, 1.25}, {2, 1}, {4, 1});
  ASSERT_EQ(between(a, clear), PA_OK);
  EXPECT_TRUE(eb == clear->next && d == 1 && fa == (GE_POINT{4, 0}));
  // (a0, b1) and (a1, b0) are both 1 apart: a0's pairs come first.
  LI_TAB_STRUCT *two = Lines(store.get(), {0, 0}, {1, 0}, {10, 0}, {11, 0});
  ASSERT_EQ(between(two, Lines(store.get(), {10, 1}, {11, 1}, {0, 1}, {1, 1})), PA_OK);
  EXPECT_TRUE(ea == two && eb->ap == (GE_POINT{0, 1}));

  // The upper half of the unit circle against a line above it, either way round.
  LI_TAB_STRUCT *half = Polyline(store.get(), {{1, 0}});
  LI_TAB_STRUCT *roof = Polyline(store.get(), {{-1, 3}, {1, 3}});
  const GE_POINT west{-1, 0}, origin{0, 0}, above{0, 3};
  ASSERT_EQ(LiArc(store.get(), &half, &west, &origin, 0), PA_OK);
  ASSERT_EQ(between(half, roof), PA_OK);
  EXPECT_TRUE(ea == half && fb == above && std::abs(fa.y - 1) < 1e-12);
  ASSERT_EQ(between(roof, half), PA_OK);
  EXPECT_TRUE(eb == half && fa == above && std::abs(fb.y - 1) < 1e-12);
  EXPECT_DOUBLE_EQ(aux_b, std::numbers::pi / 2) << "the angle of the foot on the arc";

  EXPECT_EQ(LiPtKontDist(nullptr, &centre, &fa, &ea, &d, &aux_a), PA_INVALID);
  EXPECT_EQ(between(a, nullptr), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

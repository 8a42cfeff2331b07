// Signed areas of shapes computed by hand, direction changes, and the
// invariants that transforms must keep.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// A D shape: the line (0, -1) -> (0, 1), then the half circle of radius 1
// through (1, 0) back to the start, clockwise: area -pi/2.
LI_TAB_STRUCT *DShape(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, -1}, {0, 1}});
  const GE_POINT start{0, -1}, centre{0, 0};
  EXPECT_EQ(LiArc(head, &k, &start, &centre, 1), PA_OK);
  return k;
}

// Counter-clockwise: (0,0) -> (4,0), a counter-clockwise quarter about
// (4,2) to (6,2) bulging out, up to (6,4), a clockwise half circle about
// (3,4) through (3,1) bulging in, and down from (0,4). The polygon has
// area 22; the quarter adds 4(pi/2 - 1)/2 = pi - 2, the half circle takes
// 9 pi / 2: in all 20 - 3.5 pi.
LI_TAB_STRUCT *MixedSenses(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, 0}, {4, 0}});
  const GE_POINT q{6, 2}, cq{4, 2}, up{6, 4}, h{0, 4}, ch{3, 4}, home{0, 0};
  EXPECT_EQ(LiArc(head, &k, &q, &cq, 0), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &up), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &h, &ch, 1), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &home), PA_OK);
  return k;
}

TEST(ContourArea, ShapesComputedByHand) {
  Store store;
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  EXPECT_DOUBLE_EQ(LiKontArea(square), 1);
  LI_TAB_STRUCT *cw_square = Polygon(store.get(), {{0, 0}, {0, 1}, {1, 1}, {1, 0}});
  EXPECT_DOUBLE_EQ(LiKontArea(cw_square), -1);
  EXPECT_EQ(LiKontArea(nullptr), 0);

  for (uint16_t dir : {1, 2}) {
    LI_TAB_STRUCT circle{};
    const GE_POINT centre{5, -3};
    ASSERT_EQ(LiCreateCircle(&centre, 2, dir, &circle), PA_OK);
    circle.next = circle.prev = &circle;
    EXPECT_DOUBLE_EQ(LiKontArea(&circle), dir == 2 ? -4 * kPi : 4 * kPi);
  }

  EXPECT_DOUBLE_EQ(LiKontArea(DShape(store.get())), -kPi / 2);
  EXPECT_NEAR(LiKontArea(MixedSenses(store.get())), 20 - 3.5 * kPi, 1e-12);

  const double a = 3, b = 2, r = 0.5;
  LI_TAB_STRUCT *round = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &round, a, b, r), PA_OK);
  EXPECT_NEAR(LiKontArea(round), -(4 * a * b - (4 - kPi) * r * r), 1e-12) << "clockwise";
}

TEST(ContourArea, TwoHalfCirclesMakeTheDisc) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT right{1, 0}, left{-1, 0}, centre{0, 0};
  LiMove(store.get(), &k, &right);
  ASSERT_EQ(LiArc(store.get(), &k, &left, &centre, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &right, &centre, 0), PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(k), kPi);
}

TEST(ContourArea, ReversalNegatesAreaAndKeepsLength) {
  Store store;
  LI_TAB_STRUCT *k = MixedSenses(store.get());
  LI_TAB_STRUCT *first = k;
  const double area = LiKontArea(k), length = LiKontLen(k);
  LiKontChgDir(&k);
  EXPECT_EQ(k, first) << "a closed contour keeps its first element";
  EXPECT_NEAR(LiKontArea(k), -area, 1e-12);
  EXPECT_NEAR(LiKontLen(k), length, 1e-12);
  EXPECT_EQ(LiCheck(k), 1);
  EXPECT_EQ(k->ap, (GE_POINT{4, 0}));
  EXPECT_EQ(k->next->ep, (GE_POINT{0, 4})) << "the old last element now follows";
}

TEST(ContourArea, ReversingAnOpenPolylineStartsAtItsOldEnd) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {1, 1}});  // A -> B -> C
  LI_TAB_STRUCT *bc = k->next;
  LiKontChgDir(&k);
  EXPECT_EQ(k, bc);
  EXPECT_EQ(k->ap, (GE_POINT{1, 1}));
  EXPECT_EQ(k->ep, (GE_POINT{1, 0}));
  EXPECT_EQ(k->next->ep, (GE_POINT{0, 0}));
  LI_TAB_STRUCT *none = nullptr;
  LiKontChgDir(&none);
  EXPECT_EQ(none, nullptr);
}

TEST(ContourArea, TransformsKeepAreaAndLengthAndMirroringNegates) {
  Store store;
  LI_TAB_STRUCT *k = MixedSenses(store.get());
  const double area = LiKontArea(k), length = LiKontLen(k);
  const GE_POINT shift{-7, 11}, centre{2, 3};
  ASSERT_EQ(LiMoveRotKont(k, &shift, &centre, 2.5), PA_OK);
  EXPECT_NEAR(LiKontArea(k), area, 1e-9);
  EXPECT_NEAR(LiKontLen(k), length, 1e-9);
  ASSERT_EQ(LiMirror(k), PA_OK);
  EXPECT_NEAR(LiKontArea(k), -area, 1e-9);
  EXPECT_NEAR(LiKontLen(k), length, 1e-9);
}

}  // namespace
}  // namespace polyarc_test

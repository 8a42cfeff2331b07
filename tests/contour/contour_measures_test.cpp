// Whole-contour measures and transforms: signed areas known by hand, boxes, position against
// the x-axis, reversal, and what mirroring, moving and rotating keep.
#include <cmath>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

// A D shape about c: the line (c.x, c.y - 1) -> (c.x, c.y + 1), then the
// half circle of radius 1 through (c.x + 1, c.y) back, clockwise: -pi/2.
LI_TAB_STRUCT *DShape(LI_HEAD *head, GE_POINT c = {0, 0}) {
  const GE_POINT start{c.x, c.y - 1};
  LI_TAB_STRUCT *k = Polyline(head, {start, {c.x, c.y + 1}});
  EXPECT_EQ(LiArc(head, &k, &start, &c, 1), PA_OK);
  return k;
}

// (0,0) -> (4,0), a quarter about (4,2) bulging out, up to (6,4), a clockwise half circle
// about (3,4) bulging in, down from (0,4): 22 + (pi - 2) - 9 pi / 2 = 20 - 3.5 pi.
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
  EXPECT_DOUBLE_EQ(LiKontArea(Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}})), 1);
  EXPECT_DOUBLE_EQ(LiKontArea(Polygon(store.get(), {{0, 0}, {0, 1}, {1, 1}, {1, 0}})), -1);
  EXPECT_EQ(LiKontArea(nullptr), 0);
  for (uint16_t dir : {1, 2})
    EXPECT_DOUBLE_EQ(LiKontArea(FullCircle(store.get(), {5, -3}, 2, dir)), (3 - 2 * dir) * 4 * kPi);
  EXPECT_DOUBLE_EQ(LiKontArea(DShape(store.get())), -kPi / 2);
  EXPECT_NEAR(LiKontArea(MixedSenses(store.get())), 20 - 3.5 * kPi, 1e-12);
  const double a = 3, b = 2, r = 0.5;
  LI_TAB_STRUCT *round = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &round, a, b, r), PA_OK);
  EXPECT_NEAR(LiKontArea(round), -(4 * a * b - (4 - kPi) * r * r), 1e-12) << "clockwise";
}

TEST(ContourArea, ReversalNegatesAreaKeepsLengthAndMovesOpenContours) {
  Store store;
  LI_TAB_STRUCT *k = MixedSenses(store.get());
  LI_TAB_STRUCT *first = k;
  const double area = LiKontArea(k), length = LiKontLen(k);
  LiKontChgDir(&k);
  EXPECT_EQ(k, first) << "a closed contour keeps its first element";
  EXPECT_NEAR(std::fabs(LiKontArea(k) + area) + std::fabs(LiKontLen(k) - length), 0, 1e-12);
  EXPECT_EQ(k->next->ep, (GE_POINT{0, 4})) << "the old last element now follows";

  LI_TAB_STRUCT *open = Polyline(store.get(), {{0, 0}, {1, 0}, {1, 1}});  // A -> B -> C
  LI_TAB_STRUCT *bc = open->next;
  LiKontChgDir(&open);
  EXPECT_TRUE(open == bc && open->ap == (GE_POINT{1, 1}) && open->next->ep == (GE_POINT{0, 0}))
      << "an open contour starts at its old end";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, open}));
}

TEST(ContourTransforms, MovingRotatingAndMirroringKeepTheShape) {
  Store store;
  LI_TAB_STRUCT *k = MixedSenses(store.get());
  const double area = LiKontArea(k), length = LiKontLen(k);
  const GE_POINT shift{-7, 11}, centre{2, 3};
  ASSERT_EQ(LiMoveRotKont(k, &shift, &centre, 2.5), PA_OK);
  EXPECT_NEAR(std::fabs(LiKontArea(k) - area) + std::fabs(LiKontLen(k) - length), 0, 1e-9);
  ASSERT_EQ(LiMirror(k), PA_OK);
  EXPECT_NEAR(std::fabs(LiKontArea(k) + area) + std::fabs(LiKontLen(k) - length), 0, 1e-9);

  LI_TAB_STRUCT *m = DShape(store.get(), {0, 2});
  ASSERT_EQ(LiMirror(m), PA_OK);
  EXPECT_TRUE(m->ap == (GE_POINT{0, -1}) && m->next->type == LI_ARC_CCW);
  EXPECT_EQ(m->tan_ap, (GE_POINT{0, -1})) << "re-expanded";
  m->next->rad = 0;  // can no longer be expanded
  const GE_POINT one{1, 0};
  EXPECT_EQ(LiMoveRotKont(m, &one, &one, 0), PA_ZERO_RADIUS);
  EXPECT_EQ(m->ap, (GE_POINT{1, -1})) << "moved up to the failing element";
}

TEST(ContourBox, MarginAndPositionAgainstTheAxis) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *d = DShape(store.get(), {2, 3});
  GE_POINT lo{}, hi{};
  LiKontRealBox(d, &lo, &hi);
  EXPECT_TRUE(lo == (GE_POINT{2, 2}) && hi == (GE_POINT{3, 4})) << lo << hi;
  LiKontBox(d, &lo, &hi);
  EXPECT_TRUE(lo == (GE_POINT{1.75, 1.75}) && hi == (GE_POINT{3.25, 4.25})) << lo << hi;
  const struct {
    double ymin, ymax;
    int16_t pos;
  } rows[] = {{1, 2, 1}, {-2, -1, -1}, {0, 2, 0} /* touching: 0 */, {-1, 2, 0}};
  for (const auto &row : rows) {
    int16_t pos = 9;
    LI_TAB_STRUCT *k = Polygon(store.get(), {{0, row.ymin}, {1, row.ymin}, {1, row.ymax}});
    EXPECT_EQ(LiKontPos(k, &pos), PA_OK);
    EXPECT_EQ(pos, row.pos) << row.ymin << " " << row.ymax;
  }
}

}  // namespace
}  // namespace polyarc_test

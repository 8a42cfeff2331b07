// Boxes, position against the x-axis, mirroring, moving and rotating.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// A D shape: a line up the y-axis from (0, -1) to (0, 1), then a clockwise
// half circle of radius 1 back through (1, 0).
LI_TAB_STRUCT *DShape(LI_HEAD *head, GE_POINT shift = {0, 0}) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{shift.x, shift.y - 1}, b{shift.x, shift.y + 1};
  LiMove(head, &k, &a);
  EXPECT_EQ(LiDraw(head, &k, &b), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &a, &shift, 1), PA_OK);
  return k;
}

TEST(ContourBox, RealBoxAndStoredBoxDifferByTheMargin) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *k = DShape(store.get(), {2, 3});
  GE_POINT lo{}, hi{};
  LiKontRealBox(k, &lo, &hi);
  EXPECT_EQ(lo, (GE_POINT{2, 2}));
  EXPECT_EQ(hi, (GE_POINT{3, 4}));
  LiKontBox(k, &lo, &hi);
  EXPECT_EQ(lo, (GE_POINT{1.75, 1.75}));
  EXPECT_EQ(hi, (GE_POINT{3.25, 4.25}));
}

TEST(ContourBox, PositionAgainstTheAxis) {
  Store store;
  int16_t pos = 9;
  LI_TAB_STRUCT *above = Polygon(store.get(), {{0, 1}, {1, 1}, {1, 2}});
  EXPECT_EQ(LiKontPos(above, &pos), PA_OK);
  EXPECT_EQ(pos, 1);
  LI_TAB_STRUCT *below = Polygon(store.get(), {{0, -1}, {1, -1}, {1, -2}});
  LiKontPos(below, &pos);
  EXPECT_EQ(pos, -1);
  LI_TAB_STRUCT *touching = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 2}});  // ymin exactly 0
  LiKontPos(touching, &pos);
  EXPECT_EQ(pos, 0);
  LI_TAB_STRUCT *across = Polygon(store.get(), {{0, -1}, {1, -1}, {1, 2}});
  LiKontPos(across, &pos);
  EXPECT_EQ(pos, 0);
}

TEST(Transforms, MirrorFlipsYAndArcSenses) {
  Store store;
  LI_TAB_STRUCT *k = DShape(store.get(), {0, 2});
  EXPECT_EQ(LiMirror(k), PA_OK);
  EXPECT_EQ(k->ap, (GE_POINT{0, -1}));
  EXPECT_EQ(k->ep, (GE_POINT{0, -3}));
  EXPECT_EQ(k->next->type, LI_ARC_CCW);
  EXPECT_EQ(k->next->mp, (GE_POINT{0, -2}));
  EXPECT_EQ(k->tan_ap, (GE_POINT{0, -1})) << "re-expanded";
  GE_POINT lo{}, hi{};
  LiKontRealBox(k, &lo, &hi);
  EXPECT_EQ(hi.x, 1) << "the half circle still bulges to the right";
}

TEST(Transforms, MoveThenRotateAboutACentre) {
  Store store;
  LI_TAB_STRUCT *k = DShape(store.get());
  const GE_POINT shift{1, 0}, centre{1, 0};
  EXPECT_EQ(LiMoveRotKont(k, &shift, &centre, kPi / 2), PA_OK);
  // Shifted so the straight side runs along x = 1, then turned a quarter
  // about (1, 0): the side lies along y = 0 and the bulge points up.
  EXPECT_NEAR(k->ap.x, 2, 1e-15);
  EXPECT_NEAR(k->ap.y, 0, 1e-15);
  EXPECT_NEAR(k->ep.x, 0, 1e-15);
  EXPECT_NEAR(k->next->mp.x, 1, 1e-15);
  EXPECT_NEAR(k->next->mp.y, 0, 1e-15);
  GE_POINT lo{}, hi{};
  LiKontRealBox(k, &lo, &hi);
  EXPECT_NEAR(hi.y, 1, 1e-12);
  EXPECT_NEAR(lo.y, 0, 1e-12);
  const GE_POINT none{0, 0};
  EXPECT_EQ(LiMoveRotKont(k, &none, &none, 0), PA_OK);
  EXPECT_NEAR(k->ap.x, 2, 1e-15);
}

TEST(Transforms, ExpansionFailureStopsTheWalk) {
  Store store;
  LI_TAB_STRUCT *k = DShape(store.get());
  k->next->rad = 0;  // the arc cannot be expanded any more
  const GE_POINT shift{5, 0}, centre{0, 0};
  EXPECT_EQ(LiMoveRotKont(k, &shift, &centre, 0), PA_ZERO_RADIUS);
  EXPECT_EQ(k->ap, (GE_POINT{5, -1}));
  EXPECT_EQ(LiMirror(k), PA_ZERO_RADIUS) << "the last element's status";
}

}  // namespace
}  // namespace polyarc_test

// Recomputation of derived fields and the element boxes.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Expand, LineFieldsOfA345Segment) {
  LI_TAB_STRUCT e{};
  e.type = LI_LINE;
  e.ap = {1, 1};
  e.ep = {4, 5};
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0.6, 0.8}));
  EXPECT_EQ(e.tan_ep, e.tan_ap);
  EXPECT_EQ(e.mp, (GE_POINT{0.8, -0.6}));
  EXPECT_DOUBLE_EQ(e.rad, 0.8 * 1 - 0.6 * 1);
  EXPECT_DOUBLE_EQ(e.ang_ep - e.ang_ap, 5);
  const double tol = GeEpsiGetTol();
  EXPECT_EQ(e.box.xmin, 1 - tol);
  EXPECT_EQ(e.box.ymax, 5 + tol);
}

TEST(Expand, ZeroLengthLineKeepsAZeroDirection) {
  LI_TAB_STRUCT e{};
  e.type = LI_MOVE;
  e.ap = e.ep = {2, 3};
  e.tan_ap = {9, 9};
  EXPECT_EQ(LiElemExpand(&e), PA_ZERO_LENGTH);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, 0}));
  EXPECT_EQ(e.mp, (GE_POINT{0, 0}));
  EXPECT_EQ(LiElemExpandDrawVectorized(&e), PA_ZERO_LENGTH);
}

TEST(Expand, ArcTangentsAnglesAndAZeroRadius) {
  LI_TAB_STRUCT e{};
  e.type = LI_ARC_CW;
  e.ap = {0, 2};
  e.ep = {2, 0};
  e.mp = {0, 0};
  e.rad = 2;
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  EXPECT_EQ(e.tan_ap, (GE_POINT{1, 0}));
  EXPECT_EQ(e.tan_ep, (GE_POINT{0, -1}));
  EXPECT_DOUBLE_EQ(e.ang_ap, 3.141592653589793 / 2);
  EXPECT_EQ(e.ang_ep, 0);
  e.type = LI_ARC_CCW;
  LiElemExpand(&e);
  EXPECT_EQ(e.tan_ap, (GE_POINT{-1, 0}));

  e.rad = 0;
  e.tan_ap = {5, 5};
  EXPECT_EQ(LiElemExpand(&e), PA_ZERO_RADIUS);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, 0}));
  EXPECT_EQ(e.tan_ep, (GE_POINT{0, 0}));
  EXPECT_LT(e.box.xmin, e.box.xmax) << "the box is computed anyway";
}

TEST(Boxes, ElementBoxIsTheRealBoxPushedOutByTol) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT elems[] = {
      Line({0, 0}, {2, 1}),
      Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CW),   // three quarters
      Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW),  // one quarter
      Arc({3, 0}, {3, 0}, {1, 0}, LI_ARC_CCW),  // full circle
  };
  const GE_POINT real_lo[] = {{0, 0}, {-1, -1}, {0, 0}, {-1, -2}};
  const GE_POINT real_hi[] = {{2, 1}, {1, 1}, {1, 1}, {3, 2}};
  for (int i = 0; i < 4; ++i) {
    GE_POINT lo{}, hi{};
    LiElemRealBox(&elems[i], &lo, &hi);
    EXPECT_EQ(lo, real_lo[i]) << i;
    EXPECT_EQ(hi, real_hi[i]) << i;
    const GE_BOX b = elems[i].box;
    EXPECT_EQ(b.xmin, lo.x - 0.25);
    EXPECT_EQ(b.ymin, lo.y - 0.25);
    EXPECT_EQ(b.xmax, hi.x + 0.25);
    EXPECT_EQ(b.ymax, hi.y + 0.25);
  }
}

}  // namespace
}  // namespace polyarc_test

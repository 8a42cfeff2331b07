// Offsetting one element in place.
#include <cmath>
#include <cstring>

#include "support/support.h"

namespace polyarc_test {
namespace {

// Every field that LiElemExpand derives, compared exactly.
void ExpectSameDerivedFields(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  EXPECT_EQ(a.mp, b.mp);
  EXPECT_EQ(a.tan_ap, b.tan_ap);
  EXPECT_EQ(a.tan_ep, b.tan_ep);
  EXPECT_EQ(a.rad, b.rad);
  EXPECT_EQ(a.ang_ap, b.ang_ap);
  EXPECT_EQ(a.ang_ep, b.ang_ep);
  EXPECT_EQ(std::memcmp(&a.box, &b.box, sizeof a.box), 0);
}

TEST(ParElem, LineMovesSidewaysAndStaysExpanded) {
  LI_TAB_STRUCT e = Line({0, 0}, {10, 0});
  ASSERT_EQ(LiParElem(&e, 1, 1), PA_OK);
  EXPECT_EQ(e.ap, (GE_POINT{0, 1}));
  EXPECT_EQ(e.ep, (GE_POINT{10, 1}));
  ExpectSameDerivedFields(e, Line({0, 1}, {10, 1}));
  ASSERT_EQ(LiParElem(&e, -1, 3), PA_OK);
  ExpectSameDerivedFields(e, Line({0, -2}, {10, -2}));
}

TEST(ParElem, ArcRadiusShrinksOnTheCentreSide) {
  // Counter-clockwise: the centre is on the left.
  LI_TAB_STRUCT ccw = Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiParElem(&ccw, 1, 1), PA_OK);
  EXPECT_EQ(ccw.rad, 4);
  EXPECT_EQ(ccw.ap, (GE_POINT{4, 0}));
  EXPECT_EQ(ccw.ep, (GE_POINT{0, 4}));
  ExpectSameDerivedFields(ccw, Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW));

  // Clockwise: the centre is on the right.
  LI_TAB_STRUCT cw = Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW);
  ASSERT_EQ(LiParElem(&cw, 1, 1), PA_OK);
  EXPECT_EQ(cw.rad, 6);
  EXPECT_EQ(cw.ap, (GE_POINT{0, 6}));
  EXPECT_EQ(cw.ep, (GE_POINT{6, 0}));
  ExpectSameDerivedFields(cw, Arc({0, 6}, {6, 0}, {0, 0}, LI_ARC_CW));
  ASSERT_EQ(LiParElem(&cw, -1, 2), PA_OK);
  EXPECT_EQ(cw.rad, 4);

  EXPECT_EQ(LiParElem(nullptr, 1, 1), PA_INVALID);
}

TEST(ConicElem, LineEndsMoveByTheirOwnDistances) {
  LI_TAB_STRUCT e = Line({0, 0}, {10, 0});
  ASSERT_EQ(LiConicElem(&e, 1, 1, 3), PA_OK);
  ExpectSameDerivedFields(e, Line({0, 1}, {10, 3}));
  LI_TAB_STRUCT right = Line({0, 0}, {10, 0});
  ASSERT_EQ(LiConicElem(&right, -1, 1, 3), PA_OK);
  EXPECT_EQ(right.ap, (GE_POINT{0, -1}));
  EXPECT_EQ(right.ep, (GE_POINT{10, -3}));
  EXPECT_EQ(LiConicElem(nullptr, 1, 1, 1), PA_INVALID);
}

TEST(ConicElem, EqualDistancesGiveTheParallelArc) {
  LI_TAB_STRUCT ccw = Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiConicElem(&ccw, 1, 1, 1), PA_OK);
  EXPECT_EQ(ccw.type, LI_ARC_CCW);
  EXPECT_NEAR(ccw.rad, 4, 1e-12);
  EXPECT_NEAR(ccw.mp.x, 0, 1e-12);
  EXPECT_NEAR(ccw.mp.y, 0, 1e-12);
  EXPECT_EQ(ccw.ap, (GE_POINT{4, 0}));
  LI_TAB_STRUCT cw = Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW);
  ASSERT_EQ(LiConicElem(&cw, 1, 1, 1), PA_OK);
  EXPECT_EQ(cw.type, LI_ARC_CW);
  EXPECT_NEAR(cw.rad, 6, 1e-12);
}

TEST(ConicElem, ArcRunsThroughTheThreeOffsetPoints) {
  const double kPi = 3.141592653589793;
  // Counter-clockwise quarter of radius 5, offset towards the centre by 1
  // at the start, 2 in the middle and 3 at the end.
  LI_TAB_STRUCT e = Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiConicElem(&e, 1, 1, 3), PA_OK);
  EXPECT_EQ(e.ap, (GE_POINT{4, 0}));
  EXPECT_NEAR(e.ep.x, 0, 1e-15);
  EXPECT_EQ(e.ep.y, 2);
  const GE_POINT middle{3 * std::cos(kPi / 4), 3 * std::sin(kPi / 4)};
  for (GE_POINT p : {e.ap, e.ep, middle}) {
    EXPECT_NEAR(std::hypot(p.x - e.mp.x, p.y - e.mp.y), e.rad, 1e-12) << p;
  }
  EXPECT_EQ(e.type, LI_ARC_CCW);
  EXPECT_EQ(LiPtOnElem(&e, &middle), 1) << "re-expanded: the middle is on the new arc";
}

TEST(ConicElem, NoArcThroughThePointsLeavesTheElement) {
  // An arc of radius 0 has zero tangents: its ends stay where they are
  // while the middle moves, and no arc runs from a point back to itself
  // through another.
  LI_TAB_STRUCT e = Arc({1, 1}, {1, 1}, {1, 1}, LI_ARC_CCW);
  const LI_TAB_STRUCT before = e;
  EXPECT_EQ(LiConicElem(&e, 1, 1, 2), PA_IMPOSSIBLE);
  EXPECT_EQ(e.mp, before.mp);
  EXPECT_EQ(e.rad, before.rad);
  EXPECT_EQ(e.ap, before.ap);
}

}  // namespace
}  // namespace polyarc_test

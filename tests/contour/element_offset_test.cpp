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

}  // namespace
}  // namespace polyarc_test

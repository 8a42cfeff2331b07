// Recomputation of derived fields and the element boxes.
#include "support/support.h"

namespace polyarc_test {
namespace {

void ExpectBox(const GE_BOX &b, GE_POINT lo, GE_POINT hi, double margin) {
  EXPECT_EQ(b.xmin, lo.x - margin);
  EXPECT_EQ(b.ymin, lo.y - margin);
  EXPECT_EQ(b.xmax, hi.x + margin);
  EXPECT_EQ(b.ymax, hi.y + margin);
}

TEST(Expand, LinesGetTheirNormalFormAndZeroLengthAZeroDirection) {
  LI_TAB_STRUCT e = Line({1, 1}, {4, 5});
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0.6, 0.8}));
  EXPECT_EQ(e.tan_ep, e.tan_ap);
  EXPECT_EQ(e.mp, (GE_POINT{0.8, -0.6}));
  EXPECT_DOUBLE_EQ(e.rad, 0.8 * 1 - 0.6 * 1);
  EXPECT_DOUBLE_EQ(e.ang_ep - e.ang_ap, 5);
  e.ep = e.ap;
  EXPECT_EQ(LiElemExpand(&e), PA_ZERO_LENGTH);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, 0}));
  EXPECT_EQ(e.mp, (GE_POINT{0, 0}));
  LI_TAB_STRUCT other = Line({1, 2}, {-1, 0});  // other types only get a box
  other.type = 0;
  other.rad = 3;
  other.box = {};
  EXPECT_EQ(LiElemExpand(&other), PA_OK);
  EXPECT_EQ(other.rad, 3);
  ExpectBox(other.box, {-1, 0}, {1, 2}, GeEpsiGetTol());
  EXPECT_EQ(LiElemExpand(nullptr), PA_INVALID);
  EXPECT_EQ(LiElemExpandDrawVectorized(nullptr), PA_INVALID);
}

TEST(Expand, ArcTangentsAnglesAndAZeroRadius) {
  LI_TAB_STRUCT e = Arc({0, 2}, {2, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  EXPECT_EQ(e.tan_ap, (GE_POINT{1, 0}));
  EXPECT_EQ(e.tan_ep, (GE_POINT{0, -1}));
  EXPECT_DOUBLE_EQ(e.ang_ap, 3.141592653589793 / 2);
  EXPECT_EQ(e.ang_ep, 0);
  e.type = LI_ARC_CCW;
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  EXPECT_EQ(e.tan_ap, (GE_POINT{-1, 0}));
  e.rad = 0;
  e.box = {};
  EXPECT_EQ(LiElemExpand(&e), PA_ZERO_RADIUS);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, 0}));
  EXPECT_EQ(e.tan_ep, (GE_POINT{0, 0}));
  EXPECT_LT(e.box.xmin, e.box.xmax) << "the box is computed anyway";
  ToleranceScope tol(0.5);  // |rad| == tol is not below tol, whatever its sign
  for (double rad : {0.5, -0.5, 0.25}) {
    e.rad = rad;
    EXPECT_EQ(LiElemExpand(&e), rad == 0.25 ? PA_ZERO_RADIUS : PA_OK) << rad;
  }
}

// The arc boxes themselves are checked with the arc box geometry.
TEST(Boxes, ElementBoxIsTheRealBoxPushedOutByTol) {
  const LI_TAB_STRUCT line = Line({0, 0}, {2, 1});
  ExpectBox(line.box, {0, 0}, {2, 1}, 5e-05);  // the default tolerance
  ToleranceScope tol(0.25);
  const struct {
    LI_TAB_STRUCT e;
    GE_POINT lo, hi;
  } rows[] = {
      {Line({0, 0}, {2, 1}), {0, 0}, {2, 1}},
      {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CW), {-1, -1}, {1, 1}},   // three quarters
      {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW), {0, 0}, {1, 1}},    // one quarter
      {Arc({3, 0}, {3, 0}, {1, 0}, LI_ARC_CCW), {-1, -2}, {3, 2}},  // full circle
  };
  for (const auto &row : rows) {
    GE_POINT lo{}, hi{};
    LiElemRealBox(&row.e, &lo, &hi);
    EXPECT_EQ(lo, row.lo) << row.e.type;
    EXPECT_EQ(hi, row.hi) << row.e.type;
    LI_TAB_STRUCT e = row.e;
    e.box = {};
    LiElemBox(&e);
    ExpectBox(e.box, row.lo, row.hi, 0.25);
  }
  GE_POINT lo{}, hi{};
  LiElemBox(nullptr);
  LiElemRealBox(nullptr, &lo, &hi);
  LiElemRealBox(&line, nullptr, &hi);
}

}  // namespace
}  // namespace polyarc_test

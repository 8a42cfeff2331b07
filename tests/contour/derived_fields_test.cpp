// Recomputation of derived fields and the element boxes.
#include <cmath>
#include <string>

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

TEST(Expand, LineFieldsAreTheNormalForm) {
  const GE_POINT a{0.1, -2.7}, b{-3.3, 4.9};
  LI_TAB_STRUCT e = Line(a, b);
  GE_POINT normal{};
  double c = 0, t1 = 0, t2 = 0;
  ASSERT_EQ(GeGeoLineToNf(&a, &b, &normal, &c, &t1, &t2), PA_OK);
  EXPECT_EQ(e.mp, normal);
  EXPECT_EQ(e.rad, c);
  EXPECT_EQ(e.ang_ap, t1);
  EXPECT_EQ(e.ang_ep, t2);
  // Expanded as a segment whatever the type says, box included.
  e.type = LI_ARC_CW;
  e.ap = {0, 0};
  e.ep = {2, 1};
  EXPECT_EQ(LiElemExpandDrawVectorized(&e), PA_OK);
  const double tol = GeEpsiGetTol();
  EXPECT_EQ(e.box.xmin, -tol);
  EXPECT_EQ(e.box.ymin, -tol);
  EXPECT_EQ(e.box.xmax, 2 + tol);
  EXPECT_EQ(e.box.ymax, 1 + tol);
  EXPECT_EQ(LiElemExpand(nullptr), PA_INVALID);
  EXPECT_EQ(LiElemExpandDrawVectorized(nullptr), PA_INVALID);
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

TEST(Expand, RadiusBelowTolIsZero) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT e = Arc({0.5, 0}, {0, 0.5}, {0, 0}, LI_ARC_CCW);
  EXPECT_EQ(LiElemExpand(&e), PA_OK) << "|rad| == tol is not below it";
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, 1}));
  e.rad = -0.5;
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  e.rad = 0.25;
  EXPECT_EQ(LiElemExpand(&e), PA_ZERO_RADIUS);
}

TEST(Expand, OtherTypesOnlyGetABox) {
  LI_TAB_STRUCT e{};
  e.ap = {1, 2};
  e.ep = {-1, 0};
  e.tan_ap = {7, 7};
  e.rad = 3;
  EXPECT_EQ(LiElemExpand(&e), PA_OK);
  EXPECT_EQ(e.tan_ap, (GE_POINT{7, 7}));
  EXPECT_EQ(e.rad, 3);
  EXPECT_EQ(e.box.xmin, -1 - GeEpsiGetTol());
  EXPECT_EQ(e.box.ymax, 2 + GeEpsiGetTol());
}

// The tight box of arcs from and to every eighth of the circle (ends on
// the axes included), in both senses, against the extent of many points
// along each arc.
TEST(Boxes, ArcBoxIsTheExtentOfTheArc) {
  const double kPi = 3.141592653589793;
  for (int i = 0; i < 8; ++i) {
    for (int j = 0; j < 8; ++j) {
      if (i == j) continue;
      for (uint16_t type : {LI_ARC_CW, LI_ARC_CCW}) {
        const GE_POINT mp{1, -2};
        const auto on = [&](int k) {
          return GE_POINT{mp.x + 2 * std::cos(k * kPi / 4), mp.y + 2 * std::sin(k * kPi / 4)};
        };
        const LI_TAB_STRUCT e = Arc(on(i), on(j), mp, type);
        GE_POINT lo{}, hi{};
        LiElemRealBox(&e, &lo, &hi);
        GE_POINT min = e.ap, max = e.ap;
        for (int n = 0; n <= 4096; ++n) {
          const GE_POINT p = LiElemPt(&e, n / 4096.0);
          min = {std::fmin(min.x, p.x), std::fmin(min.y, p.y)};
          max = {std::fmax(max.x, p.x), std::fmax(max.y, p.y)};
        }
        const std::string what = std::to_string(i) + " to " + std::to_string(j) +
                                 (type == LI_ARC_CW ? " clockwise" : " counter-clockwise");
        EXPECT_NEAR(lo.x, min.x, 1e-6) << what;
        EXPECT_NEAR(lo.y, min.y, 1e-6) << what;
        EXPECT_NEAR(hi.x, max.x, 1e-6) << what;
        EXPECT_NEAR(hi.y, max.y, 1e-6) << what;
      }
    }
  }
}

TEST(Boxes, LineBoxAtTheDefaultTolerance) {
  const LI_TAB_STRUCT e = Line({0, 0}, {2, 1});
  EXPECT_EQ(e.box.xmin, -5e-05);
  EXPECT_EQ(e.box.ymin, -5e-05);
  EXPECT_EQ(e.box.xmax, 2 + 5e-05);
  EXPECT_EQ(e.box.ymax, 1 + 5e-05);
  LI_TAB_STRUCT copy = e;
  copy.box = {};
  LiElemBox(&copy);
  EXPECT_EQ(copy.box.xmax, e.box.xmax);
  LiElemBox(nullptr);
  GE_POINT lo{}, hi{};
  LiElemRealBox(nullptr, &lo, &hi);
  LiElemRealBox(&e, nullptr, &hi);
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

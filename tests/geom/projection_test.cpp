// Projection, side, tangent, curvature, midpoint and the normal form of a
// line.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Projection, FeetOnCarriersArcCentreRefusedNegativeRadiusFlips) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT arc = Arc({2, 0}, {0, 2}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT line = Line({0, 1}, {4, 1});
  GE_POINT foot{9, 9}, p{0.25, -0.25}, q{-3, 7};
  EXPECT_EQ(GeProjPtElem(&arc, &p, &foot), PA_IMPOSSIBLE);
  EXPECT_EQ(foot, (GE_POINT{0, 0}));
  EXPECT_EQ(GeProjPtElem(&line, &q, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{-3, 1}));
  p = {0, -5};  // outside the arc's range: the carrier has none
  EXPECT_EQ(GeProjPtElem(&arc, &p, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{0, -2}));
  arc.rad = -2;
  GeProjPtElem(&arc, &p, &foot);
  EXPECT_EQ(foot, (GE_POINT{0, 2}));
  const GE_POINT centre{1, 1};
  p = {4, 5};  // 3-4-5 from the centre, moved out to radius 10
  q = centre;
  EXPECT_EQ(GeNearOnCir(&centre, 10, &p) + GeNearOnCir(&centre, 10, &q), 0);
  EXPECT_EQ(p, (GE_POINT{7, 9}));
  EXPECT_EQ(q, centre) << "a point at the centre stays";
}

TEST(Projection, SidesAreLeftPositiveAndTolCountsAsOn) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  const LI_TAB_STRUCT ccw = Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT cw = Arc({0, 4}, {4, 0}, {0, 0}, LI_ARC_CW);
  const std::tuple<const LI_TAB_STRUCT *, GE_POINT, uint16_t, int32_t, double> cases[] = {
      {&line, {10, 3}, PA_OK, 1, 3},      // beyond the end: lines have no range
      {&line, {2, -0.5}, PA_OK, 0, 0.5},  // exactly tol
      {&line, {2, -0.75}, PA_OK, -1, 0.75},
      {&ccw, {2, 2}, PA_OK, 1, 4 - std::sqrt(8.0)},  // inside the circle
      {&cw, {2, 2}, PA_OK, -1, 4 - std::sqrt(8.0)},
      {&ccw, {-6, -6}, PA_NOT_ON, -1, std::sqrt(72.0) - 4},  // side given outside the range
  };
  for (auto [e, p, status, want_side, want_dist] : cases) {
    int32_t side = 9;
    double dist = -1;
    const uint16_t got = GePtElemSide(e, &p, &side, &dist);
    EXPECT_EQ(std::make_tuple(got, side), std::make_tuple(status, want_side)) << p;
    EXPECT_DOUBLE_EQ(dist, want_dist) << p;
  }
}

TEST(Projection, TangentsDivideByTheStoredRadiusAndCurvatureSigns) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT arc = Arc({2, 0}, {0, 2}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT line = Line({0, 0}, {3, 4});
  GE_POINT t{}, p{4, 0}, centre{0.25, 0.25};
  EXPECT_EQ(GePtElemTan(&arc, &p, &t), PA_OK);
  EXPECT_EQ(t, (GE_POINT{0, 2})) << "not a unit vector off the circle";
  EXPECT_EQ(GeKruem(&arc), 0.5);
  arc.type = LI_ARC_CW;
  GePtElemTan(&arc, &p, &t);
  EXPECT_EQ(t, (GE_POINT{0, -2}));
  EXPECT_EQ(GeKruem(&arc), -0.5);
  arc.rad = -2;
  GePtElemTan(&arc, &p, &t);
  EXPECT_EQ(t, (GE_POINT{0, 2}));
  EXPECT_EQ(GePtElemTan(&arc, &centre, &t), PA_INVALID);
  EXPECT_EQ(GePtElemTan(&line, &centre, &t), PA_OK);
  EXPECT_EQ(t, (GE_POINT{0.6, 0.8}));
  EXPECT_EQ(GeKruem(&line), 0.0);
}

TEST(Projection, MidpointsHalveTheSweepButNotAFullCircle) {
  const GE_POINT o{0, 0};
  const std::tuple<LI_TAB_STRUCT, GE_POINT> cases[] = {
      {Arc({1, 0}, {-1, 0}, o, LI_ARC_CW), {0, -1}},
      {Arc({0, 1}, {0, -1}, o, LI_ARC_CCW), {-1, 0}},  // through pi
      {Arc({1, 0}, {1, 0}, o, LI_ARC_CCW), {1, 0}},
  };
  for (const auto &[e, want] : cases) {
    GE_POINT m{9, 9};
    EXPECT_EQ(GeElemMpt(&e, &m), PA_OK);
    EXPECT_NEAR(m.x, want.x, 1e-15) << want;
    EXPECT_NEAR(m.y, want.y, 1e-15) << want;
  }
}

TEST(Projection, NormalFormOfALineIsWhatALineElementStores) {
  const GE_POINT a{0, 0}, b{1, 0}, p{3, 1}, q{6, 5};
  GE_POINT n{};
  double c = 9, t1 = 9, t2 = 9;
  EXPECT_EQ(GeGeoLineToNf(&a, &b, &n, &c, &t1, &t2), PA_OK);
  EXPECT_EQ(std::make_tuple(n, c, t1, t2), std::make_tuple(GE_POINT{0, -1}, 0.0, 0.0, 1.0));
  const LI_TAB_STRUCT line = Line(p, q);  // a 3-4-5 direction
  EXPECT_EQ(GeGeoLineToNf(&p, &q, &n, &c, &t1, &t2), PA_OK);
  EXPECT_EQ(n, (GE_POINT{0.8, -0.6}));
  EXPECT_EQ(std::make_tuple(n, c, t1, t2),
            std::make_tuple(line.mp, line.rad, line.ang_ap, line.ang_ep));
  n = {7, 7};
  EXPECT_EQ(GeGeoLineToNf(&p, &p, &n, &c, &t1, &t2), PA_ZERO_LENGTH);
  EXPECT_EQ(n, (GE_POINT{7, 7}));
}

}  // namespace
}  // namespace polyarc_test

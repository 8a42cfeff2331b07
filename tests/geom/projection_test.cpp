// Projection, side, tangent, curvature, midpoint and the normal form of a
// line.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Projection, ArcCentreIsRefusedAndNegativeRadiusFlips) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT arc = Arc({2, 0}, {0, 2}, {0, 0}, LI_ARC_CCW);
  GE_POINT foot{9, 9};
  GE_POINT p{0.25, -0.25};
  EXPECT_EQ(GeProjPtElem(&arc, &p, &foot), PA_IMPOSSIBLE);
  EXPECT_EQ(foot, (GE_POINT{0, 0}));
  p = {0, -5};  // outside the arc's range: the carrier has no range
  EXPECT_EQ(GeProjPtElem(&arc, &p, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{0, -2}));
  arc.rad = -2;
  EXPECT_EQ(GeProjPtElem(&arc, &p, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{0, 2}));

  LI_TAB_STRUCT line = Line({0, 1}, {4, 1});
  p = {-3, 7};
  EXPECT_EQ(GeProjPtElem(&line, &p, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{-3, 1}));
}

TEST(Projection, SidesAreLeftPositiveForLinesAndBothArcSenses) {
  ToleranceScope tol(0.5);
  int32_t side = 9;
  double dist = -1;
  LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  GE_POINT p{10, 3};  // beyond the end: lines have no range
  EXPECT_EQ(GePtElemSide(&line, &p, &side, &dist), PA_OK);
  EXPECT_EQ(side, 1);
  EXPECT_EQ(dist, 3);
  p = {2, -0.5};  // exactly tol: counts as on the element
  EXPECT_EQ(GePtElemSide(&line, &p, &side, &dist), PA_OK);
  EXPECT_EQ(side, 0);

  LI_TAB_STRUCT ccw = Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW);
  LI_TAB_STRUCT cw = Arc({0, 4}, {4, 0}, {0, 0}, LI_ARC_CW);
  p = {2, 2};  // inside the circle
  EXPECT_EQ(GePtElemSide(&ccw, &p, &side, &dist), PA_OK);
  EXPECT_EQ(side, 1);
  EXPECT_EQ(GePtElemSide(&cw, &p, &side, &dist), PA_OK);
  EXPECT_EQ(side, -1);
  EXPECT_DOUBLE_EQ(dist, 4 - std::sqrt(8.0));
  p = {-6, -6};  // outside both range and circle: side still given
  EXPECT_EQ(GePtElemSide(&ccw, &p, &side, &dist), PA_NOT_ON);
  EXPECT_EQ(side, -1);
}

TEST(Projection, TangentsDivideByTheStoredRadius) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  GE_POINT t{};
  GE_POINT p{2, 0};
  EXPECT_EQ(GePtElemTan(&ccw, &p, &t), PA_OK);
  EXPECT_EQ(t, (GE_POINT{0, 2})) << "not a unit vector off the circle";
  ccw.type = LI_ARC_CW;
  EXPECT_EQ(GePtElemTan(&ccw, &p, &t), PA_OK);
  EXPECT_EQ(t, (GE_POINT{0, -2}));
  ccw.rad = -1;
  EXPECT_EQ(GePtElemTan(&ccw, &p, &t), PA_OK);
  EXPECT_EQ(t, (GE_POINT{0, 2}));
  p = {0.25, 0.25};
  EXPECT_EQ(GePtElemTan(&ccw, &p, &t), PA_INVALID);
  LI_TAB_STRUCT line = Line({0, 0}, {3, 4});
  EXPECT_EQ(GePtElemTan(&line, &p, &t), PA_OK);
  EXPECT_EQ(t, (GE_POINT{0.6, 0.8}));
}

TEST(Projection, CurvatureSigns) {
  LI_TAB_STRUCT ccw = Arc({2, 0}, {0, 2}, {0, 0}, LI_ARC_CCW);
  LI_TAB_STRUCT cw = Arc({0, 2}, {2, 0}, {0, 0}, LI_ARC_CW);
  LI_TAB_STRUCT line = Line({0, 0}, {1, 0});
  EXPECT_EQ(GeKruem(&ccw), 0.5);
  EXPECT_EQ(GeKruem(&cw), -0.5);
  EXPECT_EQ(GeKruem(&line), 0.0);
}

TEST(Projection, MidpointsOfLinesArcsAndFullCircles) {
  GE_POINT m{};
  LI_TAB_STRUCT line = Line({0, 0}, {3, 4});
  EXPECT_EQ(GeElemMpt(&line, &m), PA_OK);
  EXPECT_EQ(m, (GE_POINT{1.5, 2}));
  LI_TAB_STRUCT upper = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);
  GeElemMpt(&upper, &m);
  EXPECT_NEAR(m.x, 0, 1e-15);
  EXPECT_DOUBLE_EQ(m.y, 1);
  LI_TAB_STRUCT lower = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CW);
  GeElemMpt(&lower, &m);
  EXPECT_DOUBLE_EQ(m.y, -1);
  LI_TAB_STRUCT seam = Arc({0, 1}, {0, -1}, {0, 0}, LI_ARC_CCW);  // through pi
  GeElemMpt(&seam, &m);
  EXPECT_DOUBLE_EQ(m.x, -1);
  LI_TAB_STRUCT circle = Arc({1, 0}, {1, 0}, {0, 0}, LI_ARC_CCW);
  GeElemMpt(&circle, &m);
  EXPECT_EQ(m, (GE_POINT{1, 0})) << "a full circle is not halved";
}

TEST(Projection, NearOnCircleMovesRadially) {
  const GE_POINT centre{1, 1};
  GE_POINT p{4, 5};
  EXPECT_EQ(GeNearOnCir(&centre, 10, &p), 0);
  EXPECT_DOUBLE_EQ(p.x, 7);
  EXPECT_DOUBLE_EQ(p.y, 9);
  GE_POINT at_centre = centre;
  EXPECT_EQ(GeNearOnCir(&centre, 10, &at_centre), 0);
  EXPECT_EQ(at_centre, centre);
}

TEST(Projection, NormalFormOfALine) {
  const GE_POINT a{0, 0}, b{1, 0};
  GE_POINT n{};
  double c = 9, t1 = 9, t2 = 9;
  EXPECT_EQ(GeGeoLineToNf(&a, &b, &n, &c, &t1, &t2), PA_OK);
  EXPECT_EQ(n, (GE_POINT{0, -1}));
  EXPECT_EQ(c, 0);
  EXPECT_EQ(t1, 0);
  EXPECT_EQ(t2, 1);
  const GE_POINT p{3, 1}, q{6, 5};  // a 3-4-5 direction
  EXPECT_EQ(GeGeoLineToNf(&p, &q, &n, &c, &t1, &t2), PA_OK);
  EXPECT_EQ(n, (GE_POINT{0.8, -0.6}));
  EXPECT_DOUBLE_EQ(c, 0.8 * 3 - 0.6);
  EXPECT_DOUBLE_EQ(t2 - t1, 5);
  LI_TAB_STRUCT line = Line(p, q);
  EXPECT_EQ(line.mp, n) << "the same values a line element stores";
  EXPECT_EQ(line.rad, c);
  EXPECT_EQ(line.ang_ap, t1);
  EXPECT_EQ(line.ang_ep, t2);
  n = {7, 7};
  EXPECT_EQ(GeGeoLineToNf(&p, &p, &n, &c, &t1, &t2), PA_ZERO_LENGTH);
  EXPECT_EQ(n, (GE_POINT{7, 7}));
}

}  // namespace
}  // namespace polyarc_test

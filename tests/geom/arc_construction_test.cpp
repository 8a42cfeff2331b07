// Arcs from three points (with the exchange and the full-circle route),
// from a start tangent and about a centre.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Arc3PointCheck, EachCodeInOrder) {
  const GE_POINT o{0, 0}, a{1, 1}, b{2, 0}, c{1, 2}, d{2, 4};
  EXPECT_EQ(GeArc3PointCheck(&o, &a, &a), PA_DEGENERATE) << "mixed product a.x b.x - a.y b.y = 0";
  EXPECT_EQ(GeArc3PointCheck(&o, &a, &b), PA_IMPOSSIBLE) << "horizontal chord p1-p3";
  EXPECT_EQ(GeArc3PointCheck(&o, &c, &d), PA_IMPOSSIBLE) << "collinear";
  EXPECT_EQ(GeArc3PointCheck(&o, &b, &a), PA_OK);
}

TEST(Arc3Points, ExchangeStaysAndSenseFollowsTheGivenOrder) {
  const GE_POINT o{0, 0};
  GE_POINT p2{1, 1}, p3{2, 0}, m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(p2, (GE_POINT{2, 0})) << "exchanged in the caller's storage";
  EXPECT_EQ(p3, (GE_POINT{1, 1}));
  EXPECT_NEAR(m.x, 1, 1e-12);
  EXPECT_NEAR(m.y, 0, 1e-12);
  EXPECT_NEAR(r, 1, 1e-12);
  EXPECT_EQ(sense, LI_ARC_CW) << "(0,0) -> (1,1) -> (2,0) turns clockwise";

  p2 = {1, -1};
  p3 = {2, 0};
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(sense, LI_ARC_CCW);

  p2 = {2, 0};
  p3 = {1, 1};  // passes the check without an exchange
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(p2, (GE_POINT{2, 0}));
  EXPECT_EQ(sense, LI_ARC_CCW);
}

TEST(Arc3Points, DegenerateRoutesToTheFullCircle) {
  const GE_POINT o{0, 0};
  GE_POINT p2{1, 1}, p3{1, 1}, m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(m, (GE_POINT{0.5, 0.5}));
  EXPECT_DOUBLE_EQ(r, std::sqrt(0.5));
  EXPECT_EQ(sense, LI_CIRCLE_CW);

  p2 = {1, 0};
  p3 = {0, 0};
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_IMPOSSIBLE) << "p1 = p3, p2 apart";
  p2 = p3 = {0, 0};
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_DEGENERATE) << "all three equal";
  p2 = {1, 0};
  p3 = {2, 0};
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_IMPOSSIBLE) << "fails in both orders";
  EXPECT_EQ(p2, (GE_POINT{2, 0}));
}

TEST(ArcRound, CentreFromP2RadiusFromP3) {
  ToleranceScope tol(0.25);
  const GE_POINT p1{0, 0}, p2{4, 0}, p3{2, 0}, near{0.125, 0.125};
  GE_POINT m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcRound(&p1, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(m, (GE_POINT{2, 0}));
  EXPECT_EQ(r, 1);
  EXPECT_EQ(GeArcRound(&p1, &p2, &near, &m, &r, &sense), PA_IMPOSSIBLE);
  EXPECT_EQ(GeArcRound(&p1, &near, &near, &m, &r, &sense), PA_DEGENERATE);
}

TEST(ArcBy3Points, CentreInThePlaneOfTheFirstPoint) {
  const GE_POINT3 p1{0, 0, 5}, p2{1, 1, 5}, p3{2, 0, 5};
  GE_POINT3 m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_NEAR(m.x, 1, 1e-12);
  EXPECT_NEAR(m.y, 0, 1e-12);
  EXPECT_EQ(m.z, 5);
  EXPECT_NEAR(r, 1, 1e-12);
  EXPECT_EQ(sense, LI_ARC_CW);

  ToleranceScope tol(0.25);
  const GE_POINT3 off{2, 0, 5.25}, slightly{2, 0, 5.125}, line{2, 2, 5};
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &off, &m, &r, &sense), PA_INVALID) << "z off by tol";
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &slightly, &m, &r, &sense), PA_OK);
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &line, &m, &r, &sense), PA_IMPOSSIBLE);
}

TEST(ArcByTang, LeavesTheStartAlongTheTangent) {
  const GE_POINT3 before{-1, 0, 2}, start{0, 0, 2}, left{1, 1, 2}, right{1, -1, 2};
  GE_POINT3 m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcByTang(&before, &start, &left, &m, &r, &sense), PA_OK);
  EXPECT_EQ(m.x, 0);
  EXPECT_EQ(m.y, 1);
  EXPECT_EQ(m.z, 2);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(sense, LI_ARC_CCW);
  EXPECT_EQ(GeArcByTang(&before, &start, &right, &m, &r, &sense), PA_OK);
  EXPECT_EQ(m.y, -1);
  EXPECT_EQ(sense, LI_ARC_CW);

  const GE_POINT3 ahead{3, 0, 2}, high{1, 1, 3};
  EXPECT_EQ(GeArcByTang(&before, &start, &ahead, &m, &r, &sense), PA_IMPOSSIBLE);
  EXPECT_EQ(GeArcByTang(&start, &start, &left, &m, &r, &sense), PA_ZERO_LENGTH);
  EXPECT_EQ(GeArcByTang(&before, &start, &high, &m, &r, &sense), PA_INVALID);
}

TEST(ArcByCenter, MovesTheEndOntoTheCircle) {
  const GE_POINT3 m{0, 0, 1}, start{1, 0, 1};
  GE_POINT3 end{0, 1.1, 1};
  double r = 0;
  EXPECT_EQ(GeArcByCenter(&m, &start, &end, &r), PA_OK);
  EXPECT_EQ(r, 1);
  EXPECT_NEAR(end.x, 0, 1e-15);
  EXPECT_DOUBLE_EQ(end.y, 1);
  EXPECT_EQ(end.z, 1);

  end = {0, 0, 1};
  EXPECT_EQ(GeArcByCenter(&m, &start, &end, &r), PA_OK);
  EXPECT_EQ(end.x, 0) << "an end at the centre stays";
  end = {0, 2, 3};
  EXPECT_EQ(GeArcByCenter(&m, &start, &end, &r), PA_INVALID);
  EXPECT_EQ(end.y, 2);
  EXPECT_EQ(GeArc3DAng(), 0);
}

}  // namespace
}  // namespace polyarc_test

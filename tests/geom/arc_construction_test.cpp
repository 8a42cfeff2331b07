// Arcs from three points (with the exchange and the full-circle route),
// from a start tangent and about a centre.
#include <cmath>
#include <tuple>

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
  GE_POINT m{};
  double r = 0;
  uint16_t sense = 0;
  // {p2, p3, p2 afterwards, sense}: the first two fail the check and are exchanged.
  const std::tuple<GE_POINT, GE_POINT, GE_POINT, uint16_t> cases[] = {
      {{1, 1}, {2, 0}, {2, 0}, LI_ARC_CW},  // (0,0) -> (1,1) -> (2,0) turns clockwise
      {{1, -1}, {2, 0}, {2, 0}, LI_ARC_CCW},
      {{2, 0}, {1, 1}, {2, 0}, LI_ARC_CCW},
  };
  for (auto [p2, p3, p2_after, want] : cases) {
    EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
    EXPECT_EQ(std::make_tuple(p2, sense), std::make_tuple(p2_after, want)) << p3;
    EXPECT_NEAR(m.x, 1, 1e-12);
    EXPECT_NEAR(m.y, 0, 1e-12);
    EXPECT_NEAR(r, 1, 1e-12);
  }
  GE_POINT p2{1, 1}, p3{1, 1};  // degenerate: the full circle on the diameter
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(std::make_tuple(m, sense), std::make_tuple(GE_POINT{0.5, 0.5}, LI_CIRCLE_CW));
  EXPECT_DOUBLE_EQ(r, std::sqrt(0.5));
  p2 = {1, 0};
  p3 = {2, 0};
  EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_IMPOSSIBLE) << "fails in both orders";
}

TEST(ArcRound, CentreFromP2RadiusFromP3) {
  ToleranceScope tol(0.25);
  const GE_POINT p1{0, 0}, p2{4, 0}, p3{2, 0}, near{0.125, 0.125};
  GE_POINT m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcRound(&p1, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_EQ(std::make_tuple(m, r, sense), std::make_tuple(GE_POINT{2, 0}, 1.0, LI_CIRCLE_CW));
  EXPECT_EQ(GeArcRound(&p1, &p2, &near, &m, &r, &sense), PA_IMPOSSIBLE) << "p1 = p3, p2 apart";
  EXPECT_EQ(GeArcRound(&p1, &near, &near, &m, &r, &sense), PA_DEGENERATE);
}

TEST(ArcBy3PointsAndByTang, CentreInThePlaneOfTheFirstPoint) {
  const GE_POINT3 p1{0, 0, 5}, p2{1, 1, 5}, p3{2, 0, 5}, before{-1, 0, 5}, right{1, -1, 5};
  GE_POINT3 m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &p3, &m, &r, &sense), PA_OK);
  EXPECT_NEAR(m.x, 1, 1e-12);
  EXPECT_NEAR(m.y, 0, 1e-12);
  EXPECT_NEAR(r, 1, 1e-12);
  EXPECT_EQ(std::make_tuple(m.z, sense), std::make_tuple(5.0, LI_ARC_CW));
  EXPECT_EQ(GeArcByTang(&before, &p1, &p2, &m, &r, &sense), PA_OK);  // leaves (0,0) along +x
  EXPECT_EQ(std::make_tuple(m.x, m.y, m.z, r, sense),
            std::make_tuple(0.0, 1.0, 5.0, 1.0, LI_ARC_CCW));

  EXPECT_EQ(GeArcByTang(&before, &p1, &right, &m, &r, &sense), PA_OK);
  EXPECT_EQ(std::make_tuple(m.y, sense), std::make_tuple(-1.0, LI_ARC_CW));

  ToleranceScope tol(0.25);
  const GE_POINT3 off{2, 0, 5.25}, slightly{2, 0, 5.125}, collinear{2, 2, 5}, ahead{3, 0, 5};
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &off, &m, &r, &sense), PA_INVALID) << "z off by tol";
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &slightly, &m, &r, &sense), PA_OK);
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &collinear, &m, &r, &sense), PA_IMPOSSIBLE);
  EXPECT_EQ(GeArcByTang(&before, &p1, &off, &m, &r, &sense), PA_INVALID);
  EXPECT_EQ(GeArcByTang(&before, &p1, &ahead, &m, &r, &sense), PA_IMPOSSIBLE);
  EXPECT_EQ(GeArcByTang(&p1, &p1, &p2, &m, &r, &sense), PA_ZERO_LENGTH);
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

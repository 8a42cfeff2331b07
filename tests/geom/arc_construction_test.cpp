// Arc construction, arcs and segments divided into polylines, and the shared
// polyline buffer: reused, grown on demand, null when memory fails.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

const auto capacity = [](const GE_POINT3 *p) { return MemTestBlockBytes(p) / sizeof(GE_POINT3); };
const auto off = [](GE_POINT3 p, double x, double y, double z) {
  return std::hypot(p.x - x, p.y - y) + std::fabs(p.z - z);
};

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
  // {p2, p3, p2 afterwards, centre, radius, sense}; the first two rows get exchanged.
  const std::tuple<GE_POINT, GE_POINT, GE_POINT, GE_POINT, double, uint16_t> cases[] = {
      {{1, 1}, {2, 0}, {2, 0}, {1, 0}, 1, LI_ARC_CW},  // (0,0) -> (1,1) -> (2,0) turns clockwise
      {{1, -1}, {2, 0}, {2, 0}, {1, 0}, 1, LI_ARC_CCW},
      {{2, 0}, {1, 1}, {2, 0}, {1, 0}, 1, LI_ARC_CCW},
      {{1, 1}, {1, 1}, {1, 1}, {0.5, 0.5}, std::sqrt(0.5), LI_CIRCLE_CW},  // p2 = p3: a circle
  };
  for (auto [p2, p3, p2_after, centre, radius, want] : cases) {
    EXPECT_EQ(GeArc3Points(&o, &p2, &p3, &m, &r, &sense), PA_OK);
    EXPECT_EQ(std::make_tuple(p2, sense), std::make_tuple(p2_after, want)) << p3;
    EXPECT_NEAR(std::hypot(m.x - centre.x, m.y - centre.y) + std::fabs(r - radius), 0, 1e-12);
  }
  GE_POINT p2{1, 0}, p3{2, 0};
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
  ToleranceScope tol(0.25);
  const GE_POINT3 p1{0, 0, 5}, p2{1, 1, 5}, p3{2, 0, 5.125}, off{2, 0, 5.25}, before{-1, 0, 5};
  GE_POINT3 m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &p3, &m, &r, &sense), PA_OK);  // z within tol
  EXPECT_NEAR(std::hypot(m.x - 1, m.y) + std::fabs(r - 1), 0, 1e-12);
  EXPECT_EQ(std::make_tuple(m.z, sense), std::make_tuple(5.0, LI_ARC_CW));
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &off, &m, &r, &sense), PA_INVALID) << "z off by tol";
  EXPECT_EQ(GeArcByTang(&before, &p1, &p2, &m, &r, &sense), PA_OK);  // leaves (0,0) along +x
  EXPECT_EQ(std::make_tuple(m.x, m.y, m.z, r, sense),
            std::make_tuple(0.0, 1.0, 5.0, 1.0, LI_ARC_CCW));
  EXPECT_EQ(GeArcByTang(&p1, &p1, &p2, &m, &r, &sense), PA_ZERO_LENGTH);
}

TEST(ArcByCenter, MovesTheEndOntoTheCircle) {
  const GE_POINT3 m{0, 0, 1}, start{1, 0, 1};
  GE_POINT3 end{0, 1.1, 1}, at_centre{0, 0, 1}, other_plane{0, 2, 3};
  double r = 0;
  EXPECT_EQ(GeArcByCenter(&m, &start, &end, &r) + GeArcByCenter(&m, &start, &at_centre, &r), PA_OK);
  EXPECT_NEAR(std::hypot(end.x, end.y - 1) + std::fabs(r - 1) + end.z - 1, 0, 1e-15);
  EXPECT_EQ(at_centre.x, 0) << "an end at the centre stays";
  EXPECT_EQ(GeArcByCenter(&m, &start, &other_plane, &r), PA_INVALID);
  EXPECT_EQ(std::make_tuple(other_plane.y, GeArc3DAng()), std::make_tuple(2.0, 0));
}

TEST(ArcToLinesCalcSeg, SagittaRuleAndItsLimits) {
  // {sweep, radius, chord tolerance, segments}; 1.5708 / acos(0.999) and 0.5 / 0.000872664...
  const std::tuple<double, double, double, uint32_t> cases[] = {
      {kPi, 10, 0.01, 36}, {-kPi, 10, 0.01, 36},         {kPi, 1, 1, 1},   {1, 1, 0, 573},
      {0, 1, 0.01, 1},     {1e300, 1, 0.01, UINT32_MAX}, {NAN, 1, 0.01, 1}};
  for (auto [sweep, r, e, want] : cases) EXPECT_EQ(GeArcToLinesCalcSeg(sweep, r, e), want) << sweep;
}

TEST(ArcToLinesSplit, QuarterArcsFullCirclesAndTheAngleStep) {
  const GE_POINT3 c{0, 0, 2}, a{1, 0, 2}, b{0, 1, 3};
  const double h = std::sqrt(0.5);
  // {start, end, sense, points, point 1}; the last point is exactly the given end, with its z.
  for (auto [s, e, sense, n, x, y] :
       {std::tuple{a, b, 4, 3u, h, h}, std::tuple{a, b, 3, 3u, -h, -h},
        std::tuple{a, a, 20, 5u, 0.0, 1.0}, std::tuple{a, a, 19, 5u, 0.0, -1.0}}) {
    const GE_POINT3 *pts = GeArcToLinesSplit(&s, &e, &c, static_cast<uint16_t>(sense), n);
    ASSERT_NE(pts, nullptr);
    EXPECT_NEAR(off(pts[1], x, y, 2), 0, 1e-15) << sense;
    EXPECT_EQ(off(pts[n - 1], e.x, e.y, e.z), 0) << "exactly the given end";
  }
  const GE_POINT3 *pts = GeArcToLinesSplitTw(&a, &b, &c, 4, kPi / 2);
  ASSERT_NE(pts, nullptr);
  EXPECT_NEAR(off(pts[2], -1, 0, 2) + off(pts[3], 0, 1, 3), 0, 1e-15);
  EXPECT_EQ(GeArcToLinesSplit(&a, &a, &c, LI_ARC_CCW, 1), nullptr);
}

TEST(ArcSplitLine, EvenStepsAndASinglePointIsTheEnd) {
  const GE_POINT3 a{0, 0, 0}, b{4, 8, 1};
  GE_POINT3 *pts = nullptr;
  ASSERT_EQ(GeArcSplitLine(&a, &b, &pts, 5), PA_OK);
  EXPECT_NEAR(off(pts[3], 3, 6, 0.75), 0, 1e-15);
  pts[1] = {7, 7, 7};
  ASSERT_EQ(GeArcSplitLine(&a, &b, &pts, 1), PA_OK);
  EXPECT_EQ(std::make_tuple(pts[0].x, pts[1].x), std::make_tuple(4.0, 7.0)) << "only the end";
  EXPECT_EQ(GeArcSplitLine(&a, &b, &pts, 0), PA_INVALID);
  EXPECT_EQ(pts, nullptr);
}

TEST(PolylineBuffer, ReusedGrownNeverShrunkAndNullWhenGrowthFails) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0}, b{-1, 0, 0};
  const GE_POINT3 *first = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 8);
  ASSERT_NE(first, nullptr);
  const unsigned long calls = MemTestAllocCalls();
  GE_POINT3 *line = nullptr;
  EXPECT_EQ(GeArcSplitLine(&a, &b, &line, 2), PA_OK);
  EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3), first);
  EXPECT_EQ(std::make_tuple(line, MemTestAllocCalls()), std::make_tuple(first, calls))
      << "no allocation within the capacity";
  const uint32_t more = static_cast<uint32_t>(capacity(first)) + 5;
  for (bool split_line : {false, true}) {
    InjectedFailure failure(1);
    failure.Arm();
    EXPECT_TRUE(split_line
                    ? GeArcSplitLine(&a, &b, &line, static_cast<int32_t>(more)) == PA_NO_MEMORY
                    : GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, more) == nullptr);
    failure.Disarm();
    EXPECT_TRUE(failure.Fired());
  }
  EXPECT_EQ(line, nullptr);
  const GE_POINT3 *grown = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, more);
  ASSERT_NE(grown, nullptr);
  EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3), grown);
  EXPECT_EQ(capacity(grown), more) << "never shrunk";
}

}  // namespace
}  // namespace polyarc_test

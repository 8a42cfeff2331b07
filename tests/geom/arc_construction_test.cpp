// Arc and circle construction, the line through two points, arcs and
// segments divided into polylines, and the shared polyline buffer: reused,
// grown on demand, null when memory fails.
#include <cmath>
#include <tuple>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

const auto capacity = [](const GE_POINT3 *p) { return MemTestBlockBytes(p) / sizeof(GE_POINT3); };
const auto off = [](GE_POINT3 p, double x, double y, double z) {
  return std::hypot(p.x - x, p.y - y) + std::fabs(p.z - z);
};

TEST(Arc3Points, CheckCodesExchangeSenseAndRound) {
  const GE_POINT o{0, 0}, a{1, 1}, b{2, 0}, c{1, 2}, d{2, 4};
  EXPECT_EQ(GeArc3PointCheck(&o, &a, &a), PA_DEGENERATE) << "mixed product a.x b.x - a.y b.y = 0";
  EXPECT_EQ(GeArc3PointCheck(&o, &a, &b), PA_IMPOSSIBLE) << "horizontal chord p1-p3";
  EXPECT_EQ(GeArc3PointCheck(&o, &c, &d), PA_IMPOSSIBLE) << "collinear";
  EXPECT_EQ(GeArc3PointCheck(&o, &b, &a), PA_OK);
  GE_POINT m{};
  double r = 0;
  uint16_t sense = 0;
  // {p2, p3, p2 afterwards, centre, radius, sense}; the first row gets exchanged.
  const std::tuple<GE_POINT, GE_POINT, GE_POINT, GE_POINT, double, uint16_t> cases[] = {
      {{1, 1}, {2, 0}, {2, 0}, {1, 0}, 1, LI_ARC_CW},  // (0,0) -> (1,1) -> (2,0) turns clockwise
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
  ToleranceScope tol(0.25);  // GeArcRound: the centre from p2, the radius from p3
  const GE_POINT p4{4, 0}, near{0.125, 0.125};
  EXPECT_EQ(GeArcRound(&o, &p4, &b, &m, &r, &sense), PA_OK);
  EXPECT_EQ(std::make_tuple(m, r, sense), std::make_tuple(GE_POINT{2, 0}, 1.0, LI_CIRCLE_CW));
  EXPECT_EQ(GeArcRound(&o, &p4, &near, &m, &r, &sense), PA_IMPOSSIBLE) << "p1 = p3, p2 apart";
  EXPECT_EQ(GeArcRound(&o, &near, &near, &m, &r, &sense), PA_DEGENERATE);
}

TEST(CircleServices, ThroughThreePointsAndTangentToALineAtAPoint) {
  const GE_POINT a{0, 0}, b{3, 0}, c{0, 4}, flat{1, 0.125}, high{1, 0.5}, end{2, 0};
  const GE_POINT q{1, 1}, beside{2, 1}, on{5, 0};
  GE_POINT m{}, n{};
  double r = 0, k = 9;
  EXPECT_EQ(GeCirByPtPtPt(&a, &b, &c, &m, &r), PA_OK);
  EXPECT_NEAR(std::hypot(m.x - 1.5, m.y - 2) + std::fabs(r - 2.5), 0, 1e-15) << "half hypotenuse";
  EXPECT_EQ(GeCirByPtPtPt(&a, &a, &c, &m, &r), PA_IMPOSSIBLE);
  EXPECT_EQ(GeLineByPtPt(&a, &end, &n, &k), PA_OK);
  EXPECT_EQ(std::make_tuple(n, k), std::make_tuple(GE_POINT{0, -1}, 0.0));
  EXPECT_EQ(GeLineByPtPt(&a, &a, &n, &k), PA_ZERO_LENGTH);
  EXPECT_EQ(GeCirByPtOnLinPt(&end, &n, k, &q, &m, &r), PA_OK);
  EXPECT_EQ(std::make_tuple(m, r), std::make_tuple(GE_POINT{2, 1}, 1.0));
  EXPECT_EQ(GeCirByPtOnLinPt(&beside, &n, k, &q, &m, &r), PA_INVALID) << "not on the line";
  EXPECT_EQ(GeCirByPtOnLinPt(&end, &n, k, &on, &m, &r), PA_IMPOSSIBLE);
  ToleranceScope tol(0.25);
  EXPECT_EQ(GeCirByPtPtPt(&a, &flat, &end, &m, &r), PA_IMPOSSIBLE) << "height 0.125 < tol";
  EXPECT_EQ(GeCirByPtPtPt(&a, &high, &end, &m, &r), PA_OK);
}

TEST(ArcBy3PointsTangAndCenter, CentreInThePlaneOfTheFirstPoint) {
  ToleranceScope tol(0.25);
  const GE_POINT3 p1{0, 0, 5}, p2{1, 1, 5}, p3{2, 0, 5.125}, high{2, 0, 5.25}, before{-1, 0, 5};
  GE_POINT3 m{};
  double r = 0;
  uint16_t sense = 0;
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &p3, &m, &r, &sense), PA_OK);  // z within tol
  EXPECT_NEAR(std::hypot(m.x - 1, m.y) + std::fabs(r - 1), 0, 1e-12);
  EXPECT_EQ(std::make_tuple(m.z, sense), std::make_tuple(5.0, LI_ARC_CW));
  EXPECT_EQ(GeArcBy3Points(&p1, &p2, &high, &m, &r, &sense), PA_INVALID) << "z off by tol";
  EXPECT_EQ(GeArcByTang(&before, &p1, &p2, &m, &r, &sense), PA_OK);  // leaves (0,0) along +x
  EXPECT_EQ(std::make_tuple(m.x, m.y, m.z, r, sense),
            std::make_tuple(0.0, 1.0, 5.0, 1.0, LI_ARC_CCW));
  EXPECT_EQ(GeArcByTang(&p1, &p1, &p2, &m, &r, &sense), PA_ZERO_LENGTH);
  // GeArcByCenter moves the end onto the circle; an end at the centre stays.
  const GE_POINT3 o{0, 0, 1}, start{1, 0, 1};
  GE_POINT3 end{0, 1.1, 1}, at_o{0, 0, 1}, other_plane{0, 2, 3};
  EXPECT_EQ(GeArcByCenter(&o, &start, &end, &r) + GeArcByCenter(&o, &start, &at_o, &r), PA_OK);
  EXPECT_NEAR(std::hypot(end.x, end.y - 1) + std::fabs(r - 1) + end.z - 1, 0, 1e-15);
  EXPECT_EQ(at_o.x, 0);
  EXPECT_EQ(GeArcByCenter(&o, &start, &other_plane, &r), PA_INVALID);
  EXPECT_EQ(std::make_tuple(other_plane.y, GeArc3DAng()), std::make_tuple(2.0, 0));
}

TEST(ArcToLines, SagittaRuleQuarterArcsAndFullCircles) {
  // {sweep, radius, chord tolerance, segments}; 1.5708 / acos(0.999) and 0.5 / 0.000872664...
  const std::tuple<double, double, double, uint32_t> cases[] = {
      {kPi, 10, 0.01, 36}, {-kPi, 10, 0.01, 36},         {kPi, 1, 1, 1},   {1, 1, 0, 573},
      {0, 1, 0.01, 1},     {1e300, 1, 0.01, UINT32_MAX}, {NAN, 1, 0.01, 1}};
  for (auto [sweep, r, e, want] : cases) EXPECT_EQ(GeArcToLinesCalcSeg(sweep, r, e), want) << sweep;
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

TEST(PolylineBuffer, EvenStepsReusedGrownNeverShrunkAndNullWhenGrowthFails) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0}, b{-1, 0, 2};
  const GE_POINT3 *first = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 8);
  ASSERT_NE(first, nullptr);
  const unsigned long calls = MemTestAllocCalls();
  GE_POINT3 *line = nullptr;
  ASSERT_EQ(GeArcSplitLine(&a, &b, &line, 5), PA_OK);
  EXPECT_NEAR(off(line[3], -0.5, 0, 1.5), 0, 1e-15);
  line[1] = {7, 7, 7};
  ASSERT_EQ(GeArcSplitLine(&a, &b, &line, 1), PA_OK);
  EXPECT_EQ(std::make_tuple(line[0].x, line[1].x), std::make_tuple(-1.0, 7.0)) << "only the end";
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
  EXPECT_EQ(GeArcSplitLine(&a, &b, &line, 3), PA_OK);
  EXPECT_EQ(std::make_tuple(line, capacity(grown)), std::make_tuple(grown, size_t{more}))
      << "reused, never shrunk";
  EXPECT_EQ(GeArcSplitLine(&a, &b, &line, 0), PA_INVALID);
  EXPECT_EQ(line, nullptr);
}

}  // namespace
}  // namespace polyarc_test

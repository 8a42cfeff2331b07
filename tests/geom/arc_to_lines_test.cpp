// Arcs and segments divided into polylines, and the process-wide buffer
// that holds them: reused without allocating, grown on demand, and null
// (working again afterwards) when the memory service fails.
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

size_t Capacity(const GE_POINT3 *buffer) {
  return MemTestBlockBytes(buffer) / sizeof(GE_POINT3);
}

// Point i of a polyline, or NaNs (failing every check) when there is none.
GE_POINT3 Nth(const GE_POINT3 *pts, uint32_t i) {
  return pts ? pts[i] : GE_POINT3{NAN, NAN, NAN};
}

void ExpectNear(GE_POINT3 p, double x, double y, double z) {
  EXPECT_NEAR(p.x, x, 1e-14);
  EXPECT_NEAR(p.y, y, 1e-14);
  EXPECT_EQ(p.z, z);
}

TEST(ArcToLinesCalcSeg, SagittaRuleAndItsLimits) {
  const std::pair<std::array<double, 3>, uint32_t> cases[] = {
      {{kPi, 10, 0.01}, 36},           // trunc(1.5708 / acos(0.999)) + 1
      {{-kPi, 10, 0.01}, 36},          // either sign of sweep
      {{kPi, 1, 1}, 1},                // chord tolerance not below the radius
      {{1, 1, 0}, 573},                // at least 0.05 degrees: 0.5 / 0.000872664... = 572.96
      {{0, 1, 0.01}, 1},               // never fewer than one
      {{1e300, 1, 0.01}, UINT32_MAX},  // capped
      {{NAN, 1, 0.01}, 1},             // a NaN sweep
  };
  for (const auto &[in, want] : cases)
    EXPECT_EQ(GeArcToLinesCalcSeg(in[0], in[1], in[2]), want) << in[0];
}

TEST(ArcToLinesSplit, QuarterArcsFullCirclesAndTheAngleStep) {
  const GE_POINT3 c{0, 0, 2}, a{1, 0, 2}, b{0, 1, 3};
  const double h = std::sqrt(0.5);
  const GE_POINT3 *pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[1], h, h, 2);
  EXPECT_EQ(std::make_tuple(pts[2].x, pts[2].y, pts[2].z), std::make_tuple(b.x, b.y, b.z))
      << "exactly the given end, with its own z";
  ExpectNear(Nth(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CW, 3), 1), -h, -h, 2);  // three quarters
  ExpectNear(Nth(GeArcToLinesSplit(&a, &a, &c, LI_CIRCLE_CCW, 5), 1), 0, 1, 2);
  ExpectNear(Nth(GeArcToLinesSplit(&a, &a, &c, LI_CIRCLE_CW, 5), 1), 0, -1, 2);
  pts = GeArcToLinesSplitTw(&a, &b, &c, 4, kPi / 2);
  ExpectNear(Nth(pts, 2), -1, 0, 2);
  ExpectNear(Nth(pts, 3), 0, 1, 3);
  EXPECT_EQ(GeArcToLinesSplit(&a, &a, &c, LI_ARC_CCW, 1), nullptr);
  EXPECT_EQ(GeArcToLinesSplitTw(&a, &b, &c, 1, 0.1), nullptr);
}

TEST(ArcSplitLine, EvenStepsAndASinglePointIsTheEnd) {
  const GE_POINT3 a{0, 0, 0}, b{4, 8, 1};
  GE_POINT3 *pts = nullptr;
  ASSERT_EQ(GeArcSplitLine(&a, &b, &pts, 5), PA_OK);
  ExpectNear(pts[3], 3, 6, 0.75);
  pts[1] = {7, 7, 7};
  ASSERT_EQ(GeArcSplitLine(&a, &b, &pts, 1), PA_OK);
  EXPECT_EQ(std::make_tuple(pts[0].x, pts[1].x), std::make_tuple(4.0, 7.0)) << "only the end";
  EXPECT_EQ(GeArcSplitLine(&a, &b, &pts, 0), PA_INVALID);
  EXPECT_EQ(pts, nullptr);
}

TEST(PolylineBuffer, IsReusedAndNeverShrinks) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0}, b{0, 1, 0};
  const GE_POINT3 *first = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 8);
  ASSERT_NE(first, nullptr);
  const size_t capacity = Capacity(first);
  const unsigned long calls = MemTestAllocCalls();
  GE_POINT3 *line = nullptr;
  EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3), first);
  EXPECT_EQ(GeArcSplitLine(&a, &b, &line, 2), PA_OK);
  EXPECT_EQ(line, first);
  EXPECT_EQ(MemTestAllocCalls(), calls) << "no allocation within the capacity";
  const uint32_t more = static_cast<uint32_t>(capacity) + 5;
  const GE_POINT3 *grown = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, more);
  ASSERT_NE(grown, nullptr);
  EXPECT_EQ(Capacity(grown), more);
  EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3), grown);
  EXPECT_EQ(Capacity(grown), more) << "never shrunk";
}

TEST(PolylineBuffer, FailingGrowthGivesNullAndWorksAgainAfter) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0}, b{-1, 0, 0};
  const GE_POINT3 *pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3);
  ASSERT_NE(pts, nullptr);
  const uint32_t beyond = static_cast<uint32_t>(Capacity(pts)) + 1;
  for (int split_line = 0; split_line <= 1; ++split_line) {
    InjectedFailure failure(1);
    GE_POINT3 dummy{}, *line = &dummy;
    failure.Arm();
    if (split_line) {
      EXPECT_EQ(GeArcSplitLine(&a, &b, &line, static_cast<int32_t>(beyond)), PA_NO_MEMORY);
      EXPECT_EQ(line, nullptr);
    } else {
      EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, beyond), nullptr);
    }
    failure.Disarm();
    EXPECT_TRUE(failure.Fired());
  }
  pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, beyond);
  ASSERT_NE(pts, nullptr);
  const uint32_t mid = (beyond - 1) / 2;
  const double angle = kPi * mid / (beyond - 1);
  ExpectNear(pts[mid], std::cos(angle), std::sin(angle), 0);
  EXPECT_EQ(pts[beyond - 1].x, -1);
}

TEST(PolylineBuffer, InputsMayLieInTheBufferItself) {
  const GE_POINT3 s{0, 0, 0}, e{2, 0, 0};
  GE_POINT3 *pts = nullptr;
  ASSERT_EQ(GeArcSplitLine(&s, &e, &pts, 3), PA_OK);  // (0,0) (1,0) (2,0)
  // From the last point about the middle one, growing the buffer on the way.
  const uint32_t n = static_cast<uint32_t>(Capacity(pts)) + 3;
  const GE_POINT3 *arc = GeArcToLinesSplit(&pts[2], &pts[0], &pts[1], LI_ARC_CCW, n);
  ASSERT_NE(arc, nullptr);
  ExpectNear(arc[0], 2, 0, 0);
  ExpectNear(arc[n - 1], 0, 0, 0);
  for (uint32_t i = 0; i < n; ++i) EXPECT_NEAR(std::hypot(arc[i].x - 1, arc[i].y), 1, 1e-12);
  EXPECT_GT(arc[n / 2].y, 0.9) << "counter-clockwise from (2,0) passes over the top";
}

}  // namespace
}  // namespace polyarc_test

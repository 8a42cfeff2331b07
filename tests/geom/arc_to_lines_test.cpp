// Arcs and segments divided into polylines, and the process-wide buffer
// that holds them: reused without allocating, grown on demand, and null
// (working again afterwards) when the memory service fails.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;
const double kHalfRoot2 = std::sqrt(0.5);

size_t Capacity(const GE_POINT3 *buffer) {
  return MemTestBlockBytes(buffer) / sizeof(GE_POINT3);
}

void ExpectNear(GE_POINT3 p, double x, double y, double z) {
  EXPECT_NEAR(p.x, x, 1e-14);
  EXPECT_NEAR(p.y, y, 1e-14);
  EXPECT_EQ(p.z, z);
}

TEST(ArcToLinesCalcSeg, SagittaRuleAndItsLimits) {
  EXPECT_EQ(GeArcToLinesCalcSeg(kPi, 10, 0.01), 36u) << "trunc(1.5708 / acos(0.999)) + 1";
  EXPECT_EQ(GeArcToLinesCalcSeg(-kPi, 10, 0.01), 36u);
  EXPECT_EQ(GeArcToLinesCalcSeg(kPi, 1, 1), 1u) << "tolerance equal to the radius";
  EXPECT_EQ(GeArcToLinesCalcSeg(kPi, 1, 2), 1u);
  // 0.05 degrees at least: 0.5 / 0.000872664... = 572.96.
  EXPECT_EQ(GeArcToLinesCalcSeg(1, 1, 0), 573u);
  EXPECT_EQ(GeArcToLinesCalcSeg(1, 1, -0.5), 573u);
  EXPECT_EQ(GeArcToLinesCalcSeg(0, 1, 0.01), 1u);
  EXPECT_EQ(GeArcToLinesCalcSeg(1e300, 1, 0.01), UINT32_MAX);
  EXPECT_EQ(GeArcToLinesCalcSeg(NAN, 1, 0.01), 1u);
}

TEST(ArcToLinesSplit, QuarterArcInBothSensesEndsExactlyAtTheEnd) {
  const GE_POINT3 c{0, 0, 2}, a{1, 0, 2}, b{0, 1, 3};
  const GE_POINT3 *pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[0], 1, 0, 2);
  ExpectNear(pts[1], kHalfRoot2, kHalfRoot2, 2);
  EXPECT_EQ(pts[2].x, b.x);
  EXPECT_EQ(pts[2].y, b.y);
  EXPECT_EQ(pts[2].z, 3) << "the end keeps its own z";
  pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CW, 3);  // three quarters clockwise
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[1], -kHalfRoot2, -kHalfRoot2, 2);
}

TEST(ArcToLinesSplit, FullCirclesAndTheAngleStep) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0};
  const GE_POINT3 *pts = GeArcToLinesSplit(&a, &a, &c, LI_CIRCLE_CCW, 5);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[1], 0, 1, 0);
  ExpectNear(pts[2], -1, 0, 0);
  ExpectNear(pts[3], 0, -1, 0);
  pts = GeArcToLinesSplit(&a, &a, &c, LI_CIRCLE_CW, 5);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[1], 0, -1, 0);

  const GE_POINT3 m{1, 0, 4}, s{2, 0, 4}, e{9, 9, 9};
  pts = GeArcToLinesSplitTw(&s, &e, &m, 4, kPi / 2);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[1], 1, 1, 4);
  ExpectNear(pts[2], 0, 0, 4);
  ExpectNear(pts[3], 9, 9, 9);

  EXPECT_EQ(GeArcToLinesSplit(&a, &a, &c, LI_ARC_CCW, 1), nullptr);
  EXPECT_EQ(GeArcToLinesSplit(&a, &a, &c, LI_ARC_CCW, 0), nullptr);
  EXPECT_EQ(GeArcToLinesSplitTw(&s, &e, &m, 1, 0.1), nullptr);
}

TEST(ArcSplitLine, EvenStepsAndASinglePointIsTheEnd) {
  const GE_POINT3 a{0, 0, 0}, b{4, 8, 1};
  GE_POINT3 *pts = nullptr;
  ASSERT_EQ(GeArcSplitLine(&a, &b, &pts, 5), PA_OK);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[1], 1, 2, 0.25);
  ExpectNear(pts[3], 3, 6, 0.75);
  EXPECT_EQ(pts[4].x, 4);
  pts[1] = {7, 7, 7};
  ASSERT_EQ(GeArcSplitLine(&a, &b, &pts, 1), PA_OK);
  EXPECT_EQ(pts[0].x, 4) << "n = 1 writes only the end point";
  EXPECT_EQ(pts[1].x, 7);
  EXPECT_EQ(GeArcSplitLine(&a, &b, &pts, 0), PA_INVALID);
  EXPECT_EQ(pts, nullptr);
}

TEST(PolylineBuffer, IsReusedAndNeverShrinks) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0}, b{0, 1, 0};
  const GE_POINT3 *first = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 8);
  ASSERT_NE(first, nullptr);
  const size_t capacity = Capacity(first);
  EXPECT_GE(capacity, 8u);
  const unsigned long calls = MemTestAllocCalls();
  GE_POINT3 *line = nullptr;
  EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3), first);
  EXPECT_EQ(GeArcSplitLine(&a, &b, &line, 2), PA_OK);
  EXPECT_EQ(line, first);
  EXPECT_EQ(MemTestAllocCalls(), calls) << "no allocation within the capacity";
  EXPECT_EQ(Capacity(first), capacity);

  const GE_POINT3 *grown =
      GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, static_cast<uint32_t>(capacity) + 5);
  ASSERT_NE(grown, nullptr);
  EXPECT_EQ(Capacity(grown), capacity + 5);
  EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3), grown);
  EXPECT_EQ(Capacity(grown), capacity + 5) << "never shrunk";
}

TEST(PolylineBuffer, FailingGrowthGivesNullAndWorksAgainAfter) {
  const GE_POINT3 c{0, 0, 0}, a{1, 0, 0}, b{-1, 0, 0};
  const GE_POINT3 *pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, 3);
  ASSERT_NE(pts, nullptr);
  const uint32_t beyond = static_cast<uint32_t>(Capacity(pts)) + 1;
  {
    InjectedFailure failure(1);
    failure.Arm();
    EXPECT_EQ(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, beyond), nullptr);
    failure.Disarm();
    EXPECT_TRUE(failure.Fired());
  }
  {
    InjectedFailure failure(1);
    failure.Arm();
    GE_POINT3 dummy{};
    GE_POINT3 *line = &dummy;
    EXPECT_EQ(GeArcSplitLine(&a, &b, &line, static_cast<int32_t>(beyond)), PA_NO_MEMORY);
    EXPECT_EQ(line, nullptr);
    failure.Disarm();
  }
  pts = GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, beyond);
  ASSERT_NE(pts, nullptr);
  ExpectNear(pts[(beyond - 1) / 2], std::cos(kPi * ((beyond - 1) / 2) / (beyond - 1)),
             std::sin(kPi * ((beyond - 1) / 2) / (beyond - 1)), 0);
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

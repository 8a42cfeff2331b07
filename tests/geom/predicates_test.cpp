// The shared tolerance rules: per-axis against squared-distance
// coincidence, inclusive against strict ranges, and what equal range ends
// mean.
#include "geom/predicates.h"

#include <gtest/gtest.h>

namespace polyarc {
namespace {

TEST(Predicates, PerAxisAndDistanceRulesDiffer) {
  const GE_POINT o{0, 0};
  EXPECT_TRUE(CoincidePerAxis(o, {0.4, 0.4}, 0.5));
  EXPECT_FALSE(CoincideByDistance(o, {0.4, 0.4}, 0.5));  // 0.32 > 0.25
  EXPECT_FALSE(CoincidePerAxis(o, {0.5, 0}, 0.5));       // strict
  EXPECT_FALSE(CoincideByDistance(o, {0.5, 0}, 0.5));
  EXPECT_TRUE(CoincideByDistance(o, {0.25, -0.25}, 0.5));
}

TEST(Predicates, RangesWrapThroughTheSeam) {
  const AngleRange plain{-1, 1}, wrapped{2, -2};
  for (Bounds b : {Bounds::kInclusive, Bounds::kStrict}) {
    EXPECT_TRUE(AngleInRange(0, plain, b, EqualEnds::kSingleAngle));
    EXPECT_FALSE(AngleInRange(3, plain, b, EqualEnds::kSingleAngle));
    EXPECT_TRUE(AngleInRange(3, wrapped, b, EqualEnds::kSingleAngle));
    EXPECT_TRUE(AngleInRange(-3, wrapped, b, EqualEnds::kSingleAngle));
    EXPECT_FALSE(AngleInRange(0, wrapped, b, EqualEnds::kSingleAngle));
  }
  EXPECT_TRUE(AngleInRange(1, plain, Bounds::kInclusive, EqualEnds::kSingleAngle));
  EXPECT_FALSE(AngleInRange(1, plain, Bounds::kStrict, EqualEnds::kSingleAngle));
  EXPECT_TRUE(AngleInRange(-2, wrapped, Bounds::kInclusive, EqualEnds::kSingleAngle));
  EXPECT_FALSE(AngleInRange(-2, wrapped, Bounds::kStrict, EqualEnds::kSingleAngle));
}

TEST(Predicates, EqualEndsHoldOneAngleOrTheFullTurn) {
  const AngleRange same{0.5, 0.5};
  EXPECT_TRUE(AngleInRange(0.5, same, Bounds::kInclusive, EqualEnds::kSingleAngle));
  EXPECT_FALSE(AngleInRange(2, same, Bounds::kInclusive, EqualEnds::kSingleAngle));
  EXPECT_TRUE(AngleInRange(2, same, Bounds::kInclusive, EqualEnds::kFullTurn));
  EXPECT_TRUE(AngleInRange(-3, same, Bounds::kStrict, EqualEnds::kFullTurn));
}

TEST(Predicates, SweepsAndOppositeAngles) {
  EXPECT_EQ(SweepOnce(-kPi / 2 - kPi / 2), kPi);
  EXPECT_EQ(SweepOnce(0.0), 0.0);
  EXPECT_EQ(Opposite(kPi), 0.0);
  EXPECT_EQ(Opposite(0.0), kPi);
  EXPECT_DOUBLE_EQ(Opposite(kPi / 2), -kPi / 2);
  LI_TAB_STRUCT cw{};
  cw.type = LI_ARC_CW;
  cw.ang_ap = -3;
  cw.ang_ep = 3;
  EXPECT_DOUBLE_EQ(TravelSweep(cw), kTwoPi - 6);
  EXPECT_EQ(SweepInSense(LI_ARC_CCW, 1, -1), kTwoPi - 2);
  EXPECT_EQ(SweepInSense(LI_ARC_CW, 1, -1), 2);
}

TEST(Predicates, RangeInSenseRunsCounterClockwiseFromLoToHi) {
  // Clockwise from 1 to -1 passes 0; counter-clockwise passes pi.
  EXPECT_TRUE(
      AngleInRange(0, RangeInSense(LI_ARC_CW, 1, -1), Bounds::kInclusive, EqualEnds::kSingleAngle));
  EXPECT_TRUE(AngleInRange(3, RangeInSense(LI_ARC_CCW, 1, -1), Bounds::kInclusive,
                           EqualEnds::kSingleAngle));
  EXPECT_FALSE(AngleInRange(0, RangeInSense(LI_ARC_CCW, 1, -1), Bounds::kInclusive,
                            EqualEnds::kSingleAngle));
}

}  // namespace
}  // namespace polyarc

// The shared tolerance rules: per-axis against squared-distance
// coincidence, inclusive against strict ranges, and equal range ends.
#include "geom/predicates.h"

#include <gtest/gtest.h>

#include <tuple>

namespace polyarc {
namespace {

TEST(Predicates, CoincidenceAndAngleRangeRules) {
  const GE_POINT o{0, 0};
  EXPECT_TRUE(CoincidePerAxis(o, {0.4, 0.4}, 0.5));
  EXPECT_FALSE(CoincideByDistance(o, {0.4, 0.4}, 0.5));  // 0.32 > 0.25
  EXPECT_FALSE(CoincidePerAxis(o, {0.5, 0}, 0.5));       // strict
  EXPECT_FALSE(CoincideByDistance(o, {0.5, 0}, 0.5));
  const AngleRange plain{-1, 1}, wrapped{2, -2}, same{0.5, 0.5};
  const EqualEnds one = EqualEnds::kSingleAngle, full = EqualEnds::kFullTurn;
  // {angle, range, equal ends, inclusive, strict}
  const std::tuple<double, AngleRange, EqualEnds, bool, bool> cases[] = {
      {3, plain, one, false, false},   {1, plain, one, true, false},
      {0, wrapped, one, false, false}, {-2, wrapped, one, true, false},
      {-3, wrapped, one, true, true},  {0.5, same, one, true, false},
      {2, same, one, false, false},    {2, same, full, true, true},
  };
  for (auto [a, range, equal, inclusive, strict] : cases) {
    EXPECT_EQ(AngleInRange(a, range, Bounds::kInclusive, equal), inclusive) << a;
    EXPECT_EQ(AngleInRange(a, range, Bounds::kStrict, equal), strict) << a;
  }
  // Clockwise from 1 to -1 passes 0; counter-clockwise passes pi.
  EXPECT_TRUE(AngleInRange(0, RangeInSense(LI_ARC_CW, 1, -1), Bounds::kStrict, one));
  EXPECT_FALSE(AngleInRange(0, RangeInSense(LI_ARC_CCW, 1, -1), Bounds::kStrict, one));
  EXPECT_EQ(SweepInSense(LI_ARC_CW, 1, -1), 2);
  EXPECT_EQ(SweepInSense(LI_ARC_CCW, 1, -1), kTwoPi - 2);
}

}  // namespace
}  // namespace polyarc

// The construction services: circles through points and tangent to a
// line, the line through two points, and the area of a circular segment
// against its analytic value.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

TEST(CircleServices, ThroughThreePointsAndTangentToALineAtAPoint) {
  const GE_POINT a{0, 0}, b{3, 0}, c{0, 4}, flat{1, 0.125}, high{1, 0.5}, end{2, 0};
  const GE_POINT q{1, 1}, off{2, 1}, on{5, 0};
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
  EXPECT_EQ(GeCirByPtOnLinPt(&off, &n, k, &q, &m, &r), PA_INVALID) << "not on the line";
  EXPECT_EQ(GeCirByPtOnLinPt(&end, &n, k, &on, &m, &r), PA_IMPOSSIBLE);
  ToleranceScope tol(0.25);
  EXPECT_EQ(GeCirByPtPtPt(&a, &flat, &end, &m, &r), PA_IMPOSSIBLE) << "height 0.125 < tol";
  EXPECT_EQ(GeCirByPtPtPt(&a, &high, &end, &m, &r), PA_OK);
}

TEST(ArcArea, MatchesTheSegmentFormulaInBothSensesFromSmallToNearlyFull) {
  const GE_POINT c{-2, 3}, o{0, 0}, a{1, 0};
  const double r = 1.5;
  const auto at = [&](double t) { return GE_POINT{c.x + r * std::cos(t), c.y + r * std::sin(t)}; };
  for (double start = -3.0; start < 3.2; start += 0.7) {
    for (double theta : {1e-3, 0.05, 1.0, kPi / 2, kPi, 4.0, 2 * kPi - 0.01}) {
      const GE_POINT ap = at(start), ccw_ep = at(start + theta), cw_ep = at(start - theta);
      const long double t = theta;  // r^2 (theta - sin theta) / 2 in extended precision
      const double want = static_cast<double>(0.5L * r * r * (t - std::sin(t)));
      EXPECT_NEAR(GeArcArea(&ap, &ccw_ep, &c, r, LI_ARC_CCW), want, 1e-9 * want) << theta;
      EXPECT_NEAR(GeArcArea(&ap, &cw_ep, &c, r, LI_ARC_CW), want, 1e-9 * want) << theta;
    }
  }
  EXPECT_NEAR(GeArcArea(&a, &a, &o, 2, LI_ARC_CW), 4 * kPi, 1e-15) << "coincident ends";
  EXPECT_EQ(GeArcArea(nullptr, &a, &o, 1, LI_ARC_CCW), 0);
}

}  // namespace
}  // namespace polyarc_test

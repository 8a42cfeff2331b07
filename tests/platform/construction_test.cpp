// The construction services: circles through points and tangent to a
// line, the line through two points, and the area of a circular segment
// against its analytic value.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

TEST(CirByPtPtPt, CircumcircleOfTheRightTriangle) {
  const GE_POINT a{0, 0}, b{3, 0}, c{0, 4};
  GE_POINT m{};
  double r = 0;
  EXPECT_EQ(GeCirByPtPtPt(&a, &b, &c, &m, &r), PA_OK);
  EXPECT_NEAR(m.x, 1.5, 1e-15) << "the midpoint of the hypotenuse";
  EXPECT_NEAR(m.y, 2, 1e-15);
  EXPECT_NEAR(r, 2.5, 1e-15);
  EXPECT_EQ(GeCirByPtPtPt(&a, &a, &c, &m, &r), PA_IMPOSSIBLE);

  ToleranceScope tol(0.25);
  const GE_POINT flat{1, 0.125}, high{1, 0.5}, end{2, 0};
  m = {7, 7};
  EXPECT_EQ(GeCirByPtPtPt(&a, &flat, &end, &m, &r), PA_IMPOSSIBLE) << "height 0.125 < tol";
  EXPECT_EQ(m, (GE_POINT{7, 7}));
  EXPECT_EQ(GeCirByPtPtPt(&a, &high, &end, &m, &r), PA_OK);
  EXPECT_NEAR(r, 1.25, 1e-15);
}

TEST(LineAndTangentCircle, LineFormFeedsTheTangentCircle) {
  const GE_POINT a{0, 0}, b{2, 0}, q{1, 1};
  GE_POINT n{};
  double c = 9;
  EXPECT_EQ(GeLineByPtPt(&a, &b, &n, &c), PA_OK);
  EXPECT_EQ(n, (GE_POINT{0, -1}));
  EXPECT_EQ(c, 0);
  EXPECT_EQ(GeLineByPtPt(&a, &a, &n, &c), PA_ZERO_LENGTH);

  GE_POINT m{};
  double r = 0;
  EXPECT_EQ(GeCirByPtOnLinPt(&b, &n, c, &q, &m, &r), PA_OK);
  EXPECT_EQ(m, (GE_POINT{2, 1}));
  EXPECT_EQ(r, 1);
  const GE_POINT below{3, -2}, off{2, 1}, on{5, 0};
  EXPECT_EQ(GeCirByPtOnLinPt(&b, &n, c, &below, &m, &r), PA_OK);
  EXPECT_EQ(m, (GE_POINT{2, -1.25}));
  EXPECT_EQ(r, 1.25);
  EXPECT_EQ(GeCirByPtOnLinPt(&off, &n, c, &q, &m, &r), PA_INVALID);
  EXPECT_EQ(GeCirByPtOnLinPt(&b, &n, c, &on, &m, &r), PA_IMPOSSIBLE);
  EXPECT_EQ(GeCirByPtOnLinPt(&b, &n, c, &b, &m, &r), PA_IMPOSSIBLE);
}

// r^2 (theta - sin theta) / 2 in extended precision.
double Segment(double r, double theta) {
  const long double t = theta;
  return static_cast<double>(0.5L * r * r * (t - std::sin(t)));
}

TEST(ArcArea, MatchesTheSegmentFormulaInBothSenses) {
  const GE_POINT c{-2, 3};
  const double r = 1.5;
  for (double start = -3.0; start < 3.2; start += 0.7) {
    for (double theta : {1e-3, 0.05, 0.3, 1.0, kPi / 2, kPi, 4.0, 6.0, 2 * kPi - 0.01}) {
      const GE_POINT ap{c.x + r * std::cos(start), c.y + r * std::sin(start)};
      const GE_POINT ccw_ep{c.x + r * std::cos(start + theta), c.y + r * std::sin(start + theta)};
      const GE_POINT cw_ep{c.x + r * std::cos(start - theta), c.y + r * std::sin(start - theta)};
      const double want = Segment(r, theta);
      EXPECT_NEAR(GeArcArea(&ap, &ccw_ep, &c, r, LI_ARC_CCW), want, 1e-9 * want) << theta;
      EXPECT_NEAR(GeArcArea(&ap, &cw_ep, &c, r, LI_ARC_CW), want, 1e-9 * want) << theta;
      // The arc the other way round over the same chord completes the disc.
      EXPECT_NEAR(
          GeArcArea(&ap, &ccw_ep, &c, r, LI_ARC_CCW) + GeArcArea(&ap, &ccw_ep, &c, r, LI_ARC_CW),
          kPi * r * r, 1e-12);
    }
  }
}

TEST(ArcArea, HalfAndFullTurn) {
  const GE_POINT c{0, 0}, a{1, 0}, b{-1, 0};
  EXPECT_NEAR(GeArcArea(&a, &b, &c, 1, LI_ARC_CCW), kPi / 2, 1e-15);
  EXPECT_NEAR(GeArcArea(&a, &a, &c, 2, LI_ARC_CW), 4 * kPi, 1e-15) << "coincident ends";
  EXPECT_EQ(GeArcArea(nullptr, &b, &c, 1, LI_ARC_CCW), 0);
}

}  // namespace
}  // namespace polyarc_test

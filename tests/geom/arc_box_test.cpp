// The bounding box of an arc against the box of densely sampled points,
// for every quarter of start and end and both senses.
#include <algorithm>
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

TEST(ArcRect, QuarterArcBothSensesAndEndsOnTheAxes) {
  const GE_POINT o{0, 0};
  GE_POINT p1{0, 1}, p2{1, 0}, lo{}, hi{};
  EXPECT_EQ(GeArcRect(&o, 1, 1, &p1, &p2, &lo, &hi), &hi);
  EXPECT_EQ(lo, (GE_POINT{0, 0}));
  EXPECT_EQ(hi, (GE_POINT{1, 1}));
  GeArcRect(&o, 1, 0, &p1, &p2, &lo, &hi);  // three quarters, counter-clockwise
  EXPECT_EQ(p1, (GE_POINT{1, 0})) << "the ends are exchanged in place";
  EXPECT_EQ(p2, (GE_POINT{0, 1}));
  EXPECT_EQ(lo, (GE_POINT{-1, -1}));
  EXPECT_EQ(hi, (GE_POINT{1, 1}));
  p1 = {-1, 0};  // clockwise over the top
  p2 = {1, 0};
  GeArcRect(&o, 1, 1, &p1, &p2, &lo, &hi);
  EXPECT_EQ(lo, (GE_POINT{-1, 0}));
  EXPECT_EQ(hi, (GE_POINT{1, 1}));
}

TEST(ArcRect, MatchesSampledPointsForEveryQuarterAndSense) {
  const GE_POINT c{3, -2};
  const double r = 2.5;
  const int n = 20000;
  const auto at = [&](double a) { return GE_POINT{c.x + r * std::cos(a), c.y + r * std::sin(a)}; };
  for (double start = -kPi + 0.05; start < kPi; start += kPi / 7) {
    for (double sweep : {0.01, 0.4, 1.6, 2.9, 3.3, 4.8, 5.5, 6.2}) {
      for (double signed_sweep : {sweep, -sweep}) {
        GE_POINT want_lo = at(start), want_hi = want_lo;
        for (int i = 1; i <= n; ++i) {
          const GE_POINT p = at(start + signed_sweep * i / n);
          want_lo = {std::min(want_lo.x, p.x), std::min(want_lo.y, p.y)};
          want_hi = {std::max(want_hi.x, p.x), std::max(want_hi.y, p.y)};
        }
        GE_POINT a = at(start), b = at(start + signed_sweep), lo{}, hi{};
        GeArcRect(&c, r, signed_sweep < 0 ? 1 : 0, &a, &b, &lo, &hi);
        const double slack = r * (1 - std::cos(sweep / n)) + 1e-12;
        EXPECT_NEAR(lo.x, want_lo.x, slack) << start << " " << signed_sweep;
        EXPECT_NEAR(lo.y, want_lo.y, slack) << start << " " << signed_sweep;
        EXPECT_NEAR(hi.x, want_hi.x, slack) << start << " " << signed_sweep;
        EXPECT_NEAR(hi.y, want_hi.y, slack) << start << " " << signed_sweep;
      }
    }
  }
}

}  // namespace
}  // namespace polyarc_test

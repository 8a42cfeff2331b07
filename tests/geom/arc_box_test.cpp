// The bounding box of an arc against the box of densely sampled points,
// for every quarter of start and end and both senses.
#include <algorithm>
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

struct Box {
  GE_POINT min, max;
};

Box SampledBox(GE_POINT c, double r, double start, double sweep) {
  Box b{{1e300, 1e300}, {-1e300, -1e300}};
  const int n = 20000;
  for (int i = 0; i <= n; ++i) {
    const double a = start + sweep * i / n;
    const GE_POINT p{c.x + r * std::cos(a), c.y + r * std::sin(a)};
    b.min = {std::min(b.min.x, p.x), std::min(b.min.y, p.y)};
    b.max = {std::max(b.max.x, p.x), std::max(b.max.y, p.y)};
  }
  return b;
}

TEST(ArcRect, QuarterArcBothSenses) {
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
}

TEST(ArcRect, MatchesSampledPointsForEveryQuarterAndSense) {
  const GE_POINT c{3, -2};
  const double r = 2.5;
  // Start angles in every quarter and on the axes; sweeps from tiny to
  // almost a full turn.
  for (double start = -kPi + 0.05; start < kPi; start += kPi / 7) {
    for (double sweep : {0.01, 0.4, 1.6, 2.9, 3.3, 4.8, 5.5, 6.2}) {
      for (int ccw = 0; ccw <= 1; ++ccw) {
        const double signed_sweep = ccw ? sweep : -sweep;
        GE_POINT a{c.x + r * std::cos(start), c.y + r * std::sin(start)};
        GE_POINT b{c.x + r * std::cos(start + signed_sweep), c.y + r * std::sin(start + signed_sweep)};
        GE_POINT lo{}, hi{};
        GeArcRect(&c, r, ccw ? 0 : 1, &a, &b, &lo, &hi);
        const Box want = SampledBox(c, r, start, signed_sweep);
        const double slack = r * (1 - std::cos(sweep / 20000)) + 1e-12;
        EXPECT_NEAR(lo.x, want.min.x, slack) << start << " " << signed_sweep;
        EXPECT_NEAR(lo.y, want.min.y, slack) << start << " " << signed_sweep;
        EXPECT_NEAR(hi.x, want.max.x, slack) << start << " " << signed_sweep;
        EXPECT_NEAR(hi.y, want.max.y, slack) << start << " " << signed_sweep;
      }
    }
  }
}

TEST(ArcRect, EndsOnTheAxesGiveTheExtremeEitherWay) {
  const GE_POINT o{0, 0};
  // Clockwise from the top (an extreme) to the left: three quarters.
  GE_POINT p1{0, 1}, p2{-1, 0}, lo{}, hi{};
  GeArcRect(&o, 1, 1, &p1, &p2, &lo, &hi);
  EXPECT_EQ(lo, (GE_POINT{-1, -1}));
  EXPECT_EQ(hi, (GE_POINT{1, 1}));
  // Clockwise half circle from the left to the right over the top.
  p1 = {-1, 0};
  p2 = {1, 0};
  GeArcRect(&o, 1, 1, &p1, &p2, &lo, &hi);
  EXPECT_EQ(lo, (GE_POINT{-1, 0}));
  EXPECT_EQ(hi, (GE_POINT{1, 1}));
}

}  // namespace
}  // namespace polyarc_test

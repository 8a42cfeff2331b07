// Carrier intersections of lines and circles, with their tangent bands
// made exact by a binary tolerance.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

// The horizontal line y = k travelling in +x: normal (0, -1), c = -k.
constexpr GE_POINT kDown{0, -1}, kO{0, 0};

TEST(IseLinLin, CrossingAndTheFixedParallelLimit) {
  const GE_POINT vertical{1, 0};  // x = 2
  GE_POINT p{9, 9};
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &vertical, 2, &p), PA_OK);
  EXPECT_NEAR(p.x, 2, 1e-15);
  EXPECT_NEAR(p.y, 0, 1e-15);
  ToleranceScope tol(0.5);  // the limit on |n1 x n2| ignores the tolerance
  const GE_POINT almost{4e-09, -1}, steeper{6e-09, -1};
  p = {9, 9};
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &almost, 1, &p), PA_PARALLEL);
  EXPECT_EQ(p, (GE_POINT{9, 9})) << "not written when parallel";
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &steeper, 1, &p), PA_OK);
}

TEST(IseCirLin, TangentBandAndOrderAlongTheLine) {
  ToleranceScope tol(0.25);
  // {radius, k, count, point 1}
  const std::tuple<double, double, uint16_t, GE_POINT> cases[] = {
      {1, 1.25, 0, {0, 0}},       // a = r + tol misses
      {1, 1.125, 1, {0, 1.125}},  // the foot of the centre
      {1, 0.875, 1, {0, 0.875}},  // r - tol/2: still one point
      {-1, 0.75, 1, {0, 0.75}},   // a = |r| - tol is in the band
      {1, 0.6, 2, {-0.8, 0.6}},   // the smaller parameter first
  };
  for (auto [r, k, count, want] : cases) {
    GE_POINT p1{9, 9}, p2{9, 9};
    EXPECT_EQ(GeIseCirLin(&kO, r, &kDown, -k, &p1, &p2), count) << k;
    EXPECT_NEAR(p1.x, want.x, 1e-15) << k;
    EXPECT_NEAR(p1.y, want.y, 1e-15) << k;
    EXPECT_NEAR(p2.x, count == 2 ? 0.8 : 0, 1e-15) << k;
  }
  const GE_POINT up{0, 1};  // the same line travelling in -x
  GE_POINT p1{}, p2{};
  ASSERT_EQ(GeIseCirLin(&kO, 1, &up, 0.6, &p1, &p2), 2);
  EXPECT_NEAR(p1.x, 0.8, 1e-15) << "the first point comes first along the line";
}

TEST(IseCirCir, CrossingLeftPointFirst) {
  const GE_POINT c2{1, 0};
  uint16_t n = 9;
  GE_POINT p1{}, p2{};
  EXPECT_EQ(GeIseCirCir(&kO, 1, &c2, -1, &n, &p1, &p2), PA_OK);
  ASSERT_EQ(n, 2);
  EXPECT_NEAR(p1.x, 0.5, 1e-15);
  EXPECT_NEAR(p1.y, std::sqrt(0.75), 1e-15) << "left of c1 -> c2";
  EXPECT_NEAR(p2.y, -std::sqrt(0.75), 1e-15);
  EXPECT_EQ(GeIseCirCir(nullptr, 3, &c2, 1, &n, &p1, &p2), PA_INVALID);
}

TEST(IseCirCir, TouchingStepsInTheirOrderConcentricAndApart) {
  // {tol, r1, c2, r2, status, count, point 1}; circle 1 is about the origin.
  const std::tuple<double, double, GE_POINT, double, uint16_t, uint16_t, GE_POINT> cases[] = {
      {0.25, 1, {2, 0}, 1, PA_OK, 1, {1, 0}},
      {0.25, 1, {2.25, 0}, 1, PA_OK, 1, {1.125, 0}},      // outer band, upper edge
      {0.25, 1, {1.75, 0}, 1, PA_OK, 1, {0.875, 0}},      // lower edge
      {0.25, 2, {1, 0}, 1, PA_OK, 1, {2, 0}},             // circle 2 inside circle 1
      {0.25, 1, {1, 0}, 2, PA_OK, 1, {-1, 0}},            // circle 1 inside circle 2
      {0.5, 1, {1, 0}, 0.25, PA_OK, 1, {0.875, 0}},       // outer before inner (1.125)
      {0.5, 0.25, {1, 0}, 1, PA_OK, 1, {0.125, 0}},       // outer before inner (-0.125)
      {0.25, 1, {0.25, 0}, 2, PA_CONCENTRIC, 0, {0, 0}},  // d = tol
      {0.25, 1, {3, 0}, 1, PA_OK, 0, {0, 0}},
      {0.25, 3, {1, 0}, 1, PA_OK, 0, {0, 0}},
  };
  for (auto [tol, r1, c2, r2, status, count, want] : cases) {
    ToleranceScope scope(tol);
    uint16_t n = 9;
    GE_POINT p1{5, 5}, p2{5, 5};
    EXPECT_EQ(GeIseCirCir(&kO, r1, &c2, r2, &n, &p1, &p2), status) << c2 << r1;
    EXPECT_EQ(std::make_tuple(n, p1), std::make_tuple(count, want)) << c2 << r1;
  }
}

}  // namespace
}  // namespace polyarc_test

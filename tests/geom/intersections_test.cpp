// Carrier intersections: lines, circle and line, two circles, with their
// tangent bands made exact by a binary tolerance.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

// The horizontal line y = k travelling in +x: normal (0, -1), c = -k.
constexpr GE_POINT kDown{0, -1};

TEST(IseLinLin, CrossingAndTheFixedParallelLimit) {
  const GE_POINT vertical{1, 0};  // the line x = 2 travelling in -y
  GE_POINT p{9, 9};
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &vertical, 2, &p), PA_OK);
  EXPECT_NEAR(p.x, 2, 1e-15);
  EXPECT_NEAR(p.y, 0, 1e-15);

  // The limit is on |n1 x n2| and ignores the tolerance.
  ToleranceScope tol(0.5);
  const double s = 4e-09;
  const GE_POINT almost{s, -std::sqrt(1 - s * s)};
  p = {9, 9};
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &almost, 1, &p), PA_PARALLEL);
  EXPECT_EQ(p, (GE_POINT{9, 9})) << "not written when parallel";
  const double t = 6e-09;
  const GE_POINT steeper{t, -std::sqrt(1 - t * t)};
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &steeper, 1, &p), PA_OK);
}

TEST(IseCirLin, TangentBandAndOrderAlongTheLine) {
  ToleranceScope tol(0.25);
  const GE_POINT o{0, 0};
  GE_POINT p1{}, p2{};
  EXPECT_EQ(GeIseCirLin(&o, 1, &kDown, -1.25, &p1, &p2), 0) << "a = r + tol misses";
  EXPECT_EQ(GeIseCirLin(&o, 1, &kDown, -1.125, &p1, &p2), 1);
  EXPECT_EQ(p1, (GE_POINT{0, 1.125})) << "the foot of the centre";
  EXPECT_EQ(GeIseCirLin(&o, 1, &kDown, -0.875, &p1, &p2), 1) << "r - tol/2: still one point";
  EXPECT_EQ(GeIseCirLin(&o, -1, &kDown, -0.75, &p1, &p2), 1) << "a = r - tol is in the band";
  EXPECT_EQ(p2, (GE_POINT{0, 0}));

  ASSERT_EQ(GeIseCirLin(&o, 1, &kDown, -0.6, &p1, &p2), 2);
  EXPECT_NEAR(p1.x, -0.8, 1e-15);
  EXPECT_NEAR(p2.x, 0.8, 1e-15);
  EXPECT_NEAR(p1.y, 0.6, 1e-15);
  const GE_POINT up{0, 1};  // the same line travelling in -x
  ASSERT_EQ(GeIseCirLin(&o, 1, &up, 0.6, &p1, &p2), 2);
  EXPECT_NEAR(p1.x, 0.8, 1e-15) << "the first point comes first along the line";
}

TEST(IseCirCir, CrossingAndOuterTouch) {
  const GE_POINT c1{0, 0}, c2{2, 0}, c3{1, 0};
  uint16_t n = 9;
  GE_POINT p1{}, p2{};
  EXPECT_EQ(GeIseCirCir(&c1, 1, &c2, 1, &n, &p1, &p2), PA_OK);
  EXPECT_EQ(n, 1);
  EXPECT_EQ(p1, (GE_POINT{1, 0}));
  EXPECT_EQ(GeIseCirCir(&c1, 1, &c3, -1, &n, &p1, &p2), PA_OK);
  ASSERT_EQ(n, 2);
  EXPECT_NEAR(p1.x, 0.5, 1e-15);
  EXPECT_NEAR(p1.y, std::sqrt(0.75), 1e-15) << "left of c1 -> c2 first";
  EXPECT_NEAR(p2.y, -std::sqrt(0.75), 1e-15);
}

TEST(IseCirCir, TouchingBandsInTheirOrder) {
  ToleranceScope tol(0.25);
  const GE_POINT o{0, 0};
  uint16_t n = 0;
  GE_POINT p1{}, p2{};
  const auto touch = [&](double r1, GE_POINT c2, double r2) {
    EXPECT_EQ(GeIseCirCir(&o, r1, &c2, r2, &n, &p1, &p2), PA_OK);
    EXPECT_EQ(n, 1) << r1 << " " << c2 << " " << r2;
    return p1;
  };
  EXPECT_EQ(touch(1, {2.25, 0}, 1), (GE_POINT{1.125, 0})) << "outer band, upper edge";
  EXPECT_EQ(touch(1, {1.75, 0}, 1), (GE_POINT{0.875, 0})) << "outer band, lower edge";
  EXPECT_EQ(touch(2, {1, 0}, 1), (GE_POINT{2, 0})) << "circle 2 inside circle 1";
  EXPECT_EQ(touch(1, {1, 0}, 2), (GE_POINT{-1, 0})) << "circle 1 inside circle 2";
  // Within two bands at once the outer touch wins.
  ToleranceScope wide(0.5);
  EXPECT_EQ(touch(1, {1, 0}, 0.25), (GE_POINT{0.875, 0})) << "inner touch would give 1.125";
  EXPECT_EQ(touch(0.25, {1, 0}, 1), (GE_POINT{0.125, 0})) << "inner touch would give -0.125";
}

TEST(IseCirCir, ConcentricDisjointAndNested) {
  ToleranceScope tol(0.25);
  const GE_POINT o{0, 0}, near{0.25, 0}, far{3, 0}, inside{1, 0};
  uint16_t n = 9;
  GE_POINT p1{5, 5}, p2{5, 5};
  EXPECT_EQ(GeIseCirCir(&o, 1, &near, 2, &n, &p1, &p2), PA_CONCENTRIC) << "d = tol";
  EXPECT_EQ(n, 0);
  EXPECT_EQ(p1, (GE_POINT{0, 0}));
  EXPECT_EQ(GeIseCirCir(&o, 1, &far, 1, &n, &p1, &p2), PA_OK);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(GeIseCirCir(&o, 3, &inside, 1, &n, &p1, &p2), PA_OK);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(GeIseCirCir(nullptr, 3, &inside, 1, &n, &p1, &p2), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

// Crossings of elements with their position codes and end-point snapping,
// the quick crossing tests with their bands, and common tangents.
#include <cmath>
#include <tuple>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT At(GE_POINT c, double r, double a) {
  return {c.x + r * std::cos(a), c.y + r * std::sin(a)};
}

TEST(Cross, SnapsToTheFirstElementsEndBeforeClassifyingOnTheSecond) {
  ToleranceScope tol(0.25);
  // b crosses a's carrier at (1.125, 0), 0.125 beyond a's end.
  const LI_TAB_STRUCT a = Line({0, 0}, {1, 0}), b = Line({1.25, -1}, {1, 1});
  const auto along_b = [&](double x) { return x * b.tan_ap.x; };
  IsectPoint i{}, unused{};
  ASSERT_EQ(GeCross(&a, &b, &i, &unused), 1);
  EXPECT_EQ(std::make_tuple(i.x, i.y, i.pos1, i.par1, i.pos2, i.par2),
            std::make_tuple(1.0, 0.0, GE_AT_END, a.ang_ep, GE_INSIDE, along_b(1)))
      << "classified on b at the snapped point";
  ASSERT_EQ(GeCross(&b, &a, &i, &unused), 1);
  EXPECT_DOUBLE_EQ(i.par1, along_b(1.125)) << "b first sees the true crossing";
  EXPECT_EQ(std::make_tuple(i.pos2, i.x), std::make_tuple(GE_AT_END, 1.0)) << "snapped again";
  const LI_TAB_STRUCT collinear = Line({2, 0}, {3, 0});
  EXPECT_EQ(GeCross(&a, &collinear, &i, &unused), 0) << "collinear lines are parallel";
}

TEST(Cross, ArcsAndLinesWithTheirCodesInTheLinesOrder) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT a = Arc({1, 0}, At(o, 1, kPi / 3), o, LI_ARC_CCW);
  const LI_TAB_STRUCT b = Arc({2, 0}, {0, 0}, {1, 0}, LI_ARC_CCW);    // upper half about (1, 0)
  const LI_TAB_STRUCT dot = Arc({1, 0}, {1, 0}, {1, 0}, LI_ARC_CCW);  // radius 0
  IsectPoint i1{}, i2{};
  ASSERT_EQ(GeCross(&a, &b, &i1, &i2), 2);
  EXPECT_EQ(std::make_tuple(i1.x, i1.y, i1.pos1, i1.pos2),
            std::make_tuple(a.ep.x, a.ep.y, GE_AT_END, GE_INSIDE));
  EXPECT_EQ(std::make_tuple(i2.pos1, i2.pos2), std::make_tuple(GE_BEFORE, GE_BEYOND))
      << "-pi/3 is pi/3 behind";
  EXPECT_EQ(GeCross(&a, &dot, &i1, &i2) + GeCross(&dot, &a, &i1, &i2), 0);

  const LI_TAB_STRUCT line = Line({-2, 0.6}, {2, 0.6}), left = Arc({0, -1}, {0, 1}, o, LI_ARC_CW);
  ASSERT_EQ(GeCross(&line, &left, &i1, &i2), 2);
  EXPECT_NEAR(i1.par1, -0.8, 1e-15);
  EXPECT_EQ(std::make_tuple(i1.pos2, i2.pos2), std::make_tuple(GE_INSIDE, GE_BEYOND))
      << "(0.8, 0.6) is nearer the end";
  ASSERT_EQ(GeCross(&left, &line, &i1, &i2), 2);
  EXPECT_NEAR(i1.x, -0.8, 1e-15) << "still in the line's direction";
  EXPECT_NEAR(i1.par1, std::atan2(0.6, -0.8), 1e-15) << "an angle on the arc, now first";
}

double CarrierGap(const LI_TAB_STRUCT &e, const IsectPoint &i) {
  if (e.type == LI_LINE) return std::fabs(e.mp.x * i.x + e.mp.y * i.y - e.rad);
  return std::fabs(std::hypot(i.x - e.mp.x, i.y - e.mp.y) - std::fabs(e.rad));
}

TEST(Cross, PointsLieOnBothCarriers) {
  std::vector<LI_TAB_STRUCT> elems;
  for (int i = 0; i < 7; ++i) {
    const double a = 0.9 * i - 2.5, r = 0.5 + 0.3 * i;
    const GE_POINT c{0.4 * i - 1, 0.25 * i - 0.5};
    elems.push_back(Line(At({0.3 * i, -0.2}, 2, a), At({0.3 * i, -0.2}, 2, a + 2.9)));
    elems.push_back(
        Arc(At(c, r, a), At(c, r, a + 1.7 + 0.4 * i), c, i % 2 ? LI_ARC_CW : LI_ARC_CCW));
  }
  elems.push_back(Line(elems[1].ep, {5, 5}));  // meets an arc exactly at its end
  const double tol = GeEpsiGetTol() * (1 + 1e-9);
  int points = 0;
  for (const LI_TAB_STRUCT &a : elems) {
    for (const LI_TAB_STRUCT &b : elems) {
      IsectPoint is[2]{};
      const uint16_t n = &a == &b ? 0 : GeCross(&a, &b, &is[0], &is[1]);
      for (uint16_t k = 0; k < n; ++k, ++points) {
        EXPECT_LE(CarrierGap(a, is[k]), tol);
        EXPECT_LE(CarrierGap(b, is[k]), tol);
      }
    }
  }
  EXPECT_GT(points, 100);
}

TEST(IsectTest, OnlyTwoCrossingPointsAreNoTouchButAMissingLineIsNoTouchEither) {
  ToleranceScope tol(0.25);
  const GE_POINT o{0, 0}, down{0, -1};  // lines y = k travelling in +x: c = -k
  // Circle 1 is the unit circle about o: {c2, r2, test point, touch, side}.
  const std::tuple<GE_POINT, double, GE_POINT, uint16_t, uint16_t> circles[] = {
      {{0.25, 0}, 2, o, 2, 0},     // centres within tol
      {{2.25, 0}, 1, o, 1, 0},     // outer band, inclusive
      {{4, 0}, 1, o, 1, 0},        // disjoint
      {{0.5, 0}, 0.125, o, 1, 0},  // nested
      {{1, 0}, 1, {0, -1}, 0, 1},  // right of the centre line
      {{1, 0}, 1, {0, 1}, 0, 0},   // left
      {{1, 0}, 1, {2, 0}, 0, 1},   // on the centre line counts as right
  };
  for (auto [c2, r2, p, want_touch, want_side] : circles) {
    uint16_t side = 9, touch = 9;
    EXPECT_EQ(GeCirCirTest(&o, 1, &c2, r2, &p, &side, &touch), 0);
    EXPECT_EQ(std::make_tuple(touch, side), std::make_tuple(want_touch, want_side)) << c2 << p;
  }
  // The unit circle against y = k: {k, test point, touch, side}.
  const std::tuple<double, GE_POINT, uint16_t, uint16_t> lines[] = {
      {3, o, 0, 0},           // missing: not a touch, unlike two circles
      {1.25, o, 0, 0},        // a = r + tol is outside the strict band
      {1.125, o, 1, 0},       // inside the band
      {0.75, o, 0, 0},        // a = r - tol: neither in the band nor a crossing
      {0.5, {1, 0.5}, 0, 1},  // (p - centre) x n < 0
      {0.5, {-1, 0}, 0, 0},
  };
  for (auto [k, p, want_touch, want_side] : lines) {
    uint16_t side = 9, touch = 9;
    EXPECT_EQ(GeCirLinTest(&o, 1, &down, -k, &p, &side, &touch), 0);
    EXPECT_EQ(std::make_tuple(touch, side), std::make_tuple(want_touch, want_side)) << k << p;
  }
}

TEST(IsectTest, ElementsDispatchWithTheFirstElementsEnd) {
  const LI_TAB_STRUCT l1 = Line({0, 0}, {2, 0}), l2 = Line({0, 1}, {2, 1 + 4e-9});
  const LI_TAB_STRUCT l3 = Line({0.5, -1}, {0.5, 1});
  const LI_TAB_STRUCT a1 = Arc({1, 0}, {0, -1}, {0, 0}, LI_ARC_CW);
  const LI_TAB_STRUCT a2 = Arc({2, 0}, {0, 0}, {1, 0}, LI_ARC_CCW);
  const std::tuple<const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, uint16_t, uint16_t> cases[] = {
      {&l1, &l2, 2, 0},  // parallel within the fixed limit
      {&l1, &l3, 0, 0},  // crossing lines
      {&a1, &a2, 0, 1},  // a1 ends at (0, -1), right of (0,0) -> (1,0)
      {&a1, &l3, 0, 0},  // (0,-1) x (1,0) > 0
      {&l3, &a1, 0, 1},  // l3 ends at (0.5, 1): (0.5,1) x (1,0) < 0
  };
  for (auto [e1, e2, want_touch, want_side] : cases) {
    uint16_t side = 9, touch = 9;
    EXPECT_EQ(GeElemIsectTest(e1, e2, &side, &touch), 0);
    EXPECT_EQ(std::make_tuple(touch, side), std::make_tuple(want_touch, want_side)) << e1->ep;
  }
}

TEST(CirCirTan, TangentsTouchBothCirclesOrThereAreNone) {
  // {c1, r1, c2, r2, inner}
  const std::tuple<GE_POINT, double, GE_POINT, double, int> cases[] = {
      {{0, 0}, 1, {4, 0}, 1, 0},    {{0, 0}, 1, {4, 0}, 1, 1}, {{1, 2}, 2, {-3, 5}, 0.5, 0},
      {{1, 2}, 2, {-3, 5}, 0.5, 1}, {{0, 0}, 3, {5, 1}, 1, 0}, {{2, -1}, 1, {2, 6}, 4, 1}};
  for (auto [c1, r1, c2, r2, inner] : cases) {
    GE_POINT n[2]{};
    double k[2]{};
    ASSERT_EQ(GeCirCirTan(&c1, r1, &c2, r2, inner, &n[0], &k[0], &n[1], &k[1]), PA_OK);
    for (int i = 0; i < 2; ++i) {
      EXPECT_NEAR(std::hypot(n[i].x, n[i].y), 1, 1e-14);
      EXPECT_NEAR(n[i].x * c1.x + n[i].y * c1.y - k[i], -r1, 1e-13);
      EXPECT_NEAR(n[i].x * c2.x + n[i].y * c2.y - k[i], inner ? r2 : -r2, 1e-13);
    }
    EXPECT_GT(std::hypot(n[0].x - n[1].x, n[0].y - n[1].y), 1e-3) << "two different tangents";
  }
  const GE_POINT o{0, 0}, four{4, 0}, one{1, 0}, tiny{1e-5, 0};
  GE_POINT n1{9, 9}, n2{};
  double k1 = 0, k2 = 0;
  // d < tol, overlapping inner, nested with q > 1 and q < -1.
  for (auto [r1, c2, r2, inner] : {std::tuple{1.0, tiny, 2.0, 0}, std::tuple{1.0, one, 1.0, 1},
                                   std::tuple{3.0, one, 1.0, 0}, std::tuple{1.0, one, 3.0, 0}}) {
    EXPECT_EQ(GeCirCirTan(&o, r1, &c2, r2, inner, &n1, &k1, &n2, &k2), PA_IMPOSSIBLE) << r1 << r2;
  }
  EXPECT_EQ(n1, (GE_POINT{9, 9}));
  ASSERT_EQ(GeCirCirTan(&o, 1, &four, 1, 0, &n1, &k1, &n2, &k2), PA_OK);
  EXPECT_EQ(std::make_tuple(n1, k1, n2), std::make_tuple(GE_POINT{0, 1}, 1.0, GE_POINT{0, -1}))
      << "equal radii: perpendicular to the centre line";
}

}  // namespace
}  // namespace polyarc_test

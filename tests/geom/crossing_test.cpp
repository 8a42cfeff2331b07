// Crossings of elements with their position codes and snapping, the quick
// crossing tests with their bands, and common tangents of two circles.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT At(GE_POINT c, double r, double a) {
  return {c.x + r * std::cos(a), c.y + r * std::sin(a)};
}

TEST(Cross, LinesCrossOnceOrNotAtAll) {
  const LI_TAB_STRUCT a = Line({0, 0}, {2, 2}), b = Line({0, 2}, {2, 0}), c = Line({1, 1}, {3, 3});
  IsectPoint i1{}, i2{};
  ASSERT_EQ(GeCross(&a, &b, &i1, &i2), 1);
  EXPECT_NEAR(i1.x, 1, 1e-15);
  EXPECT_NEAR(i1.y, 1, 1e-15);
  EXPECT_EQ(i1.pos1, GE_INSIDE);
  EXPECT_EQ(i1.pos2, GE_INSIDE);
  EXPECT_NEAR(i1.par1, std::sqrt(2.0), 1e-15);
  EXPECT_EQ(GeCross(&a, &c, &i1, &i2), 0) << "collinear lines are parallel";
}

TEST(Cross, SnapsToTheFirstElementsEndBeforeClassifyingOnTheSecond) {
  ToleranceScope tol(0.25);
  // b crosses a's carrier at (1.125, 0), 0.125 beyond a's end.
  const LI_TAB_STRUCT a = Line({0, 0}, {1, 0}), b = Line({1.25, -1}, {1, 1});
  const auto along_b = [&](GE_POINT p) { return p.x * b.tan_ap.x + p.y * b.tan_ap.y; };
  IsectPoint i1{}, i2{};
  ASSERT_EQ(GeCross(&a, &b, &i1, &i2), 1);
  EXPECT_EQ(i1.x, 1) << "snapped to a's end";
  EXPECT_EQ(i1.y, 0);
  EXPECT_EQ(i1.pos1, GE_AT_END);
  EXPECT_EQ(i1.par1, a.ang_ep);
  EXPECT_EQ(i1.pos2, GE_INSIDE);
  EXPECT_EQ(i1.par2, along_b({1, 0})) << "classified on b at the snapped point";
  ASSERT_EQ(GeCross(&b, &a, &i1, &i2), 1);
  EXPECT_DOUBLE_EQ(i1.par1, along_b({1.125, 0})) << "b first sees the true crossing";
  EXPECT_EQ(i1.pos2, GE_AT_END);
  EXPECT_EQ(i1.x, 1);
}

TEST(Cross, ArcsCrossingAtTheFirstArcsEndGetItsExactCoordinates) {
  const GE_POINT o{0, 0}, m{1, 0};
  const LI_TAB_STRUCT a = Arc({1, 0}, At(o, 1, kPi / 3), o, LI_ARC_CCW);
  const LI_TAB_STRUCT b = Arc({2, 0}, {0, 0}, m, LI_ARC_CCW);  // upper half about (1, 0)
  IsectPoint i1{}, i2{};
  ASSERT_EQ(GeCross(&a, &b, &i1, &i2), 2);
  EXPECT_EQ(i1.x, a.ep.x);
  EXPECT_EQ(i1.y, a.ep.y);
  EXPECT_EQ(i1.pos1, GE_AT_END);
  EXPECT_EQ(i1.pos2, GE_INSIDE);
  EXPECT_NEAR(i2.y, -std::sqrt(0.75), 1e-15);
  EXPECT_EQ(i2.pos1, GE_BEFORE) << "-pi/3 lies pi/3 behind the start";
  EXPECT_EQ(i2.pos2, GE_BEYOND);

  const LI_TAB_STRUCT dot = Arc({1, 0}, {1, 0}, {1, 0}, LI_ARC_CCW);  // radius 0
  EXPECT_EQ(GeCross(&a, &dot, &i1, &i2), 0);
  EXPECT_EQ(GeCross(&dot, &a, &i1, &i2), 0);
}

TEST(Cross, LineAndArcInEitherOrderFollowTheLine) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT line = Line({-2, 0.6}, {2, 0.6});
  const LI_TAB_STRUCT arc = Arc({0, -1}, {0, 1}, o, LI_ARC_CW);  // left half, clockwise
  IsectPoint i1{}, i2{};
  ASSERT_EQ(GeCross(&line, &arc, &i1, &i2), 2);
  EXPECT_NEAR(i1.x, -0.8, 1e-15);
  EXPECT_NEAR(i1.par1, -0.8, 1e-15);
  EXPECT_EQ(i1.pos2, GE_INSIDE);
  EXPECT_EQ(i2.pos2, GE_BEYOND) << "(0.8, 0.6) lies nearer the end at pi/2";
  ASSERT_EQ(GeCross(&arc, &line, &i1, &i2), 2);
  EXPECT_NEAR(i1.x, -0.8, 1e-15) << "still in the line's direction";
  EXPECT_NEAR(i1.par1, std::atan2(0.6, -0.8), 1e-15) << "an angle on the arc, now first";
  EXPECT_EQ(i1.pos1, GE_INSIDE);
}

// Lying on an element's carrier within tol (after the snapping).
double CarrierGap(const LI_TAB_STRUCT &e, const IsectPoint &i) {
  const GE_POINT p{i.x, i.y};
  if (e.type == LI_LINE) return std::fabs(e.mp.x * p.x + e.mp.y * p.y - e.rad);
  return std::fabs(std::hypot(p.x - e.mp.x, p.y - e.mp.y) - std::fabs(e.rad));
}

TEST(Cross, PointsLieOnBothCarriers) {
  std::vector<LI_TAB_STRUCT> elems;
  for (int i = 0; i < 7; ++i) {
    const double a = 0.9 * i - 2.5;
    elems.push_back(Line(At({0.3 * i, -0.2}, 2, a), At({0.3 * i, -0.2}, 2, a + 2.9)));
    const GE_POINT c{0.4 * i - 1, 0.25 * i - 0.5};
    elems.push_back(Arc(At(c, 0.5 + 0.3 * i, a), At(c, 0.5 + 0.3 * i, a + 1.7 + 0.4 * i), c,
                        i % 2 ? LI_ARC_CW : LI_ARC_CCW));
  }
  // Pairs that meet exactly at an end point get snapped there.
  elems.push_back(Line(elems[1].ep, {5, 5}));
  const double tol = GeEpsiGetTol();
  int points = 0;
  for (const LI_TAB_STRUCT &a : elems) {
    for (const LI_TAB_STRUCT &b : elems) {
      if (&a == &b) continue;
      IsectPoint is[2]{};
      const uint16_t n = GeCross(&a, &b, &is[0], &is[1]);
      for (uint16_t k = 0; k < n; ++k, ++points) {
        EXPECT_LE(CarrierGap(a, is[k]), tol * (1 + 1e-9));
        EXPECT_LE(CarrierGap(b, is[k]), tol * (1 + 1e-9));
        EXPECT_GE(is[k].pos1, GE_AT_START);
        EXPECT_LE(is[k].pos1, GE_BEYOND);
      }
    }
  }
  EXPECT_GT(points, 100);
}

TEST(CirCirTest, TouchCoversTouchingDisjointAndNested) {
  ToleranceScope tol(0.25);
  const GE_POINT o{0, 0}, same{0.25, 0}, two{2.25, 0}, far{4, 0}, one{1, 0}, half{0.5, 0};
  uint16_t side = 9, touch = 9;
  const auto run = [&](GE_POINT c2, double r1, double r2, GE_POINT p) {
    EXPECT_EQ(GeCirCirTest(&o, r1, &c2, r2, &p, &side, &touch), 0);
  };
  run(same, 1, 2, o);
  EXPECT_EQ(touch, 2) << "centres within tol";
  run(two, 1, 1, o);
  EXPECT_EQ(touch, 1) << "outer band, inclusive";
  run(far, 1, 1, o);
  EXPECT_EQ(touch, 1) << "disjoint";
  run(half, 3, 1, o);
  EXPECT_EQ(touch, 1) << "nested";
  run(one, 1, 1, {0, -1});
  EXPECT_EQ(touch, 0);
  EXPECT_EQ(side, 1) << "right of the centre line";
  run(one, 1, 1, {0, 1});
  EXPECT_EQ(side, 0);
  run(one, 1, 1, {2, 0});
  EXPECT_EQ(side, 1) << "on the centre line counts as right";
}

TEST(CirLinTest, StrictBandAndAMissingLineLeavesTouchZero) {
  ToleranceScope tol(0.25);
  const GE_POINT o{0, 0}, down{0, -1};  // lines y = k travelling in +x: c = -k
  uint16_t side = 9, touch = 9;
  const auto run = [&](double k, GE_POINT p) {
    EXPECT_EQ(GeCirLinTest(&o, 1, &down, -k, &p, &side, &touch), 0);
  };
  run(3, o);
  EXPECT_EQ(touch, 0) << "a missing line is not a touch, unlike two circles";
  EXPECT_EQ(side, 0);
  run(1.25, o);
  EXPECT_EQ(touch, 0) << "a = r + tol is outside the strict band";
  run(1.125, o);
  EXPECT_EQ(touch, 1);
  run(0.75, o);
  EXPECT_EQ(touch, 0) << "a = r - tol: neither in the band nor a crossing";
  EXPECT_EQ(side, 0);
  run(0.5, {1, 0.5});
  EXPECT_EQ(touch, 0);
  EXPECT_EQ(side, 1) << "(p - centre) x n < 0";
  run(0.5, {-1, 0});
  EXPECT_EQ(side, 0);
}

TEST(ElemIsectTest, DispatchesWithTheFirstElementsEnd) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT l1 = Line({0, 0}, {2, 0}), l2 = Line({0, 1}, {2, 1 + 4e-9});
  const LI_TAB_STRUCT l3 = Line({0.5, -1}, {0.5, 1});
  const LI_TAB_STRUCT a1 = Arc({1, 0}, {0, -1}, o, LI_ARC_CW);
  const LI_TAB_STRUCT a2 = Arc({2, 0}, {0, 0}, {1, 0}, LI_ARC_CCW);
  uint16_t side = 9, touch = 9;
  EXPECT_EQ(GeElemIsectTest(&l1, &l2, &side, &touch), 0);
  EXPECT_EQ(touch, 2) << "parallel within the fixed limit";
  EXPECT_EQ(GeElemIsectTest(&l1, &l3, &side, &touch), 0);
  EXPECT_EQ(touch, 0);
  EXPECT_EQ(side, 0);
  EXPECT_EQ(GeElemIsectTest(&a1, &a2, &side, &touch), 0);
  EXPECT_EQ(touch, 0);
  EXPECT_EQ(side, 1) << "a1 ends at (0, -1), right of (0,0) -> (1,0)";
  EXPECT_EQ(GeElemIsectTest(&a2, &a1, &side, &touch), 0);
  EXPECT_EQ(side, 1) << "a2 ends at (0, 0), on the centre line";
  EXPECT_EQ(GeElemIsectTest(&a1, &l3, &side, &touch), 0);
  EXPECT_EQ(touch, 0);
  EXPECT_EQ(side, 0) << "(0,-1) x n = (0,-1) x (1,0) > 0";
  EXPECT_EQ(GeElemIsectTest(&l3, &a1, &side, &touch), 0);
  EXPECT_EQ(side, 1) << "l3 ends at (0.5, 1): (0.5,1) x (1,0) < 0";
}

TEST(CirCirTan, TangentsTouchBothCircles) {
  struct Case {
    GE_POINT c1;
    double r1;
    GE_POINT c2;
    double r2;
    int inner;
  } cases[] = {{{0, 0}, 1, {4, 0}, 1, 0},    {{0, 0}, 1, {4, 0}, 1, 1},
               {{1, 2}, 2, {-3, 5}, 0.5, 0}, {{1, 2}, 2, {-3, 5}, 0.5, 1},
               {{0, 0}, 3, {5, 1}, 1, 0},    {{2, -1}, 1, {2, 6}, 4, 1}};
  for (const Case &c : cases) {
    GE_POINT n[2]{};
    double k[2]{};
    ASSERT_EQ(GeCirCirTan(&c.c1, c.r1, &c.c2, c.r2, c.inner, &n[0], &k[0], &n[1], &k[1]), PA_OK);
    for (int i = 0; i < 2; ++i) {
      EXPECT_NEAR(std::hypot(n[i].x, n[i].y), 1, 1e-14);
      EXPECT_NEAR(n[i].x * c.c1.x + n[i].y * c.c1.y - k[i], -c.r1, 1e-13);
      EXPECT_NEAR(n[i].x * c.c2.x + n[i].y * c.c2.y - k[i], c.inner ? c.r2 : -c.r2, 1e-13);
    }
    EXPECT_GT(std::hypot(n[0].x - n[1].x, n[0].y - n[1].y), 1e-3) << "two different tangents";
  }
  // Equal radii, outer: normals perpendicular to the centre line.
  const GE_POINT o{0, 0}, four{4, 0};
  GE_POINT n1{}, n2{};
  double k1 = 0, k2 = 0;
  ASSERT_EQ(GeCirCirTan(&o, 1, &four, 1, 0, &n1, &k1, &n2, &k2), PA_OK);
  EXPECT_EQ(n1, (GE_POINT{0, 1}));
  EXPECT_EQ(k1, 1);
  EXPECT_EQ(n2, (GE_POINT{0, -1}));
}

TEST(CirCirTan, NoTangentGives1005) {
  const GE_POINT o{0, 0}, one{1, 0}, tiny{1e-5, 0};
  GE_POINT n1{9, 9}, n2{};
  double k1 = 0, k2 = 0;
  EXPECT_EQ(GeCirCirTan(&o, 1, &tiny, 2, 0, &n1, &k1, &n2, &k2), PA_IMPOSSIBLE) << "d < tol";
  EXPECT_EQ(GeCirCirTan(&o, 1, &one, 1, 1, &n1, &k1, &n2, &k2), PA_IMPOSSIBLE) << "overlap, inner";
  EXPECT_EQ(GeCirCirTan(&o, 3, &one, 1, 0, &n1, &k1, &n2, &k2), PA_IMPOSSIBLE) << "nested, q > 1";
  EXPECT_EQ(GeCirCirTan(&o, 1, &one, 3, 0, &n1, &k1, &n2, &k2), PA_IMPOSSIBLE) << "nested, q < -1";
  EXPECT_EQ(n1, (GE_POINT{9, 9}));
}

}  // namespace
}  // namespace polyarc_test

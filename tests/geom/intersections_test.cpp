// Carrier intersections with their tangent bands, crossings of elements with
// end-point snapping, the quick crossing tests, touching and parallel
// elements, and shared carriers with their common stretch.
#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

// The horizontal line y = k travelling in +x: normal (0, -1), c = -k.
constexpr GE_POINT kDown{0, -1}, kO{0, 0};

const auto gap = [](GE_POINT a, GE_POINT b) { return std::hypot(a.x - b.x, a.y - b.y); };
const auto at = [](GE_POINT c, double r, double a) {
  return GE_POINT{c.x + r * std::cos(a), c.y + r * std::sin(a)};
};

TEST(IseCirLinAndCirCir, TangentBandsAndTouchingStepsInTheirOrder) {
  ToleranceScope tol(0.25);
  const GE_POINT up{0, 1};  // y = 0.6 travelling in -x
  // {radius, line normal, c, count, point 1}: a = r + tol misses; r + tol / 2 gives the foot of
  // the centre; a = |r| - tol is still in the band; then the smaller parameter first.
  const std::tuple<double, GE_POINT, double, uint16_t, GE_POINT> cases[] = {
      {1, kDown, -1.25, 0, {0, 0}},
      {1, kDown, -1.125, 1, {0, 1.125}},
      {-1, kDown, -0.75, 1, {0, 0.75}},
      {1, kDown, -0.6, 2, {-0.8, 0.6}},
      {1, up, 0.6, 2, {0.8, 0.6}}};
  for (auto [r, n, c, count, want] : cases) {
    GE_POINT p1{9, 9}, p2{9, 9};
    EXPECT_EQ(GeIseCirLin(&kO, r, &n, c, &p1, &p2), count) << c;
    EXPECT_NEAR(gap(p1, want), 0, 1e-15) << c;
    EXPECT_NEAR(p2.x, count == 2 ? -want.x : 0, 1e-15) << c;
  }
  // GeIseCirCir: {tol, r1, c2, r2, status, count, point 1}; circle 1 is about the origin.
  const std::tuple<double, double, GE_POINT, double, uint16_t, uint16_t, GE_POINT> circles[] = {
      {0.25, 1, {2.25, 0}, 1, PA_OK, 1, {1.125, 0}},      // outer band, upper edge
      {0.25, 2, {1, 0}, 1, PA_OK, 1, {2, 0}},             // circle 2 inside circle 1
      {0.25, 1, {1, 0}, 2, PA_OK, 1, {-1, 0}},            // circle 1 inside circle 2
      {0.5, 1, {1, 0}, 0.25, PA_OK, 1, {0.875, 0}},       // outer before inner (1.125)
      {0.25, 1, {0.25, 0}, 2, PA_CONCENTRIC, 0, {0, 0}},  // d = tol
      {0.25, 3, {1, 0}, 1, PA_OK, 0, {0, 0}},
      {0.25, 1, {1, 0}, -1, PA_OK, 2, {0.5, std::sqrt(0.75)}},  // left of c1 -> c2 first
  };
  for (auto [t, r1, c2, r2, status, count, want] : circles) {
    ToleranceScope scope(t);
    uint16_t n = 9;
    GE_POINT p1{5, 5}, p2{5, 5};
    EXPECT_EQ(GeIseCirCir(&kO, r1, &c2, r2, &n, &p1, &p2), status) << c2 << r1;
    const GE_POINT want2 = count == 2 ? GE_POINT{want.x, -want.y} : GE_POINT{0, 0};
    EXPECT_EQ(n, count) << c2 << r1;
    EXPECT_NEAR(gap(p1, want) + gap(p2, want2), 0, 1e-15) << c2 << r1;
  }
}

TEST(Cross, SnapsToTheFirstElementsEndBeforeClassifyingOnTheSecond) {
  ToleranceScope tol(0.25);
  // b crosses a's carrier at (1.125, 0), 0.125 beyond a's end, and is classified at the snapped
  // point (1, 0); b's parameter at (x, 0) is x * d.x.
  const LI_TAB_STRUCT a = Line({0, 0}, {1, 0}), b = Line({1.25, -1}, {1, 1}),
                      far = Line({2, 0}, {3, 0});
  IsectPoint i{}, unused{};
  ASSERT_EQ(GeCross(&a, &b, &i, &unused), 1);
  EXPECT_EQ(std::make_tuple(i.x, i.y, i.pos1, i.par1, i.pos2, i.par2),
            std::make_tuple(1.0, 0.0, GE_AT_END, a.ang_ep, GE_INSIDE, b.tan_ap.x));
  ASSERT_EQ(GeCross(&b, &a, &i, &unused), 1);
  EXPECT_DOUBLE_EQ(i.par1, 1.125 * b.tan_ap.x) << "b first sees the true crossing";
  EXPECT_EQ(std::make_tuple(i.pos2, i.x), std::make_tuple(GE_AT_END, 1.0)) << "snapped again";
  EXPECT_EQ(GeCross(&a, &far, &i, &unused), 0) << "collinear lines are parallel";
  // Arcs whose circles cross at the first arc's end; and an arc of radius 0.
  const LI_TAB_STRUCT c = Arc({1, 0}, at(kO, 1, kPi / 3), kO, LI_ARC_CCW);
  const LI_TAB_STRUCT d = Arc({2, 0}, {0, 0}, {1, 0}, LI_ARC_CCW);  // upper half about (1, 0)
  const LI_TAB_STRUCT dot = Arc({1, 0}, {1, 0}, {1, 0}, LI_ARC_CCW);
  ASSERT_EQ(GeCross(&c, &d, &i, &unused), 2);
  EXPECT_EQ(std::make_tuple(i.x, i.y, i.pos1, i.pos2, unused.pos1, unused.pos2),
            std::make_tuple(c.ep.x, c.ep.y, GE_AT_END, GE_INSIDE, GE_BEFORE, GE_BEYOND));
  EXPECT_EQ(GeCross(&c, &dot, &i, &unused) + GeCross(&dot, &c, &i, &unused), 0);
}

TEST(IsectTest, TwoCrossingsAreNoTouchAMissingLineNeitherParallelByAFixedLimit) {
  ToleranceScope tol(0.25);
  using Test = uint16_t (*)(const GE_POINT *, double, const GE_POINT *, double, const GE_POINT *,
                            uint16_t *, uint16_t *);
  // The unit circle about the origin against a second circle {centre, radius} or a line y = k
  // {normal, c = -k}, with a test point: {test, centre or normal, radius or c, point, touch, side}.
  const std::tuple<Test, GE_POINT, double, GE_POINT, uint16_t, uint16_t> cases[] = {
      {GeCirCirTest, {1, 0}, 1, {0, 1}, 0, 0},  // left of the centre line
      {GeCirCirTest, {1, 0}, 1, {2, 0}, 0, 1},  // on it counts as right
      {GeCirCirTest, {0.25, 0}, 2, kO, 2, 0},   // centres within tol
      {GeCirCirTest, {2.25, 0}, 1, kO, 1, 0},   // outer band, inclusive
      {GeCirCirTest, {4, 0}, 1, kO, 1, 0},      // disjoint: a touch
      {GeCirLinTest, kDown, -3, kO, 0, 0},      // missing: not a touch, unlike two circles
      {GeCirLinTest, kDown, -1.25, kO, 0, 0},   // a = r + tol is outside the strict band
      {GeCirLinTest, kDown, -1.125, kO, 1, 0},
      {GeCirLinTest, kDown, -0.75, kO, 0, 0},       // a = r - tol: no band, no crossing
      {GeCirLinTest, kDown, -0.5, {1, 0.5}, 0, 1},  // (p - centre) x n < 0
      {GeCirLinTest, kDown, -0.5, {-1, 0}, 0, 0},
  };
  for (auto [test, q, v, p, want_touch, want_side] : cases) {
    uint16_t side = 9, touch = 9;
    EXPECT_EQ(test(&kO, 1, &q, v, &p, &side, &touch), 0);
    EXPECT_EQ(std::make_tuple(touch, side), std::make_tuple(want_touch, want_side)) << q << v << p;
  }
  // The limit on |n1 x n2| is 5e-09 whatever the tolerance.
  const GE_POINT vertical{1, 0}, almost{4e-09, -1}, steeper{6e-09, -1};
  GE_POINT p{9, 9};
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &almost, 1, &p), PA_PARALLEL);
  EXPECT_EQ(p, (GE_POINT{9, 9})) << "not written when parallel";
  EXPECT_EQ(GeIseLinLin(&kDown, 0, &steeper, 1, &p) + GeIseLinLin(&kDown, 0, &vertical, 2, &p), 0);
  EXPECT_NEAR(gap(p, {2, 0}), 0, 1e-15);  // x = 2 meets y = 0
  const LI_TAB_STRUCT l1 = Line({0, 0}, {2, 0}), l2 = Line({0, 1}, {2, 1 + 4e-9});
  const LI_TAB_STRUCT l3 = Line({0.5, -1}, {0.5, 1}), a1 = Arc({1, 0}, {0, -1}, kO, LI_ARC_CW);
  const LI_TAB_STRUCT a2 = Arc({2, 0}, {0, 0}, {1, 0}, LI_ARC_CCW);
  // {element 1, element 2, touch, side}: parallel within the fixed limit; a1 ends at (0, -1),
  // right of (0,0) -> (1,0); (0,-1) x (1,0) > 0; l3 ends at (0.5, 1): (0.5,1) x (1,0) < 0.
  const std::tuple<const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, uint16_t, uint16_t> pairs[] = {
      {&l1, &l2, 2, 0}, {&a1, &a2, 0, 1}, {&a1, &l3, 0, 0}, {&l3, &a1, 0, 1}};
  for (auto [e1, e2, want_touch, want_side] : pairs) {
    uint16_t side = 9, touch = 9;
    EXPECT_EQ(GeElemIsectTest(e1, e2, &side, &touch), 0);
    EXPECT_EQ(std::make_tuple(touch, side), std::make_tuple(want_touch, want_side)) << e1->ep;
  }
  uint16_t n = 0;
  EXPECT_EQ(GeIseCirCir(nullptr, 3, &p, 1, &n, &p, &p), PA_INVALID);
}

TEST(TouchingAndParallel, TangentBandsCurvaturesCollinearConcentricAndTheFixedCosineLimit) {
  ToleranceScope tol(0.25);  // the cosine limit of the parallel test ignores it
  const auto rotated = [](double a) { return Line({0, 0}, {std::cos(a), std::sin(a)}); };
  const LI_TAB_STRUCT unit = Arc({1, 0}, {0, 1}, kO, LI_ARC_CCW), x = rotated(0);
  const LI_TAB_STRUCT band = Line({-2, 1.125}, {2, 1.125}), cut = Line({-2, 0.5}, {2, 0.5});
  const LI_TAB_STRUCT a4 = Arc({2, 0}, {0, 2}, kO, LI_ARC_CCW), dot = Line({0, 0}, {0.125, 0.125});
  const LI_TAB_STRUCT outside = Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW);  // touches unit at (1, 0)
  using Test = uint16_t (*)(const LI_TAB_STRUCT *, const LI_TAB_STRUCT *);
  const std::tuple<Test, LI_TAB_STRUCT, LI_TAB_STRUCT, uint16_t> cases[] = {
      {GeTestTang, unit, Arc({3, 0}, {0, -3}, kO, LI_ARC_CW), 1},  // concentric, whatever the radii
      {GeTestTang, unit, outside, 1},
      {GeTestTang, unit, band, 1},  // r + tol/2: in the tangent band
      {GeTestTang, cut, unit, 0},
      {GeTestTang, x, Line({3, 0}, {5, 0}), 1},      // collinear, apart
      {GeElemTestParallel, x, rotated(0.00005), 2},  // dot 0.99999999875
      {GeElemTestParallel, x, rotated(0.001), 0},
      {GeElemTestParallel, x, rotated(kPi - 0.00005), 65535},
      {GeElemTestParallel, Arc({1, 0}, {0, -1}, kO, LI_ARC_CW), a4, 65535},  // concentric
      {GeElemTestParallel, a4, Arc({0, 3}, {-3, 0}, kO, LI_ARC_CCW), 2},
      {GeElemTestParallel, x, dot, 1},   // a degenerate line
      {GeElemTestParallel, dot, a4, 1},  // both ends at the arc's centre
      {GeElemTestParallel, x, a4, 0}};
  for (const auto &[test, a, b, want] : cases) EXPECT_EQ(test(&a, &b), want) << a.ep << b.ep;
  // GeTanSide: s = -1 for a counter-clockwise arc of radius 1 against a line; 1 + (-1) and
  // 1 - (-1) for the two arcs; s = tol (k = 1/4) is not beyond it.
  const LI_TAB_STRUCT tangent = Line({1, -1}, {1, 1}),
                      wide = Arc({1, 0}, {5, 4}, {5, 0}, LI_ARC_CW);
  using Case = std::tuple<const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, int, uint16_t, uint16_t>;
  const Case sides[] = {{&unit, &tangent, 0, PA_OK, 65535}, {&tangent, &unit, 0, PA_OK, 1},
                        {&outside, &unit, 1, PA_OK, 0},     {&outside, &unit, 0, PA_OK, 1},
                        {&wide, &tangent, 0, PA_OK, 0},     {&unit, &x, 0, PA_IMPOSSIBLE, 0}};
  for (auto [a, b, mode, status, want] : sides) {
    uint16_t side = 9;
    EXPECT_EQ(GeTanSide(a, b, &side, mode), status);
    EXPECT_EQ(side, want) << a->rad << " " << b->rad << " " << mode;
  }
}

TEST(IdentElem, CommonStretchOfLinesClippedOfArcsNot) {
  const LI_TAB_STRUCT a = Line({0, 0}, {4, 0}), upper = Arc({1, 0}, {-1, 0}, kO, LI_ARC_CCW);
  const GE_POINT z{0, 0}, lower_right{std::sqrt(0.5), -std::sqrt(0.5)}, c{3, -2};
  const LI_TAB_STRUCT circle = Arc({4, -2}, {4, -2}, c, LI_ARC_CCW),
                      cw_circle = Arc({4, -2}, {4, -2}, c, LI_ARC_CW),
                      quarter = Arc({3, -1}, {2, -2}, c, LI_ARC_CCW);
  // {element 1, element 2, code, direction flag, point 1, point 2}
  const std::tuple<LI_TAB_STRUCT, LI_TAB_STRUCT, uint16_t, uint32_t, GE_POINT, GE_POINT> cases[] = {
      {a, Line({2, 0}, {6, 0}), 3, 0, {2, 0}, {4, 0}},
      {a, Line({6, 0}, {2, 0}), 3, 1, {2, 0}, {4, 0}},  // in the first line's sense
      {a, Line({4, 0}, {6, 0}), 2, 0, z, z},            // meeting at a point only
      {a, Line({6, 1}, {2, 1}), 1, 1, z, z},            // parallel, another carrier
      {upper, Arc({0, 1}, {0, -1}, kO, LI_ARC_CCW), 3, 0, {0, 1}, {0, -1}},  // not clipped
      {upper, Arc({0, -1}, lower_right, kO, LI_ARC_CCW), 2, 0, z, z},
      {upper, Arc({2, 0}, {-2, 0}, kO, LI_ARC_CW), 1, 1, z, z},  // the sense even so
      // A full circle holds every angle; as the second element it covers a full turn.
      {circle, quarter, 3, 0, {3, -1}, {2, -2}},
      {quarter, circle, 3, 0, {4, -2}, {4, -2}},
      {cw_circle, quarter, 3, 1, {2, -2}, {3, -1}},
  };
  for (const auto &[e1, e2, code, opposite, p1, p2] : cases) {
    uint16_t got = 0;
    uint32_t flag = 9;
    GE_POINT q1{9, 9}, q2{9, 9};
    GeIdentElem(&e1, &e2, &got, &flag, &q1, &q2);
    EXPECT_EQ(std::make_tuple(got, flag), std::make_tuple(code, opposite)) << e2.ap << e2.ep;
    EXPECT_NEAR(gap(q1, p1) + gap(q2, p2), 0, 1e-15);
  }
}

}  // namespace
}  // namespace polyarc_test

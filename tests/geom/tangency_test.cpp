// Touching carriers, the side two touching elements part to, parallel and
// concentric elements, and shared carriers with their common stretch.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr GE_POINT kO{0, 0};

TEST(TouchingAndParallel, TangentBandsCollinearConcentricAndTheFixedCosineLimit) {
  ToleranceScope tol(0.25);  // the cosine limit of the parallel test ignores it
  const auto rotated = [](double a) { return Line({0, 0}, {std::cos(a), std::sin(a)}); };
  const LI_TAB_STRUCT unit = Arc({1, 0}, {0, 1}, kO, LI_ARC_CCW), x = rotated(0);
  const LI_TAB_STRUCT band = Line({-2, 1.125}, {2, 1.125}), cut = Line({-2, 0.5}, {2, 0.5});
  const LI_TAB_STRUCT a4 = Arc({2, 0}, {0, 2}, kO, LI_ARC_CCW), dot = Line({0, 0}, {0.125, 0.125});
  using Test = uint16_t (*)(const LI_TAB_STRUCT *, const LI_TAB_STRUCT *);
  const std::tuple<Test, LI_TAB_STRUCT, LI_TAB_STRUCT, uint16_t> cases[] = {
      {GeTestTang, unit, Arc({3, 0}, {0, -3}, kO, LI_ARC_CW), 1},  // concentric, whatever the radii
      {GeTestTang, unit, Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW), 1},
      {GeTestTang, unit, Arc({0.5, 0}, {1.5, 1}, {1.5, 0}, LI_ARC_CW), 0},
      {GeTestTang, unit, band, 1},  // r + tol/2: in the tangent band
      {GeTestTang, band, unit, 1},
      {GeTestTang, cut, unit, 0},
      {GeTestTang, x, Line({3, 0}, {5, 0}), 1},  // collinear, apart
      {GeTestTang, x, Line({3, 0}, {5, 1}), 0},
      {GeElemTestParallel, x, rotated(0.00005), 2},  // dot 0.99999999875
      {GeElemTestParallel, x, rotated(0.001), 0},
      {GeElemTestParallel, x, rotated(3.141592653589793 - 0.00005), 65535},
      {GeElemTestParallel, Arc({1, 0}, {0, -1}, kO, LI_ARC_CW), a4, 65535},  // concentric
      {GeElemTestParallel, a4, Arc({0, 3}, {-3, 0}, kO, LI_ARC_CCW), 2},
      {GeElemTestParallel, a4, Arc({2, 0}, {1, 1}, {1, 0}, LI_ARC_CCW), 0},
      {GeElemTestParallel, x, dot, 1},  // a degenerate line, in either place
      {GeElemTestParallel, dot, x, 1},
      {GeElemTestParallel, dot, a4, 1},  // both ends at the arc's centre
      {GeElemTestParallel, a4, dot, 1},
      {GeElemTestParallel, x, a4, 0}};
  for (const auto &[test, a, b, want] : cases) EXPECT_EQ(test(&a, &b), want) << a.ep << b.ep;
}

TEST(TanSide, CurvatureDifferenceAgainstTheTolerance) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, kO, LI_ARC_CCW), tangent = Line({1, -1}, {1, 1});
  const LI_TAB_STRUCT cw = Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW);    // touches ccw from outside
  const LI_TAB_STRUCT wide = Arc({1, 0}, {3, 2}, {3, 0}, LI_ARC_CW);  // k = 0.5
  const LI_TAB_STRUCT away = Line({5, -1}, {5, 1});
  // {element 1, element 2, mode, status, side}: s = -1 for a counter-clockwise arc of radius 1
  // against a line; 1 + (-1) and 1 - (-1) for the two arcs; s = tol is not beyond it.
  using Case = std::tuple<const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, int, uint16_t, uint16_t>;
  const Case cases[] = {{&ccw, &tangent, 0, PA_OK, 65535}, {&tangent, &ccw, 0, PA_OK, 1},
                        {&cw, &ccw, 1, PA_OK, 0},          {&cw, &ccw, 0, PA_OK, 1},
                        {&wide, &tangent, 0, PA_OK, 0},    {&ccw, &away, 0, PA_IMPOSSIBLE, 0}};
  for (auto [a, b, mode, status, want] : cases) {
    uint16_t side = 9;
    EXPECT_EQ(GeTanSide(a, b, &side, mode), status);
    EXPECT_EQ(side, want) << a->rad << " " << b->rad << " " << mode;
  }
}

TEST(IdentElem, CommonStretchOfLinesClippedOfArcsNot) {
  const LI_TAB_STRUCT a = Line({0, 0}, {4, 0}), upper = Arc({1, 0}, {-1, 0}, kO, LI_ARC_CCW);
  const GE_POINT z{0, 0}, lower_right{std::sqrt(0.5), -std::sqrt(0.5)};
  // {element 1, element 2, code, direction flag, point 1, point 2}
  const std::tuple<LI_TAB_STRUCT, LI_TAB_STRUCT, uint16_t, uint32_t, GE_POINT, GE_POINT> cases[] = {
      {a, Line({2, 0}, {6, 0}), 3, 0, {2, 0}, {4, 0}},
      {a, Line({6, 0}, {2, 0}), 3, 1, {2, 0}, {4, 0}},   // in the first line's sense
      {a, Line({-1, 0}, {9, 0}), 3, 0, {0, 0}, {4, 0}},  // the first inside the second
      {a, Line({4, 0}, {6, 0}), 2, 0, z, z},             // meeting at a point only
      {a, Line({6, 1}, {2, 1}), 1, 1, z, z},             // parallel, another carrier
      {upper, Arc({0, 1}, {0, -1}, kO, LI_ARC_CCW), 3, 0, {0, 1}, {0, -1}},  // not clipped
      {upper, Arc({0, -1}, {0, 1}, kO, LI_ARC_CW), 3, 1, {0, 1}, {0, -1}},
      {upper, Arc({0, -1}, lower_right, kO, LI_ARC_CCW), 2, 0, z, z},
      {upper, Arc({2, 0}, {-2, 0}, kO, LI_ARC_CW), 1, 1, z, z},  // the sense even so
      {upper, a, 1, 0, z, z},
  };
  for (const auto &[e1, e2, code, opposite, p1, p2] : cases) {
    uint16_t got = 0;
    uint32_t flag = 9;
    GE_POINT q1{9, 9}, q2{9, 9};
    GeIdentElem(&e1, &e2, &got, &flag, &q1, &q2);
    EXPECT_EQ(std::make_tuple(got, flag), std::make_tuple(code, opposite)) << e2.ap << e2.ep;
    EXPECT_NEAR(std::hypot(q1.x - p1.x, q1.y - p1.y) + std::hypot(q2.x - p2.x, q2.y - p2.y), 0,
                1e-15);
  }
}

}  // namespace
}  // namespace polyarc_test

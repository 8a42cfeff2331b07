// Touching carriers, the side two touching elements part to, parallel and
// concentric elements, and shared carriers with their common stretch.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr GE_POINT kO{0, 0};

LI_TAB_STRUCT Rotated(double angle) {
  return Line({0, 0}, {std::cos(angle), std::sin(angle)});
}

TEST(TestTang, ConcentricTangentBandAndCollinearTouch) {
  const double y = 1 + 0.5 * GeEpsiGetTol();
  const LI_TAB_STRUCT unit = Arc({1, 0}, {0, 1}, kO, LI_ARC_CCW), x = Line({0, 0}, {1, 0});
  const std::tuple<LI_TAB_STRUCT, LI_TAB_STRUCT, uint16_t> cases[] = {
      {unit, Arc({3, 0}, {0, -3}, kO, LI_ARC_CW), 1},  // concentric, whatever the radii
      {unit, Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW), 1},
      {unit, Arc({0.5, 0}, {1.5, 1}, {1.5, 0}, LI_ARC_CW), 0},
      {unit, Line({-2, y}, {2, y}), 1},  // r + tol/2: in the tangent band
      {Line({-2, y}, {2, y}), unit, 1},
      {Line({-2, 0.5}, {2, 0.5}), unit, 0},
      {x, Line({3, 0}, {5, 0}), 1},  // collinear, apart
      {x, Line({3, 0}, {5, 1}), 0},
  };
  for (const auto &[a, b, want] : cases) EXPECT_EQ(GeTestTang(&a, &b), want) << a.ep << b.ep;
}

TEST(TanSide, CurvatureDifferenceAgainstTheTolerance) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, kO, LI_ARC_CCW), tangent = Line({1, -1}, {1, 1});
  const LI_TAB_STRUCT cw = Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW);    // touches ccw from outside
  const LI_TAB_STRUCT wide = Arc({1, 0}, {3, 2}, {3, 0}, LI_ARC_CW);  // k = 0.5
  const std::tuple<const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, int, uint16_t> cases[] = {
      {&ccw, &tangent, 0, 65535},  // s = -1 for a counter-clockwise arc of radius 1
      {&tangent, &ccw, 0, 1},     {&cw, &ccw, 1, 0},  // 1 + (-1)
      {&cw, &ccw, 0, 1},                              // 1 - (-1)
      {&wide, &tangent, 0, 0},                        // s = tol is not beyond it
  };
  for (auto [a, b, mode, want] : cases) {
    uint16_t side = 9;
    EXPECT_EQ(GeTanSide(a, b, &side, mode), PA_OK);
    EXPECT_EQ(side, want) << a->rad << " " << b->rad << " " << mode;
  }
  const LI_TAB_STRUCT away = Line({5, -1}, {5, 1});
  uint16_t side = 9;
  EXPECT_EQ(GeTanSide(&ccw, &away, &side, 0), PA_IMPOSSIBLE);
  EXPECT_EQ(side, 0);
}

TEST(ElemTestParallel, FixedCosineLimitConcentricAndPointLike) {
  const LI_TAB_STRUCT x = Rotated(0), a4 = Arc({2, 0}, {0, 2}, kO, LI_ARC_CCW);
  ToleranceScope tol(0.25);  // the cosine limit ignores it
  const LI_TAB_STRUCT dot = Line({0, 0}, {0.125, 0.125});
  const std::tuple<LI_TAB_STRUCT, LI_TAB_STRUCT, uint16_t> cases[] = {
      {x, Rotated(0.00005), 2},  // dot 0.99999999875
      {x, Rotated(0.001), 0},
      {x, Rotated(kPi - 0.00005), 65535},
      {Arc({1, 0}, {0, -1}, kO, LI_ARC_CW), a4, 65535},
      {a4, Arc({0, 3}, {-3, 0}, kO, LI_ARC_CCW), 2},
      {a4, Arc({2, 0}, {1, 1}, {1, 0}, LI_ARC_CCW), 0},
      {x, dot, 1},  // a degenerate line
      {dot, x, 1},
      {dot, a4, 1},  // both ends at the arc's centre
      {a4, dot, 1},
      {x, a4, 0},
  };
  for (const auto &[a, b, want] : cases) EXPECT_EQ(GeElemTestParallel(&a, &b), want) << b.ep;
}

// {code, direction flag, point 1, point 2} of GeIdentElem.
std::tuple<uint16_t, uint32_t, GE_POINT, GE_POINT> Ident(const LI_TAB_STRUCT &a,
                                                         const LI_TAB_STRUCT &b) {
  std::tuple<uint16_t, uint32_t, GE_POINT, GE_POINT> r{0, 9, {9, 9}, {9, 9}};
  GeIdentElem(&a, &b, &std::get<0>(r), &std::get<1>(r), &std::get<2>(r), &std::get<3>(r));
  return r;
}

TEST(IdentElem, LinesShareAStretchClippedToTheFirst) {
  const LI_TAB_STRUCT a = Line({0, 0}, {4, 0});
  LI_TAB_STRUCT move = a;
  move.type = LI_MOVE;
  const std::tuple<LI_TAB_STRUCT, uint16_t, uint32_t, GE_POINT, GE_POINT> cases[] = {
      {Line({2, 0}, {6, 0}), 3, 0, {2, 0}, {4, 0}},
      {Line({6, 0}, {2, 0}), 3, 1, {2, 0}, {4, 0}},   // in the first line's sense
      {Line({-1, 0}, {9, 0}), 3, 0, {0, 0}, {4, 0}},  // the first inside the second
      {Line({4, 0}, {6, 0}), 2, 0, {0, 0}, {0, 0}},   // meeting at a point only
      {Line({6, 1}, {2, 1}), 1, 1, {0, 0}, {0, 0}},   // parallel, another carrier
      {move, 1, 0, {0, 0}, {0, 0}},                   // moves never take part
  };
  for (const auto &[b, code, opposite, p1, p2] : cases) {
    EXPECT_EQ(Ident(a, b), std::make_tuple(code, opposite, p1, p2)) << b.ap << b.ep;
  }
  EXPECT_EQ(std::get<0>(Ident(move, a)), 1);
}

TEST(IdentElem, ArcsReportTheSecondArcsOwnEnds) {
  const LI_TAB_STRUCT upper = Arc({1, 0}, {-1, 0}, kO, LI_ARC_CCW);
  for (const LI_TAB_STRUCT &b :
       {Arc({0, 1}, {0, -1}, kO, LI_ARC_CCW), Arc({0, -1}, {0, 1}, kO, LI_ARC_CW)}) {
    const auto [code, opposite, p1, p2] = Ident(upper, b);
    EXPECT_EQ(std::make_tuple(code, opposite), std::make_tuple(3, b.type == LI_ARC_CW ? 1u : 0u));
    EXPECT_NEAR(p1.y, 1, 1e-15);
    EXPECT_NEAR(p2.y, -1, 1e-15) << "not clipped to the first arc";
  }
  const GE_POINT lower_right{std::sqrt(0.5), -std::sqrt(0.5)};
  EXPECT_EQ(std::get<0>(Ident(upper, Arc({0, -1}, lower_right, kO, LI_ARC_CCW))), 2);
  const auto other = Ident(upper, Arc({2, 0}, {-2, 0}, kO, LI_ARC_CW));
  EXPECT_EQ(std::make_tuple(std::get<0>(other), std::get<1>(other)), std::make_tuple(1, 1u))
      << "the sense is reported even for another circle";
  EXPECT_EQ(std::get<0>(Ident(upper, Line({0, 0}, {1, 0}))), 1);
}

}  // namespace
}  // namespace polyarc_test

// Position codes, on-element tests and nearest points, at the boundaries of
// their comparisons (made exact by binary tolerances).
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT At(double angle) {
  return {std::cos(angle), std::sin(angle)};
}

TEST(PointOn, LineCodesSnapToEndsAndTheEndIsTestedFirst) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT tiny = Line({0, 0}, {0.25, 0}), line = Line({1, 2}, {5, 2});
  const std::tuple<const LI_TAB_STRUCT *, GE_POINT, uint16_t, GE_POINT> cases[] = {
      {&tiny, {0.125, 0}, GE_AT_END, {0.25, 0}},   // both ends near: the end wins
      {&line, {1.25, 2.25}, GE_AT_START, {1, 2}},  // squared distance 0.125 < 0.25
      {&line, {4.75, 2}, GE_AT_END, {5, 2}},
      {&line, {1.5, 2}, GE_INSIDE, {1.5, 2}},  // exactly tol from the start
      {&line, {0, 2}, GE_BEFORE, {0, 2}},
      {&line, {6, 2}, GE_BEYOND, {6, 2}},
  };
  for (auto [e, p, code, snapped] : cases) {
    double par = -1;
    EXPECT_EQ(GePointOn(e, &p, &par), code) << snapped;
    EXPECT_EQ(p, snapped);
    EXPECT_EQ(par, snapped.x) << "the lines run along x";
  }
}

TEST(PointOn, ArcCodesByAngularGapsAcrossTheSeamInBothSenses) {
  const GE_POINT o{0, 0}, a = At(3 * kPi / 4), b = At(-3 * kPi / 4);
  const LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, o, LI_ARC_CCW),
                      cw = Arc({0, 1}, {1, 0}, o, LI_ARC_CW);
  const LI_TAB_STRUCT ccw_pi = Arc(a, b, o, LI_ARC_CCW), cw_pi = Arc(b, a, o, LI_ARC_CW);
  const LI_TAB_STRUCT cw_zero = Arc(a, b, o, LI_ARC_CW), circle = Arc(a, a, o, LI_ARC_CW);
  LI_TAB_STRUCT negative = ccw;  // the carrier point lies opposite the angle
  negative.rad = -1.0;
  const std::tuple<const LI_TAB_STRUCT *, double, uint16_t, uint16_t> cases[] = {
      {&ccw, -kPi / 4, GE_BEFORE, 0},  // pi/4 behind the start, 5pi/4 past the end
      {&ccw, 3 * kPi / 4, GE_BEYOND, 0},
      {&cw, 3 * kPi / 4, GE_BEFORE, 0},
      {&cw, -kPi / 4, GE_BEYOND, 0},
      {&ccw_pi, kPi, GE_INSIDE, GE_INSIDE},
      {&ccw_pi, 0.1, GE_BEFORE, 0},
      {&cw_pi, kPi, GE_INSIDE, GE_INSIDE},
      {&cw_pi, 0.1, GE_BEYOND, 0},
      {&cw_zero, 0, GE_INSIDE, GE_INSIDE},
      {&cw_zero, kPi - 0.1, GE_BEFORE, 0},
      {&circle, 0.7, GE_INSIDE, GE_INSIDE},
      {&negative, -3 * kPi / 4, GE_INSIDE, 0},  // the on-element test ignores the sign
  };
  for (auto [arc, angle, pos, on] : cases) {
    GE_POINT p = At(angle);
    double par = 0;
    EXPECT_EQ(GePtOnElem(arc, &p), on) << angle;
    EXPECT_EQ(GePointOn(arc, &p, &par), pos) << angle;
    EXPECT_NEAR(par, angle, 1e-15) << "the angle as computed";
  }
}

TEST(PtOnElem, TenTolAcrossLinesTolAlongThemAndAroundArcs) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT line = Line({0, 0}, {10, 0});
  LI_TAB_STRUCT arc = Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW);
  const double h = std::sqrt(8.0);
  const GE_POINT in{h, h + 0.25};
  const std::tuple<const LI_TAB_STRUCT *, GE_POINT, uint16_t, uint16_t> cases[] = {
      {&line, {5, 2.5}, GE_INSIDE, 0},  // 5 x tol beside the interior
      {&line, {5, 0.25}, GE_INSIDE, GE_INSIDE},
      {&line, {5, 5}, 0, 0},                         // exactly 10 x tol
      {&line, {10.25, 0.25}, GE_AT_END, GE_AT_END},  // within tol of ep
      {&line, {10.25, 0.4375}, 0, 0},                // within tol along, 0.506 from ep
      {&line, {10.5, 0}, 0, 0},                      // t = ang_ep + tol
      {&line, {-0.25, 0}, GE_AT_START, GE_AT_START},
      {&arc, {0, -4.25}, 0, 0},  // near the circle, outside the range
      {&arc, in, GE_INSIDE, GE_INSIDE},
      {&arc, {h + 0.5, h + 0.5}, 0, 0},  // 0.707 off the circle
  };
  for (auto [e, p, on, uniform] : cases) {
    EXPECT_EQ(std::make_tuple(GePtOnElem(e, &p), GePtOnElemUniformDistEpsi(e, &p)),
              std::make_tuple(on, uniform))
        << p;
  }
  arc.rad = -4;
  EXPECT_EQ(GePtOnElem(&arc, &in), GE_INSIDE) << "the absolute radius counts";
}

TEST(PtOnLineAndArc, EndsWithinTolAndTheStartOnATie) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  const LI_TAB_STRUCT arc = Arc({4, 0}, {-4, 0}, {0, 0}, LI_ARC_CCW);  // upper half
  const std::tuple<const LI_TAB_STRUCT *, GE_POINT, uint16_t, GE_POINT, double> cases[] = {
      {&line, {3, 3}, PA_OK, {3, 0}, 3},
      {&line, {4.25, 3}, PA_OK, {4, 0}, std::hypot(0.25, 3)},
      {&line, {4.5, 3}, PA_NOT_ON, {0, 0}, 0},  // the outputs are zeroed
      {&arc, {0, 5}, PA_NOT_ON, {0, 4}, 1},
      {&arc, {0, -3}, PA_NOT_ON, {4, 0}, 5},  // equidistant from both ends
      {&arc, {0, 4.25}, PA_OK, {0, 4}, 0.25},
  };
  for (auto [e, p, status, nearest, dist] : cases) {
    GE_POINT got{9, 9};
    double d = 9, angle = 9;
    if (e == &line) {
      EXPECT_EQ(GePtOnLine(&p, e, &got, &d), status) << p;
    } else {
      EXPECT_EQ(GePtOnArc(&p, e, &d, &got, &angle), status) << p;
      EXPECT_DOUBLE_EQ(angle, std::atan2(got.y, got.x)) << "the nearest point's angle";
    }
    EXPECT_NEAR(got.x, nearest.x, 1e-15) << p;
    EXPECT_DOUBLE_EQ(got.y, nearest.y) << p;
    EXPECT_DOUBLE_EQ(d, dist) << p;
  }
}

TEST(Tolerance, DefaultAndImmediateEffect) {
  const double previous = GeEpsiSetTol(1e-3);
  EXPECT_EQ(previous, 5e-05);
  EXPECT_EQ(GeEpsiGetTol(), 1e-3);
  const LI_TAB_STRUCT line = Line({0, 0}, {1, 0});
  const GE_POINT p{0.5, 5e-4};
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &p), GE_INSIDE);
  GeEpsiSetTol(previous);
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &p), 0);
}

TEST(PointOn, NullArguments) {
  GE_POINT p{0, 0};
  double d = 0;
  EXPECT_EQ(GePointOn(nullptr, &p, &d) + GePtOnElem(nullptr, &p), 0);
  EXPECT_EQ(GePtOnLine(&p, nullptr, &p, &d), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

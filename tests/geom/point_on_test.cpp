// Position codes, on-element tests and nearest points: every boundary of
// their comparisons, made exact with a binary tolerance of 0.5.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT At(double angle, double r = 1.0) { return {r * std::cos(angle), r * std::sin(angle)}; }

TEST(PointOn, EndIsTestedBeforeStart) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT tiny = Line({0, 0}, {0.25, 0});  // shorter than tol
  GE_POINT p{0.125, 0};
  double par = -1;
  EXPECT_EQ(GePointOn(&tiny, &p, &par), GE_AT_END);
  EXPECT_EQ(p, (GE_POINT{0.25, 0}));
  EXPECT_EQ(par, tiny.ang_ep);
}

TEST(PointOn, LineCodesAndSnapping) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT line = Line({1, 2}, {5, 2});
  struct Case {
    GE_POINT p;
    uint16_t code;
    GE_POINT snapped;
  } cases[] = {
      {{1.25, 2.25}, GE_AT_START, {1, 2}},  // squared distance 0.125 < 0.25
      {{4.75, 2}, GE_AT_END, {5, 2}},
      {{3, 2}, GE_INSIDE, {3, 2}},
      {{0, 2}, GE_BEFORE, {0, 2}},
      {{6, 2}, GE_BEYOND, {6, 2}},
      {{1.5, 2}, GE_INSIDE, {1.5, 2}},  // exactly tol from the start is not at it
  };
  for (const Case &c : cases) {
    GE_POINT p = c.p;
    double par = 0;
    EXPECT_EQ(GePointOn(&line, &p, &par), c.code) << c.p;
    EXPECT_EQ(p, c.snapped) << c.p;
  }
}

TEST(PointOn, ArcBeforeAndBeyondByAngularGaps) {
  LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);  // 0 .. pi/2
  GE_POINT p = At(-kPi / 4);
  double par = 0;
  EXPECT_EQ(GePointOn(&ccw, &p, &par), GE_BEFORE);  // pi/4 behind, 5pi/4 past the end
  EXPECT_DOUBLE_EQ(par, -kPi / 4);
  p = At(3 * kPi / 4);
  EXPECT_EQ(GePointOn(&ccw, &p, &par), GE_BEYOND);
  p = At(kPi / 4);
  EXPECT_EQ(GePointOn(&ccw, &p, &par), GE_INSIDE);

  LI_TAB_STRUCT cw = Arc({0, 1}, {1, 0}, {0, 0}, LI_ARC_CW);  // pi/2 down to 0
  p = At(3 * kPi / 4);
  EXPECT_EQ(GePointOn(&cw, &p, &par), GE_BEFORE);
  p = At(-kPi / 4);
  EXPECT_EQ(GePointOn(&cw, &p, &par), GE_BEYOND);
}

TEST(PointOn, ArcsAcrossTheSeamInBothSenses) {
  const GE_POINT a = At(3 * kPi / 4), b = At(-3 * kPi / 4);
  LI_TAB_STRUCT ccw = Arc(a, b, {0, 0}, LI_ARC_CCW);  // through pi
  LI_TAB_STRUCT cw = Arc(b, a, {0, 0}, LI_ARC_CW);    // through pi as well
  LI_TAB_STRUCT cw_short = Arc(a, b, {0, 0}, LI_ARC_CW);  // through 0
  for (const LI_TAB_STRUCT *arc : {&ccw, &cw}) {
    GE_POINT p{-1, 0};
    double par = 0;
    EXPECT_EQ(GePointOn(arc, &p, &par), GE_INSIDE);
    EXPECT_EQ(GePtOnElem(arc, &p), GE_INSIDE);
    p = {1, 0};
    EXPECT_NE(GePointOn(arc, &p, &par), GE_INSIDE);
    EXPECT_EQ(GePtOnElem(arc, &p), 0);
  }
  GE_POINT p{1, 0};
  EXPECT_EQ(GePtOnElem(&cw_short, &p), GE_INSIDE);
  p = {-1, 0};
  EXPECT_EQ(GePtOnElem(&cw_short, &p), 0);
}

TEST(PointOn, FullCircleHoldsEveryPoint) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT circle = Arc({1, 0}, {1, 0}, {0, 0}, LI_ARC_CW);
  for (double angle : {0.7, 2.0, -3.0}) {
    GE_POINT p = At(angle);
    double par = 0;
    EXPECT_EQ(GePointOn(&circle, &p, &par), GE_INSIDE);
    EXPECT_EQ(GePtOnElem(&circle, &p), GE_INSIDE);
  }
}

TEST(PointOn, NegativeRadiusPutsTheCarrierPointOpposite) {
  LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  ccw.rad = -1.0;
  GE_POINT p = At(-3 * kPi / 4);  // opposite angle pi/4 lies in the range
  double par = 0;
  EXPECT_EQ(GePointOn(&ccw, &p, &par), GE_INSIDE);
  EXPECT_DOUBLE_EQ(par, -3 * kPi / 4) << "the parameter is the angle as computed";
  EXPECT_EQ(GePtOnElem(&ccw, &p), 0) << "the on-element test ignores the sign";
}

TEST(PtOnElem, TenTolAcrossLinesAgainstTolInTheUniformTest) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT line = Line({0, 0}, {10, 0});
  GE_POINT beside{5, 2.5};  // 5 x tol off the interior
  EXPECT_EQ(GePtOnElem(&line, &beside), GE_INSIDE);
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &beside), 0);
  GE_POINT band_edge{5, 5};  // exactly 10 x tol: outside
  EXPECT_EQ(GePtOnElem(&line, &band_edge), 0);
  GE_POINT inside_band{5, 0.25};
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &inside_band), GE_INSIDE);

  GE_POINT near_end{10.25, 0.25};  // 0.5 tol beyond ep and 0.5 tol off: within tol of ep
  EXPECT_EQ(GePtOnElem(&line, &near_end), GE_AT_END);
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &near_end), GE_AT_END);
  GE_POINT past_end{10.25, 0.4375};  // within tol along, but 0.506 from ep
  EXPECT_EQ(GePtOnElem(&line, &past_end), 0);
  GE_POINT far_past{10.5, 0};  // t = ang_ep + tol
  EXPECT_EQ(GePtOnElem(&line, &far_past), 0);
  GE_POINT start{-0.25, 0};
  EXPECT_EQ(GePtOnElem(&line, &start), GE_AT_START);
}

TEST(PtOnElem, ArcsUseTheAbsoluteRadius) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT arc = Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW);
  GE_POINT on{0, -4.25};
  EXPECT_EQ(GePtOnElem(&arc, &on), 0) << "on the circle, outside the range";
  GE_POINT in{std::sqrt(8.0), std::sqrt(8.0) + 0.25};
  EXPECT_EQ(GePtOnElem(&arc, &in), GE_INSIDE);
  arc.rad = -4;
  EXPECT_EQ(GePtOnElem(&arc, &in), GE_INSIDE);
  GE_POINT off{std::sqrt(8.0) + 0.5, std::sqrt(8.0) + 0.5};  // 0.707 outside
  EXPECT_EQ(GePtOnElem(&arc, &off), 0);
}

TEST(PtOnLine, FootInsideEndsWithinTolNothingBeyond) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  GE_POINT nearest{9, 9};
  double dist = 9;
  GE_POINT p{3, 3};
  EXPECT_EQ(GePtOnLine(&p, &line, &nearest, &dist), PA_OK);
  EXPECT_EQ(nearest, (GE_POINT{3, 0}));
  EXPECT_EQ(dist, 3);
  p = {4.25, 3};
  EXPECT_EQ(GePtOnLine(&p, &line, &nearest, &dist), PA_OK);
  EXPECT_EQ(nearest, (GE_POINT{4, 0}));
  EXPECT_DOUBLE_EQ(dist, std::hypot(0.25, 3));
  p = {4.5, 3};
  EXPECT_EQ(GePtOnLine(&p, &line, &nearest, &dist), PA_NOT_ON);
  EXPECT_EQ(nearest, (GE_POINT{0, 0}));
  EXPECT_EQ(dist, 0);
}

TEST(PtOnArc, RadialFootOrNearerEndWithItsAngle) {
  LI_TAB_STRUCT arc = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);  // upper half
  GE_POINT nearest;
  double dist = 0, angle = 0;
  GE_POINT p{0, 3};
  EXPECT_EQ(GePtOnArc(&p, &arc, &dist, &nearest, &angle), PA_NOT_ON);
  EXPECT_NEAR(nearest.x, 0, 1e-15);
  EXPECT_DOUBLE_EQ(nearest.y, 1);
  EXPECT_DOUBLE_EQ(dist, 2);
  p = {0, -3};  // equidistant from both ends: the start wins
  EXPECT_EQ(GePtOnArc(&p, &arc, &dist, &nearest, &angle), PA_NOT_ON);
  EXPECT_EQ(nearest, (GE_POINT{1, 0}));
  EXPECT_EQ(angle, arc.ang_ap);
  EXPECT_DOUBLE_EQ(dist, std::sqrt(10.0));
  p = {2, -1};
  GePtOnArc(&p, &arc, &dist, &nearest, &angle);
  EXPECT_EQ(nearest, (GE_POINT{1, 0}));
  p = At(1.0);
  EXPECT_EQ(GePtOnArc(&p, &arc, &dist, &nearest, &angle), PA_OK);
}

TEST(Tolerance, DefaultAndImmediateEffect) {
  const double previous = GeEpsiSetTol(1e-3);
  EXPECT_EQ(previous, 5e-05);
  EXPECT_EQ(GeEpsiGetTol(), 1e-3);
  LI_TAB_STRUCT line = Line({0, 0}, {1, 0});
  GE_POINT p{0.5, 5e-4};
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &p), GE_INSIDE);
  GeEpsiSetTol(previous);
  EXPECT_EQ(GePtOnElemUniformDistEpsi(&line, &p), 0);
}

TEST(PointOn, NullArgumentsGiveNoCode) {
  LI_TAB_STRUCT line = Line({0, 0}, {1, 0});
  GE_POINT p{0, 0};
  double d = 0;
  EXPECT_EQ(GePointOn(nullptr, &p, &d), 0);
  EXPECT_EQ(GePointOn(&line, nullptr, &d), 0);
  EXPECT_EQ(GePtOnElem(nullptr, &p), 0);
  EXPECT_EQ(GePtOnLine(&p, nullptr, &p, &d), PA_INVALID);
  EXPECT_EQ(GePtOnArc(&p, &line, nullptr, &p, &d), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

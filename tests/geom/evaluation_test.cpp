// One element against a point: position codes, on-element bands, feet, sides,
// tangents, curvature, midpoints, and the normal form of a line.
#include <cmath>
#include <tuple>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

TEST(PointOn, CodesSnappingAndOnElementBands) {
  EXPECT_EQ(GeEpsiGetTol(), 5e-05) << "the default";
  ToleranceScope tol(0.5);
  EXPECT_EQ(GeEpsiSetTol(0.5), 0.5) << "returns the one it replaces, here the scope's";
  const auto at = [](double a) { return GE_POINT{std::cos(a), std::sin(a)}; };
  const GE_POINT o{0, 0}, a = at(3 * kPi / 4), b = at(-3 * kPi / 4);
  const LI_TAB_STRUCT tiny = Line({0, 0}, {0.25, 0}), line = Line({0, 0}, {10, 0});
  const LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT ccw_pi = Arc(a, b, o, LI_ARC_CCW), cw_pi = Arc(b, a, o, LI_ARC_CW);
  LI_TAB_STRUCT circle = Arc(a, a, o, LI_ARC_CW), negative = ccw;
  negative.rad = -1.0;  // the carrier point lies opposite the angle
  constexpr uint16_t kOff = 0, kStart = GE_AT_START, kEnd = GE_AT_END, kIn = GE_INSIDE;
  // {element, point, GePointOn, GePtOnElem, GePtOnElemUniformDistEpsi, parameter}
  using Case = std::tuple<const LI_TAB_STRUCT *, GE_POINT, uint16_t, uint16_t, uint16_t, double>;
  const Case cases[] = {
      {&tiny, {0.125, 0}, kEnd, kEnd, kEnd, 0.25},  // both ends near: the end wins
      {&line, {0.25, 0.25}, kStart, kStart, kStart, 0},
      {&line, {0.5, 0}, kIn, kIn, kIn, 0.5},  // exactly tol from the start
      {&line, {-1, 0}, GE_BEFORE, kOff, kOff, -1},
      {&line, {5, 2.5}, kIn, kIn, kOff, 5},                    // 5 x tol beside the interior
      {&line, {5, 5}, kIn, kOff, kOff, 5},                     // exactly 10 x tol
      {&line, {10.25, 0.4375}, GE_BEYOND, kOff, kOff, 10.25},  // 0.503 from ep
      {&ccw, {1.5, 1.5}, kIn, kOff, kOff, kPi / 4},            // 1.12 off the circle
      {&ccw, at(-kPi / 4), GE_BEFORE, kOff, kOff, -kPi / 4},   // pi/4 behind, 5pi/4 past the end
      {&ccw, at(3 * kPi / 4), GE_BEYOND, kOff, kOff, 3 * kPi / 4},
      {&ccw_pi, at(kPi), kIn, kIn, kIn, kPi},
      {&ccw_pi, at(0.1), GE_BEFORE, kOff, kOff, 0.1},
      {&cw_pi, at(kPi), kIn, kIn, kIn, kPi},
      {&circle, at(0.7), kIn, kIn, kIn, 0.7},
      {&negative, at(-3 * kPi / 4), kIn, kOff, kOff, -3 * kPi / 4},  // on-element: sign ignored
  };
  for (auto [e, p, pos, on, uniform, par] : cases) {
    const GE_POINT want = pos == kStart ? e->ap : pos == kEnd ? e->ep : p;
    double got = 9;
    EXPECT_EQ(GePtOnElem(e, &p), on) << p;
    EXPECT_EQ(GePtOnElemUniformDistEpsi(e, &p), uniform) << p;
    EXPECT_EQ(GePointOn(e, &p, &got), pos) << want;
    EXPECT_NEAR(std::hypot(p.x - want.x, p.y - want.y) + std::fabs(got - par), 0, 1e-15) << want;
  }
  GE_POINT q{};
  EXPECT_EQ(GePointOn(nullptr, &q, nullptr) + GePtOnElem(nullptr, &q), 0);
}

TEST(Projection, FeetSidesTangentsCurvatureMidpointsAndTheNormalForm) {
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT ccw = Arc({2, 0}, {0, 2}, {0, 0}, LI_ARC_CCW), cw = ccw;
  cw.type = LI_ARC_CW;
  const LI_TAB_STRUCT line = Line({0, 1}, {4, 1}), slope = Line({0, 0}, {3, 4});
  GE_POINT foot{9, 9}, near_centre{0.25, 0.25}, q{-3, 7}, below{0, -5}, centre{1, 1}, p{4, 5};
  EXPECT_EQ(GeProjPtElem(&ccw, &near_centre, &foot), PA_IMPOSSIBLE);
  EXPECT_EQ(foot, (GE_POINT{0, 0}));
  EXPECT_EQ(GeProjPtElem(&line, &q, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{-3, 1}));
  EXPECT_EQ(GeNearOnCir(&centre, 10, &p), 0);  // 3-4-5 from the centre, moved out to 10
  EXPECT_EQ(p, (GE_POINT{7, 9}));
  const double inside = 2 - std::sqrt(2.0);  // sides are left positive, tol counts as on
  const std::tuple<const LI_TAB_STRUCT *, GE_POINT, uint16_t, int32_t, double> sides[] = {
      {&line, {10, 4}, PA_OK, 1, 3},  // beyond the end: lines have no range
      {&line, {2, 0.5}, PA_OK, 0, 0.5},
      {&ccw, {1, 1}, PA_OK, 1, inside},
      {&cw, {-1, -1}, PA_OK, -1, inside},
      {&ccw, {-3, -3}, PA_NOT_ON, -1, std::sqrt(18.0) - 2},  // side given outside the range
  };
  for (auto [e, pt, status, want_side, want_dist] : sides) {
    int32_t side = 9;
    double dist = -1;
    EXPECT_EQ(GePtElemSide(e, &pt, &side, &dist), status) << pt;
    EXPECT_EQ(side, want_side) << pt;
    EXPECT_DOUBLE_EQ(dist, want_dist) << pt;
  }
  GE_POINT t1{}, t2{}, t3{}, east{4, 0};
  EXPECT_EQ(GePtElemTan(&ccw, &east, &t1) + GePtElemTan(&cw, &east, &t2), PA_OK);
  EXPECT_EQ(GePtElemTan(&slope, &near_centre, &t3), PA_OK);
  // Divided by the stored radius: not unit vectors off the circle.
  EXPECT_EQ(std::make_tuple(t1, t2, t3),
            std::make_tuple(GE_POINT{0, 2}, GE_POINT{0, -2}, GE_POINT{0.6, 0.8}));
  EXPECT_EQ(std::make_tuple(GeKruem(&ccw), GeKruem(&cw), GeKruem(&slope)),
            std::make_tuple(0.5, -0.5, 0.0));
  GE_POINT m{};
  EXPECT_EQ(GeElemMpt(&cw, &m), PA_OK);  // three quarters, clockwise through pi
  EXPECT_NEAR(std::hypot(m.x + std::sqrt(2.0), m.y + std::sqrt(2.0)), 0, 1e-15);
  ccw.rad = -2;  // flips the tangent; and the foot, outside the arc's range: the carrier has none
  GePtElemTan(&ccw, &east, &t1);
  EXPECT_EQ(t1, (GE_POINT{0, -2}));
  EXPECT_EQ(GePtElemTan(&ccw, &near_centre, &t1), PA_INVALID);
  EXPECT_EQ(GeProjPtElem(&ccw, &below, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{0, 2}));
  const GE_POINT a{0, 0}, b{1, 0};
  GE_POINT n{};
  double c = 9, par1 = 9, par2 = 9;
  EXPECT_EQ(GeGeoLineToNf(&a, &b, &n, &c, &par1, &par2), PA_OK);
  EXPECT_EQ(std::make_tuple(n, c, par1, par2), std::make_tuple(GE_POINT{0, -1}, 0.0, 0.0, 1.0));
  EXPECT_EQ(GeGeoLineToNf(&b, &b, &n, &c, &par1, &par2), PA_ZERO_LENGTH);
}

// The unit circle of LiCreateCircle holds every angle, in either sense:
// radial feet, contour distances, sides.
TEST(FullCircle, HoldsEveryAngleInEitherSense) {
  const GE_POINT c{3, -2}, half{3, -1.5};
  // {point, GePtOnArc status, distance, nearest point}
  const std::tuple<GE_POINT, uint16_t, double, GE_POINT> feet[] = {
      {{3, 0}, PA_NOT_ON, 1, {3, -1}},
      {{3, -1}, PA_OK, 0, {3, -1}},
      {{0, -2}, PA_NOT_ON, 2, {2, -2}}};
  for (const uint16_t dir : {1, 2}) {
    LI_TAB_STRUCT e{}, *elem = nullptr;
    ASSERT_EQ(LiCreateCircle(&c, 1, dir, &e), PA_OK);
    e.next = e.prev = &e;
    for (auto [p, status, want, foot] : feet) {
      double dist = -1, kont_dist = -1, angle = 0;
      GE_POINT nearest{}, kont_foot{};
      EXPECT_EQ(GePtOnArc(&p, &e, &dist, &nearest, &angle), status) << p;
      EXPECT_EQ(LiPtKontDist(&e, &p, &kont_foot, &elem, &kont_dist, &angle), PA_OK);
      EXPECT_TRUE(dist == want && kont_dist == want) << p;
      EXPECT_LT(std::hypot(nearest.x - foot.x, nearest.y - foot.y) +
                    std::hypot(kont_foot.x - foot.x, kont_foot.y - foot.y),
                1e-15)
          << p;
    }
    int32_t side = 0;
    double dist = 0;
    EXPECT_EQ(GePtElemSide(&e, &half, &side, &dist), PA_OK);
    EXPECT_EQ(side, dir == 2 ? -1 : 1) << "the centre lies right of clockwise travel";
  }
}

// Ends 1 apart in x and in y (sqrt 2 apart) with tol 1.25 make a full
// circle for every function alike: the ends coincide per axis.
TEST(FullCircle, EveryFunctionDecidesItPerAxis) {
  ToleranceScope tol(1.25);
  LI_TAB_STRUCT e = Arc({4, 3}, {3, 4}, {0, 0}, LI_ARC_CCW);  // else 0.28 rad long
  e.next = e.prev = &e;
  GE_POINT west{-5, 0};
  double par = 0;
  EXPECT_EQ(GePtOnElem(&e, &west) + GePointOn(&e, &west, &par), 2 * GE_INSIDE);
  EXPECT_EQ(LiPtOnElem(&e, &west) + (LiKontFindPt(&e, &west) == &e), 2);
  EXPECT_DOUBLE_EQ(LiElemLen(&e), 10 * kPi);
  EXPECT_EQ(std::make_tuple(e.box.xmin, e.box.ymax), std::make_tuple(-6.25, 6.25));
}

}  // namespace
}  // namespace polyarc_test

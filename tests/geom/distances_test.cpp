// Point-element and element-element distances with their end-point
// fallbacks and tie rules, and the bounding box of an arc.
#include <algorithm>
#include <cmath>
#include <tuple>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

using PointFn = uint16_t (*)(const GE_POINT *, const LI_TAB_STRUCT *, double *, GE_POINT *,
                             double *);
using PairFn = uint16_t (*)(const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, double *, GE_POINT *,
                            double *, GE_POINT *, double *);

const auto gap = [](GE_POINT a, GE_POINT b) { return std::hypot(a.x - b.x, a.y - b.y); };

TEST(PointToElement, FootInRangeElseTheNearerEndAndTheStartOnATie) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT line = Line({0, 0}, {2, 0}), upper = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);
  const PointFn on_line = [](const GE_POINT *p, const LI_TAB_STRUCT *e, double *d, GE_POINT *n,
                             double *) { return GePtOnLine(p, e, n, d); };
  // {function, element, point, status, distance, nearest point, parameter}; GePtOnLine takes an
  // end within tol in parameter, and zeroes its outputs when the point is not on.
  const std::tuple<PointFn, const LI_TAB_STRUCT *, GE_POINT, uint16_t, double, GE_POINT, double>
      cases[] = {
          {GePtDrawDist, &line, {1, 3}, PA_OK, 3, {1, 0}, 1},
          {GePtDrawDist, &line, {5, -4}, PA_OK, 5, {2, 0}, 2},
          {GePtArcDist, &upper, {0, 3}, PA_OK, 2, {0, 1}, kPi / 2},
          {GePtArcDist, &upper, {0, -3}, PA_OK, std::sqrt(10.0), {1, 0}, 0},  // equidistant ends
          {GePtOnArc, &upper, {0, 3}, PA_NOT_ON, 2, {0, 1}, kPi / 2},
          {GePtOnArc, &upper, {0, 1.25}, PA_OK, 0.25, {0, 1}, kPi / 2},
          {on_line, &line, {2.25, 3}, PA_OK, std::hypot(0.25, 3), {2, 0}, -1},
          {on_line, &line, {2.5, 3}, PA_NOT_ON, 0, {0, 0}, -1},
      };
  double dist = -1, par = -1;
  GE_POINT nearest{9, 9};
  for (auto [fn, e, p, status, want_dist, want_nearest, want_par] : cases) {
    dist = par = -1, nearest = {9, 9};
    EXPECT_EQ(fn(&p, e, &dist, &nearest, &par), status) << p;
    EXPECT_EQ(std::make_tuple(dist, par), std::make_tuple(want_dist, want_par)) << p;
    EXPECT_NEAR(gap(nearest, want_nearest), 0, 1e-15) << p;
  }
  LI_TAB_STRUCT move = line;  // measured the arc way: | |p - mp| - rad | with the normal in mp
  move.type = LI_MOVE;
  const GE_POINT q{1, 3};
  GePtElemDist(&move, &q, &nearest, &dist);
  EXPECT_DOUBLE_EQ(dist, std::hypot(1, 4));
  EXPECT_EQ(GePtOnLine(&q, nullptr, &nearest, &dist), PA_INVALID);
}

TEST(ElementDistance, DirectPairOrEndPointsWithTheEarlierCandidateOnTies) {
  const GE_POINT o{0, 0}, m{5, 0};
  const LI_TAB_STRUCT up = Arc({1, 0}, {-1, 0}, o, LI_ARC_CCW), y2 = Line({-3, 2}, {3, 2});
  const LI_TAB_STRUCT right = Arc({0, -1}, {0, 1}, o, LI_ARC_CCW),
                      away = Arc({5, -2}, {5, 2}, m, LI_ARC_CCW);
  const LI_TAB_STRUCT overlap = Arc({1.5, 1}, {1.5, -1}, {1.5, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT circle = Arc({1, 0}, {1, 0}, o, LI_ARC_CCW),
                      ring = Arc({4, -2}, {4, -2}, {3, -2}, LI_ARC_CW);
  const double s29 = std::sqrt(29.0), s13 = std::sqrt(3.25), h = std::sqrt(0.5);
  // Ties keep the earlier candidate; crossing segments are not at 0; a cutting line, a foot or
  // an angle off the element, and concentric or overlapping circles fall back to end points.
  const std::tuple<PairFn, LI_TAB_STRUCT, LI_TAB_STRUCT, double, GE_POINT, GE_POINT> cases[] = {
      {GeDrawDrawDist, Line({0, 0}, {1, 0}), Line({0, 1}, {1, 1}), 1, {0, 0}, {0, 1}},
      {GeDrawDrawDist, Line({0, 0}, {2, 2}), Line({0, 1}, {3, 1}), h, {0.5, 0.5}, {0, 1}},
      {GeDrawArcDist, y2, up, 1, {0, 2}, {0, 1}},
      {GeDrawArcDist, Line({-3, 0.5}, {3, 0.5}), up, 0.5, {1, 0.5}, {1, 0}},
      {GeDrawArcDist, Line({2, 2}, {4, 2}), up, std::sqrt(8.0) - 1, {2, 2}, {h, h}},
      {GeDrawArcDist, y2, Arc({-1, 0}, {1, 0}, o, LI_ARC_CCW), 2, {-1, 2}, {-1, 0}},
      {GeArcArcDist, right, Arc({5, 2}, {5, -2}, m, LI_ARC_CCW), 2, {1, 0}, {3, 0}},
      {GeArcArcDist, right, away, s29 - 1, {5 / s29, -2 / s29}, {5, -2}},
      {GeArcArcDist, right, Arc({0.5, 0}, {-0.5, 0}, o, LI_ARC_CCW), 0.5, {0, 1}, {0, 0.5}},
      {GeArcArcDist, right, overlap, s13 - 1, {0, -1}, {1.5 - 1.5 / s13, -1 / s13}},
      // Full circles hold every angle, so the direct pair counts on them.
      {GeArcArcDist, circle, Arc({6, 0}, {6, 0}, m, LI_ARC_CW), 3, {1, 0}, {4, 0}},
      {GeDrawArcDist, Line({0, 0}, {6, 0}), ring, 1, {3, 0}, {3, -1}},
  };
  const auto par_of = [](const LI_TAB_STRUCT &e, GE_POINT p) {
    if (e.type == LI_LINE) return p.x * e.tan_ap.x + p.y * e.tan_ap.y;
    return std::atan2(p.y - e.mp.y, p.x - e.mp.x);
  };
  for (const auto &[fn, a, b, want_dist, want1, want2] : cases) {
    double dist = -1, par1 = 0, par2 = 0;
    GE_POINT p1{9, 9}, p2{9, 9};
    EXPECT_EQ(fn(&a, &b, &dist, &p1, &par1, &p2, &par2), PA_OK);
    EXPECT_DOUBLE_EQ(dist, want_dist) << want1 << want2;
    EXPECT_NEAR(gap(p1, want1) + gap(p2, want2), 0, 1e-15) << want1 << want2;
    EXPECT_NEAR(std::fabs(par1 - par_of(a, p1)) + std::fabs(par2 - par_of(b, p2)), 0, 1e-15)
        << "each point carries its own parameter";
  }
}

TEST(ArcRect, MatchesSampledPointsForEveryQuarterAndSense) {
  const GE_POINT c{3, -2};  // every start in steps of pi / 7 against sweeps in both senses
  const double r = 2.5;
  const int n = 2000;
  const auto at = [&](double a) { return GE_POINT{c.x + r * std::cos(a), c.y + r * std::sin(a)}; };
  for (double start = -kPi + 0.05; start < kPi; start += kPi / 7) {
    for (double sweep : {0.01, 0.4, 1.6, 2.9, 3.3, 4.8, 5.5, 6.2, -0.01, -0.4, -1.6, -2.9, -3.3,
                         -4.8, -5.5, -6.2}) {
      GE_POINT a = at(start), b = at(start + sweep), lo{}, hi{}, want_lo = a, want_hi = a;
      for (int i = 1; i <= n; ++i) {
        const GE_POINT p = at(start + sweep * i / n);
        want_lo = {std::min(want_lo.x, p.x), std::min(want_lo.y, p.y)};
        want_hi = {std::max(want_hi.x, p.x), std::max(want_hi.y, p.y)};
      }
      EXPECT_EQ(GeArcRect(&c, r, sweep < 0 ? 1 : 0, &a, &b, &lo, &hi), &hi);
      EXPECT_NEAR(std::max({std::fabs(lo.x - want_lo.x), std::fabs(lo.y - want_lo.y),
                            std::fabs(hi.x - want_hi.x), std::fabs(hi.y - want_hi.y)}),
                  0, r * (1 - std::cos(sweep / n)) + 1e-12)
          << start << " " << sweep;
    }
  }
}

}  // namespace
}  // namespace polyarc_test

// Point-element and element-element distances: the direct nearest pair
// when it lies on both elements, else the end-point fallbacks with their
// tie rules.
#include <cmath>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

using PointFn = uint16_t (*)(const GE_POINT *, const LI_TAB_STRUCT *, double *, GE_POINT *,
                             double *);
using PairFn = uint16_t (*)(const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, double *, GE_POINT *,
                            double *, GE_POINT *, double *);

void ExpectNear(GE_POINT got, GE_POINT want) {
  EXPECT_NEAR(got.x, want.x, 1e-15) << want;
  EXPECT_NEAR(got.y, want.y, 1e-15) << want;
}

// The parameter of a point on the element's carrier: t = p.d, or its angle.
double ParOf(const LI_TAB_STRUCT &e, GE_POINT p) {
  if (e.type == LI_LINE) return p.x * e.tan_ap.x + p.y * e.tan_ap.y;
  return std::atan2(p.y - e.mp.y, p.x - e.mp.x);
}

TEST(PointDistance, FootInRangeElseTheNearerEndAndTheStartOnATie) {
  const LI_TAB_STRUCT line = Line({0, 0}, {2, 0});
  const LI_TAB_STRUCT upper = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);
  const std::tuple<PointFn, const LI_TAB_STRUCT *, GE_POINT, double, GE_POINT, double> cases[] = {
      {GePtDrawDist, &line, {1, 3}, 3, {1, 0}, 1},
      {GePtDrawDist, &line, {-1, 1}, std::sqrt(2.0), {0, 0}, 0},
      {GePtDrawDist, &line, {5, -4}, 5, {2, 0}, 2},
      {GePtArcDist, &upper, {0, 3}, 2, {0, 1}, kPi / 2},
      {GePtArcDist, &upper, {0, -3}, std::sqrt(10.0), {1, 0}, 0},  // equidistant from both ends
  };
  for (auto [fn, e, p, want_dist, want_nearest, want_par] : cases) {
    double dist = -1, par = -1;
    GE_POINT nearest{9, 9};
    EXPECT_EQ(fn(&p, e, &dist, &nearest, &par), PA_OK);
    EXPECT_DOUBLE_EQ(dist, want_dist) << p;
    ExpectNear(nearest, want_nearest);
    EXPECT_DOUBLE_EQ(par, want_par) << p;
  }
  LI_TAB_STRUCT move = line;  // only type 1 is measured as a segment
  move.type = LI_MOVE;
  const GE_POINT p{1, 3};
  GE_POINT nearest{};
  double dist = 0;
  GePtElemDist(&move, &p, &nearest, &dist);
  EXPECT_DOUBLE_EQ(dist, std::hypot(1, 4)) << "| |p - mp| - rad | with the normal in mp";
}

TEST(ElementDistance, DirectPairOrEndPointsWithTheEarlierCandidateOnTies) {
  const GE_POINT o{0, 0}, m{5, 0};
  const LI_TAB_STRUCT upper = Arc({1, 0}, {-1, 0}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT lower = Arc({-1, 0}, {1, 0}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT right = Arc({0, -1}, {0, 1}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT inner = Arc({0.5, 0}, {-0.5, 0}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT facing = Arc({5, 2}, {5, -2}, m, LI_ARC_CCW);
  const LI_TAB_STRUCT away = Arc({5, -2}, {5, 2}, m, LI_ARC_CCW);
  const LI_TAB_STRUCT overlap = Arc({1.5, 1}, {1.5, -1}, {1.5, 0}, LI_ARC_CCW);
  const double s29 = std::sqrt(29.0), s13 = std::sqrt(3.25);
  const std::tuple<PairFn, LI_TAB_STRUCT, LI_TAB_STRUCT, double, GE_POINT, GE_POINT> cases[] = {
      {GeDrawDrawDist, Line({0, 0}, {1, 0}), Line({0, 1}, {1, 1}), 1, {0, 0}, {0, 1}},
      {GeDrawDrawDist,
       Line({0, 0}, {2, 2}),
       Line({0, 1}, {3, 1}),
       std::sqrt(0.5),
       {0.5, 0.5},
       {0, 1}},  // crossing: not 0
      {GeDrawArcDist, Line({-3, 2}, {3, 2}), upper, 1, {0, 2}, {0, 1}},
      {GeDrawArcDist, Line({3, 2}, {-3, 2}), upper, 1, {0, 2}, {0, 1}},
      {GeDrawArcDist, Line({-3, 0.5}, {3, 0.5}), upper, 0.5, {1, 0.5}, {1, 0}},  // cutting
      {GeDrawArcDist,
       Line({2, 2}, {4, 2}),
       upper,
       std::sqrt(8.0) - 1,
       {2, 2},
       {std::sqrt(0.5), std::sqrt(0.5)}},  // foot outside the segment
      {GeDrawArcDist, Line({-3, 2}, {3, 2}), lower, 2, {-1, 2}, {-1, 0}},
      {GeArcArcDist, right, facing, 2, {1, 0}, {3, 0}},
      {GeArcArcDist, right, away, s29 - 1, {5 / s29, -2 / s29}, {5, -2}},
      {GeArcArcDist, right, inner, 0.5, {0, 1}, {0, 0.5}},  // concentric
      {GeArcArcDist, right, overlap, s13 - 1, {0, -1}, {1.5 - 1.5 / s13, -1 / s13}},
  };
  for (const auto &[fn, a, b, want_dist, want1, want2] : cases) {
    double dist = -1, par1 = 0, par2 = 0;
    GE_POINT p1{9, 9}, p2{9, 9};
    EXPECT_EQ(fn(&a, &b, &dist, &p1, &par1, &p2, &par2), PA_OK);
    EXPECT_DOUBLE_EQ(dist, want_dist) << want1 << want2;
    ExpectNear(p1, want1);
    ExpectNear(p2, want2);
    EXPECT_NEAR(par1, ParOf(a, p1), 1e-15) << "each point carries its own parameter";
    EXPECT_NEAR(par2, ParOf(b, p2), 1e-15);
  }
  double d = 0;
  GE_POINT p{};
  EXPECT_EQ(GeArcArcDist(nullptr, &upper, &d, &p, &d, &p, &d), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

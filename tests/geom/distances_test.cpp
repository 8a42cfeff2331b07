// Point-element and element-element distances: the direct nearest pair
// when it lies on both elements, and the end-point fallbacks with their
// tie rules otherwise.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT At(GE_POINT c, double r, double a) {
  return {c.x + r * std::cos(a), c.y + r * std::sin(a)};
}

struct PairResult {
  double dist = -1;
  GE_POINT p1{}, p2{};
  double par1 = 0, par2 = 0;
};

TEST(PtDrawDist, FootInsideAndNearerEndOutside) {
  const LI_TAB_STRUCT line = Line({0, 0}, {2, 0});
  const GE_POINT above{1, 3}, before{-1, 1}, after{5, -4};
  double d = 0, par = 0;
  GE_POINT n{};
  EXPECT_EQ(GePtDrawDist(&above, &line, &d, &n, &par), PA_OK);
  EXPECT_EQ(d, 3);
  EXPECT_EQ(n, (GE_POINT{1, 0}));
  EXPECT_EQ(par, 1);
  GePtDrawDist(&before, &line, &d, &n, &par);
  EXPECT_EQ(n, (GE_POINT{0, 0}));
  EXPECT_DOUBLE_EQ(d, std::sqrt(2.0));
  GePtDrawDist(&after, &line, &d, &n, &par);
  EXPECT_EQ(n, (GE_POINT{2, 0}));
  EXPECT_EQ(par, 2);
  EXPECT_EQ(d, 5);
}

TEST(PtArcDist, RadialFootOrNearerEndWithTheStartOnATie) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT arc = Arc(At(o, 1, kPi / 4), At(o, 1, 3 * kPi / 4), o, LI_ARC_CCW);
  const GE_POINT above{0, 3}, below{0, -1}, right{2, 1};
  double d = 0, angle = 0;
  GE_POINT n{};
  EXPECT_EQ(GePtArcDist(&above, &arc, &d, &n, &angle), PA_OK);
  EXPECT_DOUBLE_EQ(d, 2);
  EXPECT_NEAR(n.x, 0, 1e-15);
  EXPECT_DOUBLE_EQ(n.y, 1);
  GePtArcDist(&below, &arc, &d, &n, &angle);
  EXPECT_EQ(n, arc.ap) << "equidistant from both ends";
  EXPECT_EQ(angle, arc.ang_ap);
  GePtArcDist(&right, &arc, &d, &n, &angle);
  EXPECT_EQ(n, arc.ap);
  EXPECT_DOUBLE_EQ(d, std::hypot(2 - arc.ap.x, 1 - arc.ap.y));

  // Only type 1 is measured as a segment; a move goes the arc way.
  LI_TAB_STRUCT move = Line({0, 0}, {2, 0});
  move.type = LI_MOVE;
  const GE_POINT p{1, 3};
  GePtElemDist(&move, &p, &n, &d);
  EXPECT_DOUBLE_EQ(d, std::hypot(1, 4)) << "| |p - mp| - rad | with the normal in mp";
  GePtElemDist(&arc, &above, &n, &d);
  EXPECT_DOUBLE_EQ(d, 2);
}

TEST(DrawDrawDist, EndPointsOnlyAndTheFirstCandidateOnATie) {
  const LI_TAB_STRUCT a = Line({0, 0}, {1, 0}), b = Line({0, 1}, {1, 1});
  PairResult r;
  EXPECT_EQ(GeDrawDrawDist(&a, &b, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2), PA_OK);
  EXPECT_EQ(r.dist, 1);
  EXPECT_EQ(r.p1, (GE_POINT{0, 0})) << "a's start is kept on the tie";
  EXPECT_EQ(r.p2, (GE_POINT{0, 1}));
  EXPECT_EQ(r.par1, a.ang_ap);

  // Crossing at (1, 1): the answer is b's start against a, not 0.
  const LI_TAB_STRUCT c = Line({0, 0}, {2, 2}), e = Line({0, 1}, {3, 1});
  GeDrawDrawDist(&c, &e, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_DOUBLE_EQ(r.dist, std::sqrt(0.5));
  EXPECT_DOUBLE_EQ(r.p1.x, 0.5);
  EXPECT_EQ(r.p2, (GE_POINT{0, 1}));
  EXPECT_EQ(r.par2, e.ang_ap);
}

TEST(DrawArcDist, FootPairWhenTheLineMissesTheArcElseEndPoints) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT arc = Arc({1, 0}, {-1, 0}, o, LI_ARC_CCW);  // upper half
  PairResult r;
  // Two units from the centre, in both directions of travel.
  for (const LI_TAB_STRUCT &line : {Line({-3, 2}, {3, 2}), Line({3, 2}, {-3, 2})}) {
    EXPECT_EQ(GeDrawArcDist(&line, &arc, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2), PA_OK);
    EXPECT_DOUBLE_EQ(r.dist, 1);
    EXPECT_NEAR(r.p1.x, 0, 1e-15);
    EXPECT_DOUBLE_EQ(r.p1.y, 2);
    EXPECT_DOUBLE_EQ(r.par2, kPi / 2);
    EXPECT_DOUBLE_EQ(r.p2.y, 1);
  }
  // Cutting the circle: end points (the arc's start against the line).
  const LI_TAB_STRUCT cutting = Line({-3, 0.5}, {3, 0.5});
  GeDrawArcDist(&cutting, &arc, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_EQ(r.p2, arc.ap);
  EXPECT_EQ(r.p1, (GE_POINT{1, 0.5}));
  EXPECT_DOUBLE_EQ(r.dist, 0.5);
  // The foot outside the segment: the segment's end against the arc.
  const LI_TAB_STRUCT aside = Line({2, 2}, {4, 2});
  GeDrawArcDist(&aside, &arc, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_EQ(r.p1, (GE_POINT{2, 2}));
  EXPECT_DOUBLE_EQ(r.dist, std::sqrt(8.0) - 1);
  // The arc turned away from the line: the line against the arc's ends.
  const LI_TAB_STRUCT lower = Arc({-1, 0}, {1, 0}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT line = Line({-3, 2}, {3, 2});
  GeDrawArcDist(&line, &lower, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_EQ(r.p2, lower.ap) << "both ends 2 away: the earlier candidate";
  EXPECT_EQ(r.dist, 2);
}

TEST(ArcArcDist, CentreLinePairOrEndPoints) {
  const GE_POINT o{0, 0}, m{5, 0};
  const LI_TAB_STRUCT right_half = Arc({0, -1}, {0, 1}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT left_half = Arc({5, 2}, {5, -2}, m, LI_ARC_CCW);
  PairResult r;
  EXPECT_EQ(GeArcArcDist(&right_half, &left_half, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2), PA_OK);
  EXPECT_EQ(r.dist, 2);
  EXPECT_EQ(r.p1, (GE_POINT{1, 0}));
  EXPECT_DOUBLE_EQ(r.p2.x, 3);
  EXPECT_NEAR(r.p2.y, 0, 1e-15);
  EXPECT_DOUBLE_EQ(r.par2, kPi);

  // Turned away from each other: the ends decide.
  const LI_TAB_STRUCT far_half = Arc({5, -2}, {5, 2}, m, LI_ARC_CCW);
  GeArcArcDist(&right_half, &far_half, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_EQ(r.p2, far_half.ap);
  EXPECT_DOUBLE_EQ(r.dist, std::hypot(5, 2) - 1);

  // Concentric arcs always take an end-point answer.
  const LI_TAB_STRUCT inner = Arc({0.5, 0}, {-0.5, 0}, o, LI_ARC_CCW);
  GeArcArcDist(&right_half, &inner, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_DOUBLE_EQ(r.dist, 0.5);
  EXPECT_EQ(r.p1, right_half.ep) << "ties with inner's start against the outer arc; kept";
  EXPECT_DOUBLE_EQ(r.p2.y, 0.5);
  // Overlapping circles: the end-point answer, not a negative gap.
  const LI_TAB_STRUCT overlap = Arc({1.5, 1}, {1.5, -1}, {1.5, 0}, LI_ARC_CCW);
  GeArcArcDist(&right_half, &overlap, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2);
  EXPECT_GE(r.dist, 0);
  EXPECT_EQ(GeArcArcDist(nullptr, &overlap, &r.dist, &r.p1, &r.par1, &r.p2, &r.par2), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

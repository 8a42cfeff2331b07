// Point in contour, contour in contour by vertices and exactly, the
// answers of the contour tests against the point walk.
#include <cmath>

#include "support/crossing_support.h"

namespace polyarc_test {
namespace {

const uint16_t kOn = LI_PT_ON, kIn = LI_PT_INSIDE, kOut = LI_PT_OUTSIDE;

uint16_t Where(const LI_TAB_STRUCT *k, GE_POINT p) { return LiPointInKont(k, &p); }

TEST(PointInKont, UnitSquaresCirclesDShapesLoopsAndMoves) {
  Store store;
  const GE_POINT top{0, 1}, bottom{0, -1}, o{0, 0}, loop_centre{1.25, 0};
  LI_TAB_STRUCT cw{}, loop{};
  ASSERT_EQ(LiCreateCircle(&o, 1, 2, &cw), PA_OK);
  ASSERT_EQ(LiCreateCircle(&loop_centre, 0.25, 0, &loop), PA_OK);  // from (1.5, 0)
  LI_TAB_STRUCT *ccw_sq = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  LI_TAB_STRUCT *cw_sq = Polygon(store.get(), {{0, 0}, {0, 1}, {1, 1}, {1, 0}});
  // The half circle through (1, 0) closed by its diameter; with a negative radius, its chord.
  LI_TAB_STRUCT *d = Chain(store.get(), {Line(bottom, top), Arc(top, bottom, o, LI_ARC_CW)});
  LI_TAB_STRUCT *d_neg = Chain(store.get(), {Line(bottom, top), Arc(top, bottom, o, LI_ARC_CW)});
  d_neg->next->rad = -1;
  // The unit square with a loop about (1.25, 0) on a spur: a full circle inside a longer
  // contour is skipped on purpose.
  LI_TAB_STRUCT *looped =
      Chain(store.get(), {Line({0, 0}, {1.5, 0}), loop, Line({1.5, 0}, {1, 0}),
                          Line({1, 0}, {1, 1}), Line({1, 1}, {0, 1}), Line({0, 1}, {0, 0})});
  LI_TAB_STRUCT *moved = Chain(store.get(), {Line({0, 0}, {1, 0}), Move({1, 0}, {1, 1}),
                                             Line({1, 1}, {0, 1}), Line({0, 1}, {0, 0})});
  LI_TAB_STRUCT *circle = Chain(store.get(), {cw});
  const double r = std::sqrt(0.5);
  const struct {
    LI_TAB_STRUCT *k;
    GE_POINT p;
    uint16_t want;
  } rows[] = {{ccw_sq, {0.5, 0.5}, kIn}, {ccw_sq, {1, 1}, kOn},   {ccw_sq, {0.5, 1.0001}, kOut},
              {cw_sq, {0.5, 0.5}, kIn},  {cw_sq, {0.5, 0}, kOn},  {cw_sq, {-0.5, 0.5}, kOut},
              {circle, {0.5, 0}, kIn},   {circle, {0, -1}, kOn},  {circle, {2, 0}, kOut},
              {d, {0.9, 0.3}, kIn},      {d, {1.001, 0}, kOut},   {d, {r, r}, kOn},
              {d, {-0.5, 0}, kOut},      {d_neg, {0.5, 0}, kOut}, {looped, {1.25, 0.1}, kOut},
              {looped, {0.5, 0.5}, kIn}, {moved, {1, 0.5}, kOn},  {nullptr, {0, 0}, kOut}};
  for (const auto &row : rows) EXPECT_EQ(Where(row.k, row.p), row.want) << row.p;
}

int ExactIn(const LI_TAB_STRUCT *inner, const LI_TAB_STRUCT *outer) {
  GE_POINT imin{}, imax{}, omin{}, omax{};
  LiKontBox(inner, &imin, &imax);
  LiKontBox(outer, &omin, &omax);
  return LiKontExactInKont(inner, outer, &imin, &imax, &omin, &omax);
}

TEST(KontInKont, ByVerticesAndExactly) {
  Store store;
  LI_TAB_STRUCT *big = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  LI_TAB_STRUCT *small = Polygon(store.get(), {{1, 1}, {2, 1}, {2, 2}, {1, 2}});
  LI_TAB_STRUCT *open_out = Polyline(store.get(), {{1, 1}, {2, 1}, {5, 1}});
  LI_TAB_STRUCT *on_edge = Polygon(store.get(), {{0, 0}, {4, 0}, {2, 2}});
  EXPECT_EQ(LiKontInKont(small, big) + LiKontInKont(big, big) - LiKontInKont(big, small), 2);
  EXPECT_EQ(LiKontInKont(open_out, big), 0) << "the open end (5, 1) is outside";
  EXPECT_EQ(LiKontInKont(on_edge, big), 1) << "vertices on the outer contour count";
  // A C open to the right: the notch is 1 < x < 4, 1 < y < 3.
  LI_TAB_STRUCT *c =
      Polygon(store.get(), {{0, 0}, {4, 0}, {4, 1}, {1, 1}, {1, 3}, {4, 3}, {4, 4}, {0, 4}});
  LI_TAB_STRUCT *across = Polygon(store.get(), {{0.5, 0.5}, {3.5, 0.5}, {3.5, 3.5}, {0.5, 3.5}});
  EXPECT_EQ(LiKontInKont(across, c), 1);
  EXPECT_EQ(ExactIn(across, c), 0) << "its right edge crosses the notch";
  // The square (1, 1) (3, 3) with its right side an arc: about (3.5, 2) it bulges to x = 4.62,
  // about (2.5, 2) only to x = 3.62.
  for (const double cx : {3.5, 2.5}) {
    LI_TAB_STRUCT *d =
        Chain(store.get(), {Line({1, 3}, {1, 1}), Line({1, 1}, {3, 1}),
                            Arc({3, 1}, {3, 3}, {cx, 2}, LI_ARC_CCW), Line({3, 3}, {1, 3})});
    EXPECT_EQ(LiKontInKont(d, big), 1) << cx;
    EXPECT_EQ(ExactIn(d, big), cx == 2.5 ? 1 : 0) << cx;
  }
  EXPECT_EQ(ExactIn(big, big), 1) << "on counts as inside";
  EXPECT_EQ(ExactIn(big, c), 0) << "by the boxes";
  EXPECT_EQ(LiKontExactInKont(big, big, nullptr, nullptr, nullptr, nullptr), 0);
}

// A contour holding only the point p.
LI_TAB_STRUCT *OnePoint(LI_HEAD *head, GE_POINT p) { return Chain(head, {Move(p, p)}); }

// Points at 0 to 50 tolerances from the contour, and anywhere in its box.
std::vector<GE_POINT> Probes(Shapes &s, LI_TAB_STRUCT *k, int count) {
  const auto e = Elements(k);
  const double tol = GeEpsiGetTol();
  const double steps[] = {0, 0.5, 1, 1.5, 3, 10, 15.9, 16.1, 20, 50};
  std::vector<GE_POINT> p;
  GE_POINT lo{}, hi{};
  LiKontBox(k, &lo, &hi);
  for (int i = 0; i < count; ++i) {
    const LI_TAB_STRUCT *x = e[s.Int(0, int(e.size()) - 1)];
    const double d = steps[s.Int(0, 9)] * tol * (s.Chance(0.5) ? 1 : -1);
    const double angle = s.Real(0, 6.283185307179586);
    const GE_POINT at = s.Chance(0.3) ? x->ap : LiElemPt(x, s.Real(0, 1));
    if (s.Chance(0.5)) {
      p.push_back({at.x + d * std::cos(angle), at.y + d * std::sin(angle)});
    } else {
      p.push_back({s.Real(lo.x - 0.2, hi.x + 0.2), s.Real(lo.y - 0.2, hi.y + 0.2)});
    }
  }
  return p;
}

// After a random element, a drift of sub-tolerance lines leaving a gap and a full circle hung
// on the vertex: the walk skips both.
void AddSkippedElements(Shapes &s, std::vector<LI_TAB_STRUCT> &e) {
  const double tol = GeEpsiGetTol();
  const size_t j = size_t(s.Int(0, int(e.size()) - 2));
  GE_POINT at = e[j].ep;
  const double angle = s.Real(0, 6.283185307179586);
  std::vector<LI_TAB_STRUCT> drift;
  for (int i = 0; i < 30; ++i) {
    const GE_POINT next{at.x + 0.9 * tol * std::cos(angle), at.y + 0.9 * tol * std::sin(angle)};
    drift.push_back(Line(at, next));
    at = next;
  }
  LI_TAB_STRUCT circle{};
  const GE_POINT centre{e[j].ep.x + 0.1, e[j].ep.y};
  EXPECT_EQ(LiCreateCircle(&centre, 0.1, 0, &circle), PA_OK);
  circle.ap = circle.ep = e[j].ep;
  drift.insert(drift.begin(), circle);
  e.insert(e.begin() + std::ptrdiff_t(j) + 1, drift.begin(), drift.end());
}

TEST(Containment, ContourTestsAgreeWithThePointWalkNearAndFar) {
  int inside = 0, total = 0;
  for (unsigned seed = 0; seed < 60; ++seed) {
    Shapes s(500 + seed);
    Store store;
    const int n = s.Int(3, 300);
    const auto points = seed % 3 == 0   ? s.GridWalk(n, 4)
                        : seed % 3 == 1 ? s.Star(n, {0, 0}, 0.3, 1.5, seed % 2 == 0)
                                        : s.Star(n, {0, 0}, 0.9, 1, false);
    auto edges = s.Edges(points, 0.4, 0.05, 0);
    if (seed % 4 == 3 && edges.size() > 2) AddSkippedElements(s, edges);
    LI_TAB_STRUCT *outer = Chain(store.get(), edges);
    for (const GE_POINT &p : Probes(s, outer, 150)) {
      const int walk = Where(outer, p) != kOut ? 1 : 0;
      LI_TAB_STRUCT *one = OnePoint(store.get(), p);
      ASSERT_EQ(LiKontInKont(one, outer), walk) << "seed " << seed << " at " << p;
      LiRemove(store.get(), &one);
      inside += walk;
      ++total;
    }
    // A whole inner contour: inside exactly when all its vertices are.
    const auto inner =
        Elements(Chain(store.get(), s.Edges(s.Star(40, {0, 0}, 0, 1, false), 0, 0, 0)));
    int all = 1;
    for (const LI_TAB_STRUCT *x : inner) all &= Where(outer, x->ap) != kOut ? 1 : 0;
    EXPECT_EQ(LiKontInKont(inner[0], outer), all) << "seed " << seed;
  }
  EXPECT_GT(inside, total / 10);
  EXPECT_LT(inside, total * 9 / 10);
}

TEST(Containment, AGapWidensWhatCountsAsNear) {
  // Regression: the walk runs on along 40 steps of 7/8 tol to (10.546875, 0) and takes its
  // chord to (10, 10) from there; a point on that chord is on the contour for both tests.
  ToleranceScope tol(1.0 / 64);
  Store store;
  std::vector<LI_TAB_STRUCT> e{Line({0, 0}, {10, 0})};
  for (int i = 0; i < 40; ++i)
    e.push_back(Line({10 + i * 7.0 / 512, 0}, {10 + (i + 1) * 7.0 / 512, 0}));
  for (const auto &line : {Line({10, 0}, {10, 10}), Line({10, 10}, {0, 10}), Line({0, 10}, {0, 0})})
    e.push_back(line);
  LI_TAB_STRUCT *k = Chain(store.get(), e);
  const GE_POINT p{10.478515625, 1.25};
  EXPECT_EQ(Where(k, p), kOn);
  EXPECT_EQ(LiKontInKont(OnePoint(store.get(), p), k), 1);
}

TEST(Containment, ASkippedEndLeavesAGapToCloseTheChords) {
  // The left edge stops at (0, 35/64) and 40 skipped lines of 7/8 tol run down to the start:
  // the contour tests must close the chords, or (-5, 0.25) would count as inside.
  ToleranceScope tol(1.0 / 64);
  Store store;
  std::vector<LI_TAB_STRUCT> e{Line({0, 0}, {10, 0}), Line({10, 0}, {10, 10}),
                               Line({10, 10}, {0, 10}), Line({0, 10}, {0, 35.0 / 64})};
  for (int i = 40; i > 0; --i) e.push_back(Line({0, i * 7.0 / 512}, {0, (i - 1) * 7.0 / 512}));
  LI_TAB_STRUCT *k = Chain(store.get(), e);
  const struct {
    GE_POINT p;
    uint16_t want;
  } rows[] = {{{-5, 0.25}, kOut}, {{5, 0.25}, kIn}, {{-5, 5}, kOut}, {{15, 0.25}, kOut}};
  for (const auto &row : rows) {
    EXPECT_EQ(Where(k, row.p), row.want) << row.p;
    EXPECT_EQ(LiKontInKont(OnePoint(store.get(), row.p), k), row.want == kIn ? 1 : 0) << row.p;
  }
}

TEST(Containment, WithoutMemoryTheContourTestsStillAnswer) {
  Store store;
  Shapes s(9);
  LI_TAB_STRUCT *outer = Chain(store.get(), s.Edges(s.Star(100, {0, 0}, 0.5, 1, false), 0, 0, 0));
  LI_TAB_STRUCT *inner = Chain(store.get(), s.Edges(s.Star(50, {0, 0}, 0.1, 0.4, false), 0, 0, 0));
  const unsigned long blocks = MemTestLiveBlocks();
  const unsigned long failing = ForEachAllocationFailure([&](InjectedFailure &failure) {
    failure.Arm();
    const int in_vertices = LiKontInKont(inner, outer);
    const int out_vertices = LiKontInKont(outer, inner);
    failure.Disarm();
    EXPECT_TRUE(in_vertices == 1 && out_vertices == 0 && MemTestLiveBlocks() == blocks);
  });
  EXPECT_GT(failing, 3u);
}

}  // namespace
}  // namespace polyarc_test

// Points on elements, on contours and on stretches of contours; finding the
// element that carries a point and the pieces that meet at it; distances
// from a point to a contour and between contours, and who wins a tie.
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

const double kS2 = std::sqrt(2.0), kS3 = std::sqrt(3.0);

// Bands are strict off an element; along a line tol is in the line parameter:
// (-0.5, 0.4) is 0.64 from the start, yet on it. Arcs span the seam at +-pi.
TEST(PtOnElem, BandsAroundLinesAndArcs) {
  ToleranceScope tol(0.5);
  const GE_POINT from{-kS2, kS2}, to{-kS2, -kS2};  // radius 2 at 3pi/4 and -3pi/4
  const LI_TAB_STRUCT line = Line({0, 0}, {10, 0}), ccw = Arc(from, to, {0, 0}, LI_ARC_CCW),
                      cw = Arc(from, to, {0, 0}, LI_ARC_CW);
  using Row = std::tuple<const LI_TAB_STRUCT *, GE_POINT, int>;
  const Row rows[] = {{&line, {5, 0.25}, 1},   {&line, {5, 0.5}, 0},  {&line, {10.25, 0}, 1},
                      {&line, {-0.5, 0.4}, 1}, {&ccw, {-2.25, 0}, 1}, {&ccw, {-2.5, 0}, 0},
                      {&ccw, {2, 0}, 0},       {&cw, {2, 0}, 1},      {&cw, {-2, 0}, 0}};
  for (const auto &[e, p, on] : rows) EXPECT_EQ(LiPtOnElem(e, &p), on) << e->type << p;
  EXPECT_EQ(LiPtOnElem(&line, nullptr) + LiPtOnElem(nullptr, &line.ap), 0);
}

// Radius 2 counter-clockwise over the top from (2, 0), then the diameter back.
TEST(PtOnKont, JointsAndStretchesOnAHalfCircle) {
  Store store;
  const GE_POINT a{2, 0}, b{-2, 0}, o{0, 0}, top{0, 2}, q1{kS2, kS2}, q3{-kS2, kS2};
  LI_TAB_STRUCT *k = Polyline(store.get(), {a});
  ASSERT_EQ(LiArc(store.get(), &k, &b, &o, 0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &a), PA_OK);
  // A joint belongs to the earlier element in chain order.
  const std::pair<GE_POINT, LI_TAB_STRUCT *> on_kont[] = {
      {a, k}, {b, k}, {o, k->next}, {{0, -1}, nullptr}};
  for (auto [p, want] : on_kont) {
    LI_TAB_STRUCT *out = k;
    EXPECT_EQ(LiPtOnKont(k, &p, &out), want != nullptr) << p;
    EXPECT_EQ(out, want) << p;
  }
  LI_TAB_STRUCT *out = k;
  EXPECT_EQ(LiPtOnKont(nullptr, &a, &out), 0);
  EXPECT_EQ(out, k) << "untouched for an empty contour";
  // Every q of `inside` lies on the stretch from p1 forwards to p2.
  using Points = std::vector<GE_POINT>;
  for (const auto &[p1, p2, inside, outside] :
       {std::tuple<GE_POINT, GE_POINT, Points, Points>{q1, q3, {top}, {{kS3, 1}, {-kS3, 1}, o}},
        {top, {1, 0}, {q3, o}, {a}},
        {{1, 0}, top, {{1.5, 0}, q1}, {o, q3}},  // round past the start of the contour
        {q3, q1, {}, {top, o}},        // p2 behind p1 on one element: empty, not the way round
        {a, a, {top, o}, {}},          // both at the start: the whole contour
        {top, top, {top}, {q1, q3}},   // elsewhere: a stretch of length 0
        {{0, -1}, top, {}, {top}}}) {  // p1 off the contour
    for (int on : {1, 0})
      for (GE_POINT q : on ? inside : outside)
        EXPECT_EQ(LiPtInIntervall(k, &p1, &p2, &q), on) << p1 << p2 << q;
  }
  EXPECT_EQ(LiPtInIntervall(nullptr, &a, &a, &a) + LiPtInIntervall(k, &a, nullptr, &a), 0);
}

TEST(PointFind, TenTolAcrossLinesJointsFirstFullCirclesAndNextElem) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {10, 0}});
  const GE_POINT ten_tol{5, 2.5}, five_tol{5, 1.25}, joint{4, 0};
  EXPECT_EQ(LiKontFindPt(k, &ten_tol), nullptr) << "the band across a line is strict";
  EXPECT_EQ(LiKontFindPt(k, &five_tol), k);
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &five_tol, 0.25), nullptr);

  // The third line runs back over the joint of the first two.
  LI_TAB_STRUCT *v = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}, {4, -3}});
  EXPECT_EQ(LiKontFindPt(v, &joint), v) << "the earlier element";
  EXPECT_EQ(LiKontFindPtIgnoreApEp(v, &joint), v->prev) << "the only one with the joint inside";

  LI_TAB_STRUCT circle = Arc({1, 0}, {1, 0}, {0, 0}, LI_ARC_CCW);
  LI_TAB_STRUCT left = Arc({0, 1}, {0, -1}, {0, 0}, LI_ARC_CCW);  // through pi
  circle.next = circle.prev = &circle, left.next = left.prev = &left;
  for (double a : {0.0, 1.0, 3.0, -3.0}) {
    const GE_POINT p{std::cos(a), std::sin(a)};
    EXPECT_EQ(LiKontFindPt(&circle, &p), &circle) << "angle " << a;
    EXPECT_EQ(LiKontFindPt(&left, &p) == &left, std::abs(a) == 3) << "angle " << a;
  }
  const GE_POINT top{0, 1}, east{1, 0}, origin{0, 0};
  EXPECT_TRUE(LiKontFindPtIgnoreApEp(&circle, &top) && !LiKontFindPtIgnoreApEp(&circle, &east));
  EXPECT_EQ(LiKontFindPt(nullptr, &top), nullptr);

  k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  GE_LI_ELEM before{}, after{};
  using Pair = std::pair<LI_TAB_STRUCT *, LI_TAB_STRUCT *>;
  auto around = [&](GE_POINT p, uint16_t status = PA_OK) {
    Pair out{k, k};
    EXPECT_EQ(LiKontNextElem(k, &p, &before, &after, &out.first, &out.second), status);
    return out;
  };
  EXPECT_EQ(around({4, 0}), Pair(k, k->next));
  EXPECT_TRUE(before.ep == (GE_POINT{4, 0}) && after.ep == (GE_POINT{4, 3}));
  EXPECT_EQ(around({0, 0}), Pair(nullptr, k)) << "nothing leads into an open start";
  EXPECT_EQ(around({9, 9}, PA_IMPOSSIBLE), Pair(nullptr, nullptr));
  EXPECT_EQ(around({1, 0}), Pair(k, k));
  EXPECT_TRUE(before.ang_ep - before.ang_ap == 1 && after.ang_ep - after.ang_ap == 3) << "cut";
  EXPECT_EQ(k->ep, (GE_POINT{4, 0})) << "the contour is not changed";
  LiDraw(store.get(), &k, &origin);
  EXPECT_EQ(around(origin), Pair(k->prev, k)) << "a closed contour leads round into its start";
}

// Separate lines in one chain, in the order given.
LI_TAB_STRUCT *Lines(LI_HEAD *head, GE_POINT a0, GE_POINT b0, GE_POINT a1, GE_POINT b1) {
  LI_TAB_STRUCT *k = Polyline(head, {a0, b0});
  LiChainPrev(k, Polyline(head, {a1, b1}));
  return k;
}

TEST(ContourDistance, ThePointKeepsTheLaterElementThePairsTheEarlierPair) {
  ToleranceScope tol(0.25);
  Store store;
  GE_POINT fa{}, fb{};
  LI_TAB_STRUCT *ea = nullptr, *eb = nullptr;
  double aux_a = 0, aux_b = 0, d = 0;
  auto between = [&](LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb) {
    return LiKontKontDist(ka, kb, &fa, &ea, &aux_a, &fb, &eb, &aux_b, &d);
  };
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {2, 0}, {2, 2}, {0, 2}});
  const GE_POINT centre{1, 1};
  ASSERT_EQ(LiPtKontDist(square, &centre, &fa, &ea, &d, &aux_a), PA_OK);
  EXPECT_TRUE(ea == square->prev && d == 1 && fa == (GE_POINT{0, 1})) << "all 1 away";

  // A later pair nearer by exactly tol / 2 is not enough.
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {4, 0}});
  LI_TAB_STRUCT *near_tie = Lines(store.get(), {0, 1.125}, {2, 1.125}, {2, 1}, {4, 1});
  ASSERT_EQ(between(a, near_tie), PA_OK);
  EXPECT_TRUE(eb == near_tie && d == 1.125 && fb == (GE_POINT{0, 1.125}));
  LI_TAB_STRUCT *clear = Lines(store.get(), {0, 1.25}, {2, 1.25}, {2, 1}, {4, 1});
  ASSERT_EQ(between(a, clear), PA_OK);
  EXPECT_TRUE(eb == clear->next && d == 1 && fa == (GE_POINT{4, 0}));
  // (a0, b1) and (a1, b0) are both 1 apart: a0's pairs come first.
  LI_TAB_STRUCT *two = Lines(store.get(), {0, 0}, {1, 0}, {10, 0}, {11, 0});
  ASSERT_EQ(between(two, Lines(store.get(), {10, 1}, {11, 1}, {0, 1}, {1, 1})), PA_OK);
  EXPECT_TRUE(ea == two && eb->ap == (GE_POINT{0, 1}));

  // The upper half of the unit circle against a line above it, either way round.
  LI_TAB_STRUCT *half = Polyline(store.get(), {{1, 0}});
  LI_TAB_STRUCT *roof = Polyline(store.get(), {{-1, 3}, {1, 3}});
  const GE_POINT west{-1, 0}, origin{0, 0}, above{0, 3};
  ASSERT_EQ(LiArc(store.get(), &half, &west, &origin, 0), PA_OK);
  ASSERT_EQ(between(half, roof), PA_OK);
  EXPECT_TRUE(ea == half && fb == above && std::abs(fa.y - 1) < 1e-12);
  ASSERT_EQ(between(roof, half), PA_OK);
  EXPECT_TRUE(eb == half && fa == above && std::abs(fb.y - 1) < 1e-12);
  EXPECT_DOUBLE_EQ(aux_b, kPi / 2) << "the angle of the foot on the arc";

  EXPECT_EQ(LiPtKontDist(nullptr, &centre, &fa, &ea, &d, &aux_a), PA_INVALID);
  EXPECT_EQ(between(a, nullptr), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

// Points on elements, on contours and on stretches of contours.
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "support/support.h"

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
  const Row rows[] = {{&line, {5, 0.25}, 1}, {&line, {5, 0.5}, 0},    {&line, {10.25, 0}, 1},
                      {&line, {11, 0}, 0},   {&line, {-0.5, 0.4}, 1}, {&ccw, {-2.25, 0}, 1},
                      {&ccw, {-2.5, 0}, 0},  {&ccw, {2, 0}, 0},       {&cw, {2, 0}, 1},
                      {&cw, {-2, 0}, 0}};
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

}  // namespace
}  // namespace polyarc_test

// Points on elements, on contours and on stretches of contours.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT Polar(double r, double angle) {
  return {r * std::cos(angle), r * std::sin(angle)};
}

// Every point of `on` lies on the element; none of `off`.
void ExpectOn(const LI_TAB_STRUCT &e, std::initializer_list<GE_POINT> on,
              std::initializer_list<GE_POINT> off) {
  for (GE_POINT p : on) EXPECT_EQ(LiPtOnElem(&e, &p), 1) << p;
  for (GE_POINT p : off) EXPECT_EQ(LiPtOnElem(&e, &p), 0) << p;
}

// Off a line the band is strict; along it the band is tol in the line
// parameter, not in distance from the end: (-0.5, 0.4) is 0.64 from the
// start, yet on the line.
TEST(PtOnElem, LineBands) {
  const double tol = GeEpsiGetTol();
  const LI_TAB_STRUCT line = Line({0, 0}, {10, 0});
  ExpectOn(line, {{5, tol / 2}, {10 + tol / 2, 0}}, {{10 + 2 * tol, 0}});
  EXPECT_EQ(LiPtOnElem(&line, nullptr), 0);
  EXPECT_EQ(LiPtOnElem(nullptr, &line.ap), 0);
  ToleranceScope scope(0.5);
  ExpectOn(Line({0, 0}, {10, 0}), {{5, -0.25}, {-0.5, 0.4}}, {{5, 0.5}, {-0.75, 0}});
}

// Counter-clockwise from 3pi/4 through pi to -3pi/4, clockwise the long
// way round through 0, and a full circle.
TEST(PtOnElem, ArcsInBothSensesAndAcrossTheSeam) {
  ToleranceScope tol(0.25);
  const GE_POINT from = Polar(2, 0.75 * kPi), to = Polar(2, -0.75 * kPi);
  ExpectOn(Arc(from, to, {0, 0}, LI_ARC_CCW), {{-2, 0}, {-1.875, 0}}, {{2, 0}, {-2.25, 0}});
  ExpectOn(Arc(from, to, {0, 0}, LI_ARC_CW), {{2, 0}}, {{-2, 0}});
  ExpectOn(Arc({2, 0}, {2, 0}, {0, 0}, LI_ARC_CW), {{-2, 0}, {0, -2}}, {});
}

TEST(PtOnKont, AJointBelongsToTheEarlierElement) {
  Store store;
  LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const std::vector<LI_TAB_STRUCT *> e = Elements(k);
  const struct {
    GE_POINT p;
    int on;
    LI_TAB_STRUCT *out;
  } rows[] = {{{4, 0}, 1, e[0]}, {{0, 0}, 1, e[0]}, {{4, 2}, 1, e[1]}, {{2, 2}, 0, nullptr}};
  for (const auto &row : rows) {
    LI_TAB_STRUCT *out = k->next;
    EXPECT_EQ(LiPtOnKont(k, &row.p, &out), row.on) << row.p;
    EXPECT_EQ(out, row.out) << row.p;
  }
  LI_TAB_STRUCT *out = k;
  EXPECT_EQ(LiPtOnKont(nullptr, &rows[0].p, &out), 0);
  EXPECT_EQ(out, k) << "untouched for an empty contour";
  EXPECT_EQ(LiPtOnKont(k, &rows[0].p, nullptr), 1);
}

// Every q of `in` lies on the stretch from p1 forwards to p2; none of `out`.
void ExpectStretch(LI_TAB_STRUCT *k, GE_POINT p1, GE_POINT p2, std::initializer_list<GE_POINT> in,
                   std::initializer_list<GE_POINT> out) {
  for (int on : {1, 0}) {
    for (GE_POINT q : on ? in : out) {
      EXPECT_EQ(LiPtInIntervall(k, &p1, &p2, &q), on) << p1 << " to " << p2 << ": " << q;
    }
  }
}

// The square counter-clockwise from the origin. Both ends at the start of
// the contour span all of it; elsewhere p1 == p2 is a stretch of length 0.
TEST(PtInIntervall, ForwardsFromP1ToP2OnASquare) {
  Store store;
  LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const GE_POINT p1{1, 0}, p2{4, 2}, start{0, 0}, mid{2, 0}, left{0, 2};
  ExpectStretch(k, p1, p2, {p1, {3, 0}, {4, 0}, p2}, {{0.5, 0}, {4, 3}, {2, 4}, {2, 2}});
  ExpectStretch(k, p2, p1, {{2, 4}}, {{3, 0}});
  ExpectStretch(k, {2, 2}, p2, {}, {{3, 0}});  // p1 off the contour
  ExpectStretch(k, left, mid, {{0, 1}, {1, 0}}, {{3, 0}, {0, 3}});
  ExpectStretch(k, start, start, {{2, 0}, {4, 2}, {2, 4}, {0, 2}}, {});
  ExpectStretch(k, mid, mid, {mid}, {{3, 0}, {2, 4}});
}

// A half circle of radius 2 counter-clockwise over the top, then its
// diameter back.
TEST(PtInIntervall, ArcsCompareTheDistanceAlongThem) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{2, 0}});
  const GE_POINT a{2, 0}, b{-2, 0}, centre{0, 0};
  ASSERT_EQ(LiArc(store.get(), &k, &b, &centre, 0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &a), PA_OK);
  const GE_POINT p1 = Polar(2, kPi / 4), p2 = Polar(2, 3 * kPi / 4), top{0, 2}, chord{0, 0},
                 on_diameter{1, 0};
  ExpectStretch(k, p1, p2, {top}, {Polar(2, kPi / 6), Polar(2, 5 * kPi / 6), chord});
  ExpectStretch(k, top, on_diameter, {Polar(2, 5 * kPi / 6), chord}, {a});
  // The search for p2 starts on p1's element: p2 behind p1 there gives an
  // empty stretch, not the way round the contour.
  ExpectStretch(k, p2, p1, {}, {chord});
  EXPECT_EQ(LiPtInIntervall(nullptr, &p1, &p2, &top), 0);
  EXPECT_EQ(LiPtInIntervall(k, &p1, nullptr, &top), 0);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

}  // namespace
}  // namespace polyarc_test

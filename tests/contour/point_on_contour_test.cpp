// Points on elements, on contours and on stretches of contours.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT Polar(double r, double angle) { return {r * std::cos(angle), r * std::sin(angle)}; }

TEST(PtOnElem, LineBandsAtTheDefaultTolerance) {
  const double tol = GeEpsiGetTol();
  const LI_TAB_STRUCT line = Line({0, 0}, {10, 0});
  const GE_POINT beside{5, tol / 2}, past_end{10 + tol / 2, 0}, beyond{10 + 2 * tol, 0};
  EXPECT_EQ(LiPtOnElem(&line, &beside), 1);
  EXPECT_EQ(LiPtOnElem(&line, &past_end), 1);
  EXPECT_EQ(LiPtOnElem(&line, &beyond), 0);
}

TEST(PtOnElem, LineBoundariesAreExact) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT line = Line({0, 0}, {10, 0});
  const GE_POINT on_band{5, 0.5}, inside_band{5, -0.25};
  EXPECT_EQ(LiPtOnElem(&line, &on_band), 0) << "tol across the line is outside";
  EXPECT_EQ(LiPtOnElem(&line, &inside_band), 1);
  // Along the line the band is tol in the parameter, not in distance from
  // the end point: (-0.5, 0.4) is 0.64 from the start, yet on the line.
  const GE_POINT before_start{-0.5, 0.4}, further{-0.75, 0};
  EXPECT_EQ(LiPtOnElem(&line, &before_start), 1);
  EXPECT_EQ(LiPtOnElem(&line, &further), 0);
  EXPECT_EQ(LiPtOnElem(nullptr, &further), 0);
  EXPECT_EQ(LiPtOnElem(&line, nullptr), 0);
}

TEST(PtOnElem, ArcsInBothSensesAndAcrossTheSeam) {
  ToleranceScope tol(0.25);
  // Counter-clockwise from 3pi/4 through pi to -3pi/4.
  const LI_TAB_STRUCT ccw = Arc(Polar(2, 0.75 * kPi), Polar(2, -0.75 * kPi), {0, 0}, LI_ARC_CCW);
  const GE_POINT left{-2, 0}, right{2, 0}, left_out{-2.25, 0}, left_in{-1.875, 0};
  EXPECT_EQ(LiPtOnElem(&ccw, &left), 1);
  EXPECT_EQ(LiPtOnElem(&ccw, &right), 0);
  EXPECT_EQ(LiPtOnElem(&ccw, &left_out), 0) << "tol off the circle is outside";
  EXPECT_EQ(LiPtOnElem(&ccw, &left_in), 1);
  // The same ends clockwise: the long way round through 0.
  const LI_TAB_STRUCT cw = Arc(Polar(2, 0.75 * kPi), Polar(2, -0.75 * kPi), {0, 0}, LI_ARC_CW);
  EXPECT_EQ(LiPtOnElem(&cw, &left), 0);
  EXPECT_EQ(LiPtOnElem(&cw, &right), 1);
  // A full circle holds every angle.
  const LI_TAB_STRUCT circle = Arc({2, 0}, {2, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_EQ(LiPtOnElem(&circle, &left), 1);
  const GE_POINT below{0, -2};
  EXPECT_EQ(LiPtOnElem(&circle, &below), 1);
}

TEST(PtOnKont, AJointBelongsToTheEarlierElement) {
  Store store;
  LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const std::vector<LI_TAB_STRUCT *> e = Elements(k);
  LI_TAB_STRUCT *out = nullptr;
  const GE_POINT joint{4, 0}, start{0, 0}, side{4, 2}, off{2, 2};
  EXPECT_EQ(LiPtOnKont(k, &joint, &out), 1);
  EXPECT_EQ(out, e[0]);
  EXPECT_EQ(LiPtOnKont(k, &start, &out), 1);
  EXPECT_EQ(out, e[0]) << "the start of the first element comes before the end of the last";
  EXPECT_EQ(LiPtOnKont(k, &side, &out), 1);
  EXPECT_EQ(out, e[1]);
  EXPECT_EQ(LiPtOnKont(k, &off, &out), 0);
  EXPECT_EQ(out, nullptr);
  out = k;
  EXPECT_EQ(LiPtOnKont(nullptr, &side, &out), 0);
  EXPECT_EQ(out, k) << "untouched for an empty contour";
  EXPECT_EQ(LiPtOnKont(k, &side, nullptr), 1);
}

// The square (0,0) (4,0) (4,4) (0,4), counter-clockwise from the origin.
class Interval : public testing::Test {
 protected:
  int In(GE_POINT p1, GE_POINT p2, GE_POINT q) { return LiPtInIntervall(k_, &p1, &p2, &q); }
  Store store_;
  LI_TAB_STRUCT *k_ = Polygon(store_.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
};

TEST_F(Interval, ForwardsFromP1ToP2) {
  const GE_POINT p1{1, 0}, p2{4, 2};
  EXPECT_EQ(In(p1, p2, {3, 0}), 1);
  EXPECT_EQ(In(p1, p2, {1, 0}), 1) << "p1 itself";
  EXPECT_EQ(In(p1, p2, {4, 0}), 1) << "the corner between";
  EXPECT_EQ(In(p1, p2, {4, 2}), 1) << "p2 itself";
  EXPECT_EQ(In(p1, p2, {0.5, 0}), 0) << "before p1 on its element";
  EXPECT_EQ(In(p1, p2, {4, 3}), 0) << "after p2 on its element";
  EXPECT_EQ(In(p1, p2, {2, 4}), 0) << "beyond p2";
  EXPECT_EQ(In(p2, p1, {2, 4}), 1) << "the other way round the square";
  EXPECT_EQ(In(p1, p2, {2, 2}), 0) << "not on the contour";
  EXPECT_EQ(In({2, 2}, p2, {3, 0}), 0) << "p1 not on the contour";
}

TEST_F(Interval, WrapsThroughTheFirstElement) {
  const GE_POINT p1{0, 2}, p2{2, 0};
  EXPECT_EQ(In(p1, p2, {0, 1}), 1);
  EXPECT_EQ(In(p1, p2, {1, 0}), 1);
  EXPECT_EQ(In(p1, p2, {3, 0}), 0);
  EXPECT_EQ(In(p1, p2, {0, 3}), 0);
}

TEST_F(Interval, BothEndsAtTheStartSpanTheWholeContour) {
  const GE_POINT start{0, 0};
  for (GE_POINT q : {GE_POINT{2, 0}, GE_POINT{4, 2}, GE_POINT{2, 4}, GE_POINT{0, 2}}) {
    EXPECT_EQ(In(start, start, q), 1) << q;
  }
  // Elsewhere p1 == p2 is a stretch of length zero.
  const GE_POINT mid{2, 0};
  EXPECT_EQ(In(mid, mid, mid), 1);
  EXPECT_EQ(In(mid, mid, {3, 0}), 0);
  EXPECT_EQ(In(mid, mid, {2, 4}), 0);
}

TEST(PtInIntervall, ArcsCompareTheDistanceAlongThem) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{2, 0}, b{-2, 0}, centre{0, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &a), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &b, &centre, 0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &a), PA_OK);
  const GE_POINT p1 = Polar(2, kPi / 4), p2 = Polar(2, 3 * kPi / 4);
  const GE_POINT top = Polar(2, kPi / 2), early = Polar(2, kPi / 6), late = Polar(2, 5 * kPi / 6);
  EXPECT_EQ(LiPtInIntervall(k, &p1, &p2, &top), 1);
  EXPECT_EQ(LiPtInIntervall(k, &p1, &p2, &early), 0);
  EXPECT_EQ(LiPtInIntervall(k, &p1, &p2, &late), 0);
  const GE_POINT chord{0, 0}, on_diameter{1, 0};
  EXPECT_EQ(LiPtInIntervall(k, &p1, &p2, &chord), 0);
  EXPECT_EQ(LiPtInIntervall(k, &top, &on_diameter, &late), 1);
  EXPECT_EQ(LiPtInIntervall(k, &top, &on_diameter, &chord), 1) << "round through the diameter";
  EXPECT_EQ(LiPtInIntervall(k, &top, &on_diameter, &a), 0) << "after p2 on the diameter";
  // The search for p2 starts on p1's element: p2 behind p1 there gives an
  // empty stretch, not the way round the contour.
  EXPECT_EQ(LiPtInIntervall(k, &p2, &p1, &chord), 0);
  EXPECT_EQ(LiPtInIntervall(nullptr, &p1, &p2, &top), 0);
  EXPECT_EQ(LiPtInIntervall(k, &p1, nullptr, &top), 0);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

}  // namespace
}  // namespace polyarc_test

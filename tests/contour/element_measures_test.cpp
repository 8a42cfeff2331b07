// Single elements: derived fields and boxes, length and points along
// elements and contours, and offsets in place.
#include <cmath>
#include <cstddef>
#include <cstring>
#include <tuple>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

const double kS = std::sqrt(2.0);
const GE_POINT kUpper{-kS, kS}, kLower{-kS, -kS}, kO{0, 0};  // radius 2 at +-3pi/4

// Degenerate elements keep zero directions (|rad| == tol is not degenerate); the box is the
// real box pushed out by tol.
TEST(DerivedFields, DirectionsTheirDegenerateCasesAndBoxes) {
  LI_TAB_STRUCT line = Line({1, 1}, {4, 5}), arc = Arc({0, 2}, {2, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_TRUE(line.tan_ap == (GE_POINT{0.6, 0.8}) && line.mp == (GE_POINT{0.8, -0.6}));
  EXPECT_TRUE(arc.tan_ap == (GE_POINT{1, 0}) && arc.tan_ep == (GE_POINT{0, -1}));
  line.ep = line.ap;
  EXPECT_EQ(LiElemExpand(&line), PA_ZERO_LENGTH);
  EXPECT_EQ(line.tan_ap, (GE_POINT{0, 0}));
  arc.rad = 0, arc.box = {};
  EXPECT_EQ(LiElemExpand(&arc), PA_ZERO_RADIUS);
  EXPECT_TRUE(arc.tan_ap == (GE_POINT{0, 0}) && arc.tan_ep == (GE_POINT{0, 0}));
  EXPECT_LT(arc.box.xmin, arc.box.xmax);
  ToleranceScope tol(0.5);
  for (double rad : {0.5, -0.5, 0.25}) {
    arc.rad = rad;
    EXPECT_EQ(LiElemExpand(&arc), rad == 0.25 ? PA_ZERO_RADIUS : PA_OK) << rad;
  }
  using Row = std::tuple<LI_TAB_STRUCT, GE_POINT, GE_POINT>;
  for (const auto &[elem, lo, hi] :
       {Row{Line({0, 0}, {2, 1}), {0, 0}, {2, 1}},
        Row{Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CW), {-1, -1}, {1, 1}},      // three quarters
        Row{Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW), {0, 0}, {1, 1}},       // one quarter
        Row{Arc({3, 0}, {3, 0}, {1, 0}, LI_ARC_CCW), {-1, -2}, {3, 2}}}) {  // full circle
    GE_POINT real_lo{}, real_hi{};
    LiElemRealBox(&elem, &real_lo, &real_hi);
    EXPECT_TRUE(real_lo == lo && real_hi == hi) << elem.type;
    LI_TAB_STRUCT e = elem;
    e.box = {};
    LiElemBox(&e);
    EXPECT_EQ((GE_POINT{e.box.xmin, e.box.ymin}), (GE_POINT{lo.x - 0.5, lo.y - 0.5}));
    EXPECT_EQ((GE_POINT{e.box.xmax, e.box.ymax}), (GE_POINT{hi.x + 0.5, hi.y + 0.5}));
  }
  EXPECT_EQ(LiElemExpand(nullptr) + LiElemExpandDrawVectorized(nullptr), 2 * PA_INVALID);
  LiElemBox(nullptr);
  LiElemRealBox(nullptr, nullptr, nullptr);
}

// Through the seam at +-pi in both senses, and the long way round.
TEST(Length, AgreesWithThePointsAlongTheElement) {
  using Row = std::tuple<LI_TAB_STRUCT, double, GE_POINT>;
  for (const auto &[e, length, mid] :
       {Row{Line({0, 0}, {3, 4}), 5, {1.5, 2}},
        Row{Arc(kUpper, kLower, kO, LI_ARC_CCW), kPi, {-2, 0}},
        Row{Arc(kLower, kUpper, kO, LI_ARC_CW), kPi, {-2, 0}},
        Row{Arc(kLower, kUpper, kO, LI_ARC_CCW), 3 * kPi, {2, 0}},
        Row{Arc({3, 1}, {3, 1}, {1, 1}, LI_ARC_CW), 4 * kPi, {3, 1}}}) {  // a full circle: sweep 0
    EXPECT_NEAR(LiElemLen(&e), length, 1e-12) << mid;
    const GE_POINT p = LiElemPt(&e, 0.5);
    EXPECT_NEAR(std::hypot(p.x - mid.x, p.y - mid.y), 0, 1e-12) << mid;
    EXPECT_TRUE(LiElemPt(&e, -0.1) == e.ap && LiElemPt(&e, 1.5) == e.ep) << "clamped";
  }
  EXPECT_EQ(LiElemLen(nullptr) + LiKontLen(nullptr), 0);
  EXPECT_EQ(LiElemPt(nullptr, 0.5), (GE_POINT{0, 0}));
  Store store;
  EXPECT_DOUBLE_EQ(LiKontLen(Polygon(store.get(), {{0, 0}, {3, 0}, {3, 4}})), 12);
}

// Side 1 is the left: the centre's side of a counter-clockwise arc. The conic offset moves a
// quarter of radius 5 inwards by 1 at the start, 2 in the middle and 3 at the end.
TEST(ParElemAndConicElem, LinesMoveSidewaysArcsChangeTheirRadiusEndsByTheirOwnDistances) {
  const size_t geometry = offsetof(LI_TAB_STRUCT, next) - offsetof(LI_TAB_STRUCT, ap);
  using Row = std::tuple<LI_TAB_STRUCT, int16_t, LI_TAB_STRUCT>;
  for (const auto &[elem, side, expected] :
       {Row{Line({0, 0}, {10, 0}), 1, Line({0, 1}, {10, 1})},
        Row{Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW), 1, Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW)},
        Row{Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW), 1, Arc({0, 6}, {6, 0}, {0, 0}, LI_ARC_CW)},
        Row{Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW), -1, Arc({0, 4}, {4, 0}, {0, 0}, LI_ARC_CW)}}) {
    LI_TAB_STRUCT e = elem;
    ASSERT_EQ(LiParElem(&e, side, 1), PA_OK);
    EXPECT_TRUE(e.type == expected.type && std::memcmp(&e.ap, &expected.ap, geometry) == 0)
        << "type " << e.type << ", side " << side;
  }
  LI_TAB_STRUCT e = Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiConicElem(&e, 1, 1, 3), PA_OK);
  const GE_POINT middle{3 * std::sqrt(0.5), 3 * std::sqrt(0.5)};
  EXPECT_EQ(e.ap, (GE_POINT{4, 0}));
  EXPECT_NEAR(std::hypot(e.ep.x, e.ep.y - 2), 0, 1e-15) << e.ep;
  EXPECT_EQ(LiPtOnElem(&e, &middle), 1);
  EXPECT_EQ(LiParElem(nullptr, 1, 1) + LiConicElem(nullptr, 1, 1, 1), 2 * PA_INVALID);
}

// Regression: a quarter the three-point check once sent to its full-circle branch.
TEST(ConicElem, ZeroDistancesLeaveTheArcAsItIs) {
  const double a = -2.945243112740;
  const GE_POINT c{0, 0}, ap{10 * std::cos(a), 10 * std::sin(a)},
      ep{10 * std::cos(a + kPi / 2), 10 * std::sin(a + kPi / 2)};
  LI_TAB_STRUCT e = Arc(ap, ep, c, LI_ARC_CCW);
  ASSERT_EQ(LiConicElem(&e, 1, 0, 0), PA_OK);
  EXPECT_TRUE(e.mp == c && e.rad == 10 && e.ap == ap && e.ep == ep);
}

// A full circle moves by the mean when both distances agree within tol, else it is refused.
TEST(ConicElem, AFullCircleStaysOneOrIsRefused) {
  ToleranceScope tol(0.25);
  const GE_POINT c{3, -2};
  for (const uint16_t dir : {1, 2}) {
    LI_TAB_STRUCT e{};
    const int16_t inwards = dir == 2 ? -1 : 1;                 // left of counter-clockwise travel
    using Row = std::tuple<double, double, uint16_t, double>;  // d0, d1, status, radius
    for (auto [d0, d1, status, rad] : {Row{2, 2, PA_OK, 3}, Row{2, 2.125, PA_OK, 2.9375},
                                       Row{7, 7, PA_OK, 2}, Row{2, 2.25, PA_DEGENERATE, 5}}) {
      ASSERT_EQ(LiCreateCircle(&c, 5, dir, &e), PA_OK);
      EXPECT_EQ(LiConicElem(&e, inwards, d0, d1), status) << d0 << " " << d1;
      EXPECT_TRUE(e.type == (dir == 2 ? LI_ARC_CW : LI_ARC_CCW) && e.mp == c && e.ap == e.ep &&
                  e.rad == rad);
    }
  }
}

}  // namespace
}  // namespace polyarc_test

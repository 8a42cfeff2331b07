// Reversal, length and points along elements and contours.
#include <cmath>
#include <cstddef>
#include <cstring>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;
const double kS = std::sqrt(2.0);
const GE_POINT kUpper{-kS, kS}, kLower{-kS, -kS}, kO{0, 0};  // radius 2 at +-3pi/4

// Reversed, an element is the one drawn the other way; reversed again, it is
// itself bit for bit.
TEST(Reverse, GivesTheElementDrawnTheOtherWayAndTwiceItself) {
  const LI_TAB_STRUCT pairs[][2] = {
      {Line({0.1, 0.7}, {-3.3, 1e-3}), Line({-3.3, 1e-3}, {0.1, 0.7})},
      {Arc(kUpper, kLower, kO, LI_ARC_CCW), Arc(kLower, kUpper, kO, LI_ARC_CW)},
      {Arc(kUpper, kLower, kO, LI_ARC_CW), Arc(kLower, kUpper, kO, LI_ARC_CCW)}};
  for (const auto &[original, reversed] : pairs) {
    LI_TAB_STRUCT e = original;
    LiElemUmdreh(&e);
    EXPECT_EQ(e.type, reversed.type);
    EXPECT_EQ(e.ap, reversed.ap);
    EXPECT_EQ(e.mp, reversed.mp);
    EXPECT_EQ(e.tan_ap, reversed.tan_ap);
    EXPECT_EQ(e.tan_ep, reversed.tan_ep);
    EXPECT_DOUBLE_EQ(e.rad, reversed.rad);
    EXPECT_DOUBLE_EQ(e.ang_ap, reversed.ang_ap);
    LiElemUmdreh(&e);
    EXPECT_EQ(e.type, original.type);
    EXPECT_EQ(std::memcmp(&e.ap, &original.ap, sizeof e - offsetof(LI_TAB_STRUCT, ap)), 0);
  }
  LiElemUmdreh(nullptr);
}

// Through the seam at +-pi in both senses, and the long way round.
TEST(Length, AgreesWithThePointsAlongTheElement) {
  using Row = std::tuple<LI_TAB_STRUCT, double, GE_POINT>;
  for (const auto &[e, length, mid] :
       {Row{Line({0, 0}, {3, 4}), 5, {1.5, 2}},
        Row{Arc(kUpper, kLower, kO, LI_ARC_CCW), kPi, {-2, 0}},
        Row{Arc(kLower, kUpper, kO, LI_ARC_CW), kPi, {-2, 0}},
        Row{Arc(kLower, kUpper, kO, LI_ARC_CCW), 3 * kPi, {2, 0}},
        Row{Arc(kUpper, kLower, kO, LI_ARC_CW), 3 * kPi, {2, 0}},
        Row{Arc({3, 1}, {3, 1}, {1, 1}, LI_ARC_CW), 4 * kPi, {3, 1}}}) {  // a full circle: sweep 0
    EXPECT_NEAR(LiElemLen(&e), length, 1e-12) << mid;
    const GE_POINT p = LiElemPt(&e, 0.5);
    EXPECT_NEAR(std::hypot(p.x - mid.x, p.y - mid.y), 0, 1e-12) << mid;
    EXPECT_EQ(LiElemPt(&e, -0.1), e.ap);
    EXPECT_EQ(LiElemPt(&e, 1.5), e.ep);
  }
  EXPECT_EQ(LiElemLen(nullptr) + LiKontLen(nullptr), 0);
  EXPECT_EQ(LiElemPt(nullptr, 0.5), (GE_POINT{0, 0}));
  Store store;
  EXPECT_DOUBLE_EQ(LiKontLen(Polygon(store.get(), {{0, 0}, {3, 0}, {3, 4}})), 12);
}

}  // namespace
}  // namespace polyarc_test

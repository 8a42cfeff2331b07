// Reversal, length and points along elements and contours.
#include <cmath>
#include <cstddef>
#include <cstring>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT OnCircle(double angle, double r) {
  return {r * std::cos(angle), r * std::sin(angle)};
}

bool SameBits(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  return a.type == b.type && std::memcmp(&a.ap, &b.ap, sizeof a - offsetof(LI_TAB_STRUCT, ap)) == 0;
}

// Reversed, an element is the one drawn the other way; reversed again, it is
// itself bit for bit, payload and links included.
TEST(Reverse, GivesTheElementDrawnTheOtherWayAndTwiceItself) {
  LI_TAB_STRUCT line = Line({0.1, 0.7}, {-3.3, 1e-3});
  line.attr_val = 2.5;
  line.no = 7;
  const GE_POINT p = OnCircle(3, 1.5), q = OnCircle(-3, 1.5), o{0, 0};
  const LI_TAB_STRUCT pairs[][2] = {{line, Line({-3.3, 1e-3}, {0.1, 0.7})},
                                    {Arc(p, q, o, LI_ARC_CCW), Arc(q, p, o, LI_ARC_CW)},
                                    {Arc(p, q, o, LI_ARC_CW), Arc(q, p, o, LI_ARC_CCW)}};
  for (const auto &pair : pairs) {
    LI_TAB_STRUCT e = pair[0];
    LiElemUmdreh(&e);
    const LI_TAB_STRUCT &r = pair[1];
    EXPECT_EQ(e.type, r.type);
    EXPECT_EQ(e.ap, r.ap);
    EXPECT_EQ(e.ep, r.ep);
    EXPECT_EQ(e.mp, r.mp);
    EXPECT_EQ(e.tan_ap, r.tan_ap);
    EXPECT_EQ(e.tan_ep, r.tan_ep);
    EXPECT_DOUBLE_EQ(e.rad, r.rad);
    EXPECT_DOUBLE_EQ(e.ang_ap, r.ang_ap);
    EXPECT_DOUBLE_EQ(e.ang_ep, r.ang_ep);
    LiElemUmdreh(&e);
    EXPECT_TRUE(SameBits(e, pair[0])) << "type " << e.type;
  }
  LiElemUmdreh(nullptr);
}

// Other lengths are checked against the points along the elements below.
TEST(Length, FullCirclesAndContours) {
  for (uint16_t type : {LI_ARC_CW, LI_ARC_CCW}) {
    const LI_TAB_STRUCT circle = Arc({3, 1}, {3, 1}, {1, 1}, type);
    EXPECT_DOUBLE_EQ(LiElemLen(&circle), 4 * kPi);
  }
  EXPECT_EQ(LiElemLen(nullptr), 0);
  EXPECT_EQ(LiKontLen(nullptr), 0);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {2, 0}});
  const GE_POINT a{0, 0}, c{1, 0};
  ASSERT_EQ(LiArc(store.get(), &k, &a, &c, 1), PA_OK);
  EXPECT_DOUBLE_EQ(LiKontLen(k), kPi + 2) << "a diameter and its half circle";
}

// How far along the element p lies, from its start.
double TravelledTo(const LI_TAB_STRUCT &e, GE_POINT p) {
  if (e.type == LI_LINE) return std::hypot(p.x - e.ap.x, p.y - e.ap.y);
  double swept = std::atan2(p.y - e.mp.y, p.x - e.mp.x) - e.ang_ap;
  if (e.type == LI_ARC_CW) swept = -swept;
  if (swept < -1e-12) swept += 2 * kPi;
  return swept * e.rad;
}

TEST(PointAt, LiesOnTheElementAtTheRightDistance) {
  const GE_POINT upper = OnCircle(0.75 * kPi, 2), lower = OnCircle(-0.75 * kPi, 2);
  const LI_TAB_STRUCT elems[] = {
      Line({1, 1}, {4, 5}),
      Arc(upper, lower, {0, 0}, LI_ARC_CCW),  // both senses through the seam at +-pi
      Arc(lower, upper, {0, 0}, LI_ARC_CW),
      Arc(lower, upper, {0, 0}, LI_ARC_CCW),  // the long way round, away from it
  };
  for (const LI_TAB_STRUCT &e : elems) {
    for (double u : {0.0, 0.1, 0.25, 0.5, 0.9, 1.0}) {
      const GE_POINT p = LiElemPt(&e, u);
      EXPECT_EQ(LiPtOnElem(&e, &p), 1) << "type " << e.type << ", u " << u;
      EXPECT_NEAR(TravelledTo(e, p), u * LiElemLen(&e), 1e-12) << "type " << e.type << ", u " << u;
    }
    EXPECT_EQ(LiElemPt(&e, -0.1), e.ap);
    EXPECT_EQ(LiElemPt(&e, 1.5), e.ep);
  }
  const LI_TAB_STRUCT circle = Arc({2, 0}, {2, 0}, {0, 0}, LI_ARC_CCW);
  EXPECT_EQ(LiElemPt(&circle, 0.5), circle.ap) << "a full circle has sweep 0";
  EXPECT_EQ(LiElemPt(nullptr, 0.5), (GE_POINT{0, 0}));
}

}  // namespace
}  // namespace polyarc_test

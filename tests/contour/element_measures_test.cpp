// Reversal, length and points along elements and contours.
#include <cmath>
#include <cstddef>
#include <cstring>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT OnUnitCircle(double angle, double r = 1) { return {r * std::cos(angle), r * std::sin(angle)}; }

// Every field, bit for bit (the padding after type left out).
bool SameBits(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  const size_t from = offsetof(LI_TAB_STRUCT, ap);
  return a.type == b.type && std::memcmp(reinterpret_cast<const char *>(&a) + from,
                                         reinterpret_cast<const char *>(&b) + from,
                                         sizeof a - from) == 0;
}

TEST(Reverse, TwiceRestoresEveryFieldBitForBit) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{1, 1}, {4, 5}});
  k->attr_val = 2.5;
  k->no = 7;
  LI_TAB_STRUCT move{};
  move.type = LI_MOVE;
  move.ap = {-1, 0.3};
  move.ep = {2, 7};
  LiElemExpand(&move);
  const LI_TAB_STRUCT elems[] = {
      *k, move, Line({0.1, 0.7}, {-3.3, 1e-3}),
      Arc(OnUnitCircle(3), OnUnitCircle(-3), {0, 0}, LI_ARC_CCW),
      Arc(OnUnitCircle(0.4, 2), OnUnitCircle(-2.9, 2), {0, 0}, LI_ARC_CW)};
  for (const LI_TAB_STRUCT &original : elems) {
    LI_TAB_STRUCT e = original;
    LiElemUmdreh(&e);
    EXPECT_FALSE(SameBits(e, original));
    LiElemUmdreh(&e);
    EXPECT_TRUE(SameBits(e, original)) << "type " << original.type;
  }
  LiElemUmdreh(nullptr);
}

TEST(Reverse, LineBecomesTheExpandedReversedLine) {
  LI_TAB_STRUCT e = Line({1, 1}, {4, 5});
  LiElemUmdreh(&e);
  const LI_TAB_STRUCT r = Line({4, 5}, {1, 1});
  EXPECT_EQ(e.ap, r.ap);
  EXPECT_EQ(e.ep, r.ep);
  EXPECT_EQ(e.mp, r.mp);
  EXPECT_EQ(e.tan_ap, r.tan_ap);
  EXPECT_DOUBLE_EQ(e.rad, r.rad);
  EXPECT_DOUBLE_EQ(e.ang_ap, r.ang_ap);
  EXPECT_DOUBLE_EQ(e.ang_ep, r.ang_ep);
  EXPECT_DOUBLE_EQ(LiElemLen(&e), 5);
}

TEST(Reverse, ArcSwapsSenseEndsAndAngles) {
  const LI_TAB_STRUCT cw = Arc({0, 1}, {1, 0}, {0, 0}, LI_ARC_CW);
  LI_TAB_STRUCT e = cw;
  LiElemUmdreh(&e);
  EXPECT_EQ(e.type, LI_ARC_CCW);
  EXPECT_EQ(e.ap, cw.ep);
  EXPECT_EQ(e.ep, cw.ap);
  EXPECT_EQ(e.ang_ap, cw.ang_ep);
  EXPECT_EQ(e.ang_ep, cw.ang_ap);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, 1}));
  EXPECT_EQ(e.tan_ep, (GE_POINT{-1, 0}));
  EXPECT_EQ(e.mp, cw.mp);
  EXPECT_EQ(e.rad, cw.rad);
}

TEST(Length, LinesArcsAndFullCircles) {
  EXPECT_EQ(LiElemLen(nullptr), 0);
  const LI_TAB_STRUCT line = Line({1, 1}, {4, 5});
  EXPECT_DOUBLE_EQ(LiElemLen(&line), 5);
  const LI_TAB_STRUCT ccw = Arc(OnUnitCircle(3, 2), OnUnitCircle(-3, 2), {0, 0}, LI_ARC_CCW);
  EXPECT_NEAR(LiElemLen(&ccw), (2 * kPi - 6) * 2, 1e-12) << "across the seam";
  const LI_TAB_STRUCT cw = Arc(OnUnitCircle(3, 2), OnUnitCircle(-3, 2), {0, 0}, LI_ARC_CW);
  EXPECT_NEAR(LiElemLen(&cw), 6 * 2, 1e-12);
  const LI_TAB_STRUCT quarter = Arc({0, 3}, {3, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_DOUBLE_EQ(LiElemLen(&quarter), 1.5 * kPi);
  for (uint16_t type : {LI_ARC_CW, LI_ARC_CCW}) {
    const LI_TAB_STRUCT circle = Arc({3, 1}, {3, 1}, {1, 1}, type);
    EXPECT_DOUBLE_EQ(LiElemLen(&circle), 4 * kPi);
  }
}

TEST(Length, ContourSumsItsElements) {
  Store store;
  EXPECT_EQ(LiKontLen(nullptr), 0);
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  EXPECT_EQ(LiKontLen(square), 4);
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{0, 0}, b{2, 0}, c{1, 0};
  LiMove(store.get(), &k, &a);
  LiArc(store.get(), &k, &b, &c, 1);
  LiDraw(store.get(), &k, &a);
  EXPECT_DOUBLE_EQ(LiKontLen(k), kPi + 2) << "half circle of radius 1 and its diameter";
}

// Where LiElemPt puts the point at u, measured along the element.
double TravelledTo(const LI_TAB_STRUCT &e, GE_POINT p) {
  if (e.type == LI_LINE) return std::hypot(p.x - e.ap.x, p.y - e.ap.y);
  double swept = std::atan2(p.y - e.mp.y, p.x - e.mp.x) - e.ang_ap;
  if (e.type == LI_ARC_CW) swept = -swept;
  if (swept < -1e-12) swept += 2 * kPi;
  return swept * e.rad;
}

TEST(PointAt, LiesOnTheElementAtTheRightDistance) {
  const LI_TAB_STRUCT elems[] = {
      Line({1, 1}, {4, 5}),
      // Both senses through the seam at +-pi.
      Arc(OnUnitCircle(0.75 * kPi, 2), OnUnitCircle(-0.75 * kPi, 2), {0, 0}, LI_ARC_CCW),
      Arc(OnUnitCircle(-0.75 * kPi, 2), OnUnitCircle(0.75 * kPi, 2), {0, 0}, LI_ARC_CW),
      // And the long way round, away from it.
      Arc(OnUnitCircle(-0.75 * kPi, 2), OnUnitCircle(0.75 * kPi, 2), {0, 0}, LI_ARC_CCW),
  };
  for (const LI_TAB_STRUCT &e : elems) {
    const double len = LiElemLen(&e);
    for (double u : {0.0, 0.1, 0.25, 0.5, 0.9, 1.0}) {
      const GE_POINT p = LiElemPt(&e, u);
      EXPECT_EQ(LiPtOnElem(&e, &p), 1) << "type " << e.type << ", u " << u;
      EXPECT_NEAR(TravelledTo(e, p), u * len, 1e-12) << "type " << e.type << ", u " << u;
    }
    EXPECT_EQ(LiElemPt(&e, -0.1), e.ap);
    EXPECT_EQ(LiElemPt(&e, 1.5), e.ep);
  }
}

TEST(PointAt, HalfCircleMiddleAndFullCircle) {
  const LI_TAB_STRUCT ccw = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);
  const GE_POINT top = LiElemPt(&ccw, 0.5);
  EXPECT_NEAR(top.x, 0, 1e-15);
  EXPECT_DOUBLE_EQ(top.y, 1);
  const LI_TAB_STRUCT cw = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_DOUBLE_EQ(LiElemPt(&cw, 0.5).y, -1);
  const LI_TAB_STRUCT circle = Arc({2, 0}, {2, 0}, {0, 0}, LI_ARC_CCW);
  EXPECT_EQ(LiElemPt(&circle, 0.5), circle.ap) << "a full circle has sweep 0";
  EXPECT_EQ(LiElemPt(nullptr, 0.5), (GE_POINT{0, 0}));
}

}  // namespace
}  // namespace polyarc_test

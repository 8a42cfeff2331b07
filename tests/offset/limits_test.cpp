// Limits along a direction, the point of a given direction of travel, and
// the outline of a chain turned about a centre.
#include <cmath>
#include <numbers>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;

// The counter-clockwise unit square from the origin, numbered 1 to 4 from
// the bottom side.
LI_TAB_STRUCT *UnitSquare(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polygon(head, {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  uint16_t no = 0;
  LiNumKont(k, &no);
  return k;
}

LI_TAB_STRUCT *Circle(LI_HEAD *head, GE_POINT centre, double r, uint16_t dir) {
  LI_TAB_STRUCT c{};
  EXPECT_EQ(LiCreateCircle(&centre, r, dir, &c), PA_OK);
  c.no = 9;
  return Chain(head, {c});
}

TEST(KontLim, ExtremesAlongADirection) {
  Store store;
  LI_TAB_STRUCT *square = UnitSquare(store.get());
  GE_POINT lo{}, hi{};
  uint16_t lo_no = 0, hi_no = 0;
  // Along +x the first end points with the smallest and largest x.
  const GE_POINT x{1, 0};
  ASSERT_EQ(FlKontLim(square, &x, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_TRUE(lo == (GE_POINT{0, 1}) && lo_no == 3 && hi == (GE_POINT{1, 0}) && hi_no == 1);
  // A full circle: centre -+ r d, whatever the direction.
  LI_TAB_STRUCT *circle = Circle(store.get(), {2, 1}, 2, 1);
  const GE_POINT d{0.6, -0.8};
  ASSERT_EQ(FlKontLim(circle, &d, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_NEAR(lo.x, 2 - 1.2, 1e-12);
  EXPECT_NEAR(lo.y, 1 + 1.6, 1e-12);
  EXPECT_NEAR(hi.x, 2 + 1.2, 1e-12);
  EXPECT_NEAR(hi.y, 1 - 1.6, 1e-12);
  EXPECT_TRUE(lo_no == 9 && hi_no == 9);
  // An arc's extreme counts only inside its range: the quarter from (1, 0)
  // to (0, 1) reaches y = 1 at its end, and along (-1, -1) its ends tie.
  LI_TAB_STRUCT *quarter = Chain(store.get(), {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)});
  const GE_POINT diag{std::numbers::sqrt2 / 2, std::numbers::sqrt2 / 2}, back{-diag.x, -diag.y};
  ASSERT_EQ(FlKontLim(quarter, &diag, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_NEAR(hi.x, diag.x, 1e-12);
  EXPECT_EQ(lo, (GE_POINT{0, 1})) << "only the end point; the start is never examined";
  ASSERT_EQ(FlKontLim(quarter, &back, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_NEAR(lo.x, diag.x, 1e-12);
  // Nothing: all zero.
  lo = hi = {5, 5};
  EXPECT_EQ(FlKontLim(nullptr, &x, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_TRUE(lo == (GE_POINT{0, 0}) && hi == (GE_POINT{0, 0}) && lo_no == 0 && hi_no == 0);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, circle, quarter}));
}

TEST(RotStart, PointOfAGivenDirectionOfTravel) {
  Store store;
  // A counter-clockwise circle runs along theta = 0 at its bottom.
  LI_TAB_STRUCT *ccw = Circle(store.get(), {0, 0}, 2, 1);
  uint16_t no = 0;
  GE_POINT pt{};
  ASSERT_EQ(FlRotStart(ccw, 0, 0, &no, &pt), PA_OK);
  EXPECT_EQ(no, 9);
  EXPECT_NEAR(pt.x, 0, 1e-12);
  EXPECT_NEAR(pt.y, -2, 1e-12);
  // A clockwise one, read clockwise, at its top; 2 pi is the same angle.
  LI_TAB_STRUCT *cw = Circle(store.get(), {0, 0}, 2, 2);
  ASSERT_EQ(FlRotStart(cw, 2 * kPi, 1, &no, &pt), PA_OK);
  EXPECT_NEAR(pt.y, 2, 1e-12);
  // The square: a direction between two sides gives the corner that turns
  // through it. A side's own direction gives its start, but the corner
  // after the side turns from that direction too, and the last match wins.
  LI_TAB_STRUCT *square = UnitSquare(store.get());
  struct Case {
    double angle;
    uint16_t no;
    GE_POINT pt;
  } const cases[] = {{kPi / 4, 2, {1, 0}},
                     {-kPi / 4, 1, {0, 0}},
                     {3 * kPi / 4, 3, {1, 1}},
                     {0, 2, {1, 0}},
                     {kPi / 2, 3, {1, 1}}};
  for (const Case &c : cases) {
    ASSERT_EQ(FlRotStart(square, c.angle, 0, &no, &pt), PA_OK) << c.angle;
    EXPECT_TRUE(no == c.no && pt == c.pt) << c.angle << ": " << no << " " << pt;
  }
  // A line runs in one direction only; element numbers 0 cannot be
  // reported.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {1, 0}});
  line->no = 1;
  EXPECT_EQ(FlRotStart(line, 0, 0, &no, &pt), PA_OK);
  EXPECT_EQ(FlRotStart(line, kPi / 4, 0, &no, &pt), PA_IMPOSSIBLE);
  for (LI_TAB_STRUCT *e : Elements(square)) e->no = 0;
  EXPECT_EQ(FlRotStart(square, 0, 0, &no, &pt), PA_IMPOSSIBLE);
  EXPECT_EQ(FlRotStart(nullptr, 0, 0, &no, &pt), PA_IMPOSSIBLE);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {ccw, cw, square, line}));
}

TEST(RotLim, OutlineOfATurnedChain) {
  Store store;
  LI_TAB_STRUCT *square = UnitSquare(store.get());
  // Turned counter-clockwise about (0, 1) from ref (0, 0) through half a
  // turn: the bottom side, a quarter about (1, 1), the right side moved
  // out by 1, a quarter about (1, 2) up to the limit direction (0, 1).
  const GE_POINT centre{0, 1}, ref{0, 0};
  LI_TAB_STRUCT *out = nullptr;
  uint16_t last = 0;
  ASSERT_EQ(FlRotLim(store.get(), square, &centre, &ref, kPi, 0, 0, &out, &last), PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(out);
  ASSERT_EQ(e.size(), 4u);
  EXPECT_TRUE(e[0]->type == LI_LINE && e[0]->ap == (GE_POINT{0, 0}) &&
              e[0]->ep == (GE_POINT{1, 0}));
  EXPECT_TRUE(e[1]->type == LI_ARC_CCW && e[1]->mp == (GE_POINT{1, 1}) && e[1]->rad == 1);
  EXPECT_EQ(Vertices(out),
            (Points{{0, 0}, {1, 0}, {1, 0}, {2, 1}, {2, 1}, {2, 2}, {2, 2}, {1, 3}}));
  EXPECT_TRUE(e[3]->mp == (GE_POINT{1, 2}) && last == 3);
  // A line's normal never turns: after one pass without a turn the walk
  // gives up instead of running for ever.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {1, 0}});
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(FlRotLim(store.get(), line, &centre, &ref, kPi, 0, 0, &none, &last), PA_IMPOSSIBLE);
  const GE_POINT side{1, 1};
  EXPECT_EQ(FlRotLim(store.get(), line, &centre, &side, 1.9 * kPi, 0, 0, &none, &last),
            PA_IMPOSSIBLE)
      << "three quarters of a turn to the line's normal, then none";
  EXPECT_EQ(none, nullptr);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, out, line}));
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY, [](LI_HEAD *head) { return Live{UnitSquare(head)}; },
      [&](LI_HEAD *head, Live &live) {
        LI_TAB_STRUCT *r = nullptr;
        const uint16_t status = FlRotLim(head, live[0], &centre, &ref, kPi, 0, 0, &r, &last);
        live.push_back(r);
        return status;
      });
}

}  // namespace
}  // namespace polyarc_test

// Limits along a direction, the point of a given direction of travel, and
// the outline of a chain turned about a centre.
#include <cmath>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

// The counter-clockwise unit square from the origin, numbered from its bottom side.
LI_TAB_STRUCT *UnitSquare(LI_HEAD *head) {
  return Numbered(Polygon(head, {{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
}

// A counter-clockwise circle of radius 2 about (2, 1), numbered 9.
LI_TAB_STRUCT *Circle(LI_HEAD *head) {
  LI_TAB_STRUCT *k = FullCircle(head, {2, 1}, 2, 1);
  k->no = 9;
  return k;
}

TEST(KontLim, ExtremesAlongADirection) {
  Store store;
  LI_TAB_STRUCT *square = UnitSquare(store.get()), *circle = Circle(store.get());
  GE_POINT lo{}, hi{};
  uint16_t lo_no = 0, hi_no = 0;
  // Along +x the first end points with the smallest and the largest x.
  const GE_POINT x{1, 0}, d{0.6, -0.8};
  ASSERT_EQ(FlKontLim(square, &x, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_TRUE(lo == (GE_POINT{0, 1}) && lo_no == 3 && hi == (GE_POINT{1, 0}) && hi_no == 1);
  // A full circle: centre -+ r d.
  ASSERT_EQ(FlKontLim(circle, &d, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_TRUE(std::fabs(lo.x - 0.8) + std::fabs(lo.y - 2.6) < 1e-12 && lo_no == 9);
  EXPECT_TRUE(std::fabs(hi.x - 3.2) + std::fabs(hi.y + 0.6) < 1e-12 && hi_no == 9);
  // An arc's extreme counts only inside its range, an open start never: along (-1, -1) the
  // quarter from (1, 0) to (0, 1) has its minimum half way and its maximum at its end.
  LI_TAB_STRUCT *quarter = Chain(store.get(), {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)});
  const GE_POINT back{-std::numbers::sqrt2 / 2, -std::numbers::sqrt2 / 2};
  ASSERT_EQ(FlKontLim(quarter, &back, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_TRUE(hi == (GE_POINT{0, 1}) && std::fabs(lo.x - lo.y) < 1e-15 && lo.x > 0.7);
  EXPECT_EQ(FlKontLim(nullptr, &x, &lo, &hi, &lo_no, &hi_no), PA_OK);
  EXPECT_TRUE(lo == (GE_POINT{0, 0}) && hi_no == 0);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, circle, quarter}));
}

TEST(RotStart, PointOfAGivenDirectionOfTravel) {
  Store store;
  LI_TAB_STRUCT *circle = Circle(store.get()), *square = UnitSquare(store.get());
  uint16_t no = 0;
  GE_POINT pt{};
  // A counter-clockwise circle runs along theta = 0 at its bottom.
  ASSERT_EQ(FlRotStart(circle, 0, 0, &no, &pt), PA_OK);
  EXPECT_TRUE(no == 9 && std::fabs(pt.x - 2) + std::fabs(pt.y + 1) < 1e-12);
  // The square: a corner turning through the direction; a side's own direction matches its
  // start and the corner after it, and the last match along the chain wins.
  const struct {
    double angle;
    uint16_t no;
    GE_POINT pt;
  } cases[] = {{kPi / 4, 2, {1, 0}}, {-kPi / 4, 1, {0, 0}}, {0, 2, {1, 0}}, {kPi / 2, 3, {1, 1}}};
  for (const auto &c : cases) {
    ASSERT_EQ(FlRotStart(square, c.angle, 0, &no, &pt), PA_OK) << c.angle;
    EXPECT_TRUE(no == c.no && pt == c.pt) << c.angle << ": " << no << " " << pt;
  }
  // Element numbers 0 cannot be reported.
  for (LI_TAB_STRUCT *e : Elements(square)) e->no = 0;
  EXPECT_EQ(FlRotStart(square, 0, 0, &no, &pt), PA_IMPOSSIBLE);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {circle, square}));
}

TEST(RotLim, OutlineOfATurnedChainAndTheGuard) {
  Store store;
  LI_TAB_STRUCT *square = UnitSquare(store.get());
  // Turned half a turn about (0, 1) from ref (0, 0): the bottom side, a quarter about (1, 1),
  // the right side moved out by 1, a quarter about (1, 2) up to the limit direction (0, 1).
  const GE_POINT centre{0, 1}, ref{0, 0}, side{1, 1};
  LI_TAB_STRUCT *out = nullptr;
  uint16_t last = 0;
  ASSERT_EQ(FlRotLim(store.get(), square, &centre, &ref, kPi, 0, 0, &out, &last), PA_OK);
  EXPECT_EQ(Vertices(out),
            (Points{{0, 0}, {1, 0}, {1, 0}, {2, 1}, {2, 1}, {2, 2}, {2, 2}, {1, 3}}));
  EXPECT_TRUE(out->next->type == LI_ARC_CCW && out->next->mp == (GE_POINT{1, 1}) && last == 3);
  // A line's normal turns once at most: after a pass without a turn the walk gives up.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {1, 0}}), *none = nullptr;
  EXPECT_EQ(FlRotLim(store.get(), line, &centre, &ref, kPi, 0, 0, &none, &last), PA_IMPOSSIBLE);
  EXPECT_EQ(FlRotLim(store.get(), line, &centre, &side, 1.9 * kPi, 0, 0, &none, &last),
            PA_IMPOSSIBLE);
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

// The parallel offset and its connector: corner modes, sides, copies,
// areas known by hand, distances checked sample by sample.
#include <cmath>
#include <numbers>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr uint16_t kLeft = 1, kRight = 65535;

// The counter-clockwise square of side 2 about the origin, its elements
// numbered 1 to 4 from the bottom side.
LI_TAB_STRUCT *Square(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polygon(head, {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
  uint16_t no = 0;
  EXPECT_EQ(LiNumKont(k, &no), PA_OK);
  return k;
}

LI_TAB_STRUCT *Circle(LI_HEAD *head, double r, uint16_t dir) {
  const GE_POINT centre{0, 0};
  LI_TAB_STRUCT c{};
  EXPECT_EQ(LiCreateCircle(&centre, r, dir, &c), PA_OK);
  return Chain(head, {c});
}

struct Result {
  uint16_t status;
  LI_TAB_STRUCT *k;
};

Result Offset(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d, uint16_t mode,
              uint16_t *counter, uint32_t closed = 1) {
  Result r{};
  r.status = FlParallel(head, k, side, d, &r.k, closed, mode, counter, 0);
  return r;
}

TEST(Parallel, SquareOutwardsSharpRoundOrOpen) {
  Store store;
  LI_TAB_STRUCT *square = Square(store.get());
  const Points before = Vertices(square);
  uint16_t counter = 100;
  // Sharp: a square of side 3, each side keeping its number.
  const Result sharp = Offset(store.get(), square, kRight, 0.5, FL_CORNER_SHARP, &counter);
  ASSERT_EQ(sharp.status, PA_OK);
  EXPECT_EQ(Vertices(sharp.k), (Points{{-1.5, -1.5},
                                       {1.5, -1.5},
                                       {1.5, -1.5},
                                       {1.5, 1.5},
                                       {1.5, 1.5},
                                       {-1.5, 1.5},
                                       {-1.5, 1.5},
                                       {-1.5, -1.5}}));
  std::vector<uint16_t> numbers;
  for (LI_TAB_STRUCT *e : Elements(sharp.k)) numbers.push_back(e->no);
  EXPECT_EQ(numbers, (std::vector<uint16_t>{1, 2, 3, 4}));
  EXPECT_EQ(counter, 100);
  // Round: four quarter arcs of radius d about the corners, numbered by
  // the counter in order, between the four sides.
  const Result round = Offset(store.get(), square, kRight, 0.5, FL_CORNER_ROUND, &counter);
  ASSERT_EQ(round.status, PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(round.k);
  ASSERT_EQ(e.size(), 8u);
  const GE_POINT corners[] = {{1, -1}, {1, 1}, {-1, 1}, {-1, -1}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(e[2 * i]->type == LI_LINE && e[2 * i]->no == i + 1);
    const LI_TAB_STRUCT &arc = *e[2 * i + 1];
    EXPECT_TRUE(arc.type == LI_ARC_CCW && arc.rad == 0.5 && arc.mp == corners[i]);
    EXPECT_EQ(arc.no, 101 + i);
    EXPECT_NEAR(LiElemLen(&arc), kPi / 4, 1e-12);
  }
  EXPECT_EQ(counter, 104);
  EXPECT_NEAR(LiKontArea(round.k), 4 + 8 * 0.5 + kPi * 0.25, 1e-9);
  EXPECT_LT(OffsetDeviation(round.k, square, 0.5), 1e-12);
  // Gap: the four sides apart, and no repair.
  const Result gap = Offset(store.get(), square, kRight, 0.5, FL_CORNER_GAP, &counter);
  ASSERT_EQ(gap.status, PA_OK);
  EXPECT_EQ(
      Vertices(gap.k),
      (Points{
          {-1, -1.5}, {1, -1.5}, {1.5, -1}, {1.5, 1}, {1, 1.5}, {-1, 1.5}, {-1.5, 1}, {-1.5, -1}}));
  // Any other mode: moves where the sides do not meet.
  const Result other = Offset(store.get(), square, kRight, 0.5, 1, &counter);
  ASSERT_EQ(other.status, PA_OK);
  EXPECT_EQ(CountTypes(other.k).moves, 4);
  EXPECT_EQ(Vertices(square), before) << "the source is unchanged";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, sharp.k, round.k, gap.k, other.k}));
}

TEST(Parallel, InwardsAndTheOtherSide) {
  Store store;
  LI_TAB_STRUCT *square = Square(store.get());
  uint16_t counter = 0;
  // Sharp inward offset of a square of side s: a square of side s - 2d,
  // with every mode (inner corners are trimmed in all of them).
  for (const uint16_t mode : {FL_CORNER_SHARP, FL_CORNER_ROUND, FL_CORNER_GAP}) {
    Result in = Offset(store.get(), square, kLeft, 0.25, mode, &counter);
    ASSERT_EQ(in.status, PA_OK);
    EXPECT_EQ(Vertices(in.k), (Points{{-0.75, -0.75},
                                      {0.75, -0.75},
                                      {0.75, -0.75},
                                      {0.75, 0.75},
                                      {0.75, 0.75},
                                      {-0.75, 0.75},
                                      {-0.75, 0.75},
                                      {-0.75, -0.75}}));
    LiRemove(store.get(), &in.k);
  }
  // A negative distance offsets to the other side, round corners outside.
  const Result neg = Offset(store.get(), square, kLeft, -0.5, FL_CORNER_ROUND, &counter);
  ASSERT_EQ(neg.status, PA_OK);
  EXPECT_NEAR(LiKontArea(neg.k), 4 + 8 * 0.5 + kPi * 0.25, 1e-9);
  // Per element: every side by its own attr_val, a 6 x 4 rectangle.
  const double own[] = {1, 2, 1, 2};
  int i = 0;
  for (LI_TAB_STRUCT *e : Elements(square)) e->attr_val = own[i++];
  LI_TAB_STRUCT *rect = nullptr;
  ASSERT_EQ(FlParallel(store.get(), square, kRight, 1, &rect, 1, FL_CORNER_SHARP, &counter, 1),
            PA_OK);
  EXPECT_EQ(Vertices(rect),
            (Points{{-3, -2}, {3, -2}, {3, -2}, {3, 2}, {3, 2}, {-3, 2}, {-3, 2}, {-3, -2}}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, neg.k, rect}));
}

TEST(Parallel, CopiesLinesCirclesAndBadInput) {
  Store store;
  LI_TAB_STRUCT *square = Square(store.get());
  uint16_t counter = 0;
  // Distance below tol or side 0: a copy of the source.
  for (const auto &[side, d] : {std::pair<uint16_t, double>{kRight, 1e-5}, {0, 1.0}}) {
    Result copy = Offset(store.get(), square, side, d, FL_CORNER_ROUND, &counter);
    ASSERT_EQ(copy.status, PA_OK);
    EXPECT_TRUE(copy.k != square && Vertices(copy.k) == Vertices(square));
    LiRemove(store.get(), &copy.k);
  }
  // A single line: a single parallel line, open.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {4, 0}});
  const Result left = Offset(store.get(), line, kLeft, 1, FL_CORNER_ROUND, &counter, 0);
  ASSERT_EQ(left.status, PA_OK);
  EXPECT_EQ(Vertices(left.k), (Points{{0, 1}, {4, 1}}));
  // Circles of radius 2 offset by 0.5 either way, in both senses.
  for (const uint16_t dir : {1, 2}) {
    LI_TAB_STRUCT *circle = Circle(store.get(), 2, dir);
    const uint16_t outward = dir == 1 ? kRight : kLeft;
    for (const double d : {0.5, -0.5}) {
      Result r = Offset(store.get(), circle, outward, d, FL_CORNER_ROUND, &counter);
      ASSERT_EQ(r.status, PA_OK);
      EXPECT_TRUE(LiCountElem(r.k) == 1 && r.k->rad == 2 + d && r.k->type == circle->type);
      EXPECT_LT(OffsetDeviation(r.k, circle, std::fabs(d)), 1e-12);
      LiRemove(store.get(), &r.k);
    }
    LiRemove(store.get(), &circle);
  }
  LI_TAB_STRUCT *out = square;
  EXPECT_EQ(FlParallel(store.get(), nullptr, kLeft, 1, &out, 1, 0, &counter, 0), PA_INVALID);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(FlParallel(store.get(), square, kLeft, 1, &out, 1, 0, nullptr, 0), PA_INVALID);
  EXPECT_EQ(FlParallel(nullptr, square, kLeft, 1, &out, 1, 0, &counter, 0), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, line, left.k}));
}

// A convex polygon of area A and perimeter P offset outwards by d with
// round corners has area A + P d + pi d^2, and lies at d from it.
TEST(Parallel, RoundOffsetOfConvexShapesByArea) {
  Store store;
  uint16_t counter = 0;
  LI_TAB_STRUCT *triangle = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 3}});  // 3-4-5, ccw
  const Result r = Offset(store.get(), triangle, kRight, 0.5, FL_CORNER_ROUND, &counter);
  ASSERT_EQ(r.status, PA_OK);
  EXPECT_NEAR(LiKontArea(r.k), 6 + 12 * 0.5 + kPi * 0.25, 1e-9);
  EXPECT_LT(OffsetDeviation(r.k, triangle, 0.5), 1e-12);
  // The clockwise rounded rectangle of the library (4 x 2, corner radius
  // 0.5) offset to its left, which is outwards: the arcs grow by d and the
  // corners stay tangent, so no connectors are made.
  LI_TAB_STRUCT *rounded = nullptr;
  counter = 0;
  ASSERT_EQ(LiCreateRound(store.get(), &rounded, 2, 1, 0.5), PA_OK);
  const Result g = Offset(store.get(), rounded, kLeft, 1, FL_CORNER_ROUND, &counter);
  ASSERT_EQ(g.status, PA_OK);
  const double a = -LiKontArea(rounded), p = LiKontLen(rounded);
  EXPECT_NEAR(-LiKontArea(g.k), a + p * 1 + kPi, 1e-9);
  EXPECT_TRUE(LiCountElem(g.k) == 8 && counter == 0);
  EXPECT_LT(OffsetDeviation(g.k, rounded, 1), 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {triangle, r.k, rounded, g.k}));
}

// An open path: a line, a quarter arc turning left about (2, 1), a line.
LI_TAB_STRUCT *Hook(LI_HEAD *head) {
  return Chain(
      head, {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, 1}, {2, 1}, LI_ARC_CCW), Line({3, 1}, {3, 3})});
}

TEST(Parallel, OpenPathOfLinesAndArcsToBothSides) {
  Store store;
  LI_TAB_STRUCT *hook = Hook(store.get());
  uint16_t counter = 0;
  struct Case {
    uint16_t side;
    double radius;
    GE_POINT start, end;
  } const cases[] = {{kLeft, 0.5, {0, 0.5}, {2.5, 3}}, {kRight, 1.5, {0, -0.5}, {3.5, 3}}};
  for (const Case &c : cases) {
    Result r = Offset(store.get(), hook, c.side, 0.5, FL_CORNER_ROUND, &counter, 0);
    ASSERT_EQ(r.status, PA_OK);
    const std::vector<LI_TAB_STRUCT *> e = Elements(r.k);
    ASSERT_EQ(e.size(), 3u) << "tangent joints need no connector";
    EXPECT_TRUE(e[0]->ap == c.start && e[2]->ep == c.end);
    EXPECT_EQ(e[1]->rad, c.radius);
    EXPECT_LT(OffsetDeviation(r.k, hook, 0.5), 1e-12);
    LiRemove(store.get(), &r.k);
  }
  // A sharp turn back (a spike) gets a half circle round its tip.
  LI_TAB_STRUCT *spike = Polyline(store.get(), {{0, 0}, {2, 0}, {0, 0}});
  const Result s = Offset(store.get(), spike, kLeft, 0.5, FL_CORNER_SHARP, &counter, 0);
  ASSERT_EQ(s.status, PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(s.k);
  ASSERT_EQ(e.size(), 3u);
  EXPECT_TRUE(e[1]->type == LI_ARC_CW && e[1]->mp == (GE_POINT{2, 0}));
  EXPECT_NEAR(LiElemLen(e[1]), kPi * 0.5, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {hook, spike, s.k}));
}

// A line, then a quarter arc turning right about (3, 0): offset to the
// left by 0.6 the two never cross (the arc's offset circle, radius 0.4,
// stays below the line's offset), and the mode decides the corner.
TEST(Parallel, NeighboursThatDoNotCross) {
  Store store;
  LI_TAB_STRUCT *path =
      Chain(store.get(), {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, -1}, {3, 0}, LI_ARC_CCW)});
  uint16_t counter = 0;
  struct Case {
    uint16_t mode;
    int lines, moves, arcs;
  } const cases[] = {{FL_CORNER_SHARP, 1, 0, 2},
                     {FL_CORNER_ROUND, 1, 0, 2},
                     {FL_CORNER_GAP, 1, 0, 1},
                     {1, 1, 1, 1}};
  for (const Case &c : cases) {
    Result r = Offset(store.get(), path, kLeft, 0.6, c.mode, &counter, 0);
    ASSERT_EQ(r.status, PA_OK);
    const TypeCount n = CountTypes(r.k);
    EXPECT_TRUE(n.lines == c.lines && n.moves == c.moves && n.arcs == c.arcs) << "mode " << c.mode;
    if (n.arcs == 2) {
      EXPECT_LT(OffsetDeviation(r.k, path, 0.6), 1e-12);
    }
    LiRemove(store.get(), &r.k);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {path}));
}

// A circle drawn as an arc of almost a full turn and a line of 2.5e-4:
// the repair judges by chords, yet the offset keeps the whole circle.
TEST(Parallel, KeepsAnArcOfAlmostAFullTurn) {
  Store store;
  const double gap = 2.5e-4;
  const GE_POINT a{std::cos(gap), std::sin(gap)}, b{1, 0};
  LI_TAB_STRUCT *k = Chain(store.get(), {Arc(a, b, {0, 0}, LI_ARC_CCW), Line(b, a)});
  uint16_t counter = 0;
  const Result r = Offset(store.get(), k, kRight, 0.5, FL_CORNER_ROUND, &counter);
  ASSERT_EQ(r.status, PA_OK);
  EXPECT_NEAR(LiKontArea(r.k), kPi * 1.5 * 1.5, 1e-3);
  EXPECT_LT(OffsetDeviation(r.k, k, 0.5), 1e-3);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, r.k}));
}

TEST(Parallel, AllocationFailureReleasesThePartialResult) {
  for (const uint16_t mode : {FL_CORNER_SHARP, FL_CORNER_ROUND}) {
    ExpectCleanAllocationFailures(
        PA_NO_MEMORY, [](LI_HEAD *head) { return Live{Square(head)}; },
        [mode](LI_HEAD *head, Live &live) {
          uint16_t counter = 0;
          LI_TAB_STRUCT *out = nullptr;
          const uint16_t status =
              FlParallel(head, live[0], kRight, 0.5, &out, 1, mode, &counter, 0);
          EXPECT_EQ(out == nullptr, status != PA_OK);
          live.push_back(out);
          return status;
        });
  }
}

TEST(ConElemMoveOrDraw, AppendsTheElementAndANumberedConnector) {
  Store store;
  const LI_TAB_STRUCT e1 = Line({0, 0}, {1, 0}), e2 = Line({1, 1}, {2, 1}),
                      e3 = Line({1, 0}, {2, 0});
  LI_TAB_STRUCT *out = nullptr;
  uint16_t counter = 7;
  ASSERT_EQ(FlConElemMoveOrDraw(store.get(), &e1, &e2, &out, &counter, 1), PA_OK);
  ASSERT_EQ(FlConElemMoveOrDraw(store.get(), &e1, &e2, &out, &counter, 0), PA_OK);
  ASSERT_EQ(FlConElemMoveOrDraw(store.get(), &e1, &e3, &out, &counter, 0), PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(out);
  ASSERT_EQ(e.size(), 5u);
  EXPECT_TRUE(e[1]->type == LI_LINE && e[1]->no == 8 && e[1]->ep == e2.ap);
  EXPECT_TRUE(e[3]->type == LI_MOVE && e[3]->no == 9 && e[3]->attr_id == 0);
  EXPECT_EQ(counter, 9);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {out}));
}

}  // namespace
}  // namespace polyarc_test

// The parallel offset: corner modes, sides, copies, areas known by hand,
// distances checked sample by sample, the connector.
#include <cmath>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

// The counter-clockwise square of side 2 about the origin, numbered from its bottom side.
LI_TAB_STRUCT *Square(LI_HEAD *head) {
  return Numbered(Polygon(head, {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}));
}

LI_TAB_STRUCT *Offset(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d, uint16_t mode,
                      uint32_t closed = 1, uint16_t per_elem = 0) {
  uint16_t counter = 100;
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(FlParallel(head, k, side, d, &out, closed, mode, &counter, per_elem), PA_OK);
  return out;
}

Points SquareOfSide(double s) {
  const double h = s / 2;
  return {{-h, -h}, {h, -h}, {h, -h}, {h, h}, {h, h}, {-h, h}, {-h, h}, {-h, -h}};
}

TEST(Parallel, SquareInEveryCornerMode) {
  Store store;
  LI_TAB_STRUCT *sq = Square(store.get());
  // Outwards sharp: a square of side 3 whose sides keep their numbers.
  LI_TAB_STRUCT *sharp = Offset(store.get(), sq, kRight, 0.5, FL_CORNER_SHARP);
  EXPECT_EQ(Vertices(sharp), SquareOfSide(3));
  EXPECT_TRUE(sharp->no == 1 && sharp->prev->no == 4);
  // Round: quarter arcs of radius d about the corners, numbered 101..104 by the counter.
  LI_TAB_STRUCT *round = Offset(store.get(), sq, kRight, 0.5, FL_CORNER_ROUND);
  const std::vector<LI_TAB_STRUCT *> e = Elements(round);
  ASSERT_EQ(e.size(), 8u);
  const GE_POINT corners[] = {{1, -1}, {1, 1}, {-1, 1}, {-1, -1}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(e[2 * i]->type == LI_LINE && e[2 * i]->no == i + 1);
    EXPECT_TRUE(e[2 * i + 1]->type == LI_ARC_CCW && e[2 * i + 1]->mp == corners[i]);
    EXPECT_TRUE(e[2 * i + 1]->rad == 0.5 && e[2 * i + 1]->no == 101 + i);
  }
  EXPECT_NEAR(LiKontArea(round), 4 + 8 * 0.5 + kPi * 0.25, 1e-9);
  EXPECT_LT(OffsetDeviation(round, sq, 0.5), 1e-12);
  // Gap: the sides apart; another mode: moves between them.
  LI_TAB_STRUCT *gap = Offset(store.get(), sq, kRight, 0.5, FL_CORNER_GAP);
  EXPECT_TRUE(Count(gap, LI_LINE) == 4 && Vertices(gap)[1] == (GE_POINT{1, -1.5}));
  LI_TAB_STRUCT *moves = Offset(store.get(), sq, kRight, 0.5, 1);
  EXPECT_EQ(Count(moves, LI_MOVE), 4);
  // Inwards: side s - 2d; a negative distance goes the other way; per element each side by
  // its own attr_val.
  LI_TAB_STRUCT *in = Offset(store.get(), sq, kLeft, 0.25, FL_CORNER_ROUND);
  EXPECT_EQ(Vertices(in), SquareOfSide(1.5));
  LI_TAB_STRUCT *neg = Offset(store.get(), sq, kLeft, -0.5, FL_CORNER_SHARP);
  EXPECT_EQ(Vertices(neg), SquareOfSide(3));
  int i = 0;
  for (LI_TAB_STRUCT *s : Elements(sq)) s->attr_val = ++i % 2 ? 1 : 2;
  LI_TAB_STRUCT *rect = Offset(store.get(), sq, kRight, 1, FL_CORNER_SHARP, 1, 1);
  EXPECT_TRUE(Vertices(rect)[0] == (GE_POINT{-3, -2}) && Vertices(rect)[3] == (GE_POINT{3, 2}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {sq, sharp, round, gap, moves, in, neg, rect}));
}

TEST(Parallel, CopiesLinesCirclesAndOpenPaths) {
  Store store;
  LI_TAB_STRUCT *sq = Square(store.get());
  // Distance below tol, or side 0: a copy.
  LI_TAB_STRUCT *c1 = Offset(store.get(), sq, kRight, 1e-5, FL_CORNER_ROUND);
  LI_TAB_STRUCT *c2 = Offset(store.get(), sq, 0, 1, FL_CORNER_ROUND);
  EXPECT_TRUE(c1 != sq && Vertices(c1) == Vertices(sq) && Vertices(c2) == Vertices(sq));
  // A single line: a single parallel line.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {4, 0}});
  LI_TAB_STRUCT *par = Offset(store.get(), line, kLeft, 1, FL_CORNER_ROUND, 0);
  EXPECT_EQ(Vertices(par), (Points{{0, 1}, {4, 1}}));
  // A circle of radius 2 (clockwise: outwards is left): radius 2 -+ 0.5.
  LI_TAB_STRUCT *cw = FullCircle(store.get(), {0, 0}, 2, 2);
  LI_TAB_STRUCT *grown = Offset(store.get(), cw, kLeft, 0.5, FL_CORNER_ROUND);
  LI_TAB_STRUCT *shrunk = Offset(store.get(), cw, kRight, 0.5, FL_CORNER_ROUND);
  EXPECT_TRUE(grown->next == grown && grown->rad == 2.5 && shrunk->rad == 1.5);
  // A line, a quarter turning left, a line: tangent joints need no connector.
  LI_TAB_STRUCT *hook =
      Chain(store.get(),
            {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, 1}, {2, 1}, LI_ARC_CCW), Line({3, 1}, {3, 3})});
  LI_TAB_STRUCT *left = Offset(store.get(), hook, kLeft, 0.5, FL_CORNER_ROUND, 0);
  LI_TAB_STRUCT *right = Offset(store.get(), hook, kRight, 0.5, FL_CORNER_ROUND, 0);
  EXPECT_TRUE(left->next->rad == 0.5 && right->next->rad == 1.5 && LiCountElem(left) == 3);
  EXPECT_TRUE(left->prev->ep == (GE_POINT{2.5, 3}) && right->ap == (GE_POINT{0, -0.5}));
  EXPECT_LT(OffsetDeviation(left, hook, 0.5) + OffsetDeviation(right, hook, 0.5), 1e-12);
  // A path that turns straight back gets a half circle round its tip.
  LI_TAB_STRUCT *spike = Polyline(store.get(), {{0, 0}, {2, 0}, {0, 0}});
  LI_TAB_STRUCT *cap = Offset(store.get(), spike, kLeft, 0.5, FL_CORNER_SHARP, 0);
  EXPECT_TRUE(cap->next->type == LI_ARC_CW && cap->next->mp == (GE_POINT{2, 0}));
  EXPECT_NEAR(LiElemLen(cap->next), kPi / 2, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(
      store.head(), {sq, c1, c2, line, par, cw, grown, shrunk, hook, left, right, spike, cap}));
}

// A 3-4-5 triangle (area 6, perimeter 12) rounded outwards; a line and an arc turning right
// whose left offsets never cross: the mode decides that corner.
TEST(Parallel, AreasAndCornersThatDoNotCross) {
  Store store;
  LI_TAB_STRUCT *tri = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  LI_TAB_STRUCT *r = Offset(store.get(), tri, kRight, 0.5, FL_CORNER_ROUND);
  EXPECT_NEAR(LiKontArea(r), 6 + 12 * 0.5 + kPi * 0.25, 1e-9);
  LI_TAB_STRUCT *path =
      Chain(store.get(), {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, -1}, {3, 0}, LI_ARC_CCW)});
  const struct {
    uint16_t mode;
    int moves, arcs;
  } cases[] = {{FL_CORNER_SHARP, 0, 2}, {FL_CORNER_GAP, 0, 1}, {1, 1, 1}};
  for (const auto &c : cases) {
    LI_TAB_STRUCT *o = Offset(store.get(), path, kLeft, 0.6, c.mode, 0);
    EXPECT_TRUE(Count(o, LI_MOVE) == c.moves && Count(o, LI_ARC_CW) == c.arcs) << c.mode;
    LiRemove(store.get(), &o);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {tri, r, path}));
}

// A circle drawn as an arc of almost a full turn and a line of 2.5e-4:
// the repair judges by chords, yet the offset keeps the whole circle.
TEST(Parallel, KeepsAnArcOfAlmostAFullTurn) {
  Store store;
  const GE_POINT a{std::cos(2.5e-4), std::sin(2.5e-4)}, b{1, 0};
  LI_TAB_STRUCT *k = Chain(store.get(), {Arc(a, b, {0, 0}, LI_ARC_CCW), Line(b, a)});
  LI_TAB_STRUCT *r = Offset(store.get(), k, kRight, 0.5, FL_CORNER_ROUND);
  EXPECT_NEAR(LiKontArea(r), kPi * 1.5 * 1.5, 1e-3);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, r}));
}

TEST(Parallel, BadInputAndTheConnector) {
  Store store;
  uint16_t counter = 0;
  LI_TAB_STRUCT *sq = Square(store.get()), *out = sq;
  EXPECT_EQ(FlParallel(store.get(), nullptr, kLeft, 1, &out, 1, 0, &counter, 0), PA_INVALID);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(FlParallel(store.get(), sq, kLeft, 1, &out, 1, 0, nullptr, 0), PA_INVALID);
  // The connector on its own: e1, then a line to e2 numbered ++counter.
  const LI_TAB_STRUCT e1 = Line({0, 0}, {1, 0}), e2 = Line({1, 1}, {2, 1});
  counter = 7;
  ASSERT_EQ(FlConElemMoveOrDraw(store.get(), &e1, &e2, &out, &counter, 1), PA_OK);
  EXPECT_TRUE(Vertices(out) == (Points{{0, 0}, {1, 0}, {1, 0}, {1, 1}}) && out->prev->no == 8);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {sq, out}));
}

}  // namespace
}  // namespace polyarc_test

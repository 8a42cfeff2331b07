// Moving a contour's start, removing short elements, merging elements that continue one another.
#include <cmath>
#include <tuple>
#include <vector>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

// The counter-clockwise quarter of the unit circle from (1,0) to (0,1).
LI_TAB_STRUCT *QuarterArc(LI_HEAD *head) {
  return Chain(head, {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)});
}

const GE_POINT kBelow{1, -2};  // on the tangent line at the quarter arc's start

TEST(KorrElem, AlongTheTangentOrOnTheCircle) {
  Store store;
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  const GE_POINT back{-1, 0}, aside{0, 1}, bottom{0, -1}, end{0, 1};
  ASSERT_EQ(LiKorrElem(store.get(), &line, &back), PA_OK);
  EXPECT_EQ(line->ang_ep - line->ang_ap, 5) << "lengthened and re-expanded";
  EXPECT_EQ(LiKorrElem(store.get(), &line, &aside), PA_IMPOSSIBLE);
  // An arc gets a new first line, or slides along its circle but not onto its end.
  LI_TAB_STRUCT *k = QuarterArc(store.get()), *arc = k, *alone = QuarterArc(store.get());
  ASSERT_EQ(LiKorrElem(store.get(), &k, &kBelow), PA_OK);
  EXPECT_TRUE(k->next == arc && Vertices(k) == (Points{kBelow, {1, 0}, {1, 0}, {0, 1}}));
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &end), PA_IMPOSSIBLE);
  ASSERT_EQ(LiKorrElem(store.get(), &alone, &bottom), PA_OK);
  EXPECT_DOUBLE_EQ(alone->ang_ap, -kPi / 2);
  EXPECT_EQ(LiKorrElem(store.get(), nullptr, &end), PA_INVALID);
}

// A circle moved to start at its top stays full alone, and followed by a line ends where the
// line starts: three quarters counter-clockwise or one clockwise.
TEST(KorrElem, AFullCircleAloneStaysClosed) {
  Store store;
  const GE_POINT c{3, -2};
  for (const uint16_t dir : {1, 2}) {
    SCOPED_TRACE(testing::Message() << "dir " << dir);
    const GE_POINT top{c.x, c.y + 5}, east{c.x + 5, c.y};
    LI_TAB_STRUCT circle{};
    ASSERT_EQ(LiCreateCircle(&c, 5, dir, &circle), PA_OK);
    LI_TAB_STRUCT *alone = Chain(store.get(), {circle});
    LI_TAB_STRUCT *tailed = Chain(store.get(), {circle, Line(east, {c.x + 9, c.y})});
    ASSERT_EQ(LiKorrElem(store.get(), &alone, &top), PA_OK);
    EXPECT_TRUE(alone->ap == top && alone->ep == top && LiTestClosed(alone) == 1);
    EXPECT_DOUBLE_EQ(LiElemLen(alone), 10 * kPi);
    ASSERT_EQ(LiKorrElem(store.get(), &tailed, &top), PA_OK);
    EXPECT_TRUE(tailed->ap == top && tailed->ep == east);
    EXPECT_DOUBLE_EQ(LiElemLen(tailed), (dir == 2 ? 2.5 : 7.5) * kPi);
  }
}

TEST(KorrKontAndRemShort, DeleteShortElementsAndRejoin) {
  ToleranceScope tol(0.25);  // 10 x tol = 2.5
  Store store;
  LI_TAB_STRUCT *open = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 1.25}, {8, 1.25}});
  EXPECT_EQ(LiKorrKont(store.get(), &open, 0), PA_OK);
  EXPECT_EQ(Vertices(open), (Points{{0, 0}, {4, 1.25}, {4, 1.25}, {8, 1.25}}));
  // Closed: the side before the tiny last one is joined to the start.
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0.5}});
  EXPECT_EQ(LiKorrKont(store.get(), &square, 1), PA_OK);
  EXPECT_TRUE(LiCountElem(square) == 4 && square->prev->ep == (GE_POINT{0, 0}));

  LI_TAB_STRUCT *two = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 0.5}, {4.5, 0.5}, {8, 0.5}});
  EXPECT_EQ(LiRemShort(store.get(), &two, 0, 1.0, 0), PA_OK);
  EXPECT_EQ(Vertices(two), (Points{{0, 0}, {4.5, 0.5}, {4.5, 0.5}, {8, 0.5}}));
  // A flat arc (radius 100, sweeping 0.02) becomes a line, a half circle not.
  const GE_POINT a{100 * std::cos(0.01), -100 * std::sin(0.01)}, b{a.x, -a.y}, c{b.x - 20, b.y};
  LI_TAB_STRUCT *arcs =
      Chain(store.get(), {Arc(a, b, {0, 0}, LI_ARC_CCW), Arc(b, c, {b.x - 10, b.y}, LI_ARC_CCW)});
  EXPECT_EQ(LiRemShort(store.get(), &arcs, 0, 0.01, 1), PA_OK);
  EXPECT_TRUE(arcs->type == LI_LINE && arcs->next->type == LI_ARC_CCW);
  // A flattened arc is a line in every field, also where no joint is recomputed.
  const LI_TAB_STRUCT flat = Arc(b, a, {0, 0}, LI_ARC_CW), chord = Line(b, a);
  LI_TAB_STRUCT *last = Chain(store.get(), {Line({b.x, 5}, b), flat});
  LI_TAB_STRUCT *alone = Chain(store.get(), {flat, Line(a, {a.x, a.y - 1e-3})});
  for (LI_TAB_STRUCT **k : {&last, &alone}) {
    EXPECT_EQ(LiRemShort(store.get(), k, 0, 0.01, 1), PA_OK);
    const LI_TAB_STRUCT *e = (*k)->prev;
    EXPECT_TRUE(e->type == LI_LINE && e->mp == chord.mp && e->rad == chord.rad);
    EXPECT_TRUE(e->tan_ap == chord.tan_ap && e->ang_ap == chord.ang_ap);
    EXPECT_EQ(LiElemLen(e), LiElemLen(&chord));
  }
  EXPECT_EQ(LiCountElem(alone), 1u);
  // A zero-length line and an arc of radius tol / 2; min 0 deletes nothing.
  const LI_TAB_STRUCT tiny = Arc({0, 0}, {0.25, 0}, {0.125, 0}, LI_ARC_CW);
  LI_TAB_STRUCT *bad = Chain(store.get(), {Line({0, 0}, {0, 0}), tiny, Line({0.25, 0}, {4, 0})});
  EXPECT_EQ(LiRemShort(store.get(), &bad, 0, 0.0, 0), PA_ZERO_LENGTH | PA_ZERO_RADIUS);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {open, square, two, arcs, last, alone, bad}));
}

TEST(Crunch, MergesOnlyWhatContinuesAndThePayloadFollowsTheChooseFunction) {
  EXPECT_EQ(LiKontSetChooseForCrunchCB(nullptr), nullptr) << "none is set at first";
  const LI_CRUNCH_CHOOSE second = [](const LI_TAB_STRUCT *, const LI_TAB_STRUCT *n) { return n; };
  Store store;
  LI_TAB_STRUCT *three = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  EXPECT_EQ(LiCrunch(store.get(), three), PA_OK);
  EXPECT_TRUE(Vertices(three) == (Points{{0, 0}, {3, 0}}) && three->ang_ep - three->ang_ap == 3);
  // Not backwards, not over a gap.
  LI_TAB_STRUCT *back = Polyline(store.get(), {{0, 0}, {2, 0}, {1, 0}});
  LI_TAB_STRUCT *gap = Polyline(store.get(), {{0, 0}, {1, 0}});
  LiChainPrev(gap, Polyline(store.get(), {{1.5, 0}, {3, 0}}));
  for (LI_TAB_STRUCT *k : {back, gap})
    EXPECT_TRUE(LiCrunch(store.get(), k) == PA_OK && LiCountElem(k) == 2);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {three, back, gap}));
  // The payload is the first's unless the choose function picks the second; the mark stays
  // only when both had it.
  for (const int chosen : {0, 1}) {
    EXPECT_EQ(LiKontSetChooseForCrunchCB(chosen ? second : nullptr), nullptr);
    LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
    k->no = 1, k->attr_id = 10, k->mark = 1;
    k->next->no = 2, k->next->attr_id = 20, k->next->mark = static_cast<uint16_t>(1 - chosen);
    EXPECT_EQ(LiCrunch(store.get(), k), PA_OK);
    EXPECT_TRUE(LiCountElem(k) == 1 && k->no == 1 + chosen && k->attr_id == 10 + 10 * chosen);
    EXPECT_EQ(k->mark, 1 - chosen);
  }
  EXPECT_EQ(LiKontSetChooseForCrunchCB(nullptr), second);
}

// One element covers at most one turn: a full circle and a quarter stay two, two halves make a
// full circle, two three-quarter arcs stay apart.
TEST(Crunch, NoMergedArcCoversMoreThanOneTurn) {
  Store store;
  const double pi = kPi;
  const GE_POINT c{3, -2};
  for (const uint16_t type : {LI_ARC_CCW, LI_ARC_CW}) {
    SCOPED_TRACE(testing::Message() << "type " << type);
    const double turn = type == LI_ARC_CCW ? 1 : -1;
    const auto at = [&](double a) {
      return GE_POINT{c.x + std::cos(turn * a), c.y + std::sin(turn * a)};
    };
    const auto arc = [&](double from, double to) { return Arc(at(from), at(to), c, type); };
    using Row = std::tuple<std::vector<LI_TAB_STRUCT>, uint32_t, double>;
    for (const auto &[arcs, count, length] :
         {Row{{arc(0, 0), arc(0, pi / 2)}, 2, 2.5 * pi}, Row{{arc(0, pi), arc(pi, 0)}, 1, 2 * pi},
          Row{{arc(0, 2 * pi / 3), arc(2 * pi / 3, 4 * pi / 3), arc(4 * pi / 3, 0)}, 1, 2 * pi},
          Row{{arc(0, 1.5 * pi), arc(1.5 * pi, pi)}, 2, 3 * pi}}) {
      LI_TAB_STRUCT *k = nullptr;
      for (const LI_TAB_STRUCT &e : arcs) ASSERT_EQ(LiInsertElem2(store.get(), &k, &e), PA_OK);
      EXPECT_EQ(LiCrunch(store.get(), k), PA_OK);
      EXPECT_EQ(LiCountElem(k), count);
      EXPECT_NEAR(LiKontLen(k), length, 1e-12);
      LiRemove(store.get(), &k);
    }
  }
}

}  // namespace
}  // namespace polyarc_test

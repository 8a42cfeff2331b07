// Joining two contours along the stretches they share, and removing
// spikes that run straight back.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "polyarc/fl.h"
#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;

struct Joined {
  uint16_t status;
  LI_TAB_STRUCT *out = nullptr, *out2 = nullptr;
  std::vector<LI_TAB_STRUCT *> loops;
  Live All() const {
    Live all{out, out2};
    all.insert(all.end(), loops.begin(), loops.end());
    return all;
  }
};

Joined UnionIdent(LI_HEAD *head, LI_TAB_STRUCT *k1, LI_TAB_STRUCT *k2, uint32_t sign,
                  uint16_t capacity = 199) {
  LI_TAB_STRUCT *table[200] = {};
  int16_t last = 7;
  Joined j{};
  j.status = FlUnionIdent(head, k1, k2, sign, &j.out, &j.out2, table, capacity, &last);
  for (int16_t i = 0; i <= last; ++i) j.loops.push_back(table[i]);
  return j;
}

LI_TAB_STRUCT *Square(LI_HEAD *head, double x, double y, double w = 1, double h = 1) {
  return Polygon(head, {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}});
}

TEST(UnionIdent, NeighboursJoinAlongWhatTheyShare) {
  Store store;
  // Side by side, the second of either orientation.
  for (bool reversed : {false, true}) {
    LI_TAB_STRUCT *right = Square(store.get(), 1, 0);
    if (reversed) LiKontChgDir(&right);
    Joined j = UnionIdent(store.get(), Square(store.get(), 0, 0), right, 0);
    EXPECT_EQ(j.status, PA_OK);
    EXPECT_DOUBLE_EQ(LiKontArea(j.out), 2.0) << "reversed " << reversed;
    EXPECT_TRUE(j.out2 == nullptr && j.loops.empty() && LiCheck(j.out));
    EXPECT_TRUE(AllRecordsAccounted(store.head(), j.All()));
    LiRemove(store.get(), &j.out);
  }
  // A shorter neighbour shares the middle half of a side.
  Joined part = UnionIdent(store.get(), Square(store.get(), 0, 0),
                           Square(store.get(), 1, 0.25, 1, 0.5), 0);
  EXPECT_EQ(part.status, PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(part.out), 1.5);
  EXPECT_EQ(LiCountElem(part.out), 8u);
  // A C shape closed by a bar: the outer loop and a hole.
  LI_TAB_STRUCT *c = Polygon(store.get(), {{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 2}, {3, 2}, {3, 3},
                                           {0, 3}});
  Joined ring = UnionIdent(store.get(), c, Square(store.get(), 3, 0, 1, 3), 0);
  EXPECT_EQ(ring.status, PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(ring.out), 12.0);
  ASSERT_EQ(ring.loops.size(), 1u);
  EXPECT_DOUBLE_EQ(LiKontArea(ring.loops[0]), -2.0);
  Live all = part.All();
  for (LI_TAB_STRUCT *k : ring.All()) all.push_back(k);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), all));
}

TEST(UnionIdent, TheSignFlagTakesTheNegativeLoops) {
  Store store;
  LI_TAB_STRUCT *c = Polygon(store.get(), {{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 2}, {3, 2}, {3, 3},
                                           {0, 3}});
  Joined j = UnionIdent(store.get(), c, Square(store.get(), 3, 0, 1, 3), 1);
  EXPECT_EQ(j.status, PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(j.out), -2.0);
  ASSERT_EQ(j.loops.size(), 1u);
  EXPECT_DOUBLE_EQ(LiKontArea(j.loops[0]), 12.0);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), j.All()));
}

TEST(UnionIdent, NothingToJoin) {
  Store store;
  // Apart; and the same square run both ways, which shares everything.
  LI_TAB_STRUCT *a = Square(store.get(), 0, 0), *b = Square(store.get(), 3, 0);
  Joined apart = UnionIdent(store.get(), a, b, 0);
  EXPECT_TRUE(apart.status == PA_OK && apart.out == a && apart.out2 == b && apart.loops.empty());
  LI_TAB_STRUCT *back = Square(store.get(), 0, 0);
  LiKontChgDir(&back);
  Joined same = UnionIdent(store.get(), Square(store.get(), 0, 0), back, 0);
  EXPECT_TRUE(same.status == PA_OK && same.loops.empty());
  EXPECT_DOUBLE_EQ(LiKontArea(same.out), 1.0);
  EXPECT_DOUBLE_EQ(LiKontArea(same.out2), -1.0);
  Live all = apart.All();
  all.insert(all.end(), {same.out, same.out2});
  EXPECT_TRUE(AllRecordsAccounted(store.head(), all));
  EXPECT_EQ(UnionIdent(store.get(), a, a, 0).status, PA_INVALID);
}

// Two half discs of the unit circle: they share the diameter, and their
// arcs only meet end to end, which is no shared stretch.
TEST(UnionIdent, ArcsThatOnlyMeetEndToEndAreNotShared) {
  Store store;
  auto half = [&](double y) {
    LI_TAB_STRUCT *k = Polyline(store.get(), {{-y, 0}, {y, 0}});
    const GE_POINT back{-y, 0}, centre{0, 0};
    EXPECT_EQ(LiArc(store.get(), &k, &back, &centre, 0), PA_OK);
    return k;
  };
  Joined disc = UnionIdent(store.get(), half(1), half(-1), 0);
  EXPECT_EQ(disc.status, PA_OK);
  EXPECT_NEAR(LiKontArea(disc.out), kPi, 1e-12);
  EXPECT_EQ(LiCountElem(disc.out), 2u);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), disc.All()));
}

// Far from the origin a tilt of 4e-6 is within the tolerance over the
// shared side, and the loop's corners are the contours' own corners.
TEST(UnionIdent, NearlyParallelSidesFarFromTheOriginJoinAtTheirCorners) {
  Store store;
  LI_TAB_STRUCT *below = Square(store.get(), 0, 999);
  LI_TAB_STRUCT *above = Polygon(store.get(), {{0, 1000}, {1, 1000 + 4e-6}, {1, 1001}, {0, 1001}});
  const Points corners = Vertices(below), more = Vertices(above);
  Joined j = UnionIdent(store.get(), below, above, 0);
  ASSERT_EQ(j.status, PA_OK);
  EXPECT_NEAR(LiKontArea(j.out), 2.0, 1e-9);
  for (const GE_POINT &p : Vertices(j.out))
    EXPECT_TRUE(std::count(corners.begin(), corners.end(), p) + std::count(more.begin(), more.end(), p))
        << p;
  EXPECT_TRUE(AllRecordsAccounted(store.head(), j.All()));
}

// A bar over a comb whose teeth touch the bar's underside on [2i, 2i + 1]:
// every tooth is a shared stretch, every gap a hole of area 1.
LI_TAB_STRUCT *Comb(LI_HEAD *head, int teeth) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, -2}, {2.0 * teeth - 1, -2}});
  for (int i = teeth - 1; i >= 0; --i) {
    const GE_POINT top_right{2.0 * i + 1, 0}, top_left{2.0 * i, 0};
    EXPECT_EQ(LiDraw(head, &k, &top_right), PA_OK);
    EXPECT_EQ(LiDraw(head, &k, &top_left), PA_OK);
    if (i == 0) break;
    const GE_POINT bottom_left{2.0 * i, -1}, bottom_right{2.0 * i - 1, -1};
    EXPECT_EQ(LiDraw(head, &k, &bottom_left), PA_OK);
    EXPECT_EQ(LiDraw(head, &k, &bottom_right), PA_OK);
  }
  const GE_POINT start{0, -2};
  EXPECT_EQ(LiDraw(head, &k, &start), PA_OK);
  return k;
}

TEST(UnionIdent, AtMostOneHundredStretchesAndNoMoreLoopsThanRoomFor) {
  Store store;
  Joined full = UnionIdent(store.get(), Square(store.get(), 0, 0, 199, 1), Comb(store.get(), 100),
                           0);
  EXPECT_EQ(full.status, PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(full.out), 3 * 199) << "the outline of [0, 199] x [-2, 1]";
  ASSERT_EQ(full.loops.size(), 99u);
  for (LI_TAB_STRUCT *hole : full.loops) EXPECT_DOUBLE_EQ(LiKontArea(hole), -1.0);
  Joined crowded = UnionIdent(store.get(), Square(store.get(), 0, 0, 199, 1),
                              Comb(store.get(), 100), 0, 49);
  EXPECT_EQ(crowded.status, PA_NO_RECORD);
  EXPECT_EQ(crowded.loops.size(), 49u) << "the outer loop went to out";
  Joined over = UnionIdent(store.get(), Square(store.get(), 0, 0, 201, 1), Comb(store.get(), 101),
                           0);
  EXPECT_EQ(over.status, PA_NO_RECORD);
  EXPECT_TRUE(over.loops.empty() && LiCheck(over.out) && LiCheck(over.out2));
  Live all = full.All();
  for (const Joined *j : {&crowded, &over})
    for (LI_TAB_STRUCT *k : j->All()) all.push_back(k);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), all));
}

TEST(UnionIdent, RunningOutOfRecordsLosesNone) {
  ExpectCleanAllocationFailures(
      PA_NO_RECORD,
      [](LI_HEAD *head) { return Live{Square(head, 0, 0), Square(head, 1, 0.25, 1, 0.5)}; },
      [](LI_HEAD *head, Live &live) {
        Joined j = UnionIdent(head, live[0], live[1], 0);
        live[0] = j.out;
        live[1] = j.out2;
        for (LI_TAB_STRUCT *k : j.loops) live.push_back(k);
        return j.status;
      });
}

TEST(CleanIdent, SpikesCancelOrShorten) {
  Store store;
  struct Row {
    std::initializer_list<GE_POINT> polygon;
    uint32_t whole;
    uint32_t count;
  } rows[] = {
      {{{0, 0}, {2, 0}, {2, 2}, {2, 3}, {2, 2}, {0, 2}}, 0, 4},  // out and back: both go
      {{{0, 0}, {2, 0}, {2, 3}, {2, 2}, {0, 2}}, 0, 4},          // back part way: e shortens
      // The spike at the closing joint counts only with whole set.
      {{{2, 3}, {2, 2}, {0, 2}, {0, 0}, {2, 0}, {2, 2}}, 0, 6},
      {{{2, 3}, {2, 2}, {0, 2}, {0, 0}, {2, 0}, {2, 2}}, 1, 4},
  };
  for (const Row &r : rows) {
    LI_TAB_STRUCT *k = Polygon(store.get(), r.polygon);
    EXPECT_EQ(FlCleanIdent(store.get(), &k, r.whole), PA_OK);
    EXPECT_EQ(LiCountElem(k), r.count) << "first point " << r.polygon.begin()->y;
    EXPECT_DOUBLE_EQ(LiKontArea(k), 4.0);
    EXPECT_TRUE(LiCheck(k) && AllRecordsAccounted(store.head(), {k}));
    LiRemove(store.get(), &k);
  }
}

TEST(CleanIdent, AnArcRunningBackBeyondTheOtherStartTakesItsStart) {
  // (0,0) -> (1,0), a quarter of the unit circle up to (0,1), back down
  // the circle to 45 degrees below the x axis, and home: the 45-degree
  // slice, run clockwise, is left.
  Store store;
  const double s = std::sqrt(0.5);
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}});
  const GE_POINT top{0, 1}, low{s, -s}, centre{0, 0};
  ASSERT_EQ(LiArc(store.get(), &k, &top, &centre, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &low, &centre, 1), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &centre), PA_OK);
  EXPECT_EQ(FlCleanIdent(store.get(), &k, 1), PA_OK);
  EXPECT_EQ(LiCountElem(k), 3u);
  EXPECT_NEAR(LiKontArea(k), -kPi / 8, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

}  // namespace
}  // namespace polyarc_test

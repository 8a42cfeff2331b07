// Finding the piece that carries a point, and cutting contours at the
// crossings of a list.
#include "support/boolean_support.h"
#include "support/crossing_support.h"

namespace polyarc_test {
namespace {

TEST(SeekPt, WalksBackAndGivesAJointToTheElementEndingThere) {
  Store store;
  LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {1, 0}, {2, 0}, {2, 2}});
  // A half circle over the top from (1, 0) to (-1, 0), closed by its
  // diameter.
  LI_TAB_STRUCT *d =
      Chain(store.get(), {Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW), Line({-1, 0}, {1, 0})});
  const auto e = Elements(k);
  const struct {
    LI_TAB_STRUCT *start;
    GE_POINT p;
    LI_TAB_STRUCT *want;  // null: not found, the start comes back
  } rows[] = {
      {e[2], {1.5, 0}, e[1]},     // two steps back
      {e[2], {1.5, 4e-4}, e[1]},  // within 10 x tol across the line
      {e[1], {1.5, 6e-4}, nullptr},
      {e[2], {1, 0}, e[0]},  // the joint belongs to the element
                             // ending there
      {e[0], {0, 0}, e[3]},  // also at the contour's closing joint
      {e[0], {1, 1}, e[3]},
      {e[1], {5, 5}, nullptr},
      {d->next, {0, 1}, d},   // on the arc
      {d, {0, -1}, nullptr},  // on its circle, off the arc
  };
  for (const auto &row : rows) {
    LI_TAB_STRUCT *out = nullptr;
    EXPECT_EQ(FlSeekPt(row.start, &row.p, &out), row.want ? PA_OK : PA_IMPOSSIBLE) << row.p;
    EXPECT_EQ(out, row.want ? row.want : row.start) << row.p;
  }
  LI_TAB_STRUCT *out = e[0];
  EXPECT_EQ(FlSeekPt(nullptr, &rows[0].p, &out), PA_IMPOSSIBLE);
  EXPECT_EQ(out, nullptr);
}

TEST(SplitCross, CutsBothContoursAtEveryCrossing) {
  Store store;
  LI_TAB_STRUCT *a = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  LI_TAB_STRUCT *b = Polygon(store.get(), {{0.5, 0.5}, {1.5, 0.5}, {1.5, 1.5}, {0.5, 1.5}});
  CrossList c;
  ASSERT_EQ(FlCrossList(a, b, &c.list, &c.last), PA_OK);
  uint32_t flags = 7;
  LI_TAB_STRUCT *first_a = a;
  ASSERT_EQ(FlSplitCross(store.get(), c.list, c.last, &flags, &a, &b), PA_OK);
  EXPECT_EQ(flags, 3u);
  EXPECT_EQ(LiCountElem(a) + LiCountElem(b), 12u);
  EXPECT_EQ(a, first_a) << "A's first edge is not crossed";
  // B's first edge was cut at (1, 0.5): its first piece is B's first now.
  EXPECT_TRUE(b->ap == (GE_POINT{0.5, 0.5}) && b->ep == (GE_POINT{1, 0.5}));
  for (int i = 0; i < c.size(); ++i) {
    const GE_CROSS &x = c[i];
    EXPECT_TRUE(x.elem_a->ep == x.pt && x.elem_b->ep == x.pt && x.next_a->ap == x.pt);
    EXPECT_TRUE(x.next_a == x.elem_a->next && x.next_b == x.elem_b->next);
    EXPECT_TRUE(x.loc_a == GE_AT_END && x.loc_b == GE_AT_END);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {a, b}));
  EXPECT_EQ(FlSplitCross(store.get(), nullptr, 0, &flags, &a, &b), PA_INVALID);
}

// A crossing that falls inside A's side but within tol of A's corner cuts
// nothing; the joint must still close on it, or the loops keep a gap whose
// area error grows with the distance from the x-axis (a JTS robustness
// case, TestOverlay-misc-2 #6, lost 51 of 30500 that way).
TEST(SplitCross, ACrossingNearAnEndClosesTheJoint) {
  Store store;
  for (double y : {0.0, 1e6}) {
    LI_TAB_STRUCT *a = Polygon(store.get(), {{-10, y - 10}, {0, y - 10}, {0, y}, {-10, y}});
    // B's corner lies within tol of A's corner (0, y); the line of B's edge
    // that reaches it meets A's right side 6e-5 below that corner.
    LI_TAB_STRUCT *b = Polygon(store.get(), {{-1, y + 3}, {-1e-5, y - 3e-5}, {-5, y - 5}});
    const Outcome r(store.get(), Op::kIntersection, a, b);
    ASSERT_EQ(r.status(), PA_OK) << y;
    ASSERT_EQ(r.no_cross(), 0u);
    for (LI_TAB_STRUCT *k : r.loops()) {
      for (LI_TAB_STRUCT *e : Elements(k)) EXPECT_TRUE(e->ep == e->next->ap) << y;
    }
    // The triangle (-2.5, 0), (0, 0), (-5, -5), shifted by y.
    EXPECT_NEAR(r.RegionArea(100, 10), 6.25, 1e-3) << y;
  }
}

TEST(SplitCross, RunningOutOfRecordsLosesNone) {
  CrossList c;
  ExpectCleanAllocationFailures(
      PA_NO_RECORD,
      [&](LI_HEAD *head) {
        FlFreeCross(&c.list);
        LI_TAB_STRUCT *a = Polygon(head, {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
        LI_TAB_STRUCT *b = Polygon(head, {{0.5, 0.5}, {1.5, 0.5}, {1.5, 1.5}, {0.5, 1.5}});
        EXPECT_EQ(FlCrossList(a, b, &c.list, &c.last), PA_OK);
        return Live{a, b};
      },
      [&](LI_HEAD *head, Live &live) {
        uint32_t flags = 0;
        return FlSplitCross(head, c.list, c.last, &flags, &live[0], &live[1]);
      });
}

}  // namespace
}  // namespace polyarc_test

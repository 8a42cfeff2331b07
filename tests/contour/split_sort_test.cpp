// Splitting closed contours at two points and sorting loose elements.
#include "support/shape_support.h"

namespace polyarc_test {
namespace {

using Segs = std::vector<std::pair<GE_POINT, GE_POINT>>;

Segs Segments(LI_TAB_STRUCT *k) {
  Segs v;
  for (LI_TAB_STRUCT *e : Elements(k)) v.push_back({e->ap, e->ep});
  return v;
}

// The square (0,0) (4,0) (4,4) (0,4), numbered 1 to 4.
LI_TAB_STRUCT *NumberedSquare(LI_HEAD *head) {
  return Numbered(Polygon(head, {{0, 0}, {4, 0}, {4, 4}, {0, 4}}));
}

TEST(SplitKont, TwoPiecesThatAddUpToTheContour) {
  Store store;
  const struct {
    uint16_t num1;
    GE_POINT q1;
    uint16_t num2;
    GE_POINT q2;
    double first_length;
  } rows[] = {
      {1, {1, 0}, 2, {4, 3}, 6},
      {1, {1, 0}, 1, {3, 0}, 2},   // both on one element
      {1, {3, 0}, 1, {1, 0}, 14},  // the second point behind the first
  };
  for (const auto &row : rows) {
    LI_TAB_STRUCT *k = NumberedSquare(store.get());
    LI_TAB_STRUCT *one = nullptr, *two = nullptr;
    ASSERT_EQ(LiSplitKont(store.get(), &k, &one, &two, row.num1, &row.q1, row.num2, &row.q2),
              PA_OK);
    EXPECT_TRUE(k == nullptr && one->ap == row.q1 && one->prev->ep == row.q2);
    EXPECT_TRUE(two->ap == row.q2 && two->prev->ep == row.q1);
    EXPECT_EQ(std::make_pair(LiKontLen(one), LiKontLen(two)),
              std::make_pair(row.first_length, 16 - row.first_length));
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {one, two}));
    LiRemove(store.get(), &one);
    LiRemove(store.get(), &two);
  }
}

TEST(SplitKont, BadNumbersAndPoints) {
  Store store;
  LI_TAB_STRUCT *k = NumberedSquare(store.get());
  LI_TAB_STRUCT *one = k, *two = k;
  const GE_POINT q1{1, 0}, q2{4, 3};
  EXPECT_EQ(LiSplitKont(store.get(), &k, &one, &two, 9, &q1, 2, &q2), PA_INVALID);
  EXPECT_EQ(one, nullptr);
  EXPECT_EQ(LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 9, &q2), PA_INVALID);
  EXPECT_EQ(LiCountElem(k), 5u) << "left whole, cut at q1";
  EXPECT_EQ(LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 1, &q1), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

// (0,0)->(1,0), (2,0)->(1,0), (1,0)->(3,0), in this order.
LI_TAB_STRUCT *ThreeLines(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, 0}, {1, 0}});
  LiChain(k->prev, Polyline(head, {{2, 0}, {1, 0}}));
  LiChain(k->prev, Polyline(head, {{1, 0}, {3, 0}}));
  return k;
}

TEST(SortKont, KeepingDirectionsFirstOrReversingAtOnce) {
  Store store;
  LI_TAB_STRUCT *kept = ThreeLines(store.get());
  LI_TAB_STRUCT *rest = LiSortKont(&kept, 1, 0);
  EXPECT_EQ(Segments(kept), (Segs{{{0, 0}, {1, 0}}, {{1, 0}, {3, 0}}}));
  EXPECT_EQ(Segments(rest), (Segs{{{2, 0}, {1, 0}}}));

  LI_TAB_STRUCT *turned = ThreeLines(store.get());
  LI_TAB_STRUCT *rest2 = LiSortKont(&turned, 0, 0);
  EXPECT_EQ(Segments(turned), (Segs{{{0, 0}, {1, 0}}, {{1, 0}, {2, 0}}}));
  EXPECT_EQ(turned->next->tan_ap, (GE_POINT{1, 0})) << "reversed in place";
  EXPECT_EQ(Segments(rest2), (Segs{{{1, 0}, {3, 0}}}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {kept, rest, turned, rest2}));
}

TEST(SortKont, PrependsAndStopsWhenClosed) {
  Store store;
  // A 3-4-5 triangle's sides out of order, one reversed, and a stray line.
  LI_TAB_STRUCT *k = Polyline(store.get(), {{4, 0}, {0, 3}});
  LiChain(k->prev, Polyline(store.get(), {{5, 5}, {6, 6}}));
  LiChain(k->prev, Polyline(store.get(), {{0, 0}, {4, 0}}));
  LiChain(k->prev, Polyline(store.get(), {{0, 0}, {0, 3}}));
  LI_TAB_STRUCT *rest = LiSortKont(&k, 1, 1);
  EXPECT_EQ(Segments(k), (Segs{{{0, 0}, {4, 0}}, {{4, 0}, {0, 3}}, {{0, 3}, {0, 0}}}));
  EXPECT_DOUBLE_EQ(LiKontArea(k), 6);
  EXPECT_EQ(Segments(rest), (Segs{{{5, 5}, {6, 6}}}));
  LI_TAB_STRUCT *single = Polyline(store.get(), {{0, 0}, {1, 0}});
  EXPECT_EQ(LiSortKont(&single, 0, 0), nullptr);
}

}  // namespace
}  // namespace polyarc_test

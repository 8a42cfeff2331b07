// Splitting closed contours at two points and sorting loose elements.
#include "support/support.h"

namespace polyarc_test {
namespace {

// The square (0,0) (4,0) (4,4) (0,4), numbered 1 to 4.
LI_TAB_STRUCT *NumberedSquare(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polygon(head, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  uint16_t counter = 0;
  LiNumKont(k, &counter);
  return k;
}

TEST(SplitKont, TwoPiecesThatAddUpToTheContour) {
  Store store;
  LI_TAB_STRUCT *k = NumberedSquare(store.get());
  LI_TAB_STRUCT *one = nullptr, *two = nullptr;
  const GE_POINT q1{1, 0}, q2{4, 3};
  ASSERT_EQ(LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 2, &q2), PA_OK);
  EXPECT_EQ(k, nullptr);
  EXPECT_EQ(one->ap, q1);
  EXPECT_EQ(one->prev->ep, q2);
  EXPECT_EQ(two->ap, q2);
  EXPECT_EQ(two->prev->ep, q1);
  EXPECT_DOUBLE_EQ(LiKontLen(one), 3 + 3);
  EXPECT_DOUBLE_EQ(LiKontLen(one) + LiKontLen(two), 16);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {one, two}));
}

TEST(SplitKont, BothPointsOnOneElement) {
  Store store;
  LI_TAB_STRUCT *k = NumberedSquare(store.get());
  LI_TAB_STRUCT *one = nullptr, *two = nullptr;
  const GE_POINT q1{1, 0}, q2{3, 0};
  ASSERT_EQ(LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 1, &q2), PA_OK);
  EXPECT_EQ(LiCountElem(one), 1u);
  EXPECT_DOUBLE_EQ(LiKontLen(one), 2);
  EXPECT_DOUBLE_EQ(LiKontLen(two), 14);

  LI_TAB_STRUCT *k2 = NumberedSquare(store.get());
  const GE_POINT back{3, 0}, front{1, 0};  // q2 before q1 on the same element
  ASSERT_EQ(LiSplitKont(store.get(), &k2, &one, &two, 1, &back, 1, &front), PA_OK);
  EXPECT_DOUBLE_EQ(LiKontLen(one), 14);
  EXPECT_DOUBLE_EQ(LiKontLen(two), 2);
}

TEST(SplitKont, BadNumbersAndPoints) {
  Store store;
  LI_TAB_STRUCT *k = NumberedSquare(store.get());
  LI_TAB_STRUCT *one = k, *two = k;
  const GE_POINT q1{1, 0}, q2{4, 3};
  EXPECT_EQ(LiSplitKont(store.get(), &k, &one, &two, 9, &q1, 2, &q2), PA_INVALID);
  EXPECT_EQ(one, nullptr);
  EXPECT_EQ(two, nullptr);
  EXPECT_EQ(LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 9, &q2), PA_INVALID);
  ASSERT_NE(k, nullptr) << "left whole, cut at q1";
  EXPECT_EQ(LiCountElem(k), 5u);
  EXPECT_EQ(LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 1, &q1), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(SplitKont, UnderAllocationFailure) {
  ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = NumberedSquare(store.get());
    LI_TAB_STRUCT *spare = TakeAllFree(store.get());
    LI_TAB_STRUCT *one = nullptr, *two = nullptr;
    const GE_POINT q1{1, 0}, q2{4, 3};
    failure.Arm();
    const uint16_t status = LiSplitKont(store.get(), &k, &one, &two, 1, &q1, 2, &q2);
    failure.Disarm();
    if (failure.Fired()) {
      EXPECT_EQ(status, PA_NO_RECORD);
      EXPECT_NE(k, nullptr);
      EXPECT_DOUBLE_EQ(LiKontLen(k), 16);
    } else {
      EXPECT_EQ(status, PA_OK);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, one, two, spare}));
  });
}

std::vector<std::pair<GE_POINT, GE_POINT>> Segments(LI_TAB_STRUCT *k) {
  std::vector<std::pair<GE_POINT, GE_POINT>> v;
  for (LI_TAB_STRUCT *e : Elements(k)) v.push_back({e->ap, e->ep});
  return v;
}

using Segs = std::vector<std::pair<GE_POINT, GE_POINT>>;

TEST(SortKont, KeepingDirectionsFirst) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}});
  LiChain(k->prev, Polyline(store.get(), {{2, 0}, {1, 0}}));
  LiChain(k->prev, Polyline(store.get(), {{1, 0}, {3, 0}}));
  LI_TAB_STRUCT *rest = LiSortKont(&k, 1, 0);
  EXPECT_EQ(Segments(k), (Segs{{{0, 0}, {1, 0}}, {{1, 0}, {3, 0}}}));
  EXPECT_EQ(Segments(rest), (Segs{{{2, 0}, {1, 0}}}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, rest}));
}

TEST(SortKont, ReversingAllowedAtOnce) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}});
  LiChain(k->prev, Polyline(store.get(), {{2, 0}, {1, 0}}));
  LiChain(k->prev, Polyline(store.get(), {{1, 0}, {3, 0}}));
  LI_TAB_STRUCT *rest = LiSortKont(&k, 0, 0);
  EXPECT_EQ(Segments(k), (Segs{{{0, 0}, {1, 0}}, {{1, 0}, {2, 0}}}));
  EXPECT_EQ(k->next->tan_ap, (GE_POINT{1, 0})) << "reversed in place";
  EXPECT_EQ(Segments(rest), (Segs{{{1, 0}, {3, 0}}}));
}

TEST(SortKont, PrependsAndStopsWhenClosed) {
  Store store;
  // The triangle's sides out of order, one reversed, plus a stray line.
  LI_TAB_STRUCT *k = Polyline(store.get(), {{4, 0}, {0, 3}});
  LiChain(k->prev, Polyline(store.get(), {{5, 5}, {6, 6}}));
  LiChain(k->prev, Polyline(store.get(), {{0, 0}, {4, 0}}));
  LiChain(k->prev, Polyline(store.get(), {{0, 0}, {0, 3}}));
  LI_TAB_STRUCT *rest = LiSortKont(&k, 1, 1);
  EXPECT_EQ(Segments(k), (Segs{{{0, 0}, {4, 0}}, {{4, 0}, {0, 3}}, {{0, 3}, {0, 0}}}));
  EXPECT_EQ(LiTestClosed(k), 1);
  EXPECT_EQ(Segments(rest), (Segs{{{5, 5}, {6, 6}}}));
  EXPECT_DOUBLE_EQ(LiKontArea(k), 6) << "a 3-4-5 triangle, counter-clockwise";

  LI_TAB_STRUCT *single = Polyline(store.get(), {{0, 0}, {1, 0}});
  EXPECT_EQ(LiSortKont(&single, 0, 0), nullptr);
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(LiSortKont(&none, 0, 0), nullptr);
}

}  // namespace
}  // namespace polyarc_test

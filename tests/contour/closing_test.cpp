// Closedness tests and closing gaps, directly and through the x-axis.
#include "support/support.h"

namespace polyarc_test {
namespace {

std::vector<GE_POINT> Vertices(LI_TAB_STRUCT *k) {
  std::vector<GE_POINT> v;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    v.push_back(e->ap);
    v.push_back(e->ep);
  }
  return v;
}

// Two separate lines A -> B and C -> D in one chain.
LI_TAB_STRUCT *TwoLines(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, 0}, {4, 0}});
  LI_TAB_STRUCT *second = Polyline(head, {{4, 3}, {0, 3}});
  LiChain(k, second);
  return k;
}

TEST(Closing, CloseKontBridgesEveryGap) {
  Store store;
  LI_TAB_STRUCT *k = TwoLines(store.get());
  EXPECT_EQ(LiTestClosed(k), 0);
  EXPECT_EQ(LiCloseKont(store.get(), k), PA_OK);
  EXPECT_EQ(Vertices(k), (std::vector<GE_POINT>{
                             {0, 0}, {4, 0}, {4, 0}, {4, 3}, {4, 3}, {0, 3}, {0, 3}, {0, 0}}));
  EXPECT_EQ(LiTestClosed(k), 1);
  EXPECT_EQ(k->next->type, LI_LINE);
  EXPECT_EQ(k->next->ang_ep - k->next->ang_ap, 3) << "the new lines are expanded";
  EXPECT_EQ(LiCloseKont(store.get(), k), PA_OK) << "nothing left to close";
  EXPECT_EQ(LiCountElem(k), 4u);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Closing, CloseKontToY0ReportsAVoidLineAlongTheAxis) {
  Store store;
  LI_TAB_STRUCT *k =
      Polyline(store.get(), {{0, 0}, {0, 3}});  // its gap runs straight down the y-axis
  EXPECT_EQ(LiCloseKontToY0(store.get(), k), PA_ZERO_LENGTH);
  EXPECT_EQ(LiTestClosed(k), 1);
  EXPECT_EQ(LiCountElem(k), 2u) << "the void line is not kept";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Closing, CloseKontToY0GoesThroughTheAxis) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{2, 3}, {0, 3}});  // its gap runs (0,3) -> (2,3)
  EXPECT_EQ(LiCloseKontToY0(store.get(), k), PA_OK);
  EXPECT_EQ(Vertices(k), (std::vector<GE_POINT>{
                             {2, 3}, {0, 3}, {0, 3}, {0, 0}, {0, 0}, {2, 0}, {2, 0}, {2, 3}}));

  LI_TAB_STRUCT *low =
      Polyline(store.get(), {{6, 0.25}, {9, 4}});  // the gap ends 0.25 off the axis
  EXPECT_EQ(LiCloseKontToY0(store.get(), low), PA_OK);
  EXPECT_EQ(Vertices(low),
            (std::vector<GE_POINT>{{6, 0.25}, {9, 4}, {9, 4}, {9, 0}, {9, 0}, {6, 0.25}}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, low}));
}

TEST(Closing, CheckClosedMovesAnOpenContourToItsGap) {
  Store store;
  LI_TAB_STRUCT *k = TwoLines(store.get());
  LI_TAB_STRUCT *second = k->next;
  EXPECT_EQ(LiCheckClosed(&k), 0);
  EXPECT_EQ(k, second);
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  LI_TAB_STRUCT *first = square;
  EXPECT_EQ(LiCheckClosed(&square), 1);
  EXPECT_EQ(square, first);
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(LiCheckClosed(&none), 1);
  EXPECT_EQ(LiTestClosed(nullptr), 1);
}

TEST(Closing, EveryCloserUnderAllocationFailure) {
  for (bool through_axis : {false, true}) {
    const unsigned long failing = ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      // Gaps whose ends differ in x, so that no line along the axis is void.
      LI_TAB_STRUCT *k = Polyline(store.get(), {{1, 1}, {3, 2}});
      LiChain(k, Polyline(store.get(), {{5, 3}, {2, 4}}));
      LI_TAB_STRUCT *spare = TakeAllFree(store.get());
      failure.Arm();
      const uint16_t status =
          through_axis ? LiCloseKontToY0(store.get(), k) : LiCloseKont(store.get(), k);
      failure.Disarm();
      if (!failure.Fired()) {
        EXPECT_EQ(status, PA_OK);
        EXPECT_EQ(LiTestClosed(k), 1);
      }
      EXPECT_EQ(LiCheck(k), 1);
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
    });
    EXPECT_GT(failing, 0u);
  }
}

}  // namespace
}  // namespace polyarc_test

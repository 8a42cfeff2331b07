// Closedness tests and closing gaps, directly and through the x-axis.
#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Closing, CloseKontBridgesEveryGapAndCheckClosedMovesToTheGap) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}});
  LiChain(k, Polyline(store.get(), {{4, 3}, {0, 3}}));
  LI_TAB_STRUCT *moved = k;
  EXPECT_TRUE(LiCheckClosed(&moved) == 0 && moved == k->next) << "moved to start at its gap";
  EXPECT_EQ(LiCloseKont(store.get(), k), PA_OK);
  EXPECT_EQ(Vertices(k), (Points{{0, 0}, {4, 0}, {4, 0}, {4, 3}, {4, 3}, {0, 3}, {0, 3}, {0, 0}}));
  EXPECT_EQ(k->next->ang_ep - k->next->ang_ap, 3) << "the new lines are expanded";
  EXPECT_TRUE(LiTestClosed(k) == 1 && LiCheckClosed(&k) == 1 && LiTestClosed(nullptr) == 1);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Closing, CloseKontToY0GoesThroughTheAxis) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{2, 3}, {0, 3}});  // its gap runs (0,3) -> (2,3)
  EXPECT_EQ(LiCloseKontToY0(store.get(), k), PA_OK);
  EXPECT_EQ(Vertices(k), (Points{{2, 3}, {0, 3}, {0, 3}, {0, 0}, {0, 0}, {2, 0}, {2, 0}, {2, 3}}));
  LI_TAB_STRUCT *low = Polyline(store.get(), {{6, 0.25}, {9, 4}});  // ends 0.25 off the axis
  EXPECT_EQ(LiCloseKontToY0(store.get(), low), PA_OK);
  EXPECT_EQ(Vertices(low), (Points{{6, 0.25}, {9, 4}, {9, 4}, {9, 0}, {9, 0}, {6, 0.25}}));
  LI_TAB_STRUCT *down = Polyline(store.get(), {{0, 0}, {0, 3}});  // straight down the y-axis
  EXPECT_EQ(LiCloseKontToY0(store.get(), down), PA_ZERO_LENGTH);
  EXPECT_EQ(LiCountElem(down), 2u) << "the void line along the axis is not kept";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, low, down}));
}

}  // namespace
}  // namespace polyarc_test

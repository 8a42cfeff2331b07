// Extending contours along their end tangents.
#include "support/support.h"

namespace polyarc_test {
namespace {

// A quarter arc from (1, 0) to (0, 1) about the origin, then a line up to
// (0, 3).
LI_TAB_STRUCT *ArcThenLine(LI_HEAD *head) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{1, 0}, b{0, 1}, c{0, 0}, d{0, 3};
  LiMove(head, &k, &a);
  EXPECT_EQ(LiArc(head, &k, &b, &c, 0), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &d), PA_OK);
  return k;
}

TEST(Extend, LinesAreLengthenedAndArcsGetANewLine) {
  Store store;
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {1, 0}});
  EXPECT_EQ(LiElemVerl(store.get(), &line, 2, 0), PA_OK);
  EXPECT_EQ(line->ep, (GE_POINT{3, 0}));
  EXPECT_EQ(line->ang_ep - line->ang_ap, 3) << "re-expanded";
  EXPECT_EQ(LiElemVerl(store.get(), &line, -3, 1), PA_ZERO_LENGTH) << "shortened to nothing";

  LI_TAB_STRUCT *k = ArcThenLine(store.get());
  LI_TAB_STRUCT *arc = k;
  EXPECT_EQ(LiElemVerl(store.get(), &k, 2, 1), PA_OK);
  EXPECT_EQ(k->ap, (GE_POINT{1, -2})) << "back along the start tangent (0, 1)";
  EXPECT_EQ(k->next, arc);
  LI_TAB_STRUCT *fresh = ArcThenLine(store.get());
  EXPECT_EQ(LiElemVerl(store.get(), &fresh, 0, 1), PA_ZERO_LENGTH);
  EXPECT_EQ(LiCountElem(fresh), 2u) << "a new line of zero length is not kept";

  LI_TAB_STRUCT *both = ArcThenLine(store.get());
  ASSERT_EQ(LiVerlKont(store.get(), &both, 1), PA_OK);
  EXPECT_EQ(LiCountElem(both), 3u);
  EXPECT_EQ(both->ap, (GE_POINT{1, -1}));
  EXPECT_EQ(both->prev->ep, (GE_POINT{0, 4}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {line, k, fresh, both}));
}

TEST(Extend, VerlKontUnderAllocationFailureStillMovesTheEndLine) {
  const unsigned long failing = ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = ArcThenLine(store.get());
    LI_TAB_STRUCT *spare = TakeAllFree(store.get());
    LI_TAB_STRUCT *const arc = k;
    failure.Arm();
    const uint16_t status = LiVerlKont(store.get(), &k, 1);
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    if (failure.Fired()) {
      EXPECT_EQ(k, arc);
      EXPECT_EQ(k->prev->ep, (GE_POINT{0, 4}));
      EXPECT_EQ(k->prev->ang_ep - k->prev->ang_ap, 2) << "but not re-expanded";
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
  });
  EXPECT_GT(failing, 0u);
}

TEST(Extend, ElemVerlAtAnArcUnderAllocationFailure) {
  for (int32_t at_start : {0, 1}) {
    ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      LI_TAB_STRUCT *k = ArcThenLine(store.get());
      if (at_start == 0) LiKontChgDir(&k);  // now the arc is at the end
      LI_TAB_STRUCT *spare = TakeAllFree(store.get());
      failure.Arm();
      const uint16_t status = LiElemVerl(store.get(), &k, 1, at_start);
      failure.Disarm();
      EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
      EXPECT_EQ(LiCountElem(k), failure.Fired() ? 2u : 3u);
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
    });
  }
}

}  // namespace
}  // namespace polyarc_test

// Extending contours along their end tangents.
#include "support/support.h"

namespace polyarc_test {
namespace {

LI_TAB_STRUCT *ArcThenLine(LI_HEAD *head) {
  // A quarter arc from (1, 0) to (0, 1) about the origin, then a line up.
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{1, 0}, b{0, 1}, c{0, 0}, d{0, 3};
  LiMove(head, &k, &a);
  EXPECT_EQ(LiArc(head, &k, &b, &c, 0), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &d), PA_OK);
  return k;
}

TEST(Extend, ElemVerlLengthensOrShortensLines) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}});
  EXPECT_EQ(LiElemVerl(store.get(), &k, 2, 0), PA_OK);
  EXPECT_EQ(k->ep, (GE_POINT{3, 0}));
  EXPECT_EQ(k->ang_ep - k->ang_ap, 3) << "re-expanded";
  EXPECT_EQ(LiElemVerl(store.get(), &k, -1, 1), PA_OK);
  EXPECT_EQ(k->ap, (GE_POINT{1, 0}));
  EXPECT_EQ(LiElemVerl(store.get(), &k, -2, 1), PA_ZERO_LENGTH);
  EXPECT_EQ(LiCountElem(k), 1u);
}

TEST(Extend, ElemVerlPutsANewLineInFrontOfAnArc) {
  Store store;
  LI_TAB_STRUCT *k = ArcThenLine(store.get());
  LI_TAB_STRUCT *arc = k;
  EXPECT_EQ(LiElemVerl(store.get(), &k, 2, 1), PA_OK);
  ASSERT_NE(k, arc);
  EXPECT_EQ(k->type, LI_LINE);
  EXPECT_EQ(k->ap, (GE_POINT{1, -2})) << "back along the start tangent (0, 1)";
  EXPECT_EQ(k->ep, (GE_POINT{1, 0}));
  EXPECT_EQ(k->next, arc);
  EXPECT_EQ(LiCountElem(k), 3u);
  LI_TAB_STRUCT *fresh = ArcThenLine(store.get());
  EXPECT_EQ(LiElemVerl(store.get(), &fresh, 0, 1), PA_ZERO_LENGTH) << "a zero-length line is not kept";
  EXPECT_EQ(LiCountElem(fresh), 2u);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, fresh}));
}

TEST(Extend, VerlKontExtendsBothEnds) {
  Store store;
  LI_TAB_STRUCT *k = ArcThenLine(store.get());
  ASSERT_EQ(LiVerlKont(store.get(), &k, 1), PA_OK);
  ASSERT_EQ(LiCountElem(k), 3u);
  EXPECT_EQ(k->ap, (GE_POINT{1, -1}));
  EXPECT_EQ(k->prev->ep, (GE_POINT{0, 4}));
  LI_TAB_STRUCT *empty = nullptr;
  EXPECT_EQ(LiVerlKont(store.get(), &empty, 1), PA_OK);
  EXPECT_EQ(LiVerlKont(store.get(), nullptr, 1), PA_INVALID);
}

TEST(Extend, VerlKontUnderAllocationFailure) {
  const unsigned long failing = ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = ArcThenLine(store.get());
    LI_TAB_STRUCT *spare = TakeAllFree(store.get());
    LI_TAB_STRUCT *const arc = k;
    failure.Arm();
    const uint16_t status = LiVerlKont(store.get(), &k, 1);
    failure.Disarm();
    if (failure.Fired()) {
      EXPECT_EQ(status, PA_NO_MEMORY);
      EXPECT_EQ(k, arc);
      EXPECT_EQ(k->prev->ep, (GE_POINT{0, 4})) << "the end line still moves";
      EXPECT_EQ(k->prev->ang_ep - k->prev->ang_ap, 2) << "but is not re-expanded";
    } else {
      EXPECT_EQ(status, PA_OK);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
  });
  EXPECT_GT(failing, 0u);
}

TEST(Extend, ElemVerlUnderAllocationFailure) {
  for (int32_t at_start : {0, 1}) {
    const unsigned long failing = ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      LI_TAB_STRUCT *k = ArcThenLine(store.get());
      LiKontChgDir(&k);  // now a line then an arc, so the end is an arc
      if (at_start != 0) LiKontChgDir(&k);
      LI_TAB_STRUCT *spare = TakeAllFree(store.get());
      LI_TAB_STRUCT *const first = k;
      failure.Arm();
      const uint16_t status = LiElemVerl(store.get(), &k, 1, at_start);
      failure.Disarm();
      EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
      if (failure.Fired()) {
        EXPECT_EQ(k, first);
        EXPECT_EQ(LiCountElem(k), 2u);
      }
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
    });
    EXPECT_GT(failing, 0u);
  }
}

}  // namespace
}  // namespace polyarc_test

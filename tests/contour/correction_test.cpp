// Moving a contour's start, removing short elements, and merging elements
// that continue one another.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// The quarter circle of radius 1 about the origin from (1, 0) to (0, 1),
// counter-clockwise, as a one-element contour.
LI_TAB_STRUCT *QuarterArc(LI_HEAD *head) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{1, 0}, b{0, 1}, centre{0, 0};
  EXPECT_EQ(LiMove(head, &k, &a), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &b, &centre, 0), PA_OK);
  return k;
}

TEST(Correction, KorrElemMovesALineAlongItsCarrier) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  LI_TAB_STRUCT *first = k;
  const GE_POINT back{-1, 0}, ahead{1, 0}, aside{0, 1};
  ASSERT_EQ(LiKorrElem(store.get(), &k, &back), PA_OK);
  EXPECT_EQ(k, first);
  EXPECT_EQ(k->ap, back);
  EXPECT_EQ(k->ang_ep - k->ang_ap, 5) << "lengthened and re-expanded";
  ASSERT_EQ(LiKorrElem(store.get(), &k, &ahead), PA_OK);
  EXPECT_EQ(k->ang_ep - k->ang_ap, 3) << "shortened";
  EXPECT_EQ(LiKorrElem(store.get(), &k, &aside), PA_IMPOSSIBLE);
  EXPECT_EQ(k->ap, ahead);
  EXPECT_EQ(LiKorrElem(store.get(), &k, &ahead), PA_OK) << "already there";
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(LiKorrElem(store.get(), &none, &ahead), PA_OK);
  EXPECT_EQ(LiKorrElem(store.get(), nullptr, &ahead), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Correction, KorrElemOnAnArcAddsATangentLineOrSlidesOnTheCircle) {
  Store store;
  LI_TAB_STRUCT *k = QuarterArc(store.get());
  LI_TAB_STRUCT *arc = k;
  const GE_POINT below{1, -2};  // on the tangent line at the arc's start
  ASSERT_EQ(LiKorrElem(store.get(), &k, &below), PA_OK);
  ASSERT_NE(k, arc);
  EXPECT_EQ(k->type, LI_LINE);
  EXPECT_EQ(k->ap, below);
  EXPECT_EQ(k->ep, (GE_POINT{1, 0}));
  EXPECT_EQ(k->next, arc);
  EXPECT_EQ(LiCountElem(k), 2u);

  LI_TAB_STRUCT *alone = QuarterArc(store.get());
  const GE_POINT bottom{0, -1}, end{0, 1}, off{3, 3};
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &end), PA_IMPOSSIBLE) << "not onto its own end";
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &off), PA_IMPOSSIBLE);
  ASSERT_EQ(LiKorrElem(store.get(), &alone, &bottom), PA_OK);
  EXPECT_EQ(alone->ap, bottom);
  EXPECT_DOUBLE_EQ(alone->ang_ap, -kPi / 2) << "re-expanded: now a half circle";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, alone}));
}

TEST(Correction, KorrElemUnderAllocationFailure) {
  ForEachRecordShortage([](size_t n, InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = QuarterArc(store.get());
    LI_TAB_STRUCT *arc = k;
    LI_TAB_STRUCT *spare = TakeAllFreeBut(store.get(), n);
    const GE_POINT below{1, -2};
    failure.Arm();
    const uint16_t status = LiKorrElem(store.get(), &k, &below);
    failure.Disarm();
    if (failure.Fired()) {
      EXPECT_EQ(status, PA_NO_MEMORY);
      EXPECT_EQ(k, arc) << "the contour is left as it was";
      EXPECT_EQ(LiCountElem(k), 1u);
    } else {
      EXPECT_EQ(status, PA_OK);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
  });
}

}  // namespace
}  // namespace polyarc_test

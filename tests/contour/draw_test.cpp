// Drawing contours with moves, lines and arcs.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Draw, AMoveFollowedByADrawIsOneLine) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{0, 0}, b{3, 4}, c{3, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &a), PA_OK);
  EXPECT_EQ(LiMove(store.get(), &k, &a), PA_OK);  // onto the end: nothing added
  ASSERT_EQ(LiDraw(store.get(), &k, &b), PA_OK);
  EXPECT_EQ(Elements(k).size(), 1u);
  EXPECT_EQ(k->type, LI_LINE);
  EXPECT_DOUBLE_EQ(k->ang_ep - k->ang_ap, 5);
  EXPECT_EQ(LiDraw(store.get(), &k, &b), PA_OK);
  EXPECT_EQ(Elements(k).size(), 1u);
  ASSERT_EQ(LiDraw(store.get(), &k, &c), PA_OK);
  EXPECT_EQ(k->next->ap, b);
  ASSERT_EQ(LiMove(store.get(), &k, &a), PA_OK);
  ASSERT_EQ(LiMove(store.get(), &k, &b), PA_OK);
  EXPECT_EQ(Elements(k).size(), 4u) << "two moves to different points";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Draw, ArcAcceptsHalfTolAndRefusesOneAndAHalfTol) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT start{4, 0}, centre{0, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &start), PA_OK);
  const GE_POINT far{0, 4.75};
  EXPECT_EQ(LiArc(store.get(), &k, &far, &centre, 0), PA_INVALID);
  const GE_POINT near{0, 4.25};
  ASSERT_EQ(LiArc(store.get(), &k, &near, &centre, 0), PA_OK);
  EXPECT_EQ(k->type, LI_ARC_CCW);
  EXPECT_EQ(k->rad, 4.125) << "the mean of both distances";
  const GE_POINT back{4, 0};
  ASSERT_EQ(LiArc(store.get(), &k, &back, &centre, -1), PA_OK);
  EXPECT_EQ(k->next->type, LI_ARC_CW) << "any non-zero direction is clockwise";
  EXPECT_EQ(LiArc(store.get(), &k, &back, &centre, 1), PA_OK);
  EXPECT_EQ(Elements(k).size(), 2u) << "no full circle from the end to itself";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Draw, ArcAfterAMoveReusesIt) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT start{0, 1}, end{1, 0}, centre{0, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &start), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &end, &centre, 1), PA_OK);
  ASSERT_EQ(Elements(k).size(), 1u);
  EXPECT_EQ(k->type, LI_ARC_CW);
  EXPECT_EQ(k->ap, start);
  EXPECT_EQ(k->rad, 1);
  EXPECT_EQ(k->tan_ap, (GE_POINT{1, 0}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Draw, DrawNewReplacesTheContour) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {1, 1}});
  const GE_POINT a{5, 5};
  EXPECT_EQ(LiDrawNew(store.get(), &k, &a, &a), PA_ZERO_LENGTH);
  ASSERT_NE(k, nullptr);
  EXPECT_EQ(k->next, k);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Draw, BadArgumentsAndEmptyContours) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT p{1, 1};
  EXPECT_EQ(LiDraw(store.get(), nullptr, &p), PA_INVALID);
  EXPECT_EQ(LiDraw(store.get(), &k, &p), PA_INVALID);
  EXPECT_EQ(LiArc(store.get(), &k, &p, &p, 0), PA_INVALID);
  EXPECT_EQ(LiMove(store.get(), &k, nullptr), PA_INVALID);
  EXPECT_EQ(LiMove(store.get(), nullptr, &p), PA_INVALID);
  EXPECT_EQ(LiMove(nullptr, &k, &p), PA_NO_MEMORY) << "no store to take a record from";
  EXPECT_EQ(LiDrawNew(nullptr, &k, &p, &p), PA_NO_MEMORY);
  EXPECT_EQ(k, nullptr);
}

TEST(Draw, EveryStrokeUnderAllocationFailure) {
  ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = nullptr;
    const GE_POINT a{0, 0}, b{2, 0}, c{0, 0}, centre{1, 0};
    failure.Arm();
    uint16_t status = LiMove(store.get(), &k, &a);
    if (status == PA_OK) status = LiDraw(store.get(), &k, &b);
    if (status == PA_OK) status = LiArc(store.get(), &k, &c, &centre, 0);
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
  });
}

}  // namespace
}  // namespace polyarc_test

// Drawing contours with moves, lines and arcs.
#include "support/support.h"

namespace polyarc_test {
namespace {

// Lets a point be written in place where a pointer is taken.
const GE_POINT *At(const GE_POINT &p) {
  return &p;
}

TEST(Draw, AMoveFollowedByADrawIsOneLine) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  ASSERT_EQ(LiMove(store.get(), &k, At({0, 0})), PA_OK);
  EXPECT_EQ(LiMove(store.get(), &k, At({0, 0})), PA_OK);  // onto the end: nothing added
  ASSERT_EQ(LiDraw(store.get(), &k, At({3, 4})), PA_OK);
  EXPECT_EQ(LiDraw(store.get(), &k, At({3, 4})), PA_OK);  // likewise
  ASSERT_EQ(Elements(k).size(), 1u);
  EXPECT_EQ(k->type, LI_LINE);
  ASSERT_EQ(LiDraw(store.get(), &k, At({3, 0})), PA_OK);
  EXPECT_EQ(k->next->ap, (GE_POINT{3, 4}));
  ASSERT_EQ(LiMove(store.get(), &k, At({0, 0})), PA_OK);
  ASSERT_EQ(LiMove(store.get(), &k, At({1, 0})), PA_OK);
  EXPECT_EQ(Elements(k).size(), 4u) << "two moves to different points";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Draw, ArcAcceptsHalfTolAndRefusesOneAndAHalfTol) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{4, 0}});
  const GE_POINT centre{0, 0};
  EXPECT_EQ(LiArc(store.get(), &k, At({0, 4.75}), &centre, 0), PA_INVALID);
  ASSERT_EQ(LiArc(store.get(), &k, At({0, 4.25}), &centre, 0), PA_OK);
  ASSERT_EQ(Elements(k).size(), 1u) << "the move is reused";
  EXPECT_EQ(k->type, LI_ARC_CCW);
  EXPECT_EQ(k->ap, (GE_POINT{4, 0}));
  EXPECT_EQ(k->rad, 4.125) << "the mean of both distances";
  ASSERT_EQ(LiArc(store.get(), &k, At({4, 0}), &centre, -1), PA_OK);
  EXPECT_EQ(k->next->type, LI_ARC_CW) << "any non-zero direction is clockwise";
  EXPECT_EQ(LiArc(store.get(), &k, At({4, 0}), &centre, 1), PA_OK);
  EXPECT_EQ(Elements(k).size(), 2u) << "no full circle from the end to itself";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Draw, DrawNewReplacesTheContourAndBadArguments) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {1, 1}}), *empty = nullptr;
  const GE_POINT p{5, 5};
  EXPECT_EQ(LiDrawNew(store.get(), &k, &p, &p), PA_ZERO_LENGTH);
  EXPECT_EQ(Elements(k).size(), 1u);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
  EXPECT_EQ(LiDraw(store.get(), nullptr, &p), PA_INVALID);
  EXPECT_EQ(LiDraw(store.get(), &empty, &p), PA_INVALID);
  EXPECT_EQ(LiArc(store.get(), &empty, &p, &p, 0), PA_INVALID);
  EXPECT_EQ(LiMove(store.get(), &empty, nullptr), PA_INVALID);
  EXPECT_EQ(LiDrawNew(nullptr, &empty, &p, &p), PA_NO_MEMORY) << "no store to take a record from";
}

// The store is emptied before LiDrawNew so that it has to grow again.
TEST(Draw, EveryStrokeUnderAllocationFailure) {
  ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = nullptr, *single = nullptr, *spare = nullptr;
    failure.Arm();
    uint16_t status = LiMove(store.get(), &k, At({0, 0}));
    if (status == PA_OK) status = LiDraw(store.get(), &k, At({2, 0}));
    if (status == PA_OK) status = LiArc(store.get(), &k, At({0, 0}), At({1, 0}), 0);
    if (status == PA_OK) {
      spare = TakeAllFree(store.get());
      status = LiDrawNew(store.get(), &single, At({0, 0}), At({2, 0}));
    }
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, single, spare}));
  });
}

}  // namespace
}  // namespace polyarc_test

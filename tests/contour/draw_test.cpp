// Drawing contours with moves, lines and arcs.
#include "support/support.h"

namespace polyarc_test {
namespace {

// A move or draw onto the current end adds nothing.
TEST(Draw, AMoveFollowedByADrawIsOneLine) {
  Store store;
  LI_TAB_STRUCT *k = nullptr, *empty = nullptr;
  const GE_POINT o{0, 0}, p{3, 4}, q{1, 0};
  for (const GE_POINT *to : {&o, &o}) ASSERT_EQ(LiMove(store.get(), &k, to), PA_OK);
  for (const GE_POINT *to : {&p, &p}) ASSERT_EQ(LiDraw(store.get(), &k, to), PA_OK);
  ASSERT_EQ(Elements(k).size(), 1u);
  EXPECT_EQ(k->type, LI_LINE);
  for (const GE_POINT *to : {&o, &q}) ASSERT_EQ(LiMove(store.get(), &k, to), PA_OK);
  EXPECT_EQ(Elements(k).size(), 3u) << "two moves to different points";
  EXPECT_EQ(LiDrawNew(store.get(), &k, &p, &p), PA_ZERO_LENGTH);
  EXPECT_EQ(Elements(k).size(), 1u) << "the old contour is given back";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
  EXPECT_EQ(LiDraw(store.get(), &empty, &p), PA_INVALID);
  EXPECT_EQ(LiArc(store.get(), &empty, &p, &p, 0), PA_INVALID);
  EXPECT_EQ(LiDrawNew(nullptr, &empty, &p, &p), PA_NO_MEMORY) << "no store to take a record from";
}

// Any non-zero direction is clockwise; no full circle from the end to itself.
TEST(Draw, ArcAcceptsHalfTolAndRefusesOneAndAHalfTol) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{4, 0}});
  const GE_POINT centre{0, 0}, far{0, 4.75}, near{0, 4.25}, back{4, 0};
  EXPECT_EQ(LiArc(store.get(), &k, &far, &centre, 0), PA_INVALID);
  ASSERT_EQ(LiArc(store.get(), &k, &near, &centre, 0), PA_OK);
  ASSERT_EQ(Elements(k).size(), 1u) << "the move is reused";
  EXPECT_EQ(k->type, LI_ARC_CCW);
  EXPECT_EQ(k->rad, 4.125) << "the mean of both distances";
  ASSERT_EQ(LiArc(store.get(), &k, &back, &centre, -1), PA_OK);
  EXPECT_EQ(k->next->type, LI_ARC_CW);
  EXPECT_EQ(LiArc(store.get(), &k, &back, &centre, 1), PA_OK);
  EXPECT_EQ(Elements(k).size(), 2u);
}

// The store is emptied before each stroke that needs a record.
TEST(Draw, EveryStrokeUnderAllocationFailure) {
  const GE_POINT o{0, 0}, a{2, 0}, b{2, 2}, c{1, 1};
  const auto build = [](LI_HEAD *) { return Live{nullptr, nullptr}; };
  ExpectCleanAllocationFailures(PA_NO_MEMORY, build, [&](LI_HEAD *head, Live &live) {
    uint16_t status = LiMove(head, &live[0], &o);
    if (status == PA_OK) status = LiDraw(head, &live[0], &a);  // turns the move into a line
    if (status == PA_OK) status = LiDraw(head, &live[0], &b);
    if (status == PA_OK) status = LiArc(head, &live[0], &o, &c, 0);
    if (status == PA_OK) status = LiDrawNew(head, &live[1], &o, &a);
    return status;
  });
}

}  // namespace
}  // namespace polyarc_test

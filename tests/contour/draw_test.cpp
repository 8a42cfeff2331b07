// Drawing contours with moves, lines and arcs, and the diagnostic dump: its
// exact line format, to a stream or to standard error.
#include <cstdio>

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
  ASSERT_TRUE(Elements(k).size() == 1 && k->type == LI_LINE);
  for (const GE_POINT *to : {&o, &q}) ASSERT_EQ(LiMove(store.get(), &k, to), PA_OK);
  EXPECT_EQ(Elements(k).size(), 3u) << "two moves to different points";
  EXPECT_EQ(LiDrawNew(store.get(), &k, &p, &p), PA_ZERO_LENGTH);
  EXPECT_EQ(Elements(k).size(), 1u) << "the old contour is given back";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
  EXPECT_EQ(LiDraw(store.get(), &empty, &p) + LiArc(store.get(), &empty, &p, &p, 0),
            2 * PA_INVALID);
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
  EXPECT_TRUE(k->type == LI_ARC_CCW && k->rad == 4.125) << "the mean of both distances";
  ASSERT_EQ(LiArc(store.get(), &k, &back, &centre, -1), PA_OK);
  EXPECT_EQ(k->next->type, LI_ARC_CW);
  EXPECT_TRUE(LiArc(store.get(), &k, &back, &centre, 1) == PA_OK && Elements(k).size() == 2);
}

TEST(Dump, OneLinePerElementInTheExactFormat) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {3, 4}});
  const GE_POINT c{-2.5, 4}, centre{0.25, 4};
  ASSERT_EQ(LiArc(store.get(), &k, &c, &centre, 1), PA_OK);
  k->no = 7, k->next->no = 12, k->next->attr_val = 99;  // payload, centre, radius not printed
  char expected[200];
  std::snprintf(expected, sizeof expected,
                "%11p  1          0          0          3          4 7\n"
                "%11p  3          3          4       -2.5          4 12\n",
                static_cast<void *>(k), static_cast<void *>(k->next));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(PA_OK, LiDebDumpLi(k, stdout) + LiDebDumpLi(k, nullptr) +
                       LiDebDumpLi(nullptr, nullptr) + LiDebLi(k) + LiDebElem(k));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), expected) << "a null stream is stderr";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), expected) << "the others write nothing";
}

}  // namespace
}  // namespace polyarc_test

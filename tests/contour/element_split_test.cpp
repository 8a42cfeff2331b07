// Cutting elements in two.
#include <cmath>
#include <cstddef>
#include <cstring>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

bool SameBits(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  const size_t from = offsetof(LI_TAB_STRUCT, ap);
  return a.type == b.type && std::memcmp(reinterpret_cast<const char *>(&a) + from,
                                         reinterpret_cast<const char *>(&b) + from,
                                         sizeof a - from) == 0;
}

TEST(Split, LineKeepsTheFirstPieceAndChainsTheSecondAfterIt) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  LI_TAB_STRUCT *e = k;
  LI_TAB_STRUCT *last = k->next;
  e->attr_val = 1.5;
  e->attr_id = -3;
  e->no = 9;
  e->mark = 1;
  const GE_POINT cut{1, 0};
  LI_TAB_STRUCT *out = nullptr;
  ASSERT_EQ(LiElemSplit(store.get(), e, &out, &cut), PA_OK);
  ASSERT_EQ(Elements(k).size(), 3u);
  EXPECT_EQ(e->next, out);
  EXPECT_EQ(out->next, last);
  EXPECT_EQ(e->ep, cut);
  EXPECT_EQ(out->ap, cut);
  EXPECT_EQ(out->ep, (GE_POINT{4, 0}));
  EXPECT_EQ(LiElemLen(e) + LiElemLen(out), 4);
  EXPECT_EQ(out->attr_val, 1.5);
  EXPECT_EQ(out->attr_id, -3);
  EXPECT_EQ(out->no, 9);
  EXPECT_EQ(out->mark, 1);
  EXPECT_EQ(out->box.xmin, 1 - GeEpsiGetTol()) << "the piece is re-expanded";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Split, ArcPiecesMeetAtTheCutAndKeepTheLength) {
  Store store;
  for (uint16_t type : {LI_ARC_CW, LI_ARC_CCW}) {
    LI_TAB_STRUCT *k = nullptr;
    const LI_TAB_STRUCT arc = Arc({2, 0}, {-2, 0}, {0, 0}, type);
    ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
    const GE_POINT cut = LiElemPt(k, 0.25);
    LI_TAB_STRUCT *out = nullptr;
    ASSERT_EQ(LiElemSplit(store.get(), k, &out, &cut), PA_OK);
    EXPECT_EQ(k->next, out);
    EXPECT_EQ(k->ep, out->ap);
    EXPECT_EQ(out->ap, cut);
    EXPECT_NEAR(LiElemLen(k), 0.5 * kPi, 1e-12) << type;
    EXPECT_NEAR(LiElemLen(k) + LiElemLen(out), 2 * kPi, 1e-12) << type;
    LiRemove(store.get(), &k);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
}

TEST(Split, NearAnEndNothingIsCut) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  const LI_TAB_STRUCT before = *k;
  LI_TAB_STRUCT *out = nullptr;
  const GE_POINT near_start{0.25, 0.25};
  EXPECT_EQ(LiElemSplit(store.get(), k, &out, &near_start), PA_OK);
  EXPECT_EQ(out, k);
  const GE_POINT near_end{3.75, -0.25};
  EXPECT_EQ(LiElemSplit(store.get(), k, &out, &near_end), PA_OK);
  EXPECT_EQ(out, k->next);
  EXPECT_TRUE(SameBits(*k, before));
  EXPECT_EQ(Elements(k).size(), 2u);
  const GE_POINT just_off{0.5, 0};  // |dx| == tol is not within tol
  EXPECT_EQ(LiElemSplit(store.get(), k, &out, &just_off), PA_OK);
  EXPECT_EQ(Elements(k).size(), 3u);
  EXPECT_EQ(LiElemSplit(store.get(), nullptr, &out, &just_off), PA_INVALID);
  EXPECT_EQ(LiElemSplit(store.get(), k, nullptr, &just_off), PA_INVALID);
  EXPECT_EQ(LiElemSplit(store.get(), k, &out, nullptr), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Split, AllocationFailureLeavesTheElementAsItWas) {
  ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}});
    LI_TAB_STRUCT *spare = TakeAllFree(store.get());
    const LI_TAB_STRUCT before = *k;
    const GE_POINT cut{1, 0};
    LI_TAB_STRUCT *out = k;
    failure.Arm();
    const uint16_t status = LiElemSplit(store.get(), k, &out, &cut);
    failure.Disarm();
    if (failure.Fired()) {
      EXPECT_EQ(status, PA_NO_RECORD);
      EXPECT_EQ(out, nullptr);
      EXPECT_TRUE(SameBits(*k, before));
      EXPECT_EQ(Elements(k).size(), 1u);
    } else {
      EXPECT_EQ(status, PA_OK);
      EXPECT_EQ(Elements(k).size(), 2u);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
  });
}

}  // namespace
}  // namespace polyarc_test

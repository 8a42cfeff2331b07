// Cutting elements in two, and the radius correction of arc pieces.
#include <cmath>
#include <cstddef>
#include <cstring>

#include "support/support.h"

namespace polyarc_test {
namespace {

bool SameBits(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  return a.type == b.type && std::memcmp(&a.ap, &b.ap, sizeof a - offsetof(LI_TAB_STRUCT, ap)) == 0;
}

using Cut = uint16_t (*)(LI_HEAD *, LI_TAB_STRUCT *, LI_TAB_STRUCT **, const GE_POINT *);

// LiElemSplit keeps the first piece and chains the new second one after it;
// LiElemTeilen keeps the second and chains the new first one before it. The
// cut on the line is exactly tol from its start, which is not within tol.
TEST(Cut, PiecesMeetAtTheCutAndKeepTheLength) {
  ToleranceScope tol(0.5);
  Store store;
  const LI_TAB_STRUCT elems[] = {Line({2, 0}, {-2, 0}), Arc({2, 0}, {-2, 0}, {0, 0}, LI_ARC_CW),
                                 Arc({2, 0}, {-2, 0}, {0, 0}, LI_ARC_CCW)};
  const GE_POINT near_ap{1.75, 0.25}, near_ep{-2.25, -0.25};
  for (Cut cut : {Cut{LiElemSplit}, Cut{LiElemTeilen}}) {
    for (const LI_TAB_STRUCT &elem : elems) {
      const bool split = cut == Cut{LiElemSplit};
      SCOPED_TRACE(testing::Message() << (split ? "split, type " : "teilen, type ") << elem.type);
      LI_TAB_STRUCT *k = nullptr, *out = nullptr;
      for (const LI_TAB_STRUCT &e : {Line({2, -1}, {2, 0}), elem, Line({-2, 0}, {-2, -1})}) {
        ASSERT_EQ(LiInsertElem2(store.get(), &k, &e), PA_OK);
      }
      LI_TAB_STRUCT *e = k->next, *last = e->next;
      const LI_TAB_STRUCT before = *e;
      ASSERT_EQ(cut(store.get(), e, &out, &near_ap), PA_OK);
      EXPECT_EQ(out, split ? e : k);
      ASSERT_EQ(cut(store.get(), e, &out, &near_ep), PA_OK);
      EXPECT_EQ(out, split ? last : e);
      EXPECT_TRUE(SameBits(*e, before)) << "nothing cut within tol of an end";
      e->attr_id = -3;
      const GE_POINT p = LiElemPt(e, 0.125);
      ASSERT_EQ(cut(store.get(), e, &out, &p), PA_OK);
      LI_TAB_STRUCT *first = split ? e : out, *second = split ? out : e;
      EXPECT_EQ(Elements(k), (std::vector<LI_TAB_STRUCT *>{k, first, second, last}));
      EXPECT_EQ(first->ep, p);
      EXPECT_EQ(second->ap, p);
      EXPECT_NEAR(LiElemLen(first), 0.125 * LiElemLen(&elem), 1e-12);
      EXPECT_NEAR(LiElemLen(first) + LiElemLen(second), LiElemLen(&elem), 1e-12);
      EXPECT_EQ(out->attr_id, -3) << "a whole-record copy";
      for (LI_TAB_STRUCT fresh : {*first, *second}) {
        const LI_TAB_STRUCT piece = fresh;
        LiElemExpand(&fresh);
        EXPECT_TRUE(SameBits(fresh, piece)) << "re-expanded";
      }
      EXPECT_EQ(cut(store.get(), nullptr, &out, &p), PA_INVALID);
      EXPECT_EQ(cut(store.get(), e, nullptr, &p), PA_INVALID);
      EXPECT_EQ(cut(store.get(), e, &out, nullptr), PA_INVALID);
      LiRemove(store.get(), &k);
    }
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
}

TEST(Cut, AllocationFailureLeavesTheElementAsItWas) {
  for (Cut cut : {Cut{LiElemSplit}, Cut{LiElemTeilen}}) {
    ForEachAllocationFailure([cut](InjectedFailure &failure) {
      Store store;
      LI_TAB_STRUCT *k = nullptr;
      const LI_TAB_STRUCT arc = Arc({2, 0}, {-2, 0}, {0, 0}, LI_ARC_CW);
      ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
      LI_TAB_STRUCT *spare = TakeAllFree(store.get()), *out = k;
      const LI_TAB_STRUCT before = *k;
      const GE_POINT p{0, -2};
      failure.Arm();
      const uint16_t status = cut(store.get(), k, &out, &p);
      failure.Disarm();
      EXPECT_EQ(status, failure.Fired() ? PA_NO_RECORD : PA_OK);
      if (failure.Fired()) {
        EXPECT_EQ(out, nullptr);
        EXPECT_TRUE(SameBits(*k, before));
      }
      EXPECT_EQ(Elements(k).size(), failure.Fired() ? 1u : 2u);
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
    });
  }
}

// Only LiElemTeilen moves the centres of the pieces so that both ends of
// each lie on its circle; an arc of radius below tol it cuts uncorrected.
TEST(Cut, OnlyTeilenCorrectsTheRadius) {
  Store store;
  const LI_TAB_STRUCT arc = Arc({5, 0}, {-5, 0}, {0, 0}, LI_ARC_CCW);
  const GE_POINT off{0, 5.5};
  for (Cut cut : {Cut{LiElemSplit}, Cut{LiElemTeilen}}) {
    const bool teilen = cut == Cut{LiElemTeilen};
    LI_TAB_STRUCT *k = nullptr, *out = nullptr;
    ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
    ASSERT_EQ(cut(store.get(), k, &out, &off), PA_OK);
    for (const LI_TAB_STRUCT *piece : {out, k}) {
      const double off_ap = std::hypot(piece->ap.x - piece->mp.x, piece->ap.y - piece->mp.y) - 5;
      const double off_ep = std::hypot(piece->ep.x - piece->mp.x, piece->ep.y - piece->mp.y) - 5;
      EXPECT_EQ(std::fabs(off_ap) + std::fabs(off_ep) < 1e-12, teilen);
      EXPECT_EQ(piece->rad, 5);
    }
    LiRemove(store.get(), &k);
  }
  ToleranceScope tol(0.5);
  LI_TAB_STRUCT tiny = arc;
  tiny.rad = 0.25;
  LI_TAB_STRUCT *k = nullptr, *out = nullptr;
  ASSERT_EQ(LiInsertElem2(store.get(), &k, &tiny), PA_OK);
  EXPECT_EQ(LiElemTeilen(store.get(), k, &out, &off), PA_ZERO_RADIUS);
  EXPECT_EQ(Elements(k).size(), 2u);
  EXPECT_EQ(out->ep, off);
  EXPECT_EQ(out->mp, tiny.mp);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(RadKorr, CentreMovesToPutBothEndsOnTheCircle) {
  ToleranceScope tol(0.5);
  // Arcs from the origin, not expanded.
  const struct {
    GE_POINT ep, mp;
    double rad;
    uint16_t status;
    GE_POINT new_mp;
    double new_rad;
  } rows[] = {{{4, 0}, {2, 0.5}, 1, PA_OK, {2, 0}, 2},           // chord over 2 rad: half of it
              {{6, 0}, {3, -3}, 5, PA_OK, {3, -4}, 5},           // 3-4-5: the crossing nearer mp
              {{6, 0}, {3, 3}, 5, PA_OK, {3, 4}, 5},             // and on the other side
              {{4, 0}, {2, 2}, 2, PA_OK, {2, 0}, 2},             // the circles touch
              {{6, 0}, {3, 4.25}, 5, PA_OK, {3, 4.25}, 5},       // ends within tol of the circle
              {{6, 0}, {3, 1}, 0.5, PA_OK, {3, 1}, 0.5},         // |rad| == tol
              {{0.25, 0.25}, {3, 1}, 2, PA_OK, {3, 1}, 2},       // ends coincide
              {{0.5, 0}, {3, 1}, 2, PA_CONCENTRIC, {3, 1}, 2}};  // ends exactly tol apart
  for (const auto &row : rows) {
    LI_TAB_STRUCT e{};
    e.type = LI_ARC_CCW;
    e.ep = row.ep;
    e.mp = row.mp;
    e.rad = row.rad;
    EXPECT_EQ(LiRadKorr(&e), row.status) << row.mp;
    EXPECT_EQ(e.mp, row.new_mp) << row.mp;
    EXPECT_EQ(e.rad, row.new_rad) << row.mp;
    EXPECT_EQ(e.ang_ap, 0) << "derived fields are left alone";
  }
  LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  EXPECT_EQ(LiRadKorr(&line), PA_INVALID);
  EXPECT_EQ(LiRadKorr(nullptr), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

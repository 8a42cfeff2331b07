// Cutting elements in two, and the radius correction of arc pieces.
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

double Radius(GE_POINT p, GE_POINT centre) { return std::hypot(p.x - centre.x, p.y - centre.y); }

TEST(Split, LineKeepsTheFirstPieceAndChainsTheSecondAfterIt) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  LI_TAB_STRUCT *last = k->next;
  k->attr_id = -3;
  k->mark = 1;
  const GE_POINT cut{1, 0};
  LI_TAB_STRUCT *out = nullptr;
  ASSERT_EQ(LiElemSplit(store.get(), k, &out, &cut), PA_OK);
  EXPECT_EQ(Elements(k), (std::vector<LI_TAB_STRUCT *>{k, out, last}));
  EXPECT_EQ(k->ep, cut);
  EXPECT_EQ(out->ap, cut);
  EXPECT_EQ(out->ep, (GE_POINT{4, 0}));
  EXPECT_EQ(LiElemLen(k) + LiElemLen(out), 4);
  EXPECT_EQ(out->attr_id, -3) << "a whole-record copy";
  EXPECT_EQ(out->mark, 1);
  EXPECT_EQ(out->box.xmin, 1 - GeEpsiGetTol()) << "re-expanded";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Teilen, LineKeepsTheSecondPieceAndChainsTheFirstBeforeIt) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{-1, 0}, {0, 0}, {4, 0}});
  LI_TAB_STRUCT *e = k->next;
  const GE_POINT cut{1, 0};
  LI_TAB_STRUCT *out = nullptr;
  ASSERT_EQ(LiElemTeilen(store.get(), e, &out, &cut), PA_OK);
  EXPECT_EQ(Elements(k), (std::vector<LI_TAB_STRUCT *>{k, out, e}));
  EXPECT_EQ(out->ap, (GE_POINT{0, 0}));
  EXPECT_EQ(out->ep, cut);
  EXPECT_EQ(e->ap, cut);
  EXPECT_EQ(LiElemLen(out) + LiElemLen(e), 4);
  EXPECT_EQ(out->box.xmax, 1 + GeEpsiGetTol()) << "re-expanded";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

using Cut = uint16_t (*)(LI_HEAD *, LI_TAB_STRUCT *, LI_TAB_STRUCT **, const GE_POINT *);

// Both cuts of a half circle of radius 2, a quarter of the way along, in
// both senses: the pieces meet exactly at the cut and keep the length, and
// the out pointer is on the piece that starts (LiElemSplit) or ends
// (LiElemTeilen) there.
TEST(Cut, ArcPiecesMeetAtTheCutAndKeepTheLength) {
  Store store;
  for (Cut cut : {Cut{LiElemSplit}, Cut{LiElemTeilen}}) {
    for (uint16_t type : {LI_ARC_CW, LI_ARC_CCW}) {
      LI_TAB_STRUCT *k = nullptr;
      const LI_TAB_STRUCT arc = Arc({2, 0}, {-2, 0}, {0, 0}, type);
      ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
      const GE_POINT p = LiElemPt(k, 0.25);
      LI_TAB_STRUCT *out = nullptr;
      ASSERT_EQ(cut(store.get(), k, &out, &p), PA_OK);
      const bool split = cut == Cut{LiElemSplit};
      LI_TAB_STRUCT *first = split ? k : out;
      LI_TAB_STRUCT *second = split ? out : k;
      EXPECT_EQ(first->next, second);
      EXPECT_EQ(first->ep, p);
      EXPECT_EQ(second->ap, p);
      EXPECT_EQ(second->mp, arc.mp);
      EXPECT_NEAR(LiElemLen(first), 0.5 * kPi, 1e-12) << type;
      EXPECT_NEAR(LiElemLen(first) + LiElemLen(second), 2 * kPi, 1e-12) << type;
      LiRemove(store.get(), &k);
    }
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
}

TEST(Cut, NearAnEndNothingIsCut) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{-4, 0}, {0, 0}, {4, 0}, {4, 3}});
  LI_TAB_STRUCT *e = k->next;
  const LI_TAB_STRUCT before = *e;
  const GE_POINT near_start{0.25, 0.25}, near_end{3.75, -0.25};
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(LiElemSplit(store.get(), e, &out, &near_start), PA_OK);
  EXPECT_EQ(out, e);
  EXPECT_EQ(LiElemSplit(store.get(), e, &out, &near_end), PA_OK);
  EXPECT_EQ(out, e->next);
  EXPECT_EQ(LiElemTeilen(store.get(), e, &out, &near_start), PA_OK);
  EXPECT_EQ(out, e->prev);
  EXPECT_EQ(LiElemTeilen(store.get(), e, &out, &near_end), PA_OK);
  EXPECT_EQ(out, e);
  EXPECT_TRUE(SameBits(*e, before));
  EXPECT_EQ(Elements(k).size(), 3u);
  const GE_POINT just_off{0.5, 0};  // |dx| == tol is not within tol
  EXPECT_EQ(LiElemSplit(store.get(), e, &out, &just_off), PA_OK);
  EXPECT_EQ(Elements(k).size(), 4u);
  for (Cut cut : {Cut{LiElemSplit}, Cut{LiElemTeilen}}) {
    EXPECT_EQ(cut(store.get(), nullptr, &out, &just_off), PA_INVALID);
    EXPECT_EQ(cut(store.get(), e, nullptr, &just_off), PA_INVALID);
    EXPECT_EQ(cut(store.get(), e, &out, nullptr), PA_INVALID);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Cut, AllocationFailureLeavesTheElementAsItWas) {
  for (Cut cut : {Cut{LiElemSplit}, Cut{LiElemTeilen}}) {
    ForEachAllocationFailure([cut](InjectedFailure &failure) {
      Store store;
      LI_TAB_STRUCT *k = nullptr;
      const LI_TAB_STRUCT arc = Arc({2, 0}, {-2, 0}, {0, 0}, LI_ARC_CW);
      ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
      LI_TAB_STRUCT *spare = TakeAllFree(store.get());
      const LI_TAB_STRUCT before = *k;
      const GE_POINT p{0, -2};
      LI_TAB_STRUCT *out = k;
      failure.Arm();
      const uint16_t status = cut(store.get(), k, &out, &p);
      failure.Disarm();
      if (failure.Fired()) {
        EXPECT_EQ(status, PA_NO_RECORD);
        EXPECT_EQ(out, nullptr);
        EXPECT_TRUE(SameBits(*k, before));
      } else {
        EXPECT_EQ(status, PA_OK);
      }
      EXPECT_EQ(Elements(k).size(), failure.Fired() ? 1u : 2u);
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
    });
  }
}

TEST(Teilen, ArcPiecesGetTheirOwnCentres) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const LI_TAB_STRUCT arc = Arc({5, 0}, {-5, 0}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
  const GE_POINT cut{0, 5.5};  // off the circle
  LI_TAB_STRUCT *out = nullptr;
  ASSERT_EQ(LiElemTeilen(store.get(), k, &out, &cut), PA_OK);
  for (const LI_TAB_STRUCT *piece : {out, k}) {
    EXPECT_EQ(piece->rad, 5);
    EXPECT_NEAR(Radius(piece->ap, piece->mp), 5, 1e-12);
    EXPECT_NEAR(Radius(piece->ep, piece->mp), 5, 1e-12);
  }
  EXPECT_EQ(out->ep, k->ap);
  EXPECT_NE(out->mp, k->mp);
  LiRemove(store.get(), &k);
}

TEST(Teilen, ArcOfZeroRadiusIsCutUncorrected) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  LI_TAB_STRUCT arc = Arc({4, 0}, {-4, 0}, {0, 0}, LI_ARC_CCW);
  arc.rad = 0.25;
  ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
  const GE_POINT top{0, 4};
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(LiElemTeilen(store.get(), k, &out, &top), PA_ZERO_RADIUS);
  EXPECT_EQ(Elements(k).size(), 2u);
  EXPECT_EQ(out->ep, top);
  EXPECT_EQ(out->mp, arc.mp);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

// An arc from ap to ep about mp with radius rad, not expanded.
LI_TAB_STRUCT RawArc(GE_POINT ap, GE_POINT ep, GE_POINT mp, double rad) {
  LI_TAB_STRUCT e{};
  e.type = LI_ARC_CCW;
  e.ap = ap;
  e.ep = ep;
  e.mp = mp;
  e.rad = rad;
  return e;
}

TEST(RadKorr, CentreMovesToPutBothEndsOnTheCircle) {
  LI_TAB_STRUCT e = RawArc({0, 0}, {4, 0}, {2, 0.5}, 1);
  ASSERT_EQ(LiRadKorr(&e), PA_OK);
  EXPECT_EQ(e.mp, (GE_POINT{2, 0})) << "too short a radius: half the chord";
  EXPECT_EQ(e.rad, 2);
  EXPECT_EQ(e.ang_ap, 0) << "derived fields are left alone";
  // 3-4-5: the circles of radius 5 about (0,0) and (6,0) cross at (3,+-4).
  LI_TAB_STRUCT below = RawArc({0, 0}, {6, 0}, {3, -3.5}, 5);
  ASSERT_EQ(LiRadKorr(&below), PA_OK);
  EXPECT_EQ(below.mp, (GE_POINT{3, -4}));
  LI_TAB_STRUCT above = RawArc({0, 0}, {6, 0}, {3, 3.5}, 5);
  ASSERT_EQ(LiRadKorr(&above), PA_OK);
  EXPECT_EQ(above.mp, (GE_POINT{3, 4}));
  LI_TAB_STRUCT touching = RawArc({0, 0}, {4, 0}, {2, 1}, 2);
  ASSERT_EQ(LiRadKorr(&touching), PA_OK);
  EXPECT_EQ(touching.mp, (GE_POINT{2, 0}));
}

TEST(RadKorr, NothingToDoAndFailures) {
  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT unchanged[] = {
      RawArc({0, 0}, {6, 0}, {3, 4.25}, 5),       // both ends 0.2 off the circle
      RawArc({0, 0}, {6, 0}, {3, 1}, 0.5),        // |rad| == tol
      RawArc({0, 0}, {0.25, 0.25}, {3, 1}, 2)};   // ends coincide
  for (const LI_TAB_STRUCT &original : unchanged) {
    LI_TAB_STRUCT e = original;
    ASSERT_EQ(LiRadKorr(&e), PA_OK);
    EXPECT_EQ(e.mp, original.mp);
    EXPECT_EQ(e.rad, original.rad);
  }
  // Ends tol apart are not the same point, but the circles about them are
  // concentric within tol.
  LI_TAB_STRUCT concentric = RawArc({0, 0}, {0.5, 0}, {3, 1}, 2);
  EXPECT_EQ(LiRadKorr(&concentric), PA_CONCENTRIC);
  EXPECT_EQ(concentric.mp, (GE_POINT{3, 1}));
  LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  EXPECT_EQ(LiRadKorr(&line), PA_INVALID);
  EXPECT_EQ(LiRadKorr(nullptr), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

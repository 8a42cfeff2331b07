// Cutting elements in two, and the radius correction of arc pieces.
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

using Cut = uint16_t (*)(LI_HEAD *, LI_TAB_STRUCT *, LI_TAB_STRUCT **, const GE_POINT *);
const Cut kCuts[] = {LiElemSplit, LiElemTeilen};

// Split keeps the first piece and chains the new one after it, Teilen the
// reverse. The cut on the line is exactly tol from ap: not within tol.
TEST(Cut, PiecesMeetAtTheCutAndKeepTheLength) {
  ToleranceScope tol(0.5);
  Store store;
  const LI_TAB_STRUCT elems[] = {Line({2, 0}, {-2, 0}), Arc({2, 0}, {-2, 0}, {0, 0}, LI_ARC_CW),
                                 Arc({2, 0}, {-2, 0}, {0, 0}, LI_ARC_CCW)};
  const GE_POINT near_ap{1.75, 0.25}, near_ep{-2.25, -0.25};
  for (Cut cut : kCuts) {
    const bool split = cut == Cut{LiElemSplit};
    for (const LI_TAB_STRUCT &elem : elems) {
      SCOPED_TRACE(testing::Message() << (split ? "split, type " : "teilen, type ") << elem.type);
      LI_TAB_STRUCT *k = nullptr, *out = nullptr;
      for (const LI_TAB_STRUCT &e : {Line({2, -1}, {2, 0}), elem, Line({-2, 0}, {-2, -1})})
        ASSERT_EQ(LiInsertElem2(store.get(), &k, &e), PA_OK);
      LI_TAB_STRUCT *e = k->next, *last = e->next;
      ASSERT_EQ(cut(store.get(), e, &out, &near_ap), PA_OK);  // nothing cut
      EXPECT_EQ(out, split ? e : k);
      ASSERT_EQ(cut(store.get(), e, &out, &near_ep), PA_OK);
      EXPECT_EQ(out, split ? last : e);
      e->attr_id = -3;
      const GE_POINT p = LiElemPt(e, 0.125);
      ASSERT_EQ(cut(store.get(), e, &out, &p), PA_OK);
      LI_TAB_STRUCT *first = split ? e : out, *second = split ? out : e;
      EXPECT_EQ(Elements(k), (std::vector<LI_TAB_STRUCT *>{k, first, second, last}));
      EXPECT_TRUE(first->ep == p && second->ap == p);
      EXPECT_NEAR(LiElemLen(first) + LiElemLen(second), LiElemLen(&elem), 1e-12);
      EXPECT_EQ(out->attr_id, -3) << "a whole-record copy";
      LiRemove(store.get(), &k);
    }
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
}

TEST(Cut, UnderAllocationFailure) {
  const GE_POINT a{0, 0}, b{2, 0}, p{1, 0};
  const auto build = [&](LI_HEAD *head) { return Live{Polyline(head, {a, b})}; };
  for (Cut cut : kCuts) {
    ExpectCleanAllocationFailures(PA_NO_RECORD, build, [&](LI_HEAD *head, Live &live) {
      LI_TAB_STRUCT *out = live[0], *e = live[0];
      const uint16_t status = cut(head, e, &out, &p);
      EXPECT_TRUE(status == PA_OK || (!out && e->ap == a && e->ep == b && e->next == e));
      return status;
    });
  }
}

// Only Teilen re-centres the pieces, but not those of radius below tol.
TEST(Cut, OnlyTeilenCorrectsTheRadius) {
  Store store;
  LI_TAB_STRUCT arc = Arc({5, 0}, {-5, 0}, {0, 0}, LI_ARC_CCW), *k = nullptr, *out = nullptr;
  const GE_POINT off{0, 5.5};
  for (Cut cut : kCuts) {
    ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
    ASSERT_EQ(cut(store.get(), k, &out, &off), PA_OK);
    EXPECT_EQ(out->mp == arc.mp, cut == Cut{LiElemSplit});
    EXPECT_EQ(k->mp == arc.mp, cut == Cut{LiElemSplit});
    EXPECT_EQ(cut(store.get(), nullptr, &out, &off) + cut(store.get(), k, &out, nullptr),
              2 * PA_INVALID);
    LiRemove(store.get(), &k);
  }
  ToleranceScope tol(0.5);
  arc.rad = 0.25;
  ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
  EXPECT_EQ(LiElemTeilen(store.get(), k, &out, &off), PA_ZERO_RADIUS);
  EXPECT_EQ(out->mp, arc.mp);
}

// Arcs from the origin to ep about mp with radius rad.
TEST(RadKorr, CentreMovesToPutBothEndsOnTheCircle) {
  ToleranceScope tol(0.5);
  using Row = std::tuple<GE_POINT, GE_POINT, double, uint16_t, GE_POINT, double>;
  for (const auto &[ep, mp, rad, status, new_mp, new_rad] :
       {Row{{4, 0}, {2, 0.5}, 1, PA_OK, {2, 0}, 2},             // chord over 2 rad: half of it
        Row{{6, 0}, {3, -3}, 5, PA_OK, {3, -4}, 5},             // 3-4-5: the crossing nearer mp
        Row{{6, 0}, {3, 3}, 5, PA_OK, {3, 4}, 5},               // and on the other side
        Row{{6, 0}, {3, 4.25}, 5, PA_OK, {3, 4.25}, 5},         // ends within tol of the circle
        Row{{6, 0}, {3, 1}, 0.5, PA_OK, {3, 1}, 0.5},           // |rad| == tol
        Row{{0.25, 0.25}, {3, 1}, 2, PA_OK, {3, 1}, 2},         // ends coincide
        Row{{0.5, 0}, {3, 1}, 2, PA_CONCENTRIC, {3, 1}, 2}}) {  // ends exactly tol apart
    LI_TAB_STRUCT e = Arc({0, 0}, ep, mp, LI_ARC_CCW);
    e.rad = rad;
    EXPECT_EQ(LiRadKorr(&e), status) << mp;
    EXPECT_TRUE(e.mp == new_mp && e.rad == new_rad) << mp;
  }
  LI_TAB_STRUCT line = Line({0, 0}, {4, 0});
  EXPECT_EQ(LiRadKorr(&line) + LiRadKorr(nullptr), 2 * PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

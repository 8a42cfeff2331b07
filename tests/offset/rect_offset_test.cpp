// The rectangle offset: corners per direction, moved elements, axis cuts,
// bridges, open ends, and a circle run through all the steps.
#include <cmath>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

TEST(OffsVk, CornerPerDirectionSideAndEnd) {
  const double s = std::numbers::sqrt2 / 2;
  const struct {
    GE_POINT dir;
    int16_t side;
    int32_t end;
    double scale;
    GE_POINT corner;
  } cases[] = {// Along an axis the start goes back and the end forward on both sides.
               {{1, 0}, 1, 0, 1, {-1, 2}},
               {{1, 0}, 1, 1, 1, {1, 2}},
               {{0, -1}, -1, 1, 1, {-1, -2}},
               // Oblique: the corner furthest out on the side; only -1 is right.
               {{-s, -s}, 1, 1, 1, {1, -2}},
               {{s, -s}, 7, 0, 1, {1, 2}},
               // 4e-5 across counts as axis-parallel against tol / 1, not tol / 10.
               {{1, 4e-5}, 1, 1, 1, {1, 2}},
               {{1, 4e-5}, 1, 1, 10, {-1, 2}}};
  for (const auto &c : cases) {
    GE_POINT corner{};
    EXPECT_EQ(FlOffsVk(&c.dir, 1, 2, c.side, &corner, c.end, c.scale), PA_OK);
    EXPECT_EQ(corner, c.corner) << c.dir << " side " << c.side << " end " << c.end;
  }
}

TEST(OffsElem, LinesLengthenArcsTranslate) {
  // A line of length 5 offset left by (1, 2): length 7, lying 2 above.
  LI_TAB_STRUCT line = Line({0, 0}, {5, 0});
  ASSERT_EQ(FlOffsElem(&line, 1, 2, kLeft), PA_OK);
  EXPECT_TRUE(line.ap == (GE_POINT{-1, 2}) && line.ep == (GE_POINT{6, 2}));
  EXPECT_EQ(line.ang_ep - line.ang_ap, 7);
  // A counter-clockwise quarter moves by (dx, dy) outwards, by (-dx, -dy) inwards.
  for (const auto &[side, shift] :
       {std::pair<uint16_t, GE_POINT>{kRight, {1, 2}}, {kLeft, {-1, -2}}}) {
    LI_TAB_STRUCT arc = Arc({3, 0}, {0, 3}, {0, 0}, LI_ARC_CCW);
    ASSERT_EQ(FlOffsElem(&arc, 1, 2, side), PA_OK);
    EXPECT_TRUE(arc.mp == shift && arc.rad == 3 && arc.ap == (GE_POINT{3 + shift.x, shift.y}));
  }
  // A half arc spans two quadrants: refused and left alone until cut at its top.
  Store store;
  LI_TAB_STRUCT *half = Chain(store.get(), {Arc({3, 0}, {-3, 0}, {0, 0}, LI_ARC_CCW)});
  const GE_POINT ap = half->ap;
  EXPECT_EQ(FlOffsElem(half, 1, 2, kRight), PA_INVALID);
  EXPECT_EQ(half->ap, ap);
  EXPECT_EQ(FlOffsSplit(store.get(), &half, 0, 1), PA_OK) << "(3, 0) is an end: no cut";
  ASSERT_EQ(FlOffsSplit(store.get(), &half, 1, 0), PA_OK);
  EXPECT_TRUE(LiCountElem(half) == 2 && half->ep == (GE_POINT{0, 3}));
  for (LI_TAB_STRUCT *e : Elements(half)) EXPECT_EQ(FlOffsElem(e, 1, 2, kRight), PA_OK);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {half}));
}

LI_TAB_STRUCT *Gap(LI_HEAD *head, GE_POINT to) {
  return Chain(head, {Line({-1, 0}, {0, 0}), Line(to, {to.x + 1, to.y})});
}

TEST(OffsKon, BridgesGapsOfTheRectangleWidth) {
  Store store;
  // A gap of (2 dx, 2 dy): two legs with e1's number, vertical first on the left (both
  // components of one sign), horizontal first on the right.
  LI_TAB_STRUCT *l = Gap(store.get(), {2, 4}), *r = Gap(store.get(), {2, 4});
  l->no = 5;
  ASSERT_EQ(FlOffsKon(store.get(), l, l->next, 1, 2, kLeft), PA_OK);
  ASSERT_EQ(FlOffsKon(store.get(), r, r->next, 1, 2, kRight), PA_OK);
  EXPECT_TRUE(LiCountElem(l) == 4 && l->next->ep == (GE_POINT{0, 4}) && l->next->next->no == 5);
  EXPECT_EQ(r->next->ep, (GE_POINT{2, 0}));
  // One component: one line. A gap of (dx, 0): refused, nothing added.
  LI_TAB_STRUCT *one = Gap(store.get(), {2, 0}), *half = Gap(store.get(), {1, 0});
  EXPECT_EQ(FlOffsKon(store.get(), one, one->next, 1, 2, kLeft), PA_OK);
  EXPECT_EQ(FlOffsKon(store.get(), half, half->next, 1, 2, kLeft), PA_INVALID);
  EXPECT_TRUE(LiCountElem(one) == 3 && LiCountElem(half) == 2);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {l, r, one, half}));
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY,
      [](LI_HEAD *head) {
        return Live{Gap(head, {2, 4})};
      },
      [](LI_HEAD *head, Live &live) {
        return FlOffsKon(head, live[0], live[0]->next, 1, 2, kLeft);
      });
}

TEST(OffAnf, CarriesOpenEndsOutNeverIn) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}});
  const GE_POINT inside{3, 1}, beyond{6, 1}, before{-2, -1};
  EXPECT_EQ(FlOffAnf(store.get(), &k, &inside, 0, 0), PA_OK);
  EXPECT_EQ(FlOffAnf(store.get(), &k, &beyond, 0, 0), PA_OK);
  EXPECT_EQ(FlOffAnf(store.get(), &k, &before, 1, 0), PA_OK);
  EXPECT_EQ(Vertices(k), (Points{{-2, 0}, {6, 0}})) << "the foot inside left the end";
  EXPECT_EQ(FlOffAnf(store.get(), &k, &inside, 0, 1), PA_OK);
  EXPECT_EQ(k->ep, (GE_POINT{3, 0})) << "always: shortened too";
  // Arc ends with axis-parallel tangents get tangent lines out to the foot.
  LI_TAB_STRUCT *arc = Chain(store.get(), {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)});
  const GE_POINT left{-3, 5}, below{2, -2};
  ASSERT_EQ(FlOffAnf(store.get(), &arc, &left, 0, 0), PA_OK);
  ASSERT_EQ(FlOffAnf(store.get(), &arc, &below, 1, 0), PA_OK);
  EXPECT_EQ(Vertices(arc), (Points{{1, -2}, {1, 0}, {1, 0}, {0, 1}, {0, 1}, {-3, 1}}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, arc}));
}

// A circle of radius r split at its four axis points, every quarter moved,
// neighbours bridged: the rounded rectangle of half-sides r + dx, r + dy.
TEST(RectangleOffset, CircleBecomesARoundedRectangle) {
  Store store;
  const double r = 2, dx = 1, dy = 0.5;
  LI_TAB_STRUCT *k = FullCircle(store.get(), {0, 0}, r, 1);
  for (const auto &[yf, xf] : {std::pair<int16_t, int16_t>{1, 0}, {0, 1}, {-1, 0}, {0, -1}})
    ASSERT_EQ(FlOffsSplit(store.get(), &k, yf, xf), PA_OK);
  const std::vector<LI_TAB_STRUCT *> q = Elements(k);
  ASSERT_EQ(q.size(), 4u);
  for (LI_TAB_STRUCT *e : q) ASSERT_EQ(FlOffsElem(e, dx, dy, kRight), PA_OK);
  for (size_t i = 0; i < 4; ++i)
    ASSERT_EQ(FlOffsKon(store.get(), q[i], q[(i + 1) % 4], dx, dy, kRight), PA_OK);
  EXPECT_EQ(Count(k, LI_LINE), 4);
  EXPECT_NEAR(LiKontArea(k), 2 * dx * 2 * dy + 2 * r * (2 * dx + 2 * dy) + kPi * r * r, 1e-9);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

}  // namespace
}  // namespace polyarc_test

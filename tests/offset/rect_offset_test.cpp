// The rectangle offset: corners per direction, moved elements, axis cuts,
// bridges, open ends, and a whole circle run through the steps.
#include <cmath>
#include <numbers>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr uint16_t kLeft = 1, kRight = 65535;

TEST(OffsVk, CornerPerDirectionSideAndEnd) {
  const double s = std::numbers::sqrt2 / 2;
  struct Case {
    GE_POINT dir;
    int16_t side;
    int32_t end;
    GE_POINT corner;
  } const cases[] = {
      // Along +x the start goes back and the end forward, on both sides.
      {{1, 0}, 1, 0, {-1, 2}},
      {{1, 0}, 1, 1, {1, 2}},
      {{1, 0}, -1, 0, {-1, -2}},
      {{1, 0}, -1, 1, {1, -2}},
      {{0, 1}, 1, 0, {-1, -2}},
      {{0, 1}, 1, 1, {-1, 2}},
      {{-1, 0}, 1, 0, {1, -2}},
      {{0, -1}, -1, 1, {-1, -2}},
      // Oblique directions: the corner furthest out on the side.
      {{s, s}, 1, 0, {-1, 2}},
      {{s, s}, -1, 1, {1, -2}},
      {{-s, -s}, 1, 1, {1, -2}},
      {{s, -s}, 7, 0, {1, 2}},  // any side but -1 is left
  };
  for (const Case &c : cases) {
    GE_POINT corner{};
    EXPECT_EQ(FlOffsVk(&c.dir, 1, 2, c.side, &corner, c.end, 1), PA_OK);
    EXPECT_EQ(corner, c.corner) << c.dir << " side " << c.side << " end " << c.end;
  }
  // Within tol / scale of an axis a direction counts as axis-parallel.
  const GE_POINT nearly{1, 4e-5};
  GE_POINT corner{};
  FlOffsVk(&nearly, 1, 2, 1, &corner, 1, 1);
  EXPECT_EQ(corner, (GE_POINT{1, 2})) << "4e-5 against 5e-5: along +x, the end goes forward";
  FlOffsVk(&nearly, 1, 2, 1, &corner, 1, 10);
  EXPECT_EQ(corner, (GE_POINT{-1, 2})) << "4e-5 against 5e-6: pointing up";
  FlOffsVk(&nearly, 1, 2, -1, &corner, 1, 10);
  EXPECT_EQ(corner, (GE_POINT{1, -2}));
}

TEST(OffsElem, LinesLengthenArcsTranslate) {
  // A line of length L offset left by (1, 2): length L + 2, lying 2 above.
  LI_TAB_STRUCT line = Line({0, 0}, {5, 0});
  ASSERT_EQ(FlOffsElem(&line, 1, 2, kLeft), PA_OK);
  EXPECT_TRUE(line.ap == (GE_POINT{-1, 2}) && line.ep == (GE_POINT{6, 2}));
  EXPECT_EQ(line.ang_ep - line.ang_ap, 7) << "re-expanded";
  // A counter-clockwise quarter arc offset outwards (right) is translated
  // by (dx, dy); towards its centre by (-dx, -dy).
  for (const auto &[side, shift] :
       {std::pair<uint16_t, GE_POINT>{kRight, {1, 2}}, {kLeft, {-1, -2}}}) {
    LI_TAB_STRUCT arc = Arc({3, 0}, {0, 3}, {0, 0}, LI_ARC_CCW);
    ASSERT_EQ(FlOffsElem(&arc, 1, 2, side), PA_OK);
    EXPECT_TRUE(arc.mp == shift && arc.rad == 3);
    EXPECT_TRUE(arc.ap == (GE_POINT{3 + shift.x, shift.y}) &&
                arc.ep == (GE_POINT{shift.x, 3 + shift.y}));
  }
  // A half arc turns through two quadrants: refused, left as it was.
  LI_TAB_STRUCT half = Arc({3, 0}, {-3, 0}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT before = half;
  EXPECT_EQ(FlOffsElem(&half, 1, 2, kRight), PA_INVALID);
  EXPECT_TRUE(half.ap == before.ap && half.mp == before.mp);
  EXPECT_EQ(FlOffsElem(nullptr, 1, 2, kRight), PA_INVALID);
}

TEST(OffsSplit, CutsArcsAtAxisPoints) {
  Store store;
  LI_TAB_STRUCT *half = Chain(store.get(), {Arc({3, 0}, {-3, 0}, {0, 0}, LI_ARC_CCW)});
  LI_TAB_STRUCT *arc = half;
  EXPECT_EQ(FlOffsSplit(store.get(), &half, 0, 1), PA_OK) << "(3, 0) is an end: no cut";
  EXPECT_EQ(LiCountElem(half), 1u);
  ASSERT_EQ(FlOffsSplit(store.get(), &half, 1, 0), PA_OK);
  EXPECT_TRUE(half != arc && half->next == arc && half->ep == (GE_POINT{0, 3}));
  for (LI_TAB_STRUCT *e : Elements(half)) EXPECT_EQ(FlOffsElem(e, 1, 2, kRight), PA_OK);
  LI_TAB_STRUCT *empty = nullptr;
  EXPECT_EQ(FlOffsSplit(store.get(), &empty, 1, 0), PA_OK);
  EXPECT_EQ(FlOffsSplit(store.get(), nullptr, 1, 0), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {half}));
  ExpectCleanAllocationFailures(
      PA_NO_RECORD,
      [](LI_HEAD *head) {
        return Live{Chain(head, {Arc({3, 0}, {-3, 0}, {0, 0}, LI_ARC_CCW)})};
      },
      [](LI_HEAD *head, Live &live) { return FlOffsSplit(head, &live[0], 1, 0); });
}

TEST(OffsKon, BridgesGapsOfTheRectangleWidth) {
  Store store;
  // Gap (2 dx, 2 dy) = (2, 4): two legs, vertical first on the left side
  // when both components have the same sign, horizontal first on the right.
  for (const auto &[side, corner] :
       {std::pair<uint16_t, GE_POINT>{kLeft, {0, 4}}, {kRight, {2, 0}}}) {
    LI_TAB_STRUCT *k = Chain(store.get(), {Line({-1, 0}, {0, 0}), Line({2, 4}, {3, 4})});
    k->no = 5;
    ASSERT_EQ(FlOffsKon(store.get(), k, k->next, 1, 2, side), PA_OK);
    EXPECT_EQ(Vertices(k),
              (Points{{-1, 0}, {0, 0}, {0, 0}, corner, corner, {2, 4}, {2, 4}, {3, 4}}));
    EXPECT_TRUE(k->next->no == 5 && k->next->next->no == 5);
    LiRemove(store.get(), &k);
  }
  // One component: one line. None: nothing. A gap of (dx, 0): refused.
  LI_TAB_STRUCT *one = Chain(store.get(), {Line({-1, 0}, {0, 0}), Line({2, 0}, {3, 0})});
  ASSERT_EQ(FlOffsKon(store.get(), one, one->next, 1, 2, kLeft), PA_OK);
  EXPECT_EQ(LiCountElem(one), 3u);
  LI_TAB_STRUCT *half = Chain(store.get(), {Line({-1, 0}, {0, 0}), Line({1, 0}, {3, 0})});
  EXPECT_EQ(FlOffsKon(store.get(), half, half->next, 1, 2, kLeft), PA_INVALID);
  EXPECT_EQ(FlOffsKon(store.get(), one, one->next, 1, 2, kLeft), PA_OK);
  EXPECT_EQ(FlOffsKon(store.get(), half, half, 1, 2, kLeft), PA_OK);
  EXPECT_TRUE(LiCountElem(half) == 2 && LiCountElem(one) == 3);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {one, half}));
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY,
      [](LI_HEAD *head) {
        return Live{Chain(head, {Line({-1, 0}, {0, 0}), Line({2, 4}, {3, 4})})};
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
  EXPECT_EQ(k->ep, (GE_POINT{4, 0})) << "a foot inside leaves the end";
  EXPECT_EQ(FlOffAnf(store.get(), &k, &beyond, 0, 0), PA_OK);
  EXPECT_EQ(FlOffAnf(store.get(), &k, &before, 1, 0), PA_OK);
  EXPECT_EQ(Vertices(k), (Points{{-2, 0}, {6, 0}}));
  EXPECT_EQ(FlOffAnf(store.get(), &k, &inside, 0, 1), PA_OK);
  EXPECT_EQ(k->ep, (GE_POINT{3, 0})) << "always: shortened too";
  // An arc end with an axis-parallel tangent gets a tangent line out to the
  // foot on that tangent.
  LI_TAB_STRUCT *arc = Chain(store.get(), {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)});
  LI_TAB_STRUCT *quarter = arc;
  const GE_POINT left{-3, 5}, below{2, -2};
  ASSERT_EQ(FlOffAnf(store.get(), &arc, &left, 0, 0), PA_OK);
  ASSERT_EQ(FlOffAnf(store.get(), &arc, &below, 1, 0), PA_OK);
  EXPECT_EQ(Vertices(arc), (Points{{1, -2}, {1, 0}, {1, 0}, {0, 1}, {0, 1}, {-3, 1}}));
  EXPECT_TRUE(arc->next == quarter && arc->type == LI_LINE && arc->prev->type == LI_LINE);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, arc}));
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY,
      [](LI_HEAD *head) {
        return Live{Chain(head, {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)})};
      },
      [&left](LI_HEAD *head, Live &live) { return FlOffAnf(head, &live[0], &left, 0, 0); });
}

// A circle of radius r offset by the rectangle of half-sides dx, dy, run
// through the steps: split at the four axis points, every element moved,
// bridges between neighbours. The result is the rounded rectangle of
// half-sides r + dx, r + dy about the centre.
TEST(RectangleOffset, CircleBecomesARoundedRectangle) {
  Store store;
  const double r = 2, dx = 1, dy = 0.5;
  LI_TAB_STRUCT circle{};
  const GE_POINT centre{0, 0};
  ASSERT_EQ(LiCreateCircle(&centre, r, 1, &circle), PA_OK);
  LI_TAB_STRUCT *k = Chain(store.get(), {circle});
  for (const auto &[yf, xf] : {std::pair<int16_t, int16_t>{1, 0}, {0, 1}, {-1, 0}, {0, -1}})
    ASSERT_EQ(FlOffsSplit(store.get(), &k, yf, xf), PA_OK);
  ASSERT_EQ(LiCountElem(k), 4u);
  const std::vector<LI_TAB_STRUCT *> quarters = Elements(k);
  for (LI_TAB_STRUCT *e : quarters) ASSERT_EQ(FlOffsElem(e, dx, dy, kRight), PA_OK);
  for (size_t i = 0; i < 4; ++i)
    ASSERT_EQ(FlOffsKon(store.get(), quarters[i], quarters[(i + 1) % 4], dx, dy, kRight), PA_OK);
  EXPECT_EQ(CountTypes(k).lines, 4);
  EXPECT_NEAR(LiKontArea(k), 4 * dx * dy + 2 * r * (2 * dx + 2 * dy) + kPi * r * r, 1e-9);
  GE_POINT lo{}, hi{};
  LiKontRealBox(k, &lo, &hi);
  EXPECT_NEAR(hi.x, r + dx, 1e-12);
  EXPECT_NEAR(lo.y, -(r + dy), 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

}  // namespace
}  // namespace polyarc_test

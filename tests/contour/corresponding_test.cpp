// Corresponding contours: pairing by element numbers with zero-length
// partners, compatibility of pairs, and blending at a fraction.
#include <cmath>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr uint16_t kSentinel = 98;

void Number(LI_TAB_STRUCT *k, std::vector<uint16_t> numbers) {
  const auto e = Elements(k);
  ASSERT_EQ(e.size(), numbers.size());
  for (size_t i = 0; i < e.size(); ++i) e[i]->no = numbers[i];
}

std::vector<uint16_t> Numbers(LI_TAB_STRUCT *k) {
  std::vector<uint16_t> out;
  for (LI_TAB_STRUCT *e : Elements(k)) out.push_back(e->no);
  return out;
}

bool NoSentinel(LI_TAB_STRUCT *k) {
  for (LI_TAB_STRUCT *e : Elements(k)) {
    if (e->type == kSentinel) return false;
  }
  return true;
}

bool ZeroLength(const LI_TAB_STRUCT *e, GE_POINT at) {
  return e->type == LI_LINE && e->ap == at && e->ep == at;
}

TEST(Corresponding, EqualNumbersNeedNoPartner) {
  Store store;
  LI_TAB_STRUCT *k1 = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  LI_TAB_STRUCT *k2 = Polygon(store.get(), {{1, 1}, {3, 1}, {3, 3}, {1, 3}});
  Number(k1, {1, 2, 3, 4});
  Number(k2, {1, 2, 3, 4});
  const auto before1 = Elements(k1), before2 = Elements(k2);
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(Elements(k1), before1);
  EXPECT_EQ(Elements(k2), before2);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2}));
}

TEST(Corresponding, PartnersGoInFrontOfTheNextPairedElement) {
  Store store;
  LI_TAB_STRUCT *k1 = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  LI_TAB_STRUCT *k2 = Polygon(store.get(), {{1, 1}, {3, 1}, {2, 3}});
  Number(k1, {1, 2, 3, 4});
  Number(k2, {1, 3, 4});
  k1->next->attr_val = 2.5;
  k1->next->attr_id = 42;
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(Numbers(k2), (std::vector<uint16_t>{1, 2, 3, 4}));
  const auto e2 = Elements(k2);
  EXPECT_TRUE(ZeroLength(e2[1], {3, 1})) << "at the start of the element it precedes";
  EXPECT_EQ(e2[1]->attr_val, 2.5);
  EXPECT_EQ(e2[1]->attr_id, 42);
  EXPECT_EQ(LiCountElem(k1), 4u);
  EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2}));
}

TEST(Corresponding, PartnersAtTheStartAndAtTheEnd) {
  Store store;
  LI_TAB_STRUCT *k1 = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  LI_TAB_STRUCT *k2 = Polyline(store.get(), {{0, 5}, {1, 5}});
  LI_TAB_STRUCT *only = k2;
  Number(k1, {1, 2, 3});
  Number(k2, {2});
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(Numbers(k2), (std::vector<uint16_t>{1, 2, 3}));
  const auto e2 = Elements(k2);
  EXPECT_TRUE(ZeroLength(e2[0], {0, 5})) << "the new start of the contour";
  EXPECT_EQ(e2[1], only);
  EXPECT_TRUE(ZeroLength(e2[2], {0, 5})) << "a partner for the end sits at the start point";
  EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));

  // The same from the other side: contour 1 lacks numbers.
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k2, &k1), PA_OK);
  EXPECT_EQ(LiCountElem(k1), 3u);
  EXPECT_EQ(LiCountElem(k2), 3u);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2}));
}

TEST(Corresponding, BothContoursLackNumbersInAlternation) {
  Store store;
  LI_TAB_STRUCT *k1 = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}});
  LI_TAB_STRUCT *k2 = Polyline(store.get(), {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}});
  Number(k1, {1, 5, 2, 3});
  Number(k2, {1, 2, 6, 3});
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(Numbers(k1), (std::vector<uint16_t>{1, 5, 2, 6, 3}));
  EXPECT_EQ(Numbers(k2), (std::vector<uint16_t>{1, 5, 2, 6, 3}));
  EXPECT_TRUE(ZeroLength(Elements(k1)[3], {3, 0}));
  EXPECT_TRUE(ZeroLength(Elements(k2)[1], {1, 1}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2}));
}

TEST(Corresponding, UnpairableNumbersLeaveNoSentinel) {
  Store store;
  LI_TAB_STRUCT *k1 = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  LI_TAB_STRUCT *k2 = Polyline(store.get(), {{0, 1}, {1, 1}, {2, 1}});
  Number(k1, {7, 1});
  Number(k2, {5, 1});
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_NOT_PAIRED) << "both lack a partner";
  Number(k1, {1, 2});
  Number(k2, {2, 1});
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_NOT_PAIRED) << "the order differs";
  EXPECT_EQ(LiCountElem(k1), 2u);
  EXPECT_EQ(LiCountElem(k2), 2u);
  EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &none), PA_NOT_PAIRED);
  EXPECT_EQ(LiCoCoExpKont(store.get(), nullptr, &k2), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2}));
}

TEST(Corresponding, ExpKontUnderAllocationFailure) {
  const unsigned long failing = ForEachRecordShortage([](size_t n, InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k1 = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}});
    LI_TAB_STRUCT *k2 = Polyline(store.get(), {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}});
    Number(k1, {1, 5, 2, 3});
    Number(k2, {1, 2, 6, 3});
    LI_TAB_STRUCT *spare = TakeAllFreeBut(store.get(), n);
    failure.Arm();
    const uint16_t status = LiCoCoExpKont(store.get(), &k1, &k2);
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));
    EXPECT_EQ(LiCountElem(k1) + LiCountElem(k2), 8u + (n < 2 ? 0 : n - 2));
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2, spare}));
  });
  EXPECT_EQ(failing, 4u) << "two sentinels and two partners";
}

std::vector<GE_POINT> Vertices(LI_TAB_STRUCT *k) {
  std::vector<GE_POINT> v;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    v.push_back(e->ap);
    v.push_back(e->ep);
  }
  return v;
}

// The square of half side h about the origin, counter-clockwise from its
// lower left corner, numbered 1 to 4.
LI_TAB_STRUCT *Square(LI_HEAD *head, double h) {
  LI_TAB_STRUCT *k = Polygon(head, {{-h, -h}, {h, -h}, {h, h}, {-h, h}});
  Number(k, {1, 2, 3, 4});
  return k;
}

// The upper half of the circle of radius r about the origin,
// counter-clockwise from (r, 0), closed by its diameter; numbered 1, 2.
LI_TAB_STRUCT *HalfDisc(LI_HEAD *head, double r) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{r, 0}, b{-r, 0}, centre{0, 0};
  EXPECT_EQ(LiMove(head, &k, &a), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &b, &centre, 0), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &a), PA_OK);
  Number(k, {1, 2});
  return k;
}

TEST(Corresponding, BlendsOfConcentricSquaresAtBothEndsAndHalfway) {
  Store store;
  LI_TAB_STRUCT *inner = Square(store.get(), 2);
  LI_TAB_STRUCT *outer = Square(store.get(), 4);
  for (double t : {0.0, 0.5, 1.0}) {
    LI_TAB_STRUCT *blend = nullptr;
    uint32_t compatible = 7;
    ASSERT_EQ(LiCoCoFactKont(store.get(), inner, outer, t, &blend, &compatible), PA_OK);
    EXPECT_EQ(compatible, 1u);
    const double h = 2 + 2 * t;
    LI_TAB_STRUCT *expected = Square(store.get(), h);
    EXPECT_EQ(Vertices(blend), Vertices(expected)) << "t = " << t;
    EXPECT_EQ(Numbers(blend), (std::vector<uint16_t>{1, 2, 3, 4}));
    EXPECT_EQ(blend->ang_ep - blend->ang_ap, 2 * h) << "expanded";
    LiRemove(store.get(), &expected);
    LiRemove(store.get(), &blend);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {inner, outer}));
}

TEST(Corresponding, BlendsOfArcs) {
  Store store;
  LI_TAB_STRUCT *small = HalfDisc(store.get(), 1);
  LI_TAB_STRUCT *big = HalfDisc(store.get(), 3);
  LI_TAB_STRUCT *blend = nullptr;
  uint32_t compatible = 0;
  ASSERT_EQ(LiCoCoFactKont(store.get(), small, big, 0.5, &blend, &compatible), PA_OK);
  EXPECT_EQ(compatible, 1u);
  EXPECT_EQ(blend->type, LI_ARC_CCW);
  EXPECT_NEAR(blend->mp.x, 0, 1e-12);
  EXPECT_NEAR(blend->mp.y, 0, 1e-12);
  EXPECT_NEAR(blend->rad, 2, 1e-12) << "the concentric arc between them";
  EXPECT_EQ(blend->next->type, LI_LINE);
  EXPECT_EQ(blend->next->ap, (GE_POINT{-2, 0}));

  // An arc against the chord (-1,0) -> (1,0) run backwards: halfway, the
  // arc through (1,0), (0,0.5), (-1,0), about (0,-0.75) with radius 1.25.
  LI_TAB_STRUCT *flat = Polyline(store.get(), {{1, 0}, {-1, 0}, {1, 0}});
  Number(flat, {1, 2});
  LI_TAB_STRUCT *bulge = nullptr;
  ASSERT_EQ(LiCoCoFactKont(store.get(), small, flat, 0.5, &bulge, &compatible), PA_OK);
  EXPECT_EQ(compatible, 0u) << "an arc and a plain line do not blend well";
  EXPECT_EQ(bulge->type, LI_ARC_CCW);
  EXPECT_NEAR(bulge->mp.y, -0.75, 1e-12);
  EXPECT_NEAR(bulge->rad, 1.25, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {small, big, flat, blend, bulge}));
}

TEST(Corresponding, FactElemMakesLinesWhereNoArcCanBe) {
  Store store;
  const LI_TAB_STRUCT arc = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT point = Line({-1, 0}, {1, 0});
  LI_TAB_STRUCT *e = nullptr;
  // Ends blend to (0,0) and (0,0): nothing left to bend.
  ASSERT_EQ(LiCoCoFactElem(store.get(), &arc, &point, 0.5, &e), PA_OK);
  EXPECT_EQ(e->type, LI_LINE);
  EXPECT_EQ(e->ap, (GE_POINT{0, 0}));
  EXPECT_EQ(e->next, e);
  // Two lines blend into a line, even across.
  const LI_TAB_STRUCT up = Line({0, 0}, {0, 2});
  LI_TAB_STRUCT *line = nullptr;
  ASSERT_EQ(LiCoCoFactElem(store.get(), &point, &up, 0.5, &line), PA_OK);
  EXPECT_EQ(line->type, LI_LINE);
  EXPECT_EQ(line->ep, (GE_POINT{0.5, 1}));
  EXPECT_EQ(LiCoCoFactElem(store.get(), &arc, nullptr, 0.5, &line), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {e, line}));
}

TEST(Corresponding, FactKontRefusesWhatCannotBeBlended) {
  Store store;
  LI_TAB_STRUCT *square = Square(store.get(), 1);
  LI_TAB_STRUCT *triangle = Polygon(store.get(), {{0, 0}, {3, 0}, {0, 4}});
  Number(triangle, {1, 2, 3});
  LI_TAB_STRUCT *out = nullptr;
  uint32_t compatible = 0;
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, triangle, 0.5, &out, &compatible), PA_NOT_PAIRED)
      << "unequal lengths";
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(LiCoCoFactKont(store.get(), triangle, square, 0.5, &out, &compatible), PA_NOT_PAIRED);
  Number(triangle, {1, 3, 2});
  EXPECT_EQ(LiCoCoFactKont(store.get(), triangle, triangle->next, 0.5, &out, &compatible),
            PA_NOT_PAIRED)
      << "numbers that differ";
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, square, -0.25, &out, &compatible), PA_INVALID);
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, square, 1.25, &out, &compatible), PA_INVALID);
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, nullptr, 0.5, &out, &compatible), PA_INVALID);
  out = triangle;
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, square, 0.5, &out, &compatible), PA_INVALID)
      << "the out contour must be empty";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, triangle}));
}

TEST(Corresponding, PairingThenBlendingATriangleIntoASquare) {
  Store store;
  LI_TAB_STRUCT *square = Square(store.get(), 2);
  // The square without its left side: (-2,-2) -> (2,-2) -> (2,2) -> (-2,-2).
  LI_TAB_STRUCT *triangle = Polygon(store.get(), {{-2, -2}, {2, -2}, {2, 2}});
  Number(triangle, {1, 2, 3});
  ASSERT_EQ(LiCoCoExpKont(store.get(), &triangle, &square), PA_OK);
  EXPECT_EQ(Numbers(triangle), (std::vector<uint16_t>{1, 2, 3, 4}));
  EXPECT_TRUE(ZeroLength(Elements(triangle)[3], {-2, -2}));
  LI_TAB_STRUCT *start = nullptr, *end = nullptr;
  uint32_t compatible = 0;
  ASSERT_EQ(LiCoCoFactKont(store.get(), triangle, square, 0, &start, &compatible), PA_OK);
  ASSERT_EQ(LiCoCoFactKont(store.get(), triangle, square, 1, &end, &compatible), PA_OK);
  EXPECT_EQ(Vertices(start), Vertices(triangle));
  EXPECT_EQ(Vertices(end), Vertices(square));
  EXPECT_EQ(compatible, 0u) << "the diagonal does not run along the square's top";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, triangle, start, end}));
}

TEST(Corresponding, FactKontUnderAllocationFailure) {
  const unsigned long failing = ForEachRecordShortage([](size_t n, InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *inner = Square(store.get(), 2);
    LI_TAB_STRUCT *outer = Square(store.get(), 4);
    LI_TAB_STRUCT *spare = TakeAllFreeBut(store.get(), n);
    LI_TAB_STRUCT *blend = nullptr;
    uint32_t compatible = 0;
    failure.Arm();
    const uint16_t status = LiCoCoFactKont(store.get(), inner, outer, 0.5, &blend, &compatible);
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    EXPECT_EQ(blend == nullptr, failure.Fired()) << "nothing is handed out on failure";
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {inner, outer, blend, spare}));
  });
  EXPECT_EQ(failing, 4u);
}

TEST(Corresponding, CheckElemPairsArcsByCentreAndLinesByDirection) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT small = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT big = Arc({2, 0.125}, {0.125, 2}, {0.125, 0.125}, LI_ARC_CCW);
  const LI_TAB_STRUCT moved = Arc({2.25, 0}, {0.25, 2}, {0.25, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT turned = Arc({0, 1}, {1, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_EQ(LiCoCoCheckElem(&small, &big), 1) << "centres within tol";
  EXPECT_EQ(LiCoCoCheckElem(&small, &moved), 0);
  EXPECT_EQ(LiCoCoCheckElem(&small, &turned), 0) << "arcs of different sense";

  const LI_TAB_STRUCT east = Line({0, 0}, {1, 0}), east2 = Line({0, 3}, {7, 3});
  const LI_TAB_STRUCT west = Line({1, 0}, {0, 0}), north = Line({0, 0}, {0, 1});
  const LI_TAB_STRUCT dot = Line({5, 5}, {5.125, 5}), at_centre = Line({0, 0}, {0.125, 0});
  EXPECT_EQ(LiCoCoCheckElem(&east, &east2), 1);
  EXPECT_EQ(LiCoCoCheckElem(&east, &west), 0);
  EXPECT_EQ(LiCoCoCheckElem(&east, &north), 0);
  EXPECT_EQ(LiCoCoCheckElem(&north, &dot), 1) << "a degenerate line pairs with any line";

  EXPECT_EQ(LiCoCoCheckElem(&small, &dot), 0);
  EXPECT_EQ(LiCoCoCheckElem(&at_centre, &small), 1) << "degenerate at the centre";
  LI_TAB_STRUCT point_arc = small;
  point_arc.rad = 0;
  EXPECT_EQ(LiCoCoCheckElem(&east, &point_arc), 1);
  LI_TAB_STRUCT move = east;
  move.type = LI_MOVE;
  EXPECT_EQ(LiCoCoCheckElem(&move, &east2), 0);
  EXPECT_EQ(LiCoCoCheckElem(nullptr, &east), 0);
}

}  // namespace
}  // namespace polyarc_test

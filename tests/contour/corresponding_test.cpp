// Corresponding contours: pairing by element numbers with zero-length
// partners, compatibility of pairs, and blending at a fraction.
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

using Numbers = std::vector<uint16_t>;
using Points = std::vector<GE_POINT>;

void Number(LI_TAB_STRUCT *k, const Numbers &numbers) {
  const auto e = Elements(k);
  ASSERT_EQ(e.size(), numbers.size());
  for (size_t i = 0; i < e.size(); ++i) e[i]->no = numbers[i];
}

Numbers NumbersOf(LI_TAB_STRUCT *k) {
  Numbers out;
  for (LI_TAB_STRUCT *e : Elements(k)) out.push_back(e->no);
  return out;
}

Points Vertices(LI_TAB_STRUCT *k) {
  Points v;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    v.push_back(e->ap);
    v.push_back(e->ep);
  }
  return v;
}

// No element of the temporary end-marker type (98) is left.
bool NoSentinel(LI_TAB_STRUCT *k) {
  for (LI_TAB_STRUCT *e : Elements(k)) {
    if (e->type == 98) return false;
  }
  return true;
}

bool ZeroLengthAt(const LI_TAB_STRUCT *e, GE_POINT at) {
  return e->type == LI_LINE && e->ap == at && e->ep == at;
}

// The square of half side h about the origin, counter-clockwise from its
// lower left corner, numbered 1 to 4.
LI_TAB_STRUCT *Square(LI_HEAD *head, double h) {
  LI_TAB_STRUCT *k = Polygon(head, {{-h, -h}, {h, -h}, {h, h}, {-h, h}});
  Number(k, {1, 2, 3, 4});
  return k;
}

TEST(Corresponding, PartnersGoInFrontOfTheNextPairedElement) {
  Store store;
  LI_TAB_STRUCT *k1 = Square(store.get(), 2);
  LI_TAB_STRUCT *k2 = Polygon(store.get(), {{1, 1}, {3, 1}, {2, 3}});
  Number(k2, {1, 3, 4});
  k1->next->attr_id = 42;
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(NumbersOf(k2), (Numbers{1, 2, 3, 4}));
  EXPECT_TRUE(ZeroLengthAt(Elements(k2)[1], {3, 1})) << "at the start of the element it precedes";
  EXPECT_EQ(Elements(k2)[1]->attr_id, 42);
  EXPECT_EQ(LiCountElem(k1), 4u);

  // The same contours again need nothing more.
  const auto before = Elements(k2);
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(Elements(k2), before);
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
  EXPECT_EQ(NumbersOf(k2), (Numbers{1, 2, 3}));
  const auto e2 = Elements(k2);
  EXPECT_TRUE(ZeroLengthAt(e2[0], {0, 5})) << "the new start of the contour";
  EXPECT_EQ(e2[1], only);
  EXPECT_TRUE(ZeroLengthAt(e2[2], {0, 5})) << "a partner for the end sits at the start point";
  EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k1, k2}));
}

// Each contour lacks one number of the other.
struct Alternating {
  LI_TAB_STRUCT *k1, *k2;
  explicit Alternating(LI_HEAD *head)
      : k1(Polyline(head, {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}})),
        k2(Polyline(head, {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}})) {
    Number(k1, {1, 5, 2, 3});
    Number(k2, {1, 2, 6, 3});
  }
};

TEST(Corresponding, BothContoursLackNumbersOrCannotBePaired) {
  Store store;
  Alternating in(store.get());
  ASSERT_EQ(LiCoCoExpKont(store.get(), &in.k1, &in.k2), PA_OK);
  EXPECT_EQ(NumbersOf(in.k1), (Numbers{1, 5, 2, 6, 3}));
  EXPECT_EQ(NumbersOf(in.k2), (Numbers{1, 5, 2, 6, 3}));
  EXPECT_TRUE(ZeroLengthAt(Elements(in.k1)[3], {3, 0}));
  EXPECT_TRUE(ZeroLengthAt(Elements(in.k2)[1], {1, 1}));

  LI_TAB_STRUCT *k1 = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  LI_TAB_STRUCT *k2 = Polyline(store.get(), {{0, 1}, {1, 1}, {2, 1}});
  Number(k1, {7, 1});
  Number(k2, {5, 1});
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_NOT_PAIRED) << "both lack a partner";
  Number(k1, {1, 2});
  Number(k2, {2, 1});
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_NOT_PAIRED) << "the order differs";
  EXPECT_EQ(LiCountElem(k1) + LiCountElem(k2), 4u);
  EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &none), PA_NOT_PAIRED);
  EXPECT_EQ(LiCoCoExpKont(store.get(), nullptr, &k2), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {in.k1, in.k2, k1, k2}));
}

TEST(Corresponding, ExpKontUnderAllocationFailureLeavesNoSentinel) {
  const unsigned long failing = ForEachRecordShortage([](size_t n, InjectedFailure &failure) {
    Store store;
    Alternating in(store.get());
    LI_TAB_STRUCT *spare = TakeAllFreeBut(store.get(), n);
    failure.Arm();
    const uint16_t status = LiCoCoExpKont(store.get(), &in.k1, &in.k2);
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    EXPECT_TRUE(NoSentinel(in.k1) && NoSentinel(in.k2));
    EXPECT_EQ(LiCountElem(in.k1) + LiCountElem(in.k2), 8u + (n < 2 ? 0 : n - 2))
        << "partners made before the failure stay";
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {in.k1, in.k2, spare}));
  });
  EXPECT_EQ(failing, 4u) << "two sentinels and two partners";
}

TEST(Corresponding, BlendsOfConcentricSquaresAndHalfCircles) {
  Store store;
  LI_TAB_STRUCT *inner = Square(store.get(), 2);
  LI_TAB_STRUCT *outer = Square(store.get(), 4);
  for (double t : {0.0, 0.5, 1.0}) {
    LI_TAB_STRUCT *blend = nullptr;
    uint32_t compatible = 7;
    ASSERT_EQ(LiCoCoFactKont(store.get(), inner, outer, t, &blend, &compatible), PA_OK);
    EXPECT_EQ(compatible, 1u);
    LI_TAB_STRUCT *expected = Square(store.get(), 2 + 2 * t);
    EXPECT_EQ(Vertices(blend), Vertices(expected)) << "t = " << t;
    EXPECT_EQ(NumbersOf(blend), (Numbers{1, 2, 3, 4}));
    EXPECT_EQ(blend->ang_ep - blend->ang_ap, 4 + 4 * t) << "expanded";
    LiRemove(store.get(), &expected);
    LiRemove(store.get(), &blend);
  }

  // Upper half circles of radius 1 and 3 about the origin: halfway, the
  // half circle of radius 2.
  const GE_POINT centre{0, 0}, w1{-1, 0}, w3{-3, 0};
  LI_TAB_STRUCT *small = Polyline(store.get(), {{1, 0}});
  LI_TAB_STRUCT *big = Polyline(store.get(), {{3, 0}});
  ASSERT_EQ(LiArc(store.get(), &small, &w1, &centre, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &big, &w3, &centre, 0), PA_OK);
  LI_TAB_STRUCT *arc = nullptr;
  uint32_t compatible = 0;
  ASSERT_EQ(LiCoCoFactKont(store.get(), small, big, 0.5, &arc, &compatible), PA_OK);
  EXPECT_EQ(compatible, 1u);
  EXPECT_EQ(arc->type, LI_ARC_CCW);
  EXPECT_NEAR(arc->mp.x, 0, 1e-12);
  EXPECT_NEAR(arc->mp.y, 0, 1e-12);
  EXPECT_NEAR(arc->rad, 2, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {inner, outer, small, big, arc}));
}

TEST(Corresponding, PairingThenBlendingATriangleIntoASquare) {
  Store store;
  LI_TAB_STRUCT *square = Square(store.get(), 2);
  LI_TAB_STRUCT *triangle = Polygon(store.get(), {{-2, -2}, {2, -2}, {2, 2}});
  Number(triangle, {1, 2, 3});
  LI_TAB_STRUCT *out = nullptr;
  uint32_t compatible = 0;
  EXPECT_EQ(LiCoCoFactKont(store.get(), triangle, square, 0.5, &out, &compatible), PA_NOT_PAIRED)
      << "unequal lengths";
  EXPECT_EQ(out, nullptr) << "nothing is handed out on failure";

  ASSERT_EQ(LiCoCoExpKont(store.get(), &triangle, &square), PA_OK);
  EXPECT_TRUE(ZeroLengthAt(triangle->prev, {-2, -2}));
  LI_TAB_STRUCT *start = nullptr, *end = nullptr;
  ASSERT_EQ(LiCoCoFactKont(store.get(), triangle, square, 0, &start, &compatible), PA_OK);
  ASSERT_EQ(LiCoCoFactKont(store.get(), triangle, square, 1, &end, &compatible), PA_OK);
  EXPECT_EQ(Vertices(start), Vertices(triangle));
  EXPECT_EQ(Vertices(end), Vertices(square));
  EXPECT_EQ(compatible, 0u) << "the diagonal does not run along the square's top";

  EXPECT_EQ(LiCoCoFactKont(store.get(), square, square, 1.25, &out, &compatible), PA_INVALID);
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, nullptr, 0.5, &out, &compatible), PA_INVALID);
  EXPECT_EQ(LiCoCoFactKont(store.get(), square, square, 0.5, &start, &compatible), PA_INVALID)
      << "the out contour must be empty";
  Number(square, {1, 2, 4, 3});
  EXPECT_EQ(LiCoCoFactKont(store.get(), triangle, square, 0.5, &out, &compatible), PA_NOT_PAIRED);
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
    EXPECT_EQ(blend == nullptr, failure.Fired());
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {inner, outer, blend, spare}));
  });
  EXPECT_EQ(failing, 4u);
}

TEST(Corresponding, CheckElemPairsArcsByCentreAndLinesByDirection) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT arc = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT near = Arc({2, 0.125}, {0.125, 2}, {0.125, 0.125}, LI_ARC_CCW);
  const LI_TAB_STRUCT moved = Arc({2.25, 0}, {0.25, 2}, {0.25, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT turned = Arc({0, 1}, {1, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_EQ(LiCoCoCheckElem(&arc, &near), 1) << "centres within tol";
  EXPECT_EQ(LiCoCoCheckElem(&arc, &moved), 0);
  EXPECT_EQ(LiCoCoCheckElem(&arc, &turned), 0);

  const LI_TAB_STRUCT east = Line({0, 0}, {1, 0}), east2 = Line({0, 3}, {7, 3});
  const LI_TAB_STRUCT west = Line({1, 0}, {0, 0}), dot = Line({5, 5}, {5.125, 5});
  const LI_TAB_STRUCT at_centre = Line({0, 0}, {0.125, 0});
  EXPECT_EQ(LiCoCoCheckElem(&east, &east2), 1);
  EXPECT_EQ(LiCoCoCheckElem(&east, &west), 0);
  EXPECT_EQ(LiCoCoCheckElem(&west, &dot), 1) << "a degenerate line pairs with any line";
  EXPECT_EQ(LiCoCoCheckElem(&arc, &dot), 0);
  EXPECT_EQ(LiCoCoCheckElem(&at_centre, &arc), 1) << "degenerate at the centre";
  LI_TAB_STRUCT point_arc = arc;
  point_arc.rad = 0;
  EXPECT_EQ(LiCoCoCheckElem(&east, &point_arc), 1);
  LI_TAB_STRUCT move = east;
  move.type = LI_MOVE;
  EXPECT_EQ(LiCoCoCheckElem(&move, &east2), 0);
}

}  // namespace
}  // namespace polyarc_test

// Corresponding contours: pairing by numbers, compatible pairs, blending at a fraction.
#include <cmath>
#include <tuple>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

using Numbers = std::vector<uint16_t>;

LI_TAB_STRUCT *Renumbered(LI_TAB_STRUCT *k, const Numbers &numbers) {
  for (size_t i = 0; LI_TAB_STRUCT * e : Elements(k)) e->no = numbers.at(i++);
  return k;
}

Numbers NumbersOf(LI_TAB_STRUCT *k) {
  Numbers out;
  for (LI_TAB_STRUCT *e : Elements(k)) out.push_back(e->no);
  return out;
}

bool ZeroLengthAt(const LI_TAB_STRUCT *e, GE_POINT at) {
  return e->type == LI_LINE && e->ap == at && e->ep == at;
}

// The square of half side h about the origin, numbered 1 to 4.
LI_TAB_STRUCT *Square(LI_HEAD *head, double h) {
  return Numbered(Polygon(head, {{-h, -h}, {h, -h}, {h, h}, {-h, h}}));
}

TEST(CoCoExpKont, ZeroLengthPartnersGoInFrontOfTheNextPairedElement) {
  Store store;
  Live alt = Alternating(store.get());
  alt[1]->next->next->attr_id = 42;
  ASSERT_EQ(LiCoCoExpKont(store.get(), &alt[0], &alt[1]), PA_OK);
  EXPECT_TRUE(NumbersOf(alt[0]) == (Numbers{1, 5, 2, 6, 3}) &&
              NumbersOf(alt[1]) == NumbersOf(alt[0]));
  const auto e0 = Elements(alt[0]);
  EXPECT_TRUE(ZeroLengthAt(e0[3], {3, 0}) && e0[3]->attr_id == 42 &&
              ZeroLengthAt(Elements(alt[1])[1], {1, 1}));

  // Missing at the start: the partner becomes the start; missing at the end:
  // the partner sits at the contour's start point.
  LI_TAB_STRUCT *k1 = Numbered(Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}}));
  LI_TAB_STRUCT *k2 = Renumbered(Polyline(store.get(), {{0, 5}, {1, 5}}), {2});
  ASSERT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_OK);
  EXPECT_EQ(NumbersOf(k2), (Numbers{1, 2, 3}));
  EXPECT_TRUE(ZeroLengthAt(k2, {0, 5}) && ZeroLengthAt(k2->prev, {0, 5}));

  Renumbered(k1, {7, 2, 3}), Renumbered(k2, {5, 2, 3});
  EXPECT_EQ(LiCoCoExpKont(store.get(), &k1, &k2), PA_NOT_PAIRED) << "neither 7 nor 5 paired";
  EXPECT_EQ(LiCoCoExpKont(store.get(), nullptr, &k2), PA_INVALID);
  EXPECT_TRUE(NoSentinel(k1) && NoSentinel(k2));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {alt[0], alt[1], k1, k2}));
}

TEST(CoCoFactKont, BlendsPairByPairAndNeedsEqualLengths) {
  Store store;
  LI_TAB_STRUCT *inner = Square(store.get(), 2), *outer = Square(store.get(), 4), *out = nullptr;
  uint32_t compatible = 7;
  for (double t : {0.0, 0.5, 1.0}) {
    LI_TAB_STRUCT *blend = nullptr;
    ASSERT_EQ(LiCoCoFactKont(store.get(), inner, outer, t, &blend, &compatible), PA_OK);
    EXPECT_EQ(Vertices(blend), Vertices(Square(store.get(), 2 + 2 * t))) << "t = " << t;
    EXPECT_EQ(NumbersOf(blend), (Numbers{1, 2, 3, 4}));
  }
  EXPECT_EQ(compatible, 1u);

  LI_TAB_STRUCT *triangle = Numbered(Polygon(store.get(), {{-2, -2}, {2, -2}, {2, 2}}));
  EXPECT_EQ(LiCoCoFactKont(store.get(), triangle, inner, 0.5, &out, &compatible), PA_NOT_PAIRED);
  EXPECT_EQ(out, nullptr) << "nothing is handed out when the lengths differ";
  ASSERT_EQ(LiCoCoExpKont(store.get(), &triangle, &inner), PA_OK);
  ASSERT_EQ(LiCoCoFactKont(store.get(), triangle, inner, 1, &out, &compatible), PA_OK);
  EXPECT_EQ(compatible, 0u) << "the diagonal does not run along the square's top";
  LI_TAB_STRUCT *none = nullptr, *arc = nullptr;
  EXPECT_EQ(LiCoCoFactKont(store.get(), inner, inner, 1.25, &none, &compatible), PA_INVALID);
  Renumbered(inner, {1, 2, 4, 3});
  EXPECT_EQ(LiCoCoFactKont(store.get(), triangle, inner, 0.5, &none, &compatible), PA_NOT_PAIRED);

  // Upper half circles of radius 1 and 3: halfway, the one of radius 2.
  const LI_TAB_STRUCT small = Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW);
  const LI_TAB_STRUCT big = Arc({3, 0}, {-3, 0}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiCoCoFactElem(store.get(), &small, &big, 0.5, &arc), PA_OK);
  EXPECT_TRUE(arc->type == LI_ARC_CCW && std::abs(arc->rad - 2) < 1e-12);
  EXPECT_LT(std::hypot(arc->mp.x, arc->mp.y), 1e-12);
}

TEST(CoCoCheckElem, ArcsByCentreAndTypeLinesByDirection) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT arc = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  LI_TAB_STRUCT point_arc = arc, move = Line({0, 0}, {1, 0});
  point_arc.rad = 0;
  move.type = LI_MOVE;
  // Centres within tol, not at tol; a degenerate line pairs with lines, with arcs at their centre.
  for (const auto &[a, b, compatible] :
       {std::tuple{arc, Arc({2, 0.125}, {0.125, 2}, {0.125, 0.125}, LI_ARC_CCW), 1},
        {arc, Arc({2.25, 0}, {0.25, 2}, {0.25, 0}, LI_ARC_CCW), 0},
        {arc, Arc({0, 1}, {1, 0}, {0, 0}, LI_ARC_CW), 0},
        {Line({0, 0}, {1, 0}), Line({0, 3}, {7, 3}), 1},
        {Line({0, 0}, {1, 0}), Line({1, 0}, {0, 0}), 0},
        {Line({1, 0}, {0, 0}), Line({5, 5}, {5.125, 5}), 1},
        {arc, Line({5, 5}, {5.125, 5}), 0},
        {Line({0, 0}, {0.125, 0}), arc, 1},
        {Line({0, 0}, {1, 0}), point_arc, 1},
        {move, Line({0, 3}, {7, 3}), 0}}) {
    EXPECT_EQ(LiCoCoCheckElem(&a, &b), compatible) << a.type << " " << b.type << " " << b.ap;
  }
}

}  // namespace
}  // namespace polyarc_test

// Cutting elements in two, and the radius correction of arc pieces.
#include <cmath>
#include <random>
#include <tuple>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

using Cut = uint16_t (*)(LI_HEAD *, LI_TAB_STRUCT *, LI_TAB_STRUCT **, const GE_POINT *);
const Cut kCuts[] = {LiElemSplit, LiElemTeilen};

// Split keeps the first piece and chains the new one after it, Teilen the reverse.
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

// Moved past the centre: a quarter of radius 5 by 7 covers the opposite quarter of radius 2,
// a unit circle by 3 the circle of radius 2; the unit quarter by 2, cut at its middle, keeps
// its crossing with y = -0.5 (polar angle -5 pi / 6) in the right piece.
TEST(PastTheCentre, PiecesKeepTheirCrossingsBoxesAndPositiveLengths) {
  Store store;
  const double h = std::sqrt(0.75), tol = GeEpsiGetTol();
  const auto box = [](const LI_TAB_STRUCT &e) {
    return std::make_tuple(e.box.xmin, e.box.ymin, e.box.xmax, e.box.ymax);
  };
  const GE_POINT c{3, -2};
  for (const uint16_t type : {LI_ARC_CCW, LI_ARC_CW}) {
    SCOPED_TRACE(testing::Message() << "type " << type);
    const bool ccw = type == LI_ARC_CCW;
    const int16_t inwards = ccw ? 1 : -1;
    const auto quarter = [&](double r) {
      const GE_POINT east{c.x + r, c.y}, north{c.x, c.y + r};
      return ccw ? Arc(east, north, c, type) : Arc(north, east, c, type);
    };
    LI_TAB_STRUCT big = quarter(5), arc = quarter(1), *k = nullptr, *first = nullptr;
    LI_TAB_STRUCT circle = Arc({c.x + 1, c.y}, {c.x + 1, c.y}, c, type);
    LiParElem(&big, inwards, 7), LiParElem(&arc, inwards, 2), LiParElem(&circle, inwards, 3);
    EXPECT_EQ(box(big), std::make_tuple(c.x - 2 - tol, c.y - 2 - tol, c.x + tol, c.y + tol));
    EXPECT_EQ(box(circle),
              std::make_tuple(c.x - 2 - tol, c.y - 2 - tol, c.x + 2 + tol, c.y + 2 + tol));
    ASSERT_EQ(LiInsertElem2(store.get(), &k, &arc), PA_OK);
    const GE_POINT middle = LiElemPt(k, 0.5);
    ASSERT_EQ(LiElemTeilen(store.get(), k, &first, &middle), PA_OK);
    const LI_TAB_STRUCT line = Line({c.x - 3, c.y - 0.5}, {c.x + 3, c.y - 0.5});
    // {element, position code of the crossing at (-h, -0.5), length}
    for (auto [e, pos, length] :
         {std::tuple<const LI_TAB_STRUCT *, uint16_t, double>{&arc, GE_INSIDE, kPi / 2},
          {ccw ? first : k, GE_INSIDE, kPi / 4},
          {ccw ? k : first, ccw ? GE_BEFORE : GE_BEYOND, kPi / 4}}) {
      IsectPoint i[2]{};
      ASSERT_EQ(GeCross(e, &line, &i[0], &i[1]), 2);
      EXPECT_NEAR(std::hypot(i[0].x - (c.x - h), i[0].y - (c.y - 0.5)), 0, 1e-14);
      EXPECT_EQ(i[0].pos1, pos) << length;
      EXPECT_TRUE(e->rad < 0 && std::fabs(LiElemLen(e) - length) < 1e-14) << length;
    }
  }
}

// Arcs from the origin to ep about mp with radius rad.
TEST(RadKorr, CentreMovesToPutBothEndsOnTheCircle) {
  ToleranceScope tol(0.5);
  using Row = std::tuple<GE_POINT, GE_POINT, double, uint16_t, GE_POINT, double>;
  for (const auto &[ep, mp, rad, status, new_mp, new_rad] :
       {Row{{4, 0}, {2, 0.5}, 1, PA_OK, {2, 0}, 2},          // chord over 2 rad: half of it
        Row{{6, 0}, {3, -3}, 5, PA_OK, {3, -4}, 5},          // 3-4-5: the crossing nearer mp
        Row{{6, 0}, {3, 3}, 5, PA_OK, {3, 4}, 5},            // and on the other side
        Row{{6, 0}, {3, 4.25}, 5, PA_OK, {3, 4.25}, 5},      // ends within tol of the circle
        Row{{6, 0}, {3, 1}, 0.5, PA_OK, {3, 1}, 0.5},        // |rad| == tol
        Row{{0.25, 0.25}, {3, 1}, 2, PA_OK, {3, 1}, 2},      // ends coincide
        Row{{0.5, 0}, {3, 1}, 2, PA_CONCENTRIC, {3, 1}, 2},  // ends exactly tol apart
        Row{{4, 0}, {2, 0.5}, -1, PA_OK, {2, 0}, -2},        // a negative radius keeps its sign
        Row{{6, 0}, {3, -3}, -5, PA_OK, {3, -4}, -5}}) {
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

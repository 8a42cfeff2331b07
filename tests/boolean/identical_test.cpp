// Joining two contours along the stretches they share, and removing
// spikes that run straight back.
#include <cmath>
#include <functional>
#include <numbers>

#include "polyarc/fl.h"
#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;

LI_TAB_STRUCT *Square(LI_HEAD *head, double x, double y, double w = 1, double h = 1) {
  return Polygon(head, {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}});
}

LI_TAB_STRUCT *C(LI_HEAD *head) {
  return Polygon(head, {{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 2}, {3, 2}, {3, 3}, {0, 3}});
}

// The half of the unit disc above (y = 1) or below (y = -1) the x axis.
LI_TAB_STRUCT *HalfDisc(LI_HEAD *head, double y) {
  LI_TAB_STRUCT *k = Polyline(head, {{-y, 0}, {y, 0}});
  const GE_POINT back{-y, 0}, centre{0, 0};
  EXPECT_EQ(LiArc(head, &k, &back, &centre, 0), PA_OK);
  return k;
}

// A bar over a comb whose teeth touch the bar's underside on [2i, 2i + 1]:
// every tooth is a shared stretch, every gap a hole of area 1.
LI_TAB_STRUCT *Comb(LI_HEAD *head, int teeth) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, -2}, {2.0 * teeth - 1, -2}});
  for (int i = teeth - 1; i >= 0; --i) {
    const GE_POINT top_right{2.0 * i + 1, 0}, top_left{2.0 * i, 0};
    EXPECT_EQ(LiDraw(head, &k, &top_right), PA_OK);
    EXPECT_EQ(LiDraw(head, &k, &top_left), PA_OK);
    if (i == 0) break;
    const GE_POINT bottom_left{2.0 * i, -1}, bottom_right{2.0 * i - 1, -1};
    EXPECT_EQ(LiDraw(head, &k, &bottom_left), PA_OK);
    EXPECT_EQ(LiDraw(head, &k, &bottom_right), PA_OK);
  }
  const GE_POINT start{0, -2};
  EXPECT_EQ(LiDraw(head, &k, &start), PA_OK);
  return k;
}

using Make = std::function<LI_TAB_STRUCT *(LI_HEAD *)>;

Make Sq(double x, double y, double w = 1, double h = 1, bool backwards = false) {
  return [=](LI_HEAD *head) {
    LI_TAB_STRUCT *k = Square(head, x, y, w, h);
    if (backwards) LiKontChgDir(&k);
    return k;
  };
}

TEST(UnionIdent, JoinsAlongWhatTheContoursShare) {
  const Make comb100 = [](LI_HEAD *h) { return Comb(h, 100); };
  const struct Row {
    const char *name;
    Make k1, k2;
    uint32_t sign;
    uint16_t capacity, status;
    double out, out2;  // areas, 0 for none
    size_t loops;
    double loop_area;  // of each loop left in the list
  } rows[] = {
      {"side by side", Sq(0, 0), Sq(1, 0), 0, 9, PA_OK, 2, 0, 0, 0},
      {"the second clockwise", Sq(0, 0), Sq(1, 0, 1, 1, true), 0, 9, PA_OK, 2, 0, 0, 0},
      {"half a side shared", Sq(0, 0), Sq(1, 0.25, 1, 0.5), 0, 9, PA_OK, 1.5, 0, 0, 0},
      {"a C closed by a bar", C, Sq(3, 0, 1, 3), 0, 9, PA_OK, 12, 0, 1, -2},
      {"the same, holes out", C, Sq(3, 0, 1, 3), 1, 9, PA_OK, -2, 0, 1, 12},
      {"apart", Sq(0, 0), Sq(3, 0), 0, 9, PA_OK, 1, 1, 0, 0},
      {"one square both ways", Sq(0, 0), Sq(0, 0, 1, 1, true), 0, 9, PA_OK, 1, -1, 0, 0},
      // The arcs only meet end to end: only the diameter is shared.
      {"two half discs", [](LI_HEAD *h) { return HalfDisc(h, 1); },
       [](LI_HEAD *h) { return HalfDisc(h, -1); }, 0, 9, PA_OK, kPi, 0, 0, 0},
      {"a comb of 100 teeth", Sq(0, 0, 199, 1), comb100, 0, 199, PA_OK, 3 * 199, 0, 99, -1},
      {"its holes beyond the room", Sq(0, 0, 199, 1), comb100, 0, 49, PA_NO_RECORD, 3 * 199, 0, 49,
       -1},
      {"a comb of 101 teeth", Sq(0, 0, 201, 1), [](LI_HEAD *h) { return Comb(h, 101); }, 0, 199,
       PA_NO_RECORD, 201, 302, 0, 0},
  };
  for (const Row &r : rows) {
    Store store;
    LI_TAB_STRUCT *list[200] = {};
    LI_TAB_STRUCT *out = nullptr, *out2 = nullptr;
    int16_t last = 7;
    EXPECT_EQ(FlUnionIdent(store.get(), r.k1(store.get()), r.k2(store.get()), r.sign, &out, &out2,
                           list, r.capacity, &last),
              r.status)
        << r.name;
    EXPECT_NEAR(LiKontArea(out), r.out, 1e-12) << r.name;
    EXPECT_NEAR(LiKontArea(out2), r.out2, 1e-12) << r.name;
    EXPECT_EQ(static_cast<size_t>(last + 1), r.loops) << r.name;
    Live all{out, out2};
    for (int16_t i = 0; i <= last; ++i) {
      EXPECT_DOUBLE_EQ(LiKontArea(list[i]), r.loop_area) << r.name;
      all.push_back(list[i]);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), all)) << r.name;
  }
  Store store;
  LI_TAB_STRUCT *out = nullptr, *out2 = nullptr, *list[1] = {}, *k = Square(store.get(), 0, 0);
  int16_t last = 0;
  EXPECT_EQ(FlUnionIdent(store.get(), k, k, 0, &out, &out2, list, 0, &last), PA_INVALID);
}

TEST(CleanIdent, SpikesCancelOrShorten) {
  Store store;
  struct Row {
    std::initializer_list<GE_POINT> polygon;
    uint32_t whole;
    uint32_t count;
  } rows[] = {
      {{{0, 0}, {2, 0}, {2, 2}, {2, 3}, {2, 2}, {0, 2}}, 0, 4},  // out and back: both go
      {{{0, 0}, {2, 0}, {2, 3}, {2, 2}, {0, 2}}, 0, 4},          // back part way: e shortens
      // The spike at the closing joint counts only with whole set.
      {{{2, 3}, {2, 2}, {0, 2}, {0, 0}, {2, 0}, {2, 2}}, 0, 6},
      {{{2, 3}, {2, 2}, {0, 2}, {0, 0}, {2, 0}, {2, 2}}, 1, 4},
  };
  for (const Row &r : rows) {
    LI_TAB_STRUCT *k = Polygon(store.get(), r.polygon);
    EXPECT_EQ(FlCleanIdent(store.get(), &k, r.whole), PA_OK);
    EXPECT_EQ(LiCountElem(k), r.count) << "first point " << r.polygon.begin()->y;
    EXPECT_DOUBLE_EQ(LiKontArea(k), 4.0);
    EXPECT_TRUE(LiCheck(k) && AllRecordsAccounted(store.head(), {k}));
    LiRemove(store.get(), &k);
  }
}

TEST(CleanIdent, AnArcRunningBackBeyondTheOtherStartTakesItsStart) {
  // (0,0) -> (1,0), a quarter of the unit circle up to (0,1), back down
  // the circle to 45 degrees below the x axis, and home: the 45-degree
  // slice, run clockwise, is left.
  Store store;
  const double s = std::sqrt(0.5);
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}});
  const GE_POINT top{0, 1}, low{s, -s}, centre{0, 0};
  ASSERT_EQ(LiArc(store.get(), &k, &top, &centre, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &low, &centre, 1), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &centre), PA_OK);
  EXPECT_EQ(FlCleanIdent(store.get(), &k, 1), PA_OK);
  EXPECT_EQ(LiCountElem(k), 3u);
  EXPECT_NEAR(LiKontArea(k), -kPi / 8, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

}  // namespace
}  // namespace polyarc_test

// Offsets of whole regions: areas known by hand, offsets that vanish, what is refused, rims
// checked point by point, and running out of memory.
#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

struct Region {
  uint16_t status = PA_OK;
  std::vector<LI_TAB_STRUCT *> loops;
};

// FlParallelRegion with the loops taken out of the list.
Region Offset(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d, uint16_t mode) {
  Region r;
  LI_TAB_STRUCT **list = nullptr;
  int16_t last = 7;
  r.status = FlParallelRegion(head, k, side, d, mode, nullptr, &list, &last, nullptr);
  EXPECT_EQ(list == nullptr, last == FL_EMPTY);
  for (int16_t i = 0; i <= last; ++i) r.loops.push_back(std::exchange(list[i], nullptr));
  FlFreeList(head, &list, last);
  return r;
}

// Ten teeth 1 wide and 1 high along the bottom of a box 10 high.
LI_TAB_STRUCT *SawTooth(LI_HEAD *head) {
  std::vector<double> xy;
  for (int i = 0; i < 10; ++i) xy.insert(xy.end(), {i + 0.0, 0, i + 0.5, 1});
  xy.insert(xy.end(), {10, 0, 10, 10, 0, 10});
  return Ring(head, xy);
}

// Inside x in [3, 7], y up to 7, above arcs of radius 3 about the tips (i + 0.5, 1).
const double kSawToothIn = 24 - 2 * std::sqrt(8.75) - 36 * std::asin(1.0 / 6);

// A 20 x 20 box whose bottom has a half circle of radius 1 about (10, 0):
// a bump out of the box (type 4) or a bite into it (type 3).
LI_TAB_STRUCT *BumpedBox(LI_HEAD *head, uint16_t type) {
  return Chain(head,
               {Line({0, 0}, {9, 0}), Arc({9, 0}, {11, 0}, {10, 0}, type), Line({11, 0}, {20, 0}),
                Line({20, 0}, {20, 20}), Line({20, 20}, {0, 20}), Line({0, 20}, {0, 0})});
}

TEST(ParallelRegion, AreasKnownByHand) {
  using Build = std::function<LI_TAB_STRUCT *(LI_HEAD *)>;
  const Build square = [](LI_HEAD *h) { return Ring(h, {-2, -2, 2, -2, 2, 2, -2, 2}); };
  const Build clockwise = [](LI_HEAD *h) { return Ring(h, {-2, -2, -2, 2, 2, 2, 2, -2}); };
  // Two 3 x 3 rooms joined by a corridor 1 wide; a 4 x 4 box with a 2 x 2
  // room whose door, a slit 0.2 wide, opens to the right.
  const Build dumbbell = [](LI_HEAD *h) {
    return Ring(h, {0, 0, 3, 0, 3, 1, 5, 1, 5, 0, 8, 0, 8, 3, 5, 3, 5, 2, 3, 2, 3, 3, 0, 3});
  };
  const Build room = [](LI_HEAD *h) {
    return Ring(h,
                {0, 0, 4, 0, 4, 1.9, 3, 1.9, 3, 1, 1, 1, 1, 3, 3, 3, 3, 2.1, 4, 2.1, 4, 4, 0, 4});
  };
  const Build bump = [](LI_HEAD *h) { return BumpedBox(h, LI_ARC_CCW); };
  const Build bite = [](LI_HEAD *h) { return BumpedBox(h, LI_ARC_CW); };
  // The square [3, 17]^2 with a dip to arcs of radius 3 about the ends of
  // the bump (whose own offset turns round); less the cap of the circle of
  // radius 4 about the bite's centre above y = 3; the box grown by 3, round
  // corners, less a notch under the bite to arcs about its ends.
  const double notch = 6 - std::sqrt(8.0) - 9 * std::asin(1.0 / 3);
  const double bump_in = 196 + notch, bite_in = 196 - 16 * std::acos(0.75) + 3 * std::sqrt(7.0);
  const double bite_out = 400 + 240 + 9 * kPi - notch;
  struct Case {
    const char *what;
    Build build;
    uint16_t side;
    double d;
    uint16_t mode;
    std::vector<double> areas;  // of the loops in order, signed
  };
  const Case cases[] = {
      {"square out", square, kRight, 1, FL_CORNER_ROUND, {16 + 16 + kPi}},
      {"square in", square, kLeft, 1, FL_CORNER_ROUND, {4}},
      {"square in by a negative distance", square, kRight, -1, FL_CORNER_ROUND, {4}},
      {"clockwise square out, to its left", clockwise, kLeft, 1, FL_CORNER_ROUND, {-32 - kPi}},
      // Both rooms, the corridor gone; the door shut, the room a hole.
      {"dumbbell in", dumbbell, kLeft, 0.75, FL_CORNER_SHARP, {2.25, 2.25}},
      {"room out", room, kRight, 0.2, FL_CORNER_SHARP, {4.4 * 4.4, -1.6 * 1.6}},
      {"saw-tooth in", SawTooth, kLeft, 3, FL_CORNER_ROUND, {kSawToothIn}},
      {"bump in", bump, kLeft, 3, FL_CORNER_ROUND, {bump_in}},
      {"bite in", bite, kLeft, 3, FL_CORNER_ROUND, {bite_in}},
      {"bite out", bite, kRight, 3, FL_CORNER_ROUND, {bite_out}},
  };
  for (const Case &c : cases) {
    Store store;
    LI_TAB_STRUCT *k = c.build(store.get());
    const Points before = Vertices(k);
    Region r = Offset(store.get(), k, c.side, c.d, c.mode);
    ASSERT_EQ(r.status, PA_OK) << c.what;
    ASSERT_EQ(r.loops.size(), c.areas.size()) << c.what;
    for (size_t i = 0; i < r.loops.size(); ++i) {
      EXPECT_NEAR(LiKontArea(r.loops[i]), c.areas[i], 1e-9 * std::fabs(c.areas[i])) << c.what;
      EXPECT_EQ(LiTestClosed(r.loops[i]), 1) << c.what;
      if (c.mode == FL_CORNER_ROUND) {
        EXPECT_LT(OffsetDeviation(r.loops[i], k, std::fabs(c.d)), 1e-9) << c.what;
      }
    }
    EXPECT_EQ(Vertices(k), before) << c.what;
    r.loops.push_back(k);
    EXPECT_TRUE(AllRecordsAccounted(store.head(), r.loops)) << c.what;
  }
}

TEST(ParallelRegion, VanishingOffsetsGiveNoLoop) {
  Store store;
  LI_TAB_STRUCT *square = Ring(store.get(), {-1, -1, 1, -1, 1, 1, -1, 1});
  LI_TAB_STRUCT *c = FullCircle(store.get(), {0, 0}, 1, 1);
  // A 3-4-5 triangle offset by its inradius shrinks to a point.
  LI_TAB_STRUCT *triangle = Ring(store.get(), {0, 0, 4, 0, 0, 3});
  for (const uint16_t mode : {FL_CORNER_SHARP, FL_CORNER_ROUND}) {
    for (const auto &[k, d] : {std::pair{square, 1.5}, {c, 2.0}, {c, 1.0}, {triangle, 1.0}}) {
      const Region r = Offset(store.get(), k, kLeft, d, mode);
      EXPECT_EQ(r.status, PA_OK);
      EXPECT_TRUE(r.loops.empty()) << "d " << d << ", mode " << mode;
    }
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, c, triangle}));
}

TEST(ParallelRegion, RefusesWhatBoundsNoRegion) {
  Store store;
  LI_HEAD *head = store.get();
  LI_TAB_STRUCT *square = Ring(head, {-1, -1, 1, -1, 1, 1, -1, 1});
  LI_TAB_STRUCT *open = Polyline(head, {{0, 0}, {1, 0}, {1, 1}});
  LI_TAB_STRUCT *flat = Ring(head, {0, 0, 1, 0});  // there and back: no area
  LI_TAB_STRUCT **list = nullptr;
  int16_t last = FL_EMPTY;
  EXPECT_EQ(FlParallelRegion(nullptr, square, kLeft, 1, 0, nullptr, &list, &last, nullptr),
            PA_INVALID);
  EXPECT_EQ(FlParallelRegion(head, square, kLeft, 1, 0, nullptr, nullptr, &last, nullptr),
            PA_INVALID);
  for (LI_TAB_STRUCT *k : {static_cast<LI_TAB_STRUCT *>(nullptr), open, flat})
    EXPECT_EQ(Offset(head, k, kLeft, 0.1, FL_CORNER_ROUND).status, PA_INVALID);
  // Side 0, or a distance within the tolerance: the region itself.
  for (const auto &[side, d] : {std::pair<uint16_t, double>{0, 1}, {kLeft, 1e-5}}) {
    Region r = Offset(head, square, side, d, FL_CORNER_ROUND);
    ASSERT_EQ(r.loops.size(), 1u);
    EXPECT_TRUE(r.loops[0] != square && Vertices(r.loops[0]) == Vertices(square));
    LiRemove(head, &r.loops[0]);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, open, flat}));
}

// 100 vertices about 1 apart on a five-lobed rim: jagged (noise 1), or smooth with every fourth
// edge an arc of sagitta 0.2 of its chord, bulging out and in by turns.
LI_TAB_STRUCT *Star(LI_HEAD *head, bool arcs) {
  constexpr int n = 100;
  std::mt19937 rng(7);
  std::uniform_real_distribution<double> noise(0.0, arcs ? 0.01 : 1.0);
  std::vector<GE_POINT> v;
  for (int i = 0; i < n; ++i) {
    const double t = 2 * kPi * i / n, r = n / (2 * kPi) * (1 + 0.1 * std::sin(5 * t)) + noise(rng);
    v.push_back({r * std::cos(t), r * std::sin(t)});
  }
  std::vector<LI_TAB_STRUCT> elements;
  for (int i = 0; i < n; ++i) {
    const GE_POINT p = v[i], q = v[(i + 1) % n];
    if (!arcs || i % 4 != 0) {
      elements.push_back(Line(p, q));
      continue;
    }
    // The centre lies left of p -> q (inside) for an outward bulge.
    const double c = std::hypot(q.x - p.x, q.y - p.y), s = 0.2 * c;
    const double r = (c * c / 4 + s * s) / (2 * s);
    const double out = (i / 4) % 2 == 0 ? 1 : -1, h = out * (r - s) / c;
    const GE_POINT centre{(p.x + q.x) / 2 - h * (q.y - p.y), (p.y + q.y) / 2 + h * (q.x - p.x)};
    elements.push_back(Arc(p, q, centre, out > 0 ? LI_ARC_CCW : LI_ARC_CW));
  }
  return Chain(head, elements);
}

// On a grid over the source, the loops' winding is 1 on the offset region and 0 elsewhere;
// points within 0.01 of the distance are skipped.
void ExpectRegionPointByPoint(LI_TAB_STRUCT *k, const std::vector<LI_TAB_STRUCT *> &loops, double d,
                              bool outward) {
  GE_POINT lo{0, 0}, hi{0, 0};
  LiKontBox(k, &lo, &hi);
  const double margin = outward ? d + 1 : 0, step = (hi.x - lo.x + 2 * margin) / 40;
  for (double x = lo.x - margin + step / 2; x < hi.x + margin; x += step) {
    for (double y = lo.y - margin + step / 2; y < hi.y + margin; y += step) {
      const GE_POINT p{x, y};
      double dist = HUGE_VAL;
      for (LI_TAB_STRUCT *e : Elements(k)) {
        double to_e = HUGE_VAL;
        GE_POINT foot;
        GePtElemDist(e, &p, &foot, &to_e);
        dist = std::min(dist, to_e);
      }
      if (std::fabs(dist - d) < 0.01) continue;
      const bool in_source = LiPointInKont(k, &p) == 1;
      int winding = 0;
      for (LI_TAB_STRUCT *loop : loops)
        winding += LiPointInKont(loop, &p) != 1 ? 0 : LiKontArea(loop) > 0 ? 1 : -1;
      EXPECT_EQ(winding, (outward ? in_source || dist < d : in_source && dist > d) ? 1 : 0) << p;
    }
  }
}

TEST(ParallelRegion, RimsKeepOnlyLoopsAtTheDistance) {
  // A jagged rim, and a smooth one with arcs tighter than the distance
  // (their raw offsets turn round and cross the result): one loop each.
  for (const auto &[arcs, d] : {std::pair{false, -6.0}, {false, 6.0}, {true, -6.0}, {true, 8.0}}) {
    SCOPED_TRACE(std::string(arcs ? "arcs" : "jagged") + ", d " + std::to_string(d));
    Store store;
    LI_TAB_STRUCT *k = Star(store.get(), arcs);
    ASSERT_FALSE(CrossesItself(k));
    Region r = Offset(store.get(), k, d > 0 ? kRight : kLeft, std::fabs(d), FL_CORNER_ROUND);
    ASSERT_EQ(r.status, PA_OK);
    EXPECT_EQ(r.loops.size(), 1u);
    for (LI_TAB_STRUCT *loop : r.loops) EXPECT_LT(OffsetDeviation(loop, k, std::fabs(d)), 1e-9);
    ExpectRegionPointByPoint(k, r.loops, std::fabs(d), d > 0);
    r.loops.push_back(k);
    EXPECT_TRUE(AllRecordsAccounted(store.head(), r.loops));
  }
}

TEST(ParallelRegion, FailsCleanlyWhenMemoryRunsOut) {
  // Every allocation failing in turn, with a few spare records or none. Scratch arrays fall
  // back to plain scans, so a failure may also leave the whole result.
  for (const size_t spare : {size_t{0}, size_t{5}, size_t{40}, size_t{150}}) {
    const unsigned long runs = ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      LI_TAB_STRUCT *k = SawTooth(store.get());
      const Points before = Vertices(k);
      LI_TAB_STRUCT *taken = spare > 0 ? TakeAllFreeBut(store.get(), spare) : nullptr;
      failure.Arm();
      Region r = Offset(store.get(), k, kLeft, 3, FL_CORNER_ROUND);
      failure.Disarm();
      if (r.status != PA_OK) {
        EXPECT_TRUE(failure.Fired() && (r.status == PA_NO_MEMORY || r.status == PA_NO_RECORD));
        EXPECT_TRUE(r.loops.empty());
      } else {
        ASSERT_EQ(r.loops.size(), 1u);
        EXPECT_NEAR(LiKontArea(r.loops[0]), kSawToothIn, 1e-9);
      }
      EXPECT_EQ(Vertices(k), before);
      r.loops.insert(r.loops.end(), {k, taken});
      EXPECT_TRUE(AllRecordsAccounted(store.head(), r.loops));
    });
    EXPECT_GT(runs, 5u) << spare;
  }
}

}  // namespace
}  // namespace polyarc_test

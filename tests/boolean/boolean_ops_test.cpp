// Union, intersection and difference on shapes whose results are known by
// hand, the identities between them, and failing allocations.
#include <cmath>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <numbers>

#include "support/boolean_support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr Op kOps[] = {Op::kUnion, Op::kIntersection, Op::kDifference};

using Shape = std::function<LI_TAB_STRUCT *(LI_HEAD *)>;

Shape R(double x0, double y0, double x1, double y1) {
  return [=](LI_HEAD *h) { return Rect(h, x0, y0, x1, y1); };
}
Shape C(double x, double y, double r) {
  return [=](LI_HEAD *h) { return Circle(h, {x, y}, r); };
}

LI_TAB_STRUCT *CShape(LI_HEAD *head) {
  return Polygon(head, {{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 2}, {3, 2}, {3, 3}, {0, 3}});
}

// The quarter of the unit disc from the polar angle from to from + pi/2.
Shape Sector(double from) {
  return [=](LI_HEAD *head) {
    const GE_POINT centre{0, 0}, p{std::cos(from), std::sin(from)};
    const GE_POINT q{std::cos(from + kPi / 2), std::sin(from + kPi / 2)};
    LI_TAB_STRUCT *k = Polyline(head, {centre, p});
    EXPECT_EQ(LiArc(head, &k, &q, &centre, 0), PA_OK);
    EXPECT_EQ(LiDraw(head, &k, &centre), PA_OK);
    return k;
  };
}

// The unit disc about centre as arcs between the polar angles in order,
// counter-clockwise; the arcs are put in whole, however short.
Shape Disc(GE_POINT centre, std::vector<double> angles) {
  return [=](LI_HEAD *head) {
    const auto at = [&](double a) {
      return GE_POINT{centre.x + std::cos(a), centre.y + std::sin(a)};
    };
    LI_TAB_STRUCT *k = nullptr;
    for (size_t i = 0; i < angles.size(); ++i) {
      const LI_TAB_STRUCT arc =
          Arc(at(angles[i]), at(angles[(i + 1) % angles.size()]), centre, LI_ARC_CCW);
      EXPECT_EQ(LiInsertElem2(head, &k, &arc), PA_OK);
    }
    return k;
  };
}

// The upper half of the unit disc about (d, d), drawn from (d - 1, d).
Shape HalfDisc(double d) {
  return [=](LI_HEAD *head) {
    const GE_POINT centre{d, d}, right{1 + d, d}, left{-1 + d, d};
    LI_TAB_STRUCT *k = Polyline(head, {left, right});
    EXPECT_EQ(LiArc(head, &k, &left, &centre, 0), PA_OK);
    return k;
  };
}

struct Case {
  const char *name;
  Shape a, b;
  double area_a, area_b;
  double union_, isect, diff;  // diff is A - B
  // Contours that only share boundary cross, but no loop is an
  // intersection: PA_IMPOSSIBLE with the no-crossing flag 0.
  uint16_t isect_status = PA_OK;
  double within = 1e-9;
};

const double kLens = 2 * kPi / 3 - std::sqrt(3.0) / 2;  // unit circles 1 apart
const double kTol = 5e-05, kSliver = 1.3 * kTol;
const double kCap = std::sqrt(3.0) / 4 + kPi / 6 - 0.5;  // the unit disc left of x = -0.5
const Shape kTriangle = [](LI_HEAD *h) { return Polygon(h, {{0, 0}, {2, 0}, {0, 2}}); };
// A wedge 3 + e long whose tip pokes e past x = 2, with its two crossings
// of that line 0.7 tol apart.
const double kPoke = 1e-3, kHalfBase = 0.35 * kTol * (3 + kPoke) / kPoke;
const double kWedge = kHalfBase * (3 + kPoke);
const double kWedgeIn = 2 * kHalfBase * (2 + 2 * kPoke) / (3 + kPoke);  // within x <= 2
const Shape kThinWedge = [](LI_HEAD *h) {
  return Polygon(h, {{2 + kPoke, 1}, {-1, 1 + kHalfBase}, {-1, 1 - kHalfBase}});
};

// An arc of the unit circle about (0.01, 0) that crosses the unit circle
// about the origin at 0.3 degrees and ends 8e-5 further on, 8e-7 inside
// it, where a line turns back out: a dip narrower than the tolerance whose
// two crossings must pair up. The curves run within tol of each other
// for 0.01, so the areas hold to about that times tol.
const double kDipFrom = kPi / 2 - 0.3, kDipTo = std::acos(-0.005) + 8e-5;
const GE_POINT kDipStart{0.01 + std::cos(kDipFrom), std::sin(kDipFrom)};
const GE_POINT kDipEnd{0.01 + std::cos(kDipTo), std::sin(kDipTo)};
double Shoelace(std::initializer_list<GE_POINT> ring) {
  double twice = 0;
  const GE_POINT *prev = std::prev(ring.end());
  for (const GE_POINT &p : ring) twice += prev->x * p.y - p.x * prev->y, prev = &p;
  return twice / 2;
}
const double kDipSweep = kDipTo - kDipFrom;  // the arc bulges into the shape
const double kDip = std::fabs(Shoelace({kDipStart, kDipEnd, {-0.2, 1.5}, {0.3, 1.5}})) -
                    (kDipSweep - std::sin(kDipSweep)) / 2;
const Shape kDipper = [](LI_HEAD *h) {
  LI_TAB_STRUCT *k = Polyline(h, {{0.3, 1.5}, kDipStart});
  const GE_POINT centre{0.01, 0};
  EXPECT_EQ(LiArc(h, &k, &kDipEnd, &centre, 0), PA_OK);
  for (const GE_POINT p : {GE_POINT{-0.2, 1.5}, GE_POINT{0.3, 1.5}}) {
    EXPECT_EQ(LiDraw(h, &k, &p), PA_OK);
  }
  return k;
};

// A quadrilateral whose first edge runs within tol of the quadrilateral
// B's first edge over all of B's and ends 2 tol past B's corner (3, 0),
// in a tip whose way back passes 0.9 tol from the corner. By hand: A = 6.00015, B = 6; A within 1
// <= x <= 3 lies above B's edge, so A and B share the triangle (1, -1), (3, 0), (1, 1) up to A's
// way back: 1 + 2.0002 / 2.0001.
const Shape kTipped = [](LI_HEAD *h) {
  return Polygon(h, {{-1, -2}, {3.0001, 0}, {1, 1}, {1, 3}});
};
const Shape kCornered = [](LI_HEAD *h) { return Polygon(h, {{1, -1}, {3, 0}, {3, 2}, {1, 3}}); };
const double kTippedArea = 6.00015, kCorneredArea = 6, kTipShared = 1 + 2.0002 / 2.0001;

const Case kCases[] = {
    {"squares offset by half", R(0, 0, 1, 1), R(0.5, 0.5, 1.5, 1.5), 1, 1, 1.75, 0.25, 0.75},
    {"unit circles 1 apart", C(0, 0, 1), C(1, 0, 1), kPi, kPi, 2 * kPi - kLens, kLens, kPi - kLens},
    {"circle in a square", C(0, 0, 1), R(-2, -2, 2, 2), kPi, 16, 16, kPi, 0},
    {"square round a circle", R(-2, -2, 2, 2), C(0, 0, 1), 16, kPi, 16, kPi, 16 - kPi},
    {"disjoint boxes", R(0, 0, 1, 1), R(2, 0, 3, 1), 1, 1, 2, 0, 1},
    {"apart, boxes overlapping", kTriangle, R(1.5, 1.5, 2.5, 2.5), 2, 1, 3, 0, 2},
    {"a shared edge", R(0, 0, 1, 1), R(1, 0, 2, 1), 1, 1, 2, 0, 1, PA_IMPOSSIBLE},
    {"part of an edge shared", R(0, 0, 1, 1), R(1, 0.5, 2, 1.5), 1, 1, 2, 0, 1, PA_IMPOSSIBLE},
    {"a touch at a corner", R(0, 0, 1, 1), R(1, 1, 2, 2), 1, 1, 2, 0, 1},
    {"a square inside another's edge", R(0, 0, 4, 4), R(0, 1, 1, 2), 16, 1, 16, 1, 15},
    {"quarter discs side by side", Sector(0), Sector(kPi / 2), kPi / 4, kPi / 4, kPi / 2, 0,
     kPi / 4, PA_IMPOSSIBLE},
    {"a C closed by a bar", CShape, R(2.5, 0, 4, 3), 7, 4.5, 10.5, 1, 6},
    {"a bar closing a C", R(2.5, 0, 4, 3), CShape, 4.5, 7, 10.5, 1, 3.5},
    // A piece of the unit circle whose chord is 1.3 tol (0.92 tol per axis)
    // has ends that coincide: it must not act as the whole circle, whose
    // crossings with B's edges lie far from it.
    {"a sliver arc", Disc({0, 0}, {0, kPi / 4 - kSliver / 2, kPi / 4 + kSliver / 2}),
     R(-2, -0.5, -0.5, 0.5), kPi, 1.5, kPi + 1.5 - kCap, kCap, kPi - kCap},
    // Arcs of one circle whose centres differ by 0.8 tol per axis are the
    // same circle for some tests and not for others: the result must still
    // be the half disc within the tolerance.
    {"circles moved by less than tol", Disc({0, 0}, {0, kPi}), HalfDisc(0.8 * kTol), kPi, kPi / 2,
     kPi, kPi / 2, kPi / 2, PA_OK, 10 * kTol * 2 * kPi},
    // Both crossings of the tip count, though they lie near A's closing
    // joint and within tol of each other; the tip outside B is narrower
    // than the tolerance and may go.
    {"a thin wedge's tip across an edge", kThinWedge, R(0, 0, 2, 2), kWedge, 4,
     kWedge + 4 - kWedgeIn, kWedgeIn, kWedge - kWedgeIn, PA_OK, kPoke *kTol},
    {"a corner dipping into a circle", kDipper, C(0, 0, 1), kDip, kPi, kDip + kPi, 0, kDip,
     PA_IMPOSSIBLE, 1e-6},
    // B's corner under the tip is no crossing: the crossings at the ends of
    // the shared edge pair up (union and intersection once found the two
    // apart). The tip and the sliver between the edges go.
    {"a tip 2 tol past a corner", kTipped, kCornered, kTippedArea, kCorneredArea,
     kTippedArea + kCorneredArea - kTipShared, kTipShared, kTippedArea - kTipShared, PA_OK,
     10 * kTol},
    {"a corner 2 tol short of a tip", kCornered, kTipped, kCorneredArea, kTippedArea,
     kTippedArea + kCorneredArea - kTipShared, kTipShared, kCorneredArea - kTipShared, PA_OK,
     10 * kTol},
};

double Expected(const Case &c, Op op) {
  return op == Op::kUnion ? c.union_ : op == Op::kIntersection ? c.isect : c.diff;
}

LI_TAB_STRUCT *Oriented(LI_HEAD *head, const Shape &shape, bool reversed) {
  LI_TAB_STRUCT *k = shape(head);
  if (reversed) LiKontChgDir(&k);
  return k;
}

// The three operations on c in every orientation of A and B: statuses,
// areas, closed loops, inputs untouched, records accounted, identities.
void ExpectHandCase(const Case &c) {
  for (int turn = 0; turn < 4; ++turn) {
    Store store;
    LI_TAB_STRUCT *a = Oriented(store.get(), c.a, (turn & 1) != 0);
    LI_TAB_STRUCT *b = Oriented(store.get(), c.b, (turn & 2) != 0);
    const std::vector<LI_TAB_STRUCT> a0 = Snapshot(a), b0 = Snapshot(b);
    double area[3] = {};
    Live live{a, b};
    for (Op op : kOps) {
      Outcome r(store.get(), op, a, b);
      SCOPED_TRACE(testing::Message() << c.name << ", " << OpName(op) << ", turn " << turn);
      EXPECT_EQ(r.status(), op == Op::kIntersection ? c.isect_status : uint16_t{PA_OK});
      EXPECT_TRUE(r.status() == PA_OK || r.no_cross() == 0);
      area[static_cast<int>(op)] = r.RegionArea(c.area_a, c.area_b);
      EXPECT_NEAR(area[static_cast<int>(op)], Expected(c, op), c.within);
      for (LI_TAB_STRUCT *k : r.loops()) EXPECT_TRUE(LiCheck(k) && LiTestClosed(k));
      Live all = live;
      for (LI_TAB_STRUCT *k : r.loops()) all.push_back(k);
      EXPECT_TRUE(AllRecordsAccounted(store.head(), all));
    }
    EXPECT_TRUE(SameContents(Snapshot(a), a0) && SameContents(Snapshot(b), b0)) << c.name;
    EXPECT_NEAR(area[0] + area[1], c.area_a + c.area_b, c.within) << c.name;
    EXPECT_NEAR(area[2] + area[1], c.area_a, c.within) << c.name;
  }
}

TEST(Boolean, HandCasesInEveryOrientationAndTheirIdentities) {
  for (const Case &c : kCases) ExpectHandCase(c);
}

// Detours a tol or two long, at tol 0.25.
// - A's notch has its tip at the origin, its lower side along y = -x/4;
//   B's top edge, y = -x/5 - 0.025, crosses that side at (0.5, -0.125),
//   2 tol before the tip, and passes the tip 0.1 tol off: B runs along the
//   notch's last 2 tol and on into A, one crossing, though the notch's
//   upper side comes back within tol (union and intersection once found
//   none). Snapping B's cut onto the tip moves its edge by 0.1 tol.
// - B's tip (0, 0.3) pokes 1.2 tol past A's edge y = 0, which its sides
//   cross at x = -0.1 and -0.3, within tol of each other: one entry, and
//   a touch, however near the tip the way back passes the crossing (union
//   and intersection once found one crossing). The tip's 0.03 is lost.
TEST(Boolean, DetoursATolOrTwoLong) {
  ToleranceScope tol(0.25);
  const Shape notched = [](LI_HEAD *h) {
    return Polygon(h, {{40, -40}, {40, -10}, {0, 0}, {40, 10}, {40, 40}, {-40, 40}, {-40, -40}});
  };
  const Shape crosser = [](LI_HEAD *h) {
    return Polygon(h, {{40.5, -8.125}, {-9.5, 1.875}, {-9.5, -30}, {40.5, -30}});
  };
  // B within x <= 40 (a trapezoid 49.5 wide) less the part of the notch
  // under B's edge: the integral of x/20 - 0.025 from 0.5 to 40.
  const double isect = 49.5 * (31.875 + 21.975) / 2 - (39 + 0.00625);
  ExpectHandCase({"a crossing 2 tol before a notch tip", notched, crosser, 6000, 1343.75,
                  6000 + 1343.75 - isect, isect, 6000 - isect, PA_OK, 0.25});
  const Shape tipped = [](LI_HEAD *h) { return Polygon(h, {{-3.3, -3}, {-1.1, -3}, {0, 0.3}}); };
  ExpectHandCase({"a tip 1.2 tol past an edge", R(-5, 0, 5, 10), tipped, 100, 3.63, 103.63, 0, 100,
                  PA_OK, 0.05});
}

TEST(Boolean, TheResultListAndTheContainmentValue) {
  Store store;
  LI_TAB_STRUCT *a = Rect(store.get(), 0, 0, 1, 1);
  LI_TAB_STRUCT *c = CShape(store.get()), *bar = Rect(store.get(), 2.5, 0, 4, 3);
  {
    Outcome u(store.get(), Op::kUnion, c, bar), i(store.get(), Op::kIntersection, c, bar);
    EXPECT_EQ(u.loop_areas(), (std::vector<double>{12, -1.5})) << "outer loop, then the hole";
    EXPECT_EQ(i.loop_areas(), (std::vector<double>{0.5, 0.5})) << "one loop per piece";
  }
  // Disjoint boxes: no list at all.
  LI_TAB_STRUCT *far = Rect(store.get(), 5, 5, 6, 6);
  for (Op op : kOps) {
    Outcome r(store.get(), op, a, far);
    EXPECT_TRUE(r.status() == PA_OK && r.no_cross() == 1 && r.contain() == 0);
    EXPECT_TRUE(r.list() == nullptr && r.loops().empty());
  }
  // Identical contours make no loops: each lies in the other.
  LI_TAB_STRUCT *same = Rect(store.get(), 0, 0, 1, 1);
  for (Op op : kOps) {
    Outcome r(store.get(), op, a, same);
    EXPECT_TRUE(r.status() == PA_OK && r.no_cross() == 1 && r.contain() == 1) << OpName(op);
  }
  // A half disc of radius 1e-3 on a's edge is gone at a short length of
  // 0.01, its line first and then, as the last one left, not its arc: what
  // remains does not close, so it is no region.
  LI_TAB_STRUCT *crumb = Polyline(store.get(), {{0.999, 0.5}, {1.001, 0.5}});
  const GE_POINT crumb_start{0.999, 0.5}, crumb_centre{1, 0.5};
  EXPECT_EQ(LiArc(store.get(), &crumb, &crumb_start, &crumb_centre, 0), PA_OK);
  for (Op op : kOps) {
    Outcome r(store.get(), op, a, crumb, 0.01);
    EXPECT_TRUE(r.status() == PA_INVALID && r.no_cross() == 1 && r.list() == nullptr);
  }
  LI_TAB_STRUCT **list = nullptr;
  int16_t last = 0, contain = 0;
  uint32_t no_cross = 0;
  EXPECT_EQ(FlDiffKont(store.get(), a, nullptr, 0, 1, &list, &last, &no_cross, &contain),
            PA_INVALID);
  EXPECT_TRUE(list == nullptr && last == FL_EMPTY);
  EXPECT_EQ(FlUnionKont(store.get(), a, a, 0, 1, nullptr, nullptr, nullptr, nullptr), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {a, c, bar, far, same, crumb}));
}

// A regular n-gon of radius 1 about the origin, turned half a step so that
// no vertex lies on an axis; with a piece, its first edge gets an extra
// vertex that far along it.
LI_TAB_STRUCT *Gon(LI_HEAD *head, int n, double piece) {
  const double step = 2 * kPi / n;
  auto vertex = [step](double k) { return GE_POINT{std::cos(step * k), std::sin(step * k)}; };
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT from = vertex(0.5);
  EXPECT_EQ(LiMove(head, &k, &from), PA_OK);
  auto draw = [&](GE_POINT to) { EXPECT_EQ(LiDraw(head, &k, &to), PA_OK); };
  if (piece > 0) {
    const GE_POINT to = vertex(1.5);
    const double t = piece / std::hypot(to.x - from.x, to.y - from.y);
    draw({from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)});
  }
  for (int i = 1; i <= n; ++i) draw(vertex(i + 0.5));
  return k;
}

// Copies of a thousand elements and more are taken in address order and
// tidied as they are copied; one with a piece shorter than the short
// length is copied afresh and tidied the long way; one in the wrong sense
// is turned with its records laid out anew. The box x >= 0 halves the
// polygon either way.
TEST(Boolean, LargeCopiesWithAndWithoutShortPieces) {
  const int n = 2048;
  const double gon = n / 2.0 * std::sin(2 * kPi / n), box = 8;
  for (double piece : {0.0, 1e-4}) {
    for (bool clockwise : {false, true}) {
      Store store;
      LI_TAB_STRUCT *a = Gon(store.get(), n, piece), *b = Rect(store.get(), 0, -2, 2, 2);
      ASSERT_EQ(LiCountElem(a), n + (piece > 0 ? 1u : 0u));
      if (clockwise) LiKontChgDir(&a);
      const std::vector<LI_TAB_STRUCT> a0 = Snapshot(a);
      const double expected[] = {box + gon / 2, gon / 2, gon / 2, box - gon / 2};
      for (int i = 0; i < 4; ++i) {
        const Op op = i < 3 ? kOps[i] : Op::kDifference;
        Outcome r(store.get(), op, i < 3 ? a : b, i < 3 ? b : a, 1e-3, 0);
        SCOPED_TRACE(testing::Message() << i << ", piece " << piece << ", cw " << clockwise);
        ASSERT_EQ(r.status(), PA_OK);
        EXPECT_NEAR(r.RegionArea(i < 3 ? gon : box, i < 3 ? box : gon), expected[i], 1e-9);
        for (LI_TAB_STRUCT *k : r.loops()) EXPECT_TRUE(LiCheck(k) && LiTestClosed(k));
        Live all{a, b};
        for (LI_TAB_STRUCT *k : r.loops()) all.push_back(k);
        EXPECT_TRUE(AllRecordsAccounted(store.head(), all));
      }
      EXPECT_TRUE(SameContents(Snapshot(a), a0));
    }
  }
}

TEST(BewDiffMaxKont, TheLargestLoopOrNothing) {
  Store store;
  LI_TAB_STRUCT *strip = Rect(store.get(), 0, 0, 3, 1), *bar = Rect(store.get(), 1, -1, 1.5, 2);
  LI_TAB_STRUCT *out = nullptr;
  // The strip less the bar falls into pieces of 1 and 1.5.
  EXPECT_EQ(FlBewDiffMaxKont(store.get(), strip, bar, 0, &out), PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(out), 1.5);
  LI_TAB_STRUCT *isect = nullptr;
  EXPECT_EQ(FlBewDiffMaxKont(store.get(), strip, bar, 1, &isect), PA_OK);
  EXPECT_DOUBLE_EQ(LiKontArea(isect), 0.5);
  LI_TAB_STRUCT *none = strip;
  LI_TAB_STRUCT *far = Rect(store.get(), 5, 5, 6, 6);
  EXPECT_EQ(FlBewDiffMaxKont(store.get(), strip, far, 0, &none), PA_OK);
  EXPECT_EQ(none, nullptr);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {strip, bar, far, out, isect}));
}

// Every allocation of each operation fails in turn, the memory service's
// and the store's record by record: a documented status, the inputs as
// they were, and no record lost. (A failing crossing list inside the containment test only
// falls back to its vertex test, so a failure may also end in success.)
void RunFailing(const Shape &shape_a, const Shape &shape_b, Op op, InjectedFailure &failure,
                size_t spare) {
  Store store;
  LI_TAB_STRUCT *a = shape_a(store.get()), *b = shape_b(store.get());
  const std::vector<LI_TAB_STRUCT> a0 = Snapshot(a), b0 = Snapshot(b);
  LI_TAB_STRUCT *held = spare == SIZE_MAX ? nullptr : TakeAllFreeBut(store.get(), spare);
  failure.Arm();
  Outcome r(store.get(), op, a, b);
  failure.Disarm();
  const uint16_t s = r.status();
  EXPECT_TRUE(s == PA_OK || s == PA_NO_RECORD || s == PA_NO_MEMORY) << s;
  EXPECT_TRUE(failure.Fired() || s == PA_OK) << s;
  EXPECT_TRUE(s == PA_OK || r.list() == nullptr);
  EXPECT_TRUE(SameContents(Snapshot(a), a0) && SameContents(Snapshot(b), b0));
  Live all{a, b, held};
  for (LI_TAB_STRUCT *k : r.loops()) all.push_back(k);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), all));
}

TEST(Boolean, FailingAllocationsAtEveryStep) {
  // Squares: copies, crossing list, cuts, loops; a circle in a square:
  // containment.
  for (const Case *c : {&kCases[0], &kCases[2]}) {
    for (Op op : kOps) {
      SCOPED_TRACE(testing::Message() << c->name << ", " << OpName(op));
      EXPECT_GT(ForEachAllocationFailure([&](InjectedFailure &failure) {
                  RunFailing(c->a, c->b, op, failure, SIZE_MAX);
                }),
                0u);
      // The store runs dry at every record the operation takes; once the
      // records last, the first list allocation fails instead.
      for (size_t spare = 0; spare <= 64; ++spare) {
        InjectedFailure failure(1);
        RunFailing(c->a, c->b, op, failure, spare);
      }
    }
  }
  // Long copies take their records in one batch: it fails whole, at its
  // first record, its last, or its array.
  const Shape gon = [](LI_HEAD *h) { return Gon(h, 2048, 0); }, box = R(0, -2, 2, 2);
  EXPECT_GT(ForEachAllocationFailure([&](InjectedFailure &failure) {
              RunFailing(gon, box, Op::kUnion, failure, SIZE_MAX);
            }),
            0u);
  for (size_t spare : {0, 1, 2052, 2053, 2100}) {
    InjectedFailure failure(1);
    RunFailing(gon, box, Op::kIntersection, failure, spare);
  }
}

}  // namespace
}  // namespace polyarc_test

// The convexity test of a joint, flattening of inward arcs, and the bridge
// of a concave joint along the common outer tangent.
#include <cmath>

#include "polyarc/fl.h"
#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(TestKonvex, TurnAgainstTheOrientationBeyondTolOverTheNextElement) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT e = Line({0, 0}, {1, 0});
  const LI_TAB_STRUCT left = Line({1, 0}, {1, 1});
  // A turn of sine 0.28 to the right over a following element of length 1.
  const LI_TAB_STRUCT slight = Line({1, 0}, {1.96, -0.28});
  const LI_TAB_STRUCT inward = Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW);
  struct Row {
    const LI_TAB_STRUCT *f;
    int16_t orient;
    uint32_t convex;
  } rows[] = {{&left, 1, 1},   {&left, -1, 0},   {&slight, 1, 0}, {&slight, -1, 1},
              {&inward, 1, 0}, {&inward, -1, 0}, {&left, 0, 1}};
  for (const Row &r : rows) {
    uint32_t convex = 7;
    EXPECT_EQ(FlTestKonvex(&e, r.f, r.orient, &convex), PA_OK);
    EXPECT_EQ(convex, r.convex) << "orientation " << r.orient << " f ends at " << r.f->ep;
  }
  ToleranceScope wider(0.5);  // the same right turn is below tol / length now
  uint32_t convex = 0;
  EXPECT_EQ(FlTestKonvex(&e, &slight, 1, &convex), PA_OK);
  EXPECT_EQ(convex, 1u);
  EXPECT_EQ(FlTestKonvex(&e, nullptr, 1, &convex), PA_INVALID);
}

// The square (0,0)-(2,2) counter-clockwise with its top side bent inwards
// by a clockwise arc about (1,3).
LI_TAB_STRUCT *DentedSquare(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, 2}, {0, 0}, {2, 0}, {2, 2}});
  const GE_POINT end{0, 2}, centre{1, 3};
  EXPECT_EQ(LiArc(head, &k, &end, &centre, 1), PA_OK);
  return k;
}

TEST(RemBogKonk, InwardArcsBecomeTheirChords) {
  Store store;
  LI_TAB_STRUCT *k = DentedSquare(store.get());
  ASSERT_EQ(LiCountElem(k), 4u);
  uint32_t changed = 7;
  EXPECT_EQ(FlRemBogKonk(k, 65535, &changed), PA_OK);
  EXPECT_EQ(changed, 0u) << "a clockwise arc bulges outwards in a clockwise contour";
  EXPECT_LT(LiKontArea(k), 4.0);
  EXPECT_EQ(FlRemBogKonk(k, 1, &changed), PA_OK);
  EXPECT_EQ(changed, 1u);
  EXPECT_EQ(k->prev->type, LI_LINE);
  EXPECT_DOUBLE_EQ(LiKontArea(k), 4.0);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(RemKonkav, TwoLinesAreBridgedByTheChordAndTheSecondGoes) {
  Store store;
  LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {2, 2}, {0, 4}});
  LI_TAB_STRUCT *e = k->next->next;  // (4,4) -> (2,2)
  GE_POINT t1{}, t2{};
  EXPECT_EQ(FlSeekKon(e, e->next, &t1, &t2), PA_OK);
  EXPECT_TRUE(t1 == (GE_POINT{4, 4}) && t2 == (GE_POINT{0, 4}));
  ASSERT_EQ(FlRemKonkav(store.get(), &k, e), PA_OK);
  EXPECT_EQ(Vertices(k), (Points{{0, 0}, {4, 0}, {4, 0}, {4, 4}, {4, 4}, {0, 4}, {0, 4}, {0, 0}}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

// Two unit circles about (0,0) and (1.6,0), crossing at (0.8, +-0.6): the
// upper arcs of their union, closed below by three lines. The notch at
// (0.8, 0.6) is bridged by the tangent y = 1.
LI_TAB_STRUCT *TwoHumps(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polyline(head, {{-1, 0}, {-1, -1}, {2.6, -1}, {2.6, 0}});
  const GE_POINT notch{0.8, 0.6}, left{-1, 0}, c1{0, 0}, c2{1.6, 0};
  EXPECT_EQ(LiArc(head, &k, &notch, &c2, 0), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &left, &c1, 0), PA_OK);
  return k;
}

TEST(RemKonkav, TwoArcsAreBridgedAlongTheirOuterTangent) {
  Store store;
  LI_TAB_STRUCT *k = TwoHumps(store.get());
  LI_TAB_STRUCT *e = k->prev->prev;  // the arc about (1.6, 0)
  GE_POINT t1{}, t2{};
  EXPECT_EQ(FlKonnKonvex(e, e->next, 1, 1, &t1, &t2), PA_OK);
  EXPECT_NEAR(t1.x, 1.6, 1e-12);
  EXPECT_NEAR(t1.y, 1.0, 1e-12);
  EXPECT_NEAR(t2.x, 0.0, 1e-12);
  EXPECT_NEAR(t2.y, 1.0, 1e-12);
  // As points: the chord from e's start to f's end. A point inside the
  // other circle has no outer tangent with it.
  EXPECT_EQ(FlKonnKonvex(e, e->next, 0, 0, &t1, &t2), PA_OK);
  EXPECT_TRUE(t1 == e->ap && t2 == e->next->ep);
  const LI_TAB_STRUCT inside = Line({1.5, 0}, {1.6, 0.5});
  EXPECT_EQ(FlKonnKonvex(e, &inside, 1, 0, &t1, &t2), PA_IMPOSSIBLE);

  const double before = LiKontArea(k);
  ASSERT_EQ(FlRemKonkav(store.get(), &k, e), PA_OK);
  EXPECT_EQ(LiCountElem(k), 6u);
  EXPECT_EQ(e->next->type, LI_LINE);
  // The notch: 1.6 x 1 less the two circle pieces over [0, 0.8], each
  // 0.8 x 0.6 / 2 + asin(0.8) / 2.
  EXPECT_NEAR(LiKontArea(k) - before, 1.6 - 0.48 - std::asin(0.8), 1e-9);
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY, [](LI_HEAD *head) { return Live{TwoHumps(head)}; },
      [](LI_HEAD *head, Live &live) { return FlRemKonkav(head, &live[0], live[0]->prev->prev); });
}

}  // namespace
}  // namespace polyarc_test

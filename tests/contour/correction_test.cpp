// Moving a contour's start, removing short elements, and merging elements
// that continue one another.
#include <cmath>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// The quarter circle of radius 1 about the origin from (1, 0) to (0, 1),
// counter-clockwise, as a one-element contour.
LI_TAB_STRUCT *QuarterArc(LI_HEAD *head) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{1, 0}, b{0, 1}, centre{0, 0};
  EXPECT_EQ(LiMove(head, &k, &a), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &b, &centre, 0), PA_OK);
  return k;
}

TEST(Correction, KorrElemMovesALineAlongItsCarrier) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  LI_TAB_STRUCT *first = k;
  const GE_POINT back{-1, 0}, ahead{1, 0}, aside{0, 1};
  ASSERT_EQ(LiKorrElem(store.get(), &k, &back), PA_OK);
  EXPECT_EQ(k, first);
  EXPECT_EQ(k->ap, back);
  EXPECT_EQ(k->ang_ep - k->ang_ap, 5) << "lengthened and re-expanded";
  ASSERT_EQ(LiKorrElem(store.get(), &k, &ahead), PA_OK);
  EXPECT_EQ(k->ang_ep - k->ang_ap, 3) << "shortened";
  EXPECT_EQ(LiKorrElem(store.get(), &k, &aside), PA_IMPOSSIBLE);
  EXPECT_EQ(k->ap, ahead);
  EXPECT_EQ(LiKorrElem(store.get(), &k, &ahead), PA_OK) << "already there";
  LI_TAB_STRUCT *none = nullptr;
  EXPECT_EQ(LiKorrElem(store.get(), &none, &ahead), PA_OK);
  EXPECT_EQ(LiKorrElem(store.get(), nullptr, &ahead), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Correction, KorrElemOnAnArcAddsATangentLineOrSlidesOnTheCircle) {
  Store store;
  LI_TAB_STRUCT *k = QuarterArc(store.get());
  LI_TAB_STRUCT *arc = k;
  const GE_POINT below{1, -2};  // on the tangent line at the arc's start
  ASSERT_EQ(LiKorrElem(store.get(), &k, &below), PA_OK);
  ASSERT_NE(k, arc);
  EXPECT_EQ(k->type, LI_LINE);
  EXPECT_EQ(k->ap, below);
  EXPECT_EQ(k->ep, (GE_POINT{1, 0}));
  EXPECT_EQ(k->next, arc);
  EXPECT_EQ(LiCountElem(k), 2u);

  LI_TAB_STRUCT *alone = QuarterArc(store.get());
  const GE_POINT bottom{0, -1}, end{0, 1}, off{3, 3};
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &end), PA_IMPOSSIBLE) << "not onto its own end";
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &off), PA_IMPOSSIBLE);
  ASSERT_EQ(LiKorrElem(store.get(), &alone, &bottom), PA_OK);
  EXPECT_EQ(alone->ap, bottom);
  EXPECT_DOUBLE_EQ(alone->ang_ap, -kPi / 2) << "re-expanded: now a half circle";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, alone}));
}

TEST(Correction, KorrElemUnderAllocationFailure) {
  ForEachRecordShortage([](size_t n, InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = QuarterArc(store.get());
    LI_TAB_STRUCT *arc = k;
    LI_TAB_STRUCT *spare = TakeAllFreeBut(store.get(), n);
    const GE_POINT below{1, -2};
    failure.Arm();
    const uint16_t status = LiKorrElem(store.get(), &k, &below);
    failure.Disarm();
    if (failure.Fired()) {
      EXPECT_EQ(status, PA_NO_MEMORY);
      EXPECT_EQ(k, arc) << "the contour is left as it was";
      EXPECT_EQ(LiCountElem(k), 1u);
    } else {
      EXPECT_EQ(status, PA_OK);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
  });
}

std::vector<GE_POINT> Vertices(LI_TAB_STRUCT *k) {
  std::vector<GE_POINT> v;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    v.push_back(e->ap);
    v.push_back(e->ep);
  }
  return v;
}

// A contour of copies of the given elements, in order.
LI_TAB_STRUCT *Contour(LI_HEAD *head, std::initializer_list<LI_TAB_STRUCT> elements) {
  LI_TAB_STRUCT *k = nullptr;
  for (const LI_TAB_STRUCT &e : elements) EXPECT_EQ(LiInsertElem2(head, &k, &e), PA_OK);
  return k;
}

TEST(Correction, KorrKontDeletesTinyLinesAndJoinsTheRest) {
  ToleranceScope tol(0.25);  // 10 x tol = 2.5
  Store store;
  LI_TAB_STRUCT *open = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 1.25}, {8, 1.25}});
  EXPECT_EQ(LiKorrKont(store.get(), &open, 0), PA_OK);
  EXPECT_EQ(Vertices(open), (std::vector<GE_POINT>{{0, 0}, {4, 1.25}, {4, 1.25}, {8, 1.25}}));
  EXPECT_DOUBLE_EQ(open->ang_ep - open->ang_ap, std::hypot(4, 1.25)) << "re-expanded";

  // The tiny side is the last: closing joins the one before it to the start.
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0.5}});
  EXPECT_EQ(LiKorrKont(store.get(), &square, 1), PA_OK);
  EXPECT_EQ(Vertices(square),
            (std::vector<GE_POINT>{{0, 0}, {4, 0}, {4, 0}, {4, 4}, {4, 4}, {0, 4}, {0, 4}, {0, 0}}));

  // The tiny element is the first: the handle moves on.
  LI_TAB_STRUCT *lead = Polyline(store.get(), {{0, 0}, {1, 0}, {5, 0}, {9, 0}});
  LI_TAB_STRUCT *second = lead->next;
  EXPECT_EQ(LiKorrKont(store.get(), &lead, 0), PA_OK);
  EXPECT_EQ(lead, second);
  EXPECT_EQ(LiCountElem(lead), 2u);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {open, square, lead}));
}

TEST(Correction, KorrKontKeepsArcsOnTheirCircles) {
  ToleranceScope tol(0.25);
  Store store;
  // A clockwise half circle of radius 4 from (4,0) to (12,0), then a tiny
  // line back to (11,1): the arc has to end there and moves its centre.
  LI_TAB_STRUCT *k = Contour(store.get(), {Line({0, 0}, {4, 0}), Arc({4, 0}, {12, 0}, {8, 0}, LI_ARC_CW),
                                           Line({12, 0}, {11, 1}), Line({11, 1}, {15, 1})});
  ASSERT_EQ(LiKorrKont(store.get(), &k, 0), PA_OK);
  ASSERT_EQ(LiCountElem(k), 3u);
  const LI_TAB_STRUCT *arc = k->next;
  EXPECT_EQ(arc->ep, (GE_POINT{11, 1}));
  EXPECT_EQ(arc->rad, 4);
  EXPECT_NEAR(std::hypot(arc->ap.x - arc->mp.x, arc->ap.y - arc->mp.y), 4, 1e-12);
  EXPECT_NEAR(std::hypot(arc->ep.x - arc->mp.x, arc->ep.y - arc->mp.y), 4, 1e-12);
  EXPECT_LT(arc->mp.y, 0) << "of the two centres, the one nearer the old";

  // Small arcs go; a lone big arc stays.
  LI_TAB_STRUCT *small = Contour(store.get(), {Line({-4, 0}, {0, 0}), Arc({0, 0}, {8, 0}, {4, 0}, LI_ARC_CW),
                                               Arc({8, 0}, {10, 0}, {9, 0}, LI_ARC_CW), Line({10, 0}, {14, 0})});
  EXPECT_EQ(LiKorrKont(store.get(), &small, 0), PA_OK);
  EXPECT_EQ(LiCountElem(small), 3u) << "radius 1 is below 10 x tol";
  LI_TAB_STRUCT *ring = Contour(store.get(), {Line({3, 0}, {3, 1}), Arc({3, 0}, {3, 0}, {0, 0}, LI_ARC_CCW)});
  EXPECT_EQ(LiKorrKont(store.get(), &ring, 1), PA_OK);
  ASSERT_EQ(LiCountElem(ring), 1u) << "the circle is the only element left when it is examined";
  EXPECT_EQ(ring->type, LI_ARC_CCW);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, small, ring}));
}

TEST(Correction, RemShortDeletesJoinsAndFlattens) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *one = Polyline(store.get(), {{0, 0}, {0.5, 0}});
  EXPECT_EQ(LiRemShort(store.get(), &one, 0, 1.0, 1), PA_OK);
  EXPECT_EQ(Vertices(one), (std::vector<GE_POINT>{{0, 0}, {0.5, 0}})) << "one element: left alone";

  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 0.5}, {4.5, 0.5}, {8, 0.5}});
  EXPECT_EQ(LiRemShort(store.get(), &k, 0, 1.0, 0), PA_OK);
  EXPECT_EQ(Vertices(k), (std::vector<GE_POINT>{{0, 0}, {4.5, 0.5}, {4.5, 0.5}, {8, 0.5}}));

  // A flat arc (radius 100, sweeping 0.02) becomes a line; a half circle
  // does not.
  const GE_POINT a{100 * std::cos(0.01), -100 * std::sin(0.01)};
  const GE_POINT b{a.x, -a.y};
  LI_TAB_STRUCT *arcs = Contour(store.get(), {Arc(a, b, {0, 0}, LI_ARC_CCW), Arc(b, {b.x - 20, b.y}, {b.x - 10, b.y}, LI_ARC_CCW)});
  EXPECT_EQ(LiRemShort(store.get(), &arcs, 0, 0.01, 1), PA_OK);
  EXPECT_EQ(arcs->type, LI_LINE);
  EXPECT_DOUBLE_EQ(arcs->ang_ep - arcs->ang_ap, 200 * std::sin(0.01));
  EXPECT_EQ(arcs->next->type, LI_ARC_CCW);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {one, k, arcs}));
}

TEST(Correction, RemShortReportsTheUnionOfItsStatuses) {
  ToleranceScope tol(0.25);
  Store store;
  // A line of zero length (PA_ZERO_LENGTH) and an arc of radius tol / 2
  // (PA_ZERO_RADIUS); with min 0 nothing is deleted.
  LI_TAB_STRUCT *k = Contour(store.get(), {Line({0, 0}, {0, 0}), Arc({0, 0}, {0.25, 0}, {0.125, 0}, LI_ARC_CW),
                                           Line({0.25, 0}, {4, 0})});
  EXPECT_EQ(LiRemShort(store.get(), &k, 0, 0.0, 0), PA_ZERO_LENGTH | PA_ZERO_RADIUS);
  EXPECT_EQ(LiCountElem(k), 3u);
  EXPECT_EQ(LiRemShort(store.get(), nullptr, 0, 0.0, 0), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

const LI_TAB_STRUCT *ChooseSecond(const LI_TAB_STRUCT *, const LI_TAB_STRUCT *n) { return n; }
const LI_TAB_STRUCT *ChooseFirst(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *) { return e; }

// Sets the choose function for one scope and puts the old one back.
class ChooseScope {
 public:
  explicit ChooseScope(LI_CRUNCH_CHOOSE f) : previous_(LiKontSetChooseForCrunchCB(f)) {}
  ChooseScope(const ChooseScope &) = delete;
  ChooseScope &operator=(const ChooseScope &) = delete;
  ~ChooseScope() { LiKontSetChooseForCrunchCB(previous_); }

 private:
  LI_CRUNCH_CHOOSE previous_;
};

TEST(Correction, CrunchMergesThreeCollinearLinesIntoOne) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  LI_TAB_STRUCT *first = k;
  EXPECT_EQ(LiCrunch(store.get(), k), PA_OK);
  EXPECT_EQ(Vertices(k), (std::vector<GE_POINT>{{0, 0}, {3, 0}}));
  EXPECT_EQ(k, first);
  EXPECT_EQ(k->ang_ep - k->ang_ap, 3) << "re-expanded";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Correction, CrunchMergesOnlyWhatContinues) {
  Store store;
  // The last side continues the first, but nothing merges across the start.
  LI_TAB_STRUCT *square = Polygon(store.get(), {{1, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}});
  EXPECT_EQ(LiCrunch(store.get(), square), PA_OK);
  EXPECT_EQ(LiCountElem(square), 5u);

  LI_TAB_STRUCT *back = Polyline(store.get(), {{0, 0}, {2, 0}, {1, 0}});
  EXPECT_EQ(LiCrunch(store.get(), back), PA_OK);
  EXPECT_EQ(LiCountElem(back), 2u) << "collinear, but turning back";

  LI_TAB_STRUCT *gap = Polyline(store.get(), {{0, 0}, {1, 0}});
  LiChainPrev(gap, Polyline(store.get(), {{1.5, 0}, {3, 0}}));
  EXPECT_EQ(LiCrunch(store.get(), gap), PA_OK);
  EXPECT_EQ(LiCountElem(gap), 2u);

  // Two quarters of the unit circle make a half.
  LI_TAB_STRUCT *arcs = QuarterArc(store.get());
  const GE_POINT west{-1, 0}, centre{0, 0};
  ASSERT_EQ(LiArc(store.get(), &arcs, &west, &centre, 0), PA_OK);
  EXPECT_EQ(LiCrunch(store.get(), arcs), PA_OK);
  ASSERT_EQ(LiCountElem(arcs), 1u);
  EXPECT_EQ(arcs->ep, west);
  EXPECT_DOUBLE_EQ(arcs->ang_ep, kPi);
  EXPECT_EQ(LiCrunch(store.get(), nullptr), PA_OK);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, back, gap, arcs}));
}

TEST(Correction, CrunchPayloadFollowsTheChooseFunction) {
  EXPECT_EQ(LiKontSetChooseForCrunchCB(nullptr), nullptr) << "none is set at first";
  Store store;
  auto payload = [&store](uint16_t mark2) {
    LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
    k->no = 1;
    k->attr_id = 10;
    k->attr_val = 0.5;
    k->mark = 1;
    k->next->no = 2;
    k->next->attr_id = 20;
    k->next->attr_val = 1.5;
    k->next->mark = mark2;
    EXPECT_EQ(LiCrunch(store.get(), k), PA_OK);
    EXPECT_EQ(LiCountElem(k), 1u);
    return k;
  };
  LI_TAB_STRUCT *none = payload(1);
  EXPECT_EQ(none->no, 1) << "without a choose function the first keeps its payload";
  EXPECT_EQ(none->mark, 1) << "both marked";
  {
    ChooseScope scope(ChooseSecond);
    EXPECT_EQ(LiKontSetChooseForCrunchCB(ChooseSecond), ChooseSecond);
    LI_TAB_STRUCT *second = payload(0);
    EXPECT_EQ(second->no, 2);
    EXPECT_EQ(second->attr_id, 20);
    EXPECT_EQ(second->attr_val, 1.5);
    EXPECT_EQ(second->mark, 0) << "only one marked";
    EXPECT_EQ(LiKontSetChooseForCrunchCB(ChooseFirst), ChooseSecond);
    LI_TAB_STRUCT *first = payload(1);
    EXPECT_EQ(first->attr_id, 10);
  }
  EXPECT_EQ(LiKontSetChooseForCrunchCB(nullptr), nullptr) << "the scope put it back";
}

}  // namespace
}  // namespace polyarc_test

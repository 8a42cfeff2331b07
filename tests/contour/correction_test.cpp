// Moving a contour's start, removing short elements, and merging elements
// that continue one another.
#include <cmath>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

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

// The counter-clockwise quarter of the unit circle from (1,0) to (0,1).
LI_TAB_STRUCT *QuarterArc(LI_HEAD *head) {
  return Contour(head, {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW)});
}

TEST(Correction, KorrElemAlongTheTangentOrOnTheCircle) {
  Store store;
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  const GE_POINT back{-1, 0}, aside{0, 1};
  ASSERT_EQ(LiKorrElem(store.get(), &line, &back), PA_OK);
  EXPECT_EQ(line->ang_ep - line->ang_ap, 5) << "lengthened and re-expanded";
  EXPECT_EQ(LiKorrElem(store.get(), &line, &aside), PA_IMPOSSIBLE);

  LI_TAB_STRUCT *k = QuarterArc(store.get());
  LI_TAB_STRUCT *arc = k;
  const GE_POINT below{1, -2};  // on the tangent line at the arc's start
  ASSERT_EQ(LiKorrElem(store.get(), &k, &below), PA_OK);
  EXPECT_EQ(Vertices(k), (std::vector<GE_POINT>{below, {1, 0}, {1, 0}, {0, 1}}));
  EXPECT_EQ(k->next, arc) << "a new first line in front of the arc";

  LI_TAB_STRUCT *alone = QuarterArc(store.get());
  const GE_POINT bottom{0, -1}, end{0, 1}, off{3, 3};
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &end), PA_IMPOSSIBLE) << "not onto its own end";
  EXPECT_EQ(LiKorrElem(store.get(), &alone, &off), PA_IMPOSSIBLE);
  ASSERT_EQ(LiKorrElem(store.get(), &alone, &bottom), PA_OK);
  EXPECT_DOUBLE_EQ(alone->ang_ap, -kPi / 2) << "slid along its circle";
  EXPECT_EQ(LiKorrElem(store.get(), nullptr, &end), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {line, k, alone}));
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
    EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
    if (failure.Fired()) {
      EXPECT_TRUE(k == arc && k->next == arc) << "left as it was";
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare}));
  });
}

TEST(Correction, KorrKontDeletesTinyElementsAndRejoins) {
  ToleranceScope tol(0.25);  // 10 x tol = 2.5
  Store store;
  LI_TAB_STRUCT *open = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 1.25}, {8, 1.25}});
  EXPECT_EQ(LiKorrKont(store.get(), &open, 0), PA_OK);
  EXPECT_EQ(Vertices(open), (std::vector<GE_POINT>{{0, 0}, {4, 1.25}, {4, 1.25}, {8, 1.25}}));

  // The tiny side is the last: closing joins the one before it to the start.
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0.5}});
  EXPECT_EQ(LiKorrKont(store.get(), &square, 1), PA_OK);
  EXPECT_EQ(LiCountElem(square), 4u);
  EXPECT_EQ(square->prev->ep, (GE_POINT{0, 0}));

  // A clockwise half circle of radius 4, then a tiny line back to (11,1):
  // the arc must end there and moves its centre rather than its radius.
  LI_TAB_STRUCT *k = Contour(store.get(), {Line({0, 0}, {4, 0}), Arc({4, 0}, {12, 0}, {8, 0}, LI_ARC_CW),
                                           Line({12, 0}, {11, 1}), Line({11, 1}, {15, 1})});
  ASSERT_EQ(LiKorrKont(store.get(), &k, 0), PA_OK);
  ASSERT_EQ(LiCountElem(k), 3u);
  const LI_TAB_STRUCT *arc = k->next;
  EXPECT_EQ(arc->ep, (GE_POINT{11, 1}));
  EXPECT_EQ(arc->rad, 4);
  EXPECT_NEAR(std::hypot(arc->ep.x - arc->mp.x, arc->ep.y - arc->mp.y), 4, 1e-12);

  // A lone big circle stays when the line before it goes.
  LI_TAB_STRUCT *ring = Contour(store.get(), {Line({3, 0}, {3, 1}), Arc({3, 0}, {3, 0}, {0, 0}, LI_ARC_CCW)});
  EXPECT_EQ(LiKorrKont(store.get(), &ring, 1), PA_OK);
  EXPECT_TRUE(LiCountElem(ring) == 1 && ring->type == LI_ARC_CCW);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {open, square, k, ring}));
}

TEST(Correction, RemShortDeletesFlattensAndOrsItsStatuses) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *one = Polyline(store.get(), {{0, 0}, {0.5, 0}});
  EXPECT_EQ(LiRemShort(store.get(), &one, 0, 1.0, 1), PA_OK);
  EXPECT_EQ(LiCountElem(one), 1u) << "one element: left alone";

  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 0.5}, {4.5, 0.5}, {8, 0.5}});
  EXPECT_EQ(LiRemShort(store.get(), &k, 0, 1.0, 0), PA_OK);
  EXPECT_EQ(Vertices(k), (std::vector<GE_POINT>{{0, 0}, {4.5, 0.5}, {4.5, 0.5}, {8, 0.5}}));

  // A flat arc (radius 100, sweeping 0.02) becomes a line, a half circle not.
  const GE_POINT a{100 * std::cos(0.01), -100 * std::sin(0.01)}, b{a.x, -a.y};
  LI_TAB_STRUCT *arcs = Contour(store.get(), {Arc(a, b, {0, 0}, LI_ARC_CCW),
                                              Arc(b, {b.x - 20, b.y}, {b.x - 10, b.y}, LI_ARC_CCW)});
  EXPECT_EQ(LiRemShort(store.get(), &arcs, 0, 0.01, 1), PA_OK);
  EXPECT_TRUE(arcs->type == LI_LINE && arcs->next->type == LI_ARC_CCW);

  // A zero-length line and an arc of radius tol / 2; min 0 deletes nothing.
  LI_TAB_STRUCT *bad = Contour(store.get(), {Line({0, 0}, {0, 0}), Arc({0, 0}, {0.25, 0}, {0.125, 0}, LI_ARC_CW),
                                             Line({0.25, 0}, {4, 0})});
  EXPECT_EQ(LiRemShort(store.get(), &bad, 0, 0.0, 0), PA_ZERO_LENGTH | PA_ZERO_RADIUS);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {one, k, arcs, bad}));
}

TEST(Correction, CrunchMergesOnlyWhatContinues) {
  Store store;
  LI_TAB_STRUCT *three = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  EXPECT_EQ(LiCrunch(store.get(), three), PA_OK);
  EXPECT_EQ(Vertices(three), (std::vector<GE_POINT>{{0, 0}, {3, 0}}));
  EXPECT_EQ(three->ang_ep - three->ang_ap, 3) << "re-expanded";

  // The last side continues the first, but nothing merges across the start.
  LI_TAB_STRUCT *square = Polygon(store.get(), {{1, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}});
  LI_TAB_STRUCT *back = Polyline(store.get(), {{0, 0}, {2, 0}, {1, 0}});
  LI_TAB_STRUCT *gap = Polyline(store.get(), {{0, 0}, {1, 0}});
  LiChainPrev(gap, Polyline(store.get(), {{1.5, 0}, {3, 0}}));
  for (LI_TAB_STRUCT *k : {square, back, gap}) {
    const uint32_t n = LiCountElem(k);
    EXPECT_EQ(LiCrunch(store.get(), k), PA_OK);
    EXPECT_EQ(LiCountElem(k), n);
  }

  LI_TAB_STRUCT *arcs = QuarterArc(store.get());
  const GE_POINT west{-1, 0}, centre{0, 0};
  ASSERT_EQ(LiArc(store.get(), &arcs, &west, &centre, 0), PA_OK);
  EXPECT_EQ(LiCrunch(store.get(), arcs), PA_OK);
  EXPECT_TRUE(LiCountElem(arcs) == 1 && arcs->ep == west) << "two quarters make a half";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {three, square, back, gap, arcs}));
}

const LI_TAB_STRUCT *ChooseSecond(const LI_TAB_STRUCT *, const LI_TAB_STRUCT *n) { return n; }

TEST(Correction, CrunchPayloadFollowsTheChooseFunction) {
  EXPECT_EQ(LiKontSetChooseForCrunchCB(nullptr), nullptr) << "none is set at first";
  Store store;
  auto merged = [&store](uint16_t mark2) {
    LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
    k->no = 1;
    k->attr_id = 10;
    k->mark = 1;
    k->next->no = 2;
    k->next->attr_id = 20;
    k->next->mark = mark2;
    EXPECT_EQ(LiCrunch(store.get(), k), PA_OK);
    return k;
  };
  LI_TAB_STRUCT *plain = merged(1);
  EXPECT_TRUE(plain->no == 1 && plain->attr_id == 10) << "the first keeps its payload";
  EXPECT_EQ(plain->mark, 1) << "both were marked";
  EXPECT_EQ(LiKontSetChooseForCrunchCB(ChooseSecond), nullptr);
  LI_TAB_STRUCT *chosen = merged(0);
  EXPECT_EQ(LiKontSetChooseForCrunchCB(nullptr), ChooseSecond);
  EXPECT_TRUE(chosen->no == 2 && chosen->attr_id == 20);
  EXPECT_EQ(chosen->mark, 0) << "only one was marked";
}

}  // namespace
}  // namespace polyarc_test

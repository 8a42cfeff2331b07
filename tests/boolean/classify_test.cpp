// Classification of crossings placed by hand at element joints: how B
// passes A, repeated and mirrored entries, overlaps, and end snapping.
#include <cmath>
#include <random>
#include <tuple>

#include "support/classify_support.h"

namespace polyarc_test {
namespace {

constexpr uint16_t kL = 1, kR = 65535;  // sides: left, right (-1)
constexpr uint16_t J = FL_MODE_JOIN, L = FL_MODE_LEAVE, X = FL_MODE_CROSS, V = FL_MODE_VOID;

// The crossing at the origin of A along the x-axis and B from `from` to `to`.
GE_CROSS AtOrigin(LI_HEAD *head, GE_POINT from, GE_POINT to) {
  return Joint(Polyline(head, {{-1, 0}, {0, 0}, {1, 0}}), Polyline(head, {from, {0, 0}, to}));
}

TEST(SetModeSideRev, StraightBAgainstStraightA) {
  struct Row {
    GE_POINT from, to;
    uint16_t mode, side;
    uint32_t rev;
  } rows[] = {
      {{-1, 1}, {1, 1}, V, 0, 0},    // touches from the left
      {{0, 1}, {-0.1, -1}, X, 0, 0},  // crosses
      {{0, 1}, {1, 0}, J, kL, 0},    // joins from the left
      {{0, -1}, {1, 0}, J, kR, 0},   // joins from the right
      {{-1, 0}, {0, -1}, L, kR, 0},  // leaves to the right
      {{1, 0}, {0, 1}, J, kL, 1},    // comes back along A, leaves left
      {{0, 1}, {-1, 0}, L, kL, 1},   // joins from the left, runs back along A
      {{1, 0}, {-1, 0}, V, 0, 0},    // against A on both halves
      // 3e-9 rad below A but too far out to touch its carrier: counted as
      // arriving straight along A, hence from the left.
      {{-20000, -6e-5}, {1, -1}, X, 0, 0},
  };
  for (const Row &r : rows) {
    Store store;
    GE_CROSS c = AtOrigin(store.get(), r.from, r.to);
    EXPECT_EQ(FlSetModeSideRev(&c), PA_OK);
    EXPECT_EQ(std::tuple(c.mode, c.side, c.rev), std::tuple(r.mode, r.side, r.rev)) << r.from;
  }
}

TEST(SetModeSideRev, FoldBacksAndMissingTangents) {
  Store store;
  LI_HEAD *head = store.get();
  const GE_POINT o{0, 0}, up{0, 1}, nw{-1, 1};
  // A straight back on itself has no side: void, and an error.
  GE_CROSS c = Joint(Polyline(head, {{-1, 0}, o, {-1, 0}}), Polyline(head, {up, o, {0, -1}}));
  EXPECT_EQ(FlSetModeSideRev(&c), PA_IMPOSSIBLE);
  EXPECT_EQ(c.mode, V);
  // A turning back up the unit circle above: B's halves count as right of
  // A, and B arriving along A ends a stretch.
  LI_TAB_STRUCT *hook = Polyline(head, {{-1, 0}, o});
  LiArc(head, &hook, &nw, &up, 1);
  c = Joint(hook, Polyline(head, {{-2, 0}, o, {1, 1}}));
  EXPECT_EQ(FlSetModeSideRev(&c), PA_OK);
  EXPECT_EQ(std::tuple(c.mode, c.side), std::tuple(L, kR));
  c.next_b = nullptr;  // not split: no tangent
  EXPECT_EQ(FlSetModeSideRev(&c), PA_INVALID);
  EXPECT_EQ(c.mode, V);
}

// The element of a chain that ends at p.
LI_TAB_STRUCT *EndingAt(LI_TAB_STRUCT *k, GE_POINT p) {
  while (!(k->ep == p)) k = k->next;
  return k;
}

TEST(SetModeSideRev, ShortDetoursThatComeBackPastTheCrossing) {
  // At tol 0.25 a tip 0.5 past the origin whose way back passes 0.2 from
  // it: B's passage across the way back merges into the crossing.
  ToleranceScope scope(0.25);
  const GE_POINT o{0, 0}, tip{0.5, 0}, back{-8, 4}, left{-8, 0}, right{8, 0};
  const GE_POINT below{0, -8}, above{0, 8}, far{0, 9};
  struct Row {
    const char *what;
    GE_POINT a[4], b[4];
    uint16_t status, mode;
  } rows[] = {
      // B enters A's tip and leaves it through the way back: a touch.
      {"a tip of A past B", {left, o, tip, back}, {below, o, above, far}, PA_OK, V},
      {"a tip of B past A", {below, o, above, far}, {left, o, tip, back}, PA_OK, V},
      // A arrives by the way back: no fold of A, B crosses it.
      {"A arriving through a tip", {back, tip, o, right}, {below, o, above, far}, PA_OK, X},
      // A corner that turns away from the crossing is no detour: B leaves
      // to A's left and meets the corner's side only later.
      {"a corner 2 tol on", {left, o, tip, {0.5, 8}}, {{-4, 4}, o, {4, 4}, {4, 9}}, PA_OK, V},
      // A tip longer than 10 tol is A's own way: B crosses it.
      {"a tip of 12 tol", {left, o, {3, 0}, {-8, 0.3}}, {below, o, above, far}, PA_OK, X},
  };
  for (const Row &r : rows) {
    Store store;
    LI_TAB_STRUCT *a = Polyline(store.get(), {r.a[0], r.a[1], r.a[2], r.a[3]});
    LI_TAB_STRUCT *b = Polyline(store.get(), {r.b[0], r.b[1], r.b[2], r.b[3]});
    GE_CROSS c = Joint(EndingAt(a, o), EndingAt(b, o));
    EXPECT_EQ(FlSetModeSideRev(&c), r.status) << r.what;
    EXPECT_EQ(std::tuple(c.mode, c.side, c.rev), std::tuple(r.mode, uint16_t{0}, uint32_t{0}))
        << r.what;
  }
}

std::vector<uint16_t> Modes(const GE_CROSS *list, int16_t last) {
  std::vector<uint16_t> m;
  for (int i = 0; i <= last; ++i) m.push_back(list[i].mode);
  return m;
}

// The rules as written: entry j against every later entry.
void Pairwise(std::vector<GE_CROSS> &list, bool mirrored, uint32_t flag, double tol) {
  for (size_t j = 0; j < list.size(); ++j) {
    GE_CROSS &c = list[j];
    if (!mirrored) {
      if (c.mode != X) continue;
      FlSetModeSideRev(&c);
    }
    if (c.mode == V || (mirrored && flag == 0 && c.mode != X)) continue;
    for (size_t k = j + 1; k < list.size(); ++k) {
      GE_CROSS &d = list[k];
      const bool same = mirrored ? d.elem_a == c.elem_b && d.elem_b == c.elem_a &&
                                       d.next_a == c.next_b && d.next_b == c.next_a
                                 : d.elem_a == c.elem_a && d.elem_b == c.elem_b &&
                                       d.next_a == c.next_a && d.next_b == c.next_b;
      if (same && std::fabs(d.pt.x - c.pt.x) < tol && std::fabs(d.pt.y - c.pt.y) < tol) d.mode = V;
    }
  }
}

TEST(SetIdentDel, RepeatsAndMirroredTwinsFollowThePairwiseRuleWithOrWithoutMemory) {
  // Every horizontal piece crosses every vertical one properly; few pieces
  // make repeats scattered over the list.
  LI_TAB_STRUCT h[] = {Line({-1, 0}, {0, 0}), Line({0, 0}, {1, 0}), Line({-2, 0}, {0, 0})};
  LI_TAB_STRUCT v[] = {Line({0, 1}, {0, 0}), Line({0, 0}, {0, -1})};
  const double tol = GeEpsiGetTol();
  std::mt19937 rng(11);
  auto pick = [&](auto &pool) { return &pool[rng() % std::size(pool)]; };
  for (int round = 0; round < 400; ++round) {
    const bool mirrored = round % 2 == 1;
    const uint32_t flag = round % 3;
    std::vector<GE_CROSS> list(1 + rng() % 40);
    for (GE_CROSS &c : list) {
      c.pt = {0, (rng() % 3) * 0.6 * tol};  // neighbours within tol, ends not
      c.elem_a = pick(h), c.next_a = pick(h), c.elem_b = pick(v), c.next_b = pick(v);
      if (mirrored && rng() % 2) std::swap(c.elem_a, c.elem_b), std::swap(c.next_a, c.next_b);
      c.mode = rng() % 4 == 0 ? rng() % 4 : X;
    }
    std::vector<GE_CROSS> expected = list;
    Pairwise(expected, mirrored, flag, tol);
    const int16_t last = static_cast<int16_t>(list.size() - 1);
    InjectedFailure failure(round % 4 == 0 ? 1 : 0);  // now and then no scratch memory
    failure.Arm();
    mirrored ? FlRemIdentInv(list.data(), last, flag) : void(FlSetIdentDel(list.data(), last));
    failure.Disarm();
    ASSERT_EQ(Modes(list.data(), last), Modes(expected.data(), last)) << "round " << round;
  }
}

GE_CROSS Entry(uint16_t mode, uint16_t side = 0, uint32_t rev = 0) {
  GE_CROSS c{};
  c.mode = mode, c.side = side, c.rev = rev;
  return c;
}

TEST(CheckCross, PassesOverLiveEntriesCyclically) {
  struct Row {
    std::vector<GE_CROSS> list;
    std::vector<uint16_t> union_modes, other_modes, single_modes;
  } rows[] = {
      {{Entry(J, kL)}, {V}, {V}, {V}},  // alone
      {{Entry(J, kR), Entry(L, kL)}, {V, V}, {V, V}, {V, L}},  // the end kept is alone
      {{Entry(L, kL), Entry(X), Entry(V), Entry(J, kL)}, {V, X, V, V}, {V, X, V, V}, {V, X, V, V}},
      {{Entry(J, kL, 1), Entry(L, kL)}, {J, L}, {J, L}, {V, V}},  // against A
      // The inner pair goes first; only then is the outer pair adjacent.
      {{Entry(J, kL), Entry(J, kR), Entry(L, kR), Entry(L, kR), Entry(X)},
       {V, V, V, L, X}, {J, V, V, V, X}, {V, V, V, L, X}},
  };
  for (const Row &r : rows) {
    for (int32_t op : {4, 5, 0}) {  // 0: the self-crossing check
      std::vector<GE_CROSS> list = r.list;
      const int16_t last = static_cast<int16_t>(list.size() - 1);
      EXPECT_EQ(op ? FlCheckCross(list.data(), last, op) : FlCheckCrossSingle(list.data(), last),
                PA_OK);
      EXPECT_EQ(Modes(list.data(), last),
                op == 0 ? r.single_modes : op == FL_OP_UNION ? r.union_modes : r.other_modes)
          << "row " << &r - rows << ", op " << op;
    }
  }
}

TEST(CrossSetPt, SnapsBothSidesOfEachJointExactly) {
  ToleranceScope tol(1e-6);
  Store store;
  LI_HEAD *head = store.get();
  const GE_POINT o{0, 0}, p{1, 1e-5}, q{0, 1.00001}, top{0, 1}, out{-1, 1};
  LI_TAB_STRUCT *a = Polyline(head, {o, {1, 0}, {2, 0}, {3, 0}});
  LI_TAB_STRUCT *b = Polyline(head, {{1, 0}});  // a quarter circle about o, then on
  LiArc(head, &b, &top, &o, 0);
  LiDraw(head, &b, &out);
  GE_CROSS line = Joint(a, a), arc = Joint(b, b), done = Joint(a->next, b), inside = Joint(a, b);
  line.pt = p, arc.pt = q, done.loc_b = inside.loc_a = inside.loc_b = GE_INSIDE;
  a->next->next->ap.y = 0.5;  // a->next already ends at done's point: this is not looked at
  inside.pt = {9, 9};         // not at a joint: left alone
  GE_CROSS list[] = {line, arc, done, inside};
  EXPECT_EQ(FlCrossSetPt(list, 3), PA_OK);
  EXPECT_EQ(Points({a->ep, a->next->ap, b->ep, b->next->ap}), Points({p, p, q, q}));
  EXPECT_DOUBLE_EQ(LiElemLen(a), std::hypot(1.0, 1e-5)) << "re-expanded";
  EXPECT_NEAR(std::hypot(b->ap.x - b->mp.x, b->ap.y - b->mp.y), b->rad, 1e-12) << "new centre";
  EXPECT_NEAR(std::hypot(b->ep.x - b->mp.x, b->ep.y - b->mp.y), b->rad, 1e-12);
  EXPECT_EQ(a->next->next->ap.y, 0.5);
  // A snap that leaves a line without length ends the walk.
  GE_CROSS collapse = Joint(a->next, b), after = Joint(a, b);
  collapse.pt = a->next->ap, after.pt = {5, 5};
  GE_CROSS list2[] = {collapse, after};
  EXPECT_EQ(FlCrossSetPt(list2, 1), PA_ZERO_LENGTH);
  EXPECT_EQ(a->ep, p) << "the next entry was not reached";
}

// Two entries at A's joint (0, 0), 0.3 apart at tol 0.25: the first moves
// the joint, the second is void and leaves its own B joint alone.
TEST(CrossSetPt, ASecondEntryAtAJointMovedElsewhereIsVoid) {
  ToleranceScope tol(0.25);
  Store store;
  LI_HEAD *head = store.get();
  LI_TAB_STRUCT *a = Polyline(head, {{-4, 0}, {0, 0}, {4, 0}});
  LI_TAB_STRUCT *b1 = Polyline(head, {{0, -4}, {0, 0}, {0, 4}});
  LI_TAB_STRUCT *b2 = Polyline(head, {{-4, -4}, {0, 0}, {4, 4}});
  GE_CROSS list[] = {Joint(a, b1), Joint(a, b2)};
  list[0].pt = {-0.15, 0};
  list[1].pt = {0.15, 0};
  EXPECT_EQ(FlCrossSetPt(list, 1), PA_OK);
  EXPECT_EQ(Points({a->ep, a->next->ap, b1->ep, b2->ep}),
            Points({{-0.15, 0}, {-0.15, 0}, {-0.15, 0}, {0, 0}}));
  EXPECT_EQ(std::tuple(list[0].mode, list[1].mode), std::tuple(X, V));
}

}  // namespace
}  // namespace polyarc_test

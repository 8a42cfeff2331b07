// Distances from a point to a contour and between contours, and which
// element or pair wins a tie.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// The upper half of the circle of radius r about c, counter-clockwise,
// closed by its diameter.
LI_TAB_STRUCT *HalfDisc(LI_HEAD *head, GE_POINT c, double r) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{c.x + r, c.y}, b{c.x - r, c.y};
  EXPECT_EQ(LiMove(head, &k, &a), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &b, &c, 0), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &a), PA_OK);
  return k;
}

// Separate lines in one chain, in the order given.
LI_TAB_STRUCT *Lines(LI_HEAD *head, std::initializer_list<std::pair<GE_POINT, GE_POINT>> lines) {
  LI_TAB_STRUCT *k = nullptr;
  for (const auto &[a, b] : lines) {
    LI_TAB_STRUCT *line = Polyline(head, {a, b});
    if (k == nullptr) {
      k = line;
    } else {
      LiChainPrev(k, line);
    }
  }
  return k;
}

struct Between {
  GE_POINT foot_a{}, foot_b{};
  LI_TAB_STRUCT *a = nullptr, *b = nullptr;
  double aux_a = 0, aux_b = 0, dist = 0;
};

Between KontKont(LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb) {
  Between r;
  EXPECT_EQ(LiKontKontDist(ka, kb, &r.foot_a, &r.a, &r.aux_a, &r.foot_b, &r.b, &r.aux_b, &r.dist),
            PA_OK);
  return r;
}

TEST(ContourDistance, PointToContourTiesGoToTheLaterElement) {
  Store store;
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {2, 0}, {2, 2}, {0, 2}});
  GE_POINT foot{};
  LI_TAB_STRUCT *elem = nullptr;
  double dist = 0, aux = 0;
  const GE_POINT centre{1, 1};
  ASSERT_EQ(LiPtKontDist(square, &centre, &foot, &elem, &dist, &aux), PA_OK);
  EXPECT_EQ(elem, square->prev) << "all four sides are 1 away";
  EXPECT_EQ(dist, 1);
  EXPECT_EQ(foot, (GE_POINT{0, 1}));
  EXPECT_EQ(aux, -1) << "the foot's parameter along (0,2) -> (0,0)";

  const GE_POINT right{3, 1};
  ASSERT_EQ(LiPtKontDist(square, &right, &foot, &elem, &dist, &aux), PA_OK);
  EXPECT_EQ(elem, square->next);
  EXPECT_EQ(foot, (GE_POINT{2, 1}));

  LI_TAB_STRUCT *half = HalfDisc(store.get(), {0, 0}, 1);
  const GE_POINT above{0, 3};
  ASSERT_EQ(LiPtKontDist(half, &above, &foot, &elem, &dist, &aux), PA_OK);
  EXPECT_EQ(elem, half);
  EXPECT_DOUBLE_EQ(dist, 2);
  EXPECT_DOUBLE_EQ(aux, kPi / 2) << "the angle of the foot on the arc";

  EXPECT_EQ(LiPtKontDist(nullptr, &above, &foot, &elem, &dist, &aux), PA_INVALID);
  EXPECT_EQ(LiPtKontDist(half, &above, &foot, nullptr, &dist, &aux), PA_INVALID);
}

TEST(ContourDistance, ContourPairsReplaceOnlyWhenNearerByHalfTol) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {4, 0}});
  // The second element is nearer by exactly tol / 2: not enough.
  LI_TAB_STRUCT *near_tie = Lines(store.get(), {{{0, 1.125}, {2, 1.125}}, {{2, 1}, {4, 1}}});
  Between r = KontKont(a, near_tie);
  EXPECT_EQ(r.b, near_tie);
  EXPECT_EQ(r.dist, 1.125);
  EXPECT_EQ(r.foot_a, (GE_POINT{0, 0}));
  EXPECT_EQ(r.foot_b, (GE_POINT{0, 1.125}));

  // Nearer by more than tol / 2: the later pair wins.
  LI_TAB_STRUCT *clear = Lines(store.get(), {{{0, 1.25}, {2, 1.25}}, {{2, 1}, {4, 1}}});
  r = KontKont(a, clear);
  EXPECT_EQ(r.a, a);
  EXPECT_EQ(r.b, clear->next);
  EXPECT_EQ(r.dist, 1);
  EXPECT_EQ(r.foot_a, (GE_POINT{4, 0}));
  EXPECT_EQ(r.aux_a, 4);
  EXPECT_EQ(r.foot_b, (GE_POINT{4, 1}));
  EXPECT_EQ(r.aux_b, 4);
}

TEST(ContourDistance, ContourPairsAreVisitedAlongAFirst) {
  Store store;
  LI_TAB_STRUCT *a = Lines(store.get(), {{{0, 0}, {1, 0}}, {{10, 0}, {11, 0}}});
  LI_TAB_STRUCT *b = Lines(store.get(), {{{10, 1}, {11, 1}}, {{0, 1}, {1, 1}}});
  // (a0, b1) and (a1, b0) are both 1 apart; a0's pairs come first.
  const Between r = KontKont(a, b);
  EXPECT_EQ(r.a, a);
  EXPECT_EQ(r.b, b->next);
  EXPECT_EQ(r.dist, 1);
}

TEST(ContourDistance, ArcsMeasureEitherWayRound) {
  Store store;
  LI_TAB_STRUCT *half = HalfDisc(store.get(), {0, 0}, 1);
  LI_TAB_STRUCT *roof = Polyline(store.get(), {{-1, 3}, {1, 3}});
  Between r = KontKont(half, roof);
  EXPECT_EQ(r.a, half);
  EXPECT_DOUBLE_EQ(r.dist, 2);
  EXPECT_NEAR(r.foot_a.x, 0, 1e-15);
  EXPECT_DOUBLE_EQ(r.foot_a.y, 1);
  EXPECT_DOUBLE_EQ(r.aux_a, kPi / 2);
  EXPECT_EQ(r.foot_b, (GE_POINT{0, 3}));
  EXPECT_EQ(r.aux_b, 0);

  r = KontKont(roof, half);
  EXPECT_EQ(r.b, half);
  EXPECT_EQ(r.foot_a, (GE_POINT{0, 3}));
  EXPECT_DOUBLE_EQ(r.foot_b.y, 1);
  EXPECT_DOUBLE_EQ(r.aux_b, kPi / 2);

  // Two half discs side by side: the arcs' points on the centre line,
  // (1,0) and (3,0), are 2 apart; so are the diameters' near ends, but the
  // arc pair comes first.
  LI_TAB_STRUCT *other = HalfDisc(store.get(), {5, 0}, 2);
  r = KontKont(half, other);
  EXPECT_EQ(r.a, half);
  EXPECT_EQ(r.b, other);
  EXPECT_DOUBLE_EQ(r.dist, 2);
  EXPECT_EQ(r.aux_a, 0);
  EXPECT_DOUBLE_EQ(r.aux_b, kPi);
  EXPECT_DOUBLE_EQ(r.foot_b.x, 3);
  EXPECT_NEAR(r.foot_b.y, 0, 1e-15);

  GE_POINT foot{};
  LI_TAB_STRUCT *elem = nullptr;
  double aux = 0, dist = 0;
  EXPECT_EQ(LiKontKontDist(half, nullptr, &foot, &elem, &aux, &foot, &elem, &aux, &dist),
            PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test

// Distances from a point to a contour and between contours, and which
// element or pair wins a tie.
#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

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

  // The upper half of the unit circle; (0,3) is nearest its top.
  LI_TAB_STRUCT *half = Polyline(store.get(), {{1, 0}});
  const GE_POINT west{-1, 0}, origin{0, 0}, above{0, 3};
  ASSERT_EQ(LiArc(store.get(), &half, &west, &origin, 0), PA_OK);
  ASSERT_EQ(LiPtKontDist(half, &above, &foot, &elem, &dist, &aux), PA_OK);
  EXPECT_EQ(elem, half);
  EXPECT_DOUBLE_EQ(dist, 2);
  EXPECT_DOUBLE_EQ(aux, kPi / 2) << "the angle of the foot on the arc";

  // The arc measured against a line above it, either way round.
  LI_TAB_STRUCT *roof = Polyline(store.get(), {{-1, 3}, {1, 3}});
  Between r = KontKont(half, roof);
  EXPECT_DOUBLE_EQ(r.dist, 2);
  EXPECT_DOUBLE_EQ(r.aux_a, kPi / 2);
  EXPECT_EQ(r.foot_b, above);
  r = KontKont(roof, half);
  EXPECT_EQ(r.foot_a, above);
  EXPECT_DOUBLE_EQ(r.foot_b.y, 1);
  EXPECT_DOUBLE_EQ(r.aux_b, kPi / 2);

  EXPECT_EQ(LiPtKontDist(nullptr, &above, &foot, &elem, &dist, &aux), PA_INVALID);
  EXPECT_EQ(LiKontKontDist(half, nullptr, &foot, &elem, &aux, &foot, &elem, &aux, &dist),
            PA_INVALID);
}

TEST(ContourDistance, ContourPairsReplaceOnlyWhenNearerByMoreThanHalfTol) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {4, 0}});
  // The second element is nearer by exactly tol / 2: not enough.
  LI_TAB_STRUCT *near_tie = Lines(store.get(), {{{0, 1.125}, {2, 1.125}}, {{2, 1}, {4, 1}}});
  Between r = KontKont(a, near_tie);
  EXPECT_EQ(r.b, near_tie);
  EXPECT_EQ(r.dist, 1.125);
  EXPECT_EQ(r.foot_b, (GE_POINT{0, 1.125}));

  LI_TAB_STRUCT *clear = Lines(store.get(), {{{0, 1.25}, {2, 1.25}}, {{2, 1}, {4, 1}}});
  r = KontKont(a, clear);
  EXPECT_EQ(r.b, clear->next);
  EXPECT_EQ(r.dist, 1);
  EXPECT_EQ(r.foot_a, (GE_POINT{4, 0}));
  EXPECT_EQ(r.aux_a, 4);
  EXPECT_EQ(r.foot_b, (GE_POINT{4, 1}));
  EXPECT_EQ(r.aux_b, 4);

  // (a0, b1) and (a1, b0) are both 1 apart: a0's pairs are visited first.
  LI_TAB_STRUCT *two = Lines(store.get(), {{{0, 0}, {1, 0}}, {{10, 0}, {11, 0}}});
  LI_TAB_STRUCT *crossed = Lines(store.get(), {{{10, 1}, {11, 1}}, {{0, 1}, {1, 1}}});
  r = KontKont(two, crossed);
  EXPECT_TRUE(r.a == two && r.b == crossed->next);
}

}  // namespace
}  // namespace polyarc_test

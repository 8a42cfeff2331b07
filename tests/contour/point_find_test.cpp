// Finding the element that carries a point, and the pieces of contour that meet at a point.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(PointFind, TenTolAcrossLinesJointsFirstFullCirclesAndNextElem) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {10, 0}});
  const GE_POINT ten_tol{5, 2.5}, five_tol{5, 1.25}, joint{4, 0};
  EXPECT_EQ(LiKontFindPt(k, &ten_tol), nullptr) << "the band across a line is strict";
  EXPECT_EQ(LiKontFindPt(k, &five_tol), k);
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &five_tol, 0.25), nullptr);

  // The third line runs back over the joint of the first two.
  LI_TAB_STRUCT *v = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}, {4, -3}});
  EXPECT_EQ(LiKontFindPt(v, &joint), v) << "the earlier element";
  EXPECT_EQ(LiKontFindPtIgnoreApEp(v, &joint), v->prev) << "the only one with the joint inside";

  LI_TAB_STRUCT circle = Arc({1, 0}, {1, 0}, {0, 0}, LI_ARC_CCW);
  LI_TAB_STRUCT left = Arc({0, 1}, {0, -1}, {0, 0}, LI_ARC_CCW);  // through pi
  circle.next = circle.prev = &circle, left.next = left.prev = &left;
  for (double a : {0.0, 1.0, 3.0, -3.0}) {
    const GE_POINT p{std::cos(a), std::sin(a)};
    EXPECT_EQ(LiKontFindPt(&circle, &p), &circle) << "angle " << a;
    EXPECT_EQ(LiKontFindPt(&left, &p) == &left, std::abs(a) == 3) << "angle " << a;
  }
  const GE_POINT top{0, 1}, east{1, 0}, origin{0, 0};
  EXPECT_TRUE(LiKontFindPtIgnoreApEp(&circle, &top) && !LiKontFindPtIgnoreApEp(&circle, &east));
  EXPECT_EQ(LiKontFindPt(nullptr, &top), nullptr);

  k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  GE_LI_ELEM before{}, after{};
  using Pair = std::pair<LI_TAB_STRUCT *, LI_TAB_STRUCT *>;
  auto around = [&](GE_POINT p, uint16_t status = PA_OK) {
    Pair out{k, k};
    EXPECT_EQ(LiKontNextElem(k, &p, &before, &after, &out.first, &out.second), status);
    return out;
  };
  EXPECT_EQ(around({4, 0}), Pair(k, k->next));
  EXPECT_TRUE(before.ep == (GE_POINT{4, 0}) && after.ep == (GE_POINT{4, 3}));
  EXPECT_EQ(around({0, 0}), Pair(nullptr, k)) << "nothing leads into an open start";
  EXPECT_EQ(around({9, 9}, PA_IMPOSSIBLE), Pair(nullptr, nullptr));
  EXPECT_EQ(around({1, 0}), Pair(k, k));
  EXPECT_TRUE(before.ang_ep - before.ang_ap == 1 && after.ang_ep - after.ang_ap == 3) << "cut";
  EXPECT_EQ(k->ep, (GE_POINT{4, 0})) << "the contour is not changed";
  LiDraw(store.get(), &k, &origin);
  EXPECT_EQ(around(origin), Pair(k->prev, k)) << "a closed contour leads round into its start";
}

}  // namespace
}  // namespace polyarc_test

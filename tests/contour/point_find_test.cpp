// Finding the element that carries a point, and the pieces of contour that
// meet at a point.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(PointFind, LinesAdmitTenTolAcrossAndTolAlong) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {10, 0}});
  const GE_POINT nine_tol{5, 2.25}, ten_tol{5, 2.5}, five_tol{5, 1.25};
  EXPECT_EQ(LiKontFindPt(k, &nine_tol), k);
  EXPECT_EQ(LiKontFindPt(k, &ten_tol), nullptr) << "the band across a line is strict";
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &five_tol, 0.25), nullptr);
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &five_tol, 1.5), k);
  // Beyond the end: within tol of ep counts, within tol along only does not.
  const GE_POINT near_end{10.125, 0.125}, off_end{10.1875, 0.1875};
  EXPECT_EQ(LiKontFindPt(k, &near_end), k);
  EXPECT_EQ(LiKontFindPt(k, &off_end), nullptr);
  EXPECT_EQ(LiKontFindPt(nullptr, &near_end), nullptr);
}

TEST(PointFind, JointsFullCirclesAndArcsThroughPi) {
  Store store;
  // The third line runs back over the joint of the first two.
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}, {4, -3}});
  const auto e = Elements(k);
  const GE_POINT joint{4, 0}, corner{4, 3};
  EXPECT_EQ(LiKontFindPt(k, &joint), e[0]) << "the earlier element";
  EXPECT_EQ(LiKontFindPtIgnoreApEp(k, &joint), e[2]) << "the only one with the joint inside";
  EXPECT_EQ(LiKontFindPtIgnoreApEp(k, &corner), nullptr);

  LI_TAB_STRUCT *circle = nullptr;
  ASSERT_EQ(LiNew(store.get(), &circle), PA_OK);
  *circle = Arc({1, 0}, {1, 0}, {0, 0}, LI_ARC_CCW);
  circle->next = circle->prev = circle;
  for (double a : {0.0, 1.0, 3.0, -3.0}) {
    const GE_POINT p{std::cos(a), std::sin(a)};
    EXPECT_EQ(LiKontFindPt(circle, &p), circle) << "angle " << a;
  }
  const GE_POINT top{0, 1}, start{1, 0};
  EXPECT_EQ(LiKontFindPtIgnoreApEp(circle, &top), circle);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(circle, &start), nullptr);

  // Counter-clockwise from the top over the left to the bottom.
  LI_TAB_STRUCT *left = Polyline(store.get(), {{0, 1}});
  const GE_POINT bottom{0, -1}, centre{0, 0}, west{-1, 0}, east{1, 0};
  ASSERT_EQ(LiArc(store.get(), &left, &bottom, &centre, 0), PA_OK);
  EXPECT_EQ(LiKontFindPt(left, &west), left);
  EXPECT_EQ(LiKontFindPt(left, &east), nullptr);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(left, &bottom), nullptr);
}

TEST(PointFind, NextElemAtJointsInsideAndAtOpenEnds) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  const auto e = Elements(k);
  GE_LI_ELEM before{}, after{};
  LI_TAB_STRUCT *pb = nullptr, *pa = nullptr;
  const GE_POINT joint{4, 0}, start{0, 0}, end{4, 3}, inside{1, 0}, away{9, 9};
  ASSERT_EQ(LiKontNextElem(k, &joint, &before, &after, &pb, &pa), PA_OK);
  EXPECT_TRUE(pb == e[0] && pa == e[1]);
  EXPECT_EQ(before.ep, joint);
  EXPECT_EQ(after.ep, end);
  ASSERT_EQ(LiKontNextElem(k, &start, &before, &after, &pb, &pa), PA_OK);
  EXPECT_TRUE(pb == nullptr && pa == e[0]) << "nothing leads into an open start";
  ASSERT_EQ(LiKontNextElem(k, &end, &before, &after, &pb, &pa), PA_OK);
  EXPECT_TRUE(pb == e[1] && pa == nullptr);

  ASSERT_EQ(LiKontNextElem(k, &inside, &before, &after, &pb, &pa), PA_OK);
  EXPECT_TRUE(pb == e[0] && pa == e[0]);
  EXPECT_EQ(before.ang_ep - before.ang_ap, 1) << "cut and recomputed";
  EXPECT_EQ(after.ang_ep - after.ang_ap, 3);
  EXPECT_EQ(e[0]->ep, joint) << "the contour is not changed";

  EXPECT_EQ(LiKontNextElem(k, &away, &before, &after, &pb, &pa), PA_IMPOSSIBLE);
  EXPECT_TRUE(pb == nullptr && pa == nullptr);
  LiDraw(store.get(), &k, &start);
  ASSERT_EQ(LiKontNextElem(k, &start, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(pb, k->prev) << "a closed contour leads round into its start";
}

}  // namespace
}  // namespace polyarc_test

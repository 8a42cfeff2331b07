// Finding the element that carries a point, and the pieces of contour that
// meet at a point.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

// A one-element contour: the full counter-clockwise circle of radius r
// about c, starting at its rightmost point.
LI_TAB_STRUCT *FullCircle(LI_HEAD *head, GE_POINT c, double r) {
  LI_TAB_STRUCT *e = nullptr;
  EXPECT_EQ(LiNew(head, &e), PA_OK);
  *e = Arc({c.x + r, c.y}, {c.x + r, c.y}, c, LI_ARC_CCW);
  e->next = e->prev = e;
  return e;
}

GE_POINT OnCircle(double r, double angle) { return {r * std::cos(angle), r * std::sin(angle)}; }

TEST(PointFind, LinesAdmitTenTolAcrossAndTolAlong) {
  ToleranceScope tol(0.25);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {10, 0}});
  const GE_POINT nine_tol{5, 2.25}, ten_tol{5, 2.5}, five_tol{5, 1.25};
  EXPECT_EQ(LiKontFindPt(k, &nine_tol), k);
  EXPECT_EQ(LiKontFindPt(k, &ten_tol), nullptr) << "the band across a line is strict";
  EXPECT_EQ(LiKontFindPt(k, &five_tol), k);
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &five_tol, 0.25), nullptr);
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &five_tol, 1.5), k);

  const GE_POINT near_end{10.125, 0.125}, off_end{10.1875, 0.1875}, before{-0.125, 0};
  EXPECT_EQ(LiKontFindPt(k, &near_end), k);
  EXPECT_EQ(LiKontFindPt(k, &off_end), nullptr) << "within tol along, but farther than tol from ep";
  EXPECT_EQ(LiKontFindPt(k, &before), k);
  EXPECT_EQ(LiKontFindPt(nullptr, &before), nullptr);
  EXPECT_EQ(LiKontFindPt(k, nullptr), nullptr);
}

TEST(PointFind, JointsBelongToTheEarlierElementOrToNone) {
  Store store;
  // The third line runs back over the joint of the first two.
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}, {4, -3}});
  const auto e = Elements(k);
  const GE_POINT joint{4, 0}, corner{4, 3}, inside{2, 0};
  EXPECT_EQ(LiKontFindPt(k, &joint), e[0]);
  EXPECT_EQ(LiKontFindPt(k, &corner), e[1]);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(k, &joint), e[2]) << "the only element with the joint inside";
  EXPECT_EQ(LiKontFindPtIgnoreApEp(k, &corner), nullptr);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(k, &inside), e[0]);
}

TEST(PointFind, ArcsByAngleRangeAndFullCircles) {
  Store store;
  LI_TAB_STRUCT *circle = FullCircle(store.get(), {0, 0}, 1);
  for (double a : {0.0, 1.0, 3.0, -3.0, -1.5}) {
    const GE_POINT p = OnCircle(1, a);
    EXPECT_EQ(LiKontFindPt(circle, &p), circle) << "angle " << a;
  }
  const GE_POINT top{0, 1}, start{1, 0}, outside{0, 1.5};
  EXPECT_EQ(LiKontFindPtIgnoreApEp(circle, &top), circle);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(circle, &start), nullptr);
  EXPECT_EQ(LiKontFindPt(circle, &outside), nullptr);

  // Counter-clockwise from the top through the left to the bottom: its
  // range passes through the angle pi.
  LI_TAB_STRUCT *left = nullptr;
  const GE_POINT a{0, 1}, b{0, -1}, centre{0, 0};
  ASSERT_EQ(LiMove(store.get(), &left, &a), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &left, &b, &centre, 0), PA_OK);
  const GE_POINT west{-1, 0}, east{1, 0}, south_west = OnCircle(1, -2.0);
  EXPECT_EQ(LiKontFindPt(left, &west), left);
  EXPECT_EQ(LiKontFindPt(left, &south_west), left);
  EXPECT_EQ(LiKontFindPt(left, &east), nullptr);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(left, &west), left);
  EXPECT_EQ(LiKontFindPtIgnoreApEp(left, &b), nullptr);
}

TEST(PointFind, UniformEpsKeepsTheGlobalFullCircleTest) {
  Store store;
  // Radius 10, open only between the angles -0.049 and 0.049: its ends are
  // 0.98 apart, a full circle under eps = 1 but not under tol.
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a = OnCircle(10, 0.049), b = OnCircle(10, -0.049), centre{0, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &a), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &b, &centre, 0), PA_OK);
  const GE_POINT in_gap{10.95, 0};  // 0.95 off the circle, over 1 from both ends
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &in_gap, 1.0), nullptr);
  const GE_POINT opposite{-10.95, 0};
  EXPECT_EQ(LiKontFindPtUniformDistEpsi(k, &opposite, 1.0), k);
  EXPECT_EQ(LiKontFindPt(k, &opposite), nullptr);
}

TEST(PointFind, NextElemAtJointsInsideAndAtOpenEnds) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 3}});
  const auto e = Elements(k);
  GE_LI_ELEM before{}, after{};
  LI_TAB_STRUCT *pb = nullptr, *pa = nullptr;

  const GE_POINT joint{4, 0};
  ASSERT_EQ(LiKontNextElem(k, &joint, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(pb, e[0]);
  EXPECT_EQ(pa, e[1]);
  EXPECT_EQ(before.ep, joint);
  EXPECT_EQ(after.ep, (GE_POINT{4, 3}));

  const GE_POINT start{0, 0}, end{4, 3};
  ASSERT_EQ(LiKontNextElem(k, &start, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(pb, nullptr) << "nothing leads into an open start";
  EXPECT_EQ(pa, e[0]);
  ASSERT_EQ(LiKontNextElem(k, &end, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(pb, e[1]);
  EXPECT_EQ(pa, nullptr);

  const GE_POINT inside{1, 0};
  ASSERT_EQ(LiKontNextElem(k, &inside, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(pb, e[0]);
  EXPECT_EQ(pa, e[0]);
  EXPECT_EQ(before.ang_ep - before.ang_ap, 1) << "cut and recomputed";
  EXPECT_EQ(after.ang_ep - after.ang_ap, 3);
  EXPECT_EQ(e[0]->ep, joint) << "the contour is not changed";

  const GE_POINT away{9, 9};
  EXPECT_EQ(LiKontNextElem(k, &away, &before, &after, &pb, &pa), PA_IMPOSSIBLE);
  EXPECT_EQ(pb, nullptr);
  EXPECT_EQ(pa, nullptr);
  EXPECT_EQ(LiKontNextElem(k, &away, nullptr, &after, &pb, &pa), PA_INVALID);
}

TEST(PointFind, NextElemClosedContoursAndArcs) {
  Store store;
  LI_TAB_STRUCT *square = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  GE_LI_ELEM before{}, after{};
  LI_TAB_STRUCT *pb = nullptr, *pa = nullptr;
  const GE_POINT origin{0, 0};
  ASSERT_EQ(LiKontNextElem(square, &origin, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(pb, square->prev) << "a closed contour leads round into its start";
  EXPECT_EQ(pa, square);

  LI_TAB_STRUCT *circle = FullCircle(store.get(), {0, 0}, 1);
  const GE_POINT top{0, 1};
  ASSERT_EQ(LiKontNextElem(circle, &top, &before, &after, &pb, &pa), PA_OK);
  EXPECT_EQ(before.type, LI_ARC_CCW);
  EXPECT_EQ(before.ep, top);
  EXPECT_DOUBLE_EQ(before.ang_ep, std::atan2(1.0, 0.0));
  EXPECT_EQ(after.ap, top);
  EXPECT_EQ(after.ep, (GE_POINT{1, 0}));
}

}  // namespace
}  // namespace polyarc_test

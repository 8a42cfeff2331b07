// Membership, counts, order, leaving sides, full circles and gaps.
#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Queries, MembershipCountsAndOrder) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  LI_TAB_STRUCT *other = Polyline(store.get(), {{0, 1}, {1, 1}});
  auto e = Elements(k);
  EXPECT_TRUE(LiCountElem(k) == 3 && LiCountElem(nullptr) == 0);
  EXPECT_EQ(LiElemInKont(k, e[2]), 1);
  EXPECT_EQ(LiElemInKont(k, other) + LiElemInKont(nullptr, e[0]), 0);
  EXPECT_EQ(LiUtVorNach(k, e[0], e[2]), 1);
  EXPECT_EQ(LiUtVorNach(k, e[2], e[0]), 0);
  EXPECT_EQ(LiUtVorNach(k, e[1], e[1]), 0) << "a = b counts as b first";
  EXPECT_EQ(LiUtVorNach(k, other, e[1]), 0);
  EXPECT_EQ(LiUtVorNach(k, e[1], other), 1);
  EXPECT_EQ(LiUtVorNach(k, other, other->next), 1) << "neither met";
}

TEST(Queries, NextSideByTangentsThenByTheArcsTurn) {
  const LI_TAB_STRUCT a = Line({0, 0}, {1, 0});
  LI_TAB_STRUCT nearly = Line({1, 0}, {2, 0});
  nearly.tan_ap = {1, 4e-9};  // below the fixed limit of 5e-9: parallel
  const struct {
    LI_TAB_STRUCT b;
    int16_t side;
  } rows[] = {
      {a, 0},                                           // a collinear line
      {Line({1, 0}, {1, 1}), 1},                        // turns left
      {Line({1, 0}, {1, -1}), -1},                      // turns right
      {Arc({1, 0}, {2, 1}, {1, 1}, LI_ARC_CCW), 1},     // tangential, curving left
      {Arc({1, 0}, {2, -1}, {1, -1}, LI_ARC_CW), -1},   // tangential, curving right
      {Arc({1, 0}, {0, -1}, {1, -1}, LI_ARC_CCW), -1},  // starts backwards: exchanged
      {nearly, 0},
  };
  for (const auto &row : rows) EXPECT_EQ(LiNextSide(&a, &row.b), row.side) << row.b.ep;
}

TEST(Queries, CheckRundRecognisesOneFullCircle) {
  Store store;
  const GE_POINT right{1, 0}, left{-1, 0}, centre{0, 0}, far{5, 0};
  LI_TAB_STRUCT *k = nullptr;
  LiMove(store.get(), &k, &right);
  ASSERT_EQ(LiArc(store.get(), &k, &left, &centre, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &right, &centre, 0), PA_OK);
  EXPECT_EQ(LiCheckRund(k), 1);
  k->next->type = LI_ARC_CW;
  EXPECT_EQ(LiCheckRund(k), 0) << "both halves must run the same way";
  k->next->type = LI_ARC_CCW;
  ASSERT_EQ(LiDraw(store.get(), &k, &far), PA_OK);
  EXPECT_EQ(LiCheckRund(k), 0);
  EXPECT_EQ(LiCheckRund(Polyline(store.get(), {{0, 0}, {1, 0}})) + LiCheckRund(nullptr), 0);
}

TEST(Queries, GapsAndTheFootOnTheStartTangent) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {4, 0}, {4, 4}});
  EXPECT_EQ(LiLastElem(k), 0);
  EXPECT_EQ(LiLastElem(k->next), 1) << "the open end wraps to a gap";
  k->next->ap = {4.25, 0.25};
  EXPECT_EQ(LiLastElem(k), 0) << "within tol per axis";
  k->next->ap = {4.5, 0};
  EXPECT_EQ(LiLastElem(k), 1);

  const LI_TAB_STRUCT arc = Arc({2, 0}, {0, 2}, {0, 0}, LI_ARC_CCW);  // tangent (0, 1) at (2, 0)
  const GE_POINT p{7, 3};
  GE_POINT foot{};
  EXPECT_EQ(LiNormPt(&arc, &p, &foot), PA_OK);
  EXPECT_EQ(foot, (GE_POINT{2, 3}));
}

}  // namespace
}  // namespace polyarc_test

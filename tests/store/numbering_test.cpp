// Element numbers, searches by number and number lists.
#include "support/support.h"

namespace polyarc_test {
namespace {

using Chain = std::vector<LI_TAB_STRUCT *>;

TEST(Numbering, OneCounterRunsOnAndSearchesByNumber) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}});
  Chain e = Elements(k);
  uint16_t counter = 9;
  EXPECT_EQ(LiNumKont(k, &counter), PA_OK);
  EXPECT_TRUE(counter == 13 && e[0]->no == 10 && e[3]->no == 13);
  for (int i = 0; i < 4; ++i) e[i]->no = uint16_t(10 + i % 2);  // 10, 11, 10, 11
  LI_TAB_STRUCT *out = e[3];
  LiSuchNo(k, 11, &out);
  EXPECT_EQ(out, e[1]);
  LiSuchNo(k, 99, &out);
  EXPECT_EQ(out, nullptr);
  EXPECT_TRUE(LiSuchNoFrom(k, e[2], 11, &out) == e[3] && out == e[3]);
  EXPECT_EQ(LiSuchNoFrom(e[3], e[2], 11, nullptr), nullptr) << "the stop is not examined";
  EXPECT_EQ(LiSuchNoFrom(e[2], e[2], 10, nullptr), e[2]) << "unless it is the start";
  EXPECT_EQ(LiSuchNoFrom(e[0], e[3], 10, nullptr), nullptr) << "stops before wrapping to k";
}

TEST(Numbering, NextPairGivesThePredecessorsOfTheMatch) {
  Store store;
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  LI_TAB_STRUCT *b = Polyline(store.get(), {{0, 1}, {1, 1}, {2, 1}, {3, 1}});
  Chain ea = Elements(a), eb = Elements(b);
  const uint16_t na[] = {1, 2, 3}, nb[] = {7, 3, 2};
  for (int i = 0; i < 3; ++i) ea[i]->no = na[i], eb[i]->no = nb[i];
  LI_TAB_STRUCT *out_a = nullptr, *out_b = nullptr;
  EXPECT_EQ(LiSuchNextPair(a, b, ea[0], b, &out_a, &out_b), PA_OK);
  EXPECT_TRUE(out_a == ea[0] && out_b == eb[1]) << "number 2 matched at A's second element";
  ea[1]->no = 8, ea[2]->no = 9;
  EXPECT_EQ(LiSuchNextPair(a, b, ea[1], b, &out_a, &out_b), PA_OK);
  EXPECT_TRUE(out_a == ea[2] && out_b == eb[2]) << "no match: the last elements";
}

TEST(NumberList, HoldsAtMost103DistinctNumbersAndRemovesInPlace) {
  uint16_t list[LI_NUM_LIST_SIZE] = {};
  for (uint16_t n = 1; n <= 103; ++n) ASSERT_EQ(LiNumAufListe(list, uint16_t(n * 3)), PA_OK);
  EXPECT_EQ(LiNumAufListe(list, 3), PA_OK) << "present: not added again";
  EXPECT_EQ(LiNumAufListe(list, 1000), PA_LIST_FULL);
  EXPECT_EQ(list[0], 103);
  EXPECT_EQ(LiNumInListe(list, 9), 3);
  EXPECT_EQ(LiNumAusListe(list, 10), PA_OK) << "absent: nothing changes";
  EXPECT_EQ(LiNumAusListe(list, 6), PA_OK);
  EXPECT_EQ(list[0], 102);
  EXPECT_EQ(LiNumInListe(list, 9), 2) << "the later numbers move down";
  EXPECT_EQ(LiNumInListe(list, 10), 0);
}

TEST(NumberList, AddingAListStopsAtTheFirstFailure) {
  uint16_t dst[LI_NUM_LIST_SIZE] = {}, src[LI_NUM_LIST_SIZE] = {};
  EXPECT_EQ(LiLtAufLt(dst, src), PA_OK);
  for (uint16_t n = 1; n <= 101; ++n) LiNumAufListe(dst, n);
  for (uint16_t n : {50, 200, 201, 202}) LiNumAufListe(src, n);
  EXPECT_EQ(LiLtAufLt(dst, src), PA_LIST_FULL);
  EXPECT_TRUE(dst[0] == 103 && dst[102] == 200 && dst[103] == 201);
}

}  // namespace
}  // namespace polyarc_test

// Joining chains, appending copies of elements, copying contours and
// checking links.
#include <cstddef>
#include <cstring>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

using Chain = std::vector<LI_TAB_STRUCT *>;

TEST(Chain, ChainSplicesAfterItsFirstArgumentAndEnlargeAtTheEnd) {
  Store store;
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {1, 0}});
  LI_TAB_STRUCT *b = Polyline(store.get(), {{1, 0}, {2, 0}});
  LI_TAB_STRUCT *c = Polyline(store.get(), {{5, 0}, {6, 0}, {7, 0}});
  LiChain(a, a);
  EXPECT_EQ(Elements(a), Chain{a});
  LiChain(a, b);
  LiChain(a, c);  // the whole chain of c goes in right after a
  EXPECT_EQ(Elements(a), (Chain{a, c, c->next, b}));
  LI_TAB_STRUCT *e = nullptr;
  ASSERT_EQ(LiEnlarge(store.get(), &a, &e), PA_OK);
  EXPECT_TRUE(e->type == 0 && LiPred(a) == e && LiSucc(b) == e);
  EXPECT_EQ(LiEnlarge(store.get(), nullptr, &e), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {a}));
}

TEST(Chain, Chain2BridgesAGapOfTolOrMore) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  LI_TAB_STRUCT *first = Polyline(store.get(), {{0, 0}, {1, 0}});
  EXPECT_EQ(LiChain2(store.get(), &k, first), PA_OK);
  EXPECT_EQ(k, first) << "an empty contour takes the chain without a bridge";
  LI_TAB_STRUCT *near = Polyline(store.get(), {{1.25, -0.25}, {2, 0}});
  EXPECT_EQ(LiChain2(store.get(), &k, near), PA_OK);
  EXPECT_EQ(Elements(k), (Chain{first, near}));
  LI_TAB_STRUCT *gap = Polyline(store.get(), {{2, 0.5}, {3, 0}});  // exactly tol in y
  EXPECT_EQ(LiChain2(store.get(), &k, gap), PA_OK);
  Chain e = Elements(k);
  ASSERT_EQ(e.size(), 4u);
  EXPECT_TRUE(e[2]->type == LI_MOVE && e[2]->ep == (GE_POINT{2, 0.5}));
  EXPECT_EQ(e[2]->box.xmax, 0.0) << "the bridge is not expanded";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Chain, InsertElemSkipsZeroLengthElementsAndInsertElem2DoesNot) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT proto = Arc({1, 0}, {1.25, 0.25}, {0, 0}, LI_ARC_CCW);  // ends within tol
  proto.no = 7;
  proto.attr_id = -3;
  proto.mark = 1;
  proto.box.xmin = 123.0;  // derived fields are copied, not recomputed
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiInsertElem(store.get(), &k, &proto), PA_OK);
  proto.type = LI_MOVE;
  EXPECT_EQ(LiInsertElem(store.get(), &k, &proto), PA_OK);
  EXPECT_EQ(k, nullptr) << "skipped whatever the type";
  ASSERT_EQ(LiInsertElem2(store.get(), &k, &proto), PA_OK);
  ASSERT_EQ(Elements(k), Chain{k});
  EXPECT_TRUE(k->box.xmin == 123.0 && k->no == 7 && k->attr_id == -3 && k->mark == 0);
  const LI_TAB_STRUCT line = Line({0, 0}, {3, 4});
  ASSERT_EQ(LiInsertElem(store.get(), &k, &line), PA_OK);
  EXPECT_EQ(k->prev->ep, (GE_POINT{3, 4}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

// A zig-zag of n lines.
LI_TAB_STRUCT *ZigZag(LI_HEAD *head, int n) {
  LI_TAB_STRUCT *k = Polyline(head, {{0, 0}, {1, 1}});
  for (int i = 2; i <= n; ++i) {
    const GE_POINT p{double(i), double(i % 2)};
    LiDraw(head, &k, &p);
  }
  return k;
}

TEST(Chain, CopiesUnderAllocationFailureLoseNothing) {
  // 300 elements: the copy needs two new blocks, and the second fails half way.
  auto build = [](LI_HEAD *head) { return Live{ZigZag(head, 300)}; };
  ExpectCleanAllocationFailures(PA_NO_RECORD, build, [](LI_HEAD *head, Live &live) {
    live.push_back(nullptr);
    return LiCopy(head, live[0], &live.back());
  });
  ExpectCleanAllocationFailures(PA_NO_MEMORY, build, [](LI_HEAD *head, Live &live) {
    live.push_back(LiCopyBlock(head, live[0], live[0]->prev));
    return live.back() != nullptr ? uint16_t{PA_OK} : uint16_t{PA_NO_MEMORY};
  });
}

// Whether two elements hold the same geometry, payload, number and mark.
bool SameElement(const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b) {
  return std::memcmp(a, b, offsetof(LI_TAB_STRUCT, next)) == 0 && a->attr_val == b->attr_val &&
         a->attr_id == b->attr_id && a->no == b->no && a->mark == b->mark;
}

TEST(Chain, LongCopiesAreExactAndRunForwardsThroughMemory) {
  Store store;
  LI_TAB_STRUCT *src = ZigZag(store.get(), 1500);
  src->next->mark = 7;
  // Free 3000 records in a scrambled order, as earlier operations leave them.
  std::vector<LI_TAB_STRUCT *> singles(3000);
  for (LI_TAB_STRUCT *&e : singles) ASSERT_EQ(LiNew(store.get(), &e), PA_OK);
  for (size_t i = 0; i < singles.size(); ++i) {
    LI_TAB_STRUCT *e = singles[i * 1237 % singles.size()];
    LiDel(store.get(), &e, e);
  }
  LI_TAB_STRUCT *copy = LiCopyBlock(store.get(), src, src->prev);
  const Chain s = Elements(src), c = Elements(copy);
  ASSERT_EQ(c.size(), s.size());
  for (size_t i = 0; i < c.size(); ++i)
    EXPECT_TRUE(SameElement(c[i], s[i]) && (i == 0 || c[i - 1] < c[i])) << "element " << i;
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {src, copy}));
}

TEST(Chain, LongCopiesUnderAllocationFailureLoseNothing) {
  // The first allocation may be the copy's scratch array, which it does
  // without; a failing growth of the store gives no copy.
  ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *src = ZigZag(store.get(), 1100);
    LI_TAB_STRUCT *spare = TakeAllFree(store.get());
    failure.Arm();
    LI_TAB_STRUCT *copy = LiCopyBlock(store.get(), src, src->prev);
    failure.Disarm();
    if (copy != nullptr) {
      EXPECT_EQ(LiCountElem(copy), 1100u);
      EXPECT_TRUE(SameElement(copy->prev, src->prev));
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {src, spare, copy}));
  });
}

TEST(Chain, CopiesOfRunsAndIntoExistingChainsOfEqualLength) {
  Store store;
  LI_TAB_STRUCT *src = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  LI_TAB_STRUCT *same = Polyline(store.get(), {{9, 9}, {8, 8}, {7, 7}});
  Chain s = Elements(same);
  EXPECT_EQ(LiCopy(store.get(), src, &same), PA_OK);
  EXPECT_TRUE(Elements(same) == s && s[1]->ep == (GE_POINT{2, 0})) << "links are kept";
  LI_TAB_STRUCT *longer = Polyline(store.get(), {{9, 9}, {8, 8}, {7, 7}, {6, 6}});
  EXPECT_EQ(LiCopy(store.get(), src, &longer), PA_NO_MEMORY);
  EXPECT_TRUE(longer->next->ep == (GE_POINT{2, 0}) && longer->prev->ep == (GE_POINT{6, 6}))
      << "the prefix is written";
  LI_TAB_STRUCT *shorter = Polyline(store.get(), {{0, 0}, {5, 5}});
  EXPECT_EQ(LiCopy(store.get(), src, &shorter), PA_NO_MEMORY);
  EXPECT_EQ(shorter->ep, (GE_POINT{1, 0}));

  LI_TAB_STRUCT *dst = nullptr;
  EXPECT_EQ(LiCopy(store.get(), shorter, &dst), PA_OK);
  EXPECT_EQ(Elements(dst), Chain{dst}) << "a one-element copy points to itself";
  src->next->mark = 1;
  LI_TAB_STRUCT *run = LiCopyBlock(store.get(), src->next, src->next);
  EXPECT_TRUE(Elements(run) == Chain{run} && run->mark == 1) << "whole records are copied";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {src, same, longer, shorter, dst, run}));
}

TEST(Chain, CheckFindsEveryKindOfBrokenLink) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  Chain e = Elements(k);
  EXPECT_TRUE(LiCheck(k) == 1 && LiCheck(nullptr) == 0);
  e[2]->prev = e[0];
  EXPECT_EQ(LiCheck(k), 0);
  e[2]->prev = e[1], e[2]->next = e[1];  // a loop that does not come back to k
  EXPECT_EQ(LiCheck(k), 0);
  e[2]->next = nullptr;
  EXPECT_EQ(LiCheck(k), 0);
}

TEST(Chain, CheckValidRejectsMovesAndNegativeRadii) {
  ToleranceScope tol(0.5);
  Store store;
  EXPECT_EQ(LiCheckValid(nullptr), PA_OK);
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {0, 0}});  // a lone move
  EXPECT_EQ(LiCheckValid(k), PA_IMPOSSIBLE);
  k->type = LI_ARC_CCW;
  k->rad = -0.25;  // -tol/2
  EXPECT_EQ(LiCheckValid(k), PA_OK);
  k->rad = -0.75;
  EXPECT_EQ(LiCheckValid(k), PA_IMPOSSIBLE);
  k->type = 0;  // only types 2, 3 and 4 are examined
  EXPECT_EQ(LiCheckValid(k), PA_OK);
}

}  // namespace
}  // namespace polyarc_test

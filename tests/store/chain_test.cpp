// Joining chains, appending copies of elements, copying contours and
// checking links.
#include "support/support.h"

namespace polyarc_test {
namespace {

using Chain = std::vector<LI_TAB_STRUCT *>;

LI_TAB_STRUCT *NewElement(LI_HEAD *head, GE_POINT ap, GE_POINT ep) {
  LI_TAB_STRUCT *e = nullptr;
  EXPECT_EQ(LiNew(head, &e), PA_OK);
  e->type = LI_LINE;
  e->ap = ap;
  e->ep = ep;
  LiElemExpand(e);
  return e;
}

TEST(Chain, ChainSplicesAfterItsFirstArgument) {
  Store store;
  LI_TAB_STRUCT *a = NewElement(store.get(), {0, 0}, {1, 0});
  LI_TAB_STRUCT *b = NewElement(store.get(), {1, 0}, {2, 0});
  LiChain(a, a);
  EXPECT_EQ(Elements(a), Chain{a});
  LiChain(a, b);
  EXPECT_EQ(Elements(a), (Chain{a, b}));
  LI_TAB_STRUCT *c = NewElement(store.get(), {5, 0}, {6, 0});
  LI_TAB_STRUCT *d = NewElement(store.get(), {6, 0}, {7, 0});
  LiChain(c, d);
  LiChain(a, c);  // a, c, d, b: the whole chain of c goes in right after a
  EXPECT_EQ(Elements(a), (Chain{a, c, d, b}));
  LI_TAB_STRUCT *e = NewElement(store.get(), {8, 0}, {9, 0});
  LiChainPrev(a, e);  // in front of a, that is at the end
  EXPECT_EQ(Elements(a), (Chain{a, c, d, b, e}));
  EXPECT_EQ(LiSucc(b), e);
  EXPECT_EQ(LiPred(a), e);
  EXPECT_EQ(LiSucc(nullptr), nullptr);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {a}));
}

TEST(Chain, Chain2BridgesAGapOfTolOrMore) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  LI_TAB_STRUCT *first = NewElement(store.get(), {0, 0}, {1, 0});
  EXPECT_EQ(LiChain2(store.get(), &k, first), PA_OK);
  EXPECT_EQ(k, first) << "an empty contour takes the chain without a bridge";

  LI_TAB_STRUCT *near = NewElement(store.get(), {1.25, -0.25}, {2, 0});
  EXPECT_EQ(LiChain2(store.get(), &k, near), PA_OK);
  EXPECT_EQ(Elements(k), (Chain{first, near}));

  LI_TAB_STRUCT *gap = NewElement(store.get(), {2, 0.5}, {3, 0});  // exactly tol in y
  EXPECT_EQ(LiChain2(store.get(), &k, gap), PA_OK);
  auto e = Elements(k);
  ASSERT_EQ(e.size(), 4u);
  EXPECT_EQ(e[2]->type, LI_MOVE);
  EXPECT_EQ(e[2]->ap, (GE_POINT{2, 0}));
  EXPECT_EQ(e[2]->ep, (GE_POINT{2, 0.5}));
  EXPECT_EQ(e[2]->box.xmax, 0.0) << "the bridge is not expanded";
  EXPECT_EQ(e[3], gap);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Chain, Chain2LeavesTheChainUnjoinedWhenTheBridgeFails) {
  Store store;
  LI_TAB_STRUCT *k = NewElement(store.get(), {0, 0}, {1, 0});
  LI_TAB_STRUCT *chain = NewElement(store.get(), {5, 0}, {6, 0});
  LI_TAB_STRUCT *spare = TakeAllFree(store.get());
  InjectedFailure failure(1);
  failure.Arm();
  EXPECT_EQ(LiChain2(store.get(), &k, chain), PA_NO_MEMORY);
  failure.Disarm();
  EXPECT_TRUE(failure.Fired());
  EXPECT_EQ(Elements(k), Chain{k});
  EXPECT_EQ(Elements(chain), Chain{chain});
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, chain, spare}));
}

TEST(Chain, EnlargeAppendsAZeroedElement) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  LI_TAB_STRUCT *a = nullptr;
  LI_TAB_STRUCT *b = nullptr;
  ASSERT_EQ(LiEnlarge(store.get(), &k, &a), PA_OK);
  EXPECT_EQ(k, a);
  ASSERT_EQ(LiEnlarge(store.get(), &k, &b), PA_OK);
  EXPECT_EQ(Elements(k), (Chain{a, b}));
  EXPECT_EQ(b->type, 0);
  EXPECT_EQ(LiEnlarge(store.get(), nullptr, &b), PA_INVALID);
}

TEST(Chain, InsertElemSkipsZeroLengthElementsAndInsertElem2DoesNot) {
  ToleranceScope tol(0.5);
  Store store;
  LI_TAB_STRUCT proto = Arc({1, 0}, {1.25, 0.25}, {0, 0}, LI_ARC_CCW);  // ends within tol: a full circle
  proto.no = 7;
  proto.attr_val = 2.5;
  proto.attr_id = -3;
  proto.mark = 1;
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiInsertElem(store.get(), &k, &proto), PA_OK);
  EXPECT_EQ(k, nullptr);
  proto.type = LI_MOVE;
  EXPECT_EQ(LiInsertElem(store.get(), &k, &proto), PA_OK);
  EXPECT_EQ(k, nullptr) << "the type plays no part";

  proto.type = LI_ARC_CCW;
  proto.box.xmin = 123.0;  // derived fields are copied, not recomputed
  ASSERT_EQ(LiInsertElem2(store.get(), &k, &proto), PA_OK);
  ASSERT_NE(k, nullptr);
  EXPECT_EQ(k->next, k);
  EXPECT_EQ(k->type, LI_ARC_CCW);
  EXPECT_EQ(k->box.xmin, 123.0);
  EXPECT_EQ(k->no, 7);
  EXPECT_EQ(k->attr_val, 2.5);
  EXPECT_EQ(k->attr_id, -3);
  EXPECT_EQ(k->mark, 0);

  LI_TAB_STRUCT line = Line({0, 0}, {3, 4});
  ASSERT_EQ(LiInsertElem(store.get(), &k, &line), PA_OK);
  EXPECT_EQ(Elements(k).size(), 2u);
  EXPECT_EQ(k->prev->ep, (GE_POINT{3, 4}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Chain, CopyBlockCopiesWholeRecordsOfARun) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}});
  auto e = Elements(k);
  e[1]->mark = 1;
  e[1]->attr_id = 42;
  LI_TAB_STRUCT *copy = LiCopyBlock(store.get(), e[1], e[2]);
  auto c = Elements(copy);
  ASSERT_EQ(c.size(), 2u);
  EXPECT_EQ(c[0]->ap, (GE_POINT{1, 0}));
  EXPECT_EQ(c[1]->ep, (GE_POINT{3, 0}));
  EXPECT_EQ(c[0]->mark, 1);
  EXPECT_EQ(c[0]->attr_id, 42);
  EXPECT_EQ(c[1]->prev, c[0]);

  LI_TAB_STRUCT *one = LiCopyBlock(store.get(), e[3], e[3]);
  EXPECT_EQ(Elements(one).size(), 1u);
  EXPECT_EQ(one->next, one);
  EXPECT_EQ(LiCopyBlock(store.get(), nullptr, nullptr), nullptr);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, copy, one}));
}

TEST(Chain, CopyBlockUnderAllocationFailureLosesNothing) {
  // 300 elements need a second block of records part way through the copy.
  const unsigned long failing = ForEachAllocationFailure([](InjectedFailure &failure) {
    Store store;
    LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}});
    for (int i = 2; i <= 300; ++i) {
      const GE_POINT p{double(i), double(i % 2)};
      ASSERT_EQ(LiDraw(store.get(), &k, &p), PA_OK);
    }
    LI_TAB_STRUCT *spare = TakeAllFree(store.get());
    failure.Arm();
    LI_TAB_STRUCT *copy = LiCopyBlock(store.get(), k, k->prev);
    failure.Disarm();
    if (failure.Fired()) {
      EXPECT_EQ(copy, nullptr);
    } else {
      EXPECT_EQ(Elements(copy).size(), 300u);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, spare, copy}));
  });
  EXPECT_EQ(failing, 2u) << "the copy needs two new blocks; the second fails half way";
}

TEST(Chain, CopyIntoExistingChainsNeedsEqualLengths) {
  Store store;
  LI_TAB_STRUCT *src = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  LI_TAB_STRUCT *single = Polyline(store.get(), {{0, 0}, {5, 5}});

  LI_TAB_STRUCT *dst = nullptr;
  EXPECT_EQ(LiCopy(store.get(), single, &dst), PA_OK);
  ASSERT_NE(dst, nullptr);
  EXPECT_EQ(dst->next, dst);
  EXPECT_EQ(dst->ep, (GE_POINT{5, 5}));

  LI_TAB_STRUCT *same = Polyline(store.get(), {{9, 9}, {8, 8}, {7, 7}});
  auto s = Elements(same);
  EXPECT_EQ(LiCopy(store.get(), src, &same), PA_OK);
  EXPECT_EQ(Elements(same), s) << "links are kept";
  EXPECT_EQ(s[1]->ep, (GE_POINT{2, 0}));

  LI_TAB_STRUCT *longer = Polyline(store.get(), {{9, 9}, {8, 8}, {7, 7}, {6, 6}});
  EXPECT_EQ(LiCopy(store.get(), src, &longer), PA_NO_MEMORY);
  EXPECT_EQ(longer->ep, (GE_POINT{1, 0})) << "the prefix is written";
  EXPECT_EQ(longer->next->ep, (GE_POINT{2, 0}));
  EXPECT_EQ(longer->prev->ep, (GE_POINT{6, 6}));

  EXPECT_EQ(LiCopy(store.get(), src, &dst), PA_NO_MEMORY);  // a shorter destination
  EXPECT_EQ(dst->ep, (GE_POINT{1, 0}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {src, single, dst, same, longer}));
}

TEST(Chain, CopyIntoAnEmptyHandleFailsWith1001) {
  Store store;
  LI_TAB_STRUCT *src = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  LI_TAB_STRUCT *spare = TakeAllFree(store.get());
  LI_TAB_STRUCT *dst = nullptr;
  InjectedFailure failure(1);
  failure.Arm();
  EXPECT_EQ(LiCopy(store.get(), src, &dst), PA_NO_RECORD);
  failure.Disarm();
  EXPECT_EQ(dst, nullptr);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {src, spare}));
}

TEST(Chain, CheckFindsEveryKindOfBrokenLink) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  auto e = Elements(k);
  EXPECT_EQ(LiCheck(k), 1);
  EXPECT_EQ(LiCheck(nullptr), 0);
  e[2]->prev = e[0];
  EXPECT_EQ(LiCheck(k), 0);
  e[2]->prev = e[1];
  e[2]->next = e[1];  // a loop that does not come back to k
  EXPECT_EQ(LiCheck(k), 0);
  e[2]->next = nullptr;
  EXPECT_EQ(LiCheck(k), 0);
  e[2]->next = e[0];
  EXPECT_EQ(LiCheck(k), 1);
}

TEST(Chain, CheckValidRejectsMovesAndNegativeRadii) {
  ToleranceScope tol(0.5);
  Store store;
  EXPECT_EQ(LiCheckValid(nullptr), PA_OK);
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT o{0, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &o), PA_OK);
  EXPECT_EQ(LiCheckValid(k), PA_IMPOSSIBLE);
  LI_TAB_STRUCT *arc = nullptr;
  LI_TAB_STRUCT proto = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  proto.rad = -0.25;  // -tol/2
  ASSERT_EQ(LiInsertElem2(store.get(), &arc, &proto), PA_OK);
  EXPECT_EQ(LiCheckValid(arc), PA_OK);
  arc->rad = -0.75;
  EXPECT_EQ(LiCheckValid(arc), PA_IMPOSSIBLE);
  arc->type = 0;  // only types 2, 3 and 4 are examined
  EXPECT_EQ(LiCheckValid(arc), PA_OK);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, arc}));
}

}  // namespace
}  // namespace polyarc_test

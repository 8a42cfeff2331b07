// The element store: growth by blocks, the free list, release of whole
// chains, and the unlink and splice primitives.
#include <string>

#include "support/support.h"

namespace polyarc_test {
namespace {

using Chain = std::vector<LI_TAB_STRUCT *>;

TEST(Store, GrowsByTablesOf128AndBlocksOf256) {
  Store store;
  const unsigned long calls = MemTestAllocCalls();
  EXPECT_EQ(LiExpand(store.get(), 0), PA_OK);
  EXPECT_EQ(MemTestAllocCalls(), calls) << "a count of 0 allocates nothing";
  for (int i = 0; i < 256; ++i) ASSERT_NE(LiNewNoInit(store.get()), nullptr);
  EXPECT_EQ(store.head().nblocks, 1u);
  EXPECT_EQ(MemTestBlockBytes(store.head().blocks), 128 * sizeof(LI_TAB_STRUCT *));
  EXPECT_EQ(MemTestBlockBytes(store.head().blocks[0]), 256 * sizeof(LI_TAB_STRUCT));
  ASSERT_NE(LiNewNoInit(store.get()), nullptr);  // the 257th record
  EXPECT_EQ(store.head().nblocks, 2u);
  while (store.head().nblocks < 128) ASSERT_EQ(LiExpand(store.get(), 1), PA_OK);
  EXPECT_EQ(MemTestBlockBytes(store.head().blocks), 128 * sizeof(LI_TAB_STRUCT *));
  ASSERT_EQ(LiExpand(store.get(), 1), PA_OK);  // the 129th block
  EXPECT_EQ(MemTestBlockBytes(store.head().blocks), 256 * sizeof(LI_TAB_STRUCT *));
}

TEST(Store, NewRecordsComeInAddressOrderBeforeOlderFreeOnes) {
  Store store;
  ASSERT_EQ(LiExpand(store.get(), 4), PA_OK);
  ASSERT_EQ(LiExpand(store.get(), 3), PA_OK);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(LiNewNoInit(store.get()), store.head().blocks[1] + i);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(LiNewNoInit(store.get()), store.head().blocks[0] + i);
  EXPECT_EQ(store.head().free, nullptr);
}

TEST(Store, OnlyNewClearsARecord) {
  Store store;
  LI_TAB_STRUCT *e = LiNewNoInit(store.get());
  e->type = 7;
  e->ap = {1, 2};
  e->next = e->prev = e;
  LiRemoveUnchecked(store.get(), e);  // back on the free list, dirty
  LI_TAB_STRUCT *f = nullptr;
  ASSERT_EQ(LiNew(store.get(), &f), PA_OK);
  ASSERT_EQ(f, e) << "the free list is last in, first out";
  EXPECT_EQ(f->type, 0);
  EXPECT_EQ(f->ap, (GE_POINT{0, 0}));
  EXPECT_EQ(Elements(f), Chain{f});
}

TEST(Store, FailingMemoryServiceGives1005AndLeavesOutputAlone) {
  Store store;
  LI_TAB_STRUCT *const sentinel = reinterpret_cast<LI_TAB_STRUCT *>(0x10);
  LI_TAB_STRUCT *out = sentinel;
  for (unsigned long n : {1ul, 2ul}) {  // the table, then the block
    InjectedFailure failure(n);
    failure.Arm();
    EXPECT_EQ(LiNew(store.get(), &out), PA_NO_MEMORY);
    failure.Disarm();
    EXPECT_TRUE(failure.Fired());
    EXPECT_EQ(out, sentinel);
    EXPECT_EQ(store.head().nblocks, 0u);
  }
  EXPECT_EQ(MemTestBlockBytes(store.head().blocks), 128 * sizeof(LI_TAB_STRUCT *))
      << "a failed block keeps the grown table";
  ASSERT_EQ(LiNew(store.get(), &out), PA_OK);
}

TEST(Store, DelAndRemoveReturnRecordsToTheFreeList) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  Chain e = Elements(k);
  LiDel(store.get(), &k, e[1]);
  EXPECT_EQ(Elements(k), (Chain{e[0], e[2]}));
  LiDel(store.get(), &k, e[0]);
  EXPECT_EQ(k, e[2]) << "deleting the first moves the handle on";
  LiDel(store.get(), &k, e[2]);
  EXPECT_EQ(k, nullptr);
  EXPECT_EQ(store.head().free, e[2]);

  LI_TAB_STRUCT *m = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  Chain me = Elements(m);
  LI_TAB_STRUCT *free_before = store.head().free;
  LiRemove(store.get(), &m);
  EXPECT_EQ(m, nullptr);
  EXPECT_EQ(store.head().free, me[0]);
  EXPECT_EQ(me[1]->next, free_before) << "spliced in one step in front of the free list";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
}

struct Report {
  std::string file, function, message, expression;
  int line = 0, severity = 0, count = 0;
};
Report g_report;

void CaptureReport(const char *file, int line, const char *function, int severity,
                   const char *message, const char *expression) {
  g_report = {file, function, message, expression, line, severity, g_report.count + 1};
}

TEST(Store, RemoveReportsABrokenChainOnceAndFreesNothing) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  LI_TAB_STRUCT *free_before = store.head().free;
  k->next->next->prev = k;  // the third element no longer points back to the second
  g_report = {};
  const DebugAssertHook previous = DebugAssertSetHook(CaptureReport);
  LiRemove(store.get(), &k);
  DebugAssertSetHook(previous);
  EXPECT_EQ(k, nullptr);
  EXPECT_EQ(store.head().free, free_before);
  EXPECT_EQ(g_report.count, 1);
  EXPECT_EQ(g_report.file, "cLI_list");
  EXPECT_EQ(g_report.line, 479);
  EXPECT_EQ(g_report.function, "LiRemove");
  EXPECT_EQ(g_report.severity, 3);
  EXPECT_EQ(g_report.message, "*** FATALER FEHLER ***");
  EXPECT_EQ(g_report.expression, "FALSE");
}

TEST(Store, UnchainBlockRebasesTheHandleOntoTheElementAfterTheRun) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}});
  Chain e = Elements(k);
  LI_TAB_STRUCT *handle = e[4];
  LiUnchainBlock(&handle, e[1], e[2]);
  EXPECT_EQ(handle, e[3]) << "moved even though it pointed outside the run";
  EXPECT_EQ(Elements(e[1]), (Chain{e[1], e[2]}));
  EXPECT_EQ(Elements(e[3]), (Chain{e[3], e[4], e[0]}));
  LI_TAB_STRUCT *run = e[1];
  LiUnchainBlock(&run, e[1], e[2]);  // the whole chain
  EXPECT_EQ(run, nullptr);
  LI_TAB_STRUCT *rest = e[0];
  LiDelBlock(store.get(), &rest, e[3], e[4]);
  EXPECT_EQ(Elements(rest), Chain{e[0]});
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {rest, e[1]}));
}

TEST(Store, ChainPrevSplicesInFrontOrSplitsOneChain) {
  Store store;
  LI_TAB_STRUCT *a = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  LI_TAB_STRUCT *b = Polyline(store.get(), {{5, 0}, {6, 0}, {7, 0}});
  Chain ea = Elements(a), eb = Elements(b);
  LiChainPrev(a, b);
  EXPECT_EQ(Elements(a), (Chain{ea[0], ea[1], eb[0], eb[1]}));
  LiChainPrev(a, eb[0]);  // same chain: split at the two elements
  EXPECT_EQ(Elements(a), (Chain{ea[0], ea[1]}));
  EXPECT_EQ(Elements(eb[0]), (Chain{eb[0], eb[1]}));
  LiUnchain(ea[1]);
  EXPECT_EQ(Elements(a), Chain{ea[0]});
  EXPECT_EQ(Elements(ea[1]), Chain{ea[1]});
}

TEST(Store, FreeMemReturnsEveryBlockAndTheStoreWorksAgain) {
  const unsigned long live = MemTestLiveBlocks();
  LI_HEAD head{};
  LiFreeMem(&head);  // never used: nothing happens
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 600; ++i) ASSERT_NE(LiNewNoInit(&head), nullptr);
    EXPECT_EQ(MemTestLiveBlocks(), live + 4) << "a table and three blocks";
    LiFreeMem(&head);
    EXPECT_EQ(MemTestLiveBlocks(), live);
    EXPECT_TRUE(head.free == nullptr && head.blocks == nullptr && head.nblocks == 0);
  }
}

TEST(Store, NullArgumentsAreHarmless) {
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(LiExpand(nullptr, 5), PA_NO_MEMORY);
  EXPECT_EQ(LiNew(nullptr, &out), PA_NO_MEMORY);
  Store store;
  EXPECT_EQ(LiNew(store.get(), nullptr), PA_NO_MEMORY);
  LiDel(store.get(), nullptr, nullptr);
  LiRemove(store.get(), nullptr);
  LiRemove(store.get(), &out);
  LiFreeMem(nullptr);
  LiUnchain(nullptr);
  LiChainPrev(nullptr, nullptr);
  LiUnchainBlock(nullptr, nullptr, nullptr);
  LiDelBlock(store.get(), &out, nullptr, nullptr);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(store.head().nblocks, 0u);
}

}  // namespace
}  // namespace polyarc_test

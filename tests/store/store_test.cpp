// The element store: growth by blocks, the free list, release of whole
// chains, and the unlink and splice primitives.
#include <string>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

using Chain = std::vector<LI_TAB_STRUCT *>;

TEST(Store, NewClearsItsRecordAndFailsWithoutTouchingTheOutput) {
  Store store;
  LI_TAB_STRUCT *e = LiNewNoInit(store.get());
  e->type = 7;
  e->next = e->prev = e;
  LiRemoveUnchecked(store.get(), e);  // back on the free list, dirty
  LI_TAB_STRUCT *f = nullptr;
  ASSERT_EQ(LiNew(store.get(), &f), PA_OK);
  EXPECT_TRUE(f == e && f->type == 0 && Elements(f) == Chain{f}) << "last in, first out, cleared";

  Store empty;
  for (unsigned long n : {1ul, 2ul}) {  // the table, then the block
    InjectedFailure failure(n);
    failure.Arm();
    EXPECT_EQ(LiNew(empty.get(), &f), PA_NO_MEMORY);
    failure.Disarm();
    EXPECT_TRUE(f == e && empty.head().nblocks == 0);
  }
}

TEST(Store, DelAndRemoveReturnRecordsToTheFreeList) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
  Chain e = Elements(k);
  LiDel(store.get(), &k, e[0]);
  EXPECT_EQ(k, e[1]) << "deleting the first moves the handle on";
  LiDel(store.get(), &k, e[2]);
  LiDel(store.get(), &k, e[1]);
  EXPECT_EQ(k, nullptr);
  LI_TAB_STRUCT *m = Polyline(store.get(), {{0, 0}, {1, 0}, {2, 0}});
  Chain me = Elements(m);
  LI_TAB_STRUCT *free_before = store.head().free;
  LiRemove(store.get(), &m);
  EXPECT_TRUE(m == nullptr && store.head().free == me[0]);
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
  k->next->next->prev = k;
  g_report = {};
  const DebugAssertHook previous = DebugAssertSetHook(CaptureReport);
  LiRemove(store.get(), &k);
  DebugAssertSetHook(previous);
  EXPECT_TRUE(k == nullptr && store.head().free == free_before);
  const Report &r = g_report;
  EXPECT_EQ(std::tie(r.count, r.file, r.line, r.function, r.severity, r.message, r.expression),
            std::make_tuple(1, "cLI_list", 479, "LiRemove", 3, "*** FATALER FEHLER ***", "FALSE"));
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

TEST(Store, NullArgumentsAreHarmless) {
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(LiExpand(nullptr, 5), PA_NO_MEMORY);
  EXPECT_EQ(LiNew(nullptr, &out), PA_NO_MEMORY);
  Store store;
  LiDel(store.get(), nullptr, nullptr);
  LiRemove(store.get(), &out);
  LiUnchain(nullptr);
  LiChainPrev(nullptr, nullptr);
  LiDelBlock(store.get(), &out, nullptr, nullptr);
  EXPECT_EQ(out, nullptr);
}

}  // namespace
}  // namespace polyarc_test

// The element store: taking and returning records, copying contours, and
// giving back whole contours, which must not depend on their length.
#include <benchmark/benchmark.h>

#include "polyarc/li.h"

namespace {

LI_TAB_STRUCT *BuildPolyline(LI_HEAD *head, long n) {
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT p{0, 0};
  LiMove(head, &k, &p);
  for (long i = 1; i <= n; ++i) {
    p = {double(i), double(i % 2)};
    LiDraw(head, &k, &p);
  }
  return k;
}

void BM_NewAndDel(benchmark::State &state) {
  LI_HEAD head{};
  LI_TAB_STRUCT *k = nullptr;
  for (auto _ : state) {
    LI_TAB_STRUCT *e = nullptr;
    LiNew(&head, &e);
    k = e;
    LiDel(&head, &k, e);
  }
  LiFreeMem(&head);
}
BENCHMARK(BM_NewAndDel);

void BM_CopyContour(benchmark::State &state) {
  LI_HEAD head{};
  LI_TAB_STRUCT *k = BuildPolyline(&head, state.range(0));
  for (auto _ : state) {
    LI_TAB_STRUCT *copy = LiCopyBlock(&head, k, k->prev);
    LiRemoveUnchecked(&head, copy);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  LiFreeMem(&head);
}
BENCHMARK(BM_CopyContour)->Arg(1000)->Arg(100000);

// Gives the contour back, then takes the same records off the front of the
// free list again with two pointer writes, so every iteration returns a
// contour of the full length.
template <bool kChecked>
void GiveBack(benchmark::State &state) {
  LI_HEAD head{};
  LI_TAB_STRUCT *k = BuildPolyline(&head, state.range(0));
  LI_TAB_STRUCT *first = k;
  LI_TAB_STRUCT *last = k->prev;
  for (auto _ : state) {
    if constexpr (kChecked) {
      LiRemove(&head, &k);
    } else {
      LiRemoveUnchecked(&head, k);
    }
    head.free = last->next;
    last->next = first;
    k = first;
    benchmark::DoNotOptimize(k);
  }
  LiFreeMem(&head);
}

void BM_RemoveUnchecked(benchmark::State &state) { GiveBack<false>(state); }
BENCHMARK(BM_RemoveUnchecked)->Arg(10)->Arg(1000000);

// LiRemove walks the chain once to check its links before the splice.
void BM_RemoveChecked(benchmark::State &state) { GiveBack<true>(state); }
BENCHMARK(BM_RemoveChecked)->Arg(10)->Arg(1000000);

}  // namespace

// The contour distances: LiPtKontDist walks every element once,
// LiKontKontDist measures every pair of elements of the two contours.
#include <benchmark/benchmark.h>

#include <cmath>

#include "polyarc/li.h"

namespace {

// An open zigzag of n lines along the x-axis, shifted up by dy.
LI_TAB_STRUCT *Zigzag(LI_HEAD *head, long n, double dy) {
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT p{0, dy};
  LiMove(head, &k, &p);
  for (long i = 1; i <= n; ++i) {
    p = {double(i), dy + double(i % 2)};
    LiDraw(head, &k, &p);
  }
  return k;
}

// An open wave of n half circles of radius 0.5 along the x-axis,
// alternately bulging up and down, shifted up by dy.
LI_TAB_STRUCT *Wave(LI_HEAD *head, long n, double dy) {
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT p{0, dy};
  LiMove(head, &k, &p);
  for (long i = 1; i <= n; ++i) {
    const GE_POINT centre{double(i) - 0.5, dy};
    p = {double(i), dy};
    LiArc(head, &k, &p, &centre, i % 2);
  }
  return k;
}

void BM_PtKontDist(benchmark::State &state) {
  LI_HEAD head{};
  LI_TAB_STRUCT *k = Zigzag(&head, state.range(0), 0);
  const GE_POINT p{state.range(0) * 0.5, 5};
  for (auto _ : state) {
    GE_POINT foot{};
    LI_TAB_STRUCT *elem = nullptr;
    double dist = 0, aux = 0;
    LiPtKontDist(k, &p, &foot, &elem, &dist, &aux);
    benchmark::DoNotOptimize(dist);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  LiFreeMem(&head);
}
BENCHMARK(BM_PtKontDist)->Arg(1000)->Arg(3000);

template <bool kArcs>
void KontKont(benchmark::State &state) {
  LI_HEAD head{};
  const long n = state.range(0);
  LI_TAB_STRUCT *a = Zigzag(&head, n, 0);
  LI_TAB_STRUCT *b = kArcs ? Wave(&head, n, 3) : Zigzag(&head, n, 3);
  for (auto _ : state) {
    GE_POINT foot_a{}, foot_b{};
    LI_TAB_STRUCT *ea = nullptr, *eb = nullptr;
    double aux_a = 0, aux_b = 0, dist = 0;
    LiKontKontDist(a, b, &foot_a, &ea, &aux_a, &foot_b, &eb, &aux_b, &dist);
    benchmark::DoNotOptimize(dist);
  }
  // Items are element pairs.
  state.SetItemsProcessed(state.iterations() * n * n);
  LiFreeMem(&head);
}

void BM_KontKontDistLines(benchmark::State &state) { KontKont<false>(state); }
BENCHMARK(BM_KontKontDistLines)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);

void BM_KontKontDistLinesArcs(benchmark::State &state) { KontKont<true>(state); }
BENCHMARK(BM_KontKontDistLinesArcs)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);

}  // namespace

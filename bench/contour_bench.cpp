// Element expansion, which every operation that changes an element ends
// with, and a few contour operations built on it.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "polyarc/li.h"

namespace {

// Elements whose end points differ from one iteration to the next, so the
// work cannot be hoisted out of the loop.
std::vector<LI_TAB_STRUCT> Lines(size_t n) {
  std::vector<LI_TAB_STRUCT> v(n);
  for (size_t i = 0; i < n; ++i) {
    v[i].type = LI_LINE;
    v[i].ap = {0.1 * double(i), 1.0};
    v[i].ep = {3.0 + double(i), 4.0 - 0.01 * double(i)};
  }
  return v;
}

std::vector<LI_TAB_STRUCT> Arcs(size_t n, uint16_t type) {
  std::vector<LI_TAB_STRUCT> v(n);
  for (size_t i = 0; i < n; ++i) {
    const double a0 = 0.37 * double(i);
    const double a1 = a0 + 1.0 + 0.01 * double(i);
    v[i].type = type;
    v[i].mp = {double(i), -double(i)};
    v[i].rad = 2.0;
    v[i].ap = {v[i].mp.x + 2.0 * std::cos(a0), v[i].mp.y + 2.0 * std::sin(a0)};
    v[i].ep = {v[i].mp.x + 2.0 * std::cos(a1), v[i].mp.y + 2.0 * std::sin(a1)};
  }
  return v;
}

void ExpandAll(benchmark::State &state, std::vector<LI_TAB_STRUCT> v) {
  for (auto _ : state) {
    for (LI_TAB_STRUCT &e : v) benchmark::DoNotOptimize(LiElemExpand(&e));
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(v.size()));
}

void BM_ExpandLine(benchmark::State &state) { ExpandAll(state, Lines(256)); }
BENCHMARK(BM_ExpandLine);

void BM_ExpandArcCw(benchmark::State &state) { ExpandAll(state, Arcs(256, LI_ARC_CW)); }
BENCHMARK(BM_ExpandArcCw);

void BM_ExpandArcCcw(benchmark::State &state) { ExpandAll(state, Arcs(256, LI_ARC_CCW)); }
BENCHMARK(BM_ExpandArcCcw);

// The rounded rectangle: eight elements, four of them arcs, drawn into a
// store whose records are recycled every iteration.
void BM_CreateRound(benchmark::State &state) {
  LI_HEAD head{};
  for (auto _ : state) {
    LI_TAB_STRUCT *k = nullptr;
    benchmark::DoNotOptimize(LiCreateRound(&head, &k, 3.0, 2.0, 0.5));
    LiRemove(&head, &k);
  }
  LiFreeMem(&head);
}
BENCHMARK(BM_CreateRound);

// The length of a contour of n alternating lines and arcs.
void BM_KontLen(benchmark::State &state) {
  LI_HEAD head{};
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT p{0, 0};
  LiMove(&head, &k, &p);
  for (long i = 0; i < state.range(0) / 2; ++i) {
    const GE_POINT q{p.x + 1.0, 0.0};
    LiDraw(&head, &k, &q);
    const GE_POINT r{p.x + 3.0, 0.0};
    const GE_POINT c{p.x + 2.0, 0.0};
    LiArc(&head, &k, &r, &c, 0);
    p = r;
  }
  for (auto _ : state) benchmark::DoNotOptimize(LiKontLen(k));
  state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
  LiFreeMem(&head);
}
BENCHMARK(BM_KontLen)->Arg(1000);

// Cutting a line in two and joining the pieces again: one record taken and
// given back, and three expansions.
void BM_ElemSplit(benchmark::State &state) {
  LI_HEAD head{};
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{0, 0}, b{10, 5}, cut{4, 2};
  LiDrawNew(&head, &k, &a, &b);
  for (auto _ : state) {
    LI_TAB_STRUCT *second = nullptr;
    LiElemSplit(&head, k, &second, &cut);
    k->ep = second->ep;
    LiElemExpand(k);
    LiDel(&head, &k, second);
  }
  LiFreeMem(&head);
}
BENCHMARK(BM_ElemSplit);

}  // namespace

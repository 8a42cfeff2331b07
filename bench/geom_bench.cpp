// Geometry primitives on the hot paths of the crossing code and of output:
// element crossings for each pair of element kinds, and arc-to-lines.
#include <benchmark/benchmark.h>

#include <cmath>

#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace {

LI_TAB_STRUCT Line(GE_POINT ap, GE_POINT ep) {
  LI_TAB_STRUCT e{};
  e.type = LI_LINE;
  e.ap = ap;
  e.ep = ep;
  LiElemExpand(&e);
  return e;
}

LI_TAB_STRUCT Arc(GE_POINT ap, GE_POINT ep, GE_POINT mp, uint16_t type) {
  LI_TAB_STRUCT e{};
  e.type = type;
  e.ap = ap;
  e.ep = ep;
  e.mp = mp;
  e.rad = std::hypot(ap.x - mp.x, ap.y - mp.y);
  LiElemExpand(&e);
  return e;
}

void Cross(benchmark::State &state, const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  IsectPoint i1{}, i2{};
  for (auto _ : state) {
    benchmark::DoNotOptimize(GeCross(&a, &b, &i1, &i2));
    benchmark::ClobberMemory();
  }
}

void BM_CrossLineLine(benchmark::State &state) {
  Cross(state, Line({0, 0}, {2, 2}), Line({0, 2}, {2, 0}));
}
BENCHMARK(BM_CrossLineLine);

void BM_CrossLineArc(benchmark::State &state) {
  Cross(state, Line({-2, 0.6}, {2, 0.6}), Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW));
}
BENCHMARK(BM_CrossLineArc);

void BM_CrossArcArc(benchmark::State &state) {
  Cross(state, Arc({1, 0}, {-1, 0}, {0, 0}, LI_ARC_CCW), Arc({2, 0}, {0, 0}, {1, 0}, LI_ARC_CCW));
}
BENCHMARK(BM_CrossArcArc);

// Points per second once the buffer has grown; the first call grows it.
void BM_ArcToLinesSplit(benchmark::State &state) {
  const GE_POINT3 c{0, 0, 0}, a{10, 0, 0}, b{-10, 0, 0};
  const uint32_t n = static_cast<uint32_t>(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(GeArcToLinesSplit(&a, &b, &c, LI_ARC_CCW, n));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ArcToLinesSplit)->Arg(36)->Arg(4096);

}  // namespace

// Union, intersection and difference of two star polygons of 10^3 to 10^5
// vertices whose rims overlap in a narrow band (about one crossing in five
// elements), copies and all. Compare the growth from 10^4 to 10^5.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace {

const double kTwoPi = 6.283185307179586;
// Vertices lie about 1 apart along the rim whatever n, far above the
// tolerance: at 0.01 apart the nearly parallel edges of 10^5-vertex rims
// meet within the tolerance and count as overlaps.
const double kSpacing = 1.0;

LI_TAB_STRUCT *Star(LI_HEAD *head, int n, double shrink, double phase, unsigned seed) {
  std::mt19937 rng(seed);
  const double r0 = n * kSpacing / kTwoPi - shrink;
  std::uniform_real_distribution<> radius(r0, r0 + kSpacing);
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT first{};
  for (int i = 0; i < n; ++i) {
    const double t = phase + kTwoPi * i / n, r = radius(rng);
    const GE_POINT p{r * std::cos(t), r * std::sin(t)};
    if (i == 0) {
      first = p;
      LiMove(head, &k, &p);
    } else {
      LiDraw(head, &k, &p);
    }
  }
  LiDraw(head, &k, &first);
  return k;
}

template <uint16_t (*Op)(LI_HEAD *, const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, double, int32_t,
                         LI_TAB_STRUCT ***, int16_t *, uint32_t *, int16_t *)>
void BM_Boolean(benchmark::State &state) {
  const int n = int(state.range(0));
  LI_HEAD head{};
  LI_TAB_STRUCT *a = Star(&head, n, 0.0, 0.0, 1);
  LI_TAB_STRUCT *b = Star(&head, n, 0.5 * kSpacing, kTwoPi / (2.0 * n), 2);
  int16_t last = FL_EMPTY;
  for (auto _ : state) {
    LI_TAB_STRUCT **loops = nullptr;
    uint32_t no_cross = 0;
    int16_t contain = 0;
    benchmark::DoNotOptimize(Op(&head, a, b, 0.0, 1, &loops, &last, &no_cross, &contain));
    FlFreeList(&head, &loops, last);
  }
  state.counters["loops"] = last + 1;
  LiFreeMem(&head);
}
BENCHMARK(BM_Boolean<FlUnionKont>)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Boolean<FlIsectKont>)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Boolean<FlDiffKont>)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

}  // namespace

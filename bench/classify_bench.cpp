// Classification and rewiring of n crossings: a zigzag that crosses a long
// straight run at each of its n vertices. Every step must stay linear in
// n; compare the times at 10^3, 10^4 and 3.2 x 10^4 (a list holds at most
// 32767 entries).
#include <benchmark/benchmark.h>

#include <vector>

#include "polyarc/fl.h"
#include "polyarc/li.h"
#include "polyarc/platform.h"

namespace {

struct Crossings {
  LI_TAB_STRUCT *a = nullptr, *b = nullptr;
  GE_CROSS *list = nullptr;
  int16_t last = FL_EMPTY;
};

LI_TAB_STRUCT *Closed(LI_HEAD *head, const std::vector<GE_POINT> &points) {
  LI_TAB_STRUCT *k = nullptr;
  LiMove(head, &k, &points[0]);
  for (size_t i = 1; i < points.size(); ++i) LiDraw(head, &k, &points[i]);
  LiDraw(head, &k, &points[0]);
  return k;
}

// A runs along y = 0 through (1, 0) .. (n, 0); B zigzags through the same
// points, alternately downwards and upwards; the list holds the split
// crossings at those joints in A's order.
Crossings Build(LI_HEAD *head, int n) {
  std::vector<GE_POINT> pa{{0, 0}}, pb{{0.5, 1}};
  for (int i = 1; i <= n; ++i) {
    pa.push_back({double(i), 0});
    pb.push_back({double(i), 0});
    pb.push_back({i + 0.5, i % 2 ? -1.0 : 1.0});
  }
  pa.insert(pa.end(), {{n + 1.0, 0}, {n + 1.0, 5}, {0, 5}});
  pb.insert(pb.end(), {{n + 0.5, 9}, {0.5, 9}});
  Crossings c{Closed(head, pa), Closed(head, pb)};
  void *raw = nullptr;
  MemAllocBlock(&raw, size_t(n), sizeof(GE_CROSS), 1, 0);
  c.list = static_cast<GE_CROSS *>(raw);
  LI_TAB_STRUCT *ea = c.a, *eb = c.b;
  for (int i = 0; i < n; ++i, ea = ea->next, eb = eb->next->next) {
    GE_CROSS &x = c.list[++c.last];
    x.pt = ea->ep, x.loc_a = x.loc_b = GE_AT_END;
    x.elem_a = ea, x.elem_b = eb, x.next_a = ea->next, x.next_b = eb->next;
  }
  return c;
}

void BM_ClassifyAndLink(benchmark::State &state) {
  const int n = int(state.range(0));
  LI_HEAD head{};
  for (auto _ : state) {
    state.PauseTiming();
    Crossings c = Build(&head, n);
    state.ResumeTiming();
    FlCrossSetPt(c.list, c.last);
    FlSetIdentDel(c.list, c.last);
    FlCheckCross(c.list, c.last, FL_OP_UNION);
    LI_TAB_STRUCT **loops = nullptr;
    int16_t last = FL_EMPTY;
    FlCrossLink(&c.list, &c.last, &loops, &last);
    benchmark::DoNotOptimize(last);
    state.PauseTiming();
    FlFreeList(&head, &loops, last);
    state.ResumeTiming();
  }
  LiFreeMem(&head);
  state.SetItemsProcessed(int64_t(state.iterations()) * n);
}
BENCHMARK(BM_ClassifyAndLink)->Arg(1000)->Arg(10000)->Arg(32000)->Unit(benchmark::kMillisecond);

}  // namespace

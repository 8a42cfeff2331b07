// Crossing lists and contour nesting on star polygons of 10^3 to 10^5
// vertices, and a whole intersection of the largest pair by Boost.Geometry
// for scale. Compare the growth from 10^4 to 10^5: a step that compares
// all pairs grows a hundredfold there.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace {

const double kTwoPi = 6.283185307179586;

// The vertices of the stars lie kSpacing apart along their rims, so that
// the shapes keep their proportions to the tolerance as they grow.
const double kSpacing = 0.01;

double RimRadius(int n) { return n * kSpacing / kTwoPi; }

// n vertices going `turns` times round the origin at random radii from r0
// to r0 + spikes x kSpacing. Seeded, so every run measures the same shape.
std::vector<GE_POINT> Star(int n, double r0, double spikes, int turns, double phase,
                           unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<> radius(r0, r0 + spikes * kSpacing);
  std::vector<GE_POINT> p(n);
  for (int i = 0; i < n; ++i) {
    const double t = phase + kTwoPi * turns * i / n;
    const double r = radius(rng);
    p[i] = {r * std::cos(t), r * std::sin(t)};
  }
  return p;
}

LI_TAB_STRUCT *Polygon(LI_HEAD *head, const std::vector<GE_POINT> &p) {
  LI_TAB_STRUCT *k = nullptr;
  LiMove(head, &k, &p[0]);
  for (size_t i = 1; i < p.size(); ++i) LiDraw(head, &k, &p[i]);
  LiDraw(head, &k, &p[0]);
  return k;
}

// Two stars whose rims overlap in a narrow band: about one crossing in
// five elements.
std::vector<GE_POINT> OuterRim(int n) { return Star(n, RimRadius(n), 1, 1, 0.0, 1); }
std::vector<GE_POINT> InnerRim(int n) {
  return Star(n, RimRadius(n) - 0.5 * kSpacing, 1, 1, kTwoPi / (2.0 * n), 2);
}

// The crossings of the two rims of n vertices, their records taken from
// head (scattered when scatter is set, see ScatterStore).
void CrossRims(benchmark::State &state, bool scatter);

void BM_FlCrossList(benchmark::State &state) { CrossRims(state, false); }
BENCHMARK(BM_FlCrossList)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Leaves count free records in the store in a seeded random order, so that
// the contours built next have their records scattered through memory,
// as after long editing: every step from a record to the next is then a
// likely cache miss.
void ScatterStore(LI_HEAD *head, int count) {
  std::vector<LI_TAB_STRUCT *> records(count);
  for (LI_TAB_STRUCT *&r : records) LiNew(head, &r);
  std::shuffle(records.begin(), records.end(), std::mt19937(7));
  for (LI_TAB_STRUCT *&r : records) LiRemove(head, &r);
}

void CrossRims(benchmark::State &state, bool scatter) {
  const int n = int(state.range(0));
  LI_HEAD head{};
  if (scatter) ScatterStore(&head, 2 * n + 512);
  LI_TAB_STRUCT *a = Polygon(&head, OuterRim(n));
  LI_TAB_STRUCT *b = Polygon(&head, InnerRim(n));
  int16_t last = FL_EMPTY;
  for (auto _ : state) {
    GE_CROSS *list = nullptr;
    benchmark::DoNotOptimize(FlCrossList(a, b, &list, &last));
    FlFreeCross(&list);
  }
  state.counters["crossings"] = last + 1;
  LiFreeMem(&head);
}

// The pair of BM_FlCrossList with its records scattered.
void BM_ScatteredFlCrossList(benchmark::State &state) { CrossRims(state, true); }
BENCHMARK(BM_ScatteredFlCrossList)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// One contour that goes round twice, the second time inside the first
// one's band: its self-crossings, every pair eligible (n = 0).
void BM_FlCrossListSingle(benchmark::State &state) {
  const int n = int(state.range(0));
  LI_HEAD head{};
  std::vector<GE_POINT> p = Star(n / 2, RimRadius(n / 2), 1, 1, 0.0, 3);
  const std::vector<GE_POINT> second =
      Star(n / 2, RimRadius(n / 2) - 0.5 * kSpacing, 1, 1, kTwoPi / n, 4);
  p.insert(p.end(), second.begin(), second.end());
  LI_TAB_STRUCT *k = Polygon(&head, p);
  int16_t last = FL_EMPTY;
  for (auto _ : state) {
    GE_CROSS *list = nullptr;
    benchmark::DoNotOptimize(FlCrossListSingle(k, &list, &last, 0));
    FlFreeCross(&list);
  }
  state.counters["crossings"] = last + 1;
  LiFreeMem(&head);
}
BENCHMARK(BM_FlCrossListSingle)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// A star inside another, apart everywhere: every vertex is tested against
// the outer star, and the crossing list comes out empty.
void BM_LiKontExactInKont(benchmark::State &state) {
  const int n = int(state.range(0));
  LI_HEAD head{};
  LI_TAB_STRUCT *inner = Polygon(&head, Star(n, RimRadius(n) / 2, 1, 1, 0.0, 5));
  LI_TAB_STRUCT *outer = Polygon(&head, Star(n, RimRadius(n), 1, 1, 0.0, 6));
  GE_POINT imin{}, imax{}, omin{}, omax{};
  LiKontBox(inner, &imin, &imax);
  LiKontBox(outer, &omin, &omax);
  int result = 0;
  for (auto _ : state) {
    result = LiKontExactInKont(inner, outer, &imin, &imax, &omin, &omax);
    benchmark::DoNotOptimize(result);
  }
  state.counters["inside"] = result;
  LiFreeMem(&head);
}
BENCHMARK(BM_LiKontExactInKont)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

// Boost.Geometry (Debian's libboost-dev, header-only) is only a rival to
// compare with; without it this part is left out. Its rescaling code trips
// GCC's maybe-uninitialized analysis.
#if __has_include(<boost/geometry.hpp>)
#  pragma GCC diagnostic push
#  pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#  include <boost/geometry.hpp>

namespace {

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostPolygon = bg::model::polygon<BoostPoint, false>;  // counter-clockwise, closed

BoostPolygon ToBoost(const std::vector<GE_POINT> &p) {
  BoostPolygon poly;
  for (const GE_POINT &q : p) bg::append(poly.outer(), BoostPoint(q.x, q.y));
  bg::append(poly.outer(), BoostPoint(p[0].x, p[0].y));
  return poly;
}

// The whole intersection of the FlCrossList pair, for scale.
void BM_BoostIntersection(benchmark::State &state) {
  const int n = int(state.range(0));
  const BoostPolygon a = ToBoost(OuterRim(n)), b = ToBoost(InnerRim(n));
  double area = 0;
  for (auto _ : state) {
    bg::model::multi_polygon<BoostPolygon> out;
    bg::intersection(a, b, out);
    area = bg::area(out);
    benchmark::DoNotOptimize(area);
  }
  state.counters["area"] = area;
}
BENCHMARK(BM_BoostIntersection)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
#  pragma GCC diagnostic pop
#endif

// Union, intersection and difference of two star polygons of 10^3 to 10^5
// vertices, by polyarc and beside it by Boost.Geometry, GEOS and Clipper 6
// on the same seeded inputs:
//   star        rims 1 apart that overlap in a narrow band (about one
//               crossing in five elements);
//   star+arcs   the same with every second edge an arc (sagitta 0.1 x its
//               chord); the rivals get chords of sagitta 1e-3;
//   spiky       radial noise 20 times the spacing in one band: about one
//               crossing in two elements and hundreds of result loops
//               (10^3 and 10^4; at 10^5 the crossings overflow the list).
// polyarc's time includes its copies of the inputs; the rivals' inputs are
// made once in their own types. Compare the growth from 10^4 to 10^5.
// Clipper 6 is left out of star+arcs at 10^5: its chorded rims (about
// 5.5 x 10^5 points each) took it some 20 s per operation in a trial run.
#include <benchmark/benchmark.h>

#include <cmath>
#include <map>
#include <string>

#include "polyarc/fl.h"
#include "polyarc/li.h"
#include "rival_runs.h"
#include "rivals.h"
#include "shapes.h"

namespace {

using bench::BooleanOp;

struct Inputs {
  bench::Ring a, b;
  bench::Polyline chord_a, chord_b;
  bool arcs = false;
};

Inputs MakeInputs(const std::string &shape, int n) {
  bench::StarSpec a{n, 0, 1, 0, 0, 1}, b{n, 0, 1, 0.5, bench::kTwoPi / (2.0 * n), 2};
  if (shape == "spiky") {
    a.noise = b.noise = 20;
    b.shrink = 0;
  }
  Inputs in{bench::Star(a), bench::Star(b), {}, {}, shape == "star+arcs"};
  if (in.arcs) {
    bench::AddArcs(in.a, 2, 0.1);
    bench::AddArcs(in.b, 2, 0.1);
  }
  in.chord_a = bench::Chorded(in.a);
  in.chord_b = bench::Chorded(in.b);
  return in;
}

const Inputs &CachedInputs(const std::string &shape, int n) {
  static std::map<std::string, Inputs> cache;
  const std::string key = shape + "/" + std::to_string(n);
  auto it = cache.find(key);
  if (it == cache.end()) it = cache.emplace(key, MakeInputs(shape, n)).first;
  return it->second;
}

bool LeftOut(const std::string &library, const std::string &shape, int n) {
  return library == "clipper" && shape == "star+arcs" && n >= 100000;
}

using PolyarcBoolean = uint16_t (*)(LI_HEAD *, const LI_TAB_STRUCT *, const LI_TAB_STRUCT *,
                                    double, int32_t, LI_TAB_STRUCT ***, int16_t *, uint32_t *,
                                    int16_t *);

PolyarcBoolean PolyarcOp(BooleanOp op) {
  return op == BooleanOp::kUnion          ? FlUnionKont
         : op == BooleanOp::kIntersection ? FlIsectKont
                                          : FlDiffKont;
}

void RunPolyarc(benchmark::State &state, BooleanOp op, const std::string &shape,
                const std::string &key) {
  const Inputs &in = CachedInputs(shape, int(state.range(0)));
  LI_HEAD head{};
  LI_TAB_STRUCT *a = bench::Contour(&head, in.a), *b = bench::Contour(&head, in.b);
  const PolyarcBoolean run = PolyarcOp(op);
  // The first run, untimed, grows the store to what the operation needs
  // (the rivals' first run warms their heap alike) and gives the result
  // that is checked.
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = FL_EMPTY, contain = 0;
  uint32_t no_cross = 0;
  const uint16_t status = run(&head, a, b, 0.0, 1, &loops, &last, &no_cross, &contain);
  const double area = bench::Area(loops, last);
  const double sagitta = (in.arcs ? bench::kChordSagitta : 0) + 1 / bench::kClipperScale;
  const double bound = bench::AreaBound(bench::Length(loops, last), sagitta, area);
  FlFreeList(&head, &loops, last);
  for (auto _ : state) {
    LI_TAB_STRUCT **timed = nullptr;
    int16_t timed_last = FL_EMPTY;
    run(&head, a, b, 0.0, 1, &timed, &timed_last, &no_cross, &contain);
    FlFreeList(&head, &timed, timed_last);
  }
  state.counters["loops"] = last + 1;
  bench::ReportAgreement(state, key, area, bound, status, [&](const std::string &name) {
    if (LeftOut(name, shape, int(state.range(0)))) return std::nan("");
    double rival = 0;
    bench::MakeRival(name, in.chord_a, in.chord_b)->Boolean(op, &rival);
    return rival;
  });
  LiFreeMem(&head);
}

void RunRival(benchmark::State &state, BooleanOp op, const std::string &shape,
              const std::string &library) {
  const Inputs &in = CachedInputs(shape, int(state.range(0)));
  auto rival = bench::MakeRival(library, in.chord_a, in.chord_b);
  double area = 0;
  rival->Boolean(op, &area);
  for (auto _ : state) rival->Boolean(op, nullptr);
  state.counters["area"] = area;
}

void Register(const char *op_name, BooleanOp op, const std::string &shape,
              std::initializer_list<int> sizes) {
  const std::string row = std::string("boolean/") + op_name + "/" + shape + "/";
  for (int n : sizes) {
    const std::string key = row + std::to_string(n);
    benchmark::RegisterBenchmark((row + "polyarc").c_str(), RunPolyarc, op, shape, key)
        ->Arg(n)
        ->Unit(benchmark::kMillisecond);
    for (const char *library : bench::kRivals) {
      if (LeftOut(library, shape, n)) continue;
      benchmark::RegisterBenchmark((row + library).c_str(), RunRival, op, shape,
                                   std::string(library))
          ->Arg(n)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

const bool registered = [] {
  const std::pair<const char *, BooleanOp> ops[] = {{"union", BooleanOp::kUnion},
                                                    {"intersection", BooleanOp::kIntersection},
                                                    {"difference", BooleanOp::kDifference}};
  for (const auto &[name, op] : ops) {
    Register(name, op, "star", {1000, 10000, 100000});
    Register(name, op, "star+arcs", {1000, 10000, 100000});
    Register(name, op, "spiky", {1000, 10000});
  }
  return true;
}();

}  // namespace

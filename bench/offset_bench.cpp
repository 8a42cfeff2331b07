// Offsets by +25 (outward) and -25 (inward) with round corners of one
// closed star of 10^3 to 10^5 vertices 1 apart, by polyarc and beside it by
// Boost.Geometry (buffer, round joins), GEOS (GEOSBufferWithStyle) and
// Clipper 6 (ClipperOffset), the rivals' round corners chorded at sagitta
// 1e-3. The star has five smooth lobes 10% deep and radial noise:
//   noisy       noise of the vertex spacing: a jagged rim, whose raw
//               offset crosses itself a few times per vertex;
//   lobed       noise of 1% of the spacing: a smooth rim;
//   lobed+arcs  the smooth rim with every fourth edge a gentle arc
//               (sagitta 0.003 x its chord, a radius of about 40, more
//               than the distance), chorded at sagitta 1e-3 for the
//               rivals.
// polyarc's offset is what a caller runs for a whole closed contour:
// FlParallelRegion with round corners.
#include <benchmark/benchmark.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "polyarc/fl.h"
#include "polyarc/li.h"
#include "rival_runs.h"
#include "rivals.h"
#include "shapes.h"

namespace {

constexpr double kDistance = 25;

struct Input {
  bench::Ring ring;
  bench::Polyline chords;
  bool arcs = false;
};

const Input &CachedInput(const std::string &shape, int n) {
  static std::map<std::string, Input> cache;
  const std::string key = shape + "/" + std::to_string(n);
  auto it = cache.find(key);
  if (it != cache.end()) return it->second;
  Input in;
  in.ring = bench::Star({n, 0.1, shape == "noisy" ? 1.0 : 0.01, 0, 0, 3});
  in.arcs = shape == "lobed+arcs";
  if (in.arcs) bench::AddArcs(in.ring, 4, 0.003);
  in.chords = bench::Chorded(in.ring);
  return cache.emplace(key, std::move(in)).first->second;
}

// The offset of the counter-clockwise contour k by d (outward when d > 0)
// into loops (the caller gives them back). Returns the library's status.
uint16_t Offset(LI_HEAD *head, const LI_TAB_STRUCT *k, double d,
                std::vector<LI_TAB_STRUCT *> &loops) {
  const uint16_t side = d > 0 ? 65535 : 1;  // outward is right of a ccw contour
  LI_TAB_STRUCT **list = nullptr;
  int16_t last = FL_EMPTY;
  const uint16_t status =
      FlParallelRegion(head, k, side, std::abs(d), FL_CORNER_ROUND, nullptr, &list, &last, nullptr);
  for (int16_t i = 0; i <= last; ++i) loops.push_back(list[i]), list[i] = nullptr;
  FlFreeList(head, &list, last);
  return status;
}

void FreeLoops(LI_HEAD *head, std::vector<LI_TAB_STRUCT *> &loops) {
  for (LI_TAB_STRUCT *&k : loops) LiRemove(head, &k);
  loops.clear();
}

void RunPolyarc(benchmark::State &state, double d, const std::string &shape,
                const std::string &key) {
  const Input &in = CachedInput(shape, int(state.range(0)));
  LI_HEAD head{};
  LI_TAB_STRUCT *k = bench::Contour(&head, in.ring);
  std::vector<LI_TAB_STRUCT *> loops;
  // The first run, untimed, grows the store to what the offset needs (the
  // rivals' first run warms their heap alike) and gives the result that
  // is checked.
  const uint16_t status = Offset(&head, k, d, loops);
  const int last = int(loops.size()) - 1;
  const double area = bench::Area(loops.data(), last);
  const double sagitta = bench::kChordSagitta + 1 / bench::kClipperScale;
  const double bound = bench::AreaBound(bench::Length(loops.data(), last), sagitta, area);
  const double count = double(loops.size());
  const bool closed = bench::AllClosed(loops.data(), last);
  FreeLoops(&head, loops);
  for (auto _ : state) {
    Offset(&head, k, d, loops);
    FreeLoops(&head, loops);
  }
  state.counters["loops"] = count;
  state.counters["closed"] = closed ? 1 : 0;
  bench::ReportAgreement(state, key, area, bound, status, [&](const std::string &name) {
    double rival = 0;
    bench::MakeRival(name, in.chords, {})->Offset(d, &rival);
    return rival;
  });
  LiFreeMem(&head);
}

void RunRival(benchmark::State &state, double d, const std::string &shape,
              const std::string &library) {
  const Input &in = CachedInput(shape, int(state.range(0)));
  auto rival = bench::MakeRival(library, in.chords, {});
  double area = 0;
  rival->Offset(d, &area);
  for (auto _ : state) rival->Offset(d, nullptr);
  state.counters["area"] = area;
}

void Register(double d, const std::string &shape) {
  const std::string row =
      std::string("offset/") + (d > 0 ? "+" : "-") + std::to_string(int(std::abs(d))) + "/" +
      shape + "/";
  for (int n : {1000, 10000, 100000}) {
    const std::string key = row + std::to_string(n);
    benchmark::RegisterBenchmark((row + "polyarc").c_str(), RunPolyarc, d, shape, key)
        ->Arg(n)
        ->Unit(benchmark::kMillisecond);
    for (const char *library : bench::kRivals)
      benchmark::RegisterBenchmark((row + library).c_str(), RunRival, d, shape,
                                   std::string(library))
          ->Arg(n)
          ->Unit(benchmark::kMillisecond);
  }
}

const bool registered = [] {
  for (const char *shape : {"noisy", "lobed", "lobed+arcs"}) {
    Register(kDistance, shape);
    Register(-kDistance, shape);
  }
  return true;
}();

}  // namespace

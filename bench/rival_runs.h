// What the rival benchmarks share: one row is an operation on one seeded
// input at one size, run by polyarc and by each rival under the name
// "<capability>/<operation>/<shape>/<library>/<n>". Each run reports the
// area of its result; polyarc's run also reports its status and, for each
// rival, "dev_<rival>": the difference of their areas divided by what the
// chords and the grids explain (at most 1 when the results agree).
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace bench {

inline const char *const kRivals[] = {"boost", "geos", "clipper"};

// The area of one library's result for a row, computed once per process;
// NaN for a rival that the row leaves out.
using AreaOf = std::function<double(const std::string &library)>;

// Sets polyarc's counters: its area, status, and dev against every rival
// (computed once for the row named key, then remembered).
void ReportAgreement(benchmark::State &state, const std::string &key, double area, double bound,
                     int status, const AreaOf &rival_area);

}  // namespace bench

// Boost.Geometry, GEOS (C API) and Clipper 6 behind one small interface,
// so that the rival benchmarks run the same inputs through each. These
// libraries serve the benchmarks only; the library never links them.
#pragma once

#include <memory>
#include <string>

#include "shapes.h"

namespace bench {

enum class BooleanOp { kUnion, kIntersection, kDifference };

// One library's copy of the inputs, in its own types, made once.
class Rival {
 public:
  virtual ~Rival() = default;
  // a op b, then the result is freed. area (when given) receives its area.
  virtual void Boolean(BooleanOp op, double *area) = 0;
  // The offset of a by d (> 0 outward, < 0 inward) with round corners whose
  // chords have sagitta kChordSagitta; the result is freed.
  virtual void Offset(double d, double *area) = 0;
};

// The rivals by name: "boost", "geos", "clipper". b may be empty for
// offsets.
std::unique_ptr<Rival> MakeRival(const std::string &name, const Polyline &a, const Polyline &b);

// Clipper works on an integer grid of this many units per drawing unit.
constexpr double kClipperScale = 1e4;

}  // namespace bench

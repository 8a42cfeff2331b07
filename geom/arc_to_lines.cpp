// Division of arcs and straight segments into polylines of evenly spaced
// points. The points go into one process-wide buffer that grows on demand
// and is never shrunk; each call overwrites what the previous one wrote.
#include <cmath>
#include <cstdint>

#include "geom/predicates.h"
#include "platform/memory.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

GE_POINT3 *g_polyline = nullptr;
int32_t g_capacity = 0;  // points the buffer holds

// 0.05 degrees: chords are never made shorter than this half-angle allows.
constexpr double kMinHalfAngle = 0.0008726646259971648;

uint16_t GrowPolyline(int64_t n) {
  if (g_polyline != nullptr && g_capacity >= n) return PA_OK;
  if (n < 1) return PA_INVALID;
  if (n > INT32_MAX) return PA_NO_MEMORY;
  const uint16_t status = GrowBlock(g_polyline, static_cast<size_t>(n), true);
  if (status == PA_OK) g_capacity = static_cast<int32_t>(n);
  return status;
}

uint32_t SegmentCount(double sweep, double radius, double chord_tol) {
  if (!(radius > chord_tol)) return 1;
  // The half-angle of a chord whose sagitta is the chord tolerance; a
  // negative tolerance (no angle) takes the minimum as well.
  double half = std::acos((radius - chord_tol) / radius);
  if (!(half >= kMinHalfAngle)) half = kMinHalfAngle;
  const double n = std::trunc(std::fabs(sweep) * 0.5 / half);
  if (std::isnan(n)) return 1;
  if (n >= static_cast<double>(UINT32_MAX)) return UINT32_MAX;
  return static_cast<uint32_t>(n) + 1;
}

// The points arrive by value, copied before the buffer grows, so a caller
// may pass points that lie in the buffer itself.
//
// Rotates the start vector step by step rather than recomputing it from
// the angle; the rounding that accumulates is accepted, and the last point
// is the given end exactly.
GE_POINT3 *SplitByStep(GE_POINT3 start, GE_POINT3 end, GE_POINT3 centre, uint32_t n, double step) {
  if (GrowPolyline(n) != PA_OK || n < 2) return nullptr;
  const double cs = std::cos(step);
  const double sn = std::sin(step);
  GE_POINT v{start.x - centre.x, start.y - centre.y};
  g_polyline[0] = start;
  for (uint32_t i = 1; i + 1 < n; ++i) {
    v = {v.x * cs - v.y * sn, v.y * cs + v.x * sn};
    g_polyline[i] = {centre.x + v.x, centre.y + v.y, start.z};
  }
  g_polyline[n - 1] = end;
  return g_polyline;
}

bool Clockwise(uint16_t sense) { return sense == LI_ARC_CW || sense == LI_CIRCLE_CW; }

GE_POINT3 *SplitArc(GE_POINT3 start, GE_POINT3 end, GE_POINT3 centre, uint16_t sense, uint32_t n) {
  double step = 0.0;
  if (n >= 2) {
    const double a1 = std::atan2(start.y - centre.y, start.x - centre.x);
    const double a2 = std::atan2(end.y - centre.y, end.x - centre.x);
    const bool full = sense == LI_CIRCLE_CW || sense == LI_CIRCLE_CCW;
    const double sweep = full ? kTwoPi : SweepInSense(sense, a1, a2);
    step = sweep / (n - 1);
  }
  return SplitByStep(start, end, centre, n, Clockwise(sense) ? -step : step);
}

uint16_t SplitLine(GE_POINT3 start, GE_POINT3 end, GE_POINT3 *&out, int32_t n) {
  out = nullptr;
  if (n < 1) return PA_INVALID;
  if (const uint16_t status = GrowPolyline(n); status != PA_OK) return status;
  out = g_polyline;
  if (n >= 2) {
    const double k = 1.0 / (n - 1);
    const GE_POINT3 step{(end.x - start.x) * k, (end.y - start.y) * k, (end.z - start.z) * k};
    out[0] = start;
    for (int32_t i = 1; i + 1 < n; ++i)
      out[i] = {out[i - 1].x + step.x, out[i - 1].y + step.y, out[i - 1].z + step.z};
  }
  out[n - 1] = end;
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint32_t GeArcToLinesCalcSeg(double sweep, double radius, double chord_tol) {
  return SegmentCount(sweep, radius, chord_tol);
}

extern "C" GE_POINT3 *GeArcToLinesSplit(const GE_POINT3 *start, const GE_POINT3 *end,
                                        const GE_POINT3 *centre, uint16_t sense, uint32_t n) {
  if (start == nullptr || end == nullptr || centre == nullptr) return nullptr;
  return SplitArc(*start, *end, *centre, sense, n);
}

extern "C" GE_POINT3 *GeArcToLinesSplitTw(const GE_POINT3 *start, const GE_POINT3 *end,
                                          const GE_POINT3 *centre, uint32_t n, double step) {
  if (start == nullptr || end == nullptr || centre == nullptr) return nullptr;
  return SplitByStep(*start, *end, *centre, n, step);
}

extern "C" uint16_t GeArcSplitLine(const GE_POINT3 *start, const GE_POINT3 *end, GE_POINT3 **out,
                                   int32_t n) {
  if (start == nullptr || end == nullptr || out == nullptr) return PA_INVALID;
  return SplitLine(*start, *end, *out, n);
}

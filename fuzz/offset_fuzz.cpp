// Fuzz target for the offsets: a small open or closed contour of lines and
// arcs from the input, then the parallel offset with its clean-up
// (FlParallClean), the offset of the region it bounds (FlParallelRegion),
// the conic offset with its clean-up (FlConicClean) and
// the rectangle offset in its calling order (FlOffsSplit four times,
// FlOffsElem, FlOffsKon, FlOffAnf, FlCleanKont), with sides, distances and
// corner modes from the input, sometimes short of records.
#include <cmath>
#include <cstdint>
#include <vector>

#include "fuzz_input.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "store_audit.h"

using namespace polyarc_fuzz;

namespace {

constexpr uint16_t kLeft = 1, kRight = 65535;
constexpr uint16_t kSides[] = {kLeft, kRight, kLeft, kRight, kLeft, kRight, kLeft, 0};
constexpr uint16_t kModes[] = {FL_CORNER_SHARP, FL_CORNER_ROUND, FL_CORNER_GAP, 4, 1, 7};
constexpr uint16_t kWidths[] = {0, 0, 1, 2, 3, FL_NO_CLEANUP};
constexpr double kHalfSides[] = {0, 0.25, 0.5, 0.5, 1, 1, 2, 5e-5};

// The statuses that the offsets and their clean-up may return.
constexpr std::initializer_list<uint16_t> kOffsetStatuses = {
    PA_OK,          PA_INVALID,     PA_NO_RECORD,  PA_NO_MEMORY, PA_LIST_FULL,
    PA_ZERO_LENGTH, PA_ZERO_RADIUS, PA_CONCENTRIC, PA_DEGENERATE};

bool Closed(const LI_TAB_STRUCT *k) { return k != nullptr && LiTestClosed(k) == 1; }

// How far apart the ends of neighbours in a closed offset may lie. The
// loop clean-up leaves gaps of one to two tolerances where several
// elements of a self-crossing offset meet within the tolerance; ten
// tolerances, the crossing search's reach, still catches a real gap.
double GapLimit(bool closed) { return closed ? 10 * GeEpsiGetTol() : 0; }

int16_t Sign(double v) { return v > 0 ? 1 : -1; }

// The offset kind of a closed contour and side, as the clean-ups decide it:
// 1 outward, 2 inward; 3 for an open contour.
uint16_t Kind(const LI_TAB_STRUCT *k, bool closed, int16_t side) {
  if (!closed) return 3;
  const double area = LiKontArea(k);
  return (area > 0 && side == -1) || (area <= 0 && side == 1) ? 1 : 2;
}

// Every contour of a contour list 0..last, plus the given ones.
std::vector<const LI_TAB_STRUCT *> Live(std::initializer_list<const LI_TAB_STRUCT *> contours,
                                        LI_TAB_STRUCT **list = nullptr, int16_t last = -1) {
  std::vector<const LI_TAB_STRUCT *> live(contours);
  for (int16_t i = 0; list != nullptr && i <= last; ++i) live.push_back(list[i]);
  return live;
}

void ParallelOffset(LI_HEAD *head, LI_TAB_STRUCT *src, Bytes &in) {
  const uint16_t side = in.Pick(kSides);
  const double d = PickDistance(in);
  const uint16_t mode = in.Pick(kModes);
  const uint16_t width = in.Pick(kWidths);
  const uint8_t flags = in.Next();
  const int32_t rem_short = flags & 1, examine = (flags & 6) != 0;
  const uint16_t per_elem = (flags & 24) == 24 ? 1 : 0;
  const uint8_t shortage = in.Next();
  if (per_elem != 0) {
    LI_TAB_STRUCT *e = src;
    do {
      e->attr_val = PickDistance(in);
      e = e->next;
    } while (e != src);
  }
  const Snapshot before(src);
  uint16_t counter = 1000;
  LI_TAB_STRUCT *out = nullptr;
  Shortage short_of(head, (shortage & 7) == 7, shortage >> 3);
  Trace("FlParallClean side %u d %.17g mode %u n %u rem_short %d examine %d per_elem %u%s", side, d,
        mode, width, rem_short, examine, per_elem, short_of.Active() ? " (short of records)" : "");
  const uint16_t status =
      FlParallClean(head, src, side, d, &out, mode, width, rem_short, examine, &counter, per_elem);
  Trace("  status %u", status);
  TraceContour("  result", out);
  RequireAllRecordsAccounted(*head, Live({src, out, short_of.Held()}), "FlParallClean");
  short_of.Release();
  RequireStatus(status, kOffsetStatuses, "FlParallClean");
  Require(before.Matches(src), "FlParallClean changed its input");
  Require(status == PA_OK || out == nullptr, "FlParallClean failed but left a result");
  // A closed source gives a closed result, except for what the rules
  // leave open: a copy (side 0 or |d| below tol), which the final repair
  // may leave a lone open element when it drops a tiny closing one; the
  // raw offset without clean-up, which is a lone element when the walk
  // stopped at the first corner; and the gaps of FL_CORNER_GAP.
  const bool offset = side != 0 && std::fabs(d) > GeEpsiGetTol();
  const bool closed =
      examine && Closed(src) && offset && width != FL_NO_CLEANUP && mode != FL_CORNER_GAP;
  RequireSoundContour(out, GapLimit(closed), "FlParallClean's result");
  LiRemove(head, &out);
}

void RegionOffset(LI_HEAD *head, LI_TAB_STRUCT *src, Bytes &in) {
  const uint16_t side = in.Pick(kSides);
  const double d = PickDistance(in);
  const uint16_t mode = in.Pick(kModes);
  const uint8_t shortage = in.Next();
  const Snapshot before(src);
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = 7;
  uint32_t dropped = 0;
  Shortage short_of(head, (shortage & 7) == 7, shortage >> 3);
  Trace("FlParallelRegion side %u d %.17g mode %u%s", side, d, mode,
        short_of.Active() ? " (short of records)" : "");
  const uint16_t status =
      FlParallelRegion(head, src, side, d, mode, nullptr, &loops, &last, &dropped);
  Trace("  status %u, last %d, dropped %u", status, last, dropped);
  RequireAllRecordsAccounted(*head, Live({src, short_of.Held()}, loops, last), "FlParallelRegion");
  short_of.Release();
  RequireStatus(status, kOffsetStatuses, "FlParallelRegion");
  Require(before.Matches(src), "FlParallelRegion changed its input");
  Require((loops == nullptr) == (last == FL_EMPTY), "FlParallelRegion's list and last disagree");
  Require(status == PA_OK || loops == nullptr, "FlParallelRegion failed but left a list");
  // Every loop is closed, except that the gap corner mode keeps its gaps.
  const double gaps = mode == FL_CORNER_GAP ? 0 : GapLimit(true);
  for (int16_t i = 0; loops != nullptr && i <= last; ++i)
    RequireSoundContour(loops[i], gaps, "a loop of FlParallelRegion");
  FlFreeList(head, &loops, last);
}

void ConicOffset(LI_HEAD *head, LI_TAB_STRUCT *src, Bytes &in) {
  const uint16_t side = in.Next() & 1 ? kLeft : kRight;
  const int32_t closed = in.Flag();
  const uint8_t shortage = in.Next();
  std::vector<double> dist;
  for (uint32_t i = LiCountElem(src); i > 0; --i) {
    dist.push_back(PickDistance(in));
    dist.push_back(in.Flag() ? dist.back() : PickDistance(in));
  }
  const Snapshot before(src);
  LI_TAB_STRUCT *out = nullptr;
  Shortage short_of(head, (shortage & 7) == 7, shortage >> 3);
  Trace("FlConicClean side %u closed %d%s", side, closed,
        short_of.Active() ? " (short of records)" : "");
  for (size_t i = 0; i < dist.size(); i += 2)
    Trace("  distances %.17g %.17g", dist[i], dist[i + 1]);
  const uint16_t status = FlConicClean(head, src, side, dist.data(), nullptr, &out, closed);
  Trace("  status %u", status);
  TraceContour("  result", out);
  RequireAllRecordsAccounted(*head, Live({src, out, short_of.Held()}), "FlConicClean");
  short_of.Release();
  RequireStatus(status, kOffsetStatuses, "FlConicClean");
  Require(before.Matches(src), "FlConicClean changed its input");
  Require(status == PA_OK || out == nullptr, "FlConicClean failed but left a result");
  RequireSoundContour(out, GapLimit(closed != 0 && Closed(src)), "FlConicClean's result");
  LiRemove(head, &out);
}

// The rectangle offset's steps on the contour *k, in the order a caller
// runs them; the first failing step ends it.
uint16_t RectangleSteps(LI_HEAD *head, LI_TAB_STRUCT **k, bool closed, double dx, double dy,
                        uint16_t side, const GE_POINT targets[2], int32_t always) {
  static constexpr int16_t kFactors[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  for (const auto &f : kFactors) {
    const uint16_t status = FlOffsSplit(head, k, f[0], f[1]);
    RequireStatus(status, {PA_OK, PA_NO_RECORD, PA_ZERO_RADIUS}, "FlOffsSplit");
    if (status != PA_OK) return status;
  }
  std::vector<LI_TAB_STRUCT *> elements;
  LI_TAB_STRUCT *e = *k;
  do {
    elements.push_back(e);
    e = e->next;
  } while (e != *k);
  for (LI_TAB_STRUCT *el : elements) {
    const uint16_t status = FlOffsElem(el, dx, dy, side);
    RequireStatus(status, {PA_OK, PA_INVALID, PA_ZERO_LENGTH, PA_ZERO_RADIUS}, "FlOffsElem");
    if (status != PA_OK) return status;
  }
  const size_t pairs = closed ? elements.size() : elements.size() - 1;
  for (size_t i = 0; i < pairs; ++i) {
    const uint16_t status =
        FlOffsKon(head, elements[i], elements[(i + 1) % elements.size()], dx, dy, side);
    RequireStatus(status, {PA_OK, PA_INVALID, PA_NO_MEMORY, PA_ZERO_LENGTH, PA_ZERO_RADIUS},
                  "FlOffsKon");
    if (status != PA_OK) return status;
  }
  if (closed) return PA_OK;
  for (int32_t at_start = 1; at_start >= 0; --at_start) {
    const uint16_t status = FlOffAnf(head, k, &targets[at_start], at_start, always);
    RequireStatus(status, {PA_OK, PA_INVALID, PA_NO_MEMORY, PA_ZERO_LENGTH, PA_ZERO_RADIUS},
                  "FlOffAnf");
    if (status != PA_OK) return status;
  }
  return PA_OK;
}

void RectangleOffset(LI_HEAD *head, LI_TAB_STRUCT *src, Bytes &in) {
  const double dx = in.Pick(kHalfSides), dy = in.Pick(kHalfSides);
  const uint16_t side = in.Flag() ? kLeft : kRight;
  const int32_t always = in.Flag();
  const uint16_t width = in.Pick(kWidths) % FL_NO_CLEANUP;
  const int32_t rem_short = in.Flag();
  // Targets for the open ends: the source's ends carried a little further.
  GE_POINT targets[2] = {src->prev->ep, src->ap};
  targets[0].x += PickDistance(in);
  targets[1].y -= PickDistance(in);
  const Snapshot before(src);
  LI_TAB_STRUCT *work = nullptr;
  const uint16_t copied = LiCopy(head, src, &work);
  RequireStatus(copied, {PA_OK}, "LiCopy");
  const bool closed = Closed(src);
  const int16_t signed_side = side == kLeft ? 1 : -1;
  const uint16_t kind = Kind(src, closed, signed_side);
  const int16_t sign = closed ? Sign(LiKontArea(src)) : signed_side;
  Trace(
      "rectangle offset dx %.17g dy %.17g side %u always %d targets (%.17g, %.17g) (%.17g, %.17g)",
      dx, dy, side, always, targets[1].x, targets[1].y, targets[0].x, targets[0].y);
  uint16_t status = RectangleSteps(head, &work, closed, dx, dy, side, targets, always);
  Trace("  steps: status %u", status);
  TraceContour("  moved", work);
  RequireAllRecordsAccounted(*head, Live({src, work}), "the rectangle offset's steps");
  Require(before.Matches(src), "the rectangle offset changed its source");
  RequireSoundContour(work, 0, "the rectangle offset");
  if (status == PA_OK) {
    LI_TAB_STRUCT *out = nullptr;
    LI_TAB_STRUCT **loops = nullptr;
    int16_t last = -1;
    uint32_t no_cross = 1;
    status = FlCleanKont(head, &work, sign, kind, &out, &loops, &last, &no_cross, width, rem_short);
    Trace("FlCleanKont sign %d mode %u n %u rem_short %d: status %u, no_cross %u, last %d", sign,
          kind, width, rem_short, status, no_cross, last);
    RequireAllRecordsAccounted(*head, Live({src, work, out}, loops, last), "FlCleanKont");
    RequireStatus(status, kOffsetStatuses, "FlCleanKont");
    RequireSoundContour(out, 0, "FlCleanKont's result");
    for (int16_t i = 0; loops != nullptr && i <= last; ++i)
      RequireSoundContour(loops[i], 0, "a loop of FlCleanKont");
    FlFreeList(head, &loops, last);
    LiRemove(head, &out);
  }
  LiRemove(head, &work);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const BlockCount blocks;
  {
    Bytes in(data, size);
    LI_HEAD head{};
    ContourOptions options;
    options.closed = in.Flag();
    LI_TAB_STRUCT *src = BuildContour(&head, in, options);
    TraceContour("source", src);
    if (src != nullptr) {
      uint16_t counter = 1;
      if (in.Flag()) LiNumKont(src, &counter);
      const uint8_t which = in.Next();
      if ((which & 3) != 1) ParallelOffset(&head, src, in);
      if ((which & 48) != 16) RegionOffset(&head, src, in);
      if ((which & 3) != 2) ConicOffset(&head, src, in);
      if ((which & 12) != 4) RectangleOffset(&head, src, in);
      LiRemove(&head, &src);
    }
    RequireAllRecordsAccounted(head, {}, "giving everything back");
    LiFreeMem(&head);
  }
  blocks.RequireUnchanged();
  return 0;
}

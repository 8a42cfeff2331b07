// Fuzz target for the Booleans: two small closed contours of lines and
// arcs from the input, then union, intersection and difference
// (FlUnionKont, FlIsectKont, FlDiffKont) and the largest loop of a
// difference or intersection (FlBewDiffMaxKont), sometimes short of
// records. Besides the store, the inputs and the statuses, the results
// are checked: closed loops, and for two simple polygons whose vertices
// lie on or keep clear of each other's edges the areas, which must satisfy
// U + I = A + B and (A - B) + I = A.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

#include "fuzz_input.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "store_audit.h"

using namespace polyarc_fuzz;

namespace {

// The statuses that a Boolean may return (the header's list; other codes
// could come from LiRemShort, which ORs the statuses of its
// recomputations, but the copies' recomputations of whole elements do
// not fail).
constexpr std::initializer_list<uint16_t> kBooleanStatuses = {
    PA_OK, PA_INVALID, PA_NO_RECORD, PA_NO_MEMORY, PA_LIST_FULL, PA_ZERO_LENGTH, PA_ZERO_RADIUS};

using Boolean = uint16_t (*)(LI_HEAD *, const LI_TAB_STRUCT *, const LI_TAB_STRUCT *, double,
                             int32_t, LI_TAB_STRUCT ***, int16_t *, uint32_t *, int16_t *);

enum Op { kUnion, kIntersection, kDifference };
constexpr Boolean kBooleans[] = {FlUnionKont, FlIsectKont, FlDiffKont};
constexpr const char *kNames[] = {"FlUnionKont", "FlIsectKont", "FlDiffKont"};

// What one Boolean gave, with the area of the region it stands for.
struct Outcome {
  uint16_t status = PA_OK;
  uint32_t no_cross = 1;
  int16_t contain = 0;
  double area = 0;          // of the region, from the loops or the nesting
  double largest_loop = 0;  // |area| of the largest loop, 0 without loops
};

struct Inputs {
  LI_TAB_STRUCT *a;
  LI_TAB_STRUCT *b;
  double short_len;
  int32_t keep;
};

// The region's area when nothing crossed, from how the contours nest.
double NestedArea(Op op, int16_t contain, double area_a, double area_b) {
  switch (op) {
    case kUnion:
      return contain == 1 ? area_b : contain == -1 ? area_a : area_a + area_b;
    case kIntersection:
      return contain == 1 ? area_a : contain == -1 ? area_b : 0;
    case kDifference:
      return contain == 1 ? 0 : contain == -1 ? area_a - area_b : area_a;
  }
  return 0;
}

// The checks on a result list whatever the geometry: the documented
// shape of the outputs for the status and flag, closed loops of the
// documented orientation.
void RequireWellFormed(Op op, const Outcome &o, LI_TAB_STRUCT **loops, int16_t last) {
  const char *name = kNames[op];
  if (o.status != PA_OK || o.no_cross != 0) {
    Require(loops == nullptr && last == FL_EMPTY, "a Boolean without loops left a list");
  }
  if (o.status != PA_OK) return;
  Require(o.no_cross <= 1, "no-crossing flag neither 0 nor 1");
  if (o.no_cross == 1) {
    Require(o.contain >= -1 && o.contain <= 1, "containment not in -1..1");
    return;
  }
  Require(loops != nullptr && last >= 0, "loops announced but none returned");
  for (int16_t i = 0; i <= last; ++i) {
    RequireSoundContour(loops[i], 10 * GeEpsiGetTol(), name);
    // A union's holes run clockwise; every other loop counter-clockwise.
    const double area = LiKontArea(loops[i]);
    const bool hole = op == kUnion && i > 0;
    if (hole ? area >= 0 : area <= 0) {
      std::fprintf(stderr, "%s: loop %d of %d has area %g\n", name, i, last + 1, area);
      Fail("a result loop of the wrong orientation");
    }
  }
}

Outcome RunBoolean(LI_HEAD *head, Op op, const Inputs &in, uint8_t shortage, double area_a,
                   double area_b) {
  const Snapshot before_a(in.a), before_b(in.b);
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = FL_EMPTY;
  Outcome o;
  o.no_cross = 7;
  o.contain = 7;
  Shortage short_of(head, (shortage & 7) == 7, shortage >> 3);
  o.status = kBooleans[op](head, in.a, in.b, in.short_len, in.keep, &loops, &last, &o.no_cross,
                           &o.contain);
  std::vector<const LI_TAB_STRUCT *> live = {in.a, in.b, short_of.Held()};
  for (int16_t i = 0; loops != nullptr && i <= last; ++i) live.push_back(loops[i]);
  RequireAllRecordsAccounted(*head, live, kNames[op]);
  short_of.Release();
  Trace("%s short_len %.17g keep %d%s: status %u no_cross %u contain %d loops %d", kNames[op],
        in.short_len, in.keep, short_of.Active() ? " (short of records)" : "", o.status, o.no_cross,
        o.contain, last + 1);
  RequireStatus(o.status, kBooleanStatuses, kNames[op]);
  Require(before_a.Matches(in.a) && before_b.Matches(in.b), "a Boolean changed its input");
  RequireWellFormed(op, o, loops, last);
  if (o.status == PA_OK && o.no_cross == 0) {
    for (int16_t i = 0; i <= last; ++i) {
      const double area = LiKontArea(loops[i]);
      TraceContour("  loop", loops[i]);
      o.area += area;
      o.largest_loop = std::max(o.largest_loop, std::fabs(area));
    }
  } else if (o.status == PA_OK) {
    o.area = NestedArea(op, o.contain, area_a, area_b);
  }
  FlFreeList(head, &loops, last);
  return o;
}

// FlBewDiffMaxKont: the Boolean with short length tol and keep 1, then
// its largest loop. When the Boolean ran with those settings (and with
// records to spare), the answers must agree exactly.
void RunLargestLoop(LI_HEAD *head, const Inputs &in, bool isect, const Outcome *same_run,
                    uint8_t shortage) {
  const Snapshot before_a(in.a), before_b(in.b);
  LI_TAB_STRUCT *out = nullptr;
  Shortage short_of(head, (shortage & 7) == 7, shortage >> 3);
  const uint16_t status = FlBewDiffMaxKont(head, in.a, in.b, isect ? 1 : 0, &out);
  RequireAllRecordsAccounted(*head, {in.a, in.b, out, short_of.Held()}, "FlBewDiffMaxKont");
  const bool was_short = short_of.Active();
  short_of.Release();
  Trace("FlBewDiffMaxKont isect %d: status %u", isect ? 1 : 0, status);
  RequireStatus(status, kBooleanStatuses, "FlBewDiffMaxKont");
  Require(before_a.Matches(in.a) && before_b.Matches(in.b), "FlBewDiffMaxKont changed its input");
  Require(status == PA_OK || out == nullptr, "FlBewDiffMaxKont failed but left a contour");
  RequireSoundContour(out, 10 * GeEpsiGetTol(), "FlBewDiffMaxKont");
  if (same_run != nullptr && !was_short) {
    Require(status == same_run->status, "FlBewDiffMaxKont's status differs from its Boolean's");
    const double area = out == nullptr ? 0 : std::fabs(LiKontArea(out));
    Require(status != PA_OK || area == same_run->largest_loop,
            "FlBewDiffMaxKont's loop is not the Boolean's largest");
  }
  LiRemove(head, &out);
}

// ---- Simple polygons, for the area identities ------------------------

struct Segment {
  GE_POINT p, q;
};

double PointSegmentDistance(GE_POINT p, const Segment &s) {
  const double dx = s.q.x - s.p.x, dy = s.q.y - s.p.y;
  const double len2 = dx * dx + dy * dy;
  double t = len2 > 0 ? ((p.x - s.p.x) * dx + (p.y - s.p.y) * dy) / len2 : 0;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(p.x - (s.p.x + t * dx), p.y - (s.p.y + t * dy));
}

double Cross(GE_POINT o, GE_POINT a, GE_POINT b) {
  return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

double SegmentDistance(const Segment &s, const Segment &t) {
  const double d1 = Cross(s.p, s.q, t.p), d2 = Cross(s.p, s.q, t.q);
  const double d3 = Cross(t.p, t.q, s.p), d4 = Cross(t.p, t.q, s.q);
  if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0)))
    return 0;
  return std::min({PointSegmentDistance(s.p, t), PointSegmentDistance(s.q, t),
                   PointSegmentDistance(t.p, s), PointSegmentDistance(t.q, s)});
}

// A closed polygon of lines whose edges keep clear of each other by
// `clearance` (neighbours: their far ends keep clear of the other edge),
// so that it bounds one region and does not touch itself.
bool SimplePolygon(const LI_TAB_STRUCT *k, double clearance) {
  std::vector<Segment> edges;
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type != LI_LINE) return false;
    edges.push_back({e->ap, e->ep});
    e = e->next;
  } while (e != k);
  const size_t n = edges.size();
  if (n < 3 || LiTestClosed(k) != 1) return false;
  for (size_t i = 0; i < n; ++i) {
    const Segment &next = edges[(i + 1) % n];
    if (PointSegmentDistance(next.q, edges[i]) < clearance) return false;
    if (PointSegmentDistance(edges[i].p, next) < clearance) return false;
    for (size_t j = i + 2; j < n; ++j) {
      if (i == 0 && j == n - 1) continue;
      if (SegmentDistance(edges[i], edges[j]) < clearance) return false;
    }
  }
  return true;
}

std::vector<Segment> Edges(const LI_TAB_STRUCT *k) {
  std::vector<Segment> edges;
  const LI_TAB_STRUCT *e = k;
  do {
    edges.push_back({e->ap, e->ep});
    e = e->next;
  } while (e != k);
  return edges;
}

// Every vertex of each polygon lies on an edge of the other (closer than
// 1e-12: shared corners and edges) or keeps `clearance` from it. Closer
// but off it, the two boundaries run together within a few tolerances,
// and whether they touch, overlap or cross there is the tolerance's call,
// which the three Booleans may each make differently.
bool ClearOfEachOther(const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b, double clearance) {
  const std::vector<Segment> ea = Edges(a), eb = Edges(b);
  for (const auto &[vertices, edges] : {std::pair{&ea, &eb}, std::pair{&eb, &ea}}) {
    for (const Segment &v : *vertices) {
      for (const Segment &s : *edges) {
        const double d = PointSegmentDistance(v.p, s);
        if (d > 1e-12 && d < clearance) return false;
      }
    }
  }
  return true;
}

void RequireIdentities(const Outcome o[3], const Inputs &in, double area_a, double area_b) {
  // Snapping crossings and element ends moves the boundary by up to about
  // the tolerance; removing short elements by up to short_len.
  const double slack =
      (10 * GeEpsiGetTol() + 2 * in.short_len) * (LiKontLen(in.a) + LiKontLen(in.b)) + 1e-9;
  const double u = o[kUnion].area, i = o[kIntersection].area, d = o[kDifference].area;
  Trace("areas: A %.17g B %.17g U %.17g I %.17g D %.17g (slack %g)", area_a, area_b, u, i, d,
        slack);
  if (std::fabs(u + i - area_a - area_b) > slack) Fail("U + I differs from A + B");
  if (std::fabs(d + i - area_a) > slack) Fail("(A - B) + I differs from A");
}

constexpr double kShortLengths[] = {0, 0, 0, 1, 10, 20};  // in tolerances

void RunBooleans(LI_HEAD *head, Bytes &in) {
  const uint8_t setup = in.Next();
  ContourOptions options;
  options.min_vertices = 2;
  options.max_vertices = 5;
  options.arcs = (setup & 1) == 0;
  LI_TAB_STRUCT *a = BuildContour(head, in, options);
  options.shift = 1;
  LI_TAB_STRUCT *b = BuildContour(head, in, options);
  TraceContour("A", a);
  TraceContour("B", b);
  const double tol = GeEpsiGetTol();
  const Inputs inputs{a, b, kShortLengths[(setup >> 1) % 6] * tol, (setup & 16) != 0 ? 0 : 1};
  const uint8_t shortages[4] = {in.Next(), in.Next(), in.Next(), in.Next()};
  // The Booleans take closed contours: open or one-move inputs only get
  // their statuses and the store checked.
  const double area_a = std::fabs(LiKontArea(a)), area_b = std::fabs(LiKontArea(b));
  Outcome o[3];
  for (const Op op : {kUnion, kIntersection, kDifference})
    o[op] = RunBoolean(head, op, inputs, shortages[op], area_a, area_b);
  const bool isect = (setup & 32) != 0;
  const bool same =
      inputs.short_len == tol && inputs.keep == 1 && (shortages[isect ? 1 : 2] & 7) != 7;
  RunLargestLoop(head, inputs, isect, same ? &o[isect ? kIntersection : kDifference] : nullptr,
                 shortages[3]);
  const bool all_ok = std::all_of(o, o + 3, [](const Outcome &x) { return x.status == PA_OK; });
  if (all_ok && a != nullptr && b != nullptr && SimplePolygon(a, 10 * tol) &&
      SimplePolygon(b, 10 * tol) && ClearOfEachOther(a, b, 10 * tol)) {
    RequireIdentities(o, inputs, area_a, area_b);
  }
  LiRemove(head, &a);
  LiRemove(head, &b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const BlockCount blocks;
  {
    Bytes in(data, size);
    LI_HEAD head{};
    RunBooleans(&head, in);
    RequireAllRecordsAccounted(head, {}, "giving everything back");
    LiFreeMem(&head);
  }
  blocks.RequireUnchanged();
  return 0;
}

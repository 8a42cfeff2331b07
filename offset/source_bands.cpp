// The bands of a source contour and the nearness tests of
// offset/source_bands.h.
#include "offset/source_bands.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// Source arcs are measured by chords of at most a quarter turn; the hull of
// a raw arc is taken over pieces of at most an eighth (whose corners stay
// near the arc).
constexpr int kSourceStepsPerTurn = 4;
constexpr int kHullStepsPerTurn = 8;
// A raw arc that no single band holds is cut into chords whose sagitta is
// at most this share of the reach (and at most this many to a turn).
constexpr double kChordShare = 1.0 / 64.0;
constexpr int kMostChordsPerTurn = 256;

constexpr uint32_t kNone = UINT32_MAX;

// The squared gap between two boxes, 0 when they meet: a lower bound of
// the squared distance between what they hold.
double BoxGap2(const GE_BOX &a, const GE_BOX &b) {
  const double dx = std::max({a.xmin - b.xmax, 0.0, b.xmin - a.xmax});
  const double dy = std::max({a.ymin - b.ymax, 0.0, b.ymin - a.ymax});
  return dx * dx + dy * dy;
}

double SegmentDistance2(GE_POINT p, GE_POINT a, GE_POINT b) {
  const GE_POINT ab = b - a;
  const double len2 = Norm2(ab);
  const double t = len2 > 0.0 ? std::clamp(Dot(p - a, ab) / len2, 0.0, 1.0) : 0.0;
  return Norm2(p - (a + t * ab));
}

// An arc's covered sweep cut into `count` equal steps, at most per_turn to
// a full turn; step is signed by the arc's sense, angles are the stored
// ones (so the carrier point at angle a is Polar(mp, rad, a) also when
// rad < 0).
struct ArcSteps {
  double start;
  double step;
  int count;
};

ArcSteps StepsOf(const LI_TAB_STRUCT &arc, int per_turn, double tol) {
  const double sweep = CoveredSweep(arc, tol);
  const int count = std::clamp(static_cast<int>(std::ceil(sweep * per_turn / kTwoPi)), 1, per_turn);
  const double sense = arc.type == LI_ARC_CW ? -1.0 : 1.0;
  return {arc.ang_ap, sense * sweep / count, count};
}

// The end of step i (1..count): the arc's own end point for the last.
GE_POINT StepEnd(const LI_TAB_STRUCT &arc, const ArcSteps &s, int i) {
  return i == s.count ? arc.ep : Polar(arc.mp, arc.rad, s.start + i * s.step);
}

// How far a step's arc strays from its chord: |rad| (1 - cos(step / 2)),
// written so as not to cancel.
double Sagitta(const LI_TAB_STRUCT &arc, const ArcSteps &s) {
  const double half = std::sin(0.25 * s.step);
  return 2.0 * std::fabs(arc.rad) * half * half;
}

GE_BOX BandBox(const Band &band) {
  const double s = band.slack;
  return {std::min(band.a.x, band.b.x) - s, std::min(band.a.y, band.b.y) - s,
          std::max(band.a.x, band.b.x) + s, std::max(band.a.y, band.b.y) + s};
}

constexpr Span kNoSpan{HUGE_VAL, -HUGE_VAL};  // empty

Span Hull(Span a, Span b) { return {std::min(a.lo, b.lo), std::max(a.hi, b.hi)}; }
Span Meet(Span a, Span b) { return {std::max(a.lo, b.lo), std::min(a.hi, b.hi)}; }

// The t at which p + t v lies nearer than r to c.
Span DiscSpan(GE_POINT p, GE_POINT v, GE_POINT c, double r) {
  const GE_POINT w = p - c;
  const double a = Norm2(v), b = Dot(v, w), cc = Norm2(w) - r * r;
  if (a == 0.0) return cc < 0.0 ? Span{-HUGE_VAL, HUGE_VAL} : kNoSpan;
  const double disc = b * b - a * cc;
  if (!(disc > 0.0)) return kNoSpan;
  const double root = std::sqrt(disc);
  return {(-b - root) / a, (-b + root) / a};
}

// The t at which lo < c0 + t c1 < hi.
Span LinearSpan(double c0, double c1, double lo, double hi) {
  if (c1 == 0.0) return lo < c0 && c0 < hi ? Span{-HUGE_VAL, HUGE_VAL} : kNoSpan;
  const double t1 = (lo - c0) / c1, t2 = (hi - c0) / c1;
  return {std::min(t1, t2), std::max(t1, t2)};
}

// The parameters t at which p + t v lies nearer than r to a band's chord:
// the hull of the intervals in the discs about the chord's ends and in the
// rectangle beside it.
Span BandSpan(GE_POINT p, GE_POINT v, const Band &band, double r) {
  Span span = Hull(DiscSpan(p, v, band.a, r), DiscSpan(p, v, band.b, r));
  if (band.length > 0.0) {
    const GE_POINT u = band.unit, n = LeftNormal(u), w = p - band.a;
    const Span beside = Meet(LinearSpan(Dot(w, u), Dot(v, u), 0.0, band.length),
                             LinearSpan(Dot(w, n), Dot(v, n), -r, r));
    if (beside.lo < beside.hi) span = Hull(span, beside);
  }
  return span;
}

// The points whose convex hull holds a raw element: its ends, and for an
// arc the ends and tangent corner of each piece.
struct HullPoints {
  static constexpr int kMost = 1 + 2 * kHullStepsPerTurn;
  std::array<GE_POINT, kMost> at{};
  int n = 0;
  void Add(GE_POINT p) { at[n++] = p; }
};

HullPoints HullOf(const LI_TAB_STRUCT &e, double tol) {
  HullPoints h;
  h.Add(e.ap);
  if (!IsArc(e)) {
    h.Add(e.ep);
    return h;
  }
  const ArcSteps s = StepsOf(e, kHullStepsPerTurn, tol);
  const double corner = e.rad / std::cos(0.5 * s.step);
  for (int i = 1; i <= s.count; ++i) {
    h.Add(Polar(e.mp, corner, s.start + (i - 0.5) * s.step));
    h.Add(StepEnd(e, s, i));
  }
  return h;
}

// The bands of one element: a line's own segment, an arc's chords.
void AddBands(const LI_TAB_STRUCT &e, uint32_t element, double tol, BlockVector<Band> &bands,
              BlockVector<GE_BOX> &boxes) {
  auto add = [&](GE_POINT a, GE_POINT b, double slack) {
    const double length = Dist(a, b);
    const GE_POINT unit = length > 0.0 ? (1.0 / length) * (b - a) : GE_POINT{0.0, 0.0};
    bands.push_back({a, b, slack, element, length, unit});
    boxes.push_back(BandBox(bands.back()));
  };
  if (!IsArc(e)) {
    add(e.ap, e.ep, 0.0);
    return;
  }
  const ArcSteps s = StepsOf(e, kSourceStepsPerTurn, tol);
  const double slack = Sagitta(e, s);
  GE_POINT from = e.ap;
  for (int i = 1; i <= s.count; ++i) {
    const GE_POINT to = StepEnd(e, s, i);
    add(from, to, slack);
    from = to;
  }
}

GE_BOX Widened(const GE_BOX &b, double by) {
  return {b.xmin - by, b.ymin - by, b.xmax + by, b.ymax + by};
}

// Fills the bands of the drawn elements of k (moves count for nothing)
// and returns the index's leaves for their boxes.
BoxIndex::Leaves Collect(const LI_TAB_STRUCT *k, double tol, BlockVector<Band> &bands,
                         BlockVector<GE_BOX> &boxes, BlockVector<const LI_TAB_STRUCT *> &elements) {
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type != LI_MOVE) {
      AddBands(*e, static_cast<uint32_t>(elements.size()), tol, bands, boxes);
      elements.push_back(e);
    }
    e = e->next;
  } while (e != k);
  BoxIndex::Leaves leaves;
  leaves.reserve(boxes.size());
  for (const GE_BOX &box : boxes) leaves.push_back(BoxIndex::Leaf(box));
  return leaves;
}

}  // namespace

// The arrays are members declared before the index, so they exist (empty)
// when Collect fills them for it.
SourceBands::SourceBands(const LI_TAB_STRUCT *k, double tol)
    : tol_(tol), index_(Collect(k, tol, bands_, boxes_, elements_)), hint_(kNone) {}

bool SourceBands::Holds(uint32_t band, const GE_POINT *hull, int n, double reach) const {
  const Band &b = bands_[band];
  const double r = reach - b.slack;
  if (!(r > 0.0)) return false;
  for (int i = 0; i < n; ++i) {
    if (!(SegmentDistance2(hull[i], b.a, b.b) < r * r)) return false;
  }
  return true;
}

// Whether the union of the found bands' neighbourhoods (reach less their
// slack) covers the chord p-q.
bool SourceBands::ChordCovered(GE_POINT p, GE_POINT q, double reach) const {
  spans_.clear();
  const GE_BOX near{std::min(p.x, q.x) - reach, std::min(p.y, q.y) - reach,
                    std::max(p.x, q.x) + reach, std::max(p.y, q.y) + reach};
  for (const uint32_t band : near_) {
    const double r = reach - bands_[band].slack;
    if (!(r > 0.0) || !BoxesMeet(boxes_[band], near)) continue;
    const Span span = Meet(BandSpan(p, q - p, bands_[band], r), {0.0, 1.0});
    if (span.lo <= span.hi) spans_.push_back(span);
  }
  std::sort(spans_.begin(), spans_.end(), [](Span a, Span b) { return a.lo < b.lo; });
  double covered = 0.0;
  for (const Span &span : spans_) {
    if (span.lo > covered) return false;
    covered = std::max(covered, span.hi);
    if (covered >= 1.0) return true;
  }
  return false;
}

bool SourceBands::Covered(const LI_TAB_STRUCT &e, double reach) const {
  if (!IsArc(e)) return ChordCovered(e.ap, e.ep, reach);
  // Chords whose sagitta stays below kChordShare x reach.
  const double ratio = std::min(1.0, kChordShare * reach / std::fabs(e.rad));
  const double most_step = 2.0 * std::acos(1.0 - ratio);
  const int per_turn = std::clamp(static_cast<int>(std::ceil(kTwoPi / most_step)),
                                  kHullStepsPerTurn, kMostChordsPerTurn);
  const ArcSteps s = StepsOf(e, per_turn, tol_);
  const double inner = reach - Sagitta(e, s);
  GE_POINT from = e.ap;
  for (int i = 1; i <= s.count; ++i) {
    const GE_POINT to = StepEnd(e, s, i);
    if (!ChordCovered(from, to, inner)) return false;
    from = to;
  }
  return true;
}

bool SourceBands::NearBand(GE_POINT p) const {
  for (const Reach &x : reaches_) {
    const GE_POINT w = p - x.a;
    const double t = std::clamp(Dot(w, x.ab) * x.inverse_length2, 0.0, 1.0);
    if (Norm2(w - t * x.ab) < x.r2) return true;
  }
  return false;
}

// An element on the offset lies farther than reach from every band at
// both ends: the ends are tried before any hull or cover, and a start
// known to be far (the end of the element before) spares the whole test.
// *end_near tells the next element whether its start is near.
bool SourceBands::Buries(const LI_TAB_STRUCT &e, double reach, bool start_far,
                         bool *end_near) const {
  *end_near = true;
  if (!start_far && hint_ != kNone) {
    const Band &b = bands_[hint_];
    const double r = reach - b.slack;
    if (SegmentDistance2(e.ep, b.a, b.b) < r * r) {
      const HullPoints h = HullOf(e, tol_);
      if (Holds(hint_, h.at.data(), h.n, reach)) return true;
    }
  }
  *end_near = NearBand(e.ep);
  if (start_far || !*end_near || !NearBand(e.ap)) return false;
  const HullPoints h = HullOf(e, tol_);
  const GE_BOX box = Widened(e.box, reach);
  near_.clear();
  for (const uint32_t band : found_) {
    if (!BoxesMeet(boxes_[band], box)) continue;
    if (Holds(band, h.at.data(), h.n, reach)) {
      hint_ = band;
      return true;
    }
    near_.push_back(band);
  }
  return Covered(e, reach);
}

void SourceBands::Bury(const BlockVector<LI_TAB_STRUCT *> &elements, double reach,
                       BlockVector<uint8_t> &buried) const {
  buried.assign(elements.size(), 0);
  bool end_near = true;
  // Up to kBatch neighbours share one query while their boxes stay within
  // the reach of each other (a larger batch finds more bands that each
  // element tries in vain).
  constexpr size_t kBatch = 16;
  for (size_t i = 0; i < elements.size();) {
    GE_BOX box = elements[i]->box;
    size_t end = i + 1;
    for (; end < elements.size() && end - i < kBatch; ++end) {
      const GE_BOX &next = elements[end]->box;
      const GE_BOX grown{std::min(box.xmin, next.xmin), std::min(box.ymin, next.ymin),
                         std::max(box.xmax, next.xmax), std::max(box.ymax, next.ymax)};
      if (grown.xmax - grown.xmin > reach || grown.ymax - grown.ymin > reach) break;
      box = grown;
    }
    found_.clear();
    index_.Query(Widened(box, reach), found_);
    // Only the bands within reach of the batch's box matter (the query's
    // square also holds its corners).
    found_.erase(
        std::remove_if(found_.begin(), found_.end(),
                       [&](uint32_t band) { return BoxGap2(boxes_[band], box) >= reach * reach; }),
        found_.end());
    // Their chords in one compact array: every element's ends are tried
    // against all of them.
    reaches_.clear();
    for (const uint32_t band : found_) {
      const Band &b = bands_[band];
      const double r = reach - b.slack;
      const double length2 = b.length * b.length;
      if (r > 0.0) reaches_.push_back({b.a, b.b - b.a, length2 > 0.0 ? 1.0 / length2 : 0.0, r * r});
    }
    for (; i < end; ++i) {
      const bool joined = i > 0 && elements[i]->ap == elements[i - 1]->ep;
      buried[i] = Buries(*elements[i], reach, joined && !end_near, &end_near) ? 1 : 0;
    }
  }
}

bool SourceBands::Nearer(GE_POINT p, double limit) const {
  found_.clear();
  index_.Query({p.x - limit, p.y - limit, p.x + limit, p.y + limit}, found_);
  for (const uint32_t band : found_) {
    GE_POINT foot;
    double dist = HUGE_VAL;
    GePtElemDist(elements_[bands_[band].element], &p, &foot, &dist);
    if (dist < limit) return true;
  }
  return false;
}

}  // namespace polyarc

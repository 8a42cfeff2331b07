// Pair tests used where elements touch or overlap: do the carriers touch,
// which way do two touching elements part, are two elements parallel or
// concentric, and do they share a carrier and a stretch of it.
#include <cmath>
#include <limits>

#include "geom/intersections.h"
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

constexpr uint16_t kParallelSame = 2;
constexpr uint16_t kParallelOpposite = 65535;
constexpr uint16_t kIdentDifferent = 1;
constexpr uint16_t kIdentCarrier = 2;
constexpr uint16_t kIdentStretch = 3;

// |c - n.p| < tol for a point against a line's carrier.
bool OnCarrier(const LI_TAB_STRUCT &line, GE_POINT p) { return CarrierDistance(line, p) < Tol(); }

bool Touch(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  GE_POINT p1{}, p2{};
  if (!IsLine(a) && !IsLine(b)) {
    uint16_t count = 0;
    const uint16_t status = IntersectCircles(a.mp, a.rad, b.mp, b.rad, count, p1, p2);
    // Concentric circles count as touching whatever their radii.
    if (status == PA_CONCENTRIC) return true;
    return status == PA_OK && count == 1;
  }
  if (IsLine(a) != IsLine(b)) {
    const LI_TAB_STRUCT &line = IsLine(a) ? a : b;
    const LI_TAB_STRUCT &arc = IsLine(a) ? b : a;
    return IntersectCircleLine(arc.mp, arc.rad, line.mp, line.rad, p1, p2) == 1;
  }
  // Collinear lines touch, overlapping or not.
  return OnCarrier(a, b.ap) && OnCarrier(a, b.ep) && OnCarrier(b, a.ap) && OnCarrier(b, a.ep);
}

// Curvature with the sign opposite to GeKruem: positive for clockwise.
double TurnCurvature(const LI_TAB_STRUCT &e) {
  if (IsLine(e)) return 0.0;
  return e.type == LI_ARC_CW ? 1.0 / e.rad : -1.0 / e.rad;
}

uint16_t TanSide(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, uint16_t &side, bool sum) {
  side = 0;
  if (!Touch(a, b)) return PA_IMPOSSIBLE;
  const double k1 = TurnCurvature(a);
  const double k2 = TurnCurvature(b);
  const double s = sum ? k1 + k2 : k1 - k2;
  // A curvature compared with the length tolerance, as the callers expect.
  const double tol = Tol();
  if (s < -tol) side = 65535;
  if (s > tol) side = 1;
  return PA_OK;
}

bool Degenerate(const LI_TAB_STRUCT &e) { return CoincidePerAxis(e.ap, e.ep, Tol()); }

bool EndsAt(const LI_TAB_STRUCT &line, GE_POINT centre) {
  const double tol = Tol();
  return CoincidePerAxis(line.ap, centre, tol) && CoincidePerAxis(line.ep, centre, tol);
}

uint16_t Parallel(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  if (IsLine(a)) {
    if (b.type != LI_LINE) return EndsAt(a, b.mp) ? 1 : 0;
    if (Degenerate(a) || Degenerate(b)) return 1;
    const double cosine = Dot(a.mp, b.mp);
    if (cosine > kParallelCosine) return kParallelSame;
    if (cosine < -kParallelCosine) return kParallelOpposite;
    return 0;
  }
  if (IsLine(b)) return EndsAt(b, a.mp) ? 1 : 0;
  if (!CoincidePerAxis(a.mp, b.mp, Tol())) return 0;
  return a.type == b.type ? kParallelSame : kParallelOpposite;
}

struct Ident {
  uint16_t code;
  uint32_t opposite;
  GE_POINT p1, p2;
};

// The common stretch of two lines on line a's carrier, in a's parameters.
// The upper end has no tolerance below a's start, deliberately.
void LineStretch(const LI_TAB_STRUCT &a, double s2, double e2, Ident &out) {
  const double tol = Tol();
  const double a1 = a.ang_ap, b1 = a.ang_ep;
  bool have_lower = false, have_upper = false;
  double lower = 0.0, upper = 0.0;
  if (a1 - tol <= s2 && s2 <= b1 + tol) {
    lower = s2;
    have_lower = true;
  }
  if (s2 - tol <= a1 && a1 <= e2 + tol) {
    lower = a1;
    have_lower = true;
  }
  if (a1 <= e2 && e2 <= b1 + tol) {
    upper = e2;
    have_upper = true;
  }
  if (s2 - tol <= b1 && b1 <= e2 + tol) {
    upper = b1;
    have_upper = true;
  }
  if (!have_lower || !have_upper || !(std::fabs(upper - lower) > tol)) return;
  out.p1 = LinePoint(a, lower);
  out.p2 = LinePoint(a, upper);
  out.code = kIdentStretch;
}

// The common stretch of two arcs on a's circle, b's ends taken in a's sense
// as s2 and e2; b's own ends are reported on a's circle, not clipped to a.
// A full circle holds every angle and covers a full turn, whichever of the
// two it is.
void ArcStretch(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, double s2, double e2, Ident &out) {
  const double tol = Tol();
  const bool b_full = IsFullCircle(b, tol);
  const AngleRange other = RangeInSense(a.type, s2, e2);
  const auto in_a = [&](double angle) { return AngleOnArc(angle, a, tol, Bounds::kInclusive); };
  const auto in_b = [&](double angle) {
    return b_full || AngleInRange(angle, other, Bounds::kInclusive, EqualEnds::kSingleAngle);
  };
  const bool start_side = in_a(s2) || in_b(a.ang_ap);
  const bool end_side = in_a(e2) || in_b(a.ang_ep);
  if (!start_side || !end_side) return;
  const double sweep = b_full ? kTwoPi : SweepInSense(a.type, s2, e2);
  if (!(sweep * a.rad > tol)) return;
  out.p1 = Polar(a.mp, a.rad, s2);
  out.p2 = Polar(a.mp, a.rad, e2);
  out.code = kIdentStretch;
}

bool SameCircle(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, Ident &out) {
  const double tol = Tol();
  out.opposite = a.type != b.type ? 1 : 0;
  return CoincidePerAxis(a.mp, b.mp, tol) && std::fabs(a.rad - b.rad) < tol;
}

bool SameLine(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, Ident &out) {
  const double tol = Tol();
  const double longer = std::fmax(a.ang_ep - a.ang_ap, b.ang_ep - b.ang_ap);
  const double limit = longer == 0.0 ? std::numeric_limits<double>::infinity() : tol / longer;
  out.opposite = Dot(a.mp, b.mp) < 0.0 ? 1 : 0;
  if (!(std::fabs(Cross(a.mp, b.mp)) < limit)) return false;
  return !(CarrierDistance(a, b.ap) > tol);
}

Ident Identify(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  Ident out{kIdentDifferent, 0, {0.0, 0.0}, {0.0, 0.0}};
  if (IsArc(a)) {
    if (!IsArc(b) || !SameCircle(a, b, out)) return out;
    out.code = kIdentCarrier;
    const bool flip = out.opposite != 0;
    ArcStretch(a, b, flip ? b.ang_ep : b.ang_ap, flip ? b.ang_ap : b.ang_ep, out);
    return out;
  }
  if (a.type != LI_LINE || b.type != LI_LINE || !SameLine(a, b, out)) return out;
  out.code = kIdentCarrier;
  // b's parameters run the other way along a's direction when it is flipped.
  const bool flip = out.opposite != 0;
  LineStretch(a, flip ? -b.ang_ep : b.ang_ap, flip ? -b.ang_ap : b.ang_ep, out);
  return out;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GeTestTang(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2) {
  if (e1 == nullptr || e2 == nullptr) return 0;
  return Touch(*e1, *e2) ? 1 : 0;
}

extern "C" uint16_t GeTanSide(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, uint16_t *side,
                              int32_t sum) {
  if (e1 == nullptr || e2 == nullptr || side == nullptr) return PA_INVALID;
  return TanSide(*e1, *e2, *side, sum != 0);
}

extern "C" uint16_t GeElemTestParallel(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2) {
  if (e1 == nullptr || e2 == nullptr) return 0;
  return Parallel(*e1, *e2);
}

extern "C" void GeIdentElem(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, uint16_t *code,
                            uint32_t *opposite, GE_POINT *p1, GE_POINT *p2) {
  if (e1 == nullptr || e2 == nullptr || code == nullptr || opposite == nullptr || p1 == nullptr ||
      p2 == nullptr)
    return;
  const Ident r = Identify(*e1, *e2);
  *code = r.code;
  *opposite = r.opposite;
  *p1 = r.p1;
  *p2 = r.p2;
}

// A contour seen under a direction or a rotation: its extreme points along
// a direction, the point where its direction of travel takes a given
// angle, and the outline that a chain traces when it is turned about a
// centre up to a limit angle.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Arcs and full circles take every angle of their range, ends included; a
// range whose ends are equal is a full turn.
bool InRange(double a, AngleRange r) {
  return AngleInRange(a, r, Bounds::kInclusive, EqualEnds::kFullTurn);
}

double Normalised(double a) { return std::atan2(std::sin(a), std::cos(a)); }

struct Extreme {
  double value;
  GE_POINT point;
  uint16_t no;
};

struct Limits {
  Extreme min{};
  Extreme max{};
  bool started = false;

  void Offer(double value, GE_POINT point, uint16_t no, bool as_min, bool as_max) {
    if (as_min && value < min.value) min = {value, point, no};
    if (as_max && value > max.value) max = {value, point, no};
  }
};

void ExamineElement(const LI_TAB_STRUCT &e, GE_POINT d, Limits &lim) {
  const double p = Dot(d, e.ep);
  if (!lim.started) {
    lim.min = lim.max = {p, e.ep, e.no};
    lim.started = true;
  }
  lim.Offer(p, e.ep, e.no, true, true);
  // A move has no centre: like a line, only its end point counts.
  if (!IsArc(e)) return;
  const AngleRange range = RangeOf(e);
  const double a = Angle(d), b = Angle(-d);
  if (InRange(a, range)) lim.Offer(Dot(d, e.mp) + e.rad, Polar(e.mp, e.rad, a), e.no, false, true);
  if (InRange(b, range)) lim.Offer(Dot(d, e.mp) - e.rad, Polar(e.mp, e.rad, b), e.no, true, false);
}

// The corner in front of e turns its direction from a1 to a2; with the
// sense flag set the range runs from a2 to a1.
bool CornerTakes(const LI_TAB_STRUCT &e, double theta, GE_POINT u, bool sense, double tol) {
  if (CoincidePerAxis(e.tan_ap, u, tol)) return true;
  const GE_POINT before = e.prev->tan_ep;
  if (CoincidePerAxis(before, e.tan_ap, tol)) return false;
  const double a1 = Angle(before), a2 = Angle(e.tan_ap);
  return InRange(theta, sense ? AngleRange{a2, a1} : AngleRange{a1, a2});
}

// The point of arc e whose tangent has the angle theta, if there is one.
// With the sense flag clear the arc is read as counter-clockwise (tangent
// angles increasing from start to end), with it set as clockwise.
bool ArcTakes(const LI_TAB_STRUCT &e, double theta, bool sense, GE_POINT &pt) {
  const double a2 = Angle(e.tan_ap), a3 = Angle(e.tan_ep);
  if (!InRange(theta, sense ? AngleRange{a3, a2} : AngleRange{a2, a3})) return false;
  pt = Polar(e.mp, e.rad, sense ? theta + kHalfPi : theta - kHalfPi);
  return true;
}

uint16_t FindDirection(const LI_TAB_STRUCT *k, double angle, bool sense, uint16_t &no,
                       GE_POINT &pt) {
  const double tol = Tol();
  const double theta = Normalised(angle);
  const GE_POINT u{std::cos(angle), std::sin(angle)};
  no = 0;
  const LI_TAB_STRUCT *e = k;
  do {
    // A later match replaces an earlier one: the last along the chain wins.
    if (CornerTakes(*e, theta, u, sense, tol)) {
      no = e->no;
      pt = e->ap;
    }
    if (IsArc(*e) && ArcTakes(*e, theta, sense, pt)) no = e->no;
    e = e->next;
  } while (e != k);
  return no == 0 ? PA_IMPOSSIBLE : PA_OK;
}

// ---- The turned outline ----------------------------------------------

struct Turning {
  LI_HEAD *head;
  GE_POINT centre;
  GE_POINT ref;
  double radius;   // |centre - ref|
  bool clockwise;  // sense flag A: the chain turns clockwise
  bool flip;       // normals on the right of the tangent
  bool inner;      // sense flag B: arcs of the chain are followed inside
  double limit;    // the limit angle
  GE_POINT limit_dir;
  GE_POINT dir;  // the direction reached so far
};

bool Differ(GE_POINT a, GE_POINT b, double tol) { return !CoincidePerAxis(a, b, tol); }

// The normal of tangent t, replaced by the limit direction when the limit
// comes first turning from the current direction.
GE_POINT ClampedNormal(const Turning &tr, GE_POINT t, double tol) {
  GE_POINT n = tr.flip ? RightNormal(t) : LeftNormal(t);
  if (!Differ(n, tr.dir, tol)) return n;
  const double from = Angle(tr.dir), to_n = Angle(n);
  double d1 = tr.clockwise ? from - tr.limit : tr.limit - from;
  double d2 = tr.clockwise ? from - to_n : to_n - from;
  if (d1 < 0.0) d1 += kTwoPi;
  if (!(d2 > 0.0)) d2 += kTwoPi;
  return d1 < d2 ? tr.limit_dir : n;
}

// Appends an arc of the given radius about m from m + r.dir to m + r.n
// (r signed; the stored radius is |r|).
uint16_t AppendTurn(Turning &tr, LI_TAB_STRUCT **out, GE_POINT m, double r, GE_POINT n) {
  LI_TAB_STRUCT *arc = nullptr;
  if (const uint16_t status = LiEnlarge(tr.head, out, &arc); status != PA_OK) return status;
  arc->type = tr.clockwise ? LI_ARC_CW : LI_ARC_CCW;
  arc->mp = m;
  arc->rad = std::fabs(r);
  arc->ap = m + r * tr.dir;
  arc->ep = m + r * n;
  tr.dir = n;
  return LiElemExpand(arc);
}

// A copy of line e, displaced so that it continues the outline.
uint16_t AppendShifted(Turning &tr, LI_TAB_STRUCT **out, const LI_TAB_STRUCT &e) {
  LI_TAB_STRUCT *line = nullptr;
  if (const uint16_t status = LiEnlarge(tr.head, out, &line); status != PA_OK) return status;
  line->type = LI_LINE;
  line->ap = line == *out ? e.ap : line->prev->ep;
  line->ep = line->ap + (e.ep - e.ap);
  return LiElemExpand(line);
}

uint16_t TurnElement(Turning &tr, const LI_TAB_STRUCT &e, LI_TAB_STRUCT **out, uint16_t &last_no,
                     double tol) {
  GE_POINT n = ClampedNormal(tr, e.tan_ap, tol);
  if (Differ(n, tr.dir, tol)) {
    if (uint16_t st = AppendTurn(tr, out, tr.centre + e.ap - tr.ref, tr.radius, n); st != PA_OK)
      return st;
    last_no = e.no;
  }
  if (e.type == LI_LINE && Differ(n, tr.limit_dir, tol)) return AppendShifted(tr, out, e);
  if (!IsArc(e)) return PA_OK;
  n = ClampedNormal(tr, e.tan_ep, tol);
  const double r = tr.inner ? tr.radius - e.rad : e.rad + tr.radius;
  if (!Differ(n, tr.dir, tol) || std::fabs(r) <= tol) return PA_OK;
  last_no = e.no;
  return AppendTurn(tr, out, tr.centre + e.mp - tr.ref, r, n);
}

uint16_t TurnChain(Turning &tr, const LI_TAB_STRUCT *first, LI_TAB_STRUCT **out,
                   uint16_t &last_no) {
  const double tol = Tol();
  GE_POINT dir_at_pass = tr.dir;
  for (const LI_TAB_STRUCT *e = first;; e = e->next) {
    if (const uint16_t status = TurnElement(tr, *e, out, last_no, tol); status != PA_OK)
      return status;
    if (!Differ(tr.dir, tr.limit_dir, tol)) return PA_OK;
    if (e->next != first) continue;
    // A whole pass that did not turn at all never will: the chain's
    // normals cannot reach the limit.
    if (!Differ(tr.dir, dir_at_pass, tol)) return PA_IMPOSSIBLE;
    dir_at_pass = tr.dir;
  }
}

uint16_t TurnedOutline(LI_HEAD *head, const LI_TAB_STRUCT *first, GE_POINT centre, GE_POINT ref,
                       double angle, bool flag_a, bool flag_b, LI_TAB_STRUCT **out,
                       uint16_t &last_no) {
  Turning tr{};
  tr.head = head;
  tr.centre = centre;
  tr.ref = ref;
  tr.radius = Dist(centre, ref);
  tr.clockwise = flag_a;
  tr.flip = flag_a == flag_b;
  tr.inner = flag_b;
  const double base = Angle(ref - centre);
  tr.dir = {std::cos(base), std::sin(base)};
  double limit = flag_a ? base - angle : base + angle;
  if (limit > kPi) limit -= kTwoPi;
  if (limit <= -kPi) limit += kTwoPi;
  tr.limit = limit;
  tr.limit_dir = {std::cos(limit), std::sin(limit)};
  const uint16_t status = TurnChain(tr, first, out, last_no);
  if (status != PA_OK) LiRemove(head, out);
  return status;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlKontLim(const LI_TAB_STRUCT *k, const GE_POINT *dir, GE_POINT *min,
                              GE_POINT *max, uint16_t *min_no, uint16_t *max_no) {
  if (dir == nullptr || min == nullptr || max == nullptr || min_no == nullptr ||
      max_no == nullptr) {
    return PA_INVALID;
  }
  *min = *max = {0.0, 0.0};
  *min_no = *max_no = 0;
  if (k == nullptr) return PA_OK;
  Limits lim;
  const LI_TAB_STRUCT *e = k;
  do {
    ExamineElement(*e, *dir, lim);
    e = e->next;
  } while (e != k);
  *min = lim.min.point;
  *max = lim.max.point;
  *min_no = lim.min.no;
  *max_no = lim.max.no;
  return PA_OK;
}

extern "C" uint16_t FlRotStart(const LI_TAB_STRUCT *k, double angle, int32_t sense, uint16_t *no,
                               GE_POINT *pt) {
  if (no == nullptr || pt == nullptr) return PA_INVALID;
  *no = 0;
  if (k == nullptr) return PA_IMPOSSIBLE;
  return FindDirection(k, angle, sense != 0, *no, *pt);
}

extern "C" uint16_t FlRotLim(LI_HEAD *head, const LI_TAB_STRUCT *first, const GE_POINT *centre,
                             const GE_POINT *ref, double angle, int32_t sense_a, int32_t sense_b,
                             LI_TAB_STRUCT **out, uint16_t *last_no) {
  if (head == nullptr || first == nullptr || centre == nullptr || ref == nullptr ||
      out == nullptr || last_no == nullptr) {
    return PA_INVALID;
  }
  *out = nullptr;
  *last_no = 0;
  return TurnedOutline(head, first, *centre, *ref, angle, sense_a != 0, sense_b != 0, out,
                       *last_no);
}

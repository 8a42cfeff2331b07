// Shortest distances between a point and an element and between two
// elements, with the nearest points and their parameters (line positions
// or polar angles). Element pairs take the direct pair of nearest carrier
// points when it lies on both elements, else the best end-point candidate.
#include <cmath>

#include "geom/point_on.h"
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

struct Nearest {
  double dist;
  GE_POINT pt;
  double par;
};

// A candidate pair: the point and parameter on each element.
struct Pair {
  double dist;
  GE_POINT p1;
  double par1;
  GE_POINT p2;
  double par2;
};

Nearest ToSegment(GE_POINT p, const LI_TAB_STRUCT &line) {
  const double t = LineParameter(line, p);
  if (line.ang_ap <= t && t <= line.ang_ep)
    return {CarrierDistance(line, p), LinePoint(line, t), t};
  const bool start = Norm2(p - line.ap) <= Norm2(p - line.ep);
  const GE_POINT end = start ? line.ap : line.ep;
  return {Dist(p, end), end, start ? line.ang_ap : line.ang_ep};
}

Nearest ToArc(GE_POINT p, const LI_TAB_STRUCT &arc) {
  Nearest n{};
  NearestOnArc(p, arc, n.dist, n.pt, n.par);
  return n;
}

using ToElement = Nearest (*)(GE_POINT, const LI_TAB_STRUCT &);

// The four end-point candidates in order: a's start and end against b,
// then b's start and end against a. A later one wins only when strictly
// nearer, so ties keep the earlier.
Pair EndCandidates(const LI_TAB_STRUCT &a, ToElement to_a, const LI_TAB_STRUCT &b, ToElement to_b) {
  const Nearest n1 = to_b(a.ap, b), n2 = to_b(a.ep, b), n3 = to_a(b.ap, a), n4 = to_a(b.ep, a);
  const Pair candidates[] = {{n1.dist, a.ap, a.ang_ap, n1.pt, n1.par},
                             {n2.dist, a.ep, a.ang_ep, n2.pt, n2.par},
                             {n3.dist, n3.pt, n3.par, b.ap, b.ang_ap},
                             {n4.dist, n4.pt, n4.par, b.ep, b.ang_ep}};
  Pair best = candidates[0];
  for (const Pair &c : candidates) {
    if (c.dist < best.dist) best = c;
  }
  return best;
}

Pair LineLine(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  // End points only: crossing segments get the nearest end's distance.
  return EndCandidates(a, ToSegment, b, ToSegment);
}

// The gap is the centre's distance from the carrier less the radius; the
// foot pair counts only when the carrier misses the circle. A full circle
// holds every angle, here and in ArcArc.
Pair LineArc(const LI_TAB_STRUCT &line, const LI_TAB_STRUCT &arc) {
  const double tol = Tol();
  const double t = LineParameter(line, arc.mp);
  const GE_POINT foot = LinePoint(line, t);
  const double angle = Angle(foot - arc.mp);
  const double centre_dist = CarrierDistance(line, arc.mp);
  if (line.ang_ap <= t && t <= line.ang_ep && AngleOnArc(angle, arc, tol, Bounds::kInclusive) &&
      !CoincidePerAxis(foot, arc.mp, tol) && centre_dist > arc.rad)
    return {centre_dist - arc.rad, foot, t, Polar(arc.mp, arc.rad, angle), angle};
  return EndCandidates(line, ToSegment, arc, ToArc);
}

// Overlapping or nested circles always take the end-point answer.
Pair ArcArc(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  const double tol = Tol();
  const double angle1 = Angle(b.mp - a.mp);
  const double angle2 = Angle(a.mp - b.mp);
  const double gap = Dist(a.mp, b.mp) - a.rad - b.rad;
  if (AngleOnArc(angle1, a, tol, Bounds::kInclusive) &&
      AngleOnArc(angle2, b, tol, Bounds::kInclusive) && !CoincidePerAxis(a.mp, b.mp, tol) &&
      gap > 0.0)
    return {gap, Polar(a.mp, a.rad, angle1), angle1, Polar(b.mp, b.rad, angle2), angle2};
  return EndCandidates(a, ToArc, b, ToArc);
}

void Write(const Nearest &n, double *dist, GE_POINT *pt, double *par) {
  *dist = n.dist;
  *pt = n.pt;
  *par = n.par;
}

void Write(const Pair &p, double *dist, GE_POINT *p1, double *par1, GE_POINT *p2, double *par2) {
  *dist = p.dist;
  *p1 = p.p1;
  *par1 = p.par1;
  *p2 = p.p2;
  *par2 = p.par2;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t GePtDrawDist(const GE_POINT *p, const LI_TAB_STRUCT *line, double *dist,
                                 GE_POINT *nearest, double *par) {
  if (p == nullptr || line == nullptr || dist == nullptr || nearest == nullptr || par == nullptr)
    return PA_INVALID;
  Write(ToSegment(*p, *line), dist, nearest, par);
  return PA_OK;
}

extern "C" uint16_t GePtArcDist(const GE_POINT *p, const LI_TAB_STRUCT *arc, double *dist,
                                GE_POINT *nearest, double *angle) {
  if (p == nullptr || arc == nullptr || dist == nullptr || nearest == nullptr || angle == nullptr)
    return PA_INVALID;
  Write(ToArc(*p, *arc), dist, nearest, angle);
  return PA_OK;
}

extern "C" uint16_t GePtElemDist(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *nearest,
                                 double *dist) {
  if (e == nullptr || p == nullptr || nearest == nullptr || dist == nullptr) return PA_INVALID;
  // Only type 1 is measured as a segment; a move goes the arc way.
  const Nearest n = e->type == LI_LINE ? ToSegment(*p, *e) : ToArc(*p, *e);
  *nearest = n.pt;
  *dist = n.dist;
  return PA_OK;
}

extern "C" uint16_t GeDrawDrawDist(const LI_TAB_STRUCT *l1, const LI_TAB_STRUCT *l2, double *dist,
                                   GE_POINT *p1, double *par1, GE_POINT *p2, double *par2) {
  if (l1 == nullptr || l2 == nullptr || dist == nullptr || p1 == nullptr || par1 == nullptr ||
      p2 == nullptr || par2 == nullptr)
    return PA_INVALID;
  Write(LineLine(*l1, *l2), dist, p1, par1, p2, par2);
  return PA_OK;
}

extern "C" uint16_t GeDrawArcDist(const LI_TAB_STRUCT *line, const LI_TAB_STRUCT *arc, double *dist,
                                  GE_POINT *pl, double *parl, GE_POINT *pa, double *anga) {
  if (line == nullptr || arc == nullptr || dist == nullptr || pl == nullptr || parl == nullptr ||
      pa == nullptr || anga == nullptr)
    return PA_INVALID;
  Write(LineArc(*line, *arc), dist, pl, parl, pa, anga);
  return PA_OK;
}

extern "C" uint16_t GeArcArcDist(const LI_TAB_STRUCT *a1, const LI_TAB_STRUCT *a2, double *dist,
                                 GE_POINT *p1, double *ang1, GE_POINT *p2, double *ang2) {
  if (a1 == nullptr || a2 == nullptr || dist == nullptr || p1 == nullptr || ang1 == nullptr ||
      p2 == nullptr || ang2 == nullptr)
    return PA_INVALID;
  Write(ArcArc(*a1, *a2), dist, p1, ang1, p2, ang2);
  return PA_OK;
}

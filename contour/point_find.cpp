// Finding the element of a contour that carries a point, in three variants
// that differ in their tolerance and in how they treat element ends, and
// the two pieces of contour that meet at a point.
#include <cmath>
#include <cstring>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The tolerances of one finder. The general finder admits 10 x tol across
// a line but only tol along it and around arcs; the uniform one uses eps
// everywhere except in its full-circle test.
struct CarryRule {
  double eps;          // distance from an arc's circle, end points, line range
  double line_band;    // distance across a line
  double circle_tol;   // ends within this per axis make an arc a full circle
  bool interior_only;  // end points do not count, arc ranges are strict
};

// A full circle carries every point of its circle; other arcs compare p's
// angle with their range exactly, the circle test having spent the
// tolerance.
bool ArcCarries(const LI_TAB_STRUCT &e, GE_POINT p, const CarryRule &rule) {
  if (std::fabs(Norm(p - e.mp) - std::fabs(e.rad)) >= rule.eps) return false;
  const double angle = Angle(p - e.mp);
  if (rule.interior_only) {
    // Only points farther than eps from both ends count; the caller has
    // already passed over points within eps per axis of an end.
    const double eps2 = rule.eps * rule.eps;
    if (Norm2(p - e.ap) <= eps2 || Norm2(p - e.ep) <= eps2) return false;
    return AngleOnArc(angle, e, rule.circle_tol, Bounds::kStrict);
  }
  if (CoincideByDistance(p, e.ep, rule.eps) || CoincideByDistance(p, e.ap, rule.eps)) return true;
  return AngleOnArc(angle, e, rule.circle_tol, Bounds::kInclusive);
}

bool LineCarries(const LI_TAB_STRUCT &e, GE_POINT p, const CarryRule &rule) {
  if (CarrierDistance(e, p) >= rule.line_band) return false;
  const double u = Dot(p, e.tan_ap);
  if (!(e.ang_ap - rule.eps < u && u < e.ang_ep + rule.eps)) return false;
  const bool at_end =
      CoincideByDistance(p, e.ep, rule.eps) || CoincideByDistance(p, e.ap, rule.eps);
  return (at_end && !rule.interior_only) || (e.ang_ap < u && u < e.ang_ep);
}

bool Carries(const LI_TAB_STRUCT &e, GE_POINT p, const CarryRule &rule) {
  if (IsLine(e)) return LineCarries(e, p, rule);
  if (IsArc(e)) return ArcCarries(e, p, rule);
  return false;
}

LI_TAB_STRUCT *FindCarrier(LI_TAB_STRUCT *k, GE_POINT p, const CarryRule &rule) {
  if (k == nullptr) return nullptr;
  const double tol = Tol();
  LI_TAB_STRUCT *e = k;
  do {
    const bool at_an_end =
        rule.interior_only && (CoincidePerAxis(p, e->ap, tol) || CoincidePerAxis(p, e->ep, tol));
    if (!at_an_end && Carries(*e, p, rule)) return e;
    e = e->next;
  } while (e != k);
  return nullptr;
}

LI_TAB_STRUCT *FindPt(LI_TAB_STRUCT *k, GE_POINT p) {
  const double tol = Tol();
  return FindCarrier(k, p, {tol, 10.0 * tol, tol, false});
}

// The geometric part of an element, which is all that a caller's
// GE_LI_ELEM holds; an element record begins with exactly those fields.
void CopyGeometry(const LI_TAB_STRUCT &from, GE_LI_ELEM &to) {
  std::memcpy(static_cast<void *>(&to), &from, sizeof to);
}

struct Pieces {
  GE_LI_ELEM &before;
  GE_LI_ELEM &after;
  LI_TAB_STRUCT *&pbefore;
  LI_TAB_STRUCT *&pafter;
};

// p is e's start: e follows p, and e's predecessor leads to it unless a
// gap separates them (p opens an open stretch).
uint16_t PiecesAtStart(LI_TAB_STRUCT *e, Pieces &out) {
  out.pafter = e;
  out.pbefore = LiLastElem(e->prev) != 0 ? nullptr : e->prev;
  CopyGeometry(*e, out.after);
  if (out.pbefore != nullptr) CopyGeometry(*out.pbefore, out.before);
  return PA_OK;
}

uint16_t PiecesAtEnd(LI_TAB_STRUCT *e, Pieces &out) {
  out.pafter = LiLastElem(e) != 0 ? nullptr : e->next;
  CopyGeometry(*e, out.before);
  if (out.pafter != nullptr) CopyGeometry(*out.pafter, out.after);
  return PA_OK;
}

// p lies inside e: both pieces are e, cut at p in the caller's records.
uint16_t PiecesInside(LI_TAB_STRUCT *e, GE_POINT p, Pieces &out) {
  out.pafter = e;
  LI_TAB_STRUCT head = *e;
  LI_TAB_STRUCT tail = *e;
  head.ep = p;
  tail.ap = p;
  const uint16_t status = LiElemExpand(&head);
  CopyGeometry(head, out.before);
  if (status != PA_OK) {
    // The second piece is handed out cut but not recomputed.
    CopyGeometry(tail, out.after);
    return status;
  }
  const uint16_t tail_status = LiElemExpand(&tail);
  CopyGeometry(tail, out.after);
  return tail_status;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" LI_TAB_STRUCT *LiKontFindPt(LI_TAB_STRUCT *k, const GE_POINT *p) {
  if (p == nullptr) return nullptr;
  return FindPt(k, *p);
}

extern "C" LI_TAB_STRUCT *LiKontFindPtIgnoreApEp(LI_TAB_STRUCT *k, const GE_POINT *p) {
  if (p == nullptr) return nullptr;
  const double tol = Tol();
  return FindCarrier(k, *p, {tol, 10.0 * tol, tol, true});
}

extern "C" LI_TAB_STRUCT *LiKontFindPtUniformDistEpsi(LI_TAB_STRUCT *k, const GE_POINT *p,
                                                      double eps) {
  if (p == nullptr) return nullptr;
  return FindCarrier(k, *p, {eps, eps, Tol(), false});
}

extern "C" uint16_t LiKontNextElem(LI_TAB_STRUCT *k, const GE_POINT *p, GE_LI_ELEM *before,
                                   GE_LI_ELEM *after, LI_TAB_STRUCT **pbefore,
                                   LI_TAB_STRUCT **pafter) {
  if (pbefore != nullptr) *pbefore = nullptr;
  if (pafter != nullptr) *pafter = nullptr;
  if (p == nullptr || before == nullptr || after == nullptr || pbefore == nullptr ||
      pafter == nullptr)
    return PA_INVALID;
  LI_TAB_STRUCT *e = FindPt(k, *p);
  *pbefore = e;
  if (e == nullptr) return PA_IMPOSSIBLE;
  Pieces out{*before, *after, *pbefore, *pafter};
  const double tol = Tol();
  if (CoincidePerAxis(*p, e->ap, tol)) return PiecesAtStart(e, out);
  if (CoincidePerAxis(*p, e->ep, tol)) return PiecesAtEnd(e, out);
  return PiecesInside(e, *p, out);
}

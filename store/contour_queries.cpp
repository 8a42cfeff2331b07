// Small questions about contours and neighbouring elements: membership,
// counts, order, the side on which one element leaves another, whether a
// contour is one full circle, and gaps.
#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Same type, centre and radius as the reference arc, each within tol.
bool SameCircle(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &ref, double tol) {
  const double dr = e.rad - ref.rad;
  return e.type == ref.type && CoincidePerAxis(e.mp, ref.mp, tol) && dr < tol && -dr < tol;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" int LiElemInKont(const LI_TAB_STRUCT *k, const LI_TAB_STRUCT *e) {
  if (k == nullptr) return 0;
  const LI_TAB_STRUCT *x = k;
  do {
    if (x == e) return 1;
    x = x->next;
  } while (x != k);
  return 0;
}

extern "C" uint32_t LiCountElem(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return 0;
  uint32_t n = 0;
  const LI_TAB_STRUCT *e = k;
  do {
    ++n;
    e = e->next;
  } while (e != k);
  return n;
}

extern "C" int LiUtVorNach(const LI_TAB_STRUCT *k, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b) {
  if (k == nullptr) return 1;
  const LI_TAB_STRUCT *e = k;
  do {
    // b is looked at first, so a == b counts as b met first.
    if (e == b) return 0;
    if (e == a) return 1;
    e = e->next;
  } while (e != k);
  return 1;
}

extern "C" int16_t LiNextSide(const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b) {
  if (a == nullptr || b == nullptr) return 0;
  const double z = Cross(a->tan_ep, b->tan_ap);
  if (z > kParallelSine) return 1;
  if (z < -kParallelSine) return -1;
  if (IsLine(*b)) return 0;
  // Parallel tangents: the arc's own turn decides, reversed when it
  // starts backwards.
  const bool forwards = Dot(a->tan_ep, b->tan_ap) >= 0.0;
  const bool left = b->type == LI_ARC_CCW;
  return left == forwards ? 1 : -1;
}

extern "C" int LiCheckRund(const LI_TAB_STRUCT *k) {
  if (k == nullptr || !IsArc(*k)) return 0;
  const double tol = Tol();
  if (!CoincidePerAxis(k->ap, k->prev->ep, tol)) return 0;
  for (const LI_TAB_STRUCT *e = k->next; e != k; e = e->next) {
    if (!SameCircle(*e, *k, tol)) return 0;
  }
  return 1;
}

extern "C" int LiLastElem(const LI_TAB_STRUCT *e) {
  if (e == nullptr) return 0;
  return CoincidePerAxis(e->ep, e->next->ap, Tol()) ? 0 : 1;
}

extern "C" uint16_t LiNormPt(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *out) {
  if (e == nullptr || p == nullptr || out == nullptr) return PA_OK;
  const double u = Dot(*p - e->ap, e->tan_ap);
  *out = e->ap + u * e->tan_ap;
  return PA_OK;
}

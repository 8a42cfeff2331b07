// The smallest distance from a point to a contour and between two
// contours, from the element distances of the geometry layer, with the
// tie rules that decide which element or pair is reported.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// What one element, or one pair of elements, contributes.
struct Reach {
  double dist = 0.0;
  GE_POINT foot_a{};
  double aux_a = 0.0;
  GE_POINT foot_b{};
  double aux_b = 0.0;
};

uint16_t PointElementDist(const LI_TAB_STRUCT &e, GE_POINT p, Reach &r) {
  if (IsLine(e)) return GePtDrawDist(&p, &e, &r.dist, &r.foot_a, &r.aux_a);
  return GePtArcDist(&p, &e, &r.dist, &r.foot_a, &r.aux_a);
}

// Everything that is not a line or a move is measured as an arc.
uint16_t PairDist(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b, Reach &r) {
  if (IsLine(a) && IsLine(b))
    return GeDrawDrawDist(&a, &b, &r.dist, &r.foot_a, &r.aux_a, &r.foot_b, &r.aux_b);
  if (IsLine(a)) return GeDrawArcDist(&a, &b, &r.dist, &r.foot_a, &r.aux_a, &r.foot_b, &r.aux_b);
  if (IsLine(b)) return GeDrawArcDist(&b, &a, &r.dist, &r.foot_b, &r.aux_b, &r.foot_a, &r.aux_a);
  return GeArcArcDist(&a, &b, &r.dist, &r.foot_a, &r.aux_a, &r.foot_b, &r.aux_b);
}

// The best pair so far. A pair replaces it only when nearer by more than
// half the tolerance, so of (nearly) equally near pairs the first offered
// is kept, and the result depends on the order in which pairs are offered.
// MayImprove is also the exact test for leaving a pair out: a spatial
// index may skip every pair whose distance is known to be at least a bound
// for which MayImprove(bound) is false, and gives the same result as long
// as it offers the remaining pairs in the order of ForEachPair.
class NearestPair {
 public:
  explicit NearestPair(double tol) : half_tol_(0.5 * tol) {}

  bool MayImprove(double dist) const { return a_ == nullptr || dist + half_tol_ < best_.dist; }

  void Offer(const Reach &r, LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
    if (!MayImprove(r.dist)) return;
    best_ = r;
    a_ = a;
    b_ = b;
  }

  const Reach &best() const { return best_; }
  LI_TAB_STRUCT *a() const { return a_; }
  LI_TAB_STRUCT *b() const { return b_; }

 private:
  double half_tol_;
  Reach best_;
  LI_TAB_STRUCT *a_ = nullptr;
  LI_TAB_STRUCT *b_ = nullptr;
};

// Calls visit(a, b) for every pair, A's elements in chain order and for
// each of them B's in chain order, until visit returns a status.
template <class Visit>
uint16_t ForEachPair(LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb, Visit visit) {
  LI_TAB_STRUCT *a = ka;
  do {
    LI_TAB_STRUCT *b = kb;
    do {
      if (const uint16_t status = visit(a, b); status != PA_OK) return status;
      b = b->next;
    } while (b != kb);
    a = a->next;
  } while (a != ka);
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiPtKontDist(LI_TAB_STRUCT *k, const GE_POINT *p, GE_POINT *foot,
                                 LI_TAB_STRUCT **elem, double *dist, double *aux) {
  if (k == nullptr || p == nullptr || foot == nullptr || elem == nullptr || dist == nullptr ||
      aux == nullptr)
    return PA_INVALID;
  LI_TAB_STRUCT *e = k;
  uint16_t status = PA_OK;
  do {
    Reach r;
    status = PointElementDist(*e, *p, r);
    if (status != PA_OK) break;
    // Not greater: of equally near elements the later one wins.
    if (e == k || r.dist <= *dist) {
      *dist = r.dist;
      *foot = r.foot_a;
      *aux = r.aux_a;
      *elem = e;
    }
    e = e->next;
  } while (e != k);
  return status;
}

extern "C" uint16_t LiKontKontDist(LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb, GE_POINT *foot_a,
                                   LI_TAB_STRUCT **elem_a, double *aux_a, GE_POINT *foot_b,
                                   LI_TAB_STRUCT **elem_b, double *aux_b, double *dist) {
  if (ka == nullptr || kb == nullptr || foot_a == nullptr || elem_a == nullptr ||
      aux_a == nullptr || foot_b == nullptr || elem_b == nullptr || aux_b == nullptr ||
      dist == nullptr)
    return PA_INVALID;
  NearestPair nearest(Tol());
  const uint16_t status = ForEachPair(ka, kb, [&nearest](LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
    Reach r;
    const uint16_t pair_status = PairDist(*a, *b, r);
    if (pair_status == PA_OK) nearest.Offer(r, a, b);
    return pair_status;
  });
  if (nearest.a() != nullptr) {
    const Reach &best = nearest.best();
    *dist = best.dist;
    *foot_a = best.foot_a;
    *aux_a = best.aux_a;
    *foot_b = best.foot_b;
    *aux_b = best.aux_b;
    *elem_a = nearest.a();
    *elem_b = nearest.b();
  }
  return status;
}

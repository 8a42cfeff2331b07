// Small pair tests used by the line offsetting: which way one element turns
// off another at a common point, and whether two elements share a carrier.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// -1, 0 or +1 by comparison with eps.
int SignBeyond(double v, double eps) { return v > eps ? 1 : (v < -eps ? -1 : 0); }

// Curvature with the sign of GeKruem: positive for counter-clockwise arcs.
double Curvature(const LI_TAB_STRUCT &e) {
  if (e.type == LI_ARC_CCW) return 1.0 / e.rad;
  if (e.type == LI_ARC_CW) return -1.0 / e.rad;
  return 0.0;
}

int16_t TangentSide(const LI_TAB_STRUCT &e1, GE_POINT t1, const LI_TAB_STRUCT &e2, GE_POINT t2,
                    bool swap) {
  const double tol = Tol();
  const double cross = Cross(t1, t2);
  if (cross < -tol) return swap ? 1 : -1;
  if (cross > tol) return swap ? -1 : 1;
  // Parallel tangents: the curvatures decide; the swap does not apply here.
  const int s = SignBeyond(Dot(t1, t2), tol);
  return static_cast<int16_t>(SignBeyond(Curvature(e1) - s * Curvature(e2), tol));
}

// Two lines lie on one carrier when they are parallel either way and their
// carriers' constants agree once the second is turned to the first's
// normal (n.p = c and -n.p = -c are one line).
bool SameLineCarrier(const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2) {
  if (GeElemTestParallel(&e1, &e2) == 0) return false;
  const double c2 = Dot(e1.mp, e2.mp) < 0.0 ? -e2.rad : e2.rad;
  return std::fabs(e1.rad - c2) < Tol();
}

bool SameCircle(const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2) {
  const double tol = Tol();
  return std::fabs(e1.rad - e2.rad) < tol && CoincidePerAxis(e1.mp, e2.mp, tol);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" int16_t FlTangSide(const void *, const LI_TAB_STRUCT *e1, const GE_POINT *t1,
                              const LI_TAB_STRUCT *e2, const GE_POINT *t2, int32_t swap) {
  if (e1 == nullptr || t1 == nullptr || e2 == nullptr || t2 == nullptr) return 0;
  return TangentSide(*e1, *t1, *e2, *t2, swap != 0);
}

extern "C" uint16_t FlParaTest(const void *, const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2) {
  if (e1 == nullptr || e2 == nullptr) return 0;
  if (IsLine(*e1) && IsLine(*e2)) return SameLineCarrier(*e1, *e2) ? 1 : 0;
  if (IsArc(*e1) && IsArc(*e2)) return SameCircle(*e1, *e2) ? 1 : 0;
  return 0;
}

// The last repair of a raw offset: tiny elements go and the joints are
// closed again (LiKorrKont), with long arcs whose ends nearly meet kept.
#include "offset/repair.h"

#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The repair's own threshold: elements whose chord is below it go.
double RepairLimit() { return 10.0 * Tol(); }

bool NearlyClosedArc(const LI_TAB_STRUCT &e, double limit) {
  return IsArc(e) && Dist(e.ap, e.ep) < limit && TravelSweep(e) * std::fabs(e.rad) >= limit;
}

// Cuts arc e at its middle; the second half follows it. The middle is
// found from where the ends really lie on the circle: an arc offset past
// its centre has a negative radius and may still carry its source's end
// angles.
uint16_t Halve(LI_HEAD *head, LI_TAB_STRUCT *e) {
  LI_TAB_STRUCT *half = LiNewNoInit(head);
  if (half == nullptr) return PA_NO_MEMORY;
  *half = *e;
  const double from = Angle(e->ap - e->mp), to = Angle(e->ep - e->mp);
  const double sense = e->type == LI_ARC_CW ? -1.0 : 1.0;
  const double middle = from + sense * 0.5 * SweepInSense(e->type, from, to);
  const GE_POINT m = Polar(e->mp, std::fabs(e->rad), middle);
  e->ep = m;
  half->ap = m;
  half->next = half->prev = half;
  LiChain(e, half);
  LiElemExpand(e);
  LiElemExpand(half);
  return PA_OK;
}

uint16_t RepairOffset(LI_HEAD *head, LI_TAB_STRUCT **k, bool closed) {
  if (*k != nullptr && (*k)->next != *k) {
    const double limit = RepairLimit();
    LI_TAB_STRUCT *e = *k;
    do {
      LI_TAB_STRUCT *next = e->next;
      if (NearlyClosedArc(*e, limit)) {
        if (const uint16_t status = Halve(head, e); status != PA_OK) return status;
      }
      e = next;
    } while (e != *k);
  }
  return LiKorrKont(head, k, closed ? 1 : 0);
}

}  // namespace

uint16_t FinishOffset(LI_HEAD *head, LI_TAB_STRUCT **out, uint16_t status, bool closed,
                      uint16_t mode) {
  if (status == PA_OK && *out != nullptr && mode != FL_CORNER_GAP)
    status = RepairOffset(head, out, closed);
  if (status == PA_OK && *out == nullptr) status = PA_INVALID;
  if (status != PA_OK) LiRemove(head, out);
  return status;
}

}  // namespace polyarc

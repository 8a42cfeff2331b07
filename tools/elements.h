// Small questions about elements that several parts of the program ask,
// answered with the library's rules.
#pragma once

#include <cmath>

#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc_tool {

// The library's rule for coinciding points: both differences below tol.
inline bool Coincide(GE_POINT a, GE_POINT b) {
  const double tol = GeEpsiGetTol();
  return std::fabs(a.x - b.x) < tol && std::fabs(a.y - b.y) < tol;
}

inline bool IsArc(const LI_TAB_STRUCT *e) { return e->type == LI_ARC_CW || e->type == LI_ARC_CCW; }

// An arc whose ends coincide runs once round its whole circle.
inline bool IsFullCircle(const LI_TAB_STRUCT *e) { return IsArc(e) && Coincide(e->ap, e->ep); }

// The point of e's circle opposite its start.
inline GE_POINT OppositeOnCircle(const LI_TAB_STRUCT *e) {
  return {2 * e->mp.x - e->ap.x, 2 * e->mp.y - e->ap.y};
}

// e and its successor are drawn (not moves) and meet without a gap.
inline bool JoinsNext(const LI_TAB_STRUCT *e) {
  return e->type != LI_MOVE && e->next->type != LI_MOVE && LiLastElem(e) == 0;
}

}  // namespace polyarc_tool

// Repairs after computation: moving a contour's start onto a given point,
// and removing tiny or short elements and re-joining what is left.
#include <cmath>

#include "contour/new_line.h"
#include "geom/predicates.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

bool SameDirection(GE_POINT a, GE_POINT b, double tol) { return CoincidePerAxis(a, b, tol); }

// p lies on the tangent line at e's start: a line is lengthened or
// shortened to p, anything else gets a new line from p in front of it.
uint16_t CorrectAlongTangent(LI_HEAD *head, LI_TAB_STRUCT **kont, GE_POINT p) {
  LI_TAB_STRUCT *e = *kont;
  if (IsLine(*e)) {
    e->ap = p;
    return LiElemExpand(e);
  }
  LI_TAB_STRUCT *line = nullptr;
  if (const uint16_t status = NewExpandedLine(head, p, e->ap, line); status != PA_OK)
    return status;
  SpliceBefore(e, line);
  *kont = line;
  return PA_OK;
}

// p is off the tangent line: only an arc whose circle carries p can move
// its start there, and not onto its own end.
uint16_t CorrectOnCircle(LI_TAB_STRUCT *e, GE_POINT p, double tol) {
  if (!IsArc(*e)) return PA_IMPOSSIBLE;
  if (std::fabs(Norm(p - e->mp) - e->rad) >= tol) return PA_IMPOSSIBLE;
  if (CoincidePerAxis(p, e->ep, tol)) return PA_IMPOSSIBLE;
  e->ap = p;
  return LiElemExpand(e);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiKorrElem(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p) {
  if (kont == nullptr || p == nullptr) return PA_INVALID;
  LI_TAB_STRUCT *e = *kont;
  const double tol = Tol();
  if (e == nullptr || CoincidePerAxis(*p, e->ap, tol)) return PA_OK;
  const GE_POINT u = (1.0 / Norm(e->ap - *p)) * (e->ap - *p);
  if (SameDirection(e->tan_ap, u, tol) || SameDirection(e->tan_ap, -u, tol))
    return CorrectAlongTangent(head, kont, *p);
  return CorrectOnCircle(e, *p, tol);
}

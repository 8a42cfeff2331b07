// Drawing contours the way a pen plotter does: a move to a start point,
// then lines and arcs that each start where the previous element ended.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The element that the next stroke fills: a trailing move is reused in
// place (so a move and a draw make one line), else a new element starting
// at the contour's end is appended.
uint16_t NextStroke(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *&e) {
  LI_TAB_STRUCT *last = (*kont)->prev;
  if (last->type == LI_MOVE) {
    e = last;
    return PA_OK;
  }
  if (const uint16_t status = LiEnlarge(head, kont, &e); status != PA_OK) return status;
  e->ap = last->ep;
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiMove(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p) {
  if (kont == nullptr || p == nullptr) return PA_INVALID;
  if (*kont != nullptr && CoincidePerAxis(*p, (*kont)->prev->ep, Tol())) return PA_OK;
  LI_TAB_STRUCT *e = nullptr;
  if (const uint16_t status = LiEnlarge(head, kont, &e); status != PA_OK) return status;
  e->type = LI_MOVE;
  e->ap = e->ep = *p;
  return PA_OK;
}

extern "C" uint16_t LiDraw(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p) {
  if (kont == nullptr || *kont == nullptr || p == nullptr) return PA_INVALID;
  if (CoincidePerAxis(*p, (*kont)->prev->ep, Tol())) return PA_OK;
  LI_TAB_STRUCT *e = nullptr;
  if (const uint16_t status = NextStroke(head, kont, e); status != PA_OK) return status;
  e->ep = *p;
  e->type = LI_LINE;
  return LiElemExpand(e);
}

extern "C" uint16_t LiDrawNew(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p1,
                              const GE_POINT *p2) {
  if (kont == nullptr || p1 == nullptr || p2 == nullptr) return PA_INVALID;
  LiRemove(head, kont);
  LI_TAB_STRUCT *e = nullptr;
  if (LiNew(head, &e) != PA_OK) return PA_NO_MEMORY;
  e->type = LI_LINE;
  e->ap = *p1;
  e->ep = *p2;
  *kont = e;
  return LiElemExpand(e);
}

extern "C" uint16_t LiArc(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p,
                          const GE_POINT *cen, int32_t dir) {
  if (kont == nullptr || *kont == nullptr || p == nullptr || cen == nullptr) return PA_INVALID;
  const double tol = Tol();
  const GE_POINT start = (*kont)->prev->ep;
  const double r_end = Dist(*p, *cen);
  if (std::fabs(Dist(start, *cen) - r_end) > tol) return PA_INVALID;
  if (CoincidePerAxis(*p, start, tol)) return PA_OK;
  LI_TAB_STRUCT *e = nullptr;
  if (const uint16_t status = NextStroke(head, kont, e); status != PA_OK) return status;
  e->ep = *p;
  e->mp = *cen;
  e->rad = (Dist(e->ap, *cen) + r_end) * 0.5;
  // Only zero versus non-zero matters: a negative dir is clockwise too.
  e->type = dir != 0 ? LI_ARC_CW : LI_ARC_CCW;
  return LiElemExpand(e);
}

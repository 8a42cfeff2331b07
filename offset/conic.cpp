// The conic offset of a contour: each element offset by a distance that
// changes linearly from its start to its end, neighbours trimmed or
// extended to their crossing where they are lines, else bridged by a line.
#include <cstdint>

#include "geom/predicates.h"
#include "offset/corner_joins.h"
#include "offset/repair.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// The conic join has no connector counter of its own: counting from the
// largest value makes its connecting lines carry number 0.
constexpr uint16_t kConnectorCount = UINT16_MAX;

// Two lines crossing on both, or beyond the first's end and before the
// second's start, meet at their crossing; the expansions only recompute
// (a trimmed line of zero length is then skipped on insertion).
bool MeetAtCrossing(LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2) {
  IsectPoint found[2]{};
  if (GeCross(&e1, &e2, &found[0], &found[1]) == 0) return false;
  const IsectPoint &q = found[0];
  const bool on_both = q.pos1 < GE_BEFORE && q.pos2 < GE_BEFORE;
  if (!on_both && !(q.pos1 == GE_BEYOND && q.pos2 == GE_BEFORE)) return false;
  e1.ep = e2.ap = {q.x, q.y};
  LiElemExpand(&e1);
  LiElemExpand(&e2);
  return true;
}

uint16_t ConicJoin(LI_HEAD *head, LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2, int16_t side,
                   LI_TAB_STRUCT **out) {
  if (side == 0 || CoincidePerAxis(e1.ep, e2.ap, Tol())) return LiInsertElem(head, out, &e1);
  if (IsLine(e1) && IsLine(e2) && MeetAtCrossing(e1, e2)) return LiInsertElem(head, out, &e1);
  uint16_t counter = kConnectorCount;
  const JoinArgs a{head, {0.0, 0.0}, side, 0.0, out, &counter};
  return ConnectWithMoveOrDraw(a, e1, e2, true);
}

struct Conic {
  LI_HEAD *head;
  const LI_TAB_STRUCT *source;
  int16_t side;
  const double *dist;
  LI_TAB_STRUCT **out;
};

// Offsets every element with its pair of distances and joins each to the
// next; `last` receives the last element's offset, not yet appended.
uint16_t OffsetAndJoin(const Conic &c, LI_TAB_STRUCT &last) {
  last = *c.source;
  if (const uint16_t status = LiConicElem(&last, c.side, c.dist[0], c.dist[1]); status != PA_OK)
    return status;
  const double *pair = c.dist + 2;
  for (const LI_TAB_STRUCT *e = c.source->next; e != c.source; e = e->next, pair += 2) {
    LI_TAB_STRUCT cur = *e;
    if (const uint16_t status = LiConicElem(&cur, c.side, pair[0], pair[1]); status != PA_OK)
      return status;
    if (const uint16_t status = ConicJoin(c.head, last, cur, c.side, c.out); status != PA_OK)
      return status;
    last = cur;
  }
  return PA_OK;
}

uint16_t Finish(const Conic &c, LI_TAB_STRUCT &last, bool closed) {
  if (*c.out == nullptr) return NewResultFrom(c.head, last, c.out);
  if (!closed) return LiInsertElem(c.head, c.out, &last);
  // The result's first element takes part as the second of the last join,
  // and its moved start is written back into it.
  LI_TAB_STRUCT first = **c.out;
  if (const uint16_t status = ConicJoin(c.head, last, first, c.side, c.out); status != PA_OK)
    return status;
  CopyGeometry(**c.out, first);
  return PA_OK;
}

uint16_t ConicOffset(const Conic &c, bool closed, uint16_t mode) {
  LI_TAB_STRUCT last{};
  uint16_t status = OffsetAndJoin(c, last);
  if (status == PA_OK) status = Finish(c, last, closed);
  return FinishOffset(c.head, c.out, status, closed, mode);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlConicJoin(LI_HEAD *head, const void *, const void *, LI_TAB_STRUCT *e1,
                                LI_TAB_STRUCT *e2, uint16_t side, LI_TAB_STRUCT **out) {
  if (head == nullptr || e1 == nullptr || e2 == nullptr || out == nullptr) return PA_INVALID;
  return ConicJoin(head, *e1, *e2, static_cast<int16_t>(side), out);
}

extern "C" uint16_t FlConic(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                            const double *dist, const void *, LI_TAB_STRUCT **out, uint32_t closed,
                            uint16_t mode) {
  if (head == nullptr || out == nullptr) return PA_INVALID;
  SetCornerMode(mode);
  *out = nullptr;
  if (k == nullptr || dist == nullptr) return PA_INVALID;
  const Conic c{head, k, static_cast<int16_t>(side), dist, out};
  return ConicOffset(c, closed != 0, mode);
}

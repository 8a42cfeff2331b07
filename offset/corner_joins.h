// The corner joins of the parallel offset and the process-wide corner mode
// they read. The mode is set by the operations that run the joins
// (FlParallel, FlConic) and stays set after them.
#pragma once

#include <cstring>

#include "polyarc/records.h"

namespace polyarc {

void SetCornerMode(uint16_t mode);
uint16_t CornerMode();

// Copies the geometric part (type through ang_ep) of an element, not its
// links or payload.
inline void CopyGeometry(LI_TAB_STRUCT &to, const LI_TAB_STRUCT &from) {
  std::memcpy(static_cast<void *>(&to), &from, sizeof(GE_LI_ELEM));
}

// A one-element result in a record of its own (LiInsertElem would skip a
// full circle): e's geometry and payload, mark 0. PA_NO_MEMORY when no
// record can be had.
uint16_t NewResultFrom(LI_HEAD *head, const LI_TAB_STRUCT &e, LI_TAB_STRUCT **out);

// What every join step shares: the store, the source corner that round
// corners turn about, the side (+1 left, -1 right), the distance (the
// radius of round corners), the result and the connector counter.
struct JoinArgs {
  LI_HEAD *head;
  GE_POINT centre;
  int16_t side;
  double distance;
  LI_TAB_STRUCT **out;
  uint16_t *counter;
};

// Each join step appends e1 to the result (LiInsertElem: e1 is skipped
// when its ends coincide), followed by at most one connector numbered by
// the counter, and may move e1's end and e2's start before that. A
// non-zero status (store exhaustion, or the expansion of an element that
// a trim made degenerate) ends the step.

// e1, then a line (draw) or a move from e1's end to e2's start.
uint16_t ConnectWithMoveOrDraw(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2,
                               bool draw);
// e1, then an arc of the given distance about the source corner.
uint16_t FlConElemArc(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2);
// e1 alone where the path turns by less than a right angle, else a round
// corner.
uint16_t FlConElemBlunt(const JoinArgs &a, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2);
// Both trimmed or extended to their crossing (the second one when there
// are two and select is 1); o1 and o2 are the source elements or null.
uint16_t FlConElemIsect(const JoinArgs &a, LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2,
                        const LI_TAB_STRUCT *o1, const LI_TAB_STRUCT *o2, uint16_t select);
// The path runs on with parallel tangents or turns back on itself.
uint16_t FlConElemReverse(const JoinArgs &a, LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2);
// Chooses the join for the corner between source elements o1 and o2.
uint16_t FlConElemCorner(const JoinArgs &a, const LI_TAB_STRUCT &o1, const LI_TAB_STRUCT &o2,
                         LI_TAB_STRUCT &e1, LI_TAB_STRUCT &e2);

}  // namespace polyarc

// The parallel offset of a contour: every element moved sideways by the
// distance, neighbours joined at each corner in the corner mode, the chain
// repaired at the end.
#include <cmath>

#include "geom/predicates.h"
#include "offset/corner_joins.h"
#include "offset/repair.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

struct Offset {
  LI_HEAD *head;
  const LI_TAB_STRUCT *source;
  int16_t side;
  double distance;
  bool per_elem;
  bool closed;
  LI_TAB_STRUCT **out;
  uint16_t *counter;

  JoinArgs Join() const { return {head, {0.0, 0.0}, side, distance, out, counter}; }

  // The element's offset copy; links are not used.
  LI_TAB_STRUCT Moved(const LI_TAB_STRUCT &e) const {
    LI_TAB_STRUCT moved = e;
    LiParElem(&moved, side, per_elem ? e.attr_val : distance);
    return moved;
  }
};

// The working pair at the corner being joined: the previous source element
// and its offset (whose start an earlier join may have moved).
struct Pair {
  LI_TAB_STRUCT source;
  LI_TAB_STRUCT offset;
};

// Joins every corner from the first element's end up to the last
// element's start. Store exhaustion is returned; any other failing join
// ends the walk without a status, deliberately: what was joined so far is
// finished as the result.
uint16_t Walk(const Offset &o, Pair &prev) {
  for (const LI_TAB_STRUCT *e = o.source->next; e != o.source; e = e->next) {
    Pair cur{*e, o.Moved(*e)};
    const uint16_t status =
        FlConElemCorner(o.Join(), prev.source, cur.source, prev.offset, cur.offset);
    if (status == PA_NO_MEMORY) return status;
    if (status != PA_OK) break;
    prev = cur;
  }
  return PA_OK;
}

// The corner between the last element and the first: the result's first
// element takes part as the second offset, and its moved start is written
// back into it.
uint16_t CloseLastCorner(const Offset &o, Pair &prev) {
  LI_TAB_STRUCT first = **o.out;
  if (const uint16_t status = FlConElemCorner(o.Join(), prev.source, *o.source, prev.offset, first);
      status != PA_OK) {
    return status;
  }
  CopyGeometry(**o.out, first);
  return PA_OK;
}

uint16_t OffsetAndJoin(const Offset &o) {
  Pair prev{*o.source, o.Moved(*o.source)};
  if (const uint16_t status = Walk(o, prev); status != PA_OK) return status;
  if (*o.out == nullptr) return NewResultFrom(o.head, prev.offset, o.out);
  if (o.closed) return CloseLastCorner(o, prev);
  return LiInsertElem(o.head, o.out, &prev.offset);
}

uint16_t Parallel(Offset o, uint16_t mode) {
  // A negative distance offsets to the other side; the joins need the side
  // the elements really move to and a positive radius for round corners.
  if (o.distance < 0.0) {
    o.distance = -o.distance;
    o.side = static_cast<int16_t>(-o.side);
  }
  const bool copy = o.side == 0 || o.distance < Tol();
  const uint16_t status = copy ? LiCopy(o.head, o.source, o.out) : OffsetAndJoin(o);
  return FinishOffset(o.head, o.out, status, o.closed, mode);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlParallel(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                               LI_TAB_STRUCT **out, uint32_t closed, uint16_t mode,
                               uint16_t *counter, uint16_t per_elem) {
  if (head == nullptr || out == nullptr || counter == nullptr) return PA_INVALID;
  *out = nullptr;
  SetCornerMode(mode);
  if (k == nullptr) return PA_INVALID;
  const Offset o{head, k, static_cast<int16_t>(side), d, per_elem != 0, closed != 0, out, counter};
  return Parallel(o, mode);
}

// The offsets with their self-crossing loops cut off: which way the offset
// goes (outward, inward, open), the raw offset, the loop clean-up, and the
// choice of what is kept.
#include <cmath>
#include <initializer_list>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

constexpr uint16_t kOutward = 1, kInward = 2, kOpen = 3;

// Which way an offset to `side` goes from contour k, and the orientation
// the kept loops must have.
struct Kind {
  bool closed;
  uint16_t kind;
  int16_t sign;
};

Kind KindOf(const LI_TAB_STRUCT *k, int16_t side, bool examine) {
  if (!examine || LiTestClosed(k) == 0)
    return {false, kOpen, static_cast<int16_t>(side == -1 ? -1 : 1)};
  const double area = LiKontArea(k);
  const bool outward = (area > 0.0 && side == -1) || (area <= 0.0 && side == 1);
  return {true, outward ? kOutward : kInward, static_cast<int16_t>(area <= 0.0 ? -1 : 1)};
}

// An open offset loses the arcs that collapsed (negative radius) at its
// start and its end. PA_INVALID when nothing is left.
uint16_t DropCollapsedEnds(LI_HEAD *head, LI_TAB_STRUCT **k) {
  for (const bool at_start : {true, false}) {
    LI_TAB_STRUCT *end = at_start ? *k : (*k)->prev;
    if (IsArc(*end) && end->rad < 0.0) LiDel(head, k, end);
    if (*k == nullptr) return PA_INVALID;
  }
  return PA_OK;
}

// Arcs whose ends coincide within tol in a result of several elements are
// tiny arcs shrunk by the offset, not circles: read as full circles they
// would cross the result far away from where they are.
void RemovePhantomArcs(LI_HEAD *head, LI_TAB_STRUCT **k) {
  if (*k == nullptr) return;
  const double tol = Tol();
  LI_TAB_STRUCT *e = *k;
  size_t n = LiCountElem(*k);
  for (size_t i = 0; i < n && (*k)->next != *k; ++i) {
    LI_TAB_STRUCT *next = e->next;
    if (IsArc(*e) && CoincidePerAxis(e->ap, e->ep, tol)) LiDel(head, k, e);
    e = next;
  }
}

// The orientation of a closed result, 0 when its area is within tol of 0.
// A lone circle with a negative radius is an offset that passed the
// circle's centre: there is nothing left of it. A lone element whose ends
// differ is what a walk leaves that stopped at its first corner (the
// neighbour trimmed to nothing, as when an inward offset shrinks the
// contour to a point): no closed offset either, whatever its area says.
int16_t Orientation(const LI_TAB_STRUCT *k) {
  const double tol = Tol();
  if (k->next == k && IsArc(*k) && k->rad < 0.0) return 0;
  if (k->next == k && !CoincidePerAxis(k->ap, k->ep, tol)) return 0;
  const double area = LiKontArea(k);
  return static_cast<int16_t>(area > tol ? 1 : area < -tol ? -1 : 0);
}

struct Cleaned {
  LI_TAB_STRUCT *work = nullptr;
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = FL_EMPTY;
  uint32_t no_cross = 1;
};

// Picks the result from what the clean-up left: the uncrossed offset (a
// closed one only when it kept the contour's orientation: one that turned
// round went deeper than the contour allows), the first loop of an inward
// offset, else the loop the clean-up handed back.
void Choose(LI_HEAD *head, const Kind &kind, Cleaned &c, LI_TAB_STRUCT **out) {
  if (c.no_cross != 0) {
    if (!kind.closed || Orientation(c.work) == kind.sign) {
      *out = c.work;
      c.work = nullptr;
    }
    return;
  }
  if (kind.kind != kInward) return;
  LiRemove(head, out);
  if (c.last < 0) return;
  *out = c.loops[0];
  c.loops[0] = nullptr;
}

// A closed result starts at the element numbered like k's first, when one
// is.
void StartLikeSource(LI_TAB_STRUCT **out, const LI_TAB_STRUCT *k) {
  LI_TAB_STRUCT *e = *out;
  do {
    if (e->no == k->no) {
      *out = e;
      return;
    }
    e = e->next;
  } while (e != *out);
}

// Runs the steps after the raw offset `work` was made: the end arcs of an
// open offset, phantom arcs, the clean-up (unless `clean` is false) and
// the choice of the result.
uint16_t CleanOffset(LI_HEAD *head, const LI_TAB_STRUCT *k, const Kind &kind, LI_TAB_STRUCT *work,
                     bool clean, uint16_t n, int32_t rem_short, LI_TAB_STRUCT **out) {
  Cleaned c;
  c.work = work;
  uint16_t status = kind.closed ? uint16_t{PA_OK} : DropCollapsedEnds(head, &c.work);
  if (status == PA_OK) RemovePhantomArcs(head, &c.work);
  if (status == PA_OK && clean) {
    status = FlCleanKont(head, &c.work, kind.sign, kind.kind, out, &c.loops, &c.last, &c.no_cross,
                         n, rem_short);
    if (status == PA_OK) Choose(head, kind, c, out);
  } else if (status == PA_OK) {
    *out = c.work;
    c.work = nullptr;
  }
  if (status != PA_OK) LiRemove(head, out);
  if (status == PA_OK && kind.closed && *out != nullptr) StartLikeSource(out, k);
  LiRemove(head, &c.work);
  FlFreeList(head, &c.loops, c.last);
  return status;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlParallClean(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                                  LI_TAB_STRUCT **out, uint16_t mode, uint16_t n, int32_t rem_short,
                                  int32_t examine, uint16_t *counter, uint16_t per_elem) {
  if (head == nullptr || out == nullptr || counter == nullptr) return PA_INVALID;
  *out = nullptr;
  if (k == nullptr) return PA_INVALID;
  // The kind follows the side the elements really move to.
  const int16_t moves_to = static_cast<int16_t>(d < 0.0 ? -static_cast<int16_t>(side) : side);
  const Kind kind = KindOf(k, moves_to, examine != 0);
  LI_TAB_STRUCT *work = nullptr;
  if (const uint16_t status =
          FlParallel(head, k, side, d, &work, kind.closed ? 1 : 0, mode, counter, per_elem);
      status != PA_OK) {
    return status;
  }
  const bool clean = std::fabs(d) > Tol() && n != FL_NO_CLEANUP;
  return CleanOffset(head, k, kind, work, clean, n, rem_short, out);
}

extern "C" uint16_t FlConicClean(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                                 const double *dist, const void *pass, LI_TAB_STRUCT **out,
                                 int32_t closed) {
  if (head == nullptr || out == nullptr) return PA_INVALID;
  *out = nullptr;
  if (k == nullptr || dist == nullptr) return PA_INVALID;
  const Kind kind = KindOf(k, static_cast<int16_t>(side), closed != 0);
  LI_TAB_STRUCT *work = nullptr;
  if (const uint16_t status =
          FlConic(head, k, side, dist, pass, &work, kind.closed ? 1 : 0, FL_CORNER_SHARP);
      status != PA_OK) {
    return status;
  }
  return CleanOffset(head, k, kind, work, true, 0, 0, out);
}

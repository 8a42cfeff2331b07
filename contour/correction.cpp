// Repairs after computation: moving a contour's start onto a given point,
// and removing tiny or short elements and re-joining what is left.
#include <cmath>

#include "contour/new_line.h"
#include "contour/short_elements.h"
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
  if (const uint16_t status = NewExpandedLine(head, p, e->ap, line); status != PA_OK) return status;
  SpliceBefore(e, line);
  *kont = line;
  return PA_OK;
}

// p is off the tangent line: only an arc whose circle carries p can move
// its start there, and not onto its own end. An arc's end stays where its
// successor starts; for a full circle that is the whole contour, its
// successor is itself, so its end moves with its start and it stays a
// closed full circle, now starting at p. (A full circle followed by other
// elements becomes the arc from p to where they start, as any arc would.)
uint16_t CorrectOnCircle(LI_TAB_STRUCT *e, GE_POINT p, double tol) {
  if (!IsArc(*e)) return PA_IMPOSSIBLE;
  if (std::fabs(Norm(p - e->mp) - e->rad) >= tol) return PA_IMPOSSIBLE;
  if (CoincidePerAxis(p, e->ep, tol)) return PA_IMPOSSIBLE;
  if (e->next == e && IsFullCircle(*e, tol)) e->ep = p;
  e->ap = p;
  return LiElemExpand(e);
}

// Deletes, in one pass in chain order, the elements of the contour for
// which tiny(e, only) holds, only being true when e is the last element
// left. keep(e) is called for every element that stays, in order, with
// whether elements were deleted since the previous one that stayed.
// The walk ends at the element that was last when it began (deleting an
// element leaves its successor's place unchanged), so it needs no count.
template <class Tiny, class Keep>
void DeleteEach(LI_HEAD *head, LI_TAB_STRUCT **kont, Tiny tiny, Keep keep) {
  LI_TAB_STRUCT *e = *kont;
  const LI_TAB_STRUCT *const last = e->prev;
  bool deleted = false;
  for (;;) {
    LI_TAB_STRUCT *next = e->next;
    const bool at_last = e == last;
    if (tiny(*e, next == e)) {
      LiDel(head, kont, e);
      deleted = true;
    } else {
      keep(e, deleted);
      deleted = false;
    }
    if (at_last) break;
    e = next;
  }
}

// LiCountElem(k) < 2 without walking the chain.
bool FewerThanTwo(const LI_TAB_STRUCT *k) { return k == nullptr || k->next == k; }

// Calls step(e) for every element in chain order; an open contour's last
// element is left out.
template <class Step>
void ForEachJoint(LI_TAB_STRUCT *k, bool closed, Step step) {
  LI_TAB_STRUCT *last = k->prev;
  for (LI_TAB_STRUCT *e = k;; e = e->next) {
    if (e == last && !closed) return;
    step(e);
    if (e == last) return;
  }
}

// Lines whose chord is below 10 x tol go; so does every other element
// (moves included) unless its radius is at least 10 x tol and its chord
// is too, or it is all that is left.
bool TooSmall(const LI_TAB_STRUCT &e, bool only, double tol) {
  const double limit = 10.0 * tol;
  const double chord = Dist(e.ap, e.ep);
  if (e.type == LI_LINE) return chord < limit;
  return !(std::fabs(e.rad) >= limit && (chord >= limit || only));
}

// Joins every element's end to its successor's start and recomputes it;
// the status of the last element handled.
uint16_t Rejoin(LI_TAB_STRUCT *k, bool closed) {
  uint16_t status = PA_OK;
  ForEachJoint(k, closed, [&status](LI_TAB_STRUCT *e) {
    e->ep = e->next->ap;
    status = PA_OK;
    if (IsArc(*e)) {
      e->rad = std::fabs(e->rad);
      status = LiRadKorr(e);
    }
    if (status == PA_OK) status = LiElemExpand(e);
  });
  return status;
}

// Arcs that are nearly straight at the scale min become lines; see
// FlattenArc.
void Flatten(LI_TAB_STRUCT *k, double min) {
  const double tol = Tol();
  LI_TAB_STRUCT *e = k;
  do {
    FlattenArc(*e, min, tol);
    e = e->next;
  } while (e != k);
}

}  // namespace

// Each is recomputed as a line at once, so that one the final
// recomputation leaves out (the last element of an open contour, or the
// only one left) holds a line's fields too; the status of this
// recomputation is not reported, the later one reports it for every
// element it reaches.
void FlattenArc(LI_TAB_STRUCT &e, double min, double tol) {
  if (!IsArc(e)) return;
  const double bow = std::fabs(LiElemLen(&e) - Dist(e.ap, e.ep));
  const double sagitta = (1.0 - std::cos(0.5 * CoveredSweep(e, tol))) * e.rad;
  if (bow < min && sagitta < min) {
    e.type = LI_LINE;
    LiElemExpandDrawVectorized(&e);
  }
}

// The chord is at least as long as either of its axis spans (hypot rounds
// faithfully), so an element that spans min along an axis is not short
// without taking the root: the removal runs over every element of every
// Boolean's copies.
bool IsShort(const LI_TAB_STRUCT &e, bool only, double min) {
  if (only) return false;
  const GE_POINT span = e.ep - e.ap;
  const bool long_chord = std::fabs(span.x) >= min || std::fabs(span.y) >= min;
  const bool short_chord = !long_chord && Dist(e.ap, e.ep) < min;
  if (IsLine(e)) return short_chord;
  return min > e.rad || short_chord;
}

uint16_t Recompute(LI_TAB_STRUCT *e) {
  if (IsArc(*e)) {
    const uint16_t status = LiRadKorr(e);
    return static_cast<uint16_t>(status | LiElemExpand(e));
  }
  if (IsLine(*e)) return LiElemExpandDrawVectorized(e);
  return LiElemExpand(e);
}

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

extern "C" uint16_t LiKorrKont(LI_HEAD *head, LI_TAB_STRUCT **kont, int32_t closed) {
  if (head == nullptr || kont == nullptr) return PA_INVALID;
  if (FewerThanTwo(*kont)) return PA_OK;
  const double tol = Tol();
  DeleteEach(
      head, kont, [tol](const LI_TAB_STRUCT &e, bool only) { return TooSmall(e, only, tol); },
      [](LI_TAB_STRUCT *, bool) {});
  if (FewerThanTwo(*kont)) return PA_OK;
  return Rejoin(*kont, closed != 0);
}

extern "C" uint16_t LiRemShort(LI_HEAD *head, LI_TAB_STRUCT **kont, int32_t closed, double min,
                               int32_t flatten) {
  if (head == nullptr || kont == nullptr) return PA_INVALID;
  if (FewerThanTwo(*kont)) return PA_OK;
  if (flatten != 0) Flatten(*kont, min);
  // Every element is recomputed once its end is final, in the same walk:
  // an inner element when the next one stays, the first and the last at
  // the end (the last one's end closes the contour, and the first one's
  // start is read then). Each recomputation touches its own element only,
  // so the order does not matter; the statuses are joined.
  LI_TAB_STRUCT *kept = nullptr, *first_kept = nullptr;
  uint16_t status = PA_OK;
  DeleteEach(
      head, kont, [min](const LI_TAB_STRUCT &e, bool only) { return IsShort(e, only, min); },
      [&](LI_TAB_STRUCT *e, bool after_gap) {
        // Close the gap that deletions left behind the last element kept.
        if (after_gap && kept != nullptr) kept->ep = e->ap;
        if (kept != nullptr && kept != first_kept) status |= Recompute(kept);
        if (first_kept == nullptr) first_kept = e;
        kept = e;
      });
  if (FewerThanTwo(*kont)) return PA_OK;
  LI_TAB_STRUCT *first = *kont;
  if (closed != 0) first->prev->ep = first->ap;
  status |= Recompute(first);
  // An open contour's last element is left as it is.
  if (closed != 0) status |= Recompute(first->prev);
  return status;
}
